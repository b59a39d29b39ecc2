#include <QxXmlLib16/foundation/BinaryStream.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/foundation/StringBuffer.h>
#include <QxXmlLib16/foundation/TextStream.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"
#include "support/Documents.h"
#include "support/TempFile.h"

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

using namespace QxXmlLib16;

namespace {

std::wstring Wide(const std::string& narrow) {
    return std::wstring(narrow.begin(), narrow.end());
}

std::string AsString(const CBinaryData& data) {
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

unsigned char* MallocCopy(const std::string& bytes) {
    auto* copy = static_cast<unsigned char*>(std::malloc(bytes.size()));
    std::memcpy(copy, bytes.data(), bytes.size());
    return copy;
}

} // namespace

TEST(StringBuffer, BlocksJoinOnlyWhenTextIsAskedFor) {
    CStringBuffer buffer;
    std::wstring expected;
    for (int i = 0; i < 10000; ++i)
        expected += static_cast<wchar_t>(L'a' + i % 26);
    buffer.Append(expected.substr(0, 3000));
    buffer.Append(expected.substr(3000, 5000).c_str());
    for (size_t i = 8000; i < expected.size(); ++i)
        buffer.Append(expected[i]);
    EXPECT_EQ(std::wstring(buffer.GetText()), expected);
    buffer.Append(L'!'); // the joined block is full: a new one opens
    EXPECT_EQ(std::wstring(buffer.GetText()), expected + L"!");
    buffer.Clear();
    buffer.Append(L"z");
    EXPECT_STREQ(buffer.GetText(), L"z");
}

TEST(TextStream, EncodesInEachEncoding) {
    const std::wstring text = L"a\u00e9";
    CTextStream utf8(encUTF8);
    utf8.Append(text);
    EXPECT_EQ(AsString(utf8.GetEncodedStream()), "a\xc3\xa9");

    CTextStream utf16(encUTF16);
    utf16.Append(text);
    EXPECT_EQ(AsString(utf16.GetEncodedStream()), std::string("a\0\xe9\0", 4));

    CTextStream utf32(encUTF32);
    utf32.Append(text);
    EXPECT_EQ(AsString(utf32.GetEncodedStream()), std::string("a\0\0\0\xe9\0\0\0", 8));

    CTextStream unknown(static_cast<XmlEncoding>(0));
    unknown.Append(L"x");
    EXPECT_EQ(MessageOf<CQxException>([&] { unknown.GetEncodedStream(); }),
              L"Unknown Encoding, select UTF-8 (contact our support team)");
}

// The stream encodes its blocks one by one; a pair split between two blocks is still one character.
TEST(TextStream, Utf8JoinsASurrogatePairSplitBetweenBlocks) {
    const std::string filler(4094, 'a'); // the high surrogate takes the last place of the first block
    for (const wchar_t second : {static_cast<wchar_t>(0xDE00), L'z'}) {
        CTextStream stream(encUTF8);
        stream.Append(std::wstring(filler.begin(), filler.end()));
        stream.Append(static_cast<wchar_t>(0xD83D));
        stream.Append(second);
        EXPECT_EQ(AsString(stream.GetEncodedStream()),
                  filler + (second == L'z' ? "\xef\xbf\xbdz" : "\xf0\x9f\x98\x80"));
    }
}

TEST(FileTextStream, WritesByteOrderMarksAndFlushedText) {
    struct Case {
        XmlEncoding encoding;
        std::string expected;
    };
    const Case cases[] = {
        {encUTF8, "<a>\xc3\xa9</a>"},
        {encUTF16, std::string("\xff\xfe<\0a\0>\0\xe9\0<\0/\0a\0>\0", 16)},
        {encUTF32, std::string("\xff\xfe\0\0", 4) + std::string("<\0\0\0", 4)},
    };
    for (const Case& c : cases) {
        const std::string path = TempPath("qx_text_stream.xml");
        CFileTextStream stream(Wide(path).c_str(), c.encoding);
        stream.Open();
        stream.Append(L"<a>");
        stream.Flush();
        EXPECT_EQ(stream.GetLength(), 0u);
        stream.Append(L"\u00e9</a>");
        stream.Close(); // writes what is still buffered
        const std::string written = Documents::ReadBytes(path);
        EXPECT_EQ(written.substr(0, c.expected.size()), c.expected) << c.encoding;
        std::remove(path.c_str());
    }
}

TEST(FileStreams, UnwritableFilesAreReported) {
    const std::wstring path = Wide(TempPath("no-such-folder/out.xml"));
    const std::wstring expected = L"Failed to write data to the file [" + path + L"].";
    CFileTextStream text(path.c_str(), encUTF16);
    EXPECT_EQ(MessageOf<CQxException>([&] { text.Open(); }), expected);
    CFileTextStream neverOpened(path.c_str(), encUTF8);
    neverOpened.Append(L"x");
    EXPECT_EQ(MessageOf<CQxException>([&] { neverOpened.Flush(); }), L"Failed to write data to the file");
    CFileBinaryStream binary(path.c_str(), encUTF8);
    EXPECT_EQ(MessageOf<CQxException>([&] { binary.ToFile(); }), expected);
}

TEST(FileBinaryStream, WritesTheCollectedOctets) {
    const std::string path = TempPath("qx_binary_stream.fi");
    CBinaryData data(L"");
    data.Append(static_cast<unsigned char>(0xE0));
    CFileBinaryStream stream(Wide(path).c_str(), encUTF8, data);
    stream.Append(static_cast<unsigned char>(0x00));
    const unsigned char tail[] = {0x00, 0x01};
    stream.Append(tail, 2);
    stream.ToFile();
    EXPECT_EQ(Documents::ReadBytes(path), std::string("\xe0\0\0\x01", 4));
    std::remove(path.c_str());
}

// Whole streams inflate on every compressed load; what is not one is left alone.
TEST(QxZip, UncompressedOrBrokenInputPassesThroughUntouched) {
    const std::string plain = "<?xml version=\"1.0\"?><a/>";
    unsigned long length = plain.size();
    unsigned char* data = MallocCopy(plain);
    const unsigned char* before = data;
    CQxZip::Decompress(&data, &length);
    EXPECT_EQ(data, before);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(data), length), plain);
    std::free(data);

    // A gzip stream cut in half is not inflated either.
    CBinaryData zipped(MallocCopy(std::string(3000, 'y')), 3000, true);
    CQxZip::CompressData(zipped, ctGzip);
    length = zipped.GetLength() / 2;
    data = zipped.ReleaseData();
    CQxZip::Decompress(&data, &length);
    EXPECT_EQ(data[0], 0x1F);
    std::free(data);
}

TEST(QxZip, DataThatDoesNotShrinkCannotBeCompressed) {
    std::mt19937 random(42);
    std::string noise(100, '\0');
    for (char& c : noise)
        c = static_cast<char>(random());
    CBinaryData data(MallocCopy(noise), 100, true);
    EXPECT_EQ(MessageOf<CQxException>([&] {
                  CQxZip::CompressData(data, ctGzip);
              }).rfind(L"Failed to compress data. [Error Code: ", 0),
              0u);
    EXPECT_EQ(AsString(data), noise); // left as it was

    CBinaryData zeros(MallocCopy(std::string(100, '\0')), 100, true);
    CQxZip::CompressData(zeros, ctGzip);
    EXPECT_LT(zeros.GetLength(), 100u);
    CBinaryData empty;
    CQxZip::CompressData(empty, ctZlib);
    EXPECT_EQ(empty.GetLength(), 0u);
}
