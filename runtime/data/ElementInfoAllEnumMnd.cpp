#include <QxXmlLib16/data/ElementInfoAllEnumMnd.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllEnumMnd::CElementInfoAllEnumMnd(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber, bool nillable,
                                               EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                                               const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, enumToText, textToEnum, defaultValue) {}

bool CElementInfoAllEnumMnd::ElementToXml(const CSerializationContext& context,
                                          const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Mandatory>(*this, EnumContent{}, context, object, writer);
}

bool CElementInfoAllEnumMnd::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                            XmlElementType probe) const {
    return ReadValueMember<AllGroup, Mandatory>(*this, EnumContent{}, context, object, parent, current,
                                                probe);
}

bool CElementInfoAllEnumMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool found,
                                      bool check) const {
    return ValidateAllMember<Mandatory>(*this, found, check);
}

} // namespace QxXmlLib16Data
