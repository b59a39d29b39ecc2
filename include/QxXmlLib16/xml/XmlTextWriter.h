#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/xml/TextWriterBase.h>

#include <cstddef>
#include <string>
#include <vector>

namespace QxXmlLib16 {

// Writes XML text into a stream it does not own. A start tag stays open until content or a child
// follows, so that attributes can still be added and an element without content is written "<e/>".
class QX_API CXmlTextWriter : public CTextWriterBase {
public:
    explicit CXmlTextWriter(CTextStream& stream);
    ~CXmlTextWriter() override;

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
    // xmlns:prefix="uri"
    void WriteDeclaration(const std::wstring& prefix, const std::wstring& namespaceURI);

    bool m_writeDefaultElementValues;
    bool m_rootStarted;
    // "</qname>" of each open element by depth, made when its start tag is written, so that the
    // end tag needs no namespace lookup; the strings are reused from element to element.
    std::vector<std::wstring> m_endTags;
};

} // namespace QxXmlLib16
