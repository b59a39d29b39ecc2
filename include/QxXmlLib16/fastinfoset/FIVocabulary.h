#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace QxXmlLib16 {

// The tables of a Fast Infoset document: strings and qualified names that writer and reader number
// in the same order, so that a repeated one travels as an index. Every table starts at index 1 and
// holds at most 2^20 entries; once full, it silently takes no more and later strings stay literal.
class QX_API CFIVocabulary {
public:
    static constexpr uint64_t kMaxTableSize = uint64_t(1) << 20;

    typedef std::map<std::wstring, uint64_t> IndexMap; // string to its index
    typedef std::vector<std::wstring> StringVector;    // entry i has index i + 1

    // One string table. The writer looks strings up by value in the map, the reader by index in
    // the vector; each side keeps the half it needs in step with the other side's tables.
    class QX_API CFIStringTable {
    public:
        IndexMap& GetMap() { return m_map; }
        const IndexMap& GetMap() const { return m_map; }
        StringVector& GetVector() { return m_vector; }
        const StringVector& GetVector() const { return m_vector; }
        IndexMap::const_iterator begin() const { return m_map.begin(); }
        IndexMap::const_iterator end() const { return m_map.end(); }

    private:
        IndexMap m_map;
        StringVector m_vector;
    };

    // A qualified name as indexes into the prefix, namespace-name and local-name tables; 0 stands
    // for an absent prefix or namespace.
    struct CQNameParts {
        uint64_t prefixIndex;
        uint64_t namespaceIndex;
        uint64_t localNameIndex;
    };
    typedef std::vector<CQNameParts> QNameVector; // entry i has index i + 1

    // One name table: the map is keyed by QNameKey.
    class QX_API CFIQNameTable {
    public:
        IndexMap& GetMap() { return m_map; }
        const IndexMap& GetMap() const { return m_map; }
        QNameVector& GetVector() { return m_vector; }
        const QNameVector& GetVector() const { return m_vector; }
        IndexMap::const_iterator begin() const { return m_map.begin(); }
        IndexMap::const_iterator end() const { return m_map.end(); }

    private:
        IndexMap m_map;
        QNameVector m_vector;
    };

    // "xml" and its namespace at index 1 of their tables, the numeric and the date-and-time
    // alphabets at 1 and 2; everything else empty.
    CFIVocabulary();

    CFIStringTable& GetPrefixNamesTable() { return m_prefixes; }
    const CFIStringTable& GetPrefixNamesTable() const { return m_prefixes; }
    CFIStringTable& GetNamespaceNamesTable() { return m_namespaces; }
    const CFIStringTable& GetNamespaceNamesTable() const { return m_namespaces; }
    CFIStringTable& GetLocalNamesTable() { return m_localNames; }
    const CFIStringTable& GetLocalNamesTable() const { return m_localNames; }
    CFIStringTable& GetAttributeValuesTable() { return m_attributeValues; }
    const CFIStringTable& GetAttributeValuesTable() const { return m_attributeValues; }
    CFIStringTable& GetCharacterChunksTable() { return m_characterChunks; }
    const CFIStringTable& GetCharacterChunksTable() const { return m_characterChunks; }
    CFIQNameTable& GetElementNamesTable() { return m_elementNames; }
    const CFIQNameTable& GetElementNamesTable() const { return m_elementNames; }
    CFIQNameTable& GetAttributeNamesTable() { return m_attributeNames; }
    const CFIQNameTable& GetAttributeNamesTable() const { return m_attributeNames; }
    // Alphabet i (from 1) is entry i - 1. A generated vocabulary appends its own after the two
    // built-in ones.
    StringVector& GetRestrictedAlphabets() { return m_alphabets; }
    const StringVector& GetRestrictedAlphabets() const { return m_alphabets; }

    // False when the string is not in the map; otherwise its index is stored in index.
    static bool FindIndex(const IndexMap& map, const std::wstring& text, uint64_t& index);
    bool FindPrefixNameIndex(const std::wstring& prefix, uint64_t& index) const;
    bool FindNamespaceNameIndex(const std::wstring& namespaceURI, uint64_t& index) const;
    bool FindLocalNameIndex(const std::wstring& localName, uint64_t& index) const;

    // Gives the string the next index, unless the map holds it already or is full.
    static void AddValueToMap(const std::wstring& text, IndexMap& map);
    // Appends without looking for an equal entry (add only what a lookup did not find, or the two
    // sides' indexes drift apart), unless the vector is full.
    static void AddValueToVector(const std::wstring& text, StringVector& vector);
    static void AddQNameToVector(uint64_t prefixIndex, uint64_t namespaceIndex, uint64_t localNameIndex,
                                 QNameVector& vector);

    // Both halves of one table.
    void AddPrefixName(const std::wstring& prefix);
    void AddNamespaceName(const std::wstring& namespaceURI);
    void AddLocalName(const std::wstring& localName);
    void AddAttributeValue(const std::wstring& value);
    // A content character chunk.
    void AddElementValue(const std::wstring& value);

    // Adds the parts missing from their string tables (prefix, namespace, local name, in this
    // order; an empty prefix or namespace is absent), then the name to the name table.
    void AddQName(const std::wstring& prefix, const std::wstring& namespaceURI, const std::wstring& localName,
                  IndexMap& map, QNameVector& vector);
    void AddElement(const std::wstring& prefix, const std::wstring& namespaceURI,
                    const std::wstring& localName);
    void AddAttribute(const std::wstring& prefix, const std::wstring& namespaceURI,
                      const std::wstring& localName);

    // The name table key of a qualified name; the parts are joined by a character that XML text
    // cannot hold, so that no two names share a key.
    static std::wstring QNameKey(const std::wstring& prefix, const std::wstring& namespaceURI,
                                 const std::wstring& localName);
    // The same, built into a buffer the caller reuses.
    static void QNameKey(const std::wstring& prefix, const std::wstring& namespaceURI,
                         const std::wstring& localName, std::wstring& key);

private:
    CFIStringTable m_prefixes;
    CFIStringTable m_namespaces;
    CFIStringTable m_localNames;
    CFIStringTable m_attributeValues;
    CFIStringTable m_characterChunks;
    CFIQNameTable m_elementNames;
    CFIQNameTable m_attributeNames;
    StringVector m_alphabets;
};

} // namespace QxXmlLib16
