#pragma once

#include <QxXmlLib16/binding/XmlObjectBase.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/foundation/SharedText.h>
#include <QxXmlLib16/foundation/SmartPtr.h>

#include <string>

namespace QxXmlLib16 {

class CAttributeCol;
class CElementCol;

// One element of wildcard content: any name and namespace, with its attributes, child elements and
// text. Its namespace must fit its namespace rule ("##any", "##other", "##local",
// "##targetNamespace" or URIs, see CXmlObjectHelper::IsNamespaceValid), read against the target
// namespace; the rule is enforced when the element is created, read or restricted anew.
// The text is kept as one string, written after the children.
class QX_API CElement : public CXmlObjectBase, public CInstanceMonitor {
public:
    // No namespace; any namespace is accepted when reading.
    explicit CElement(const wchar_t* name);
    // The namespace is its own rule (an empty one accepts only the empty namespace). A rule keyword
    // in place of the namespace throws CQxInvalidNamespaceException "Invalid Namespace [keyword].".
    CElement(const wchar_t* name, const wchar_t* namespaceURI);
    // See Init.
    CElement(const wchar_t* name, const wchar_t* namespaceURI, const wchar_t* namespaceRule,
             const wchar_t* targetNamespace);
    // The content of a bound object as it would be written, under the given name (the object's own
    // element name when null); any namespace.
    CElement(CXmlObjectBase* object, const wchar_t* name);
    ~CElement() override;
    CElement(const CElement&) = delete;
    CElement& operator=(const CElement&) = delete;

    // Null name, rule or target namespace throw CQxInvalidNamespaceException (in that order); a null
    // namespace counts as empty. The namespace must fit the rule. Starts with no attributes, no
    // children and no text.
    void Init(const wchar_t* name, const wchar_t* namespaceURI, const wchar_t* namespaceRule,
              const wchar_t* targetNamespace);

    CXmlObjectBase* GetBase() override { return this; }
    // An element is written in its own namespace, also at the top level.
    std::wstring GetTargetNamespace() const override { return m_namespace; }
    std::wstring GetNamespace() const override { return m_namespace; }

    const std::wstring& GetName() const { return m_name.Get(); }
    const std::wstring& GetText() const { return m_text; }
    void SetText(const wchar_t* text) { m_text = text ? text : L""; }
    // Throws CQxInvalidNamespaceException when the namespace does not fit the rule.
    void SetNamespace(const wchar_t* namespaceURI);
    const std::wstring& GetNamespaceRestriction() const { return m_namespaceRule; }
    const std::wstring& GetRestrictionTargetNamespace() const { return m_targetNamespace; }
    // The xmlns value of the element this one was copied from; empty otherwise.
    const std::wstring& GetDefaultNamespace() const { return m_defaultNamespace; }
    // Created on first use: most wildcard elements are leaves without attributes.
    CAttributeCol* GetAttributes() const;
    CElementCol* GetElements() const;

    // Applies the rule to this element, its attributes and, recursively, its children. Everything is
    // tested first, so a refused rule changes nothing: CQxInvalidNamespaceException "The namespace
    // <uri> in the class <name> is invalid against restriction <rule>" names the first element or
    // attribute that does not fit.
    void SetNamespaceRestrictions(const wchar_t* namespaceRule, const wchar_t* targetNamespace);

    // Replaces name, namespace, text, attributes and children by those of element, whatever the rule.
    // An xmlns attribute (present when the document was read without namespace processing) also
    // becomes the default namespace, and the element is then written back with it.
    void CopyXmlElement(CXmlElement* element);
    // A copy of the whole subtree, owned by the caller (count 0).
    CElement* Clone() const;

    // The loading entry points read the document element itself (not its first child), so the
    // namespace rule applies to it.
    using CXmlObjectBase::FromXmlElement;
    void FromXmlFile(const wchar_t* fileName,
                     const CSerializationContext& context = CSerializationContext::m_defaultContext) override;
    void FromXml(const char* text,
                 const CSerializationContext& context = CSerializationContext::m_defaultContext) override;
    void FromXml(const wchar_t* text,
                 const CSerializationContext& context = CSerializationContext::m_defaultContext) override;
    void
    FromXmlStream(unsigned char* data, unsigned long length,
                  const CSerializationContext& context = CSerializationContext::m_defaultContext) override;
    using CXmlObjectBase::FromXmlStream;
    void
    FromXmlElement(const CXmlElement* element,
                   const CSerializationContext& context = CSerializationContext::m_defaultContext) override;

protected:
    // Start tag, attributes, children, text, end tag. An element copied with a default namespace is
    // written by a text writer of its own with that default namespace and inserted raw, without its
    // attributes; other writers write it the ordinary way.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    // Reads element itself (parent is its parent). Returns element unconsumed when its namespace
    // does not fit the rule, else its next sibling. A child that the element collection refuses
    // throws CQxValidationException "Invalid Element [name] found.".
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* element, const CSerializationContext& context,
                             bool flag) override;

private:
    friend class CElementCol;

    struct COwnWriter;

    void CheckNamespaces(const std::wstring& namespaceRule, const std::wstring& targetNamespace) const;
    void ApplyNamespaceRestrictions(const std::wstring& namespaceRule, const std::wstring& targetNamespace);
    // Calls visit on root and each of its descendants in document order.
    template <class Element, class Visit>
    static void VisitTree(Element& root, Visit visit);
    // Makes this element and its descendants from source and its descendants: open fills an element
    // before its children are made, makeChild(parent, parent's source, child's source) makes the
    // element of a child (or throws), close finishes an element once its children are in.
    template <class Open, class MakeChild, class Close>
    void BuildTree(CXmlElement& source, Open open, MakeChild makeChild, Close close);
    // True for text that is only the indentation between children, on a writer that indents.
    bool IsIndentation(CXmlWriter* writer) const;
    void ReadRoot(CXmlElement* root, const CSerializationContext& context);

    // The rule the collections apply: "##any" until SetNamespaceRestrictions.
    const std::wstring& CollectionRule() const;

    CSharedText m_name; // wildcard content repeats a few names in every object that holds it
    std::wstring m_text;
    CSharedText m_namespace;
    CSharedText m_namespaceRule;
    CSharedText m_targetNamespace;
    mutable CSmartPtr<CAttributeCol> m_attributes;
    mutable CSmartPtr<CElementCol> m_elements;
    CSharedText m_defaultNamespace;
    bool m_restricted = false;
};

} // namespace QxXmlLib16
