#pragma once

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/values/QxVariant.h>

#include <string>

namespace QxXmlLib16 {

// The primitive kinds, one row each: the kind, the C++ type its values have, the name of its
// QxVariant accessors (SetI4, GetI4) and the stem of its text conversions and facet check
// (i4FromString, i4ToString, CheckRestrictionFori4), which is also the name QxVariant::GetType
// reports. The date and time kinds print with the member's format; the others have one text form.
// char has no facets and so no facet check.
#define QX_ITEM_TYPES_WITH_FACETS(X)                                                                         \
    X(itHexBinary, CBinaryData, HexBinary, hexBinary, (value))                                               \
    X(itBase64Binary, CBinaryData, Base64Binary, base64Binary, (value))                                      \
    X(itI1, char, I1, i1, (value))                                                                           \
    X(itI2, short, I2, i2, (value))                                                                          \
    X(itI4, long, I4, i4, (value))                                                                           \
    X(itI8, long long, I8, i8, (value))                                                                      \
    X(itUi1, unsigned char, UI1, ui1, (value))                                                               \
    X(itUi2, unsigned short, UI2, ui2, (value))                                                              \
    X(itUi4, unsigned long, UI4, ui4, (value))                                                               \
    X(itUi8, unsigned long long, UI8, ui8, (value))                                                          \
    X(itR4, float, R4, r4, (value))                                                                          \
    X(itR8, double, R8, r8, (value))                                                                         \
    X(itDuration, CDateTimeSpan, Duration, duration, (value))                                                \
    X(itYearMonth, CDateTime, YearMonth, yearMonth, (value, format))                                         \
    X(itMonthDay, CDateTime, MonthDay, monthDay, (value, format))                                            \
    X(itYear, unsigned short, Year, year, (value))                                                           \
    X(itMonth, unsigned char, Month, month, (value))                                                         \
    X(itDay, unsigned char, Day, day, (value))                                                               \
    X(itDate, CDateTime, Date, date, (value, format))                                                        \
    X(itDateTime, CDateTime, DateTime, datetime, (value, format))                                            \
    X(itTime, CDateTime, Time, time, (value, format))                                                        \
    X(itString, std::wstring, String, string, (value))                                                       \
    X(itBoolean, bool, Boolean, boolean, (value))                                                            \
    X(itDecimal, CDecimal, Decimal, decimal, (value))                                                        \
    X(itInteger, CBigInteger, Integer, integer, (value))

#define QX_ITEM_TYPES(X)                                                                                     \
    QX_ITEM_TYPES_WITH_FACETS(X)                                                                             \
    X(itChar, wchar_t, Char, char, (value))

// What the library knows of one primitive kind, as static members:
//   Type                        the C++ type of its values
//   kName                       its name ("i4", "datetime", ...)
//   kHasFacets                  whether facets apply (all but char)
//   Put(variant, value)         stores a value in a QxVariant with the kind's setter
//   Get(variant)                the kind's QxVariant getter
//   Parse(text, rule)           the value of a text, by CConversions
//   Print(value, format)        the text of a value, by CConversions (format: date and time kinds)
//   Check(name, value, facets)  the facet check of CXmlObjectHelper (kinds with facets)
// Defined for the 26 primitive kinds only, so a kind without a text form does not compile.
template <ItemType Kind>
struct TItemTraits;

#define QX_ITEM_TRAITS_COMMON(kind, T, accessor, stem, printArguments)                                       \
    using Type = T;                                                                                          \
    static constexpr ItemType kKind = kind;                                                                  \
    static constexpr const wchar_t* kName = L"" #stem;                                                       \
    static void Put(QxVariant& variant, const T& value) {                                                    \
        variant.Set##accessor(value);                                                                        \
    }                                                                                                        \
    static decltype(auto) Get(const QxVariant& variant) {                                                    \
        return variant.Get##accessor();                                                                      \
    }                                                                                                        \
    static T Parse(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {                        \
        return CConversions::stem##FromString(text, rule);                                                   \
    }                                                                                                        \
    static std::wstring Print(const T& value, [[maybe_unused]] const std::wstring& format) {                 \
        return CConversions::stem##ToString printArguments;                                                  \
    }

#define QX_DEFINE_FACETED_ITEM_TRAITS(kind, T, accessor, stem, printArguments)                               \
    template <>                                                                                              \
    struct TItemTraits<kind> {                                                                               \
        QX_ITEM_TRAITS_COMMON(kind, T, accessor, stem, printArguments)                                       \
        static constexpr bool kHasFacets = true;                                                             \
        static void Check(const wchar_t* name, const T& value, const CPrimitiveRestrictions& restrictions) { \
            CXmlObjectHelper::CheckRestrictionFor##stem(name, value, restrictions);                          \
        }                                                                                                    \
    };
QX_ITEM_TYPES_WITH_FACETS(QX_DEFINE_FACETED_ITEM_TRAITS)

template <>
struct TItemTraits<itChar> {
    QX_ITEM_TRAITS_COMMON(itChar, wchar_t, Char, char, (value))
    static constexpr bool kHasFacets = false;
};

#undef QX_DEFINE_FACETED_ITEM_TRAITS
#undef QX_ITEM_TRAITS_COMMON

// Calls visit(TItemTraits<kind>()) for a kind known only at run time, and otherwise() for itNone,
// the reference kinds and values outside the enumeration. Both must return the same type.
template <class Visit, class Otherwise>
decltype(auto) VisitItemType(ItemType kind, Visit&& visit, Otherwise&& otherwise) {
    switch (kind) {
#define QX_VISIT_ITEM_TYPE(kind, ...)                                                                        \
    case kind:                                                                                               \
        return visit(TItemTraits<kind>());
        QX_ITEM_TYPES(QX_VISIT_ITEM_TYPE)
#undef QX_VISIT_ITEM_TYPE
    default:
        return otherwise();
    }
}

} // namespace QxXmlLib16
