#pragma once

#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/json/JsonReaderHandler.h>
#include <QxXmlLib16/values/BinaryData.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace QxXmlLib16 {

// Reads JSON text and reports it as events to a handler chain whose first link,
// CJsonReaderDefaultHandler, tracks the path for error messages. Any error is a
// CQxValidationException with the line and the position in the line (both counted from 1; a line
// feed ends a line) and the path. Nesting is followed with a stack of its own, never by recursion,
// so the depth limit (100 values by default) is a policy, not a protection of the call stack.
//
// As established for this format: a line feed is never part of what is read, not even inside a
// string (write "\n" for one); comments (/* */ and //) may stand wherever blanks may, unless they
// are switched off; numbers are passed on as written, leading zeros included.
class QX_API CJsonTextReader : public CInstanceMonitor {
public:
    // The text must outlive the reader.
    explicit CJsonTextReader(const std::wstring& text);
    ~CJsonTextReader() override;
    CJsonTextReader(const CJsonTextReader&) = delete;
    CJsonTextReader& operator=(const CJsonTextReader&) = delete;

    // Becomes the inner handler of the default handler; not owned.
    void SetJsonReaderHandler(IJsonReaderHandler* handler);
    IErrorPathProvider& GetErrorPathProvider();

    int GetMaxDepth() const { return m_maxDepth; }
    void SetMaxDepth(int depth) { m_maxDepth = depth; }
    bool GetAllowComments() const { return m_allowComments; }
    void SetAllowComments(bool allow) { m_allowComments = allow; }
    const std::wstring& GetRootElementName() const { return m_rootElementName; }
    // When set, the whole JSON value is reported as the value of a member of this name inside an
    // object of its own. Null sets "".
    void SetRootElementName(const wchar_t* name) { m_rootElementName = name ? name : L""; }

    // Reads the whole text: one value, then nothing but blanks and comments.
    void Read();

    // The JSON as UTF-8 XML text, with the round-trip level, comment switch and root element name
    // of the context's JSON options.
    static CBinaryData ConvertJsonToXml(const std::wstring& json, const CSerializationContext& context);

private:
    enum Container : unsigned char { kObject, kArray };

    // Takes the next character into the current one; false at the end of the text. Line feeds are
    // counted and passed over; with skipWhitespace so are blanks and comments.
    bool ReadNextChar(bool skipWhitespace);
    // At a "/": passes over the comment it starts and returns true, or returns false.
    bool SkipComments();
    // Moves to position, counting the line feeds on the way.
    void AdvanceTo(size_t position);
    // Reads a whole value from its first character, nesting included.
    void ReadValue(int depth);
    // From the quotation mark of a member's name to the first character of its value.
    void ReadMemberStart();
    // A string from its opening quotation mark into the buffer.
    void ReadString();
    void ReadNumber();
    void ReadUnicodeEscape();
    // The rest of true, false or null after its first character.
    void ReadLiteral(const wchar_t* literal);
    // Appends the digits that follow, without taking the character after them.
    void ReadDigits();
    void ReadDigit(const wchar_t* endOfFileMessage);
    // Throws the message of format, filled with args and the line and position, and the path.
    template <class... Args>
    [[noreturn]] void Fail(const wchar_t* format, Args... args) const;

    std::unique_ptr<CJsonReaderDefaultHandler> m_handler;
    int m_maxDepth;
    bool m_allowComments;
    std::wstring m_rootElementName;
    const std::wstring& m_text;
    size_t m_position; // of the next character
    wchar_t m_current;
    bool m_eof;
    long m_line;
    long m_linePosition;
    std::wstring m_buffer;               // the name, string or number read last, reused
    std::vector<Container> m_containers; // open objects and arrays, innermost last
};

} // namespace QxXmlLib16
