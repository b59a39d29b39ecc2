#pragma once

// The element descriptors form a family named by three choices: model group (Seq, Choice, All),
// content kind (Cls, Prim, Enum, ...) and cardinality (Mnd, Opt, Col). Each choice is a policy
// type below, and a member's class is only the composition of its three; every virtual slot is
// one call into this header:
//
//   ElementToXml               WriteMember<Cardinality>(*this, Kind{}, ...)
//   ElementFromXml             ReadValueMember<Group, Cardinality>(*this, Kind{}, ...)   Prim, Enum
//                              ReadExistingClass<Group>(*this, target, ...)             Cls Mnd
//                              ReadNewClass<Group>(*this, target, ...)                  Cls Opt
//   Validate                   ValidateAllMember<Cardinality>(*this, ...)               All only
//   PseudoChildAttributeToXml  WriteInlineChildAttributes(*this, elementKind, ...)      Cls only
//
// A new member adds its constructor fields and these one-line forwards; a new kind (AbsCls,
// Untpd) adds a kind policy with Write and, where it reads differently, one reader template here.

#include <QxXmlLib16/Exceptions.h>
#include <QxXmlLib16/Functions.h>
#include <QxXmlLib16/QxVariant.h>
#include <QxXmlLib16/SerializationContext.h>
#include <QxXmlLib16/XmlElement.h>
#include <QxXmlLib16/XmlGeneratedClass.h>
#include <QxXmlLib16/data/ElementInfo.h>

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
struct SequenceGroup {
    static constexpr bool kOrdered = true;
    static constexpr bool kStoreBeforeFill = false;
    static constexpr bool kFillFlag = false;
    static constexpr bool kStoreNullOnInlineMiss = false;
};
struct ChoiceGroup {
    static constexpr bool kOrdered = false;
    static constexpr bool kStoreBeforeFill = true;
    static constexpr bool kFillFlag = true;
    static constexpr bool kStoreNullOnInlineMiss = true;
};
struct AllGroup {
    static constexpr bool kOrdered = false;
    static constexpr bool kStoreBeforeFill = false;
    static constexpr bool kFillFlag = false;
    static constexpr bool kStoreNullOnInlineMiss = false;
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

// The constructor fields of a class member.
struct ClassTarget {
    XmlElementType elementKind;
    ClassFactoryFunction factory;
    int classNumber;
    bool requiredContent; // inline content must consume something (mandatory members only)
};

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

// Writes the attributes of a child whose content stands inline, on the parent's element.
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

// ---- All-group validation ------------------------------------------------------------------------

template <class Cardinality>
bool ValidateAllMember(const CElementInfo& info, bool found, bool check) {
    if (!Cardinality::kRequired) return true;
    if (!check || found) return found;
    throw CQxValidationException(
        FormatString(L"Failed to find the mandatory element [%ls].", info.GetName().c_str()), std::wstring());
}

} // namespace QxXmlLib16Data::internal
