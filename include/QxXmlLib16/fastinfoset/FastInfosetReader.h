#pragma once

#include <QxXmlLib16/fastinfoset/FIVocabulary.h>
#include <QxXmlLib16/fastinfoset/FastInfosetContext.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace QxXmlLib16 {

class CXmlDocument;
class CXmlElement;

// Builds a document's tree from a Fast Infoset document (ITU-T X.891) in memory. Elements,
// attributes, namespace declarations and character content are kept; comments, processing
// instructions, document type declarations, entity references and the header's optional
// components are read past. Any nesting depth is read without recursion. Malformed input throws a
// CQxException (mostly "Failed to parse FastInfoset. ..."); the reader never reads past the input.
class QX_API CFastInfosetReader : public CInstanceMonitor {
public:
    // Both are referenced, not copied, and must outlive the reader.
    CFastInfosetReader(const CFastInfosetContext& context, CXmlDocument& document);
    ~CFastInfosetReader() override;
    CFastInfosetReader(const CFastInfosetReader&) = delete;
    CFastInfosetReader& operator=(const CFastInfosetReader&) = delete;

    // Reads the document's input. False, with nothing read, when the input does not start with a
    // Fast Infoset header; true once the whole document is in the tree.
    bool Parse();
    // The same for the given octets, the document's input or not.
    bool Parse(const unsigned char* data, size_t length);
    // Releases the scratch storage.
    void Cleanup();

protected:
    // The standard's integer, length and string forms, each named after the bit of the octet on
    // which it starts. The first octet of a form has been read already and is passed in; further
    // octets come from the input.
    uint32_t Integer0To2pw20Bit2(unsigned char first);
    uint32_t Integer1To2pw20Bit2(unsigned char first);
    uint32_t Integer1To2pw20Bit3(unsigned char first);
    uint32_t Integer1To2pw20Bit4(unsigned char first);
    uint32_t LengthOfSequence(unsigned char first);
    uint64_t NonEmptyOctetStringBit2Length(unsigned char first);
    uint64_t NonEmptyOctetStringBit5Length(unsigned char first);
    uint64_t NonEmptyOctetStringBit7Length(unsigned char first);
    // Makes data the input, positioned at its start.
    void SetInput(const unsigned char* data, size_t length);
    // Advances by count octets and returns the first of them; throws "Failed to parse FastInfoset.
    // Unexpected End of File." when fewer remain.
    const unsigned char* Move(size_t count);
    unsigned char Next() { return *Move(1); }

private:
    // A name, interned in the document.
    struct Name {
        const std::wstring* namespaceURI;
        const std::wstring* localName;
    };

    bool CheckHeader();
    bool CheckDeclaration();
    void ReadHeader();
    void ReadOptionalData(unsigned char components);
    void AdditionalData();
    void InitialVocabulary();
    void Notations();
    void UnparsedEntities();
    void CharacterEncodingScheme();
    void Standalone();
    void Version();
    void ReadChildren();
    // An element's start: namespace attributes, name, attributes. False when the attribute list
    // ended the element too.
    bool ElementBit2(unsigned char first);
    void AtrributeBit2(CXmlElement* element, unsigned char first);
    void NamespaceAttributeBit7(unsigned char first);
    Name QualifiedNameOrIndexBit2(unsigned char first);
    Name QualifiedNameOrIndexBit3(unsigned char first);
    // A literal qualified name with the given presence bits, appended to the name table.
    Name ReadQName(unsigned char presence, CFIVocabulary::CFIQNameTable& table, std::vector<Name>& names);
    Name NameAt(uint32_t index, const CFIVocabulary::CFIQNameTable& table, std::vector<Name>& names,
                const wchar_t* what);
    // An attribute value (or another string on the first bit): its table entry, or the literal
    // decoded into m_text. table is null for strings that are not kept.
    const std::wstring& NonIdentifyingStringOrIndexBit1(unsigned char first,
                                                        CFIVocabulary::StringVector* table);
    // A character chunk, likewise.
    const std::wstring& NonIdentifyingStringOrIndexBit3(unsigned char first);
    // An identifying string into m_text: an index into table, or a literal appended to it (table
    // null: read past). Returns the string's index, 0 when a full table took no literal.
    uint32_t IdentifyingStringOrIndex(unsigned char first, CFIVocabulary::StringVector* table);
    // Literals decoded into m_text.
    void EncodedCharacterStringBit3(unsigned char first);
    void EncodedCharacterStringBit5(unsigned char first);
    void EncodedCharacterString(unsigned char first, unsigned shift,
                                uint64_t (CFastInfosetReader::*length)(unsigned char));
    void NonEmptyOctetUTF8String(const unsigned char* octets, size_t length);
    void NonEmptyOctetUTF16BEString(const unsigned char* octets, size_t length);
    void NonEmptyOctetRestrictedAlphabetString(unsigned alphabet, const unsigned char* octets, size_t length);
    void NonEmptyOctetEncryptedString(unsigned algorithm, const unsigned char* octets, size_t length);
    void ProcessingInstruction();
    void Comment();
    void DocumentTypeDeclaration(unsigned char first);
    void UnexpandedEntityReference(unsigned char first);
    const std::wstring& StringAt(uint32_t index, const CFIVocabulary::StringVector& table,
                                 const wchar_t* what);
    // Opens an element under the current one (or as the document element).
    CXmlElement* OpenElement(const Name& name);
    void CloseElement();
    // Text is gathered per open element and stored whole when it ends: an element whose text
    // comes in many chunks (such as indentation between children) then costs no more than one.
    void AppendText(const std::wstring& text);
    // Stores the gathered text of the open elements from the given depth down.
    void FlushPendingText(size_t from);

    const CFastInfosetContext& m_context;
    CXmlDocument& m_document;
    const unsigned char* m_position;
    const unsigned char* m_end;
    std::unique_ptr<CFIVocabulary> m_vocabulary;
    // The last string read, decoded.
    std::wstring m_text;
    // Set when an octet FF closed an element and its parent together.
    bool m_pendingTermination;
    // The names of the element- and attribute-name tables, interned, by index - 1; filled as they
    // are first used.
    std::vector<Name> m_elementNames;
    std::vector<Name> m_attributeNames;
    std::vector<std::wstring> m_pendingText; // by depth, reused from element to element
    std::vector<unsigned short> m_utf16;     // UTF-16 decoding, reused
};

} // namespace QxXmlLib16
