#include <QxXmlLib16/data/ElementInfoAllEnumOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllEnumOpt::CElementInfoAllEnumOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber, bool nillable,
                                               EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                                               const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, enumToText, textToEnum, defaultValue) {}

bool CElementInfoAllEnumOpt::ElementToXml(const CSerializationContext& context,
                                          const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, EnumContent{}, context, object, writer);
}

bool CElementInfoAllEnumOpt::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                            XmlElementType probe) const {
    return ReadValueMember<AllGroup, Optional>(*this, EnumContent{}, context, object, parent, current, probe);
}

bool CElementInfoAllEnumOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool found,
                                      bool check) const {
    return ValidateAllMember<Optional>(*this, found, check);
}

} // namespace QxXmlLib16Data
