#include <QxXmlLib16/data/ElementInfoSeqClsOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqClsOpt::CElementInfoSeqClsOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                             int propertyNumber, XmlElementType elementType,
                                             ClassFactoryFunction factory, int classNumber)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_factory(factory)
    , m_classNumber(classNumber) {}

bool CElementInfoSeqClsOpt::ElementToXml(const CSerializationContext& context,
                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoSeqClsOpt::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                           XmlElementType probe) const {
    const ClassTarget target{m_elementType, m_factory, m_classNumber, false};
    return ReadNewClass<SequenceGroup>(*this, target, context, object, parent, current, probe);
}

void CElementInfoSeqClsOpt::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                      const CXmlGeneratedClass* object,
                                                      CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
