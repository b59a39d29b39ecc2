#include <QxXmlLib16/data/ElementInfoSeqClsMnd.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqClsMnd::CElementInfoSeqClsMnd(const wchar_t* name, const wchar_t* namespaceURI,
                                             int propertyNumber, XmlElementType elementType,
                                             ClassFactoryFunction factory, int classNumber,
                                             bool requiredContent)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_requiredContent(requiredContent)
    , m_factory(factory)
    , m_classNumber(classNumber) {}

bool CElementInfoSeqClsMnd::ElementToXml(const CSerializationContext& context,
                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Mandatory>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoSeqClsMnd::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                           XmlElementType probe) const {
    const ClassTarget target{m_elementType, m_factory, m_classNumber, m_requiredContent};
    return ReadExistingClass<SequenceGroup>(*this, target, context, object, parent, current, probe);
}

void CElementInfoSeqClsMnd::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                      const CXmlGeneratedClass* object,
                                                      CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
