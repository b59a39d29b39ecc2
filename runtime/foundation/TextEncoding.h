#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/StringBuffer.h>
#include <QxXmlLib16/foundation/Types.h>

#include <cstddef>

namespace QxXmlLib16 {
namespace internal {

// Wide text held in blocks (embedded nulls allowed), encoded straight from the blocks, as bytes of an
// XmlEncoding: UTF-8, one 16-bit little-endian unit per character, or the raw wide characters. Throws
// "Unknown Encoding, select UTF-8 (contact our support team)" for any other encoding.
CBinaryData EncodeText(const CStringBuffer& text, XmlEncoding encoding);

// UTF-8 of text held in blocks, as one text: a surrogate pair split between two blocks is still
// joined. Returns the bytes written, or with a null target the bytes needed.
size_t BlocksToUTF8(const CStringBuffer& text, unsigned char* target, size_t capacity);

} // namespace internal
} // namespace QxXmlLib16
