#include <QxXmlLib16/data/ElementInfoSeqUntpdOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqUntpdOpt::CElementInfoSeqUntpdOpt(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber, const wchar_t* namespaceRule, const wchar_t* targetNamespace)
    : CElementInfo(name, namespaceURI, propertyNumber)
    , m_namespaceRule(TextOrEmpty(namespaceRule))
    , m_targetNamespace(TextOrEmpty(targetNamespace)) {}

bool CElementInfoSeqUntpdOpt::ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, ClsContent{}, context, object, writer);
}

bool CElementInfoSeqUntpdOpt::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent, CXmlElement** current, const wchar_t* namespaceURI, XmlElementType probe) const {
    const WildcardTarget target{m_namespaceRule, m_targetNamespace};
    return ReadWildcard<SequenceGroup, Optional>(*this, target, context, object, parent, current, namespaceURI, probe);
}

} // namespace QxXmlLib16Data
