#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace QxXmlLib16 {
namespace internal {

// Each distinct name or namespace URI of a document stored once, so that elements and attributes
// share it. The text can arrive as wide characters or as the parser's 16-bit units (each unit is
// one character). References stay valid as long as the table: the storage never moves.
class CNameTable {
public:
    CNameTable()
        : m_slots(64) {}

    template <typename Char>
    const std::wstring& Intern(const Char* text, size_t length) {
        if (length == 0) return Empty();
        const uint32_t hash = Hash(text, length);
        size_t mask = m_slots.size() - 1;
        for (size_t i = hash & mask;; i = (i + 1) & mask) {
            Slot& slot = m_slots[i];
            if (!slot.name) {
                m_names.emplace_back(text, text + length);
                slot = {hash, &m_names.back()};
                if (m_names.size() * 2 > m_slots.size()) Grow();
                return m_names.back();
            }
            if (slot.hash == hash && Equals(*slot.name, text, length)) return *slot.name;
        }
    }

    static const std::wstring& Empty() {
        static const std::wstring empty;
        return empty;
    }

private:
    struct Slot {
        uint32_t hash;
        const std::wstring* name;
    };

    template <typename Char>
    static uint32_t Hash(const Char* text, size_t length) {
        uint32_t hash = 2166136261u;
        for (size_t i = 0; i < length; ++i)
            hash = (hash ^ static_cast<uint32_t>(text[i])) * 16777619u;
        return hash;
    }

    template <typename Char>
    static bool Equals(const std::wstring& name, const Char* text, size_t length) {
        if (name.size() != length) return false;
        for (size_t i = 0; i < length; ++i)
            if (name[i] != static_cast<wchar_t>(text[i])) return false;
        return true;
    }

    void Grow() {
        std::vector<Slot> slots(m_slots.size() * 2);
        const size_t mask = slots.size() - 1;
        for (const Slot& slot : m_slots) {
            if (!slot.name) continue;
            size_t i = slot.hash & mask;
            while (slots[i].name)
                i = (i + 1) & mask;
            slots[i] = slot;
        }
        m_slots.swap(slots);
    }

    std::deque<std::wstring> m_names;
    std::vector<Slot> m_slots; // open addressing; the size is a power of two, at most half full
};

} // namespace internal
} // namespace QxXmlLib16
