#include "GpxNamespaces.h"

#include <set>
#include <vector>

namespace Gpx {

namespace {

// The namespaces of elements and attributes, walked without recursion: extension content may nest
// deeply.
std::set<std::wstring> UsedNamespaces(const CXmlElement& root) {
    std::set<std::wstring> used;
    std::vector<const CXmlElement*> pending{&root};
    while (!pending.empty()) {
        const CXmlElement* element = pending.back();
        pending.pop_back();
        used.insert(element->GetNamespaceURI());
        for (const CXmlAttribute* attribute : element->GetAttributes())
            used.insert(attribute->GetNamespaceURI());
        for (const CXmlElement* child = element->GetFirstElement(); child;
             child = child->GetNextSiblingElement())
            pending.push_back(child);
    }
    return used;
}

} // namespace

int DeclareNamespaces(const CXmlDocument& document, CSerializationContext& context) {
    if (!document.GetDocumentElement()) return 0;
    CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
    int added = 0, generated = 0;
    for (const std::wstring& uri : UsedNamespaces(*document.GetDocumentElement())) {
        if (uri.empty() || uri == kNamespace || uri == CXmlWriter::XML_NAMESPACE ||
            aliases.DoesNamespaceExist(uri.c_str()))
            continue;
        std::wstring prefix = document.LookupAliasFromNamespace(uri.c_str());
        while (prefix.empty() || aliases.DoesAliasExist(prefix.c_str()))
            prefix = L"ns" + std::to_wstring(++generated);
        aliases.Add(prefix.c_str(), uri.c_str());
        ++added;
    }
    return added;
}

} // namespace Gpx
