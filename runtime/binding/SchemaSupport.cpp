#include <QxXmlLib16/binding/SchemaSupport.h>

#include <QxXmlLib16/binding/ClassfactoryBase.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/json/JsonContext.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlDocument.h>

#include "xml/StreamedLoad.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>

namespace QxXmlLib16 {

namespace {

[[noreturn]] void ThrowInvalid(const wchar_t* name, const std::wstring& text) {
    throw CQxInvalidValueException(FormatString(L"Invalid Value for %ls [%ls].", name, text.c_str()));
}

// The value's text in the kind's canonical form, so that equal values have equal texts.
std::wstring Canonical(ItemType kind, const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    QxVariant value;
    value.FromString(text, kind, rule);
    return value.ToString();
}

} // namespace

void CheckPattern(const wchar_t* name, const std::wstring& text, const wchar_t* pattern, PatternMode mode) {
    CXmlObjectHelper::CheckRestrictionForstring(
        name, text, CPrimitiveRestrictions(pattern, -1, -1, L"", L"", L"", L"", -1, -1, -1, mode));
}

void CheckValue(ItemType kind, const wchar_t* name, const std::wstring& text,
                CWhitespaceUtils::WhitespaceRule rule, const CPrimitiveRestrictions& facets) {
    QxVariant value;
    try {
        value.FromString(text, kind, rule);
    } catch (const CQxException&) {
        ThrowInvalid(name, text);
    }
    CXmlObjectHelper::CheckRestriction(name, value, kind, facets);
}

void CheckEnumeration(ItemType kind, const wchar_t* name, const std::wstring& text,
                      CWhitespaceUtils::WhitespaceRule rule, std::initializer_list<const wchar_t*> values) {
    try {
        const std::wstring value = Canonical(kind, text, rule);
        for (const wchar_t* allowed : values)
            if (Canonical(kind, allowed, rule) == value) return;
    } catch (const CQxException&) {
        // not a value of the kind at all
    }
    ThrowInvalid(name, text);
}

void CheckList(const wchar_t* name, const std::wstring& text, long long minLength, long long maxLength,
               long long length, TextCheckFunction item) {
    const std::wstring items = CWhitespaceUtils::Collapse(text);
    long long count = 0;
    for (size_t start = 0; start < items.size();) {
        size_t end = items.find(L' ', start);
        if (end == std::wstring::npos) end = items.size();
        item(name, items.substr(start, end - start));
        ++count;
        start = end + 1;
    }
    if ((minLength >= 0 && count < minLength) || (maxLength >= 0 && count > maxLength) ||
        (length >= 0 && count != length))
        ThrowInvalid(name, text);
}

void CheckUnion(const wchar_t* name, const std::wstring& text,
                std::initializer_list<TextCheckFunction> members) {
    for (TextCheckFunction member : members) {
        try {
            member(name, text);
            return;
        } catch (const CQxException&) {
            // the next member may take it
        }
    }
    ThrowInvalid(name, text);
}

void CheckFixed(const wchar_t* name, const QxVariant& value, const wchar_t* fixed) {
    const ItemType kind = value.GetItemType();
    const std::wstring text = value.ToString();
    const CWhitespaceUtils::WhitespaceRule rule =
        kind == itString ? CWhitespaceUtils::wsPreserve : CWhitespaceUtils::wsCollapse;
    try {
        if (Canonical(kind, fixed, rule) == Canonical(kind, text, rule)) return;
    } catch (const CQxException&) {
        // not a value of the kind
    }
    ThrowInvalid(name, text);
}

bool IsNilElement(const CXmlElement* first, const wchar_t* name, const wchar_t* namespaceURI) {
    for (const CXmlElement* element = first; element; element = element->GetNextSiblingElement()) {
        if (element->GetLocalName() != name || element->GetNamespaceURI() != namespaceURI) continue;
        const std::wstring& nil = element->GetAttribute(L"nil", L"http://www.w3.org/2001/XMLSchema-instance");
        return nil == L"1" || (nil.size() == 4 && (nil[0] | 0x20) == L't' && (nil[1] | 0x20) == L'r' &&
                               (nil[2] | 0x20) == L'u' && (nil[3] | 0x20) == L'e');
    }
    return false;
}

// ---- Repeated model groups ----------------------------------------------------------------------

CXmlGroupCollection::CXmlGroupCollection(const wchar_t* groupName, const wchar_t* namespaceURI, int minOccurs,
                                         int maxOccurs)
    : CXmlCollection(groupName, namespaceURI, minOccurs, maxOccurs) {}

void CXmlGroupCollection::ToXml_Int(CXmlWriter* writer, bool, const wchar_t* namespaceURI,
                                    const CSerializationContext& context, bool flag) const {
    for (CXmlObjectBase* item : *this)
        CXmlObjectBase::ToXml_Int(item, writer, false, namespaceURI, context, flag);
}

CXmlElement* CXmlGroupCollection::FromXml_Int(CXmlElement* parent, CXmlElement* current,
                                              const CSerializationContext& context, bool) {
    const int maximum = GetMaxOccurs();
    while (current && (maximum < 0 || GetCount() < maximum)) {
        const CSmartPtr<CXmlObjectBase> item = NewItem();
        CXmlElement* stopped = CXmlObjectBase::FromXml_Int(item.Get(), parent, current, context);
        if (stopped == current) break;
        AppendItem(item.Get());
        current = stopped;
    }
    return current;
}

// ---- Choosing a class ---------------------------------------------------------------------------

CSmartPtr<CXmlObjectBase> CreateByType(CXmlElement* element, const STypeEntry* types, size_t count) {
    const std::wstring name = CClassfactoryBase::GetElementType(element);
    const STypeEntry* chosen = name.empty() ? types : nullptr;
    if (!chosen) {
        const std::wstring ns = CClassfactoryBase::GetElementTypeNamespaceUri(element);
        for (size_t i = 0; i < count && !chosen; ++i)
            if (name == types[i].name && ns == types[i].namespaceURI) chosen = &types[i];
    }
    if (!chosen || !chosen->create) return nullptr;
    return chosen->create(element->GetLocalName().c_str());
}

CDocumentRoots::CDocumentRoots(std::initializer_list<SRootEntry> roots)
    : m_roots(roots) {}

CSmartPtr<CXmlObjectBase> CDocumentRoots::Read(CXmlElement* root,
                                               const CSerializationContext& context) const {
    const bool anyNamespace = context.GetIgnoreNamespaces();
    for (const SRootEntry& entry : m_roots) {
        if (root->GetLocalName() != entry.name ||
            (!anyNamespace && root->GetNamespaceURI() != entry.namespaceURI))
            continue;
        CSmartPtr<CXmlObjectBase> object = entry.create(root);
        if (!object)
            throw CQxValidationException(
                FormatString(L"Failed to find a suitable substitution element for [%ls].", entry.name),
                root->GetXPath());
        object->FromXmlElement(root, context);
        return object;
    }
    throw CQxValidationException(
        FormatString(L"The document element [%ls] of namespace [%ls] is not a global element of this schema",
                     root->GetLocalName().c_str(), root->GetNamespaceURI().c_str()),
        root->GetXPath());
}

namespace {

bool MayBeCompressed(const unsigned char* data, unsigned long length) {
    if (length < 2) return false;
    if (data[0] == 0x1F && data[1] == 0x8B) return true;
    return (data[0] & 0x0F) == 8 && (data[0] >> 4) <= 7 && ((data[0] << 8) | data[1]) % 31 == 0;
}

// JSON starts with an object or an array; XML text and Fast Infoset never do.
bool IsJson(const unsigned char* data, unsigned long length) {
    unsigned long at = length >= 3 && data[0] == 0xEF && data[1] == 0xBB && data[2] == 0xBF ? 3 : 0;
    while (at < length && (data[at] == ' ' || data[at] == '\t' || data[at] == '\r' || data[at] == '\n'))
        ++at;
    return at < length && (data[at] == '{' || data[at] == '[');
}

// Frees a malloc'ed buffer however the load ends.
struct Buffer {
    unsigned char* data = nullptr;
    unsigned long length = 0;
    ~Buffer() { std::free(data); }
};

} // namespace

CSmartPtr<CXmlObjectBase> CDocumentRoots::Load(const wchar_t* fileName,
                                               const CSerializationContext& context) const {
    const wchar_t* name = fileName ? fileName : L"";
    std::FILE* file = std::fopen(UnicodeToMultiByte(name).c_str(), "rb");
    if (!file) throw CQxException(FormatString(L"Failed to open the file [%ls].", name));
    Buffer buffer;
    unsigned char chunk[65536];
    for (size_t read; (read = std::fread(chunk, 1, sizeof chunk, file)) > 0;) {
        unsigned char* grown = static_cast<unsigned char*>(std::realloc(buffer.data, buffer.length + read));
        if (!grown) {
            std::fclose(file);
            throw std::bad_alloc();
        }
        buffer.data = grown;
        std::memcpy(buffer.data + buffer.length, chunk, read);
        buffer.length += static_cast<unsigned long>(read);
    }
    std::fclose(file);
    return Load(buffer.data, buffer.length, context);
}

CSmartPtr<CXmlObjectBase> CDocumentRoots::Load(const CBinaryData& data,
                                               const CSerializationContext& context) const {
    return Load(const_cast<unsigned char*>(data.GetData()), data.GetLength(), context);
}

CSmartPtr<CXmlObjectBase> CDocumentRoots::Load(unsigned char* data, unsigned long length,
                                               const CSerializationContext& context) const {
    Buffer inflated;
    if (data && MayBeCompressed(data, length)) {
        inflated.data = static_cast<unsigned char*>(std::malloc(length));
        if (!inflated.data) throw std::bad_alloc();
        std::memcpy(inflated.data, data, length);
        inflated.length = length;
        CQxZip::Decompress(&inflated.data, &inflated.length);
        data = inflated.data;
        length = inflated.length;
    }
    if (data && IsJson(data, length)) {
        // JSON below the full round-trip level carries no namespaces: its names match by local name.
        CSerializationContext json(context);
        if (context.GetJsonContext()->GetSupportRoundtrip() != jrtFull) json.SetIgnoreNamespaces(true);
        CXmlDocument converter(json);
        const CBinaryData xml = converter.LoadJsonStream(data, length);
        CXmlDocument document(json);
        try {
            document.LoadXmlStream(const_cast<unsigned char*>(xml.GetData()), xml.GetLength());
            return Read(document.GetDocumentElement(), json);
        } catch (CQxException& error) {
            // A place in the XML text the JSON became would mean nothing to the caller.
            error.SetPosition(0, 0);
            throw;
        }
    }
    // Parsed as the object reads it, as the objects' own entry points do: the tree never exists whole.
    CXmlDocument document(context);
    internal::CStreamedLoad stream(document);
    document.LoadXmlStream(data, length);
    CSmartPtr<CXmlObjectBase> object;
    stream.Bind([&] { object = Read(document.GetDocumentElement(), context); });
    return object;
}

} // namespace QxXmlLib16
