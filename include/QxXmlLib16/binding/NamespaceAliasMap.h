#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <map>
#include <string>

namespace QxXmlLib16 {

// Namespace URI to alias (prefix), in ascending order of the URI's code points. The root element
// declares every entry.
class QX_API CNamespaceAliasMap {
public:
    CNamespaceAliasMap() = default;
    virtual ~CNamespaceAliasMap() = default;

    // Sets the alias of the URI, replacing an earlier one.
    void Add(const wchar_t* alias, const wchar_t* namespaceURI);
    void RemoveNamespace(const wchar_t* namespaceURI);
    bool DoesNamespaceExist(const wchar_t* namespaceURI) const;
    bool DoesAliasExist(const wchar_t* alias) const;
    // The first URI in key order with this alias; throws "Namespace alias [%ls] not found".
    std::wstring GetNamespaceFromAlias(const wchar_t* alias) const;
    // The URI's alias. Like a map's index operator, an unknown URI is inserted with an empty alias.
    std::wstring GetAliasFromNamespace(const wchar_t* namespaceURI) const;
    int GetNamespaceCount() const { return static_cast<int>(m_aliases.size()); }
    // URI at a position in key order; 0 or less gives the first. The caller keeps index < count.
    std::wstring GetNamespaceAt(int index) const;

private:
    mutable std::map<std::wstring, std::wstring> m_aliases;
};

} // namespace QxXmlLib16
