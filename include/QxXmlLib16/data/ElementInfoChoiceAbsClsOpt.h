#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// An optional child object in a choice whose class the factory chooses from the element itself
// (its xsi:type), so that it may hold any type derived from the member's type.
class QX_API CElementInfoChoiceAbsClsOpt : public CElementInfo {
public:
    CElementInfoChoiceAbsClsOpt(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                                XmlElementType elementType, ElementFactoryFunction factory);

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    // A matching element for which the factory has no class is an error.
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
    void PseudoChildAttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                   const QxXmlLib16::CXmlGeneratedClass* object,
                                   QxXmlLib16::CXmlWriter* writer) const override;

private:
    XmlElementType m_elementType;
    ElementFactoryFunction m_factory;
};

} // namespace QxXmlLib16Data
