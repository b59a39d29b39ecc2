#pragma once

#include <QxXmlLib16/collections/Attribute.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SharedText.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/collections/TypedItemIterator.h>
#include <QxXmlLib16/collections/XmlCollection.h>

#include <string>

namespace QxXmlLib16 {

class CElement;

// The attributes of wildcard content (an element's attributes, an anyAttribute member, the extra
// attributes of a root element). Every attribute's namespace must fit the namespace rule, read
// against the target namespace (see CXmlObjectHelper::IsNamespaceValid).
class QX_API CAttributeCol : public CXmlCollection, public CInstanceMonitor {
public:
    using const_iterator = CTypedItemIterator<CAttribute>;

    // Null arguments count as empty.
    CAttributeCol(const wchar_t* namespaceURI, const wchar_t* namespaceRule, const wchar_t* targetNamespace);
    ~CAttributeCol() override;

    // An unqualified attribute, empty unless a value is given.
    CAttribute* Add(const wchar_t* name);
    CAttribute* Add(const wchar_t* name, const wchar_t* value);
    // Throws CQxInvalidNamespaceException when the namespace does not fit the rule.
    CAttribute* Add(const wchar_t* name, const wchar_t* value, const wchar_t* namespaceURI);
    // The collection takes a reference; the namespace is not checked. Returns attribute.
    CAttribute* Add(CAttribute* attribute);

    CAttribute* Item(int index) const { return static_cast<CAttribute*>(CXmlCollection::Item(index)); }
    const_iterator begin() const { return const_iterator(CXmlCollection::begin()); }
    const_iterator end() const { return const_iterator(CXmlCollection::end()); }
    // A new collection, owned by the caller (count 0), with copies of the attributes.
    CAttributeCol* Clone() const;

    const std::wstring& GetNamespaceRestriction() const { return m_namespaceRule; }
    const std::wstring& GetRestrictionTargetNamespace() const { return m_targetNamespace; }
    // Tests every attribute against the new rule first, so a refused rule changes nothing. The
    // message names the first attribute that does not fit.
    void SetNamespaceRestrictions(const wchar_t* namespaceRule, const wchar_t* targetNamespace);

protected:
    // Writes every attribute on the open element.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    // Appends the attributes of element in document order; the first whose namespace does not fit
    // throws "Invalid Attribute [name]. The attributes namespace is Inappropriate." and stops
    // reading. Returns firstChild unchanged: attributes consume no element.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             const CSerializationContext& context, bool flag) override;

private:
    friend class CElement;
    // Only CAttribute items may enter.
    using CXmlCollection::AddAfterItem;
    using CXmlCollection::AddBeforeItem;
    using CXmlCollection::AddItemAt;
    using CXmlCollection::AppendItem;
    using CXmlCollection::PrependItem;

    // Adds without testing the namespace (the callers have, or copy what was accepted before).
    CAttribute* Append(const wchar_t* name, const wchar_t* value, const wchar_t* namespaceURI);
    void CheckNamespaces(const std::wstring& namespaceRule, const std::wstring& targetNamespace) const;

    CSharedText m_namespaceRule;
    CSharedText m_targetNamespace;
};

} // namespace QxXmlLib16
