#include <QxXmlLib16/data/AttributeInfo.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

CAttributeInfo::CAttributeInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                               bool optional, const wchar_t* defaultValue)
    : m_name(name ? name : L"")
    , m_namespace(namespaceURI ? namespaceURI : L"")
    , m_propertyNumber(propertyNumber)
    , m_optional(optional)
    , m_defaultValue(defaultValue ? defaultValue : L"") {}

CAttributeInfo::~CAttributeInfo() = default;

int CAttributeInfo::InvokePropertyGet(CXmlGeneratedClass* object, QxVariant& value) const {
    try {
        return object->AccessProperty(m_propertyNumber, true, value);
    } catch (const CQxException& e) {
        throw CQxValidationException(
            FormatString(L"Failed to get the property value for [%ls].", m_name.c_str()), std::wstring(), e);
    }
}

// Reading leaves the object unchanged; AccessProperty only lacks const because it serves both
// directions.
int CAttributeInfo::ReadProperty(const CXmlGeneratedClass* object, QxVariant& value) const {
    return InvokePropertyGet(const_cast<CXmlGeneratedClass*>(object), value);
}

int CAttributeInfo::InvokePropertySet(CXmlGeneratedClass* object, QxVariant& value,
                                      const CXmlAttribute& attribute) const {
    try {
        return object->AccessProperty(m_propertyNumber, false, value);
    } catch (const CQxException& e) {
        throw CQxValidationException(FormatString(L"Failed to set the property value [%ls].", m_name.c_str()),
                                     attribute.GetXPath(), e);
    }
}

bool CAttributeInfo::IsThisAttribute(const CSerializationContext& context, CXmlAttribute* attribute) const {
    if (!attribute || attribute->GetLocalName() != m_name) return false;
    return context.GetIgnoreNamespaces() || attribute->GetNamespaceURI() == m_namespace;
}

void CAttributeInfo::TestNamespace(const std::wstring& namespaceURI, const std::wstring& rule,
                                   const std::wstring& targetNamespace) {
    CXmlObjectHelper::TestNamespace(namespaceURI, rule, targetNamespace);
}

bool CAttributeInfo::IsNamespaceValid(const std::wstring& namespaceURI, const std::wstring& rule,
                                      const std::wstring& targetNamespace) {
    return CXmlObjectHelper::IsNamespaceValid(namespaceURI, rule, targetNamespace);
}

std::wstring CAttributeInfo::GetTargetNamespace(const CXmlObjectBase* object) {
    return object->GetTargetNamespace();
}

void CAttributeInfo::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const wchar_t* namespaceURI, const CSerializationContext& context) {
    CXmlObjectBase::ToXml_Int(object, writer, isRoot, namespaceURI, context, false);
}

} // namespace QxXmlLib16Data
