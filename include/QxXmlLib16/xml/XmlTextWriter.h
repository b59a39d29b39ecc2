#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <cstddef>
#include <string>
#include <vector>

namespace QxXmlLib16 {

// Writes XML text into a stream it does not own, flushing it whenever 4096 or more characters wait.
// A start tag stays open until content or a child follows, so that attributes can still be added
// and an element without content is written "<e/>".
class QX_API CXmlTextWriter : public CXmlWriter {
public:
    explicit CXmlTextWriter(CTextStream& stream);
    ~CXmlTextWriter() override;

    void Open() override;
    // Closes the stream, then throws "An Element has not been closed." if one is still open.
    void Close() override;
    void WriteComment(const std::wstring& text) override;
    // The text as given, then two line ends.
    void WritePI(const std::wstring& text) override;
    void WriteInlineSchema(const std::wstring& text) override;
    void WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) override;
    // Empty text writes nothing, and so does a default value unless default values are written.
    // Text starting with "<![CDATA[" is written as given.
    void WriteString(const std::wstring& text, ItemType type, bool isDefaultValue) override;
    // Throws "No Element is open." when there is nothing to end.
    void WriteEndElement() override;
    // The attribute operations throw "Attributes must be added before elements" once the start tag
    // has been closed by content or a child.
    void WriteAttributeString(const std::wstring& localName, const std::wstring& namespaceURI,
                              const std::wstring& value, ItemType type) override;
    // xsi:type with the type's QName.
    void WriteAttributeType(const std::wstring& typeNamespace, const std::wstring& typeName,
                            ItemType type) override;
    // xsi:nil="true".
    void WriteAttributeNil() override;

    // Line ends and indentation (default on).
    bool GetFormat() const { return m_format; }
    void SetFormat(bool format) { m_format = format; }
    EOLType GetEOLType() const { return m_eolType; }
    // Throws "Invalid EOL type." for a value other than eolCRLF and eolLF.
    void SetEOLType(EOLType type);
    const std::wstring& GetIndentChars() const { return m_indentChars; }
    // Written once per level; null counts as empty.
    void SetIndentChars(const wchar_t* indent);
    bool GetWriteDefaultElementValues() const { return m_writeDefaultElementValues; }
    void SetWriteDefaultElementValues(bool write) { m_writeDefaultElementValues = write; }

    // The XML declaration, naming the stream's encoding when it is UTF-8 or UTF-16.
    void WriteStartDocument();
    // Text as given before the root element. Throws "Headed directives must appear before an
    // Element has been added." once an element has been started.
    void WriteHeaderDirective(const std::wstring& text);
    void WriteRawElement(const std::wstring& text);
    // Counts a child of the open element and closes its start tag if still open.
    void CloseParentElm();
    // Escaped text: &, < and > always; in attributes also the double quote and line feed; carriage
    // returns are dropped.
    void PadAndAppend(const wchar_t* text, bool inAttribute);

private:
    void Escape(const wchar_t* text, size_t length, bool inAttribute);
    void WriteIndent(int depth);
    void WriteEol();
    // xmlns:prefix="uri"
    void WriteDeclaration(const std::wstring& prefix, const std::wstring& namespaceURI);
    void FlushIfFull();

    bool m_writeDefaultElementValues;
    std::wstring m_indentChars;
    std::wstring m_indentRun; // the indentation repeated, so that any depth is one append
    std::wstring m_eol;
    EOLType m_eolType;
    bool m_format;
    CTextStream& m_stream;
    bool m_rootStarted;
    // "</qname>" of each open element by depth, made when its start tag is written, so that the
    // end tag needs no namespace lookup; the strings are reused from element to element.
    std::vector<std::wstring> m_endTags;
};

} // namespace QxXmlLib16
