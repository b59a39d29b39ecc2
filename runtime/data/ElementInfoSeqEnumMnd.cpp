#include <QxXmlLib16/data/ElementInfoSeqEnumMnd.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqEnumMnd::CElementInfoSeqEnumMnd(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber, bool nillable,
                                               EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                                               const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, enumToText, textToEnum, defaultValue) {}

bool CElementInfoSeqEnumMnd::ElementToXml(const CSerializationContext& context,
                                          const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Mandatory>(*this, EnumContent{}, context, object, writer);
}

bool CElementInfoSeqEnumMnd::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                            XmlElementType probe) const {
    return ReadValueMember<SequenceGroup, Mandatory>(*this, EnumContent{}, context, object, parent, current,
                                                     probe);
}

} // namespace QxXmlLib16Data
