#include <QxXmlLib16/binding/XmlGeneratedClass.h>

#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlWriter.h>
#include <QxXmlLib16/data/AttributeInfo.h>
#include <QxXmlLib16/data/ElementInfo.h>
#include <QxXmlLib16/data/ParentElementInfo.h>

#include "binding/NilValue.h"
#include "xml/StreamedLoad.h"

#include <array>
#include <vector>

using namespace QxXmlLib16Data;

namespace QxXmlLib16 {

namespace {

// One "taken" mark per descriptor, without allocating for the usual handful of descriptors.
class CMarks {
public:
    explicit CMarks(size_t count) {
        if (count > m_small.size()) m_large.resize(count);
    }
    bool Get(size_t index) const { return m_large.empty() ? m_small[index] : m_large[index]; }
    void Set(size_t index) {
        if (m_large.empty())
            m_small[index] = true;
        else
            m_large[index] = true;
    }

private:
    std::array<bool, 32> m_small{};
    std::vector<bool> m_large;
};

template <class T>
size_t CountOf(T* const* list) {
    size_t count = 0;
    if (list)
        while (list[count])
            ++count;
    return count;
}

// Simple content is read under its type's own rule: a string keeps its whitespace, every other
// type is collapsed as XML Schema does for it.
CWhitespaceUtils::WhitespaceRule ContentWhitespace(ItemType type) {
    return type == itString ? CWhitespaceUtils::wsPreserve : CWhitespaceUtils::wsCollapse;
}

// Objects are read and written one inside the other, so the stack grows with their nesting; only a
// schema type that contains itself lets a document choose how far. Counts the objects this thread
// is inside of, and refuses the one past the limit.
class CObjectDepth {
public:
    explicit CObjectDepth(const std::wstring& elementName, const CXmlElement* element = nullptr) {
        if (t_depth == kMaxObjectDepth)
            throw CQxValidationException(
                FormatString(L"The element [%ls] is nested more than %d objects deep.", elementName.c_str(),
                             kMaxObjectDepth),
                element ? element->GetXPath() : std::wstring());
        ++t_depth;
    }
    ~CObjectDepth() { --t_depth; }
    CObjectDepth(const CObjectDepth&) = delete;
    CObjectDepth& operator=(const CObjectDepth&) = delete;

private:
    static thread_local int t_depth;
};

thread_local int CObjectDepth::t_depth = 0;

// Inline content (a group standing among its parent's children) is read on trial: when it gives
// back the position it started from, its parent reads the same elements again. While such a read
// is under way, no object may drop the elements it read.
class CInlineRead {
public:
    explicit CInlineRead(bool inlineContent)
        : m_counted(inlineContent) {
        if (m_counted) ++t_reads;
    }
    ~CInlineRead() {
        if (m_counted) --t_reads;
    }
    CInlineRead(const CInlineRead&) = delete;
    CInlineRead& operator=(const CInlineRead&) = delete;
    static bool Any() { return t_reads > 0; }

private:
    const bool m_counted;
    static thread_local int t_reads;
};

thread_local int CInlineRead::t_reads = 0;

bool IsNil(const CXmlGeneratedClass* object) {
    const INillable* nillable = dynamic_cast<const INillable*>(object);
    return nillable && nillable->IsNil();
}

} // namespace

// ---- Small members -----------------------------------------------------------------------------

int CXmlGeneratedClass::ReadProperty(int propertyNumber, QxVariant& value) const {
    // The one access operation reads and writes, so it is not const; reading changes nothing.
    return const_cast<CXmlGeneratedClass*>(this)->AccessProperty(propertyNumber, true, value);
}

int CXmlGeneratedClass::GetClassElementInfoCount() const {
    return static_cast<int>(CountOf(GetClassElementInfo()));
}

bool CXmlGeneratedClass::IsElementInList(const CSerializationContext& context, CXmlElement* element) const {
    for (CElementInfo* const* info = GetClassElementInfo(); info && *info; ++info)
        if ((*info)->IsThisElement(context, element)) return true;
    return false;
}

// A member may legitimately be absent when it is a collection that allows no items, or an inline
// group whose own members may be absent. Plain optional members do not count: in a choice every
// alternative is optional, and the choice as a whole still needs one of them.
bool CXmlGeneratedClass::DoesElementContainOptionalElements() const {
    for (CElementInfo* const* info = GetClassElementInfo(); info && *info; ++info) {
        QxVariant value;
        (*info)->ReadProperty(this, value);
        if (CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection()) {
            if (collection->GetMinOccurs() == 0) return true;
        } else if (CSmartPtr<CXmlObjectBase> child = value.GetXmlObject()) {
            const auto* group = dynamic_cast<const CXmlGeneratedClass*>(child.Get());
            if (group && group->GetClassInfo()->GetElementType() != etElement &&
                group->DoesElementContainOptionalElements())
                return true;
        }
    }
    return false;
}

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& classInfo, CElementInfo**& elements,
                                       CAttributeInfo**& attributes) {
    delete classInfo;
    classInfo = nullptr;
    for (CElementInfo** info = elements; info && *info; ++info)
        delete *info;
    delete[] elements;
    elements = nullptr;
    for (CAttributeInfo** info = attributes; info && *info; ++info)
        delete *info;
    delete[] attributes;
    attributes = nullptr;
}

// ---- Writing -----------------------------------------------------------------------------------

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar_t* namespaceURI,
                                   const CSerializationContext& context, bool flag) const {
    const CObjectDepth depth(GetElementName());
    const CParentElementInfo* info = GetClassInfo();
    const bool ownElement = info->GetElementType() == etElement;
    try {
        if (ownElement) {
            if (isRoot) {
                for (const std::wstring& instruction : context.GetProcessingInstructions())
                    writer->WritePI(instruction);
                const CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
                for (int i = 0; i < aliases.GetNamespaceCount(); ++i) {
                    const std::wstring uri = aliases.GetNamespaceAt(i);
                    writer->AddNamespace(aliases.GetAliasFromNamespace(uri.c_str()), uri);
                }
                const std::wstring defaultNamespace = context.GetDefaultNamespaceURI();
                if (!defaultNamespace.empty()) writer->SetDefaultNamespace(defaultNamespace);
            }
            writer->WriteStartElement(GetElementName(), namespaceURI ? namespaceURI : L"");
            if (isRoot && context.HasAdditionalRootAttributes())
                CXmlObjectBase::ToXml_Int(context.GetAdditionalRootAttributes().Get(), writer, false,
                                          namespaceURI, context, flag);
            AttributesToXml_Int(writer, context);
            if (isRoot) {
                const std::wstring schema = context.GetInLineSchema();
                if (!schema.empty()) writer->WriteInlineSchema(schema);
            }
        }
        if (IsNil(this)) {
            writer->WriteAttributeNil();
        } else {
            switch (info->GetGroupType()) {
            case egSequence:
                ProcessElementSeqToXml(context, writer);
                break;
            case egChoice:
                ProcessElementChoiceToXml(context, writer, flag);
                break;
            case egAll:
                ProcessElementAllToXml(context, writer);
                break;
            default:
                throw CQxException(L"Unknown XML Group Type");
            }
            if (info->GetContentPropertyNumber() != -1 && info->GetContentItemType() != itNone) {
                QxVariant value;
                ReadProperty(info->GetContentPropertyNumber(), value);
                if (value.IsNil())
                    writer->WriteAttributeNil();
                else
                    writer->WriteString(value.ToString(info->GetContentFormat()), value.GetItemType(), false);
            }
        }
        if (ownElement) writer->WriteEndElement();
    } catch (const CQxException& e) {
        throw CQxValidationException(
            FormatString(L"Failed to convert the element [%ls] to XML", GetElementName().c_str()),
            std::wstring(), e);
    }
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const {
    const CParentElementInfo* info = GetClassInfo();
    try {
        // An object standing under an element name other than its type's says which type it is.
        if (context.GetWriteTypeAttribute() && info->GetTypeAttributeAllowed() &&
            GetElementName() != info->GetName())
            writer->WriteAttributeType(info->GetNamespace(), info->GetName(), itString);
        ProcessAttributesToXml(context, GetClassElementInfo(), GetClassAttributeInfo(), writer);
    } catch (const CQxException& e) {
        throw CQxException(L"Failed to convert attributes to XML", e);
    }
}

void CXmlGeneratedClass::ProcessAttributesToXml(const CSerializationContext& context,
                                                CElementInfo* const* elements,
                                                CAttributeInfo* const* attributes, CXmlWriter* writer) const {
    for (CAttributeInfo* const* info = attributes; info && *info; ++info)
        (*info)->AttributeToXml(context, this, writer);
    for (CElementInfo* const* info = elements; info && *info; ++info)
        (*info)->PseudoChildAttributeToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementSeqToXml(const CSerializationContext& context,
                                                CXmlWriter* writer) const {
    for (CElementInfo* const* info = GetClassElementInfo(); info && *info; ++info)
        (*info)->ElementToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementAllToXml(const CSerializationContext& context,
                                                CXmlWriter* writer) const {
    ProcessElementSeqToXml(context, writer); // written in schema order
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(const CSerializationContext& context, CXmlWriter* writer,
                                                   bool flag) const {
    for (CElementInfo* const* info = GetClassElementInfo(); info && *info; ++info)
        if ((*info)->ElementToXml(context, this, writer)) return;
    if (!DoesElementContainOptionalElements() && !flag && !context.GetIgnoreMissingChoice())
        throw CQxValidationException(
            L"This element is a choice, and as such must have at one (and only one) valid "
            L"item, currently there are none set",
            std::wstring());
}

// ---- Reading -----------------------------------------------------------------------------------

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                             const CSerializationContext& context, bool flag) {
    const CObjectDepth depth(element->GetLocalName(), element);
    try {
        OnBeforeFromXml(element, firstChild, context, flag);
        const CParentElementInfo* info = GetClassInfo();
        const int elementKind = info->GetElementType();
        const CInlineRead inlineRead(elementKind != etElement);
        // Collection items are made under their element's name already.
        if (elementKind == etElement && GetElementName() != element->GetLocalName())
            SetElementName(element->GetLocalName().c_str());
        ProcessAttributesFromXml(context, element, info->GetReportUnknownAttributes());
        if (IsNil(this)) return firstChild; // the content of a nil element is not read

        CXmlElement* stopped;
        switch (info->GetGroupType()) {
        case egSequence:
            stopped = ProcessElementSeqFromXml(context, element, firstChild, elementKind);
            break;
        case egChoice:
            stopped = ProcessElementChoiceFromXml(context, element, firstChild, elementKind, flag);
            break;
        case egAll:
            stopped = ProcessElementAllFromXml(context, element, firstChild, elementKind);
            break;
        default:
            throw CQxException(L"Unknown Group Type");
        }

        if (info->GetContentPropertyNumber() != -1 && info->GetContentItemType() != itNone) {
            QxVariant value;
            if (info->GetContentIsString())
                value.SetString(element->GetText());
            else
                value.FromString(element->GetText(), info->GetContentItemType(),
                                 ContentWhitespace(info->GetContentItemType()));
            AccessProperty(info->GetContentPropertyNumber(), false, value);
        }
        // Read in full and never to be read again: a streamed document drops the element's content.
        if (elementKind == etElement && !stopped && !CInlineRead::Any())
            internal::CStreamedLoad::Release(element);
        return stopped;
    } catch (const CQxException& e) {
        // The innermost known path is kept, so every level of the chain names the offending node.
        throw CQxValidationException(L"Failed to process the element.",
                                     e.GetPath().empty() ? element->GetXPath() : e.GetPath(), e);
    }
}

void CXmlGeneratedClass::ProcessAttributesFromXml(const CSerializationContext& context, CXmlElement* element,
                                                  bool reportUnknown) {
    CAttributeInfo* const* infos = GetClassAttributeInfo();
    const size_t count = CountOf(infos);
    CMarks found(count);
    for (CXmlAttribute* attribute : element->GetAttributes()) {
        if (attribute->IsNamespaceAttribute()) continue;
        if (attribute->IsNilAttribute()) {
            INillable* nillable = dynamic_cast<INillable*>(this);
            if (!nillable) internal::ThrowNilNotAllowed(*element);
            const internal::NilValue nil = internal::ParseNilValue(attribute->GetValue());
            if (nil == internal::NilValue::Invalid) internal::ThrowInvalidNilValue(*attribute);
            nillable->SetNil(nil == internal::NilValue::True);
            continue;
        }
        size_t taker = 0;
        while (taker < count && !infos[taker]->AttributeFromXml(context, this, attribute))
            ++taker;
        if (taker < count)
            found.Set(taker);
        else if (reportUnknown && !context.GetIgnoreUnknownAttributes())
            throw CQxValidationException(L"Unexpected Attribute found.", attribute->GetXPath());
    }
    for (size_t i = 0; i < count; ++i)
        infos[i]->Validate(context, found.Get(i));
}

namespace {

[[noreturn]] void ThrowLeftover(const CXmlElement* element, const CXmlElement* leftover) {
    throw CQxValidationException(
        FormatString(L"Failed read all the elements held within the element [%ls]. The "
                     L"unexpected element [%ls] remains un processed",
                     element->GetLocalName().c_str(), leftover->GetLocalName().c_str()),
        element->GetXPath());
}

// The end of a class's children: an inline group hands the rest back to its parent; a class with
// an element of its own must have used them all, unless unknown elements are ignored.
CXmlElement* FinishChildren(const CSerializationContext& context, const CXmlElement* element,
                            CXmlElement* current, int elementKind) {
    if (elementKind != etElement || !current) return current;
    if (!context.GetIgnoreUnknownElements()) ThrowLeftover(element, current);
    return nullptr;
}

} // namespace

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(const CSerializationContext& context,
                                                          CXmlElement* element, CXmlElement* firstChild,
                                                          int elementKind) {
    const std::wstring ns = GetNamespace();
    const auto probe = static_cast<XmlElementType>(elementKind);
    CXmlElement* current = firstChild;
    for (CElementInfo* const* info = GetClassElementInfo(); info && *info; ++info) {
        while (!(*info)->ElementFromXml(context, this, element, &current, ns.c_str(), probe)) {
            if (!context.GetIgnoreUnknownElements()) return firstChild;
            if (!current) break; // nothing left to skip: the next member may still be satisfied
            current = current->GetNextSiblingElement();
        }
    }
    return FinishChildren(context, element, current, elementKind);
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(const CSerializationContext& context,
                                                          CXmlElement* element, CXmlElement* firstChild,
                                                          int elementKind) {
    const std::wstring ns = GetNamespace();
    const auto probe = static_cast<XmlElementType>(elementKind);
    CElementInfo* const* infos = GetClassElementInfo();
    const size_t count = CountOf(infos);
    CMarks found(count);
    CXmlElement* current = firstChild;
    while (current) {
        bool used = false;
        for (size_t i = 0; i < count && !used; ++i) {
            if (found.Get(i)) continue;
            CXmlElement* before = current;
            if (infos[i]->ElementFromXml(context, this, element, &current, ns.c_str(), probe)) found.Set(i);
            // A collection takes its items without counting as the member that was found.
            used = found.Get(i) || current != before;
        }
        if (used) continue;
        if (elementKind != etElement) break; // the rest belongs to the parent
        if (!context.GetIgnoreUnknownElements()) ThrowLeftover(element, current);
        current = current->GetNextSiblingElement();
    }
    const bool reportMissing = !context.GetIgnoreMissingMandatoryElements();
    for (size_t i = 0; i < count; ++i) {
        QxVariant value;
        infos[i]->ReadProperty(this, value);
        // A collection's items may lie anywhere in the group: only now is its count known.
        if (value.GetItemType() == itXmlCollection)
            value.GetXmlCollection()->ValidateCount(context);
        else
            infos[i]->Validate(context, this, found.Get(i), reportMissing);
    }
    return current;
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(const CSerializationContext& context,
                                                             CXmlElement* element, CXmlElement* firstChild,
                                                             int elementKind, bool) {
    const std::wstring ns = GetNamespace();
    const auto probe = static_cast<XmlElementType>(elementKind);
    CXmlElement* current = firstChild;
    for (;;) {
        for (CElementInfo* const* info = GetClassElementInfo(); info && *info; ++info)
            if ((*info)->ElementFromXml(context, this, element, &current, ns.c_str(), probe))
                return FinishChildren(context, element, current, elementKind);
        if (!current || !context.GetIgnoreUnknownElements()) break;
        current = current->GetNextSiblingElement();
    }
    // An inline choice that finds nothing consumes nothing: the member holding it decides.
    if (elementKind != etElement) return firstChild;
    if (!DoesElementContainOptionalElements() && !context.GetIgnoreMissingChoice())
        throw CQxValidationException(
            FormatString(
                L"No child elements within the element [%ls] were populated. The element represents a "
                L"choice, so one and only one element should be populated. The element contained no "
                L"sutable child elements",
                element->GetLocalName().c_str()),
            element->GetXPath());
    return FinishChildren(context, element, current, elementKind);
}

} // namespace QxXmlLib16
