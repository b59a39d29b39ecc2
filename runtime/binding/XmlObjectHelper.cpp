#include <QxXmlLib16/binding/XmlObjectHelper.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/ItemTraits.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "foundation/Patterns.h"

#include <string_view>
#include <type_traits>
#include <vector>

namespace QxXmlLib16 {

namespace {

using R = CPrimitiveRestrictions;
using C = CConversions;
using Rule = CWhitespaceUtils::WhitespaceRule;

// Keeps a parameter out of template argument deduction, so that the value alone fixes the type.
template <class T>
struct Exactly {
    using type = T;
};
template <class T>
using Parser = typename Exactly<T (*)(const std::wstring&, Rule)>::type;
template <class T>
using Printer = typename Exactly<std::wstring (*)(T)>::type;

const wchar_t* NameText(const wchar_t* name) {
    return name ? name : L"";
}

[[noreturn]] void Fail(const wchar_t* name, const std::wstring& shown) {
    throw CQxInvalidValueException(
        FormatString(L"Invalid Value for %ls [%ls].", NameText(name), shown.c_str()));
}
[[noreturn]] void Fail(const wchar_t* name, int shown) {
    throw CQxInvalidValueException(FormatString(L"Invalid Value for %ls [%d]", NameText(name), shown));
}
[[noreturn]] void Fail(const wchar_t* name, double shown) {
    throw CQxInvalidValueException(FormatString(L"Invalid Value for %ls [%f]", NameText(name), shown));
}

// Where a value stands against a bound, as bits so that a facet can name the positions it forbids.
enum Order { orderLess = 1, orderEqual = 2, orderGreater = 4, orderUnordered = 8 };

Order OrderFromSign(int sign) {
    return sign < 0 ? orderLess : sign > 0 ? orderGreater : orderEqual;
}

// Date and duration comparisons share the result codes of CDateTime::CompareTo.
Order OrderFromCode(int code) {
    switch (code) {
    case CDateTime::crEqual:
        return orderEqual;
    case CDateTime::crLess:
        return orderLess;
    case CDateTime::crGreater:
        return orderGreater;
    default:
        return orderUnordered;
    }
}

// Built-in numbers; a NaN on either side is unordered.
template <class T>
Order OrderOf(T value, T bound) {
    return value < bound    ? orderLess
           : bound < value  ? orderGreater
           : value == bound ? orderEqual
                            : orderUnordered;
}
Order OrderOf(const CDecimal& value, const CDecimal& bound) {
    return OrderFromSign(value.CompareTo(bound));
}
Order OrderOf(const CBigInteger& value, const CBigInteger& bound) {
    return OrderFromSign(value.CompareTo(bound));
}
Order OrderOf(const CDateTime& value, const CDateTime& bound) {
    return OrderFromCode(value.CompareTo(bound));
}
Order OrderOf(const CDateTimeSpan& value, const CDateTimeSpan& bound) {
    return OrderFromCode(value.CompareTo(bound));
}

struct BoundFacet {
    std::wstring R::*bound;
    int forbidden; // Order bits that violate it; an unordered value violates no bound
};
const BoundFacet kBoundFacets[] = {
    {&R::m_minInclusive, orderLess},
    {&R::m_maxInclusive, orderGreater},
    {&R::m_minExclusive, orderLess | orderEqual},
    {&R::m_maxExclusive, orderGreater | orderEqual},
};

// Bounds are text and every loaded value is checked against them, while a schema has only a few
// distinct bounds per type: each thread keeps the last ones it parsed, keyed by parser and text.
template <class T>
const T& ParsedBound(const std::wstring& text, Parser<T> parse) {
    struct Entry {
        Parser<T> parse;
        std::wstring text;
        T value;
    };
    constexpr std::size_t kCapacity = 16;
    thread_local std::vector<Entry> cache;
    thread_local std::size_t nextVictim = 0;
    for (const Entry& entry : cache)
        if (entry.parse == parse && entry.text == text) return entry.value;
    Entry entry{parse, text, parse(text, CWhitespaceUtils::wsCollapse)};
    if (cache.size() < kCapacity) {
        cache.push_back(std::move(entry));
        return cache.back().value;
    }
    Entry& victim = cache[nextVictim];
    nextVictim = (nextVictim + 1) % kCapacity;
    victim = std::move(entry);
    return victim.value;
}

template <class T>
bool BoundsHold(const T& value, const R& restrictions, Parser<T> parse) {
    for (const BoundFacet& facet : kBoundFacets) {
        const std::wstring& bound = restrictions.*facet.bound;
        if (R::IsPresent(bound) && (OrderOf(value, ParsedBound<T>(bound, parse)) & facet.forbidden))
            return false;
    }
    return true;
}

bool AtMost(long long count, long long facet) {
    return !R::IsPresent(facet) || count <= facet;
}

// minLength, maxLength and length on a count of characters or bytes.
bool LengthHolds(std::size_t length, const R& restrictions) {
    const auto count = static_cast<long long>(length);
    return !(R::IsPresent(restrictions.m_minLength) && count < restrictions.m_minLength) &&
           AtMost(count, restrictions.m_maxLength) &&
           !(R::IsPresent(restrictions.m_length) && count != restrictions.m_length);
}

// totalDigits against the printed value, minus sign included; prints only when the facet is present.
template <class Print>
bool PrintedWithin(long long totalDigits, Print print) {
    return !R::IsPresent(totalDigits) || static_cast<long long>(print().size()) <= totalDigits;
}

// The integers and reals. Shown is how a failing value appears in the message: int ("%d"), double
// ("%f") or its printed text. print, when given, also measures totalDigits.
template <class Shown, class T>
void CheckNumber(const wchar_t* name, T value, const R& restrictions, Parser<T> parse, Printer<T> print) {
    if (BoundsHold(value, restrictions, parse) &&
        (!print || PrintedWithin(restrictions.m_totalDigits, [&] { return print(value); })))
        return;
    if constexpr (std::is_same_v<Shown, std::wstring>)
        Fail(name, print(value));
    else
        Fail(name, static_cast<Shown>(value));
}

// The date and time kinds and the duration: bounds only.
template <class T>
void CheckOrdered(const wchar_t* name, const T& value, const R& restrictions, Parser<T> parse) {
    if (!BoundsHold(value, restrictions, parse)) Fail(name, value.ToString());
}

void CheckBinary(const wchar_t* name, const CBinaryData& value, const R& restrictions,
                 std::wstring (*print)(const CBinaryData&)) {
    if (!LengthHolds(value.GetLength(), restrictions)) Fail(name, print(value));
}

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r';
}

bool TokenAllows(std::wstring_view token, const std::wstring& namespaceURI,
                 const std::wstring& targetNamespace) {
    if (token == L"##any") return true;
    // Unlike the usual reading, an unqualified name counts as "other" too.
    if (token == L"##other") return namespaceURI != targetNamespace;
    if (token == L"##local") return namespaceURI.empty();
    if (token == L"##targetNamespace") return namespaceURI == targetNamespace;
    return token == namespaceURI;
}

// Types that QxVariant::GetType can name.
bool HasTypeName(ItemType type) {
    return VisitItemType(
        type, [](auto) { return true; }, [] { return false; });
}

} // namespace

bool CXmlObjectHelper::DoesElementNameMatch(const CSerializationContext& context, const CXmlElement* element,
                                            const std::wstring& name, const std::wstring& namespaceURI) {
    if (!element || element->GetLocalName() != name) return false;
    // A schema without namespaces makes the context ignore them too.
    return context.GetIgnoreNamespaces() || element->GetNamespaceURI() == namespaceURI;
}

bool CXmlObjectHelper::IsNamespaceValid(const std::wstring& namespaceURI, const std::wstring& rule,
                                        const std::wstring& targetNamespace) {
    const std::wstring_view tokens(rule);
    std::size_t begin = 0;
    while (begin < tokens.size()) {
        std::size_t end = begin;
        while (end < tokens.size() && !IsBlank(tokens[end]))
            ++end;
        if (end > begin && TokenAllows(tokens.substr(begin, end - begin), namespaceURI, targetNamespace))
            return true;
        begin = end + 1;
    }
    return false;
}

void CXmlObjectHelper::TestNamespace(const std::wstring& namespaceURI, const std::wstring& rule,
                                     const std::wstring& targetNamespace) {
    if (!IsNamespaceValid(namespaceURI, rule, targetNamespace))
        throw CQxInvalidNamespaceException(
            FormatString(L"Invalid namespace [%ls]. The namespace must be one of [%ls] where the target "
                         L"namespace is [%ls].",
                         namespaceURI.c_str(), rule.c_str(), targetNamespace.c_str()),
            std::wstring());
}

void CXmlObjectHelper::CheckRestriction(const wchar_t* name, const QxVariant& value, ItemType type,
                                        const CPrimitiveRestrictions& restrictions) {
    const auto unknown = [&] {
        const ItemType held = value.GetItemType();
        const std::wstring typeName = HasTypeName(held) ? value.GetType() : std::to_wstring(held);
        throw CQxException(FormatString(L"Unknown type [%ls]", typeName.c_str()));
    };
    VisitItemType(
        type,
        [&](auto traits) {
            using Traits = decltype(traits);
            if constexpr (Traits::kHasFacets)
                Traits::Check(name, Traits::Get(value), restrictions);
            else
                unknown();
        },
        unknown);
}

void CXmlObjectHelper::CheckRestrictionFori1(const wchar_t* name, char value, const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::i1FromString, &C::i1ToString);
}
void CXmlObjectHelper::CheckRestrictionFori2(const wchar_t* name, short value, const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::i2FromString, &C::i2ToString);
}
void CXmlObjectHelper::CheckRestrictionFori4(const wchar_t* name, long value, const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::i4FromString, &C::i4ToString);
}
void CXmlObjectHelper::CheckRestrictionFori8(const wchar_t* name, long long value, const R& restrictions) {
    CheckNumber<std::wstring>(name, value, restrictions, &C::i8FromString, &C::i8ToString);
}
void CXmlObjectHelper::CheckRestrictionForui1(const wchar_t* name, unsigned char value,
                                              const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::ui1FromString, &C::ui1ToString);
}
void CXmlObjectHelper::CheckRestrictionForui2(const wchar_t* name, unsigned short value,
                                              const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::ui2FromString, &C::ui2ToString);
}
void CXmlObjectHelper::CheckRestrictionForui4(const wchar_t* name, unsigned long value,
                                              const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::ui4FromString, &C::ui4ToString);
}
void CXmlObjectHelper::CheckRestrictionForui8(const wchar_t* name, unsigned long long value,
                                              const R& restrictions) {
    CheckNumber<std::wstring>(name, value, restrictions, &C::ui8FromString, &C::ui8ToString);
}
void CXmlObjectHelper::CheckRestrictionForr4(const wchar_t* name, float value, const R& restrictions) {
    CheckNumber<double>(name, value, restrictions, &C::r4FromString, nullptr);
}
void CXmlObjectHelper::CheckRestrictionForr8(const wchar_t* name, double value, const R& restrictions) {
    CheckNumber<double>(name, value, restrictions, &C::r8FromString, nullptr);
}
void CXmlObjectHelper::CheckRestrictionForday(const wchar_t* name, unsigned char value,
                                              const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::dayFromString, nullptr);
}
void CXmlObjectHelper::CheckRestrictionFormonth(const wchar_t* name, unsigned char value,
                                                const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::monthFromString, nullptr);
}
void CXmlObjectHelper::CheckRestrictionForyear(const wchar_t* name, unsigned short value,
                                               const R& restrictions) {
    CheckNumber<int>(name, value, restrictions, &C::yearFromString, nullptr);
}

void CXmlObjectHelper::CheckRestrictionFordecimal(const wchar_t* name, const CDecimal& value,
                                                  const R& restrictions) {
    if (BoundsHold(value, restrictions, &C::decimalFromString) &&
        AtMost(GetDecimalIntegerPartLen(value) + GetDecimalFractionPartLen(value),
               restrictions.m_totalDigits) &&
        AtMost(GetDecimalFractionPartLen(value), restrictions.m_fractionDigits))
        return;
    Fail(name, value.ToString());
}

void CXmlObjectHelper::CheckRestrictionForinteger(const wchar_t* name, const CBigInteger& value,
                                                  const R& restrictions) {
    if (BoundsHold(value, restrictions, &C::integerFromString) &&
        PrintedWithin(restrictions.m_totalDigits, [&] { return value.ToString(); }))
        return;
    Fail(name, value.ToString());
}

void CXmlObjectHelper::CheckRestrictionFordate(const wchar_t* name, const CDateTime& value,
                                               const R& restrictions) {
    CheckOrdered(name, value, restrictions, &C::dateFromString);
}
void CXmlObjectHelper::CheckRestrictionFordatetime(const wchar_t* name, const CDateTime& value,
                                                   const R& restrictions) {
    CheckOrdered(name, value, restrictions, &C::datetimeFromString);
}
void CXmlObjectHelper::CheckRestrictionFortime(const wchar_t* name, const CDateTime& value,
                                               const R& restrictions) {
    CheckOrdered(name, value, restrictions, &C::timeFromString);
}
void CXmlObjectHelper::CheckRestrictionFormonthDay(const wchar_t* name, const CDateTime& value,
                                                   const R& restrictions) {
    CheckOrdered(name, value, restrictions, &C::monthDayFromString);
}
void CXmlObjectHelper::CheckRestrictionFormonthYear(const wchar_t* name, const CDateTime& value,
                                                    const R& restrictions) {
    CheckOrdered(name, value, restrictions, &C::yearMonthFromString);
}
void CXmlObjectHelper::CheckRestrictionForyearMonth(const wchar_t* name, const CDateTime& value,
                                                    const R& restrictions) {
    CheckRestrictionFormonthYear(name, value, restrictions);
}
void CXmlObjectHelper::CheckRestrictionForduration(const wchar_t* name, const CDateTimeSpan& value,
                                                   const R& restrictions) {
    CheckOrdered(name, value, restrictions, &C::durationFromString);
}

void CXmlObjectHelper::CheckRestrictionForhexBinary(const wchar_t* name, const CBinaryData& value,
                                                    const R& restrictions) {
    CheckBinary(name, value, restrictions, &C::hexBinaryToString);
}
void CXmlObjectHelper::CheckRestrictionForbase64Binary(const wchar_t* name, const CBinaryData& value,
                                                       const R& restrictions) {
    CheckBinary(name, value, restrictions, &C::base64BinaryToString);
}

void CXmlObjectHelper::CheckRestrictionForstring(const wchar_t* name, const std::wstring& value,
                                                 const R& restrictions) {
    if (!LengthHolds(value.size(), restrictions)) Fail(name, value);
    if (!R::IsPresent(restrictions.m_pattern)) return;
    bool matches;
    try {
        matches = internal::MatchesPattern(restrictions.m_pattern, restrictions.m_patternMode, value.data(),
                                           value.size());
    } catch (const CQxException& patternError) {
        throw CQxInvalidValueException(FormatString(L"%ls\nInvalid Value for %ls [%ls].",
                                                    patternError.GetFullMessage().c_str(), NameText(name),
                                                    value.c_str()));
    }
    if (!matches) Fail(name, value);
}

void CXmlObjectHelper::CheckRestrictionForboolean(const wchar_t*, bool, const R&) {}

int CXmlObjectHelper::GetDecimalIntegerPartLen(const CDecimal& value) {
    return CBigInteger::Position(value.GetIntegerPart().GetDigits()) + 1;
}

int CXmlObjectHelper::GetDecimalFractionPartLen(const CDecimal& value) {
    // The fraction counts GetDivider() places; its low zero digits are not significant.
    const CBigInteger::Digits& digits = value.GetFractionPart().GetDigits();
    if (CBigInteger::Position(digits) < 0) return 0;
    int lowZeros = 0;
    while (digits[lowZeros] == 0)
        ++lowZeros;
    return value.GetDivider() - lowZeros;
}

} // namespace QxXmlLib16
