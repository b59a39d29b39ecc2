#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include "support/TreeWalk.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <string>
#include <unistd.h>
#include <vector>

using namespace QxXmlLib16;

namespace {

std::vector<std::string> GpxDocuments() {
    std::vector<std::string> names;
    const std::string folder = std::string(QX_SHARED_DATA_DIR) + "/gpx/";
    if (DIR* dir = opendir(folder.c_str())) {
        while (dirent* entry = readdir(dir)) {
            const std::string name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".gpx") == 0)
                names.push_back(folder + name);
        }
        closedir(dir);
    }
    return names;
}

class GpxRoundTrip : public testing::TestWithParam<std::string> {};

} // namespace

TEST_P(GpxRoundTrip, ReloadedOutputIsTheSameTreeAndWellFormed) {
    const std::string& path = GetParam();
    CXmlDocument original;
    original.Load(std::wstring(path.begin(), path.end()).c_str());

    // The parser's surrogate pairs must come out as single UTF-8 characters for beyond-BMP text to survive.
    CTextStream stream(encUTF8);
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    writer.WriteStartDocument();
    WriteTree(*original.GetDocumentElement(), writer);
    writer.Close();
    CBinaryData bytes = stream.GetEncodedStream();

    CXmlDocument reloaded;
    reloaded.LoadXmlStream(const_cast<unsigned char*>(bytes.GetData()), bytes.GetLength());
    EXPECT_EQ(L"", TreeDifference(*original.GetDocumentElement(), *reloaded.GetDocumentElement()));

    std::string name = testing::TempDir() + "qxroundtripXXXXXX";
    const int fd = mkstemp(&name[0]);
    ASSERT_EQ(static_cast<ssize_t>(bytes.GetLength()), write(fd, bytes.GetData(), bytes.GetLength()));
    close(fd);
    const int status = std::system(("xmllint --noout " + name).c_str());
    std::remove(name.c_str());
    EXPECT_EQ(0, status);
}

INSTANTIATE_TEST_SUITE_P(SharedData, GpxRoundTrip, testing::ValuesIn(GpxDocuments()),
                         [](const testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param.substr(info.param.rfind('/') + 1);
                             for (char& c : name)
                                 if (!isalnum(static_cast<unsigned char>(c))) c = '_';
                             return name;
                         });
