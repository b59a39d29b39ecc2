#pragma once

#include <string>

namespace QxXmlLib16 {
namespace internal {

constexpr const wchar_t* kSchemaInstanceNamespace = L"http://www.w3.org/2001/XMLSchema-instance";
// Where a namespace-aware parser puts xmlns attributes.
constexpr const wchar_t* kXmlnsNamespace = L"http://www.w3.org/2000/xmlns/";

inline bool IsInstanceOrXmlnsNamespace(const std::wstring& namespaceURI) {
    return namespaceURI == kSchemaInstanceNamespace || namespaceURI == kXmlnsNamespace;
}

} // namespace internal
} // namespace QxXmlLib16
