#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>

#include <cstddef>
#include <string>

namespace QxXmlLib16 {

class CXmlDocument;
class CXmlElement;
class CExpatReader;
class CFastInfosetReader;

// One attribute of a loaded element. The local name and namespace URI are shared with every other
// node of the document that has the same text.
class QX_API CXmlAttribute : public CInstanceMonitor {
public:
    CXmlAttribute(const CXmlElement* owner, const std::wstring& localName, const std::wstring& value,
                  const std::wstring& namespaceURI);
    ~CXmlAttribute() override;
    CXmlAttribute(const CXmlAttribute&) = delete;
    CXmlAttribute& operator=(const CXmlAttribute&) = delete;

    // Attributes of a document's elements live in the document's pool; these forms serve both.
    static void* operator new(size_t size);
    static void operator delete(void* object, size_t size);

    const CXmlElement* GetOwner() const { return m_owner; }
    const std::wstring& GetNamespaceURI() const { return *m_namespaceURI; }
    const std::wstring& GetLocalName() const { return *m_localName; }
    const std::wstring& GetValue() const { return m_value; }
    // The owner's path, "/@", then "alias:" when the namespace has an alias, then the local name.
    std::wstring GetXPath() const;

    // xmlns, type, schemaLocation or noNamespaceSchemaLocation in the schema instance or the xmlns
    // namespace: attributes that belong to the XML machinery, not to the schema's content.
    bool IsNamespaceAttribute() const;
    // nil in the schema instance or the xmlns namespace.
    bool IsNilAttribute() const;

private:
    friend class CXmlElement;
    friend class CExpatReader;
    friend class CFastInfosetReader;
    // A node of the document's tree with names already interned in it.
    CXmlAttribute(const CXmlElement* owner, const std::wstring& localName, const std::wstring& namespaceURI);
    static void* operator new(size_t size, const CXmlDocument* document);
    static void operator delete(void* object, const CXmlDocument* document);

    const CXmlElement* m_owner;
    const std::wstring* m_localName;
    std::wstring m_value;
    const std::wstring* m_namespaceURI;
};

} // namespace QxXmlLib16
