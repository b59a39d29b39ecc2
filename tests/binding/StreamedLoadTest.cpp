// A bound load parses its document as the object reads it and drops what has been read. Whatever it
// reads, the outcome must be the one of reading a tree that was loaded whole: the same values, and
// for a bad document the same message and path, whether the fault is in the markup or in the
// content, and whatever comes after it.

#include "binding/support/ContentSchema.h"
#include "binding/support/GroupsSchema.h"
#include "binding/support/ProofDocuments.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace QxXmlLib16;

namespace {

std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to) {
    const size_t at = text.find(from);
    if (at == std::wstring::npos)
        ADD_FAILURE() << "not in the document: " << std::string(from.begin(), from.end());
    else
        text.replace(at, from.size(), to);
    return text;
}

// What a load ends in: the object written back, or the whole message chain with its paths.
template <class Load>
std::wstring Outcome(CXmlObjectBase& root, Load load) {
    try {
        load();
    } catch (const CQxException& e) {
        return L"failed: " + e.GetFullMessage();
    }
    return L"read: " + root.ToXml(false, false);
}

// The reference: the whole tree first, then the object reads it.
template <class Root>
std::wstring FromWholeTree(const std::wstring& document, const CSerializationContext& context) {
    CSmartPtr<Root> root(new Root());
    return Outcome(*root, [&] {
        CXmlDocument tree(context);
        tree.LoadXml(document.c_str());
        root->FromXmlElement(tree.GetDocumentElement(), context);
    });
}

// Every entry point of a bound load that parses XML text.
template <class Root>
std::vector<std::wstring> StreamedOutcomes(const std::wstring& document,
                                           const CSerializationContext& context) {
    const std::string utf8 = [&] {
        std::string bytes(UnicodeToUTF8(document.c_str(), document.size(), nullptr, 0), '\0');
        UnicodeToUTF8(document.c_str(), document.size(), reinterpret_cast<unsigned char*>(&bytes[0]),
                      bytes.size());
        return bytes;
    }();
    std::vector<std::wstring> outcomes;
    const std::function<void(CXmlObjectBase&)> loads[] = {
        [&](CXmlObjectBase& root) { root.FromXml(document.c_str(), context); },
        [&](CXmlObjectBase& root) { root.FromXml(utf8.c_str(), context); },
        [&](CXmlObjectBase& root) {
            std::string copy = utf8;
            CBinaryData bytes(reinterpret_cast<unsigned char*>(&copy[0]),
                              static_cast<unsigned long>(copy.size()), false);
            CQxZip::CompressData(bytes, ctGzip);
            root.FromXmlStream(bytes, context);
        },
    };
    for (const auto& load : loads) {
        CSmartPtr<Root> root(new Root());
        outcomes.push_back(Outcome(*root, [&] { load(*root); }));
    }
    return outcomes;
}

struct Case {
    const char* name;
    std::wstring document;
    bool ignoreUnknownElements;
};

template <class Root>
void ExpectSameAsWholeTree(const Case& c) {
    CSerializationContext context;
    context.SetIgnoreUnknownElements(c.ignoreUnknownElements);
    const std::wstring expected = FromWholeTree<Root>(c.document, context);
    for (const std::wstring& outcome : StreamedOutcomes<Root>(c.document, context))
        EXPECT_EQ(expected, outcome);
}

// Faults in the markup after a fault in the content: the markup's wins, as when the tree is built
// whole before anything is read.
const wchar_t kMismatchedTail[] = L"<count>8</count></groups>";

std::vector<Case> GroupsCases() {
    using ProofDocuments::Groups;
    const std::wstring valid = Groups();
    const std::wstring emptyPick = Replace(valid, L"<pick><count>5</count></pick>", L"<pick/>");
    // A later declaration gives the namespace another alias, which comes first in alias order.
    const std::wstring prefixed = Replace(
        Replace(Replace(valid, L"<groups xmlns=", L"<g:groups xmlns:g="), L"</groups>", L"</g:groups>"),
        L"<note>after</note>", L"<note xmlns:a=\"urn:qx:test:groups\">after</note>");
    return {
        {"Valid", valid, false},
        {"FirstOfManyNamedWithPosition", Replace(valid, L"<item id=\"1\"/>", L"<item id=\"x\"/>"), false},
        {"AliasDeclaredFurtherOn", Replace(prefixed, L"<item id=\"1\"/>", L"<item id=\"x\"/>"), false},
        {"MismatchedTagAfterContentFault",
         Replace(emptyPick, kMismatchedTail, L"<count>8</count><label></groups>"), false},
        {"MismatchedTagAfterValidContent",
         Replace(valid, kMismatchedTail, L"<count>8</count><label></groups>"), false},
        {"JunkAfterDocumentElement", valid + L"<again/>", false},
        {"UnclosedDocumentElement", Replace(valid, L"</groups>", L""), false},
        {"UnknownElementsSkipped",
         Replace(valid, L"<note>after</note>", L"<zz><deep>1</deep></zz><note>after</note>"), true},
        {"UnknownElementsRefused",
         Replace(valid, L"<note>after</note>", L"<zz><deep>1</deep></zz><note>after</note>"), false},
    };
}

class StreamedGroupsLoad : public testing::TestWithParam<Case> {};

TEST_P(StreamedGroupsLoad, EndsAsReadingTheWholeTree) {
    ExpectSameAsWholeTree<GroupsSchema::CGroups>(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Documents, StreamedGroupsLoad, testing::ValuesIn(GroupsCases()),
                         [](const testing::TestParamInfo<Case>& info) { return info.param.name; });

// Thousands of items, so that the parser runs well ahead of the binding and stops many times; the
// item at `at` is given another text.
std::wstring ContentWithItems(const std::wstring& itemAt = L"", int at = -1) {
    std::wstring items;
    for (int i = 0; i < 3000; ++i)
        items += i == at ? itemAt : L"<ui4>" + std::to_wstring(i % 97) + L"</ui4>";
    return Replace(ProofDocuments::kContentFull, L"<ui4>4294967295</ui4>", items);
}

std::vector<Case> ContentCases() {
    const std::wstring valid = ContentWithItems();
    const std::wstring percent = L"<i4>100</i4>";
    return {
        {"ManyItems", valid, false},
        {"FaultBeforeManyItems", Replace(valid, percent, L"<i4>101</i4>"), false},
        {"FaultInTheLastOfMany", ContentWithItems(L"<ui4>x</ui4>", 2999), false},
        {"MalformedFarAfterAFault", Replace(ContentWithItems(L"<ui4>5</ui>", 2990), percent, L"<i4>101</i4>"),
         false},
        {"MalformedFarAfterValidContent", ContentWithItems(L"<ui4>5</ui>", 2990), false},
        {"UnknownNestedInAnOwnElementSkipped",
         Replace(valid, L"<own><note>n</note></own>", L"<own><note>n</note><zz><ui4>1</ui4></zz></own>"),
         true},
    };
}

class StreamedContentLoad : public testing::TestWithParam<Case> {};

TEST_P(StreamedContentLoad, EndsAsReadingTheWholeTree) {
    ExpectSameAsWholeTree<ContentSchema::CBag>(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Documents, StreamedContentLoad, testing::ValuesIn(ContentCases()),
                         [](const testing::TestParamInfo<Case>& info) { return info.param.name; });

// A choice between a group that starts with a point and a point alone: a point without a signature
// is read by the group, which then gives its position back, and read again by the second
// alternative. Such a schema is ambiguous, but a reader must not lose the point's content on the
// way: an object that reads an element inside inline content does not drop it.
namespace Ambiguous {

using namespace QxXmlLib16Data;

CSmartPtr<CXmlObjectBase> Create(int classNumber, const wchar_t* name);

class CPoint : public TGeneratedClass<CPoint> {
public:
    explicit CPoint(const wchar_t* name = L"point") { SetElementName(name); }
    long x = 0;
    int AccessProperty(int, bool read, QxVariant& value) override {
        return AccessValue<itI4>(read, value, x);
    }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override { x = 0; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    static const CClassMetaData& MetaData() {
        static const CClassMetaData data(
            new CParentElementInfo(egSequence, etElement, L"Point", L"", true, false, -1, itNone, L"", false),
            {},
            {new CAttributeInfoPrimitive(L"x", L"", 1, false, itI4, L"", CWhitespaceUtils::wsCollapse,
                                         CPrimitiveRestrictions(), L"")});
        return data;
    }
};

class CSigned : public TGeneratedClass<CSigned> {
public:
    explicit CSigned(const wchar_t* name = L"Signed") { SetElementName(name); }
    CSmartPtr<CPoint> point{new CPoint()};
    std::wstring signature;
    int AccessProperty(int number, bool read, QxVariant& value) override {
        return number == 1 ? AccessObject(read, value, point, L"point")
                           : AccessValue<itString>(read, value, signature);
    }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        point = new CPoint();
        signature.clear();
    }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    static const CClassMetaData& MetaData() {
        static const CClassMetaData data(
            new CParentElementInfo(egSequence, etGroup, L"Signed", L"", false, false, -1, itNone, L"", false),
            {new CElementInfoSeqClsMnd(L"point", L"", 1, etElement, Create, 0, false),
             new CElementInfoSeqPrimMnd(L"signature", L"", 2, false, itString, L"",
                                        CWhitespaceUtils::wsPreserve, CPrimitiveRestrictions(), L"")},
            {});
        return data;
    }
};

class CRoute : public TGeneratedClass<CRoute> {
public:
    CRoute() { SetElementName(L"route"); }
    CSmartPtr<CSigned> signedPoint;
    CSmartPtr<CPoint> point;
    int AccessProperty(int number, bool read, QxVariant& value) override {
        return number == 1 ? AccessObject(read, value, signedPoint, L"Signed")
                           : AccessObject(read, value, point, L"point");
    }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {
        signedPoint = nullptr;
        point = nullptr;
    }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }
    static const CClassMetaData& MetaData() {
        static const CClassMetaData data(
            new CParentElementInfo(egChoice, etElement, L"Route", L"", true, false, -1, itNone, L"", false),
            {new CElementInfoChoiceClsOpt(L"Signed", L"", 1, etGroup, Create, 1),
             new CElementInfoChoiceClsOpt(L"point", L"", 2, etElement, Create, 0)},
            {});
        return data;
    }
};

CSmartPtr<CXmlObjectBase> Create(int classNumber, const wchar_t* name) {
    if (classNumber == 1) return new CSigned(name);
    return new CPoint(name);
}

} // namespace Ambiguous

TEST(StreamedLoad, ElementsReadInsideInlineContentAreKeptForTheNextAlternative) {
    CSmartPtr<Ambiguous::CRoute> route(new Ambiguous::CRoute());
    route->FromXml(L"<route><point x='7'/></route>");
    EXPECT_EQ(nullptr, route->signedPoint.Get());
    ASSERT_NE(nullptr, route->point.Get());
    EXPECT_EQ(7, route->point->x);
    route->FromXml(L"<route><point x='8'/><signature>s</signature></route>");
    ASSERT_NE(nullptr, route->signedPoint.Get());
    EXPECT_EQ(8, route->signedPoint->point->x);
}

// A document read whole keeps its tree: only a bound load's own document is emptied as it is read.
TEST(StreamedLoad, ReadingATreeLeavesItWhole) {
    CXmlDocument tree;
    tree.LoadXml(ProofDocuments::Groups().c_str());
    const CXmlElement* root = tree.GetDocumentElement();
    CSmartPtr<GroupsSchema::CGroups> groups(new GroupsSchema::CGroups());
    groups->FromXmlElement(root);
    const CXmlElement* pick = root->GetFirstElement();
    ASSERT_NE(nullptr, pick->GetFirstElement());
    EXPECT_EQ(L"item", pick->GetFirstElement()->GetLocalName());
    EXPECT_EQ(L"1", pick->GetFirstElement()->GetAttribute(L"id", L""));
    CSmartPtr<GroupsSchema::CGroups> again(new GroupsSchema::CGroups());
    again->FromXmlElement(root);
    EXPECT_EQ(groups->ToXml(), again->ToXml());
}

} // namespace
