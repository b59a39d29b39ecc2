#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/Decimal.h>

#include "foundation/support/MessageOf.h"
#include "values/support/NumericReference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

using namespace QxXmlLib16;
using QxTest::RefDecimal;
using QxTest::Widen;

namespace {

std::wstring Canonical(const std::wstring& text) {
    return CDecimal(text.c_str()).ToString();
}

// The sign of a - b.
int Order(const RefDecimal& a, const RefDecimal& b) {
    const int order = cmp(a.value * QxTest::Pow10(b.scale), b.value * QxTest::Pow10(a.scale));
    return (order > 0) - (order < 0);
}

std::wstring ParseError(const std::wstring& text) {
    return MessageOf<CQxInvalidValueException>([&] { CDecimal(text.c_str()); });
}

std::wstring ParseErrorText(const char* what, int position, const std::wstring& text) {
    return L"The string representing a Decimal, " + Widen(what) + L" at position " +
           std::to_wstring(position) + L" [" + text + L"].";
}

} // namespace

TEST(DecimalTest, ParsesTheLexicalFormsPermissively) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"1.500", L"1.5"}, {L"0.000", L"0"},       {L"-0.5", L"-0.5"}, {L"+7", L"7"},
        {L"1.5e2", L"150"}, {L"1.5E-2", L"0.015"},  {L"1e", L"1"},      {L"1e+-3", L"0.001"},
        {L"1e 2", L"100"},  {L"1 2", L"12"},        {L"1-2", L"-12"},   {L" \t\r\n", L"0"},
        {L"-", L"0"},       {L"-.05", L"-0.05"},    {L"5.", L"5"},      {L"1.2 3\n", L"1.23"},
        {L"1.5e-40", L"0"}, {L"-1.5E+3", L"-1500"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Canonical(text), expected) << text;
    // Both parts carry the sign, also when the integer part is zero.
    EXPECT_TRUE(CDecimal(L"-0.5").GetIntegerPart().IsNegative());
    EXPECT_TRUE(CDecimal(L"-").GetIntegerPart().IsNegative());
    EXPECT_EQ(CDecimal(L"1.500").GetDivider(), 1);
}

TEST(DecimalTest, InvalidTextIsReportedAtItsPositionAndLeavesTheValue) {
    const std::pair<const wchar_t*, int> cases[] = {
        {L"12a", 2}, {L"1.2.3", 3}, {L"abc", 0}, {L"1e2 ", 3}, {L"1.5-", 3}, {L"1e2.5", 3}, {L"1e-+2-", 5},
    };
    for (const auto& [text, position] : cases)
        EXPECT_EQ(ParseError(text), ParseErrorText("contained an invalid char", position, text));

    CDecimal value(L"-12.25");
    EXPECT_THROW(value.Parse(L"3.5x"), CQxInvalidValueException);
    EXPECT_EQ(value.ToString(), L"-12.25");
    value.Parse(L"81x", 2);
    EXPECT_EQ(value.ToString(), L"81");
}

// Runs longer than the 511 integer or fraction digits or 31 exponent digits the text form supports, and
// exponents beyond 1000, are rejected at the first digit too many; an exponent that would give more
// than 511 integer digits, at its first digit, so that every value read has a text that reads back.
TEST(DecimalTest, RejectsDigitRunsBeyondTheSupportedRange) {
    const std::wstring nines(511, L'9');
    EXPECT_EQ(Canonical(nines), nines);
    EXPECT_EQ(Canonical(L"1e510"), L"1" + std::wstring(510, L'0'));
    EXPECT_EQ(Canonical(L"-00.00" + nines.substr(2) + L"e513"), L"-" + nines.substr(2) + L"00");
    EXPECT_EQ(Canonical(L"0.0e1000"), L"0");
    EXPECT_EQ(Canonical(L"1e-1000"), L"0");
    EXPECT_EQ(Canonical(L"1e" + std::wstring(30, L'0') + L"2"), L"100");
    const std::pair<std::wstring, int> cases[] = {
        {nines + L"9", 511},
        {L"-1 " + nines, 513},
        {L"0." + nines + L"9", 513},
        {L"1e" + std::wstring(32, L'0'), 33},
        {L"1e1001", 5},
        {L"1e511", 2},
        {L"-9e999", 3},
        {L"0.001e514", 6},
        {L"1.5e 511", 5},
        {L"1e-99999999999999999999", 6},
    };
    for (const auto& [text, position] : cases)
        EXPECT_EQ(ParseError(text), ParseErrorText("is out of the supported range", position, text));
}

TEST(DecimalTest, RoundsDroppedDigitsToNearestWithHalvesTowardZero) {
    const std::tuple<const wchar_t*, int, const wchar_t*> cases[] = {
        {L"0.125", 2, L"0.12"}, {L"-0.125", 2, L"-0.12"}, {L"0.1251", 2, L"0.13"}, {L"0.9951", 2, L"1"},
        {L"-9.96", 1, L"-10"},  {L"2.5", 0, L"2"},        {L"-2.51", 0, L"-3"},    {L"1.5", 4, L"1.5000"},
    };
    for (const auto& [text, digits, expected] : cases) {
        CDecimal value(text);
        value.ChangeFractionalDivider(digits);
        EXPECT_EQ(value.ToString(), expected) << text << " to " << digits;
    }
    const std::wstring ones(29, L'1');
    EXPECT_EQ(Canonical(L"0." + ones + L"25" + std::wstring(9, L'0')), L"0." + ones + L"2");
    EXPECT_EQ(Canonical(L"0." + std::wstring(29, L'9') + L"96"), L"1");
    EXPECT_EQ(Canonical(L"0." + std::wstring(28, L'0') + L"1096"), L"0." + std::wstring(28, L'0') + L"11");

    CDecimal a(L"1.5"), b(L"-2.125");
    CDecimal::Normalize(a, b);
    EXPECT_EQ(a.ToString(), L"1.500");
    a.Rationalise();
    EXPECT_EQ(a.ToString(), L"1.5");
    EXPECT_EQ(CDecimal(CBigInteger(-1), CBigInteger(-5), 3).ToString(), L"-1.005");
    EXPECT_EQ(MessageOf<CQxInvalidParamException>([] { CDecimal(CBigInteger(1), CBigInteger(0), 0); }),
              L"The divider of a Decimal must be at least 1 [0].");
}

TEST(DecimalTest, FormatsAFixedNumberOfDigitsRoundingHalfAwayFromZero) {
    const std::tuple<const wchar_t*, int, const wchar_t*> cases[] = {
        {L"1.005", 2, L"1.01"},   {L"-1.005", 2, L"-1.01"}, {L"1", 2, L"1.00"},  {L"0.995", 2, L"1.00"},
        {L"-0.001", 2, L"-0.00"}, {L"3.5", 0, L"4."},       {L"-0", 1, L"-0.0"}, {L"2.5", -3, L"3."},
    };
    for (const auto& [text, digits, expected] : cases)
        EXPECT_EQ(CDecimal(text).ToString(digits), expected) << text << " with " << digits;
    EXPECT_EQ(CDecimal(L"12").ToString(35), L"12." + std::wstring(35, L'0'));
}

TEST(DecimalTest, DividesToMaxDividerDigits) {
    EXPECT_EQ((CDecimal(-2) / CDecimal(3)).ToString(), L"-0." + std::wstring(29, L'6') + L"7");
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([] { CDecimal(1) /= CDecimal(L"-0.0"); }),
              L"ERROR: Overflow in operator/.");
    const int saved = CDecimal::m_maxDivider;
    CDecimal::m_maxDivider = 5;
    EXPECT_EQ((CDecimal(2) / CDecimal(3)).ToString(), L"0.66667");
    EXPECT_EQ(Canonical(L"0.1234567"), L"0.12346");
    CDecimal::m_maxDivider = saved;
}

TEST(DecimalTest, ConvertsFromAndToMachineNumbers) {
    EXPECT_EQ(CDecimal(0.1).ToString(), L"0.1");
    EXPECT_EQ(CDecimal(1e20).ToString(), L"100000000000000000000");
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([] { CDecimal(std::nan("")); }),
              ParseErrorText("contained an invalid char", 0, L"nan\n"));
    EXPECT_EQ(CDecimal(L"-1.7e308").ToDouble(), -1.7e308);
    EXPECT_EQ(CDecimal(L"2147483647.4").ToLong(), 2147483647L);
    EXPECT_EQ(CDecimal(L"-2147483648.5").ToLong(), -2147483648L);
    EXPECT_EQ(CDecimal(L"2.96").ToLongLong(), 3LL);
    EXPECT_EQ(CDecimal(L"2.55").ToLongLong(), 2LL);
    EXPECT_EQ(CDecimal(L"-2.96").ToLongLong(), -3LL);

    const std::pair<std::function<void()>, const wchar_t*> overflows[] = {
        {[] { CDecimal(L"2147483648").ToLong(); }, L"The Decimal value if to large to fit into a LONG"},
        {[] { CDecimal(L"-2147483648.6").ToLong(); }, L"The Decimal value if to large to fit into a LONG"},
        {[] { CDecimal(L"9223372036854775807.96").ToLongLong(); },
         L"The Decimal value if to large to fit into a LONGLONG"},
        {[] { CDecimal(L"-1.8e308").ToDouble(); }, L"The Decimal value if to large to fit into a Double"},
    };
    for (const auto& [call, message] : overflows)
        EXPECT_EQ(MessageOf<CQxOverFlowException>(call), message);
}

TEST(DecimalTest, PostfixOperatorsLeaveTheOperandUnchanged) {
    CDecimal x(L"1.5");
    EXPECT_EQ((x++).ToString(), L"2.5");
    EXPECT_EQ((x--).ToString(), L"0.5");
    EXPECT_EQ(x.ToString(), L"1.5");
    EXPECT_EQ((--(--x)).ToString(), L"-0.5");
    EXPECT_EQ(CDecimal(L"-0"), CDecimal(L"0"));
}

// Parse, print, the four operations and the comparison against GMP, on operands of up to 300
// integer and 40 fraction digits, then parse with an exponent, which scales before rounding.
TEST(DecimalTest, AgreesWithGmpOnRandomOperands) {
    std::mt19937 rng(7031);
    for (int round = 0; round < 3000; ++round) {
        const int integerDigits = round % 10 == 0 ? 300 : 40;
        const std::string a = QxTest::RandomDecimal(rng, integerDigits, 40);
        const std::string b = QxTest::RandomDecimal(rng, 40, 40);
        const RefDecimal ra = QxTest::RoundHalfTowardZero(QxTest::RefFromText(a), 30);
        const RefDecimal rb = QxTest::RoundHalfTowardZero(QxTest::RefFromText(b), 30);
        const CDecimal x(Widen(a).c_str()), y(Widen(b).c_str());
        SCOPED_TRACE(a + " " + b);
        ASSERT_EQ(x.ToString(), QxTest::RefToString(ra));
        EXPECT_EQ((x + y).ToString(), QxTest::RefToString(QxTest::RefAdd(ra, rb)));
        EXPECT_EQ((x - y).ToString(), QxTest::RefToString(QxTest::RefAdd(ra, {-rb.value, rb.scale})));
        EXPECT_EQ((x * y).ToString(), QxTest::RefToString(QxTest::RefMultiply(ra, rb, 30)));
        if (rb.value != 0) {
            EXPECT_EQ((x / y).ToString(), QxTest::RefToString(QxTest::RefDivide(ra, rb, 30)));
        }
        EXPECT_EQ(x.CompareTo(y), Order(ra, rb));
        // A neighbour of the same sign and integer part, so that the fraction digits alone decide.
        const std::string near = a.substr(0, a.size() - 1);
        EXPECT_EQ(x.CompareTo(CDecimal(Widen(near).c_str())),
                  Order(ra, QxTest::RoundHalfTowardZero(QxTest::RefFromText(near), 30)));

        const int exponent = static_cast<int>(rng() % 41) - 20;
        RefDecimal scaled = QxTest::RefFromText(a);
        scaled.value *= QxTest::Pow10(std::max(exponent, 0));
        scaled.scale -= std::min(exponent, 0);
        EXPECT_EQ(Canonical(Widen(a + "e" + std::to_string(exponent))),
                  QxTest::RefToString(QxTest::RoundHalfTowardZero(scaled, 30)));
    }
}
