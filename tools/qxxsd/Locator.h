#pragma once

#include "Schema.h"

#include <map>
#include <string>
#include <vector>

namespace Qxxsd {

// Finds the file behind a schema location without ever fetching anything: an explicit mapping
// (--map URL=FILE) first, then the XML catalogs (XML_CATALOG_FILES, as xmllint reads them), then
// the local file system. A remote location that none of them maps is refused with what to pass.
class CLocator {
public:
    // catalogFiles: paths or file: URIs, in search order.
    CLocator(std::map<std::wstring, std::wstring> mappings, std::vector<std::wstring> catalogFiles);

    struct Found {
        std::wstring location; // the absolute location, which relative references resolve against
        std::wstring file;     // the local file that holds it
    };
    // reference as written in a schemaLocation, relative to the location of the referring schema;
    // from is reported when nothing holds it.
    Found Resolve(const std::wstring& reference, const std::wstring& base, const Location& from) const;
    // A catalog entry for a namespace name, for an import without schemaLocation; empty if none.
    std::wstring ResolveNamespace(const std::wstring& namespaceURI) const;

    // reference resolved against base (a path or a URL), with "." and ".." segments removed.
    static std::wstring Absolute(const std::wstring& reference, const std::wstring& base);
    static bool IsRemote(const std::wstring& location);

private:
    struct Entry {
        enum Kind { Exact, Prefix, Suffix } kind;
        bool system; // a system entry, else a uri entry (both are tried for a schema location)
        std::wstring key;
        std::wstring target;
    };
    void ReadCatalog(const std::wstring& file, int depth);
    std::wstring Lookup(const std::wstring& location) const;

    std::map<std::wstring, std::wstring> m_mappings;
    std::vector<Entry> m_entries;
};

} // namespace Qxxsd
