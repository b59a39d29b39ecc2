#include <QxXmlLib16/collections/AttributeCol.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

#include "collections/WildcardRules.h"

namespace QxXmlLib16 {

CAttributeCol::CAttributeCol(const wchar_t* namespaceURI, const wchar_t* namespaceRule,
                             const wchar_t* targetNamespace)
    : CXmlCollection(L"", namespaceURI, 0, -1)
    , CInstanceMonitor(L"CAttributeCol")
    , m_namespaceRule(namespaceRule ? namespaceRule : L"")
    , m_targetNamespace(targetNamespace ? targetNamespace : L"") {}

CAttributeCol::~CAttributeCol() = default;

CAttribute* CAttributeCol::Add(const wchar_t* name) {
    return Add(name, L"", L"");
}

CAttribute* CAttributeCol::Add(const wchar_t* name, const wchar_t* value) {
    return Add(name, value, L"");
}

CAttribute* CAttributeCol::Add(const wchar_t* name, const wchar_t* value, const wchar_t* namespaceURI) {
    CXmlObjectHelper::TestNamespace(namespaceURI ? namespaceURI : L"", m_namespaceRule, m_targetNamespace);
    return Append(name, value, namespaceURI);
}

CAttribute* CAttributeCol::Append(const wchar_t* name, const wchar_t* value, const wchar_t* namespaceURI) {
    const CSmartPtr<CAttribute> attribute(new CAttribute(name, value, namespaceURI));
    AppendItem(attribute.Get());
    return attribute.Get();
}

CAttribute* CAttributeCol::Add(CAttribute* attribute) {
    AppendItem(attribute);
    return attribute;
}

CAttributeCol* CAttributeCol::Clone() const {
    CAttributeCol* copy =
        new CAttributeCol(GetNamespace().c_str(), m_namespaceRule.c_str(), m_targetNamespace.c_str());
    try {
        for (const CAttribute* attribute : *this)
            copy->Append(attribute->GetName().c_str(), attribute->GetValue().c_str(),
                         attribute->GetNamespace().c_str());
    } catch (...) {
        delete copy;
        throw;
    }
    return copy;
}

void CAttributeCol::CheckNamespaces(const std::wstring& namespaceRule,
                                    const std::wstring& targetNamespace) const {
    for (const CAttribute* attribute : *this)
        internal::CheckNamespaceFits(attribute->GetNamespace(), attribute->GetName(), namespaceRule,
                                     targetNamespace);
}

void CAttributeCol::SetNamespaceRestrictions(const wchar_t* namespaceRule, const wchar_t* targetNamespace) {
    const std::wstring rule = namespaceRule ? namespaceRule : L"";
    const std::wstring target = targetNamespace ? targetNamespace : L"";
    CheckNamespaces(rule, target);
    m_namespaceRule = rule;
    m_targetNamespace = target;
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, const wchar_t* namespaceURI,
                              const CSerializationContext& context, bool flag) const {
    for (const CAttribute* attribute : *this)
        CXmlObjectBase::ToXml_Int(attribute, writer, false, namespaceURI, context, flag);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                        const CSerializationContext&, bool) {
    if (!element) return firstChild;
    for (const CXmlAttribute* attribute : element->GetAttributes()) {
        if (!CXmlObjectHelper::IsNamespaceValid(attribute->GetNamespaceURI(), m_namespaceRule,
                                                m_targetNamespace))
            throw CQxInvalidNamespaceException(
                FormatString(L"Invalid Attribute [%ls]. The attributes namespace is Inappropriate.",
                             attribute->GetLocalName().c_str()),
                element->GetXPath());
        Append(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
               attribute->GetNamespaceURI().c_str());
    }
    return firstChild;
}

} // namespace QxXmlLib16
