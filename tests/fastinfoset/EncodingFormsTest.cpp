// The standard's integer and length forms at every boundary, written and read, with the octets the
// reference implementation decodes; and the patterns a reader must refuse.

#include "support/FiTesting.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace QxXmlLib16;
using namespace FiTesting;

namespace {

// What a probe's writer or reader works on, built before it.
struct ProbeParts {
    CFastInfosetContext probeContext;
    CBinaryStream probeStream;
    CXmlDocument probeDocument;
};

// The writer's forms, octets taken from its stream.
class WriterProbe : private ProbeParts, public CFastInfosetWriter {
public:
    WriterProbe()
        : CFastInfosetWriter(probeContext, probeStream) {}

    FiTesting::Octets OctetsOf(const std::function<void(WriterProbe&)>& write) {
        write(*this);
        Flush();
        const FiTesting::Octets octets = ToOctets(probeStream.GetBinaryStream());
        probeStream = CBinaryStream();
        return octets;
    }

    using CFastInfosetWriter::Integer0To2pw20Bit2;
    using CFastInfosetWriter::Integer1To2pw20Bit2;
    using CFastInfosetWriter::Integer1To2pw20Bit3;
    using CFastInfosetWriter::Integer1To2pw20Bit4;
    using CFastInfosetWriter::NonEmptyOctetStringBit5;
    using CFastInfosetWriter::NonEmptyOctetStringBit7;
    using CFastInfosetWriter::NonEmptyOctetUTF8StringBit2;
};

// The reader's forms, over given octets; each must consume all of them.
class ReaderProbe : private ProbeParts, public CFastInfosetReader {
public:
    ReaderProbe()
        : CFastInfosetReader(probeContext, probeDocument) {}

    template <class Form>
    uint64_t Read(const FiTesting::Octets& octets, Form form, bool& consumedAll) {
        SetInput(octets.data(), octets.size());
        const uint64_t value = (this->*form)(Next());
        consumedAll = true;
        try {
            Next();
            consumedAll = false;
        } catch (const CQxException&) {
        }
        return value;
    }
    template <class Form>
    std::wstring Refusal(const FiTesting::Octets& octets, Form form) {
        SetInput(octets.data(), octets.size());
        try {
            (this->*form)(Next());
        } catch (const CQxException& e) {
            return e.GetMessage();
        }
        return L"(no exception)";
    }

    using CFastInfosetReader::Integer0To2pw20Bit2;
    using CFastInfosetReader::Integer1To2pw20Bit2;
    using CFastInfosetReader::Integer1To2pw20Bit3;
    using CFastInfosetReader::Integer1To2pw20Bit4;
    using CFastInfosetReader::LengthOfSequence;
    using CFastInfosetReader::NonEmptyOctetStringBit2Length;
    using CFastInfosetReader::NonEmptyOctetStringBit5Length;
    using CFastInfosetReader::NonEmptyOctetStringBit7Length;
};

// Every boundary of the forms: an attribute name index (second bit, '0'), a string index (second
// bit, '1'), an element name index (third bit, without and with attributes) and a chunk index
// (fourth bit after '101').
struct IntegerCase {
    uint32_t value;
    std::string bit2, bit2Index, bit3, bit3Attributes, bit4Chunk;
};

const IntegerCase kIntegers[] = {
    {1, "00", "80", "00", "40", "A0"},
    {16, "0F", "8F", "0F", "4F", "AF"},
    {17, "10", "90", "10", "50", "B0 00"},
    {32, "1F", "9F", "1F", "5F", "B0 0F"},
    {33, "20", "A0", "20 00", "60 00", "B0 10"},
    {64, "3F", "BF", "20 1F", "60 1F", "B0 2F"},
    {65, "40 00", "C0 00", "20 20", "60 20", "B0 30"},
    {1040, "43 CF", "C3 CF", "23 EF", "63 EF", "B3 FF"},
    {1041, "43 D0", "C3 D0", "23 F0", "63 F0", "B4 00 00"},
    {2080, "47 DF", "C7 DF", "27 FF", "67 FF", "B4 04 0F"},
    {2081, "47 E0", "C7 E0", "28 00 00", "68 00 00", "B4 04 10"},
    {8256, "5F FF", "DF FF", "28 18 1F", "68 18 1F", "B4 1C 2F"},
    {8257, "60 00 00", "E0 00 00", "28 18 20", "68 18 20", "B4 1C 30"},
    {263184, "63 E3 CF", "E3 E3 CF", "2B FB EF", "6B FB EF", "B7 FF FF"},
    {263185, "63 E3 D0", "E3 E3 D0", "2B FB F0", "6B FB F0", "B8 00 00 00"},
    {526368, "67 E7 DF", "E7 E7 DF", "2F FF FF", "6F FF FF", "B8 04 04 0F"},
    {526369, "67 E7 E0", "E7 E7 E0", "30 00 00 00", "70 00 00 00", "B8 04 04 10"},
    {1048576, "6F DF BF", "EF DF BF", "30 07 F7 DF", "70 07 F7 DF", "B8 0B FB EF"},
};

class Integers : public testing::TestWithParam<IntegerCase> {};

TEST_P(Integers, AreWrittenAndReadInEveryForm) {
    const IntegerCase& c = GetParam();
    WriterProbe writer;
    const uint32_t v = c.value;
    EXPECT_EQ(c.bit2, Hex(writer.OctetsOf([v](WriterProbe& w) { w.Integer1To2pw20Bit2(0x00, v); })));
    EXPECT_EQ(c.bit2Index, Hex(writer.OctetsOf([v](WriterProbe& w) { w.Integer1To2pw20Bit2(0x80, v); })));
    EXPECT_EQ(c.bit2Index, Hex(writer.OctetsOf([v](WriterProbe& w) { w.Integer0To2pw20Bit2(0x80, v); })));
    EXPECT_EQ(c.bit3, Hex(writer.OctetsOf([v](WriterProbe& w) { w.Integer1To2pw20Bit3(0x00, v); })));
    EXPECT_EQ(c.bit3Attributes,
              Hex(writer.OctetsOf([v](WriterProbe& w) { w.Integer1To2pw20Bit3(0x40, v); })));
    EXPECT_EQ(c.bit4Chunk, Hex(writer.OctetsOf([v](WriterProbe& w) { w.Integer1To2pw20Bit4(0xA0, v); })));

    ReaderProbe reader;
    bool all = false;
    EXPECT_EQ(v, reader.Read(FromHex(c.bit2), &ReaderProbe::Integer1To2pw20Bit2, all));
    EXPECT_TRUE(all);
    EXPECT_EQ(v, reader.Read(FromHex(c.bit2Index), &ReaderProbe::Integer1To2pw20Bit2, all));
    EXPECT_EQ(v, reader.Read(FromHex(c.bit2Index), &ReaderProbe::Integer0To2pw20Bit2, all));
    EXPECT_EQ(v, reader.Read(FromHex(c.bit3), &ReaderProbe::Integer1To2pw20Bit3, all));
    EXPECT_TRUE(all);
    EXPECT_EQ(v, reader.Read(FromHex(c.bit3Attributes), &ReaderProbe::Integer1To2pw20Bit3, all));
    EXPECT_EQ(v, reader.Read(FromHex(c.bit4Chunk), &ReaderProbe::Integer1To2pw20Bit4, all));
    EXPECT_TRUE(all);
}

INSTANTIATE_TEST_SUITE_P(Boundaries, Integers, testing::ValuesIn(kIntegers),
                         [](const auto& info) { return "i" + std::to_string(info.param.value); });

TEST(Integers, ZeroIsOnlyInTheNonIdentifyingForm) {
    WriterProbe writer;
    EXPECT_EQ("FF", Hex(writer.OctetsOf([](WriterProbe& w) { w.Integer0To2pw20Bit2(0x80, 0); })));
    ReaderProbe reader;
    bool all = false;
    EXPECT_EQ(0u, reader.Read(FromHex("FF"), &ReaderProbe::Integer0To2pw20Bit2, all));
}

// The header octets of each length, with the literal's first octet: on the second bit after '0',
// on the fifth after '0000' and on the seventh after '100000'.
struct LengthCase {
    uint32_t length;
    std::string bit2, bit5, bit7;
};

const LengthCase kLengths[] = {
    {1, "00", "00", "80"},
    {2, "01", "01", "81"},
    {3, "02", "02", "82 00"},
    {8, "07", "07", "82 05"},
    {9, "08", "08 00", "82 06"},
    {64, "3F", "08 37", "82 3D"},
    {65, "40 00", "08 38", "82 3E"},
    {258, "40 C1", "08 F9", "82 FF"},
    {259, "40 C2", "08 FA", "83 00 00 00 00"},
    {264, "40 C7", "08 FF", "83 00 00 00 05"},
    {265, "40 C8", "0C 00 00 00 00", "83 00 00 00 06"},
    {320, "40 FF", "0C 00 00 00 37", "83 00 00 00 3D"},
    {321, "60 00 00 00 00", "0C 00 00 00 38", "83 00 00 00 3E"},
    {400, "60 00 00 00 4F", "0C 00 00 00 87", "83 00 00 00 8D"},
};

class Lengths : public testing::TestWithParam<LengthCase> {};

TEST_P(Lengths, AreWrittenAndReadInEveryForm) {
    const LengthCase& c = GetParam();
    const size_t length = c.length;
    WriterProbe writer;
    const std::wstring text(length, L'a');
    const Octets bit2 = writer.OctetsOf([&](WriterProbe& w) { w.NonEmptyOctetUTF8StringBit2(0x00, text); });
    EXPECT_EQ(c.bit2, Hex(Octets(bit2.begin(), bit2.end() - length)));
    EXPECT_EQ(c.bit5, Hex(writer.OctetsOf(
                          [&](WriterProbe& w) { w.NonEmptyOctetStringBit5(0x00, nullptr, length); })));
    EXPECT_EQ(c.bit7, Hex(writer.OctetsOf(
                          [&](WriterProbe& w) { w.NonEmptyOctetStringBit7(0x80, nullptr, length); })));

    ReaderProbe reader;
    bool all = false;
    EXPECT_EQ(length, reader.Read(FromHex(c.bit2), &ReaderProbe::NonEmptyOctetStringBit2Length, all));
    EXPECT_TRUE(all);
    EXPECT_EQ(length, reader.Read(FromHex(c.bit5), &ReaderProbe::NonEmptyOctetStringBit5Length, all));
    EXPECT_TRUE(all);
    EXPECT_EQ(length, reader.Read(FromHex(c.bit7), &ReaderProbe::NonEmptyOctetStringBit7Length, all));
    EXPECT_TRUE(all);
}

INSTANTIATE_TEST_SUITE_P(Boundaries, Lengths, testing::ValuesIn(kLengths),
                         [](const auto& info) { return "n" + std::to_string(info.param.length); });

TEST(Lengths, OfSequencesUseOneOctetUpTo128AndThreeBeyond) {
    ReaderProbe reader;
    bool all = false;
    EXPECT_EQ(1u, reader.Read(FromHex("00"), &ReaderProbe::LengthOfSequence, all));
    EXPECT_EQ(128u, reader.Read(FromHex("7F"), &ReaderProbe::LengthOfSequence, all));
    EXPECT_EQ(129u, reader.Read(FromHex("80 00 00"), &ReaderProbe::LengthOfSequence, all));
    EXPECT_TRUE(all);
    EXPECT_EQ(1048576u, reader.Read(FromHex("8F FF 7F"), &ReaderProbe::LengthOfSequence, all));
}

TEST(Forms, ThatMatchNoPatternAreRefusedWithTheirMessage) {
    const std::wstring prefix = L"Failed to parse FastInfoset. ";
    const std::wstring bit2 =
        prefix + L"Invalid Encoding of integers 1 To 2^20 type  on the second bit of an octet.";
    const std::wstring bit3 =
        prefix + L"Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet.";
    const std::wstring bit4 =
        prefix + L"Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.";
    ReaderProbe reader;
    EXPECT_EQ(bit2, reader.Refusal(FromHex("70"), &ReaderProbe::Integer1To2pw20Bit2));
    EXPECT_EQ(bit2, reader.Refusal(FromHex("7E"), &ReaderProbe::Integer1To2pw20Bit2));
    EXPECT_EQ(bit2, reader.Refusal(FromHex("6F DF C0"), &ReaderProbe::Integer1To2pw20Bit2)); // 2^20 + 1
    EXPECT_EQ(prefix + L"Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.",
              reader.Refusal(FromHex("F0"), &ReaderProbe::Integer0To2pw20Bit2));
    EXPECT_EQ(bit3, reader.Refusal(FromHex("31"), &ReaderProbe::Integer1To2pw20Bit3));
    EXPECT_EQ(bit3, reader.Refusal(FromHex("3B"), &ReaderProbe::Integer1To2pw20Bit3));
    EXPECT_EQ(bit3, reader.Refusal(FromHex("30 10 00 00"), &ReaderProbe::Integer1To2pw20Bit3)); // padding
    EXPECT_EQ(bit3, reader.Refusal(FromHex("30 07 F7 E0"), &ReaderProbe::Integer1To2pw20Bit3)); // 2^20 + 1
    EXPECT_EQ(bit4, reader.Refusal(FromHex("B9"), &ReaderProbe::Integer1To2pw20Bit4));
    EXPECT_EQ(bit4, reader.Refusal(FromHex("BF"), &ReaderProbe::Integer1To2pw20Bit4));
    EXPECT_EQ(bit4, reader.Refusal(FromHex("B8 10 00 00"), &ReaderProbe::Integer1To2pw20Bit4));
    EXPECT_EQ(prefix + L"Invalid NonEmptyOctetString type  on the second bit of an octet.",
              reader.Refusal(FromHex("41"), &ReaderProbe::NonEmptyOctetStringBit2Length));
    EXPECT_EQ(prefix + L"Invalid NonEmptyOctetString type  on the fifth bit of an octet.",
              reader.Refusal(FromHex("0A"), &ReaderProbe::NonEmptyOctetStringBit5Length));
    EXPECT_EQ(prefix + L"Invalid length of a sequence.",
              reader.Refusal(FromHex("90"), &ReaderProbe::LengthOfSequence));
    EXPECT_EQ(prefix + L"Unexpected End of File.",
              reader.Refusal(FromHex("60 00"), &ReaderProbe::Integer1To2pw20Bit2));
    EXPECT_EQ(prefix + L"Unexpected End of File.",
              reader.Refusal(FromHex("0C 00 00"), &ReaderProbe::NonEmptyOctetStringBit5Length));
}

} // namespace
