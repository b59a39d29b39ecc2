#include "values/support/NumericReference.h"

#include <algorithm>

namespace QxTest {

mpz_class Pow10(int n) {
    mpz_class result;
    mpz_ui_pow_ui(result.get_mpz_t(), 10, static_cast<unsigned long>(n));
    return result;
}

RefDecimal RefFromText(const std::string& text) {
    std::string digits;
    int scale = 0;
    bool negative = false;
    bool fraction = false;
    for (char c : text) {
        if (c == '-')
            negative = true;
        else if (c == '.')
            fraction = true;
        else if (c >= '0' && c <= '9') {
            digits += c;
            scale += fraction;
        }
    }
    RefDecimal v;
    v.value = mpz_class(digits.empty() ? "0" : digits, 10);
    if (negative) v.value = -v.value;
    v.scale = scale;
    return v;
}

RefDecimal RoundHalfTowardZero(RefDecimal v, int digits) {
    if (v.scale <= digits) return v;
    const mpz_class unit = Pow10(v.scale - digits);
    mpz_class quotient, remainder;
    mpz_tdiv_qr(quotient.get_mpz_t(), remainder.get_mpz_t(), v.value.get_mpz_t(), unit.get_mpz_t());
    if (2 * abs(remainder) > unit) quotient += sgn(v.value);
    return {quotient, digits};
}

static RefDecimal Stripped(RefDecimal v) {
    while (v.scale > 0 && mpz_divisible_ui_p(v.value.get_mpz_t(), 10)) {
        v.value /= 10;
        --v.scale;
    }
    return v;
}

int CanonicalDivider(RefDecimal v) {
    return std::max(Stripped(v).scale, 1);
}

std::wstring RefToString(RefDecimal v) {
    v = Stripped(v);
    std::string magnitude = mpz_class(abs(v.value)).get_str();
    std::string text;
    if (v.scale > 0) {
        if (static_cast<int>(magnitude.size()) <= v.scale)
            magnitude.insert(0, static_cast<std::size_t>(v.scale) + 1 - magnitude.size(), '0');
        magnitude.insert(magnitude.size() - static_cast<std::size_t>(v.scale), ".");
    }
    if (v.value < 0) text = "-";
    return Widen(text + magnitude);
}

static mpz_class AtScale(const RefDecimal& v, int scale) {
    return v.value * Pow10(scale - v.scale);
}

RefDecimal RefAdd(const RefDecimal& a, const RefDecimal& b) {
    const int scale = std::max(a.scale, b.scale);
    return {AtScale(a, scale) + AtScale(b, scale), scale};
}

RefDecimal RefMultiply(const RefDecimal& a, const RefDecimal& b, int maxDivider) {
    return RoundHalfTowardZero({a.value * b.value, a.scale + b.scale}, maxDivider);
}

RefDecimal RefDivide(const RefDecimal& a, const RefDecimal& b, int maxDivider) {
    // The library scales each operand by its own canonical divider, which decides where the
    // quotient is cut.
    const int da = CanonicalDivider(a);
    const int db = CanonicalDivider(b);
    const int guarded = maxDivider + 2;
    mpz_class quotient;
    const mpz_class dividend = AtScale(Stripped(a), da) * Pow10(guarded);
    const mpz_class divisor = AtScale(Stripped(b), db);
    mpz_tdiv_q(quotient.get_mpz_t(), dividend.get_mpz_t(), divisor.get_mpz_t());
    int scale = guarded + da - db;
    if (scale < 0) {
        quotient *= Pow10(-scale);
        scale = 0;
    }
    return RoundHalfTowardZero({quotient, scale}, maxDivider);
}

std::string RandomDigits(std::mt19937& rng, int count) {
    std::uniform_int_distribution<int> digit(0, 9);
    std::string text;
    for (int i = 0; i < count; ++i)
        text += static_cast<char>('0' + (i == 0 && count > 1 ? 1 + digit(rng) % 9 : digit(rng)));
    return text;
}

std::string RandomInteger(std::mt19937& rng, int maxDigits) {
    static const char* const signs[] = {"", "+", "-", "-"};
    return signs[rng() % 4] + RandomDigits(rng, 1 + static_cast<int>(rng() % maxDigits));
}

std::string RandomDecimal(std::mt19937& rng, int maxInteger, int maxFraction) {
    static const char* const signs[] = {"", "+", "-", "-"};
    std::string text = signs[rng() % 4];
    switch (rng() % 8) {
    case 0: // zero, possibly negative, with fraction zeros
        return text + "0." + std::string(rng() % 5, '0');
    case 1: // an exact half at the 31st digit, or just above it
        return text + RandomDigits(rng, 1 + static_cast<int>(rng() % 3)) + "." +
               RandomDigits(rng, 30).replace(0, 1, "0") + (rng() % 2 ? "5" : "5000001");
    case 2: // trailing zeros
        return text + RandomDigits(rng, 1 + static_cast<int>(rng() % maxInteger)) + "." +
               RandomDigits(rng, static_cast<int>(rng() % 4)) + std::string(1 + rng() % 5, '0');
    default:
        text += RandomDigits(rng, static_cast<int>(rng() % (maxInteger + 1)));
        const int fraction = static_cast<int>(rng() % (maxFraction + 1));
        if (fraction > 0) text += "." + std::string(rng() % 3, '0') + RandomDigits(rng, fraction);
        return text.empty() || text.back() == '-' || text.back() == '+' ? text + "0" : text;
    }
}

std::wstring Widen(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

} // namespace QxTest
