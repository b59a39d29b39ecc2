#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// A mandatory child object of a known class in an all-group.
class QX_API CElementInfoAllClsMnd : public CElementInfo {
public:
    CElementInfoAllClsMnd(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                          XmlElementType elementType, ClassFactoryFunction factory, int classNumber,
                          bool requiredContent);

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
    bool Validate(const QxXmlLib16::CSerializationContext& context,
                  const QxXmlLib16::CXmlGeneratedClass* object, bool found, bool check) const override;
    void PseudoChildAttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                   const QxXmlLib16::CXmlGeneratedClass* object,
                                   QxXmlLib16::CXmlWriter* writer) const override;

private:
    XmlElementType m_elementType;
    bool m_requiredContent;
    ClassFactoryFunction m_factory;
    int m_classNumber;
};

} // namespace QxXmlLib16Data
