#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/AttributeInfo.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// An attribute of an enumerated type, held by the generated class as a 32-bit value.
class QX_API CAttributeInfoEnum : public CAttributeInfo {
public:
    CAttributeInfoEnum(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, bool optional,
                       EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                       const wchar_t* defaultValue);

    void AttributeToXml(const QxXmlLib16::CSerializationContext& context,
                        const QxXmlLib16::CXmlGeneratedClass* object,
                        QxXmlLib16::CXmlWriter* writer) const override;
    bool AttributeFromXml(const QxXmlLib16::CSerializationContext& context,
                          QxXmlLib16::CXmlGeneratedClass* object,
                          QxXmlLib16::CXmlAttribute* attribute) const override;
    void Validate(const QxXmlLib16::CSerializationContext& context, bool found) const override;

private:
    TextToEnumFunction m_textToEnum;
    EnumToTextFunction m_enumToText;
};

} // namespace QxXmlLib16Data
