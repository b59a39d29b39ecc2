#include <QxXmlLib16/binding/SerializationContext.h>

#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/fastinfoset/FastInfosetContext.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/json/JsonContext.h>

namespace QxXmlLib16 {

namespace {
std::wstring BothIgnoresRefused(const wchar_t* setOption, const wchar_t* requestedOption) {
    return FormatString(
        L"The parser can only ignore additional elements, or ignore the fact that some required ones "
        L"are missing, you can not ignore both\nSet %ls to false before setting %ls to true",
        setOption, requestedOption);
}
} // namespace

CSerializationContext CSerializationContext::m_defaultContext;

CSerializationContext::CSerializationContext()
    : m_fiContext(std::make_shared<CFastInfosetContext>())
    , m_jsonContext(std::make_shared<CJsonContext>())
    , m_writeTypeAttribute(true)
    , m_ignoreInvalidCollectionCounts(false)
    , m_ignoreMissingChoice(false)
    , m_ignoreMissingMandatoryElements(false)
    , m_ignoreUnknownElements(false)
    , m_ignoreUnknownAttributes(false)
    , m_ignoreNamespaces(false)
    , m_schemaType(stDefault)
    , m_noOptionalAttributeDefaultOutput(false)
    , m_writeDefaultElementValues(false)
    , m_stripCDATA(true)
    , m_indentChars(L"\t") {}

CSerializationContext::CSerializationContext(const CSerializationContext& other) = default;

CSerializationContext& CSerializationContext::operator=(const CSerializationContext& other) = default;

CSerializationContext::~CSerializationContext() = default;

void CSerializationContext::SetIgnoreUnknownElements(bool value) {
    if (value && m_ignoreMissingMandatoryElements)
        throw CQxInvalidStateException(
            BothIgnoresRefused(L"IgnoreMissingMandatoryElements", L"IgnoreUnknownElements"));
    m_ignoreUnknownElements = value;
}

void CSerializationContext::SetIgnoreMissingMandatoryElements(bool value) {
    if (value && m_ignoreUnknownElements)
        throw CQxInvalidStateException(
            BothIgnoresRefused(L"IgnoreUnknownElements", L"IgnoreMissingMandatoryElements"));
    m_ignoreMissingMandatoryElements = value;
}

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
    if (!m_additionalRootAttributes) m_additionalRootAttributes = new CAttributeCol(L"", L"##any", L"");
    return m_additionalRootAttributes;
}

CFastInfosetContext* CSerializationContext::GetFIContext() const {
    return m_fiContext.get();
}

void CSerializationContext::SetIndentChars(const wchar_t* indent) {
    const std::wstring value = indent ? indent : L"";
    if (value.find_first_not_of(L"\t ") != std::wstring::npos)
        throw CQxInvalidParamException(
            L"IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
    m_indentChars = value;
}

CJsonContext* CSerializationContext::GetJsonContext() const {
    return m_jsonContext.get();
}

} // namespace QxXmlLib16
