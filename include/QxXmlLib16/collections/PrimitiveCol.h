#pragma once

#include <QxXmlLib16/binding/ItemTraits.h>
#include <QxXmlLib16/collections/TypedCollection.h>
#include <QxXmlLib16/collections/datetimeBaseCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/values/DateTime.h>

#include <string>
#include <type_traits>
#include <utility>

namespace QxXmlLib16 {

// The kind of date a date collection accepts, and the refusal of any other.
struct DateKindRule {
    CDateTime::DTType type;
    const wchar_t* refusal;
};
constexpr DateKindRule DateKindOf(ItemType kind) {
    switch (kind) {
    case itDate:
        return {CDateTime::dt_date, L"Dates added to this collection must be of type dt_date"};
    case itDateTime:
        return {CDateTime::dt_dateTime, L"Dates added to this collection must be of type dt_dateTime"};
    case itTime:
        return {CDateTime::dt_time, L"Dates added to this collection must be of type dt_time"};
    case itYearMonth:
        return {CDateTime::dt_gYearMonth, L"Dates added to this collection must be of type dt_gYearMonth"};
    default:
        return {CDateTime::dt_gMonthDay, L"Dates added to this collection must be of type dt_gMonthDay"};
    }
}

// The repeated primitive values of one kind, as the collection Derived: the array, events, index
// rules and writing of CTypedCollection (through CdatetimeBaseCol for the date kinds), with the
// kind's text conversions and facet check from TItemTraits. Derived names itself in kClassName.
template <class Derived, ItemType Kind>
class QX_API TPrimitiveCol
    : public std::conditional_t<std::is_same<typename TItemTraits<Kind>::Type, CDateTime>::value,
                                CdatetimeBaseCol,
                                CTypedCollection<Derived, typename TItemTraits<Kind>::Type>>,
      public CInstanceMonitor {
    using Traits = TItemTraits<Kind>;
    using T = typename Traits::Type;
    static constexpr bool kIsDate = std::is_same<T, CDateTime>::value;
    using Base = std::conditional_t<kIsDate, CdatetimeBaseCol, CTypedCollection<Derived, T>>;

public:
    TPrimitiveCol(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs,
                  const wchar_t* pattern, long long minLength, long long maxLength,
                  const wchar_t* minInclusive, const wchar_t* maxInclusive, const wchar_t* minExclusive,
                  const wchar_t* maxExclusive, long long length, long long totalDigits,
                  long long fractionDigits, CWhitespaceUtils::WhitespaceRule whitespaceRule,
                  const wchar_t* format, PatternMode patternMode = pmTranslated)
        : Base(Kind, elementName, namespaceURI, minOccurs, maxOccurs, pattern, minLength, maxLength,
               minInclusive, maxInclusive, minExclusive, maxExclusive, length, totalDigits, fractionDigits,
               whitespaceRule, format, patternMode)
        , CInstanceMonitor(Derived::kClassName) {}

    void Add(T value) { AddAt(this->GetCount(), std::move(value)); }

    // Announces the value before checking index and facets, so listeners may see an add that then
    // fails. A date is first checked for its kind and facets, and only an acceptable one announced.
    void AddAt(int index, T value) {
        if constexpr (kIsDate) {
            constexpr DateKindRule rule = DateKindOf(Kind);
            if (value.GetType() != rule.type) throw CQxInvalidParamException(rule.refusal);
            Traits::Check(this->GetElementName().c_str(), value, this->GetRestrictions());
            this->BaseAddAt(index, std::move(value));
        } else {
            this->InsertAt(index, std::move(value), &Traits::Check);
        }
    }

    void AddFromString(std::wstring text) override { Add(Traits::Parse(text, this->GetWhitespaceRule())); }

    std::wstring ItemToString(const T& value) const { return Traits::Print(value, this->GetFormat()); }
};

// The 25 typed collections, named after their XML Schema type (Ci4Col, CdateCol, ...).
#define QX_PRIMITIVE_COL(kind, T, accessor, stem, ...)                                                       \
    class QX_API C##stem##Col : public TPrimitiveCol<C##stem##Col, kind> {                                   \
    public:                                                                                                  \
        static constexpr const wchar_t* kClassName = L"C" #stem L"Col";                                      \
        using TPrimitiveCol::TPrimitiveCol;                                                                  \
    };
QX_ITEM_TYPES_WITH_FACETS(QX_PRIMITIVE_COL)
#undef QX_PRIMITIVE_COL

} // namespace QxXmlLib16
