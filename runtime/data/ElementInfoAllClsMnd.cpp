#include <QxXmlLib16/data/ElementInfoAllClsMnd.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllClsMnd::CElementInfoAllClsMnd(const wchar_t* name, const wchar_t* namespaceURI,
                                             int propertyNumber, XmlElementType elementType,
                                             ClassFactoryFunction factory, int classNumber,
                                             bool requiredContent)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_requiredContent(requiredContent)
    , m_factory(factory)
    , m_classNumber(classNumber) {}

bool CElementInfoAllClsMnd::ElementToXml(const CSerializationContext& context,
                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Mandatory>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoAllClsMnd::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                           XmlElementType probe) const {
    const ClassTarget target{m_elementType, m_factory, m_classNumber, m_requiredContent};
    return ReadExistingClass<AllGroup>(*this, target, context, object, parent, current, probe);
}

bool CElementInfoAllClsMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool found,
                                     bool check) const {
    // A member that can stand empty is satisfied by its absence.
    if (check && !found && m_elementType != etGroup && !m_requiredContent) return true;
    return ValidateAllMember<Mandatory>(*this, found, check);
}

void CElementInfoAllClsMnd::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                      const CXmlGeneratedClass* object,
                                                      CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
