#pragma once

#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/foundation/Export.h>

#include <cstddef>
#include <string>

namespace QxXmlLib16 {

// Exact decimal (xs:decimal): value = integer part + fraction part / 10^divider. Both parts carry
// the sign of the value, also when the integer part is zero ("-0.5"). After every public operation
// the divider is 1..m_maxDivider and the fraction has no trailing zero digit beyond the first.
class QX_API CDecimal {
public:
    // Most fractional digits any parse, product or quotient keeps (rounded to nearest, an exact
    // half toward zero). Process-wide; change it, if at all, before values are shared between
    // threads, and keep it at 1 or more.
    static int m_maxDivider;

    CDecimal();
    CDecimal(int value);
    CDecimal(long value);
    CDecimal(long long value);
    CDecimal(const CBigInteger& value);
    // The members as given, without normalisation. Throws CQxInvalidParamException for a negative
    // divider.
    CDecimal(const CBigInteger& integer, const CBigInteger& fraction, int divider);
    CDecimal(const wchar_t* text);
    // The double as printed with "%.13f": at most 13 decimals, rounded by the formatter. A NaN or
    // infinity throws the parse error of its printed text.
    CDecimal(double value);
    CDecimal(const CDecimal&) = default;
    CDecimal(CDecimal&&) noexcept = default;
    CDecimal& operator=(const CDecimal&) = default;
    CDecimal& operator=(CDecimal&&) noexcept = default;
    virtual ~CDecimal();

    // Deliberately permissive: whitespace is skipped anywhere before the exponent digits, signs
    // are accepted anywhere in the integer section (the last wins: "1-2" is -12), an exponent
    // ("1.5e2", "1E -3") is accepted, and empty text is zero. Throws CQxInvalidValueException
    // "The string representing a Decimal, contained an invalid char at position %d [%ls]." (0-based
    // position, whole text) for any other character.
    // Supported range: at most 511 integer digits, 511 fraction digits and 31 exponent digits,
    // with an exponent of at most 1000 in magnitude. Beyond it the parse throws
    // CQxInvalidValueException "The string representing a Decimal, is out of the supported range
    // at position %d [%ls]." at the first digit that exceeds the range.
    // A failed parse leaves the value unchanged. A null text is empty text.
    void Parse(const wchar_t* text);
    void Parse(const wchar_t* text, std::size_t length);

    // Canonical text: no exponent, no '+', no trailing fraction zeros, "0" for zero. Texts are not
    // limited in length.
    std::wstring ToString() const;
    // Rounded half away from zero to exactly `digits` fractional digits: 1.005 with 2 gives "1.01",
    // 1 gives "1.00". With 0 digits the text ends in the point ("3."); a negative count counts as 0.
    // The sign follows the value's integer part, so a negative zero gives "-0.00".
    std::wstring ToString(int digits) const;

    // Throws CQxOverFlowException "The Decimal value if to large to fit into a Double" beyond +-1.7E+308.
    double ToDouble() const;
    // Rounded to the nearest integer (an exact half toward zero); throws CQxOverFlowException
    // "The Decimal value if to large to fit into a LONG" outside the 32-bit range.
    long ToLong() const;
    // Rounded to one decimal first (an exact half toward zero), then truncated: 2.96 gives 3 and
    // 2.55 gives 2. Throws CQxOverFlowException "The Decimal value if to large to fit into a LONGLONG".
    long long ToLongLong() const;
    // Rounded to the nearest integer, an exact half toward zero.
    CBigInteger ToBigInteger() const;

    void Negate();
    CDecimal GetNegative() const;

    const CBigInteger& GetIntegerPart() const { return m_integer; }
    const CBigInteger& GetFractionPart() const { return m_fraction; }
    int GetDivider() const { return m_divider; }

    // Sums and differences are exact; products and quotients are rounded to m_maxDivider digits.
    // A quotient is computed to m_maxDivider + 2 digits, truncated, then rounded. A zero divisor
    // throws CQxInvalidValueException "ERROR: Overflow in operator/." (also from /=).
    CDecimal operator+(const CDecimal& other) const;
    CDecimal operator-(const CDecimal& other) const;
    CDecimal operator*(const CDecimal& other) const;
    CDecimal operator/(const CDecimal& other) const;
    CDecimal& operator+=(const CDecimal& other);
    CDecimal& operator-=(const CDecimal& other);
    CDecimal& operator*=(const CDecimal& other);
    CDecimal& operator/=(const CDecimal& other);

    bool operator==(const CDecimal& other) const { return CompareTo(other) == 0; }
    bool operator!=(const CDecimal& other) const { return CompareTo(other) != 0; }
    bool operator<(const CDecimal& other) const { return CompareTo(other) < 0; }
    bool operator>(const CDecimal& other) const { return CompareTo(other) > 0; }
    bool operator<=(const CDecimal& other) const { return CompareTo(other) <= 0; }
    bool operator>=(const CDecimal& other) const { return CompareTo(other) >= 0; }
    // -1, 0 or 1; the two zeros are equal.
    int CompareTo(const CDecimal& other) const;

    CDecimal& operator++();
    CDecimal& operator--();
    // Unlike the built-in postfix operators these return the operand plus (minus) one and leave
    // the operand itself unchanged. Existing callers rely on it.
    CDecimal operator++(int) const;
    CDecimal operator--(int) const;

    // Removes trailing zero digits of the fraction, keeping a divider of at least 1.
    void Rationalise();
    // Rescales both to the larger of their dividers (exact).
    static void Normalize(CDecimal& a, CDecimal& b);
    // Rescales the fraction to n digits (n < 0 counts as 0). Dropped digits round to nearest with
    // an exact half toward zero (0.125 gives 0.12, 0.1251 gives 0.13); a carry or borrow moves
    // through the integer part so that both parts keep the sign of the value.
    void ChangeFractionalDivider(int n);

private:
    // The value as the integer value * 10^divider; divider must not be below the value's own.
    static CBigInteger Scaled(const CDecimal& value, int divider);
    // Sets the value to n / 10^divider (divider >= 0) with both parts taking the sign of n.
    void SetScaled(CBigInteger&& n, int divider);
    // Rationalise, then round to m_maxDivider digits when the divider exceeds it.
    void Finish();

    CBigInteger m_integer;
    CBigInteger m_fraction;
    int m_divider;
};

} // namespace QxXmlLib16
