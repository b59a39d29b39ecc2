#include "xml/ErrorLocator.h"

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlDocument.h>

#include "xml/DocumentStore.h"
#include "xml/ExpatPosition.h"

#include <expat.h>

#include <cwctype>
#include <unordered_map>
#include <vector>

namespace QxXmlLib16::internal {

namespace {

const XML_Char kNameSeparator = '|';

struct Step {
    std::wstring name;
    unsigned long position; // among the siblings of the same name, from 1
    bool attribute;
};

// "/a/p:b[2]/@c" as its steps; empty when it is no such path.
std::vector<Step> ParsePath(const std::wstring& path) {
    std::vector<Step> steps;
    if (path.empty() || path[0] != L'/') return steps;
    size_t at = 1;
    while (at <= path.size()) {
        size_t end = path.find(L'/', at);
        if (end == std::wstring::npos) end = path.size();
        std::wstring name = path.substr(at, end - at);
        if (name.empty() || (!steps.empty() && steps.back().attribute)) return {};
        Step step{name, 1, name[0] == L'@'};
        if (step.attribute) {
            step.name.erase(0, 1);
        } else if (name.back() == L']') {
            const size_t open = name.rfind(L'[');
            if (open == std::wstring::npos || open + 2 > name.size() - 1) return {};
            step.name = name.substr(0, open);
            step.position = std::wcstoul(name.c_str() + open + 1, nullptr, 10);
            if (step.position == 0) return {};
        }
        steps.push_back(std::move(step));
        at = end + 1;
    }
    return steps;
}

// The characters of the raw input from a byte offset on, counted as the parser counts lines and
// columns: a line end is LF, CR LF or CR; a character encoded in several units counts once. The
// encodings the parser detects by itself are UTF-8 (and the ASCII-compatible ones) and UTF-16.
class CRawCursor {
public:
    CRawCursor(const unsigned char* data, unsigned long length, bool utf16, unsigned long at,
               unsigned long line, unsigned long column)
        : m_data(data)
        , m_length(length)
        , m_at(at)
        , m_line(line)
        , m_column(column) {
        if (utf16 ||
            (length >= 2 && ((data[0] == 0xFF && data[1] == 0xFE) || (data[0] == '<' && data[1] == 0)))) {
            m_width = 2;
        } else if (length >= 2 &&
                   ((data[0] == 0xFE && data[1] == 0xFF) || (data[0] == 0 && data[1] == '<'))) {
            m_width = 2;
            m_bigEndian = true;
        }
    }

    bool AtEnd() const { return m_at + m_width > m_length; }
    unsigned Peek() const {
        if (AtEnd()) return 0;
        if (m_width == 1) return m_data[m_at];
        return m_bigEndian ? (m_data[m_at] << 8) | m_data[m_at + 1] : m_data[m_at] | (m_data[m_at + 1] << 8);
    }
    void Next() {
        const unsigned unit = Peek();
        m_at += m_width;
        if (unit == '\r' && Peek() == '\n') m_at += m_width;
        if (unit == '\r' || unit == '\n') {
            ++m_line;
            m_column = 0;
        } else if (m_width == 1 ? (unit & 0xC0) != 0x80 : (unit & 0xFC00) != 0xDC00) {
            ++m_column; // not a continuation byte, nor the second half of a surrogate pair
        }
    }
    bool IsSpace() const {
        const unsigned unit = Peek();
        return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n';
    }
    void SkipSpace() {
        while (!AtEnd() && IsSpace())
            Next();
    }
    unsigned long Line() const { return m_line; }
    unsigned long Column() const { return m_column; }

private:
    const unsigned char* m_data;
    unsigned long m_length;
    unsigned long m_at;
    unsigned m_width = 1;
    bool m_bigEndian = false;
    unsigned long m_line;
    unsigned long m_column;
};

// Walks the start tag at the cursor to its attribute number ordinal (from 0), counting the
// specified attributes the parser reports, which come in the order written. False when the tag
// does not read as expected.
bool FindAttribute(CRawCursor& cursor, long ordinal, bool namespaceAware) {
    if (cursor.Peek() != '<') return false;
    cursor.Next();
    while (!cursor.AtEnd() && !cursor.IsSpace() && cursor.Peek() != '/' && cursor.Peek() != '>')
        cursor.Next();
    for (;;) {
        cursor.SkipSpace();
        if (cursor.AtEnd() || cursor.Peek() == '/' || cursor.Peek() == '>') return false;
        const CRawCursor start = cursor;
        std::wstring name;
        while (!cursor.AtEnd() && !cursor.IsSpace() && cursor.Peek() != '=') {
            name += static_cast<wchar_t>(cursor.Peek());
            cursor.Next();
        }
        cursor.SkipSpace();
        if (cursor.Peek() != '=') return false;
        cursor.Next();
        cursor.SkipSpace();
        const unsigned quote = cursor.Peek();
        if (quote != '"' && quote != '\'') return false;
        do
            cursor.Next();
        while (!cursor.AtEnd() && cursor.Peek() != quote);
        cursor.Next();
        // A namespace-aware parser reports declarations apart from the attributes.
        if (namespaceAware && (name == L"xmlns" || name.compare(0, 6, L"xmlns:") == 0)) continue;
        if (ordinal-- == 0) {
            cursor = start;
            return true;
        }
    }
}

struct Scan {
    XML_Parser parser;
    const std::vector<Step>* steps;
    size_t elementSteps;
    const CErrorLocator::QualifiedName* qualifiedName;
    bool namespaceAware;
    size_t depth = 0;
    size_t matched = 0;     // steps matched by the open elements
    unsigned long seen = 0; // children of the last matched element that bear the next step's name
    bool done = false;      // found, or known to be absent
    bool found = false;
    unsigned long line = 0;
    unsigned long column = 0;
    XML_Index byteIndex = 0;
    long attribute = -1; // ordinal of the attribute among those specified, or -1

    std::wstring NameOf(const XML_Char* name) const {
        std::wstring text;
        for (; *name; ++name)
            text += static_cast<wchar_t>(*name);
        const size_t separator = namespaceAware ? text.find(kNameSeparator) : std::wstring::npos;
        if (separator == std::wstring::npos) return (*qualifiedName)(std::wstring(), text);
        return (*qualifiedName)(text.substr(0, separator), text.substr(separator + 1));
    }

    void Stop() {
        done = true;
        XML_StopParser(parser, XML_FALSE);
    }

    void Start(const XML_Char* name, const XML_Char** attributes) {
        ++depth;
        if (done || depth != matched + 1) return;
        const Step& step = (*steps)[matched];
        if (NameOf(name) != step.name || ++seen != step.position) return;
        ++matched;
        seen = 0;
        if (matched < elementSteps) return;
        found = true;
        line = static_cast<unsigned long>(ExpatLine(parser));
        column = static_cast<unsigned long>(ExpatColumn(parser));
        byteIndex = XML_GetCurrentByteIndex(parser);
        if (elementSteps < steps->size()) {
            const std::wstring& wanted = steps->back().name;
            const int specified = XML_GetSpecifiedAttributeCount(parser) / 2;
            for (int i = 0; i < specified && attribute < 0; ++i)
                if (NameOf(attributes[2 * i]) == wanted) attribute = i;
        }
        Stop();
    }

    void End() {
        // The last matched element ends without the child the path goes on to.
        if (!done && depth == matched) Stop();
        --depth;
    }
};

} // namespace

bool CErrorLocator::Find(const unsigned char* data, unsigned long length, bool utf16, bool namespaceAware,
                         const std::wstring& path, const QualifiedName& qualifiedName, unsigned long& line,
                         unsigned long& column) {
    const std::vector<Step> steps = ParsePath(path);
    if (!data || length == 0 || steps.empty() || steps[0].attribute) return false;
    static const XML_Char kUtf16[] = {'U', 'T', 'F', '-', '1', '6', 0};
    const XML_Char* encoding = utf16 ? kUtf16 : nullptr;
    Scan scan;
    scan.parser = namespaceAware ? XML_ParserCreateNS(encoding, kNameSeparator) : XML_ParserCreate(encoding);
    if (!scan.parser) throw std::bad_alloc();
    scan.steps = &steps;
    scan.elementSteps = steps.back().attribute ? steps.size() - 1 : steps.size();
    scan.qualifiedName = &qualifiedName;
    scan.namespaceAware = namespaceAware;
    XML_SetUserData(scan.parser, &scan);
    XML_SetElementHandler(
        scan.parser,
        [](void* user, const XML_Char* name, const XML_Char** attributes) {
            static_cast<Scan*>(user)->Start(name, attributes);
        },
        [](void* user, const XML_Char*) { static_cast<Scan*>(user)->End(); });
    // In pieces, so that the parser's copy of the input stays small.
    const unsigned long kChunk = 256 * 1024;
    const unsigned char* at = data;
    for (unsigned long left = length; left > 0 && !scan.done;) {
        const unsigned long chunk = left < kChunk ? left : kChunk;
        if (XML_Parse(scan.parser, reinterpret_cast<const char*>(at), static_cast<int>(chunk),
                      chunk == left) != XML_STATUS_OK)
            break;
        at += chunk;
        left -= chunk;
    }
    XML_ParserFree(scan.parser);
    if (!scan.found) return false;
    CRawCursor cursor(data, length, utf16, static_cast<unsigned long>(scan.byteIndex), scan.line,
                      scan.column);
    if (scan.attribute >= 0 && FindAttribute(cursor, scan.attribute, namespaceAware)) {
        line = cursor.Line();
        column = cursor.Column() + 1;
    } else {
        line = scan.line;
        column = scan.column + 1;
    }
    return true;
}

void CErrorLocator::Locate(const CXmlDocument& document, CQxException& error) {
    const CDocumentStore& store = *document.m_store;
    if (error.HasPosition() || !store.text) return;
    const std::wstring* path = nullptr;
    for (const CQxException* e = &error; e; e = e->GetInnerException())
        if (!e->GetPath().empty()) path = &e->GetPath();
    if (!path) return;
    // Names as the path was made: with the first alias bound to the namespace anywhere in the
    // document (see CXmlElement::GetQName).
    std::unordered_map<std::wstring, std::wstring> aliases;
    const QualifiedName qualifiedName = [&](const std::wstring& namespaceURI, const std::wstring& localName) {
        if (namespaceURI.empty()) return localName;
        auto known = aliases.find(namespaceURI);
        if (known == aliases.end()) {
            std::wstring alias;
            for (const auto& entry : document.m_aliases)
                if (entry.second == namespaceURI) {
                    alias = entry.first;
                    break;
                }
            known = aliases.emplace(namespaceURI, alias).first;
        }
        return known->second.empty() ? localName : known->second + L':' + localName;
    };
    unsigned long line, column;
    if (Find(store.text, store.textLength, store.textIsUtf16, document.GetSchemaType() != stNoNamespaces,
             *path, qualifiedName, line, column))
        error.SetPosition(line, column);
}

} // namespace QxXmlLib16::internal
