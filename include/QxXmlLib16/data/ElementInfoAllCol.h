#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// A repeated member of an all-group, of any kind: the collection the member holds reads and writes
// its items. It never counts as the member the group found; its count is checked before writing.
class QX_API CElementInfoAllCol : public CElementInfo {
public:
    CElementInfoAllCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);

    bool ElementToXml(const QxXmlLib16::CSerializationContext& context,
                      const QxXmlLib16::CXmlGeneratedClass* object,
                      QxXmlLib16::CXmlWriter* writer) const override;
    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
};

} // namespace QxXmlLib16Data
