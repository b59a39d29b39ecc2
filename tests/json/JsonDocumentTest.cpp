// The document's JSON loading forms: every source gives the same XML text, and bad bytes fail
// clearly.

#include "support/TempFile.h"
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/xml/XmlDocument.h>

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

using namespace QxXmlLib16;

namespace {

// Repetitive enough to shrink when compressed.
const char kJson[] =
    "{\"r\": {\"name\": \"caf\xC3\xA9 \xF0\x9F\x98\x80\", \"n\": [1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, "
    "2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3]}}";
const std::wstring kWideJson =
    L"{\"r\": {\"name\": \"caf\xE9 \x1F600\", \"n\": [1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, "
    L"2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3]}}";

std::string Text(const CBinaryData& bytes) {
    return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
}

std::string FileWith(const std::string& bytes) {
    const std::string path = TempPath("document_test.json");
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

CBinaryData FromStream(std::string bytes) {
    CXmlDocument document;
    return document.LoadJsonStream(reinterpret_cast<unsigned char*>(&bytes[0]),
                                   static_cast<unsigned long>(bytes.size()));
}

CBinaryData FromFile(const std::string& bytes) {
    const std::string path = FileWith(bytes);
    CXmlDocument document;
    const CBinaryData xml = document.LoadJsonFile(std::wstring(path.begin(), path.end()).c_str());
    std::remove(path.c_str());
    return xml;
}

std::string Compressed(CompressionType type) {
    CBinaryData data;
    data.SetBuffer(reinterpret_cast<const unsigned char*>(kJson), sizeof kJson - 1);
    CQxZip::CompressData(data, type);
    return Text(data);
}

} // namespace

TEST(JsonDocument, EverySourceGivesTheSameXml) {
    CXmlDocument document;
    const std::string expected = Text(document.LoadJson(kJson));
    EXPECT_EQ(0u, expected.rfind("<r>\n\t<name>caf\xC3\xA9 \xF0\x9F\x98\x80</name>\n\t<n>1</n>", 0))
        << expected;
    EXPECT_EQ(expected, Text(document.LoadJson(kWideJson.c_str())));
    const std::string withMark = "\xEF\xBB\xBF" + std::string(kJson);
    for (const std::string& bytes : {std::string(kJson), withMark, Compressed(ctGzip), Compressed(ctZlib)}) {
        EXPECT_EQ(expected, Text(FromStream(bytes)));
        EXPECT_EQ(expected, Text(FromFile(bytes)));
    }
    EXPECT_EQ(expected, Text(document.LoadJson(withMark.c_str())));
    // Loading JSON leaves the document without a tree, whatever it held before.
    document.LoadXml("<x/>");
    document.LoadJson(kJson);
    EXPECT_EQ(nullptr, document.GetDocumentElement());
}

TEST(JsonDocument, EmptyAndMissingInput) {
    CXmlDocument document;
    EXPECT_EQ(L"JSON String is empty!", MessageOf<CQxException>([&] { document.LoadJson(""); }));
    EXPECT_EQ(L"JSON String is empty!", MessageOf<CQxException>([&] { document.LoadJson(L""); }));
    EXPECT_EQ(L"JSON String is empty!",
              MessageOf<CQxException>([&] { document.LoadJson(static_cast<const char*>(nullptr)); }));
    EXPECT_EQ(L"JSON Stream is empty!",
              MessageOf<CQxException>([&] { document.LoadJsonStream(nullptr, 0); }));
    EXPECT_EQ(L"Failed to open the file [no/such.json].",
              MessageOf<CQxException>([&] { document.LoadJsonFile(L"no/such.json"); }));
    const std::string empty = FileWith("");
    const std::wstring name(empty.begin(), empty.end());
    EXPECT_EQ(L"Failed to read the contents of the file [" + name + L"] Error [0]",
              MessageOf<CQxException>([&] { document.LoadJsonFile(name.c_str()); }));
    std::remove(empty.c_str());
}

// Bytes that are not UTF-8 are refused where they stand, never replaced.
TEST(JsonDocument, InvalidUtf8IsRefusedWithItsOffset) {
    struct Case {
        std::string bytes;
        const wchar_t* message;
    } const cases[] = {
        {"{\"a\": \"\xFF\"}", L"Invalid UTF-8 in the JSON text at byte 7."},
        {"{\"a\": \"\xC3\"}", L"Invalid UTF-8 in the JSON text at byte 7."},         // truncated
        {"{\"a\": \"\xC0\xAF\"}", L"Invalid UTF-8 in the JSON text at byte 7."},     // overlong
        {"{\"a\": \"\xED\xA0\x80\"}", L"Invalid UTF-8 in the JSON text at byte 7."}, // a surrogate
        {"\xEF\xBB\xBF[\"\xF4\x90\x80\x80\"]",
         L"Invalid UTF-8 in the JSON text at byte 5."},                      // above U+10FFFF
        {"[\"ok\"] \xE2\x82", L"Invalid UTF-8 in the JSON text at byte 7."}, // cut at the end
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.message, MessageOf<CQxException>([&] { FromStream(c.bytes); }));
        CXmlDocument document;
        EXPECT_EQ(c.message, MessageOf<CQxException>([&] { document.LoadJson(c.bytes.c_str()); }));
    }
}

// A 100 MB document of one string is read in one pass, whether the string closes or not.
TEST(JsonDocument, AHundredMegabyteString) {
    std::string bytes = "{\"a\": \"" + std::string(100000000, 'x');
    EXPECT_EQ(L"Unexpected End of File. Expected string value at line 1, position 100000007.\nPath: .a",
              MessageOf<CQxValidationException>([&] { FromStream(bytes); }));
    bytes += "\"}";
    EXPECT_EQ(100000000u + 8, FromStream(bytes).GetLength()); // <a>...</a> and a line end
}
