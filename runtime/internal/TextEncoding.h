#pragma once

#include <QxXmlLib16/BinaryData.h>
#include <QxXmlLib16/Types.h>

#include <cstddef>

namespace QxXmlLib16 {
namespace internal {

// Wide text with an explicit length (embedded nulls allowed) as bytes of an XmlEncoding: UTF-8, one
// 16-bit little-endian unit per character, or the raw wide characters. Throws "Unknown Encoding,
// select UTF-8 (contact our support team)" for any other encoding.
CBinaryData EncodeText(const wchar_t* text, size_t length, XmlEncoding encoding);

} // namespace internal
} // namespace QxXmlLib16
