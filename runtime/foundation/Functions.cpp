#include <QxXmlLib16/foundation/Functions.h>

#include "foundation/Patterns.h"

#include <cctype>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>

namespace QxXmlLib16 {

namespace {

// Room for any integer, pointer or character conversion before width and precision are added.
constexpr size_t kNumericAllowance = 64;

enum class ArgSize { Default, Char, Short, Long, LongLong, LongDouble, SizeT, IntMax, PtrDiff };

int ReadNumber(const wchar_t*& p) {
    int value = 0;
    while (*p >= L'0' && *p <= L'9') {
        if (value < INT_MAX / 10) value = value * 10 + (*p - L'0');
        ++p;
    }
    return value;
}

// Consumes one integer argument of the given size.
void SkipInteger(va_list& args, ArgSize size) {
    switch (size) {
    case ArgSize::Long:
        (void)va_arg(args, long);
        break;
    case ArgSize::LongLong:
        (void)va_arg(args, long long);
        break;
    case ArgSize::SizeT:
        (void)va_arg(args, size_t);
        break;
    case ArgSize::IntMax:
        (void)va_arg(args, intmax_t);
        break;
    case ArgSize::PtrDiff:
        (void)va_arg(args, ptrdiff_t);
        break;
    default:
        (void)va_arg(args, int);
        break;
    }
}

// Upper bound of the characters vswprintf will write for this format and these arguments.
size_t MeasureFormat(const wchar_t* format, va_list& args) {
    size_t total = 0;
    for (const wchar_t* p = format; *p;) {
        if (*p != L'%') {
            ++total;
            ++p;
            continue;
        }
        ++p;
        if (*p == L'%') {
            ++total;
            ++p;
            continue;
        }
        while (*p && std::wcschr(L"#+- 0", *p))
            ++p;
        int width = 0;
        if (*p == L'*') {
            width = va_arg(args, int);
            ++p;
        } else {
            width = ReadNumber(p);
        }
        if (width < 0) width = -width; // a negative '*' width means left-justified
        int precision = -1;
        if (*p == L'.') {
            ++p;
            if (*p == L'*') {
                precision = va_arg(args, int);
                ++p;
            } else {
                precision = ReadNumber(p);
            }
        }
        ArgSize size = ArgSize::Default;
        for (bool more = true; more && *p;) {
            switch (*p) {
            case L'h':
                size = size == ArgSize::Short ? ArgSize::Char : ArgSize::Short;
                break;
            case L'l':
                size = size == ArgSize::Long ? ArgSize::LongLong : ArgSize::Long;
                break;
            case L'q':
                size = ArgSize::LongLong;
                break;
            case L'L':
                size = ArgSize::LongDouble;
                break;
            case L'z':
                size = ArgSize::SizeT;
                break;
            case L'j':
                size = ArgSize::IntMax;
                break;
            case L't':
                size = ArgSize::PtrDiff;
                break;
            case L'F':
            case L'N':
                break; // historic far/near pointer prefixes: no meaning here
            default:
                more = false;
                continue;
            }
            ++p;
        }
        const size_t padding = static_cast<size_t>(width) + (precision > 0 ? precision : 0);
        const wchar_t conversion = *p;
        if (conversion) ++p;
        switch (conversion) {
        case L's':
        case L'S': {
            size_t length = 0;
            if (size == ArgSize::Long || conversion == L'S') {
                const wchar_t* s = va_arg(args, const wchar_t*);
                length = s ? std::wcslen(s) : 6; // "(null)"
            } else {
                const char* s = va_arg(args, const char*);
                length = s ? std::strlen(s) : 6;
            }
            total += length > static_cast<size_t>(width) ? length : width;
            break;
        }
        case L'f': {
            const int digits = precision < 0 ? 6 : precision;
            int length = size == ArgSize::LongDouble
                             ? std::snprintf(nullptr, 0, "%*.*Lf", width, digits, va_arg(args, long double))
                             : std::snprintf(nullptr, 0, "%*.*f", width, digits, va_arg(args, double));
            total += length > 0 ? length : 0;
            break;
        }
        case L'e':
        case L'E':
        case L'g':
        case L'G':
        case L'a':
        case L'A':
            if (size == ArgSize::LongDouble)
                (void)va_arg(args, long double);
            else
                (void)va_arg(args, double);
            total += kNumericAllowance + padding;
            break;
        case L'c':
        case L'C':
            if (size == ArgSize::Long || conversion == L'C')
                (void)va_arg(args, wint_t);
            else
                (void)va_arg(args, int);
            total += kNumericAllowance + padding;
            break;
        case L'p':
        case L'n':
            (void)va_arg(args, void*);
            total += kNumericAllowance + padding;
            break;
        case L'd':
        case L'i':
        case L'o':
        case L'u':
        case L'x':
        case L'X':
            SkipInteger(args, size);
            total += kNumericAllowance + padding;
            break;
        default:
            total += kNumericAllowance + padding;
            break; // unknown: copied or rejected, never longer
        }
    }
    return total;
}

template <typename String>
void FindReplaceAll(String& text, const String& find, const String& replace) {
    if (find.empty()) return;
    for (auto pos = text.find(find); pos != String::npos; pos = text.find(find))
        text.replace(pos, find.size(), replace);
}

} // namespace

std::wstring FormatV(const wchar_t* format, va_list args) {
    if (!format) return std::wstring();
    va_list measured;
    va_copy(measured, args);
    const size_t bound = MeasureFormat(format, measured);
    va_end(measured);

    std::wstring result(bound + 1, L'\0');
    va_list written;
    va_copy(written, args);
    const int length = std::vswprintf(&result[0], result.size(), format, written);
    va_end(written);
    // On an encoding error vswprintf may leave a partial text: keep what ends before its terminator.
    result.resize(length >= 0 ? static_cast<size_t>(length) : std::wcslen(result.c_str()));
    return result;
}

std::wstring FormatString(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    std::wstring result = FormatV(format, args);
    va_end(args);
    return result;
}

void FindReplace(std::string& text, const std::string& find, const std::string& replace) {
    FindReplaceAll(text, find, replace);
}

void FindReplace(std::wstring& text, const std::wstring& find, const std::wstring& replace) {
    FindReplaceAll(text, find, replace);
}

std::wstring PadZero(int value, unsigned char width) {
    const std::wstring format = FormatString(L"%%0%dd", static_cast<int>(width));
    return FormatString(format.c_str(), value);
}

std::wstring TrimTrainingZeros(std::wstring text) {
    size_t end = text.size();
    while (end > 1 && text[end - 1] == L'0')
        --end;
    text.resize(end);
    return text;
}

std::wstring ToFracString(unsigned short ms, unsigned short us, unsigned short ns) {
    if (ns != 0) return L"." + PadZero(ms, 3) + PadZero(us, 3) + TrimTrainingZeros(PadZero(ns, 3));
    if (us != 0) return L"." + PadZero(ms, 3) + TrimTrainingZeros(PadZero(us, 3));
    if (ms != 0) return L"." + TrimTrainingZeros(PadZero(ms, 3));
    return std::wstring();
}

bool TestRegEx(std::string pattern, std::wstring value) {
    return internal::MatchesPattern(pattern, pmTranslated, value.data(), value.size());
}

bool TestRegEx(std::string pattern, std::wstring value, PatternMode mode) {
    return internal::MatchesPattern(pattern, mode, value.data(), value.size());
}

std::string UnicodeToMultiByte(const wchar_t* text) {
    std::string result;
    if (!text) return result;
    std::mbstate_t state{};
    char bytes[MB_LEN_MAX];
    for (const wchar_t* p = text; *p; ++p) {
        const size_t count = std::wcrtomb(bytes, *p, &state);
        if (count == static_cast<size_t>(-1)) {
            result += '?';
            state = std::mbstate_t{};
        } else {
            result.append(bytes, count);
        }
    }
    return result;
}

char* strupr(char* text) {
    if (text)
        for (char* p = text; *p; ++p)
            *p = static_cast<char>(std::toupper(static_cast<unsigned char>(*p)));
    return text;
}

long _filelength(FILE* file) {
    if (!file) return -1;
    const long position = std::ftell(file);
    if (position < 0 || std::fseek(file, 0, SEEK_END) != 0) return -1;
    const long length = std::ftell(file);
    if (std::fseek(file, position, SEEK_SET) != 0) return -1;
    return length;
}

} // namespace QxXmlLib16
