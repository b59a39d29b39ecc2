#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/foundation/Exceptions.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

using namespace QxXmlLib16;
using Rule = CWhitespaceUtils::WhitespaceRule;
using C = CConversions;

namespace {

const Rule kNone = CWhitespaceUtils::wsNone;
const Rule kPreserve = CWhitespaceUtils::wsPreserve;
const Rule kCollapse = CWhitespaceUtils::wsCollapse;

// The message of the CQxInvalidValueException that call throws, or a marker when it throws none.
std::wstring FailureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const CQxInvalidValueException& e) {
        return e.GetMessage();
    }
    return L"(no exception)";
}

struct Failure {
    std::function<void(const std::wstring&)> parse;
    const wchar_t* text;
    const wchar_t* message;
};

template <class F>
std::function<void(const std::wstring&)> Collapsing(F parse) {
    return [parse](const std::wstring& text) { parse(text, kCollapse); };
}

} // namespace

TEST(ConversionsIntegers, ParseTheWholeTextInBaseTen) {
    EXPECT_EQ(C::i4FromString(L" 12 ", kCollapse), 12);
    EXPECT_EQ(C::i4FromString(L"\t-7\r\n", kCollapse), -7);
    EXPECT_EQ(C::i4FromString(L"+0012", kNone), 12);
    EXPECT_EQ(C::i4FromString(L"-2147483648", kNone), -2147483648L);
    // The C library's own syntax still applies where the rule leaves whitespace in front.
    EXPECT_EQ(C::i4FromString(L" 12", kNone), 12);
    EXPECT_EQ(C::i8FromString(L"-9223372036854775808", kNone), std::numeric_limits<long long>::min());
    EXPECT_EQ(C::i8FromString(L"123456789012345678", kNone), 123456789012345678LL);
    EXPECT_EQ(C::ui4FromString(L"4294967295", kNone), 4294967295UL);
    EXPECT_EQ(C::ui8FromString(L"18446744073709551615", kNone),
              std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(C::ui8FromString(L"-0", kNone), 0u);
}

TEST(ConversionsIntegers, ReportMalformedAndOutOfRangeText) {
    const Failure failures[] = {
        {Collapsing(C::i4FromString), L"", L"The value [] can not be converted to a i4"},
        {Collapsing(C::i4FromString), L"   ", L"The value [] can not be converted to a i4"},
        {Collapsing(C::i4FromString), L"12a", L"The value [12a] can not be converted to a i4"},
        {Collapsing(C::i4FromString), L"1 2", L"The value [1 2] can not be converted to a i4"},
        {Collapsing(C::i4FromString), L"-", L"The value [-] can not be converted to a i4"},
        {Collapsing(C::i4FromString), L"2147483648", L"The value [2147483648] is to large to fit in a i4"},
        {Collapsing(C::i4FromString), L"-2147483649", L"The value [-2147483649] is to large to fit in a i4"},
        {Collapsing(C::i4FromString), L"99999999999999999999",
         L"The value [99999999999999999999] is to large to fit in a i4"},
        {Collapsing(C::i8FromString), L"x", L"The value [x] can not be converted to a i8"},
        {Collapsing(C::i8FromString), L"9223372036854775808",
         L"The value [9223372036854775808] is to large to fit in a i8"},
        {Collapsing(C::ui4FromString), L"4294967296", L"The value [4294967296] is to large to fit in a ui4"},
        {Collapsing(C::ui4FromString), L"-1", L"The value [-1] is to large to fit in a ui4"},
        {Collapsing(C::ui8FromString), L"-1", L"The value [-1] is to large to fit in a ui8"},
        {Collapsing(C::ui8FromString), L" -00000000000000000000001",
         L"The value [-00000000000000000000001] is to large to fit in a ui8"},
        {Collapsing(C::ui8FromString), L"18446744073709551616",
         L"The value [18446744073709551616] is to large to fit in a ui8"},
        {Collapsing(C::ui8FromString), L"1.0", L"The value [1.0] can not be converted to a ui8"},
        // The narrow kinds read through the 32-bit ones, and say "to large" below the range too.
        {Collapsing(C::i1FromString), L"128", L"The value [128] is to large to fit in a i1"},
        {Collapsing(C::i1FromString), L" -129 ", L"The value [-129] is to large to fit in a i1"},
        {Collapsing(C::i1FromString), L"z", L"The value [z] can not be converted to a i4"},
        {Collapsing(C::i2FromString), L"-32769", L"The value [-32769] is to large to fit in a i2"},
        {Collapsing(C::ui1FromString), L"256", L"The value [256] is to large to fit in a ui1"},
        {Collapsing(C::ui1FromString), L"-1", L"The value [-1] is to large to fit in a ui4"},
        {Collapsing(C::ui2FromString), L"65536", L"The value [65536] is to large to fit in a ui2"},
    };
    for (const Failure& f : failures)
        EXPECT_EQ(FailureOf([&] { f.parse(f.text); }), f.message) << f.text;
    EXPECT_EQ(FailureOf([] { C::i4FromString(L"12 ", kPreserve); }),
              L"The value [12 ] can not be converted to a i4");
    const std::wstring embeddedNul(L"1\0"
                                   L"2",
                                   3); // must not be read as "1"
    EXPECT_EQ(FailureOf([&] { C::i4FromString(embeddedNul, kNone); }),
              L"The value [1] can not be converted to a i4");
}

TEST(ConversionsIntegers, UnknownWhitespaceRuleIsReported) {
    try {
        C::i4FromString(L"1", static_cast<Rule>(9));
        FAIL() << "no exception";
    } catch (const CQxException& e) {
        EXPECT_EQ(e.GetMessage(), L"Unknown WhitespaceRule");
    }
}

TEST(ConversionsIntegers, TextIsThatOfPrintf) {
    EXPECT_EQ(C::i4ToString(0), L"0");
    EXPECT_EQ(C::i4ToString(-2147483647L - 1), L"-2147483648");
    EXPECT_EQ(C::i8ToString(std::numeric_limits<long long>::min()), L"-9223372036854775808");
    EXPECT_EQ(C::ui4ToString(4294967295UL), L"4294967295");
    EXPECT_EQ(C::ui8ToString(std::numeric_limits<unsigned long long>::max()), L"18446744073709551615");
    EXPECT_EQ(C::yearToString(2024), L"2024");
    EXPECT_EQ(C::monthToString(5), L"--05");
    EXPECT_EQ(C::monthToString(12), L"--12");
    EXPECT_EQ(C::dayToString(7), L"---07");
    EXPECT_EQ(C::dayToString(123), L"---123");
}

TEST(ConversionsReals, SpecialSpellingsAreExactAndCaseSensitive) {
    EXPECT_TRUE(std::isnan(C::r8FromString(L"NaN", kNone)));
    EXPECT_TRUE(std::isnan(C::r8FromString(L"1.#QNAN", kNone)));
    EXPECT_TRUE(std::isnan(C::r4FromString(L" -NAN ", kCollapse)));
    EXPECT_EQ(C::r8FromString(L"INF", kNone), std::numeric_limits<double>::infinity());
    EXPECT_EQ(C::r4FromString(L"-INF", kNone), -std::numeric_limits<float>::infinity());
    // Other spellings are the C library's business.
    EXPECT_EQ(C::r8FromString(L"inf", kNone), std::numeric_limits<double>::infinity());
    EXPECT_EQ(C::r8FromString(L"1e999", kNone), std::numeric_limits<double>::infinity());
    EXPECT_EQ(C::r4FromString(L"-1e300", kNone), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(C::r8FromString(L" 1.5e2 ", kCollapse), 150.0);
    EXPECT_EQ(C::r4FromString(L"0.1", kNone), 0.1f);
    EXPECT_EQ(C::r8FromString(L"-0.1", kNone), -0.1);
}

TEST(ConversionsReals, ValuesAreBitForBitThoseOfWcstod) {
    std::vector<std::wstring> texts = {L"0",
                                       L"-0",
                                       L".5",
                                       L"5.",
                                       L"-.5e-3",
                                       L"1e+5",
                                       L"00012.50",
                                       L"1e-400",
                                       L"-1e400",
                                       L"4.9e-324",
                                       L"2.2250738585072011e-308",
                                       L"1.7976931348623157e308",
                                       L"9007199254740993",
                                       L"0.1000000000000000055511151231257827",
                                       L"123456789012345678901234567890e-5",
                                       L"+1.5",
                                       L"0x1p3",
                                       L"infinity",
                                       L"nan"};
    unsigned seed = 777;
    wchar_t printed[64];
    for (int i = 0; i < 3000; ++i) {
        seed = seed * 1103515245u + 12345u;
        double value = (seed >> 8) / 16777216.0 * std::pow(10.0, static_cast<int>(seed % 630) - 322);
        swprintf(printed, 64, i % 2 ? L"%.17g" : L"%.25e", value);
        texts.push_back(printed);
    }
    for (const std::wstring& text : texts) {
        double expected = std::wcstod(text.c_str(), nullptr);
        double actual = C::r8FromString(text, kNone);
        if (std::isnan(expected)) {
            EXPECT_TRUE(std::isnan(actual)) << text;
        } else {
            EXPECT_EQ(std::memcmp(&expected, &actual, sizeof actual), 0) << text;
        }
    }
}

TEST(ConversionsReals, ReportTextNotConsumedWhole) {
    const Failure failures[] = {
        {Collapsing(C::r8FromString), L"", L"The value [] can not be converted to a r8"},
        {Collapsing(C::r8FromString), L"1.5x", L"The value [1.5x] can not be converted to a r8"},
        {Collapsing(C::r8FromString), L"Inf inity", L"The value [Inf inity] can not be converted to a r8"},
        {Collapsing(C::r4FromString), L"\n", L"The value [] can not be converted to a r4"},
        {Collapsing(C::r4FromString), L"nan x", L"The value [nan x] can not be converted to a r4"},
    };
    for (const Failure& f : failures)
        EXPECT_EQ(FailureOf([&] { f.parse(f.text); }), f.message) << f.text;
}

TEST(ConversionsReals, TextKeepsSixteenOrSevenSignificantDigits) {
    EXPECT_EQ(C::r8ToString(1.0 / 3), L"0.3333333333333333");
    EXPECT_EQ(C::r4ToString(0.1f), L"0.1");
    EXPECT_EQ(C::r4ToString(1.0f / 3), L"0.3333333");
    EXPECT_EQ(C::r8ToString(0.1), L"0.1");
    EXPECT_EQ(C::r8ToString(1e21), L"1e+21");
    EXPECT_EQ(C::r8ToString(-0.0), L"-0");
    EXPECT_EQ(C::r8ToString(123456789012345678.0), L"1.234567890123457e+17");
    EXPECT_EQ(C::r8ToString(std::numeric_limits<double>::infinity()), L"INF");
    EXPECT_EQ(C::r8ToString(-std::numeric_limits<double>::infinity()), L"-INF");
    EXPECT_EQ(C::r8ToString(std::numeric_limits<double>::quiet_NaN()), L"NaN");
    EXPECT_EQ(C::r4ToString(-std::numeric_limits<float>::quiet_NaN()), L"NaN");
    EXPECT_EQ(C::r4ToString(std::numeric_limits<float>::infinity()), L"INF");
    EXPECT_EQ(C::r8ToString(2.5, L"%.3f"), L"2.500");
    EXPECT_EQ(C::r8ToString(2.5, L""), L"2.5");
    EXPECT_EQ(C::r4ToString(2.5f, L"%e"), L"2.500000e+00");
    EXPECT_EQ(C::r8ToString(std::numeric_limits<double>::infinity(), L"%.3f"), L"INF");
}

TEST(ConversionsReals, DefaultTextMatchesWidePrintfForManyValues) {
    wchar_t expected[64];
    unsigned seed = 12345;
    for (int i = 0; i < 3000; ++i) {
        seed = seed * 1103515245u + 12345u;
        // Mantissas below one and exponents from subnormal to the top of the range.
        double value = (seed >> 8) / 16777216.0 * std::pow(10.0, static_cast<int>(seed % 630) - 322);
        if (seed & 1) value = -value;
        swprintf(expected, 64, L"%.16g", value);
        ASSERT_EQ(C::r8ToString(value), expected);
        if (std::fabs(value) > std::numeric_limits<float>::max()) continue;
        swprintf(expected, 64, L"%.7g", static_cast<double>(static_cast<float>(value)));
        ASSERT_EQ(C::r4ToString(static_cast<float>(value)), expected);
    }
}

TEST(ConversionsBooleanAndChar, AcceptOnlyTheirSpellings) {
    EXPECT_TRUE(C::booleanFromString(L"TRUE", kNone));
    EXPECT_TRUE(C::booleanFromString(L" tRuE ", kCollapse));
    EXPECT_TRUE(C::booleanFromString(L"1", kNone));
    EXPECT_FALSE(C::booleanFromString(L"False", kNone));
    EXPECT_FALSE(C::booleanFromString(L"0", kNone));
    EXPECT_EQ(C::booleanToString(true), L"true");
    EXPECT_EQ(C::booleanToString(false), L"false");
    EXPECT_EQ(C::charFromString(L"\x20AC", kNone), L'\x20AC');
    EXPECT_EQ(C::charFromString(L" x ", kCollapse), L'x');
    EXPECT_EQ(C::charToString(L'y'), L"y");

    const Failure failures[] = {
        {Collapsing(C::booleanFromString), L"yes",
         L"A Boolean Value read from an XML document was invalid [yes]. Valid values are 'true', 'false', "
         L"'1', or '0'"},
        {Collapsing(C::booleanFromString), L"truex",
         L"A Boolean Value read from an XML document was invalid [truex]. Valid values are 'true', 'false', "
         L"'1', or "
         L"'0'"},
        {Collapsing(C::booleanFromString), L"",
         L"A Boolean Value read from an XML document was invalid []. Valid values are 'true', 'false', '1', "
         L"or '0'"},
        {Collapsing(C::charFromString), L"",
         L"The value [] can not be a char as it is either empty of greater than 1 char long"},
        {Collapsing(C::charFromString), L"ab",
         L"The value [ab] can not be a char as it is either empty of greater than 1 char long"},
    };
    for (const Failure& f : failures)
        EXPECT_EQ(FailureOf([&] { f.parse(f.text); }), f.message) << f.text;
}

TEST(ConversionsStrings, ApplyTheRuleOnlyOnTheWayIn) {
    EXPECT_EQ(C::stringFromString(L"  a \t\n b  ", kCollapse), L"a b");
    EXPECT_EQ(C::stringFromString(L"a\r\nb", CWhitespaceUtils::wsReplace), L"a b");
    EXPECT_EQ(C::stringFromString(L"a\r\nb", kPreserve), L"a\nb");
    EXPECT_EQ(C::stringFromString(L" a  b ", kNone), L" a  b ");
    EXPECT_EQ(C::stringFromString(L"a b", kCollapse), L"a b");
    EXPECT_EQ(C::stringToString(L" a "), L" a ");
}

TEST(ConversionsYearMonthDay, ReadTheirOwnText) {
    EXPECT_EQ(C::yearFromString(L" 2024 ", kCollapse), 2024);
    EXPECT_EQ(C::yearFromString(L"65535", kNone), 65535);
    EXPECT_EQ(C::monthFromString(L"--05", kNone), 5);
    EXPECT_EQ(C::monthFromString(L"\t--12\n", kCollapse), 12);
    EXPECT_EQ(C::dayFromString(L"---07", kNone), 7);
    EXPECT_EQ(C::dayFromString(L"---31", kNone), 31);

    const Failure failures[] = {
        {Collapsing(C::yearFromString), L"65536", L"The value [65536] is to large to fit in a year"},
        {Collapsing(C::yearFromString), L"20x4", L"The value [20x4] can not be converted to a year"},
        {Collapsing(C::monthFromString), L"--13", L"The value [--13] can not be converted to a month"},
        {Collapsing(C::monthFromString), L"--00", L"The value [--00] can not be converted to a month"},
        {Collapsing(C::monthFromString), L"--5", L"The value [--5] can not be converted to a month"},
        {Collapsing(C::monthFromString), L"--05Z", L"The value [--05Z] can not be converted to a month"},
        {Collapsing(C::monthFromString), L"-05", L"The value [-05] can not be converted to a month"},
        {Collapsing(C::monthFromString), L"--/5", L"The value [--/5] can not be converted to a month"},
        {Collapsing(C::dayFromString), L"---32", L"The value [---32] can not be converted to a day"},
        {Collapsing(C::dayFromString), L"--07", L"The value [--07] can not be converted to a day"},
        {Collapsing(C::dayFromString), L"", L"The value [] can not be converted to a day"},
    };
    for (const Failure& f : failures)
        EXPECT_EQ(FailureOf([&] { f.parse(f.text); }), f.message) << f.text;
}

TEST(ConversionsBinary, HexAndBase64GoThroughTheBinaryValue) {
    CBinaryData hex = C::hexBinaryFromString(L" 0a1B\n", kCollapse);
    ASSERT_EQ(hex.GetLength(), 2u);
    EXPECT_EQ(hex[0], 0x0A);
    EXPECT_EQ(hex[1], 0x1B);
    EXPECT_EQ(C::hexBinaryToString(hex), L"0A1B");
    EXPECT_EQ(C::base64BinaryToString(C::base64BinaryFromString(L"AQID", kNone)), L"AQID");
    unsigned char octets[] = {1, 2, 3};
    EXPECT_EQ(C::base64BinaryFromString(L"AQID", kNone), CBinaryData(octets, 3, false));
    try {
        C::hexBinaryFromString(L"ABC", kNone);
        FAIL() << "no exception";
    } catch (const CQxException& e) {
        EXPECT_EQ(e.GetMessage(), L"Invalid length in hex string");
    }
}

TEST(ConversionsDates, EachParserAcceptsOnlyItsKind) {
    EXPECT_EQ(C::datetimeToString(C::datetimeFromString(L" 2001-10-26T21:32:52.5Z ", kCollapse)),
              L"2001-10-26T21:32:52.5Z");
    EXPECT_EQ(C::dateToString(C::dateFromString(L"2000-02-29", kNone)), L"2000-02-29");
    EXPECT_EQ(C::timeToString(C::timeFromString(L"\t21:32:52+02:00", kCollapse)), L"21:32:52+02:00");
    EXPECT_EQ(C::yearMonthToString(C::yearMonthFromString(L"-0005-12", kNone)), L"-0005-12");
    EXPECT_EQ(C::monthDayToString(C::monthDayFromString(L"--02-29", kNone)), L"--02-29");
    EXPECT_EQ(C::datetimeToString(C::datetimeFromString(L"2001-10-26T21:32:52", kNone), L"x"),
              L"Unknown Format: x");
    EXPECT_EQ(C::durationToString(C::durationFromString(L" -P1Y2MT3H4.5S ", kCollapse)), L"-P1Y2MT3H4.5S");

    const Failure failures[] = {
        {Collapsing(C::datetimeFromString), L"2001-10-26",
         L"The value [2001-10-26] can not be converted to a datetime"},
        {Collapsing(C::yearMonthFromString), L"2001",
         L"The value [2001] can not be converted to a yearMonth"},
        {Collapsing(C::monthDayFromString), L"--02", L"The value [--02] can not be converted to a monthDay"},
        {Collapsing(C::dateFromString), L"2001-02-29", L"Invalid Day [29] (1 <= day <= days in month)"},
        {Collapsing(C::durationFromString), L"PT1.0000000001S",
         L"Invalid XSD Duration [PT1.0000000001S] Fraction part too long"},
    };
    for (const Failure& f : failures)
        EXPECT_EQ(FailureOf([&] { f.parse(f.text); }), f.message) << f.text;
}

TEST(ConversionsNumbers, DecimalAndIntegerKeepEveryDigit) {
    CDecimal coordinate = C::decimalFromString(L" 47.6443212345678901234567890123 ", kCollapse);
    EXPECT_EQ(C::decimalToString(coordinate), L"47.6443212345678901234567890123");
    EXPECT_EQ(C::decimalToString(C::decimalFromString(L"1.005", kNone), L"2"), L"1.01");
    EXPECT_EQ(C::decimalToString(C::decimalFromString(L"-1.5", kNone), L"3"), L"-1.500");
    EXPECT_EQ(C::decimalToString(C::decimalFromString(L"2.50", kNone), L""), L"2.5");
    EXPECT_EQ(C::integerToString(C::integerFromString(L"\n-123456789012345678901234567890 ", kCollapse)),
              L"-123456789012345678901234567890");
    EXPECT_EQ(FailureOf([] { C::decimalFromString(L"12a", kNone); }),
              L"The string representing a Decimal, contained an invalid char at position 2 [12a].");
    for (const wchar_t* format : {L"x", L"-1", L"2.5", L"12345"}) {
        try {
            C::decimalToString(CDecimal(1), format);
            ADD_FAILURE() << "no exception for " << format;
        } catch (const CQxInvalidParamException& e) {
            EXPECT_EQ(e.GetMessage(), std::wstring(L"Invalid decimal format [") + format + L"]");
        }
    }
}
