#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <string>

namespace QxXmlLib16 {

class CBinaryData;
class CBigInteger;
class CDateTime;
class CDateTimeSpan;
class CDecimal;

// Text forms of every primitive kind of the binding, in both directions. Each ...FromString first
// applies the whitespace rule; every failure is a CQxInvalidValueException whose message quotes the
// text as it was after the rule (the value-type parsers report their own messages).
class QX_API CConversions {
public:
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    // Base 10 with the C library's syntax (leading blanks and a '+' are accepted). i1 and i2 are
    // read as i4 first, ui1 and ui2 as ui4, so malformed text is reported under those names. i4 and
    // ui4 hold 32-bit values even where long is wider; an unsigned kind rejects negative values.
    static char i1FromString(const std::wstring& text, WhitespaceRule rule);
    static short i2FromString(const std::wstring& text, WhitespaceRule rule);
    static long i4FromString(const std::wstring& text, WhitespaceRule rule);
    static long long i8FromString(const std::wstring& text, WhitespaceRule rule);
    static unsigned char ui1FromString(const std::wstring& text, WhitespaceRule rule);
    static unsigned short ui2FromString(const std::wstring& text, WhitespaceRule rule);
    static unsigned long ui4FromString(const std::wstring& text, WhitespaceRule rule);
    static unsigned long long ui8FromString(const std::wstring& text, WhitespaceRule rule);

    static std::wstring i1ToString(char value);
    static std::wstring i2ToString(short value);
    static std::wstring i4ToString(long value);
    static std::wstring i8ToString(long long value);
    static std::wstring ui1ToString(unsigned char value);
    static std::wstring ui2ToString(unsigned short value);
    static std::wstring ui4ToString(unsigned long value);
    static std::wstring ui8ToString(unsigned long long value);

    // "NaN", "1.#QNAN" and "-NAN" are a quiet NaN, "INF" and "-INF" the infinities (exact case);
    // anything else must be consumed whole by wcstod.
    static float r4FromString(const std::wstring& text, WhitespaceRule rule);
    static double r8FromString(const std::wstring& text, WhitespaceRule rule);
    // NaN, infinities as "NaN", "INF", "-INF"; other values with the wide printf format, or with
    // "%.7g" (r4) and "%.16g" (r8) when it is empty.
    static std::wstring r4ToString(float value);
    static std::wstring r4ToString(float value, const std::wstring& format);
    static std::wstring r8ToString(double value);
    static std::wstring r8ToString(double value, const std::wstring& format);

    // "true", "false" in any case, "1" and "0".
    static bool booleanFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring booleanToString(bool value);
    // Exactly one character.
    static wchar_t charFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring charToString(wchar_t value);
    static std::wstring stringFromString(const std::wstring& text, WhitespaceRule rule);
    // The same, reusing the text's storage where the rule leaves it unchanged.
    static std::wstring stringFromString(std::wstring&& text, WhitespaceRule rule);
    static std::wstring stringToString(const std::wstring& value);

    // gYear, gMonth and gDay held as plain numbers, so a time zone cannot be kept and is refused:
    // year is a number up to 65535, month "--MM" (01 to 12), day "---DD" (01 to 31).
    static unsigned short yearFromString(const std::wstring& text, WhitespaceRule rule);
    static unsigned char monthFromString(const std::wstring& text, WhitespaceRule rule);
    static unsigned char dayFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring yearToString(unsigned short value);
    static std::wstring monthToString(unsigned char value);
    static std::wstring dayToString(unsigned char value);

    // Each parser accepts only its own kind of date or time. An empty format means the canonical
    // XML Schema form ("s").
    static CDateTime dateFromString(const std::wstring& text, WhitespaceRule rule);
    static CDateTime timeFromString(const std::wstring& text, WhitespaceRule rule);
    static CDateTime datetimeFromString(const std::wstring& text, WhitespaceRule rule);
    static CDateTime yearMonthFromString(const std::wstring& text, WhitespaceRule rule);
    static CDateTime monthDayFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring dateToString(const CDateTime& value, const std::wstring& format = std::wstring());
    static std::wstring timeToString(const CDateTime& value, const std::wstring& format = std::wstring());
    static std::wstring datetimeToString(const CDateTime& value, const std::wstring& format = std::wstring());
    static std::wstring yearMonthToString(const CDateTime& value,
                                          const std::wstring& format = std::wstring());
    static std::wstring monthDayToString(const CDateTime& value, const std::wstring& format = std::wstring());

    static CDateTimeSpan durationFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring durationToString(const CDateTimeSpan& value);

    static CBinaryData hexBinaryFromString(const std::wstring& text, WhitespaceRule rule);
    static CBinaryData base64BinaryFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring hexBinaryToString(const CBinaryData& value);
    static std::wstring base64BinaryToString(const CBinaryData& value);

    static CDecimal decimalFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring decimalToString(const CDecimal& value);
    // format is a count of fractional digits ("2" rounds half away from zero and pads to two
    // digits); an empty format gives the canonical text. Throws CQxInvalidParamException
    // "Invalid decimal format [%ls]" for anything but digits.
    static std::wstring decimalToString(const CDecimal& value, const std::wstring& format);

    static CBigInteger integerFromString(const std::wstring& text, WhitespaceRule rule);
    static std::wstring integerToString(const CBigInteger& value);
};

} // namespace QxXmlLib16
