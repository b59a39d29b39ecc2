#pragma once

// Digit-level reading and writing shared by the date, time and duration texts. Every value of a
// document passes through here, so nothing allocates and nothing goes through printf.

namespace QxXmlLib16 {
namespace DateTimeText {

inline bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// Exactly two digits at p (p < end not required beyond what is read); advances past them.
inline bool ReadTwoDigits(const wchar_t*& p, const wchar_t* end, int& value) {
    if (end - p < 2 || !IsDigit(p[0]) || !IsDigit(p[1])) return false;
    value = (p[0] - L'0') * 10 + (p[1] - L'0');
    p += 2;
    return true;
}

// Writes value (0 <= value) with at least width digits, zero-padded; returns the end.
inline wchar_t* WriteDigits(wchar_t* out, unsigned long long value, int width) {
    wchar_t digits[20];
    int count = 0;
    do {
        digits[count++] = static_cast<wchar_t>(L'0' + value % 10);
        value /= 10;
    } while (value != 0);
    while (count < width)
        digits[count++] = L'0';
    while (count > 0)
        *out++ = digits[--count];
    return out;
}

// The fraction of a second as ToFracString writes it: '.', then the nine digits of milli, micro and
// nano without trailing zeros; nothing when all are zero.
inline wchar_t* WriteFraction(wchar_t* out, unsigned milli, unsigned micro, unsigned nano) {
    unsigned long fraction = milli * 1000000UL + micro * 1000UL + nano;
    if (fraction == 0) return out;
    int digits = 9;
    while (fraction % 10 == 0) {
        fraction /= 10;
        --digits;
    }
    *out++ = L'.';
    return WriteDigits(out, fraction, digits);
}

// Reads the digits of a fraction after its '.': at least one digit; false for none. Sets tooLong
// when more than nine digits follow, and splits the nine into milli, micro and nano.
inline bool ReadFraction(const wchar_t*& p, const wchar_t* end, bool& tooLong, int& milli, int& micro,
                         int& nano) {
    const wchar_t* start = p;
    long value = 0;
    while (p < end && IsDigit(*p) && p - start < 9)
        value = value * 10 + (*p++ - L'0');
    int count = static_cast<int>(p - start);
    tooLong = p < end && IsDigit(*p);
    if (count == 0) return false;
    for (int i = count; i < 9; ++i)
        value *= 10;
    milli = static_cast<int>(value / 1000000);
    micro = static_cast<int>(value / 1000 % 1000);
    nano = static_cast<int>(value % 1000);
    return true;
}

} // namespace DateTimeText
} // namespace QxXmlLib16
