#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/ExpatReader.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "xml/DocumentStore.h"
#include "xml/ExpatPosition.h"

#include <expat.h>

#include <new>

static_assert(sizeof(XML_Char) == sizeof(unsigned short), "the library is built against expat's 16-bit API");

namespace QxXmlLib16 {

namespace {
const unsigned long kScratchBytes = 1024;
const unsigned short kNameSeparator = '|';
const unsigned long kParseChunk = 256 * 1024;
// Elements read past the one the binding waits for before the parser stops: a stop and its resume
// cost more than the elements, and the binding will want them next.
const int kReadAhead = 256;

// The wide build of the headers can be paired with an 8-bit library at run time; only the library
// itself can tell.
bool ExpatUses16BitCharacters() {
    for (const XML_Feature* feature = XML_GetFeatureList(); feature->feature != XML_FEATURE_END; ++feature) {
        if (feature->feature == XML_FEATURE_SIZEOF_XML_CHAR) return feature->value == 2;
    }
    return false;
}

size_t UnitCount(const unsigned short* units) {
    size_t length = 0;
    while (units[length])
        ++length;
    return length;
}

// "uri|local" as the namespace-aware parser reports qualified names; a name without a separator is
// a local name without namespace.
struct SplitName {
    const unsigned short* uri;
    size_t uriLength;
    const unsigned short* local;
    size_t localLength;
};

SplitName Split(const unsigned short* name) {
    const unsigned short* separator = name;
    while (*separator && *separator != kNameSeparator)
        ++separator;
    if (!*separator) return {name, 0, name, static_cast<size_t>(separator - name)};
    return {name, static_cast<size_t>(separator - name), separator + 1, UnitCount(separator + 1)};
}
} // namespace

CExpatReader::CExpatReader(CXmlDocument& document)
    : CInstanceMonitor(L"CExpatReader")
    , m_document(document)
    , m_scratchBytes(0)
    , m_parser(nullptr)
    , m_longTextCapacity(0) {}

CExpatReader::~CExpatReader() {
    FreeParser();
}

void CExpatReader::CreateParser(bool utf16Input) {
    static const XML_Char kUtf16[] = {'U', 'T', 'F', '-', '1', '6', 0};
    static const bool wideParser = ExpatUses16BitCharacters();
    if (!wideParser) throw CQxException(L"The XML parser library does not use 16-bit characters.");
    FreeParser();
    m_scratch.reset(new wchar_t[kScratchBytes / sizeof(wchar_t)]);
    m_scratchBytes = kScratchBytes;
    const XML_Char* encoding = utf16Input ? kUtf16 : nullptr;
    m_parser = m_document.GetSchemaType() == stNoNamespaces ? XML_ParserCreate(encoding)
                                                            : XML_ParserCreateNS(encoding, kNameSeparator);
    if (!m_parser) throw std::bad_alloc();
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, FnStartElement, FnEndElement);
    XML_SetNamespaceDeclHandler(m_parser, FnStartNamespace, FnEndNamespace);
    XML_SetCharacterDataHandler(m_parser, FnText);
    // Expat's protection against entity amplification stays on as it comes.
    XML_SetParamEntityParsing(m_parser, XML_PARAM_ENTITY_PARSING_NEVER);
    XML_SetExternalEntityRefHandler(m_parser, FnExternalEntity);
    XML_SetSkippedEntityHandler(m_parser, FnSkippedEntity);
    // Without these handlers a section's content arrives as plain text, its delimiters gone.
    if (!m_document.GetSerializationContext().GetStripCDATA())
        XML_SetCdataSectionHandler(m_parser, FnStartCDATA, FnEndCDATA);
}

void CExpatReader::FreeParser() {
    if (m_parser) XML_ParserFree(m_parser);
    m_parser = nullptr;
}

void CExpatReader::Cleanup() {
    m_scratch.reset();
    m_scratchBytes = 0;
}

void CExpatReader::Parse(bool isFinal) {
    Parse(m_document.m_input, m_document.m_inputLength, isFinal);
}

void CExpatReader::Parse(const unsigned char* data, unsigned long length, bool isFinal) {
    if (!m_parser) CreateParser();
    m_callbackError = nullptr;
    // Expat copies whatever it is given into a buffer of its own; pieces keep that copy small
    // (events, errors and line numbers are the same as for one call).
    do {
        const unsigned long chunk = length < kParseChunk ? length : kParseChunk;
        const bool last = isFinal && chunk == length;
        ThrowOnFailure(
            XML_Parse(m_parser, reinterpret_cast<const char*>(data), static_cast<int>(chunk), last));
        data += chunk;
        length -= chunk;
    } while (length > 0);
    if (isFinal) FreeParser();
}

void CExpatReader::ThrowOnFailure(int status) {
    if (m_callbackError || status == XML_STATUS_ERROR) FlushPendingText();
    if (m_callbackError) {
        Cleanup();
        FreeParser();
        std::rethrow_exception(m_callbackError);
    }
    if (status == XML_STATUS_ERROR) {
        const char* reason = XML_ErrorString(XML_GetErrorCode(m_parser));
        const std::wstring wideReason(reason, reason + std::char_traits<char>::length(reason));
        const int line = static_cast<int>(internal::ExpatLine(m_parser));
        const unsigned long column = static_cast<unsigned long>(internal::ExpatColumn(m_parser)) + 1;
        Cleanup();
        FreeParser();
        CQxException error(FormatString(L"%ls at line %d", wideReason.c_str(), line));
        error.SetPosition(static_cast<unsigned long>(line), column);
        throw error;
    }
}

void CExpatReader::Start(const unsigned char* data, unsigned long length) {
    if (!m_parser) CreateParser();
    m_data = data;
    m_remaining = length;
    m_streaming = true;
}

void CExpatReader::Advance() {
    if (m_failure) std::rethrow_exception(m_failure);
    try {
        while (m_parser) {
            int status;
            if (m_suspended) {
                m_suspended = false;
                status = XML_ResumeParser(m_parser);
            } else {
                const unsigned long chunk = m_remaining < kParseChunk ? m_remaining : kParseChunk;
                m_lastGiven = chunk == m_remaining;
                status = XML_Parse(m_parser, reinterpret_cast<const char*>(m_data), static_cast<int>(chunk),
                                   m_lastGiven);
                m_data += chunk;
                m_remaining -= chunk;
            }
            ThrowOnFailure(status);
            if (status == XML_STATUS_SUSPENDED) {
                m_suspended = true;
                return;
            }
            if (m_lastGiven) FreeParser();
        }
    } catch (...) {
        m_failure = std::current_exception();
        throw;
    }
}

void CExpatReader::ReadUntil(const CXmlElement* element, bool childSuffices) {
    m_waiting = true;
    m_awaited = element;
    m_childSuffices = childSuffices;
    m_reached = false;
    m_readAhead = kReadAhead;
    struct Done {
        bool& waiting;
        ~Done() { waiting = false; }
    } done{m_waiting};
    Advance();
}

void CExpatReader::ReadRest(bool keep) {
    m_waiting = false;
    m_skipAll = !keep;
    Advance();
}

void CExpatReader::StopIfAwaited(const CXmlElement* element, bool started) {
    if (!m_waiting) return;
    if (!m_reached)
        m_reached =
            started ? m_childSuffices && element->GetParentElement() == m_awaited : element == m_awaited;
    if (m_readAhead > 0) --m_readAhead;
    if (!m_reached || m_readAhead > 0) return;
    m_waiting = false;
    XML_StopParser(m_parser, XML_TRUE);
}

const wchar_t* CExpatReader::Widen(const unsigned short* units, size_t length, bool textMode,
                                   size_t& written) {
    wchar_t* target = m_scratch.get();
    if ((length + 1) * sizeof(wchar_t) > m_scratchBytes) {
        if (m_longTextCapacity < length + 1) {
            m_longText.reset(new wchar_t[length + 1]);
            m_longTextCapacity = length + 1;
        }
        target = m_longText.get();
    }
    size_t count = 0;
    if (textMode) {
        for (size_t i = 0; i < length && units[i]; ++i) {
            if (units[i] != '\r') target[count++] = units[i];
        }
    } else {
        for (size_t i = 0; i < length; ++i)
            target[count++] = units[i];
    }
    target[count] = 0;
    written = count;
    return target;
}

template <typename Action>
void CExpatReader::Guarded(void* userData, Action action) {
    CExpatReader& reader = *static_cast<CExpatReader*>(userData);
    if (reader.m_callbackError) return;
    try {
        try {
            action(reader);
        } catch (CQxException& e) {
            // The event that failed is the offending node.
            if (!e.HasPosition())
                e.SetPosition(static_cast<unsigned long>(internal::ExpatLine(reader.m_parser)),
                              static_cast<unsigned long>(internal::ExpatColumn(reader.m_parser)) + 1);
            throw;
        }
    } catch (...) {
        reader.m_callbackError = std::current_exception();
        XML_StopParser(reader.m_parser, XML_FALSE);
    }
}

bool CExpatReader::Skips() {
    if (m_skipDepth > 0 || m_skipAll) return true;
    // An element whose reader is done with it takes no more content.
    const std::vector<CXmlElement*>& open = m_document.m_openElements;
    return !open.empty() && (open.back()->m_text & CXmlElement::kDropContent);
}

void CExpatReader::StartElement(const unsigned short* name, const unsigned short** attributes) {
    if (Skips()) {
        ++m_skipDepth;
        return;
    }
    internal::CNameTable& names = m_document.m_store->names;
    const SplitName elementName = Split(name);
    CXmlElement* element = m_document.OpenElement(names.Intern(elementName.uri, elementName.uriLength),
                                                  names.Intern(elementName.local, elementName.localLength));
    if (m_streaming) element->SetFlag(CXmlElement::kPending, true);
    size_t count = 0;
    while (attributes[2 * count])
        ++count;
    if (count > 0) element->ReserveAttributes(count);
    for (size_t i = 0; i < count; ++i) {
        const SplitName attributeName = Split(attributes[2 * i]);
        CXmlAttribute* attribute =
            element->NewAttribute(names.Intern(attributeName.local, attributeName.localLength),
                                  names.Intern(attributeName.uri, attributeName.uriLength));
        const unsigned short* value = attributes[2 * i + 1];
        size_t length;
        const wchar_t* wide = Widen(value, UnitCount(value), false, length);
        attribute->m_value.assign(wide, length);
    }
    StopIfAwaited(element, true);
}

void CExpatReader::FnStartElement(void* userData, const unsigned short* name,
                                  const unsigned short** attributes) {
    Guarded(userData, [&](CExpatReader& reader) { reader.StartElement(name, attributes); });
}

std::wstring& CExpatReader::PendingText() {
    const size_t depth = m_document.m_openElements.size();
    if (m_pendingText.size() < depth) m_pendingText.resize(depth);
    std::wstring& text = m_pendingText[depth - 1];
    if (text.empty() && m_document.m_elementComplete) m_unflushed.push_back(depth - 1);
    return text;
}

void CExpatReader::FlushPendingText() {
    const std::vector<CXmlElement*>& open = m_document.m_openElements;
    if (m_document.m_elementComplete) {
        for (const size_t depth : m_unflushed)
            if (depth < open.size()) open[depth]->TakeText(m_pendingText[depth]);
        m_unflushed.clear();
        return;
    }
    for (size_t i = 0; i < open.size() && i < m_pendingText.size(); ++i)
        open[i]->TakeText(m_pendingText[i]);
}

void CExpatReader::EndElement() {
    if (m_skipDepth > 0) {
        --m_skipDepth;
        return;
    }
    if (m_document.m_openElements.empty()) return;
    // A callback may look at the ancestors, so they get their text so far; without one, only the
    // element that ends needs its text.
    if (m_document.m_elementComplete) {
        FlushPendingText();
    } else {
        m_document.m_openElements.back()->TakeText(PendingText());
    }
    CXmlElement* element = m_document.m_openElements.back();
    if (m_streaming) {
        element->SetFlag(CXmlElement::kPending, false);
        if (element->m_text & CXmlElement::kDropContent) element->ReleaseContent();
        StopIfAwaited(element, false);
    }
    m_document.EndElement();
}

void CExpatReader::FnEndElement(void* userData, const unsigned short*) {
    Guarded(userData, [](CExpatReader& reader) { reader.EndElement(); });
}

void CExpatReader::FnStartNamespace(void* userData, const unsigned short* prefix, const unsigned short* uri) {
    Guarded(userData, [&](CExpatReader& reader) {
        const size_t prefixLength = prefix ? UnitCount(prefix) : 0;
        const size_t uriLength = uri ? UnitCount(uri) : 0;
        reader.m_document.SetAlias(std::wstring(prefix, prefix + prefixLength),
                                   std::wstring(uri, uri + uriLength));
    });
}

// The alias map is document-wide: a declaration stays in it after its element ends.
void CExpatReader::FnEndNamespace(void*, const unsigned short*) {}

void CExpatReader::FnText(void* userData, const unsigned short* text, int length) {
    Guarded(userData, [&](CExpatReader& reader) {
        if (reader.m_document.m_openElements.empty() || length <= 0 || reader.m_skipDepth > 0) return;
        size_t count;
        const wchar_t* wide = reader.Widen(text, static_cast<size_t>(length), true, count);
        reader.PendingText().append(wide, count);
    });
}

void CExpatReader::FnStartCDATA(void* userData) {
    Guarded(userData, [](CExpatReader& reader) {
        if (!reader.m_document.m_openElements.empty() && reader.m_skipDepth == 0)
            reader.PendingText().append(L"<![CDATA[", 9);
    });
}

void CExpatReader::FnEndCDATA(void* userData) {
    Guarded(userData, [](CExpatReader& reader) {
        if (!reader.m_document.m_openElements.empty() && reader.m_skipDepth == 0)
            reader.PendingText().append(L"]]>", 3);
    });
}

int CExpatReader::FnExternalEntity(XML_Parser parser, const unsigned short*, const unsigned short*,
                                   const unsigned short* systemId, const unsigned short*) {
    Guarded(XML_GetUserData(parser), [&](CExpatReader&) {
        const std::wstring where(systemId, systemId + UnitCount(systemId));
        throw CQxException(FormatString(L"The document refers to the external entity \"%ls\", which is never "
                                        L"read, at line %d",
                                        where.c_str(), static_cast<int>(internal::ExpatLine(parser))));
    });
    return XML_STATUS_ERROR;
}

void CExpatReader::FnSkippedEntity(void* userData, const unsigned short* name, int isParameterEntity) {
    Guarded(userData, [&](CExpatReader& reader) {
        const std::wstring entity(name, name + UnitCount(name));
        throw CQxException(FormatString(L"The entity [%ls%ls] is declared outside the document, which is never "
                                        L"read, at line %d",
                                        isParameterEntity ? L"%" : L"", entity.c_str(),
                                        static_cast<int>(internal::ExpatLine(reader.m_parser))));
    });
}

} // namespace QxXmlLib16
