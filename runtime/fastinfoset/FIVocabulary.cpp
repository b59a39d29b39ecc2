#include <QxXmlLib16/fastinfoset/FIVocabulary.h>
#include <QxXmlLib16/xml/XmlWriter.h>

namespace QxXmlLib16 {

CFIVocabulary::CFIVocabulary() {
    AddPrefixName(L"xml");
    AddNamespaceName(CXmlWriter::XML_NAMESPACE);
    m_alphabets.push_back(L"0123456789-+.e ");
    m_alphabets.push_back(L"0123456789-:TZ ");
}

bool CFIVocabulary::FindIndex(const IndexMap& map, const std::wstring& text, uint64_t& index) {
    const auto found = map.find(text);
    if (found == map.end()) return false;
    index = found->second;
    return true;
}

bool CFIVocabulary::FindPrefixNameIndex(const std::wstring& prefix, uint64_t& index) const {
    return FindIndex(m_prefixes.GetMap(), prefix, index);
}

bool CFIVocabulary::FindNamespaceNameIndex(const std::wstring& namespaceURI, uint64_t& index) const {
    return FindIndex(m_namespaces.GetMap(), namespaceURI, index);
}

bool CFIVocabulary::FindLocalNameIndex(const std::wstring& localName, uint64_t& index) const {
    return FindIndex(m_localNames.GetMap(), localName, index);
}

void CFIVocabulary::AddValueToMap(const std::wstring& text, IndexMap& map) {
    if (map.size() < kMaxTableSize) map.emplace(text, map.size() + 1);
}

void CFIVocabulary::AddValueToVector(const std::wstring& text, StringVector& vector) {
    if (vector.size() < kMaxTableSize) vector.push_back(text);
}

void CFIVocabulary::AddQNameToVector(uint64_t prefixIndex, uint64_t namespaceIndex, uint64_t localNameIndex,
                                     QNameVector& vector) {
    if (vector.size() < kMaxTableSize)
        vector.push_back(CQNameParts{prefixIndex, namespaceIndex, localNameIndex});
}

namespace {
// Both halves, so that a table looked up by value and one looked up by index agree.
void AddToTable(const std::wstring& text, CFIVocabulary::CFIStringTable& table) {
    const size_t before = table.GetMap().size();
    CFIVocabulary::AddValueToMap(text, table.GetMap());
    if (table.GetMap().size() != before) CFIVocabulary::AddValueToVector(text, table.GetVector());
}

// The index of a name part, added first when new; 0 for an absent (empty) part.
uint64_t PartIndex(const std::wstring& text, CFIVocabulary::CFIStringTable& table) {
    if (text.empty()) return 0;
    uint64_t index = 0;
    if (!CFIVocabulary::FindIndex(table.GetMap(), text, index)) {
        AddToTable(text, table);
        CFIVocabulary::FindIndex(table.GetMap(), text, index); // stays 0 when the table is full
    }
    return index;
}
} // namespace

void CFIVocabulary::AddPrefixName(const std::wstring& prefix) {
    AddToTable(prefix, m_prefixes);
}

void CFIVocabulary::AddNamespaceName(const std::wstring& namespaceURI) {
    AddToTable(namespaceURI, m_namespaces);
}

void CFIVocabulary::AddLocalName(const std::wstring& localName) {
    AddToTable(localName, m_localNames);
}

void CFIVocabulary::AddAttributeValue(const std::wstring& value) {
    AddToTable(value, m_attributeValues);
}

void CFIVocabulary::AddElementValue(const std::wstring& value) {
    AddToTable(value, m_characterChunks);
}

void CFIVocabulary::AddQName(const std::wstring& prefix, const std::wstring& namespaceURI,
                             const std::wstring& localName, IndexMap& map, QNameVector& vector) {
    const uint64_t prefixIndex = PartIndex(prefix, m_prefixes);
    const uint64_t namespaceIndex = PartIndex(namespaceURI, m_namespaces);
    const uint64_t localNameIndex = PartIndex(localName, m_localNames);
    // A part that found no room cannot be named by index, and neither can the name.
    if ((!prefix.empty() && !prefixIndex) || (!namespaceURI.empty() && !namespaceIndex) || !localNameIndex)
        return;
    const size_t before = map.size();
    AddValueToMap(QNameKey(prefix, namespaceURI, localName), map);
    if (map.size() != before) AddQNameToVector(prefixIndex, namespaceIndex, localNameIndex, vector);
}

void CFIVocabulary::AddElement(const std::wstring& prefix, const std::wstring& namespaceURI,
                               const std::wstring& localName) {
    AddQName(prefix, namespaceURI, localName, m_elementNames.GetMap(), m_elementNames.GetVector());
}

void CFIVocabulary::AddAttribute(const std::wstring& prefix, const std::wstring& namespaceURI,
                                 const std::wstring& localName) {
    AddQName(prefix, namespaceURI, localName, m_attributeNames.GetMap(), m_attributeNames.GetVector());
}

void CFIVocabulary::QNameKey(const std::wstring& prefix, const std::wstring& namespaceURI,
                             const std::wstring& localName, std::wstring& key) {
    // The local name leads: names mostly differ there, so map lookups decide on the first
    // characters instead of comparing long namespace URIs.
    key.assign(localName);
    key += L'\0';
    key += namespaceURI;
    key += L'\0';
    key += prefix;
}

std::wstring CFIVocabulary::QNameKey(const std::wstring& prefix, const std::wstring& namespaceURI,
                                     const std::wstring& localName) {
    std::wstring key;
    QNameKey(prefix, namespaceURI, localName, key);
    return key;
}

} // namespace QxXmlLib16
