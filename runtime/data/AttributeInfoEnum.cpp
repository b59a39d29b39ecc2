#include <QxXmlLib16/data/AttributeInfoEnum.h>

#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include "data/AttributeInfoRules.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

CAttributeInfoEnum::CAttributeInfoEnum(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                                       bool optional, EnumToTextFunction enumToText,
                                       TextToEnumFunction textToEnum, const wchar_t* defaultValue)
    : CAttributeInfo(name, namespaceURI, propertyNumber, optional, defaultValue)
    , m_textToEnum(textToEnum)
    , m_enumToText(enumToText) {}

void CAttributeInfoEnum::AttributeToXml(const CSerializationContext& context,
                                        const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    QxVariant value;
    ReadProperty(object, value);
    if (internal::IsAbsentOptional(*this, value)) return;
    const std::wstring text = m_enumToText(static_cast<int>(value.GetI4()));
    if (internal::IsSuppressedDefault(*this, context, text)) return;
    writer->WriteAttributeString(GetName(), GetNamespace(), text, itString);
}

bool CAttributeInfoEnum::AttributeFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                          CXmlAttribute* attribute) const {
    if (!IsThisAttribute(context, attribute)) return false;
    internal::StoreValue(*this, object, *attribute,
                         [&](QxVariant& value) { value.SetI4(m_textToEnum(attribute->GetValue().c_str())); });
    return true;
}

void CAttributeInfoEnum::Validate(const CSerializationContext&, bool found) const {
    internal::RequireFound(*this, found);
}

} // namespace QxXmlLib16Data
