#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/values/BinaryData.h>

#include <string>

namespace QxXmlLib16 {

// The octets of a value under one of the ten built-in Fast Infoset encoding algorithms (1
// hexadecimal, 2 base64, 3 short, 4 int, 5 long, 6 boolean, 7 float, 8 double, 9 uuid, 10 cdata).
// A text holding a whitespace-separated list of numbers or booleans (an XML Schema list) encodes
// every item; numbers are big-endian.
class QX_API CFastInfosetBinaryData : public CBinaryData {
public:
    CFastInfosetBinaryData() = default;
    CFastInfosetBinaryData(const unsigned char* data, unsigned long length);

    // Replaces the content by the octets of text. Text that does not convert throws the
    // conversion's own exception; an algorithm outside 1 to 10 throws "Unknown byte encoding.".
    void SetAsEncodedString(int algorithm, const std::wstring& text);
    // The text of the octets, list items joined by single blanks. Throws "Unknown byte encoding."
    // for an algorithm outside 1 to 10, and "Invalid value for SHORT byte encoding." (INT, LONG,
    // BOOLEAN, FLOAT, DOUBLE, UUID) when the octets do not form whole values.
    std::wstring GetAsString(int algorithm) const;
};

} // namespace QxXmlLib16
