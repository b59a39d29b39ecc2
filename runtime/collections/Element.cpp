#include <QxXmlLib16/collections/Element.h>

#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include "collections/WildcardRules.h"

#include <algorithm>
#include <cwchar>

namespace QxXmlLib16 {

namespace {

bool IsRuleKeyword(const wchar_t* text) {
    for (const wchar_t* keyword : {L"##any", L"##other", L"##local", L"##targetNamespace"})
        if (std::wcscmp(text, keyword) == 0) return true;
    return false;
}

// The namespace given alone is the element's rule; the empty namespace is spelled "##local" there,
// since an empty rule would accept nothing.
const wchar_t* OwnRule(const wchar_t* namespaceURI) {
    if (IsRuleKeyword(namespaceURI))
        throw CQxInvalidNamespaceException(FormatString(L"Invalid Namespace [%ls].", namespaceURI),
                                           std::wstring());
    return *namespaceURI ? namespaceURI : L"##local";
}

const wchar_t* OrEmpty(const wchar_t* text) {
    return text ? text : L"";
}

} // namespace

CElement::CElement(const wchar_t* name)
    : CInstanceMonitor(L"CElement") {
    Init(name, L"", L"##any", L"");
}

CElement::CElement(const wchar_t* name, const wchar_t* namespaceURI)
    : CInstanceMonitor(L"CElement") {
    Init(name, namespaceURI, OwnRule(OrEmpty(namespaceURI)), L"");
}

CElement::CElement(const wchar_t* name, const wchar_t* namespaceURI, const wchar_t* namespaceRule,
                   const wchar_t* targetNamespace)
    : CInstanceMonitor(L"CElement") {
    Init(name, namespaceURI, namespaceRule, targetNamespace);
}

CElement::CElement(CXmlObjectBase* object, const wchar_t* name)
    : CInstanceMonitor(L"CElement") {
    if (!object) throw CQxInvalidParamException(L"The object to copy may not be NULL");
    Init(name ? name : object->GetElementName().c_str(), L"", L"##any", L"");
    CXmlDocument document;
    document.LoadXml(object->ToXml(false, false).c_str());
    CopyXmlElement(document.GetDocumentElement());
    if (name) {
        m_name = name;
        SetElementName(name);
    }
}

CElement::~CElement() = default;

void CElement::Init(const wchar_t* name, const wchar_t* namespaceURI, const wchar_t* namespaceRule,
                    const wchar_t* targetNamespace) {
    if (!name) throw CQxInvalidNamespaceException(L"Element Name must have a value", std::wstring());
    if (!namespaceRule)
        throw CQxInvalidNamespaceException(L"Namespace Restriction must have a value", std::wstring());
    if (!targetNamespace)
        throw CQxInvalidNamespaceException(L"Target Namespace must have a value", std::wstring());
    const wchar_t* ownNamespace = OrEmpty(namespaceURI);
    CXmlObjectHelper::TestNamespace(ownNamespace, namespaceRule, targetNamespace);
    m_attributes = nullptr;
    m_elements = nullptr;
    m_restricted = false;
    m_name = name;
    SetElementName(name);
    m_text.clear();
    m_namespace = ownNamespace;
    m_namespaceRule = namespaceRule;
    m_targetNamespace = targetNamespace;
    m_defaultNamespace.clear();
}

const std::wstring& CElement::CollectionRule() const {
    static const std::wstring any = L"##any";
    return m_restricted ? m_namespaceRule.Get() : any;
}

CAttributeCol* CElement::GetAttributes() const {
    if (!m_attributes)
        m_attributes =
            new CAttributeCol(m_namespace.c_str(), CollectionRule().c_str(), m_targetNamespace.c_str());
    return m_attributes.Get();
}

CElementCol* CElement::GetElements() const {
    if (!m_elements)
        m_elements =
            new CElementCol(m_namespace.c_str(), CollectionRule().c_str(), m_targetNamespace.c_str(), 0, -1);
    return m_elements.Get();
}

void CElement::SetNamespace(const wchar_t* namespaceURI) {
    const wchar_t* value = OrEmpty(namespaceURI);
    CXmlObjectHelper::TestNamespace(value, m_namespaceRule, m_targetNamespace);
    m_namespace = value;
}

// ---- Namespace rules ---------------------------------------------------------------------------

void CElement::SetNamespaceRestrictions(const wchar_t* namespaceRule, const wchar_t* targetNamespace) {
    const std::wstring rule = OrEmpty(namespaceRule);
    const std::wstring target = OrEmpty(targetNamespace);
    CheckNamespaces(rule, target);
    ApplyNamespaceRestrictions(rule, target);
}

void CElement::CheckNamespaces(const std::wstring& namespaceRule, const std::wstring& targetNamespace) const {
    internal::CheckNamespaceFits(m_namespace, m_name, namespaceRule, targetNamespace);
    if (m_attributes) m_attributes->CheckNamespaces(namespaceRule, targetNamespace);
    if (m_elements)
        for (const CElement* child : *m_elements)
            child->CheckNamespaces(namespaceRule, targetNamespace);
}

void CElement::ApplyNamespaceRestrictions(const std::wstring& namespaceRule,
                                          const std::wstring& targetNamespace) {
    m_namespaceRule = namespaceRule;
    m_targetNamespace = targetNamespace;
    m_restricted = true;
    if (m_attributes) {
        m_attributes->m_namespaceRule = namespaceRule;
        m_attributes->m_targetNamespace = targetNamespace;
    }
    if (m_elements) {
        m_elements->m_namespaceRule = namespaceRule;
        m_elements->m_targetNamespace = targetNamespace;
        for (CElement* child : *m_elements)
            child->ApplyNamespaceRestrictions(namespaceRule, targetNamespace);
    }
}

// ---- Copying -----------------------------------------------------------------------------------

void CElement::CopyXmlElement(CXmlElement* element) {
    if (!element) throw CQxInvalidParamException(L"The element to copy may not be NULL");
    m_name = element->GetLocalName();
    SetElementName(m_name.c_str());
    m_namespace = element->GetNamespaceURI();
    m_text = element->GetText();
    m_defaultNamespace.clear();
    // Emptied rather than dropped: a caller may hold them.
    if (m_attributes) m_attributes->Clear();
    if (m_elements) m_elements->Clear();
    for (const CXmlAttribute* attribute : element->GetAttributes()) {
        GetAttributes()->Append(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                                attribute->GetNamespaceURI().c_str());
        if (attribute->GetLocalName() == L"xmlns") m_defaultNamespace = attribute->GetValue();
    }
    for (CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement()) {
        const CSmartPtr<CElement> copy(new CElement(child->GetLocalName().c_str()));
        copy->CopyXmlElement(child);
        GetElements()->Add(copy.Get());
    }
}

CElement* CElement::Clone() const {
    CElement* copy = new CElement(m_name.c_str());
    try {
        copy->m_text = m_text;
        copy->m_namespace = m_namespace;
        copy->m_namespaceRule = m_namespaceRule;
        copy->m_targetNamespace = m_targetNamespace;
        copy->m_restricted = m_restricted;
        if (m_attributes) copy->m_attributes = m_attributes->Clone();
        if (m_elements) copy->m_elements = m_elements->Clone();
        copy->m_defaultNamespace = m_defaultNamespace;
    } catch (...) {
        delete copy;
        throw;
    }
    return copy;
}

// ---- Writing -----------------------------------------------------------------------------------

// Whitespace between child elements is the source's indentation. A formatting writer indents on its
// own; written as well, it would grow by one layer with every load and formatted write.
bool CElement::IsIndentation(CXmlWriter* writer) const {
    const auto* textWriter = dynamic_cast<CXmlTextWriter*>(writer);
    return textWriter && textWriter->GetFormat() && m_elements && m_elements->GetCount() > 0 &&
           std::all_of(m_text.begin(), m_text.end(), CWhitespaceUtils::IsWhiteSpace);
}

void CElement::ToXml_Int(CXmlWriter* writer, bool, const wchar_t*, const CSerializationContext& context,
                         bool flag) const {
    if (!m_defaultNamespace.empty() && dynamic_cast<CXmlTextWriter*>(writer)) {
        WriteWithDefaultNamespace(writer, context, flag);
        return;
    }
    writer->WriteStartElement(m_name, m_namespace);
    if (m_attributes) m_attributes->ToXml_Int(writer, false, m_namespace.c_str(), context, flag);
    if (m_elements) m_elements->ToXml_Int(writer, false, m_namespace.c_str(), context, flag);
    if (!IsIndentation(writer)) writer->WriteString(m_text, itString, false);
    writer->WriteEndElement();
}

// The default namespace can only be declared on a writer's root, so the element is written as the
// root of a writer of its own and its text inserted. The attributes are left out on purpose: the
// copied xmlns attribute is among them and is declared by the inner writer already.
void CElement::WriteWithDefaultNamespace(CXmlWriter* writer, const CSerializationContext&, bool flag) const {
    CXmlTextWriter& outer = static_cast<CXmlTextWriter&>(*writer);
    CTextStream stream;
    CXmlTextWriter inner(stream);
    inner.SetEOLType(outer.GetEOLType());
    inner.SetFormat(outer.GetFormat());
    inner.SetDefaultNamespace(m_defaultNamespace);
    CSerializationContext innerContext;
    innerContext.SetDefaultNamespaceURI(m_defaultNamespace.c_str());
    inner.Open();
    inner.WriteStartElement(m_name, m_namespace);
    if (m_elements) m_elements->ToXml_Int(&inner, false, m_namespace.c_str(), innerContext, flag);
    if (!IsIndentation(&inner)) inner.WriteString(m_text, itString, false);
    inner.WriteEndElement();
    inner.Close();
    outer.CloseParentElm();
    outer.WriteRawElement(stream.GetText());
}

// ---- Reading -----------------------------------------------------------------------------------

CXmlElement* CElement::FromXml_Int(CXmlElement* parent, CXmlElement* element,
                                   const CSerializationContext& context, bool flag) {
    (void)parent;
    if (!element ||
        !CXmlObjectHelper::IsNamespaceValid(element->GetNamespaceURI(), m_namespaceRule, m_targetNamespace))
        return element;
    // Emptied rather than dropped: a caller may hold them.
    if (m_attributes) m_attributes->Clear();
    if (m_elements) m_elements->Clear();
    if (!element->GetAttributes().empty()) GetAttributes()->FromXml_Int(element, element, context, flag);
    CXmlElement* firstChild = element->GetFirstElement();
    if (firstChild && GetElements()->FromXml_Int(element, firstChild, context, flag))
        throw CQxValidationException(
            FormatString(L"Invalid Element [%ls] found.", element->GetLocalName().c_str()),
            element->GetXPath());
    m_text = element->GetText();
    m_name = element->GetLocalName();
    SetElementName(m_name.c_str());
    m_namespace = element->GetNamespaceURI();
    m_defaultNamespace.clear();
    return element->GetNextSiblingElement();
}

// A document element outside the rule is refused rather than silently left unread.
void CElement::ReadRoot(CXmlElement* root, const CSerializationContext& context) {
    CXmlObjectHelper::TestNamespace(root->GetNamespaceURI(), m_namespaceRule, m_targetNamespace);
    FromXml_Int(root, root, context, false);
}

void CElement::FromXml(const wchar_t* text, const CSerializationContext& context) {
    CXmlDocument document(context);
    document.LoadXml(text);
    ReadRoot(document.GetDocumentElement(), context);
}

void CElement::FromXml(const char* text, const CSerializationContext& context) {
    CXmlDocument document(context);
    document.LoadXml(text);
    ReadRoot(document.GetDocumentElement(), context);
}

void CElement::FromXmlFile(const wchar_t* fileName, const CSerializationContext& context) {
    CXmlDocument document(context);
    document.Load(fileName);
    ReadRoot(document.GetDocumentElement(), context);
}

void CElement::FromXmlStream(unsigned char* data, unsigned long length,
                             const CSerializationContext& context) {
    CXmlDocument document(context);
    document.LoadXmlStream(data, length);
    ReadRoot(document.GetDocumentElement(), context);
}

void CElement::FromXmlElement(const CXmlElement* element, const CSerializationContext& context) {
    if (!element) throw CQxInvalidParamException(L"The element to read from may not be NULL");
    // Reading never modifies the tree; the internal interface just takes it unqualified.
    ReadRoot(const_cast<CXmlElement*>(element), context);
}

} // namespace QxXmlLib16
