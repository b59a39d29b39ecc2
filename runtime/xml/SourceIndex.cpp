#include "xml/SourceIndex.h"

#include <QxXmlLib16/xml/XmlElement.h>

#include "xml/ExpatPosition.h"

#include <expat.h>

namespace QxXmlLib16::internal {

namespace {

const XML_Char kNameSeparator = '|';

std::wstring Widen(const XML_Char* units) {
    std::wstring text;
    for (; units && *units; ++units)
        text += static_cast<wchar_t>(*units);
    return text;
}

// The tree in document order: the order in which the parser meets the start tags.
std::vector<const CXmlElement*> DocumentOrder(const CXmlElement* root) {
    std::vector<const CXmlElement*> order;
    std::vector<const CXmlElement*> pending{root};
    while (!pending.empty()) {
        const CXmlElement* element = pending.back();
        pending.pop_back();
        order.push_back(element);
        std::vector<const CXmlElement*> children;
        for (const CXmlElement* child = element->GetFirstElement(); child;
             child = child->GetNextSiblingElement())
            children.push_back(child);
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
    return order;
}

struct Scan {
    XML_Parser parser;
    bool byteOrderMark;
    std::vector<const CXmlElement*> elements;
    size_t next = 0;
    bool mismatch = false;
    std::vector<std::pair<std::wstring, std::wstring>> declarations;
    std::unordered_map<const CXmlElement*, CSourceIndex::Entry>* entries;

    void Start(const XML_Char* name) {
        const std::wstring qualified = Widen(name);
        const size_t separator = qualified.find(L'|');
        const std::wstring local =
            separator == std::wstring::npos ? qualified : qualified.substr(separator + 1);
        if (next >= elements.size() || elements[next]->GetLocalName() != local) {
            mismatch = true;
            XML_StopParser(parser, XML_FALSE);
            return;
        }
        CSourceIndex::Entry& entry = (*entries)[elements[next++]];
        entry.line = static_cast<int>(ExpatLine(parser));
        entry.column = static_cast<int>(ExpatColumn(parser, byteOrderMark));
        entry.declarations.swap(declarations);
        declarations.clear();
    }
};

} // namespace

std::unique_ptr<CSourceIndex> CSourceIndex::Build(const CXmlElement* root, const unsigned char* data,
                                                  unsigned long length, bool utf16Input,
                                                  bool namespaceAware) {
    if (!root || !data || length == 0) return nullptr;
    static const XML_Char kUtf16[] = {'U', 'T', 'F', '-', '1', '6', 0};
    const XML_Char* encoding = utf16Input ? kUtf16 : nullptr;
    std::unique_ptr<CSourceIndex> index(new CSourceIndex);
    Scan scan;
    scan.parser = namespaceAware ? XML_ParserCreateNS(encoding, kNameSeparator) : XML_ParserCreate(encoding);
    if (!scan.parser) throw std::bad_alloc();
    scan.byteOrderMark = StartsWithByteOrderMark(data, length);
    scan.elements = DocumentOrder(root);
    scan.entries = &index->m_entries;
    XML_SetUserData(scan.parser, &scan);
    XML_SetStartElementHandler(scan.parser, [](void* user, const XML_Char* name, const XML_Char**) {
        static_cast<Scan*>(user)->Start(name);
    });
    XML_SetStartNamespaceDeclHandler(
        scan.parser, [](void* user, const XML_Char* prefix, const XML_Char* uri) {
            static_cast<Scan*>(user)->declarations.emplace_back(Widen(prefix), Widen(uri));
        });
    // In pieces, as the reader parses, so that expat's copy of the input stays small.
    const unsigned long kChunk = 256 * 1024;
    XML_Status status = XML_STATUS_OK;
    while (status == XML_STATUS_OK && !scan.mismatch) {
        const unsigned long chunk = length < kChunk ? length : kChunk;
        status = XML_Parse(scan.parser, reinterpret_cast<const char*>(data), static_cast<int>(chunk),
                           chunk == length);
        if (chunk == length) break;
        data += chunk;
        length -= chunk;
    }
    XML_ParserFree(scan.parser);
    if (status != XML_STATUS_OK || scan.mismatch || scan.next != scan.elements.size()) return nullptr;
    return index;
}

const CSourceIndex::Entry* CSourceIndex::Find(const CXmlElement* element) const {
    const auto found = m_entries.find(element);
    return found == m_entries.end() ? nullptr : &found->second;
}

} // namespace QxXmlLib16::internal
