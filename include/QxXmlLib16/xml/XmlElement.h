#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace QxXmlLib16 {

class CXmlAttribute;
class CXmlDocument;
class CExpatReader;
class CFastInfosetReader;
namespace internal {
class CStreamedLoad;
} // namespace internal

// An element of a loaded document: names, its own text and attributes, and its children as a
// singly linked list in document order. The element owns its children and attributes. Names are
// shared with the other nodes of the document (or, for an element without a document, with the
// whole process), so a detached element must not outlive its document.
class QX_API CXmlElement : public CInstanceMonitor {
public:
    CXmlElement(const CXmlDocument* document, const CXmlElement* parent);
    // Destroys the whole subtree without recursion, so that any depth can be freed.
    ~CXmlElement() override;
    CXmlElement(const CXmlElement&) = delete;
    CXmlElement& operator=(const CXmlElement&) = delete;

    // Elements of a document live in the document's pool; these forms serve both.
    static void* operator new(size_t size);
    static void operator delete(void* object, size_t size);

    // A new last child with the same document.
    CXmlElement* CreateNewChildElement();
    // Unlinks the last child and hands it to the caller; null when there is none.
    CXmlElement* RemoveLastChildElement();

    void SetElementName(const std::wstring& localName);
    void SetNamespace(const std::wstring& namespaceURI);
    void AddAttribute(const std::wstring& localName, const std::wstring& value,
                      const std::wstring& namespaceURI);
    // Appends to the element's own text; many small pieces take amortised constant time each.
    void AppendText(const wchar_t* text, int length);
    void AppendText(const wchar_t* text);

    const CXmlDocument* GetDocument() const { return m_document; }
    CXmlElement* GetParentElement() const { return m_parent; }
    // A bound load reads its document while the parser is still under way: an element whose end tag
    // has not been read yet reads on until the answer is known.
    CXmlElement* GetFirstElement() const {
        return m_firstChild || !IsPending() ? m_firstChild : ReadFirstChild();
    }
    CXmlElement* GetNextSiblingElement() const {
        return m_nextSibling || !m_parent || !m_parent->IsPending() ? m_nextSibling : ReadNextSibling();
    }
    const std::wstring& GetNamespaceURI() const { return *m_namespaceURI; }
    const std::wstring& GetLocalName() const { return *m_localName; }
    const std::wstring& GetText() const {
        if (IsPending()) ReadToEnd();
        return StoredText();
    }
    const std::vector<CXmlAttribute*>& GetAttributes() const;
    // Value of the attribute with exactly this local name and namespace; an empty string if none.
    const std::wstring& GetAttribute(const std::wstring& localName, const std::wstring& namespaceURI) const;

    // "alias:local" when the namespace has an alias in the document, else the local name.
    std::wstring GetQName() const;
    // The QName, with "[position]" when siblings share it.
    std::wstring GetNameWithPredicate() const;
    // "/a/b[2]/c"; built without recursion.
    std::wstring GetXPath() const;

private:
    friend class CXmlDocument;
    friend class CExpatReader;
    friend class CFastInfosetReader;
    friend class internal::CStreamedLoad;
    // A node of the document's tree with names already interned in it.
    CXmlElement(const CXmlDocument* document, CXmlElement* parent, const std::wstring& namespaceURI,
                const std::wstring& localName);
    static void* operator new(size_t size, const CXmlDocument* document);
    static void operator delete(void* object, const CXmlDocument* document);

    void LinkChild(CXmlElement* child);
    void ReserveAttributes(size_t count);
    CXmlAttribute* NewAttribute(const std::wstring& localName, const std::wstring& namespaceURI);
    void DestroyChildren();
    // Replaces the text: shared with the document when the document keeps such text, else owned.
    void SetText(const wchar_t* text, size_t length);
    // Appends text, leaving it empty; a long text that the element does not have yet is moved in,
    // not copied, so that one enormous text never stands twice in memory.
    void TakeText(std::wstring& text);
    void ReleaseText();
    // Drops the children, attributes and text, keeping the element itself (its name and place).
    void ReleaseContent();

    const std::wstring& StoredText() const {
        return *reinterpret_cast<const std::wstring*>(m_text & ~kTextFlags);
    }
    // Points m_text at text, keeping the state flags.
    void StoreText(const std::wstring* text, bool owned) {
        m_text = reinterpret_cast<std::uintptr_t>(text) | (owned ? kOwnedText : 0) |
                 (m_text & (kPending | kDropContent));
    }
    bool IsPending() const { return m_text & kPending; }
    void SetFlag(std::uintptr_t flag, bool on) { m_text = on ? m_text | flag : m_text & ~flag; }
    // Run the parser on until the element has a first child, has a child after this one, or ends.
    CXmlElement* ReadFirstChild() const;
    CXmlElement* ReadNextSibling() const;
    void ReadToEnd() const;

    // Flags kept in the low bits of m_text (the string is at least 8-byte aligned): the element owns
    // its text string; the parser has not reached its end tag yet (a bound load in progress); the
    // content still to come is dropped unread (its reader is done with it).
    static constexpr std::uintptr_t kOwnedText = 1;
    static constexpr std::uintptr_t kPending = 2;
    static constexpr std::uintptr_t kDropContent = 4;
    static constexpr std::uintptr_t kTextFlags = kOwnedText | kPending | kDropContent;

    const CXmlDocument* m_document;
    CXmlElement* m_parent;
    CXmlElement* m_nextSibling;
    CXmlElement* m_firstChild;
    CXmlElement* m_lastChild;
    // Most elements have no attributes, and most texts repeat (indentation, short values): both
    // live outside the element so that the node stays small.
    std::vector<CXmlAttribute*>* m_attributes; // null until the first attribute
    std::uintptr_t m_text;                     // const std::wstring*, plus the flags above
    const std::wstring* m_namespaceURI;
    const std::wstring* m_localName;
};

} // namespace QxXmlLib16
