#include <QxXmlLib16/data/ElementInfoSeqUntpdCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqUntpdCol::CElementInfoSeqUntpdCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
    : CElementInfoSeqCol(name, namespaceURI, propertyNumber) {}

bool CElementInfoSeqUntpdCol::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent, CXmlElement** current, const wchar_t*, XmlElementType probe) const {
    return ReadCollection<SequenceGroup>(*this, context, object, parent, current, probe, ReadWildcardItems);
}

} // namespace QxXmlLib16Data
