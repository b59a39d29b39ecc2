#include <QxXmlLib16/data/ElementInfo.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include "binding/NilValue.h"
#include "xml/StreamedLoad.h"

#include <cwchar>

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

namespace {

std::wstring TextOrEmpty(const wchar_t* text) {
    return text ? text : L"";
}

// Writes <name xsi:nil="true"/>, or the element with text, in the member's namespace.
void WriteNilElement(const CElementInfo& info, CXmlWriter* writer) {
    writer->WriteStartElement(info.GetName(), info.GetNamespace());
    writer->WriteAttributeNil();
    writer->WriteEndElement();
}

void WriteTextElement(const CElementInfo& info, CXmlWriter* writer, const std::wstring& text, ItemType type,
                      bool isDefault) {
    writer->WriteStartElement(info.GetName(), info.GetNamespace());
    writer->WriteString(text, type, isDefault);
    writer->WriteEndElement();
}

} // namespace

CElementInfo::CElementInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
    : m_name(TextOrEmpty(name))
    , m_namespace(TextOrEmpty(namespaceURI))
    , m_propertyNumber(propertyNumber)
    , m_itemType(itNone)
    , m_whitespaceRule(CWhitespaceUtils::wsNone)
    , m_nillable(false)
    , m_enumToText(nullptr)
    , m_textToEnum(nullptr)
    , m_isPrimitive(false) {}

CElementInfo::CElementInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                           bool nillable, EnumToTextFunction enumToText, TextToEnumFunction textToEnum,
                           const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber) {
    m_nillable = nillable;
    m_enumToText = enumToText;
    m_textToEnum = textToEnum;
    m_defaultValue = TextOrEmpty(defaultValue);
}

CElementInfo::CElementInfo(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber,
                           bool nillable, ItemType itemType, const wchar_t* format,
                           CWhitespaceUtils::WhitespaceRule whitespaceRule,
                           const CPrimitiveRestrictions& restrictions, const wchar_t* defaultValue)
    : CElementInfo(name, namespaceURI, propertyNumber) {
    m_nillable = nillable;
    m_itemType = itemType;
    m_format = TextOrEmpty(format);
    m_whitespaceRule = whitespaceRule;
    m_restrictions = restrictions;
    m_defaultValue = TextOrEmpty(defaultValue);
    m_isPrimitive = true;
}

CElementInfo::~CElementInfo() = default;

bool CElementInfo::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    throw CQxException(L"Not implemented, should never be called");
}

void CElementInfo::PseudoChildAttributeToXml(const CSerializationContext&, const CXmlGeneratedClass*,
                                             CXmlWriter*) const {}

// ---- Property access ---------------------------------------------------------------------------

int CElementInfo::InvokePropertyGet(CXmlGeneratedClass* object, QxVariant& value) const {
    try {
        return object->AccessProperty(m_propertyNumber, true, value);
    } catch (const CQxException& e) {
        throw CQxValidationException(
            FormatString(L"Failed to get the property value for [%ls].", m_name.c_str()), std::wstring(), e);
    }
}

int CElementInfo::ReadProperty(const CXmlGeneratedClass* object, QxVariant& value) const {
    // Reading through the one access operation, which is not const because it also writes.
    return InvokePropertyGet(const_cast<CXmlGeneratedClass*>(object), value);
}

int CElementInfo::InvokePropertySet(CXmlGeneratedClass* object, QxVariant& value,
                                    const CXmlElement& element) const {
    try {
        return object->AccessProperty(m_propertyNumber, false, value);
    } catch (const CQxException& e) {
        throw CQxValidationException(L"Failed to set the property value.", element.GetXPath(), e);
    }
}

bool CElementInfo::IsThisElement(const CSerializationContext& context, const CXmlElement* element) const {
    if (!element || element->GetLocalName() != m_name) return false;
    return context.GetIgnoreNamespaces() || element->GetNamespaceURI() == m_namespace;
}

void CElementInfo::CheckRestriction(const QxVariant& value) const {
    if (!m_isPrimitive) throw CQxException(L"Cannot CheckRestriction for type: " + value.GetType());
    CXmlObjectHelper::CheckRestriction(m_name.c_str(), value, m_itemType, m_restrictions);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* child, CXmlElement* element, CXmlElement* first,
                                       const CSerializationContext& context, bool flag) const {
    return child->FromXml_Int(element, first, context, flag);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* child, CXmlWriter* writer,
                                       const CSerializationContext& context) const {
    CXmlObjectBase::AttributesToXml_Int(child, writer, context);
}

std::wstring CElementInfo::GetAnyDefaultNamespace(const wchar_t* rule, const wchar_t* a, const wchar_t* b) {
    const std::wstring spec = TextOrEmpty(rule);
    if (spec == L"##any") return TextOrEmpty(a);
    if (spec == L"##other") return a && *a ? L"" : L"DefaultNamespace";
    if (spec == L"##local") return L"";
    if (spec == L"##targetNamespace") return TextOrEmpty(b);
    const size_t blank = spec.find(L' ');
    if (spec.size() >= 3 && spec.compare(0, 2, L"##") == 0 && blank != std::wstring::npos)
        return GetAnyDefaultNamespace(spec.substr(0, blank).c_str(), a, b);
    return L"";
}

// ---- Shared writers ----------------------------------------------------------------------------

bool CElementInfo::ElementToXmlCls(const CSerializationContext& context, const CXmlGeneratedClass* object,
                                   CXmlWriter* writer, bool flag) const {
    QxVariant value;
    ReadProperty(object, value);
    CSmartPtr<CXmlObjectBase> child = value.GetXmlObject();
    if (!child) return false;
    CXmlObjectBase::ToXml_Int(child.Get(), writer, false, m_namespace.c_str(), context, flag);
    return true;
}

bool CElementInfo::ElementToXmlCol(const CSerializationContext& context, const CXmlGeneratedClass* object,
                                   CXmlWriter* writer) const {
    QxVariant value;
    ReadProperty(object, value);
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (!collection || collection->GetCount() < 1) return false;
    writer->SetContextState(CXmlWriter::csArrayStarting);
    CXmlObjectBase::ToXml_Int(collection.Get(), writer, false, m_namespace.c_str(), context, false);
    writer->SetContextState(CXmlWriter::csArrayComplete);
    return true;
}

bool CElementInfo::ElementToXmlPrim(const CSerializationContext&, const CXmlGeneratedClass* object,
                                    CXmlWriter* writer) const {
    QxVariant value;
    ReadProperty(object, value);
    if (value.IsNil()) {
        WriteNilElement(*this, writer);
        return true;
    }
    if (!value.IsValid()) return false;
    const std::wstring text = value.ToString(m_format);
    // A value equal to its default is the schema's own, so its facets need no check.
    const bool isDefault = !m_defaultValue.empty() && text == m_defaultValue;
    if (!isDefault) CheckRestriction(value);
    WriteTextElement(*this, writer, text, value.GetItemType(), isDefault);
    return true;
}

bool CElementInfo::ElementToXmlEnum(const CSerializationContext&, const CXmlGeneratedClass* object,
                                    CXmlWriter* writer, EnumToTextFunction enumToText) const {
    QxVariant value;
    ReadProperty(object, value);
    if (value.IsNil()) {
        WriteNilElement(*this, writer);
        return true;
    }
    if (!value.IsValid()) return false;
    const std::wstring text = TextOrEmpty(enumToText(static_cast<int>(value.GetI4())));
    WriteTextElement(*this, writer, text, itString, !m_defaultValue.empty() && text == m_defaultValue);
    return true;
}

// ---- Shared readers ----------------------------------------------------------------------------

namespace {

// Reads the element at *current as a value member: checks its attributes, converts its text (or the
// default for an empty element) and stores it unless the element is nil, and moves past it.
template <class Convert>
void ReadValueElement(const CElementInfo& info, const CSerializationContext& context,
                      CXmlGeneratedClass* object, CXmlElement** current, Convert convert) {
    CXmlElement* element = *current;
    bool nil = false;
    for (CXmlAttribute* attribute : element->GetAttributes()) {
        if (attribute->IsNilAttribute())
            nil = internal::ReadNilAttribute(*attribute, info.IsNillable());
        else if (!context.GetIgnoreUnknownAttributes())
            throw CQxValidationException(L"Unexpected Attribute found.", attribute->GetXPath());
    }
    // A nil element leaves the member as it was, although writing puts a nil member out as nil.
    if (!nil) {
        const std::wstring& text = element->GetText();
        QxVariant value;
        try {
            convert(text.empty() && !info.GetDefaultValue().empty() ? info.GetDefaultValue() : text, value);
        } catch (const CQxException& e) {
            // A text that does not convert is reported at its element, as a refused value is.
            throw CQxValidationException(L"Failed to set the property value.", element->GetXPath(), e);
        }
        info.InvokePropertySet(object, value, *element);
    }
    *current = element->GetNextSiblingElement();
}

} // namespace

void CElementInfo::ElementFromXmlPrim(const CSerializationContext& context, CXmlGeneratedClass* object,
                                      CXmlElement** current) const {
    ReadValueElement(*this, context, object, current, [&](const std::wstring& text, QxVariant& value) {
        // A string that a streamed load reads once is moved, not copied: it may be as large as the
        // document.
        std::wstring taken;
        if (m_itemType == itString && &text == &(*current)->GetText() &&
            internal::CStreamedLoad::TakeText(*current, taken))
            value.SetString(CConversions::stringFromString(std::move(taken), m_whitespaceRule));
        else
            value.FromString(text, m_itemType, m_whitespaceRule);
    });
}

void CElementInfo::ElementFromXmlEnum(const CSerializationContext& context, CXmlGeneratedClass* object,
                                      CXmlElement** current) const {
    ReadValueElement(*this, context, object, current, [&](const std::wstring& text, QxVariant& value) {
        value.SetI4(m_textToEnum(text.c_str()));
    });
}

} // namespace QxXmlLib16Data
