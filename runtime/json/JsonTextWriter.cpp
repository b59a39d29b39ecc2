#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/json/JsonTextWriter.h>

#include <cwchar>

namespace QxXmlLib16 {

namespace {

const wchar_t* const kUnknownNamespace = L"Unknown Namespace: %ls.";
const wchar_t* const kAttributesFirst = L"Attributes must be added before elements";
const wchar_t* const kNoElement = L"No Element is open.";
const wchar_t* const kValueWritten =
    L"The element [%ls] already has a value: JSON has no place for further content after it.";
const wchar_t kHexDigits[] = L"0123456789ABCDEF";

// The kinds whose text is a JSON number or boolean.
bool IsLiteralKind(ItemType type) {
    return (type >= itI1 && type <= itR8) || type == itBoolean || type == itDecimal || type == itInteger;
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// The number grammar of RFC 8259: the numeric kinds have texts such as "INF", "+1" or "007" that
// would not parse as numbers.
bool IsJsonNumber(const std::wstring& text) {
    const wchar_t* c = text.c_str();
    if (*c == L'-') ++c;
    if (*c == L'0') {
        ++c;
    } else if (IsDigit(*c)) {
        while (IsDigit(*c))
            ++c;
    } else {
        return false;
    }
    if (*c == L'.') {
        if (!IsDigit(*++c)) return false;
        while (IsDigit(*c))
            ++c;
    }
    if (*c == L'e' || *c == L'E') {
        ++c;
        if (*c == L'+' || *c == L'-') ++c;
        if (!IsDigit(*c)) return false;
        while (IsDigit(*c))
            ++c;
    }
    return c == text.c_str() + text.size();
}

bool IsSurrogate(wchar_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

} // namespace

CJsonTextWriter::CJsonTextWriter(CTextStream& stream)
    : CTextWriterBase(L"CJsonTextWriter", stream)
    , m_supportRoundtrip(jrtFull)
    , m_rfc8259Escaping(false) {}

CJsonTextWriter::~CJsonTextWriter() = default;

void CJsonTextWriter::SetSupportRoundtrip(JsonRoundTrip level) {
    CJsonContext::CheckRoundtrip(level);
    m_supportRoundtrip = level;
}

// ---- Strings -----------------------------------------------------------------------------------

void CJsonTextWriter::Escape(const wchar_t* text, size_t length) {
    auto unicodeEscape = [this](wchar_t c) {
        const wchar_t escape[] = {L'\\',
                                  L'u',
                                  kHexDigits[(c >> 12) & 0xF],
                                  kHexDigits[(c >> 8) & 0xF],
                                  kHexDigits[(c >> 4) & 0xF],
                                  kHexDigits[c & 0xF]};
        m_stream.Append(escape, 6);
    };
    if (m_rfc8259Escaping) {
        AppendEscaped(
            text, length,
            [](wchar_t c) {
                return static_cast<unsigned long>(c) < 0x20 || c == L'"' || c == L'\\' || IsSurrogate(c);
            },
            [&](wchar_t c) {
                static const wchar_t kShort[] = L"\"\"\\\\\bb\ff\nn\rr\tt";
                for (const wchar_t* s = kShort; *s; s += 2)
                    if (*s == c) {
                        const wchar_t escape[] = {L'\\', s[1]};
                        return m_stream.Append(escape, 2);
                    }
                unicodeEscape(c);
            });
        return;
    }
    // Quote, backslash, tab, backspace and form feed stay as they are, line feeds become line ends
    // and carriage returns go: the established form, which only the RFC 8259 mode corrects.
    AppendEscaped(
        text, length, [](wchar_t c) { return c >= 1 && c < 0x20 && c != L'\t' && c != L'\b' && c != L'\f'; },
        [&](wchar_t c) {
            if (c == L'\n')
                WriteEol();
            else if (c != L'\r')
                unicodeEscape(c);
        });
}

void CJsonTextWriter::PadAndAppend(const wchar_t* text) {
    if (text) Escape(text, std::wcslen(text));
}

void CJsonTextWriter::WriteQuoted(const std::wstring& text) {
    m_stream.Append(L'"');
    Escape(text.data(), text.size());
    m_stream.Append(L'"');
}

void CJsonTextWriter::WriteValue(const std::wstring& text, ItemType type) {
    if (IsLiteralKind(type) &&
        (IsJsonNumber(text) || (type == itBoolean && (text == L"true" || text == L"false"))))
        m_stream.Append(text);
    else
        WriteQuoted(text);
}

// Names are written as they are in the established form; escaped, they keep the output valid
// whatever an untyped element was named.
void CJsonTextWriter::WriteKey(const wchar_t* marker, const std::wstring& prefix, const std::wstring& name) {
    m_stream.Append(L'"');
    m_stream.Append(marker);
    if (!prefix.empty()) {
        WriteName(prefix);
        m_stream.Append(L':');
    }
    WriteName(name);
    m_stream.Append(L"\": ", 3);
}

void CJsonTextWriter::WriteName(const std::wstring& name) {
    if (m_rfc8259Escaping)
        Escape(name.data(), name.size());
    else
        m_stream.Append(name);
}

// ---- Structure ---------------------------------------------------------------------------------

CXmlWriter::CXmlWriterContext& CJsonTextWriter::Current(const wchar_t* message) {
    CXmlWriterContext* context = GetCurrentContext();
    if (!context) throw CQxException(message);
    return *context;
}

void CJsonTextWriter::BeginValue(CXmlWriterContext& context) {
    CXmlWriterContext* parent = context.GetParent();
    if (!parent || parent->GetContextState() != csArrayStarting) return;
    Level& up = LevelOf(*parent);
    Level& level = LevelOf(context);
    m_stream.Append(L'[');
    parent->SetContextState(csArrayOpen);
    up.arrayOpen = true;
    up.itemName = context.GetLocalName();
    up.itemNamespace = context.GetNamespaceURI();
    ++up.indent;
    ++level.indent;
    if (GetFormat()) {
        WriteEol();
        WriteIndent(level.indent);
    }
}

void CJsonTextWriter::CloseArray(CXmlWriterContext& context) {
    Level& level = LevelOf(context);
    if (GetFormat()) {
        WriteEol();
        WriteIndent(level.indent);
    }
    if (level.indent > 1) --level.indent;
    m_stream.Append(L']');
    level.arrayOpen = false;
    // A collection that starts right after another keeps its state, so that it opens its own array.
    if (context.GetContextState() != csArrayStarting) context.SetContextState(csNone);
}

void CJsonTextWriter::WriteOpenBrackets(CXmlWriterContext& context) {
    Level& level = LevelOf(context);
    switch (level.value) {
    case Value::Pending:
        BeginValue(context);
        m_stream.Append(L'{');
        level.value = Value::Object;
        break;
    case Value::Object:
        m_stream.Append(L',');
        break;
    case Value::Scalar:
        throw CQxInvalidStateException(FormatString(kValueWritten, context.GetLocalName().c_str()));
    }
    if (GetFormat()) WriteEol();
}

void CJsonTextWriter::StartMember(CXmlWriterContext& context) {
    WriteOpenBrackets(context);
    if (GetFormat()) WriteIndent(LevelOf(context).indent + 1);
}

const std::wstring& CJsonTextWriter::BoundPrefix(const CXmlWriterContext& context,
                                                 const std::wstring& namespaceURI,
                                                 const std::wstring& localName) const {
    const std::wstring& prefix = context.GetNamespaceMapValue(namespaceURI);
    if (prefix.empty()) throw CQxException(FormatString(kUnknownNamespace, localName.c_str()));
    return prefix;
}

void CJsonTextWriter::WriteDeclaration(CXmlWriterContext& context, const std::wstring& prefix,
                                       const std::wstring& namespaceURI) {
    StartMember(context);
    WriteKey(prefix.empty() ? L"@xmlns" : L"@xmlns:", std::wstring(), prefix);
    WriteQuoted(namespaceURI);
}

void CJsonTextWriter::WriteStartDocument() {
    m_stream.Append(L'{');
    if (GetFormat()) WriteEol();
    FlushIfFull();
}

void CJsonTextWriter::WriteEndDocument() {
    if (GetFormat()) WriteEol();
    m_stream.Append(L'}');
    FlushIfFull();
}

void CJsonTextWriter::WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) {
    CXmlWriterContext* parent = GetCurrentContext();
    bool writeKey = true;
    if (parent) {
        Level& up = LevelOf(*parent);
        // Repeated children share one array only while the collection writes them and they carry its
        // name: a later member of the parent, or a sibling of another name (an item of a repeated
        // group), closes it.
        if (up.arrayOpen && (parent->GetContextState() != csArrayOpen || localName != up.itemName ||
                             namespaceURI != up.itemNamespace))
            CloseArray(*parent);
        writeKey = parent->GetContextState() != csArrayOpen;
        WriteOpenBrackets(*parent);
        LevelOf(*parent).hasContent = true;
    }
    CXmlWriterContext& context = PushContext(localName, namespaceURI);
    const size_t depth = static_cast<size_t>(context.GetDepth());
    if (m_levels.size() <= depth) m_levels.resize(depth + 1);
    Level& level = m_levels[depth];
    level.indent = parent ? m_levels[depth - 1].indent + 1 : 1;
    level.value = Value::Pending;
    level.arrayOpen = level.nil = level.hasContent = false;
    if (GetFormat()) WriteIndent(level.indent);
    if (!writeKey) return FlushIfFull();
    if (m_supportRoundtrip != jrtFull) {
        WriteKey(L"", std::wstring(), localName);
        return FlushIfFull();
    }
    const bool qualified = !namespaceURI.empty() && namespaceURI != context.GetDefaultNamespace();
    const bool makePrefix = qualified && context.GetNamespaceMapValue(namespaceURI).empty();
    if (makePrefix) {
        // Only the root can declare: JSON has no place to scope a declaration further down.
        if (parent) throw CQxException(FormatString(kUnknownNamespace, localName.c_str()));
        context.SetNamespaceMapValue(namespaceURI, GetUniquePrefix(context.GetNamespaceMap()));
    }
    const std::wstring& prefix = qualified ? context.GetNamespaceMapValue(namespaceURI) : std::wstring();
    WriteKey(L"", prefix, localName);
    if (makePrefix) WriteDeclaration(context, prefix, namespaceURI);
    if (!parent) {
        if (!GetDefaultNamespace().empty()) WriteDeclaration(context, std::wstring(), GetDefaultNamespace());
        for (const auto& entry : GetNamespaceMap())
            if (entry.first.compare(0, std::wcslen(XML_NAMESPACE), XML_NAMESPACE) != 0)
                WriteDeclaration(context, entry.second, entry.first);
    }
    FlushIfFull();
}

void CJsonTextWriter::WriteString(const std::wstring& text, ItemType type, bool) {
    CXmlWriterContext& context = Current(kNoElement);
    Level& level = LevelOf(context);
    switch (level.value) {
    case Value::Pending:
        BeginValue(context);
        WriteValue(text, type);
        level.value = Value::Scalar;
        break;
    case Value::Object:
        // An object without text says so by leaving the member out.
        if (text.empty()) return;
        if (level.arrayOpen) CloseArray(context);
        StartMember(context);
        m_stream.Append(m_supportRoundtrip == jrtNone ? L"\"\": " : L"\"#text\": ");
        WriteValue(text, type);
        level.hasContent = true;
        break;
    case Value::Scalar:
        throw CQxInvalidStateException(FormatString(kValueWritten, context.GetLocalName().c_str()));
    }
    FlushIfFull();
}

void CJsonTextWriter::WriteEndElement() {
    CXmlWriterContext& context = Current(kNoElement);
    Level& level = LevelOf(context);
    if (level.arrayOpen) CloseArray(context);
    switch (level.value) {
    case Value::Pending:
        BeginValue(context);
        m_stream.Append(level.nil ? L"null" : L"{}");
        break;
    case Value::Object:
        if (level.nil) {
            StartMember(context);
            m_stream.Append(m_supportRoundtrip == jrtNone ? L"\"\": null" : L"\"#text\": null");
        }
        if (GetFormat()) {
            WriteEol();
            WriteIndent(level.indent);
        }
        m_stream.Append(L'}');
        break;
    case Value::Scalar:
        break;
    }
    PopContext();
    FlushIfFull();
}

void CJsonTextWriter::WriteAttributeString(const std::wstring& localName, const std::wstring& namespaceURI,
                                           const std::wstring& value, ItemType type) {
    CXmlWriterContext& context = Current(kAttributesFirst);
    const Level& level = LevelOf(context);
    if (level.value == Value::Scalar || level.hasContent) throw CQxException(kAttributesFirst);
    const bool qualified = m_supportRoundtrip == jrtFull && !namespaceURI.empty();
    const std::wstring& prefix = qualified ? BoundPrefix(context, namespaceURI, localName) : std::wstring();
    StartMember(context);
    WriteKey(m_supportRoundtrip == jrtNone ? L"" : L"@", prefix, localName);
    WriteValue(value, type);
    FlushIfFull();
}

void CJsonTextWriter::WriteAttributeType(const std::wstring& typeNamespace, const std::wstring& typeName,
                                         ItemType type) {
    const CXmlWriterContext& context = Current(kAttributesFirst);
    if (m_supportRoundtrip == jrtFull && !typeNamespace.empty() &&
        typeNamespace != context.GetDefaultNamespace())
        WriteAttributeString(L"type", XSI_NAMESPACE,
                             BoundPrefix(context, typeNamespace, L"type") + L':' + typeName, type);
    else
        WriteAttributeString(L"type", XSI_NAMESPACE, typeName, type);
}

void CJsonTextWriter::WriteAttributeNil() {
    CXmlWriterContext& context = Current(kAttributesFirst);
    Level& level = LevelOf(context);
    if (level.value == Value::Scalar || level.hasContent) throw CQxException(kAttributesFirst);
    level.nil = true;
}

void CJsonTextWriter::WriteComment(const std::wstring& text) {
    if (m_rfc8259Escaping) return;
    m_stream.Append(L"/* ", 3);
    // A "*/" inside would end the comment early.
    size_t start = 0;
    for (size_t end; (end = text.find(L"*/", start)) != std::wstring::npos; start = end + 1) {
        Escape(text.data() + start, end + 1 - start);
        m_stream.Append(L' ');
    }
    Escape(text.data() + start, text.size() - start);
    m_stream.Append(L" */", 3);
    WriteEol();
    FlushIfFull();
}

void CJsonTextWriter::WritePI(const std::wstring&) {}

void CJsonTextWriter::WriteInlineSchema(const std::wstring&) {}

} // namespace QxXmlLib16
