#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using namespace QxXmlLib16;

TEST(TestRegEx, TranslatesSchemaEscapesAndAnchorsBothEnds) {
    struct Case {
        const char* pattern;
        const wchar_t* value;
        bool matches;
    };
    const Case cases[] = {
        {"\\i\\c*", L"x1", true},
        {"\\i\\c*", L"1x", false},
        {"\\i\\c*", L"a:b.c-d", true},
        {"[a-z]+", L"abc1", false}, // extra text after a match
        {"[a-z]+", L"1abc", false},
        {"\\d{3}", L"123", true},
        {"a\\\\i", L"a\\i", true}, // an escaped backslash is not the start of \i
        {"\\p{IsBasicLatin}+", L"abc", true},
        {"\\p{IsLatin-1Supplement}", L"\u00e9", true},
        {"\\p{IsLatin-1Supplement}", L"e", false},
        {"caf\xc3\xa9", L"caf\u00e9", true}, // UTF-8 pattern against a wide value
        {"a|b", L"b", true},
        {"x*", L"", true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(TestRegEx(c.pattern, c.value), c.matches) << c.pattern;
}

// Each mapped block holds its first and last character and neither neighbour.
TEST(TestRegEx, LatinBlocksCoverExactlyTheirRange) {
    struct Block {
        const char* pattern;
        wchar_t first;
        wchar_t last;
    };
    const Block blocks[] = {
        {"\\p{IsBasicLatin}", 0x01, 0x7F},
        {"\\p{IsLatin-1Supplement}", 0x80, 0xFF},
        {"\\p{IsLatinExtended-A}", 0x100, 0x17F},
        {"\\p{IsLatinExtended-B}", 0x180, 0x24F},
    };
    for (const Block& block : blocks) {
        EXPECT_TRUE(TestRegEx(block.pattern, std::wstring(1, block.first))) << block.pattern;
        EXPECT_TRUE(TestRegEx(block.pattern, std::wstring(1, block.last))) << block.pattern;
        EXPECT_FALSE(TestRegEx(block.pattern, std::wstring(1, block.last + 1))) << block.pattern;
        if (block.first > 1) {
            EXPECT_FALSE(TestRegEx(block.pattern, std::wstring(1, block.first - 1))) << block.pattern;
        }
    }
    // A block inside a larger class and beside literal text.
    EXPECT_TRUE(TestRegEx("x\\p{IsLatinExtended-B}+y", L"x\u0180\u01C4\u024Fy"));
}

TEST(TestRegEx, PatternThatDoesNotCompileNamesItself) {
    EXPECT_EQ(MessageOf<CQxException>([] { TestRegEx("[a-", L"a"); }),
              L"Invalid Regular Expression: [a- Error: 'range out of order in character class'");
}

TEST(TestRegEx, AnchorsEveryAlternativeNotOnlyTheFirst) {
    EXPECT_TRUE(TestRegEx("a)|(b", L"b"));
    EXPECT_FALSE(TestRegEx("a)|(b", L"xb"));
    EXPECT_FALSE(TestRegEx("a)|(b", L"ax"));
}

// A refused pattern is remembered with its message and refused the same way every time.
TEST(TestRegEx, RefusedPatternGivesTheSameMessageEachTime) {
    const std::wstring first = MessageOf<CQxException>([] { TestRegEx("(", L"a"); });
    EXPECT_EQ(first, L"Invalid Regular Expression: ( Error: 'missing closing parenthesis'");
    EXPECT_EQ(MessageOf<CQxException>([] { TestRegEx("(", L"b"); }), first);
}

// Matching that would backtrack without end, or hold more memory than a value deserves, is reported
// rather than taken for a mismatch; a long value within the limits still matches.
TEST(TestRegEx, LimitsOfOneMatchAreReportedNotTakenForAMismatch) {
    EXPECT_EQ(MessageOf<CQxException>([] { TestRegEx("(a|a)*[bc]", std::wstring(40, L'a')); }),
              L"Failed to match the Regular Expression: (a|a)*[bc] Error: 'match limit exceeded'");
    std::wstring pairs;
    for (int i = 0; i < 200000; ++i)
        pairs += L"ab";
    EXPECT_TRUE(TestRegEx("(ab)*", pairs));
    EXPECT_FALSE(TestRegEx("(ab)*", pairs + L"a"));
    for (int i = 0; i < 2000000; ++i)
        pairs += L"ab";
    EXPECT_EQ(MessageOf<CQxException>([&] { TestRegEx("(ab)*", pairs); }),
              L"Failed to match the Regular Expression: (ab)* Error: 'heap limit exceeded'");
}

// Threads match a few shared patterns while each also pushes more new patterns through than the
// caches keep, so that patterns in use by one thread are evicted by another.
TEST(TestRegEx, ThreadsMatchWhileOthersEvictWhatTheyUse) {
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&wrong, t] {
            for (int i = 0; i < 1500; ++i) {
                const bool shared = TestRegEx("[A-Z]{2}[0-9]{2}\\c*", L"CH93x-1") &&
                                    !TestRegEx("[A-Z]{2}[0-9]{2}\\c*", L"C93") &&
                                    TestRegEx("\\p{IsLatinExtended-B}+", L"\u0180\u024F");
                const std::string fresh = "t" + std::to_string(t) + "n" + std::to_string(i) + "[a-c]?";
                const std::wstring value = L"t" + std::to_wstring(t) + L"n" + std::to_wstring(i);
                if (!shared || !TestRegEx(fresh, value + L"b") || TestRegEx(fresh, value + L"d")) ++wrong;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}
