#include <QxXmlLib16/values/BigInteger.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/values/Decimal.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <vector>

namespace QxXmlLib16 {

namespace {

// Magnitude of a digit vector up to `limit`; false when it exceeds it.
bool MagnitudeWithin(const CBigInteger::Digits& digits, unsigned long long limit, unsigned long long& out) {
    unsigned long long value = 0;
    for (int i = CBigInteger::Position(digits); i >= 0; --i) {
        const unsigned long long digit = digits[i];
        if (value > (limit - digit) / 10) return false;
        value = value * 10 + digit;
    }
    out = value;
    return true;
}

unsigned long long Magnitude(long long value) {
    return value < 0 ? 0ULL - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value);
}

} // namespace

// ---- Digit vector ------------------------------------------------------------------------------

static_assert(sizeof(CBigInteger) == 32, "a decimal holds two, and large loads hold many decimals");

void CBigInteger::Digits::Grow(std::size_t count) {
    const std::size_t capacity = std::max<std::size_t>(count, 2 * m_capacity);
    Digit* grown = new Digit[capacity];
    std::copy(begin(), end(), grown);
    if (IsHeap()) delete[] Heap();
    SetHeap(grown);
    m_capacity = static_cast<unsigned int>(capacity);
}

void CBigInteger::Digits::resize(std::size_t count, Digit value) {
    reserve(count);
    if (count > m_size) std::fill(end(), begin() + count, value);
    m_size = static_cast<unsigned int>(count);
}

void CBigInteger::Digits::assign(std::size_t count, Digit value) {
    m_size = 0;
    resize(count, value);
}

void CBigInteger::Digits::assign(const Digit* first, const Digit* last) {
    const std::size_t count = static_cast<std::size_t>(last - first);
    m_size = 0;
    reserve(count);
    std::copy(first, last, begin());
    m_size = static_cast<unsigned int>(count);
}

CBigInteger::Digit* CBigInteger::Digits::insert(Digit* position, std::size_t count, Digit value) {
    const std::size_t at = static_cast<std::size_t>(position - begin());
    reserve(m_size + count);
    Digit* where = begin() + at;
    std::copy_backward(where, end(), end() + count);
    std::fill(where, where + count, value);
    m_size += static_cast<unsigned int>(count);
    return where;
}

CBigInteger::Digit* CBigInteger::Digits::erase(Digit* first, Digit* last) {
    Digit* kept = std::copy(last, end(), first);
    m_size = static_cast<unsigned int>(kept - begin());
    return first;
}

void CBigInteger::Digits::swap(Digits& other) noexcept {
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
    // The place moves as it is, whether it holds digits or the heap pointer.
    std::swap(m_place, other.m_place);
}

// ---- Integer -----------------------------------------------------------------------------------

CBigInteger::CBigInteger()
    : m_sign(1) {}
CBigInteger::CBigInteger(int value)
    : CBigInteger(static_cast<long long>(value)) {}
CBigInteger::CBigInteger(long value)
    : CBigInteger(static_cast<long long>(value)) {}
CBigInteger::CBigInteger(unsigned long value)
    : CBigInteger(static_cast<unsigned long long>(value)) {}

CBigInteger::CBigInteger(long long value)
    : m_sign(value < 0 ? -1 : 1) {
    BuildDWORDLONG(m_digits, Magnitude(value));
}

CBigInteger::CBigInteger(unsigned long long value)
    : m_sign(1) {
    BuildDWORDLONG(m_digits, value);
}

CBigInteger::CBigInteger(double value)
    : m_sign(value < 0 ? -1 : 1) {
    if (!std::isfinite(value))
        throw CQxInvalidValueException(L"ERROR: Infinite or NaN value in CBigInteger(double).");
    BuildDouble(m_digits, value);
}

CBigInteger::CBigInteger(const wchar_t* text)
    : m_sign(1) {
    Parse(text);
}
CBigInteger::CBigInteger(const CDecimal& value)
    : CBigInteger(value.ToBigInteger()) {}
CBigInteger::~CBigInteger() = default;

namespace {

// Built on first use; the library's own load-time initialiser below makes that first use happen
// when the library is loaded, whatever order other initialisers run in.
struct RangeConstants {
    CBigInteger maxLong{CDecimal(L"2147483647")};
    CBigInteger minLong{CDecimal(L"-2147483648")};
    CBigInteger maxLongLong{CDecimal(L"9223372036854775807")};
    CBigInteger minLongLong{CDecimal(L"-9223372036854775808")};
    CBigInteger maxDouble{CDecimal(L"1.7E+308")};
    CBigInteger minDouble{CDecimal(L"-1.7E+308")};
};

const RangeConstants& Constants() {
    static const RangeConstants constants;
    return constants;
}

const bool g_constantsBuiltAtLoad = (Constants(), true);

} // namespace

const CBigInteger& CBigInteger::MAX_LONG() {
    return Constants().maxLong;
}
const CBigInteger& CBigInteger::MIN_LONG() {
    return Constants().minLong;
}
const CBigInteger& CBigInteger::MAX_LONGLONG() {
    return Constants().maxLongLong;
}
const CBigInteger& CBigInteger::MIN_LONGLONG() {
    return Constants().minLongLong;
}
const CBigInteger& CBigInteger::MAX_DOUBLE() {
    return Constants().maxDouble;
}
const CBigInteger& CBigInteger::MIN_DOUBLE() {
    return Constants().minDouble;
}

void CBigInteger::Parse(const wchar_t* text) {
    if (text == nullptr) text = L"";
    const std::size_t length = std::wcslen(text);
    int sign = 1;
    for (std::size_t i = 0; i < length; ++i) {
        const wchar_t c = text[i];
        if (c == L'-' || c == L'+')
            sign = c == L'-' ? -1 : 1;
        else if (!(c >= L'0' && c <= L'9') && !CWhitespaceUtils::IsWhiteSpace(c)) {
            *this = CDecimal(text).ToBigInteger();
            return;
        }
    }
    Build(m_digits, text, length);
    m_sign = sign;
}

std::wstring CBigInteger::ToString() const {
    const int top = Position(m_digits);
    if (top < 0) return L"0";
    std::wstring text;
    text.reserve(top + 2);
    if (m_sign < 0) text += L'-';
    for (int i = top; i >= 0; --i)
        text += static_cast<wchar_t>(L'0' + m_digits[i]);
    return text;
}

CBigInteger CBigInteger::GetAbs() const {
    CBigInteger result(*this);
    result.Abs();
    return result;
}

CBigInteger CBigInteger::GetNegative() const {
    CBigInteger result(*this);
    result.Negate();
    return result;
}

int CBigInteger::CompareTo(const CBigInteger& other) const {
    const bool zero = IsZero();
    const bool otherZero = other.IsZero();
    if (zero && otherZero) return 0;
    const int sign = zero ? 0 : m_sign;
    const int otherSign = otherZero ? 0 : other.m_sign;
    if (sign != otherSign) return sign < otherSign ? -1 : 1;
    return sign * Compare(m_digits, other.m_digits);
}

CBigInteger& CBigInteger::operator+=(const CBigInteger& other) {
    if (m_sign == other.m_sign) {
        Add(m_digits, other.m_digits);
    } else if (Compare(m_digits, other.m_digits) >= 0) {
        Subtract(m_digits, other.m_digits);
    } else {
        Digits larger(other.m_digits);
        Subtract(larger, m_digits);
        m_digits.swap(larger);
        m_sign = other.m_sign;
    }
    if (m_digits.empty()) m_sign = 1;
    return *this;
}

CBigInteger& CBigInteger::operator-=(const CBigInteger& other) {
    if (&other == this) {
        *this = CBigInteger();
        return *this;
    }
    m_sign = -m_sign;
    *this += other;
    if (!m_digits.empty()) m_sign = -m_sign;
    return *this;
}

CBigInteger& CBigInteger::operator*=(const CBigInteger& other) {
    m_digits = Multiply(m_digits, other.m_digits);
    m_sign = m_digits.empty() ? 1 : m_sign * other.m_sign;
    return *this;
}

void CBigInteger::DivMod(const CBigInteger& a, const CBigInteger& b, CBigInteger* quotient,
                         CBigInteger* remainder, const wchar_t* zeroMessage) {
    if (b.IsZero()) throw CQxInvalidValueException(zeroMessage);
    Digits q, r;
    Divide(a.m_digits, b.m_digits, q, r);
    // Signs first: the results may be a or b themselves.
    const int quotientSign = q.empty() || a.m_sign == b.m_sign ? 1 : -1;
    const int remainderSign = r.empty() ? 1 : a.m_sign;
    if (quotient) {
        quotient->m_sign = quotientSign;
        quotient->m_digits.swap(q);
    }
    if (remainder) {
        remainder->m_sign = remainderSign;
        remainder->m_digits.swap(r);
    }
}

CBigInteger CBigInteger::operator+(const CBigInteger& other) const {
    return CBigInteger(*this) += other;
}
CBigInteger CBigInteger::operator-(const CBigInteger& other) const {
    return CBigInteger(*this) -= other;
}
CBigInteger CBigInteger::operator*(const CBigInteger& other) const {
    return CBigInteger(*this) *= other;
}

CBigInteger CBigInteger::operator/(const CBigInteger& other) const {
    CBigInteger quotient;
    DivMod(*this, other, &quotient, nullptr, L"ERROR: Overflow in operator/.");
    return quotient;
}

CBigInteger CBigInteger::operator%(const CBigInteger& other) const {
    CBigInteger remainder;
    DivMod(*this, other, nullptr, &remainder, L"ERROR: Overflow in operator%.");
    return remainder;
}

CBigInteger& CBigInteger::operator/=(const CBigInteger& other) {
    DivMod(*this, other, this, nullptr, L"ERROR: Overflow in operator /=.");
    return *this;
}

CBigInteger& CBigInteger::operator%=(const CBigInteger& other) {
    DivMod(*this, other, nullptr, this, L"ERROR: Overflow in operator%=.");
    return *this;
}

CBigInteger::operator int() const {
    const unsigned long long limit = m_sign < 0 ? 2147483648ULL : 2147483647ULL;
    unsigned long long magnitude;
    if (!MagnitudeWithin(m_digits, limit, magnitude))
        throw CQxInvalidValueException(L"ERROR: Value out of bound of int.");
    return static_cast<int>(m_sign < 0 ? -static_cast<long long>(magnitude)
                                       : static_cast<long long>(magnitude));
}

CBigInteger::operator long long() const {
    const unsigned long long limit = m_sign < 0 ? 9223372036854775808ULL : 9223372036854775807ULL;
    unsigned long long magnitude;
    if (!MagnitudeWithin(m_digits, limit, magnitude))
        throw CQxInvalidValueException(L"ERROR: Value out of bound of LONGLONG.");
    // Unsigned negation keeps the most negative value defined.
    return m_sign < 0 ? static_cast<long long>(0ULL - magnitude) : static_cast<long long>(magnitude);
}

CBigInteger CBigInteger::SquareRoot() const {
    if (IsZero()) return CBigInteger();
    if (m_sign < 0) throw CQxInvalidValueException(L"ERROR: Negative Number in function SquareRoot().");
    // Newton's iteration from 10^ceil(digits / 2), which is never below the root, decreases
    // strictly until it reaches the integer root.
    const CBigInteger two(2);
    CBigInteger root = Pow10((Position(m_digits) + 2) / 2);
    for (;;) {
        CBigInteger next = (root + *this / root) / two;
        if (next >= root) return root;
        root = std::move(next);
    }
}

CBigInteger CBigInteger::Pow10(int n) {
    CBigInteger result;
    if (n >= 0) {
        result.m_digits.assign(static_cast<std::size_t>(n) + 1, 0);
        result.m_digits.back() = 1;
    }
    return result;
}

int CBigInteger::Compare(const Digits& a, const Digits& b) {
    const int top = Position(a);
    const int otherTop = Position(b);
    if (top != otherTop) return top < otherTop ? -1 : 1;
    for (int i = top; i >= 0; --i) {
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    }
    return 0;
}

int CBigInteger::Position(const Digits& a) {
    int i = static_cast<int>(a.size()) - 1;
    while (i >= 0 && a[i] == 0)
        --i;
    return i;
}

void CBigInteger::Clean(Digits& a) {
    while (!a.empty() && a.back() == 0)
        a.pop_back();
}

void CBigInteger::ShiftLeft(Digits& a, std::size_t n) {
    if (Position(a) >= 0) a.insert(a.begin(), n, 0);
}

void CBigInteger::Add(Digits& a, const Digits& b) {
    const std::size_t count = b.size();
    if (a.size() < count) a.resize(count, 0);
    int carry = 0;
    std::size_t i = 0;
    for (; i < a.size() && (i < count || carry); ++i) {
        int sum = a[i] + (i < count ? b[i] : 0) + carry;
        carry = sum >= 10;
        a[i] = static_cast<Digit>(carry ? sum - 10 : sum);
    }
    if (carry) a.push_back(1);
    Clean(a);
}

void CBigInteger::Subtract(Digits& a, const Digits& b) {
    const std::size_t count = std::min(a.size(), b.size());
    int borrow = 0;
    for (std::size_t i = 0; i < a.size() && (i < count || borrow); ++i) {
        int difference = a[i] - (i < count ? b[i] : 0) - borrow;
        borrow = difference < 0;
        a[i] = static_cast<Digit>(borrow ? difference + 10 : difference);
    }
    Clean(a);
}

void CBigInteger::Multiply(Digits& a, Digit digit) {
    int carry = 0;
    for (Digit& d : a) {
        const int product = d * digit + carry;
        d = static_cast<Digit>(product % 10);
        carry = product / 10;
    }
    if (carry) a.push_back(static_cast<Digit>(carry));
    Clean(a);
}

CBigInteger::Digits CBigInteger::Multiply(const Digits& a, const Digits& b) {
    const std::size_t na = static_cast<std::size_t>(Position(a) + 1);
    const std::size_t nb = static_cast<std::size_t>(Position(b) + 1);
    if (na == 0 || nb == 0) return Digits();
    // Column sums first, carries once at the end.
    std::vector<std::uint64_t> columns(na + nb, 0);
    for (std::size_t i = 0; i < na; ++i) {
        const std::uint64_t digit = a[i];
        if (digit == 0) continue;
        for (std::size_t j = 0; j < nb; ++j)
            columns[i + j] += digit * static_cast<std::uint64_t>(b[j]);
    }
    Digits product(na + nb);
    std::uint64_t carry = 0;
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const std::uint64_t value = columns[k] + carry;
        product[k] = static_cast<Digit>(value % 10);
        carry = value / 10;
    }
    Clean(product);
    return product;
}

void CBigInteger::Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder) {
    Digits divisor(b);
    Clean(divisor);
    const int top = Position(a);
    Digits q(static_cast<std::size_t>(top + 1), 0);
    Digits r;
    r.reserve(divisor.size() + 1);
    for (int i = top; i >= 0; --i) {
        r.insert(r.begin(), a[i]);
        Clean(r);
        Digit digit = 0;
        while (Compare(r, divisor) >= 0) {
            Subtract(r, divisor);
            ++digit;
        }
        q[i] = digit;
    }
    Clean(q);
    quotient.swap(q);
    remainder.swap(r);
}

void CBigInteger::Build(Digits& a, const wchar_t* text, std::size_t length) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < length; ++i)
        count += text[i] >= L'0' && text[i] <= L'9';
    a.resize(count);
    auto out = a.begin();
    for (std::size_t i = length; i-- > 0;) {
        if (text[i] >= L'0' && text[i] <= L'9') *out++ = static_cast<Digit>(text[i] - L'0');
    }
    Clean(a);
}

void CBigInteger::Build(Digits& a, unsigned int value) {
    BuildDWORDLONG(a, value);
}

void CBigInteger::BuildDWORDLONG(Digits& a, unsigned long long value) {
    a.clear();
    for (; value != 0; value /= 10)
        a.push_back(static_cast<Digit>(value % 10));
}

void CBigInteger::BuildDouble(Digits& a, double value) {
    a.clear();
    for (double x = std::fabs(value); x >= 1; x /= 10)
        a.push_back(static_cast<Digit>(std::fmod(x, 10)));
    Clean(a);
}

} // namespace QxXmlLib16
