#include <QxXmlLib16/data/ElementInfoChoiceCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoChoiceCol::CElementInfoChoiceCol(const wchar_t* name, const wchar_t* namespaceURI,
                                             int propertyNumber)
    : CElementInfo(name, namespaceURI, propertyNumber) {}

bool CElementInfoChoiceCol::ElementToXml(const CSerializationContext& context,
                                         const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteCollection<ChoiceGroup>(*this, context, object, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                           CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                           XmlElementType probe) const {
    return ReadCollection<ChoiceGroup>(*this, context, object, parent, current, probe);
}

} // namespace QxXmlLib16Data
