#include <QxXmlLib16/data/ElementInfoSeqAbsClsCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqAbsClsCol::CElementInfoSeqAbsClsCol(const wchar_t* name, const wchar_t* namespaceURI,
                                                   int propertyNumber, XmlElementType elementType)
    : CElementInfoSeqCol(name, namespaceURI, propertyNumber)
    , m_elementType(elementType) {}

void CElementInfoSeqAbsClsCol::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                         const CXmlGeneratedClass* object,
                                                         CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
