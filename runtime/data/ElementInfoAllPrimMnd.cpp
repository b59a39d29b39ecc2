#include <QxXmlLib16/data/ElementInfoAllPrimMnd.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllPrimMnd::CElementInfoAllPrimMnd(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber, bool nillable, ItemType itemType,
                                               const wchar_t* format,
                                               CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                               const CPrimitiveRestrictions& restrictions,
                                               const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, itemType, format, whitespaceRule,
                   restrictions, defaultValue) {}

bool CElementInfoAllPrimMnd::ElementToXml(const CSerializationContext& context,
                                          const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Mandatory>(*this, PrimContent{}, context, object, writer);
}

bool CElementInfoAllPrimMnd::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                            XmlElementType probe) const {
    return ReadValueMember<AllGroup, Mandatory>(*this, PrimContent{}, context, object, parent, current,
                                                probe);
}

bool CElementInfoAllPrimMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool found,
                                      bool check) const {
    return ValidateAllMember<Mandatory>(*this, found, check);
}

} // namespace QxXmlLib16Data
