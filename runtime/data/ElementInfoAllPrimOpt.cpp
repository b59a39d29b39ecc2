#include <QxXmlLib16/data/ElementInfoAllPrimOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllPrimOpt::CElementInfoAllPrimOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber, bool nillable, ItemType itemType,
                                               const wchar_t* format,
                                               CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                               const CPrimitiveRestrictions& restrictions,
                                               const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, itemType, format, whitespaceRule,
                   restrictions, defaultValue) {}

bool CElementInfoAllPrimOpt::ElementToXml(const CSerializationContext& context,
                                          const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, PrimContent{}, context, object, writer);
}

bool CElementInfoAllPrimOpt::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                            XmlElementType probe) const {
    return ReadValueMember<AllGroup, Optional>(*this, PrimContent{}, context, object, parent, current, probe);
}

bool CElementInfoAllPrimOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool found,
                                      bool check) const {
    return ValidateAllMember<Optional>(*this, found, check);
}

} // namespace QxXmlLib16Data
