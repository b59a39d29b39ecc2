#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

#include <string>

namespace QxXmlLib16Data {

// An optional wildcard element (xs:any) in an all-group, held as a CElement. Named "AnyElement" it
// takes an element of any name, otherwise only one of its own name; the namespace rule decides the rest.
class QX_API CElementInfoAllUntpdOpt : public CElementInfo {
public:
    CElementInfoAllUntpdOpt(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, const wchar_t* namespaceRule, const wchar_t* targetNamespace);

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
    bool Validate(const QxXmlLib16::CSerializationContext& context, const QxXmlLib16::CXmlGeneratedClass* object,
                  bool found, bool check) const override;

private:
    std::wstring m_namespaceRule;
    std::wstring m_targetNamespace;
};

} // namespace QxXmlLib16Data
