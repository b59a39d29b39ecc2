#include "InterimHelpers.h"

namespace Qxxsd {

const wchar_t* const kInterimHelpers = LR"cpp(
// ---- What every generated class calls ----------------------------------------------------------

[[noreturn]] inline int UnknownProperty(int propertyNumber) {
    throw CQxInvalidParamException(FormatString(L"Unknown property number %d", propertyNumber));
}

template <class T>
T* ObjectOf(const QxVariant& value, const wchar_t* property) {
    CXmlObjectBase* object = value.GetXmlObject().Get();
    T* typed = dynamic_cast<T*>(object);
    if (object && !typed)
        throw CQxInvalidParamException(
            FormatString(L"The Property [%ls] was given an object of another class", property));
    return typed;
}

template <class C>
C* CollectionOf(const QxVariant& value, const wchar_t* property) {
    C* collection = dynamic_cast<C*>(value.GetXmlCollection().Get());
    if (!collection)
        throw CQxInvalidParamException(
            FormatString(L"The Property [%ls] needs a collection of its own class", property));
    return collection;
}

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

inline CElement* NewAnyElement(const wchar_t* namespaceRule, const wchar_t* namespaceURI,
                               const wchar_t* targetNamespace) {
    const std::wstring defaultNamespace =
        QxXmlLib16Data::CElementInfo::GetAnyDefaultNamespace(namespaceRule, namespaceURI, targetNamespace);
    return new CElement(L"AnyElement", defaultNamespace.c_str(), namespaceRule, targetNamespace);
}

template <ItemType Kind>
struct TItemTraits;
#define QXGEN_ITEM_TRAITS(kind, T, accessor)                                                                \
    template <>                                                                                              \
    struct TItemTraits<kind> {                                                                               \
        using Type = T;                                                                                      \
        static void Put(QxVariant& variant, const T& value) { variant.Set##accessor(value); }               \
        static decltype(auto) Get(const QxVariant& variant) { return variant.Get##accessor(); }             \
    };
QXGEN_ITEM_TRAITS(itHexBinary, CBinaryData, HexBinary)
QXGEN_ITEM_TRAITS(itBase64Binary, CBinaryData, Base64Binary)
QXGEN_ITEM_TRAITS(itI1, char, I1)
QXGEN_ITEM_TRAITS(itI2, short, I2)
QXGEN_ITEM_TRAITS(itI4, long, I4)
QXGEN_ITEM_TRAITS(itI8, long long, I8)
QXGEN_ITEM_TRAITS(itUi1, unsigned char, UI1)
QXGEN_ITEM_TRAITS(itUi2, unsigned short, UI2)
QXGEN_ITEM_TRAITS(itUi4, unsigned long, UI4)
QXGEN_ITEM_TRAITS(itUi8, unsigned long long, UI8)
QXGEN_ITEM_TRAITS(itR4, float, R4)
QXGEN_ITEM_TRAITS(itR8, double, R8)
QXGEN_ITEM_TRAITS(itDuration, CDateTimeSpan, Duration)
QXGEN_ITEM_TRAITS(itYearMonth, CDateTime, YearMonth)
QXGEN_ITEM_TRAITS(itMonthDay, CDateTime, MonthDay)
QXGEN_ITEM_TRAITS(itYear, unsigned short, Year)
QXGEN_ITEM_TRAITS(itMonth, unsigned char, Month)
QXGEN_ITEM_TRAITS(itDay, unsigned char, Day)
QXGEN_ITEM_TRAITS(itDate, CDateTime, Date)
QXGEN_ITEM_TRAITS(itDateTime, CDateTime, DateTime)
QXGEN_ITEM_TRAITS(itTime, CDateTime, Time)
QXGEN_ITEM_TRAITS(itString, std::wstring, String)
QXGEN_ITEM_TRAITS(itBoolean, bool, Boolean)
QXGEN_ITEM_TRAITS(itDecimal, CDecimal, Decimal)
QXGEN_ITEM_TRAITS(itInteger, CBigInteger, Integer)
#undef QXGEN_ITEM_TRAITS

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
template <ItemType Kind, class Value>
decltype(auto) TakeValue(const QxVariant& value) {
    if constexpr (std::is_enum<Value>::value)
        return static_cast<Value>(TItemTraits<Kind>::Get(value));
    else
        return TItemTraits<Kind>::Get(value);
}
template <ItemType Kind, class Member>
void PutMember(QxVariant& value, const Member& member) {
    using Shape = TMemberShape<Member>;
    using Type = typename TItemTraits<Kind>::Type;
    if (!Shape::IsPresent(member)) return;
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

template <ItemType Kind>
int PutNil(QxVariant& value) {
    TItemTraits<Kind>::Put(value, typename TItemTraits<Kind>::Type());
    value.SetNil();
    return 0;
}

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

template <class C>
int AccessCollection(bool read, QxVariant& value, CSmartPtr<C>& member, const wchar_t* elementName) {
    if (read)
        value.SetXmlCollection(member.Get());
    else
        member = CollectionOf<C>(value, elementName);
    return 0;
}

template <int N>
const wchar_t* EnumToText(const wchar_t* const (&texts)[N], int value) {
    return value >= 0 && value < N ? texts[value] : L"";
}

template <int N>
int EnumFromText(const wchar_t* const (&texts)[N], const wchar_t* text, const wchar_t* typeName) {
    for (int i = 0; i < N; ++i)
        if (std::wcscmp(texts[i], text) == 0) return i;
    throw CQxInvalidValueException(FormatString(L"The value [%ls] is not a valid %ls", text, typeName));
}

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
        if (!*ToText(value))
            throw CQxInvalidValueException(FormatString(L"Invalid Value for %ls [%d]", name, static_cast<int>(value)));
    }
};

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
)cpp";

} // namespace Qxxsd
