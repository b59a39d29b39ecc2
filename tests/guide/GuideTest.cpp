// Every C++ snippet of docs/guide.md, compiled and run in a folder holding the guide's sample
// document, so that the guide cannot drift from the library.

// The guide states facts with assert: they are checked here whatever the build type.
#undef NDEBUG
#include <cassert>

#include "orders.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

using namespace QxXmlLib16;

namespace {

class GuideSnippet : public testing::Test {
protected:
    void SetUp() override {
        m_previous = std::filesystem::current_path();
        m_folder = std::filesystem::path(testing::TempDir()) /
                   ("guide-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::create_directories(m_folder);
        std::filesystem::copy_file(QX_GUIDE_FOLDER "/order-17.xml", m_folder / "order-17.xml",
                                   std::filesystem::copy_options::overwrite_existing);
        std::filesystem::current_path(m_folder);
    }
    void TearDown() override {
        std::filesystem::current_path(m_previous);
        std::filesystem::remove_all(m_folder);
    }

private:
    std::filesystem::path m_previous, m_folder;
};

#include "guide_snippets.inc"

// A snippet that stops compiling or running fails above; this guards the harness: no C++ block of
// the guide escapes it.
TEST(Guide, EverySnippetBecameATest) {
    std::ifstream guide(QX_GUIDE_FOLDER "/../guide.md");
    std::string line;
    int snippets = 0;
    while (std::getline(guide, line))
        snippets += line.rfind("```cpp", 0) == 0;
    EXPECT_GT(snippets, 0);
    EXPECT_EQ(snippets, kGuideSnippets);
}

} // namespace
