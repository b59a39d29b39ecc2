#pragma once

// What the element descriptors do, by the three choices that name them: model group (Seq, Choice,
// All), content kind (Cls, Prim, Enum, ...) and cardinality (Mnd, Opt, Col). Each choice is a
// policy type below; ElementInfoFamily.cpp picks one of each for a descriptor and calls:
//
//   ElementToXml               WriteMember<Cardinality>(*this, Kind{}, ...)
//                              WriteCollection<Group>(*this, ...)                       Col
//   ElementFromXml             ReadValueMember<Group, Cardinality>(*this, Kind{}, ...)   Prim, Enum
//                              ReadExistingClass<Group>(*this, fields, ...)             Cls Mnd
//                              ReadNewClass<Group>(*this, fields, ...)                  Cls Opt
//                              ReadAbstractClass<Group, Cardinality>(*this, ...)        AbsCls
//                              ReadWildcard<Group, Cardinality>(*this, fields, ...)     Untpd
//                              ReadCollection<Group>(*this, ...)                        Col
//   Validate                   ValidateAllMember<Cardinality>(*this, ...)               All only
//   PseudoChildAttributeToXml  WriteInlineChildAttributes(*this, elementKind, ...)      Cls, AbsCls
//
// A new kind adds a kind policy with Write and, where it reads differently, one reader template.

#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/data/ElementInfoFamily.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlElement.h>

namespace QxXmlLib16Data::internal {

using QxXmlLib16::CQxInvalidParamException;
using QxXmlLib16::CQxInvalidStateException;
using QxXmlLib16::CQxValidationException;
using QxXmlLib16::CSerializationContext;
using QxXmlLib16::CSmartPtr;
using QxXmlLib16::CXmlElement;
using QxXmlLib16::CXmlGeneratedClass;
using QxXmlLib16::CXmlObjectBase;
using QxXmlLib16::CXmlWriter;
using QxXmlLib16::FormatString;
using QxXmlLib16::QxVariant;

// ---- Cardinality ---------------------------------------------------------------------------------

struct Mandatory {
    static constexpr bool kRequired = true;
};
struct Optional {
    static constexpr bool kRequired = false;
};

// ---- Model group ---------------------------------------------------------------------------------

// kOrdered: a mandatory member must be found here (skipping foreign elements where allowed), and
// an optional member that is absent still satisfies the group.
// kStoreBeforeFill / kFillFlag: a new child object of a choice is stored before it is read, so
// that the parent's choice bookkeeping sees it selected, and is read with the flag set.
// kCollectionRead: what a collection member's read means to its group (see ReadCollection).
// kCountOnWrite: the collection's count is checked before it is written.
enum class CollectionRead {
    Counted,        // satisfied when the count is valid
    Matched,        // as Counted, but only if something was read; a probe that fails keeps *current
    NeverSatisfies, // items are taken, but the member never counts as the group's found member
};

struct SequenceGroup {
    static constexpr bool kOrdered = true;
    static constexpr bool kStoreBeforeFill = false;
    static constexpr bool kFillFlag = false;
    static constexpr bool kStoreNullOnInlineMiss = false;
    static constexpr CollectionRead kCollectionRead = CollectionRead::Counted;
    static constexpr bool kCountOnWrite = true;
};
struct ChoiceGroup {
    static constexpr bool kOrdered = false;
    static constexpr bool kStoreBeforeFill = true;
    static constexpr bool kFillFlag = true;
    static constexpr bool kStoreNullOnInlineMiss = true;
    static constexpr CollectionRead kCollectionRead = CollectionRead::Matched;
    static constexpr bool kCountOnWrite = false;
};
struct AllGroup {
    static constexpr bool kOrdered = false;
    static constexpr bool kStoreBeforeFill = false;
    static constexpr bool kFillFlag = false;
    static constexpr bool kStoreNullOnInlineMiss = false;
    static constexpr CollectionRead kCollectionRead = CollectionRead::NeverSatisfies;
    static constexpr bool kCountOnWrite = true;
};

// ---- Content kind --------------------------------------------------------------------------------

struct PrimContent {
    static bool Write(const CElementInfo& info, const CSerializationContext& context,
                      const CXmlGeneratedClass* object, CXmlWriter* writer) {
        return info.ElementToXmlPrim(context, object, writer);
    }
    static void Read(const CElementInfo& info, const CSerializationContext& context,
                     CXmlGeneratedClass* object, CXmlElement** current) {
        info.ElementFromXmlPrim(context, object, current);
    }
};

struct EnumContent {
    static bool Write(const CElementInfo& info, const CSerializationContext& context,
                      const CXmlGeneratedClass* object, CXmlWriter* writer) {
        return info.ElementToXmlEnum(context, object, writer, info.GetEnumToText());
    }
    static void Read(const CElementInfo& info, const CSerializationContext& context,
                     CXmlGeneratedClass* object, CXmlElement** current) {
        info.ElementFromXmlEnum(context, object, current);
    }
};

struct ClsContent {
    static bool Write(const CElementInfo& info, const CSerializationContext& context,
                      const CXmlGeneratedClass* object, CXmlWriter* writer) {
        return info.ElementToXmlCls(context, object, writer, false);
    }
};

using ClassTarget = TMemberFields<ckClass>;
using WildcardTarget = TMemberFields<ckUntyped>;

// ---- Writing -------------------------------------------------------------------------------------

template <class Cardinality, class Kind>
bool WriteMember(const CElementInfo& info, Kind, const CSerializationContext& context,
                 const CXmlGeneratedClass* object, CXmlWriter* writer) {
    const bool written = Kind::Write(info, context, object, writer);
    if (Cardinality::kRequired && !written)
        throw CQxInvalidParamException(
            FormatString(L"The Property [%ls] is mandatory, it may not be NULL", info.GetName().c_str()));
    return written;
}

// Checks the collection's count unless the group leaves that to the reader, then writes it.
void CheckCountBeforeWrite(const CElementInfo& info, const CSerializationContext& context,
                           const CXmlGeneratedClass* object);

template <class Group>
bool WriteCollection(const CElementInfo& info, const CSerializationContext& context,
                     const CXmlGeneratedClass* object, CXmlWriter* writer) {
    if (Group::kCountOnWrite) CheckCountBeforeWrite(info, context, object);
    return info.ElementToXmlCol(context, object, writer);
}

// Writes the attributes of a child (or of every item of a collection) whose content stands inline, on the
// parent's element.
void WriteInlineChildAttributes(const CElementInfo& info, XmlElementType elementKind,
                                const CSerializationContext& context, const CXmlGeneratedClass* object,
                                CXmlWriter* writer);

// ---- Reading -------------------------------------------------------------------------------------

[[noreturn]] void ThrowMissingRequired(const CElementInfo& info, const CXmlElement* parent);

enum class Located {
    Found,   // *current is the member's element
    Ignored, // missing, and the context ignores missing mandatory members
    Absent,  // missing while probing
};

// Moves *current to the member's element in a sequence. Foreign elements are skipped only when
// the context ignores unknown elements, and while probing only when skipWhileProbing is set.
Located LocateInSequence(const CElementInfo& info, const CSerializationContext& context,
                         const CXmlElement* parent, CXmlElement** current, XmlElementType probe,
                         bool skipWhileProbing);

template <class Group, class Cardinality, class Kind>
bool ReadValueMember(const CElementInfo& info, Kind, const CSerializationContext& context,
                     CXmlGeneratedClass* object, CXmlElement* parent, CXmlElement** current,
                     XmlElementType probe) {
    if constexpr (Group::kOrdered && Cardinality::kRequired) {
        const Located located = LocateInSequence(info, context, parent, current, probe, true);
        if (located != Located::Found) return located == Located::Ignored;
    } else if (!info.IsThisElement(context, *current)) {
        return Group::kOrdered;
    }
    Kind::Read(info, context, object, current);
    return true;
}

// A new child object from the member's factory.
CSmartPtr<CXmlObjectBase> NewChild(const CElementInfo& info, const ClassTarget& target);
// The member's current child object; one is made and stored if the generated object holds none.
CSmartPtr<CXmlObjectBase> ExistingChild(const CElementInfo& info, const ClassTarget& target,
                                        CXmlGeneratedClass* object, const CXmlElement& at);
void StoreChild(const CElementInfo& info, CXmlGeneratedClass* object, CXmlObjectBase* child,
                const CXmlElement& at);

// Reads inline content into an existing child from (parent, *current). Outside a sequence the
// result is whether anything was consumed; in a sequence the required-content flag decides.
bool ReadInlineExisting(const CElementInfo& info, const ClassTarget& target, bool ordered,
                        const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent,
                        CXmlElement** current, XmlElementType probe);

// A mandatory child object of a known class, read in place.
template <class Group>
bool ReadExistingClass(const CElementInfo& info, const ClassTarget& target,
                       const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent,
                       CXmlElement** current, XmlElementType probe) {
    if (target.elementKind != etElement)
        return ReadInlineExisting(info, target, Group::kOrdered, context, object, parent, current, probe);
    if constexpr (Group::kOrdered) {
        if (probe == etElement) {
            const Located located = LocateInSequence(info, context, parent, current, probe, false);
            if (located == Located::Ignored) return true;
        } else if (!info.IsThisElement(context, *current)) {
            return false;
        }
    } else if (!info.IsThisElement(context, *current)) {
        return false;
    }
    CXmlElement* element = *current;
    CSmartPtr<CXmlObjectBase> child = ExistingChild(info, target, object, *element);
    info.FromXml_Int(child.Get(), element, element->GetFirstElement(), context, false);
    *current = element->GetNextSiblingElement();
    return true;
}

// An optional child object of a known class: a new object is made for a matching element.
template <class Group>
bool ReadNewClass(const CElementInfo& info, const ClassTarget& target, const CSerializationContext& context,
                  CXmlGeneratedClass* object, CXmlElement* parent, CXmlElement** current, XmlElementType) {
    CSmartPtr<CXmlObjectBase> child;
    if (target.elementKind != etElement) {
        child = NewChild(info, target);
        CXmlElement* stopped = info.FromXml_Int(child.Get(), parent, *current, context, Group::kFillFlag);
        if (stopped != *current) {
            StoreChild(info, object, child.Get(), *parent);
            *current = stopped;
            return true;
        }
        if (Group::kStoreNullOnInlineMiss) StoreChild(info, object, nullptr, *parent);
        return Group::kOrdered;
    }
    if (!info.IsThisElement(context, *current)) return Group::kOrdered;
    CXmlElement* element = *current;
    child = NewChild(info, target);
    if (Group::kStoreBeforeFill) StoreChild(info, object, child.Get(), *element);
    info.FromXml_Int(child.Get(), element, element->GetFirstElement(), context, Group::kFillFlag);
    if (!Group::kStoreBeforeFill) StoreChild(info, object, child.Get(), *element);
    *current = element->GetNextSiblingElement();
    return true;
}

// A child object whose class the factory chooses from the element itself; the factory must know it.
void ReadSubstitute(const CElementInfo& info, ElementFactoryFunction factory,
                    const CSerializationContext& context, CXmlGeneratedClass* object,
                    const CXmlElement* parent, CXmlElement** current);
[[noreturn]] void ThrowNoSubstitution(const CElementInfo& info, const CXmlElement* parent);

// The factory needs an element to choose a class, so an abstract member is always read from an
// element of its own, whatever its element kind.
template <class Group, class Cardinality>
bool ReadAbstractClass(const CElementInfo& info, ElementFactoryFunction factory,
                       const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent,
                       CXmlElement** current, XmlElementType probe) {
    if (!info.IsThisElement(context, *current)) {
        if (Group::kOrdered && Cardinality::kRequired && probe == etElement)
            ThrowNoSubstitution(info, parent);
        return Group::kOrdered && !Cardinality::kRequired;
    }
    ReadSubstitute(info, factory, context, object, parent, current);
    return true;
}

// ---- Wildcards -----------------------------------------------------------------------------------

// The member name under which a wildcard takes elements of any name.
inline constexpr const wchar_t* kAnyElement = L"AnyElement";

// Lets a wildcard element read *current when the member takes any element ("AnyElement") or the
// element's local name is the member's; returns where it stopped (*current when nothing was read).
CXmlElement* ReadWildcardElement(const CElementInfo& info, CXmlObjectBase* wildcard,
                                 const CSerializationContext& context, CXmlElement* parent,
                                 CXmlElement* current);
// A new wildcard element under the member's rule, in the namespace the rule writes by default.
CSmartPtr<CXmlObjectBase> NewWildcard(const CElementInfo& info, const WildcardTarget& target,
                                      const wchar_t* enclosingNamespace);
[[noreturn]] void ThrowMissingWildcard(const CElementInfo& info, const CXmlElement* parent);

template <class Group, class Cardinality>
bool ReadWildcard(const CElementInfo& info, const WildcardTarget& target,
                  const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent,
                  CXmlElement** current, const wchar_t* enclosingNamespace, XmlElementType probe) {
    // Like every optional member of a sequence, an absent optional wildcard satisfies the group;
    // refusing would end the reading of the sequence and leave the elements after it unread.
    constexpr bool kAbsentSatisfies = Group::kOrdered && !Cardinality::kRequired;
    if (!*current) {
        if (Group::kOrdered && Cardinality::kRequired) ThrowMissingRequired(info, parent);
        return kAbsentSatisfies;
    }
    CSmartPtr<CXmlObjectBase> wildcard;
    if (Cardinality::kRequired) {
        QxVariant value;
        info.InvokePropertyGet(object, value);
        wildcard = value.GetXmlObject();
    }
    const bool isNew = !wildcard;
    if (isNew) wildcard = NewWildcard(info, target, enclosingNamespace);
    CXmlElement* stopped = ReadWildcardElement(info, wildcard.Get(), context, parent, *current);
    if (stopped == *current) {
        if (Group::kOrdered && Cardinality::kRequired && probe == etElement)
            ThrowMissingWildcard(info, parent);
        // An optional member drops what it held, so that a miss leaves no stale content behind.
        if (!Cardinality::kRequired) StoreChild(info, object, nullptr, *parent);
        return kAbsentSatisfies;
    }
    if (isNew) StoreChild(info, object, wildcard.Get(), *parent);
    *current = stopped;
    return true;
}

// ---- Collections ---------------------------------------------------------------------------------

// Reads items into a collection from current on; returns the first element it did not take.
typedef CXmlElement* (*ItemsReader)(const CElementInfo& info, QxXmlLib16::CXmlCollectionBase* collection,
                                    const CSerializationContext& context, CXmlElement* parent,
                                    CXmlElement* current);
// The collection's own reading.
CXmlElement* ReadItems(const CElementInfo& info, QxXmlLib16::CXmlCollectionBase* collection,
                       const CSerializationContext& context, CXmlElement* parent, CXmlElement* current);
// A wildcard collection: any elements for "AnyElement", else only those named like the member, in
// the namespace of the first of them.
CXmlElement* ReadWildcardItems(const CElementInfo& info, QxXmlLib16::CXmlCollectionBase* collection,
                               const CSerializationContext& context, CXmlElement* parent,
                               CXmlElement* current);
// The collection the member holds; a generated object always holds one.
CSmartPtr<QxXmlLib16::CXmlCollectionBase> MemberCollection(const CElementInfo& info,
                                                           CXmlGeneratedClass* object);

template <class Group>
bool ReadCollection(const CElementInfo& info, const CSerializationContext& context,
                    CXmlGeneratedClass* object, CXmlElement* parent, CXmlElement** current,
                    XmlElementType probe, ItemsReader read = ReadItems) {
    CSmartPtr<QxXmlLib16::CXmlCollectionBase> collection = MemberCollection(info, object);
    CXmlElement* stopped = read(info, collection.Get(), context, parent, *current);
    const bool probing = probe != etElement;
    if (Group::kCollectionRead == CollectionRead::Matched) {
        if (stopped == *current) return false;
        // Items already read stay in the collection although the position is given back.
        if (probing && !collection->IsValidCount(context)) return false;
    }
    *current = stopped;
    if (Group::kCollectionRead == CollectionRead::NeverSatisfies) return false;
    if (!probing) {
        collection->ValidateCount(context);
        return true;
    }
    return Group::kCollectionRead == CollectionRead::Matched || collection->IsValidCount(context);
}

// ---- All-group validation ------------------------------------------------------------------------

template <class Cardinality>
bool ValidateAllMember(const CElementInfo& info, bool found, bool check) {
    if (!Cardinality::kRequired) return true;
    if (!check || found) return found;
    throw CQxValidationException(
        FormatString(L"Failed to find the mandatory element [%ls].", info.GetName().c_str()), std::wstring());
}

} // namespace QxXmlLib16Data::internal
