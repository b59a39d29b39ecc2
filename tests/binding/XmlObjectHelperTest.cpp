#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace QxXmlLib16;
using H = CXmlObjectHelper;
using R = CPrimitiveRestrictions;
using C = CConversions;

namespace {

const auto kNone = CWhitespaceUtils::wsNone;
const std::wstring kPasses = L"(no exception)";

R Bounds(std::wstring minInclusive, std::wstring maxInclusive, std::wstring minExclusive = {},
         std::wstring maxExclusive = {}) {
    return R({}, -1, -1, minInclusive, maxInclusive, minExclusive, maxExclusive, -1, -1, -1);
}
R Lengths(long long minLength, long long maxLength, long long length, std::wstring pattern = {}) {
    return R(pattern, minLength, maxLength, {}, {}, {}, {}, length, -1, -1);
}
R Digits(long long totalDigits, long long fractionDigits = -1) {
    return R({}, -1, -1, {}, {}, {}, {}, -1, totalDigits, fractionDigits);
}

// One facet check through the variant dispatch: the item type, the value's text, the facets and the
// exact message of the CQxInvalidValueException expected (kPasses when none).
struct Case {
    ItemType type;
    const wchar_t* value;
    R facets;
    std::wstring message;
};

void ExpectMessages(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        QxVariant value;
        value.FromString(c.value, c.type, kNone);
        EXPECT_EQ(
            MessageOf<CQxInvalidValueException>([&] { H::CheckRestriction(L"v", value, c.type, c.facets); }),
            c.message)
            << c.value;
    }
}

TEST(NamespaceRule, TokensAreTriedFromTheLeft) {
    struct Case {
        const wchar_t* ns;
        const wchar_t* rule;
        const wchar_t* target;
        bool allowed;
    } cases[] = {
        {L"", L"##other", L"urn:a", true},           {L"urn:a", L"##other", L"urn:a", false},
        {L"urn:b", L"##other", L"urn:a", true},      {L"", L"##other", L"", false},
        {L"urn:x", L"urn:x ##local", L"", true},     {L"", L"urn:x ##local", L"urn:t", true},
        {L"urn:y", L"urn:x ##local", L"", false},    {L"urn:t", L"##targetNamespace", L"urn:t", true},
        {L"urn:q", L"##any", L"urn:t", true},        {L"urn:q", L"", L"urn:t", false},
        {L"urn:q", L"  urn:p \t urn:q ", L"", true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(H::IsNamespaceValid(c.ns, c.rule, c.target), c.allowed) << c.ns << " in " << c.rule;
        EXPECT_EQ(MessageOf<CQxInvalidNamespaceException>(
                      [&] { H::TestNamespace(c.ns, c.rule, c.target); }) == kPasses,
                  c.allowed);
    }
    EXPECT_EQ(MessageOf<CQxInvalidNamespaceException>(
                  [] { H::TestNamespace(L"urn:y", L"urn:x ##local", L"urn:t"); }),
              L"Invalid namespace [urn:y]. The namespace must be one of [urn:x ##local] where the target "
              L"namespace is "
              L"[urn:t].");
}

TEST(NumberFacets, BoundsThenPrintedDigitsWithTheTypesMessage) {
    ExpectMessages({
        {itI4, L"-100", Digits(3), L"Invalid Value for v [-100]"},
        {itI4, L"100", Digits(3), kPasses},
        {itI1, L"-5", Digits(1), L"Invalid Value for v [-5]"},
        {itI2, L"4", Bounds(L" 5 ", {}), L"Invalid Value for v [4]"},
        {itUi2, L"5", Bounds(L"5", {}, L"5"), L"Invalid Value for v [5]"},
        {itUi1, L"6", Bounds({}, {}, L"5", L"7"), kPasses},
        {itI4, L"7", Bounds({}, {}, {}, L"7"), L"Invalid Value for v [7]"},
        {itUi4, L"4000000000", Bounds({}, L"5"), L"Invalid Value for v [-294967296]"},
        {itI8, L"-9223372036854775808", Digits(19), L"Invalid Value for v [-9223372036854775808]."},
        {itUi8, L"18446744073709551615", Bounds({}, {}, {}, L"18446744073709551615"),
         L"Invalid Value for v [18446744073709551615]."},
        {itR8, L"1.5", Bounds({}, L"1"), L"Invalid Value for v [1.500000]"},
        {itR4, L"12345", Digits(2), kPasses},
        {itR8, L"NaN", Bounds(L"0", L"1", L"0", L"1"), kPasses},
        {itR8, L"1e300", Bounds({}, L"INF"), kPasses},
        {itMonth, L"--05", Bounds(L"--06", {}), L"Invalid Value for v [5]"},
        {itDay, L"---31", Bounds({}, {}, {}, L"---31"), L"Invalid Value for v [31]"},
        {itYear, L"1999", Bounds({}, {}, L"1999"), L"Invalid Value for v [1999]"},
        {itYear, L"2000", R(L"x", 9, 9, {}, {}, {}, {}, 9, 1, 1), kPasses},
    });
}

TEST(DecimalFacets, DigitsAreCountedOnTheAbsoluteValue) {
    ExpectMessages({
        {itDecimal, L"12.34", Digits(3), L"Invalid Value for v [12.34]."},
        {itDecimal, L"-1.23", Digits(3), kPasses},
        {itDecimal, L"0.123", Digits(3, 3), kPasses},
        {itDecimal, L"1.25", Digits(-1, 1), L"Invalid Value for v [1.25]."},
        {itDecimal, L"1.50", Digits(2, 1), kPasses},
        {itDecimal, L"1.50", Bounds({}, {}, L"1.5"), L"Invalid Value for v [1.5]."},
        {itInteger, L"-100", Digits(3), L"Invalid Value for v [-100]."},
        {itInteger, L"123456789012345678901", Bounds({}, L"1e20"),
         L"Invalid Value for v [123456789012345678901]."},
    });
    struct Digits {
        const wchar_t* text;
        int integerDigits, fractionDigits;
    } cases[] = {{L"0", 0, 0}, {L"-12.340", 2, 2}, {L"0.05", 0, 2}, {L"100", 3, 0}, {L"-0.5", 0, 1}};
    for (const Digits& c : cases) {
        EXPECT_EQ(H::GetDecimalIntegerPartLen(CDecimal(c.text)), c.integerDigits) << c.text;
        EXPECT_EQ(H::GetDecimalFractionPartLen(CDecimal(c.text)), c.fractionDigits) << c.text;
    }
    // Built without normalisation: 1.2 held as 200 thousandths.
    EXPECT_EQ(H::GetDecimalFractionPartLen(CDecimal(CBigInteger(1), CBigInteger(200), 3)), 1);
}

TEST(OrderedFacets, DatesAndDurationsAndTheirIndeterminateCases) {
    // Fourteen hours either way of an unzoned value straddle a zoned bound five hours off.
    const R straddling(L"", -1, -1, L"2020-01-01T05:00:00Z", L"2019-12-31T19:00:00Z", L"2020-01-01T05:00:00Z",
                       L"2019-12-31T19:00:00Z", -1, -1, -1);
    ExpectMessages({
        {itDate, L"2020-01-01", Bounds(L"2020-01-02", {}), L"Invalid Value for v [2020-01-01]."},
        {itDate, L"2020-01-01", Bounds(L"2020-01-01", L"2020-01-01"), kPasses},
        {itDateTime, L"2020-01-01T00:00:00", Bounds({}, {}, L"2020-01-01T00:00:00"),
         L"Invalid Value for v [2020-01-01T00:00:00]."},
        {itDateTime, L"2020-01-01T00:00:00", straddling, kPasses},
        {itTime, L"12:00:00", Bounds({}, {}, {}, L"12:00:00"), L"Invalid Value for v [12:00:00]."},
        {itYearMonth, L"2020-05", Bounds({}, L"2020-04"), L"Invalid Value for v [2020-05]."},
        {itMonthDay, L"--05-01", Bounds(L"--05-02", {}), L"Invalid Value for v [--05-01]."},
        {itDuration, L"P2M", Bounds({}, L"P30D"), L"Invalid Value for v [P2M]."},
        {itDuration, L"P1M", Bounds(L"P30D", L"P30D", L"P30D", L"P30D"), kPasses},
        {itDuration, L"P10439Y", Bounds({}, {}, L"P10439Y"), L"Invalid Value for v [P10439Y]."},
    });
}

TEST(LengthAndPatternFacets, CountCharactersOrBytes) {
    ExpectMessages({
        {itString, L"abc", Lengths(-1, -1, 3), kPasses},
        {itString, L"abc", Lengths(-1, -1, 2), L"Invalid Value for v [abc]."},
        {itString, L"ab", Lengths(3, -1, -1), L"Invalid Value for v [ab]."},
        {itString, L"abcd", Lengths(-1, 3, -1), L"Invalid Value for v [abcd]."},
        {itString, L"\u00e9\u00e9", Lengths(2, 2, -1, L"\u00e9+"), kPasses},
        {itString, L"abd", Lengths(-1, -1, -1, L"[a-c]+"), L"Invalid Value for v [abd]."},
        {itString, L"xabc", Lengths(-1, -1, -1, L"abc"), L"Invalid Value for v [xabc]."},
        {itHexBinary, L"010203", Lengths(-1, -1, 2), L"Invalid Value for v [010203]."},
        {itBase64Binary, L"AQID", Lengths(4, -1, -1), L"Invalid Value for v [AQID]."},
        {itHexBinary, L"010203", Lengths(3, 3, 3, L"nothing"), kPasses},
        {itBoolean, L"false", R(L"1", 5, 0, L"x", L"y", L"z", L"w", 7, 0, 0), kPasses},
    });
    const std::wstring invalid = MessageOf<CQxInvalidValueException>(
        [] { H::CheckRestrictionForstring(L"s", L"abc", Lengths(-1, -1, -1, L"(")); });
    EXPECT_EQ(invalid.rfind(L"Invalid Regular Expression: (", 0), 0u) << invalid;
    EXPECT_EQ(invalid.substr(invalid.find(L'\n')), L"\nInvalid Value for s [abc].");
}

// A record asks for the exact reading of its pattern; without asking it keeps the translated one.
TEST(LengthAndPatternFacets, PatternModeComesFromTheRecord) {
    const auto facets = [](const wchar_t* pattern, PatternMode mode) {
        return R(pattern, -1, -1, {}, {}, {}, {}, -1, -1, -1, mode);
    };
    ExpectMessages({
        {itString, L"bcd", facets(L"[a-z-[aeiou]]+", pmExact), kPasses},
        {itString, L"bad", facets(L"[a-z-[aeiou]]+", pmExact), L"Invalid Value for v [bad]."},
        {itString, L"bcd", facets(L"[a-z-[aeiou]]+", pmTranslated), L"Invalid Value for v [bcd]."},
        {itString, L"^x", facets(L"^x", pmExact), kPasses},
        {itString, L"a", facets(L"a+?", pmExact),
         L"Invalid Regular Expression: a+? Error: 'reluctant and possessive quantifiers are not XML Schema "
         L"syntax (position 2)'\nInvalid Value for v [a]."},
    });
    EXPECT_EQ(R().m_patternMode, pmTranslated);
}

TEST(BoundText, ConversionErrorsPropagateUnchanged) {
    const std::wstring dateError =
        MessageOf<CQxInvalidValueException>([] { C::dateFromString(L"2020-13-01", kNone); });
    ASSERT_NE(dateError, kPasses);
    ExpectMessages({
        {itI4, L"1", Bounds(L"abc", {}), L"The value [abc] can not be converted to a i4"},
        {itI1, L"1", Bounds({}, L" 200 "), L"The value [200] is to large to fit in a i1"},
        {itDate, L"2020-01-01", Bounds(L"2020-13-01", {}), dateError},
    });
}

TEST(Dispatch, TypesWithoutACheckAreNamed) {
    QxVariant character, none;
    character.SetChar(L'x');
    EXPECT_EQ(MessageOf<CQxException>([&] { H::CheckRestriction(L"v", character, itChar, R()); }),
              L"Unknown type [char]");
    EXPECT_EQ(MessageOf<CQxException>([&] { H::CheckRestriction(L"v", none, itNone, R()); }),
              L"Unknown type [0]");
}

} // namespace
