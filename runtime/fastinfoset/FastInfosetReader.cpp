#include <QxXmlLib16/fastinfoset/FastInfosetBinaryData.h>
#include <QxXmlLib16/fastinfoset/FastInfosetReader.h>
#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include "fastinfoset/FastInfosetFormat.h"
#include "xml/DocumentStore.h"

#include <cstring>

static_assert(sizeof(wchar_t) == sizeof(UTF32), "wide text is decoded in place as UTF-32");

namespace QxXmlLib16 {

using namespace internal;

namespace {

typedef CFastInfosetContext C;

[[noreturn]] void Fail(const wchar_t* reason) {
    throw CQxException(std::wstring(L"Failed to parse FastInfoset. ") + reason);
}

const wchar_t kElementType[] = L"Invalid Encoding of Element type.";
const wchar_t kPrefixWithoutNamespace[] = L"Invalid QName type Prefix without Namespace.";

uint32_t CheckedIndex(uint32_t value, const wchar_t* reason) {
    if (value > kFiMaxIndex) Fail(reason);
    return value;
}

unsigned AlphabetWidth(size_t size) {
    unsigned width = 1;
    while ((size_t(1) << width) <= size)
        ++width;
    return width;
}

} // namespace

CFastInfosetReader::CFastInfosetReader(const CFastInfosetContext& context, CXmlDocument& document)
    : CInstanceMonitor(L"CFastInfosetReader")
    , m_context(context)
    , m_document(document)
    , m_position(nullptr)
    , m_end(nullptr)
    , m_pendingTermination(false) {}

CFastInfosetReader::~CFastInfosetReader() {
    Cleanup();
}

void CFastInfosetReader::Cleanup() {
    std::wstring().swap(m_text);
    std::vector<unsigned short>().swap(m_utf16);
}

void CFastInfosetReader::SetInput(const unsigned char* data, size_t length) {
    m_position = data;
    m_end = data + length;
}

const unsigned char* CFastInfosetReader::Move(size_t count) {
    if (count > static_cast<size_t>(m_end - m_position)) Fail(L"Unexpected End of File.");
    const unsigned char* first = m_position;
    m_position += count;
    return first;
}

bool CFastInfosetReader::Parse() {
    return Parse(m_document.m_input, m_document.m_inputLength);
}

bool CFastInfosetReader::Parse(const unsigned char* data, size_t length) {
    SetInput(data, length);
    if (!CheckHeader() && !CheckDeclaration()) return false;
    m_vocabulary.reset(m_context.GetUseGeneratedVocabulary() ? new CFIVocabulary(m_context.GetVocabulary())
                                                             : new CFIVocabulary());
    m_elementNames.clear();
    m_attributeNames.clear();
    m_pendingTermination = false;
    ReadHeader();
    ReadChildren();
    if (!m_document.GetDocumentElement()) Fail(L"The document has no element.");
    return true;
}

// ---- Header ------------------------------------------------------------------------------------

bool CFastInfosetReader::CheckHeader() {
    const size_t size = sizeof kFiIdentification;
    if (static_cast<size_t>(m_end - m_position) < size ||
        std::memcmp(m_position, kFiIdentification, size) != 0)
        return false;
    m_position += size;
    return true;
}

bool CFastInfosetReader::CheckDeclaration() {
    for (const char* declaration : kFiDeclarations) {
        const size_t length = std::strlen(declaration);
        if (static_cast<size_t>(m_end - m_position) < length ||
            std::memcmp(m_position, declaration, length) != 0)
            continue;
        const unsigned char* start = m_position;
        m_position += length;
        if (CheckHeader()) return true;
        m_position = start;
        return false;
    }
    return false;
}

void CFastInfosetReader::ReadHeader() {
    ReadOptionalData(Next());
}

void CFastInfosetReader::ReadOptionalData(unsigned char components) {
    if (components & kFiAdditionalData) AdditionalData();
    if (components & kFiInitialVocabulary) InitialVocabulary();
    if (components & kFiNotations) Notations();
    if (components & kFiUnparsedEntities) UnparsedEntities();
    if (components & kFiCharacterEncodingScheme) CharacterEncodingScheme();
    if (components & kFiStandalone) Standalone();
    if (components & kFiVersion) Version();
}

void CFastInfosetReader::AdditionalData() {
    for (uint32_t count = LengthOfSequence(Next()); count > 0; --count) {
        Move(NonEmptyOctetStringBit2Length(Next())); // identifier
        Move(NonEmptyOctetStringBit2Length(Next())); // data
    }
}

// Transmitted tables take the first free indexes of the reader's, as the standard wants, so that
// every later index of the document means what its writer meant. Alphabets and algorithms are read
// past: a document that uses one finds it missing and is refused.
void CFastInfosetReader::InitialVocabulary() {
    const unsigned char first = Next();
    const unsigned char second = Next();
    CFIVocabulary& vocabulary = *m_vocabulary;
    auto octetStrings = [&](CFIVocabulary::StringVector* table) {
        for (uint32_t count = LengthOfSequence(Next()); count > 0; --count)
            IdentifyingStringOrIndex(Next() & 0x7F, table);
    };
    auto encodedStrings = [&](CFIVocabulary::StringVector* table) {
        for (uint32_t count = LengthOfSequence(Next()); count > 0; --count) {
            EncodedCharacterStringBit3(Next());
            if (table) CFIVocabulary::AddValueToVector(m_text, *table);
        }
    };
    auto nameSurrogates = [&](CFIVocabulary::QNameVector& table) {
        for (uint32_t count = LengthOfSequence(Next()); count > 0; --count) {
            const unsigned char presence = Next();
            const uint32_t prefix = (presence & 0x02) ? Integer1To2pw20Bit2(Next()) : 0;
            const uint32_t namespaceName = (presence & 0x01) ? Integer1To2pw20Bit2(Next()) : 0;
            CFIVocabulary::AddQNameToVector(prefix, namespaceName, Integer1To2pw20Bit2(Next()), table);
        }
    };
    if (first & 0x10) Move(NonEmptyOctetStringBit2Length(Next())); // the external vocabulary's URI
    if (first & 0x08) octetStrings(nullptr);                       // restricted alphabets
    if (first & 0x04) octetStrings(nullptr);                       // encoding algorithms
    if (first & 0x02) octetStrings(&vocabulary.GetPrefixNamesTable().GetVector());
    if (first & 0x01) octetStrings(&vocabulary.GetNamespaceNamesTable().GetVector());
    if (second & 0x80) octetStrings(&vocabulary.GetLocalNamesTable().GetVector());
    if (second & 0x40) octetStrings(nullptr); // other NCNames
    if (second & 0x20) octetStrings(nullptr); // other URIs
    if (second & 0x10) encodedStrings(&vocabulary.GetAttributeValuesTable().GetVector());
    if (second & 0x08) encodedStrings(&vocabulary.GetCharacterChunksTable().GetVector());
    if (second & 0x04) encodedStrings(nullptr); // other strings
    if (second & 0x02) nameSurrogates(vocabulary.GetElementNamesTable().GetVector());
    if (second & 0x01) nameSurrogates(vocabulary.GetAttributeNamesTable().GetVector());
}

void CFastInfosetReader::Notations() {
    for (;;) {
        const unsigned char item = Next();
        if (item == kFiTermination) return;
        if ((item & 0xFC) != 0xC0) Fail(L"Invalid notation.");
        IdentifyingStringOrIndex(Next(), nullptr);                  // name
        if (item & 0x02) IdentifyingStringOrIndex(Next(), nullptr); // system identifier
        if (item & 0x01) IdentifyingStringOrIndex(Next(), nullptr); // public identifier
    }
}

void CFastInfosetReader::UnparsedEntities() {
    for (;;) {
        const unsigned char item = Next();
        if (item == kFiTermination) return;
        if ((item & 0xFE) != 0xD0) Fail(L"Invalid unparsed entity.");
        IdentifyingStringOrIndex(Next(), nullptr);                  // name
        IdentifyingStringOrIndex(Next(), nullptr);                  // system identifier
        if (item & 0x01) IdentifyingStringOrIndex(Next(), nullptr); // public identifier
        IdentifyingStringOrIndex(Next(), nullptr);                  // notation name
    }
}

void CFastInfosetReader::CharacterEncodingScheme() {
    Move(NonEmptyOctetStringBit2Length(Next()));
}

void CFastInfosetReader::Standalone() {
    Next();
}

void CFastInfosetReader::Version() {
    NonIdentifyingStringOrIndexBit1(Next(), nullptr);
}

// ---- Items -------------------------------------------------------------------------------------

// One loop for every level: the open elements are the document's stack, so that no depth of
// nesting costs stack.
void CFastInfosetReader::ReadChildren() {
    const std::vector<CXmlElement*>& open = m_document.m_openElements;
    for (;;) {
        if (m_pendingTermination) {
            // The second terminator of an FF octet ends the level above too.
            m_pendingTermination = false;
            if (open.empty()) return;
            CloseElement();
            continue;
        }
        const unsigned char octet = Next();
        if (octet < 0x80) {
            if (!ElementBit2(octet)) CloseElement();
        } else if (octet == kFiProcessingInstruction) {
            ProcessingInstruction();
        } else if (octet == kFiComment) {
            Comment();
        } else if (open.empty()) {
            if (octet >= kFiTermination) return;
            if ((octet & 0xFC) != 0xC4) Fail(kElementType);
            DocumentTypeDeclaration(octet);
        } else if (octet < 0xC0) {
            AppendText(NonIdentifyingStringOrIndexBit3(octet));
        } else if (octet == kFiTermination) {
            CloseElement();
        } else if (octet == kFiDoubleTermination) {
            CloseElement();
            m_pendingTermination = true;
        } else if ((octet & 0xFC) == 0xC8) {
            UnexpandedEntityReference(octet);
        } else {
            Fail(kElementType);
        }
    }
}

bool CFastInfosetReader::ElementBit2(unsigned char first) {
    unsigned char nameOctet = first;
    if ((first & 0x3F) == kFiElementNamespaces) {
        unsigned char item = Next();
        while ((item & 0xFC) == kFiNamespaceAttribute) {
            NamespaceAttributeBit7(item);
            item = Next();
        }
        if (item != kFiTermination) Fail(kElementType);
        nameOctet = Next() & 0x3F; // '00' padding, then the name on the third bit
    }
    CXmlElement* element = OpenElement(QualifiedNameOrIndexBit3(nameOctet));
    if (!(first & kFiElementAttributes)) return true;
    for (;;) {
        const unsigned char octet = Next();
        if (octet < 0x80)
            AtrributeBit2(element, octet);
        else if (octet == kFiTermination)
            return true;
        else if (octet == kFiDoubleTermination)
            return false;
        else
            Fail(kElementType);
    }
}

void CFastInfosetReader::NamespaceAttributeBit7(unsigned char first) {
    if ((first & 0x03) == 0x02) Fail(kPrefixWithoutNamespace);
    std::wstring prefix;
    if (first & 0x02) {
        IdentifyingStringOrIndex(Next(), &m_vocabulary->GetPrefixNamesTable().GetVector());
        prefix = m_text;
    }
    m_text.clear();
    if (first & 0x01) IdentifyingStringOrIndex(Next(), &m_vocabulary->GetNamespaceNamesTable().GetVector());
    m_document.SetAlias(prefix, m_text);
}

void CFastInfosetReader::AtrributeBit2(CXmlElement* element, unsigned char first) {
    const Name name = QualifiedNameOrIndexBit2(first);
    const std::wstring& value =
        NonIdentifyingStringOrIndexBit1(Next(), &m_vocabulary->GetAttributeValuesTable().GetVector());
    element->NewAttribute(*name.localName, *name.namespaceURI)->m_value = value;
}

CXmlElement* CFastInfosetReader::OpenElement(const Name& name) {
    if (m_document.m_openElements.empty() && m_document.GetDocumentElement())
        Fail(L"A second document element follows the first.");
    return m_document.OpenElement(*name.namespaceURI, *name.localName);
}

void CFastInfosetReader::AppendText(const std::wstring& text) {
    const size_t depth = m_document.m_openElements.size();
    if (m_pendingText.size() < depth) m_pendingText.resize(depth);
    std::wstring& pending = m_pendingText[depth - 1];
    // Without carriage returns, and up to a NUL character, as the document appends text.
    const wchar_t* run = text.data();
    const wchar_t* end = run + text.size();
    for (const wchar_t* c = run; c < end; ++c) {
        if (*c != L'\r' && *c != 0) continue;
        pending.append(run, c);
        if (*c == 0) return;
        run = c + 1;
    }
    pending.append(run, end);
}

void CFastInfosetReader::FlushPendingText(size_t from) {
    const std::vector<CXmlElement*>& open = m_document.m_openElements;
    for (size_t i = from; i < open.size() && i < m_pendingText.size(); ++i) {
        std::wstring& text = m_pendingText[i];
        if (text.empty()) continue;
        open[i]->AppendText(text.data(), static_cast<int>(text.size()));
        text.clear();
    }
}

void CFastInfosetReader::CloseElement() {
    // A callback may look at the ancestors, so they get their text so far; without one, only the
    // element that ends needs its text.
    FlushPendingText(m_document.m_elementComplete ? 0 : m_document.m_openElements.size() - 1);
    m_document.EndElement();
}

void CFastInfosetReader::ProcessingInstruction() {
    IdentifyingStringOrIndex(Next(), nullptr);
    NonIdentifyingStringOrIndexBit1(Next(), nullptr);
}

void CFastInfosetReader::Comment() {
    NonIdentifyingStringOrIndexBit1(Next(), nullptr);
}

void CFastInfosetReader::DocumentTypeDeclaration(unsigned char first) {
    if (first & 0x02) IdentifyingStringOrIndex(Next(), nullptr);
    if (first & 0x01) IdentifyingStringOrIndex(Next(), nullptr);
    for (;;) {
        const unsigned char item = Next();
        if (item == kFiTermination) return;
        if (item == kFiDoubleTermination) {
            m_pendingTermination = true; // the document's own terminator shares the octet
            return;
        }
        if (item != kFiProcessingInstruction) Fail(kElementType);
        ProcessingInstruction();
    }
}

void CFastInfosetReader::UnexpandedEntityReference(unsigned char first) {
    IdentifyingStringOrIndex(Next(), nullptr);
    if (first & 0x02) IdentifyingStringOrIndex(Next(), nullptr);
    if (first & 0x01) IdentifyingStringOrIndex(Next(), nullptr);
}

// ---- Names -------------------------------------------------------------------------------------

const std::wstring& CFastInfosetReader::StringAt(uint32_t index, const CFIVocabulary::StringVector& table,
                                                 const wchar_t* what) {
    if (index == 0 || index > table.size())
        throw CQxException(FormatString(L"Failed to parse FastInfoset. Index [%u] is not in the %ls table.",
                                        static_cast<unsigned>(index), what));
    return table[index - 1];
}

uint32_t CFastInfosetReader::IdentifyingStringOrIndex(unsigned char first,
                                                      CFIVocabulary::StringVector* table) {
    if (first & 0x80) {
        const uint32_t index = Integer1To2pw20Bit2(first);
        if (table) m_text = StringAt(index, *table, L"name");
        return index;
    }
    const uint64_t length = NonEmptyOctetStringBit2Length(first);
    NonEmptyOctetUTF8String(Move(length), length);
    if (!table || table->size() >= CFIVocabulary::kMaxTableSize) return 0;
    table->push_back(m_text);
    return static_cast<uint32_t>(table->size());
}

CFastInfosetReader::Name CFastInfosetReader::ReadQName(unsigned char presence,
                                                       CFIVocabulary::CFIQNameTable& table,
                                                       std::vector<Name>& names) {
    CFIVocabulary& vocabulary = *m_vocabulary;
    CNameTable& interned = m_document.m_store->names;
    const uint32_t prefix =
        (presence & 0x02) ? IdentifyingStringOrIndex(Next(), &vocabulary.GetPrefixNamesTable().GetVector())
                          : 0;
    uint32_t namespaceName = 0;
    const std::wstring* namespaceURI = &CNameTable::Empty();
    if (presence & 0x01) {
        namespaceName = IdentifyingStringOrIndex(Next(), &vocabulary.GetNamespaceNamesTable().GetVector());
        namespaceURI = &interned.Intern(m_text.data(), m_text.size());
    }
    const uint32_t localName = IdentifyingStringOrIndex(Next(), &vocabulary.GetLocalNamesTable().GetVector());
    const Name name = {namespaceURI, &interned.Intern(m_text.data(), m_text.size())};
    // A part that a full table did not take cannot be named by index, and neither can the name.
    const bool indexed = localName && (prefix || !(presence & 0x02)) && (namespaceName || !(presence & 0x01));
    CFIVocabulary::QNameVector& vector = table.GetVector();
    if (indexed && vector.size() < CFIVocabulary::kMaxTableSize) {
        CFIVocabulary::AddQNameToVector(prefix, namespaceName, localName, vector);
        names.resize(vector.size(), Name{nullptr, nullptr});
        names.back() = name;
    }
    return name;
}

CFastInfosetReader::Name CFastInfosetReader::NameAt(uint32_t index, const CFIVocabulary::CFIQNameTable& table,
                                                    std::vector<Name>& names, const wchar_t* what) {
    const CFIVocabulary::QNameVector& vector = table.GetVector();
    if (index == 0 || index > vector.size())
        throw CQxException(FormatString(L"Failed to parse FastInfoset. Index [%u] is not in the %ls table.",
                                        static_cast<unsigned>(index), what));
    if (names.size() < vector.size()) names.resize(vector.size(), Name{nullptr, nullptr});
    Name& name = names[index - 1];
    if (!name.localName) {
        // A name of the generated vocabulary or of the initial one, used for the first time.
        const CFIVocabulary::CQNameParts& parts = vector[index - 1];
        CNameTable& interned = m_document.m_store->names;
        const std::wstring& namespaceURI =
            parts.namespaceIndex
                ? StringAt(static_cast<uint32_t>(parts.namespaceIndex),
                           m_vocabulary->GetNamespaceNamesTable().GetVector(), L"namespace name")
                : CNameTable::Empty();
        const std::wstring& localName =
            StringAt(static_cast<uint32_t>(parts.localNameIndex),
                     m_vocabulary->GetLocalNamesTable().GetVector(), L"local name");
        if (parts.prefixIndex && !parts.namespaceIndex) Fail(kPrefixWithoutNamespace);
        name.namespaceURI = &interned.Intern(namespaceURI.data(), namespaceURI.size());
        name.localName = &interned.Intern(localName.data(), localName.size());
    }
    return name;
}

CFastInfosetReader::Name CFastInfosetReader::QualifiedNameOrIndexBit3(unsigned char first) {
    if ((first & 0x3C) != kFiLiteralElementName)
        return NameAt(Integer1To2pw20Bit3(first), m_vocabulary->GetElementNamesTable(), m_elementNames,
                      L"element name");
    if ((first & 0x03) == 0x02) Fail(kPrefixWithoutNamespace);
    return ReadQName(first & 0x03, m_vocabulary->GetElementNamesTable(), m_elementNames);
}

CFastInfosetReader::Name CFastInfosetReader::QualifiedNameOrIndexBit2(unsigned char first) {
    if ((first & 0x7C) != kFiLiteralAttributeName)
        return NameAt(Integer1To2pw20Bit2(first), m_vocabulary->GetAttributeNamesTable(), m_attributeNames,
                      L"attribute name");
    if ((first & 0x03) == 0x02) Fail(kPrefixWithoutNamespace);
    return ReadQName(first & 0x03, m_vocabulary->GetAttributeNamesTable(), m_attributeNames);
}

// ---- Strings -----------------------------------------------------------------------------------

const std::wstring& CFastInfosetReader::NonIdentifyingStringOrIndexBit1(unsigned char first,
                                                                        CFIVocabulary::StringVector* table) {
    if (first & 0x80) {
        const uint32_t index = Integer0To2pw20Bit2(first);
        if (index == 0 || !table) {
            m_text.clear();
            return m_text;
        }
        return StringAt(index, *table, L"value");
    }
    EncodedCharacterStringBit3(first);
    if ((first & 0x40) && table) CFIVocabulary::AddValueToVector(m_text, *table);
    return m_text;
}

const std::wstring& CFastInfosetReader::NonIdentifyingStringOrIndexBit3(unsigned char first) {
    CFIVocabulary::StringVector& table = m_vocabulary->GetCharacterChunksTable().GetVector();
    if (first & 0x20) return StringAt(Integer1To2pw20Bit4(first), table, L"character chunk");
    EncodedCharacterStringBit5(first);
    if (first & 0x10) CFIVocabulary::AddValueToVector(m_text, table);
    return m_text;
}

void CFastInfosetReader::EncodedCharacterStringBit3(unsigned char first) {
    EncodedCharacterString(first, 4, &CFastInfosetReader::NonEmptyOctetStringBit5Length);
}

void CFastInfosetReader::EncodedCharacterStringBit5(unsigned char first) {
    EncodedCharacterString(first, 2, &CFastInfosetReader::NonEmptyOctetStringBit7Length);
}

// The two forms differ only in where they start: the discriminant sits just above the shift bits
// of the first octet; UTF-8 and UTF-16 take their length from the first octet, alphabets and
// algorithms have the 8-bit table index split over the first and the second and their length in the
// second.
void CFastInfosetReader::EncodedCharacterString(unsigned char first, unsigned shift,
                                                uint64_t (CFastInfosetReader::*length)(unsigned char)) {
    const unsigned discriminant = (first >> shift) & 0x03;
    if (discriminant < 2) {
        const uint64_t count = (this->*length)(first);
        const unsigned char* octets = Move(count);
        if (discriminant == 0)
            NonEmptyOctetUTF8String(octets, count);
        else
            NonEmptyOctetUTF16BEString(octets, count);
        return;
    }
    const unsigned char second = Next();
    const unsigned index = (((first & ((1u << shift) - 1)) << (8 - shift)) | (second >> shift)) + 1;
    const uint64_t count = (this->*length)(second);
    const unsigned char* octets = Move(count);
    if (discriminant == 2)
        NonEmptyOctetRestrictedAlphabetString(index, octets, count);
    else
        NonEmptyOctetEncryptedString(index, octets, count);
}

void CFastInfosetReader::NonEmptyOctetUTF8String(const unsigned char* octets, size_t length) {
    // At most one character per octet, decoded in place.
    m_text.resize(length);
    wchar_t* out = &m_text[0];
    size_t i = 0;
    while (i < length && octets[i] < 0x80) {
        out[i] = octets[i];
        ++i;
    }
    if (i == length) return;
    const UTF8* source = octets + i;
    UTF32* target = reinterpret_cast<UTF32*>(out + i);
    if (ConvertUTF8toUTF32(&source, octets + length, &target, reinterpret_cast<UTF32*>(out + length),
                           strictConversion) != conversionOK)
        Fail(L"Invalid UTF-8 string.");
    m_text.resize(static_cast<size_t>(reinterpret_cast<wchar_t*>(target) - m_text.data()));
}

void CFastInfosetReader::NonEmptyOctetUTF16BEString(const unsigned char* octets, size_t length) {
    if (length % 2 != 0) Fail(L"Invalid UTF-16 string.");
    m_utf16.resize(length / 2);
    for (size_t i = 0; i < m_utf16.size(); ++i)
        m_utf16[i] = static_cast<unsigned short>(octets[2 * i] << 8 | octets[2 * i + 1]);
    m_text.resize(m_utf16.size());
    const UTF16* source = m_utf16.data();
    UTF32* target = reinterpret_cast<UTF32*>(&m_text[0]);
    if (ConvertUTF16toUTF32(&source, source + m_utf16.size(), &target, target + m_text.size(),
                            strictConversion) != conversionOK)
        Fail(L"Invalid UTF-16 string.");
    m_text.resize(static_cast<size_t>(reinterpret_cast<wchar_t*>(target) - m_text.data()));
}

void CFastInfosetReader::NonEmptyOctetRestrictedAlphabetString(unsigned alphabet, const unsigned char* octets,
                                                               size_t length) {
    const CFIVocabulary::StringVector& alphabets = m_vocabulary->GetRestrictedAlphabets();
    if (alphabet > alphabets.size())
        throw CQxException(
            FormatString(L"Failed to parse FastInfoset. Unknown Restricted Alphabet [%u].", alphabet));
    const std::wstring& characters = alphabets[alphabet - 1];
    if (characters.size() < 2 || characters.size() > kFiMaxIndex)
        Fail(
            L"Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and 2^20 characters.");
    const unsigned width = AlphabetWidth(characters.size());
    const uint32_t allOnes = (1u << width) - 1;
    m_text.clear();
    uint64_t bits = 0;
    unsigned count = 0;
    for (size_t i = 0; i < length; ++i) {
        bits = (bits << 8) | octets[i];
        count += 8;
        while (count >= width) {
            count -= width;
            const uint32_t code = static_cast<uint32_t>(bits >> count) & allOnes;
            // All ones only pads the last octet; it is never a character.
            if (code == allOnes && i + 1 == length) return;
            if (code >= characters.size()) Fail(L"Invalid character in a Restricted Alphabet string.");
            m_text += characters[code];
        }
    }
}

void CFastInfosetReader::NonEmptyOctetEncryptedString(unsigned algorithm, const unsigned char* octets,
                                                      size_t length) {
    if (algorithm == C::eaCdata) {
        NonEmptyOctetUTF8String(octets, length);
        if (!m_document.GetSerializationContext().GetStripCDATA()) m_text = L"<![CDATA[" + m_text + L"]]>";
        return;
    }
    m_text = CFastInfosetBinaryData(octets, static_cast<unsigned long>(length))
                 .GetAsString(static_cast<int>(algorithm));
}

// ---- Integers and lengths ----------------------------------------------------------------------

uint32_t CFastInfosetReader::Integer0To2pw20Bit2(unsigned char first) {
    if ((first & 0x7F) == 0x7F) return 0;
    if ((first & 0x70) == 0x70)
        Fail(L"Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.");
    return Integer1To2pw20Bit2(first);
}

uint32_t CFastInfosetReader::Integer1To2pw20Bit2(unsigned char first) {
    static const wchar_t reason[] =
        L"Invalid Encoding of integers 1 To 2^20 type  on the second bit of an octet.";
    if (!(first & 0x40)) return (first & 0x3Fu) + 1;
    if ((first & 0x60) == 0x40) return (((first & 0x1Fu) << 8) | Next()) + 65;
    if ((first & 0x70) != 0x60) Fail(reason);
    const unsigned char* rest = Move(2);
    return CheckedIndex((((first & 0x0Fu) << 16) | (rest[0] << 8) | rest[1]) + 8257, reason);
}

uint32_t CFastInfosetReader::Integer1To2pw20Bit3(unsigned char first) {
    static const wchar_t reason[] =
        L"Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet.";
    if (!(first & 0x20)) return (first & 0x1Fu) + 1;
    if ((first & 0x38) == 0x20) return (((first & 0x07u) << 8) | Next()) + 33;
    if ((first & 0x38) == 0x28) {
        const unsigned char* rest = Move(2);
        return (((first & 0x07u) << 16) | (rest[0] << 8) | rest[1]) + 2081;
    }
    if ((first & 0x3F) != 0x30) Fail(reason);
    const unsigned char* rest = Move(3);
    if (rest[0] & 0xF0) Fail(reason); // padding
    return CheckedIndex((((rest[0] & 0x0Fu) << 16) | (rest[1] << 8) | rest[2]) + 526369, reason);
}

uint32_t CFastInfosetReader::Integer1To2pw20Bit4(unsigned char first) {
    static const wchar_t reason[] =
        L"Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.";
    if (!(first & 0x10)) return (first & 0x0Fu) + 1;
    if ((first & 0x1C) == 0x10) return (((first & 0x03u) << 8) | Next()) + 17;
    if ((first & 0x1C) == 0x14) {
        const unsigned char* rest = Move(2);
        return (((first & 0x03u) << 16) | (rest[0] << 8) | rest[1]) + 1041;
    }
    if ((first & 0x1F) != 0x18) Fail(reason);
    const unsigned char* rest = Move(3);
    if (rest[0] & 0xF0) Fail(reason); // padding
    return CheckedIndex((((rest[0] & 0x0Fu) << 16) | (rest[1] << 8) | rest[2]) + 263185, reason);
}

uint32_t CFastInfosetReader::LengthOfSequence(unsigned char first) {
    if (!(first & 0x80)) return (first & 0x7Fu) + 1;
    if ((first & 0xF0) != 0x80) Fail(L"Invalid length of a sequence.");
    const unsigned char* rest = Move(2);
    return CheckedIndex((((first & 0x0Fu) << 16) | (rest[0] << 8) | rest[1]) + 129,
                        L"Invalid length of a sequence.");
}

namespace {
uint64_t BigEndian32(const unsigned char* octets) {
    return (uint64_t(octets[0]) << 24) | (uint64_t(octets[1]) << 16) | (uint64_t(octets[2]) << 8) | octets[3];
}
} // namespace

uint64_t CFastInfosetReader::NonEmptyOctetStringBit2Length(unsigned char first) {
    if (!(first & 0x40)) return (first & 0x3Fu) + 1;
    if ((first & 0x7F) == 0x40) return Next() + 65u;
    if ((first & 0x7F) != 0x60) Fail(L"Invalid NonEmptyOctetString type  on the second bit of an octet.");
    return BigEndian32(Move(4)) + 321;
}

uint64_t CFastInfosetReader::NonEmptyOctetStringBit5Length(unsigned char first) {
    if (!(first & 0x08)) return (first & 0x07u) + 1;
    if ((first & 0x0F) == 0x08) return Next() + 9u;
    if ((first & 0x0F) != 0x0C) Fail(L"Invalid NonEmptyOctetString type  on the fifth bit of an octet.");
    return BigEndian32(Move(4)) + 265;
}

uint64_t CFastInfosetReader::NonEmptyOctetStringBit7Length(unsigned char first) {
    if (!(first & 0x02)) return (first & 0x01u) + 1;
    if ((first & 0x03) == 0x02) return Next() + 3u;
    return BigEndian32(Move(4)) + 259;
}

} // namespace QxXmlLib16
