#include <QxXmlLib16/data/ElementInfoSeqPrimOpt.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoSeqPrimOpt::CElementInfoSeqPrimOpt(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber, bool nillable, ItemType itemType,
                                               const wchar_t* format,
                                               CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                               const CPrimitiveRestrictions& restrictions,
                                               const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber, nillable, itemType, format, whitespaceRule,
                   restrictions, defaultValue) {}

bool CElementInfoSeqPrimOpt::ElementToXml(const CSerializationContext& context,
                                          const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteMember<Optional>(*this, PrimContent{}, context, object, writer);
}

bool CElementInfoSeqPrimOpt::ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* object,
                                            CXmlElement* parent, CXmlElement** current, const wchar_t*,
                                            XmlElementType probe) const {
    return ReadValueMember<SequenceGroup, Optional>(*this, PrimContent{}, context, object, parent, current,
                                                    probe);
}

} // namespace QxXmlLib16Data
