#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// An optional primitive value in a choice; reports whether its element was read.
class QX_API CElementInfoChoicePrimOpt : public CElementInfo {
public:
    CElementInfoChoicePrimOpt(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                              bool nillable, QxXmlLib16::ItemType itemType, const wchar_t* format,
                              QxXmlLib16::CWhitespaceUtils::WhitespaceRule whitespaceRule,
                              const QxXmlLib16::CPrimitiveRestrictions& restrictions,
                              const wchar_t* defaultValue);

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
};

} // namespace QxXmlLib16Data
