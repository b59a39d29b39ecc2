// The whole element descriptor family in one file. Each of the 43 descriptors differs from its
// siblings only in which group, kind and cardinality policies it combines (ElementMember.h), so a
// file per descriptor held nothing but a constructor and one-line forwards.

#include <QxXmlLib16/data/ElementInfoFamily.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

namespace {

template <XmlElementGroupType Group>
using TGroupPolicy = std::conditional_t<Group == egSequence, SequenceGroup,
                                        std::conditional_t<Group == egChoice, ChoiceGroup, AllGroup>>;

template <Cardinality Card>
using TCardinalityPolicy = std::conditional_t<Card == cdMandatory, Mandatory, internal::Optional>;

// How a member's content is written: values by their own writers, objects and wildcards as a class.
template <ContentKind Kind>
using TWritePolicy = std::conditional_t<Kind == ckPrimitive, PrimContent,
                                        std::conditional_t<Kind == ckEnumeration, EnumContent, ClsContent>>;

} // namespace

// ---- Single members ------------------------------------------------------------------------------

template <XmlElementGroupType Group, ContentKind Kind, Cardinality Card>
bool TElementInfoMember<Group, Kind, Card>::ElementToXml(const CSerializationContext& context,
                                                         const CXmlGeneratedClass* object,
                                                         CXmlWriter* writer) const {
    return WriteMember<TCardinalityPolicy<Card>>(*this, TWritePolicy<Kind>{}, context, object, writer);
}

template <XmlElementGroupType Group, ContentKind Kind, Cardinality Card>
bool TElementInfoMember<Group, Kind, Card>::ElementFromXml(const CSerializationContext& context,
                                                           CXmlGeneratedClass* object, CXmlElement* parent,
                                                           CXmlElement** current, const wchar_t* namespaceURI,
                                                           XmlElementType probe) const {
    using GroupPolicy = TGroupPolicy<Group>;
    using CardinalityPolicy = TCardinalityPolicy<Card>;
    if constexpr (Kind == ckPrimitive || Kind == ckEnumeration)
        return ReadValueMember<GroupPolicy, CardinalityPolicy>(*this, TWritePolicy<Kind>{}, context, object,
                                                               parent, current, probe);
    else if constexpr (Kind == ckClass && Card == cdMandatory)
        return ReadExistingClass<GroupPolicy>(*this, m_fields, context, object, parent, current, probe);
    else if constexpr (Kind == ckClass)
        return ReadNewClass<GroupPolicy>(*this, m_fields, context, object, parent, current, probe);
    else if constexpr (Kind == ckAbstractClass)
        return ReadAbstractClass<GroupPolicy, CardinalityPolicy>(*this, m_fields.factory, context, object,
                                                                 parent, current, probe);
    else
        return ReadWildcard<GroupPolicy, CardinalityPolicy>(*this, m_fields, context, object, parent, current,
                                                            namespaceURI, probe);
}

template <XmlElementGroupType Group, ContentKind Kind, Cardinality Card>
bool TElementInfoMember<Group, Kind, Card>::Validate(const CSerializationContext& context,
                                                     const CXmlGeneratedClass* object, bool found,
                                                     bool check) const {
    if constexpr (Group != egAll) {
        return CElementInfo::Validate(context, object, found, check);
    } else {
        // A mandatory class member that can stand empty is satisfied by its absence.
        if constexpr (Kind == ckClass && Card == cdMandatory)
            if (check && !found && m_fields.elementKind != etGroup && !m_fields.requiredContent) return true;
        return ValidateAllMember<TCardinalityPolicy<Card>>(*this, found, check);
    }
}

template <XmlElementGroupType Group, ContentKind Kind, Cardinality Card>
void TElementInfoMember<Group, Kind, Card>::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                                      const CXmlGeneratedClass* object,
                                                                      CXmlWriter* writer) const {
    if constexpr (IsClassContent(Kind))
        WriteInlineChildAttributes(*this, m_fields.elementKind, context, object, writer);
    else
        CElementInfo::PseudoChildAttributeToXml(context, object, writer);
}

// ---- Collections ---------------------------------------------------------------------------------

template <XmlElementGroupType Group>
bool TElementInfoCollection<Group>::ElementToXml(const CSerializationContext& context,
                                                 const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    return WriteCollection<TGroupPolicy<Group>>(*this, context, object, writer);
}

template <XmlElementGroupType Group>
bool TElementInfoCollection<Group>::ElementFromXml(const CSerializationContext& context,
                                                   CXmlGeneratedClass* object, CXmlElement* parent,
                                                   CXmlElement** current, const wchar_t*,
                                                   XmlElementType probe) const {
    return ReadCollection<TGroupPolicy<Group>>(*this, context, object, parent, current, probe);
}

template <XmlElementGroupType Group, ContentKind Kind>
bool TElementInfoKindCollection<Group, Kind>::ElementFromXml(const CSerializationContext& context,
                                                             CXmlGeneratedClass* object, CXmlElement* parent,
                                                             CXmlElement** current,
                                                             const wchar_t* namespaceURI,
                                                             XmlElementType probe) const {
    if constexpr (Kind == ckUntyped && Group != egAll)
        return ReadCollection<TGroupPolicy<Group>>(*this, context, object, parent, current, probe,
                                                   ReadWildcardItems);
    else
        return Base::ElementFromXml(context, object, parent, current, namespaceURI, probe);
}

template <XmlElementGroupType Group, ContentKind Kind>
void TElementInfoKindCollection<Group, Kind>::PseudoChildAttributeToXml(const CSerializationContext& context,
                                                                        const CXmlGeneratedClass* object,
                                                                        CXmlWriter* writer) const {
    if constexpr (IsClassContent(Kind))
        WriteInlineChildAttributes(*this, m_elementKind, context, object, writer);
    else
        Base::PseudoChildAttributeToXml(context, object, writer);
}

#define QX_INSTANTIATE_ELEMENT_INFO(name, ...) template class __VA_ARGS__;
QX_ELEMENT_INFO_COLLECTIONS(QX_INSTANTIATE_ELEMENT_INFO)
QX_ELEMENT_INFO_MEMBERS(QX_INSTANTIATE_ELEMENT_INFO)

} // namespace QxXmlLib16Data
