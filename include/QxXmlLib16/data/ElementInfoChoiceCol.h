#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// A repeated alternative of a choice, of any kind: the collection the member holds reads and writes
// its items. A probe that finds too few items gives the position back (the items stay read).
class QX_API CElementInfoChoiceCol : public CElementInfo {
public:
    CElementInfoChoiceCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
};

} // namespace QxXmlLib16Data
