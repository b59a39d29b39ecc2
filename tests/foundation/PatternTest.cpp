#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"

#include <algorithm>
#include <string>

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
        {"a\\\\i", L"a\\i", true},           // an escaped backslash is not the start of \i
        {"caf\xc3\xa9", L"caf\u00e9", true}, // UTF-8 pattern against a wide value
        {"x*", L"", true},
        // Every alternative is anchored, not only the first.
        {"a)|(b", L"b", true},
        {"a)|(b", L"xb", false},
        {"a)|(b", L"ax", false},
        // Each mapped block holds its first and last character and neither neighbour.
        {"\\p{IsBasicLatin}+", L"\x01\x7f", true},
        {"\\p{IsBasicLatin}", L"\x80", false},
        {"\\p{IsLatin-1Supplement}+", L"\x80\xff", true},
        {"\\p{IsLatin-1Supplement}", L"\x7f", false},
        {"\\p{IsLatinExtended-A}+", L"\u0100\u017f", true},
        {"\\p{IsLatinExtended-A}", L"\u0180", false},
        {"x\\p{IsLatinExtended-B}+y", L"x\u0180\u01C4\u024Fy", true},
        {"\\p{IsLatinExtended-B}", L"\u017f", false},
        {"\\p{IsLatinExtended-B}", L"\u0250", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(TestRegEx(c.pattern, c.value), c.matches) << c.pattern;
}

// A refused pattern is remembered with its message and refused the same way every time.
TEST(TestRegEx, RefusedPatternNamesItselfEachTime) {
    EXPECT_EQ(MessageOf<CQxException>([] { TestRegEx("[a-", L"a"); }),
              L"Invalid Regular Expression: [a- Error: 'range out of order in character class'");
    for (const wchar_t* value : {L"a", L"b"})
        EXPECT_EQ(MessageOf<CQxException>([&] { TestRegEx("(", value); }),
                  L"Invalid Regular Expression: ( Error: 'missing closing parenthesis'");
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

namespace {

enum Verdict { kNoMatch, kMatch, kRefused };

Verdict VerdictOf(const char* pattern, const wchar_t* value, PatternMode mode) {
    try {
        return TestRegEx(pattern, value, mode) ? kMatch : kNoMatch;
    } catch (const CQxException&) {
        return kRefused;
    }
}

} // namespace

// Where XML Schema and PCRE read a pattern differently, the default mode keeps PCRE's reading (the
// verdicts of existing bindings) and the exact mode gives XML Schema's. Run in both modes one after
// the other, which also proves that the compiled patterns of the two modes are kept apart.
TEST(PatternModes, DifferWhereXmlSchemaAndPcreDiffer) {
    struct Case {
        const char* pattern;
        const wchar_t* value;
        Verdict translated;
        Verdict exact;
    };
    const Case cases[] = {
        {"\\d", L"\u0663", kNoMatch, kMatch}, // an Arabic-Indic digit is a decimal digit
        {"\\w", L"_", kMatch, kNoMatch},      // '_' is punctuation, not a word character
        {"\\w", L"\u00e9", kNoMatch, kMatch}, // a letter beyond ASCII is one
        {"\\s", L"\f", kMatch, kNoMatch},     // form feed is no XML Schema space
        {"^a$", L"^a$", kNoMatch, kMatch},    // '^' and '$' are plain characters
        {"^a$", L"a", kMatch, kNoMatch},
        {"a.b", L"a\rb", kMatch, kNoMatch},            // '.' matches neither line end
        {"[a-z-[aeiou]]", L"b", kNoMatch, kMatch},     // class subtraction
        {"\\p{IsGreek}", L"\u03b1", kRefused, kMatch}, // PCRE knows no block names
        {"[\\i]", L"a", kRefused, kMatch},             // \i inside a class
        {"a+?", L"a", kMatch, kRefused},               // other dialects' syntax
        {"(?i)a", L"A", kMatch, kRefused},
        {"(a)\\2", L"aa", kMatch, kRefused}, // the whole pattern is group 1
        {"\\bx", L"x", kMatch, kRefused},
        {"\\p{IsLatinExtended-B}+", L"\u0180\u024f", kMatch, kMatch},
        {"\\i\\c*", L"x1", kMatch, kMatch},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(VerdictOf(c.pattern, c.value, pmTranslated), c.translated) << c.pattern;
        EXPECT_EQ(VerdictOf(c.pattern, c.value, pmExact), c.exact) << c.pattern;
    }
}

TEST(ExactPatterns, XmlSchemaMeaningOfEveryConstruct) {
    struct Case {
        const char* pattern;
        const wchar_t* value;
        bool matches;
    };
    const Case cases[] = {
        // Escapes for one character, and the characters that need none.
        {"\\n\\r\\t\\\\\\|\\.\\?\\*\\+\\(\\)\\{\\}\\-\\[\\]\\^", L"\n\r\t\\|.?*+(){}-[]^", true},
        {"a$b^c", L"a$b^c", true},
        {"\xc3\xa9+", L"\u00e9\u00e9", true},
        // Multi-character escapes and their complements.
        {"\\s+", L" \t\n\r", true},
        {"\\i", L":", true},
        {"\\i", L"-", false},
        {"\\c+", L"a-.\u00b79", true},
        {"\\C", L"\u00b7", false},
        {"\\d", L"5", true},
        {"\\D", L"\u0663", false},
        {"\\w", L"\u00e9", true},
        {"\\W", L"-", true},
        {".", L"\n", false},
        {".", L"\U0001F600", true}, // one character, however many bytes
        // Categories and blocks, also beyond the first plane and across their two ranges.
        {"\\p{L}\\p{Lu}\\p{Ll}", L"\u00c9Aa", true},
        {"\\p{Nd}", L"\u0663", true},
        {"\\p{Sc}", L"\u20ac", true},
        {"\\p{IsBasicLatin}\\p{IsGothic}\\p{IsTags}", L"\x7f\U00010330\U000E007F", true},
        {"\\p{IsSpecials}{2}", L"\ufeff\ufffd", true},
        {"\\p{IsPrivateUse}{3}", L"\ue000\U000F0000\U0010FFFD", true},
        {"\\p{IsCJKUnifiedIdeographsExtensionA}", L"\u4db6", false},
        {"\\P{IsBasicLatin}", L"a", false},
        {"\\p{IsHighSurrogates}", L"a", false}, // no character lies there
        // Classes: ranges, escapes inside, negation, hyphens first or last, subtraction nested.
        {"[a-cx]+", L"abcx", true},
        {"[\\i-[:]][\\c-[:]]*", L"a:b", false},
        {"[\\i-[:]][\\c-[:]]*", L"ab-c", true},
        {"[\\w\\-]+", L"a-b", true},
        {"[^\\w]", L"-", true},
        {"[^\\p{IsBasicLatin}]", L"\u00e9", true},
        {"[-a]+[b-]+", L"-a-b", true},
        {"[^-]", L"-", false},
        {"[\\[\\]]+", L"[]", true},
        {"[a-z-[b-y-[m]]]", L"m", true},
        {"[a-z-[b-y-[m]]]", L"n", false},
        {"[\\p{L}-[\\p{Lu}]]+", L"aBc", false},
        // Groups, alternatives and counts.
        {"(ab|cd)*", L"abcdab", true},
        {"a|", L"", true},
        {"()", L"", true},
        {"(a|b){2,3}", L"aba", true},
        {"(a|b){2,3}", L"abab", false},
        {"a{0}", L"", true},
        // The whole value must match: an alternative that matches only a prefix does not hide a
        // later one that matches it all.
        {"a|ab", L"ab", true},
        {"\\d|\\d\\d", L"12", true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(TestRegEx(c.pattern, c.value, pmExact), c.matches) << c.pattern;
}

// The grammar's verdict says where and why; the exact mode refuses the same patterns with the same
// reason.
TEST(ExactPatterns, InvalidPatternsSayWhereAndWhy) {
    struct Case {
        const wchar_t* pattern;
        size_t position;
        const wchar_t* reason;
    };
    const std::wstring deep = std::wstring(65, L'(') + std::wstring(65, L')');
    const Case cases[] = {
        {L"a+?", 2, L"reluctant and possessive quantifiers are not XML Schema syntax"},
        {L"a**", 2, L"a quantifier cannot follow another quantifier"},
        {L"*a", 0, L"a quantifier must follow something to repeat"},
        {L"a|{2}", 2, L"a quantifier must follow something to repeat"},
        {L"(?i)a", 0, L"(? (options, lookaround or a named group) is not XML Schema syntax"},
        {L"(a)\\1", 3, L"\\1 (a back-reference) is not XML Schema syntax"},
        {L"\\bword", 0, L"\\b (an anchor) is not XML Schema syntax"},
        {L"\\x41", 0, L"\\x is not XML Schema syntax: write the character itself"},
        {L"\\$", 0, L"\\$ is not an XML Schema escape"},
        {L"a\\", 1, L"the pattern ends in a backslash"},
        {L"(ab", 0, L"missing closing parenthesis"},
        {L"ab)", 2, L"unmatched closing parenthesis"},
        {L"a}", 1, L"unmatched closing brace"},
        {L"a]", 1, L"unmatched closing bracket"},
        {L"[ab", 0, L"missing closing bracket"},
        {L"[]", 1, L"empty character class"},
        {L"[a-b-c]", 4, L"a hyphen stands for itself only first or last in a class; escape it as \\-"},
        {L"[a[b]", 2, L"an opening bracket inside a class must be escaped as \\["},
        {L"[z-a]", 1, L"range out of order"},
        {L"[a-\\d]", 3, L"a range must end in a single character"},
        {L"[a-z-[aeiou]b]", 0, L"missing closing bracket"},
        {L"\\p{IsKlingon}", 0, L"unknown block name [IsKlingon]"},
        {L"\\p{Xx}", 0, L"unknown character category [Xx]"},
        {L"\\pL", 0, L"\\p and \\P take a name in braces"},
        {L"\\p{L", 0, L"missing closing brace after the property name"},
        {L"a{3,1}", 1, L"{3,1}: the minimum is above the maximum"},
        {L"a{,2}", 1, L"a count is written {n}, {n,} or {n,m}"},
        {L"a{65536}", 1, L"counts above 65535 are not supported"},
        {deep.c_str(), 64, L"groups and classes nested more than 64 deep"},
    };
    for (const Case& c : cases) {
        const std::optional<CPatternError> error = CheckXmlSchemaPattern(c.pattern);
        ASSERT_TRUE(error) << c.pattern;
        EXPECT_EQ(error->position, c.position) << c.pattern;
        EXPECT_EQ(error->reason, c.reason) << c.pattern;
    }
    EXPECT_EQ(
        MessageOf<CQxException>([] { TestRegEx("a+?", L"a", pmExact); }),
        L"Invalid Regular Expression: a+? Error: 'reluctant and possessive quantifiers are not XML Schema "
        L"syntax (position 2)'");
    for (const wchar_t* valid : {L"", L"a|", L"()", L"[-a]", L"[a-]", L"[^-]", L"\\-", L"a{0,0}", L"x{1,}",
                                 L"[\\p{IsBasicLatin}-[\\P{L}]]", L"\\p{Cn}", L"(((a)))"})
        EXPECT_FALSE(CheckXmlSchemaPattern(valid)) << valid;
}

// Every block name of XML Schema is known, spelled as the schema language spells it.
TEST(ExactPatterns, KnowsEveryXmlSchemaBlockName) {
    const std::wstring names =
        L"BasicLatin Latin-1Supplement LatinExtended-A LatinExtended-B IPAExtensions SpacingModifierLetters "
        L"CombiningDiacriticalMarks Greek Cyrillic Armenian Hebrew Arabic Syriac Thaana Devanagari Bengali "
        L"Gurmukhi Gujarati Oriya Tamil Telugu Kannada Malayalam Sinhala Thai Lao Tibetan Myanmar Georgian "
        L"HangulJamo Ethiopic Cherokee UnifiedCanadianAboriginalSyllabics Ogham Runic Khmer Mongolian "
        L"LatinExtendedAdditional GreekExtended GeneralPunctuation SuperscriptsandSubscripts CurrencySymbols "
        L"CombiningMarksforSymbols LetterlikeSymbols NumberForms Arrows MathematicalOperators "
        L"MiscellaneousTechnical ControlPictures OpticalCharacterRecognition EnclosedAlphanumerics "
        L"BoxDrawing "
        L"BlockElements GeometricShapes MiscellaneousSymbols Dingbats BraillePatterns CJKRadicalsSupplement "
        L"KangxiRadicals IdeographicDescriptionCharacters CJKSymbolsandPunctuation Hiragana Katakana "
        L"Bopomofo "
        L"HangulCompatibilityJamo Kanbun BopomofoExtended EnclosedCJKLettersandMonths CJKCompatibility "
        L"CJKUnifiedIdeographsExtensionA CJKUnifiedIdeographs YiSyllables YiRadicals HangulSyllables "
        L"HighSurrogates HighPrivateUseSurrogates LowSurrogates PrivateUse CJKCompatibilityIdeographs "
        L"AlphabeticPresentationForms ArabicPresentationForms-A CombiningHalfMarks CJKCompatibilityForms "
        L"SmallFormVariants ArabicPresentationForms-B Specials HalfwidthandFullwidthForms OldItalic Gothic "
        L"Deseret ByzantineMusicalSymbols MusicalSymbols MathematicalAlphanumericSymbols "
        L"CJKUnifiedIdeographsExtensionB CJKCompatibilityIdeographsSupplement Tags";
    size_t count = 0;
    for (size_t at = 0; at < names.size(); ++count) {
        const size_t end = std::min(names.find(L' ', at), names.size());
        const std::wstring pattern = L"\\p{Is" + names.substr(at, end - at) + L"}";
        EXPECT_FALSE(CheckXmlSchemaPattern(pattern)) << pattern;
        at = end + 1;
    }
    EXPECT_EQ(count, 96u);
    EXPECT_TRUE(CheckXmlSchemaPattern(L"\\p{Isgreek}")); // names are case-sensitive
}
