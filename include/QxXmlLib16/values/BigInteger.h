#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <cstddef>
#include <initializer_list>
#include <string>

namespace QxXmlLib16 {

class CDecimal;

// Arbitrary-precision signed integer (xs:integer) and the digit engine of CDecimal: one decimal
// digit per element, schoolbook arithmetic. Zero may carry either sign; every comparison treats
// the two zeros as equal, and arithmetic results that are zero are positive.
class QX_API CBigInteger {
public:
    using Digit = unsigned char;

    // Digit values 0..9 (not characters), least significant first. Zero is an empty vector after
    // Clean; the digit-vector operations also accept a single 0 and unstripped top zeros. A vector
    // with the few operations the arithmetic needs, holding up to kInline digits in place: the
    // values of documents (coordinates, amounts, counts) then cost no allocation at all.
    class QX_API Digits {
    public:
        // As many as the heap pointer has bytes, so that a CBigInteger takes 32 bytes and a
        // CDecimal 80: a document's decimals stand in every object of a large load.
        static constexpr std::size_t kInline = sizeof(Digit*);

        Digits() noexcept
            : m_size(0)
            , m_capacity(kInline) {}
        explicit Digits(std::size_t count, Digit value = 0)
            : Digits() {
            assign(count, value);
        }
        Digits(std::initializer_list<Digit> digits)
            : Digits() {
            assign(digits.begin(), digits.end());
        }
        Digits(const Digits& other)
            : Digits() {
            assign(other.begin(), other.end());
        }
        Digits(Digits&& other) noexcept
            : Digits() {
            swap(other);
        }
        Digits& operator=(const Digits& other) {
            if (this != &other) assign(other.begin(), other.end());
            return *this;
        }
        Digits& operator=(Digits&& other) noexcept {
            swap(other);
            return *this;
        }
        ~Digits() {
            if (IsHeap()) delete[] Heap();
        }

        std::size_t size() const { return m_size; }
        bool empty() const { return m_size == 0; }
        Digit* begin() { return Data(); }
        Digit* end() { return Data() + m_size; }
        const Digit* begin() const { return Data(); }
        const Digit* end() const { return Data() + m_size; }
        Digit& operator[](std::size_t i) { return Data()[i]; }
        const Digit& operator[](std::size_t i) const { return Data()[i]; }
        Digit& back() { return Data()[m_size - 1]; }
        const Digit& back() const { return Data()[m_size - 1]; }

        void reserve(std::size_t count) {
            if (count > m_capacity) Grow(count);
        }
        void clear() { m_size = 0; }
        void push_back(Digit digit) {
            if (m_size == m_capacity) Grow(2 * m_capacity);
            Data()[m_size++] = digit;
        }
        void pop_back() { --m_size; }
        void resize(std::size_t count, Digit value = 0);
        void assign(std::size_t count, Digit value);
        void assign(const Digit* first, const Digit* last);
        Digit* insert(Digit* position, std::size_t count, Digit value);
        Digit* insert(Digit* position, Digit value) { return insert(position, 1, value); }
        Digit* erase(Digit* first, Digit* last);
        void swap(Digits& other) noexcept;

    private:
        bool IsHeap() const { return m_capacity > kInline; }
        Digit* Data() { return IsHeap() ? Heap() : m_place.digits; }
        const Digit* Data() const { return IsHeap() ? Heap() : m_place.digits; }
        Digit* Heap() const { return m_place.heap; }
        void SetHeap(Digit* heap) { m_place.heap = heap; }
        // Room for at least count digits; the digits held are kept.
        void Grow(std::size_t count);

        // The digits in place, or the heap pointer once they outgrow it. The pointer stays aligned
        // so that leak checkers, which look for aligned pointers, see that the block is owned.
        union Place {
            Digit* heap;
            Digit digits[kInline];
        };

        unsigned int m_size;
        unsigned int m_capacity; // kInline while the digits are held in place
        Place m_place;
    };

    CBigInteger();
    CBigInteger(int value);
    CBigInteger(long value);
    CBigInteger(unsigned long value);
    CBigInteger(long long value);
    CBigInteger(unsigned long long value);
    // The integer part, truncated toward zero. Throws CQxInvalidValueException
    // "ERROR: Infinite or NaN value in CBigInteger(double)." for a value that has none.
    CBigInteger(double value);
    CBigInteger(const wchar_t* text);
    // The decimal rounded to the nearest integer, an exact half toward zero.
    CBigInteger(const CDecimal& value);
    CBigInteger(const CBigInteger&) = default;
    CBigInteger(CBigInteger&&) noexcept = default;
    CBigInteger& operator=(const CBigInteger&) = default;
    CBigInteger& operator=(CBigInteger&&) noexcept = default;
    virtual ~CBigInteger();

    // Range constants, built once when the library is loaded. They are accessors rather than data
    // members so that code running during the static initialisation of other libraries or
    // translation units always finds them built.
    static const CBigInteger& MAX_LONG();     // 2147483647: "LONG" is the 32-bit range
    static const CBigInteger& MIN_LONG();     // -2147483648
    static const CBigInteger& MAX_LONGLONG(); // 9223372036854775807
    static const CBigInteger& MIN_LONGLONG(); // -9223372036854775808
    static const CBigInteger& MAX_DOUBLE();   // 1.7E+308 as a whole number
    static const CBigInteger& MIN_DOUBLE();   // -1.7E+308

    // Text of only digits, '+', '-' and whitespace is taken digit by digit: whitespace anywhere is
    // ignored and the last sign wins ("-+5" is 5), as in the decimal parser; no digits give zero.
    // Any other text is parsed as a CDecimal and rounded like CBigInteger(const CDecimal&), so
    // "1.5e3" gives 1500 and "1.5" gives 1; invalid text throws the decimal's parse error and
    // leaves the value unchanged.
    void Parse(const wchar_t* text);
    // "-" in front of a negative non-zero value, "0" for zero.
    std::wstring ToString() const;

    void Abs() { m_sign = 1; }
    CBigInteger GetAbs() const;
    void Negate() { m_sign = -m_sign; }
    CBigInteger GetNegative() const;
    CBigInteger operator-() const { return GetNegative(); }

    bool IsZero() const { return Position(m_digits) < 0; }
    bool IsNegative() const { return m_sign < 0; } // also true for a negative zero
    int GetSign() const { return m_sign; }
    const Digits& GetDigits() const { return m_digits; }

    CBigInteger operator+(const CBigInteger& other) const;
    CBigInteger operator-(const CBigInteger& other) const;
    CBigInteger operator*(const CBigInteger& other) const;
    // Quotient truncated toward zero; "ERROR: Overflow in operator/." for a zero divisor.
    CBigInteger operator/(const CBigInteger& other) const;
    // Remainder with the sign of the dividend; "ERROR: Overflow in operator%." for a zero divisor.
    CBigInteger operator%(const CBigInteger& other) const;
    CBigInteger& operator+=(const CBigInteger& other);
    CBigInteger& operator-=(const CBigInteger& other);
    CBigInteger& operator*=(const CBigInteger& other);
    CBigInteger& operator/=(const CBigInteger& other); // "ERROR: Overflow in operator /=."
    CBigInteger& operator%=(const CBigInteger& other); // "ERROR: Overflow in operator%=."

    bool operator==(const CBigInteger& other) const { return CompareTo(other) == 0; }
    bool operator!=(const CBigInteger& other) const { return CompareTo(other) != 0; }
    bool operator<(const CBigInteger& other) const { return CompareTo(other) < 0; }
    bool operator>(const CBigInteger& other) const { return CompareTo(other) > 0; }
    bool operator<=(const CBigInteger& other) const { return CompareTo(other) <= 0; }
    bool operator>=(const CBigInteger& other) const { return CompareTo(other) >= 0; }
    // -1, 0 or 1.
    int CompareTo(const CBigInteger& other) const;

    // Explicit so that mixed expressions such as `value == 5` are not ambiguous.
    // Throws CQxInvalidValueException "ERROR: Value out of bound of int." outside the 32-bit range.
    explicit operator int() const;
    // Throws CQxInvalidValueException "ERROR: Value out of bound of LONGLONG.".
    explicit operator long long() const;

    // Largest integer whose square does not exceed the value. Throws CQxInvalidValueException
    // "ERROR: Negative Number in function SquareRoot()." for a negative non-zero value.
    CBigInteger SquareRoot() const;
    // 10^n; a negative n gives 0, the integer part of 10^n.
    static CBigInteger Pow10(int n);

    // Digit-vector operations on magnitudes.
    // -1, 0 or 1 comparing |a| and |b|.
    static int Compare(const Digits& a, const Digits& b);
    // Index of the most significant non-zero digit, -1 for zero.
    static int Position(const Digits& a);
    // Strips most significant zeros (zero becomes empty).
    static void Clean(Digits& a);
    // a * 10^n.
    static void ShiftLeft(Digits& a, std::size_t n);
    // a += b.
    static void Add(Digits& a, const Digits& b);
    // a -= b; requires |a| >= |b|.
    static void Subtract(Digits& a, const Digits& b);
    // a *= digit (0..9).
    static void Multiply(Digits& a, Digit digit);
    static Digits Multiply(const Digits& a, const Digits& b);
    // quotient = a / b, remainder = a % b; b must not be zero.
    static void Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder);
    // The digit characters of text[0..length), most significant first; other characters are skipped.
    static void Build(Digits& a, const wchar_t* text, std::size_t length);
    static void Build(Digits& a, unsigned int value);
    static void BuildDWORDLONG(Digits& a, unsigned long long value);
    // Integer part of |value| through repeated fmod(x, 10) and division by 10; value must be finite.
    static void BuildDouble(Digits& a, double value);

private:
    friend class CDecimal;

    // Truncating division of a by b into whichever of quotient and remainder is not null;
    // throws CQxInvalidValueException(zeroMessage) when b is zero.
    static void DivMod(const CBigInteger& a, const CBigInteger& b, CBigInteger* quotient,
                       CBigInteger* remainder, const wchar_t* zeroMessage);

    int m_sign;
    Digits m_digits;
};

} // namespace QxXmlLib16
