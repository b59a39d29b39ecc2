#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoChoiceCol.h>

namespace QxXmlLib16Data {

// Repeated child objects of a known class in a choice.
class QX_API CElementInfoChoiceClsCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceClsCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                             XmlElementType elementType);

    void PseudoChildAttributeToXml(const QxXmlLib16::CSerializationContext& context,
                                   const QxXmlLib16::CXmlGeneratedClass* object,
                                   QxXmlLib16::CXmlWriter* writer) const override;

private:
    XmlElementType m_elementType;
};

} // namespace QxXmlLib16Data
