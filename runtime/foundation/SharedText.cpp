#include <QxXmlLib16/foundation/SharedText.h>

#include <cstdint>
#include <cwchar>

namespace QxXmlLib16 {

namespace {

typedef std::shared_ptr<const std::wstring> Text;

const Text& Empty() {
    static const Text empty = std::make_shared<const std::wstring>();
    return empty;
}

// Texts shared recently on this thread, one per slot of a small table indexed by the text's hash.
// A document repeats a few dozen names and namespaces, which then nearly always find their slot;
// two texts that collide take turns. No lock, and a lookup costs one hash and one comparison.
Text Share(const wchar_t* text, size_t length) {
    if (length == 0) return Empty();
    constexpr size_t kSlots = 64;
    thread_local Text recent[kSlots];
    uint32_t hash = 2166136261u;
    for (size_t i = 0; i < length; ++i)
        hash = (hash ^ static_cast<uint32_t>(text[i])) * 16777619u;
    Text& slot = recent[(hash ^ (hash >> 16)) % kSlots];
    if (!slot || slot->size() != length || std::wmemcmp(slot->data(), text, length) != 0)
        slot = std::make_shared<const std::wstring>(text, length);
    return slot;
}

} // namespace

CSharedText::CSharedText()
    : m_text(Empty()) {}

CSharedText::CSharedText(const wchar_t* text)
    : m_text(text ? Share(text, std::wcslen(text)) : Empty()) {}

CSharedText::CSharedText(const std::wstring& text)
    : m_text(Share(text.data(), text.size())) {}

} // namespace QxXmlLib16
