#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/data/AttributeInfo.h>

#include <string>

// The rules the primitive and the enumerated attribute share; they differ only in how the value
// becomes text and whether facets apply.
namespace QxXmlLib16Data {
namespace internal {

// An optional attribute whose member holds nothing is simply not written.
inline bool IsAbsentOptional(const CAttributeInfo& info, const QxXmlLib16::QxVariant& value) {
    return info.IsOptional() && !value.IsValid();
}

// An optional attribute equal to its default may be left out: a schema-aware reader supplies it.
inline bool IsSuppressedDefault(const CAttributeInfo& info, const QxXmlLib16::CSerializationContext& context,
                                const std::wstring& text) {
    return info.IsOptional() && !info.GetDefaultValue().empty() &&
           context.GetNoOptionalAttributeDefaultOutput() && text == info.GetDefaultValue();
}

inline void RequireFound(const CAttributeInfo& info, bool found) {
    if (!info.IsOptional() && !found)
        throw QxXmlLib16::CQxValidationException(
            QxXmlLib16::FormatString(L"Failed to find the required Attribute [%ls].", info.GetName().c_str()),
            std::wstring());
}

// Converts the attribute's text and stores it; a text that does not convert is reported at the
// attribute, as a value that the member refuses is.
template <class Convert>
void StoreValue(const CAttributeInfo& info, QxXmlLib16::CXmlGeneratedClass* object,
                const QxXmlLib16::CXmlAttribute& attribute, Convert convert) {
    QxXmlLib16::QxVariant value;
    try {
        convert(value);
    } catch (const QxXmlLib16::CQxException& e) {
        throw QxXmlLib16::CQxValidationException(
            QxXmlLib16::FormatString(L"Failed to set the property value [%ls].", info.GetName().c_str()),
            attribute.GetXPath(), e);
    }
    info.InvokePropertySet(object, value, attribute);
}

} // namespace internal
} // namespace QxXmlLib16Data
