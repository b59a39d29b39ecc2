#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/foundation/StringBuffer.h>
#include <QxXmlLib16/foundation/Types.h>

#include <cstdio>
#include <string>

namespace QxXmlLib16 {

// Wide text collected in memory and turned into bytes of its XmlEncoding on demand.
class QX_API CTextStream : public CInstanceMonitor {
public:
    CTextStream();
    explicit CTextStream(XmlEncoding encoding);
    ~CTextStream() override;

    // The memory stream has nothing to open, close or flush.
    virtual void Open() {}
    virtual void Close() {}
    virtual void Flush() {}

    void Append(wchar_t c) { m_buffer.Append(c); }
    void Append(const wchar_t* text) { m_buffer.Append(text); }
    void Append(const wchar_t* text, size_t length) { m_buffer.Append(text, length); }
    void Append(const std::wstring& text) { m_buffer.Append(text); }

    const wchar_t* GetText() { return m_buffer.GetText(); }
    // Characters buffered.
    unsigned long GetLength() const { return m_buffer.GetLength(); }
    XmlEncoding GetEncoding() const { return m_encoding; }
    // The buffered text in the stream's encoding. Throws "Unknown Encoding, select UTF-8 (contact
    // our support team)" for an encoding outside 1..3.
    CBinaryData GetEncodedStream();

protected:
    CTextStream(const wchar_t* className, XmlEncoding encoding);

    CStringBuffer m_buffer;
    XmlEncoding m_encoding;
};

// Writes the text to a file, flushing whenever the writer asks (every 4096 characters or so).
class QX_API CFileTextStream : public CTextStream {
public:
    CFileTextStream(const wchar_t* fileName, XmlEncoding encoding);
    // Closes the file if it is still open.
    ~CFileTextStream() override;

    // Creates the file; UTF-16 and UTF-32 files start with a byte order mark.
    // Throws "Failed to write data to the file [%ls]."
    void Open() override;
    // Writes out the buffered text. Throws "Failed to write data to the file".
    void Flush() override;
    // Writes out what is still buffered and closes the file, so that closing completes the document.
    void Close() override;

private:
    std::wstring m_fileName;
    CBinaryData m_encoded;
    FILE* m_file;
};

} // namespace QxXmlLib16
