#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

class QX_API CEncoder {
public:
    static std::wstring Utf8ToUnicode(const unsigned char* bytes, int length);
    // Decodes with the UTF-8 converter, not a UTF-16 one; kept as it has always behaved.
    static std::wstring Utf16ToUnicode(const unsigned char* bytes, int length);
    static CBinaryData UnicodeToUtf8Binary(const wchar_t* text);
};

} // namespace QxXmlLib16
