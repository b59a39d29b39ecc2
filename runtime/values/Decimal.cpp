#include <QxXmlLib16/values/Decimal.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <algorithm>
#include <cwchar>

namespace QxXmlLib16 {

int CDecimal::m_maxDivider = 30;

namespace {

using Digits = CBigInteger::Digits;

// The supported range of the text form: the digit runs of a parse were meant for buffers of 512
// and 32 characters, and an exponent beyond 1000 would only build huge numbers from a short text.
constexpr std::size_t kMaxDigits = 511;
constexpr std::size_t kMaxExponentDigits = 31;
constexpr long kMaxExponent = 1000;

const wchar_t* const kInvalidChar =
    L"The string representing a Decimal, contained an invalid char at position %d [%ls].";
const wchar_t* const kOutOfRange =
    L"The string representing a Decimal, is out of the supported range at position %d [%ls].";

[[noreturn]] void ThrowParseError(const wchar_t* format, std::size_t position, const wchar_t* text,
                                  std::size_t length) {
    throw CQxInvalidValueException(
        FormatString(format, static_cast<int>(position), std::wstring(text, length).c_str()));
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// Where the digit runs of a valid text lie, found by one scan that throws on invalid text
// before the value is touched.
struct Lexical {
    bool negative = false;
    std::size_t integerEnd;    // the integer digits lie in [0, integerEnd)
    std::size_t fractionBegin; // the fraction digits in [fractionBegin, fractionEnd)
    std::size_t fractionEnd;
    std::size_t fractionDigits = 0;
    std::size_t exponentDigits = 0;
    std::size_t exponentBegin = 0;
    bool exponentNegative = false;
    long exponent = 0;
};

// The count of integer digits the value has once a positive exponent has moved the point, so that
// no text that parses gives a value whose own text would not.
std::size_t ScaledIntegerDigits(const wchar_t* text, const Lexical& lex) {
    std::size_t significant = 0;
    for (std::size_t i = 0; i < lex.integerEnd; ++i)
        if (IsDigit(text[i]) && (significant > 0 || text[i] != L'0')) ++significant;
    const std::size_t exponent = static_cast<std::size_t>(lex.exponent);
    if (significant > 0) return significant + exponent;
    std::size_t leadingZeros = 0;
    for (std::size_t i = lex.fractionBegin; i < lex.fractionEnd; ++i) {
        if (!IsDigit(text[i])) continue;
        if (text[i] != L'0') return exponent > leadingZeros ? exponent - leadingZeros : 0;
        ++leadingZeros;
    }
    return 0;
}

Lexical Scan(const wchar_t* text, std::size_t length) {
    enum Section { Integer, Fraction, ExponentLead, Exponent };
    Lexical lex;
    lex.integerEnd = lex.fractionBegin = lex.fractionEnd = length;
    std::size_t integerDigits = 0;
    Section section = Integer;
    for (std::size_t i = 0; i < length; ++i) {
        const wchar_t c = text[i];
        switch (section) {
        case Integer:
            if (IsDigit(c)) {
                if (++integerDigits > kMaxDigits) ThrowParseError(kOutOfRange, i, text, length);
            } else if (c == L'-' || c == L'+') {
                lex.negative = c == L'-';
            } else if (c == L'.') {
                lex.integerEnd = i;
                lex.fractionBegin = i + 1;
                section = Fraction;
            } else if (c == L'e' || c == L'E') {
                lex.integerEnd = i;
                section = ExponentLead;
            } else if (!CWhitespaceUtils::IsWhiteSpace(c)) {
                ThrowParseError(kInvalidChar, i, text, length);
            }
            break;
        case Fraction:
            if (IsDigit(c)) {
                if (++lex.fractionDigits > kMaxDigits) ThrowParseError(kOutOfRange, i, text, length);
            } else if (c == L'e' || c == L'E') {
                lex.fractionEnd = i;
                section = ExponentLead;
            } else if (!CWhitespaceUtils::IsWhiteSpace(c)) {
                ThrowParseError(kInvalidChar, i, text, length);
            }
            break;
        case ExponentLead:
            if (c == L'-' || c == L'+') {
                lex.exponentNegative = c == L'-';
                break;
            }
            if (CWhitespaceUtils::IsWhiteSpace(c)) break;
            section = Exponent;
            lex.exponentBegin = i;
            [[fallthrough]];
        case Exponent:
            if (!IsDigit(c)) ThrowParseError(kInvalidChar, i, text, length);
            lex.exponent = lex.exponent * 10 + (c - L'0');
            if (++lex.exponentDigits > kMaxExponentDigits || lex.exponent > kMaxExponent)
                ThrowParseError(kOutOfRange, i, text, length);
            break;
        }
    }
    if (lex.exponentDigits > 0 && !lex.exponentNegative && ScaledIntegerDigits(text, lex) > kMaxDigits)
        ThrowParseError(kOutOfRange, lex.exponentBegin, text, length);
    return lex;
}

// True when dropping the lowest k digits must round the rest up in magnitude: the dropped part
// is more than half of 10^k. An exact half rounds toward zero.
bool DroppedPartAboveHalf(const Digits& digits, std::size_t k) {
    if (k == 0 || k > digits.size()) return false;
    const CBigInteger::Digit lead = digits[k - 1];
    if (lead != 5) return lead > 5;
    return std::any_of(digits.begin(), digits.begin() + (k - 1), [](CBigInteger::Digit d) { return d != 0; });
}

void AppendDigits(std::wstring& text, const Digits& digits, int top) {
    for (int i = top; i >= 0; --i)
        text += static_cast<wchar_t>(L'0' + digits[i]);
}

} // namespace

CDecimal::CDecimal()
    : m_divider(1) {}
CDecimal::CDecimal(int value)
    : m_integer(value)
    , m_divider(1) {}
CDecimal::CDecimal(long value)
    : m_integer(value)
    , m_divider(1) {}
CDecimal::CDecimal(long long value)
    : m_integer(value)
    , m_divider(1) {}
CDecimal::CDecimal(const CBigInteger& value)
    : m_integer(value)
    , m_divider(1) {}

CDecimal::CDecimal(const CBigInteger& integer, const CBigInteger& fraction, int divider)
    : m_integer(integer)
    , m_fraction(fraction)
    , m_divider(divider) {
    if (divider < 1)
        throw CQxInvalidParamException(
            FormatString(L"The divider of a Decimal must be at least 1 [%d].", divider));
}

CDecimal::CDecimal(const wchar_t* text)
    : m_divider(1) {
    Parse(text);
}

CDecimal::CDecimal(double value)
    : m_divider(1) {
    wchar_t buffer[1024];
    const int length = std::swprintf(buffer, sizeof buffer / sizeof buffer[0], L"%.13f\n", value);
    Parse(buffer, length > 0 ? static_cast<std::size_t>(length) : 0);
}

CDecimal::~CDecimal() = default;

void CDecimal::Parse(const wchar_t* text) {
    if (text == nullptr) text = L"";
    Parse(text, std::wcslen(text));
}

void CDecimal::Parse(const wchar_t* text, std::size_t length) {
    const Lexical lex = Scan(text, length);
    const int sign = lex.negative ? -1 : 1;
    // The digit vectors are filled in place, reusing their capacity.
    CBigInteger::Build(m_integer.m_digits, text, lex.integerEnd);
    CBigInteger::Build(m_fraction.m_digits, text + lex.fractionBegin, lex.fractionEnd - lex.fractionBegin);
    m_integer.m_sign = m_fraction.m_sign = sign;
    m_divider = lex.fractionDigits > 0 ? static_cast<int>(lex.fractionDigits) : 1;
    if (lex.exponentDigits > 0) {
        const CDecimal power(CBigInteger::Pow10(static_cast<int>(lex.exponent)));
        *this = lex.exponentNegative ? *this / power : *this * power;
    }
    Finish();
}

std::wstring CDecimal::ToString() const {
    const Digits& fraction = m_fraction.m_digits;
    const int fractionTop = CBigInteger::Position(fraction);
    if (fractionTop < 0) return m_integer.ToString();
    const Digits& integer = m_integer.m_digits;
    const int integerTop = CBigInteger::Position(integer);
    const int padding = std::max(m_divider - (fractionTop + 1), 0);
    std::wstring text;
    text.reserve(static_cast<std::size_t>(std::max(integerTop, 0) + padding + fractionTop) + 5);
    if (m_integer.m_sign < 0) text += L'-';
    if (integerTop < 0) text += L'0';
    AppendDigits(text, integer, integerTop);
    text += L'.';
    text.append(static_cast<std::size_t>(padding), L'0');
    AppendDigits(text, fraction, fractionTop);
    return text;
}

std::wstring CDecimal::ToString(int digits) const {
    digits = std::max(digits, 0);
    const bool negative = m_integer.m_sign < 0;
    // Half a unit of the last kept digit, with the value's sign, as the text "0.0...05" would parse.
    // Beyond m_maxDivider digits that parse rounds it to zero, so the divider needs no more.
    CDecimal half;
    half.m_fraction = CBigInteger(negative ? -5 : 5);
    half.m_integer.m_sign = half.m_fraction.m_sign;
    half.m_divider = std::min(digits, m_maxDivider) + 1;
    half.Finish();
    const CDecimal sum = *this + half;

    std::wstring text = negative ? L"-" : L"";
    text += sum.m_integer.GetAbs().ToString();
    text += L'.';
    // Digit j after the point is the fraction digit at index divider - 1 - j.
    const Digits& fraction = sum.m_fraction.m_digits;
    for (int j = 0; j < digits; ++j) {
        const long index = static_cast<long>(sum.m_divider) - 1 - j;
        const bool present = index >= 0 && static_cast<std::size_t>(index) < fraction.size();
        text += static_cast<wchar_t>(L'0' + (present ? fraction[static_cast<std::size_t>(index)] : 0));
    }
    return text;
}

double CDecimal::ToDouble() const {
    if (m_integer > CBigInteger::MAX_DOUBLE() || m_integer < CBigInteger::MIN_DOUBLE())
        throw CQxOverFlowException(L"The Decimal value if to large to fit into a Double");
    return std::wcstod(ToString().c_str(), nullptr);
}

long CDecimal::ToLong() const {
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    if (rounded.m_integer > CBigInteger::MAX_LONG() || rounded.m_integer < CBigInteger::MIN_LONG())
        throw CQxOverFlowException(L"The Decimal value if to large to fit into a LONG");
    return static_cast<long>(static_cast<long long>(rounded.m_integer));
}

long long CDecimal::ToLongLong() const {
    // One decimal, not none: the value is rounded to tenths and then truncated.
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(1);
    if (rounded.m_integer > CBigInteger::MAX_LONGLONG() || rounded.m_integer < CBigInteger::MIN_LONGLONG())
        throw CQxOverFlowException(L"The Decimal value if to large to fit into a LONGLONG");
    return static_cast<long long>(rounded.m_integer);
}

CBigInteger CDecimal::ToBigInteger() const {
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    return std::move(rounded.m_integer);
}

void CDecimal::Negate() {
    m_integer.Negate();
    m_fraction.Negate();
}

CDecimal CDecimal::GetNegative() const {
    CDecimal result(*this);
    result.Negate();
    return result;
}

CBigInteger CDecimal::Scaled(const CDecimal& value, int divider) {
    CBigInteger n(value.m_integer);
    CBigInteger::ShiftLeft(n.m_digits, static_cast<std::size_t>(divider));
    if (value.m_fraction.IsZero()) return n;
    CBigInteger fraction(value.m_fraction);
    CBigInteger::ShiftLeft(fraction.m_digits, static_cast<std::size_t>(divider - value.m_divider));
    n += fraction;
    return n;
}

void CDecimal::SetScaled(CBigInteger&& n, int divider) {
    Digits& digits = n.m_digits;
    CBigInteger::Clean(digits);
    const auto split = digits.begin() + std::min(static_cast<std::size_t>(divider), digits.size());
    m_fraction.m_digits.assign(digits.begin(), split);
    CBigInteger::Clean(m_fraction.m_digits);
    digits.erase(digits.begin(), split);
    m_integer.m_digits.swap(digits);
    m_integer.m_sign = m_fraction.m_sign = n.m_sign;
    m_divider = divider;
}

void CDecimal::Finish() {
    Rationalise();
    if (m_divider > m_maxDivider) {
        ChangeFractionalDivider(m_maxDivider);
        // Rounding can leave zeros at the end ("...10" from "...096"); canonical values have none.
        Rationalise();
    }
}

CDecimal CDecimal::operator+(const CDecimal& other) const {
    const int divider = std::max(m_divider, other.m_divider);
    CDecimal result;
    result.SetScaled(Scaled(*this, divider) + Scaled(other, divider), divider);
    result.Rationalise();
    return result;
}

CDecimal CDecimal::operator-(const CDecimal& other) const {
    return *this + other.GetNegative();
}

CDecimal CDecimal::operator*(const CDecimal& other) const {
    CDecimal result;
    result.SetScaled(Scaled(*this, m_divider) * Scaled(other, other.m_divider), m_divider + other.m_divider);
    result.Finish();
    return result;
}

CDecimal CDecimal::operator/(const CDecimal& other) const {
    // Two guard digits beyond the kept ones, truncated by the integer division.
    const int guarded = m_maxDivider + 2;
    CBigInteger dividend = Scaled(*this, m_divider);
    CBigInteger::ShiftLeft(dividend.m_digits, static_cast<std::size_t>(guarded));
    CBigInteger quotient = dividend / Scaled(other, other.m_divider);
    int divider = guarded + m_divider - other.m_divider;
    if (divider < 1) {
        CBigInteger::ShiftLeft(quotient.m_digits, static_cast<std::size_t>(1 - divider));
        divider = 1;
    }
    CDecimal result;
    result.SetScaled(std::move(quotient), divider);
    result.Finish();
    return result;
}

CDecimal& CDecimal::operator+=(const CDecimal& other) {
    return *this = *this + other;
}
CDecimal& CDecimal::operator-=(const CDecimal& other) {
    return *this = *this - other;
}
CDecimal& CDecimal::operator*=(const CDecimal& other) {
    return *this = *this * other;
}
CDecimal& CDecimal::operator/=(const CDecimal& other) {
    return *this = *this / other;
}

namespace {

// The k-th digit after the point (k from 1) of a fraction kept to divider places.
CBigInteger::Digit FractionDigit(const CBigInteger::Digits& fraction, int divider, int k) {
    const int i = divider - k;
    return i >= 0 && i < static_cast<int>(fraction.size()) ? fraction[static_cast<std::size_t>(i)] : 0;
}

} // namespace

// Digit by digit, without scaling copies: facet checks compare every loaded value.
int CDecimal::CompareTo(const CDecimal& other) const {
    const auto signOf = [](const CDecimal& d) {
        return d.m_integer.IsZero() && d.m_fraction.IsZero() ? 0 : d.m_integer.GetSign();
    };
    const int sign = signOf(*this);
    const int otherSign = signOf(other);
    if (sign != otherSign) return sign < otherSign ? -1 : 1;
    if (sign == 0) return 0;
    if (const int integers = CBigInteger::Compare(m_integer.m_digits, other.m_integer.m_digits))
        return sign * integers;
    for (int k = 1, end = std::max(m_divider, other.m_divider); k <= end; ++k) {
        const CBigInteger::Digit digit = FractionDigit(m_fraction.m_digits, m_divider, k);
        const CBigInteger::Digit otherDigit = FractionDigit(other.m_fraction.m_digits, other.m_divider, k);
        if (digit != otherDigit) return digit < otherDigit ? -sign : sign;
    }
    return 0;
}

CDecimal& CDecimal::operator++() {
    return *this += CDecimal(1);
}
CDecimal& CDecimal::operator--() {
    return *this -= CDecimal(1);
}
CDecimal CDecimal::operator++(int) const {
    return *this + CDecimal(1);
}
CDecimal CDecimal::operator--(int) const {
    return *this - CDecimal(1);
}

void CDecimal::Rationalise() {
    if (m_divider <= 1) return;
    Digits& fraction = m_fraction.m_digits;
    const auto firstNonZero =
        std::find_if(fraction.begin(), fraction.end(), [](CBigInteger::Digit d) { return d != 0; });
    const std::size_t limit = static_cast<std::size_t>(m_divider - 1);
    std::size_t drop = limit;
    if (firstNonZero == fraction.end()) {
        fraction.clear();
    } else {
        drop = std::min(static_cast<std::size_t>(firstNonZero - fraction.begin()), limit);
        fraction.erase(fraction.begin(), fraction.begin() + drop);
    }
    m_divider -= static_cast<int>(drop);
}

void CDecimal::Normalize(CDecimal& a, CDecimal& b) {
    if (a.m_divider < b.m_divider)
        a.ChangeFractionalDivider(b.m_divider);
    else
        b.ChangeFractionalDivider(a.m_divider);
}

void CDecimal::ChangeFractionalDivider(int n) {
    n = std::max(n, 0);
    if (n >= m_divider) {
        CBigInteger::ShiftLeft(m_fraction.m_digits, static_cast<std::size_t>(n - m_divider));
        m_divider = n;
        return;
    }
    // Rounding the whole value as one integer moves any carry or borrow through the integer part.
    const std::size_t dropped = static_cast<std::size_t>(m_divider - n);
    CBigInteger scaled = Scaled(*this, m_divider);
    Digits& digits = scaled.m_digits;
    const bool roundUp = DroppedPartAboveHalf(digits, dropped);
    digits.erase(digits.begin(), digits.begin() + std::min(dropped, digits.size()));
    if (roundUp) CBigInteger::Add(digits, Digits{1});
    SetScaled(std::move(scaled), n);
}

} // namespace QxXmlLib16
