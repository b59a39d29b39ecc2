#include <QxXmlLib16/data/ElementInfoSeqEnumOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqEnumOpt::CElementInfoSeqEnumOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber, bool nillable,
                                               EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                                               const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, enumToText, textToEnum, defaultValue) {}

bool CElementInfoSeqEnumOpt::ElementToXml(const CSerializationContext& context,
                                          const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, EnumContent{}, context, object, writer);
}

bool CElementInfoSeqEnumOpt::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                            XmlElementType probe) const {
    return ReadValueMember<SequenceGroup, Optional>(*this, EnumContent{}, context, object, parent, current,
                                                    probe);
}

} // namespace QxXmlLib16Data
