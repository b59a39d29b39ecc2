#include "Locator.h"

#include "Diagnostics.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <cwctype>
#include <sys/stat.h>

namespace Qxxsd {

using namespace QxXmlLib16;

namespace {

const wchar_t* const kCatalogNamespace = L"urn:oasis:names:tc:entity:xmlns:xml:catalog";

std::string Narrow(const std::wstring& text) {
    return UnicodeToMultiByte(text.c_str());
}

bool IsFile(const std::wstring& path) {
    struct stat info;
    return stat(Narrow(path).c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

size_t SchemeLength(const std::wstring& location) {
    const size_t colon = location.find(L':');
    if (colon == std::wstring::npos || colon < 2) return 0; // "c:" would be a drive, not a scheme
    for (size_t i = 0; i < colon; ++i)
        if (!iswalnum(location[i]) && location[i] != L'+' && location[i] != L'-' && location[i] != L'.')
            return 0;
    return colon + 1;
}

// "file:///a/b" and "file:/a/b" as a path; other locations unchanged.
std::wstring FilePath(const std::wstring& location) {
    if (location.compare(0, 7, L"file://") == 0) return location.substr(7);
    if (location.compare(0, 5, L"file:") == 0) return location.substr(5);
    return location;
}

std::wstring RemoveDotSegments(const std::wstring& path) {
    std::vector<std::wstring> segments;
    size_t start = 0;
    while (start <= path.size()) {
        size_t end = path.find(L'/', start);
        if (end == std::wstring::npos) end = path.size();
        const std::wstring segment = path.substr(start, end - start);
        if (segment == L"..") {
            if (segments.size() > 1) segments.pop_back();
        } else if (segment != L".") {
            segments.push_back(segment);
        }
        if (end == path.size() && (segment == L"." || segment == L"..")) segments.push_back(L"");
        start = end + 1;
    }
    std::wstring result;
    for (size_t i = 0; i < segments.size(); ++i)
        result += (i ? L"/" : L"") + segments[i];
    return result;
}

} // namespace

CLocator::CLocator(std::map<std::wstring, std::wstring> mappings, std::vector<std::wstring> catalogFiles)
    : m_mappings(std::move(mappings)) {
    for (const std::wstring& catalog : catalogFiles)
        ReadCatalog(FilePath(catalog), 0);
}

bool CLocator::IsRemote(const std::wstring& location) {
    const size_t scheme = SchemeLength(location);
    return scheme > 0 && location.compare(0, 5, L"file:") != 0;
}

std::wstring CLocator::Absolute(const std::wstring& reference, const std::wstring& base) {
    if (SchemeLength(reference) > 0) {
        const size_t scheme = SchemeLength(reference);
        return reference.substr(0, scheme) + RemoveDotSegments(reference.substr(scheme));
    }
    if (!reference.empty() && reference[0] == L'/') {
        const size_t scheme = SchemeLength(base);
        if (scheme == 0 || base.compare(0, 5, L"file:") == 0) return RemoveDotSegments(reference);
        // An absolute path on the base's host.
        const size_t host = base.compare(scheme, 2, L"//") == 0 ? base.find(L'/', scheme + 2) : scheme;
        return base.substr(0, host == std::wstring::npos ? base.size() : host) + RemoveDotSegments(reference);
    }
    const size_t slash = base.rfind(L'/');
    const std::wstring directory = slash == std::wstring::npos ? std::wstring() : base.substr(0, slash + 1);
    const size_t scheme = SchemeLength(directory);
    return directory.substr(0, scheme) + RemoveDotSegments(directory.substr(scheme) + reference);
}

void CLocator::ReadCatalog(const std::wstring& file, int depth) {
    // A catalog that names itself, directly or through others, is read once.
    if (depth > 16 || !IsFile(file)) return;
    CXmlDocument document;
    try {
        document.Load(file.c_str());
    } catch (const CQxException& e) {
        throw CSchemaError({file, 0}, L"the XML catalog is not well-formed: " + e.GetMessage());
    }
    std::vector<std::pair<const CXmlElement*, std::wstring>> pending{{document.GetDocumentElement(), file}};
    while (!pending.empty()) {
        const CXmlElement* element = pending.back().first;
        std::wstring base = pending.back().second;
        pending.pop_back();
        const std::wstring& xmlBase = element->GetAttribute(L"base", kXmlNamespace);
        if (!xmlBase.empty()) base = Absolute(xmlBase, base);
        const std::wstring& name = element->GetLocalName();
        auto target = [&](const wchar_t* attribute) {
            return FilePath(Absolute(element->GetAttribute(attribute, L""), base));
        };
        if (element->GetNamespaceURI() != kCatalogNamespace) continue;
        if (name == L"catalog" || name == L"group") {
            std::vector<std::pair<const CXmlElement*, std::wstring>> children;
            for (const CXmlElement* child = element->GetFirstElement(); child;
                 child = child->GetNextSiblingElement())
                children.emplace_back(child, base);
            pending.insert(pending.end(), children.rbegin(), children.rend());
        } else if (name == L"uri") {
            m_entries.push_back({Entry::Exact, false, element->GetAttribute(L"name", L""), target(L"uri")});
        } else if (name == L"system") {
            m_entries.push_back(
                {Entry::Exact, true, element->GetAttribute(L"systemId", L""), target(L"uri")});
        } else if (name == L"rewriteURI" || name == L"rewriteSystem") {
            const bool system = name == L"rewriteSystem";
            m_entries.push_back(
                {Entry::Prefix, system,
                 element->GetAttribute(system ? L"systemIdStartString" : L"uriStartString", L""),
                 FilePath(Absolute(element->GetAttribute(L"rewritePrefix", L""), base))});
        } else if (name == L"uriSuffix" || name == L"systemSuffix") {
            const bool system = name == L"systemSuffix";
            m_entries.push_back({Entry::Suffix, system,
                                 element->GetAttribute(system ? L"systemIdSuffix" : L"uriSuffix", L""),
                                 target(L"uri")});
        } else if (name == L"nextCatalog") {
            ReadCatalog(target(L"catalog"), depth + 1);
        }
    }
}

// The catalogs' answer for a location: an exact entry, else the longest rewritten prefix, else
// the longest suffix; empty when none applies.
std::wstring CLocator::Lookup(const std::wstring& location) const {
    const Entry* best = nullptr;
    for (const Entry& entry : m_entries) {
        if (entry.key.empty()) continue;
        const bool matches =
            entry.kind == Entry::Exact ? entry.key == location
            : entry.kind == Entry::Prefix
                ? location.compare(0, entry.key.size(), entry.key) == 0
                : location.size() >= entry.key.size() &&
                      location.compare(location.size() - entry.key.size(), entry.key.size(), entry.key) == 0;
        if (!matches) continue;
        if (!best || entry.kind < best->kind ||
            (entry.kind == best->kind && entry.key.size() > best->key.size()))
            best = &entry;
    }
    if (!best) return std::wstring();
    return best->kind == Entry::Prefix ? best->target + location.substr(best->key.size()) : best->target;
}

std::wstring CLocator::ResolveNamespace(const std::wstring& namespaceURI) const {
    const auto mapped = m_mappings.find(namespaceURI);
    if (mapped != m_mappings.end()) return mapped->second;
    const std::wstring found = Lookup(namespaceURI);
    return IsFile(found) ? found : std::wstring();
}

CLocator::Found CLocator::Resolve(const std::wstring& reference, const std::wstring& base,
                                  const Location& from) const {
    const std::wstring location = Absolute(reference, base);
    for (const std::wstring& candidate : {location, reference}) {
        const auto mapped = m_mappings.find(candidate);
        if (mapped != m_mappings.end()) {
            if (!IsFile(mapped->second))
                throw CSchemaError(from, L"the file " + mapped->second + L" that --map gives for " +
                                             candidate + L" cannot be read");
            return {location, mapped->second};
        }
    }
    const std::wstring catalogued = Lookup(location);
    if (!catalogued.empty() && IsFile(catalogued)) return {location, catalogued};
    if (IsRemote(location))
        throw CSchemaError(from, L"the schema " + location +
                                     L" is not fetched from the network; pass --map " + location +
                                     L"=FILE, or name a catalog that maps it in XML_CATALOG_FILES");
    const std::wstring path = FilePath(location);
    if (!IsFile(path)) throw CSchemaError(from, L"the schema " + path + L" cannot be read");
    return {path, path};
}

} // namespace Qxxsd
