#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/collections/XmlCollection.h>

#include <cstddef>
#include <iterator>

namespace QxXmlLib16 {

// Walks a CXmlCollection whose items are all of type T (the wildcard collections add nothing else).
// Stepping past the end, or reading there, throws CQxInvalidStateException "No More Elements in the
// Collection" instead of following a null link.
template <class T>
class CTypedItemIterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = T*;
    using difference_type = std::ptrdiff_t;
    using pointer = T* const*;
    using reference = T*;

    explicit CTypedItemIterator(CXmlCollection::const_iterator position)
        : m_position(position) {}

    T* operator*() const {
        CheckNotAtEnd();
        return static_cast<T*>(*m_position);
    }
    T* operator->() const { return **this; }
    CTypedItemIterator& operator++() {
        CheckNotAtEnd();
        ++m_position;
        return *this;
    }
    bool operator==(const CTypedItemIterator& other) const { return m_position == other.m_position; }
    bool operator!=(const CTypedItemIterator& other) const { return m_position != other.m_position; }

private:
    void CheckNotAtEnd() const {
        if (m_position == CXmlCollection::const_iterator(nullptr))
            throw CQxInvalidStateException(L"No More Elements in the Collection");
    }

    CXmlCollection::const_iterator m_position;
};

} // namespace QxXmlLib16
