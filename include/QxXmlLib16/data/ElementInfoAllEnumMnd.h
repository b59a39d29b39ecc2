#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// A mandatory enumeration value in an all-group; reports whether its element was read.
class QX_API CElementInfoAllEnumMnd : public CElementInfo {
public:
    CElementInfoAllEnumMnd(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                           bool nillable, EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                           const wchar_t* defaultValue);

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
    bool Validate(const QxXmlLib16::CSerializationContext& context,
                  const QxXmlLib16::CXmlGeneratedClass* object, bool found, bool check) const override;
};

} // namespace QxXmlLib16Data
