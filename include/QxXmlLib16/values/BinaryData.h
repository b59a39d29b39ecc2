#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

// A byte buffer shared by its copies and copied only when one of them is about to change it. The
// shared holder is locked, so copies may live on different threads; one CBinaryData object itself
// is used by one thread at a time. Buffers handed in for adoption or handed out by ReleaseData are
// allocated with malloc and freed with free.
class QX_API CBinaryData {
public:
    CBinaryData();
    CBinaryData(const CBinaryData& other);
    CBinaryData(CBinaryData&& other) noexcept;
    // adopt: take ownership of data (malloc'ed) instead of copying it.
    CBinaryData(unsigned char* data, unsigned long length, bool adopt);
    // The characters as raw octets, four per character.
    explicit CBinaryData(const wchar_t* text);
    virtual ~CBinaryData();

    CBinaryData& operator=(const CBinaryData& other);
    CBinaryData& operator=(CBinaryData&& other) noexcept;

    // Null when empty.
    const unsigned char* GetData() const;
    unsigned long GetLength() const;
    // index may equal the length: the octet just past the data, which reads as 0 and is not part of
    // the value. Throws "Index Out of range [%d]" beyond that or on an empty value.
    unsigned char operator[](unsigned long index) const;
    unsigned char& operator[](unsigned long index);
    bool operator==(const CBinaryData& other) const;
    bool operator!=(const CBinaryData& other) const { return !(*this == other); }

    void Append(const unsigned char* data, unsigned long length);
    void Append(unsigned char octet);
    void Append(wchar_t c);
    void Append(const wchar_t* text);
    void Append(const std::wstring& text);
    void Append(const CBinaryData& other);

    // Replace the content by a copy of the octets; a zero length leaves the value empty.
    void SetBuffer(const unsigned char* data, unsigned long length);
    void SetBuffer(const wchar_t* text);
    void Clear();
    // Hands the buffer (malloc'ed) to the caller, who frees it; the value becomes empty.
    unsigned char* ReleaseData();

    std::wstring GetAsHexString() const;
    static std::wstring GetAsHexString(const unsigned char* data, unsigned long length);
    // Decodes hexadecimal text into a new malloc'ed buffer stored in *out (null for an empty text);
    // returns its length.
    // Throws "Invalid length in hex string" or "Invalid char in hex string [%c]".
    static unsigned long ConvertToHexData(const wchar_t* text, unsigned char** out);
    void SetAsHexString(const wchar_t* text);
    std::wstring GetAsBase64() const;
    void SetAsBase64(const wchar_t* text);

private:
    class CDataHolder;
    void MakeExclusive();

    CDataHolder* m_holder;
};

} // namespace QxXmlLib16
