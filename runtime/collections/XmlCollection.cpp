#include <QxXmlLib16/collections/XmlCollection.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

namespace QxXmlLib16 {

CXmlCollection::CXmlCollection()
    : m_head(nullptr)
    , m_tail(nullptr)
    , m_count(0) {}

CXmlCollection::CXmlCollection(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs,
                               int maxOccurs)
    : CXmlCollectionBase(elementName, namespaceURI, minOccurs, maxOccurs)
    , m_head(nullptr)
    , m_tail(nullptr)
    , m_count(0) {}

CXmlCollection::~CXmlCollection() {
    for (CNode* node = m_head; node;) {
        CNode* next = node->m_next;
        if (node->m_item) node->m_item->Release();
        delete node;
        node = next;
    }
}

void CXmlCollection::Clear() {
    while (m_count > 0)
        Remove(0);
}

void CXmlCollection::Remove(int index) {
    RemoveNode(GetNodeAtIndex(index));
}

void CXmlCollection::RemoveNode(CNode* node) {
    FireOnCollectionRemove(-1);
    (node->m_previous ? node->m_previous->m_next : m_head) = node->m_next;
    (node->m_next ? node->m_next->m_previous : m_tail) = node->m_previous;
    --m_count;
    CXmlObjectBase* item = node->m_item;
    delete node;
    if (item) item->Release();
    FireOnCollectionRemoveComplete(-1);
    FireOnCollectionChange();
}

void CXmlCollection::InsertBefore(CNode* next, CXmlObjectBase* item) {
    FireOnCollectionAdd(item);
    CNode* previous = next ? next->m_previous : m_tail;
    CNode* node = new CNode(item, next, previous);
    if (item) item->AddRef();
    (previous ? previous->m_next : m_head) = node;
    (next ? next->m_previous : m_tail) = node;
    ++m_count;
    FireOnCollectionAddComplete(item);
    FireOnCollectionChange();
}

void CXmlCollection::AppendItem(CXmlObjectBase* item) {
    InsertBefore(nullptr, item);
}

void CXmlCollection::PrependItem(CXmlObjectBase* item) {
    InsertBefore(m_head, item);
}

void CXmlCollection::AddItemAt(int index, CXmlObjectBase* item) {
    if (index < 0 || index > m_count) throw CQxInvalidParamException(L"Index out of range");
    InsertBefore(index == m_count ? nullptr : GetNodeAtIndex(index), item);
}

void CXmlCollection::AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item) {
    InsertBefore(existing ? GetNodeForItem(existing)->m_next : m_head, item);
}

void CXmlCollection::AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item) {
    InsertBefore(existing ? GetNodeForItem(existing) : nullptr, item);
}

CXmlCollection::CNode* CXmlCollection::GetNodeAtIndex(int index) const {
    if (index < 0 || index >= m_count)
        throw CQxInvalidParamException(FormatString(L"Index %d is out of range, use 0 - %d", index, m_count));
    CNode* node = m_head;
    while (index-- > 0)
        node = node->m_next;
    return node;
}

CXmlCollection::CNode* CXmlCollection::GetNodeForItem(const CXmlObjectBase* item) const {
    for (CNode* node = m_head; node; node = node->m_next)
        if (node->m_item == item) return node;
    throw CQxInvalidParamException(L"The object was not found in the collection");
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const {
    for (const CXmlObjectBase* item : *this)
        if (item) CXmlObjectBase::AttributesToXml_Int(item->GetBase(), writer, context);
}

} // namespace QxXmlLib16
