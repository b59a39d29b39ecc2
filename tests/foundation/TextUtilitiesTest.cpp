#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"

#include <clocale>
#include <cstdio>
#include <string>

using namespace QxXmlLib16;

TEST(FormatString, SizesTheOutputForEveryKindOfConversion) {
    const std::wstring longText(5000, L'x');
    EXPECT_EQ(FormatString(L"[%ls] %d%%", longText.c_str(), -12), L"[" + longText + L"] -12%");
    EXPECT_EQ(FormatString(L"%s|%c|%lc|%5d|%-4d|%05.1f", "narrow", 'c', L'w', 42, 7, 3.14159),
              L"narrow|c|w|   42|7   |003.1");
    EXPECT_EQ(FormatString(L"%*d|%.*f|%lld|%zu", 6, 1, 2, 2.5, 1234567890123LL, size_t(9)),
              L"     1|2.50|1234567890123|9");
    // A huge fixed-point number is measured, not guessed.
    EXPECT_EQ(FormatString(L"%.2f", 1e300).size(), 301u + 3u);
    EXPECT_EQ(FormatString(L"%20ls|", L"ab"), std::wstring(18, L' ') + L"ab|");
}

TEST(FormatString, PadZeroAndFractionalSeconds) {
    EXPECT_EQ(PadZero(7, 3), L"007");
    EXPECT_EQ(PadZero(12345, 3), L"12345");
    EXPECT_EQ(TrimTrainingZeros(L"500"), L"5");
    EXPECT_EQ(TrimTrainingZeros(L"000"), L"0");
    EXPECT_EQ(TrimTrainingZeros(L""), L"");
    EXPECT_EQ(ToFracString(0, 0, 0), L"");
    EXPECT_EQ(ToFracString(500, 0, 0), L".5");
    EXPECT_EQ(ToFracString(120, 0, 0), L".12");
    EXPECT_EQ(ToFracString(1, 2, 30), L".00100203");
    EXPECT_EQ(ToFracString(0, 10, 0), L".00001");
}

TEST(FindReplace, ReplacesEveryOccurrenceInBothWidths) {
    std::wstring wide = L"a--b--c";
    FindReplace(wide, L"--", L"+");
    EXPECT_EQ(wide, L"a+b+c");
    std::string narrow = "aaaa";
    FindReplace(narrow, "aa", "a"); // searching again from the start collapses the run
    EXPECT_EQ(narrow, "a");
    FindReplace(narrow, "", "x");
    EXPECT_EQ(narrow, "a");
}

TEST(NarrowText, MultiByteUpperCaseAndFileLength) {
    EXPECT_EQ(UnicodeToMultiByte(L""), "");
    EXPECT_EQ(UnicodeToMultiByte(L"ab\u00e9c"), "ab?c"); // the C locale has no é
    char text[] = "abc1";
    EXPECT_STREQ(strupr(text), "ABC1");

    FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    std::fputs("hello", file);
    std::fseek(file, 2, SEEK_SET);
    EXPECT_EQ(_filelength(file), 5);
    EXPECT_EQ(std::ftell(file), 2);
    std::fclose(file);
    EXPECT_EQ(_filelength(nullptr), -1);
}

TEST(Whitespace, RulesNormaliseLineEndsAndBlanks) {
    struct Case {
        CWhitespaceUtils::WhitespaceRule rule;
        const wchar_t* input;
        const wchar_t* expected;
    };
    const Case cases[] = {
        {CWhitespaceUtils::wsNone, L" a\r\n", L" a\r\n"},
        {CWhitespaceUtils::wsPreserve, L"a\r\nb", L"a\nb"},
        {CWhitespaceUtils::wsPreserve, L"a\rb\r", L"a\nb\n"},
        {CWhitespaceUtils::wsPreserve, L"\r\r\n\n", L"\n\n\n"},
        {CWhitespaceUtils::wsPreserve, L"a\tb\n", L"a\tb\n"},
        {CWhitespaceUtils::wsReplace, L"a\r\nb", L"a b"},
        {CWhitespaceUtils::wsReplace, L"\ta\rb\n", L" a b "},
        {CWhitespaceUtils::wsCollapse, L"  a \t\n b  ", L"a b"},
        {CWhitespaceUtils::wsCollapse, L"   ", L""},
        {CWhitespaceUtils::wsCollapse, L"a\r\n\r\nb c", L"a b c"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(c.rule, c.input), c.expected) << c.input;
    EXPECT_EQ(CWhitespaceUtils::Preserve(L"a\rbc", 2), L"a\n");
}
