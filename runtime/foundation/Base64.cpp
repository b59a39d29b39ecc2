#include <QxXmlLib16/foundation/Base64.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <array>
#include <cwchar>

namespace QxXmlLib16 {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
// kLowBits[n] keeps the n lowest bits.
constexpr unsigned int kLowBits[] = {0x00, 0x01, 0x03,  0x07,  0x0F,  0x1F,  0x3F,
                                     0x7F, 0xFF, 0x1FF, 0x3FF, 0x7FF, 0xFFF, 0x1FFF};
constexpr signed char kNotInAlphabet = -1;

constexpr std::array<signed char, 128> MakeDecodeTable() {
    std::array<signed char, 128> table{};
    for (auto& entry : table)
        entry = kNotInAlphabet;
    for (int i = 0; i < 64; ++i)
        table[static_cast<unsigned char>(kAlphabet[i])] = static_cast<signed char>(i);
    return table;
}
constexpr std::array<signed char, 128> kDecodeTable = MakeDecodeTable();

} // namespace

CBase64::CBase64()
    : m_source(nullptr)
    , m_sourceLength(0)
    , m_bits(0)
    , m_bitCount(0) {}

std::wstring CBase64::Encode(const unsigned char* data, int length) {
    if (!data || length <= 0) return std::wstring();
    m_source = data;
    m_sourceLength = length;
    m_bits = 0;
    m_bitCount = 0;

    const size_t groups = (8 * static_cast<size_t>(length) + 5) / 6;
    std::wstring text((groups + 3) / 4 * 4, L'=');
    int next = 0;
    for (size_t i = 0; i < groups; ++i) {
        // Bits are read most significant first; past the end the last group is filled with zeros.
        if (m_bitCount < 6) {
            m_bits = (m_bits << 8) | (next < m_sourceLength ? m_source[next++] : 0);
            m_bitCount += 8;
        }
        m_bitCount -= 6;
        text[i] = static_cast<wchar_t>(kAlphabet[(m_bits >> m_bitCount) & kLowBits[6]]);
        m_bits &= kLowBits[m_bitCount];
    }
    return text;
}

int CBase64::Decode(const wchar_t* text, unsigned char* out) {
    m_bits = 0;
    m_bitCount = 0;
    int written = 0;
    if (!text) return 0;
    for (const wchar_t* p = text; *p && *p != L'='; ++p) {
        const wchar_t c = *p;
        if (CWhitespaceUtils::IsWhiteSpace(c)) continue;
        const int value = (c >= 0 && c < 128) ? kDecodeTable[c] : kNotInAlphabet;
        if (value == kNotInAlphabet)
            throw CQxInvalidValueException(FormatString(L"Invalid char in base64 string [%lc] at position %d",
                                                        static_cast<wint_t>(c), static_cast<int>(p - text)));
        m_bits = (m_bits << 6) | static_cast<unsigned int>(value);
        m_bitCount += 6;
        if (m_bitCount >= 8) {
            m_bitCount -= 8;
            out[written++] = static_cast<unsigned char>(m_bits >> m_bitCount);
            m_bits &= kLowBits[m_bitCount];
        }
    }
    return written;
}

size_t CBase64::DecodedLengthBound(const wchar_t* text) {
    return text ? std::wcslen(text) * 3 / 4 : 0;
}

} // namespace QxXmlLib16
