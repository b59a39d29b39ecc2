// Documents nested a million levels deep, as a small hostile file makes them: wildcard content is
// read, written, copied, restricted and released at any depth, and objects of a schema type that
// contains itself stop at kMaxObjectDepth with a clear error instead of exhausting the stack.
#include <QxXmlLib16/QxXmlLib16.h>

#include "binding/support/TestSchema.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;

namespace {

constexpr int kMillion = 1000000;

// "<a xmlns='urn:x'><a>...<a>leaf</a>...</a></a>" with depth elements; the deepest may take another
// namespace.
std::wstring Chain(int depth, const wchar_t* name, const std::wstring& deepestNamespace = L"") {
    std::wstring xml = L"<" + std::wstring(name) + L" xmlns=\"urn:x\">";
    for (int i = 1; i < depth - 1; ++i)
        (xml += L'<') += name, xml += L'>';
    xml += L"<" + std::wstring(name);
    if (!deepestNamespace.empty()) xml += L" xmlns=\"" + deepestNamespace + L"\"";
    xml += L">leaf";
    for (int i = 0; i < depth; ++i)
        (xml += L"</") += name, xml += L'>';
    return xml;
}

// What the writer makes of such a chain: a prefix for the namespace, the deepest element closed
// at once when it has no text.
std::wstring Written(int depth, const std::wstring& name, const std::wstring& namespaceURI,
                     const std::wstring& leaf) {
    std::wstring xml = L"<AA:" + name + L" xmlns:AA=\"" + namespaceURI + L"\"";
    for (int i = 1; i < depth; ++i)
        xml += L"><AA:" + name;
    xml += leaf.empty() ? L"/>" : L">" + leaf + L"</AA:" + name + L">";
    for (int i = 1; i < depth; ++i)
        xml += L"</AA:" + name + L">";
    return xml;
}

// Equality of long texts, reported by the first difference instead of both texts whole.
testing::AssertionResult SameText(const std::wstring& actual, const std::wstring& expected) {
    if (actual == expected) return testing::AssertionSuccess();
    size_t at = 0;
    while (at < actual.size() && at < expected.size() && actual[at] == expected[at])
        ++at;
    return testing::AssertionFailure()
           << "lengths " << actual.size() << " and " << expected.size() << ", first difference at " << at;
}

const CElement* Deepest(const CElement* element) {
    while (element->GetElements()->GetCount() > 0)
        element = element->GetElements()->Item(0);
    return element;
}

using TestSchema::CNode;
const std::wstring kNodeNamespace = TestSchema::kNamespace;

std::wstring Nodes(int depth) {
    std::wstring xml;
    for (int i = 0; i < depth; ++i)
        xml += i == 0 ? L"<node xmlns=\"" + kNodeNamespace + L"\">" : L"<node>";
    for (int i = 0; i < depth; ++i)
        xml += L"</node>";
    return xml;
}

CSmartPtr<CNode> NodeChain(int depth) {
    CSmartPtr<CNode> root(new CNode(L"node"));
    CNode* last = root.Get();
    for (int i = 1; i < depth; ++i) {
        last->SetNode(new CNode(L"node"));
        last = last->GetNode();
    }
    return root;
}

int DepthOf(const CNode* node) {
    int depth = 0;
    for (; node; node = node->GetNode())
        ++depth;
    return depth;
}

std::wstring NodePath(int depth) {
    std::wstring path;
    for (int i = 0; i < depth; ++i)
        path += L"/node";
    return path;
}

} // namespace

TEST(DeepWildcardContent, MillionLevelsReadWriteCopyAndRelease) {
    CSmartPtr<CElement> element(new CElement(L"any"));
    element->FromXml(Chain(kMillion, L"a").c_str());
    EXPECT_EQ(Deepest(element.Get())->GetText(), L"leaf");
    const std::wstring written = Written(kMillion, L"a", L"urn:x", L"leaf");
    EXPECT_TRUE(SameText(element->ToXml(false, false), written));

    CSmartPtr<CElement> clone(element->Clone());
    element = nullptr; // the clone stands alone
    EXPECT_TRUE(SameText(clone->ToXml(false, false), written));
    const CSmartPtr<CElement> copy(new CElement(clone.Get(), nullptr));
    clone = nullptr;
    EXPECT_TRUE(SameText(copy->ToXml(false, false), written));
    copy->FromXml(written.c_str());
    EXPECT_TRUE(SameText(copy->ToXml(false, false), written));
}

TEST(DeepWildcardContent, RestrictionsReachTheDeepestElement) {
    const int depth = kMillion / 4;
    CSmartPtr<CElement> element(new CElement(L"any"));
    element->FromXml(Chain(depth, L"a", L"urn:y").c_str());
    EXPECT_EQ(FailureOf([&] { element->SetNamespaceRestrictions(L"urn:x", L""); }).message,
              L"The namespace urn:y in the class a is invalid against restriction urn:x");
    EXPECT_EQ(Deepest(element.Get())->GetNamespaceRestriction(), L"##any"); // a refusal changes nothing

    element->SetNamespaceRestrictions(L"urn:x urn:y", L"");
    EXPECT_EQ(Deepest(element.Get())->GetNamespaceRestriction(), L"urn:x urn:y");
}

// A child outside the rule of a restricted element is reported with the element's path, however
// deep the content it has read before.
TEST(DeepWildcardContent, RefusedChildAfterDeepSiblingNamesItsParent) {
    CSmartPtr<CElement> element(new CElement(L"r", L"urn:x", L"urn:x", L""));
    element->SetNamespaceRestrictions(L"urn:x", L"");
    const std::wstring xml = L"<r xmlns=\"urn:x\">" + Chain(kMillion / 4, L"a") + L"<b xmlns=\"urn:y\"/></r>";
    EXPECT_EQ(FailureOf([&] { element->FromXml(xml.c_str()); }),
              (Failure{L"Invalid Element [r] found.", L"/r"}));
}

// The depth count comes back down after each refusal, so the limit still holds exactly afterwards.
TEST(RecursiveSchemaType, ReadsAndWritesUpToTheLimitAndRefusesOneLevelMore) {
    const Failure tooDeep{L"The element [node] is nested more than 256 objects deep.",
                          NodePath(kMaxObjectDepth + 1)};
    for (const int depth : {kMaxObjectDepth + 1, kMillion}) {
        CSmartPtr<CNode> node(new CNode(L"node"));
        EXPECT_EQ(FailureOf([&] { node->FromXml(Nodes(depth).c_str()); }), tooDeep) << depth;
    }
    EXPECT_EQ(FailureOf([] { NodeChain(kMaxObjectDepth + 1)->ToXml(false, false); }).message,
              tooDeep.message);

    CSmartPtr<CNode> node(new CNode(L"node"));
    node->FromXml(Nodes(kMaxObjectDepth).c_str());
    EXPECT_EQ(DepthOf(node.Get()), kMaxObjectDepth);
    EXPECT_TRUE(SameText(node->ToXml(false, false), Written(kMaxObjectDepth, L"node", kNodeNamespace, L"")));
}

// Each node holds the next: releasing the first releases them all, one after the other.
TEST(RecursiveSchemaType, ReleasesAMillionWithoutRecursion) {
    CSmartPtr<CNode> chain = NodeChain(kMillion);
    EXPECT_EQ(DepthOf(chain.Get()), kMillion);
}
