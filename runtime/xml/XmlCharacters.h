#pragma once

#include <cstddef>

namespace QxXmlLib16 {
namespace internal {

// The character and name rules of XML 1.0, for text that comes from elsewhere (JSON) and must make
// well-formed XML.

// A character XML 1.0 can carry at all (Char): no control characters other than tab, line feed and
// carriage return, no surrogates, no U+FFFE or U+FFFF. A surrogate pair, as text read through
// 16-bit units holds one, counts as the character it encodes.
bool IsXmlText(const wchar_t* text, size_t length);

// A Name of XML 1.0 (colons allowed, as in a qualified name).
bool IsXmlName(const wchar_t* text, size_t length);

} // namespace internal
} // namespace QxXmlLib16
