#include <QxXmlLib16/collections/ElementCol.h>

#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

CElementCol::CElementCol(const wchar_t* namespaceURI, const wchar_t* namespaceRule,
                         const wchar_t* targetNamespace, int minOccurs, int maxOccurs)
    : CXmlCollection(L"", namespaceURI, minOccurs, maxOccurs)
    , CInstanceMonitor(L"CElementCol")
    , m_namespaceRule(namespaceRule ? namespaceRule : L"")
    , m_targetNamespace(targetNamespace ? targetNamespace : L"") {}

CElementCol::~CElementCol() = default;

CElement* CElementCol::Add(const wchar_t* name) {
    const std::wstring namespaceURI = GetNamespace();
    if (namespaceURI.empty())
        throw CQxInvalidStateException(L"A Namespace has not been set for this Collection");
    return Add(name, namespaceURI.c_str());
}

CElement* CElementCol::Add(const wchar_t* name, const wchar_t* namespaceURI) {
    const CSmartPtr<CElement> element(
        new CElement(name, namespaceURI, m_namespaceRule.c_str(), m_targetNamespace.c_str()));
    return Add(element.Get());
}

CElement* CElementCol::Add(CElement* element) {
    AppendItem(element);
    return element;
}

CElementCol* CElementCol::Clone() const {
    CElementCol* copy = new CElementCol(GetNamespace().c_str(), m_namespaceRule.c_str(),
                                        m_targetNamespace.c_str(), GetMinOccurs(), GetMaxOccurs());
    try {
        for (const CElement* element : *this)
            copy->Add(CSmartPtr<CElement>(element->Clone()).Get());
    } catch (...) {
        delete copy;
        throw;
    }
    return copy;
}

void CElementCol::SetNamespaceRestrictions(const wchar_t* namespaceRule, const wchar_t* targetNamespace) {
    const std::wstring rule = namespaceRule ? namespaceRule : L"";
    const std::wstring target = targetNamespace ? targetNamespace : L"";
    for (const CElement* element : *this)
        element->CheckNamespaces(rule, target);
    for (CElement* element : *this)
        element->ApplyNamespaceRestrictions(rule, target);
    m_namespaceRule = rule;
    m_targetNamespace = target;
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool, const wchar_t*, const CSerializationContext& context,
                            bool flag) const {
    for (const CElement* element : *this)
        element->ToXml_Int(writer, false, element->m_namespace.c_str(), context, flag);
}

template <class Accept>
CXmlElement* CElementCol::ReadElements(CXmlElement* parent, CXmlElement* current,
                                       const CSerializationContext& context, bool flag,
                                       const std::wstring& rule, Accept accept) {
    while (current && accept(*current)) {
        const CSmartPtr<CElement> element(new CElement(current->GetLocalName().c_str(),
                                                       current->GetNamespaceURI().c_str(), rule.c_str(),
                                                       m_targetNamespace.c_str()));
        CXmlElement* next = element->FromXml_Int(parent, current, context, flag);
        if (next == current) return current;
        AppendItem(element.Get());
        current = next;
    }
    return current;
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* parent, CXmlElement* current,
                                      const CSerializationContext& context, bool flag) {
    return ReadElements(parent, current, context, flag, m_namespaceRule, [this](const CXmlElement& element) {
        return CXmlObjectHelper::IsNamespaceValid(element.GetNamespaceURI(), m_namespaceRule,
                                                  m_targetNamespace);
    });
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(std::wstring name, std::wstring namespaceURI,
                                                     CXmlElement* parent, CXmlElement* current,
                                                     const CSerializationContext& context) {
    return ReadElements(parent, current, context, false, L"##any", [&](const CXmlElement& element) {
        return element.GetLocalName() == name && element.GetNamespaceURI() == namespaceURI;
    });
}

} // namespace QxXmlLib16
