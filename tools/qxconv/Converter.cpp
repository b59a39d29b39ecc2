#include "Converter.h"

#include <zlib.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <map>
#include <set>
#include <vector>

using namespace QxXmlLib16;

namespace QxConv {

namespace {

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// JSON starts with an object or an array; XML text and Fast Infoset never do.
bool IsJson(const unsigned char* data, unsigned long length) {
    unsigned long at = length >= 3 && std::memcmp(data, "\xEF\xBB\xBF", 3) == 0 ? 3 : 0;
    while (at < length && (data[at] == ' ' || data[at] == '\t' || data[at] == '\r' || data[at] == '\n'))
        ++at;
    return at < length && (data[at] == '{' || data[at] == '[');
}

// The identification of a Fast Infoset document, at the start or after an XML declaration.
bool IsFastInfoset(const unsigned char* data, unsigned long length) {
    static const unsigned char kIdentification[] = {0xE0, 0x00, 0x00, 0x01};
    if (length >= 4 && std::memcmp(data, kIdentification, 4) == 0) return true;
    const unsigned char* end = data + length;
    if (length < 5 || std::memcmp(data, "<?xml", 5) != 0) return false;
    const unsigned char* close = std::search(data, end, "?>", "?>" + 2);
    return end - close >= 6 && std::memcmp(close + 2, kIdentification, 4) == 0;
}

// True for text that is only blanks: the indentation between child elements.
bool IsBlank(const std::wstring& text) {
    return text.find_first_not_of(L" \t\r\n") == std::wstring::npos;
}

// Every namespace the tree uses gets a prefix declared on the root, as JSON requires (it has no
// place to declare one further down): the document's own prefixes, then ns1, ns2, ... for the rest.
// The document's default namespace stays the default unless an element has no namespace, which a
// default namespace on the root would capture.
void DeclareNamespaces(const CXmlDocument& document, CXmlWriter& writer) {
    std::set<std::wstring> used;
    bool unqualifiedElement = false;
    std::vector<const CXmlElement*> pending{document.GetDocumentElement()};
    while (!pending.empty()) {
        const CXmlElement* element = pending.back();
        pending.pop_back();
        if (element->GetNamespaceURI().empty())
            unqualifiedElement = true;
        else
            used.insert(element->GetNamespaceURI());
        for (const CXmlAttribute* attribute : element->GetAttributes())
            if (!attribute->GetNamespaceURI().empty()) used.insert(attribute->GetNamespaceURI());
        for (const CXmlElement* child = element->GetFirstElement(); child;
             child = child->GetNextSiblingElement())
            pending.push_back(child);
    }
    used.erase(CXmlWriter::XML_NAMESPACE);
    const std::map<std::wstring, std::wstring>& aliases = document.GetAliasMap();
    std::set<std::wstring> declared;
    for (const auto& alias : aliases) {
        if (!used.count(alias.second)) continue;
        if (alias.first.empty()) {
            if (unqualifiedElement) continue;
            writer.SetDefaultNamespace(alias.second);
        } else {
            writer.AddNamespace(alias.first, alias.second);
        }
        declared.insert(alias.second);
    }
    int next = 1;
    for (const std::wstring& uri : used) {
        if (declared.count(uri)) continue;
        std::wstring prefix;
        do
            prefix = L"ns" + std::to_wstring(next++);
        while (aliases.count(prefix));
        writer.AddNamespace(prefix, uri);
    }
}

// One element under way: its children in the order they are written, in runs that JSON writes as
// one array each when longer than one.
struct Frame {
    const CXmlElement* element;
    bool endsArray; // the element is the last item of its parent's array
    bool mixed;     // it has children and text
    std::vector<std::vector<const CXmlElement*>> runs;
    size_t run = 0;
    size_t item = 0;
};

Frame Open(const CXmlElement* element, bool endsArray, bool mixed, bool gatherRepeats) {
    Frame frame{element, endsArray, mixed, {}};
    std::map<std::pair<std::wstring, std::wstring>, size_t> runOfName;
    for (const CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (!gatherRepeats) {
            frame.runs.push_back({child});
            continue;
        }
        const auto found = runOfName.emplace(std::make_pair(child->GetNamespaceURI(), child->GetLocalName()),
                                             frame.runs.size());
        if (found.second) frame.runs.emplace_back();
        frame.runs[found.first->second].push_back(child);
    }
    return frame;
}

// The text with each UTF-16 surrogate pair as the one character it stands for: the XML text reader
// keeps the two halves, the other readers one character, and the writers take characters.
const std::wstring& Characters(const std::wstring& text, std::wstring& joined) {
    const auto isHigh = [](wchar_t c) { return c >= 0xD800 && c <= 0xDBFF; };
    const auto isLow = [](wchar_t c) { return c >= 0xDC00 && c <= 0xDFFF; };
    if (std::none_of(text.begin(), text.end(), isHigh)) return text;
    joined.clear();
    for (size_t i = 0; i < text.size(); ++i) {
        if (isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1])) {
            joined += static_cast<wchar_t>(0x10000 + ((text[i] - 0xD800) << 10) + (text[i + 1] - 0xDC00));
            ++i;
        } else {
            joined += text[i];
        }
    }
    return joined;
}

// Writes the element's start, its attributes, and its text when it has no children. True when it
// has children and text as well: the text then goes after the children (JSON takes it only once the
// element is an object), and formatted XML text, which would indent the children into that text,
// is written unformatted until the element ends.
bool StartElement(CXmlWriter& writer, CXmlTextWriter* textWriter, const CXmlElement& element) {
    std::wstring joined;
    writer.WriteStartElement(Characters(element.GetLocalName(), joined), element.GetNamespaceURI());
    for (const CXmlAttribute* attribute : element.GetAttributes())
        writer.WriteAttributeString(Characters(attribute->GetLocalName(), joined),
                                    attribute->GetNamespaceURI(), Characters(attribute->GetValue(), joined),
                                    itString);
    if (!element.GetFirstElement()) {
        writer.WriteString(Characters(element.GetText(), joined), itString, false);
        return false;
    }
    if (IsBlank(element.GetText())) return false;
    if (textWriter) textWriter->SetFormat(false);
    return true;
}

void EndElement(CXmlWriter& writer, CXmlTextWriter* textWriter, const CXmlElement& element, bool mixed) {
    if (mixed) {
        std::wstring joined;
        writer.WriteString(Characters(element.GetText(), joined), itString, false);
    }
    writer.WriteEndElement();
    if (mixed && textWriter) textWriter->SetFormat(true);
}

// The tree through the writer, without recursion, so that any depth is written. An array is opened
// by the state of its parent before the first item and closed after the last (the state a
// collection of the bindings sets).
void WriteTree(const CXmlDocument& document, CXmlWriter& writer, CXmlTextWriter* textWriter,
               bool gatherRepeats, const Progress& progress) {
    DeclareNamespaces(document, writer);
    unsigned long written = 0;
    std::vector<Frame> open;
    const CXmlElement* root = document.GetDocumentElement();
    const bool mixed = StartElement(writer, textWriter, *root);
    open.push_back(Open(root, false, mixed, gatherRepeats));
    while (!open.empty()) {
        Frame& frame = open.back();
        if (frame.run == frame.runs.size()) {
            const bool endsArray = frame.endsArray;
            EndElement(writer, textWriter, *frame.element, frame.mixed);
            open.pop_back();
            if (endsArray) writer.SetContextState(CXmlWriter::csArrayComplete);
            if (progress && (++written & 0xFFFF) == 0) progress(written);
            continue;
        }
        const std::vector<const CXmlElement*>& run = frame.runs[frame.run];
        const bool array = run.size() > 1;
        if (array && frame.item == 0) writer.SetContextState(CXmlWriter::csArrayStarting);
        const CXmlElement* child = run[frame.item];
        const bool last = ++frame.item == run.size();
        if (last) {
            ++frame.run;
            frame.item = 0;
        }
        const bool childMixed = StartElement(writer, textWriter, *child);
        // frame is not to be used from here: the vector may move.
        open.push_back(Open(child, array && last, childMixed, gatherRepeats));
    }
    if (progress) progress(written);
}

// The whole output in one gzip stream. Unlike the library's compression, which favours speed and
// refuses what does not shrink, a file made to be kept is compressed as well as zlib does by default.
CBinaryData Gzip(const CBinaryData& data) {
    const wchar_t* const kFailed = L"Failed to compress data. [Error Code: %d]";
    if (data.GetLength() > UINT_MAX) throw CQxException(FormatString(kFailed, Z_BUF_ERROR));
    z_stream stream{};
    const int init = deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
    if (init != Z_OK) throw CQxException(FormatString(kFailed, init));
    const uLong bound = deflateBound(&stream, data.GetLength());
    unsigned char* output = static_cast<unsigned char*>(std::malloc(bound));
    if (!output) {
        deflateEnd(&stream);
        throw std::bad_alloc();
    }
    stream.next_in = const_cast<unsigned char*>(data.GetData());
    stream.avail_in = static_cast<uInt>(data.GetLength());
    stream.next_out = output;
    stream.avail_out = static_cast<uInt>(bound);
    const int status = deflate(&stream, Z_FINISH);
    const unsigned long length = stream.total_out;
    deflateEnd(&stream);
    if (status != Z_STREAM_END) {
        std::free(output);
        throw CQxException(FormatString(kFailed, status));
    }
    return CBinaryData(output, length, true);
}

} // namespace

Format FormatOfName(const std::string& fileName) {
    const std::string name = EndsWith(fileName, ".gz") ? fileName.substr(0, fileName.size() - 3) : fileName;
    if (EndsWith(name, ".json")) return Format::json;
    if (EndsWith(name, ".fi") || EndsWith(name, ".finf")) return Format::fi;
    return Format::xml;
}

const char* FormatName(Format format) {
    switch (format) {
    case Format::fi:
        return "Fast Infoset";
    case Format::json:
        return "JSON";
    case Format::xml:
        break;
    }
    return "XML";
}

void Load(CBinaryData input, CXmlDocument& document, Format& format) {
    if (input.GetLength() == 0) throw CQxException(L"XML Stream is empty!");
    // Inflating leaves anything that is not compressed as it is.
    unsigned long length = input.GetLength();
    unsigned char* data = input.ReleaseData();
    CQxZip::Decompress(&data, &length);
    input = CBinaryData(data, length, true);
    if (!IsJson(data, length)) {
        format = IsFastInfoset(data, length) ? Format::fi : Format::xml;
        document.LoadXmlStream(data, length);
        return;
    }
    format = Format::json;
    const CBinaryData xml = document.LoadJsonStream(data, length);
    try {
        document.LoadXmlStream(const_cast<unsigned char*>(xml.GetData()), xml.GetLength());
    } catch (CQxException& error) {
        // A place in the XML text the JSON became would mean nothing to the user.
        error.SetPosition(0, 0);
        throw;
    }
}

CBinaryData Write(const CXmlDocument& document, Format format, bool gzip, const Progress& progress) {
    CSerializationContext context;
    CBinaryData bytes;
    if (format == Format::fi) {
        CBinaryStream stream;
        CFastInfosetWriter writer(*context.GetFIContext(), stream);
        writer.Open();
        writer.WriteStartDocument(fidNone);
        WriteTree(document, writer, nullptr, false, progress);
        writer.WriteEndDocument();
        writer.Close();
        bytes = stream.GetBinaryStream();
    } else {
        CTextStream stream(encUTF8);
        if (format == Format::json) {
            CJsonTextWriter writer(stream);
            writer.Open();
            writer.SetFormat(true);
            writer.SetEOLType(eolLF);
            writer.SetSupportRoundtrip(jrtFull);
            // Standard JSON, which every JSON tool reads, and which keeps every string as it was.
            writer.SetRfc8259Escaping(true);
            writer.WriteStartDocument();
            WriteTree(document, writer, nullptr, true, progress);
            writer.WriteEndDocument();
            writer.Close();
        } else {
            CXmlTextWriter writer(stream);
            writer.Open();
            writer.SetFormat(true);
            writer.SetEOLType(eolLF);
            writer.WriteStartDocument();
            WriteTree(document, writer, &writer, false, progress);
            writer.Close();
        }
        bytes = stream.GetEncodedStream();
    }
    return gzip ? Gzip(bytes) : bytes;
}

} // namespace QxConv
