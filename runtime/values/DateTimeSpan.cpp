#include <QxXmlLib16/values/DateTimeSpan.h>

#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include "values/DateTimeText.h"

#include <climits>
#include <cwchar>

namespace QxXmlLib16 {

using namespace DateTimeText;

namespace {

unsigned short CheckedFraction(unsigned short value, const wchar_t* message) {
    if (value > 999) throw CQxInvalidValueException(FormatString(message, static_cast<int>(value)));
    return value;
}

const wchar_t* const kMilliMessage = L"Invalid Milli-Second [%d] (0 <= milli <= 999)";
const wchar_t* const kMicroMessage = L"Invalid Micro-Second [%d] (0 <= micro <= 999)";
const wchar_t* const kNanoMessage = L"Invalid Nano-Second [%d] (0 <= nano <= 999)";

// Reads at least one digit into value; false for none or for a number beyond 64 bits.
bool ReadNumber(const wchar_t*& p, const wchar_t* end, unsigned long long& value) {
    const wchar_t* start = p;
    value = 0;
    for (; p < end && IsDigit(*p); ++p) {
        const unsigned digit = static_cast<unsigned>(*p - L'0');
        if (value > (ULLONG_MAX - digit) / 10) return false;
        value = value * 10 + digit;
    }
    return p != start;
}

} // namespace

CDateTimeSpan::CDateTimeSpan() {
    Clear();
}

CDateTimeSpan::CDateTimeSpan(unsigned long long days, unsigned long long minutes,
                             unsigned long long seconds) {
    SetDateTimeSpan(days, minutes, seconds);
}

CDateTimeSpan::CDateTimeSpan(unsigned short years, unsigned long long months, unsigned long long days,
                             unsigned long long hours, unsigned long long minutes, unsigned long long seconds,
                             unsigned short milli, unsigned short micro, unsigned short nano, bool negative) {
    SetDateTimeSpan(years, months, days, hours, minutes, seconds, milli, micro, nano, negative);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned long long days, unsigned long long minutes,
                                    unsigned long long seconds) {
    SetDateTimeSpan(0, 0, days, 0, minutes, seconds, 0, 0, 0, false);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, unsigned long long months, unsigned long long days,
                                    unsigned long long hours, unsigned long long minutes,
                                    unsigned long long seconds, unsigned short milli, unsigned short micro,
                                    unsigned short nano, bool negative) {
    m_milli = CheckedFraction(milli, kMilliMessage);
    m_micro = CheckedFraction(micro, kMicroMessage);
    m_nano = CheckedFraction(nano, kNanoMessage);
    m_years = years;
    m_months = months;
    m_days = days;
    m_hours = hours;
    m_minutes = minutes;
    m_seconds = seconds;
    m_negative = negative;
}

void CDateTimeSpan::Clear() {
    SetDateTimeSpan(0, 0, 0, 0, 0, 0, 0, 0, 0, false);
}

void CDateTimeSpan::SetMilliSeconds(unsigned short milli) {
    m_milli = CheckedFraction(milli, kMilliMessage);
}

void CDateTimeSpan::SetMicroSeconds(unsigned short micro) {
    m_micro = CheckedFraction(micro, kMicroMessage);
}

void CDateTimeSpan::SetNanoSeconds(unsigned short nano) {
    m_nano = CheckedFraction(nano, kNanoMessage);
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const {
    CDateTimeSpan result(*this);
    result.Negate();
    return result;
}

CDateTimeSpan CDateTimeSpan::ParseXSDDuration(const wchar_t* text) {
    if (!text) throw CQxInvalidValueException(L"Invalid XSD Duration (Null String)");
    if (*text == L'\0') throw CQxInvalidValueException(L"Invalid XSD Duration (Empty String)");
    const wchar_t* p = text;
    const wchar_t* const end = text + std::wcslen(text);
    const auto malformed = [text]() {
        return CQxInvalidValueException(
            FormatString(L"Invalid XSD Duration [%ls] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", text));
    };

    CDateTimeSpan span;
    span.m_negative = p < end && *p == L'-';
    if (span.m_negative) ++p;
    if (p == end || *p++ != L'P') throw malformed();

    // Designators in their only allowed order; 'M' is months before the 'T' and minutes after it.
    static const wchar_t designators[] = {L'Y', L'M', L'D', L'H', L'M', L'S'};
    const std::size_t firstTimePart = 3, secondsPart = 5;
    unsigned long long values[6] = {};
    std::size_t next = 0;
    bool inTime = false;
    bool timePart = false;
    while (p < end) {
        if (*p == L'T') {
            if (inTime) throw malformed();
            inTime = true;
            next = firstTimePart;
            ++p;
            continue;
        }
        unsigned long long value = 0;
        if (!ReadNumber(p, end, value)) throw malformed();
        bool fraction = false;
        if (p < end && *p == L'.') {
            bool tooLong = false;
            int milli = 0, micro = 0, nano = 0;
            if (!ReadFraction(++p, end, tooLong, milli, micro, nano)) throw malformed();
            if (tooLong)
                throw CQxInvalidValueException(
                    FormatString(L"Invalid XSD Duration [%ls] Fraction part too long", text));
            span.m_milli = static_cast<unsigned short>(milli);
            span.m_micro = static_cast<unsigned short>(micro);
            span.m_nano = static_cast<unsigned short>(nano);
            fraction = true;
        }
        const std::size_t stop = inTime ? 6 : firstTimePart;
        while (next < stop && (p == end || designators[next] != *p))
            ++next;
        if (next == stop || (fraction && next != secondsPart) || (next == 0 && value > USHRT_MAX))
            throw malformed();
        values[next++] = value;
        timePart = timePart || inTime;
        ++p;
    }
    // "P" alone is what ToString writes for a zero span, so it reads back as one.
    if (inTime && !timePart) throw malformed();
    span.m_years = static_cast<unsigned short>(values[0]);
    span.m_months = values[1];
    span.m_days = values[2];
    span.m_hours = values[3];
    span.m_minutes = values[4];
    span.m_seconds = values[5];
    return span;
}

std::wstring CDateTimeSpan::ToString() const {
    // Sign, 'P', six parts of up to 20 digits with designators, 'T' and a nine-digit fraction.
    wchar_t buffer[2 + 6 * 21 + 1 + 10];
    wchar_t* out = buffer;
    if (m_negative) *out++ = L'-';
    *out++ = L'P';
    const auto put = [&out](unsigned long long value, wchar_t designator) {
        if (value == 0) return;
        out = WriteDigits(out, value, 1);
        *out++ = designator;
    };
    put(m_years, L'Y');
    put(m_months, L'M');
    put(m_days, L'D');
    const bool fraction = m_milli != 0 || m_micro != 0 || m_nano != 0;
    if (m_hours != 0 || m_minutes != 0 || m_seconds != 0 || fraction) {
        *out++ = L'T';
        put(m_hours, L'H');
        put(m_minutes, L'M');
        if (m_seconds != 0 || fraction) {
            out = WriteDigits(out, m_seconds, 1);
            out = WriteFraction(out, m_milli, m_micro, m_nano);
            *out++ = L'S';
        }
    }
    return std::wstring(buffer, out);
}

namespace {

// Wide enough for any duration added to any reference: the largest end instant is about 1e35 ns.
using Wide = __int128;

Wide FloorDiv(Wide a, Wide b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

// Days from 1970-01-01 to the first of a month of the proleptic Gregorian calendar, for any year.
Wide DaysToMonthStart(Wide year, int month) {
    if (month <= 2) --year;
    const Wide era = FloorDiv(year, 400);
    const Wide yearOfEra = year - era * 400;
    const int shiftedMonth = month > 2 ? month - 3 : month + 9;
    const Wide dayOfYear = (153 * shiftedMonth + 2) / 5;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

// The instant, in nanoseconds since 1970, that span reaches from the first of a month at midnight.
// Computed exactly rather than through CDateTime, whose years end at 9999, so that spans of any
// size still compare.
Wide EndInstant(int year, int month, const CDateTimeSpan& span) {
    const Wide sign = span.IsNegative() ? -1 : 1;
    const Wide months = static_cast<Wide>(year) * 12 + (month - 1) +
                        sign * (static_cast<Wide>(span.GetYears()) * 12 + span.GetMonths());
    const Wide endYear = FloorDiv(months, 12);
    const int endMonth = static_cast<int>(months - endYear * 12) + 1;
    const Wide seconds = static_cast<Wide>(span.GetDays()) * 86400 +
                         static_cast<Wide>(span.GetHours()) * 3600 +
                         static_cast<Wide>(span.GetMinutes()) * 60 + span.GetSeconds();
    const Wide nanos = seconds * 1000000000 + span.GetMilliSeconds() * 1000000 +
                       span.GetMicroSeconds() * 1000 + span.GetNanoSeconds();
    return DaysToMonthStart(endYear, endMonth) * 86400 * 1000000000 + sign * nanos;
}

} // namespace

int CDateTimeSpan::CompareTo(const CDateTimeSpan& other) const {
    // Months and years have no fixed length in days, so the order is the one that holds from all four
    // instants, chosen where month lengths and leap years differ most.
    static const int references[][2] = {{1696, 9}, {1697, 2}, {1903, 3}, {1903, 7}};
    int common = CDateTime::crIndeterminate;
    for (const auto& reference : references) {
        const Wide mine = EndInstant(reference[0], reference[1], *this);
        const Wide theirs = EndInstant(reference[0], reference[1], other);
        const int result = mine < theirs   ? CDateTime::crLess
                           : mine > theirs ? CDateTime::crGreater
                                           : CDateTime::crEqual;
        if (&reference != references && result != common) return CDateTime::crIndeterminate;
        common = result;
    }
    return common;
}

bool CDateTimeSpan::operator==(const CDateTimeSpan& other) const {
    return CompareTo(other) == CDateTime::crEqual;
}

bool CDateTimeSpan::operator<(const CDateTimeSpan& other) const {
    return CompareTo(other) == CDateTime::crLess;
}

bool CDateTimeSpan::operator>(const CDateTimeSpan& other) const {
    return CompareTo(other) == CDateTime::crGreater;
}

} // namespace QxXmlLib16
