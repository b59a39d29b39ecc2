#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/collections/XmlCollection.h>

#include <type_traits>

namespace QxXmlLib16 {

// The collection behind a repeated member of a generated class: every item is an object of the
// member's class, written and read under the collection's element name. Derived classes only say how
// to make an item (TXmlClassCollection does it for one class, or through a factory for an abstract
// one), so a generator emits no reading or writing code per repeated member.
class QX_API CXmlClassCollection : public CXmlCollection {
public:
    CXmlClassCollection(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs,
                        int maxOccurs);

protected:
    // A new, empty item named after the collection's element, to be read from element; none when no
    // class fits the element.
    virtual CSmartPtr<CXmlObjectBase> NewItem(CXmlElement* element) const = 0;

    void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                   const CSerializationContext& context, bool flag) const override;
    // Reads the run of elements with the collection's name, returning the first other one. An element
    // that no class fits fails with "Failed to find a suitable substitution element for [name]."
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current, const CSerializationContext& context,
                             bool flag) override;
};

// Chooses and makes the item class that fits an element (from its xsi:type); none when none fits.
typedef CSmartPtr<CXmlObjectBase> (*ItemFactoryFunction)(CXmlElement* element);

// A repeated member of class T: typed access to the items. When T is abstract, or its elements may
// hold derived types, the factory makes each item that is read.
template <class T>
class TXmlClassCollection : public CXmlClassCollection {
public:
    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T*;
        using difference_type = std::ptrdiff_t;
        using pointer = T* const*;
        using reference = T*;

        explicit const_iterator(CXmlCollection::const_iterator base)
            : m_base(base) {}
        T* operator*() const { return static_cast<T*>(*m_base); }
        const_iterator& operator++() {
            ++m_base;
            return *this;
        }
        bool operator==(const const_iterator& other) const { return m_base == other.m_base; }
        bool operator!=(const const_iterator& other) const { return m_base != other.m_base; }

    private:
        CXmlCollection::const_iterator m_base;
    };

    TXmlClassCollection(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs,
                        ItemFactoryFunction factory = nullptr)
        : CXmlClassCollection(elementName, namespaceURI, minOccurs, maxOccurs)
        , m_factory(factory) {}

    T* Item(int index) const { return static_cast<T*>(CXmlCollection::Item(index)); }
    // Appends a new item named after the collection's element and returns it.
    T* Add() {
        T* item = new T(GetElementName().c_str());
        AppendItem(item);
        return item;
    }
    // Appends an item, of T or a derived class, under the collection's element name.
    T* Add(T* item) {
        item->SetElementName(GetElementName().c_str());
        AppendItem(item);
        return item;
    }
    const_iterator begin() const { return const_iterator(CXmlCollection::begin()); }
    const_iterator end() const { return const_iterator(CXmlCollection::end()); }

protected:
    CSmartPtr<CXmlObjectBase> NewItem(CXmlElement* element) const override {
        if (m_factory) {
            CSmartPtr<CXmlObjectBase> item = m_factory(element);
            return dynamic_cast<T*>(item.Get()) ? item : nullptr;
        }
        if constexpr (std::is_abstract<T>::value)
            return nullptr;
        else
            return new T(GetElementName().c_str());
    }

private:
    ItemFactoryFunction m_factory;
};

} // namespace QxXmlLib16
