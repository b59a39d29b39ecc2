#pragma once

#include <QxXmlLib16/fastinfoset/FIVocabulary.h>

#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <string>
#include <vector>

namespace QxXmlLib16 {
namespace internal {

// A table of strings, or of qualified names, as the writer looks it up by value: once for each
// name and short value it writes. No key is built; the first part (the local name, or the string)
// is hashed and each part of a candidate is compared once.
class CIndexTable {
public:
    CIndexTable()
        : m_slots(64, 0) {}

    // A vocabulary's string table, or name table (its keys made by CFIVocabulary::QNameKey).
    void Seed(const CFIVocabulary::IndexMap& table, bool names) {
        for (const auto& entry : table) {
            const std::wstring& key = entry.first;
            const size_t first = names ? key.find(L'\0') : key.size();
            const size_t second = names ? key.find(L'\0', first + 1) : key.size();
            const std::wstring localName = key.substr(0, first);
            const std::wstring namespaceURI =
                names ? key.substr(first + 1, second - first - 1) : std::wstring();
            const std::wstring prefix = names ? key.substr(second + 1) : std::wstring();
            Insert(prefix, namespaceURI, localName, static_cast<uint32_t>(entry.second));
        }
    }

    // 0 when absent.
    uint32_t Find(const std::wstring& text) const { return Find(Empty(), Empty(), text); }
    uint32_t Find(const std::wstring& prefix, const std::wstring& namespaceURI,
                  const std::wstring& localName) const {
        const uint32_t hash = Hash(prefix, namespaceURI, localName);
        const size_t mask = m_slots.size() - 1;
        for (size_t i = hash & mask; m_slots[i]; i = (i + 1) & mask) {
            const Entry& entry = m_entries[m_slots[i] - 1];
            if (entry.hash == hash && entry.localLength == localName.size() &&
                entry.namespaceLength == namespaceURI.size() &&
                entry.parts.size() == localName.size() + namespaceURI.size() + prefix.size() &&
                Same(entry.parts.data(), localName) &&
                Same(entry.parts.data() + localName.size(), namespaceURI) &&
                Same(entry.parts.data() + localName.size() + namespaceURI.size(), prefix))
                return entry.index;
        }
        return 0;
    }

    // Gives the string or name the next index, unless the table is full.
    void Add(const std::wstring& text) { Add(Empty(), Empty(), text); }
    void Add(const std::wstring& prefix, const std::wstring& namespaceURI, const std::wstring& localName) {
        if (m_entries.size() < CFIVocabulary::kMaxTableSize)
            Insert(prefix, namespaceURI, localName, static_cast<uint32_t>(m_entries.size() + 1));
    }

private:
    struct Entry {
        std::wstring parts; // local name, namespace and prefix, one after the other
        uint32_t localLength;
        uint32_t namespaceLength;
        uint32_t index;
        uint32_t hash;
    };

    static const std::wstring& Empty() {
        static const std::wstring empty;
        return empty;
    }

    // Short strings (local names, values) compare faster in a loop than through a library call,
    // long ones (namespace URIs) the other way round.
    static bool Same(const wchar_t* stored, const std::wstring& text) {
        if (text.size() > 8) return std::wmemcmp(stored, text.data(), text.size()) == 0;
        for (size_t i = 0; i < text.size(); ++i)
            if (stored[i] != text[i]) return false;
        return true;
    }

    static uint32_t Hash(const std::wstring& prefix, const std::wstring& namespaceURI,
                         const std::wstring& localName) {
        uint32_t hash = 2166136261u;
        for (wchar_t c : localName)
            hash = (hash ^ static_cast<uint32_t>(c)) * 16777619u;
        hash = (hash ^ static_cast<uint32_t>(namespaceURI.size())) * 16777619u;
        return (hash ^ static_cast<uint32_t>(prefix.size())) * 16777619u;
    }

    void Insert(const std::wstring& prefix, const std::wstring& namespaceURI, const std::wstring& localName,
                uint32_t index) {
        m_entries.push_back(Entry{localName + namespaceURI + prefix, static_cast<uint32_t>(localName.size()),
                                  static_cast<uint32_t>(namespaceURI.size()), index,
                                  Hash(prefix, namespaceURI, localName)});
        if (2 * m_entries.size() <= m_slots.size()) {
            Place(static_cast<uint32_t>(m_entries.size() - 1));
            return;
        }
        // Grown at half full, so that probes stay short.
        m_slots.assign(2 * m_slots.size(), 0);
        for (uint32_t i = 0; i < m_entries.size(); ++i)
            Place(i);
    }

    void Place(uint32_t entry) {
        const size_t mask = m_slots.size() - 1;
        size_t i = m_entries[entry].hash & mask;
        while (m_slots[i])
            i = (i + 1) & mask;
        m_slots[i] = entry + 1;
    }

    std::vector<Entry> m_entries;
    std::vector<uint32_t> m_slots; // entry + 1, 0 for a free slot; the size is a power of two
};

} // namespace internal
} // namespace QxXmlLib16
