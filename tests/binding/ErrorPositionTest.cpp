// Every load error from XML text names the line and column of the offending node, whatever the entry
// point, the encoding or the compression of the text; the messages stay as they are.

#include "GpxBindings.h"
#include "support/Failure.h"
#include "support/TempFile.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <functional>

using namespace QxXmlLib16;

namespace {

const std::wstring kGpx =
    L"<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" creator=\"qx\">\n";

struct Case {
    const char* name;
    std::wstring document;
    Failure expected;
    unsigned long line, column;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

std::wstring Invalid(const wchar_t* name, const wchar_t* value) {
    return FormatString(L"Invalid Value for %ls [%ls].", name, value);
}

// clang-format off
const Case kCases[] = {
    // A facet of an attribute: the attribute itself, also when it stands on a line of its own.
    {"AttributeFacet", L"<?xml version=\"1.0\"?>\n" + kGpx +
        L"  <wpt lat=\"51.5\" lon=\"-0.1\"/>\n"
        L"  <wpt lat=\"95.5\" lon=\"0\"/>\n</gpx>\n",
     {Invalid(L"lat", L"95.5"), L"/gpx/wpt[2]/@lat"}, 4, 8},
    {"AttributeOnALineOfItsOwn", kGpx +
        L"  <wpt lat=\"1\"\n"
        L"       lon=\"180\"/>\n</gpx>",
     {Invalid(L"lon", L"180"), L"/gpx/wpt/@lon"}, 3, 8},
    // Declarations among the attributes are no attributes of the element.
    {"AttributeAfterDeclarations", kGpx +
        L"  <wpt xmlns:a=\"urn:a\" xmlns:b=\"urn:b\" lon=\"1\" lat=\"-91\"/>\n</gpx>",
     {Invalid(L"lat", L"-91"), L"/gpx/wpt/@lat"}, 2, 48},
    // The path names the attribute by the document's first prefix for its namespace.
    {"ForeignAttribute", kGpx +
        L"  <wpt lat=\"1\" lon=\"2\" xmlns:b=\"urn:a\" b:x=\"1\" xmlns:a=\"urn:a\"/>\n</gpx>",
     {L"Unexpected Attribute found.", L"/gpx/wpt/@a:x"}, 2, 40},
    // Elements: the start of their start tag.
    {"ElementValue", kGpx +
        L"  <wpt lat=\"1\" lon=\"2\">\n"
        L"    <magvar>360</magvar>\n  </wpt>\n</gpx>",
     {Invalid(L"magvar", L"360"), L"/gpx/wpt/magvar"}, 3, 5},
    {"ColumnAfterWideCharacters", kGpx +
        L"  <wpt lat=\"1\" lon=\"2\"><name>\u00dcn\u00efc\u00f8d\u00e9 \u4e16\u754c</name><fix>4d</fix></wpt>\n</gpx>",
     {L"The value [4d] is not a valid fixType", L"/gpx/wpt/fix"}, 2, 47},
    // CR LF is one line end.
    {"WindowsLineEnds",
     L"<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" creator=\"qx\">\r\n"
        L"\r\n  <wpt lat=\"1\" lon=\"2\">\r\n    <dgpsid>1024</dgpsid>\r\n  </wpt>\r\n</gpx>",
     {Invalid(L"dgpsid", L"1024"), L"/gpx/wpt/dgpsid"}, 4, 5},
    // On the first line, where a byte order mark in front of the text is no column.
    {"OnTheFirstLine", L"<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.0\" creator=\"qx\"/>",
     {Invalid(L"version", L"1.0"), L"/gpx/@version"}, 1, 48},
    {"MalformedOnTheFirstLine", kGpx.substr(0, kGpx.size() - 1) + L"<wpt lat=\"1\" lon=\"2\"></trk></gpx>",
     {L"mismatched tag at line 1", L""}, 1, 98},
    // Malformed text: where the parser stopped (at the name of a mismatched end tag), which the
    // message names as well.
    {"MismatchedTag", kGpx + L"  <metadata>\n    <name>n</nam>\n  </metadata>\n</gpx>",
     {L"mismatched tag at line 3", L""}, 3, 14},
    {"MalformedAfterInvalid", kGpx + L"  <wpt lat=\"91\" lon=\"2\"/>\n  <trk>\n</gpx>",
     {L"mismatched tag at line 4", L""}, 4, 3},
};
// clang-format on

// One way into the library: the document's text in, the failure out.
struct EntryPoint {
    const char* name;
    std::function<void(const std::wstring& document)> load;
};

CSmartPtr<CXmlObjectBase> NewGpx() {
    return new Gpx::CGpx();
}

std::string ToBytes(const CBinaryData& data) {
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

std::string Utf8(const std::wstring& text) {
    return ToBytes(CEncoder::UnicodeToUtf8Binary(text.c_str()));
}

// UTF-16, big-endian with a byte order mark: the bytes do not look like UTF-8 at all.
std::string Utf16(const std::wstring& text) {
    std::string bytes("\xFE\xFF", 2);
    for (wchar_t c : text) {
        bytes += static_cast<char>(c >> 8);
        bytes += static_cast<char>(c & 0xFF);
    }
    return bytes;
}

// Compressed after a comment that lets even the shortest document shrink, as compressing requires.
std::string Compressed(std::string bytes, CompressionType type) {
    bytes += "\n<!--" + std::string(400, ' ') + "-->\n";
    CBinaryData data(reinterpret_cast<unsigned char*>(&bytes[0]), static_cast<unsigned long>(bytes.size()),
                     false);
    CQxZip::CompressData(data, type);
    return ToBytes(data);
}

std::wstring TempFile(const std::string& bytes) {
    const std::string path = TempPath("qx-error-position.gpx");
    std::ofstream(path, std::ios::binary) << bytes;
    return std::wstring(path.begin(), path.end());
}

void FromBytes(const std::string& bytes) {
    NewGpx()->FromXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                            static_cast<unsigned long>(bytes.size()));
}

const EntryPoint kEntryPoints[] = {
    {"WideText", [](const std::wstring& d) { NewGpx()->FromXml(d.c_str()); }},
    {"NarrowText", [](const std::wstring& d) { NewGpx()->FromXml(Utf8(d).c_str()); }},
    {"Bytes", [](const std::wstring& d) { FromBytes(Utf8(d)); }},
    {"Utf16Bytes", [](const std::wstring& d) { FromBytes(Utf16(d)); }},
    {"Utf8BytesWithByteOrderMark", [](const std::wstring& d) { FromBytes("\xEF\xBB\xBF" + Utf8(d)); }},
    {"GzipBytes", [](const std::wstring& d) { FromBytes(Compressed(Utf8(d), ctGzip)); }},
    {"File", [](const std::wstring& d) { NewGpx()->FromXmlFile(TempFile(Utf8(d)).c_str()); }},
    {"ZlibFile",
     [](const std::wstring& d) { NewGpx()->FromXmlFile(TempFile(Compressed(Utf8(d), ctZlib)).c_str()); }},
    {"LoadDocumentBytes",
     [](const std::wstring& d) { Gpx::LoadDocument(CEncoder::UnicodeToUtf8Binary(d.c_str())); }},
    {"LoadDocumentGzipFile",
     [](const std::wstring& d) { Gpx::LoadDocument(TempFile(Compressed(Utf8(d), ctGzip)).c_str()); }},
};

class ErrorPosition : public testing::TestWithParam<Case> {};

TEST_P(ErrorPosition, NamesTheLineAndColumnOfTheOffendingNodeThroughEveryEntryPoint) {
    const Case& c = GetParam();
    for (const EntryPoint& entry : kEntryPoints) {
        SCOPED_TRACE(entry.name);
        try {
            entry.load(c.document);
            ADD_FAILURE() << "loaded";
        } catch (const CQxException& e) {
            EXPECT_EQ(FailureOf(e), c.expected);
            EXPECT_EQ(std::to_string(e.GetLine()) + ":" + std::to_string(e.GetColumn()),
                      std::to_string(c.line) + ":" + std::to_string(c.column));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, ErrorPosition, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<Case>& info) {
                             return std::string(info.param.name);
                         });

// What has no XML text to point into has no position: Fast Infoset, and a JSON document, whose
// errors would otherwise point into the XML text the JSON is translated into.
TEST(ErrorPosition, NoneWithoutXmlText) {
    // Untyped content keeps what the GPX bindings refuse.
    const CSmartPtr<CXmlObjectBase> invalid = CSmartPtr<CXmlObjectBase>(new CElement(L"any"));
    invalid->FromXml((kGpx + L"<wpt lat=\"91\" lon=\"2\"/></gpx>").c_str());
    const CSerializationContext& context = CSerializationContext::m_defaultContext;
    const std::function<void()> loads[] = {
        [&] { FromBytes(ToBytes(invalid->ToFastInfosetStream(fidNone, context, ctNone))); },
        [&] { NewGpx()->FromJson(invalid->ToJson(true, eolLF, context).c_str()); },
        [&] { Gpx::LoadDocument(invalid->ToJsonStream(false, encUTF8, eolLF, context, ctNone)); },
    };
    for (const auto& load : loads) {
        try {
            load();
            ADD_FAILURE() << "loaded";
        } catch (const CQxException& e) {
            EXPECT_EQ(FailureOf(e).message, Invalid(L"lat", L"91"));
            EXPECT_FALSE(e.HasPosition());
        }
    }
}

// JSON that is no JSON: the reader's line and position, which its message names too.
TEST(ErrorPosition, JsonSyntaxErrorsNameTheirLineAndPosition) {
    const CSmartPtr<CXmlObjectBase> gpx = NewGpx();
    try {
        gpx->FromJson(L"{\n  \"gpx\": {\n    \"@version\" \"1.1\"\n  }\n}");
        ADD_FAILURE() << "loaded";
    } catch (const CQxException& e) {
        EXPECT_NE(FailureOf(e).message.find(L"at line 3, position 16."), std::wstring::npos) << FailureOf(e);
        EXPECT_EQ(e.GetLine(), 3u);
        EXPECT_EQ(e.GetColumn(), 16u);
    }
}

} // namespace
