// Wildcard content held as untyped elements and attributes: their namespace rules, reading,
// copying and writing.

#include <QxXmlLib16/QxXmlLib16.h>

#include "support/Failure.h"

#include <gtest/gtest.h>

#include <functional>

using namespace QxXmlLib16;

namespace {

CSmartPtr<CElement> Read(const wchar_t* xml) {
    CSmartPtr<CElement> element(new CElement(L"any"));
    element->FromXml(xml);
    return element;
}

std::wstring Text(const CXmlObjectBase& object) {
    return object.ToXml(false, false);
}

// Reads the children (or the attributes) of the document element of xml into a collection.
CXmlElement* ReadInto(CXmlObjectBase& collection, const wchar_t* xml, bool attributes = false) {
    static CXmlDocument document;
    document.LoadXml(xml);
    CXmlElement* root = document.GetDocumentElement();
    return CXmlObjectBase::FromXml_Int(&collection, root, attributes ? nullptr : root->GetFirstElement(),
                                       CSerializationContext::m_defaultContext);
}

TEST(UntypedRules, RefusalsNameTheRuleOrTheArgument) {
    const std::wstring outsideOther =
        L"Invalid namespace [urn:x]. The namespace must be one of [##other] where the "
        L"target namespace is [urn:x].";
    const struct {
        const char* what;
        std::function<void()> action;
        Failure expected;
    } cases[] = {
        {"keyword as namespace", [] { CElement(L"a", L"##any"); }, {L"Invalid Namespace [##any].", L""}},
        {"null name first",
         [] { CElement(nullptr, L"u", nullptr, nullptr); },
         {L"Element Name must have a value", L""}},
        {"null rule before target",
         [] { CElement(L"a", L"u", nullptr, nullptr); },
         {L"Namespace Restriction must have a value", L""}},
        {"null target",
         [] { CElement(L"a", L"u", L"##any", nullptr); },
         {L"Target Namespace must have a value", L""}},
        {"namespace outside rule",
         [] { CElement(L"a", L"urn:x", L"##other", L"urn:x"); },
         {outsideOther, L""}},
        {"attribute outside rule",
         [] { CAttributeCol(L"", L"##local", L"").Add(L"a", L"1", L"urn:x"); },
         {L"Invalid namespace [urn:x]. The namespace must be one of [##local] where the target namespace is "
          L"[].",
          L""}},
        {"collection without namespace",
         [] { CElementCol(L"", L"##any", L"", 0, -1).Add(L"a"); },
         {L"A Namespace has not been set for this Collection", L""}},
        {"document element outside rule",
         [] { CSmartPtr<CElement>(new CElement(L"a", L"urn:x"))->FromXml(L"<a/>"); },
         {L"Invalid namespace []. The namespace must be one of [urn:x] where the target namespace is [].",
          L""}},
        {"child outside rule",
         [] {
             CSmartPtr<CElement> element(new CElement(L"x", L"", L"##local", L""));
             element->SetNamespaceRestrictions(L"##local", L"");
             element->FromXml(L"<x><y xmlns='urn:y'/></x>");
         },
         {L"Invalid Element [x] found.", L"/x"}},
        {"attribute read alone",
         [] {
             CSmartPtr<CAttribute> attribute(new CAttribute(L"a", L"1", L""));
             CXmlObjectBase::FromXml_Int(attribute.Get(), nullptr, nullptr,
                                         CSerializationContext::m_defaultContext);
         },
         {L"This should be done by the collection", L""}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FailureOf(c.action), c.expected) << c.what;

    // A namespace given alone is the only one the element takes; none given, it takes any.
    const CSmartPtr<CElement> qualified(new CElement(L"a", L"urn:x")), open(new CElement(L"a"));
    EXPECT_THROW(qualified->SetNamespace(L"urn:y"), CQxInvalidNamespaceException);
    qualified->SetNamespace(L"urn:x");
    open->SetNamespace(L"urn:y");
    EXPECT_EQ(open->GetNamespace(), L"urn:y");
}

TEST(UntypedReading, TakesNamesAttributesChildrenAndTextAndReplacesWhatItHeld) {
    const CSmartPtr<CElement> root =
        Read(L"<r xmlns='urn:r' xmlns:p='urn:p' a='1' p:b='2'>hi<c>x</c><p:d/> there</r>");
    EXPECT_EQ(root->GetElementName(), L"r");
    EXPECT_EQ(root->GetText(), L"hi there");
    EXPECT_EQ(root->GetAttributes()->Item(1)->GetNamespace(), L"urn:p");
    EXPECT_EQ(root->GetElements()->Item(1)->GetNamespace(), L"urn:p");
    root->FromXml(L"<s><t/></s>");
    EXPECT_EQ(Text(*root), L"<s><t/></s>");
}

TEST(UntypedReading, CollectionsStopAtWhatTheyDoNotTake) {
    const wchar_t* const children = L"<r xmlns:a='urn:a'><a:x/><a:y/><z/><a:w/></r>";
    const CSmartPtr<CElementCol> byRule(new CElementCol(L"", L"urn:a", L"", 0, -1));
    EXPECT_EQ(ReadInto(*byRule, children)->GetLocalName(), L"z");
    ASSERT_EQ(byRule->GetCount(), 2);
    EXPECT_EQ(byRule->Item(1)->GetNamespaceRestriction(), L"urn:a");

    const CSmartPtr<CElementCol> any(new CElementCol(L"", L"##any", L"", 0, -1));
    EXPECT_EQ(ReadInto(*any, children), nullptr);
    EXPECT_EQ(any->GetCount(), 4);

    // Attributes stop at the first one the rule refuses, and say so.
    const CSmartPtr<CAttributeCol> attributes(new CAttributeCol(L"", L"##local", L""));
    EXPECT_EQ(FailureOf([&] { ReadInto(*attributes, L"<e a='1' xmlns:p='urn:p' p:b='2' c='3'/>", true); }),
              (Failure{L"Invalid Attribute [b]. The attributes namespace is Inappropriate.", L"/e"}));
    EXPECT_EQ(attributes->GetCount(), 1);
}

TEST(UntypedRules, ApplyToTheWholeTreeOrNotAtAll) {
    const CSmartPtr<CElement> root =
        Read(L"<r xmlns='urn:a' xmlns:b='urn:b' x='1'><c><b:g/></c><c b:y='2'/></r>");
    EXPECT_EQ(FailureOf([&] { root->SetNamespaceRestrictions(L"urn:a ##local", L""); }).message,
              L"The namespace urn:b in the class g is invalid against restriction urn:a ##local");
    root->GetElements()->Item(0)->GetElements()->Remove(0);
    EXPECT_EQ(FailureOf([&] { root->SetNamespaceRestrictions(L"urn:a ##local", L""); }).message,
              L"The namespace urn:b in the class y is invalid against restriction urn:a ##local");
    EXPECT_EQ(root->GetElements()->Item(0)->GetNamespaceRestriction(), L"##any"); // nothing changed

    root->GetElements()->Item(1)->GetAttributes()->Remove(0);
    root->SetNamespaceRestrictions(L"##targetNamespace ##local", L"urn:a");
    const CElement* child = root->GetElements()->Item(1);
    EXPECT_EQ(child->GetRestrictionTargetNamespace(), L"urn:a");
    EXPECT_THROW(child->GetAttributes()->Add(L"z", L"", L"urn:b"), CQxInvalidNamespaceException);
    EXPECT_THROW(child->GetElements()->Add(L"z", L"urn:b"), CQxInvalidNamespaceException);
    child->GetElements()->Add(L"z");
}

TEST(UntypedCollections, IterationEndsAndClonesAreDeep) {
    const CSmartPtr<CElementCol> elements(new CElementCol(L"u", L"##any", L"", 0, -1));
    elements->Add(L"a");
    CElementCol::const_iterator position = elements->begin();
    ++position;
    EXPECT_EQ(FailureOf([&] { ++position; }).message, L"No More Elements in the Collection");
    EXPECT_THROW(*position, CQxInvalidStateException);

    const CSmartPtr<CElement> root = Read(L"<r a='1'><c>x<g/></c></r>");
    const CSmartPtr<CElement> copy(root->Clone());
    EXPECT_EQ(Text(*copy), Text(*root));
    copy->GetElements()->Item(0)->SetText(L"changed");
    copy->GetAttributes()->Item(0)->SetValue(L"2");
    EXPECT_EQ(Text(*root), L"<r a=\"1\"><c><g/>x</c></r>");
}

TEST(UntypedWriting, TagAttributesChildrenThenText) {
    const CSmartPtr<CElement> root(new CElement(L"r", L"urn:r"));
    root->GetAttributes()->Add(L"a", L"1");
    root->GetAttributes()->Add(L"b", L"<&\"", L"urn:p");
    root->GetElements()->Add(L"c")->SetText(L"x");
    root->GetElements()->Add(L"d", L"urn:r");
    root->SetText(L"t");
    EXPECT_EQ(Text(*root), L"<AA:r xmlns:AA=\"urn:r\" a=\"1\" xmlns:AB=\"urn:p\" AB:b=\"&lt;&amp;&quot;\">"
                           L"<AA:c>x</AA:c><AA:d/>t</AA:r>");
}

// A copy of an element read without namespace processing keeps its xmlns as the default namespace,
// and writes it, raw, without its other attributes.
TEST(UntypedCopying, CopiesTreesAndTheirDefaultNamespace) {
    CSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(stNoNamespaces);
    CXmlDocument document(noNamespaces);
    document.LoadXml(L"<r xmlns='u' a='1'><c>t</c></r>");
    const CSmartPtr<CElement> copy(new CElement(L"copy"));
    copy->GetElements()->Add(L"stale", L"");
    copy->CopyXmlElement(document.GetDocumentElement());
    EXPECT_EQ(copy->GetDefaultNamespace(), L"u");
    EXPECT_EQ(copy->GetAttributes()->GetCount(), 2);
    EXPECT_EQ(Text(*copy), L"<r xmlns=\"u\"><c>t</c></r>");
    const CSmartPtr<CElement> parent(new CElement(L"p"));
    parent->GetAttributes()->Add(L"k", L"v");
    parent->GetElements()->Add(copy.Get());
    EXPECT_EQ(parent->ToXml(false, true), L"<p k=\"v\">\n<r xmlns=\"u\">\n\t<c>t</c>\n</r>\n\n</p>\n");

    // A bound object's written form is copied the same way.
    const CSmartPtr<CElement> wrapped(new CElement(copy.Get(), L"w"));
    EXPECT_EQ(Text(*wrapped), L"<AA:w xmlns:AA=\"u\"><AA:c>t</AA:c></AA:w>");
}

} // namespace
