#include <QxXmlLib16/data/ElementInfoAllClsOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllClsOpt::CElementInfoAllClsOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                             int propertyNumber, XmlElementType elementType,
                                             ClassFactoryFunction factory, int classNumber)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_factory(factory)
    , m_classNumber(classNumber) {}

bool CElementInfoAllClsOpt::ElementToXml(const CSerializationContext& context,
                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoAllClsOpt::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                           XmlElementType probe) const {
    const ClassTarget target{m_elementType, m_factory, m_classNumber, false};
    return ReadNewClass<AllGroup>(*this, target, context, object, parent, current, probe);
}

bool CElementInfoAllClsOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool found,
                                     bool check) const {
    return ValidateAllMember<Optional>(*this, found, check);
}

void CElementInfoAllClsOpt::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                      const CXmlGeneratedClass* object,
                                                      CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
