// Large and hostile shapes of XML text: files streamed through the element-complete callback and an
// element with a great many namespace declarations (enormous texts, attributes and sibling lists
// are proven through the bindings). Sizes stay modest here; bench/hostile_bench.cpp measures time
// and memory at full size.

#include "support/TempFile.h"

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

using namespace QxXmlLib16;

namespace {

// What the callback below saw: every <p> is counted, its text summed up and dropped; the rest stays.
struct Seen {
    long points = 0;
    size_t textLength = 0;
    size_t openAtMost = 0;
} g_seen;

bool DropPoints(CXmlElement* element) {
    if (element->GetLocalName() != L"p") return false;
    ++g_seen.points;
    g_seen.textLength += element->GetText().size();
    return true;
}

// count <p> elements of about 40 bytes each, then a <tail> whose text is long enough to cross
// pieces of the file, then the given ending.
std::string Points(long count, size_t tailLength, const std::string& ending = "</doc>") {
    std::string xml = "<?xml version='1.0'?>\n<doc xmlns='urn:d'>\n";
    for (long i = 0; i < count; ++i)
        xml += "<p n='" + std::to_string(i) + "'>a&amp;b\r\nc" + std::to_string(i % 10) + "</p>\n";
    xml += "<tail>" + std::string(tailLength, 't') + "</tail>";
    return xml + ending;
}

std::wstring LoadFailure(CXmlDocument& document, const std::wstring& file) {
    try {
        document.Load(file.c_str());
    } catch (const CQxException& e) {
        return e.GetMessage();
    }
    return L"(no exception)";
}

} // namespace

// A file several times the piece it is read in: every element reaches the callback whole, text
// split between pieces included, and only what the callback keeps is left.
TEST(StreamedFile, EveryElementReachesTheCallbackAcrossPieces) {
    const long count = 120000; // about 4 MB
    const TempFile file(Points(count, 3u << 20));
    g_seen = Seen();
    CXmlDocument document(DropPoints);
    document.Load(file.Name().c_str());
    EXPECT_EQ(count, g_seen.points);
    EXPECT_EQ(static_cast<size_t>(count) * 6, g_seen.textLength); // "a&b\nc" and a digit, no CR
    const CXmlElement* root = document.GetDocumentElement();
    ASSERT_NE(nullptr, root->GetFirstElement());
    EXPECT_EQ(L"tail", root->GetFirstElement()->GetLocalName());
    EXPECT_EQ(nullptr, root->GetFirstElement()->GetNextSiblingElement());
    EXPECT_EQ(size_t(3) << 20, root->GetFirstElement()->GetText().size());
}

// A fault far into the file reports the same line as a load of the whole document does (each point
// takes two lines).
TEST(StreamedFile, FaultFarInReportsItsLine) {
    const std::string text = Points(60000, 10, "</wrong></doc>");
    CXmlDocument whole;
    const std::wstring expected = [&] {
        try {
            whole.LoadXml(text.c_str());
        } catch (const CQxException& e) {
            return e.GetMessage();
        }
        return std::wstring(L"(no exception)");
    }();
    EXPECT_NE(std::wstring::npos, expected.find(L" at line 120003"))
        << std::string(expected.begin(), expected.end());
    const TempFile file(text);
    CXmlDocument streamed(DropPoints);
    EXPECT_EQ(expected, LoadFailure(streamed, file.Name()));
}

// Compressed files and Fast Infoset are read whole and still reach the callback; an empty file
// fails as it does without a callback.
TEST(StreamedFile, CompressedAndEmptyFilesAsWithoutCallback) {
    std::string text = Points(1000, 10);
    unsigned long length = static_cast<unsigned long>(text.size());
    unsigned char* bytes = static_cast<unsigned char*>(std::malloc(length));
    std::memcpy(bytes, text.data(), length);
    CQxZip::Compress(&bytes, &length, ctGzip);
    const TempFile gzip(std::string(reinterpret_cast<char*>(bytes), length));
    std::free(bytes);
    g_seen = Seen();
    CXmlDocument document(DropPoints);
    document.Load(gzip.Name().c_str());
    EXPECT_EQ(1000, g_seen.points);

    const TempFile empty("");
    CXmlDocument plain, withCallback(DropPoints);
    EXPECT_EQ(LoadFailure(plain, empty.Name()), LoadFailure(withCallback, empty.Name()));
    EXPECT_NE(L"(no exception)", LoadFailure(withCallback, empty.Name()));
}

// Namespace declarations by the hundred thousand on one element: all kept, both ways of looking up.
TEST(HugeShapes, ManyNamespaceDeclarations) {
    const int count = 200000;
    std::string declarations = "<a";
    for (int i = 0; i < count; ++i)
        declarations += " xmlns:p" + std::to_string(i) + "='urn:" + std::to_string(i) + "'";
    CXmlDocument document;
    document.LoadXml((declarations + "/>").c_str());
    EXPECT_EQ(static_cast<size_t>(count), document.GetAliasMap().size());
    EXPECT_EQ(L"urn:199999", document.LookupNamespaceFromAlias(L"p199999"));
    EXPECT_EQ(L"p199999", document.LookupAliasFromNamespace(L"urn:199999"));
}

namespace {
long g_levels;
bool CountLevelWithText(CXmlElement* element) {
    if (element->GetText() == L"x") ++g_levels;
    return false;
}
} // namespace

// A million levels, each with text before its child: every end hands the ancestors their text so
// far, which must not mean a visit of every open element at each end; the path of the deepest is
// built and the tree freed without recursion.
TEST(StreamedFile, MillionLevelsWithTextThroughTheCallback) {
    const int depth = 1000000;
    std::string xml;
    for (int i = 0; i < depth; ++i)
        xml += "<a>x";
    for (int i = 0; i < depth; ++i)
        xml += "</a>";
    const TempFile file(xml);
    g_levels = 0;
    CXmlDocument document(CountLevelWithText);
    document.Load(file.Name().c_str());
    EXPECT_EQ(depth, g_levels); // each reached the callback with its text
    const CXmlElement* deepest = document.GetDocumentElement();
    while (deepest->GetFirstElement())
        deepest = deepest->GetFirstElement();
    EXPECT_EQ(L"x", deepest->GetText());
    EXPECT_EQ(static_cast<size_t>(depth) * 2, deepest->GetXPath().size());
}
