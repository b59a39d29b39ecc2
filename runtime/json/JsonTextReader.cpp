#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/json/JsonReaderToXmlHandler.h>
#include <QxXmlLib16/json/JsonTextReader.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include "foundation/EncodingTextStream.h"

#include <cwchar>

namespace QxXmlLib16 {

namespace {

const int kDefaultMaxDepth = 100;

const wchar_t* const kDepthExceeded = L"JSON exceeded depth limit at line %ld, position %ld.";
const wchar_t* const kExpectedValue =
    L"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', "
    L"found '%lc' at line %ld, position %ld.";
const wchar_t* const kExpectedName =
    L"Expected quotation mark character '\"' before Name, found '%lc' at line %ld, position %ld.";
const wchar_t* const kExpectedNameSeparator =
    L"Expected Object Name/Value separator character ':', found '%lc' at line %ld, position %ld.";
const wchar_t* const kEndInNameSeparator =
    L"Unexpected End of File. Expected Object Name/Value separator character ':' at line %ld, position %ld.";
const wchar_t* const kEndBeforeMemberValue =
    L"Unexpected End of File. Expected Object Value at line %ld, position %ld.";
const wchar_t* const kExpectedObjectSeparator =
    L"Expected Object separator character ',', found '%lc' at line %ld, position %ld.";
const wchar_t* const kEndInObject =
    L"Unexpected End of File. Expected Object terminator character '}' at line %ld, position %ld.";
// The doubled brace belongs to the message.
const wchar_t* const kEndAfterObjectStart =
    L"Unexpected End of File. Expected Object terminator character '}}' at line %ld, position %ld.";
const wchar_t* const kExpectedArraySeparator =
    L"Expected Array separator character ',', found '%lc' at line %ld, position %ld.";
const wchar_t* const kEndInArray =
    L"Unexpected End of File. Expected Array terminator character ']' at line %ld, position %ld.";
// So is the missing blank before the quotation mark.
const wchar_t* const kEndInUnicodeEscape =
    L"Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line %ld, position %ld.";
const wchar_t* const kExpectedHexDigit =
    L"Expected 4 hexadecimal digits'\\uxxxx', found '%lc' at line %ld, position %ld.";
const wchar_t* const kInvalidEscape = L"Invalid Escape Character '%lc' at line %ld, position %ld.";
const wchar_t* const kEndInString =
    L"Unexpected End of File. Expected string value at line %ld, position %ld.";
const wchar_t* const kExpectedDigit = L"Expected a digit '0' to '9', found '%lc' at line %ld, position %ld.";
const wchar_t* const kEndBeforeDigit =
    L"Unexpected End of File. Expected a digit '0' to '9' at line %ld, position %ld.";
const wchar_t* const kEndInExponent =
    L"Unexpected End of File. Expected '+', '-' or a number at line %ld, position %ld.";
const wchar_t* const kEndBeforeExponentDigit =
    L"Unexpected End of File. Expected a number at line %ld, position %ld.";
const wchar_t* const kExpectedLiteral = L"Expected '%ls', found '%lc' at line %ld, position %ld.";
const wchar_t* const kEndInLiteral = L"Unexpected End of File. Expected '%ls' at line %ld, position %ld.";
const wchar_t* const kExpectedEnd = L"Expected End of File, found '%lc' at line %ld, position %ld.";

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

int HexValue(wchar_t c) {
    if (IsDigit(c)) return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

// The value of four hexadecimal digits at text, or -1.
long HexCodeUnit(const wchar_t* text) {
    long value = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = HexValue(text[i]);
        if (digit < 0) return -1;
        value = value * 16 + digit;
    }
    return value;
}

} // namespace

CJsonTextReader::CJsonTextReader(const std::wstring& text)
    : CInstanceMonitor(L"CJsonTextReader")
    , m_handler(new CJsonReaderDefaultHandler)
    , m_maxDepth(kDefaultMaxDepth)
    , m_allowComments(true)
    , m_text(text)
    , m_position(0)
    , m_current(0)
    , m_eof(false)
    , m_line(1)
    , m_linePosition(0) {}

CJsonTextReader::~CJsonTextReader() = default;

void CJsonTextReader::SetJsonReaderHandler(IJsonReaderHandler* handler) {
    m_handler->SetInnerHandler(handler);
}

IErrorPathProvider& CJsonTextReader::GetErrorPathProvider() {
    return *m_handler;
}

template <class... Args>
void CJsonTextReader::Fail(const wchar_t* format, Args... args) const {
    CQxValidationException error(FormatString(format, args..., m_line, m_linePosition), m_handler->GetPath());
    // At the end of a line the position is 0; the column then names the line's first character.
    error.SetPosition(static_cast<unsigned long>(m_line),
                      static_cast<unsigned long>(m_linePosition > 0 ? m_linePosition : 1));
    throw error;
}

// ---- Characters --------------------------------------------------------------------------------

void CJsonTextReader::AdvanceTo(size_t position) {
    for (; m_position < position; ++m_position) {
        if (m_text[m_position] == L'\n') {
            ++m_line;
            m_linePosition = 0;
        } else {
            ++m_linePosition;
        }
    }
}

bool CJsonTextReader::ReadNextChar(bool skipWhitespace) {
    const size_t length = m_text.size();
    while (m_position < length) {
        const wchar_t c = m_text[m_position++];
        if (c == L'\n') {
            ++m_line;
            m_linePosition = 0;
            continue;
        }
        ++m_linePosition;
        m_current = c;
        if (!skipWhitespace) return true;
        if (CWhitespaceUtils::IsWhiteSpace(c)) continue;
        if (c == L'/' && m_allowComments && SkipComments()) continue;
        return true;
    }
    m_eof = true;
    return false;
}

bool CJsonTextReader::SkipComments() {
    if (m_position >= m_text.size()) return false;
    const wchar_t next = m_text[m_position];
    size_t end;
    if (next == L'/') {
        end = m_text.find(L'\n', m_position);
        AdvanceTo(end == std::wstring::npos ? m_text.size() : end + 1);
        return true;
    }
    if (next == L'*') {
        end = m_text.find(L"*/", m_position + 1);
        AdvanceTo(end == std::wstring::npos ? m_text.size() : end + 2);
        return true;
    }
    return false;
}

// ---- Grammar -----------------------------------------------------------------------------------

void CJsonTextReader::Read() {
    m_position = 0;
    m_eof = false;
    m_line = 1;
    m_linePosition = 0;
    m_containers.clear();
    m_handler->ReadStartDocument();
    const bool wrapped = !m_rootElementName.empty();
    if (wrapped) {
        m_handler->ReadStartObject();
        m_handler->ReadName(m_rootElementName);
    }
    if (ReadNextChar(true)) {
        ReadValue(0);
        if (ReadNextChar(true)) Fail(kExpectedEnd, static_cast<wint_t>(m_current));
    }
    if (wrapped) m_handler->ReadEndObject();
    m_handler->ReadEndDocument();
}

void CJsonTextReader::ReadValue(int depth) {
    const size_t outer = m_containers.size();
    for (;;) {
        // At the first character of a value, inside the containers opened since the call.
        if (depth + static_cast<long>(m_containers.size() - outer) + 1 > m_maxDepth) Fail(kDepthExceeded);
        switch (m_current) {
        case L'{':
            m_handler->ReadStartObject();
            if (!ReadNextChar(true)) Fail(kEndAfterObjectStart);
            if (m_current != L'}') {
                m_containers.push_back(kObject);
                ReadMemberStart();
                continue;
            }
            m_handler->ReadEndObject();
            break;
        case L'[':
            m_handler->ReadStartArray();
            if (!ReadNextChar(true)) Fail(kEndInArray);
            if (m_current != L']') {
                m_containers.push_back(kArray);
                continue;
            }
            m_handler->ReadEndArray();
            break;
        case L'"':
            ReadString();
            m_handler->ReadString(m_buffer);
            break;
        case L't':
            ReadLiteral(L"true");
            m_handler->ReadBool(true);
            break;
        case L'f':
            ReadLiteral(L"false");
            m_handler->ReadBool(false);
            break;
        case L'n':
            ReadLiteral(L"null");
            m_handler->ReadNull();
            break;
        default:
            if (m_current != L'-' && !IsDigit(m_current))
                Fail(kExpectedValue, static_cast<wint_t>(m_current));
            ReadNumber();
            m_handler->ReadNumber(m_buffer);
        }
        // A value is complete: end the containers it completes, up to the next value.
        for (;;) {
            if (m_containers.size() == outer) return;
            const bool inObject = m_containers.back() == kObject;
            if (!ReadNextChar(true)) Fail(inObject ? kEndInObject : kEndInArray);
            if (m_current == (inObject ? L'}' : L']')) {
                m_containers.pop_back();
                if (inObject)
                    m_handler->ReadEndObject();
                else
                    m_handler->ReadEndArray();
                continue;
            }
            if (m_current != L',')
                Fail(inObject ? kExpectedObjectSeparator : kExpectedArraySeparator,
                     static_cast<wint_t>(m_current));
            if (!ReadNextChar(true)) Fail(inObject ? kEndInObject : kEndInArray);
            if (inObject) ReadMemberStart();
            break;
        }
    }
}

void CJsonTextReader::ReadMemberStart() {
    if (m_current != L'"') Fail(kExpectedName, static_cast<wint_t>(m_current));
    ReadString();
    m_handler->ReadName(m_buffer);
    if (!ReadNextChar(true)) Fail(kEndInNameSeparator);
    if (m_current != L':') Fail(kExpectedNameSeparator, static_cast<wint_t>(m_current));
    if (!ReadNextChar(true)) Fail(kEndBeforeMemberValue);
}

void CJsonTextReader::ReadString() {
    m_buffer.clear();
    const size_t length = m_text.size();
    for (;;) {
        // The plain characters up to the next quotation mark, backslash or line feed, in one piece.
        const size_t start = m_position;
        while (m_position < length) {
            const wchar_t c = m_text[m_position];
            if (c == L'"' || c == L'\\' || c == L'\n') break;
            ++m_position;
        }
        m_buffer.append(m_text, start, m_position - start);
        m_linePosition += static_cast<long>(m_position - start);
        if (!ReadNextChar(false)) Fail(kEndInString);
        if (m_current == L'"') return;
        if (m_current != L'\\') {
            m_buffer += m_current; // the character after a dropped line feed
            continue;
        }
        if (!ReadNextChar(false)) Fail(kEndInString);
        switch (m_current) {
        case L'"':
        case L'\\':
        case L'/':
            m_buffer += m_current;
            break;
        case L'b':
            m_buffer += L'\b';
            break;
        case L'f':
            m_buffer += L'\f';
            break;
        case L'n':
            m_buffer += L'\n';
            break;
        case L'r':
            m_buffer += L'\r';
            break;
        case L't':
            m_buffer += L'\t';
            break;
        case L'u':
            ReadUnicodeEscape();
            break;
        default:
            Fail(kInvalidEscape, static_cast<wint_t>(m_current));
        }
    }
}

void CJsonTextReader::ReadUnicodeEscape() {
    long unit = 0;
    for (int i = 0; i < 4; ++i) {
        if (!ReadNextChar(false)) Fail(kEndInUnicodeEscape);
        const int digit = HexValue(m_current);
        if (digit < 0) Fail(kExpectedHexDigit, static_cast<wint_t>(m_current));
        unit = unit * 16 + digit;
    }
    // A high surrogate escaped right before a low one: the two are one character.
    if (unit >= 0xD800 && unit <= 0xDBFF && m_position + 6 <= m_text.size() && m_text[m_position] == L'\\' &&
        m_text[m_position + 1] == L'u') {
        const long low = HexCodeUnit(m_text.data() + m_position + 2);
        if (low >= 0xDC00 && low <= 0xDFFF) {
            AdvanceTo(m_position + 6);
            unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        }
    }
    m_buffer += static_cast<wchar_t>(unit);
}

void CJsonTextReader::ReadLiteral(const wchar_t* literal) {
    for (const wchar_t* expected = literal + 1; *expected; ++expected) {
        if (!ReadNextChar(false)) Fail(kEndInLiteral, literal);
        if (m_current != *expected) Fail(kExpectedLiteral, literal, static_cast<wint_t>(m_current));
    }
}

void CJsonTextReader::ReadDigits() {
    const size_t start = m_position;
    while (m_position < m_text.size() && IsDigit(m_text[m_position]))
        ++m_position;
    m_buffer.append(m_text, start, m_position - start);
    m_linePosition += static_cast<long>(m_position - start);
}

void CJsonTextReader::ReadDigit(const wchar_t* endOfFileMessage) {
    if (!ReadNextChar(false)) Fail(endOfFileMessage);
    if (!IsDigit(m_current)) Fail(kExpectedDigit, static_cast<wint_t>(m_current));
    m_buffer += m_current;
}

// The number ends at the first character that cannot continue it, which is left for the caller.
void CJsonTextReader::ReadNumber() {
    m_buffer.assign(1, m_current);
    if (m_current == L'-') ReadDigit(kEndBeforeDigit);
    ReadDigits();
    const auto next = [this] { return m_position < m_text.size() ? m_text[m_position] : L'\0'; };
    if (next() == L'.') {
        ReadNextChar(false);
        m_buffer += m_current;
        ReadDigit(kEndBeforeDigit);
        ReadDigits();
    }
    if (next() == L'e' || next() == L'E') {
        ReadNextChar(false);
        m_buffer += m_current;
        if (!ReadNextChar(false)) Fail(kEndInExponent);
        if (m_current == L'+' || m_current == L'-') {
            m_buffer += m_current;
            if (!ReadNextChar(false)) Fail(kEndBeforeExponentDigit);
        }
        if (!IsDigit(m_current)) Fail(kExpectedDigit, static_cast<wint_t>(m_current));
        m_buffer += m_current;
        ReadDigits();
    }
}

// ---- Conversion --------------------------------------------------------------------------------

CBinaryData CJsonTextReader::ConvertJsonToXml(const std::wstring& json,
                                              const CSerializationContext& context) {
    const CJsonContext& options = *context.GetJsonContext();
    // Each block the writer flushes is encoded at once: the XML never waits as wide text.
    internal::CEncodingTextStream stream(encUTF8);
    CXmlTextWriter writer(stream);
    CJsonTextReader reader(json);
    CJsonReaderToXmlHandler handler(writer, options.GetSupportRoundtrip(), reader.GetErrorPathProvider());
    reader.SetJsonReaderHandler(&handler);
    reader.SetAllowComments(options.GetAllowComments());
    reader.SetRootElementName(options.GetRootElementName().c_str());
    writer.Open();
    reader.Read();
    writer.Close();
    return stream.TakeBytes();
}

} // namespace QxXmlLib16
