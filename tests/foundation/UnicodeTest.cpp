#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Encoder.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

std::vector<UTF8> Bytes(const char* text) {
    return std::vector<UTF8>(text, text + std::char_traits<char>::length(text));
}

std::wstring DecodeUtf8(const std::vector<UTF8>& bytes) {
    return CEncoder::Utf8ToUnicode(bytes.data(), static_cast<int>(bytes.size()));
}

std::string EncodeUtf8(const std::wstring& text) {
    const CBinaryData data = CEncoder::UnicodeToUtf8Binary(text.c_str());
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

} // namespace

// Each length boundary of UTF-8, with its exact bytes, through both encoders and both decoders.
TEST(ConvertUTF, Utf8LengthBoundaries) {
    const struct {
        UTF32 ch;
        const char* bytes;
    } cases[] = {
        {0x7F, "\x7f"},
        {0x80, "\xc2\x80"},
        {0x7FF, "\xdf\xbf"},
        {0x800, "\xe0\xa0\x80"},
        {0xFFFF, "\xef\xbf\xbf"},
        {0x10000, "\xf0\x90\x80\x80"},
        {0x10FFFF, "\xf4\x8f\xbf\xbf"},
    };
    for (const auto& c : cases) {
        const std::vector<UTF8> expected = Bytes(c.bytes);
        const std::wstring text(1, static_cast<wchar_t>(c.ch));
        EXPECT_EQ(EncodeUtf8(text), std::string(c.bytes)) << std::hex << c.ch;
        UTF8 bytes[4];
        const UTF32* source = &c.ch;
        UTF8* target = bytes;
        ASSERT_EQ(ConvertUTF32toUTF8(&source, &c.ch + 1, &target, bytes + 4, strictConversion), conversionOK);
        EXPECT_EQ(std::vector<UTF8>(bytes, target), expected) << std::hex << c.ch;

        EXPECT_EQ(DecodeUtf8(expected), text) << std::hex << c.ch;
        UTF32 back = 0;
        const UTF8* in = expected.data();
        UTF32* out = &back;
        ASSERT_EQ(ConvertUTF8toUTF32(&in, in + expected.size(), &out, &back + 1, strictConversion),
                  conversionOK);
        EXPECT_EQ(back, c.ch);
    }
}

TEST(ConvertUTF, Utf16RoundTripsEveryPlane) {
    const std::wstring text = L"a\u00e9\u20ac\U0001F600z";

    std::vector<unsigned short> units(UnicodeToUTF16(text.data(), text.size(), nullptr, 0));
    ASSERT_EQ(units.size(), 6u);
    UnicodeToUTF16(text.data(), text.size(), units.data(), units.size());
    EXPECT_EQ(units[3], 0xD83D);
    EXPECT_EQ(units[4], 0xDE00);
    std::wstring back(UTF16ToUnicode(units.data(), units.size(), nullptr, 0), L'\0');
    UTF16ToUnicode(units.data(), units.size(), &back[0], back.size());
    EXPECT_EQ(back, text);
}

TEST(ConvertUTF, StrictModeStopsAtTheFirstIllegalUnit) {
    const UTF16 loneLow[] = {'a', 0xDC00, 'b'};
    const UTF16* source = loneLow;
    UTF32 out[4];
    UTF32* target = out;
    EXPECT_EQ(ConvertUTF16toUTF32(&source, loneLow + 3, &target, out + 4, strictConversion), sourceIllegal);
    EXPECT_EQ(source, loneLow + 1);
    EXPECT_EQ(target, out + 1);

    // Lenient mode lets a lone surrogate through as it is.
    source = loneLow;
    target = out;
    EXPECT_EQ(ConvertUTF16toUTF32(&source, loneLow + 3, &target, out + 4, lenientConversion), conversionOK);
    EXPECT_EQ(out[1], 0xDC00u);

    const UTF16 cutPair[] = {'a', 0xD800};
    source = cutPair;
    target = out;
    EXPECT_EQ(ConvertUTF16toUTF32(&source, cutPair + 2, &target, out + 4, lenientConversion),
              sourceExhausted);
    EXPECT_EQ(source, cutPair + 1);

    const UTF32 surrogate[] = {0xD800};
    const UTF32* wide = surrogate;
    UTF8 bytes[4];
    UTF8* byteTarget = bytes;
    EXPECT_EQ(ConvertUTF32toUTF8(&wide, surrogate + 1, &byteTarget, bytes + 4, strictConversion),
              sourceIllegal);

    const UTF32 euro[] = {0x20AC};
    wide = euro;
    byteTarget = bytes;
    EXPECT_EQ(ConvertUTF32toUTF8(&wide, euro + 1, &byteTarget, bytes + 2, strictConversion), targetExhausted);
    EXPECT_EQ(wide, euro);
}

TEST(ConvertUTF, LegalityOfUtf8Sequences) {
    struct Case {
        const char* bytes;
        bool legal;
    };
    const Case cases[] = {
        {"a", true},
        {"\xc3\xa9", true},
        {"\xc0\xaf", false},         // overlong
        {"\xe0\x80\xaf", false},     // overlong
        {"\xed\xa0\x80", false},     // surrogate
        {"\xf4\x90\x80\x80", false}, // above U+10FFFF
        {"\xf4\x8f\xbf\xbf", true},
        {"\x80", false},     // lone continuation
        {"\xe2\x82", false}, // cut short
        {"\xf8\x88\x80\x80\x80", false},
    };
    for (const Case& c : cases) {
        const std::vector<UTF8> bytes = Bytes(c.bytes);
        EXPECT_EQ(IsLegalUTF8Sequence(bytes.data(), bytes.data() + bytes.size()), c.legal) << c.bytes;
    }
}

TEST(ConvertUTF, WrappersReplaceIllegalInputAndGoOn) {
    EXPECT_EQ(DecodeUtf8(Bytes("a\x80z")), L"a\uFFFDz");
    EXPECT_EQ(DecodeUtf8(Bytes("a\xed\xa0\x80z")), L"a\uFFFD\uFFFD\uFFFDz");
    EXPECT_EQ(DecodeUtf8(Bytes("ab\xe2\x82")), L"ab\uFFFD");
    EXPECT_EQ(DecodeUtf8(Bytes("\xff")), L"\uFFFD");

    const std::wstring badWide = {L'a', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), L'z'};
    EXPECT_EQ(EncodeUtf8(badWide), "a\xef\xbf\xbd\xef\xbf\xbdz");
    EXPECT_EQ(UnicodeToUTF8(badWide.data(), badWide.size(), nullptr, 0), 8u);

    const unsigned short badUnits[] = {'a', 0xDC00, 0xD800};
    std::wstring decoded(UTF16ToUnicode(badUnits, 3, nullptr, 0), L'\0');
    UTF16ToUnicode(badUnits, 3, &decoded[0], decoded.size());
    EXPECT_EQ(decoded, L"a\uFFFD\uFFFD");

    // A target that is too small is filled as far as whole characters go.
    unsigned char small[4];
    EXPECT_EQ(UnicodeToUTF8(L"ab\u20ac", 3, small, 4), 2u);
}

// Text read through the parser's 16-bit units keeps characters above U+FFFF as two wide characters.
TEST(ConvertUTF, Utf8JoinsSurrogatePairsAndReplacesLoneHalves) {
    const auto wide = [](std::initializer_list<unsigned> units) {
        std::wstring text;
        for (unsigned unit : units)
            text += static_cast<wchar_t>(unit);
        return text;
    };
    EXPECT_EQ(EncodeUtf8(wide({'a', 0xD83D, 0xDE00, 'z'})), "a\xf0\x9f\x98\x80z");
    EXPECT_EQ(EncodeUtf8(wide({0xDE00, 0xD83D, 'z'})), "\xef\xbf\xbd\xef\xbf\xbdz"); // wrong order
    EXPECT_EQ(EncodeUtf8(wide({'a', 0xD83D})), "a\xef\xbf\xbd");                     // cut short
    EXPECT_EQ(EncodeUtf8(wide({0xD83D, 0xD83D, 0xDE00})), "\xef\xbf\xbd\xf0\x9f\x98\x80");

    const std::wstring pair = wide({'a', 0xD83D, 0xDE00});
    EXPECT_EQ(UnicodeToUTF8(pair.data(), pair.size(), nullptr, 0), 5u);
    unsigned char small[4];
    EXPECT_EQ(UnicodeToUTF8(pair.data(), pair.size(), small, 4), 1u); // the pair is never cut
}

TEST(Encoder, EmptyInputsAndTheUtf16Quirk) {
    EXPECT_EQ(CEncoder::Utf8ToUnicode(nullptr, 0), L"");
    EXPECT_EQ(CEncoder::UnicodeToUtf8Binary(L"").GetLength(), 0u);
    EXPECT_EQ(CEncoder::UnicodeToUtf8Binary(nullptr).GetLength(), 0u);
    // Utf16ToUnicode decodes UTF-8 on purpose.
    const std::vector<UTF8> bytes = Bytes("\xc3\xa9");
    EXPECT_EQ(CEncoder::Utf16ToUnicode(bytes.data(), 2), L"\u00e9");
    EXPECT_TRUE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(L"ab\u0080", 3));
    EXPECT_FALSE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(L"ab\u007f", 3));
}
