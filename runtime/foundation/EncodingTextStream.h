#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/TextStream.h>

#include <cstddef>

namespace QxXmlLib16 {
namespace internal {

// A memory stream that encodes every block the writer flushes, so that a document written to bytes
// is never held as wide text (four bytes a character) on the way.
class CEncodingTextStream : public CTextStream {
public:
    explicit CEncodingTextStream(XmlEncoding encoding);
    ~CEncodingTextStream() override;
    CEncodingTextStream(const CEncodingTextStream&) = delete;
    CEncodingTextStream& operator=(const CEncodingTextStream&) = delete;

    void Flush() override;
    void Close() override { Flush(); }
    // The bytes written so far, handed over; the stream is empty afterwards.
    CBinaryData TakeBytes();

private:
    unsigned char* m_bytes = nullptr;
    size_t m_length = 0;
    size_t m_capacity = 0;
};

} // namespace internal
} // namespace QxXmlLib16
