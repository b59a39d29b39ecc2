#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/binding/ClassMetaData.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/data/AttributeInfoAny.h>
#include <QxXmlLib16/data/AttributeInfoPrimitive.h>
#include <QxXmlLib16/data/ParentElementInfo.h>

#include "binding/support/Untyped.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;

namespace {

const wchar_t kNamespace[] = L"urn:t";

// <t:tagged id="..." any attribute outside urn:t.../>: a required attribute and an attribute
// wildcard. The wildcard member can be made to hold another kind of collection.
class CTagged : public CXmlGeneratedClass {
public:
    CTagged()
        : m_extra(new CAttributeCol(L"", L"##any", L"")) {
        SetElementName(L"tagged");
    }

    CSmartPtr<CXmlCollectionBase> m_extra;
    std::wstring m_id;

    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override {
        if (propertyNumber == 1)
            read ? value.SetString(m_id) : void(m_id = value.GetString());
        else if (read)
            value.SetXmlCollection(m_extra.Get());
        return 0;
    }
    const CParentElementInfo* GetClassInfo() const override { return MetaData().GetClassInfo(); }
    CElementInfo* const* GetClassElementInfo() const override { return MetaData().GetElements(); }
    CAttributeInfo* const* GetClassAttributeInfo() const override { return MetaData().GetAttributes(); }
    void OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) override {}
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return kNamespace; }
    std::wstring GetNamespace() const override { return kNamespace; }

private:
    static const CClassMetaData& MetaData() {
        static const CClassMetaData data(
            new CParentElementInfo(egSequence, etElement, L"tagged", kNamespace, true, false, -1, itNone, L"",
                                   false),
            {},
            {new CAttributeInfoPrimitive(L"id", L"", 1, false, itString, L"", CWhitespaceUtils::wsPreserve,
                                         CPrimitiveRestrictions(), L""),
             new CAttributeInfoAny(L"any", L"", 2, true, L"", L"##other", kNamespace)});
        return data;
    }
};

CAttributeCol& Extra(const CTagged& tagged) {
    return static_cast<CAttributeCol&>(*tagged.m_extra);
}

TEST(UntypedAttributeWildcard, TakesAttributesOutsideTheTargetNamespaceAndWritesThemBack) {
    const CSmartPtr<CTagged> tagged(new CTagged);
    tagged->FromXml(L"<t:tagged xmlns:t='urn:t' xmlns:o='urn:o' id='1' o:x='2' y='3'/>");
    EXPECT_EQ(tagged->m_id, L"1");
    ASSERT_EQ(Extra(*tagged).GetCount(), 2);
    EXPECT_EQ(Extra(*tagged).Item(0)->GetNamespace(), L"urn:o");
    EXPECT_EQ(Extra(*tagged).Item(1)->GetName(), L"y");
    EXPECT_EQ(tagged->ToXml(false, false),
              L"<AA:tagged xmlns:AA=\"urn:t\" id=\"1\" xmlns:AB=\"urn:o\" AB:x=\"2\" y=\"3\"/>");

    // An attribute in the target namespace is not the wildcard's, and this class reports it.
    const CSmartPtr<CTagged> other(new CTagged);
    EXPECT_EQ(FailureOf([&] { other->FromXml(L"<t:tagged xmlns:t='urn:t' id='1' t:z='2'/>"); }).message,
              L"Unexpected Attribute found.");
}

TEST(UntypedAttributeWildcard, MemberOfAnotherCollectionKindIsRefused) {
    const CSmartPtr<CTagged> tagged(new CTagged);
    tagged->m_extra = new CElementCol(L"", L"##any", L"", 0, -1);
    EXPECT_EQ(FailureOf([&] { tagged->FromXml(L"<tagged id='1' y='3'/>"); }).message,
              L"Serialization Data Error : The collection should be a CAttributeCol, it was not!");
}

TEST(UntypedRootAttributes, AreWrittenOnTheRootBeforeItsOwnAndSharedByCopies) {
    CSmartPtr<CAttributeCol> handle;
    const CSmartPtr<CTagged> tagged(new CTagged);
    tagged->m_id = L"1";
    {
        CSerializationContext context;
        EXPECT_EQ(tagged->ToXml(false, false, eolLF, context), L"<AA:tagged xmlns:AA=\"urn:t\" id=\"1\"/>");
        handle = context.GetAdditionalRootAttributes();
        EXPECT_EQ(handle->GetNamespaceRestriction(), L"##any");
        handle->Add(L"extra", L"e", L"urn:o");

        const CSerializationContext copy(context);
        EXPECT_EQ(copy.GetAdditionalRootAttributes(), handle);
        EXPECT_EQ(tagged->ToXml(false, false, eolLF, copy),
                  L"<AA:tagged xmlns:AA=\"urn:t\" xmlns:AB=\"urn:o\" AB:extra=\"e\" id=\"1\"/>");
    }
    // The contexts are gone; the handle still holds the collection.
    EXPECT_EQ(handle->Item(0)->GetValue(), L"e");
}

TEST(UntypedElementSource, BoundObjectReadsFromAnUntypedElement) {
    const CSmartPtr<CElement> element(new CElement(L"any"));
    element->FromXml(L"<t:tagged xmlns:t='urn:t' xmlns:o='urn:o' id='7' o:x='2'/>");
    const CSmartPtr<CTagged> tagged(new CTagged);
    tagged->FromXmlElement(element.Get());
    EXPECT_EQ(tagged->m_id, L"7");
    EXPECT_EQ(Extra(*tagged).GetCount(), 1);

    // An untyped element reads one from another as well, keeping its name.
    const CSmartPtr<CElement> copy(new CElement(L"copy"));
    copy->FromXmlElement(element.Get());
    EXPECT_EQ(copy->ToXml(false, false), element->ToXml(false, false));
}

} // namespace
