#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <cstdarg>
#include <cstdio>
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

// Text in the current C locale's multibyte encoding; unconvertible characters become '?'.
QX_API std::string UnicodeToMultiByte(const wchar_t* text);
// Upper-cases in place with toupper and returns its argument.
QX_API char* strupr(char* text);
// Length of an open file in bytes, or -1 when it cannot be determined. The position is kept.
QX_API long _filelength(FILE* file);

} // namespace QxXmlLib16
