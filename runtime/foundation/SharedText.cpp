#include <QxXmlLib16/foundation/SharedText.h>

#include <algorithm>
#include <cwchar>

namespace QxXmlLib16 {

namespace {

typedef std::shared_ptr<const std::wstring> Text;

const Text& Empty() {
    static const Text empty = std::make_shared<const std::wstring>();
    return empty;
}

// The texts shared most recently on this thread, newest first. A document repeats a handful of
// namespaces, so a few entries find nearly all of them without a lock.
Text Share(const wchar_t* text, size_t length) {
    if (length == 0) return Empty();
    constexpr size_t kEntries = 8;
    thread_local Text recent[kEntries];
    for (size_t i = 0; i < kEntries && recent[i]; ++i) {
        const std::wstring& known = *recent[i];
        if (known.size() == length && std::wmemcmp(known.data(), text, length) == 0) {
            std::rotate(recent, recent + i, recent + i + 1);
            return recent[0];
        }
    }
    std::move_backward(recent, recent + kEntries - 1, recent + kEntries);
    recent[0] = std::make_shared<const std::wstring>(text, length);
    return recent[0];
}

} // namespace

CSharedText::CSharedText()
    : m_text(Empty()) {}

CSharedText::CSharedText(const wchar_t* text)
    : m_text(text ? Share(text, std::wcslen(text)) : Empty()) {}

CSharedText::CSharedText(const std::wstring& text)
    : m_text(Share(text.data(), text.size())) {}

} // namespace QxXmlLib16
