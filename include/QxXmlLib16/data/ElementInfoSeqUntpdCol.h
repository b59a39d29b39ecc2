#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoSeqCol.h>

namespace QxXmlLib16Data {

// Repeated wildcard elements (xs:any), held in a CElementCol in a sequence.
// Named "AnyElement" it takes elements of any name, otherwise only those of its own name.
class QX_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqUntpdCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);

    bool ElementFromXml(const QxXmlLib16::CSerializationContext& context,
                        QxXmlLib16::CXmlGeneratedClass* object, QxXmlLib16::CXmlElement* parent,
                        QxXmlLib16::CXmlElement** current, const wchar_t* namespaceURI,
                        XmlElementType probe) const override;
};

} // namespace QxXmlLib16Data
