#include <QxXmlLib16/data/ElementInfoChoiceUntpdCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoChoiceUntpdCol::CElementInfoChoiceUntpdCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
    : CElementInfoChoiceCol(name, namespaceURI, propertyNumber) {}

bool CElementInfoChoiceUntpdCol::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent, CXmlElement** current, const wchar_t*, XmlElementType probe) const {
    return ReadCollection<ChoiceGroup>(*this, context, object, parent, current, probe, ReadWildcardItems);
}

} // namespace QxXmlLib16Data
