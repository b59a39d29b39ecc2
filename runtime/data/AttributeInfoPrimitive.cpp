#include <QxXmlLib16/data/AttributeInfoPrimitive.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include "data/AttributeInfoRules.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

namespace {

// An empty record checks nothing, so it is not consulted: the facet checker knows no check for a
// char at all and would refuse one.
bool HasFacets(const CPrimitiveRestrictions& r) {
    return CPrimitiveRestrictions::IsPresent(r.m_pattern) ||
           CPrimitiveRestrictions::IsPresent(r.m_minLength) ||
           CPrimitiveRestrictions::IsPresent(r.m_maxLength) ||
           CPrimitiveRestrictions::IsPresent(r.m_minInclusive) ||
           CPrimitiveRestrictions::IsPresent(r.m_maxInclusive) ||
           CPrimitiveRestrictions::IsPresent(r.m_minExclusive) ||
           CPrimitiveRestrictions::IsPresent(r.m_maxExclusive) ||
           CPrimitiveRestrictions::IsPresent(r.m_length) ||
           CPrimitiveRestrictions::IsPresent(r.m_totalDigits) ||
           CPrimitiveRestrictions::IsPresent(r.m_fractionDigits);
}

} // namespace

CAttributeInfoPrimitive::CAttributeInfoPrimitive(const wchar_t* name, const wchar_t* namespaceURI,
                                                 int propertyNumber, bool optional, ItemType itemType,
                                                 const wchar_t* format,
                                                 CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                                 const CPrimitiveRestrictions& restrictions,
                                                 const wchar_t* defaultValue)
    : CAttributeInfo(name, namespaceURI, propertyNumber, optional, defaultValue)
    , m_restrictions(restrictions)
    , m_itemType(itemType)
    , m_format(format ? format : L"")
    , m_whitespaceRule(whitespaceRule) {}

void CAttributeInfoPrimitive::AttributeToXml(const CSerializationContext& context,
                                             const CXmlGeneratedClass* object, CXmlWriter* writer) const {
    QxVariant value;
    ReadProperty(object, value);
    if (internal::IsAbsentOptional(*this, value)) return;
    const std::wstring text = value.ToString(m_format);
    if (internal::IsSuppressedDefault(*this, context, text)) return;
    if (HasFacets(m_restrictions)) CheckRestriction(value);
    writer->WriteAttributeString(GetName(), GetNamespace(), text, value.GetItemType());
}

bool CAttributeInfoPrimitive::AttributeFromXml(const CSerializationContext&, CXmlGeneratedClass* object,
                                               CXmlAttribute* attribute) const {
    // Namespaces are compared even when the context ignores them: documents written before that
    // option existed depend on a primitive attribute never being taken from a foreign namespace.
    if (!attribute || attribute->GetLocalName() != GetName() ||
        attribute->GetNamespaceURI() != GetNamespace())
        return false;
    internal::StoreValue(*this, object, *attribute, [&](QxVariant& value) {
        value.FromString(attribute->GetValue(), m_itemType, m_whitespaceRule);
    });
    return true;
}

void CAttributeInfoPrimitive::Validate(const CSerializationContext&, bool found) const {
    internal::RequireFound(*this, found);
}

void CAttributeInfoPrimitive::CheckRestriction(QxVariant value) const {
    CXmlObjectHelper::CheckRestriction(GetName().c_str(), value, m_itemType, m_restrictions);
}

} // namespace QxXmlLib16Data
