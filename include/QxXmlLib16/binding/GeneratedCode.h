#pragma once

// What every generated class would otherwise write out again: the property access of each kind of
// member, the checks on the objects and collections a member receives, enumeration texts and
// their collections, and the metadata getters. docs/generated-classes.md shows their use.

#include <QxXmlLib16/binding/ClassMetaData.h>
#include <QxXmlLib16/binding/ItemTraits.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/collections/TypedCollection.h>
#include <QxXmlLib16/data/ElementInfo.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/Optional.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/values/QxVariant.h>

#include <optional>
#include <string>
#include <type_traits>

namespace QxXmlLib16 {

// ---- Refusals ------------------------------------------------------------------------------------

// The end of every AccessProperty switch: throws CQxInvalidParamException "Unknown property number
// <n>". Declared to return int so that a switch can end in `return UnknownProperty(n);`.
[[noreturn]] QX_API int UnknownProperty(int propertyNumber);
// CQxInvalidParamException "The Property [<property>] was given an object of another class".
[[noreturn]] QX_API void ThrowWrongObjectClass(const wchar_t* property);
// CQxInvalidParamException "The Property [<property>] needs a collection of its own class".
[[noreturn]] QX_API void ThrowWrongCollectionClass(const wchar_t* property);
// CQxInvalidValueException "Invalid Value for <element> [<value>]", for an enumeration value that has
// no text.
[[noreturn]] QX_API void ThrowInvalidEnumValue(const wchar_t* element, int value);

// The object a member of class T receives: null when the variant holds none, otherwise it must be
// a T. The variant keeps the object alive.
template <class T>
T* ObjectOf(const QxVariant& value, const wchar_t* property) {
    CXmlObjectBase* object = value.GetXmlObject().Get();
    T* typed = dynamic_cast<T*>(object);
    if (object && !typed) ThrowWrongObjectClass(property);
    return typed;
}

// The collection a repeated member receives; it always holds one, so null is refused as well.
template <class C>
C* CollectionOf(const QxVariant& value, const wchar_t* property) {
    C* collection = dynamic_cast<C*>(value.GetXmlCollection().Get());
    if (!collection) ThrowWrongCollectionClass(property);
    return collection;
}

// ---- Child objects -------------------------------------------------------------------------------

// The body of a child member's setter: the child takes the member's element name, so that an object
// can move between members, and is held by reference. A mandatory member refuses null with
// CQxInvalidParamException "The Property [<name>] is mandatory, it may node be NULL".
template <class T>
void AdoptChild(CSmartPtr<T>& member, T* child, const wchar_t* elementName) {
    if (child) child->SetElementName(elementName);
    member = child;
}
template <class T>
void AdoptMandatoryChild(CSmartPtr<T>& member, T* child, const wchar_t* elementName) {
    CXmlObjectBase::Throw_IfPropertyIsNull(child, elementName);
    AdoptChild(member, child, elementName);
}

// The element a mandatory wildcard member holds from construction on, for the reader to fill:
// named "AnyElement", in the namespace the rule writes by default.
inline CElement* NewAnyElement(const wchar_t* namespaceRule, const wchar_t* namespaceURI,
                               const wchar_t* targetNamespace) {
    const std::wstring defaultNamespace =
        QxXmlLib16Data::CElementInfo::GetAnyDefaultNamespace(namespaceRule, namespaceURI, targetNamespace);
    return new CElement(L"AnyElement", defaultNamespace.c_str(), namespaceRule, targetNamespace);
}

// ---- Property access -----------------------------------------------------------------------------
//
// Each Access... is one case of AccessProperty: with read true it puts the member into the variant,
// with read false it takes the member from it. All return 0, the result AccessProperty passes on:
//
//   case pnEle:  return AccessValue<itDecimal>(read, value, m_ele);               // TOptional<CDecimal>
//   case pnLat:  return AccessValue<itDecimal>(read, value, m_lat, this, &CWpt::SetLat);
//   case pnFix:  return AccessValue<itI4>(read, value, m_fix);                    // an enumeration
//   case pnLink: return AccessObject(read, value, m_link, L"link");
//   case pnPts:  return AccessCollection(read, value, m_pts, L"pt");
//
// A member is held as its kind's type (TItemTraits<Kind>::Type, or a type it converts to and from,
// such as an enumeration for itI4), or optionally as TOptional or std::optional of it. An absent
// optional member leaves the variant untouched, so nothing is written. The setter forms take the
// value through the class's own setter, which checks the member's facets.

namespace internal {

template <class Member>
struct TMemberShape {
    using Value = Member;
    static bool IsPresent(const Member&) { return true; }
    static const Member& ValueOf(const Member& member) { return member; }
};
template <class V>
struct TMemberShape<TOptional<V>> {
    using Value = V;
    static bool IsPresent(const TOptional<V>& member) { return member.has_value(); }
    static const V& ValueOf(const TOptional<V>& member) { return *member; }
};
template <class V>
struct TMemberShape<std::optional<V>> {
    using Value = V;
    static bool IsPresent(const std::optional<V>& member) { return member.has_value(); }
    static const V& ValueOf(const std::optional<V>& member) { return *member; }
};

// The variant's value as the member's value type: enumerations travel as i4. A string is moved
// out, since a text may be as large as the document.
template <ItemType Kind, class Value>
decltype(auto) TakeValue(QxVariant& value) {
    if constexpr (std::is_enum<Value>::value)
        return static_cast<Value>(TItemTraits<Kind>::Get(value));
    else if constexpr (Kind == itString && std::is_same<Value, std::wstring>::value)
        return value.TakeString();
    else
        return TItemTraits<Kind>::Get(value);
}

template <ItemType Kind, class Member>
void PutMember(QxVariant& value, const Member& member) {
    using Shape = TMemberShape<Member>;
    using Type = typename TItemTraits<Kind>::Type;
    if (!Shape::IsPresent(member)) return;
    if constexpr (std::is_same<typename Shape::Value, Type>::value)
        TItemTraits<Kind>::Put(value, Shape::ValueOf(member));
    else
        TItemTraits<Kind>::Put(value, static_cast<Type>(Shape::ValueOf(member)));
}

} // namespace internal

template <ItemType Kind, class Member>
int AccessValue(bool read, QxVariant& value, Member& member) {
    if (read)
        internal::PutMember<Kind>(value, member);
    else
        member = internal::TakeValue<Kind, typename internal::TMemberShape<Member>::Value>(value);
    return 0;
}

template <ItemType Kind, class Member, class Object, class Owner, class Argument>
int AccessValue(bool read, QxVariant& value, const Member& member, Object* object,
                void (Owner::*setter)(Argument)) {
    if (read)
        internal::PutMember<Kind>(value, member);
    else
        (object->*setter)(internal::TakeValue<Kind, typename internal::TMemberShape<Member>::Value>(value));
    return 0;
}

// The read of a nillable member that is nil: a value of the kind's type, then marked nil. Reading
// a document never stores a nil value, so only the read direction needs it:
//   case pnNote: return read && m_noteNil ? PutNil<itString>(value) : AccessValue<itString>(...);
template <ItemType Kind>
int PutNil(QxVariant& value) {
    TItemTraits<Kind>::Put(value, typename TItemTraits<Kind>::Type());
    value.SetNil();
    return 0;
}

// A child object member. An object the reader stores is already named after the member's element,
// so the plain form only stores it; the setter form goes through the class's setter.
template <class T>
int AccessObject(bool read, QxVariant& value, CSmartPtr<T>& member, const wchar_t* elementName) {
    if (read)
        value.SetXmlObject(member.Get());
    else
        member = ObjectOf<T>(value, elementName);
    return 0;
}
template <class T, class Object, class Owner, class Argument>
int AccessObject(bool read, QxVariant& value, const CSmartPtr<T>& member, const wchar_t* elementName,
                 Object* object, void (Owner::*setter)(Argument)) {
    if (read)
        value.SetXmlObject(member.Get());
    else
        (object->*setter)(ObjectOf<T>(value, elementName));
    return 0;
}

// A repeated member: the collection the class always holds; another one of the same class may
// replace it.
template <class C>
int AccessCollection(bool read, QxVariant& value, CSmartPtr<C>& member, const wchar_t* elementName) {
    if (read)
        value.SetXmlCollection(member.Get());
    else
        member = CollectionOf<C>(value, elementName);
    return 0;
}

// ---- Enumerations --------------------------------------------------------------------------------

// The two functions of an enumeration over the table of its texts, in schema order:
//   const wchar_t* FixToText(int value) { return EnumToText(kFixTexts, value); }
//   int FixFromText(const wchar_t* text) { return EnumFromText(kFixTexts, text, L"fixType"); }
// A value outside the table has the empty text; an unknown text throws CQxInvalidValueException
// "The value [<text>] is not a valid <typeName>".
QX_API const wchar_t* EnumToText(const wchar_t* const* texts, int count, int value);
QX_API int EnumFromText(const wchar_t* const* texts, int count, const wchar_t* text, const wchar_t* typeName);
template <int N>
const wchar_t* EnumToText(const wchar_t* const (&texts)[N], int value) {
    return EnumToText(texts, N, value);
}
template <int N>
int EnumFromText(const wchar_t* const (&texts)[N], const wchar_t* text, const wchar_t* typeName) {
    return EnumFromText(texts, N, text, typeName);
}

// A repeated enumeration member: the values of E, written as their texts (as strings, like a
// single enumeration member) and read from their collapsed texts. A value without a text is
// refused when added: CQxInvalidValueException "Invalid Value for <element> [<value>]".
template <class E, QxXmlLib16Data::EnumToTextFunction ToText, QxXmlLib16Data::TextToEnumFunction FromText>
class TEnumCol : public CTypedCollection<TEnumCol<E, ToText, FromText>, E> {
    using Base = CTypedCollection<TEnumCol<E, ToText, FromText>, E>;

public:
    TEnumCol(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs)
        : Base(itString, elementName, namespaceURI, minOccurs, maxOccurs, L"", -1, -1, L"", L"", L"", L"", -1,
               -1, -1, CWhitespaceUtils::wsCollapse, L"") {}

    void Add(E value) { AddAt(this->GetCount(), value); }
    void AddAt(int index, E value) { this->InsertAt(index, value, &CheckValue); }
    void AddFromString(std::wstring text) override {
        Add(static_cast<E>(FromText(CWhitespaceUtils::Collapse(text).c_str())));
    }
    std::wstring ItemToString(E value) const { return ToText(value); }

private:
    static void CheckValue(const wchar_t* name, E value, const CPrimitiveRestrictions&) {
        if (!*ToText(value)) ThrowInvalidEnumValue(name, static_cast<int>(value));
    }
};

// ---- Metadata ------------------------------------------------------------------------------------

// The metadata getters and GetBase of a generated class, from its static
// `const CClassMetaData& MetaData()` (accessible to this template):
//   class CPlace : public TGeneratedClass<CPlace> { ... };
//   class CCampsite : public TGeneratedClass<CCampsite, CPlace> { ... };   // derived by extension
template <class Derived, class Base = CXmlGeneratedClass>
class TGeneratedClass : public Base {
public:
    using Base::Base;

    const QxXmlLib16Data::CParentElementInfo* GetClassInfo() const override {
        return Derived::MetaData().GetClassInfo();
    }
    QxXmlLib16Data::CElementInfo* const* GetClassElementInfo() const override {
        return Derived::MetaData().GetElements();
    }
    QxXmlLib16Data::CAttributeInfo* const* GetClassAttributeInfo() const override {
        return Derived::MetaData().GetAttributes();
    }
    CXmlObjectBase* GetBase() override { return this; }
};

} // namespace QxXmlLib16
