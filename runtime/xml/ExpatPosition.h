#pragma once

#include <expat.h>

#include <cstdint>

namespace QxXmlLib16 {
namespace internal {

// The parser's current line and column. Expat 2.9 adds 64-bit forms of these calls and deprecates
// the older ones, which Debian 12's expat alone has.
inline uint64_t ExpatLine(XML_Parser parser) {
#if XML_MAJOR_VERSION > 2 || (XML_MAJOR_VERSION == 2 && XML_MINOR_VERSION >= 9)
    return XML_GetCurrentLineNumber64(parser);
#else
    return XML_GetCurrentLineNumber(parser);
#endif
}

inline uint64_t ExpatColumn(XML_Parser parser) {
#if XML_MAJOR_VERSION > 2 || (XML_MAJOR_VERSION == 2 && XML_MINOR_VERSION >= 9)
    return XML_GetCurrentColumnNumber64(parser);
#else
    return XML_GetCurrentColumnNumber(parser);
#endif
}

// True when the input begins with a byte order mark (UTF-8 or UTF-16), which the parser counts as a
// character of the first line.
inline bool StartsWithByteOrderMark(const unsigned char* data, unsigned long length) {
    if (length >= 3 && data[0] == 0xEF && data[1] == 0xBB && data[2] == 0xBF) return true;
    return length >= 2 && ((data[0] == 0xFF && data[1] == 0xFE) || (data[0] == 0xFE && data[1] == 0xFF));
}

// The column from 1, as a reader of the text counts it: without the byte order mark.
inline uint64_t ExpatColumn(XML_Parser parser, bool byteOrderMark) {
    const uint64_t column = ExpatColumn(parser) + 1;
    return byteOrderMark && column > 1 && ExpatLine(parser) == 1 ? column - 1 : column;
}

} // namespace internal
} // namespace QxXmlLib16
