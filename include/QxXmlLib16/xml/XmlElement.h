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
    CXmlElement* GetFirstElement() const { return m_firstChild; }
    CXmlElement* GetNextSiblingElement() const { return m_nextSibling; }
    const std::wstring& GetNamespaceURI() const { return *m_namespaceURI; }
    const std::wstring& GetLocalName() const { return *m_localName; }
    const std::wstring& GetText() const {
        return *reinterpret_cast<const std::wstring*>(m_text & ~kOwnedText);
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
    void ReleaseText();

    // Set on m_text when the element owns its text string.
    static constexpr std::uintptr_t kOwnedText = 1;

    const CXmlDocument* m_document;
    CXmlElement* m_parent;
    CXmlElement* m_nextSibling;
    CXmlElement* m_firstChild;
    CXmlElement* m_lastChild;
    // Most elements have no attributes, and most texts repeat (indentation, short values): both
    // live outside the element so that the node stays small.
    std::vector<CXmlAttribute*>* m_attributes; // null until the first attribute
    std::uintptr_t m_text;                     // const std::wstring*, plus kOwnedText
    const std::wstring* m_namespaceURI;
    const std::wstring* m_localName;
};

} // namespace QxXmlLib16
