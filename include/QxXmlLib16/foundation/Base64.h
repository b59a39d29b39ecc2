#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <cstddef>
#include <string>

namespace QxXmlLib16 {

// RFC 4648 Base64 without line breaks. One object converts one buffer at a time.
class QX_API CBase64 {
public:
    CBase64();

    // A null data pointer gives an empty string.
    std::wstring Encode(const unsigned char* data, int length);
    // Writes the decoded octets to out, which must hold DecodedLengthBound(text) octets, and returns
    // their number. Whitespace between characters is skipped and '=' ends the data; any other
    // character outside the alphabet throws CQxInvalidValueException.
    int Decode(const wchar_t* text, unsigned char* out);
    static size_t DecodedLengthBound(const wchar_t* text);

private:
    const unsigned char* m_source;
    int m_sourceLength;
    unsigned int m_bits;
    int m_bitCount;
};

} // namespace QxXmlLib16
