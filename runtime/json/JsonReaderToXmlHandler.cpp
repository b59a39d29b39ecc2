#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/json/JsonReaderToXmlHandler.h>

#include "xml/XmlCharacters.h"

namespace QxXmlLib16 {

namespace {

const wchar_t* const kEmptyName = L"JSON item has an empty Name.";
const wchar_t* const kElementName = L"Failed to convert name '%ls' to Element name in XML.";
const wchar_t* const kAttributeName = L"Failed to convert name '%ls' to Attribute name in XML.";
const wchar_t* const kAttributeValue = L"Failed to convert value '%ls' to Attribute string value in XML.";
const wchar_t* const kElementValue = L"Failed to convert value '%ls' to Element string value in XML.";
const wchar_t* const kSimpleValueOnly = L"JSON item [%ls] must have a string, number, boolean or null value.";
const wchar_t* const kNoElement = L"The JSON text holds no element.";
const wchar_t* const kXmlnsPrefix = L"xmlns:";

// Values go into messages cut short: a value can be as long as the document.
std::wstring Quoted(const std::wstring& value) {
    const size_t kMaximum = 64;
    return value.size() <= kMaximum ? value : value.substr(0, kMaximum) + L"...";
}

const std::wstring& BoolText(bool value) {
    static const std::wstring texts[] = {L"false", L"true"};
    return texts[value];
}

} // namespace

CJsonReaderToXmlHandler::CJsonReaderToXmlHandler(CXmlTextWriter& writer, JsonRoundTrip level,
                                                 IErrorPathProvider& pathProvider)
    : m_writer(writer)
    , m_level(level)
    , m_pathProvider(pathProvider)
    , m_depth(0)
    , m_openElements(0)
    , m_hasElement(false)
    , m_pending(Pending::None) {
    CJsonContext::CheckRoundtrip(level);
}

CJsonReaderToXmlHandler::~CJsonReaderToXmlHandler() = default;

void CJsonReaderToXmlHandler::Fail(const std::wstring& message) const {
    throw CQxValidationException(message, m_pathProvider.GetPath());
}

void CJsonReaderToXmlHandler::FailValue(const wchar_t* format, const std::wstring& value,
                                        const CQxException* cause) const {
    const std::wstring message = FormatString(format, Quoted(value).c_str());
    const std::wstring path = m_pathProvider.GetPath();
    throw CQxInvalidStateException(cause ? CQxException(message, path, *cause) : CQxException(message, path));
}

void CJsonReaderToXmlHandler::CheckValue(const wchar_t* format, const std::wstring& value) const {
    if (!internal::IsXmlText(value.data(), value.size())) FailValue(format, value, nullptr);
}

void CJsonReaderToXmlHandler::PushFrame(bool isArray, bool closesElement) {
    if (m_depth == m_frames.size()) m_frames.emplace_back();
    Frame& frame = m_frames[m_depth++];
    frame.isArray = isArray;
    frame.closesElement = closesElement;
}

// ---- Elements and attributes -------------------------------------------------------------------

void CJsonReaderToXmlHandler::StartElement(const std::wstring& name) {
    if (!internal::IsXmlName(name.data(), name.size())) FailValue(kElementName, name, nullptr);
    m_hasElement = true;
    try {
        m_writer.WriteStartElement(name, std::wstring());
    } catch (const CQxException& e) {
        FailValue(kElementName, name, &e);
    }
    ++m_openElements;
}

void CJsonReaderToXmlHandler::StartAttribute(const std::wstring& name) {
    m_currentName = name;
    BeginAttribute();
}

void CJsonReaderToXmlHandler::BeginAttribute() {
    if (m_currentName.empty()) Fail(kEmptyName);
    if (!internal::IsXmlName(m_currentName.data(), m_currentName.size()))
        FailValue(kAttributeName, m_currentName, nullptr);
    m_pending = Pending::Attribute;
}

void CJsonReaderToXmlHandler::RefuseContainerValue() const {
    if (m_pending == Pending::Text) Fail(FormatString(kSimpleValueOnly, L"#text"));
    if (m_pending == Pending::Attribute) Fail(FormatString(kSimpleValueOnly, (L"@" + m_currentName).c_str()));
}

void CJsonReaderToXmlHandler::EndItem() {
    m_writer.WriteEndElement();
    --m_openElements;
}

void CJsonReaderToXmlHandler::StartValueElement() {
    if (m_pending == Pending::Element) {
        m_pending = Pending::None;
        StartElement(m_currentName);
    } else if (m_depth > 0 && m_frames[m_depth - 1].isArray) {
        StartElement(m_frames[m_depth - 1].itemName);
    } else {
        Fail(kEmptyName);
    }
}

void CJsonReaderToXmlHandler::Nil() {
    try {
        m_writer.WriteAttributeNil();
    } catch (const CQxException& e) {
        FailValue(kAttributeValue, L"null", &e);
    }
}

// ---- Events ------------------------------------------------------------------------------------

void CJsonReaderToXmlHandler::ReadStartDocument() {
    m_depth = 0;
    m_openElements = 0;
    m_hasElement = false;
    m_pending = Pending::None;
}

void CJsonReaderToXmlHandler::ReadEndDocument() {
    if (!m_hasElement) throw CQxValidationException(kNoElement, std::wstring());
}

void CJsonReaderToXmlHandler::ReadName(const std::wstring& name) {
    if (name.empty()) Fail(kEmptyName);
    if (m_level != jrtNone) {
        if (name == L"#text") {
            m_pending = Pending::Text;
            return;
        }
        if (name[0] == L'@') {
            m_currentName.assign(name, 1, std::wstring::npos);
            return BeginAttribute();
        }
    }
    m_currentName = name;
    m_pending = Pending::Element;
}

void CJsonReaderToXmlHandler::WriteString(const std::wstring& value) {
    switch (m_pending) {
    case Pending::Attribute:
        m_pending = Pending::None;
        if (m_openElements == 0) FailValue(kAttributeValue, value, nullptr);
        CheckValue(kAttributeValue, value);
        try {
            m_writer.WriteAttributeString(m_currentName, std::wstring(), value, itString);
        } catch (const CQxException& e) {
            FailValue(kAttributeValue, value, &e);
        }
        // Known to the writer, a prefix the document declares is never generated again for
        // another namespace (the nil attribute's) inside its scope.
        if (m_currentName.compare(0, 6, kXmlnsPrefix) == 0)
            m_writer.AddNamespace(m_currentName.substr(6), value);
        return;
    case Pending::Text:
        m_pending = Pending::None;
        if (m_openElements == 0) FailValue(kElementValue, value, nullptr);
        CheckValue(kElementValue, value);
        try {
            m_writer.WriteString(value, itString, false);
        } catch (const CQxException& e) {
            FailValue(kElementValue, value, &e);
        }
        return;
    default:
        StartValueElement();
        CheckValue(kElementValue, value);
        m_writer.WriteString(value, itString, false);
        EndItem();
    }
}

void CJsonReaderToXmlHandler::ReadString(const std::wstring& value) {
    WriteString(value);
}

void CJsonReaderToXmlHandler::ReadNumber(const std::wstring& value) {
    WriteString(value);
}

void CJsonReaderToXmlHandler::ReadBool(bool value) {
    WriteString(BoolText(value));
}

void CJsonReaderToXmlHandler::ReadNull() {
    switch (m_pending) {
    case Pending::Attribute: // an attribute without value is left out
        m_pending = Pending::None;
        return;
    case Pending::Text:
        m_pending = Pending::None;
        if (m_openElements == 0) FailValue(kElementValue, L"null", nullptr);
        Nil();
        return;
    default:
        StartValueElement();
        Nil();
        EndItem();
    }
}

void CJsonReaderToXmlHandler::ReadStartObject() {
    RefuseContainerValue();
    if (m_depth == 0 && m_pending == Pending::None) return PushFrame(false, false); // the document
    StartValueElement();
    PushFrame(false, true);
}

void CJsonReaderToXmlHandler::ReadEndObject() {
    if (m_depth == 0) return;
    if (m_frames[--m_depth].closesElement) EndItem();
}

void CJsonReaderToXmlHandler::ReadStartArray() {
    RefuseContainerValue();
    // Only a member names the items of an array: one inside another, or at the top, has no name.
    if (m_pending != Pending::Element) Fail(kEmptyName);
    m_pending = Pending::None;
    PushFrame(true, false);
    m_frames[m_depth - 1].itemName = m_currentName;
}

void CJsonReaderToXmlHandler::ReadEndArray() {
    if (m_depth > 0) --m_depth;
}

} // namespace QxXmlLib16
