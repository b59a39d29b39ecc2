#include "values/support/NumericReference.h"

#include <algorithm>

namespace QxTest {

mpz_class Pow10(int n) {
    mpz_class result;
    mpz_ui_pow_ui(result.get_mpz_t(), 10, static_cast<unsigned long>(n));
    return result;
}

RefDecimal RefFromText(const std::string& text) {
    std::string digits = "0";
    const std::size_t point = text.find('.');
    for (char c : text)
        digits += c >= '0' && c <= '9' ? std::string(1, c) : "";
    const int scale = point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1);
    const mpz_class magnitude(digits, 10);
    return {text.find('-') == std::string::npos ? magnitude : mpz_class(-magnitude), scale};
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
    for (; v.scale > 0 && mpz_divisible_ui_p(v.value.get_mpz_t(), 10); --v.scale)
        v.value /= 10;
    return v;
}

std::wstring RefToString(RefDecimal v) {
    v = Stripped(v);
    std::string text = mpz_class(abs(v.value)).get_str();
    if (v.scale > 0) {
        text.insert(0, static_cast<std::size_t>(std::max(v.scale + 1 - static_cast<int>(text.size()), 0)),
                    '0');
        text.insert(text.size() - static_cast<std::size_t>(v.scale), ".");
    }
    return Widen((v.value < 0 ? "-" : "") + text);
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
    const RefDecimal x = Stripped(a), y = Stripped(b);
    const int dx = std::max(x.scale, 1), dy = std::max(y.scale, 1);
    const mpz_class dividend = AtScale(x, dx) * Pow10(maxDivider + 2), divisor = AtScale(y, dy);
    mpz_class quotient;
    mpz_tdiv_q(quotient.get_mpz_t(), dividend.get_mpz_t(), divisor.get_mpz_t());
    return RoundHalfTowardZero({quotient, maxDivider + 2 + dx - dy}, maxDivider);
}

static std::string RandomDigits(std::mt19937& rng, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += static_cast<char>(i == 0 && count > 1 ? '1' + rng() % 9 : '0' + rng() % 10);
    return text;
}

static std::string RandomSign(std::mt19937& rng) {
    static const char* const signs[] = {"", "+", "-", "-"};
    return signs[rng() % 4];
}

std::string RandomInteger(std::mt19937& rng, int maxDigits) {
    return RandomSign(rng) + RandomDigits(rng, 1 + static_cast<int>(rng() % maxDigits));
}

std::string RandomDecimal(std::mt19937& rng, int maxInteger, int maxFraction) {
    const std::string integer = RandomSign(rng) + RandomDigits(rng, 1 + static_cast<int>(rng() % maxInteger));
    switch (rng() % 6) {
    case 0:
        return RandomSign(rng) + "0." + std::string(rng() % 5, '0');
    case 1: // an exact half at the first dropped digit, or just above it
        return integer + ".0" + RandomDigits(rng, 29) + (rng() % 2 ? "5" : "5000001");
    case 2:
        return integer + "." + RandomDigits(rng, static_cast<int>(rng() % 4)) +
               std::string(1 + rng() % 5, '0');
    default:
        return integer + "." + std::string(rng() % 3, '0') +
               RandomDigits(rng, static_cast<int>(rng() % maxFraction));
    }
}

} // namespace QxTest
