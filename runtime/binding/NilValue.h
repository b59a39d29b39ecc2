#pragma once

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include <cwctype>
#include <string>

// The xsi:nil rules shared by bound objects and value members.
namespace QxXmlLib16::internal {

enum class NilValue { False, True, Invalid };

// Case does not matter: "TRUE" is as good as "true".
inline NilValue ParseNilValue(const std::wstring& text) {
    std::wstring lower(text);
    for (wchar_t& c : lower)
        c = static_cast<wchar_t>(std::towlower(c));
    if (lower == L"true" || lower == L"1") return NilValue::True;
    if (lower == L"false" || lower == L"0") return NilValue::False;
    return NilValue::Invalid;
}

[[noreturn]] inline void ThrowNilNotAllowed(const CXmlElement& element) {
    throw CQxValidationException(L"Invalid use of 'nil' attribute in non-nillable element.",
                                 element.GetXPath());
}

[[noreturn]] inline void ThrowInvalidNilValue(const CXmlAttribute& attribute) {
    throw CQxValidationException(
        FormatString(L"Unexpected Value [%ls] for 'nil' Attribute found.", attribute.GetValue().c_str()),
        attribute.GetXPath());
}

// Whether a value member's element is nil. An explicit false is accepted even where nil is not
// allowed, since it asks for nothing the schema forbids.
inline bool ReadNilAttribute(const CXmlAttribute& attribute, bool nillable) {
    const NilValue value = ParseNilValue(attribute.GetValue());
    if (value == NilValue::False) return false;
    if (!nillable) ThrowNilNotAllowed(*attribute.GetOwner());
    if (value == NilValue::Invalid) ThrowInvalidNilValue(attribute);
    return true;
}

} // namespace QxXmlLib16::internal
