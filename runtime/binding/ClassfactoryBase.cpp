#include <QxXmlLib16/binding/ClassfactoryBase.h>

#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlWriter.h>

namespace QxXmlLib16 {

namespace {

const std::wstring& TypeAttribute(const CXmlElement* element) {
    static const std::wstring type(L"type");
    static const std::wstring xsi(CXmlWriter::XSI_NAMESPACE);
    return element->GetAttribute(type, xsi);
}

} // namespace

std::wstring CClassfactoryBase::GetElementType(CXmlElement* element) {
    const std::wstring& value = TypeAttribute(element);
    const size_t colon = value.find(L':');
    return colon == std::wstring::npos ? value : value.substr(colon + 1);
}

std::wstring CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element) {
    const std::wstring& value = TypeAttribute(element);
    const size_t colon = value.find(L':');
    const CXmlDocument* document = element->GetDocument();
    if (colon == std::wstring::npos || !document) return element->GetNamespaceURI();
    // An undeclared prefix is not an error: the type is then taken to be in the element's namespace.
    std::wstring uri = document->LookupNamespaceFromAlias(value.substr(0, colon).c_str());
    return uri.empty() ? element->GetNamespaceURI() : uri;
}

} // namespace QxXmlLib16
