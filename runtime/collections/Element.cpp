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
#include <memory>
#include <utility>
#include <vector>

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
    VisitTree(*this, [&](const CElement& element) {
        internal::CheckNamespaceFits(element.m_namespace, element.m_name, namespaceRule, targetNamespace);
        if (element.m_attributes) element.m_attributes->CheckNamespaces(namespaceRule, targetNamespace);
    });
}

void CElement::ApplyNamespaceRestrictions(const std::wstring& namespaceRule,
                                          const std::wstring& targetNamespace) {
    VisitTree(*this, [&](CElement& element) {
        element.m_namespaceRule = namespaceRule;
        element.m_targetNamespace = targetNamespace;
        element.m_restricted = true;
        if (element.m_attributes) {
            element.m_attributes->m_namespaceRule = namespaceRule;
            element.m_attributes->m_targetNamespace = targetNamespace;
        }
        if (element.m_elements) {
            element.m_elements->m_namespaceRule = namespaceRule;
            element.m_elements->m_targetNamespace = targetNamespace;
        }
    });
}

// ---- Walking trees -----------------------------------------------------------------------------
// Wildcard content is whatever a document holds, nested to any depth, so no operation on it
// recurses per level: each walks the tree with a stack of its own.

template <class Element, class Visit>
void CElement::VisitTree(Element& root, Visit visit) {
    std::vector<Element*> stack{&root};
    while (!stack.empty()) {
        Element& element = *stack.back();
        stack.pop_back();
        visit(element);
        if (!element.m_elements) continue;
        const size_t firstChild = stack.size();
        for (CElement* child : *element.m_elements)
            stack.push_back(child);
        std::reverse(stack.begin() + firstChild, stack.end()); // the first child is visited first
    }
}

template <class Open, class MakeChild, class Close>
void CElement::BuildTree(CXmlElement& source, Open open, MakeChild makeChild, Close close) {
    struct Frame {
        CElement* element;
        CSmartPtr<CElement> owned; // null for the root, which belongs to the caller
        CXmlElement* source;
        CXmlElement* nextChild;
    };
    open(*this, source);
    std::vector<Frame> stack;
    stack.push_back({this, nullptr, &source, source.GetFirstElement()});
    for (;;) {
        Frame& top = stack.back();
        if (CXmlElement* child = top.nextChild) {
            top.nextChild = child->GetNextSiblingElement();
            CSmartPtr<CElement> element = makeChild(*top.element, *top.source, *child);
            open(*element, *child);
            CElement* raw = element.Get();
            stack.push_back({raw, std::move(element), child, child->GetFirstElement()});
            continue;
        }
        close(*top.element, *top.source);
        // An element joins its parent complete, as its parent sees it when read one level at a time.
        const CSmartPtr<CElement> done = std::move(top.owned);
        stack.pop_back();
        if (stack.empty()) return;
        stack.back().element->GetElements()->Add(done.Get());
    }
}

// ---- Copying -----------------------------------------------------------------------------------

void CElement::CopyXmlElement(CXmlElement* element) {
    if (!element) throw CQxInvalidParamException(L"The element to copy may not be NULL");
    BuildTree(
        *element,
        [](CElement& copy, const CXmlElement& source) {
            copy.m_name = source.GetLocalName();
            copy.SetElementName(copy.m_name.c_str());
            copy.m_namespace = source.GetNamespaceURI();
            copy.m_text = source.GetText();
            copy.m_defaultNamespace.clear();
            // Emptied rather than dropped: a caller may hold them.
            if (copy.m_attributes) copy.m_attributes->Clear();
            if (copy.m_elements) copy.m_elements->Clear();
            for (const CXmlAttribute* attribute : source.GetAttributes()) {
                copy.GetAttributes()->Append(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                                             attribute->GetNamespaceURI().c_str());
                if (attribute->GetLocalName() == L"xmlns") copy.m_defaultNamespace = attribute->GetValue();
            }
        },
        [](CElement&, const CXmlElement&, const CXmlElement& child) {
            return CSmartPtr<CElement>(new CElement(child.GetLocalName().c_str()));
        },
        [](CElement&, const CXmlElement&) {});
}

CElement* CElement::Clone() const {
    CElement* root = new CElement(m_name.c_str());
    try {
        std::vector<std::pair<const CElement*, CElement*>> stack{{this, root}};
        while (!stack.empty()) {
            const auto [source, copy] = stack.back();
            stack.pop_back();
            copy->m_text = source->m_text;
            copy->m_namespace = source->m_namespace;
            copy->m_namespaceRule = source->m_namespaceRule;
            copy->m_targetNamespace = source->m_targetNamespace;
            copy->m_restricted = source->m_restricted;
            if (source->m_attributes) copy->m_attributes = source->m_attributes->Clone();
            copy->m_defaultNamespace = source->m_defaultNamespace;
            if (!source->m_elements) continue;
            const CElementCol& children = *source->m_elements;
            copy->m_elements = new CElementCol(
                children.GetNamespace().c_str(), children.m_namespaceRule.c_str(),
                children.m_targetNamespace.c_str(), children.GetMinOccurs(), children.GetMaxOccurs());
            for (const CElement* child : children) {
                const CSmartPtr<CElement> childCopy(new CElement(child->m_name.c_str()));
                copy->m_elements->Add(childCopy.Get());
                stack.emplace_back(child, childCopy.Get());
            }
        }
    } catch (...) {
        delete root;
        throw;
    }
    return root;
}

// ---- Writing -----------------------------------------------------------------------------------

// Whitespace between child elements is the source's indentation. A formatting writer indents on its
// own; written as well, it would grow by one layer with every load and formatted write.
bool CElement::IsIndentation(CXmlWriter* writer) const {
    const auto* textWriter = dynamic_cast<CXmlTextWriter*>(writer);
    return textWriter && textWriter->GetFormat() && m_elements && m_elements->GetCount() > 0 &&
           std::all_of(m_text.begin(), m_text.end(), CWhitespaceUtils::IsWhiteSpace);
}

// An element copied with a default namespace is written as the root of a text writer of its own,
// since a default namespace can only be declared on a writer's root, and its text inserted whole.
// Its attributes are left out on purpose: the copied xmlns attribute is among them and is declared
// by that writer already.
struct CElement::COwnWriter {
    COwnWriter(const CXmlTextWriter& outer, const std::wstring& defaultNamespace)
        : writer(stream) {
        writer.SetEOLType(outer.GetEOLType());
        writer.SetFormat(outer.GetFormat());
        writer.SetDefaultNamespace(defaultNamespace);
        context.SetDefaultNamespaceURI(defaultNamespace.c_str());
        writer.Open();
    }
    CTextStream stream;
    CXmlTextWriter writer;
    CSerializationContext context;
};

void CElement::ToXml_Int(CXmlWriter* writer, bool, const wchar_t*, const CSerializationContext& context,
                         bool flag) const {
    struct Frame {
        const CElement* element;
        CXmlWriter* outer;                    // the writer the element goes to
        CXmlWriter* writer;                   // the writer of its content: outer, or its own
        const CSerializationContext* context; // the context of its content
        std::unique_ptr<COwnWriter> own;
        CXmlCollection::const_iterator nextChild;
    };
    const CXmlCollection::const_iterator none(nullptr); // the end of every collection
    std::vector<Frame> stack;
    const auto open = [&](const CElement& element, CXmlWriter* outer,
                          const CSerializationContext* outerContext) {
        Frame frame{&element, outer, outer, outerContext, nullptr, none};
        const auto* textWriter = dynamic_cast<CXmlTextWriter*>(outer);
        if (!element.m_defaultNamespace.empty() && textWriter) {
            frame.own = std::make_unique<COwnWriter>(*textWriter, element.m_defaultNamespace);
            frame.writer = &frame.own->writer;
            frame.context = &frame.own->context;
        }
        frame.writer->WriteStartElement(element.m_name, element.m_namespace);
        if (element.m_attributes && !frame.own)
            element.m_attributes->ToXml_Int(frame.writer, false, element.m_namespace.c_str(), *frame.context,
                                            flag);
        if (element.m_elements) frame.nextChild = element.m_elements->CXmlCollection::begin();
        stack.push_back(std::move(frame));
    };

    open(*this, writer, &context);
    while (!stack.empty()) {
        Frame& top = stack.back();
        if (top.nextChild != none) {
            const CElement& child = *static_cast<const CElement*>(*top.nextChild);
            ++top.nextChild;
            open(child, top.writer, top.context);
            continue;
        }
        if (!top.element->IsIndentation(top.writer))
            top.writer->WriteString(top.element->m_text, itString, false);
        top.writer->WriteEndElement();
        if (top.own) {
            top.own->writer.Close();
            auto& outer = static_cast<CXmlTextWriter&>(*top.outer);
            outer.CloseParentElm();
            outer.WriteRawElement(top.own->stream.GetText());
        }
        stack.pop_back();
    }
}

// ---- Reading -----------------------------------------------------------------------------------

CXmlElement* CElement::FromXml_Int(CXmlElement* parent, CXmlElement* element,
                                   const CSerializationContext& context, bool flag) {
    (void)parent;
    if (!element ||
        !CXmlObjectHelper::IsNamespaceValid(element->GetNamespaceURI(), m_namespaceRule, m_targetNamespace))
        return element;
    BuildTree(
        *element,
        [&](CElement& target, CXmlElement& source) {
            // Emptied rather than dropped: a caller may hold them.
            if (target.m_attributes) target.m_attributes->Clear();
            if (target.m_elements) target.m_elements->Clear();
            if (!source.GetAttributes().empty())
                target.GetAttributes()->FromXml_Int(&source, &source, context, flag);
        },
        [](CElement& target, const CXmlElement& source, const CXmlElement& child) {
            const CElementCol& children = *target.GetElements();
            if (!CXmlObjectHelper::IsNamespaceValid(child.GetNamespaceURI(), children.m_namespaceRule,
                                                    children.m_targetNamespace))
                throw CQxValidationException(
                    FormatString(L"Invalid Element [%ls] found.", source.GetLocalName().c_str()),
                    source.GetXPath());
            return CSmartPtr<CElement>(
                new CElement(child.GetLocalName().c_str(), child.GetNamespaceURI().c_str(),
                             children.m_namespaceRule.c_str(), children.m_targetNamespace.c_str()));
        },
        [](CElement& target, const CXmlElement& source) {
            target.m_text = source.GetText();
            target.m_name = source.GetLocalName();
            target.SetElementName(target.m_name.c_str());
            target.m_namespace = source.GetNamespaceURI();
            target.m_defaultNamespace.clear();
        });
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
