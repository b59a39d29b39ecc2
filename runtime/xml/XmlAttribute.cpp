#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "xml/NodePool.h"
#include "xml/XmlNames.h"

namespace QxXmlLib16 {

CXmlAttribute::CXmlAttribute(const CXmlElement* owner, const std::wstring& localName,
                             const std::wstring& value, const std::wstring& namespaceURI)
    : CInstanceMonitor(L"CXmlAttribute")
    , m_owner(owner)
    , m_value(value) {
    const CXmlDocument* document = owner ? owner->GetDocument() : nullptr;
    m_localName = &CXmlDocument::InternName(document, localName.data(), localName.size());
    m_namespaceURI = &CXmlDocument::InternName(document, namespaceURI.data(), namespaceURI.size());
}

CXmlAttribute::CXmlAttribute(const CXmlElement* owner, const std::wstring& localName,
                             const std::wstring& namespaceURI)
    : CInstanceMonitor(L"CXmlAttribute")
    , m_owner(owner)
    , m_localName(&localName)
    , m_namespaceURI(&namespaceURI) {}

CXmlAttribute::~CXmlAttribute() = default;

void* CXmlAttribute::operator new(size_t size) {
    return internal::CNodePool::AllocateUnpooled(size);
}

void* CXmlAttribute::operator new(size_t size, const CXmlDocument* document) {
    return CXmlDocument::AllocateNode(document, size);
}

void CXmlAttribute::operator delete(void* object, size_t size) {
    internal::CNodePool::Release(object, size);
}

void CXmlAttribute::operator delete(void* object, const CXmlDocument*) {
    internal::CNodePool::Release(object, sizeof(CXmlAttribute));
}

std::wstring CXmlAttribute::GetXPath() const {
    std::wstring path = m_owner ? m_owner->GetXPath() : std::wstring();
    path += L"/@";
    if (!m_namespaceURI->empty() && m_owner && m_owner->GetDocument()) {
        std::wstring alias = m_owner->GetDocument()->LookupAliasFromNamespace(m_namespaceURI->c_str());
        if (!alias.empty()) {
            path += alias;
            path += L':';
        }
    }
    path += *m_localName;
    return path;
}

bool CXmlAttribute::IsNamespaceAttribute() const {
    if (!internal::IsInstanceOrXmlnsNamespace(*m_namespaceURI)) return false;
    const std::wstring& name = *m_localName;
    return name == L"xmlns" || name == L"type" || name == L"schemaLocation" ||
           name == L"noNamespaceSchemaLocation";
}

bool CXmlAttribute::IsNilAttribute() const {
    return internal::IsInstanceOrXmlnsNamespace(*m_namespaceURI) && *m_localName == L"nil";
}

} // namespace QxXmlLib16
