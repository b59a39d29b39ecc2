#include "foundation/EncodingTextStream.h"

#include "foundation/TextEncoding.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace QxXmlLib16 {
namespace internal {

CEncodingTextStream::CEncodingTextStream(XmlEncoding encoding)
    : CTextStream(encoding) {}

CEncodingTextStream::~CEncodingTextStream() {
    std::free(m_bytes);
}

void CEncodingTextStream::Flush() {
    if (m_buffer.GetLength() == 0) return;
    const CBinaryData block = EncodeText(m_buffer, m_encoding);
    const size_t length = block.GetLength();
    if (m_length + length > m_capacity) {
        // Doubling keeps the copies linear; realloc of a large block moves pages, not bytes.
        const size_t capacity = std::max(2 * m_capacity, m_length + length);
        void* grown = std::realloc(m_bytes, capacity);
        if (!grown) throw std::bad_alloc();
        m_bytes = static_cast<unsigned char*>(grown);
        m_capacity = capacity;
    }
    std::memcpy(m_bytes + m_length, block.GetData(), length);
    m_length += length;
    m_buffer.Empty();
}

CBinaryData CEncodingTextStream::TakeBytes() {
    Flush();
    if (m_length == 0) return CBinaryData();
    CBinaryData bytes(m_bytes, static_cast<unsigned long>(m_length), true);
    m_bytes = nullptr;
    m_length = m_capacity = 0;
    return bytes;
}

} // namespace internal
} // namespace QxXmlLib16
