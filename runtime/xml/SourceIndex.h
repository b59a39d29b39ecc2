#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace QxXmlLib16 {

class CXmlElement;

namespace internal {

// Where each element of a loaded tree stands in its input, and the namespace declarations made on
// its start tag. Built only when first asked for, by reading the input once more, so that a load
// pays nothing for it.
class CSourceIndex {
public:
    struct Entry {
        int line;
        int column;
        // (prefix, URI) in the order declared; the empty prefix is the default namespace.
        std::vector<std::pair<std::wstring, std::wstring>> declarations;
    };

    // Null when the input does not read back as the same elements (a tree changed since the load,
    // or an input that is not XML text).
    static std::unique_ptr<CSourceIndex> Build(const CXmlElement* root, const unsigned char* data,
                                               unsigned long length, bool utf16Input, bool namespaceAware);

    const Entry* Find(const CXmlElement* element) const;

private:
    std::unordered_map<const CXmlElement*, Entry> m_entries;
};

} // namespace internal
} // namespace QxXmlLib16
