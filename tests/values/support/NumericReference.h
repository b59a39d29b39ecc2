#pragma once

// GMP, an independent arbitrary-precision library, as the reference for the numeric value tests,
// and the random operands they share.

#include <gmpxx.h>

#include <random>
#include <string>

namespace QxTest {

// The exact decimal value / 10^scale.
struct RefDecimal {
    mpz_class value;
    int scale = 0;
};

mpz_class Pow10(int n);
RefDecimal RefFromText(const std::string& text); // sign, digits, point, digits
RefDecimal RoundHalfTowardZero(RefDecimal v, int digits);
std::wstring RefToString(RefDecimal v); // canonical: no trailing fraction zeros, "0" for zero
RefDecimal RefAdd(const RefDecimal& a, const RefDecimal& b);
RefDecimal RefMultiply(const RefDecimal& a, const RefDecimal& b, int maxDivider);
// The quotient cut after maxDivider + 2 digits plus the difference of the canonical dividers, then rounded.
RefDecimal RefDivide(const RefDecimal& a, const RefDecimal& b, int maxDivider);

// Sign ("", "+" or "-") and 1..maxDigits digits without leading zero.
std::string RandomInteger(std::mt19937& rng, int maxDigits);
// Also zeros of either sign, trailing zeros and exact halves at the 31st fraction digit.
std::string RandomDecimal(std::mt19937& rng, int maxInteger, int maxFraction);

inline std::wstring Widen(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

} // namespace QxTest
