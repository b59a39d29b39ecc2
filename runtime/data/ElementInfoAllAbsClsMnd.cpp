#include <QxXmlLib16/data/ElementInfoAllAbsClsMnd.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(const wchar_t* name, const wchar_t* namespaceURI,
                                                   int propertyNumber, XmlElementType elementType,
                                                   ElementFactoryFunction factory, int number)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_elementType(elementType)
    , m_factory(factory)
    , m_number(number) {}

bool CElementInfoAllAbsClsMnd::ElementToXml(const CSerializationContext& context,
                                            const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Mandatory>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoAllAbsClsMnd::ElementFromXml(const CSerializationContext& context,
                                              CXmlGeneratedClass* object, CXmlElement* parent,
                                              CXmlElement** current, const wchar_t*,
                                              XmlElementType probe) const {
    return ReadAbstractClass<AllGroup, Mandatory>(*this, m_factory, context, object, parent, current, probe);
}

bool CElementInfoAllAbsClsMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool found,
                                        bool check) const {
    return ValidateAllMember<Mandatory>(*this, found, check);
}

void CElementInfoAllAbsClsMnd::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                         const CXmlGeneratedClass* object,
                                                         CXmlWriter* writer) const {
    WriteInlineChildAttributes(*this, m_elementType, context, object, writer);
}

} // namespace QxXmlLib16Data
