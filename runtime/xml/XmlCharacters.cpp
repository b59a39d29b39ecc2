#include "xml/XmlCharacters.h"

namespace QxXmlLib16 {
namespace internal {

namespace {

bool InRange(wchar_t c, unsigned long low, unsigned long high) {
    const unsigned long code = static_cast<unsigned long>(c);
    return code >= low && code <= high;
}

bool IsNameStartChar(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_' || c == L':' ||
           InRange(c, 0xC0, 0xD6) || InRange(c, 0xD8, 0xF6) || InRange(c, 0xF8, 0x2FF) ||
           InRange(c, 0x370, 0x37D) || InRange(c, 0x37F, 0x1FFF) || InRange(c, 0x200C, 0x200D) ||
           InRange(c, 0x2070, 0x218F) || InRange(c, 0x2C00, 0x2FEF) || InRange(c, 0x3001, 0xD7FF) ||
           InRange(c, 0xF900, 0xFDCF) || InRange(c, 0xFDF0, 0xFFFD) || InRange(c, 0x10000, 0xEFFFF);
}

bool IsNameChar(wchar_t c) {
    return IsNameStartChar(c) || (c >= L'0' && c <= L'9') || c == L'-' || c == L'.' || c == 0xB7 ||
           InRange(c, 0x300, 0x36F) || InRange(c, 0x203F, 0x2040);
}

} // namespace

bool IsXmlText(const wchar_t* text, size_t length) {
    for (size_t i = 0; i < length; ++i) {
        const wchar_t c = text[i];
        if (c >= 0x20 && c < 0xD800) continue;
        if (c == L'\t' || c == L'\n' || c == L'\r') continue;
        if (InRange(c, 0xD800, 0xDBFF) && i + 1 < length && InRange(text[i + 1], 0xDC00, 0xDFFF)) {
            ++i;
            continue;
        }
        if (InRange(c, 0xE000, 0xFFFD) || InRange(c, 0x10000, 0x10FFFF)) continue;
        return false;
    }
    return true;
}

bool IsXmlName(const wchar_t* text, size_t length) {
    if (length == 0 || !IsNameStartChar(text[0])) return false;
    for (size_t i = 1; i < length; ++i)
        if (!IsNameChar(text[i])) return false;
    return true;
}

} // namespace internal
} // namespace QxXmlLib16
