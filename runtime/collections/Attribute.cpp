#include <QxXmlLib16/collections/Attribute.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlWriter.h>

namespace QxXmlLib16 {

CAttribute::CAttribute(const wchar_t* name, const wchar_t* value, const wchar_t* namespaceURI)
    : CInstanceMonitor(L"CAttribute")
    , m_name(name ? name : L"")
    , m_value(value ? value : L"")
    , m_namespace(namespaceURI ? namespaceURI : L"") {}

CAttribute::~CAttribute() = default;

void CAttribute::ToXml_Int(CXmlWriter* writer, bool, const wchar_t*, const CSerializationContext&,
                           bool) const {
    writer->WriteAttributeString(m_name, m_namespace, m_value, itString);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    throw CQxException(L"This should be done by the collection");
}

} // namespace QxXmlLib16
