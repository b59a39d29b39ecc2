#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <QxXmlLib16/foundation/Types.h>

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>

namespace QxXmlLib16 {

// Wide printf-style formatting with the C library's meaning of the conversions ("%ls" wide string,
// "%d" int, "%c" character). The output is sized before it is written, so it is never cut.
QX_API std::wstring FormatV(const wchar_t* format, va_list args);
QX_API std::wstring FormatString(const wchar_t* format, ...);

// Replaces every occurrence, always searching again from the start: a replacement that contains
// the searched text never ends, so callers must not pass one.
QX_API void FindReplace(std::string& text, const std::string& find, const std::string& replace);
QX_API void FindReplace(std::wstring& text, const std::wstring& find, const std::wstring& replace);

// value in decimal, zero-padded to width digits; a wider value is not cut.
QX_API std::wstring PadZero(int value, unsigned char width);
// Removes trailing '0' characters but never the first character ("500" gives "5", "000" gives "0").
QX_API std::wstring TrimTrainingZeros(std::wstring text);
// Fractional-seconds suffix of a time: (500, 0, 0) gives ".5", (1, 2, 30) gives ".00100203",
// all zero gives an empty string.
QX_API std::wstring ToFracString(unsigned short ms, unsigned short us, unsigned short ns);

// True when value matches the XML Schema pattern (UTF-8) as a whole. Throws CQxException
// "Invalid Regular Expression: ..." when the translated pattern does not compile.
QX_API bool TestRegEx(std::string pattern, std::wstring value);
// The same in either mode (see PatternMode). In pmExact mode a pattern outside the XML Schema grammar
// throws "Invalid Regular Expression: <pattern> Error: '<reason> (position <n>)'".
QX_API bool TestRegEx(std::string pattern, std::wstring value, PatternMode mode);

// Where and why a text is not an XML Schema regular expression: the position counts characters from
// 0 and points at the construct that is wrong.
struct CPatternError {
    size_t position;
    std::wstring reason;
};
// Checks a pattern against the grammar of XML Schema regular expressions, as pmExact mode reads
// them: nothing when it conforms, else the first error. Syntax of other dialects is refused with a
// reason that names it (reluctant quantifiers, "(?" groups, back-references, anchors such as \b).
// Beyond the grammar, it refuses what the matcher cannot take: a count above 65535 and nesting of
// groups and classes deeper than 64.
QX_API std::optional<CPatternError> CheckXmlSchemaPattern(const std::wstring& pattern);

// Text in the current C locale's multibyte encoding; unconvertible characters become '?'.
QX_API std::string UnicodeToMultiByte(const wchar_t* text);
// Upper-cases in place with toupper and returns its argument.
QX_API char* strupr(char* text);
// Length of an open file in bytes, or -1 when it cannot be determined. The position is kept.
QX_API long _filelength(FILE* file);

} // namespace QxXmlLib16
