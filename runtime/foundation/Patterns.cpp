#include "foundation/Patterns.h"

#include "foundation/SchemaRegex.h"

#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <deque>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace QxXmlLib16 {
namespace internal {

namespace {

// What the caches may hold, in the process and in each thread: enough for every pattern of a large
// schema, and a bound that a program fed ever new patterns cannot outgrow.
constexpr size_t kMaxPatterns = 1024;
constexpr size_t kMaxPatternBytes = 16u << 20;
// Memory one match may use when it backtracks through a long value (the library's default is 20 GB).
constexpr uint32_t kMatchHeapLimitKiB = 256u << 10;

struct CodeDeleter {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
};
struct MatchDataDeleter {
    void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
};
struct MatchContextDeleter {
    void operator()(pcre2_match_context* context) const { pcre2_match_context_free(context); }
};

std::wstring WideFromUtf8(const char* text, size_t length) {
    return CEncoder::Utf8ToUnicode(reinterpret_cast<const unsigned char*>(text), static_cast<int>(length));
}

std::wstring ErrorText(int error) {
    PCRE2_UCHAR text[256] = {}; // every message fits; an unknown code leaves it empty
    pcre2_get_error_message(error, text, sizeof text);
    const auto* message = reinterpret_cast<const char*>(text);
    return WideFromUtf8(message, std::strlen(message));
}

// XML Schema pattern syntax into PCRE syntax by plain substitution. Escaped backslashes are parked on
// U+0001 so that "\\i" (a backslash followed by i) is not taken for the name-start escape. The blocks
// are hexadecimal ranges: an octal escape reads at most three digits, so U+024F has no octal form.
std::string TranslatePattern(std::string pattern) {
    static const char* const kSubstitutions[][2] = {
        {"\\\\", "\x01"},
        {"\\i", "([^\\W\\d]|:)"},
        {"\\I", "([\\W\\d])"},
        {"\\c", "(\\w|\\.|-|:)"},
        {"\\C", "([^\\w\\.\\-\\:])"},
        {"\\p{IsBasicLatin}", "[\\x{0}-\\x{7F}]"},
        {"\\p{IsLatin-1Supplement}", "[\\x{80}-\\x{FF}]"},
        {"\\p{IsLatinExtended-A}", "[\\x{100}-\\x{17F}]"},
        {"\\p{IsLatinExtended-B}", "[\\x{180}-\\x{24F}]"},
        {"\x01", "\\\\"},
    };
    for (const auto& substitution : kSubstitutions)
        FindReplace(pattern, substitution[0], substitution[1]);
    return "^(" + pattern + ")$";
}

// Onto a reused buffer: four bytes cover any character, and a surrogate pair joined into one.
void AppendUtf8(const wchar_t* text, size_t length, std::string& utf8) {
    const size_t start = utf8.size();
    utf8.resize(start + 4 * length);
    utf8.resize(start +
                UnicodeToUTF8(text, length, reinterpret_cast<unsigned char*>(&utf8[start]), 4 * length));
}

// A pattern as compiled once for every thread, or the message that refuses it. The compiled code is
// only read while matching, so threads share it; each keeps its own match data.
struct CompiledPattern {
    std::unique_ptr<pcre2_code, CodeDeleter> code;
    std::wstring error;
    size_t bytes = 0;
};
using SharedPattern = std::shared_ptr<const CompiledPattern>;

// The caches' key: the mode, then the pattern's UTF-8.
std::string& StartKey(std::string& key, PatternMode mode) {
    key.assign(1, static_cast<char>('0' + mode));
    return key;
}

std::wstring InvalidPattern(const std::wstring& pattern, const std::wstring& error) {
    return FormatString(L"Invalid Regular Expression: %ls Error: '%ls'", pattern.c_str(), error.c_str());
}

SharedPattern Compile(const std::string& key) {
    auto compiled = std::make_shared<CompiledPattern>();
    compiled->bytes = sizeof(CompiledPattern) + key.size();
    const PatternMode mode = static_cast<PatternMode>(key[0] - '0');
    const std::string pattern = key.substr(1);
    const std::wstring widePattern = WideFromUtf8(pattern.data(), pattern.size());
    std::string translated;
    // Anchored as a whole, not only the first alternative: "a)|(b" must not match "xb".
    uint32_t options = PCRE2_UTF | PCRE2_ANCHORED;
    if (mode == pmExact) {
        CSchemaRegexTranslation translation = TranslateSchemaRegex(widePattern);
        if (translation.error) {
            compiled->error = InvalidPattern(
                widePattern, FormatString(L"%ls (position %d)", translation.error->reason.c_str(),
                                          static_cast<int>(translation.error->position)));
            return compiled;
        }
        translated = std::move(translation.pcre);
        options |= PCRE2_ENDANCHORED;
    } else {
        translated = TranslatePattern(pattern);
    }
    int error = 0;
    PCRE2_SIZE errorOffset = 0;
    compiled->code.reset(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(translated.data()), translated.size(),
                                       options, &error, &errorOffset, nullptr));
    if (!compiled->code) {
        compiled->error = InvalidPattern(widePattern, ErrorText(error));
        return compiled;
    }
    // Without JIT support (or memory for it) the interpreter matches alone.
    pcre2_jit_compile(compiled->code.get(), PCRE2_JIT_COMPLETE);
    size_t size = 0;
    if (pcre2_pattern_info(compiled->code.get(), PCRE2_INFO_SIZE, &size) == 0) compiled->bytes += size;
    if (pcre2_pattern_info(compiled->code.get(), PCRE2_INFO_JITSIZE, &size) == 0) compiled->bytes += size;
    return compiled;
}

// The entries added last, within a count and a byte budget; the oldest leave first. An entry that
// leaves stays valid for whoever still holds it: values are shared pointers or own one.
template <class Value>
class BoundedCache {
public:
    Value* Find(const std::string& key) {
        const auto found = m_entries.find(key);
        return found == m_entries.end() ? nullptr : &found->second.value;
    }

    Value& Insert(const std::string& key, Value value, size_t bytes) {
        if (Value* existing = Find(key)) return *existing;
        while (!m_order.empty() && (m_entries.size() >= kMaxPatterns || m_bytes + bytes > kMaxPatternBytes)) {
            const auto oldest = m_entries.find(*m_order.front());
            m_order.pop_front();
            m_bytes -= oldest->second.bytes;
            m_entries.erase(oldest);
        }
        const auto added = m_entries.emplace(key, Entry{std::move(value), bytes}).first;
        m_order.push_back(&added->first);
        m_bytes += bytes;
        return added->second.value;
    }

private:
    struct Entry {
        Value value;
        size_t bytes;
    };
    std::unordered_map<std::string, Entry> m_entries;
    std::deque<const std::string*> m_order; // keys of m_entries, oldest first
    size_t m_bytes = 0;
};

// Every pattern compiled in the process, so that a thread meeting a pattern for the first time finds
// it compiled by another.
class ProcessPatterns {
public:
    SharedPattern Get(const std::string& pattern) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (SharedPattern* found = m_patterns.Find(pattern)) return *found;
        }
        // Compiled outside the lock: a slow pattern must not stall threads matching others. Two
        // threads may compile the same pattern at once; the first one stored is kept.
        SharedPattern compiled = Compile(pattern);
        const size_t bytes = compiled->bytes;
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_patterns.Insert(pattern, std::move(compiled), bytes);
    }

private:
    std::mutex m_mutex;
    BoundedCache<SharedPattern> m_patterns;
};

ProcessPatterns& Patterns() {
    static ProcessPatterns patterns;
    return patterns;
}

// What one thread matches with: its own match data per pattern, match context and UTF-8 buffer, so
// that a match takes no lock.
class ThreadMatcher {
public:
    ThreadMatcher()
        : m_context(pcre2_match_context_create(nullptr)) {
        if (!m_context) throw std::bad_alloc();
        pcre2_set_heap_limit(m_context.get(), kMatchHeapLimitKiB);
    }

    bool Matches(PatternMode mode, const std::string& pattern, const wchar_t* value, size_t length) {
        StartKey(m_key, mode) += pattern;
        return MatchesKey(value, length);
    }
    bool Matches(PatternMode mode, const std::wstring& pattern, const wchar_t* value, size_t length) {
        AppendUtf8(pattern.data(), pattern.size(), StartKey(m_key, mode));
        return MatchesKey(value, length);
    }

private:
    struct Entry {
        SharedPattern pattern;
        std::unique_ptr<pcre2_match_data, MatchDataDeleter> data;
    };

    bool MatchesKey(const wchar_t* value, size_t length) {
        Entry& entry = Find(m_key);
        if (!entry.pattern->code) throw CQxException(entry.pattern->error);
        length = std::wmemchr(value, L'\0', length) ? std::wcslen(value) : length;
        m_subject.clear();
        AppendUtf8(value, length, m_subject);

        const auto* subject = reinterpret_cast<PCRE2_SPTR>(m_subject.data());
        pcre2_code* code = entry.pattern->code.get();
        int result = pcre2_match(code, subject, m_subject.size(), 0, 0, entry.data.get(), m_context.get());
        // The JIT's stack is small and fixed; the interpreter keeps its backtracking on the heap.
        if (result == PCRE2_ERROR_JIT_STACKLIMIT)
            result = pcre2_match(code, subject, m_subject.size(), 0, PCRE2_NO_JIT, entry.data.get(),
                                 m_context.get());
        if (result == PCRE2_ERROR_NOMATCH) return false;
        if (result < 0)
            throw CQxException(FormatString(L"Failed to match the Regular Expression: %ls Error: '%ls'",
                                            WideFromUtf8(m_key.data() + 1, m_key.size() - 1).c_str(),
                                            ErrorText(result).c_str()));
        const PCRE2_SIZE* offsets = pcre2_get_ovector_pointer(entry.data.get());
        return offsets[0] == 0 && offsets[1] == m_subject.size();
    }

    Entry& Find(const std::string& pattern) {
        if (Entry* found = m_patterns.Find(pattern)) return *found;
        Entry entry{Patterns().Get(pattern), nullptr};
        if (entry.pattern->code) {
            entry.data.reset(pcre2_match_data_create_from_pattern(entry.pattern->code.get(), nullptr));
            if (!entry.data) throw std::bad_alloc();
        }
        const size_t bytes = entry.pattern->bytes;
        return m_patterns.Insert(pattern, std::move(entry), bytes);
    }

    std::unique_ptr<pcre2_match_context, MatchContextDeleter> m_context;
    BoundedCache<Entry> m_patterns;
    std::string m_key;     // of the pattern being matched
    std::string m_subject; // the value's UTF-8
};

ThreadMatcher& Matcher() {
    thread_local ThreadMatcher matcher;
    return matcher;
}

} // namespace

bool MatchesPattern(const std::string& pattern, PatternMode mode, const wchar_t* value, size_t length) {
    return Matcher().Matches(mode, pattern, value, length);
}

bool MatchesPattern(const std::wstring& pattern, PatternMode mode, const wchar_t* value, size_t length) {
    return Matcher().Matches(mode, pattern, value, length);
}

} // namespace internal
} // namespace QxXmlLib16
