#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <memory>
#include <string>

namespace QxXmlLib16 {

// An immutable text that the objects holding the same value share: the namespaces and namespace
// rules that every wildcard element and collection of a document repeats are kept once. Converts
// to and from std::wstring, so it stands where a string member would.
class QX_API CSharedText {
public:
    CSharedText();
    // Null is empty. Texts recently shared on this thread are found and shared again.
    CSharedText(const wchar_t* text);
    CSharedText(const std::wstring& text);

    operator const std::wstring&() const { return *m_text; }
    const std::wstring& Get() const { return *m_text; }
    const wchar_t* c_str() const { return m_text->c_str(); }
    bool empty() const { return m_text->empty(); }
    void clear() { *this = CSharedText(); }

private:
    std::shared_ptr<const std::wstring> m_text;
};

} // namespace QxXmlLib16
