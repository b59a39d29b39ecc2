#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace QxXmlLib16;

namespace {

CDateTimeSpan Span(const wchar_t* text) {
    return CDateTimeSpan::ParseXSDDuration(text);
}

std::string Narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

} // namespace

TEST(DateTimeSpanText, ReadsBackAsWritten) {
    const wchar_t* const texts[] = {L"P1Y2MT3H4.5S",
                                    L"-P3M",
                                    L"P",
                                    L"PT0.000000001S",
                                    L"P65535Y18446744073709551615M",
                                    L"-P1Y2M3DT4H5M6.007008009S"};
    for (const wchar_t* text : texts)
        EXPECT_EQ(text, Span(text).ToString());
    EXPECT_EQ(L"PT1S", Span(L"PT1.000S").ToString());
    EXPECT_EQ(L"P1Y", Span(L"P1YT0H").ToString());
    EXPECT_EQ(L"P1Y2MT3H4.5S", CDateTimeSpan(1, 2, 0, 3, 0, 4, 500, 0, 0, false).ToString());
    EXPECT_EQ(L"P3DT5M6S", CDateTimeSpan(3, 5, 6).ToString());
    EXPECT_EQ(L"-P3DT5M6S", CDateTimeSpan(3, 5, 6).GetAsNegative().ToString());
}

TEST(DateTimeSpanText, EveryPrefixIsReadWithinItsOwnBuffer) {
    const std::wstring text = L"-P1Y2M3DT4H5M6.007008009S";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        std::unique_ptr<wchar_t[]> prefix(new wchar_t[length + 1]);
        text.copy(prefix.get(), length);
        prefix[length] = L'\0';
        try {
            Span(prefix.get());
        } catch (const CQxInvalidValueException&) {
        }
    }
}

class DateTimeSpanParseError : public testing::TestWithParam<const wchar_t*> {};

TEST_P(DateTimeSpanParseError, RaisesTheExpectedForm) {
    const std::wstring text = GetParam();
    try {
        Span(text.c_str());
        FAIL() << "accepted " << Narrow(text);
    } catch (const CQxInvalidValueException& e) {
        EXPECT_EQ(L"Invalid XSD Duration [" + text + L"] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]",
                  e.GetMessage());
    }
}

INSTANTIATE_TEST_SUITE_P(Malformed, DateTimeSpanParseError,
                         testing::Values(L"1Y", L"-", L"-1D", L"P-1D", L"PT", L"P1YT", L"P1S", L"P1H",
                                         L"PT1D", L"P1M1Y", L"P1Y1Y", L"PT1H2H", L"P1DT1HT1M", L"P1.5D",
                                         L"PT1.5M", L"PT.5S", L"PT1.S", L"P1", L"P1D ", L" P1D", L"P65536Y",
                                         L"P18446744073709551616D"));

TEST(DateTimeSpanText, OtherErrors) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {nullptr, L"Invalid XSD Duration (Null String)"},
        {L"", L"Invalid XSD Duration (Empty String)"},
        {L"PT1.0000000001S", L"Invalid XSD Duration [PT1.0000000001S] Fraction part too long"},
    };
    for (const auto& c : cases) {
        try {
            Span(c.first);
            ADD_FAILURE() << "accepted";
        } catch (const CQxInvalidValueException& e) {
            EXPECT_EQ(c.second, e.GetMessage());
        }
    }
    CDateTimeSpan span;
    EXPECT_THROW(span.SetMilliSeconds(1000), CQxInvalidValueException);
    EXPECT_THROW(CDateTimeSpan(0, 0, 0, 0, 0, 0, 0, 0, 1000, false), CQxInvalidValueException);
}

TEST(DateTimeSpanOrder, FollowsTheXmlSchemaPartialOrder) {
    const struct {
        const wchar_t* a;
        const wchar_t* b;
        int expected;
    } cases[] = {
        {L"P1M", L"P30D", CDateTime::crIndeterminate},
        {L"P1D", L"PT24H", CDateTime::crEqual},
        {L"P1Y", L"P12M", CDateTime::crEqual},
        {L"P1Y", L"P364D", CDateTime::crGreater},
        {L"P1Y", L"P365D", CDateTime::crIndeterminate},
        {L"P1Y", L"P367D", CDateTime::crLess},
        {L"P1M", L"P27D", CDateTime::crGreater},
        {L"PT1S", L"PT1.000000001S", CDateTime::crLess},
        {L"-P1D", L"P", CDateTime::crLess},
        {L"-P1D", L"-PT25H", CDateTime::crGreater},
        {L"P1M", L"P28D", CDateTime::crIndeterminate}, // equal from February of a common year only
        // Beyond the years a date can hold, still ordered exactly.
        {L"P10439Y", L"P10439Y", CDateTime::crEqual},
        {L"P65535Y", L"P65535Y0M1D", CDateTime::crLess},
        {L"-P65535Y", L"P1D", CDateTime::crLess},
        {L"P18446744073709551615M", L"P18446744073709551615D", CDateTime::crGreater},
        {L"PT18446744073709551615H", L"P768614336404564650DT15H", CDateTime::crEqual},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Narrow(c.a) + " vs " + Narrow(c.b));
        const CDateTimeSpan a = Span(c.a), b = Span(c.b);
        EXPECT_EQ(c.expected, a.CompareTo(b));
        EXPECT_EQ(c.expected == CDateTime::crEqual, a == b);
        EXPECT_EQ(c.expected != CDateTime::crEqual, a != b);
        EXPECT_EQ(c.expected == CDateTime::crLess, a < b);
        EXPECT_EQ(c.expected == CDateTime::crGreater, a > b);
    }
}
