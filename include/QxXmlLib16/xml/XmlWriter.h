#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/foundation/Types.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace QxXmlLib16 {

// The output interface of serialization, whatever the encoding. It keeps the namespace scoping all
// encodings share: the document's default namespace, the prefixes declared on the root, and one
// context per open element whose declarations go out of scope with it.
class QX_API CXmlWriter : public CInstanceMonitor {
public:
    // The namespace of the xml prefix, which is bound without ever being declared.
    static constexpr const wchar_t* XML_NAMESPACE = L"http://www.w3.org/XML/1998/namespace";
    static constexpr const wchar_t* XSI_NAMESPACE = L"http://www.w3.org/2001/XMLSchema-instance";

    // Where an element stands with an array of repeated children (JSON output needs this).
    enum ContextState : int {
        csNone = 0,
        csArrayStarting = 1, // the children about to be written form an array
        csArrayOpen = 2,     // the array has been opened
        csArrayComplete = 3, // the array's last item is written; close it when the element ends
    };

    // Namespace URI to prefix.
    typedef std::map<std::wstring, std::wstring> NamespaceMap;

    // One open element. Its namespace map is copied on write: a context shares its parent's map and
    // default namespace until something is declared on it.
    class QX_API CXmlWriterContext : public CInstanceMonitor {
    public:
        // The root: takes the writer's default namespace and a copy of its map.
        CXmlWriterContext(const std::wstring& localName, const std::wstring& namespaceURI,
                          const std::wstring& defaultNamespace, const NamespaceMap& namespaceMap);
        // A child sharing the parent's declarations.
        CXmlWriterContext(const std::wstring& localName, const std::wstring& namespaceURI,
                          CXmlWriterContext* parent);
        ~CXmlWriterContext() override;
        CXmlWriterContext(const CXmlWriterContext&) = delete;
        CXmlWriterContext& operator=(const CXmlWriterContext&) = delete;

        const std::wstring& GetDefaultNamespace() const { return *m_effectiveDefault; }
        void SetDefaultNamespace(const std::wstring& namespaceURI);
        const NamespaceMap& GetNamespaceMap() const { return *m_namespaceMap; }
        // The prefix bound to the URI here, or an empty string.
        const std::wstring& GetNamespaceMapValue(const std::wstring& namespaceURI) const;
        void SetNamespaceMapValue(const std::wstring& namespaceURI, const std::wstring& prefix);

        int GetChildCount() const { return m_childCount; }
        void AddChild() { ++m_childCount; }
        bool IsStartTagOpen() const { return m_startTagOpen; }
        void SetStartTagOpen(bool open) { m_startTagOpen = open; }
        // 0 for the root.
        int GetDepth() const { return m_depth; }
        const std::wstring& GetNamespaceURI() const { return m_namespaceURI; }
        const std::wstring& GetLocalName() const { return m_localName; }
        CXmlWriterContext* GetParent() const { return m_parent; }
        ContextState GetContextState() const { return m_contextState; }
        void SetContextState(ContextState state) { m_contextState = state; }

    private:
        friend class CXmlWriter;
        // Both constructors, and the reuse of a closed context's storage, go through these.
        void StartRoot(const std::wstring& localName, const std::wstring& namespaceURI,
                       const std::wstring& defaultNamespace, const NamespaceMap& namespaceMap);
        void StartChild(const std::wstring& localName, const std::wstring& namespaceURI,
                        CXmlWriterContext* parent);
        void Start(const std::wstring& localName, const std::wstring& namespaceURI,
                   CXmlWriterContext* parent);
        void DropOwnMap();
        // Gives this context declarations of its own, starting from the effective ones.
        void OwnDeclarations();

        int m_childCount;
        bool m_startTagOpen;
        int m_depth;
        std::wstring m_namespaceURI;
        std::wstring m_localName;
        CXmlWriterContext* m_parent;
        ContextState m_contextState;
        std::wstring m_defaultNamespace;
        NamespaceMap* m_namespaceMap; // the effective map: this context's own or the nearest owner's
        bool m_sharesParentMap;
        bool m_ownsMap;
        const std::wstring* m_effectiveDefault; // likewise for the default namespace
    };

    ~CXmlWriter() override;
    CXmlWriter(const CXmlWriter&) = delete;
    CXmlWriter& operator=(const CXmlWriter&) = delete;

    virtual void Open() {}
    // Throws "An Element has not been closed." while an element is open.
    virtual void Close();
    // On the open element, or for the whole document when none is open.
    virtual void SetDefaultNamespace(const std::wstring& namespaceURI);
    // On the open element, or declared on the root when none is open.
    virtual void AddNamespace(const std::wstring& prefix, const std::wstring& namespaceURI);
    virtual void WriteComment(const std::wstring& text) = 0;
    virtual void WritePI(const std::wstring& text) = 0;
    virtual void WriteInlineSchema(const std::wstring& text) = 0;
    virtual void WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) = 0;
    virtual void WriteString(const std::wstring& text, ItemType type, bool isDefaultValue) = 0;
    virtual void WriteEndElement() = 0;
    virtual void WriteAttributeString(const std::wstring& localName, const std::wstring& namespaceURI,
                                      const std::wstring& value, ItemType type) = 0;
    virtual void WriteAttributeType(const std::wstring& typeNamespace, const std::wstring& typeName,
                                    ItemType type) = 0;
    virtual void WriteAttributeNil() = 0;

    // Of the open element, if any.
    void SetContextState(ContextState state);
    // The first of "AA", "AB", ... that is not yet a prefix in the map.
    static std::wstring GetUniquePrefix(const NamespaceMap& namespaceMap);
    // 0 gives "AA", 1 "AB", 26 "BA".
    static std::wstring NsIntToString(int value);

protected:
    explicit CXmlWriter(const wchar_t* className);

    // Opens a context for a new element, reusing the storage of closed ones.
    CXmlWriterContext& PushContext(const std::wstring& localName, const std::wstring& namespaceURI);
    void PopContext();
    CXmlWriterContext* GetCurrentContext() const { return m_currentContext; }
    const std::wstring& GetDefaultNamespace() const { return m_defaultNamespace; }
    const NamespaceMap& GetNamespaceMap() const { return m_namespaceMap; }

    // The rules every encoding shares for names. Each declaration they create is reported through
    // isNew or newPrefix, and the writer must put it on the open element.

    // The open element while it still takes attributes; throws "Attributes must be added before
    // elements" once its content has begun.
    CXmlWriterContext& AttributeTarget();
    // The prefix bound to the URI in the context; a new unique one is bound there when it has none.
    const std::wstring& PrefixFor(CXmlWriterContext& context, const std::wstring& namespaceURI, bool& isNew);
    // The prefix of the context's element, or null when its name goes without one (no namespace,
    // or the default namespace).
    const std::wstring* ElementPrefix(CXmlWriterContext& context, bool& isNew);
    // The value of xsi:type naming the type: the name alone in no namespace or the default one,
    // else prefixed; newPrefix is set (else null) when that prefix was made here.
    std::wstring TypeAttributeValue(CXmlWriterContext& context, const std::wstring& typeNamespace,
                                    const std::wstring& typeName, const std::wstring*& newPrefix);
    // The namespaces of the xml prefix, bound without a declaration.
    static bool IsXmlNamespace(const std::wstring& namespaceURI);

private:
    std::wstring m_defaultNamespace;
    CXmlWriterContext* m_currentContext;
    NamespaceMap m_namespaceMap;
    std::vector<std::unique_ptr<CXmlWriterContext>> m_spareContexts;
};

} // namespace QxXmlLib16
