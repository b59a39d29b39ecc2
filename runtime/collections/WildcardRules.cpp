#include "collections/WildcardRules.h"

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {
namespace internal {

void CheckNamespaceFits(const std::wstring& namespaceURI, const std::wstring& owner, const std::wstring& rule,
                        const std::wstring& targetNamespace) {
    if (!CXmlObjectHelper::IsNamespaceValid(namespaceURI, rule, targetNamespace))
        throw CQxInvalidNamespaceException(
            FormatString(L"The namespace %ls in the class %ls is invalid against restriction %ls",
                         namespaceURI.c_str(), owner.c_str(), rule.c_str()),
            std::wstring());
}

} // namespace internal
} // namespace QxXmlLib16
