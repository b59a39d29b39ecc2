#include <QxXmlLib16/values/DateTime.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include "values/DateTimeText.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <cwchar>

namespace QxXmlLib16 {

struct DateTimeFields {
    int year = 1972;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int milli = 0;
    int micro = 0;
    int nano = 0;
    int zoneOffset = 0; // minutes east of UTC
    bool hasZone = false;
    bool isUTC = false;
};

using namespace DateTimeText;

namespace {

const int kMinYear = -9999;
const int kMaxYear = 9999;
const int kMaxZoneMinutes = 14 * 60;
const long long kSecondsPerDay = 86400;
const int kNanosPerSecond = 1000000000;

// Which fields each kind carries; kTime stands for hour, minute, second and fraction.
enum Field : unsigned { kYear = 1, kMonth = 2, kDay = 4, kTime = 8 };
const unsigned kKindFields[] = {
    0,                             // yearZero
    kYear | kMonth | kDay | kTime, // dateTime
    kYear | kMonth | kDay,         // date
    kYear | kMonth,                // gYearMonth
    kYear,                         // gYear
    kTime,                         // time
    kDay,                          // gDay
    kMonth,                        // gMonth
    kMonth | kDay,                 // gMonthDay
};
const wchar_t* const kKindNames[] = {L"yearZero", L"dateTime", L"date",   L"gYearMonth", L"gYear",
                                     L"time",     L"gDay",     L"gMonth", L"gMonthDay"};
const int kKindCount = sizeof(kKindNames) / sizeof(kKindNames[0]);

const wchar_t* KindName(int kind) {
    if (kind < 0 || kind >= kKindCount)
        throw CQxInvalidParamException(FormatString(L"Unknown date type %d.", kind));
    return kKindNames[kind];
}

unsigned KindFields(int kind) {
    KindName(kind);
    return kKindFields[kind];
}

// XML Schema 1.0 years have no zero; the arithmetic runs on the proleptic calendar where -0001 is 0.
long long ToAstronomical(long long year) {
    return year < 0 ? year + 1 : year;
}
long long FromAstronomical(long long year) {
    return year <= 0 ? year - 1 : year;
}

bool IsAstronomicalLeapYear(long long year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInMonth(long long astronomicalYear, int month) {
    static const unsigned char days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsAstronomicalLeapYear(astronomicalYear) ? 29 : days[month - 1];
}

// Days from 1970-01-01 to the given day of the proleptic Gregorian calendar.
long long DaysFromCivil(long long year, int month, int day) {
    year -= month <= 2;
    const long long era = (year >= 0 ? year : year - 399) / 400;
    const long long yearOfEra = year - era * 400;
    const long long dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const long long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

void CivilFromDays(long long days, long long& year, int& month, int& day) {
    days += 719468;
    const long long era = (days >= 0 ? days : days - 146096) / 146097;
    const long long dayOfEra = days - era * 146097;
    const long long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const long long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const long long shiftedMonth = (5 * dayOfYear + 2) / 153;
    day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    year = yearOfEra + era * 400 + (month <= 2);
}

long long DaysOf(const DateTimeFields& f) {
    return DaysFromCivil(ToAstronomical(f.year), f.month, f.day);
}

long long SecondOfDay(const DateTimeFields& f) {
    return f.hour * 3600LL + f.minute * 60 + f.second;
}

int Nanos(const DateTimeFields& f) {
    return f.milli * 1000000 + f.micro * 1000 + f.nano;
}

void SetNanos(DateTimeFields& f, int nanos) {
    f.milli = nanos / 1000000;
    f.micro = nanos / 1000 % 1000;
    f.nano = nanos % 1000;
}

void SetSecondOfDay(DateTimeFields& f, long long seconds) {
    f.hour = static_cast<int>(seconds / 3600);
    f.minute = static_cast<int>(seconds / 60 % 60);
    f.second = static_cast<int>(seconds % 60);
}

// A point on one timeline for every kind: the missing fields are those of the defaults, and a value
// without zone counts as UTC.
struct Instant {
    long long seconds;
    int nanos;
};

Instant InstantOf(const DateTimeFields& f) {
    return {DaysOf(f) * kSecondsPerDay + SecondOfDay(f) - f.zoneOffset * 60LL, Nanos(f)};
}

CDateTime::CompareResult Order(long long aSeconds, int aNanos, long long bSeconds, int bNanos) {
    if (aSeconds != bSeconds) return aSeconds < bSeconds ? CDateTime::crLess : CDateTime::crGreater;
    if (aNanos != bNanos) return aNanos < bNanos ? CDateTime::crLess : CDateTime::crGreater;
    return CDateTime::crEqual;
}

void CheckRange(int value, int low, int high, const wchar_t* message) {
    if (value < low || value > high) throw CQxInvalidValueException(FormatString(message, value));
}

void CheckFields(unsigned fields, const DateTimeFields& f) {
    if (fields & kYear) {
        if (f.year == 0) throw CQxInvalidValueException(L"Invalid Year Zero");
        if (f.year < kMinYear || f.year > kMaxYear)
            throw CQxInvalidValueException(FormatString(L"Invalid Year [%d] (%d <= year <= %d && year != 0)",
                                                        f.year, kMinYear, kMaxYear));
    }
    if (fields & kMonth) CheckRange(f.month, 1, 12, L"Invalid Month [%d] (1 <= month <= 12)");
    if (fields & kDay) {
        if (fields & kMonth)
            // Without a year, February may have its 29th.
            CheckRange(f.day, 1, DaysInMonth((fields & kYear) ? ToAstronomical(f.year) : 2000, f.month),
                       L"Invalid Day [%d] (1 <= day <= days in month)");
        else
            CheckRange(f.day, 1, 31, L"Invalid Day [%d] (1 <= day <= 31)");
    }
    if (fields & kTime) {
        CheckRange(f.hour, 0, 23, L"Invalid Hour [%d] (0 <= hour <= 23)");
        CheckRange(f.minute, 0, 59, L"Invalid Minute [%d] (0 <= minute <= 59)");
        CheckRange(f.second, 0, 59, L"Invalid Second [%d] (0 <= second <= 59)");
        CheckRange(f.milli, 0, 999, L"Invalid Milli-Second [%d] (0 <= milli <= 999)");
        CheckRange(f.micro, 0, 999, L"Invalid Micro-Second [%d] (0 <= micro <= 999)");
        CheckRange(f.nano, 0, 999, L"Invalid Nano-Second [%d] (0 <= nano <= 999)");
    }
}

// Offset in minutes of the zone hour:minute; the hour carries the sign unless negative says so.
int ZoneOffset(int hour, int minute, bool negative) {
    if (hour < -14 || hour > 14 || minute < 0 || minute > 59 ||
        std::abs(hour) * 60 + minute > kMaxZoneMinutes)
        throw CQxInvalidValueException(FormatString(L"Invalid TimeZone [%d:%d]", hour, minute));
    const int offset = std::abs(hour) * 60 + minute;
    return negative || hour < 0 ? -offset : offset;
}

// ---- Reading the lexical forms ----

enum class ScanError { None, Shape, Zone, Fraction };

struct Cursor {
    const wchar_t* p;
    const wchar_t* end;

    bool At(wchar_t c) const { return p < end && *p == c; }
    bool Skip(wchar_t c) {
        if (!At(c)) return false;
        ++p;
        return true;
    }
    // A '-' here starts a zone rather than a further date field when it reads "-hh:".
    bool AtZone() const {
        return p < end && (*p == L'Z' || *p == L'+' || (*p == L'-' && end - p > 3 && p[3] == L':'));
    }
    bool AtDateField() const { return At(L'-') && !AtZone(); }
};

// [-]CCYY with at least four digits, more only without a leading zero.
bool ScanYear(Cursor& c, int& year) {
    const bool negative = c.Skip(L'-');
    const wchar_t* start = c.p;
    int value = 0;
    while (c.p < c.end && IsDigit(*c.p) && c.p - start < 9)
        value = value * 10 + (*c.p++ - L'0');
    const long digits = c.p - start;
    if (digits < 4 || (c.p < c.end && IsDigit(*c.p)) || (digits > 4 && *start == L'0')) return false;
    year = negative ? -value : value;
    return true;
}

ScanError ScanTime(Cursor& c, DateTimeFields& f) {
    if (!ReadTwoDigits(c.p, c.end, f.hour) || !c.Skip(L':') || !ReadTwoDigits(c.p, c.end, f.minute) ||
        !c.Skip(L':') || !ReadTwoDigits(c.p, c.end, f.second))
        return ScanError::Shape;
    if (!c.Skip(L'.')) return ScanError::None;
    bool tooLong = false;
    if (!ReadFraction(c.p, c.end, tooLong, f.milli, f.micro, f.nano)) return ScanError::Shape;
    return tooLong ? ScanError::Fraction : ScanError::None;
}

// The optional zone, which must end the text.
ScanError ScanZone(Cursor& c, DateTimeFields& f) {
    if (c.p == c.end) return ScanError::None;
    if (c.Skip(L'Z')) {
        f.hasZone = f.isUTC = true;
        return c.p == c.end ? ScanError::None : ScanError::Zone;
    }
    if (!c.At(L'+') && !c.At(L'-')) return ScanError::Shape;
    const bool negative = *c.p++ == L'-';
    int hour = 0, minute = 0;
    if (!ReadTwoDigits(c.p, c.end, hour) || !c.Skip(L':') || !ReadTwoDigits(c.p, c.end, minute) ||
        c.p != c.end)
        return ScanError::Zone;
    f.zoneOffset = ZoneOffset(negative ? -hour : hour, minute, negative);
    f.hasZone = true;
    return ScanError::None;
}

// CCYY-MM-DD, after which a 'T' may follow.
bool ScanDate(Cursor& c, DateTimeFields& f) {
    return ScanYear(c, f.year) && c.Skip(L'-') && ReadTwoDigits(c.p, c.end, f.month) && c.Skip(L'-') &&
           ReadTwoDigits(c.p, c.end, f.day);
}

// Any of the eight forms; kind tells how far the shape was recognised when an error is returned.
ScanError ScanAny(Cursor& c, DateTimeFields& f, CDateTime::DTType& kind) {
    const long length = c.end - c.p;
    if (length >= 3 && c.p[0] == L'-' && c.p[1] == L'-' && c.p[2] == L'-') {
        kind = CDateTime::dt_gDay;
        c.p += 3;
        return ReadTwoDigits(c.p, c.end, f.day) ? ScanZone(c, f) : ScanError::Shape;
    }
    if (length >= 2 && c.p[0] == L'-' && c.p[1] == L'-') {
        kind = CDateTime::dt_gMonth;
        c.p += 2;
        if (!ReadTwoDigits(c.p, c.end, f.month)) return ScanError::Shape;
        if (c.AtDateField()) {
            kind = CDateTime::dt_gMonthDay;
            ++c.p;
            if (!ReadTwoDigits(c.p, c.end, f.day)) return ScanError::Shape;
        }
        return ScanZone(c, f);
    }
    if (length >= 3 && IsDigit(c.p[0]) && IsDigit(c.p[1]) && c.p[2] == L':') {
        kind = CDateTime::dt_time;
        const ScanError error = ScanTime(c, f);
        return error != ScanError::None ? error : ScanZone(c, f);
    }
    kind = CDateTime::dt_gYear;
    if (!ScanYear(c, f.year)) return ScanError::Shape;
    if (c.AtDateField()) {
        kind = CDateTime::dt_gYearMonth;
        ++c.p;
        if (!ReadTwoDigits(c.p, c.end, f.month)) return ScanError::Shape;
        if (c.AtDateField()) {
            kind = CDateTime::dt_date;
            ++c.p;
            if (!ReadTwoDigits(c.p, c.end, f.day)) return ScanError::Shape;
            if (c.Skip(L'T')) {
                kind = CDateTime::dt_dateTime;
                const ScanError error = ScanTime(c, f);
                if (error != ScanError::None) return error;
            }
        }
    }
    return ScanZone(c, f);
}

[[noreturn]] void ThrowTimeError(ScanError error, const wchar_t* text) {
    switch (error) {
    case ScanError::Fraction:
        throw CQxInvalidValueException(FormatString(L"Invalid XSD Time [%ls] Fraction part too long", text));
    case ScanError::Zone:
        throw CQxInvalidValueException(FormatString(L"Invalid XSD Time Zone [%ls].", text));
    default:
        throw CQxInvalidValueException(FormatString(L"Invalid XSD Time [%ls] expected hh:mm:ss[.ff]", text));
    }
}

// ---- Writing the lexical forms ----

wchar_t* WriteYear(wchar_t* out, int year) {
    if (year < 0) *out++ = L'-';
    return WriteDigits(out, static_cast<unsigned>(std::abs(year)), 4);
}

wchar_t* WriteTime(wchar_t* out, const DateTimeFields& f) {
    out = WriteDigits(out, f.hour, 2);
    *out++ = L':';
    out = WriteDigits(out, f.minute, 2);
    *out++ = L':';
    out = WriteDigits(out, f.second, 2);
    return WriteFraction(out, f.milli, f.micro, f.nano);
}

wchar_t* WriteZone(wchar_t* out, const DateTimeFields& f) {
    if (!f.hasZone) return out;
    if (f.isUTC) {
        *out++ = L'Z';
        return out;
    }
    *out++ = f.zoneOffset < 0 ? L'-' : L'+';
    const int minutes = std::abs(f.zoneOffset);
    out = WriteDigits(out, minutes / 60, 2);
    *out++ = L':';
    return WriteDigits(out, minutes % 60, 2);
}

} // namespace

long long GetQuotient(long long value, int divisor) {
    if (divisor == 0) throw CQxInvalidParamException(L"Division by zero");
    const long long quotient = value / divisor;
    return (value % divisor != 0 && (value < 0) != (divisor < 0)) ? quotient - 1 : quotient;
}

int GetModulo(long long value, int divisor) {
    return static_cast<int>(value - GetQuotient(value, divisor) * divisor);
}

long long GetQuotient(long long value, int low, int high) {
    return GetQuotient(value - low, high - low);
}

int GetModulo(long long value, int low, int high) {
    return GetModulo(value - low, high - low) + low;
}

bool IsLeapYear(int year) {
    return IsAstronomicalLeapYear(ToAstronomical(year));
}

CDateTime::CDateTime()
    : m_type(dt_yearZero)
    , m_year(0)
    , m_month(0)
    , m_day(0)
    , m_hour(0)
    , m_minute(0)
    , m_second(0)
    , m_milli(0)
    , m_micro(0)
    , m_nano(0)
    , m_zoneOffset(0)
    , m_hasZone(false)
    , m_isUTC(false) {}

CDateTime::CDateTime(DTType kind)
    : CDateTime() {
    FromFields(kind, DateTimeFields());
}

CDateTime::CDateTime(int year, int month, int day)
    : CDateTime() {
    SetDate(year, month, day);
}

CDateTime::CDateTime(int year, int month, int day, int hour, int minute, int second)
    : CDateTime() {
    SetDateTime(year, month, day, hour, minute, second);
}

CDateTime::CDateTime(int year, int month, int day, int hour, int minute, int second, int milli, int micro,
                     int nano)
    : CDateTime() {
    SetDateTime(year, month, day, hour, minute, second, milli, micro, nano);
}

CDateTime::CDateTime(long time)
    : CDateTime() {
    DateTimeFields f;
    long long year = 0;
    CivilFromDays(GetQuotient(time, kSecondsPerDay), year, f.month, f.day);
    f.year = static_cast<int>(std::clamp<long long>(FromAstronomical(year), INT_MIN, INT_MAX));
    SetSecondOfDay(f, GetModulo(time, kSecondsPerDay));
    f.hasZone = f.isUTC = true;
    FromFields(dt_dateTime, f);
}

CDateTime::CDateTime(const wchar_t* text)
    : CDateTime(ParseXSDDateTime(text)) {}

CDateTime CDateTime::GetCurrentTime() {
    return CDateTime(static_cast<long>(std::time(nullptr)));
}

DateTimeFields CDateTime::ToFields() const {
    DateTimeFields f;
    const unsigned fields = kKindFields[m_type];
    if (fields & kYear) f.year = m_year;
    if (fields & kMonth) f.month = m_month;
    if (fields & kDay) f.day = m_day;
    if (fields & kTime) {
        f.hour = m_hour;
        f.minute = m_minute;
        f.second = m_second;
        f.milli = m_milli;
        f.micro = m_micro;
        f.nano = m_nano;
    }
    f.zoneOffset = m_zoneOffset;
    f.hasZone = m_hasZone;
    f.isUTC = m_isUTC;
    return f;
}

void CDateTime::FromFields(DTType kind, const DateTimeFields& f) {
    const unsigned fields = KindFields(kind);
    CheckFields(fields, f);
    const bool year = fields & kYear, month = fields & kMonth, day = fields & kDay, time = fields & kTime;
    m_type = static_cast<unsigned char>(kind);
    m_year = static_cast<short>(year ? f.year : 0);
    m_month = static_cast<unsigned char>(month ? f.month : 0);
    m_day = static_cast<unsigned char>(day ? f.day : 0);
    m_hour = static_cast<unsigned char>(time ? f.hour : 0);
    m_minute = static_cast<unsigned char>(time ? f.minute : 0);
    m_second = static_cast<unsigned char>(time ? f.second : 0);
    m_milli = static_cast<unsigned short>(time ? f.milli : 0);
    m_micro = static_cast<unsigned short>(time ? f.micro : 0);
    m_nano = static_cast<unsigned short>(time ? f.nano : 0);
    m_hasZone = f.hasZone;
    m_isUTC = f.hasZone && f.isUTC;
    m_zoneOffset = static_cast<short>(f.hasZone && !f.isUTC ? f.zoneOffset : 0);
}

void CDateTime::RequireField(unsigned field, const wchar_t* message) const {
    if ((kKindFields[m_type] & field) != field)
        throw CQxInvalidStateException(FormatString(message, kKindNames[m_type]));
}

void CDateTime::RequireField(unsigned field, const wchar_t* message, int value) const {
    if ((kKindFields[m_type] & field) != field)
        throw CQxInvalidStateException(FormatString(message, value, kKindNames[m_type]));
}

void CDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second) {
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second);
}

void CDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second, int milli,
                            int micro, int nano) {
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetDateTime(DTType kind, int year, int month, int day, int hour, int minute, int second,
                            int milli, int micro, int nano) {
    DateTimeFields f = ToFields();
    f.year = year;
    f.month = month;
    f.day = day;
    f.hour = hour;
    f.minute = minute;
    f.second = second;
    f.milli = milli;
    f.micro = micro;
    f.nano = nano;
    FromFields(kind, f);
}

void CDateTime::SetDateTime(const CDateTime& other, DTType kind) {
    CheckConversion(other.GetType(), kind);
    FromFields(kind, other.ToFields());
}

void CDateTime::Assign(const CDateTime& other) {
    if (m_type != dt_yearZero && m_type != other.m_type)
        throw CQxInvalidValueException(
            FormatString(L"Failed to copy CDateTime. Invalid Date Type: %ls, expected: %ls.",
                         kKindNames[other.m_type], kKindNames[m_type]));
    *this = other;
}

void CDateTime::SetDate(int year, int month, int day) {
    SetDateTime(dt_date, year, month, day, 0, 0, 0);
}

void CDateTime::SetTime(int hour, int minute, int second) {
    SetTime(hour, minute, second, 0, 0, 0);
}

void CDateTime::SetTime(int hour, int minute, int second, int milli, int micro, int nano) {
    SetDateTime(dt_time, 1972, 1, 1, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetGYear(int year) {
    SetDateTime(dt_gYear, year, 1, 1, 0, 0, 0);
}

void CDateTime::SetGYearMonth(int year, int month) {
    SetDateTime(dt_gYearMonth, year, month, 1, 0, 0, 0);
}

void CDateTime::SetGMonth(int month) {
    SetDateTime(dt_gMonth, 1972, month, 1, 0, 0, 0);
}

void CDateTime::SetGMonthDay(int month, int day) {
    SetDateTime(dt_gMonthDay, 1972, month, day, 0, 0, 0);
}

void CDateTime::SetGDay(int day) {
    SetDateTime(dt_gDay, 1972, 1, day, 0, 0, 0);
}

void CDateTime::SetField(unsigned field, const wchar_t* message, int DateTimeFields::*member, int value) {
    RequireField(field, message, value);
    DateTimeFields f = ToFields();
    f.*member = value;
    FromFields(GetType(), f);
}

void CDateTime::SetYear(int year) {
    SetField(kYear, L"Invalid Year [%d] for type %ls", &DateTimeFields::year, year);
}
void CDateTime::SetMonth(int month) {
    SetField(kMonth, L"Invalid Month [%d] for type %ls", &DateTimeFields::month, month);
}
void CDateTime::SetDay(int day) {
    SetField(kDay, L"Invalid Day [%d] for type %ls", &DateTimeFields::day, day);
}
void CDateTime::SetHour(int hour) {
    SetField(kTime, L"Invalid Hour [%d] for type %ls", &DateTimeFields::hour, hour);
}
void CDateTime::SetMinute(int minute) {
    SetField(kTime, L"Invalid Minute [%d] for type %ls", &DateTimeFields::minute, minute);
}
void CDateTime::SetSecond(int second) {
    SetField(kTime, L"Invalid Second [%d] for type %ls", &DateTimeFields::second, second);
}
void CDateTime::SetMilliSecond(int milli) {
    SetField(kTime, L"Invalid Milli-Second [%d] for type %ls", &DateTimeFields::milli, milli);
}
void CDateTime::SetMicroSecond(int micro) {
    SetField(kTime, L"Invalid Micro-Second [%d] for type %ls", &DateTimeFields::micro, micro);
}
void CDateTime::SetNanoSecond(int nano) {
    SetField(kTime, L"Invalid Nano-Second [%d] for type %ls", &DateTimeFields::nano, nano);
}

void CDateTime::SetFracTime(int milli, int micro, int nano) {
    RequireField(kTime, L"Invalid Milli-Second [%d] for type %ls", milli);
    DateTimeFields f = ToFields();
    f.milli = milli;
    f.micro = micro;
    f.nano = nano;
    FromFields(GetType(), f);
}

void CDateTime::SetTimeZone(int hour, int minute) {
    m_zoneOffset = static_cast<short>(ZoneOffset(hour, minute, false));
    m_hasZone = true;
    m_isUTC = false;
}

void CDateTime::SetUTC() {
    m_zoneOffset = 0;
    m_hasZone = m_isUTC = true;
}

void CDateTime::SetZone(const wchar_t* zone) {
    DateTimeFields f;
    Cursor c{zone, zone ? zone + std::wcslen(zone) : zone};
    if (ScanZone(c, f) != ScanError::None)
        throw CQxInvalidValueException(FormatString(L"Invalid XSD Time Zone [%ls].", zone));
    m_zoneOffset = static_cast<short>(f.zoneOffset);
    m_hasZone = f.hasZone;
    m_isUTC = f.isUTC;
}

void CDateTime::Clear() {
    *this = CDateTime();
}

std::wstring CDateTime::GetTypeAsString() const {
    return kKindNames[m_type];
}

std::wstring CDateTime::GetTypeAsString(DTType kind) {
    return KindName(kind);
}

int CDateTime::GetYear() const {
    RequireField(kYear, L"Failed to GetYear. Invalid Date Type: %ls.");
    return m_year;
}

int CDateTime::GetMonth() const {
    RequireField(kMonth, L"Failed to GetMonth. Invalid Date Type: %ls.");
    return m_month;
}

int CDateTime::GetDay() const {
    RequireField(kDay, L"Failed to GetDay. Invalid Date Type: %ls.");
    return m_day;
}

int CDateTime::GetHour() const {
    RequireField(kTime, L"Failed to GetHour. Invalid Date Type: %ls.");
    return m_hour;
}

int CDateTime::GetMinute() const {
    RequireField(kTime, L"Failed to GetMinute. Invalid Date Type: %ls.");
    return m_minute;
}

int CDateTime::GetSecond() const {
    RequireField(kTime, L"Failed to GetSecond. Invalid Date Type: %ls.");
    return m_second;
}

double CDateTime::GetRealSecond() const {
    RequireField(kTime, L"Failed to GetRealSecond. Invalid Date Type: %ls.");
    return m_second + Nanos(ToFields()) / 1e9;
}

int CDateTime::GetMilliSecond() const {
    RequireField(kTime, L"Failed to GetMilliSecond. Invalid Date Type: %ls.");
    return m_milli;
}

int CDateTime::GetMicroSecond() const {
    RequireField(kTime, L"Failed to GetMicroSecond. Invalid Date Type: %ls.");
    return m_micro;
}

int CDateTime::GetNanoSecond() const {
    RequireField(kTime, L"Failed to GetNanoSecond. Invalid Date Type: %ls.");
    return m_nano;
}

int CDateTime::GetDayOfYear() const {
    RequireField(kYear | kMonth | kDay, L"Failed to GetDayOfYear. Invalid Date Type: %ls.");
    const DateTimeFields f = ToFields();
    return static_cast<int>(DaysOf(f) - DaysFromCivil(ToAstronomical(f.year), 1, 1) + 1);
}

int CDateTime::GetDayOfWeek() const {
    RequireField(kYear | kMonth | kDay, L"Failed to GetDayOfWeek. Invalid Date Type: %ls.");
    // 1970-01-01 was a Thursday.
    return GetModulo(DaysOf(ToFields()) + 4, 7);
}

long CDateTime::GetTime() const {
    if (m_type != dt_dateTime && m_type != dt_date)
        throw CQxInvalidValueException(
            FormatString(L"Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: %ls.",
                         kKindNames[m_type]));
    return static_cast<long>(InstantOf(ToFields()).seconds);
}

int CDateTime::GetZoneHour() const {
    if (!m_hasZone) throw CQxInvalidStateException(L"TimeZone is not been used");
    return m_zoneOffset / 60;
}

int CDateTime::GetZoneMinute() const {
    if (!m_hasZone) throw CQxInvalidStateException(L"TimeZone is not been used");
    return std::abs(m_zoneOffset) % 60;
}

CDateTime CDateTime::GetNormalized() const {
    if (!m_hasZone || (m_type != dt_dateTime && m_type != dt_date && m_type != dt_time)) return *this;
    DateTimeFields f = ToFields();
    const long long seconds = InstantOf(f).seconds;
    long long year = 0;
    CivilFromDays(GetQuotient(seconds, kSecondsPerDay), year, f.month, f.day);
    f.year = static_cast<int>(FromAstronomical(year));
    // A date keeps its day count from the shifted midnight; dateTime and time take the shifted clock.
    if (m_type != dt_date) SetSecondOfDay(f, GetModulo(seconds, kSecondsPerDay));
    f.zoneOffset = 0;
    f.isUTC = true;
    CDateTime result;
    result.FromFields(GetType(), f);
    return result;
}

CDateTime CDateTime::ParseXSDDateTime(const wchar_t* text) {
    if (!text) throw CQxInvalidValueException(L"Invalid DateTime (Null String)");
    const std::size_t length = std::wcslen(text);
    Cursor c{text, text + length};
    DateTimeFields f;
    DTType kind = dt_yearZero;
    const ScanError error = ScanAny(c, f, kind);
    if (error == ScanError::Fraction || error == ScanError::Zone ||
        (error == ScanError::Shape && kind == dt_time))
        ThrowTimeError(error, text);
    if (error == ScanError::Shape) {
        if (kind == dt_dateTime || std::wmemchr(text, L'T', length))
            throw CQxInvalidValueException(
                FormatString(L"Invalid XSD DateTime [%ls] expected CCYY-MM-DDThh:mm:ss[.ff]", text));
        throw CQxInvalidValueException(FormatString(L"Invalid XSD DateTime [%ls].", text));
    }
    CDateTime result;
    result.FromFields(kind, f);
    return result;
}

CDateTime CDateTime::ParseXSDDate(const wchar_t* text) {
    if (!text) throw CQxInvalidValueException(L"Invalid Date (Null String)");
    const std::size_t length = std::wcslen(text);
    if (length == 0) throw CQxInvalidValueException(L"Invalid Date (Empty String)");
    if (std::wmemchr(text, L'T', length)) throw CQxInvalidValueException(L"Invalid Date ('T' not allowed)");
    Cursor c{text, text + length};
    DateTimeFields f;
    const ScanError error = ScanDate(c, f) ? ScanZone(c, f) : ScanError::Shape;
    if (error == ScanError::Zone) throw CQxInvalidValueException(L"Invalid Date (Bad Zone value)");
    if (error != ScanError::None)
        throw CQxInvalidValueException(
            FormatString(L"Invalid XSD Date [%ls] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text));
    CDateTime result;
    result.FromFields(dt_date, f);
    return result;
}

CDateTime CDateTime::ParseXSDTime(const wchar_t* text) {
    if (!text) throw CQxInvalidValueException(L"Invalid Time (Null String)");
    const std::size_t length = std::wcslen(text);
    if (length == 0) throw CQxInvalidValueException(L"Invalid XSD Time (Empty String)");
    Cursor c{text, text + length};
    DateTimeFields f;
    ScanError error = ScanTime(c, f);
    if (error == ScanError::None) error = ScanZone(c, f);
    if (error != ScanError::None) ThrowTimeError(error, text);
    CDateTime result;
    result.FromFields(dt_time, f);
    return result;
}

void CDateTime::Validate() const {
    const DateTimeFields f = ToFields();
    CheckFields(kKindFields[m_type], f);
    if (std::abs(f.zoneOffset) > kMaxZoneMinutes)
        throw CQxInvalidValueException(
            FormatString(L"Invalid TimeZone [%d:%d]", f.zoneOffset / 60, std::abs(f.zoneOffset) % 60));
}

void CDateTime::CheckConversion(DTType from, DTType to) {
    const unsigned needed = KindFields(to);
    if ((KindFields(from) & needed) != needed)
        throw CQxInvalidValueException(FormatString(
            L"Attempting to set a CDateTime of type %ls using an XmlDateTime of type %ls. The source "
            L"CDateTime does not contian enough data to allow the conversion.",
            KindName(to), KindName(from)));
}

std::wstring CDateTime::ToString() const {
    return ToString(L"s");
}

std::wstring CDateTime::ToString(const wchar_t* format) const {
    const bool general = format && std::wcscmp(format, L"G") == 0;
    if (format && !general && std::wcscmp(format, L"s") != 0)
        return std::wstring(L"Unknown Format: ") + format;
    if (m_type == dt_yearZero) return L"Error: Date Not Set";

    const DateTimeFields f = ToFields();
    wchar_t buffer[48];
    wchar_t* out = buffer;
    switch (m_type) {
    case dt_dateTime:
    case dt_date:
    case dt_gYearMonth:
    case dt_gYear:
        out = WriteYear(out, f.year);
        if (m_type == dt_gYear) break;
        *out++ = L'-';
        out = WriteDigits(out, f.month, 2);
        if (m_type == dt_gYearMonth) break;
        *out++ = L'-';
        out = WriteDigits(out, f.day, 2);
        if (m_type == dt_date) break;
        *out++ = general ? L' ' : L'T';
        out = WriteTime(out, f);
        break;
    case dt_time:
        out = WriteTime(out, f);
        break;
    case dt_gDay:
        *out++ = L'-';
        *out++ = L'-';
        *out++ = L'-';
        out = WriteDigits(out, f.day, 2);
        break;
    default: // gMonth, gMonthDay
        *out++ = L'-';
        *out++ = L'-';
        out = WriteDigits(out, f.month, 2);
        if (m_type == dt_gMonth) break;
        *out++ = L'-';
        out = WriteDigits(out, f.day, 2);
        break;
    }
    out = WriteZone(out, f);
    return std::wstring(buffer, out);
}

void CDateTime::AddDateTimeSpan(const CDateTimeSpan& span) {
    if (m_type == dt_yearZero)
        throw CQxInvalidStateException(L"Failed to AddDateTimeSpan. Invalid Date Type: yearZero.");
    // Every part of a span has the span's sign, so a part this large already carries the result far
    // past the year bounds on its own; capping it keeps the sums below in range.
    const long long sign = span.IsNegative() ? -1 : 1;
    const auto part = [sign](unsigned long long value) {
        return sign * static_cast<long long>(std::min<unsigned long long>(value, 10000000000000ULL));
    };
    DateTimeFields f = ToFields();

    long long temp = f.month + part(span.GetMonths());
    f.month = GetModulo(temp, 1, 13);
    long long year = ToAstronomical(f.year) + part(span.GetYears()) + GetQuotient(temp, 1, 13);

    temp = Nanos(f) + sign * (span.GetMilliSeconds() * 1000000LL + span.GetMicroSeconds() * 1000LL +
                              span.GetNanoSeconds());
    SetNanos(f, GetModulo(temp, kNanosPerSecond));
    long long carry = GetQuotient(temp, kNanosPerSecond);
    temp = f.second + part(span.GetSeconds()) + carry;
    f.second = GetModulo(temp, 60);
    carry = GetQuotient(temp, 60);
    temp = f.minute + part(span.GetMinutes()) + carry;
    f.minute = GetModulo(temp, 60);
    carry = GetQuotient(temp, 60);
    temp = f.hour + part(span.GetHours()) + carry;
    f.hour = GetModulo(temp, 24);
    carry = GetQuotient(temp, 24);

    // The day is clamped to the end of the month reached by the months, then days carry into months.
    long long day = std::min(f.day, DaysInMonth(year, f.month)) + part(span.GetDays()) + carry;
    // 400 Gregorian years are exactly 146097 days: whole cycles move the year without walking months.
    const long long cycles = GetQuotient(day - 1, 146097);
    day -= cycles * 146097;
    year += cycles * 400;
    for (int length = DaysInMonth(year, f.month); day > length; length = DaysInMonth(year, f.month)) {
        day -= length;
        temp = f.month + 1;
        f.month = GetModulo(temp, 1, 13);
        year += GetQuotient(temp, 1, 13);
    }
    f.day = static_cast<int>(day);
    f.year = static_cast<int>(std::clamp<long long>(FromAstronomical(year), INT_MIN, INT_MAX));
    FromFields(GetType(), f);
}

CDateTime& CDateTime::operator+=(const CDateTimeSpan& span) {
    AddDateTimeSpan(span);
    return *this;
}

CDateTime& CDateTime::operator-=(const CDateTimeSpan& span) {
    AddDateTimeSpan(span.GetAsNegative());
    return *this;
}

CDateTime CDateTime::operator+(const CDateTimeSpan& span) const {
    CDateTime result(*this);
    result.AddDateTimeSpan(span);
    return result;
}

CDateTime CDateTime::operator-(const CDateTimeSpan& span) const {
    CDateTime result(*this);
    result.AddDateTimeSpan(span.GetAsNegative());
    return result;
}

CDateTimeSpan CDateTime::operator-(const CDateTime& other) const {
    if (m_type == dt_yearZero || other.m_type == dt_yearZero)
        throw CQxInvalidStateException(L"Failed to subtract CDateTime. Invalid Date Type: yearZero.");
    const Instant a = InstantOf(ToFields());
    const Instant b = InstantOf(other.ToFields());
    long long seconds = a.seconds - b.seconds;
    int fraction = a.nanos - b.nanos;
    if (fraction < 0) {
        fraction += kNanosPerSecond;
        --seconds;
    }
    const bool negative = seconds < 0;
    if (negative && fraction != 0) {
        seconds = -seconds - 1;
        fraction = kNanosPerSecond - fraction;
    } else if (negative) {
        seconds = -seconds;
    }
    return CDateTimeSpan(
        0, 0, static_cast<unsigned long long>(seconds / kSecondsPerDay),
        static_cast<unsigned long long>(seconds / 3600 % 24),
        static_cast<unsigned long long>(seconds / 60 % 60), static_cast<unsigned long long>(seconds % 60),
        static_cast<unsigned short>(fraction / 1000000), static_cast<unsigned short>(fraction / 1000 % 1000),
        static_cast<unsigned short>(fraction % 1000), negative);
}

CDateTime::CompareResult CDateTime::CompareTo(const CDateTime& other) const {
    if (m_type != other.m_type) return crIndeterminate;
    if (m_type == dt_yearZero) return crEqual;
    const Instant a = InstantOf(ToFields());
    const Instant b = InstantOf(other.ToFields());
    if (m_hasZone == other.m_hasZone) return Order(a.seconds, a.nanos, b.seconds, b.nanos);
    // The value without zone stands for every instant from its +14:00 to its -14:00 reading; only
    // when the other value lies beyond that whole range is the order known. Either way round this
    // means widening the gap by 14 hours.
    const long long reach = kMaxZoneMinutes * 60LL;
    if (Order(a.seconds + reach, a.nanos, b.seconds, b.nanos) == crLess) return crLess;
    if (Order(a.seconds - reach, a.nanos, b.seconds, b.nanos) == crGreater) return crGreater;
    return crIndeterminate;
}

bool CDateTime::operator<=(const CDateTime& other) const {
    const CompareResult result = CompareTo(other);
    return result == crLess || result == crEqual;
}

bool CDateTime::operator>=(const CDateTime& other) const {
    const CompareResult result = CompareTo(other);
    return result == crGreater || result == crEqual;
}

CDateTime::CompareResult Compare(const CDateTime& a, const CDateTime& b) {
    return a.CompareTo(b);
}

} // namespace QxXmlLib16
