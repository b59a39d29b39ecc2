#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/DateTime.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>

using namespace QxXmlLib16;

namespace {

struct Case {
    const wchar_t* input;
    const wchar_t* expected;
};

std::string Narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

void PrintTo(const Case& c, std::ostream* out) {
    *out << (c.input ? Narrow(c.input) : "(null)");
}

CDateTime Parse(const wchar_t* text) {
    return CDateTime::ParseXSDDateTime(text);
}
CDateTimeSpan Span(const wchar_t* text) {
    return CDateTimeSpan::ParseXSDDuration(text);
}

} // namespace

TEST(DateTimeText, EveryKindReadsBackAsWritten) {
    const struct {
        const wchar_t* text;
        CDateTime::DTType kind;
    } cases[] = {
        {L"2000-01-12T12:13:14Z", CDateTime::dt_dateTime},
        {L"2007-10-10T12:34:56.123456789+14:00", CDateTime::dt_dateTime},
        {L"-0005-03-04T01:02:03.12-05:30", CDateTime::dt_dateTime},
        {L"2000-01-01T00:00:00+00:00", CDateTime::dt_dateTime},
        {L"2000-02-29", CDateTime::dt_date},
        {L"2000-01-05:00", CDateTime::dt_gYearMonth},
        {L"2000-05:00", CDateTime::dt_gYear},
        {L"-9999", CDateTime::dt_gYear},
        {L"23:59:59.000000001", CDateTime::dt_time},
        {L"---05Z", CDateTime::dt_gDay},
        {L"--07", CDateTime::dt_gMonth},
        {L"--02-29", CDateTime::dt_gMonthDay},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Narrow(c.text));
        const CDateTime value = Parse(c.text);
        EXPECT_EQ(c.kind, value.GetType());
        EXPECT_EQ(c.text, value.ToString());
    }
}

TEST(DateTimeText, WritesTheCanonicalFormOfLooserInput) {
    EXPECT_EQ(L"12:00:00.5", Parse(L"12:00:00.500").ToString());
    EXPECT_EQ(L"12:00:00", Parse(L"12:00:00.000").ToString());
    EXPECT_EQ(L"-0005", CDateTime(L"-0005").ToString());
    CDateTime gDay(CDateTime::dt_gDay), gMonth(CDateTime::dt_gMonth);
    gDay.SetGDay(5);
    gMonth.SetGMonth(7);
    EXPECT_EQ(L"---05", gDay.ToString());
    EXPECT_EQ(L"--07", gMonth.ToString());
}

TEST(DateTimeText, EveryPrefixIsReadWithinItsOwnBuffer) {
    const std::wstring texts[] = {L"-2000-01-12T12:13:14.123456789+14:00", L"--05-05:00", L"---05Z",
                                  L"23:59:59.5-00:30"};
    for (const std::wstring& text : texts)
        for (std::size_t length = 0; length <= text.size(); ++length) {
            // An exact-size heap copy, so that any read beyond the terminator is caught.
            std::unique_ptr<wchar_t[]> prefix(new wchar_t[length + 1]);
            text.copy(prefix.get(), length);
            prefix[length] = L'\0';
            for (const auto parse :
                 {&CDateTime::ParseXSDDateTime, &CDateTime::ParseXSDDate, &CDateTime::ParseXSDTime}) {
                try {
                    parse(prefix.get());
                } catch (const CQxInvalidValueException&) {
                }
            }
        }
}

TEST(DateTimeText, FormatsOtherThanSortableAndGeneral) {
    EXPECT_EQ(L"Error: Date Not Set", CDateTime().ToString());
    EXPECT_EQ(L"Unknown Format: x", Parse(L"2000-01-01").ToString(L"x"));
    EXPECT_EQ(L"2000-01-02 03:04:05Z", Parse(L"2000-01-02T03:04:05Z").ToString(L"G"));
    EXPECT_EQ(L"2000-01-02", Parse(L"2000-01-02").ToString(L"G"));
}

class DateTimeParseError : public testing::TestWithParam<std::tuple<int, Case>> {};

TEST_P(DateTimeParseError, RaisesItsMessage) {
    const int parser = std::get<0>(GetParam());
    const Case c = std::get<1>(GetParam());
    const auto parse = [&] {
        if (parser == 0) CDateTime::ParseXSDDateTime(c.input);
        if (parser == 1) CDateTime::ParseXSDDate(c.input);
        if (parser == 2) CDateTime::ParseXSDTime(c.input);
    };
    EXPECT_EQ(c.expected, MessageOf<CQxInvalidValueException>(parse));
}

const Case kDateTimeErrors[] = {
    {nullptr, L"Invalid DateTime (Null String)"},
    {L"", L"Invalid XSD DateTime []."},
    {L"200-01-01", L"Invalid XSD DateTime [200-01-01]."},
    {L"02000-01-01", L"Invalid XSD DateTime [02000-01-01]."},
    {L"2000-01-01 ", L"Invalid XSD DateTime [2000-01-01 ]."},
    {L"2000-01-01T12:00", L"Invalid XSD DateTime [2000-01-01T12:00] expected CCYY-MM-DDThh:mm:ss[.ff]"},
    {L"2000-01-01T12:00:00.",
     L"Invalid XSD DateTime [2000-01-01T12:00:00.] expected CCYY-MM-DDThh:mm:ss[.ff]"},
    {L"2000-01-01T12:00:00.1234567891",
     L"Invalid XSD Time [2000-01-01T12:00:00.1234567891] Fraction part too long"},
    {L"2000-01-01T12:00:00+1:00", L"Invalid XSD Time Zone [2000-01-01T12:00:00+1:00]."},
    {L"2000-01-01ZZ", L"Invalid XSD Time Zone [2000-01-01ZZ]."},
    {L"12:00", L"Invalid XSD Time [12:00] expected hh:mm:ss[.ff]"},
    {L"---5", L"Invalid XSD DateTime [---5]."},
    {L"--13", L"Invalid Month [13] (1 <= month <= 12)"},
    {L"2000-01-01T12:00:00+15:00", L"Invalid TimeZone [15:0]"},
    {L"2000-01-01T12:00:00-14:01", L"Invalid TimeZone [-14:1]"},
    {L"2000-01-01T24:00:00", L"Invalid Hour [24] (0 <= hour <= 23)"},
    {L"2000-01-01T00:00:60", L"Invalid Second [60] (0 <= second <= 59)"},
    {L"0000-01-01", L"Invalid Year Zero"},
    {L"10000", L"Invalid Year [10000] (-9999 <= year <= 9999 && year != 0)"},
    {L"2001-02-29", L"Invalid Day [29] (1 <= day <= days in month)"},
    {L"1900-02-29", L"Invalid Day [29] (1 <= day <= days in month)"},
    {L"--02-30", L"Invalid Day [30] (1 <= day <= days in month)"},
    {L"---32", L"Invalid Day [32] (1 <= day <= 31)"},
};
const Case kDateErrors[] = {
    {nullptr, L"Invalid Date (Null String)"},
    {L"", L"Invalid Date (Empty String)"},
    {L"2000-01-01T00:00:00", L"Invalid Date ('T' not allowed)"},
    {L"2000-01-01+5", L"Invalid Date (Bad Zone value)"},
    {L"2000-01", L"Invalid XSD Date [2000-01] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
};
const Case kTimeErrors[] = {
    {nullptr, L"Invalid Time (Null String)"},
    {L"", L"Invalid XSD Time (Empty String)"},
    {L"1:00:00", L"Invalid XSD Time [1:00:00] expected hh:mm:ss[.ff]"},
    {L"01:00:00.0000000000", L"Invalid XSD Time [01:00:00.0000000000] Fraction part too long"},
    {L"01:00:00Z+", L"Invalid XSD Time Zone [01:00:00Z+]."},
};
INSTANTIATE_TEST_SUITE_P(DateTime, DateTimeParseError,
                         testing::Combine(testing::Values(0), testing::ValuesIn(kDateTimeErrors)));
INSTANTIATE_TEST_SUITE_P(Date, DateTimeParseError,
                         testing::Combine(testing::Values(1), testing::ValuesIn(kDateErrors)));
INSTANTIATE_TEST_SUITE_P(Time, DateTimeParseError,
                         testing::Combine(testing::Values(2), testing::ValuesIn(kTimeErrors)));

TEST(DateTimeKinds, GettersAndSettersRefuseFieldsTheKindLacks) {
    const CDateTime time = Parse(L"10:00:00");
    const CDateTime gYear = Parse(L"2000");
    const std::pair<std::function<void()>, const wchar_t*> state[] = {
        {[&] { time.GetYear(); }, L"Failed to GetYear. Invalid Date Type: time."},
        {[&] { Parse(L"2000-01").GetDayOfYear(); },
         L"Failed to GetDayOfYear. Invalid Date Type: gYearMonth."},
        {[&] { gYear.GetMonth(); }, L"Failed to GetMonth. Invalid Date Type: gYear."},
        {[&] { gYear.GetZoneHour(); }, L"TimeZone is not been used"},
        {[&] { CDateTime(time).SetDay(3); }, L"Invalid Day [3] for type time"},
        {[&] { CDateTime().SetYear(2000); }, L"Invalid Year [2000] for type yearZero"},
        {[&] { CDateTime(gYear).SetNanoSecond(5); }, L"Invalid Nano-Second [5] for type gYear"},
    };
    for (const auto& c : state)
        EXPECT_EQ(c.second, MessageOf<CQxInvalidStateException>(c.first));
    EXPECT_EQ(L"Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: gYear.",
              MessageOf<CQxInvalidValueException>([&] { gYear.GetTime(); }));
    EXPECT_EQ(L"Unknown date type 9.",
              MessageOf<CQxInvalidParamException>([] { CDateTime(static_cast<CDateTime::DTType>(9)); }));
}

TEST(DateTimeKinds, SingleFieldSettersKeepTheValueValid) {
    CDateTime value(2000, 1, 31);
    EXPECT_EQ(L"Invalid Day [31] (1 <= day <= days in month)",
              MessageOf<CQxInvalidValueException>([&] { value.SetMonth(2); }));
    EXPECT_EQ(L"2000-01-31", value.ToString());
    value.SetDay(29);
    value.SetMonth(2);
    EXPECT_EQ(L"2000-02-29", value.ToString());
    EXPECT_EQ(L"Invalid TimeZone [3:60]",
              MessageOf<CQxInvalidValueException>([&] { value.SetTimeZone(3, 60); }));
    value.SetTimeZone(-5, 30);
    EXPECT_EQ(-5, value.GetZoneHour());
    EXPECT_EQ(30, value.GetZoneMinute());
    EXPECT_EQ(L"2000-02-29-05:30", value.ToString());
    value.SetZone(L"");
    EXPECT_FALSE(value.HasTimeZone());
}

TEST(DateTimeKinds, ConversionNeedsEveryTargetField) {
    const CDateTime dateTime = Parse(L"2000-03-04T05:06:07+01:00");
    CDateTime target;
    target.SetDateTime(dateTime, CDateTime::dt_gMonthDay);
    EXPECT_EQ(L"--03-04+01:00", target.ToString());
    EXPECT_EQ(
        L"Attempting to set a CDateTime of type date using an XmlDateTime of type gYearMonth. The source "
        L"CDateTime does not contian enough data to allow the conversion.",
        MessageOf<CQxInvalidValueException>(
            [&] { target.SetDateTime(Parse(L"2000-03"), CDateTime::dt_date); }));
    EXPECT_EQ(L"Failed to copy CDateTime. Invalid Date Type: dateTime, expected: gMonthDay.",
              MessageOf<CQxInvalidValueException>([&] { target.Assign(dateTime); }));
    CDateTime unset;
    unset.Assign(dateTime);
    EXPECT_EQ(dateTime.ToString(), unset.ToString());
}

TEST(DateTimeCalendar, LeapYearsAndDayNumbers) {
    EXPECT_FALSE(IsLeapYear(1900));
    EXPECT_TRUE(IsLeapYear(2000));
    EXPECT_TRUE(IsLeapYear(2004));
    EXPECT_TRUE(IsLeapYear(-1)); // the year before 0001
    EXPECT_FALSE(IsLeapYear(-4));
    EXPECT_NO_THROW(Parse(L"-0001-02-29"));
    EXPECT_EQ(4, Parse(L"1970-01-01").GetDayOfWeek()); // Thursday
    EXPECT_EQ(6, Parse(L"2000-01-01T10:00:00").GetDayOfWeek());
    EXPECT_EQ(366, Parse(L"2000-12-31").GetDayOfYear());
    EXPECT_EQ(60, Parse(L"2001-03-01").GetDayOfYear());
    EXPECT_EQ(946684800L, Parse(L"2000-01-01T00:00:00Z").GetTime());
    EXPECT_EQ(946684800L, Parse(L"2000-01-01T01:00:00+01:00").GetTime());
    EXPECT_EQ(L"2000-01-01T00:00:00Z", CDateTime(946684800L).ToString());
    EXPECT_EQ(L"1969-12-31T23:59:59Z", CDateTime(-1L).ToString());
    EXPECT_DOUBLE_EQ(7.25, Parse(L"00:00:07.25").GetRealSecond());
}

TEST(DateTimeArithmetic, AddsDurationsAsXmlSchemaDoes) {
    const Case cases[] = {
        {L"2000-01-12T12:13:14Z P1Y3M5DT7H10M3.3S", L"2001-04-17T19:23:17.3Z"},
        {L"2000-01 -P3M", L"1999-10"},
        {L"2000-01-31 P1M", L"2000-02-29"},
        {L"2001-01-31 P1M", L"2001-02-28"},
        {L"2000-03-31 -P1M", L"2000-02-29"},
        {L"2000-02-28 P1D", L"2000-02-29"},
        {L"1900-02-28 P1D", L"1900-03-01"},
        {L"0001-01-01T00:00:00 -PT0.000000001S", L"-0001-12-31T23:59:59.999999999"},
        {L"-0001-12-31 P1D", L"0001-01-01"},
        {L"2000-01-01 P1000000D", L"4737-11-28"},
        {L"4737-11-28 -P1000000D", L"2000-01-01"},
        {L"23:30:00+02:00 PT1H", L"00:30:00+02:00"},
        {L"--01-31 P1M", L"--02-29"},
    };
    for (const Case& c : cases) {
        const std::wstring input = c.input;
        const std::size_t blank = input.find(L' ');
        SCOPED_TRACE(Narrow(input));
        const CDateTime start = Parse(input.substr(0, blank).c_str());
        const CDateTimeSpan span = Span(input.substr(blank + 1).c_str());
        EXPECT_EQ(c.expected, (start + span).ToString());
    }
    EXPECT_EQ(L"Invalid Year [10000] (-9999 <= year <= 9999 && year != 0)",
              MessageOf<CQxInvalidValueException>([] { Parse(L"9999-12-31") + Span(L"P1D"); }));
    EXPECT_THROW(Parse(L"2000") + Span(L"P18446744073709551615D"), CQxInvalidValueException);
    EXPECT_THROW(Parse(L"2000") - Span(L"PT18446744073709551615S"), CQxInvalidValueException);
    EXPECT_THROW(CDateTime() + Span(L"P1D"), CQxInvalidStateException);
}

TEST(DateTimeArithmetic, DifferenceIsTheElapsedTime) {
    EXPECT_EQ(L"P1DT11H59M59.5S",
              (Parse(L"2000-03-01T00:00:00Z") - Parse(L"2000-02-28T12:00:00.5Z")).ToString());
    EXPECT_EQ(L"-PT0.5S", (Parse(L"2000-01-01T00:00:00Z") - Parse(L"2000-01-01T00:00:00.5Z")).ToString());
    EXPECT_EQ(L"PT1H", (Parse(L"2000-01-01T00:00:00Z") - Parse(L"2000-01-01T00:00:00+01:00")).ToString());
    EXPECT_EQ(L"P7304118D", (Parse(L"9999-12-31") - Parse(L"-9999-01-01")).ToString());
}

TEST(DateTimeOrder, FollowsTheXmlSchemaPartialOrder) {
    const struct {
        const wchar_t* a;
        const wchar_t* b;
        CDateTime::CompareResult expected;
    } cases[] = {
        {L"2000-01-15T00:00:00", L"2000-02-15T00:00:00", CDateTime::crLess},
        {L"2000-01-16T12:00:00Z", L"2000-01-15T12:00:00", CDateTime::crGreater},
        {L"2000-01-01T12:00:00", L"1999-12-31T23:00:00Z", CDateTime::crIndeterminate},
        {L"2000-01-16T12:00:00", L"2000-01-16T12:00:00Z", CDateTime::crIndeterminate},
        {L"2000-01-16T00:00:00Z", L"2000-01-16T14:00:00", CDateTime::crIndeterminate},
        {L"2000-01-16T00:00:00Z", L"2000-01-16T14:00:01", CDateTime::crLess},
        {L"2000-01-01T12:00:00Z", L"2000-01-01T13:00:00+01:00", CDateTime::crEqual},
        {L"2000-01-01T12:00:00.000000001Z", L"2000-01-01T12:00:00Z", CDateTime::crGreater},
        {L"-0001-12-31", L"0001-01-01", CDateTime::crLess},
        {L"--02-29", L"--03-01", CDateTime::crLess},
        {L"23:00:00-01:00", L"00:00:00Z", CDateTime::crGreater},
        {L"2000-01-01", L"2000-01-01T00:00:00", CDateTime::crIndeterminate},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Narrow(c.a) + " vs " + Narrow(c.b));
        const CDateTime a = Parse(c.a), b = Parse(c.b);
        EXPECT_EQ(c.expected, Compare(a, b));
        EXPECT_EQ(c.expected == CDateTime::crEqual, a == b);
        EXPECT_EQ(c.expected == CDateTime::crLess, a < b);
        EXPECT_EQ(c.expected == CDateTime::crGreater, a > b);
        EXPECT_EQ(c.expected == CDateTime::crLess || c.expected == CDateTime::crEqual, a <= b);
    }
    EXPECT_EQ(CDateTime::crEqual, CDateTime().CompareTo(CDateTime()));
}

TEST(DateTimeOrder, NormalizedValuesAreInUtc) {
    const Case cases[] = {
        {L"2000-03-04T23:00:00+03:00", L"2000-03-04T20:00:00Z"},
        {L"01:00:00+02:00", L"23:00:00Z"},
        {L"2000-01-01+05:00", L"1999-12-31Z"},
        {L"2000-01-01T10:00:00", L"2000-01-01T10:00:00"},
        {L"2000-05:00", L"2000-05:00"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, Parse(c.input).GetNormalized().ToString());
}
