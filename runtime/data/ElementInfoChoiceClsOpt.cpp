#include <QxXmlLib16/data/ElementInfoChoiceClsOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoChoiceClsOpt::CElementInfoChoiceClsOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                                   int propertyNumber, XmlElementType elementType,
                                                   ClassFactoryFunction factory, int classNumber)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_factory(factory)
    , m_classNumber(classNumber) {}

bool CElementInfoChoiceClsOpt::ElementToXml(const CSerializationContext& context,
                                            const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(const CSerializationContext& context,
                                              CXmlGeneratedClass* object, CXmlElement* parent,
                                              CXmlElement** current, const wchar_t*,
                                              XmlElementType probe) const {
    const ClassTarget target{m_elementType, m_factory, m_classNumber, false};
    return ReadNewClass<ChoiceGroup>(*this, target, context, object, parent, current, probe);
}

void CElementInfoChoiceClsOpt::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                         const CXmlGeneratedClass* object,
                                                         CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
