#pragma once

// Independent arbitrary-precision arithmetic (GMP) that the big integer and decimal tests compare
// against, and the random operands they share.

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
// Plain digit text: optional sign, digits, optional point and digits.
RefDecimal RefFromText(const std::string& text);
// Nearest value with at most `digits` fractional digits, an exact half toward zero.
RefDecimal RoundHalfTowardZero(RefDecimal v, int digits);
// Canonical text: no trailing fraction zeros, no '+', "0" for zero.
std::wstring RefToString(RefDecimal v);
// The divider a canonical CDecimal of this value carries (fraction digits, at least 1).
int CanonicalDivider(RefDecimal v);

RefDecimal RefAdd(const RefDecimal& a, const RefDecimal& b);
// Rounded to maxDivider digits.
RefDecimal RefMultiply(const RefDecimal& a, const RefDecimal& b, int maxDivider);
// maxDivider + 2 + (difference of the canonical dividers) digits truncated, then rounded.
RefDecimal RefDivide(const RefDecimal& a, const RefDecimal& b, int maxDivider);

// `count` random digits; the first is not 0 when count > 1.
std::string RandomDigits(std::mt19937& rng, int count);
// Random sign prefix ("", "+" or "-") followed by an integer of 1..maxDigits digits.
std::string RandomInteger(std::mt19937& rng, int maxDigits);
// Decimal text with up to maxInteger integer and maxFraction fraction digits, often with trailing
// zeros, exact halves at the rounding position, zero and negative zero.
std::string RandomDecimal(std::mt19937& rng, int maxInteger, int maxFraction);

std::wstring Widen(const std::string& text);

} // namespace QxTest
