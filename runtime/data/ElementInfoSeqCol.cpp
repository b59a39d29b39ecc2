#include <QxXmlLib16/data/ElementInfoSeqCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqCol::CElementInfoSeqCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
    : CElementInfo(name, namespaceURI, propertyNumber) {}

bool CElementInfoSeqCol::ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* object,
                                      CXmlWriter* writer) const {
    return WriteCollection<SequenceGroup>(*this, context, object, writer);
}

bool CElementInfoSeqCol::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                        CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                        XmlElementType probe) const {
    return ReadCollection<SequenceGroup>(*this, context, object, parent, current, probe);
}

} // namespace QxXmlLib16Data
