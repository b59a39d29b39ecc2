#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/collections/TypedCollection.h>

#include <string>
#include <type_traits>
#include <utility>

namespace QxXmlLib16 {

class CDateTime;

// One typed collection of primitive values. Derived names its kind, all static:
//   kItemType, kClassName, CheckFacets(name, value, restrictions), FromString(text, rule),
//   ToString(value, format);
// and, for the date kinds (T is CDateTime), kKind and kWrongKind, the message for another kind.
template <class Derived, class T, class Base = CTypedCollection<Derived, T>>
class QX_API CPrimitiveCol : public Base, public CInstanceMonitor {
public:
    CPrimitiveCol(const wchar_t* elementName, const wchar_t* namespaceURI, int minOccurs, int maxOccurs,
                  const wchar_t* pattern, long long minLength, long long maxLength,
                  const wchar_t* minInclusive, const wchar_t* maxInclusive, const wchar_t* minExclusive,
                  const wchar_t* maxExclusive, long long length, long long totalDigits,
                  long long fractionDigits, CWhitespaceUtils::WhitespaceRule whitespaceRule,
                  const wchar_t* format)
        : Base(Derived::kItemType, elementName, namespaceURI, minOccurs, maxOccurs, pattern, minLength,
               maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive, length, totalDigits,
               fractionDigits, whitespaceRule, format)
        , CInstanceMonitor(Derived::kClassName) {}

    void Add(T value) { AddAt(this->GetCount(), std::move(value)); }

    // Announces the value before checking index and facets, so listeners may see an add that then
    // fails. A date is first checked for its kind and facets, and only an acceptable one announced.
    void AddAt(int index, T value) {
        if constexpr (std::is_same<T, CDateTime>::value) {
            if (value.GetType() != Derived::kKind) throw CQxInvalidParamException(Derived::kWrongKind);
            Derived::CheckFacets(this->GetElementName().c_str(), value, this->GetRestrictions());
            this->BaseAddAt(index, std::move(value));
        } else {
            this->InsertAt(index, std::move(value), &Derived::CheckFacets);
        }
    }

    void AddFromString(std::wstring text) override {
        Add(Derived::FromString(text, this->GetWhitespaceRule()));
    }

    std::wstring ItemToString(const T& value) const { return Derived::ToString(value, this->GetFormat()); }
};

} // namespace QxXmlLib16
