#include <QxXmlLib16/foundation/Base64.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/BinaryData.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

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
}

TEST(BinaryData, AppendForms) {
    CBinaryData data;
    data.Append(L'A');
    data.Append(std::wstring(L"B"));
    EXPECT_EQ(data.GetLength(), 2 * sizeof(wchar_t));
    EXPECT_EQ(data, CBinaryData(L"AB"));

    CBinaryData bytes;
    for (int i = 0; i < 100000; ++i)
        bytes.Append(static_cast<unsigned char>(i));
    ASSERT_EQ(bytes.GetLength(), 100000u);
    EXPECT_EQ(bytes[99999], static_cast<unsigned char>(99999));
    bytes.Append(bytes.GetData(), 10); // a source inside the growing buffer
    EXPECT_EQ(std::memcmp(bytes.GetData() + 100000, bytes.GetData(), 10), 0);
}

TEST(BinaryData, EqualityEmptinessAndBufferHandOver) {
    EXPECT_EQ(CBinaryData(), CBinaryData());
    EXPECT_NE(CBinaryData(), FromText("a"));
    EXPECT_NE(FromText("ab"), FromText("ac"));

    CBinaryData data = FromText("xyz");
    data.SetBuffer(nullptr, 0);
    EXPECT_EQ(data.GetLength(), 0u);
    EXPECT_EQ(data.GetData(), nullptr);

    auto* adopted = static_cast<unsigned char*>(std::malloc(3));
    std::memcpy(adopted, "abc", 3);
    CBinaryData owner(adopted, 3, true);
    CBinaryData sharer(owner);
    unsigned char* released = owner.ReleaseData();
    EXPECT_EQ(owner.GetLength(), 0u);
    EXPECT_EQ(std::memcmp(released, "abc", 3), 0);
    EXPECT_EQ(sharer, FromText("abc")); // the other copy keeps its octets
    std::free(released);
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

TEST(BinaryData, HexadecimalForm) {
    CBinaryData data;
    data.SetAsHexString(L"0a1B");
    EXPECT_EQ(data.GetLength(), 2u);
    EXPECT_EQ(data[0], 0x0A);
    EXPECT_EQ(data[1], 0x1B);
    EXPECT_EQ(data.GetAsHexString(), L"0A1B");
    data.SetAsHexString(L"");
    EXPECT_EQ(data.GetLength(), 0u);
    EXPECT_EQ(data.GetAsHexString(), L"");

    struct Case {
        const wchar_t* text;
        const wchar_t* message;
    };
    const Case cases[] = {
        {L"ABC", L"Invalid length in hex string"},
        {L"0G", L"Invalid char in hex string [G]"},
        {L"G0", L"Invalid char in hex string [G]"},
        {L"0 ", L"Invalid char in hex string [ ]"},
        {L"\u00e90", L"Invalid char in hex string [\u00e9]"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(MessageOf<CQxException>([&] { data.SetAsHexString(c.text); }), c.message) << c.text;
}

TEST(Base64, PaddingAndRoundTrip) {
    CBase64 codec;
    const unsigned char bytes[] = {'M', 'a', 'n', 0xFF, 0x00};
    EXPECT_EQ(codec.Encode(bytes, 1), L"TQ==");
    EXPECT_EQ(codec.Encode(bytes, 2), L"TWE=");
    EXPECT_EQ(codec.Encode(bytes, 3), L"TWFu");
    EXPECT_EQ(codec.Encode(bytes, 5), L"TWFu/wA=");
    EXPECT_EQ(codec.Encode(nullptr, 4), L"");

    CBinaryData data;
    data.SetAsBase64(L" TWFu\n/wA=\t");
    EXPECT_EQ(data, CBinaryData(const_cast<unsigned char*>(bytes), 5, false));
    EXPECT_EQ(data.GetAsBase64(), L"TWFu/wA=");
    data.SetAsBase64(L"TQ==garbage after the end");
    EXPECT_EQ(data.GetLength(), 1u);
    data.SetAsBase64(L"");
    EXPECT_EQ(data.GetLength(), 0u);
}

TEST(Base64, InvalidCharacterIsNamedWithItsPosition) {
    CBinaryData data;
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([&] { data.SetAsBase64(L"TW*u"); }),
              L"Invalid char in base64 string [*] at position 2");
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([&] { data.SetAsBase64(L"T\u20ac"); }),
              L"Invalid char in base64 string [\u20ac] at position 1");
}

TEST(BinaryData, ThreadsAppendToCopiesOfOneBuffer) {
    const CBinaryData shared = FromText("seed");
    constexpr int kThreads = 8;
    constexpr int kAppends = 2000;
    std::vector<std::thread> threads;
    std::vector<CBinaryData> results(kThreads);
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&shared, &results, t] {
            for (int round = 0; round < 20; ++round) {
                CBinaryData copy(shared);
                for (int i = 0; i < kAppends / 20; ++i) {
                    copy.Append(static_cast<unsigned char>(t));
                    CBinaryData reader(copy); // shares, then is dropped on another schedule
                    (void)reader.GetLength();
                }
                results[t].Append(copy);
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(shared, FromText("seed"));
    for (int t = 0; t < kThreads; ++t) {
        ASSERT_EQ(results[t].GetLength(), 20u * (4 + kAppends / 20));
        EXPECT_EQ(results[t][4], static_cast<unsigned char>(t));
    }
}
