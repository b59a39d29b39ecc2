#include <QxXmlLib16/binding/Conversions.h>

#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <type_traits>

namespace QxXmlLib16 {

namespace {

const wchar_t* const kNotConverted = L"The value [%ls] can not be converted to a %ls";
const wchar_t* const kTooLarge = L"The value [%ls] is to large to fit in a %ls";
const wchar_t* const kBadBoolean =
    L"A Boolean Value read from an XML document was invalid [%ls]. Valid values are "
    L"'true', 'false', '1', or '0'";
const wchar_t* const kBadChar =
    L"The value [%ls] can not be a char as it is either empty of greater than 1 char long";

[[noreturn]] void Fail(const wchar_t* message, const std::wstring& text, const wchar_t* kind = nullptr) {
    throw CQxInvalidValueException(FormatString(message, text.c_str(), kind));
}

bool IsTabOrLineEnd(wchar_t c) {
    return c == L'\t' || c == L'\n' || c == L'\r';
}

// No tab or line end, and no leading, trailing or doubled blank.
bool IsCollapsed(const std::wstring& text) {
    wchar_t previous = L' ';
    for (wchar_t c : text) {
        if (IsTabOrLineEnd(c) || (c == L' ' && previous == L' ')) return false;
        previous = c;
    }
    return text.empty() || previous != L' ';
}

// The rule's result, copied only when the rule changes the text: numbers nearly always arrive
// without any whitespace, and a copy would cost more than their conversion.
const std::wstring& ApplyRule(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule,
                              std::wstring& scratch) {
    bool unchanged = false;
    switch (rule) {
    case CWhitespaceUtils::wsNone:
        return text;
    case CWhitespaceUtils::wsPreserve:
        unchanged = text.find(L'\r') == std::wstring::npos;
        break;
    case CWhitespaceUtils::wsReplace:
        unchanged = std::none_of(text.begin(), text.end(), IsTabOrLineEnd);
        break;
    case CWhitespaceUtils::wsCollapse:
        unchanged = IsCollapsed(text);
        break;
    default:
        break; // CWhitespaceUtils reports the unknown rule
    }
    if (unchanged) return text;
    scratch = CWhitespaceUtils::ApplyRule(rule, text);
    return scratch;
}

// Most integers in documents are a sign and a few digits. Up to 18 digits cannot overflow 64 bits,
// so such a text gives exactly what the C library would give; anything else goes to it.
bool ParsePlainInteger(const std::wstring& text, bool& negative, unsigned long long& magnitude) {
    const wchar_t* p = text.data();
    const wchar_t* end = p + text.size();
    negative = p != end && *p == L'-';
    if (p != end && (*p == L'-' || *p == L'+')) ++p;
    if (p == end || end - p > 18) return false;
    magnitude = 0;
    for (; p != end; ++p) {
        unsigned digit = static_cast<unsigned>(*p) - L'0';
        if (digit > 9) return false;
        magnitude = magnitude * 10 + digit;
    }
    return true;
}

template <class T>
T CLibraryParse(const wchar_t* text, wchar_t** end) {
    if constexpr (std::is_same_v<T, long>) return std::wcstol(text, end, 10);
    if constexpr (std::is_same_v<T, long long>) return std::wcstoll(text, end, 10);
    if constexpr (std::is_same_v<T, unsigned long>) return std::wcstoul(text, end, 10);
    if constexpr (std::is_same_v<T, unsigned long long>) return std::wcstoull(text, end, 10);
}

// A whole base-10 integer of type T (long, long long or their unsigned forms) within [min, max].
// The C library wraps negative text into the unsigned range; we refuse it as out of range instead.
template <class T>
T ParseInteger(const std::wstring& text, const wchar_t* kind, T min, T max) {
    if (text.empty()) Fail(kNotConverted, text, kind);
    bool negative;
    unsigned long long magnitude;
    T value;
    if (ParsePlainInteger(text, negative, magnitude)) {
        if constexpr (std::is_signed_v<T>) {
            value = negative ? static_cast<T>(-static_cast<long long>(magnitude)) : static_cast<T>(magnitude);
        } else {
            if (negative && magnitude != 0) Fail(kTooLarge, text, kind);
            value = static_cast<T>(magnitude);
        }
    } else {
        wchar_t* end;
        errno = 0;
        value = CLibraryParse<T>(text.c_str(), &end);
        if (end == text.c_str() || end != text.c_str() + text.size()) Fail(kNotConverted, text, kind);
        if (errno == ERANGE) Fail(kTooLarge, text, kind);
        if constexpr (std::is_unsigned_v<T>) {
            if (value != 0 && text.find(L'-') != std::wstring::npos) Fail(kTooLarge, text, kind);
        }
    }
    if (value < min || value > max) Fail(kTooLarge, text, kind);
    return value;
}

template <class T>
T Narrowed(long long value, const std::wstring& text, const wchar_t* kind) {
    if (value < std::numeric_limits<T>::min() ||
        value > static_cast<long long>(std::numeric_limits<T>::max()))
        Fail(kTooLarge, text, kind);
    return static_cast<T>(value);
}

long ParseI4(const std::wstring& text) {
    return ParseInteger<long>(text, L"i4", INT32_MIN, INT32_MAX);
}

unsigned long ParseUi4(const std::wstring& text, const wchar_t* kind = L"ui4") {
    return ParseInteger<unsigned long>(text, kind, 0, UINT32_MAX);
}

// Digits written backwards into a stack buffer: the text printf's "%d" family gives, without its
// parsing of the format.
template <class T>
std::wstring IntegerText(T value, const wchar_t* prefix = L"", int minDigits = 1) {
    wchar_t buffer[48];
    wchar_t* end = buffer + sizeof buffer / sizeof *buffer;
    wchar_t* p = end;
    using Unsigned = std::make_unsigned_t<T>;
    Unsigned magnitude =
        value < 0 ? Unsigned(0) - static_cast<Unsigned>(value) : static_cast<Unsigned>(value);
    do {
        *--p = static_cast<wchar_t>(L'0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    while (end - p < minDigits)
        *--p = L'0';
    if (value < 0) *--p = L'-';
    for (size_t i = std::wcslen(prefix); i > 0; --i)
        *--p = prefix[i - 1];
    return std::wstring(p, end);
}

// Plain decimal text (digits, point, exponent) goes to from_chars, which rounds exactly as wcstod
// does in the "C" locale at a fraction of its cost; any other text is left to wcstod.
bool ParsePlainReal(const std::wstring& text, double& value) {
    char narrow[64];
    if (text.size() >= sizeof narrow || text[0] == L'+') return false;
    for (size_t i = 0; i < text.size(); ++i) {
        wchar_t c = text[i];
        bool plain =
            (c >= L'0' && c <= L'9') || c == L'.' || c == L'-' || c == L'+' || c == L'e' || c == L'E';
        if (!plain) return false;
        narrow[i] = static_cast<char>(c);
    }
    auto result = std::from_chars(narrow, narrow + text.size(), value);
    return result.ec == std::errc() && result.ptr == narrow + text.size();
}

template <class T>
T ParseReal(const std::wstring& original, CWhitespaceUtils::WhitespaceRule rule, const wchar_t* kind) {
    std::wstring scratch;
    const std::wstring& text = ApplyRule(original, rule, scratch);
    if (text.empty()) Fail(kNotConverted, text, kind);
    double value;
    if (!ParsePlainReal(text, value)) {
        if (text == L"NaN" || text == L"1.#QNAN" || text == L"-NAN")
            return std::numeric_limits<T>::quiet_NaN();
        if (text == L"INF") return std::numeric_limits<T>::infinity();
        if (text == L"-INF") return -std::numeric_limits<T>::infinity();
        wchar_t* end;
        value = std::wcstod(text.c_str(), &end);
        if (end == text.c_str() || end != text.c_str() + text.size()) Fail(kNotConverted, text, kind);
    }
    // Under IEEE arithmetic a double beyond the float range narrows to an infinity.
    return static_cast<T>(value);
}

// to_chars gives what printf gives for the same precision in the "C" locale, without the cost of the
// wide printf machinery.
std::wstring RealText(double value, int precision, const std::wstring& format) {
    if (std::isnan(value)) return L"NaN";
    if (value < -std::numeric_limits<double>::max()) return L"-INF";
    if (value > std::numeric_limits<double>::max()) return L"INF";
    if (!format.empty()) return FormatString(format.c_str(), value);
    char narrow[32];
    auto result = std::to_chars(narrow, narrow + sizeof narrow, value, std::chars_format::general, precision);
    return std::wstring(narrow, result.ptr);
}

bool EqualsIgnoringCase(const std::wstring& text, const wchar_t* lowerWord) {
    size_t i = 0;
    for (; i < text.size() && lowerWord[i] != 0; ++i) {
        // Setting bit 5 lower-cases an ASCII letter and maps nothing else onto one.
        if ((text[i] | 0x20) != lowerWord[i]) return false;
    }
    return i == text.size() && lowerWord[i] == 0;
}

// prefix followed by exactly two digits.
bool ParseTwoDigits(const std::wstring& text, const wchar_t* prefix, unsigned& value) {
    size_t length = std::wcslen(prefix);
    if (text.size() != length + 2 || text.compare(0, length, prefix) != 0) return false;
    unsigned tens = static_cast<unsigned>(text[length]) - L'0';
    unsigned units = static_cast<unsigned>(text[length + 1]) - L'0';
    value = tens * 10 + units;
    return tens <= 9 && units <= 9;
}

unsigned char ParseMonthOrDay(const std::wstring& original, CWhitespaceUtils::WhitespaceRule rule,
                              const wchar_t* prefix, unsigned max, const wchar_t* kind) {
    std::wstring scratch;
    const std::wstring& text = ApplyRule(original, rule, scratch);
    unsigned value;
    if (!ParseTwoDigits(text, prefix, value) || value < 1 || value > max) Fail(kNotConverted, text, kind);
    return static_cast<unsigned char>(value);
}

// The parser takes any of the eight lexical forms, so the kind it found must be the one asked for.
CDateTime ParseDateTimeKind(const std::wstring& original, CWhitespaceUtils::WhitespaceRule rule,
                            CDateTime::DTType kind, const wchar_t* kindName) {
    std::wstring scratch;
    const std::wstring& text = ApplyRule(original, rule, scratch);
    CDateTime value = CDateTime::ParseXSDDateTime(text.c_str());
    if (value.GetType() != kind) Fail(kNotConverted, text, kindName);
    return value;
}

std::wstring DateTimeText(const CDateTime& value, const std::wstring& format) {
    return value.ToString(format.empty() ? nullptr : format.c_str());
}

} // namespace

char CConversions::i1FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    return Narrowed<signed char>(ParseI4(ruled), ruled, L"i1");
}

short CConversions::i2FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    return Narrowed<short>(ParseI4(ruled), ruled, L"i2");
}

long CConversions::i4FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return ParseI4(ApplyRule(text, rule, scratch));
}

long long CConversions::i8FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return ParseInteger<long long>(ApplyRule(text, rule, scratch), L"i8", LLONG_MIN, LLONG_MAX);
}

unsigned char CConversions::ui1FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    return Narrowed<unsigned char>(ParseUi4(ruled), ruled, L"ui1");
}

unsigned short CConversions::ui2FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    return Narrowed<unsigned short>(ParseUi4(ruled), ruled, L"ui2");
}

unsigned long CConversions::ui4FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return ParseUi4(ApplyRule(text, rule, scratch));
}

unsigned long long CConversions::ui8FromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return ParseInteger<unsigned long long>(ApplyRule(text, rule, scratch), L"ui8", 0, ULLONG_MAX);
}

std::wstring CConversions::i1ToString(char value) {
    return IntegerText(static_cast<int>(value));
}
std::wstring CConversions::i2ToString(short value) {
    return IntegerText(static_cast<int>(value));
}
std::wstring CConversions::i4ToString(long value) {
    return IntegerText(value);
}
std::wstring CConversions::i8ToString(long long value) {
    return IntegerText(value);
}
std::wstring CConversions::ui1ToString(unsigned char value) {
    return IntegerText(static_cast<unsigned>(value));
}
std::wstring CConversions::ui2ToString(unsigned short value) {
    return IntegerText(static_cast<unsigned>(value));
}
std::wstring CConversions::ui4ToString(unsigned long value) {
    return IntegerText(value);
}
std::wstring CConversions::ui8ToString(unsigned long long value) {
    return IntegerText(value);
}

float CConversions::r4FromString(const std::wstring& text, WhitespaceRule rule) {
    return ParseReal<float>(text, rule, L"r4");
}

double CConversions::r8FromString(const std::wstring& text, WhitespaceRule rule) {
    return ParseReal<double>(text, rule, L"r8");
}

std::wstring CConversions::r4ToString(float value) {
    return RealText(value, 7, std::wstring());
}
std::wstring CConversions::r4ToString(float value, const std::wstring& format) {
    return RealText(value, 7, format);
}
std::wstring CConversions::r8ToString(double value) {
    return RealText(value, 16, std::wstring());
}
std::wstring CConversions::r8ToString(double value, const std::wstring& format) {
    return RealText(value, 16, format);
}

bool CConversions::booleanFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    if (ruled == L"1" || EqualsIgnoringCase(ruled, L"true")) return true;
    if (ruled == L"0" || EqualsIgnoringCase(ruled, L"false")) return false;
    Fail(kBadBoolean, ruled);
}

std::wstring CConversions::booleanToString(bool value) {
    return value ? L"true" : L"false";
}

wchar_t CConversions::charFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    if (ruled.size() != 1) Fail(kBadChar, ruled);
    return ruled[0];
}

std::wstring CConversions::charToString(wchar_t value) {
    return std::wstring(1, value);
}

std::wstring CConversions::stringFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    if (&ruled == &scratch) return scratch;
    return ruled;
}

std::wstring CConversions::stringFromString(std::wstring&& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    return &ruled == &scratch ? std::move(scratch) : std::move(text);
}

std::wstring CConversions::stringToString(const std::wstring& value) {
    return value;
}

unsigned short CConversions::yearFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    return Narrowed<unsigned short>(ParseUi4(ruled, L"year"), ruled, L"year");
}

unsigned char CConversions::monthFromString(const std::wstring& text, WhitespaceRule rule) {
    return ParseMonthOrDay(text, rule, L"--", 12, L"month");
}

unsigned char CConversions::dayFromString(const std::wstring& text, WhitespaceRule rule) {
    return ParseMonthOrDay(text, rule, L"---", 31, L"day");
}

std::wstring CConversions::yearToString(unsigned short value) {
    return IntegerText(static_cast<unsigned>(value));
}
std::wstring CConversions::monthToString(unsigned char value) {
    return IntegerText(static_cast<unsigned>(value), L"--", 2);
}
std::wstring CConversions::dayToString(unsigned char value) {
    return IntegerText(static_cast<unsigned>(value), L"---", 2);
}

CBinaryData CConversions::hexBinaryFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    CBinaryData value;
    value.SetAsHexString(ApplyRule(text, rule, scratch).c_str());
    return value;
}

CBinaryData CConversions::base64BinaryFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    CBinaryData value;
    value.SetAsBase64(ApplyRule(text, rule, scratch).c_str());
    return value;
}

std::wstring CConversions::hexBinaryToString(const CBinaryData& value) {
    return value.GetAsHexString();
}
std::wstring CConversions::base64BinaryToString(const CBinaryData& value) {
    return value.GetAsBase64();
}

CDateTime CConversions::dateFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return CDateTime::ParseXSDDate(ApplyRule(text, rule, scratch).c_str());
}

CDateTime CConversions::timeFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return CDateTime::ParseXSDTime(ApplyRule(text, rule, scratch).c_str());
}

CDateTime CConversions::datetimeFromString(const std::wstring& text, WhitespaceRule rule) {
    return ParseDateTimeKind(text, rule, CDateTime::dt_dateTime, L"datetime");
}

CDateTime CConversions::yearMonthFromString(const std::wstring& text, WhitespaceRule rule) {
    return ParseDateTimeKind(text, rule, CDateTime::dt_gYearMonth, L"yearMonth");
}

CDateTime CConversions::monthDayFromString(const std::wstring& text, WhitespaceRule rule) {
    return ParseDateTimeKind(text, rule, CDateTime::dt_gMonthDay, L"monthDay");
}

std::wstring CConversions::dateToString(const CDateTime& value, const std::wstring& format) {
    return DateTimeText(value, format);
}
std::wstring CConversions::timeToString(const CDateTime& value, const std::wstring& format) {
    return DateTimeText(value, format);
}
std::wstring CConversions::datetimeToString(const CDateTime& value, const std::wstring& format) {
    return DateTimeText(value, format);
}
std::wstring CConversions::yearMonthToString(const CDateTime& value, const std::wstring& format) {
    return DateTimeText(value, format);
}
std::wstring CConversions::monthDayToString(const CDateTime& value, const std::wstring& format) {
    return DateTimeText(value, format);
}

CDateTimeSpan CConversions::durationFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return CDateTimeSpan::ParseXSDDuration(ApplyRule(text, rule, scratch).c_str());
}

std::wstring CConversions::durationToString(const CDateTimeSpan& value) {
    return value.ToString();
}

CDecimal CConversions::decimalFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    const std::wstring& ruled = ApplyRule(text, rule, scratch);
    CDecimal value;
    value.Parse(ruled.data(), ruled.size());
    return value;
}

std::wstring CConversions::decimalToString(const CDecimal& value) {
    return value.ToString();
}

std::wstring CConversions::decimalToString(const CDecimal& value, const std::wstring& format) {
    if (format.empty()) return value.ToString();
    // More than four digits is no sensible precision, and could overflow the count.
    bool isCount = format.size() <= 4 && std::all_of(format.begin(), format.end(),
                                                     [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (!isCount)
        throw CQxInvalidParamException(FormatString(L"Invalid decimal format [%ls]", format.c_str()));
    return value.ToString(std::stoi(format));
}

CBigInteger CConversions::integerFromString(const std::wstring& text, WhitespaceRule rule) {
    std::wstring scratch;
    return CBigInteger(ApplyRule(text, rule, scratch).c_str());
}

std::wstring CConversions::integerToString(const CBigInteger& value) {
    return value.ToString();
}

} // namespace QxXmlLib16
