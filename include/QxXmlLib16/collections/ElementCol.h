#pragma once

#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SharedText.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/collections/TypedItemIterator.h>
#include <QxXmlLib16/collections/XmlCollection.h>

#include <string>

namespace QxXmlLib16 {

// A sequence of wildcard elements (an element's children, an xs:any member that repeats). Elements
// whose namespace fits the rule, read against the target namespace, are read into it.
class QX_API CElementCol : public CXmlCollection, public CInstanceMonitor {
public:
    using const_iterator = CTypedItemIterator<CElement>;

    // Null strings count as empty; maxOccurs -1 means unbounded.
    CElementCol(const wchar_t* namespaceURI, const wchar_t* namespaceRule, const wchar_t* targetNamespace,
                int minOccurs, int maxOccurs);
    ~CElementCol() override;

    // A new element in the collection's namespace; throws CQxInvalidStateException "A Namespace has
    // not been set for this Collection" when it has none.
    CElement* Add(const wchar_t* name);
    // A new element under the collection's rule (which the namespace must fit).
    CElement* Add(const wchar_t* name, const wchar_t* namespaceURI);
    // The collection takes a reference. Returns element.
    CElement* Add(CElement* element);

    CElement* Item(int index) const { return static_cast<CElement*>(CXmlCollection::Item(index)); }
    const_iterator begin() const { return const_iterator(CXmlCollection::begin()); }
    const_iterator end() const { return const_iterator(CXmlCollection::end()); }
    // A new collection, owned by the caller (count 0), with copies of the elements.
    CElementCol* Clone() const;

    const std::wstring& GetNamespaceRestriction() const { return m_namespaceRule; }
    const std::wstring& GetRestrictionTargetNamespace() const { return m_targetNamespace; }
    // Applies the rule to the collection and, as CElement::SetNamespaceRestrictions does, to every
    // element in it; a refused rule changes nothing.
    void SetNamespaceRestrictions(const wchar_t* namespaceRule, const wchar_t* targetNamespace);

    // As FromXml_Int, but only elements with exactly this local name and namespace URI are taken,
    // each read under the rule "##any".
    CXmlElement* FromXmlLockElementName_Int(std::wstring name, std::wstring namespaceURI, CXmlElement* parent,
                                            CXmlElement* current, const CSerializationContext& context);

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    // Reads the siblings from current on while their namespace fits the rule. Returns the first
    // element not taken, or null when the siblings run out.
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current, const CSerializationContext& context,
                             bool flag) override;

private:
    friend class CElement;
    // Only CElement items may enter.
    using CXmlCollection::AddAfterItem;
    using CXmlCollection::AddBeforeItem;
    using CXmlCollection::AddItemAt;
    using CXmlCollection::AppendItem;
    using CXmlCollection::PrependItem;

    // Reads elements for which accept holds, each into a new element under rule.
    template <class Accept>
    CXmlElement* ReadElements(CXmlElement* parent, CXmlElement* current, const CSerializationContext& context,
                              bool flag, const std::wstring& rule, Accept accept);

    CSharedText m_namespaceRule;
    CSharedText m_targetNamespace;
};

} // namespace QxXmlLib16
