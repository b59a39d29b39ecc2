#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "binding/support/Untyped.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

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

struct Refusal {
    const char* what;
    std::function<void()> action;
    std::wstring message;
};

TEST(UntypedElementConstruction, RefusesBadArgumentsWithTheirMessages) {
    const std::vector<Refusal> refusals = {
        {"keyword as namespace", [] { CElement(L"a", L"##any"); }, L"Invalid Namespace [##any]."},
        {"other keyword", [] { CElement(L"a", L"##targetNamespace"); },
         L"Invalid Namespace [##targetNamespace]."},
        {"null name first", [] { CElement(nullptr, L"u", nullptr, nullptr); },
         L"Element Name must have a value"},
        {"null rule before target", [] { CElement(L"a", L"u", nullptr, nullptr); },
         L"Namespace Restriction must have a value"},
        {"null target", [] { CElement(L"a", L"u", L"##any", nullptr); },
         L"Target Namespace must have a value"},
        {"namespace outside rule", [] { CElement(L"a", L"urn:x", L"##other", L"urn:x"); },
         L"Invalid namespace [urn:x]. The namespace must be one of [##other] where the target namespace is "
         L"[urn:x]."},
        {"attribute outside rule", [] { CAttributeCol(L"", L"##local", L"").Add(L"a", L"1", L"urn:x"); },
         L"Invalid namespace [urn:x]. The namespace must be one of [##local] where the target namespace is "
         L"[]."},
    };
    for (const Refusal& refusal : refusals) {
        try {
            refusal.action();
            ADD_FAILURE() << refusal.what << ": nothing thrown";
        } catch (const CQxInvalidNamespaceException& e) {
            EXPECT_EQ(e.GetMessage(), refusal.message) << refusal.what;
        }
    }
    EXPECT_EQ(FailureOf([] { CElementCol(L"", L"##any", L"", 0, -1).Add(L"a"); }).message,
              L"A Namespace has not been set for this Collection");
    EXPECT_THROW(CElementCol(L"", L"##any", L"", 0, -1).Add(L"a"), CQxInvalidStateException);
}

TEST(UntypedElementConstruction, NamespaceGivenAloneIsTheOnlyOneAllowed) {
    const CSmartPtr<CElement> qualified(new CElement(L"a", L"urn:x"));
    EXPECT_THROW(qualified->SetNamespace(L"urn:y"), CQxInvalidNamespaceException);
    qualified->SetNamespace(L"urn:x");

    const CSmartPtr<CElement> unqualified(new CElement(L"a", nullptr));
    EXPECT_EQ(unqualified->GetNamespace(), L"");
    EXPECT_THROW(unqualified->SetNamespace(L"urn:y"), CQxInvalidNamespaceException);

    const CSmartPtr<CElement> open(new CElement(L"a"));
    open->SetNamespace(L"urn:y");
    EXPECT_EQ(open->GetNamespace(), L"urn:y");
}

TEST(UntypedReading, TakesNamesAttributesChildrenAndText) {
    const CSmartPtr<CElement> root =
        Read(L"<r xmlns='urn:r' xmlns:p='urn:p' a='1' p:b='2'>hi<c>x</c><p:d/> there</r>");
    EXPECT_EQ(root->GetName(), L"r");
    EXPECT_EQ(root->GetElementName(), L"r");
    EXPECT_EQ(root->GetNamespace(), L"urn:r");
    EXPECT_EQ(root->GetText(), L"hi there");
    ASSERT_EQ(root->GetAttributes()->GetCount(), 2);
    EXPECT_EQ(root->GetAttributes()->Item(1)->GetName(), L"b");
    EXPECT_EQ(root->GetAttributes()->Item(1)->GetValue(), L"2");
    EXPECT_EQ(root->GetAttributes()->Item(1)->GetNamespace(), L"urn:p");
    ASSERT_EQ(root->GetElements()->GetCount(), 2);
    EXPECT_EQ(root->GetElements()->Item(0)->GetText(), L"x");
    EXPECT_EQ(root->GetElements()->Item(1)->GetNamespace(), L"urn:p");

    // Reading again replaces the content instead of adding to it.
    root->FromXml(L"<s><t/></s>");
    EXPECT_EQ(root->GetName(), L"s");
    EXPECT_EQ(root->GetAttributes()->GetCount(), 0);
    EXPECT_EQ(root->GetElements()->GetCount(), 1);
}

TEST(UntypedReading, ChildRefusedByTheCollectionFailsItsParent) {
    const CSmartPtr<CElement> element(new CElement(L"x", L"", L"##local", L""));
    element->SetNamespaceRestrictions(L"##local", L"");
    const UntypedFailure failure = FailureOf([&] { element->FromXml(L"<x><y xmlns='urn:y'/></x>"); });
    EXPECT_EQ(failure, (UntypedFailure{L"Invalid Element [x] found.", L"/x"}));
}

TEST(UntypedReading, DocumentElementOutsideTheRuleIsRefused) {
    const CSmartPtr<CElement> element(new CElement(L"a", L"urn:x"));
    EXPECT_EQ(
        FailureOf([&] { element->FromXml(L"<a/>"); }).message,
        L"Invalid namespace []. The namespace must be one of [urn:x] where the target namespace is [].");
}

TEST(UntypedReading, InappropriateAttributeStopsReading) {
    CXmlDocument document;
    document.LoadXml(L"<e a='1' xmlns:p='urn:p' p:b='2' c='3'/>");
    CXmlElement* root = document.GetDocumentElement();
    const CSmartPtr<CAttributeCol> attributes(new CAttributeCol(L"", L"##local", L""));
    const UntypedFailure failure = FailureOf([&] {
        CXmlObjectBase::FromXml_Int(attributes.Get(), root, nullptr, CSerializationContext::m_defaultContext);
    });
    EXPECT_EQ(failure,
              (UntypedFailure{L"Invalid Attribute [b]. The attributes namespace is Inappropriate.", L"/e"}));
    ASSERT_EQ(attributes->GetCount(), 1);
    EXPECT_EQ(attributes->Item(0)->GetName(), L"a");
}

TEST(UntypedReading, CollectionStopsAtTheFirstElementItDoesNotTake) {
    CXmlDocument document;
    document.LoadXml(L"<r xmlns:a='urn:a'><a:x/><a:y/><z/><a:w/></r>");
    CXmlElement* root = document.GetDocumentElement();
    const CSerializationContext& context = CSerializationContext::m_defaultContext;

    const CSmartPtr<CElementCol> byRule(new CElementCol(L"", L"urn:a", L"", 0, -1));
    CXmlElement* stop =
        CXmlObjectBase::FromXml_Int(byRule.Get(), root, root->GetFirstElement(), context);
    ASSERT_NE(stop, nullptr);
    EXPECT_EQ(stop->GetLocalName(), L"z");
    ASSERT_EQ(byRule->GetCount(), 2);
    EXPECT_EQ(byRule->Item(1)->GetName(), L"y");
    EXPECT_EQ(byRule->Item(1)->GetNamespaceRestriction(), L"urn:a");

    const CSmartPtr<CElementCol> byName(new CElementCol(L"", L"urn:a", L"", 0, -1));
    stop = byName->FromXmlLockElementName_Int(L"x", L"urn:a", root, root->GetFirstElement(), context);
    EXPECT_EQ(stop->GetLocalName(), L"y");
    ASSERT_EQ(byName->GetCount(), 1);
    EXPECT_EQ(byName->Item(0)->GetNamespaceRestriction(), L"##any");

    const CSmartPtr<CElementCol> all(new CElementCol(L"", L"##any", L"", 0, -1));
    EXPECT_EQ(CXmlObjectBase::FromXml_Int(all.Get(), root, root->GetFirstElement(), context), nullptr);
    EXPECT_EQ(all->GetCount(), 4);
}

TEST(UntypedReading, AttributeIsReadOnlyThroughItsCollection) {
    const CSmartPtr<CAttribute> attribute(new CAttribute(L"a", L"1", L""));
    EXPECT_EQ(FailureOf([&] {
                  CXmlObjectBase::FromXml_Int(attribute.Get(), nullptr, nullptr,
                                              CSerializationContext::m_defaultContext);
              }).message,
              L"This should be done by the collection");
}

TEST(UntypedNamespaceRestrictions, ApplyToTheWholeTreeOrNotAtAll) {
    const CSmartPtr<CElement> root =
        Read(L"<r xmlns='urn:a' xmlns:b='urn:b' x='1'><c><b:g/></c><c b:y='2'/></r>");
    EXPECT_EQ(FailureOf([&] { root->SetNamespaceRestrictions(L"urn:a ##local", L""); }).message,
              L"The namespace urn:b in the class g is invalid against restriction urn:a ##local");
    EXPECT_EQ(
        FailureOf([&] {
            root->SetNamespaceRestrictions(L"##targetNamespace ##local urn:b", L"urn:x");
        }).message,
        L"The namespace urn:a in the class r is invalid against restriction ##targetNamespace ##local urn:b");
    root->GetElements()->Item(0)->GetElements()->Remove(0);
    EXPECT_EQ(FailureOf([&] { root->SetNamespaceRestrictions(L"urn:a ##local", L""); }).message,
              L"The namespace urn:b in the class y is invalid against restriction urn:a ##local");
    // Nothing was changed by the refusals.
    EXPECT_EQ(root->GetNamespaceRestriction(), L"##any");
    EXPECT_EQ(root->GetElements()->Item(0)->GetNamespaceRestriction(), L"##any");

    root->GetElements()->Item(1)->GetAttributes()->Remove(0);
    root->SetNamespaceRestrictions(L"##targetNamespace ##local", L"urn:a");
    const CElement* child = root->GetElements()->Item(1);
    EXPECT_EQ(child->GetNamespaceRestriction(), L"##targetNamespace ##local");
    EXPECT_EQ(child->GetRestrictionTargetNamespace(), L"urn:a");
    EXPECT_THROW(child->GetAttributes()->Add(L"z", L"", L"urn:b"), CQxInvalidNamespaceException);
    EXPECT_THROW(child->GetElements()->Add(L"z", L"urn:b"), CQxInvalidNamespaceException);
    child->GetElements()->Add(L"z");
}

TEST(UntypedCollections, IteratingPastTheEndThrows) {
    const CSmartPtr<CElementCol> elements(new CElementCol(L"u", L"##any", L"", 0, -1));
    elements->Add(L"a");
    CElementCol::const_iterator position = elements->begin();
    EXPECT_EQ((*position)->GetName(), L"a");
    ++position;
    EXPECT_EQ(FailureOf([&] { ++position; }).message, L"No More Elements in the Collection");
    EXPECT_THROW(*position, CQxInvalidStateException);
}

TEST(UntypedCollections, CloneCopiesTheWholeTree) {
    const CSmartPtr<CElement> root = Read(L"<r a='1'><c>x<g/></c></r>");
    const CSmartPtr<CElement> copy(root->Clone());
    EXPECT_EQ(Text(*copy), Text(*root));
    copy->GetElements()->Item(0)->SetText(L"changed");
    copy->GetAttributes()->Item(0)->SetValue(L"2");
    EXPECT_EQ(root->GetElements()->Item(0)->GetText(), L"x");
    EXPECT_EQ(root->GetAttributes()->Item(0)->GetValue(), L"1");
}

TEST(UntypedWriting, WritesTagAttributesChildrenThenText) {
    const CSmartPtr<CElement> root(new CElement(L"r", L"urn:r"));
    root->GetAttributes()->Add(L"a", L"1");
    root->GetAttributes()->Add(L"b", L"<&\"", L"urn:p");
    root->GetElements()->Add(L"c")->SetText(L"x");
    root->GetElements()->Add(L"d", L"urn:r");
    root->SetText(L"t");
    EXPECT_EQ(Text(*root), L"<AA:r xmlns:AA=\"urn:r\" a=\"1\" xmlns:AB=\"urn:p\" AB:b=\"&lt;&amp;&quot;\">"
                           L"<AA:c>x</AA:c><AA:d/>t</AA:r>");
}

TEST(UntypedWriting, CopiedDefaultNamespaceIsWrittenRawWithoutOtherAttributes) {
    CSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(stNoNamespaces);
    CXmlDocument document(noNamespaces);
    document.LoadXml(L"<r xmlns='u' a='1'><c>t</c></r>");
    const CSmartPtr<CElement> copy(new CElement(L"copy"));
    copy->CopyXmlElement(document.GetDocumentElement());
    EXPECT_EQ(copy->GetDefaultNamespace(), L"u");
    EXPECT_EQ(copy->GetAttributes()->GetCount(), 2);
    EXPECT_EQ(Text(*copy), L"<r xmlns=\"u\"><c>t</c></r>");

    const CSmartPtr<CElement> parent(new CElement(L"p"));
    parent->GetAttributes()->Add(L"k", L"v");
    parent->GetElements()->Add(copy.Get());
    EXPECT_EQ(Text(*parent), L"<p k=\"v\"><r xmlns=\"u\"><c>t</c></r></p>");
    EXPECT_EQ(parent->ToXml(false, true), L"<p k=\"v\">\n<r xmlns=\"u\">\n\t<c>t</c>\n</r>\n\n</p>\n");
}

TEST(UntypedCopying, CopiesATreeInOrder) {
    CXmlDocument document;
    document.LoadXml(L"<r xmlns:p='urn:p' p:a='1'>x<c/><p:d><e>y</e></p:d></r>");
    const CSmartPtr<CElement> copy(new CElement(L"copy", L"", L"##local", L""));
    copy->GetElements()->Add(L"stale", L"");
    copy->CopyXmlElement(document.GetDocumentElement());
    EXPECT_EQ(copy->GetName(), L"r");
    EXPECT_TRUE(copy->GetDefaultNamespace().empty());
    ASSERT_EQ(copy->GetElements()->GetCount(), 2);
    const CElement* d = copy->GetElements()->Item(1);
    EXPECT_EQ(d->GetNamespace(), L"urn:p");
    EXPECT_EQ(d->GetElements()->Item(0)->GetText(), L"y");
    EXPECT_EQ(copy->GetAttributes()->Item(0)->GetNamespace(), L"urn:p");

    // A bound object's written form can be copied the same way.
    const CSmartPtr<CElement> wrapped(new CElement(copy.Get(), L"w"));
    EXPECT_EQ(wrapped->GetName(), L"w");
    EXPECT_EQ(wrapped->GetElements()->Item(1)->GetElements()->Item(0)->GetText(), L"y");
}

} // namespace
