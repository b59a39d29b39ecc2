#include <QxXmlLib16/data/AttributeInfoAny.h>

#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

CAttributeInfoAny::CAttributeInfoAny(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                                     bool optional, const wchar_t* defaultValue, const wchar_t* namespaceRule,
                                     const wchar_t* targetNamespace)
    : CAttributeInfo(name, namespaceURI, propertyNumber, optional, defaultValue)
    , m_namespaceRule(namespaceRule ? namespaceRule : L"")
    , m_targetNamespace(targetNamespace ? targetNamespace : L"") {}

void CAttributeInfoAny::AttributeToXml(const CSerializationContext& context, const CXmlGeneratedClass* object,
                                       CXmlWriter* writer) const {
    QxVariant value;
    ReadProperty(object, value);
    const CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (!collection) return;
    ToXml_Int(collection.Get(), writer, false, GetTargetNamespace(object).c_str(), context);
}

bool CAttributeInfoAny::AttributeFromXml(const CSerializationContext&, CXmlGeneratedClass* object,
                                         CXmlAttribute* attribute) const {
    if (!IsNamespaceValid(attribute->GetNamespaceURI(), m_namespaceRule, m_targetNamespace)) return false;
    QxVariant value;
    InvokePropertyGet(object, value);
    CAttributeCol* collection = dynamic_cast<CAttributeCol*>(value.GetXmlCollection().Get());
    if (!collection)
        throw CQxException(
            L"Serialization Data Error : The collection should be a CAttributeCol, it was not!");
    collection->Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                    attribute->GetNamespaceURI().c_str());
    return true;
}

void CAttributeInfoAny::Validate(const CSerializationContext&, bool) const {}

} // namespace QxXmlLib16Data
