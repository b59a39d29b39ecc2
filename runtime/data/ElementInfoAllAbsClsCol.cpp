#include <QxXmlLib16/data/ElementInfoAllAbsClsCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllAbsClsCol::CElementInfoAllAbsClsCol(const wchar_t* name, const wchar_t* namespaceURI,
                                                   int propertyNumber, XmlElementType elementType)
    : CElementInfoAllCol(name, namespaceURI, propertyNumber)
    , m_elementType(elementType) {}

void CElementInfoAllAbsClsCol::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                         const CXmlGeneratedClass* object,
                                                         CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
