#pragma once

#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

// Every field of a CDateTime as plain numbers; defined by the implementation.
struct DateTimeFields;

// Floor division and modulo of the XML Schema date arithmetic: GetQuotient(-1, 60) is -1 and
// GetModulo(-1, 60) is 59. The three-argument forms work on the range [low, high): GetModulo(13, 1, 13)
// is 1 and GetQuotient(13, 1, 13) is 1. A zero divisor (or low == high) throws CQxInvalidParamException.
QX_API long long GetQuotient(long long value, int divisor);
QX_API int GetModulo(long long value, int divisor);
QX_API long long GetQuotient(long long value, int low, int high);
QX_API int GetModulo(long long value, int low, int high);

// Gregorian leap year, counted as XML Schema 1.0 counts years: there is no year zero and -0001 is the
// year before 0001, so -0001, -0005, ... are leap years (they are the years 0, -4, ... of the
// proleptic calendar).
QX_API bool IsLeapYear(int year);

// One value of the XML Schema date and time types. The kind says which fields are meaningful; fields
// that the kind does not carry are zero, and getters and setters for them throw. Every value held is
// valid: constructors, setters and parsers validate before they store.
//
// Choices of this library:
// - Years run from -9999 to 9999 without zero (so they always print as four digits).
// - A zone is an offset of at most 14:00 either way. "Z" and "+00:00" are the same instant but print
//   as they were given: SetUTC() and "Z" give "Z", SetTimeZone(0, 0) and "+00:00" give "+00:00".
// - Hour 24 ("24:00:00") is not accepted; write the next day's 00:00:00.
class QX_API CDateTime {
public:
    enum DTType {
        dt_yearZero = 0, // not set
        dt_dateTime = 1,
        dt_date = 2,
        dt_gYearMonth = 3,
        dt_gYear = 4,
        dt_time = 5,
        dt_gDay = 6,
        dt_gMonth = 7,
        dt_gMonthDay = 8,
    };

    // Result of CompareTo. Values with a zone and values without one are ordered by the XML Schema
    // rule: the unzoned value may lie anywhere from -14:00 to +14:00, and when that range straddles
    // the other value the result is indeterminate. Values of different kinds are indeterminate, two
    // unset values are equal.
    enum CompareResult {
        crEqual = 0,
        crLess = 1,
        crGreater = 2,
        crIndeterminate = 3,
    };

    // Unset (dt_yearZero).
    CDateTime();
    // The kind with the fields of 1972-01-01T00:00:00 that it carries.
    explicit CDateTime(DTType kind);
    CDateTime(int year, int month, int day);
    CDateTime(int year, int month, int day, int hour, int minute, int second);
    CDateTime(int year, int month, int day, int hour, int minute, int second, int milli, int micro, int nano);
    // A UTC dateTime from seconds since 1970-01-01T00:00:00Z (negative values lie before).
    explicit CDateTime(long time);
    // ParseXSDDateTime.
    explicit CDateTime(const wchar_t* text);
    CDateTime(const CDateTime& other) = default;
    CDateTime& operator=(const CDateTime& other) = default;

    // The current time as a UTC dateTime to the second.
    static CDateTime GetCurrentTime();

    // The setters below set the kind and its fields and keep the zone.
    void SetDateTime(int year, int month, int day, int hour, int minute, int second);
    void SetDateTime(int year, int month, int day, int hour, int minute, int second, int milli, int micro,
                     int nano);
    // Any kind; the fields the kind does not carry are ignored.
    void SetDateTime(DTType kind, int year, int month, int day, int hour, int minute, int second,
                     int milli = 0, int micro = 0, int nano = 0);
    // Copies other's fields and zone as the given kind, after CheckConversion(other's kind, kind).
    void SetDateTime(const CDateTime& other, DTType kind);
    // Copy that keeps this kind: allowed when this value is unset or of other's kind, otherwise throws
    // CQxInvalidValueException "Failed to copy CDateTime. Invalid Date Type: ..., expected: ...".
    void Assign(const CDateTime& other);
    void SetDate(int year, int month, int day);
    void SetTime(int hour, int minute, int second);
    void SetTime(int hour, int minute, int second, int milli, int micro, int nano);
    void SetGYear(int year);
    void SetGYearMonth(int year, int month);
    void SetGMonth(int month);
    void SetGMonthDay(int month, int day);
    void SetGDay(int day);

    // Single fields of the current kind. The whole value is validated afterwards and left unchanged
    // when invalid, so SetDay(31) in February throws; change several fields at once with the setters
    // above.
    void SetYear(int year);
    void SetMonth(int month);
    void SetDay(int day);
    void SetHour(int hour);
    void SetMinute(int minute);
    void SetSecond(int second);
    void SetFracTime(int milli, int micro, int nano);
    void SetMilliSecond(int milli);
    void SetMicroSecond(int micro);
    void SetNanoSecond(int nano);

    // The zone of any kind. hour carries the sign of the offset, so SetTimeZone(-5, 30) is -05:30;
    // use SetZone(L"-00:30") for negative offsets under an hour.
    void SetTimeZone(int hour, int minute);
    void SetUTC();
    // "Z", "+hh:mm" or "-hh:mm"; an empty or null text removes the zone.
    void SetZone(const wchar_t* zone);
    // Unset again.
    void Clear();

    DTType GetType() const { return static_cast<DTType>(m_type); }
    std::wstring GetTypeAsString() const;
    // "yearZero", "dateTime", "date", ...; any other value throws CQxInvalidParamException.
    static std::wstring GetTypeAsString(DTType kind);

    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    // Seconds with their fraction.
    double GetRealSecond() const;
    int GetMilliSecond() const;
    int GetMicroSecond() const;
    int GetNanoSecond() const;
    // 1 for January 1st.
    int GetDayOfYear() const;
    // 0 for Sunday to 6 for Saturday, as the C library's tm_wday.
    int GetDayOfWeek() const;
    // Seconds since 1970-01-01T00:00:00Z of a dateTime or date (a date at its midnight); a value
    // without zone counts as UTC.
    long GetTime() const;
    // The zone hour carries the offset's sign, the minute is its magnitude.
    int GetZoneHour() const;
    int GetZoneMinute() const;
    bool IsUTC() const { return m_isUTC; }
    bool HasTimeZone() const { return m_hasZone; }
    // The value moved to UTC (zone "Z"). A dateTime moves its day with the time; a time wraps around
    // midnight; a date moves as its midnight does and keeps the date. The gYear, gMonth and gDay
    // family and values without a zone come back unchanged.
    CDateTime GetNormalized() const;

    // Any lexical form of the eight kinds; the kind follows from the text's shape.
    static CDateTime ParseXSDDateTime(const wchar_t* text);
    // Only the date form CCYY-MM-DD with an optional zone.
    static CDateTime ParseXSDDate(const wchar_t* text);
    // Only the time form hh:mm:ss[.fffffffff] with an optional zone.
    static CDateTime ParseXSDTime(const wchar_t* text);
    void SetXSDDate(const wchar_t* text) { *this = ParseXSDDate(text); }
    void SetXSDTime(const wchar_t* text) { *this = ParseXSDTime(text); }

    // Checks every meaningful field and the zone; throws CQxInvalidValueException.
    void Validate() const;
    // Throws CQxInvalidValueException unless a value of kind from carries every field kind to needs.
    static void CheckConversion(DTType from, DTType to);

    // "s": the XML Schema lexical form. "G": the same with a blank instead of the 'T' of a dateTime.
    // A null format counts as "s"; any other gives "Unknown Format: " and the format.
    std::wstring ToString() const;
    std::wstring ToString(const wchar_t* format) const;

    // Adds the duration by the XML Schema algorithm: months first (with the day clamped to the end of
    // the resulting month), then seconds, minutes, hours and days with carries. The zone and kind
    // stay; fields the kind does not carry are filled from 1972-01-01T00:00:00 (a leap year, so that
    // --02-29 keeps its day) and dropped again.
    // Throws CQxInvalidValueException when the year leaves its range, CQxInvalidStateException for an
    // unset value.
    void AddDateTimeSpan(const CDateTimeSpan& span);
    CDateTime& operator+=(const CDateTimeSpan& span);
    CDateTime& operator-=(const CDateTimeSpan& span);
    CDateTime operator+(const CDateTimeSpan& span) const;
    CDateTime operator-(const CDateTimeSpan& span) const;
    // The elapsed time from other to this as days, hours, minutes and seconds (months and years have
    // no fixed length); a value without zone counts as UTC here.
    CDateTimeSpan operator-(const CDateTime& other) const;

    CompareResult CompareTo(const CDateTime& other) const;
    // Each operator holds only for a determinate result: an indeterminate pair is neither equal,
    // less, nor greater, and only != holds.
    bool operator==(const CDateTime& other) const { return CompareTo(other) == crEqual; }
    bool operator!=(const CDateTime& other) const { return CompareTo(other) != crEqual; }
    bool operator<(const CDateTime& other) const { return CompareTo(other) == crLess; }
    bool operator>(const CDateTime& other) const { return CompareTo(other) == crGreater; }
    bool operator<=(const CDateTime& other) const;
    bool operator>=(const CDateTime& other) const;

private:
    // Every field, those the kind does not carry filled from 1972-01-01T00:00:00.
    DateTimeFields ToFields() const;
    // Validates fields for the kind, then stores the fields the kind carries and zeroes the others.
    void FromFields(DTType kind, const DateTimeFields& fields);
    // Throws CQxInvalidStateException with message (filled with the kind's name) unless the kind
    // carries the field.
    void RequireField(unsigned field, const wchar_t* message) const;
    void RequireField(unsigned field, const wchar_t* message, int value) const;
    // One field of the current kind, stored only when the whole value stays valid.
    void SetField(unsigned field, const wchar_t* message, int DateTimeFields::*member, int value);

    unsigned char m_type;
    short m_year;
    unsigned char m_month;
    unsigned char m_day;
    unsigned char m_hour;
    unsigned char m_minute;
    unsigned char m_second;
    unsigned short m_milli;
    unsigned short m_micro;
    unsigned short m_nano;
    // The signed offset in minutes; zone hour and minute are derived from it so that offsets such as
    // -00:30 keep their sign.
    short m_zoneOffset;
    bool m_hasZone;
    bool m_isUTC;
};

// a.CompareTo(b).
QX_API CDateTime::CompareResult Compare(const CDateTime& a, const CDateTime& b);

} // namespace QxXmlLib16
