#include <QxXmlLib16/data/ElementInfoChoicePrimOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoChoicePrimOpt::CElementInfoChoicePrimOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                                     int propertyNumber, bool nillable, ItemType itemType,
                                                     const wchar_t* format,
                                                     CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                                     const CPrimitiveRestrictions& restrictions,
                                                     const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, itemType, format, whitespaceRule,
                   restrictions, defaultValue) {}

bool CElementInfoChoicePrimOpt::ElementToXml(const CSerializationContext& context,
                                             const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, PrimContent{}, context, object, writer);
}

bool CElementInfoChoicePrimOpt::ElementFromXml(const CSerializationContext& context,
                                               CXmlGeneratedClass* object, CXmlElement* parent,
                                               CXmlElement** current, const wchar_t*,
                                               XmlElementType probe) const {
    return ReadValueMember<ChoiceGroup, Optional>(*this, PrimContent{}, context, object, parent, current,
                                                  probe);
}

} // namespace QxXmlLib16Data
