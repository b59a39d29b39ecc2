#include <QxXmlLib16/BigInteger.h>
#include <QxXmlLib16/Decimal.h>
#include <QxXmlLib16/Exceptions.h>

#include "values/support/NumericReference.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

using namespace QxXmlLib16;
using QxTest::Widen;

namespace {

CBigInteger Big(const wchar_t* text) {
    return CBigInteger(text);
}

std::wstring Text(const mpz_class& value) {
    return Widen(value.get_str());
}

template <typename Call>
std::wstring InvalidValueMessage(Call call) {
    try {
        call();
    } catch (const CQxInvalidValueException& e) {
        return e.GetMessage();
    }
    return L"(no exception)";
}

} // namespace

TEST(BigIntegerTest, ZeroHasTwoSignsThatCompareEqual) {
    const CBigInteger minusZero = Big(L"-0");
    EXPECT_EQ(minusZero, Big(L"0"));
    EXPECT_FALSE(minusZero < CBigInteger(0));
    EXPECT_FALSE(minusZero > CBigInteger(0));
    EXPECT_EQ(minusZero.ToString(), L"0");
    EXPECT_EQ(CBigInteger().ToString(), L"0");
    EXPECT_EQ((Big(L"5") - Big(L"5")).ToString(), L"0");
    EXPECT_EQ((Big(L"-5") * Big(L"0")).ToString(), L"0");
    EXPECT_LT(Big(L"-1"), minusZero);
}

TEST(BigIntegerTest, ConstructsFromMachineValues) {
    EXPECT_EQ(CBigInteger(INT_MIN).ToString(), L"-2147483648");
    EXPECT_EQ(CBigInteger(LLONG_MIN).ToString(), L"-9223372036854775808");
    EXPECT_EQ(CBigInteger(ULLONG_MAX).ToString(), L"18446744073709551615");
    EXPECT_EQ(CBigInteger(4294967295UL).ToString(), L"4294967295");
    EXPECT_EQ(CBigInteger(2.9).ToString(), L"2");
    EXPECT_EQ(CBigInteger(-2.9).ToString(), L"-2");
    EXPECT_EQ(CBigInteger(0.5).ToString(), L"0");
    EXPECT_EQ(CBigInteger(1e20).ToString(), L"100000000000000000000");
    EXPECT_EQ(CBigInteger(CDecimal(L"2.5")).ToString(), L"2");
    EXPECT_EQ(CBigInteger(CDecimal(L"-2.51")).ToString(), L"-3");
}

TEST(BigIntegerTest, ParseTakesDigitsOrFallsBackToDecimal) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L"0"},      {L"  007 ", L"7"},   {L"-12", L"-12"},   {L"1 2 3", L"123"}, {L"-+5", L"5"},
        {L"+-5", L"-5"},  {L"1.5e3", L"1500"}, {L"1.5", L"1"},     {L"1.6", L"2"},     {L"-1.5", L"-1"},
        {L"-2.6", L"-3"}, {L"12E-1", L"1"},    {L"\t\r\n9", L"9"}, {L"0000", L"0"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Big(text).ToString(), expected) << text;
}

TEST(BigIntegerTest, InvalidTextRaisesTheDecimalParseErrorAndKeepsTheValue) {
    CBigInteger value(42);
    EXPECT_EQ(InvalidValueMessage([&] { value.Parse(L"12x"); }),
              L"The string representing a Decimal, contained an invalid char at position 2 [12x].");
    EXPECT_EQ(value.ToString(), L"42");
}

TEST(BigIntegerTest, ErrorMessagesKeepTheirExactText) {
    const CBigInteger zero(0), seven(7);
    const std::pair<std::function<void()>, const wchar_t*> cases[] = {
        {[&] { (void)(seven / zero); }, L"ERROR: Overflow in operator/."},
        {[&] {
             CBigInteger x(seven);
             x /= zero;
         },
         L"ERROR: Overflow in operator /=."},
        {[&] { (void)(seven % zero); }, L"ERROR: Overflow in operator%."},
        {[&] {
             CBigInteger x(seven);
             x %= zero;
         },
         L"ERROR: Overflow in operator%=."},
        {[&] { (void)static_cast<int>(Big(L"2147483648")); }, L"ERROR: Value out of bound of int."},
        {[&] { (void)static_cast<int>(Big(L"-2147483649")); }, L"ERROR: Value out of bound of int."},
        {[&] { (void)static_cast<long long>(Big(L"9223372036854775808")); },
         L"ERROR: Value out of bound of LONGLONG."},
        {[&] { (void)static_cast<long long>(Big(L"-99999999999999999999")); },
         L"ERROR: Value out of bound of LONGLONG."},
        {[&] { (void)Big(L"-4").SquareRoot(); }, L"ERROR: Negative Number in function SquareRoot()."},
        {[&] { CBigInteger x(1.0 / 0.0); }, L"ERROR: Infinite or NaN value in CBigInteger(double)."},
    };
    for (const auto& [call, message] : cases)
        EXPECT_EQ(InvalidValueMessage(call), message);
}

TEST(BigIntegerTest, MachineConversionsReachTheirLimits) {
    EXPECT_EQ(static_cast<int>(Big(L"2147483647")), INT_MAX);
    EXPECT_EQ(static_cast<int>(Big(L"-2147483648")), INT_MIN);
    EXPECT_EQ(static_cast<long long>(Big(L"-9223372036854775808")), LLONG_MIN);
    EXPECT_EQ(static_cast<long long>(Big(L"9223372036854775807")), LLONG_MAX);
    EXPECT_EQ(static_cast<int>(Big(L"-0")), 0);
}

TEST(BigIntegerTest, DivisionTruncatesTowardZero) {
    EXPECT_EQ((Big(L"-7") / Big(L"2")).ToString(), L"-3");
    EXPECT_EQ((Big(L"-7") % Big(L"2")).ToString(), L"-1");
    EXPECT_EQ((Big(L"7") % Big(L"-2")).ToString(), L"1");
    EXPECT_EQ((Big(L"-1") / Big(L"2")).ToString(), L"0");
    CBigInteger x(100);
    x /= x;
    EXPECT_EQ(x.ToString(), L"1");
    x -= x;
    EXPECT_EQ(x.ToString(), L"0");
}

TEST(BigIntegerTest, RangeConstantsAreBuiltFromText) {
    EXPECT_EQ(CBigInteger::MAX_LONG().ToString(), L"2147483647");
    EXPECT_EQ(CBigInteger::MIN_LONG().ToString(), L"-2147483648");
    EXPECT_EQ(CBigInteger::MAX_LONGLONG().ToString(), L"9223372036854775807");
    EXPECT_EQ(CBigInteger::MIN_LONGLONG().ToString(), L"-9223372036854775808");
    EXPECT_EQ(CBigInteger::MAX_DOUBLE().ToString(), L"17" + std::wstring(307, L'0'));
    EXPECT_EQ(CBigInteger::MIN_DOUBLE(), CBigInteger::MAX_DOUBLE().GetNegative());
}

TEST(BigIntegerTest, SquareRootIsTheIntegerRoot) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"0", L"0"}, {L"-0", L"0"}, {L"1", L"1"}, {L"3", L"1"}, {L"4", L"2"}, {L"99", L"9"}, {L"100", L"10"},
    };
    for (const auto& [text, root] : cases)
        EXPECT_EQ(Big(text).SquareRoot().ToString(), root) << text;
    EXPECT_EQ(CBigInteger((L"1" + std::wstring(40, L'0')).c_str()).SquareRoot().ToString(),
              L"1" + std::wstring(20, L'0'));
    EXPECT_EQ(CBigInteger((L"1" + std::wstring(39, L'0')).c_str()).SquareRoot().ToString(),
              L"31622776601683793319");
    EXPECT_EQ(CBigInteger::Pow10(3).ToString(), L"1000");
    EXPECT_EQ(CBigInteger::Pow10(0).ToString(), L"1");
    EXPECT_EQ(CBigInteger::Pow10(-1).ToString(), L"0");
}

// Every operation against GMP on random operands of 1 to 300 digits.
TEST(BigIntegerTest, AgreesWithGmpOnRandomOperands) {
    std::mt19937 rng(20240611);
    for (int round = 0; round < 2000; ++round) {
        const std::string a = QxTest::RandomInteger(rng, 300);
        const std::string b = round % 10 == 0 ? "-0" : QxTest::RandomInteger(rng, 300);
        const mpz_class ra(a[0] == '+' ? a.substr(1) : a), rb(b[0] == '+' ? b.substr(1) : b);
        const CBigInteger x(Widen(a).c_str()), y(Widen(b).c_str());
        SCOPED_TRACE(a + " " + b);
        ASSERT_EQ(x.ToString(), Text(ra));
        EXPECT_EQ((x + y).ToString(), Text(ra + rb));
        EXPECT_EQ((x - y).ToString(), Text(ra - rb));
        EXPECT_EQ((x * y).ToString(), Text(ra * rb));
        EXPECT_EQ(x < y, ra < rb);
        EXPECT_EQ(x == y, ra == rb);
        EXPECT_EQ(x >= y, ra >= rb);
        if (rb != 0) {
            mpz_class q, r;
            mpz_tdiv_qr(q.get_mpz_t(), r.get_mpz_t(), ra.get_mpz_t(), rb.get_mpz_t());
            EXPECT_EQ((x / y).ToString(), Text(q));
            EXPECT_EQ((x % y).ToString(), Text(r));
        }
        if (round % 10 == 0 && ra >= 0) {
            EXPECT_EQ(x.SquareRoot().ToString(), Text(sqrt(ra)));
        }
    }
}
