#include <QxXmlLib16/values/BinaryData.h>

#include <QxXmlLib16/foundation/Base64.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/QXCriticalSection.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <functional>
#include <memory>
#include <new>

namespace QxXmlLib16 {

namespace {

constexpr uint64_t kMinimumCopyCapacity = 8192;

unsigned char* Reallocate(unsigned char* data, uint64_t capacity) {
    auto* grown = static_cast<unsigned char*>(std::realloc(data, capacity ? capacity : 1));
    if (!grown) throw std::bad_alloc();
    return grown;
}

struct FreeDeleter {
    void operator()(unsigned char* data) const { std::free(data); }
};
using MallocBuffer = std::unique_ptr<unsigned char, FreeDeleter>;

int HexDigitValue(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    return -1;
}

} // namespace

// The shared buffer. Its count and its octets change only under its own lock; a holder shared by
// several values (count of 2 or more) is never changed at all, a writer first takes a copy.
class CBinaryData::CDataHolder {
public:
    // Copies the octets, leaving room to grow.
    CDataHolder(const unsigned char* data, uint64_t length)
        : m_data(nullptr)
        , m_length(length)
        , m_capacity(std::max(2 * length, kMinimumCopyCapacity))
        , m_refCount(1) {
        m_data = Reallocate(nullptr, m_capacity);
        if (length) std::memcpy(m_data, data, length);
    }
    // Adopts a malloc'ed buffer as it is.
    CDataHolder(unsigned char* data, uint64_t length, bool /*adopt*/)
        : m_data(data)
        , m_length(length)
        , m_capacity(length)
        , m_refCount(1) {}
    ~CDataHolder() { std::free(m_data); }
    CDataHolder(const CDataHolder&) = delete;
    CDataHolder& operator=(const CDataHolder&) = delete;

    unsigned char* Data() const { return m_data; }
    uint64_t Length() const { return m_length; }

    void AddRef() {
        CQXLock lock(m_lock);
        ++m_refCount;
    }

    // This holder when nobody else shares it, otherwise a private copy (the shared one loses a
    // reference).
    CDataHolder* GetExclusiveCopy() {
        CQXLock lock(m_lock);
        if (m_refCount < 2) return this;
        auto* copy = new CDataHolder(m_data, m_length);
        --m_refCount;
        return copy;
    }

    void Append(const unsigned char* data, uint64_t length) {
        CQXLock lock(m_lock);
        if (m_refCount >= 2)
            throw CQxException(
                FormatString(L"Failed to append. [RefCount=%d]", static_cast<int>(m_refCount)));
        const uint64_t newLength = m_length + length;
        if (newLength > m_capacity) {
            // The source may lie in this very buffer (appending a value to itself).
            const bool inside = std::less_equal<const unsigned char*>()(m_data, data) &&
                                std::less<const unsigned char*>()(data, m_data + m_length);
            const uint64_t offset = inside ? static_cast<uint64_t>(data - m_data) : 0;
            m_data = Reallocate(m_data, 2 * newLength);
            m_capacity = 2 * newLength;
            if (inside) data = m_data + offset;
        }
        std::memmove(m_data + m_length, data, length);
        m_length = newLength;
    }

    // The octet at index == length lies just past the data; make sure it exists and reads as 0.
    unsigned char& PastEnd() {
        CQXLock lock(m_lock);
        if (m_capacity <= m_length) {
            m_data = Reallocate(m_data, m_length + 1);
            m_capacity = m_length + 1;
        }
        m_data[m_length] = 0;
        return m_data[m_length];
    }

    // Drops one reference and frees the holder with the last one. handOver gives the buffer to the
    // caller instead of freeing it; only the last reference may do that.
    unsigned char* Release(bool handOver) {
        bool last;
        {
            CQXLock lock(m_lock);
            if (handOver && m_refCount != 1)
                throw CQxException(
                    FormatString(L"Failed to release data. [RefCount=%d]", static_cast<int>(m_refCount - 1)));
            last = --m_refCount == 0;
        }
        if (!last) return nullptr;
        unsigned char* data = handOver ? m_data : nullptr;
        if (handOver) m_data = nullptr;
        delete this;
        return data;
    }

private:
    unsigned char* m_data;
    uint64_t m_length;
    uint64_t m_capacity;
    int64_t m_refCount;
    CQXCriticalSection m_lock;
};

CBinaryData::CBinaryData()
    : m_holder(nullptr) {}

CBinaryData::CBinaryData(const CBinaryData& other)
    : m_holder(other.m_holder) {
    if (m_holder) m_holder->AddRef();
}

CBinaryData::CBinaryData(CBinaryData&& other) noexcept
    : m_holder(other.m_holder) {
    other.m_holder = nullptr;
}

CBinaryData::CBinaryData(unsigned char* data, unsigned long length, bool adopt)
    : m_holder(nullptr) {
    if (!adopt) {
        SetBuffer(data, length);
        return;
    }
    MallocBuffer owned(data);
    if (data && length) {
        m_holder = new CDataHolder(data, length, true);
        owned.release();
    }
}

CBinaryData::CBinaryData(const wchar_t* text)
    : m_holder(nullptr) {
    SetBuffer(text);
}

CBinaryData::~CBinaryData() {
    Clear();
}

CBinaryData& CBinaryData::operator=(const CBinaryData& other) {
    if (m_holder != other.m_holder) {
        if (other.m_holder) other.m_holder->AddRef();
        Clear();
        m_holder = other.m_holder;
    }
    return *this;
}

CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept {
    if (this != &other) {
        Clear();
        m_holder = other.m_holder;
        other.m_holder = nullptr;
    }
    return *this;
}

const unsigned char* CBinaryData::GetData() const {
    return m_holder ? m_holder->Data() : nullptr;
}

unsigned long CBinaryData::GetLength() const {
    return m_holder ? static_cast<unsigned long>(m_holder->Length()) : 0;
}

unsigned char CBinaryData::operator[](unsigned long index) const {
    if (!m_holder || index > m_holder->Length())
        throw CQxException(FormatString(L"Index Out of range [%d]", static_cast<int>(index)));
    return index < m_holder->Length() ? m_holder->Data()[index] : 0;
}

unsigned char& CBinaryData::operator[](unsigned long index) {
    if (!m_holder || index > m_holder->Length())
        throw CQxException(FormatString(L"Index Out of range [%d]", static_cast<int>(index)));
    MakeExclusive();
    return index < m_holder->Length() ? m_holder->Data()[index] : m_holder->PastEnd();
}

bool CBinaryData::operator==(const CBinaryData& other) const {
    const unsigned long length = GetLength();
    if (length != other.GetLength()) return false;
    return length == 0 || m_holder == other.m_holder || std::memcmp(GetData(), other.GetData(), length) == 0;
}

void CBinaryData::MakeExclusive() {
    if (m_holder) m_holder = m_holder->GetExclusiveCopy();
}

void CBinaryData::Append(const unsigned char* data, unsigned long length) {
    if (!data || length == 0) return;
    if (!m_holder) {
        m_holder = new CDataHolder(data, length);
        return;
    }
    MakeExclusive();
    m_holder->Append(data, length);
}

void CBinaryData::Append(unsigned char octet) {
    Append(&octet, 1);
}

void CBinaryData::Append(wchar_t c) {
    Append(reinterpret_cast<const unsigned char*>(&c), sizeof(c));
}

void CBinaryData::Append(const wchar_t* text) {
    if (text)
        Append(reinterpret_cast<const unsigned char*>(text),
               static_cast<unsigned long>(std::wcslen(text) * sizeof(wchar_t)));
}

void CBinaryData::Append(const std::wstring& text) {
    Append(reinterpret_cast<const unsigned char*>(text.data()),
           static_cast<unsigned long>(text.size() * sizeof(wchar_t)));
}

void CBinaryData::Append(const CBinaryData& other) {
    if (m_holder == other.m_holder && m_holder) {
        // Appending a value to itself: the shared source must survive the copy on write.
        const CBinaryData source(other);
        Append(source.GetData(), source.GetLength());
        return;
    }
    Append(other.GetData(), other.GetLength());
}

void CBinaryData::SetBuffer(const unsigned char* data, unsigned long length) {
    Clear();
    if (data && length) m_holder = new CDataHolder(data, length);
}

void CBinaryData::SetBuffer(const wchar_t* text) {
    Clear();
    Append(text);
}

void CBinaryData::Clear() {
    if (m_holder) {
        CDataHolder* holder = m_holder;
        m_holder = nullptr;
        holder->Release(false);
    }
}

unsigned char* CBinaryData::ReleaseData() {
    if (!m_holder) return nullptr;
    MakeExclusive();
    unsigned char* data = m_holder->Release(true);
    m_holder = nullptr;
    return data;
}

std::wstring CBinaryData::GetAsHexString() const {
    return GetAsHexString(GetData(), GetLength());
}

std::wstring CBinaryData::GetAsHexString(const unsigned char* data, unsigned long length) {
    static const wchar_t kDigits[] = L"0123456789ABCDEF";
    if (!data) return std::wstring();
    std::wstring text(2 * static_cast<size_t>(length), L'\0');
    for (unsigned long i = 0; i < length; ++i) {
        text[2 * i] = kDigits[data[i] >> 4];
        text[2 * i + 1] = kDigits[data[i] & 0x0F];
    }
    return text;
}

unsigned long CBinaryData::ConvertToHexData(const wchar_t* text, unsigned char** out) {
    *out = nullptr;
    const size_t length = text ? std::wcslen(text) : 0;
    if (length % 2 != 0) throw CQxException(L"Invalid length in hex string");
    if (length == 0) return 0;
    MallocBuffer bytes(Reallocate(nullptr, length / 2));
    for (size_t i = 0; i < length; i += 2) {
        const int high = HexDigitValue(text[i]);
        const int low = HexDigitValue(text[i + 1]);
        if (high < 0 || low < 0)
            throw CQxException(FormatString(L"Invalid char in hex string [%lc]",
                                            static_cast<wint_t>(high < 0 ? text[i] : text[i + 1])));
        bytes.get()[i / 2] = static_cast<unsigned char>(high << 4 | low);
    }
    *out = bytes.release();
    return static_cast<unsigned long>(length / 2);
}

void CBinaryData::SetAsHexString(const wchar_t* text) {
    unsigned char* bytes = nullptr;
    const unsigned long length = ConvertToHexData(text, &bytes);
    *this = CBinaryData(bytes, length, true);
}

std::wstring CBinaryData::GetAsBase64() const {
    return CBase64().Encode(GetData(), static_cast<int>(GetLength()));
}

void CBinaryData::SetAsBase64(const wchar_t* text) {
    const size_t bound = text ? CBase64::DecodedLengthBound(text) : 0;
    if (bound == 0) {
        Clear();
        return;
    }
    MallocBuffer bytes(Reallocate(nullptr, bound));
    const int length = CBase64().Decode(text, bytes.get());
    *this = CBinaryData(bytes.release(), static_cast<unsigned long>(length), true);
}

} // namespace QxXmlLib16
