#include <QxXmlLib16/foundation/Base64.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/BinaryData.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"

#include <cstdlib>
#include <cstring>
#include <string>

using namespace QxXmlLib16;

namespace {

CBinaryData FromText(const char* text) {
    return CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(text)),
                       static_cast<unsigned long>(std::strlen(text)), false);
}

} // namespace

TEST(BinaryData, CopiesShareUntilOneOfThemChanges) {
    CBinaryData original = FromText("abc");
    CBinaryData copy(original);
    EXPECT_EQ(copy.GetData(), original.GetData());

    copy.Append(static_cast<unsigned char>('d'));
    EXPECT_EQ(original, FromText("abc"));
    EXPECT_EQ(copy, FromText("abcd"));

    CBinaryData third(original);
    third[0] = 'X';
    EXPECT_EQ(original[0], 'a');
    EXPECT_EQ(third[0], 'X');

    original.Append(original); // appending a value to itself
    EXPECT_EQ(original, FromText("abcabc"));

    // A released buffer leaves the other copy its octets.
    CBinaryData sharer(original);
    unsigned char* released = original.ReleaseData();
    EXPECT_EQ(original.GetLength(), 0u);
    EXPECT_EQ(std::memcmp(released, "abcabc", 6), 0);
    EXPECT_EQ(sharer, FromText("abcabc"));
    std::free(released);
}

TEST(BinaryData, AppendForms) {
    CBinaryData data;
    data.Append(L'A');
    data.Append(std::wstring(L"B"));
    EXPECT_EQ(data, CBinaryData(L"AB"));

    CBinaryData bytes;
    for (int i = 0; i < 100000; ++i)
        bytes.Append(static_cast<unsigned char>(i));
    ASSERT_EQ(bytes.GetLength(), 100000u);
    EXPECT_EQ(bytes[99999], static_cast<unsigned char>(99999));
    bytes.Append(bytes.GetData(), 10); // a source inside the growing buffer
    EXPECT_EQ(std::memcmp(bytes.GetData() + 100000, bytes.GetData(), 10), 0);
}

TEST(BinaryData, IndexMayReachOnePastTheEnd) {
    CBinaryData data = FromText("ab");
    const CBinaryData& constData = data;
    EXPECT_EQ(constData[2], 0);
    EXPECT_EQ(data[2], 0);
    EXPECT_EQ(MessageOf<CQxException>([&] { (void)constData[3]; }), L"Index Out of range [3]");
    EXPECT_EQ(MessageOf<CQxException>([&] { data[3] = 1; }), L"Index Out of range [3]");
    const CBinaryData empty;
    EXPECT_EQ(MessageOf<CQxException>([&] { (void)empty[0]; }), L"Index Out of range [0]");

    // An adopted buffer has no spare octet; reaching past its end must still stay inside memory.
    auto* exact = static_cast<unsigned char*>(std::malloc(1));
    exact[0] = 7;
    CBinaryData adopted(exact, 1, true);
    EXPECT_EQ(adopted[1], 0);
    EXPECT_EQ(adopted.GetLength(), 1u);
}

// The valid hexadecimal and base64 forms read through the value conversions; here the refusals.
TEST(BinaryData, InvalidCharactersAreNamed) {
    const struct {
        const wchar_t* text;
        const wchar_t* message;
    } hex[] = {
        {L"0G", L"Invalid char in hex string [G]"},
        {L"G0", L"Invalid char in hex string [G]"},
        {L"\u00e90", L"Invalid char in hex string [\u00e9]"},
    };
    CBinaryData data;
    for (const auto& c : hex)
        EXPECT_EQ(MessageOf<CQxException>([&] { data.SetAsHexString(c.text); }), c.message) << c.text;
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([&] { data.SetAsBase64(L"TW*u"); }),
              L"Invalid char in base64 string [*] at position 2");
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([&] { data.SetAsBase64(L"T\u20ac"); }),
              L"Invalid char in base64 string [\u20ac] at position 1");
}

TEST(Base64, PaddingAndRoundTrip) {
    CBase64 codec;
    const unsigned char bytes[] = {'M', 'a', 'n', 0xFF, 0x00};
    EXPECT_EQ(codec.Encode(bytes, 1), L"TQ==");
    EXPECT_EQ(codec.Encode(bytes, 2), L"TWE=");
    EXPECT_EQ(codec.Encode(bytes, 5), L"TWFu/wA=");
    EXPECT_EQ(codec.Encode(nullptr, 4), L"");

    CBinaryData data;
    data.SetAsBase64(L" TWFu\n/wA=\t");
    EXPECT_EQ(data, CBinaryData(const_cast<unsigned char*>(bytes), 5, false));
    EXPECT_EQ(data.GetAsBase64(), L"TWFu/wA=");
    data.SetAsBase64(L"TQ==garbage after the end");
    EXPECT_EQ(data.GetLength(), 1u);
}
