#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>

#include <iterator>

namespace QxXmlLib16 {

// An ordered list of bound objects, base of the generated collections and of the wildcard
// collections. Each node holds one reference to its item; a null item may be stored. Derived classes
// write and read the items (ToXml_Int, FromXml_Int); this class keeps the list and tells the
// listeners about every change.
class QX_API CXmlCollection : public CXmlCollectionBase {
public:
    class CNode {
    public:
        CXmlObjectBase* GetItem() const { return m_item; }
        CNode* GetNext() const { return m_next; }
        CNode* GetPrevious() const { return m_previous; }

    private:
        friend class CXmlCollection;
        CNode(CXmlObjectBase* item, CNode* next, CNode* previous)
            : m_item(item)
            , m_next(next)
            , m_previous(previous) {}

        CXmlObjectBase* m_item;
        CNode* m_next;
        CNode* m_previous;
    };

    // Walks the items in order.
    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = CXmlObjectBase*;
        using difference_type = std::ptrdiff_t;
        using pointer = CXmlObjectBase* const*;
        using reference = CXmlObjectBase*;

        explicit const_iterator(const CNode* node)
            : m_node(node) {}
        CXmlObjectBase* operator*() const { return m_node->GetItem(); }
        const_iterator& operator++() {
            m_node = m_node->GetNext();
            return *this;
        }
        bool operator==(const const_iterator& other) const { return m_node == other.m_node; }
        bool operator!=(const const_iterator& other) const { return m_node != other.m_node; }

    private:
        const CNode* m_node;
    };

    CXmlCollection();
    CXmlCollection(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs);
    // Releases the items without telling the listeners.
    ~CXmlCollection() override;
    CXmlCollection(const CXmlCollection&) = delete;
    CXmlCollection& operator=(const CXmlCollection&) = delete;

    int GetCount() const override { return m_count; }
    // Removes from the front, so listeners see every removal.
    void Clear() override;
    void Remove(int index) override;
    // Remove events carry index -1: the node no longer knows its position.
    void RemoveNode(CNode* node);

    void AppendItem(CXmlObjectBase* item);
    void PrependItem(CXmlObjectBase* item);
    // index == count appends; beyond that throws "Index out of range".
    void AddItemAt(int index, CXmlObjectBase* item);
    // A null existing item prepends.
    void AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
    // A null existing item appends.
    void AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item);

    // Throws "Index %d is out of range, use 0 - %d" quoting the count itself as the upper figure.
    CNode* GetNodeAtIndex(int index) const;
    CNode* GetNodeForItem(const CXmlObjectBase* item) const;
    CXmlObjectBase* Item(int index) const { return GetNodeAtIndex(index)->GetItem(); }

    const_iterator begin() const { return const_iterator(m_head); }
    const_iterator end() const { return const_iterator(nullptr); }

protected:
    // The attributes of every item, in order, on the element being written.
    void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const override;

private:
    // Links item in front of next (at the tail when next is null), with the add events around it.
    void InsertBefore(CNode* next, CXmlObjectBase* item);

    CNode* m_head;
    CNode* m_tail;
    int m_count;
};

} // namespace QxXmlLib16
