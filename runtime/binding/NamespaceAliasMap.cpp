#include <QxXmlLib16/binding/NamespaceAliasMap.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <algorithm>
#include <iterator>

namespace QxXmlLib16 {

namespace {
const wchar_t* OrEmpty(const wchar_t* text) {
    return text ? text : L"";
}
} // namespace

void CNamespaceAliasMap::Add(const wchar_t* alias, const wchar_t* namespaceURI) {
    m_aliases[OrEmpty(namespaceURI)] = OrEmpty(alias);
}

void CNamespaceAliasMap::RemoveNamespace(const wchar_t* namespaceURI) {
    m_aliases.erase(OrEmpty(namespaceURI));
}

bool CNamespaceAliasMap::DoesNamespaceExist(const wchar_t* namespaceURI) const {
    return m_aliases.count(OrEmpty(namespaceURI)) != 0;
}

bool CNamespaceAliasMap::DoesAliasExist(const wchar_t* alias) const {
    const std::wstring wanted = OrEmpty(alias);
    return std::any_of(m_aliases.begin(), m_aliases.end(),
                       [&](const auto& entry) { return entry.second == wanted; });
}

std::wstring CNamespaceAliasMap::GetNamespaceFromAlias(const wchar_t* alias) const {
    const std::wstring wanted = OrEmpty(alias);
    for (const auto& entry : m_aliases)
        if (entry.second == wanted) return entry.first;
    throw CQxException(FormatString(L"Namespace alias [%ls] not found", wanted.c_str()));
}

std::wstring CNamespaceAliasMap::GetAliasFromNamespace(const wchar_t* namespaceURI) const {
    return m_aliases[OrEmpty(namespaceURI)];
}

std::wstring CNamespaceAliasMap::GetNamespaceAt(int index) const {
    return std::next(m_aliases.begin(), std::max(index, 0))->first;
}

} // namespace QxXmlLib16
