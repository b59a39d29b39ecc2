#include <QxXmlLib16/foundation/Encoder.h>

#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Exceptions.h>

#include "foundation/TextEncoding.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>

namespace QxXmlLib16 {

namespace {

// Buffers handed to CBinaryData for adoption come from malloc.
unsigned char* AllocateBytes(size_t length) {
    auto* bytes = static_cast<unsigned char*>(std::malloc(length));
    if (!bytes) throw std::bad_alloc();
    return bytes;
}

CBinaryData Adopt(unsigned char* bytes, size_t length) {
    return CBinaryData(bytes, static_cast<unsigned long>(length), true);
}

CBinaryData EncodeUtf8(const wchar_t* text, size_t length) {
    if (!DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(text, static_cast<int>(length))) {
        unsigned char* bytes = AllocateBytes(length);
        for (size_t i = 0; i < length; ++i)
            bytes[i] = static_cast<unsigned char>(text[i]);
        return Adopt(bytes, length);
    }
    const size_t needed = UnicodeToUTF8(text, length, nullptr, 0);
    unsigned char* bytes = AllocateBytes(needed);
    UnicodeToUTF8(text, length, bytes, needed);
    return Adopt(bytes, needed);
}

void PutUtf16Units(const wchar_t* text, size_t length, unsigned char* units) {
    for (size_t i = 0; i < length; ++i) {
        units[2 * i] = static_cast<unsigned char>(text[i]);
        units[2 * i + 1] = static_cast<unsigned char>(text[i] >> 8);
    }
}

void PutWideOctets(const wchar_t* text, size_t length, unsigned char* bytes) {
    std::memcpy(bytes, text, length * sizeof(wchar_t));
}

// The fixed-width encodings: each character takes the same number of bytes.
template <typename Put>
CBinaryData EncodeFixed(const CStringBuffer& text, size_t unitBytes, Put put) {
    const size_t length = text.GetLength();
    unsigned char* bytes = AllocateBytes(length * unitBytes);
    size_t done = 0;
    text.VisitBlocks([&](const wchar_t* block, size_t blockLength) {
        put(block, blockLength, bytes + done * unitBytes);
        done += blockLength;
    });
    return Adopt(bytes, length * unitBytes);
}

} // namespace

namespace internal {

CBinaryData EncodeText(const CStringBuffer& text, XmlEncoding encoding) {
    const bool empty = text.GetLength() == 0;
    switch (encoding) {
    case encUTF8: {
        if (empty) return CBinaryData();
        const size_t needed = BlocksToUTF8(text, nullptr, 0);
        unsigned char* bytes = AllocateBytes(needed);
        BlocksToUTF8(text, bytes, needed);
        return Adopt(bytes, needed);
    }
    case encUTF16:
        return empty ? CBinaryData() : EncodeFixed(text, 2, PutUtf16Units);
    case encUTF32:
        return empty ? CBinaryData() : EncodeFixed(text, sizeof(wchar_t), PutWideOctets);
    }
    throw CQxException(L"Unknown Encoding, select UTF-8 (contact our support team)");
}

} // namespace internal

std::wstring CEncoder::Utf8ToUnicode(const unsigned char* bytes, int length) {
    if (!bytes || length <= 0) return std::wstring();
    if (!DoesUTF8StrContainAnyCharsLargerThanOneByte(bytes, length))
        return std::wstring(bytes, bytes + length);
    const size_t needed = UTF8ToUnicode(bytes, length, nullptr, 0);
    std::wstring text(needed, L'\0');
    UTF8ToUnicode(bytes, length, &text[0], needed);
    return text;
}

std::wstring CEncoder::Utf16ToUnicode(const unsigned char* bytes, int length) {
    return Utf8ToUnicode(bytes, length);
}

CBinaryData CEncoder::UnicodeToUtf8Binary(const wchar_t* text) {
    const size_t length = text ? std::wcslen(text) : 0;
    return length ? EncodeUtf8(text, length) : CBinaryData();
}

} // namespace QxXmlLib16
