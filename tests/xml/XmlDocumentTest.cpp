#include "support/TempFile.h"

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <tuple>
#include <vector>

using namespace QxXmlLib16;

namespace {

std::wstring LoadError(const std::function<void(CXmlDocument&)>& load) {
    CXmlDocument document;
    try {
        load(document);
    } catch (const CQxException& e) {
        return e.GetMessage();
    }
    return L"(nothing thrown)";
}

} // namespace

// A position predicate only where a sibling shares the name, namespace included.
TEST(XmlDocumentPaths, PredicatesOnlyForRepeatedNamesAndLookups) {
    CXmlDocument document;
    document.LoadXml("<a xmlns:p='urn:p' x='1' p:y='2'><b/><c/><b/><p:d/><d/></a>");
    const CXmlElement* a = document.GetDocumentElement();
    std::wstring paths;
    for (const CXmlElement* child = a->GetFirstElement(); child; child = child->GetNextSiblingElement())
        paths += child->GetXPath() + L" ";
    EXPECT_EQ(L"/a/b[1] /a/c /a/b[2] /a/p:d /a/d ", paths);
    EXPECT_EQ(L"/a/@x", a->GetAttributes()[0]->GetXPath());
    EXPECT_EQ(L"/a/@p:y", a->GetAttributes()[1]->GetXPath());
    EXPECT_EQ(L"2", a->GetAttribute(L"y", L"urn:p"));
    EXPECT_EQ(L"", a->GetAttribute(L"y", L""));
    EXPECT_EQ(L"urn:p", document.LookupNamespaceFromAlias(L"p"));
    EXPECT_EQ(L"p", document.LookupAliasFromNamespace(L"urn:p"));
    EXPECT_EQ(L"", document.LookupAliasFromNamespace(L"urn:none"));
}

TEST(XmlDocumentAttributes, NamespaceAndNilAttributes) {
    const wchar_t* xsi = L"http://www.w3.org/2001/XMLSchema-instance";
    struct Case {
        const wchar_t* name;
        const wchar_t* ns;
        bool isNamespace;
        bool isNil;
    } cases[] = {
        {L"type", xsi, true, false},
        {L"schemaLocation", xsi, true, false},
        {L"noNamespaceSchemaLocation", xsi, true, false},
        {L"xmlns", L"http://www.w3.org/2000/xmlns/", true, false},
        {L"nil", xsi, false, true},
        {L"nil", L"", false, false},
        {L"type", L"urn:other", false, false},
    };
    for (const Case& c : cases) {
        CXmlAttribute attribute(nullptr, c.name, L"v", c.ns);
        EXPECT_EQ(c.isNamespace, attribute.IsNamespaceAttribute()) << c.name;
        EXPECT_EQ(c.isNil, attribute.IsNilAttribute()) << c.name;
    }
}

TEST(XmlDocumentText, CarriageReturnsDroppedAndPiecesJoined) {
    CXmlDocument document;
    CXmlElement* root = document.AddDocElement(nullptr, L"r");
    document.AppendTextExcludingCR(root, L"a\r\nb");
    document.AppendTextExcludingCR(root, L"c\0d", 3);
    std::wstring expected = L"a\nbc";
    for (int i = 0; i < 10000; ++i) {
        root->AppendText(L"xy", 2);
        expected += L"xy";
    }
    EXPECT_EQ(expected, root->GetText());
    document.EndElement();
}

// Equal texts may be one string shared by many elements: appending to one must leave the others.
TEST(XmlDocumentText, AppendingToRepeatedTextChangesOnlyThatElement) {
    const std::wstring blanks = L"\n  \n  ", longText(40, L'v');
    for (const std::wstring& text : {blanks, std::wstring(L"x"), longText}) {
        CXmlDocument document;
        document.LoadXml((L"<r><a>" + text + L"</a><b>" + text + L"</b></r>").c_str());
        CXmlElement* a = document.GetDocumentElement()->GetFirstElement();
        a->AppendText(L"y");
        EXPECT_EQ(text + L"y", a->GetText());
        EXPECT_EQ(text, a->GetNextSiblingElement()->GetText());
    }
}

TEST(XmlDocumentTree, BuildAndDetach) {
    CXmlDocument document;
    CXmlElement* root = document.AddDocElement(L"urn:r", L"r");
    CXmlElement* child = root->CreateNewChildElement();
    child->SetElementName(L"c");
    child->SetNamespace(L"urn:c");
    child->AddAttribute(L"a", L"1", L"");
    EXPECT_EQ(child, root->RemoveLastChildElement());
    EXPECT_EQ(nullptr, root->GetFirstElement());
    EXPECT_EQ(nullptr, root->RemoveLastChildElement());
    delete child; // the caller owns a detached element
    // Elements and attributes made outside any document.
    CXmlElement loose(nullptr, nullptr);
    loose.SetElementName(L"loose");
    loose.CreateNewChildElement()->AddAttribute(L"k", L"v", L"urn:k");
    EXPECT_EQ(L"v", loose.GetFirstElement()->GetAttribute(L"k", L"urn:k"));
}

TEST(XmlDocumentTree, ReloadKeepsNothingOfTheFirstDocument) {
    CXmlDocument document;
    document.LoadXml("<a xmlns:p='urn:p'><p:b/></a>");
    document.LoadXml("<c/>");
    EXPECT_EQ(L"c", document.GetDocumentElement()->GetLocalName());
    EXPECT_EQ(nullptr, document.GetDocumentElement()->GetFirstElement());
    EXPECT_TRUE(document.GetAliasMap().empty());
}

namespace {
std::wstring g_parentTextSeen;
bool RecordParentText(CXmlElement* element) {
    if (element->GetParentElement()) g_parentTextSeen = element->GetParentElement()->GetText();
    return false;
}
} // namespace

// With a callback the blanks between children reach their parent one piece per child. Every stage
// of such text once went into the document's table of shared texts, which took memory and time
// quadratic in the number of children (gigabytes for a hundred thousand). A long piece joins the
// text before it rather than taking its place.
TEST(XmlDocumentTree, TextGrowingPieceByPieceIsKeptOnce) {
    const int children = 20000;
    std::string xml = "<a>";
    for (int i = 0; i < children; ++i)
        xml += "\n<b/>";
    xml += "\n</a>";
    const auto peakKilobytes = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    };
    const long before = peakKilobytes();
    CXmlDocument document(RecordParentText);
    document.LoadXml(xml.c_str());
    // A few megabytes; every stage kept would be about 900.
    EXPECT_LT(peakKilobytes() - before, 200 * 1024);
    EXPECT_EQ(std::wstring(children, L'\n'), g_parentTextSeen);
    EXPECT_EQ(std::wstring(children + 1, L'\n'), document.GetDocumentElement()->GetText());
    document.LoadXml(("<a>head<b/>" + std::string(5000, 't') + "</a>").c_str());
    EXPECT_EQ(L"head" + std::wstring(5000, L't'), document.GetDocumentElement()->GetText());
}

// The narrow, byte and file forms are read through every entry point of the bindings.
TEST(XmlDocumentLoading, WideTextIsReadAsWhatItIsWhateverItsDeclarationNames) {
    CXmlDocument document;
    document.LoadXml(L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r a='\u00E9'>\u20AC</r>");
    EXPECT_EQ(L"\u20AC", document.GetDocumentElement()->GetText());
    EXPECT_EQ(L"\u00E9", document.GetDocumentElement()->GetAttribute(L"a", L""));
}

TEST(XmlDocumentLoading, Messages) {
    TempFile empty("");
    const std::wstring emptyName = empty.Name();
    const std::pair<std::function<void(CXmlDocument&)>, std::wstring> cases[] = {
        {[](CXmlDocument& d) { d.Load(L"/nonexistent/x.xml"); },
         L"Failed to open the file [/nonexistent/x.xml]."},
        {[&](CXmlDocument& d) { d.Load(emptyName.c_str()); },
         L"Failed to read the contents of the file [" + emptyName + L"] Error [0]"},
        {[](CXmlDocument& d) { d.LoadXml(""); }, L"XML String is empty!"},
        {[](CXmlDocument& d) { d.LoadXml(L""); }, L"XML String is empty!"},
        {[](CXmlDocument& d) {
             d.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>("<a/>")), 0);
         },
         L"XML Stream is empty!"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.second, LoadError(c.first));
}

namespace {

const char kPositioned[] = "<?xml version='1.0'?>\n"
                           "<a xmlns='urn:d' xmlns:p='urn:p'>\n"
                           "  <b><p:c xmlns:p='urn:q'/></b>\n"
                           "\t<d xmlns=''>\xC3\xA9<e/></d>\n"
                           "</a>\n";

// Every element of the tree in document order with the line and column its start tag begins at.
std::vector<std::tuple<std::wstring, int, int>> Positions(const CXmlDocument& document) {
    std::vector<std::tuple<std::wstring, int, int>> found;
    std::vector<CXmlElement*> pending{document.GetDocumentElement()};
    while (!pending.empty()) {
        CXmlElement* element = pending.back();
        pending.pop_back();
        int line = 0, column = 0;
        if (document.GetElementPosition(element, line, column))
            found.emplace_back(element->GetLocalName(), line, column);
        std::vector<CXmlElement*> children;
        for (CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            children.insert(children.begin(), child);
        pending.insert(pending.end(), children.begin(), children.end());
    }
    return found;
}

const std::vector<std::tuple<std::wstring, int, int>> kExpectedPositions = {
    {L"a", 2, 1}, {L"b", 3, 3}, {L"c", 3, 6}, {L"d", 4, 2}, {L"e", 4, 15}};

} // namespace

// The document keeps its input for files, compressed streams and wide text; positions come from it.
TEST(XmlDocumentPositions, FoundForEveryKeptInput) {
    const std::string text = kPositioned;
    TempFile file(text);
    CBinaryData compressed(reinterpret_cast<unsigned char*>(const_cast<char*>(text.data())),
                           static_cast<unsigned long>(text.size()), false);
    CQxZip::CompressData(compressed, ctGzip);
    std::wstring wide;
    for (size_t i = 0; i < text.size(); ++i)
        wide += text[i] == '\xC3' ? (++i, L'\u00E9') : static_cast<wchar_t>(text[i]);
    const std::vector<std::pair<const char*, std::function<void(CXmlDocument&)>>> loads = {
        {"file", [&](CXmlDocument& d) { d.Load(file.Name().c_str()); }},
        {"gzip stream",
         [&](CXmlDocument& d) {
             d.LoadXmlStream(const_cast<unsigned char*>(compressed.GetData()), compressed.GetLength());
         }},
        {"wide text", [&](CXmlDocument& d) { d.LoadXml(wide.c_str()); }},
    };
    for (const auto& load : loads) {
        CXmlDocument document;
        load.second(document);
        EXPECT_EQ(kExpectedPositions, Positions(document)) << load.first;
    }
}

// The parser counts a byte order mark as a character of the first line; a reader of the text does
// not see one. Wide text is loaded with one in front.
TEST(XmlDocumentPositions, FirstLineColumnsDoNotCountAByteOrderMark) {
    TempFile file("\xEF\xBB\xBF<a><b/>\n<c/></a>");
    const std::vector<std::tuple<std::wstring, int, int>> expected = {
        {L"a", 1, 1}, {L"b", 1, 4}, {L"c", 2, 1}};
    CXmlDocument document;
    document.Load(file.Name().c_str());
    EXPECT_EQ(expected, Positions(document));
    document.LoadXml(L"<a><b/>\n<c/></a>");
    EXPECT_EQ(expected, Positions(document));
}

TEST(XmlDocumentPositions, UnknownWhereNoInputIsKept) {
    CXmlDocument inPlace;
    inPlace.LoadXml(kPositioned);
    EXPECT_TRUE(Positions(inPlace).empty());

    CXmlDocument changed;
    changed.LoadXml(L"<a>\n<b><c/></b></a>");
    delete changed.GetDocumentElement()->GetFirstElement()->RemoveLastChildElement();
    EXPECT_TRUE(Positions(changed).empty());

    CXmlDocument other;
    other.LoadXml(L"<x/>");
    int line = 0, column = 0;
    EXPECT_FALSE(other.GetElementPosition(changed.GetDocumentElement(), line, column));
}

TEST(XmlDocumentPositions, NamespacesInScopeFollowTheDeclarations) {
    CXmlDocument document;
    document.LoadXml(std::wstring(kPositioned, kPositioned + sizeof kPositioned - 1).c_str());
    CXmlElement* a = document.GetDocumentElement();
    CXmlElement* c = a->GetFirstElement()->GetFirstElement();
    CXmlElement* e = a->GetFirstElement()->GetNextSiblingElement()->GetFirstElement();
    struct Case {
        CXmlElement* element;
        const wchar_t* prefix;
        const wchar_t* bound; // null: not bound
    };
    for (const Case& test :
         {Case{a, L"", L"urn:d"}, Case{a, L"p", L"urn:p"}, Case{c, L"p", L"urn:q"}, Case{c, L"", L"urn:d"},
          Case{e, L"p", L"urn:p"}, Case{e, L"", nullptr}, Case{e, L"q", nullptr},
          Case{e, L"xml", L"http://www.w3.org/XML/1998/namespace"}}) {
        std::wstring uri;
        const bool bound = document.LookupNamespaceInScope(test.element, test.prefix, uri);
        EXPECT_EQ(test.bound != nullptr, bound) << test.element->GetLocalName() << " " << test.prefix;
        if (test.bound && bound) {
            EXPECT_EQ(test.bound, uri);
        }
    }
}
