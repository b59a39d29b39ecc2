#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/json/JsonContext.h>
#include <QxXmlLib16/xml/TextWriterBase.h>

#include <string>
#include <vector>

namespace QxXmlLib16 {

// Writes the element, attribute and text calls of a serialization as JSON text: the document is an
// object whose one member is the root element; an element with attributes or children is an object,
// one with only a value is a plain member; repeated elements written as a collection become an array
// under one key. Numbers and booleans are JSON literals, everything else strings. The round-trip
// level decides the keys of attributes and text and whether namespaces are kept.
//
// At level 2 every namespace below the root needs a prefix declared on the root (through the
// serialization context's namespace aliases): JSON has no place to declare one further down.
class QX_API CJsonTextWriter : public CTextWriterBase {
public:
    explicit CJsonTextWriter(CTextStream& stream);
    ~CJsonTextWriter() override;

    // "/* text */" and a line end; nothing when escaping as RFC 8259 requires, which has no comments.
    void WriteComment(const std::wstring& text) override;
    // Neither has a JSON form.
    void WritePI(const std::wstring& text) override;
    void WriteInlineSchema(const std::wstring& text) override;
    // Throws "Unknown Namespace: %ls." at level 2 for an element below the root whose namespace has
    // no prefix in force.
    void WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) override;
    // The element's value, or its "#text" member once it has attributes or children (empty text is
    // then left out). Throws CQxInvalidStateException when the element already has a value.
    void WriteString(const std::wstring& text, ItemType type, bool isDefaultValue) override;
    // An element that received nothing is written null when nil and {} otherwise. Throws "No Element
    // is open." when there is nothing to end.
    void WriteEndElement() override;
    // Throws "Attributes must be added before elements" after the element's value or children, and
    // "Unknown Namespace: %ls." at level 2 for a namespace without a prefix in force.
    void WriteAttributeString(const std::wstring& localName, const std::wstring& namespaceURI,
                              const std::wstring& value, ItemType type) override;
    // xsi:type, with the type's prefix at level 2.
    void WriteAttributeType(const std::wstring& typeNamespace, const std::wstring& typeName,
                            ItemType type) override;
    // Marks the element nil: it is written null, or with "#text": null when it has attributes.
    void WriteAttributeNil() override;

    // The braces of the outer object.
    void WriteStartDocument();
    void WriteEndDocument();

    JsonRoundTrip GetSupportRoundtrip() const { return m_supportRoundtrip; }
    // Throws CQxInvalidParamException "Invalid JSON round-trip level [%d]." outside the enumeration.
    void SetSupportRoundtrip(JsonRoundTrip level);
    // See CJsonContext::SetRfc8259Escaping (default off).
    bool GetRfc8259Escaping() const { return m_rfc8259Escaping; }
    void SetRfc8259Escaping(bool escape) { m_rfc8259Escaping = escape; }

    // The integer, floating-point, decimal and boolean kinds as JSON literals when the text is one;
    // everything else as a string.
    void WriteValue(const std::wstring& text, ItemType type);
    // The characters of a string between its quotes.
    void PadAndAppend(const wchar_t* text);

private:
    // What has been written of an element's value.
    enum class Value : unsigned char {
        Pending, // the key alone
        Scalar,  // a plain value after the key
        Object,  // its object, opened by a first attribute or child
    };
    // What the writer keeps of an open element beyond its context, by the element's depth.
    struct Level {
        int indent;                           // the element's JSON nesting, for indentation
        Value value;                          //
        bool arrayOpen;                       // the array of its repeated children has been opened
        bool nil;                             //
        bool hasContent;                      // a child element has been written
        std::wstring itemName, itemNamespace; // the name of the open array's items
    };

    void Escape(const wchar_t* text, size_t length);
    Level& LevelOf(const CXmlWriterContext& context) {
        return m_levels[static_cast<size_t>(context.GetDepth())];
    }
    // The open element, or throws message when there is none.
    CXmlWriterContext& Current(const wchar_t* message);
    // Opens the array of the parent's repeated children when context is its first item.
    void BeginValue(CXmlWriterContext& context);
    // Opens the element's object, or separates a further member.
    void WriteOpenBrackets(CXmlWriterContext& context);
    // WriteOpenBrackets, then the indentation of an attribute or declaration member.
    void StartMember(CXmlWriterContext& context);
    void CloseArray(CXmlWriterContext& context);
    // "marker prefix:name": as a key.
    void WriteKey(const wchar_t* marker, const std::wstring& prefix, const std::wstring& name);
    void WriteName(const std::wstring& name);
    void WriteQuoted(const std::wstring& text);
    // The prefix in force for namespaceURI, or throws "Unknown Namespace: %ls." with localName.
    const std::wstring& BoundPrefix(const CXmlWriterContext& context, const std::wstring& namespaceURI,
                                    const std::wstring& localName) const;
    // "@xmlns:prefix": "uri" (or "@xmlns" for an empty prefix) as a member of the element's object.
    void WriteDeclaration(CXmlWriterContext& context, const std::wstring& prefix,
                          const std::wstring& namespaceURI);

    JsonRoundTrip m_supportRoundtrip;
    bool m_rfc8259Escaping;
    std::vector<Level> m_levels;
};

} // namespace QxXmlLib16
