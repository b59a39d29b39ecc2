// The document of a bound load, read while the parser is still under way: the accessors read on as
// far as they need, paths and aliases see the whole document, and released elements keep their place.

#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "xml/StreamedLoad.h"

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;
using internal::CStreamedLoad;

namespace {

// More elements than the parser reads past the one asked for.
std::string Filler() {
    std::string filler;
    for (int i = 0; i < 2000; ++i)
        filler += "<d/>";
    return filler;
}

class StreamedDocument : public testing::Test {
protected:
    const CXmlElement* Load(const std::string& text) {
        m_text = text;
        m_document.LoadXml(m_text.c_str());
        return m_document.GetDocumentElement();
    }

    CXmlDocument m_document;
    CStreamedLoad m_stream{m_document};
    std::string m_text;
};

TEST_F(StreamedDocument, PositionsCountTheSiblingsFurtherOn) {
    const CXmlElement* root = Load("<a><b/><c>" + Filler() + "</c><b/></a>");
    EXPECT_EQ(L"/a/b[1]", root->GetFirstElement()->GetXPath());
}

TEST_F(StreamedDocument, AliasesSeeDeclarationsFurtherOn) {
    const CXmlElement* root = Load("<p:a xmlns:p='urn:x'><p:b/>" + Filler() + "<p:e xmlns:a='urn:x'/></p:a>");
    EXPECT_EQ(L"a:b", root->GetFirstElement()->GetQName());
}

TEST_F(StreamedDocument, ReleasedElementsKeepTheirPlace) {
    const CXmlElement* root = Load("<a><b k='v'>t<x/></b><b><x/></b><c/></a>");
    CXmlElement* first = root->GetFirstElement();
    ASSERT_NE(nullptr, first->GetFirstElement());
    CStreamedLoad::Release(first);
    EXPECT_EQ(nullptr, first->GetFirstElement());
    EXPECT_TRUE(first->GetAttributes().empty());
    EXPECT_EQ(L"", first->GetText());
    const CXmlElement* second = first->GetNextSiblingElement();
    EXPECT_EQ(L"/a/b[2]", second->GetXPath());
    EXPECT_EQ(L"/a/b[1]", first->GetXPath());
    EXPECT_EQ(L"x", second->GetFirstElement()->GetLocalName());
}

// Released before its end tag was read: what was read of it goes at its end, the rest unbuilt.
TEST_F(StreamedDocument, ReleasingAnOpenElementDropsItsContent) {
    const CXmlElement* root = Load("<a><b><x/>" + Filler() + "<y>text</y></b><c>kept</c></a>");
    CXmlElement* b = root->GetFirstElement();
    ASSERT_EQ(L"x", b->GetFirstElement()->GetLocalName());
    CStreamedLoad::Release(b);
    const CXmlElement* c = b->GetNextSiblingElement();
    ASSERT_NE(nullptr, c);
    EXPECT_EQ(L"kept", c->GetText());
    EXPECT_EQ(nullptr, b->GetFirstElement());
    EXPECT_EQ(L"", b->GetText());
}

} // namespace
