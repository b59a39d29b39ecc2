#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;

namespace {

std::wstring ParseError(const std::string& bytes) {
    CXmlDocument document;
    std::string copy = bytes;
    try {
        document.LoadXmlStream(reinterpret_cast<unsigned char*>(&copy[0]), copy.size());
    } catch (const CQxException& e) {
        return e.GetMessage();
    }
    return L"(nothing thrown)";
}

std::wstring RootText(const std::string& bytes, const CSerializationContext& context) {
    CXmlDocument document(context);
    std::string copy = bytes;
    document.LoadXmlStream(reinterpret_cast<unsigned char*>(&copy[0]), copy.size());
    return document.GetDocumentElement()->GetText();
}

std::wstring RootText(const std::string& bytes) {
    return RootText(bytes, CSerializationContext::m_defaultContext);
}

} // namespace

TEST(ExpatReaderNames, NamespacesSplitFromLocalNamesUnlessTheyAreIgnored) {
    CXmlDocument document;
    document.LoadXml("<a xmlns='urn:x' xmlns:p='urn:p' p:x='1' y='2'><b xmlns:p='urn:q'/></a>");
    const CXmlElement* a = document.GetDocumentElement();
    EXPECT_EQ(L"{urn:x}a {urn:x}b", L"{" + a->GetNamespaceURI() + L"}" + a->GetLocalName() + L" {" +
                                        a->GetFirstElement()->GetNamespaceURI() + L"}" +
                                        a->GetFirstElement()->GetLocalName());
    ASSERT_EQ(2u, a->GetAttributes().size());
    EXPECT_EQ(L"x", a->GetAttributes()[0]->GetLocalName());
    EXPECT_EQ(L"urn:p", a->GetAttributes()[0]->GetNamespaceURI());
    EXPECT_EQ(L"", a->GetAttributes()[1]->GetNamespaceURI()); // unprefixed: no default namespace
    EXPECT_EQ(L"urn:x", document.LookupNamespaceFromAlias(L""));
    EXPECT_EQ(L"urn:q", document.LookupNamespaceFromAlias(L"p")); // document-wide: the last declaration

    CSerializationContext context;
    context.SetSchemaType(stNoNamespaces);
    CXmlDocument verbatim(context);
    verbatim.LoadXml("<p:a xmlns:p='urn:p' p:x='1'/>");
    EXPECT_EQ(L"p:a", verbatim.GetDocumentElement()->GetLocalName());
    EXPECT_EQ(L"", verbatim.GetDocumentElement()->GetNamespaceURI());
    EXPECT_EQ(L"1", verbatim.GetDocumentElement()->GetAttribute(L"p:x", L""));
}

TEST(ExpatReaderText, EntitiesLineEndsAndLongRuns) {
    EXPECT_EQ(L"a&b\nc\nd", RootText("<a>a&amp;b\r\nc\rd</a>"));
    for (size_t length : {254u, 255u, 256u, 5000u}) {
        const std::string text(length, 'x');
        EXPECT_EQ(std::wstring(length, L'x') + L"&" + std::wstring(length, L'x'),
                  RootText("<a>" + text + "&amp;" + text + "</a>"));
        CXmlDocument document;
        document.LoadXml(("<a v='" + text + "'/>").c_str());
        EXPECT_EQ(std::wstring(length, L'x'), document.GetDocumentElement()->GetAttribute(L"v", L""));
    }
}

TEST(ExpatReaderText, CDataKeptOrStripped) {
    EXPECT_EQ(L"x<y", RootText("<a><![CDATA[x<y]]></a>"));
    CSerializationContext context;
    context.SetStripCDATA(false);
    EXPECT_EQ(L"<![CDATA[x<y]]>", RootText("<a><![CDATA[x<y]]></a>", context));
}

TEST(ExpatReaderEncodings, ExpatDecodesEveryDeclaredForm) {
    const std::wstring expected = L"\u00E9\u20AC";
    EXPECT_EQ(expected, RootText("<a>\xC3\xA9\xE2\x82\xAC</a>"));
    EXPECT_EQ(expected, RootText("\xEF\xBB\xBF<a>\xC3\xA9\xE2\x82\xAC</a>"));
    EXPECT_EQ(L"\u00E9\u00A4", RootText("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9\xA4</a>"));
    std::string le = "\xFF\xFE", be = "\xFE\xFF";
    for (wchar_t c : std::wstring(L"<a>") + expected + L"</a>") {
        le += static_cast<char>(c & 0xFF);
        le += static_cast<char>(c >> 8);
        be += static_cast<char>(c >> 8);
        be += static_cast<char>(c & 0xFF);
    }
    EXPECT_EQ(expected, RootText(le));
    EXPECT_EQ(expected, RootText(be));
}

TEST(ExpatReaderErrors, MalformedInputNamesReasonAndLine) {
    const std::pair<std::string, const wchar_t*> cases[] = {
        {"<a>\n<b>\n</a>", L"mismatched tag at line 3"},
        {"<a>\x01</a>", L"not well-formed (invalid token) at line 1"},
        {"<p:a/>", L"unbound prefix at line 1"},
        {"<a><b>", L"no element found at line 1"},
        {"<a/><b/>", L"junk after document element at line 1"},
        {"<a>&undefined;</a>", L"undefined entity at line 1"},
        {"<a x='1' x='2'/>", L"duplicate attribute at line 1"},
        {"   ", L"no element found at line 1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.second, ParseError(c.first)) << c.first;
    EXPECT_EQ(L"not well-formed (invalid token) at line 1", ParseError(std::string("<a>x\0y</a>", 10)));
}

TEST(ExpatReaderErrors, TreeReadBeforeTheErrorKeepsItsText) {
    CXmlDocument document;
    EXPECT_THROW(document.LoadXml("<a>head<b>inner</b>tail<c>\x01</c></a>"), CQxException);
    const CXmlElement* a = document.GetDocumentElement();
    ASSERT_NE(nullptr, a);
    EXPECT_EQ(L"headtail", a->GetText());
    EXPECT_EQ(L"inner", a->GetFirstElement()->GetText());
}
