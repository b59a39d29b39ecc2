// The text forms of every primitive kind, through QxVariant, which picks each kind's own conversion:
// what a text reads as and is written back as, or the exact refusal.

#include <QxXmlLib16/QxXmlLib16.h>

#include "foundation/support/MessageOf.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

using namespace QxXmlLib16;
using C = CConversions;

namespace {

const auto kNone = CWhitespaceUtils::wsNone;
const auto kPreserve = CWhitespaceUtils::wsPreserve;
const auto kCollapse = CWhitespaceUtils::wsCollapse;

struct TextCase {
    ItemType kind;
    const wchar_t* input;
    CWhitespaceUtils::WhitespaceRule rule;
    std::wstring text; // written back, or the refusal's message
};

void PrintTo(const TextCase& c, std::ostream* out) {
    const std::wstring input = c.input;
    *out << c.kind << " [" << std::string(input.begin(), input.end()) << "]";
}

std::wstring NotConverted(const wchar_t* text, const wchar_t* kind) {
    return FormatString(L"The value [%ls] can not be converted to a %ls", text, kind);
}
std::wstring TooLarge(const wchar_t* text, const wchar_t* kind) {
    return FormatString(L"The value [%ls] is to large to fit in a %ls", text, kind);
}
std::wstring NotBoolean(const wchar_t* text) {
    return FormatString(
        L"A Boolean Value read from an XML document was invalid [%ls]. Valid values are 'true', "
        L"'false', '1', or '0'",
        text);
}
std::wstring NotChar(const wchar_t* text) {
    return FormatString(
        L"The value [%ls] can not be a char as it is either empty of greater than 1 char long", text);
}

const TextCase kTextCases[] = {
    // Integers: base 10 with the C library's syntax, the whole text, within the kind's range.
    {itI4, L" 12 ", kCollapse, L"12"},
    {itI4, L"+0012", kNone, L"12"},
    {itI4, L" 12", kNone, L"12"}, // blanks the rule leaves are the C library's to skip
    {itI4, L"-2147483648", kNone, L"-2147483648"},
    {itI8, L"-9223372036854775808", kNone, L"-9223372036854775808"},
    {itUi8, L"-0", kNone, L"0"},
    {itI2, L"-32768", kNone, L"-32768"},
    {itI4, L"", kCollapse, NotConverted(L"", L"i4")},
    {itI4, L"12a", kCollapse, NotConverted(L"12a", L"i4")},
    {itI4, L"1 2", kCollapse, NotConverted(L"1 2", L"i4")},
    {itI4, L"-", kCollapse, NotConverted(L"-", L"i4")},
    {itI4, L"12 ", kPreserve, NotConverted(L"12 ", L"i4")},
    {itI4, L"2147483648", kCollapse, TooLarge(L"2147483648", L"i4")},
    {itI4, L"-2147483649", kCollapse, TooLarge(L"-2147483649", L"i4")},
    {itI8, L"9223372036854775808", kCollapse, TooLarge(L"9223372036854775808", L"i8")},
    {itUi4, L"4294967296", kCollapse, TooLarge(L"4294967296", L"ui4")},
    {itUi4, L"-1", kCollapse, TooLarge(L"-1", L"ui4")},
    {itUi8, L" -00000000000000000000001", kCollapse, TooLarge(L"-00000000000000000000001", L"ui8")},
    {itUi8, L"18446744073709551616", kCollapse, TooLarge(L"18446744073709551616", L"ui8")},
    {itUi8, L"1.0", kCollapse, NotConverted(L"1.0", L"ui8")},
    // The narrow kinds read through the 32-bit ones, and say "to large" below the range too.
    {itI1, L"128", kCollapse, TooLarge(L"128", L"i1")},
    {itI1, L" -129 ", kCollapse, TooLarge(L"-129", L"i1")},
    {itI1, L"z", kCollapse, NotConverted(L"z", L"i4")},
    {itI2, L"-32769", kCollapse, TooLarge(L"-32769", L"i2")},
    {itUi1, L"256", kCollapse, TooLarge(L"256", L"ui1")},
    {itUi1, L"-1", kCollapse, TooLarge(L"-1", L"ui4")},
    {itUi2, L"65536", kCollapse, TooLarge(L"65536", L"ui2")},
    // Reals: exact special spellings, then wcstod; sixteen or seven significant digits back.
    {itR8, L"NaN", kNone, L"NaN"},
    {itR8, L"1.#QNAN", kNone, L"NaN"},
    {itR4, L" -NAN ", kCollapse, L"NaN"},
    {itR8, L"INF", kNone, L"INF"},
    {itR4, L"-INF", kNone, L"-INF"},
    {itR8, L"inf", kNone, L"INF"},
    {itR8, L"1e999", kNone, L"INF"},
    {itR4, L"-1e300", kNone, L"-INF"},
    {itR8, L" 1.5e2 ", kCollapse, L"150"},
    {itR4, L"0.1", kNone, L"0.1"},
    {itR8, L"-0", kNone, L"-0"},
    {itR8, L"0.33333333333333331", kNone, L"0.3333333333333333"},
    {itR4, L"0.333333343", kNone, L"0.3333333"},
    {itR8, L"1e21", kNone, L"1e+21"},
    {itR8, L"123456789012345678", kNone, L"1.234567890123457e+17"},
    {itR8, L"", kCollapse, NotConverted(L"", L"r8")},
    {itR8, L"1.5x", kCollapse, NotConverted(L"1.5x", L"r8")},
    {itR4, L"\n", kCollapse, NotConverted(L"", L"r4")},
    {itR4, L"nan x", kCollapse, NotConverted(L"nan x", L"r4")},
    // Booleans, characters and strings.
    {itBoolean, L"TRUE", kNone, L"true"},
    {itBoolean, L" tRuE ", kCollapse, L"true"},
    {itBoolean, L"1", kNone, L"true"},
    {itBoolean, L"0", kNone, L"false"},
    {itBoolean, L"yes", kCollapse, NotBoolean(L"yes")},
    {itBoolean, L"truex", kCollapse, NotBoolean(L"truex")},
    {itBoolean, L"", kCollapse, NotBoolean(L"")},
    {itChar, L"\x20AC", kNone, L"\x20AC"},
    {itChar, L" x ", kCollapse, L"x"},
    {itChar, L"", kCollapse, NotChar(L"")},
    {itChar, L"ab", kCollapse, NotChar(L"ab")},
    {itString, L"  a \t\n b  ", kCollapse, L"a b"},
    {itString, L"a\r\nb", CWhitespaceUtils::wsReplace, L"a b"},
    {itString, L"a\r\nb", kPreserve, L"a\nb"},
    {itString, L" a  b ", kNone, L" a  b "},
    // gYear, gMonth and gDay as plain numbers.
    {itYear, L" 2024 ", kCollapse, L"2024"},
    {itYear, L"65535", kNone, L"65535"},
    {itMonth, L"--05", kNone, L"--05"},
    {itDay, L"---07", kNone, L"---07"},
    {itDay, L"---31", kNone, L"---31"},
    {itYear, L"65536", kCollapse, TooLarge(L"65536", L"year")},
    {itYear, L"20x4", kCollapse, NotConverted(L"20x4", L"year")},
    {itMonth, L"--13", kCollapse, NotConverted(L"--13", L"month")},
    {itMonth, L"--00", kCollapse, NotConverted(L"--00", L"month")},
    {itMonth, L"--5", kCollapse, NotConverted(L"--5", L"month")},
    {itMonth, L"--05Z", kCollapse, NotConverted(L"--05Z", L"month")},
    {itMonth, L"-05", kCollapse, NotConverted(L"-05", L"month")},
    {itMonth, L"--/5", kCollapse, NotConverted(L"--/5", L"month")},
    {itDay, L"---32", kCollapse, NotConverted(L"---32", L"day")},
    {itDay, L"--07", kCollapse, NotConverted(L"--07", L"day")},
    // Binary data, the date and time kinds and durations through their own values.
    {itHexBinary, L" 0a1B\n", kCollapse, L"0A1B"},
    {itHexBinary, L"ABC", kNone, L"Invalid length in hex string"},
    {itBase64Binary, L"AQID", kNone, L"AQID"},
    {itDateTime, L" 2001-10-26T21:32:52.5Z ", kCollapse, L"2001-10-26T21:32:52.5Z"},
    {itDate, L"2000-02-29Z", kNone, L"2000-02-29Z"},
    {itTime, L"\t21:32:52+02:00", kCollapse, L"21:32:52+02:00"},
    {itYearMonth, L"-0005-12", kNone, L"-0005-12"},
    {itMonthDay, L"--02-29", kNone, L"--02-29"},
    {itDuration, L" -P1Y2MT3H4.5S ", kCollapse, L"-P1Y2MT3H4.5S"},
    {itDateTime, L"2001-10-26", kCollapse, NotConverted(L"2001-10-26", L"datetime")},
    {itYearMonth, L"2001", kCollapse, NotConverted(L"2001", L"yearMonth")},
    {itMonthDay, L"--02", kCollapse, NotConverted(L"--02", L"monthDay")},
    {itDate, L"2001-02-29", kCollapse, L"Invalid Day [29] (1 <= day <= days in month)"},
    {itDuration, L"PT1.0000000001S", kCollapse,
     L"Invalid XSD Duration [PT1.0000000001S] Fraction part too long"},
    // Exact numbers keep every digit.
    {itDecimal, L" 47.6443212345678901234567890123 ", kCollapse, L"47.6443212345678901234567890123"},
    {itDecimal, L"-0001.500", kNone, L"-1.5"},
    {itDecimal, L"12a", kNone,
     L"The string representing a Decimal, contained an invalid char at position 2 [12a]."},
    {itInteger, L"\n-123456789012345678901234567890 ", kCollapse, L"-123456789012345678901234567890"},
};

class TextForm : public testing::TestWithParam<TextCase> {};

TEST_P(TextForm, ReadsAndWritesBackOrIsRefused) {
    const TextCase& c = GetParam();
    QxVariant value;
    const Failure failure = FailureOf([&] { value.FromString(c.input, c.kind, c.rule); });
    if (failure.message != L"(no exception)") {
        EXPECT_EQ(failure.message, c.text);
        EXPECT_FALSE(value.IsValid()) << "a refused text left a value";
        return;
    }
    EXPECT_EQ(value.GetItemType(), c.kind);
    EXPECT_EQ(value.ToString(), c.text);
    EXPECT_EQ(QxVariant(value).ToString(), c.text);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, TextForm, testing::ValuesIn(kTextCases));

TEST(TextForms, FormatsOfDecimalsRealsAndDates) {
    EXPECT_EQ(C::decimalToString(CDecimal(L"1.005"), L"2"), L"1.01");
    EXPECT_EQ(C::decimalToString(CDecimal(L"-1.5"), L"3"), L"-1.500");
    EXPECT_EQ(C::decimalToString(CDecimal(L"2.50"), L""), L"2.5");
    for (const wchar_t* format : {L"x", L"-1", L"2.5", L"12345"})
        EXPECT_EQ(MessageOf<CQxInvalidParamException>([&] { C::decimalToString(CDecimal(1), format); }),
                  std::wstring(L"Invalid decimal format [") + format + L"]");
    EXPECT_EQ(C::r8ToString(2.5, L"%.3f"), L"2.500");
    EXPECT_EQ(C::r8ToString(2.5, L""), L"2.5");
    EXPECT_EQ(C::r4ToString(2.5f, L"%e"), L"2.500000e+00");
    EXPECT_EQ(C::r8ToString(std::numeric_limits<double>::infinity(), L"%.3f"), L"INF");
    EXPECT_EQ(C::dayToString(123), L"---123");
    QxVariant date;
    date.FromString(L"2001-10-26", itDate, kCollapse);
    EXPECT_EQ(date.ToString(L"s"), L"2001-10-26");
    EXPECT_EQ(date.ToString(L"x"), L"Unknown Format: x");
}

TEST(TextForms, UnknownRulesKindsAndEmbeddedNul) {
    EXPECT_EQ(
        FailureOf([] { C::i4FromString(L"1", static_cast<CWhitespaceUtils::WhitespaceRule>(9)); }).message,
        L"Unknown WhitespaceRule");
    // A text is read whole, not up to a NUL in it.
    EXPECT_EQ(FailureOf([] { C::i4FromString(std::wstring(L"1\0002", 3), kNone); }).message,
              NotConverted(L"1", L"i4"));
    QxVariant value;
    value.SetI4(7);
    for (int type : {0, 27, 28, 29, -1})
        EXPECT_EQ(
            MessageOf<CQxInvalidParamException>([&] { value.FromString(L"1", ItemType(type), kCollapse); }),
            L"Unknown Type");
    EXPECT_EQ(value.GetI4(), 7);
    EXPECT_EQ(MessageOf<CQxException>([] { QxVariant().ToString(); }),
              L"Invalid Type 0 to convert to string");
}

// Reals read bit for bit as wcstod reads them, and print as the wide printf does, over the range.
TEST(TextForms, RealsAgreeWithTheCLibrary) {
    std::vector<std::wstring> texts = {L".5",
                                       L"5.",
                                       L"-.5e-3",
                                       L"00012.50",
                                       L"1e-400",
                                       L"4.9e-324",
                                       L"2.2250738585072011e-308",
                                       L"1.7976931348623157e308",
                                       L"9007199254740993",
                                       L"123456789012345678901234567890e-5",
                                       L"+1.5",
                                       L"0x1p3",
                                       L"infinity"};
    unsigned seed = 777;
    wchar_t printed[64];
    for (int i = 0; i < 3000; ++i) {
        seed = seed * 1103515245u + 12345u;
        double value = (seed >> 8) / 16777216.0 * std::pow(10.0, static_cast<int>(seed % 630) - 322);
        if (seed & 1) value = -value;
        swprintf(printed, 64, i % 2 ? L"%.17g" : L"%.25e", value);
        texts.push_back(printed);
        swprintf(printed, 64, L"%.16g", value);
        ASSERT_EQ(C::r8ToString(value), printed);
        if (std::fabs(value) > std::numeric_limits<float>::max()) continue;
        swprintf(printed, 64, L"%.7g", static_cast<double>(static_cast<float>(value)));
        ASSERT_EQ(C::r4ToString(static_cast<float>(value)), printed);
    }
    for (const std::wstring& text : texts) {
        const double expected = std::wcstod(text.c_str(), nullptr), actual = C::r8FromString(text, kNone);
        EXPECT_EQ(std::memcmp(&expected, &actual, sizeof actual), 0) << text;
    }
}

} // namespace
