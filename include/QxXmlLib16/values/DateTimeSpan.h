#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

// An xs:duration: magnitudes of years, months, days, hours, minutes, seconds and a fraction of a second
// kept as given (90 minutes stay 90 minutes), with one sign for the whole span.
class QX_API CDateTimeSpan {
public:
    CDateTimeSpan();
    CDateTimeSpan(unsigned long long days, unsigned long long minutes, unsigned long long seconds);
    CDateTimeSpan(unsigned short years, unsigned long long months, unsigned long long days,
                  unsigned long long hours, unsigned long long minutes, unsigned long long seconds,
                  unsigned short milli, unsigned short micro, unsigned short nano, bool negative);
    CDateTimeSpan(const CDateTimeSpan& other) = default;
    CDateTimeSpan& operator=(const CDateTimeSpan& other) = default;

    void SetDateTimeSpan(unsigned long long days, unsigned long long minutes, unsigned long long seconds);
    // The fraction parts must each lie in 0..999 (CQxInvalidValueException otherwise).
    void SetDateTimeSpan(unsigned short years, unsigned long long months, unsigned long long days,
                         unsigned long long hours, unsigned long long minutes, unsigned long long seconds,
                         unsigned short milli, unsigned short micro, unsigned short nano, bool negative);
    // Zero and positive.
    void Clear();

    unsigned short GetYears() const { return m_years; }
    unsigned long long GetMonths() const { return m_months; }
    unsigned long long GetDays() const { return m_days; }
    unsigned long long GetHours() const { return m_hours; }
    unsigned long long GetMinutes() const { return m_minutes; }
    unsigned long long GetSeconds() const { return m_seconds; }
    unsigned short GetMilliSeconds() const { return m_milli; }
    unsigned short GetMicroSeconds() const { return m_micro; }
    unsigned short GetNanoSeconds() const { return m_nano; }
    bool IsNegative() const { return m_negative; }

    void SetYears(unsigned short years) { m_years = years; }
    void SetMonths(unsigned long long months) { m_months = months; }
    void SetDays(unsigned long long days) { m_days = days; }
    void SetHours(unsigned long long hours) { m_hours = hours; }
    void SetMinutes(unsigned long long minutes) { m_minutes = minutes; }
    void SetSeconds(unsigned long long seconds) { m_seconds = seconds; }
    // 0..999 each, CQxInvalidValueException otherwise.
    void SetMilliSeconds(unsigned short milli);
    void SetMicroSeconds(unsigned short micro);
    void SetNanoSeconds(unsigned short nano);

    void Negate() { m_negative = !m_negative; }
    CDateTimeSpan GetAsNegative() const;

    // [-]P[nY][nM][nD][T[nH][nM][n[.fffffffff]S]] with at least one part after a 'T'. "P" alone is
    // read as zero, because ToString writes a zero span so. A number too large for its part is
    // malformed. Throws CQxInvalidValueException.
    static CDateTimeSpan ParseXSDDuration(const wchar_t* text);
    // Non-zero parts only, so a zero span is "P" (and "-P" when negative).
    std::wstring ToString() const;

    // The XML Schema partial order, with the result codes of CDateTime::CompareTo (0 equal, 1 less,
    // 2 greater, 3 indeterminate): both spans are added to the dateTimes 1696-09-01, 1697-02-01,
    // 1903-03-01 and 1903-07-01 (UTC), and the four comparisons must agree. P1M and P30D are
    // indeterminate; P1D equals PT24H. A span too large to add is indeterminate.
    int CompareTo(const CDateTimeSpan& other) const;
    // Each holds only for a determinate result.
    bool operator==(const CDateTimeSpan& other) const;
    bool operator!=(const CDateTimeSpan& other) const { return !(*this == other); }
    bool operator<(const CDateTimeSpan& other) const;
    bool operator>(const CDateTimeSpan& other) const;

private:
    unsigned short m_years;
    unsigned long long m_months;
    unsigned long long m_days;
    unsigned long long m_hours;
    unsigned long long m_minutes;
    unsigned long long m_seconds;
    unsigned short m_milli;
    unsigned short m_micro;
    unsigned short m_nano;
    bool m_negative;
};

} // namespace QxXmlLib16
