#include "foundation/SchemaRegex.h"

#include <QxXmlLib16/foundation/Functions.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <utility>
#include <vector>

namespace QxXmlLib16 {
namespace internal {

namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;
// PCRE2 nests parentheses 250 deep; a subtraction or a negated class takes up to three of them.
constexpr int kMaxNesting = 64;
constexpr unsigned long kMaxCount = 65535; // PCRE2's largest repeat count

struct Range {
    char32_t first;
    char32_t last;
};

// The blocks XML Schema names, with the ranges of the Unicode version it refers to. A name listed
// twice covers both ranges.
struct Block {
    const char* name;
    Range range;
};
constexpr Block kBlocks[] = {
    {"BasicLatin", {0x0000, 0x007F}},
    {"Latin-1Supplement", {0x0080, 0x00FF}},
    {"LatinExtended-A", {0x0100, 0x017F}},
    {"LatinExtended-B", {0x0180, 0x024F}},
    {"IPAExtensions", {0x0250, 0x02AF}},
    {"SpacingModifierLetters", {0x02B0, 0x02FF}},
    {"CombiningDiacriticalMarks", {0x0300, 0x036F}},
    {"Greek", {0x0370, 0x03FF}},
    {"Cyrillic", {0x0400, 0x04FF}},
    {"Armenian", {0x0530, 0x058F}},
    {"Hebrew", {0x0590, 0x05FF}},
    {"Arabic", {0x0600, 0x06FF}},
    {"Syriac", {0x0700, 0x074F}},
    {"Thaana", {0x0780, 0x07BF}},
    {"Devanagari", {0x0900, 0x097F}},
    {"Bengali", {0x0980, 0x09FF}},
    {"Gurmukhi", {0x0A00, 0x0A7F}},
    {"Gujarati", {0x0A80, 0x0AFF}},
    {"Oriya", {0x0B00, 0x0B7F}},
    {"Tamil", {0x0B80, 0x0BFF}},
    {"Telugu", {0x0C00, 0x0C7F}},
    {"Kannada", {0x0C80, 0x0CFF}},
    {"Malayalam", {0x0D00, 0x0D7F}},
    {"Sinhala", {0x0D80, 0x0DFF}},
    {"Thai", {0x0E00, 0x0E7F}},
    {"Lao", {0x0E80, 0x0EFF}},
    {"Tibetan", {0x0F00, 0x0FFF}},
    {"Myanmar", {0x1000, 0x109F}},
    {"Georgian", {0x10A0, 0x10FF}},
    {"HangulJamo", {0x1100, 0x11FF}},
    {"Ethiopic", {0x1200, 0x137F}},
    {"Cherokee", {0x13A0, 0x13FF}},
    {"UnifiedCanadianAboriginalSyllabics", {0x1400, 0x167F}},
    {"Ogham", {0x1680, 0x169F}},
    {"Runic", {0x16A0, 0x16FF}},
    {"Khmer", {0x1780, 0x17FF}},
    {"Mongolian", {0x1800, 0x18AF}},
    {"LatinExtendedAdditional", {0x1E00, 0x1EFF}},
    {"GreekExtended", {0x1F00, 0x1FFF}},
    {"GeneralPunctuation", {0x2000, 0x206F}},
    {"SuperscriptsandSubscripts", {0x2070, 0x209F}},
    {"CurrencySymbols", {0x20A0, 0x20CF}},
    {"CombiningMarksforSymbols", {0x20D0, 0x20FF}},
    {"LetterlikeSymbols", {0x2100, 0x214F}},
    {"NumberForms", {0x2150, 0x218F}},
    {"Arrows", {0x2190, 0x21FF}},
    {"MathematicalOperators", {0x2200, 0x22FF}},
    {"MiscellaneousTechnical", {0x2300, 0x23FF}},
    {"ControlPictures", {0x2400, 0x243F}},
    {"OpticalCharacterRecognition", {0x2440, 0x245F}},
    {"EnclosedAlphanumerics", {0x2460, 0x24FF}},
    {"BoxDrawing", {0x2500, 0x257F}},
    {"BlockElements", {0x2580, 0x259F}},
    {"GeometricShapes", {0x25A0, 0x25FF}},
    {"MiscellaneousSymbols", {0x2600, 0x26FF}},
    {"Dingbats", {0x2700, 0x27BF}},
    {"BraillePatterns", {0x2800, 0x28FF}},
    {"CJKRadicalsSupplement", {0x2E80, 0x2EFF}},
    {"KangxiRadicals", {0x2F00, 0x2FDF}},
    {"IdeographicDescriptionCharacters", {0x2FF0, 0x2FFF}},
    {"CJKSymbolsandPunctuation", {0x3000, 0x303F}},
    {"Hiragana", {0x3040, 0x309F}},
    {"Katakana", {0x30A0, 0x30FF}},
    {"Bopomofo", {0x3100, 0x312F}},
    {"HangulCompatibilityJamo", {0x3130, 0x318F}},
    {"Kanbun", {0x3190, 0x319F}},
    {"BopomofoExtended", {0x31A0, 0x31BF}},
    {"EnclosedCJKLettersandMonths", {0x3200, 0x32FF}},
    {"CJKCompatibility", {0x3300, 0x33FF}},
    {"CJKUnifiedIdeographsExtensionA", {0x3400, 0x4DB5}},
    {"CJKUnifiedIdeographs", {0x4E00, 0x9FFF}},
    {"YiSyllables", {0xA000, 0xA48F}},
    {"YiRadicals", {0xA490, 0xA4CF}},
    {"HangulSyllables", {0xAC00, 0xD7A3}},
    {"HighSurrogates", {0xD800, 0xDB7F}},
    {"HighPrivateUseSurrogates", {0xDB80, 0xDBFF}},
    {"LowSurrogates", {0xDC00, 0xDFFF}},
    {"PrivateUse", {0xE000, 0xF8FF}},
    {"CJKCompatibilityIdeographs", {0xF900, 0xFAFF}},
    {"AlphabeticPresentationForms", {0xFB00, 0xFB4F}},
    {"ArabicPresentationForms-A", {0xFB50, 0xFDFF}},
    {"CombiningHalfMarks", {0xFE20, 0xFE2F}},
    {"CJKCompatibilityForms", {0xFE30, 0xFE4F}},
    {"SmallFormVariants", {0xFE50, 0xFE6F}},
    {"ArabicPresentationForms-B", {0xFE70, 0xFEFE}},
    {"Specials", {0xFEFF, 0xFEFF}},
    {"HalfwidthandFullwidthForms", {0xFF00, 0xFFEF}},
    {"Specials", {0xFFF0, 0xFFFD}},
    {"OldItalic", {0x10300, 0x1032F}},
    {"Gothic", {0x10330, 0x1034F}},
    {"Deseret", {0x10400, 0x1044F}},
    {"ByzantineMusicalSymbols", {0x1D000, 0x1D0FF}},
    {"MusicalSymbols", {0x1D100, 0x1D1FF}},
    {"MathematicalAlphanumericSymbols", {0x1D400, 0x1D7FF}},
    {"CJKUnifiedIdeographsExtensionB", {0x20000, 0x2A6D6}},
    {"CJKCompatibilityIdeographsSupplement", {0x2F800, 0x2FA1F}},
    {"Tags", {0xE0000, 0xE007F}},
    {"PrivateUse", {0xF0000, 0xFFFFD}},
    {"PrivateUse", {0x100000, 0x10FFFD}},
};

// The general categories XML Schema names; PCRE2 knows each under the same name.
constexpr const char* kCategories[] = {"L",  "Lu", "Ll", "Lt", "Lm", "Lo", "M",  "Mn", "Mc",
                                       "Me", "N",  "Nd", "Nl", "No", "P",  "Pc", "Pd", "Ps",
                                       "Pe", "Pi", "Pf", "Po", "Z",  "Zs", "Zl", "Zp", "S",
                                       "Sm", "Sc", "Sk", "So", "C",  "Cc", "Cf", "Co", "Cn"};

// \i and \c: the name characters of XML 1.0 (fifth edition), NameStartChar and NameChar.
constexpr Range kNameStart[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr Range kNameOnly[] = {{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};
constexpr Range kSpaces[] = {{'\t', '\n'}, {'\r', '\r'}, {' ', ' '}};
constexpr Range kLineEnds[] = {{'\n', '\n'}, {'\r', '\r'}};

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

void AppendCharacter(std::string& out, char32_t c) {
    if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
        out += static_cast<char>(c);
        return;
    }
    char escaped[16];
    std::snprintf(escaped, sizeof escaped, "\\x{%X}", static_cast<unsigned>(c));
    out += escaped;
}

// Characters as sorted, disjoint ranges. Surrogates are no characters and never members: PCRE2
// refuses them in a UTF pattern.
class CRangeSet {
public:
    CRangeSet() = default;
    template <size_t N>
    explicit CRangeSet(const Range (&ranges)[N]) {
        for (const Range& range : ranges)
            Add(range.first, range.last);
    }

    void Add(char32_t first, char32_t last) {
        if (first <= 0xD7FF) m_ranges.push_back({first, std::min<char32_t>(last, 0xD7FF)});
        if (last >= 0xE000) m_ranges.push_back({std::max<char32_t>(first, 0xE000), last});
        m_normal = false;
    }
    void Add(const CRangeSet& other) {
        m_ranges.insert(m_ranges.end(), other.m_ranges.begin(), other.m_ranges.end());
        m_normal = false;
    }
    CRangeSet Complement() const {
        CRangeSet result;
        char32_t next = 0;
        for (const Range& range : Normal()) {
            if (range.first > next) result.Add(next, range.first - 1);
            next = range.last + 1;
        }
        if (next <= kLastCharacter) result.Add(next, kLastCharacter);
        return result;
    }
    // The ranges as the inside of a PCRE2 class.
    void AppendTo(std::string& out) const {
        for (const Range& range : Normal()) {
            AppendCharacter(out, range.first);
            if (range.last == range.first) continue;
            out += '-';
            AppendCharacter(out, range.last);
        }
    }

private:
    const std::vector<Range>& Normal() const {
        if (m_normal) return m_ranges;
        std::sort(m_ranges.begin(), m_ranges.end(),
                  [](const Range& a, const Range& b) { return a.first < b.first; });
        std::vector<Range> merged;
        for (const Range& range : m_ranges) {
            if (!merged.empty() && range.first <= merged.back().last + 1)
                merged.back().last = std::max(merged.back().last, range.last);
            else
                merged.push_back(range);
        }
        m_ranges.swap(merged);
        m_normal = true;
        return m_ranges;
    }

    mutable std::vector<Range> m_ranges;
    mutable bool m_normal = true;
};

// A set of characters as it is built from the items of a class: ranges and category escapes go
// inside one PCRE2 class; \w cannot (it is a complement of categories) and stands beside it.
struct CCharSet {
    CRangeSet ranges;
    std::string properties; // \p{..} and \P{..}, as written inside a PCRE2 class
    bool word = false;      // \w

    void Add(const CCharSet& other) {
        ranges.Add(other.ranges);
        properties += other.properties;
        word = word || other.word;
    }
};

const char* const kWordComplement = "\\p{P}\\p{Z}\\p{C}";
const char* const kAnyCharacter = "(?s:.)";
const char* const kNothing = "(?!)";

// What goes inside a PCRE2 class for the set, \w aside.
std::string ClassInside(const CCharSet& set) {
    std::string inside;
    set.ranges.AppendTo(inside);
    return inside + set.properties;
}

// One character of the set, as a PCRE2 expression.
std::string Positive(const CCharSet& set) {
    const std::string inside = ClassInside(set);
    const std::string word = std::string("[^") + kWordComplement + "]";
    if (inside.empty()) return set.word ? word : kNothing;
    return set.word ? "(?:[" + inside + "]|" + word + ")" : "[" + inside + "]";
}

// One character outside the set.
std::string Negative(const CCharSet& set) {
    if (set.word) return std::string("(?:(?!") + Positive(set) + ")" + kAnyCharacter + ")";
    const std::string inside = ClassInside(set);
    return inside.empty() ? kAnyCharacter : "[^" + inside + "]";
}

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t c : text)
        narrow += c < 0x80 ? static_cast<char>(c) : '?';
    return narrow;
}

struct CSyntaxError {
    size_t position;
    std::wstring reason;
};

// A recursive-descent reader of the grammar that writes the PCRE2 form as it goes. Nesting is
// bounded (kMaxNesting), so the recursion is too.
class CSchemaRegexReader {
public:
    explicit CSchemaRegexReader(const std::wstring& pattern)
        : m_text(pattern) {}

    std::string Translate() {
        std::string out;
        RegExp(out);
        if (!AtEnd()) Fail(m_at, L"unmatched closing parenthesis"); // the only character RegExp stops at
        return out;
    }

private:
    [[noreturn]] void Fail(size_t position, std::wstring reason) const {
        throw CSyntaxError{position, std::move(reason)};
    }
    bool AtEnd() const { return m_at >= m_text.size(); }
    char32_t Peek(size_t ahead = 0) const {
        return m_at + ahead < m_text.size() ? static_cast<char32_t>(m_text[m_at + ahead]) : 0;
    }
    bool PeekIs(char32_t c, size_t ahead = 0) const {
        return m_at + ahead < m_text.size() && Peek(ahead) == c;
    }

    void Nest(size_t position) {
        if (++m_depth > kMaxNesting)
            Fail(position, FormatString(L"groups and classes nested more than %d deep", kMaxNesting));
    }

    // regExp ::= branch ('|' branch)*
    void RegExp(std::string& out) {
        Branch(out);
        while (PeekIs('|')) {
            ++m_at;
            out += '|';
            Branch(out);
        }
    }

    // branch ::= piece*
    void Branch(std::string& out) {
        while (!AtEnd() && !PeekIs('|') && !PeekIs(')')) {
            std::string atom;
            Atom(atom);
            Quantifier(atom);
            out += atom;
        }
    }

    void Atom(std::string& out) {
        const size_t start = m_at;
        const char32_t c = Peek();
        switch (c) {
        case '(':
            if (PeekIs('?', 1))
                Fail(start, L"(? (options, lookaround or a named group) is not XML Schema syntax");
            Nest(start);
            ++m_at;
            out += "(?:";
            RegExp(out);
            if (!PeekIs(')')) Fail(start, L"missing closing parenthesis");
            ++m_at;
            out += ')';
            --m_depth;
            return;
        case '[':
            out += CharClassExpression();
            return;
        case '\\':
            out += EscapeOutsideClass();
            return;
        case '.':
            ++m_at;
            out += Negative(CCharSet{CRangeSet(kLineEnds), {}, false});
            return;
        case '?':
        case '*':
        case '+':
        case '{':
            Fail(start, L"a quantifier must follow something to repeat");
        case '}':
            Fail(start, L"unmatched closing brace");
        case ']':
            Fail(start, L"unmatched closing bracket");
        default:
            ++m_at;
            if (IsSurrogate(c) || c > kLastCharacter)
                out += kNothing; // not a character: matches none
            else
                AppendCharacter(out, c);
        }
    }

    // quantifier ::= [?*+] | '{' quantity '}'
    void Quantifier(std::string& atom) {
        const size_t start = m_at;
        const char32_t c = Peek();
        if (c == '?' || c == '*' || c == '+') {
            ++m_at;
            atom = "(?:" + atom + ")" + static_cast<char>(c);
        } else if (c == '{') {
            ++m_at;
            const unsigned long least = Count(start);
            std::string quantity = std::to_string(least);
            if (PeekIs(',')) {
                ++m_at;
                quantity += ',';
                if (!PeekIs('}')) {
                    const unsigned long most = Count(start);
                    if (most < least)
                        Fail(start,
                             FormatString(L"{%lu,%lu}: the minimum is above the maximum", least, most));
                    quantity += std::to_string(most);
                }
            }
            if (!PeekIs('}')) Fail(start, L"a count is written {n}, {n,} or {n,m}");
            ++m_at;
            atom = "(?:" + atom + "){" + quantity + "}";
        } else {
            return;
        }
        const char32_t next = Peek();
        if (next == '?' || next == '+')
            Fail(m_at, L"reluctant and possessive quantifiers are not XML Schema syntax");
        if (next == '*' || next == '{') Fail(m_at, L"a quantifier cannot follow another quantifier");
    }

    unsigned long Count(size_t quantifier) {
        if (!(Peek() >= '0' && Peek() <= '9')) Fail(quantifier, L"a count is written {n}, {n,} or {n,m}");
        unsigned long value = 0;
        for (; Peek() >= '0' && Peek() <= '9'; ++m_at) {
            value = value * 10 + (Peek() - '0');
            if (value > kMaxCount)
                Fail(quantifier, FormatString(L"counts above %lu are not supported", kMaxCount));
        }
        return value;
    }

    // An escape outside a class: one character, or a set of them.
    std::string EscapeOutsideClass() {
        char32_t single = 0;
        CCharSet set;
        bool negated = false;
        if (Escape(single, set, negated)) {
            std::string out;
            AppendCharacter(out, single);
            return out;
        }
        return negated ? Negative(set) : Positive(set);
    }

    // Reads an escape at '\': true with the character of a single-character escape, otherwise false
    // with the set it stands for (negated for \S, \P{..} and the like).
    bool Escape(char32_t& single, CCharSet& set, bool& negated) {
        const size_t start = m_at;
        ++m_at;
        if (AtEnd()) Fail(start, L"the pattern ends in a backslash");
        const char32_t c = Peek();
        ++m_at;
        switch (c) {
        case 'n':
            single = '\n';
            return true;
        case 'r':
            single = '\r';
            return true;
        case 't':
            single = '\t';
            return true;
        case '\\':
        case '|':
        case '.':
        case '?':
        case '*':
        case '+':
        case '(':
        case ')':
        case '{':
        case '}':
        case '-':
        case '[':
        case ']':
        case '^':
            single = c;
            return true;
        case 's':
        case 'S':
            set.ranges = CRangeSet(kSpaces);
            break;
        case 'i':
        case 'I':
            set.ranges = CRangeSet(kNameStart);
            break;
        case 'c':
        case 'C':
            set.ranges = CRangeSet(kNameStart);
            set.ranges.Add(CRangeSet(kNameOnly));
            break;
        case 'd':
        case 'D':
            set.properties = "\\p{Nd}";
            break;
        case 'w': // every character but punctuation, separators and others: no class can hold it
            set.word = true;
            return false;
        case 'W':
            set.properties = kWordComplement;
            return false;
        case 'p':
        case 'P':
            Property(start, set);
            break;
        default:
            Fail(start, UnknownEscape(c));
        }
        negated = c >= 'A' && c <= 'Z';
        return false;
    }

    static std::wstring UnknownEscape(char32_t c) {
        const std::wstring escape = std::wstring(L"\\") + static_cast<wchar_t>(c);
        if (c >= '0' && c <= '9') return escape + L" (a back-reference) is not XML Schema syntax";
        if (std::wcschr(L"bBAzZG", static_cast<wchar_t>(c)) && c != 0)
            return escape + L" (an anchor) is not XML Schema syntax";
        if (c == 'x' || c == 'u' || c == 'U')
            return escape + L" is not XML Schema syntax: write the character itself";
        return escape + L" is not an XML Schema escape";
    }

    // \p{name} or \P{name} at start, '{' next: a category or "Is" and a block name.
    void Property(size_t start, CCharSet& set) {
        if (!PeekIs('{')) Fail(start, L"\\p and \\P take a name in braces");
        const size_t close = m_text.find(L'}', m_at);
        if (close == std::wstring::npos) Fail(start, L"missing closing brace after the property name");
        const std::wstring name = m_text.substr(m_at + 1, close - m_at - 1);
        m_at = close + 1;
        if (name.compare(0, 2, L"Is") == 0) {
            const std::string block = Narrow(name.substr(2));
            bool known = false;
            for (const Block& candidate : kBlocks) {
                if (block != candidate.name) continue;
                known = true; // the surrogate blocks hold no characters and stay empty
                set.ranges.Add(candidate.range.first, candidate.range.last);
            }
            if (!known) Fail(start, L"unknown block name [" + name + L"]");
            return;
        }
        const std::string category = Narrow(name);
        for (const char* candidate : kCategories) {
            if (category == candidate) {
                set.properties = "\\p{" + category + "}";
                return;
            }
        }
        Fail(start, L"unknown character category [" + name + L"]");
    }

    // charClassExpr ::= '[' charGroup ']'; charGroup ::= ('^'? posCharGroup) ('-' charClassExpr)?
    std::string CharClassExpression() {
        const size_t start = m_at;
        Nest(start);
        ++m_at;
        const bool negative = PeekIs('^');
        if (negative) ++m_at;
        const CCharSet set = PositiveGroup();
        std::string out = negative ? Negative(set) : Positive(set);
        if (PeekIs('-')) { // the group stops at '-' only before '['
            ++m_at;
            const std::string subtracted = CharClassExpression();
            out = "(?:(?!" + subtracted + ")" + out + ")";
        }
        if (!PeekIs(']')) Fail(start, L"missing closing bracket");
        ++m_at;
        --m_depth;
        return out;
    }

    // posCharGroup ::= (charRange | charClassEsc)+, up to ']' or a subtraction's "-[". A '-' stands
    // for itself only first or last.
    CCharSet PositiveGroup() {
        CCharSet set;
        const size_t groupStart = m_at;
        for (;;) {
            const size_t start = m_at;
            if (AtEnd()) Fail(groupStart - 1, L"missing closing bracket");
            const char32_t c = Peek();
            if (c == ']') {
                if (start == groupStart) Fail(start, L"empty character class");
                return set;
            }
            if (c == '-') {
                if (PeekIs('[', 1) && start != groupStart) return set;
                if (start != groupStart && !PeekIs(']', 1))
                    Fail(start,
                         L"a hyphen stands for itself only first or last in a class; escape it as \\-");
                ++m_at;
                set.ranges.Add('-', '-');
                continue;
            }
            if (c == '[') Fail(start, L"an opening bracket inside a class must be escaped as \\[");
            char32_t first = c;
            if (c == '\\') {
                CCharSet escaped;
                bool negated = false;
                if (!Escape(first, escaped, negated)) {
                    // A negated escape is either categories or ranges, and so is its complement.
                    if (negated && !escaped.properties.empty())
                        escaped.properties = NegateProperties(escaped.properties);
                    else if (negated)
                        escaped.ranges = escaped.ranges.Complement();
                    set.Add(escaped);
                    continue;
                }
            } else {
                ++m_at;
            }
            char32_t last = first;
            if (PeekIs('-') && !PeekIs(']', 1) && !PeekIs('[', 1) && m_at + 1 < m_text.size()) {
                ++m_at;
                const size_t end = m_at;
                if (PeekIs('[')) Fail(end, L"an opening bracket inside a class must be escaped as \\[");
                if (PeekIs('\\')) {
                    CCharSet escaped;
                    bool negated = false;
                    if (!Escape(last, escaped, negated)) Fail(end, L"a range must end in a single character");
                } else {
                    last = Peek();
                    ++m_at;
                }
                if (last < first) Fail(start, L"range out of order");
            }
            if (first <= kLastCharacter) set.ranges.Add(first, std::min(last, kLastCharacter));
        }
    }

    static std::string NegateProperties(const std::string& properties) {
        std::string negated = properties;
        for (char& c : negated)
            if (c == 'p') c = 'P';
        return negated;
    }

    const std::wstring& m_text;
    size_t m_at = 0;
    int m_depth = 0;
};

} // namespace

CSchemaRegexTranslation TranslateSchemaRegex(const std::wstring& pattern) {
    CSchemaRegexTranslation translation;
    try {
        translation.pcre = CSchemaRegexReader(pattern).Translate();
    } catch (const CSyntaxError& error) {
        translation.error = CPatternError{error.position, error.reason};
    }
    return translation;
}

} // namespace internal

std::optional<CPatternError> CheckXmlSchemaPattern(const std::wstring& pattern) {
    return internal::TranslateSchemaRegex(pattern).error;
}

} // namespace QxXmlLib16
