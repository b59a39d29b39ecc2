#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include <cwchar>

namespace QxXmlLib16 {

namespace {
// Characters that escaping may change, by code; everything else is copied in runs.
struct EscapeTable {
    bool special[128] = {};
    EscapeTable() {
        for (wchar_t c : {L'&', L'<', L'>', L'"', L'\n', L'\r'})
            special[c] = true;
    }
};
const EscapeTable kEscapes;

bool IsSpecial(wchar_t c) {
    return static_cast<unsigned long>(c) < 128 && kEscapes.special[c];
}

const wchar_t kCDataStart[] = L"<![CDATA[";
} // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream& stream)
    : CTextWriterBase(L"CXmlTextWriter", stream)
    , m_writeDefaultElementValues(false)
    , m_rootStarted(false) {}

CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::PadAndAppend(const wchar_t* text, bool inAttribute) {
    if (text) Escape(text, std::wcslen(text), inAttribute);
}

void CXmlTextWriter::Escape(const wchar_t* text, size_t length, bool inAttribute) {
    AppendEscaped(text, length, IsSpecial, [&](wchar_t c) {
        switch (c) {
        case L'&':
            m_stream.Append(L"&amp;", 5);
            break;
        case L'<':
            m_stream.Append(L"&lt;", 4);
            break;
        case L'>':
            m_stream.Append(L"&gt;", 4);
            break;
        case L'"':
            if (inAttribute)
                m_stream.Append(L"&quot;", 6);
            else
                m_stream.Append(L'"');
            break;
        case L'\n':
            if (inAttribute)
                m_stream.Append(L"&#xA;", 5);
            else
                WriteEol(); // SetEOLType admits only valid types
            break;
        default: // carriage return
            break;
        }
    });
}

void CXmlTextWriter::WriteStartDocument() {
    m_stream.Append(L"<?xml version=\"1.0\"");
    if (m_stream.GetEncoding() == encUTF8)
        m_stream.Append(L" encoding=\"UTF-8\"");
    else if (m_stream.GetEncoding() == encUTF16)
        m_stream.Append(L" encoding=\"UTF-16\"");
    m_stream.Append(L"?>");
    WriteEol();
    FlushIfFull();
}

void CXmlTextWriter::WriteHeaderDirective(const std::wstring& text) {
    if (m_rootStarted) throw CQxException(L"Headed directives must appear before an Element has been added.");
    m_stream.Append(text);
    WriteEol();
    FlushIfFull();
}

void CXmlTextWriter::WriteRawElement(const std::wstring& text) {
    m_stream.Append(text);
    if (GetFormat()) WriteEol();
}

void CXmlTextWriter::WriteComment(const std::wstring& text) {
    m_stream.Append(L"<!--", 4);
    Escape(text.data(), text.size(), false);
    m_stream.Append(L"-->", 3);
    WriteEol();
    FlushIfFull();
}

void CXmlTextWriter::WritePI(const std::wstring& text) {
    m_stream.Append(text);
    WriteEol();
    WriteEol();
    FlushIfFull();
}

void CXmlTextWriter::WriteInlineSchema(const std::wstring& text) {
    m_stream.Append(L' ');
    WriteEol();
    m_stream.Append(text);
    WriteEol();
    FlushIfFull();
}

void CXmlTextWriter::CloseParentElm() {
    CXmlWriterContext* parent = GetCurrentContext();
    if (!parent) return;
    parent->AddChild();
    if (parent->IsStartTagOpen()) {
        m_stream.Append(L'>');
        parent->SetStartTagOpen(false);
        if (GetFormat()) WriteEol();
    }
}

void CXmlTextWriter::WriteDeclaration(const std::wstring& prefix, const std::wstring& namespaceURI) {
    m_stream.Append(L"xmlns:", 6);
    m_stream.Append(prefix);
    m_stream.Append(L"=\"", 2);
    m_stream.Append(namespaceURI);
    m_stream.Append(L'"');
}

void CXmlTextWriter::WriteStartElement(const std::wstring& localName, const std::wstring& namespaceURI) {
    CloseParentElm();
    m_rootStarted = true;
    CXmlWriterContext& context = PushContext(localName, namespaceURI);
    const size_t depth = static_cast<size_t>(context.GetDepth());
    if (GetFormat()) WriteIndent(context.GetDepth());
    if (m_endTags.size() <= depth) m_endTags.resize(depth + 1);
    std::wstring& endTag = m_endTags[depth];
    endTag.assign(L"</", 2);
    bool isNew;
    const std::wstring* prefix = ElementPrefix(context, isNew);
    if (prefix) {
        endTag += *prefix;
        endTag += L':';
    }
    endTag += localName;
    endTag += L'>';
    m_stream.Append(L'<');
    m_stream.Append(endTag.data() + 2, endTag.size() - 3);
    if (isNew) {
        m_stream.Append(L' ');
        WriteDeclaration(*prefix, namespaceURI);
    }
    if (context.GetDepth() == 0) {
        if (!GetDefaultNamespace().empty()) {
            m_stream.Append(L" xmlns=\"", 8);
            m_stream.Append(GetDefaultNamespace());
            m_stream.Append(L'"');
        }
        for (const auto& entry : GetNamespaceMap()) {
            if (IsXmlNamespace(entry.first)) continue;
            m_stream.Append(L' ');
            WriteDeclaration(entry.second, entry.first);
        }
    }
    FlushIfFull();
}

void CXmlTextWriter::WriteAttributeString(const std::wstring& localName, const std::wstring& namespaceURI,
                                          const std::wstring& value, ItemType) {
    CXmlWriterContext& context = AttributeTarget();
    m_stream.Append(L' ');
    if (!namespaceURI.empty()) {
        bool isNew;
        const std::wstring& prefix = PrefixFor(context, namespaceURI, isNew);
        if (isNew) {
            WriteDeclaration(prefix, namespaceURI);
            m_stream.Append(L' ');
        }
        m_stream.Append(prefix);
        m_stream.Append(L':');
    }
    m_stream.Append(localName);
    m_stream.Append(L"=\"", 2);
    Escape(value.data(), value.size(), true);
    m_stream.Append(L'"');
    FlushIfFull();
}

void CXmlTextWriter::WriteAttributeType(const std::wstring& typeNamespace, const std::wstring& typeName,
                                        ItemType type) {
    const std::wstring* newPrefix;
    const std::wstring value = TypeAttributeValue(AttributeTarget(), typeNamespace, typeName, newPrefix);
    if (newPrefix) {
        m_stream.Append(L' ');
        WriteDeclaration(*newPrefix, typeNamespace);
        m_stream.Append(L' ');
    }
    WriteAttributeString(L"type", XSI_NAMESPACE, value, type);
}

void CXmlTextWriter::WriteAttributeNil() {
    AttributeTarget();
    WriteAttributeString(L"nil", XSI_NAMESPACE, L"true", itBoolean);
}

void CXmlTextWriter::WriteString(const std::wstring& text, ItemType, bool isDefaultValue) {
    if (text.empty() || (isDefaultValue && !m_writeDefaultElementValues)) return;
    CXmlWriterContext* context = GetCurrentContext();
    if (context && context->IsStartTagOpen()) {
        m_stream.Append(L'>');
        context->SetStartTagOpen(false);
    }
    if (text.compare(0, sizeof(kCDataStart) / sizeof(wchar_t) - 1, kCDataStart) == 0)
        m_stream.Append(text);
    else
        Escape(text.data(), text.size(), false);
    FlushIfFull();
}

void CXmlTextWriter::WriteEndElement() {
    CXmlWriterContext* context = GetCurrentContext();
    if (!context) throw CQxException(L"No Element is open.");
    if (context->IsStartTagOpen()) {
        m_stream.Append(L"/>", 2);
    } else {
        if (GetFormat() && context->GetChildCount() > 0) WriteIndent(context->GetDepth());
        m_stream.Append(m_endTags[static_cast<size_t>(context->GetDepth())]);
    }
    if (GetFormat()) WriteEol();
    PopContext();
    FlushIfFull();
}

} // namespace QxXmlLib16
