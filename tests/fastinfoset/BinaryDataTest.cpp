// The ten built-in encoding algorithms, both ways, and what they refuse.

#include "support/FiTesting.h"

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;
using namespace FiTesting;

namespace {

struct AlgorithmCase {
    const char* name;
    int algorithm;
    std::wstring text;  // written
    std::string octets; // the standard's octets for it
    std::wstring back;  // the text read back from them
};

const AlgorithmCase kAlgorithms[] = {
    {"hexadecimal", 1, L"cafe01", "CA FE 01", L"CAFE01"},
    {"base64", 2, L"SGVsbG8=", "48 65 6C 6C 6F", L"SGVsbG8="},
    {"short", 3, L"-2", "FF FE", L"-2"},
    {"shortList", 3, L"1 -32768\t32767", "00 01 80 00 7F FF", L"1 -32768 32767"},
    {"int", 4, L"42 -7", "00 00 00 2A FF FF FF F9", L"42 -7"},
    {"long", 5, L"9000000000", "00 00 00 02 18 71 1A 00", L"9000000000"},
    {"longMinimum", 5, L"-9223372036854775808", "80 00 00 00 00 00 00 00", L"-9223372036854775808"},
    {"booleanTrue", 6, L"true", "38", L"true"},
    {"booleanFalse", 6, L"0", "30", L"false"},
    {"booleanThree", 6, L"true false true", "1A", L"true false true"},
    {"booleanFour", 6, L"1 1 1 1", "0F", L"true true true true"},
    {"booleanFive", 6, L"true false false false true", "78 80", L"true false false false true"},
    {"float", 7, L"1.25", "3F A0 00 00", L"1.25"},
    {"floatList", 7, L"-2 0.5", "C0 00 00 00 3F 00 00 00", L"-2 0.5"},
    {"double", 8, L"1.5", "3F F8 00 00 00 00 00 00", L"1.5"},
    {"uuid", 9, L"0123E567-89AB-CDEF-0123-456789ABCDEF", "01 23 E5 67 89 AB CD EF 01 23 45 67 89 AB CD EF",
     L"0123e567-89ab-cdef-0123-456789abcdef"},
    {"uuidWithoutHyphens", 9, L"0123e56789abcdef0123456789abcdef",
     "01 23 E5 67 89 AB CD EF 01 23 45 67 89 AB CD EF", L"0123e567-89ab-cdef-0123-456789abcdef"},
    {"cdata", 10, L"x<\u00E9", "78 3C C3 A9", L"x<\u00E9"},
};

class Algorithms : public testing::TestWithParam<AlgorithmCase> {};

TEST_P(Algorithms, EncodeToTheStandardsOctetsAndBack) {
    const AlgorithmCase& c = GetParam();
    CFastInfosetBinaryData data;
    data.SetAsEncodedString(c.algorithm, c.text);
    EXPECT_EQ(c.octets, Hex(ToOctets(data)));
    const Octets octets = FromHex(c.octets);
    EXPECT_EQ(c.back, CFastInfosetBinaryData(octets.data(), static_cast<unsigned long>(octets.size()))
                          .GetAsString(c.algorithm));
}

INSTANTIATE_TEST_SUITE_P(Builtin, Algorithms, testing::ValuesIn(kAlgorithms),
                         [](const auto& info) { return std::string(info.param.name); });

// Octets that form no whole value are refused by the algorithm's name; text that does not convert
// is refused too.
TEST(Algorithms, RefuseOctetsAndTextTheyCannotTake) {
    const std::pair<int, std::string> octetCases[] = {
        {3, "01"},
        {4, "00 00 01"},
        {5, "00 00 00 00 00 00 00 00 01"},
        {7, "3F A0 00"},
        {8, "3F F8 00 00"},
        {9, "01 02 03"},
        {6, "50"},
        /* five unused bits of four */ {6, "80"},
        {0, "00"},
        {11, "00"},
    };
    const wchar_t* const names[] = {L"",     L"",        L"",      L"SHORT",  L"INT",
                                    L"LONG", L"BOOLEAN", L"FLOAT", L"DOUBLE", L"UUID"};
    for (const auto& c : octetCases) {
        const Octets octets = FromHex(c.second);
        const CFastInfosetBinaryData data(octets.data(), static_cast<unsigned long>(octets.size()));
        const std::wstring expected =
            c.first >= 3 && c.first <= 9
                ? L"Invalid value for " + std::wstring(names[c.first]) + L" byte encoding."
                : L"Unknown byte encoding.";
        EXPECT_EQ(expected, MessageOf<CQxException>([&] { data.GetAsString(c.first); })) << c.second;
    }
    const std::pair<int, const wchar_t*> textCases[] = {
        {3, L"40000"}, {4, L"4294967296"}, {5, L"1.5"}, {6, L"yes"}, {7, L"x"},
        {1, L"ABC"},   {9, L"0123"},       {0, L"1"},   {11, L"1"},  {3, L"  "},
    };
    for (const auto& c : textCases)
        EXPECT_NE(L"(no exception)", MessageOf<CQxException>([&] {
                      CFastInfosetBinaryData().SetAsEncodedString(c.first, c.second);
                  }))
            << c.first;
    EXPECT_EQ(L"Unknown byte encoding.",
              MessageOf<CQxException>([] { CFastInfosetBinaryData().SetAsEncodedString(11, L"1"); }));
}

} // namespace
