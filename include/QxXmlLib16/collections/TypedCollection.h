#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/collections/XmlTypeCollection.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace QxXmlLib16 {

// The body every typed collection shares: its values held by value in order, item access, removal
// and writing. Derived supplies ItemToString(const T&) const, the text an item is written as.
template <class Derived, class T>
class QX_API CTypedCollection : public CXmlTypeCollection {
public:
    using ValueType = T;
    using const_reference = typename std::vector<T>::const_reference;
    using const_iterator = typename std::vector<T>::const_iterator;

    using CXmlTypeCollection::CXmlTypeCollection;

    int GetCount() const override { return static_cast<int>(m_values.size()); }

    // Throws "Index %d is out of range, use 0 - %d" (the upper figure is the count).
    const_reference Item(int index) const {
        if (index < 0 || index >= GetCount()) ThrowOutOfRange(index);
        return m_values[index];
    }

    // The remove event is announced before the index is checked; remove-complete always reports
    // index 0.
    void Remove(int index) override {
        FireOnCollectionRemove(index);
        if (index < 0 || index >= GetCount()) ThrowOutOfRange(index);
        m_values.erase(m_values.begin() + index);
        FireOnCollectionRemoveComplete(0);
        FireOnCollectionChange();
    }

    // Removes from the back, so listeners see every removal without the array shifting.
    void Clear() override {
        while (!m_values.empty())
            Remove(GetCount() - 1);
    }

    const_iterator begin() const { return m_values.begin(); }
    const_iterator end() const { return m_values.end(); }

protected:
    // Announces the add, checks the index (index == count appends), lets check vet the value, then
    // inserts and completes. A rejected value leaves the collection as it was.
    template <class Check>
    void InsertAt(int index, T value, Check check) {
        FireOnCollectionAdd(&value);
        if (index < 0 || index > GetCount()) throw CQxInvalidParamException(L"Index out of range");
        check(GetElementName().c_str(), value, GetRestrictions());
        auto position = m_values.insert(m_values.begin() + index, std::move(value));
        // vector<bool> has no addressable cells; a bool survives being moved from.
        if constexpr (std::is_same<T, bool>::value)
            FireOnCollectionAddComplete(&value);
        else
            FireOnCollectionAddComplete(&*position);
        FireOnCollectionChange();
    }

    // Refuses to write a count outside minOccurs/maxOccurs before writing anything.
    void ToXml_Int(CXmlWriter* writer, bool, const wchar_t*, const CSerializationContext& context,
                   bool) const override {
        ValidateCount(context);
        const std::wstring& name = GetElementName();
        const std::wstring namespaceURI = GetNamespace();
        const Derived& self = static_cast<const Derived&>(*this);
        for (const_reference value : m_values) {
            writer->WriteStartElement(name, namespaceURI);
            writer->WriteString(self.ItemToString(value), GetItemType(), false);
            writer->WriteEndElement();
        }
    }

private:
    [[noreturn]] void ThrowOutOfRange(int index) const {
        throw CQxInvalidParamException(
            FormatString(L"Index %d is out of range, use 0 - %d", index, GetCount()));
    }

    std::vector<T> m_values;
};

} // namespace QxXmlLib16
