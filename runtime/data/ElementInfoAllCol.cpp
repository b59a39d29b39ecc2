#include <QxXmlLib16/data/ElementInfoAllCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllCol::CElementInfoAllCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
    : CElementInfo(name, namespaceURI, propertyNumber) {}

bool CElementInfoAllCol::ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* object,
                                      CXmlWriter* writer) const {
    return WriteCollection<AllGroup>(*this, context, object, writer);
}

bool CElementInfoAllCol::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                        CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                        XmlElementType probe) const {
    return ReadCollection<AllGroup>(*this, context, object, parent, current, probe);
}

} // namespace QxXmlLib16Data
