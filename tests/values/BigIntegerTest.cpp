#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/Decimal.h>

#include "foundation/support/MessageOf.h"
#include "values/support/NumericReference.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <vector>

using namespace QxXmlLib16;
using QxTest::Widen;

namespace {

// The digits as text, least significant first, as they are stored.
std::wstring DigitText(const CBigInteger::Digits& digits) {
    std::wstring text;
    for (CBigInteger::Digit digit : digits)
        text += static_cast<wchar_t>(L'0' + digit);
    return text;
}

std::wstring Text(const wchar_t* text) {
    return CBigInteger(text).ToString();
}

} // namespace

TEST(BigIntegerTest, ParsesDigitsAndFallsBackToRoundedDecimals) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L"0"},     {L"-0", L"0"},  {L" 007\t", L"7"}, {L"1 2 3", L"123"}, {L"-+5", L"5"},
        {L"+-5", L"-5"}, {L"1.5", L"1"}, {L"1.6", L"2"},    {L"-2.6", L"-3"},   {L"1.5e3", L"1500"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Text(text), expected) << text;
    CBigInteger value(42);
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([&] { value.Parse(L"12x"); }),
              L"The string representing a Decimal, contained an invalid char at position 2 [12x].");
    EXPECT_EQ(value.ToString(), L"42");
}

TEST(BigIntegerTest, ConvertsFromAndToMachineValues) {
    EXPECT_EQ(CBigInteger(LLONG_MIN).ToString(), L"-9223372036854775808");
    EXPECT_EQ(CBigInteger(ULLONG_MAX).ToString(), L"18446744073709551615");
    EXPECT_EQ(CBigInteger(2.9).ToString(), L"2");
    EXPECT_EQ(CBigInteger(-2.9).ToString(), L"-2");
    EXPECT_EQ(CBigInteger(1e20).ToString(), L"100000000000000000000");
    EXPECT_EQ(CBigInteger(CDecimal(L"2.5")).ToString(), L"2");
    EXPECT_EQ(static_cast<int>(CBigInteger(L"-2147483648")), INT_MIN);
    EXPECT_EQ(static_cast<long long>(CBigInteger(L"-9223372036854775808")), LLONG_MIN);
    EXPECT_EQ(static_cast<long long>(CBigInteger(L"9223372036854775807")), LLONG_MAX);
}

TEST(BigIntegerTest, ErrorMessagesKeepTheirExactText) {
    const CBigInteger zero(L"-0"), seven(7);
    const std::pair<std::function<void()>, const wchar_t*> cases[] = {
        {[&] { (void)(seven / zero); }, L"ERROR: Overflow in operator/."},
        {[&] { CBigInteger(seven) /= zero; }, L"ERROR: Overflow in operator /=."},
        {[&] { (void)(seven % zero); }, L"ERROR: Overflow in operator%."},
        {[&] { CBigInteger(seven) %= zero; }, L"ERROR: Overflow in operator%=."},
        {[] { (void)static_cast<int>(CBigInteger(L"2147483648")); }, L"ERROR: Value out of bound of int."},
        {[] { (void)static_cast<int>(CBigInteger(L"-2147483649")); }, L"ERROR: Value out of bound of int."},
        {[] { (void)static_cast<long long>(CBigInteger(L"9223372036854775808")); },
         L"ERROR: Value out of bound of LONGLONG."},
        {[] { (void)CBigInteger(-4).SquareRoot(); }, L"ERROR: Negative Number in function SquareRoot()."},
        {[] { CBigInteger(1.0 / 0.0); }, L"ERROR: Infinite or NaN value in CBigInteger(double)."},
    };
    for (const auto& [call, message] : cases)
        EXPECT_EQ(MessageOf<CQxInvalidValueException>(call), message);
}

// Copies, moves and swaps between digits held in place and on the heap, on both sides of the
// in-place capacity, keep every digit.
TEST(BigIntegerTest, DigitsSurviveCopyMoveAndSwapAcrossStorage) {
    const size_t inPlace = CBigInteger::Digits::kInline;
    std::vector<std::wstring> texts;
    for (size_t length : {size_t(1), inPlace - 1, inPlace, inPlace + 1, size_t(300)}) {
        std::wstring text;
        for (size_t i = 0; i < length; ++i)
            text += static_cast<wchar_t>(L'1' + i % 9);
        texts.push_back(text);
    }
    for (const std::wstring& a : texts) {
        for (const std::wstring& b : texts) {
            SCOPED_TRACE(std::to_string(a.size()) + " " + std::to_string(b.size()));
            CBigInteger x(a.c_str()), y(b.c_str());
            CBigInteger::Digits left(x.GetDigits()), right(y.GetDigits());
            left.swap(right);
            EXPECT_EQ(std::wstring(b.rbegin(), b.rend()), DigitText(left));
            EXPECT_EQ(std::wstring(a.rbegin(), a.rend()), DigitText(right));
            CBigInteger moved(std::move(x));
            y = moved;
            EXPECT_EQ(a, y.ToString());
            EXPECT_EQ(a, moved.ToString());
        }
    }
}

// Every operation against GMP on random operands of 1 to 300 digits, with negative zeros; every
// other round stays near the digits a value holds in place, so results cross into the heap and back.
TEST(BigIntegerTest, AgreesWithGmpOnRandomOperands) {
    std::mt19937 rng(20240611);
    for (int round = 0; round < 2000; ++round) {
        const int maxDigits = round % 2 ? 300 : static_cast<int>(CBigInteger::Digits::kInline) + 2;
        const std::string a = QxTest::RandomInteger(rng, maxDigits);
        const std::string b = round % 10 == 0 ? "-0" : QxTest::RandomInteger(rng, maxDigits);
        const mpz_class ra(a[0] == '+' ? a.substr(1) : a, 10), rb(b[0] == '+' ? b.substr(1) : b, 10);
        const CBigInteger x(Widen(a).c_str()), y(Widen(b).c_str());
        SCOPED_TRACE(a + " " + b);
        ASSERT_EQ(x.ToString(), Widen(ra.get_str()));
        EXPECT_EQ((x + y).ToString(), Widen(mpz_class(ra + rb).get_str()));
        EXPECT_EQ((x - y).ToString(), Widen(mpz_class(ra - rb).get_str()));
        EXPECT_EQ((x * y).ToString(), Widen(mpz_class(ra * rb).get_str()));
        EXPECT_EQ(x.CompareTo(y), (ra > rb) - (ra < rb));
        if (rb != 0) {
            mpz_class q, r;
            mpz_tdiv_qr(q.get_mpz_t(), r.get_mpz_t(), ra.get_mpz_t(), rb.get_mpz_t());
            EXPECT_EQ((x / y).ToString(), Widen(q.get_str()));
            EXPECT_EQ((x % y).ToString(), Widen(r.get_str()));
        }
        if (round % 10 == 0 && ra >= 0) {
            EXPECT_EQ(x.SquareRoot().ToString(), Widen(mpz_class(sqrt(ra)).get_str()));
        }
        CBigInteger self(x); // operands that alias the result
        EXPECT_EQ((self -= self).ToString(), L"0");
        EXPECT_EQ((self = x, self += self).ToString(), Widen(mpz_class(2 * ra).get_str()));
    }
}
