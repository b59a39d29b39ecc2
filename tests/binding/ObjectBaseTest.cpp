#include <QxXmlLib16/binding/XmlObjectBase.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/values/QxVariant.h>

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;

namespace {

// The smallest bound object: counts its destructions so that double deletes and leaks show.
class CCounted : public CXmlObjectBase {
public:
    explicit CCounted(int* destroyed)
        : m_destroyed(destroyed) {}
    ~CCounted() override { ++*m_destroyed; }
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }

protected:
    void ToXml_Int(CXmlWriter*, bool, const wchar_t*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CSerializationContext&,
                             bool) override {
        return firstChild;
    }

private:
    int* m_destroyed;
};

} // namespace

TEST(SmartPtr, CopiesMovesAndResetsKeepTheCountBalanced) {
    int destroyed = 0;
    {
        CSmartPtr<CCounted> a(new CCounted(&destroyed));
        CSmartPtr<CXmlObjectBase> b = a; // converting copy
        CSmartPtr<CCounted> c(std::move(a));
        EXPECT_FALSE(a);
        EXPECT_TRUE(b == c);
        c = c; // self-assignment must not release the last reference early
        EXPECT_EQ(0, destroyed);
        b.Reset();
        CSmartPtr<CCounted> d = b.DynamicCast<CCounted>();
        EXPECT_FALSE(d);
        EXPECT_EQ(0, destroyed);
    }
    EXPECT_EQ(1, destroyed);

    CCounted* raw = new CCounted(&destroyed);
    raw->AddRef();
    CSmartPtr<CCounted> adopted;
    adopted.Attach(raw); // takes over the reference without adding one
    EXPECT_EQ(raw, adopted.Detach());
    EXPECT_EQ(0, raw->Release());
    EXPECT_EQ(2, destroyed);
}

TEST(VariantReferences, HoldCountedReferencesAndRefuseATypeName) {
    int destroyed = 0;
    {
        QxVariant held;
        {
            CSmartPtr<CCounted> object(new CCounted(&destroyed));
            held.SetXmlObject(object.Get());
        }
        EXPECT_EQ(0, destroyed);
        QxVariant copy(held);
        held.SetXmlObject(held.GetXmlObject().Get()); // re-setting the same object keeps it alive
        held.Clear();
        EXPECT_EQ(0, destroyed);
        EXPECT_TRUE(copy.GetXmlObject());
        EXPECT_FALSE(copy.GetXmlCollection());
        EXPECT_EQ(L"Invalid Type 27", MessageOf<CQxInvalidStateException>([&] { copy.GetType(); }));
        copy.SetNil();
        EXPECT_EQ(1, destroyed);
        EXPECT_EQ(itXmlObject, copy.GetItemType());
        EXPECT_FALSE(copy.GetXmlObject());
    }
    EXPECT_EQ(1, destroyed);

    QxVariant collection;
    collection.SetXmlCollection(nullptr);
    EXPECT_EQ(L"Invalid Type 28", MessageOf<CQxInvalidStateException>([&] { collection.GetType(); }));
}

TEST(ChoiceBookkeeping, KeepsAtMostOneMemberSelected) {
    int destroyed = 0;
    CSmartPtr<CCounted> value(new CCounted(&destroyed));
    std::wstring selected;

    CXmlObjectBase::Choice_SelectElement(L"a", nullptr, selected); // an empty choice takes even null
    EXPECT_EQ(L"a", selected);
    CXmlObjectBase::Choice_SelectElement(L"b", nullptr, selected); // null for another member: no change
    EXPECT_EQ(L"a", selected);
    EXPECT_EQ(L"The Property [a] is already set. Only one element within this class bay be set at a time",
              MessageOf<CQxInvalidStateException>(
                  [&] { CXmlObjectBase::Choice_SelectElement(L"b", value.Get(), selected); }));
    CXmlObjectBase::Choice_SelectElement(L"a", nullptr, selected);
    EXPECT_EQ(L"", selected);

    CXmlObjectBase::Choice_CollectionChanged(L"c", 0, selected);
    EXPECT_EQ(L"", selected);
    CXmlObjectBase::Choice_CollectionChanged(L"c", 2, selected);
    EXPECT_EQ(L"c", selected);
    EXPECT_EQ(L"The Property [c] is already set. Only one element within this class bay be set at a time",
              MessageOf<CQxInvalidStateException>(
                  [&] { CXmlObjectBase::Choice_CollectionChanged(L"d", 1, selected); }));
    CXmlObjectBase::Choice_CollectionChanged(L"c", 0, selected);
    EXPECT_EQ(L"", selected);

    // Marking a member valid requires it to be the selected one already, the empty selection included.
    EXPECT_EQ(L"The Property  is already set. Only one element within this class bay be set at a time",
              MessageOf<CQxInvalidStateException>(
                  [&] { CXmlObjectBase::Choice_SetElementValid(true, L"a", selected); }));
    selected = L"a";
    CXmlObjectBase::Choice_SetElementValid(true, L"a", selected);
    CXmlObjectBase::Choice_SetElementValid(false, L"zzz", selected);
    EXPECT_EQ(L"", selected);
}

TEST(SetterChecks, ElementNameMustMatch) {
    int destroyed = 0;
    CSmartPtr<CCounted> value(new CCounted(&destroyed));
    value->SetElementName(L"b");
    EXPECT_EQ(
        L"This property requires an element with the name a the element being set has the element name b",
        MessageOf<CQxInvalidParamException>(
            [&] { CXmlObjectBase::Throw_IfElementNameDiffers(value.Get(), L"a"); }));
    CXmlObjectBase::Throw_IfElementNameDiffers(nullptr, L"a");
    CXmlObjectBase::Throw_IfElementNameDiffers(value.Get(), L"b");
}
