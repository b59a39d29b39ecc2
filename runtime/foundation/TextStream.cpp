#include <QxXmlLib16/foundation/TextStream.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include "foundation/TextEncoding.h"

namespace QxXmlLib16 {

CTextStream::CTextStream()
    : CTextStream(L"CTextStream", encUTF8) {}

CTextStream::CTextStream(XmlEncoding encoding)
    : CTextStream(L"CTextStream", encoding) {}

CTextStream::CTextStream(const wchar_t* className, XmlEncoding encoding)
    : CInstanceMonitor(className)
    , m_encoding(encoding) {}

CTextStream::~CTextStream() = default;

CBinaryData CTextStream::GetEncodedStream() {
    return internal::EncodeText(m_buffer, m_encoding);
}

CFileTextStream::CFileTextStream(const wchar_t* fileName, XmlEncoding encoding)
    : CTextStream(L"CFileTextStream", encoding)
    , m_fileName(fileName ? fileName : L"")
    , m_file(nullptr) {}

CFileTextStream::~CFileTextStream() {
    if (m_file) std::fclose(m_file);
}

void CFileTextStream::Open() {
    const std::wstring failure = FormatString(L"Failed to write data to the file [%ls].", m_fileName.c_str());
    if (m_file) throw CQxException(failure);
    m_file = std::fopen(UnicodeToMultiByte(m_fileName.c_str()).c_str(), "wt");
    if (!m_file) throw CQxException(failure);
    // Little-endian byte order mark; the 32-bit form has two more zero octets.
    static const unsigned char kByteOrderMark[] = {0xFF, 0xFE, 0x00, 0x00};
    const size_t markLength = m_encoding == encUTF16 ? 2 : m_encoding == encUTF32 ? 4 : 0;
    if (markLength && std::fwrite(kByteOrderMark, 1, markLength, m_file) != markLength) {
        std::fclose(m_file);
        m_file = nullptr;
        throw CQxException(failure);
    }
}

void CFileTextStream::Flush() {
    if (m_buffer.GetLength() == 0) return;
    m_encoded = GetEncodedStream();
    const size_t length = m_encoded.GetLength();
    if (!m_file || std::fwrite(m_encoded.GetData(), 1, length, m_file) != length) {
        if (m_file) std::fclose(m_file);
        m_file = nullptr;
        throw CQxException(L"Failed to write data to the file");
    }
    m_buffer.Empty();
}

void CFileTextStream::Close() {
    if (!m_file) return;
    Flush();
    FILE* file = m_file;
    m_file = nullptr;
    if (std::fclose(file) != 0) throw CQxException(L"Failed to write data to the file");
}

} // namespace QxXmlLib16
