#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/ExpatReader.h>
#include <QxXmlLib16/fastinfoset/FastInfosetReader.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/json/JsonTextReader.h>

#include "fastinfoset/FastInfosetFormat.h"
#include "xml/DocumentStore.h"
#include "xml/StreamedLoad.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <mutex>

namespace QxXmlLib16 {

namespace {
// gzip, or a zlib header (deflate method, window of at most 32 KiB, check bits): the only inputs
// inflating can accept, so anything else is parsed where it lies without a copy.
bool MayBeCompressed(const unsigned char* data, unsigned long length) {
    if (length < 2) return false;
    if (data[0] == 0x1F && data[1] == 0x8B) return true;
    return (data[0] & 0x0F) == 8 && (data[0] >> 4) <= 7 && ((data[0] << 8) | data[1]) % 31 == 0;
}

// The identification of a Fast Infoset document, alone or behind one of its XML declarations.
bool MayBeFastInfoset(const unsigned char* data, size_t length) {
    const auto startsWith = [&](const void* prefix, size_t size) {
        return length >= size && std::memcmp(data, prefix, size) == 0;
    };
    if (startsWith(internal::kFiIdentification, sizeof internal::kFiIdentification)) return true;
    for (const char* declaration : internal::kFiDeclarations)
        if (startsWith(declaration, std::strlen(declaration))) return true;
    return false;
}

unsigned char* AllocateBytes(unsigned long length) {
    unsigned char* bytes = static_cast<unsigned char*>(std::malloc(length ? length : 1));
    if (!bytes) throw std::bad_alloc();
    return bytes;
}

// Closes the file however the load ends.
struct FileCloser {
    void operator()(FILE* file) const { std::fclose(file); }
};
} // namespace

CXmlDocument::CXmlDocument()
    : CXmlDocument(nullptr, CSerializationContext::m_defaultContext) {}

CXmlDocument::CXmlDocument(const CSerializationContext& context)
    : CXmlDocument(nullptr, context) {}

CXmlDocument::CXmlDocument(ElementCompleteCallback callback)
    : CXmlDocument(callback, CSerializationContext::m_defaultContext) {}

CXmlDocument::CXmlDocument(ElementCompleteCallback callback, const CSerializationContext& context)
    : CInstanceMonitor(L"CXmlDocument")
    , m_elementComplete(callback)
    , m_context(&context)
    , m_store(new internal::CDocumentStore) {
    Init();
}

CXmlDocument::~CXmlDocument() {
    CXmlDocument::Cleanup();
}

void CXmlDocument::Init() {
    m_input = nullptr;
    m_inputLength = 0;
    m_inputIsUtf16 = false;
    m_documentElement = nullptr;
    m_schemaType = m_context->GetSchemaType();
}

void CXmlDocument::Cleanup() {
    m_store->stream.reset();
    m_store->streamed = false;
    delete m_documentElement;
    m_documentElement = nullptr;
    std::free(m_input);
    m_input = nullptr;
    m_inputLength = 0;
    m_inputIsUtf16 = false;
    m_openElements.clear();
    m_aliases.clear();
    m_store->sourceIndex.reset();
    m_store->sourceIndexBuilt = false;
    m_store->text = nullptr;
    m_store->textLength = 0;
}

const std::wstring& CXmlDocument::InternName(const CXmlDocument* document, const wchar_t* text,
                                             size_t length) {
    if (document) return document->m_store->names.Intern(text, length);
    // Nodes built outside any document are rare; one locked table serves them all.
    static std::mutex lock;
    static internal::CNameTable names;
    std::lock_guard<std::mutex> guard(lock);
    return names.Intern(text, length);
}

void* CXmlDocument::AllocateNode(const CXmlDocument* document, size_t size) {
    return document ? document->m_store->pool.Allocate(size) : internal::CNodePool::AllocateUnpooled(size);
}

void CXmlDocument::TakeInput(const unsigned char* data, unsigned long length) {
    m_input = AllocateBytes(length);
    std::memcpy(m_input, data, length);
    m_inputLength = length;
}

void CXmlDocument::Load(const wchar_t* fileName) {
    Cleanup();
    if (m_elementComplete && StreamTextFile(fileName)) return;
    ReadInputFile(fileName);
    Parse();
}

namespace {
std::unique_ptr<FILE, FileCloser> OpenInputFile(const wchar_t* name) {
    std::unique_ptr<FILE, FileCloser> file(std::fopen(UnicodeToMultiByte(name).c_str(), "rt"));
    if (!file) throw CQxException(FormatString(L"Failed to open the file [%ls].", name));
    return file;
}
} // namespace

// A caller that drops elements as they complete can take a document larger than memory: XML text
// is read piece by piece, so that neither the file nor the tree is ever whole. Compressed files and
// Fast Infoset are read whole, as they are without a callback.
bool CXmlDocument::StreamTextFile(const wchar_t* fileName) {
    const wchar_t* name = fileName ? fileName : L"";
    std::unique_ptr<FILE, FileCloser> file = OpenInputFile(name);
    const size_t kPiece = 1 << 20;
    std::unique_ptr<unsigned char[]> piece(new unsigned char[kPiece]);
    size_t length = std::fread(piece.get(), 1, kPiece, file.get());
    if (length == 0 || MayBeCompressed(piece.get(), static_cast<unsigned long>(length)) ||
        MayBeFastInfoset(piece.get(), length))
        return false;
    CExpatReader reader(*this);
    reader.CreateParser();
    for (;;) {
        const bool last = length < kPiece;
        if (last && std::ferror(file.get())) {
            const int error = errno;
            throw CQxException(
                FormatString(L"Failed to read the contents of the file [%ls] Error [%d]", name, error));
        }
        reader.Parse(piece.get(), static_cast<unsigned long>(length), last);
        if (last) return true;
        length = std::fread(piece.get(), 1, kPiece, file.get());
    }
}

void CXmlDocument::ReadInputFile(const wchar_t* fileName) {
    const wchar_t* name = fileName ? fileName : L"";
    std::unique_ptr<FILE, FileCloser> file = OpenInputFile(name);
    const long length = _filelength(file.get());
    if (length < 0) {
        const int error = errno;
        file.reset();
        throw CQxException(FormatString(L"Failed to get the size of the file [%ls] Error [%d]", name, error));
    }
    m_input = AllocateBytes(static_cast<unsigned long>(length));
    m_inputLength = static_cast<unsigned long>(length);
    const size_t read = std::fread(m_input, 1, m_inputLength, file.get());
    if (read == 0 || read < m_inputLength) {
        const int error = std::ferror(file.get()) ? errno : 0;
        file.reset();
        throw CQxException(
            FormatString(L"Failed to read the contents of the file [%ls] Error [%d]", name, error));
    }
}

void CXmlDocument::LoadXmlStream(unsigned char* data, unsigned long length) {
    Cleanup();
    if (!data || length == 0) throw CQxException(L"XML Stream is empty!");
    if (MayBeCompressed(data, length)) {
        TakeInput(data, length);
        Parse();
    } else if (!ParseFastInfoset(data, length)) {
        ParseText(data, length);
    }
}

void CXmlDocument::LoadXml(const char* text) {
    Cleanup();
    if (!text || !*text) throw CQxException(L"XML String is empty!");
    ParseText(reinterpret_cast<const unsigned char*>(text), static_cast<unsigned long>(std::strlen(text)));
}

void CXmlDocument::LoadXml(const wchar_t* text) {
    Cleanup();
    if (!text || !*text) throw CQxException(L"XML String is empty!");
    const size_t length = std::wcslen(text);
    m_inputLength = static_cast<unsigned long>(2 * length + 2);
    m_input = AllocateBytes(m_inputLength);
    m_input[0] = 0xFF;
    m_input[1] = 0xFE;
    for (size_t i = 0; i < length; ++i) {
        m_input[2 + 2 * i] = static_cast<unsigned char>(text[i] & 0xFF);
        m_input[3 + 2 * i] = static_cast<unsigned char>((text[i] >> 8) & 0xFF);
    }
    m_inputIsUtf16 = true;
    ParseText(m_input, m_inputLength, true);
}

void CXmlDocument::Parse() {
    CQxZip::Decompress(&m_input, &m_inputLength);
    if (!ParseFastInfoset(m_input, m_inputLength)) ParseText();
}

bool CXmlDocument::ParseFastInfoset(const unsigned char* data, unsigned long length) {
    CFastInfosetReader reader(*m_context->GetFIContext(), *this);
    return reader.Parse(data, length);
}

void CXmlDocument::ParseText() {
    ParseText(m_input, m_inputLength);
}

void CXmlDocument::ParseText(const unsigned char* data, unsigned long length, bool utf16Input) {
    m_store->text = data;
    m_store->textLength = length;
    m_store->textIsUtf16 = utf16Input;
    if (m_store->streamLoads) {
        m_store->stream.reset(new CExpatReader(*this));
        m_store->stream->CreateParser(utf16Input);
        m_store->stream->Start(data, length);
        m_store->streamed = true;
        m_store->stream->ReadUntil(nullptr, true);
        return;
    }
    CExpatReader reader(*this);
    reader.CreateParser(utf16Input);
    reader.Parse(data, length, true);
}

void CXmlDocument::ReadOn(const CXmlElement* element, bool childSuffices) const {
    CExpatReader* stream = m_store->stream.get();
    if (!stream) return;
    try {
        stream->ReadUntil(element, childSuffices);
    } catch (const CQxException&) {
        throw internal::CStreamFailure(std::current_exception());
    }
}

void CXmlDocument::ReadAll() const {
    CExpatReader* stream = m_store->stream.get();
    if (!stream) return;
    try {
        stream->ReadRest(true);
    } catch (const CQxException&) {
        throw internal::CStreamFailure(std::current_exception());
    }
}

// ---- JSON --------------------------------------------------------------------------------------

namespace {

// Strict UTF-8: a JSON text that is not valid UTF-8 is refused, not repaired.
std::wstring DecodeJson(const unsigned char* bytes, unsigned long length) {
    static const unsigned char kByteOrderMark[] = {0xEF, 0xBB, 0xBF};
    const unsigned long skipped = length >= 3 && std::memcmp(bytes, kByteOrderMark, 3) == 0 ? 3 : 0;
    const UTF8* source = bytes + skipped;
    const UTF8* end = bytes + length;
    if (!DoesUTF8StrContainAnyCharsLargerThanOneByte(source, length - skipped))
        return std::wstring(source, end);
    static_assert(sizeof(wchar_t) == sizeof(UTF32), "wide characters are UTF-32");
    std::wstring text(length - skipped, L'\0'); // never more characters than bytes
    UTF32* start = reinterpret_cast<UTF32*>(&text[0]);
    UTF32* target = start;
    if (ConvertUTF8toUTF32(&source, end, &target, start + text.size(), strictConversion) != conversionOK)
        throw CQxValidationException(FormatString(L"Invalid UTF-8 in the JSON text at byte %lu.",
                                                  static_cast<unsigned long>(source - bytes)),
                                     std::wstring());
    text.resize(static_cast<size_t>(target - start));
    return text;
}

} // namespace

CBinaryData CXmlDocument::LoadJsonFile(const wchar_t* fileName) {
    Cleanup();
    ReadInputFile(fileName);
    return ParseJson();
}

CBinaryData CXmlDocument::LoadJsonStream(unsigned char* data, unsigned long length) {
    Cleanup();
    if (!data || length == 0) throw CQxException(L"JSON Stream is empty!");
    if (!MayBeCompressed(data, length))
        return CJsonTextReader::ConvertJsonToXml(DecodeJson(data, length), *m_context);
    TakeInput(data, length);
    return ParseJson();
}

CBinaryData CXmlDocument::LoadJson(const char* text) {
    Cleanup();
    if (!text || !*text) throw CQxException(L"JSON String is empty!");
    return CJsonTextReader::ConvertJsonToXml(DecodeJson(reinterpret_cast<const unsigned char*>(text),
                                                        static_cast<unsigned long>(std::strlen(text))),
                                             *m_context);
}

CBinaryData CXmlDocument::LoadJson(const wchar_t* text) {
    Cleanup();
    if (!text || !*text) throw CQxException(L"JSON String is empty!");
    return CJsonTextReader::ConvertJsonToXml(text, *m_context);
}

CBinaryData CXmlDocument::ParseJson() {
    CQxZip::Decompress(&m_input, &m_inputLength);
    return ParseJsonText();
}

CBinaryData CXmlDocument::ParseJsonText() {
    return CJsonTextReader::ConvertJsonToXml(DecodeJson(m_input, m_inputLength), *m_context);
}

void CXmlDocument::SetAlias(const std::wstring& alias, const std::wstring& namespaceURI) {
    m_aliases[alias] = namespaceURI;
}

const std::map<std::wstring, std::wstring>& CXmlDocument::GetAliasMap() const {
    ReadAll(); // a declaration further on may still rebind an alias
    return m_aliases;
}

std::wstring CXmlDocument::LookupNamespaceFromAlias(const wchar_t* alias) const {
    ReadAll();
    auto found = m_aliases.find(alias ? alias : L"");
    return found == m_aliases.end() ? std::wstring() : found->second;
}

std::wstring CXmlDocument::LookupAliasFromNamespace(const wchar_t* namespaceURI) const {
    ReadAll();
    const wchar_t* uri = namespaceURI ? namespaceURI : L"";
    for (const auto& entry : m_aliases) {
        if (entry.second == uri) return entry.first;
    }
    return std::wstring();
}

const internal::CSourceIndex* CXmlDocument::SourceIndex() const {
    if (!m_store->sourceIndexBuilt) {
        m_store->sourceIndexBuilt = true;
        // A callback or a bound load may have dropped elements that the input still holds.
        if (!m_elementComplete && !m_store->streamed)
            m_store->sourceIndex = internal::CSourceIndex::Build(m_documentElement, m_input, m_inputLength,
                                                                 m_inputIsUtf16, m_schemaType != stNoNamespaces);
    }
    return m_store->sourceIndex.get();
}

bool CXmlDocument::GetElementPosition(const CXmlElement* element, int& line, int& column) const {
    const internal::CSourceIndex* index = SourceIndex();
    const internal::CSourceIndex::Entry* entry = index ? index->Find(element) : nullptr;
    if (!entry) return false;
    line = entry->line;
    column = entry->column;
    return true;
}

bool CXmlDocument::LookupNamespaceInScope(const CXmlElement* element, const std::wstring& prefix,
                                          std::wstring& namespaceURI) const {
    if (prefix == L"xml") {
        namespaceURI = L"http://www.w3.org/XML/1998/namespace";
        return true;
    }
    const internal::CSourceIndex* index = SourceIndex();
    if (!index || !index->Find(element)) {
        ReadAll();
        const auto found = m_aliases.find(prefix);
        if (found == m_aliases.end()) return false;
        namespaceURI = found->second;
        return true;
    }
    for (; element; element = element->GetParentElement()) {
        const internal::CSourceIndex::Entry* entry = index->Find(element);
        if (!entry) continue;
        for (auto declaration = entry->declarations.rbegin(); declaration != entry->declarations.rend();
             ++declaration) {
            if (declaration->first != prefix) continue;
            namespaceURI = declaration->second;
            // xmlns="" undeclares the default namespace.
            return !namespaceURI.empty() || !prefix.empty();
        }
    }
    return false;
}

CXmlElement* CXmlDocument::OpenElement(const std::wstring& namespaceURI, const std::wstring& localName) {
    // Room first, so that the push below cannot fail once the element is linked.
    if (m_openElements.size() == m_openElements.capacity())
        m_openElements.reserve(2 * m_openElements.capacity() + 16);
    CXmlElement* element;
    if (m_documentElement) {
        if (m_openElements.empty())
            throw CQxInvalidStateException(L"The document element is complete; no element can follow it.");
        CXmlElement* parent = m_openElements.back();
        element = new (this) CXmlElement(this, parent, namespaceURI, localName);
        parent->LinkChild(element);
    } else {
        element = new (this) CXmlElement(this, nullptr, namespaceURI, localName);
        m_documentElement = element;
    }
    m_openElements.push_back(element);
    return element;
}

CXmlElement* CXmlDocument::AddDocElement(const wchar_t* namespaceURI, const wchar_t* localName) {
    if (m_documentElement) throw CQxInvalidStateException(L"The document already has a document element.");
    return AddChildElement(namespaceURI, localName);
}

CXmlElement* CXmlDocument::AddChildElement(const wchar_t* namespaceURI, const wchar_t* localName) {
    const wchar_t* ns = namespaceURI ? namespaceURI : L"";
    const wchar_t* local = localName ? localName : L"";
    return OpenElement(InternName(this, ns, std::wcslen(ns)), InternName(this, local, std::wcslen(local)));
}

void CXmlDocument::AddElementAttribute(CXmlElement* element, const wchar_t* localName, const wchar_t* value,
                                       const wchar_t* namespaceURI) {
    element->AddAttribute(localName ? localName : L"", value ? value : L"",
                          namespaceURI ? namespaceURI : L"");
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const wchar_t* text, unsigned long length) {
    const wchar_t* end = text + length;
    while (text < end && *text) {
        const wchar_t* run = text;
        while (text < end && *text && *text != L'\r')
            ++text;
        element->AppendText(run, static_cast<int>(text - run));
        if (text < end && *text == L'\r') ++text;
    }
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const wchar_t* text) {
    if (text) AppendTextExcludingCR(element, text, static_cast<unsigned long>(std::wcslen(text)));
}

void CXmlDocument::EndElement() {
    if (m_openElements.empty()) return;
    CXmlElement* element = m_openElements.back();
    m_openElements.pop_back();
    // The document element is never dropped: the tree would be left without a root.
    if (m_elementComplete && m_elementComplete(element) && !m_openElements.empty())
        delete m_openElements.back()->RemoveLastChildElement();
}

} // namespace QxXmlLib16
