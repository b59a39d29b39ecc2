#include <QxXmlLib16/data/ElementInfoSeqAbsClsMnd.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqAbsClsMnd::CElementInfoSeqAbsClsMnd(const wchar_t* name, const wchar_t* namespaceURI,
                                                   int propertyNumber, XmlElementType elementType,
                                                   ElementFactoryFunction factory)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_factory(factory) {}

bool CElementInfoSeqAbsClsMnd::ElementToXml(const CSerializationContext& context,
                                            const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Mandatory>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoSeqAbsClsMnd::ElementFromXml(const CSerializationContext& context,
                                              CXmlGeneratedClass* object, CXmlElement* parent,
                                              CXmlElement** current, const wchar_t*,
                                              XmlElementType probe) const {
    return ReadAbstractClass<SequenceGroup, Mandatory>(*this, m_factory, context, object, parent, current,
                                                       probe);
}

void CElementInfoSeqAbsClsMnd::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                         const CXmlGeneratedClass* object,
                                                         CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
