#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "xml/DocumentStore.h"
#include "xml/NameTable.h"
#include "xml/NodePool.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace QxXmlLib16 {

namespace {
// Side objects of an element (its attribute vector, its own text) live in blocks of the same pool
// as the element itself.
template <typename T, typename... Args>
T* ConstructSideObject(void* block, Args&&... args) {
    try {
        return new (block) T(std::forward<Args>(args)...);
    } catch (...) {
        internal::CNodePool::Release(block, sizeof(T));
        throw;
    }
}

template <typename T>
void DeleteSideObject(T* object) {
    object->~T();
    internal::CNodePool::Release(object, sizeof(T));
}

const std::vector<CXmlAttribute*>& NoAttributes() {
    static const std::vector<CXmlAttribute*> none;
    return none;
}
} // namespace

CXmlElement::CXmlElement(const CXmlDocument* document, const CXmlElement* parent)
    : CXmlElement(document, const_cast<CXmlElement*>(parent), internal::CNameTable::Empty(),
                  internal::CNameTable::Empty()) {}

CXmlElement::CXmlElement(const CXmlDocument* document, CXmlElement* parent, const std::wstring& namespaceURI,
                         const std::wstring& localName)
    : CInstanceMonitor(L"CXmlElement")
    , m_document(document)
    , m_parent(parent)
    , m_nextSibling(nullptr)
    , m_firstChild(nullptr)
    , m_lastChild(nullptr)
    , m_attributes(nullptr)
    , m_text(reinterpret_cast<std::uintptr_t>(&internal::CNameTable::Empty()))
    , m_namespaceURI(&namespaceURI)
    , m_localName(&localName) {}

CXmlElement::~CXmlElement() {
    ReleaseContent();
}

// Children are freed through a work list threaded through the sibling links: an element's children
// are spliced in before it is deleted, so no destructor ever has children left to recurse into.
void CXmlElement::DestroyChildren() {
    CXmlElement* pending = m_firstChild;
    m_firstChild = m_lastChild = nullptr;
    while (pending) {
        CXmlElement* element = pending;
        pending = element->m_nextSibling;
        if (element->m_firstChild) {
            element->m_lastChild->m_nextSibling = pending;
            pending = element->m_firstChild;
            element->m_firstChild = element->m_lastChild = nullptr;
        }
        delete element;
    }
}

void* CXmlElement::operator new(size_t size) {
    return internal::CNodePool::AllocateUnpooled(size);
}

void* CXmlElement::operator new(size_t size, const CXmlDocument* document) {
    return CXmlDocument::AllocateNode(document, size);
}

void CXmlElement::operator delete(void* object, size_t size) {
    internal::CNodePool::Release(object, size);
}

void CXmlElement::operator delete(void* object, const CXmlDocument*) {
    internal::CNodePool::Release(object, sizeof(CXmlElement));
}

void CXmlElement::LinkChild(CXmlElement* child) {
    if (m_lastChild)
        m_lastChild->m_nextSibling = child;
    else
        m_firstChild = child;
    m_lastChild = child;
}

CXmlElement* CXmlElement::CreateNewChildElement() {
    CXmlElement* child = new (m_document)
        CXmlElement(m_document, this, internal::CNameTable::Empty(), internal::CNameTable::Empty());
    LinkChild(child);
    return child;
}

CXmlElement* CXmlElement::RemoveLastChildElement() {
    CXmlElement* last = m_lastChild;
    if (!last) return nullptr;
    if (m_firstChild == last) {
        m_firstChild = m_lastChild = nullptr;
    } else {
        CXmlElement* previous = m_firstChild;
        while (previous->m_nextSibling != last)
            previous = previous->m_nextSibling;
        previous->m_nextSibling = nullptr;
        m_lastChild = previous;
    }
    last->m_parent = nullptr;
    return last;
}

void CXmlElement::SetElementName(const std::wstring& localName) {
    m_localName = &CXmlDocument::InternName(m_document, localName.data(), localName.size());
}

void CXmlElement::SetNamespace(const std::wstring& namespaceURI) {
    m_namespaceURI = &CXmlDocument::InternName(m_document, namespaceURI.data(), namespaceURI.size());
}

const std::vector<CXmlAttribute*>& CXmlElement::GetAttributes() const {
    return m_attributes ? *m_attributes : NoAttributes();
}

void CXmlElement::ReserveAttributes(size_t count) {
    if (!m_attributes)
        m_attributes = ConstructSideObject<std::vector<CXmlAttribute*>>(
            CXmlDocument::AllocateNode(m_document, sizeof(std::vector<CXmlAttribute*>)));
    m_attributes->reserve(count);
}

CXmlAttribute* CXmlElement::NewAttribute(const std::wstring& localName, const std::wstring& namespaceURI) {
    if (!m_attributes) ReserveAttributes(1);
    m_attributes->push_back(nullptr); // room first, so that a failure here leaks nothing
    CXmlAttribute* attribute = new (m_document) CXmlAttribute(this, localName, namespaceURI);
    m_attributes->back() = attribute;
    return attribute;
}

void CXmlElement::AddAttribute(const std::wstring& localName, const std::wstring& value,
                               const std::wstring& namespaceURI) {
    CXmlAttribute* attribute =
        NewAttribute(CXmlDocument::InternName(m_document, localName.data(), localName.size()),
                     CXmlDocument::InternName(m_document, namespaceURI.data(), namespaceURI.size()));
    attribute->m_value = value;
}

void CXmlElement::ReleaseText() {
    if (m_text & kOwnedText) DeleteSideObject(const_cast<std::wstring*>(&StoredText()));
    StoreText(&internal::CNameTable::Empty(), false);
}

void CXmlElement::SetText(const wchar_t* text, size_t length) {
    if (m_document && internal::CDocumentStore::IsShared(text, length)) {
        const std::wstring& shared = m_document->m_store->texts.Intern(text, length);
        ReleaseText();
        StoreText(&shared, false);
    } else if (m_text & kOwnedText) {
        const_cast<std::wstring&>(StoredText()).assign(text, length);
    } else {
        StoreText(ConstructSideObject<std::wstring>(
                      CXmlDocument::AllocateNode(m_document, sizeof(std::wstring)), text, length),
                  true);
    }
}

void CXmlElement::TakeText(std::wstring& text) {
    // Short texts are copied, so that the caller's buffer keeps its capacity for the next one.
    constexpr size_t kMoveFrom = 4096;
    if (text.size() < kMoveFrom || !StoredText().empty() || (m_text & kOwnedText)) {
        AppendText(text.data(), static_cast<int>(text.size()));
        text.clear();
        return;
    }
    StoreText(ConstructSideObject<std::wstring>(CXmlDocument::AllocateNode(m_document, sizeof(std::wstring)),
                                                std::move(text)),
              true);
    text = std::wstring();
}

void CXmlElement::AppendText(const wchar_t* text, int length) {
    if (length <= 0) return;
    const std::wstring& current = StoredText();
    if (current.empty()) return SetText(text, static_cast<size_t>(length));
    if (!(m_text & kOwnedText)) {
        // Shared text is never changed in place; the joined text becomes the element's own, for text
        // that grows piece by piece (blanks between many children, say) would leave every stage of
        // it in the document's table.
        std::wstring* joined = ConstructSideObject<std::wstring>(
            CXmlDocument::AllocateNode(m_document, sizeof(std::wstring)), current);
        joined->append(text, static_cast<size_t>(length));
        ReleaseText();
        return StoreText(joined, true);
    }
    std::wstring& own = const_cast<std::wstring&>(current);
    const size_t needed = own.size() + static_cast<size_t>(length);
    if (needed > own.capacity()) own.reserve(std::max(2 * own.capacity(), needed));
    own.append(text, static_cast<size_t>(length));
}

void CXmlElement::ReleaseContent() {
    DestroyChildren();
    if (m_attributes) {
        for (CXmlAttribute* attribute : *m_attributes)
            delete attribute;
        DeleteSideObject(m_attributes);
        m_attributes = nullptr;
    }
    ReleaseText();
}

CXmlElement* CXmlElement::ReadFirstChild() const {
    m_document->ReadOn(this, true);
    return m_firstChild;
}

CXmlElement* CXmlElement::ReadNextSibling() const {
    m_document->ReadOn(m_parent, true);
    return m_nextSibling;
}

void CXmlElement::ReadToEnd() const {
    m_document->ReadOn(this, false);
}

void CXmlElement::AppendText(const wchar_t* text) {
    if (text) AppendText(text, static_cast<int>(std::wcslen(text)));
}

const std::wstring& CXmlElement::GetAttribute(const std::wstring& localName,
                                              const std::wstring& namespaceURI) const {
    for (const CXmlAttribute* attribute : GetAttributes()) {
        if (attribute->GetLocalName() == localName && attribute->GetNamespaceURI() == namespaceURI)
            return attribute->GetValue();
    }
    return internal::CNameTable::Empty();
}

std::wstring CXmlElement::GetQName() const {
    if (!m_namespaceURI->empty() && m_document) {
        std::wstring alias = m_document->LookupAliasFromNamespace(m_namespaceURI->c_str());
        if (!alias.empty()) return alias + L':' + *m_localName;
    }
    return *m_localName;
}

std::wstring CXmlElement::GetNameWithPredicate() const {
    std::wstring name = GetQName();
    if (!m_parent) return name;
    int sameNamed = 0;
    int position = 0;
    for (const CXmlElement* sibling = m_parent->m_firstChild; sibling; sibling = sibling->m_nextSibling) {
        // Names are interned, so equal local names share one string.
        if (sibling->m_localName != m_localName && *sibling->m_localName != *m_localName) continue;
        if (sibling->m_namespaceURI != m_namespaceURI && sibling->GetQName() != name) continue;
        ++sameNamed;
        if (sibling == this) position = sameNamed;
    }
    if (sameNamed > 1) name += L'[' + std::to_wstring(position) + L']';
    return name;
}

std::wstring CXmlElement::GetXPath() const {
    // Positions count the siblings that follow, so the whole document must have been read.
    if (m_document) m_document->ReadAll();
    std::vector<const CXmlElement*> chain;
    for (const CXmlElement* element = this; element; element = element->m_parent)
        chain.push_back(element);
    std::wstring path;
    for (auto element = chain.rbegin(); element != chain.rend(); ++element) {
        path += L'/';
        path += (*element)->GetNameWithPredicate();
    }
    return path;
}

} // namespace QxXmlLib16
