#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/foundation/Types.h>

#include <string>

namespace QxXmlLib16 {

// Octets collected in memory (Fast Infoset output, finished compressed documents).
class QX_API CBinaryStream : public CInstanceMonitor {
public:
    CBinaryStream();
    ~CBinaryStream() override;

    void Append(unsigned char octet) { m_data.Append(octet); }
    void Append(const CBinaryData& data) { m_data.Append(data); }
    void Append(const unsigned char* data, unsigned long length) { m_data.Append(data, length); }
    const CBinaryData& GetBinaryStream() const { return m_data; }

protected:
    explicit CBinaryStream(const wchar_t* className);

    CBinaryData m_data;
};

// Octets written to a file in one piece by ToFile.
class QX_API CFileBinaryStream : public CBinaryStream {
public:
    // The encoding is taken for symmetry with the text streams; octets are written as they are.
    CFileBinaryStream(const wchar_t* fileName, XmlEncoding encoding);
    CFileBinaryStream(const wchar_t* fileName, XmlEncoding encoding, const CBinaryData& data);

    // Throws "Failed to write data to the file [%ls]." when the file cannot be created or written.
    void ToFile();

private:
    std::wstring m_fileName;
};

} // namespace QxXmlLib16
