#include <QxXmlLib16/foundation/BinaryStream.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <cstdio>

namespace QxXmlLib16 {

CBinaryStream::CBinaryStream()
    : CBinaryStream(L"CBinaryStream") {}

CBinaryStream::CBinaryStream(const wchar_t* className)
    : CInstanceMonitor(className) {}

CBinaryStream::~CBinaryStream() = default;

CFileBinaryStream::CFileBinaryStream(const wchar_t* fileName, XmlEncoding)
    : CBinaryStream(L"CFileBinaryStream")
    , m_fileName(fileName ? fileName : L"") {}

CFileBinaryStream::CFileBinaryStream(const wchar_t* fileName, XmlEncoding encoding, const CBinaryData& data)
    : CFileBinaryStream(fileName, encoding) {
    m_data = data;
}

void CFileBinaryStream::ToFile() {
    FILE* file = std::fopen(UnicodeToMultiByte(m_fileName.c_str()).c_str(), "wb");
    bool written = file != nullptr;
    if (file) {
        const size_t length = m_data.GetLength();
        written = std::fwrite(m_data.GetData(), 1, length, file) == length;
        written = std::fclose(file) == 0 && written;
    }
    if (!written)
        throw CQxException(FormatString(L"Failed to write data to the file [%ls].", m_fileName.c_str()));
}

} // namespace QxXmlLib16
