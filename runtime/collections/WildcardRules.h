#pragma once

#include <string>

namespace QxXmlLib16 {
namespace internal {

// Throws CQxInvalidNamespaceException naming owner (an element or attribute name) when namespaceURI
// does not fit the rule; used when a new rule is applied to content that already exists.
void CheckNamespaceFits(const std::wstring& namespaceURI, const std::wstring& owner, const std::wstring& rule,
                        const std::wstring& targetNamespace);

} // namespace internal
} // namespace QxXmlLib16
