#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoAllCol.h>

namespace QxXmlLib16Data {

// Repeated child objects of a known class in an all-group.
class QX_API CElementInfoAllClsCol : public CElementInfoAllCol {
public:
    CElementInfoAllClsCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                          XmlElementType elementType);

    void PseudoChildAttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                   const QxXmlLib16::CXmlGeneratedClass* object,
                                   QxXmlLib16::CXmlWriter* writer) const override;

private:
    XmlElementType m_elementType;
};

} // namespace QxXmlLib16Data
