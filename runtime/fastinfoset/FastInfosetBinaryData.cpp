#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/fastinfoset/FastInfosetBinaryData.h>
#include <QxXmlLib16/fastinfoset/FastInfosetContext.h>
#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace QxXmlLib16 {

namespace {

typedef CFastInfosetContext C;
const CWhitespaceUtils::WhitespaceRule kCollapse = CWhitespaceUtils::wsCollapse;

[[noreturn]] void ThrowUnknown() {
    throw CQxException(L"Unknown byte encoding.");
}

// The items of an XML Schema list.
template <class Visit>
void ForEachItem(const std::wstring& text, Visit visit) {
    size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && CWhitespaceUtils::IsWhiteSpace(text[i]))
            ++i;
        const size_t start = i;
        while (i < text.size() && !CWhitespaceUtils::IsWhiteSpace(text[i]))
            ++i;
        if (i > start) visit(text.substr(start, i - start));
    }
}

void AppendBigEndian(std::vector<unsigned char>& octets, uint64_t value, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        octets.push_back(static_cast<unsigned char>(value >> shift));
}

uint64_t ReadBigEndian(const unsigned char* octets, int size) {
    uint64_t value = 0;
    for (int i = 0; i < size; ++i)
        value = (value << 8) | octets[i];
    return value;
}

// The per-value layout of the fixed-size algorithms, with the name their message uses.
struct FixedSize {
    int size;
    const wchar_t* message;
};

FixedSize FixedSizeOf(int algorithm) {
    switch (algorithm) {
    case C::eaShort:
        return {2, L"Invalid value for SHORT byte encoding."};
    case C::eaInt:
        return {4, L"Invalid value for INT byte encoding."};
    case C::eaLong:
        return {8, L"Invalid value for LONG byte encoding."};
    case C::eaFloat:
        return {4, L"Invalid value for FLOAT byte encoding."};
    case C::eaDouble:
        return {8, L"Invalid value for DOUBLE byte encoding."};
    default:
        return {16, L"Invalid value for UUID byte encoding."};
    }
}

uint64_t NumberBits(int algorithm, const std::wstring& item) {
    switch (algorithm) {
    case C::eaShort:
        return static_cast<uint16_t>(CConversions::i2FromString(item, kCollapse));
    case C::eaInt:
        return static_cast<uint32_t>(CConversions::i4FromString(item, kCollapse));
    case C::eaLong:
        return static_cast<uint64_t>(CConversions::i8FromString(item, kCollapse));
    case C::eaFloat: {
        const float value = CConversions::r4FromString(item, kCollapse);
        uint32_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        return bits;
    }
    default: {
        const double value = CConversions::r8FromString(item, kCollapse);
        uint64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        return bits;
    }
    }
}

std::wstring NumberText(int algorithm, uint64_t bits) {
    switch (algorithm) {
    case C::eaShort:
        return CConversions::i2ToString(static_cast<short>(static_cast<uint16_t>(bits)));
    case C::eaInt:
        return CConversions::i4ToString(static_cast<int32_t>(static_cast<uint32_t>(bits)));
    case C::eaLong:
        return CConversions::i8ToString(static_cast<long long>(bits));
    case C::eaFloat: {
        const uint32_t narrow = static_cast<uint32_t>(bits);
        float value;
        std::memcpy(&value, &narrow, sizeof value);
        return CConversions::r4ToString(value);
    }
    default: {
        double value;
        std::memcpy(&value, &bits, sizeof value);
        return CConversions::r8ToString(value);
    }
    }
}

// Four bits giving the number of unused bits at the end, then one bit per value.
void PackBooleans(const std::wstring& text, std::vector<unsigned char>& octets) {
    std::vector<bool> values;
    ForEachItem(text, [&](const std::wstring& item) {
        values.push_back(CConversions::booleanFromString(item, kCollapse));
    });
    if (values.empty()) CConversions::booleanFromString(text, kCollapse); // a list of none is no value
    const size_t bits = 4 + values.size();
    const size_t unused = (8 - bits % 8) % 8;
    octets.assign((bits + unused) / 8, 0);
    octets[0] = static_cast<unsigned char>(unused << 4);
    for (size_t i = 0; i < values.size(); ++i)
        if (values[i]) octets[(4 + i) / 8] |= static_cast<unsigned char>(0x80 >> ((4 + i) % 8));
}

std::wstring UnpackBooleans(const unsigned char* octets, unsigned long length) {
    const unsigned unused = length ? octets[0] >> 4 : 0;
    if (length == 0 || unused > 7 || 8 * static_cast<uint64_t>(length) < 4 + unused)
        throw CQxException(L"Invalid value for BOOLEAN byte encoding.");
    const uint64_t count = 8 * static_cast<uint64_t>(length) - 4 - unused;
    std::wstring text;
    for (uint64_t i = 0; i < count; ++i) {
        if (i) text += L' ';
        text += (octets[(4 + i) / 8] & (0x80 >> ((4 + i) % 8))) ? L"true" : L"false";
    }
    return text;
}

std::wstring UuidText(const unsigned char* octets) {
    static const wchar_t kDigits[] = L"0123456789abcdef";
    std::wstring text;
    for (int i = 0; i < 16; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += L'-';
        text += kDigits[octets[i] >> 4];
        text += kDigits[octets[i] & 0x0F];
    }
    return text;
}

} // namespace

CFastInfosetBinaryData::CFastInfosetBinaryData(const unsigned char* data, unsigned long length)
    : CBinaryData(const_cast<unsigned char*>(data), length, false) {}

void CFastInfosetBinaryData::SetAsEncodedString(int algorithm, const std::wstring& text) {
    std::vector<unsigned char> octets;
    switch (algorithm) {
    case C::eaHexadecimal:
        SetAsHexString(text.c_str());
        return;
    case C::eaBase64:
        SetAsBase64(text.c_str());
        return;
    case C::eaUuid: {
        std::wstring digits;
        for (wchar_t c : text)
            if (c != L'-' && !CWhitespaceUtils::IsWhiteSpace(c)) digits += c;
        CBinaryData octetsOfUuid;
        octetsOfUuid.SetAsHexString(digits.c_str());
        if (octetsOfUuid.GetLength() % 16 != 0) throw CQxException(FixedSizeOf(C::eaUuid).message);
        *static_cast<CBinaryData*>(this) = octetsOfUuid;
        return;
    }
    case C::eaBoolean:
        PackBooleans(text, octets);
        break;
    case C::eaCdata: {
        const size_t length = UnicodeToUTF8(text.data(), text.size(), nullptr, 0);
        octets.resize(length);
        if (length) UnicodeToUTF8(text.data(), text.size(), octets.data(), length);
        break;
    }
    case C::eaShort:
    case C::eaInt:
    case C::eaLong:
    case C::eaFloat:
    case C::eaDouble:
        ForEachItem(text, [&](const std::wstring& item) {
            AppendBigEndian(octets, NumberBits(algorithm, item), FixedSizeOf(algorithm).size);
        });
        if (octets.empty()) NumberBits(algorithm, text); // a list of none is no value
        break;
    default:
        ThrowUnknown();
    }
    SetBuffer(octets.data(), static_cast<unsigned long>(octets.size()));
}

std::wstring CFastInfosetBinaryData::GetAsString(int algorithm) const {
    const unsigned char* octets = GetData();
    const unsigned long length = GetLength();
    switch (algorithm) {
    case C::eaHexadecimal:
        return GetAsHexString();
    case C::eaBase64:
        return GetAsBase64();
    case C::eaBoolean:
        return UnpackBooleans(octets, length);
    case C::eaCdata: {
        std::wstring text(UTF8ToUnicode(octets, length, nullptr, 0), L'\0');
        if (!text.empty()) UTF8ToUnicode(octets, length, &text[0], text.size());
        return text;
    }
    case C::eaShort:
    case C::eaInt:
    case C::eaLong:
    case C::eaFloat:
    case C::eaDouble:
    case C::eaUuid: {
        const FixedSize layout = FixedSizeOf(algorithm);
        if (length % layout.size != 0) throw CQxException(layout.message);
        std::wstring text;
        for (unsigned long at = 0; at < length; at += layout.size) {
            if (at) text += L' ';
            text += algorithm == C::eaUuid ? UuidText(octets + at)
                                           : NumberText(algorithm, ReadBigEndian(octets + at, layout.size));
        }
        return text;
    }
    default:
        ThrowUnknown();
    }
}

} // namespace QxXmlLib16
