#pragma once

#include <QxXmlLib16/fastinfoset/FIVocabulary.h>
#include <QxXmlLib16/fastinfoset/FastInfosetBinaryData.h>
#include <QxXmlLib16/fastinfoset/FastInfosetContext.h>
#include <QxXmlLib16/foundation/BinaryStream.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace QxXmlLib16 {

namespace internal {
class CIndexTable;
}

// Writes a Fast Infoset document (ITU-T X.891) into a binary stream it does not own, from the same
// calls that the XML text writer takes. Repeated names, and attribute values and texts shorter
// than the context's max add lengths, are written once and then referred to by index.
//
// An element's start is held back until its first content, child or end: its attributes, and the
// namespace declarations they need, are then written together with it.
class QX_API CFastInfosetWriter : public CXmlWriter {
public:
    // The context is referenced, not copied, and must outlive the writer.
    CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream& stream);
    ~CFastInfosetWriter() override;

    // Hands everything written to the stream, then throws "An Element has not been closed." if
    // one is still open.
    void Close() override;
    // The XML declaration of the given kind (none for fidNone), the identification and the
    // optional components. Throws CQxInvalidParamException for a value outside FInfoDecl.
    void WriteStartDocument(FInfoDecl declaration);
    // Terminates the document.
    void WriteEndDocument();
    // Comments and processing instructions are not transmitted; they only complete a pending
    // element start.
    void WriteComment(const std::wstring& text) override;
    void WritePI(const std::wstring& text) override;
    // Text for an XML start tag; it has no Fast Infoset form and is left out.
    void WriteInlineSchema(const std::wstring& text) override;
    void WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) override;
    // Empty text writes nothing, and neither does a default value unless default values are
    // written. Text starting with "<![CDATA[" is written as its sections, each through the cdata
    // algorithm.
    void WriteString(const std::wstring& text, ItemType type, bool isDefaultValue) override;
    // Throws "No Element is open." when there is nothing to end.
    void WriteEndElement() override;
    // The attribute operations throw "Attributes must be added before elements" once the
    // element's content has begun.
    void WriteAttributeString(const std::wstring& localName, const std::wstring& namespaceURI,
                              const std::wstring& value, ItemType type) override;
    void WriteAttributeType(const std::wstring& typeNamespace, const std::wstring& typeName,
                            ItemType type) override;
    void WriteAttributeNil() override;

    bool GetWriteDefaultElementValues() const { return m_writeDefaultElementValues; }
    void SetWriteDefaultElementValues(bool write) { m_writeDefaultElementValues = write; }

protected:
    // The standard's constructs, each named after the bit of the octet on which it starts. leading
    // holds the bits of the first octet that precede the construct. The octet-string forms write
    // only the length when octets is null, for the caller to write the octets.
    void NonEmptyOctetUTF8StringBit2(unsigned char leading, const std::wstring& text);
    void NonEmptyOctetStringBit5(unsigned char leading, const unsigned char* octets, size_t length);
    void NonEmptyOctetStringBit7(unsigned char leading, const unsigned char* octets, size_t length);
    void Integer0To2pw20Bit2(unsigned char leading, uint32_t value);
    void Integer1To2pw20Bit2(unsigned char leading, uint32_t value);
    void Integer1To2pw20Bit3(unsigned char leading, uint32_t value);
    void Integer1To2pw20Bit4(unsigned char leading, uint32_t value);
    // An attribute name: an index into the attribute-name table, or literal parts.
    void QualifiedNameOrIndexBit2(const std::wstring& prefix, const std::wstring& namespaceURI,
                                  const std::wstring& localName);
    // An element name after the leading bits of the element's octet.
    void QualifiedNameOrIndexBit3(unsigned char leading, const std::wstring& prefix,
                                  const std::wstring& namespaceURI, const std::wstring& localName);
    // An attribute value: the empty string, an index, or a literal (added below the max add length).
    void NonIdentifyingStringOrIndexBit1(const std::wstring& text, ItemType type);
    // A character chunk (after the chunk's '10').
    void NonIdentifyingStringOrIndexBit3(const std::wstring& text, ItemType type);
    // The literal of a text in the given encoding (an item type's, from the context).
    void EncodedCharacterStringBit3(unsigned char leading, const wchar_t* text, size_t length,
                                    CFastInfosetContext::EncodedCharacterString encoding);
    void EncodedCharacterStringBit5(unsigned char leading, const wchar_t* text, size_t length,
                                    CFastInfosetContext::EncodedCharacterString encoding);
    // Packs the characters' positions in the alphabet (4 or 8 bits each) into octets.
    static void AppendRestrictedAlphabetString(const std::wstring& alphabet, const wchar_t* text,
                                               size_t length, std::vector<unsigned char>& octets);
    // Writes the pending start of the open element, with its namespace declarations and
    // attributes.
    void WriteElement();
    // Hands the octets written so far to the stream.
    void Flush();

private:
    struct PendingAttribute {
        std::wstring prefix, namespaceURI, localName, value;
        ItemType type;
    };
    // One text's octets in its encoding, and the encoding's discriminant and table index.
    struct Encoded {
        unsigned char discriminant; // 0 UTF-8, 2 restricted alphabet, 3 encoding algorithm
        unsigned index;             // of the alphabet or algorithm, from 1
        const unsigned char* octets;
        size_t length;
    };

    typedef void (CFastInfosetWriter::*OctetStringForm)(unsigned char, const unsigned char*, size_t);
    void EncodedCharacterString(unsigned char leading, unsigned shift, OctetStringForm form,
                                const Encoded& encoded, const wchar_t* text, size_t length);
    void Put(unsigned char octet) {
        if (m_length == m_capacity) Room(1);
        m_octets[m_length++] = octet;
    }
    // Room for count more octets after the written ones.
    unsigned char* Room(size_t count);
    void PutOctets(const unsigned char* octets, size_t length);
    void PutLength32(uint64_t length);
    void PutUtf8(const wchar_t* text, size_t length);
    Encoded Encode(const wchar_t* text, size_t length, CFastInfosetContext::EncodedCharacterString encoding,
                   const wchar_t* unknownKindMessage);
    // The item type's encoding, or UTF-8 where the value does not fit the chosen algorithm.
    CFastInfosetContext::EncodedCharacterString EncodingOf(ItemType type, const std::wstring& text) const;
    bool IdentifyingStringOrIndex(const std::wstring& text, CFIVocabulary::CFIStringTable& table);
    void LiteralQualifiedName(const std::wstring& prefix, const std::wstring& namespaceURI,
                              const std::wstring& localName, internal::CIndexTable& names);
    void WriteTerminationIfPending();
    void WriteCdataChunk(const wchar_t* text, size_t length);
    void Declare(const std::wstring& prefix, const std::wstring& namespaceURI);
    void FlushIfFull();

    const CFastInfosetContext& m_context;
    CBinaryStream& m_stream;
    // The writer only looks strings up by value: it keeps tables of its own for the names and
    // values it writes most, and uses its vocabulary for the parts of names and the alphabets.
    CFIVocabulary m_vocabulary;
    std::unique_ptr<internal::CIndexTable> m_elementNames;
    std::unique_ptr<internal::CIndexTable> m_attributeNames;
    std::unique_ptr<internal::CIndexTable> m_attributeValues;
    std::unique_ptr<internal::CIndexTable> m_characterChunks;
    bool m_pendingTermination;
    bool m_writeDefaultElementValues;
    CFastInfosetContext::EncodedCharacterString m_encodings[CFastInfosetContext::kItemTypeCount];
    // Written, not yet handed to the stream. Kept by hand: a vector would zero the octets it grows
    // by before they are written.
    std::unique_ptr<unsigned char[]> m_octets;
    size_t m_length;
    size_t m_capacity;

    // The open element's start while it is pending: its prefix, the declarations it needs (prefix
    // and URI; an empty prefix declares the default namespace) and its attributes. The storage is
    // reused from element to element.
    bool m_startPending;
    std::wstring m_elementPrefix;
    std::vector<std::pair<std::wstring, std::wstring>> m_declarations;
    size_t m_declarationCount;
    std::vector<PendingAttribute> m_attributes;
    size_t m_attributeCount;

    std::vector<unsigned char> m_literal; // octets of an alphabet or algorithm literal, reused
    CFastInfosetBinaryData m_algorithmOctets;
};

} // namespace QxXmlLib16
