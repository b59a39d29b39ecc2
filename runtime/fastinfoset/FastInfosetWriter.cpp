#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/fastinfoset/FastInfosetWriter.h>
#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include "fastinfoset/FastInfosetFormat.h"
#include "fastinfoset/IndexTable.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <limits>

namespace QxXmlLib16 {

using namespace internal;

namespace {

typedef CFastInfosetContext::EncodedCharacterString Encoding;

// Octets are handed to the stream in blocks of about this size.
const size_t kFlushThreshold = 64 * 1024;

const wchar_t kCDataStart[] = L"<![CDATA[";
const size_t kCDataStartLength = 9;
const wchar_t kCDataEnd[] = L"]]>";
const size_t kCDataEndLength = 3;

const Encoding kUtf8 = {Encoding::ekDefault, 0};
const Encoding kCdata = {Encoding::ekEncodingAlgorithm, CFastInfosetContext::eaCdata};

// The number of bits per character of an alphabet of this size: the smallest n with 2^n > size.
unsigned AlphabetWidth(size_t size) {
    unsigned width = 1;
    while ((size_t(1) << width) <= size)
        ++width;
    return width;
}

size_t Utf8Length(const wchar_t* text, size_t length) {
    size_t i = 0;
    while (i < length && static_cast<uint32_t>(text[i]) < 0x80)
        ++i;
    return i == length ? length : i + UnicodeToUTF8(text + i, length - i, nullptr, 0);
}

bool IsAboveSignedRange(const std::wstring& text) {
    try {
        return CConversions::ui8FromString(text, CWhitespaceUtils::wsCollapse) >
               static_cast<unsigned long long>(std::numeric_limits<long long>::max());
    } catch (const CQxException&) {
        return false; // not an unsigned number: the algorithm reports it
    }
}

} // namespace

CFastInfosetWriter::CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream& stream)
    : CXmlWriter(L"CFastInfosetWriter")
    , m_context(context)
    , m_stream(stream)
    , m_vocabulary(context.GetUseGeneratedVocabulary() ? context.GetVocabulary() : CFIVocabulary())
    , m_elementNames(new CIndexTable)
    , m_attributeNames(new CIndexTable)
    , m_attributeValues(new CIndexTable)
    , m_characterChunks(new CIndexTable)
    , m_pendingTermination(false)
    , m_writeDefaultElementValues(false)
    , m_length(0)
    , m_capacity(0)
    , m_startPending(false)
    , m_declarationCount(0)
    , m_attributeCount(0) {
    for (int type = 0; type < CFastInfosetContext::kItemTypeCount; ++type)
        m_encodings[type] = context.GetEncoding(static_cast<ItemType>(type));
    m_elementNames->Seed(m_vocabulary.GetElementNamesTable().GetMap(), true);
    m_attributeNames->Seed(m_vocabulary.GetAttributeNamesTable().GetMap(), true);
    m_attributeValues->Seed(m_vocabulary.GetAttributeValuesTable().GetMap(), false);
    m_characterChunks->Seed(m_vocabulary.GetCharacterChunksTable().GetMap(), false);
}

// Octets of an unfinished document reach the stream too, as they would have with an unbuffered
// writer.
CFastInfosetWriter::~CFastInfosetWriter() {
    Flush();
}

void CFastInfosetWriter::Flush() {
    if (m_length == 0) return;
    m_stream.Append(m_octets.get(), static_cast<unsigned long>(m_length));
    m_length = 0;
}

void CFastInfosetWriter::FlushIfFull() {
    if (m_length >= kFlushThreshold) Flush();
}

void CFastInfosetWriter::Close() {
    Flush();
    CXmlWriter::Close();
}

// ---- Document ----------------------------------------------------------------------------------

void CFastInfosetWriter::WriteStartDocument(FInfoDecl declaration) {
    if (declaration < fidNone || declaration > static_cast<int>(kFiDeclarationCount))
        throw CQxInvalidParamException(
            FormatString(L"Invalid Fast Infoset declaration [%d]", static_cast<int>(declaration)));
    if (declaration != fidNone) {
        const char* text = kFiDeclarations[declaration - 1];
        PutOctets(reinterpret_cast<const unsigned char*>(text), std::strlen(text));
    }
    PutOctets(kFiIdentification, sizeof kFiIdentification);
    if (!m_context.GetUseGeneratedVocabulary()) {
        Put(0x00);
        return;
    }
    // An initial vocabulary that only names the external one: the reader must know its tables.
    Put(kFiInitialVocabulary);
    Put(kFiExternalVocabulary);
    Put(0x00);
    const std::wstring uri = m_context.GetExternalVocabularyURI();
    NonEmptyOctetUTF8StringBit2(0x00, uri.empty() ? CFastInfosetContext::kDefaultExternalVocabularyURI : uri);
}

void CFastInfosetWriter::WriteEndDocument() {
    Put(m_pendingTermination ? kFiDoubleTermination : kFiTermination);
    m_pendingTermination = false;
    Flush();
}

void CFastInfosetWriter::WriteTerminationIfPending() {
    if (!m_pendingTermination) return;
    Put(kFiTermination);
    m_pendingTermination = false;
}

// ---- Elements ----------------------------------------------------------------------------------

void CFastInfosetWriter::Declare(const std::wstring& prefix, const std::wstring& namespaceURI) {
    if (m_declarations.size() <= m_declarationCount) m_declarations.emplace_back();
    m_declarations[m_declarationCount].first = prefix;
    m_declarations[m_declarationCount].second = namespaceURI;
    ++m_declarationCount;
}

void CFastInfosetWriter::WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) {
    if (localName.empty()) throw CQxInvalidParamException(L"An element must have a name.");
    if (m_startPending) WriteElement();
    WriteTerminationIfPending();
    CXmlWriterContext* parent = GetCurrentContext();
    if (parent) parent->AddChild();
    CXmlWriterContext& context = PushContext(localName, namespaceURI);
    m_startPending = true;
    m_declarationCount = 0;
    m_attributeCount = 0;
    if (!parent) {
        if (!GetDefaultNamespace().empty()) Declare(std::wstring(), GetDefaultNamespace());
        for (const auto& entry : GetNamespaceMap())
            if (!IsXmlNamespace(entry.first)) Declare(entry.second, entry.first);
    }
    bool isNew;
    const std::wstring* prefix = ElementPrefix(context, isNew);
    if (prefix)
        m_elementPrefix = *prefix;
    else
        m_elementPrefix.clear();
    if (isNew) Declare(m_elementPrefix, namespaceURI);
    // An element in no namespace within a default namespace must undeclare it, or its name would
    // take that namespace.
    if (namespaceURI.empty() && !context.GetDefaultNamespace().empty()) {
        context.SetDefaultNamespace(std::wstring());
        Declare(std::wstring(), std::wstring());
    }
}

void CFastInfosetWriter::WriteElement() {
    CXmlWriterContext& context = *GetCurrentContext();
    m_startPending = false;
    context.SetStartTagOpen(false);
    const unsigned char attributes = m_attributeCount ? kFiElementAttributes : 0x00;
    unsigned char leading = attributes;
    if (m_declarationCount) {
        Put(attributes | kFiElementNamespaces);
        for (size_t i = 0; i < m_declarationCount; ++i) {
            const std::wstring& prefix = m_declarations[i].first;
            const std::wstring& uri = m_declarations[i].second;
            Put(kFiNamespaceAttribute | (prefix.empty() ? 0 : 0x02) | (uri.empty() ? 0 : 0x01));
            if (!prefix.empty()) IdentifyingStringOrIndex(prefix, m_vocabulary.GetPrefixNamesTable());
            if (!uri.empty()) IdentifyingStringOrIndex(uri, m_vocabulary.GetNamespaceNamesTable());
        }
        Put(kFiTermination);
        leading = 0x00; // the name starts on the third bit of an octet of its own
    }
    const std::wstring& namespaceURI = context.GetNamespaceURI();
    QualifiedNameOrIndexBit3(leading, m_elementPrefix, namespaceURI, context.GetLocalName());
    for (size_t i = 0; i < m_attributeCount; ++i) {
        const PendingAttribute& attribute = m_attributes[i];
        QualifiedNameOrIndexBit2(attribute.prefix, attribute.namespaceURI, attribute.localName);
        NonIdentifyingStringOrIndexBit1(attribute.value, attribute.type);
    }
    if (m_attributeCount) Put(kFiTermination);
    FlushIfFull();
}

void CFastInfosetWriter::WriteEndElement() {
    if (!GetCurrentContext()) throw CQxException(L"No Element is open.");
    if (m_startPending) WriteElement();
    if (m_pendingTermination) Put(kFiDoubleTermination);
    m_pendingTermination = !m_pendingTermination;
    PopContext();
    FlushIfFull();
}

void CFastInfosetWriter::WriteComment(const std::wstring&) {
    if (m_startPending) WriteElement();
}

void CFastInfosetWriter::WritePI(const std::wstring&) {
    if (m_startPending) WriteElement();
}

void CFastInfosetWriter::WriteInlineSchema(const std::wstring&) {}

// ---- Attributes --------------------------------------------------------------------------------

void CFastInfosetWriter::WriteAttributeString(const std::wstring& localName, const std::wstring& namespaceURI,
                                              const std::wstring& value, ItemType type) {
    CXmlWriterContext& context = AttributeTarget();
    if (localName.empty()) throw CQxInvalidParamException(L"An attribute must have a name.");
    if (m_attributes.size() <= m_attributeCount) m_attributes.emplace_back();
    PendingAttribute& attribute = m_attributes[m_attributeCount];
    attribute.prefix.clear();
    if (!namespaceURI.empty()) {
        bool isNew;
        attribute.prefix = PrefixFor(context, namespaceURI, isNew);
        if (isNew) Declare(attribute.prefix, namespaceURI);
    }
    attribute.namespaceURI = namespaceURI;
    attribute.localName = localName;
    attribute.value = value;
    attribute.type = type;
    ++m_attributeCount;
}

void CFastInfosetWriter::WriteAttributeType(const std::wstring& typeNamespace, const std::wstring& typeName,
                                            ItemType type) {
    const std::wstring* newPrefix;
    const std::wstring value = TypeAttributeValue(AttributeTarget(), typeNamespace, typeName, newPrefix);
    if (newPrefix) Declare(*newPrefix, typeNamespace);
    WriteAttributeString(L"type", XSI_NAMESPACE, value, type);
}

void CFastInfosetWriter::WriteAttributeNil() {
    AttributeTarget();
    WriteAttributeString(L"nil", XSI_NAMESPACE, L"true", itBoolean);
}

// ---- Text --------------------------------------------------------------------------------------

void CFastInfosetWriter::WriteString(const std::wstring& text, ItemType type, bool isDefaultValue) {
    if (text.empty() || (isDefaultValue && !m_writeDefaultElementValues)) return;
    if (m_startPending) WriteElement();
    // Text after a child element: that child's termination comes first, or the text would be
    // read as its content.
    WriteTerminationIfPending();
    if (text[0] != L'<' || text.compare(0, kCDataStartLength, kCDataStart) != 0) {
        NonIdentifyingStringOrIndexBit3(text, type);
        FlushIfFull();
        return;
    }
    // Sections as the cdata algorithm, anything between them as ordinary chunks.
    size_t at = 0;
    while (at < text.size()) {
        if (text.compare(at, kCDataStartLength, kCDataStart) == 0) {
            const size_t start = at + kCDataStartLength;
            size_t end = text.find(kCDataEnd, start);
            if (end == std::wstring::npos) end = text.size();
            if (end > start) WriteCdataChunk(text.data() + start, end - start);
            at = std::min(text.size(), end + kCDataEndLength);
        } else {
            size_t next = text.find(kCDataStart, at);
            if (next == std::wstring::npos) next = text.size();
            NonIdentifyingStringOrIndexBit3(text.substr(at, next - at), type);
            at = next;
        }
    }
    FlushIfFull();
}

void CFastInfosetWriter::WriteCdataChunk(const wchar_t* text, size_t length) {
    EncodedCharacterStringBit5(0x80, text, length, kCdata);
}

// ---- Strings and names -------------------------------------------------------------------------

void CFastInfosetWriter::PutLength32(uint64_t length) {
    for (int shift = 24; shift >= 0; shift -= 8)
        Put(static_cast<unsigned char>(length >> shift));
}

unsigned char* CFastInfosetWriter::Room(size_t count) {
    if (m_capacity - m_length < count) {
        const size_t capacity = std::max(2 * m_capacity, m_length + count);
        std::unique_ptr<unsigned char[]> grown(new unsigned char[capacity]);
        if (m_length) std::memcpy(grown.get(), m_octets.get(), m_length);
        m_octets.swap(grown);
        m_capacity = capacity;
    }
    return m_octets.get() + m_length;
}

void CFastInfosetWriter::PutOctets(const unsigned char* octets, size_t length) {
    std::memcpy(Room(length), octets, length);
    m_length += length;
}

void CFastInfosetWriter::PutUtf8(const wchar_t* text, size_t length) {
    unsigned char* out = Room(length);
    size_t i = 0;
    for (; i < length && static_cast<uint32_t>(text[i]) < 0x80; ++i)
        out[i] = static_cast<unsigned char>(text[i]);
    m_length += i;
    if (i == length) return;
    const size_t rest = UnicodeToUTF8(text + i, length - i, nullptr, 0);
    m_length += UnicodeToUTF8(text + i, length - i, Room(rest), rest);
}

void CFastInfosetWriter::NonEmptyOctetUTF8StringBit2(unsigned char leading, const std::wstring& text) {
    const size_t length = Utf8Length(text.data(), text.size());
    if (length <= 64) {
        Put(leading | static_cast<unsigned char>(length - 1));
    } else if (length <= 320) {
        Put(leading | 0x40);
        Put(static_cast<unsigned char>(length - 65));
    } else {
        Put(leading | 0x60);
        PutLength32(length - 321);
    }
    PutUtf8(text.data(), text.size());
}

void CFastInfosetWriter::NonEmptyOctetStringBit5(unsigned char leading, const unsigned char* octets,
                                                 size_t length) {
    if (length <= 8) {
        Put(leading | static_cast<unsigned char>(length - 1));
    } else if (length <= 264) {
        Put(leading | 0x08);
        Put(static_cast<unsigned char>(length - 9));
    } else {
        Put(leading | 0x0C);
        PutLength32(length - 265);
    }
    if (octets) PutOctets(octets, length);
}

void CFastInfosetWriter::NonEmptyOctetStringBit7(unsigned char leading, const unsigned char* octets,
                                                 size_t length) {
    if (length <= 2) {
        Put(leading | static_cast<unsigned char>(length - 1));
    } else if (length <= 258) {
        Put(leading | 0x02);
        Put(static_cast<unsigned char>(length - 3));
    } else {
        Put(leading | 0x03);
        PutLength32(length - 259);
    }
    if (octets) PutOctets(octets, length);
}

void CFastInfosetWriter::Integer0To2pw20Bit2(unsigned char leading, uint32_t value) {
    if (value == 0)
        Put(leading | 0x7F);
    else
        Integer1To2pw20Bit2(leading, value);
}

void CFastInfosetWriter::Integer1To2pw20Bit2(unsigned char leading, uint32_t value) {
    if (value <= 64) {
        Put(leading | static_cast<unsigned char>(value - 1));
    } else if (value <= 8256) {
        const uint32_t v = value - 65;
        Put(leading | 0x40 | static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    } else {
        const uint32_t v = value - 8257;
        Put(leading | 0x60 | static_cast<unsigned char>(v >> 16));
        Put(static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    }
}

void CFastInfosetWriter::Integer1To2pw20Bit3(unsigned char leading, uint32_t value) {
    if (value <= 32) {
        Put(leading | static_cast<unsigned char>(value - 1));
    } else if (value <= 2080) {
        const uint32_t v = value - 33;
        Put(leading | 0x20 | static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    } else if (value <= 526368) {
        const uint32_t v = value - 2081;
        Put(leading | 0x28 | static_cast<unsigned char>(v >> 16));
        Put(static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    } else {
        const uint32_t v = value - 526369;
        Put(leading | 0x30);
        Put(static_cast<unsigned char>(v >> 16));
        Put(static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    }
}

void CFastInfosetWriter::Integer1To2pw20Bit4(unsigned char leading, uint32_t value) {
    if (value <= 16) {
        Put(leading | static_cast<unsigned char>(value - 1));
    } else if (value <= 1040) {
        const uint32_t v = value - 17;
        Put(leading | 0x10 | static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    } else if (value <= 263184) {
        const uint32_t v = value - 1041;
        Put(leading | 0x14 | static_cast<unsigned char>(v >> 16));
        Put(static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    } else {
        const uint32_t v = value - 263185;
        Put(leading | 0x18);
        Put(static_cast<unsigned char>(v >> 16));
        Put(static_cast<unsigned char>(v >> 8));
        Put(static_cast<unsigned char>(v));
    }
}

// Literal identifying strings are always added to their table, by both sides. False when the
// string has no index (its table is full).
bool CFastInfosetWriter::IdentifyingStringOrIndex(const std::wstring& text,
                                                  CFIVocabulary::CFIStringTable& table) {
    uint64_t index;
    if (CFIVocabulary::FindIndex(table.GetMap(), text, index)) {
        Integer1To2pw20Bit2(0x80, static_cast<uint32_t>(index));
        return true;
    }
    NonEmptyOctetUTF8StringBit2(0x00, text);
    const size_t before = table.GetMap().size();
    CFIVocabulary::AddValueToMap(text, table.GetMap());
    return table.GetMap().size() != before;
}

// Writes the literal parts of a qualified name and gives the name its index, as the reader does:
// only when every part has one.
void CFastInfosetWriter::LiteralQualifiedName(const std::wstring& prefix, const std::wstring& namespaceURI,
                                              const std::wstring& localName, CIndexTable& names) {
    bool indexed = true;
    if (!prefix.empty()) indexed = IdentifyingStringOrIndex(prefix, m_vocabulary.GetPrefixNamesTable());
    if (!namespaceURI.empty())
        indexed = IdentifyingStringOrIndex(namespaceURI, m_vocabulary.GetNamespaceNamesTable()) && indexed;
    indexed = IdentifyingStringOrIndex(localName, m_vocabulary.GetLocalNamesTable()) && indexed;
    if (indexed) names.Add(prefix, namespaceURI, localName);
}

void CFastInfosetWriter::QualifiedNameOrIndexBit3(unsigned char leading, const std::wstring& prefix,
                                                  const std::wstring& namespaceURI,
                                                  const std::wstring& localName) {
    if (const uint32_t index = m_elementNames->Find(prefix, namespaceURI, localName)) {
        Integer1To2pw20Bit3(leading, index);
        return;
    }
    Put(leading | kFiLiteralElementName | (prefix.empty() ? 0 : 0x02) | (namespaceURI.empty() ? 0 : 0x01));
    LiteralQualifiedName(prefix, namespaceURI, localName, *m_elementNames);
}

void CFastInfosetWriter::QualifiedNameOrIndexBit2(const std::wstring& prefix,
                                                  const std::wstring& namespaceURI,
                                                  const std::wstring& localName) {
    if (const uint32_t index = m_attributeNames->Find(prefix, namespaceURI, localName)) {
        Integer1To2pw20Bit2(0x00, index);
        return;
    }
    Put(kFiLiteralAttributeName | (prefix.empty() ? 0 : 0x02) | (namespaceURI.empty() ? 0 : 0x01));
    LiteralQualifiedName(prefix, namespaceURI, localName, *m_attributeNames);
}

// ---- Values ------------------------------------------------------------------------------------

void CFastInfosetWriter::NonIdentifyingStringOrIndexBit1(const std::wstring& text, ItemType type) {
    if (text.empty()) {
        Put(kFiDoubleTermination); // index 0: the empty string
        return;
    }
    if (text.size() >= m_context.GetAttributeMaxAddLength()) {
        EncodedCharacterStringBit3(0x00, text.data(), text.size(), EncodingOf(type, text));
        return;
    }
    if (const uint32_t index = m_attributeValues->Find(text)) {
        Integer1To2pw20Bit2(0x80, index);
        return;
    }
    EncodedCharacterStringBit3(0x40, text.data(), text.size(), EncodingOf(type, text));
    m_attributeValues->Add(text);
}

void CFastInfosetWriter::NonIdentifyingStringOrIndexBit3(const std::wstring& text, ItemType type) {
    if (text.size() >= m_context.GetElementMaxAddLength()) {
        EncodedCharacterStringBit5(0x80, text.data(), text.size(), EncodingOf(type, text));
        return;
    }
    if (const uint32_t index = m_characterChunks->Find(text)) {
        Integer1To2pw20Bit4(0xA0, index);
        return;
    }
    EncodedCharacterStringBit5(0x90, text.data(), text.size(), EncodingOf(type, text));
    m_characterChunks->Add(text);
}

Encoding CFastInfosetWriter::EncodingOf(ItemType type, const std::wstring& text) const {
    if (type < 0 || type >= CFastInfosetContext::kItemTypeCount) return m_context.GetEncoding(type); // throws
    const Encoding encoding = m_encodings[type];
    if (type == itUi8 && encoding.kind == Encoding::ekEncodingAlgorithm &&
        encoding.index == CFastInfosetContext::eaLong && IsAboveSignedRange(text))
        return kUtf8;
    return encoding;
}

void CFastInfosetWriter::AppendRestrictedAlphabetString(const std::wstring& alphabet, const wchar_t* text,
                                                        size_t length, std::vector<unsigned char>& octets) {
    if (alphabet.size() < 2 || alphabet.size() > kFiMaxIndex)
        throw CQxException(L"Failed to write FastInfoset. Invalid Restricted Alphabet. Alphabet must contain "
                           L"between 2 and 2^20 characters.");
    const unsigned width = AlphabetWidth(alphabet.size());
    if (width != 4 && width != 8)
        throw CQxException(
            L"Failed to write FastInfoset. Unsupported Feature in AppendRestrictedAlphabetString.");
    for (size_t i = 0; i < length; ++i) {
        const wchar_t* found = std::wmemchr(alphabet.data(), text[i], alphabet.size());
        if (!found)
            throw CQxException(
                L"Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.");
        const unsigned char position = static_cast<unsigned char>(found - alphabet.data());
        if (width == 8)
            octets.push_back(position);
        else if (i % 2 == 0)
            octets.push_back(static_cast<unsigned char>(position << 4 | 0x0F)); // '1111' pads an odd end
        else
            octets.back() = static_cast<unsigned char>((octets.back() & 0xF0) | position);
    }
}

CFastInfosetWriter::Encoded CFastInfosetWriter::Encode(const wchar_t* text, size_t length, Encoding encoding,
                                                       const wchar_t* unknownKindMessage) {
    m_literal.clear();
    switch (encoding.kind) {
    case Encoding::ekDefault:
        if (m_context.GetDefaultStringEncoding() != CFastInfosetContext::seUTF8)
            throw CQxException(L"Failed to write FastInfoset. Unsupported Feature UTF16BE in "
                               L"EncodedCharacterStringBit5.");
        return Encoded{0, 0, nullptr, 0}; // written straight into the output
    case Encoding::ekRestrictedAlphabet: {
        const CFIVocabulary::StringVector& alphabets = m_vocabulary.GetRestrictedAlphabets();
        if (encoding.index < 1 || encoding.index > alphabets.size())
            throw CQxException(
                FormatString(L"Failed to write FastInfoset. Invalid Restricted Alphabet value [%d]",
                             static_cast<int>(encoding.index)));
        AppendRestrictedAlphabetString(alphabets[encoding.index - 1], text, length, m_literal);
        return Encoded{2, encoding.index, m_literal.data(), m_literal.size()};
    }
    case Encoding::ekEncodingAlgorithm: {
        if (encoding.index < CFastInfosetContext::eaHexadecimal ||
            encoding.index > CFastInfosetContext::eaCdata)
            throw CQxException(
                FormatString(L"Failed to write FastInfoset. Invalid Encoding Algorithm value [%d]",
                             static_cast<int>(encoding.index)));
        m_algorithmOctets.SetAsEncodedString(encoding.index, std::wstring(text, length));
        // Text that encodes to nothing (such as only blanks) has no literal of this kind.
        if (m_algorithmOctets.GetLength() == 0) return Encoded{0, 0, nullptr, 0};
        return Encoded{3, encoding.index, m_algorithmOctets.GetData(), m_algorithmOctets.GetLength()};
    }
    default:
        throw CQxException(unknownKindMessage);
    }
}

// '0' literal, the add-to-table bit (in leading), then the discriminant on the third bit.
void CFastInfosetWriter::EncodedCharacterStringBit3(unsigned char leading, const wchar_t* text, size_t length,
                                                    Encoding encoding) {
    EncodedCharacterString(
        leading, 4, &CFastInfosetWriter::NonEmptyOctetStringBit5,
        Encode(text, length, encoding,
               L"Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit5."),
        text, length);
}

// '10' chunk, '0' literal, the add-to-table bit (in leading), then the discriminant on the fifth bit.
void CFastInfosetWriter::EncodedCharacterStringBit5(unsigned char leading, const wchar_t* text, size_t length,
                                                    Encoding encoding) {
    EncodedCharacterString(
        leading, 2, &CFastInfosetWriter::NonEmptyOctetStringBit7,
        Encode(text, length, encoding,
               L"Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit7."),
        text, length);
}

// The discriminant just above the shift bits of the first octet; UTF-8 has its length in that octet,
// alphabets and algorithms split their 8-bit table index over it and the next, which holds the length.
void CFastInfosetWriter::EncodedCharacterString(unsigned char leading, unsigned shift, OctetStringForm form,
                                                const Encoded& encoded, const wchar_t* text, size_t length) {
    if (encoded.discriminant == 0) {
        (this->*form)(leading, nullptr, Utf8Length(text, length));
        PutUtf8(text, length);
        return;
    }
    const unsigned v = encoded.index - 1;
    Put(leading | static_cast<unsigned char>(encoded.discriminant << shift) |
        static_cast<unsigned char>(v >> (8 - shift)));
    (this->*form)(static_cast<unsigned char>((v << shift) & 0xFF), encoded.octets, encoded.length);
}

} // namespace QxXmlLib16
