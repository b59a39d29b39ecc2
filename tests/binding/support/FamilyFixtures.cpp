#include "binding/support/FamilyFixtures.h"

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>
#include <QxXmlLib16/data/AttributeInfoPrimitive.h>
#include <QxXmlLib16/data/ElementInfoFamily.h>
#include <QxXmlLib16/data/ParentElementInfo.h>

#include <cwchar>
#include <functional>

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;

namespace FamilyFixtures {

namespace {

CElementInfo* const kNoElements[] = {nullptr};
CAttributeInfo* const kNoAttributes[] = {nullptr};

void ExchangeI4(std::optional<long>& field, bool read, QxVariant& value) {
    if (!read)
        field = value.GetI4();
    else if (field)
        value.SetI4(*field);
}

std::wstring Written(const std::function<void(CXmlTextWriter&)>& writes) {
    CTextStream stream(encUTF8);
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    writer.Open();
    writes(writer);
    writer.Close();
    return stream.GetText();
}

} // namespace

int CSlots::AccessProperty(int property, bool read, QxVariant& value) {
    if (read)
        value = slot[property];
    else
        slot[property] = value;
    return 0;
}

const CParentElementInfo* CSlots::GetClassInfo() const {
    static const CParentElementInfo info(egSequence, etElement, L"slots", L"", true, false, -1, itNone,
                                         nullptr, false);
    return &info;
}

CElementInfo* const* CSlots::GetClassElementInfo() const {
    return kNoElements;
}

CAttributeInfo* const* CSlots::GetClassAttributeInfo() const {
    return kNoAttributes;
}

int CLeaf::AccessProperty(int property, bool read, QxVariant& value) {
    if (property == 0) ExchangeI4(id, read, value);
    if (property == 1) ExchangeI4(v, read, value);
    if (property == 2) {
        if (!read)
            kind = value.GetString();
        else if (kind)
            value.SetString(*kind);
    }
    return 0;
}

const CParentElementInfo* CLeaf::GetClassInfo() const {
    static const CParentElementInfo info(egSequence, etElement, L"leaf", L"", true, false, -1, itNone,
                                         nullptr, false);
    return &info;
}

CElementInfo* const* CLeaf::GetClassElementInfo() const {
    static CElementInfoSeqPrimOpt v(L"v", L"", 1, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                    nullptr);
    static CElementInfo* const list[] = {&v, nullptr};
    return list;
}

CAttributeInfo* const* CLeaf::GetClassAttributeInfo() const {
    static CAttributeInfoPrimitive id(L"id", L"", 0, true, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                      nullptr);
    static CAttributeInfoPrimitive kind(L"kind", L"", 2, true, itString, nullptr,
                                        CWhitespaceUtils::wsPreserve, {}, nullptr);
    static CAttributeInfo* const list[] = {&id, &kind, nullptr};
    return list;
}

void CLeaf::OnBeforeFromXml(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    id = v = {};
    kind = {};
}

CLeafCol::CLeafCol(int minOccurs, int maxOccurs)
    : CXmlCollection(L"c", L"", minOccurs, maxOccurs) {}

void CLeafCol::ToXml_Int(CXmlWriter* writer, bool, const wchar_t* namespaceURI,
                         const CSerializationContext& context, bool flag) const {
    for (CXmlObjectBase* item : *this)
        CXmlObjectBase::ToXml_Int(item, writer, false, namespaceURI, context, flag);
}

CSmartPtr<CLeaf> NewLeaf(std::optional<long> id) {
    CSmartPtr<CLeaf> leaf(new CLeaf);
    leaf->SetElementName(L"c");
    leaf->id = id;
    return leaf;
}

CSmartPtr<CXmlObjectBase> MakeLeaf(int, const wchar_t* name) {
    CSmartPtr<CXmlObjectBase> leaf(new CLeaf);
    leaf->SetElementName(name);
    return leaf;
}

CSmartPtr<CXmlObjectBase> MakeByType(CXmlElement* element) {
    for (CXmlAttribute* attribute : element->GetAttributes())
        if (attribute->GetLocalName() == L"kind" && attribute->GetValue() == L"leaf")
            return MakeLeaf(0, element->GetLocalName().c_str());
    return nullptr;
}

const wchar_t* ColourToText(int value) {
    return value == 0 ? L"red" : L"green";
}

int TextToColour(const wchar_t* text) {
    return std::wcscmp(text, L"red") == 0 ? 0 : 1;
}

Outcome ReadMember(const CElementInfo& info, CSlots& object, const wchar_t* xml, XmlElementType probe,
                   const CSerializationContext& context) {
    CXmlDocument document;
    document.LoadXml(xml);
    CXmlElement* root = document.GetDocumentElement();
    CXmlElement* current = root->GetFirstElement();
    const bool result = info.ElementFromXml(context, &object, root, &current, L"", probe);
    return {result, current ? current->GetLocalName() : L"(end)"};
}

Failure FailureOf(const CElementInfo& info, CSlots& object, const wchar_t* xml, XmlElementType probe) {
    try {
        ReadMember(info, object, xml, probe);
    } catch (const CQxValidationException& e) {
        // The message carries the path as its last line.
        const std::wstring suffix = e.GetPath().empty() ? L"" : L"\nPath: " + e.GetPath();
        const std::wstring& message = e.GetMessage();
        return {message.substr(0, message.size() - suffix.size()), e.GetPath()};
    }
    return {L"(no exception)", L""};
}

std::wstring WriteMember(const CElementInfo& info, const CSlots& object,
                         const CSerializationContext& context) {
    return Written([&](CXmlTextWriter& writer) { info.ElementToXml(context, &object, &writer); });
}

std::wstring WriteAttributesOn(const CElementInfo& info, const CSlots& object) {
    return Written([&](CXmlTextWriter& writer) {
        writer.WriteStartElement(L"p", L"");
        info.PseudoChildAttributeToXml(CSerializationContext(), &object, &writer);
        writer.WriteEndElement();
    });
}

} // namespace FamilyFixtures
