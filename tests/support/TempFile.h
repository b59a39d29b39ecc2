#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <unistd.h>

// A path in the system's temporary folder that no other test process uses: ctest runs tests in
// parallel processes, and several of them may write a file of the same name at once.
inline std::string TempPath(const std::string& name) {
    return testing::TempDir() + "qx" + std::to_string(getpid()) + "-" + name;
}

// A file of the given bytes in the system's temporary folder, removed at the end of the test.
class TempFile {
public:
    explicit TempFile(const std::string& bytes) {
        std::string name = testing::TempDir() + "qxtestXXXXXX";
        const int fd = mkstemp(&name[0]);
        EXPECT_EQ(static_cast<ssize_t>(bytes.size()), write(fd, bytes.data(), bytes.size()));
        close(fd);
        m_name = name;
    }
    ~TempFile() { std::remove(m_name.c_str()); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    std::wstring Name() const { return std::wstring(m_name.begin(), m_name.end()); }

private:
    std::string m_name;
};
