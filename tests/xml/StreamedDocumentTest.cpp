// The document of a bound load, read while the parser is still under way: the accessors read on as
// far as they need, paths and aliases see the whole document, and released elements keep their place.

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "xml/StreamedLoad.h"

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;
using internal::CStreamedLoad;
using internal::CStreamFailure;

namespace {

// More elements than the parser reads past the one asked for.
std::string Filler(const char* name = "d") {
    std::string filler;
    for (int i = 0; i < 2000; ++i)
        filler += std::string("<") + name + "/>";
    return filler;
}

std::wstring WholeLoadError(const std::string& text) {
    try {
        CXmlDocument document;
        document.LoadXml(text.c_str());
    } catch (const CQxException& e) {
        return e.GetMessage();
    }
    return L"(no exception)";
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
    const CXmlElement* first = root->GetFirstElement();
    EXPECT_EQ(L"/a/b[1]", first->GetXPath());
    EXPECT_EQ(L"/a/c", first->GetNextSiblingElement()->GetXPath());
}

TEST_F(StreamedDocument, AliasesSeeDeclarationsFurtherOn) {
    const CXmlElement* root =
        Load("<p:a xmlns:p='urn:x'><p:b/>" + Filler("p:d") + "<p:e xmlns:a='urn:x'/></p:a>");
    EXPECT_EQ(L"a:b", root->GetFirstElement()->GetQName());
    EXPECT_EQ(L"a", m_document.LookupAliasFromNamespace(L"urn:x"));
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

// A fault in the markup met while reading on is the parse error a whole load reports; it is not a
// CQxException, so that the binding passes it on untouched.
TEST_F(StreamedDocument, MalformedInputFurtherOnFailsWithTheParseError) {
    const std::string text = "<a><b/>" + Filler() + "</x></a>";
    const CXmlElement* element = Load(text)->GetFirstElement();
    try {
        while (element)
            element = element->GetNextSiblingElement();
        FAIL() << "read to the end";
    } catch (const CStreamFailure& failure) {
        try {
            failure.Rethrow();
        } catch (const CQxException& e) {
            EXPECT_EQ(WholeLoadError(text), e.GetMessage());
        }
    }
    // Every later read reports it again.
    EXPECT_THROW(m_document.GetDocumentElement()->GetText(), CStreamFailure);
}

TEST_F(StreamedDocument, FinishChecksTheRestWithoutBuildingIt) {
    const CXmlElement* root = Load("<a><b/>" + Filler() + "<c/></a>");
    m_stream.Finish();
    int children = 0;
    const CXmlElement* last = nullptr;
    for (const CXmlElement* child = root->GetFirstElement(); child; child = child->GetNextSiblingElement())
        ++children, last = child;
    EXPECT_LT(children, 2002);
    EXPECT_EQ(L"d", last->GetLocalName());

    CXmlDocument other;
    CStreamedLoad stream(other);
    const std::string junk = "<a><b/>" + Filler() + "</a><junk/>";
    other.LoadXml(junk.c_str());
    try {
        stream.Finish();
        FAIL() << "junk accepted";
    } catch (const CQxException& e) {
        EXPECT_EQ(WholeLoadError(junk), e.GetMessage());
    }
}

} // namespace
