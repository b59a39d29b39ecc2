#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/StringBuffer.h>

#include "foundation/TextEncoding.h"

#include <algorithm>

namespace {

constexpr UTF32 kReplacementChar = 0xFFFD;
constexpr UTF32 kMaxBmp = 0xFFFF;
constexpr UTF32 kMaxLegalUtf32 = 0x10FFFF;
constexpr UTF32 kHighSurrogateStart = 0xD800;
constexpr UTF32 kHighSurrogateEnd = 0xDBFF;
constexpr UTF32 kLowSurrogateStart = 0xDC00;
constexpr UTF32 kLowSurrogateEnd = 0xDFFF;

bool IsSurrogate(UTF32 ch) {
    return ch >= kHighSurrogateStart && ch <= kLowSurrogateEnd;
}
bool IsHighSurrogate(UTF32 ch) {
    return ch >= kHighSurrogateStart && ch <= kHighSurrogateEnd;
}
bool IsLowSurrogate(UTF32 ch) {
    return ch >= kLowSurrogateStart && ch <= kLowSurrogateEnd;
}

// Bytes that follow a lead byte. Bytes 0xF8 and above announce the obsolete 5- and 6-byte forms,
// which IsLegalUTF8 then rejects.
int TrailingBytes(UTF8 lead) {
    if (lead < 0xC0) return 0;
    if (lead < 0xE0) return 1;
    if (lead < 0xF0) return 2;
    if (lead < 0xF8) return 3;
    return lead < 0xFC ? 4 : 5;
}

// Subtracted after the bytes of a sequence were summed with shifts of 6, removing the lead marks.
constexpr UTF32 kOffsetsFromUtf8[6] = {0x00000000UL, 0x00003080UL, 0x000E2080UL,
                                       0x03C82080UL, 0xFA082080UL, 0x82082080UL};
// Marks of the lead byte by sequence length.
constexpr UTF8 kFirstByteMark[5] = {0x00, 0x00, 0xC0, 0xE0, 0xF0};

// The library wrappers run the strict converters and handle each illegal unit themselves: they
// write U+FFFD and skip one source unit, or stop at a truncated sequence after writing U+FFFD.
template <typename Target>
struct Replacement;
template <>
struct Replacement<UTF16> {
    static constexpr UTF16 units[] = {0xFFFD};
};
template <>
struct Replacement<UTF32> {
    static constexpr UTF32 units[] = {kReplacementChar};
};

template <typename Source, typename Target, typename Converter>
size_t ConvertLeniently(const Source* source, size_t length, Target* target, size_t capacity,
                        Converter convert) {
    constexpr size_t kReplacementLength = sizeof(Replacement<Target>::units) / sizeof(Target);
    // With no target the conversion runs through a scratch buffer and only counts.
    Target scratch[256];
    const bool counting = target == nullptr;
    Target* out = counting ? scratch : target;
    Target* outEnd = counting ? scratch + sizeof(scratch) / sizeof(Target) : target + capacity;
    const Source* in = source;
    const Source* inEnd = source + length;
    size_t written = 0;

    auto put = [&](const Target* units, size_t count) {
        if (static_cast<size_t>(outEnd - out) < count) {
            if (!counting) return false;
            written += out - scratch;
            out = scratch;
        }
        out = std::copy(units, units + count, out);
        return true;
    };

    while (in < inEnd) {
        const ConversionResult result = convert(&in, inEnd, &out, outEnd, strictConversion);
        if (result == conversionOK) break;
        if (result == targetExhausted) {
            if (!counting) break;
            written += out - scratch;
            out = scratch;
            continue;
        }
        if (result == sourceIllegal && in == inEnd)
            break; // the converter already replaced the offending character and went on
        if (!put(Replacement<Target>::units, kReplacementLength)) break;
        if (result == sourceExhausted) break;
        ++in;
    }
    return written + (out - (counting ? scratch : target));
}

} // namespace

ConversionResult ConvertUTF32toUTF8(const UTF32** sourceStart, const UTF32* sourceEnd, UTF8** targetStart,
                                    UTF8* targetEnd, ConversionFlags flags) {
    ConversionResult result = conversionOK;
    const UTF32* source = *sourceStart;
    UTF8* target = *targetStart;
    while (source < sourceEnd) {
        UTF32 ch = *source++;
        if (flags == strictConversion && IsSurrogate(ch)) {
            --source;
            result = sourceIllegal;
            break;
        }
        int bytes;
        if (ch < 0x80)
            bytes = 1;
        else if (ch < 0x800)
            bytes = 2;
        else if (ch < 0x10000)
            bytes = 3;
        else if (ch <= kMaxLegalUtf32)
            bytes = 4;
        else {
            bytes = 3;
            ch = kReplacementChar;
            result = sourceIllegal;
        }
        if (targetEnd - target < bytes) {
            --source;
            result = targetExhausted;
            break;
        }
        for (int i = bytes - 1; i > 0; --i) {
            target[i] = static_cast<UTF8>((ch | 0x80) & 0xBF);
            ch >>= 6;
        }
        target[0] = static_cast<UTF8>(ch | kFirstByteMark[bytes]);
        target += bytes;
    }
    *sourceStart = source;
    *targetStart = target;
    return result;
}

// Both modes refuse every illegal sequence: IsLegalUTF8 already rules out overlong forms, surrogates
// and values above U+10FFFF, so there is nothing left for lenient mode to let through.
ConversionResult ConvertUTF8toUTF32(const UTF8** sourceStart, const UTF8* sourceEnd, UTF32** targetStart,
                                    UTF32* targetEnd, ConversionFlags /*flags*/) {
    ConversionResult result = conversionOK;
    const UTF8* source = *sourceStart;
    UTF32* target = *targetStart;
    while (source < sourceEnd) {
        const int extra = TrailingBytes(*source);
        if (extra >= sourceEnd - source) {
            result = sourceExhausted;
            break;
        }
        if (!IsLegalUTF8(source, extra + 1)) {
            result = sourceIllegal;
            break;
        }
        if (target >= targetEnd) {
            result = targetExhausted;
            break;
        }
        UTF32 ch = 0;
        for (int i = 0; i < extra; ++i)
            ch = (ch + *source++) << 6;
        ch += *source++;
        ch -= kOffsetsFromUtf8[extra];
        *target++ = ch;
    }
    *sourceStart = source;
    *targetStart = target;
    return result;
}

ConversionResult ConvertUTF32toUTF16(const UTF32** sourceStart, const UTF32* sourceEnd, UTF16** targetStart,
                                     UTF16* targetEnd, ConversionFlags flags) {
    ConversionResult result = conversionOK;
    const UTF32* source = *sourceStart;
    UTF16* target = *targetStart;
    while (source < sourceEnd) {
        if (target >= targetEnd) {
            result = targetExhausted;
            break;
        }
        UTF32 ch = *source++;
        if (ch <= kMaxBmp) {
            if (IsSurrogate(ch)) {
                if (flags == strictConversion) {
                    --source;
                    result = sourceIllegal;
                    break;
                }
                ch = kReplacementChar;
            }
            *target++ = static_cast<UTF16>(ch);
        } else if (ch > kMaxLegalUtf32) {
            if (flags == strictConversion) {
                --source;
                result = sourceIllegal;
                break;
            }
            *target++ = static_cast<UTF16>(kReplacementChar);
        } else {
            if (target + 1 >= targetEnd) {
                --source;
                result = targetExhausted;
                break;
            }
            ch -= 0x10000;
            *target++ = static_cast<UTF16>((ch >> 10) + kHighSurrogateStart);
            *target++ = static_cast<UTF16>((ch & 0x3FF) + kLowSurrogateStart);
        }
    }
    *sourceStart = source;
    *targetStart = target;
    return result;
}

ConversionResult ConvertUTF16toUTF32(const UTF16** sourceStart, const UTF16* sourceEnd, UTF32** targetStart,
                                     UTF32* targetEnd, ConversionFlags flags) {
    ConversionResult result = conversionOK;
    const UTF16* source = *sourceStart;
    UTF32* target = *targetStart;
    while (source < sourceEnd) {
        const UTF16* start = source;
        UTF32 ch = *source++;
        if (IsHighSurrogate(ch)) {
            if (source >= sourceEnd) {
                source = start;
                result = sourceExhausted;
                break;
            }
            const UTF32 low = *source;
            if (IsLowSurrogate(low)) {
                ch = ((ch - kHighSurrogateStart) << 10) + (low - kLowSurrogateStart) + 0x10000;
                ++source;
            } else if (flags == strictConversion) {
                source = start;
                result = sourceIllegal;
                break;
            }
        } else if (flags == strictConversion && IsLowSurrogate(ch)) {
            source = start;
            result = sourceIllegal;
            break;
        }
        if (target >= targetEnd) {
            source = start;
            result = targetExhausted;
            break;
        }
        *target++ = ch;
    }
    *sourceStart = source;
    *targetStart = target;
    return result;
}

Boolean IsLegalUTF8(const UTF8* source, int length) {
    if (length < 1 || length > 4) return false;
    const UTF8 lead = source[0];
    if (length >= 2) {
        // Every continuation byte is 10xxxxxx.
        for (int i = 2; i < length; ++i)
            if (source[i] < 0x80 || source[i] > 0xBF) return false;
        // The second byte also rules out overlong forms, surrogates and values above U+10FFFF.
        const UTF8 second = source[1];
        if (second > 0xBF) return false;
        switch (lead) {
        case 0xE0:
            if (second < 0xA0) return false;
            break;
        case 0xED:
            if (second > 0x9F) return false;
            break;
        case 0xF0:
            if (second < 0x90) return false;
            break;
        case 0xF4:
            if (second > 0x8F) return false;
            break;
        default:
            if (second < 0x80) return false;
        }
    }
    if (lead >= 0x80 && lead < 0xC2) return false;
    return lead <= 0xF4;
}

Boolean IsLegalUTF8Sequence(const UTF8* source, const UTF8* sourceEnd) {
    const int length = TrailingBytes(*source) + 1;
    if (length > sourceEnd - source) return false;
    return IsLegalUTF8(source, length);
}

namespace {
// The lenient UTF-32 to UTF-8 conversion, written out for speed: runs of ASCII are copied in a tight
// loop, and a high surrogate followed by a low one (as the parser's 16-bit units arrive, one wide
// character each) is joined into the character they encode. Any other surrogate, and any value
// above U+10FFFF, becomes U+FFFD. Stops before a character that does not fit.
template <bool Counting>
size_t EncodeUtf8(const wchar_t* source, size_t length, UTF8* target, size_t capacity) {
    const wchar_t* end = source + length;
    size_t out = 0;
    while (source < end) {
        const size_t room = Counting ? static_cast<size_t>(end - source) : capacity - out;
        const size_t limit = std::min(room, static_cast<size_t>(end - source));
        size_t ascii = 0;
        while (ascii < limit && static_cast<UTF32>(source[ascii]) < 0x80) {
            if (!Counting) target[out + ascii] = static_cast<UTF8>(source[ascii]);
            ++ascii;
        }
        out += ascii;
        source += ascii;
        if (source == end || (!Counting && ascii == room)) break;

        UTF32 ch = static_cast<UTF32>(*source);
        size_t consumed = 1;
        if (IsHighSurrogate(ch) && end - source > 1 && IsLowSurrogate(static_cast<UTF32>(source[1]))) {
            ch = ((ch - kHighSurrogateStart) << 10) + (static_cast<UTF32>(source[1]) - kLowSurrogateStart) +
                 0x10000;
            consumed = 2;
        } else if (IsSurrogate(ch) || ch > kMaxLegalUtf32) {
            ch = kReplacementChar;
        }
        const size_t bytes = ch < 0x800 ? 2 : ch < 0x10000 ? 3 : 4;
        if (!Counting) {
            if (capacity - out < bytes) break;
            for (size_t i = bytes - 1; i > 0; --i) {
                target[out + i] = static_cast<UTF8>((ch & 0x3F) | 0x80);
                ch >>= 6;
            }
            target[out] = static_cast<UTF8>(ch | kFirstByteMark[bytes]);
        }
        out += bytes;
        source += consumed;
    }
    return out;
}
} // namespace

size_t UnicodeToUTF8(const wchar_t* source, size_t length, unsigned char* target, size_t capacity) {
    return target ? EncodeUtf8<false>(source, length, target, capacity)
                  : EncodeUtf8<true>(source, length, nullptr, 0);
}

size_t QxXmlLib16::internal::BlocksToUTF8(const CStringBuffer& text, unsigned char* target, size_t capacity) {
    size_t out = 0;
    auto encode = [&](const wchar_t* piece, size_t length) {
        out += UnicodeToUTF8(piece, length, target ? target + out : nullptr, capacity - out);
    };
    // A high surrogate that ends a block waits for the first character of the next one.
    wchar_t pair[2];
    bool pending = false;
    text.VisitBlocks([&](const wchar_t* piece, size_t length) {
        if (length == 0) return;
        if (pending) {
            pending = false;
            if (IsLowSurrogate(static_cast<UTF32>(*piece))) {
                pair[1] = *piece++;
                --length;
                encode(pair, 2);
            } else {
                encode(pair, 1);
            }
        }
        if (length > 0 && IsHighSurrogate(static_cast<UTF32>(piece[length - 1]))) {
            pair[0] = piece[--length];
            pending = true;
        }
        encode(piece, length);
    });
    if (pending) encode(pair, 1);
    return out;
}

size_t UTF8ToUnicode(const unsigned char* source, size_t length, wchar_t* target, size_t capacity) {
    return ConvertLeniently(source, length, reinterpret_cast<UTF32*>(target), capacity, ConvertUTF8toUTF32);
}

size_t UnicodeToUTF16(const wchar_t* source, size_t length, unsigned short* target, size_t capacity) {
    return ConvertLeniently(reinterpret_cast<const UTF32*>(source), length, target, capacity,
                            ConvertUTF32toUTF16);
}

size_t UTF16ToUnicode(const unsigned short* source, size_t length, wchar_t* target, size_t capacity) {
    return ConvertLeniently(source, length, reinterpret_cast<UTF32*>(target), capacity, ConvertUTF16toUTF32);
}

bool DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(const wchar_t* text, int length) {
    if (!text) return false;
    // One OR over the run keeps the loop branch-free; any bit above 0x7F means non-ASCII (negative
    // wchar_t values included).
    UTF32 bits = 0;
    for (int i = 0; i < length; ++i)
        bits |= static_cast<UTF32>(text[i]);
    return (bits & ~0x7FU) != 0;
}

bool DoesUTF8StrContainAnyCharsLargerThanOneByte(const unsigned char* text, unsigned long length) {
    if (!text) return false;
    unsigned char bits = 0;
    for (unsigned long i = 0; i < length; ++i)
        bits |= text[i];
    return (bits & 0x80) != 0;
}
