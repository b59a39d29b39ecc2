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

} // namespace internal
} // namespace QxXmlLib16
