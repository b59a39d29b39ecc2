#include "data/ElementMember.h"

#include <QxXmlLib16/binding/XmlObjectBase.h>

namespace QxXmlLib16Data::internal {

void CheckCountBeforeWrite(const CElementInfo& info, const CSerializationContext& context,
                           const CXmlGeneratedClass* object) {
    if (context.GetIgnoreInvalidCollectionCounts()) return;
    QxVariant value;
    info.ReadProperty(object, value);
    if (CSmartPtr<QxXmlLib16::CXmlCollectionBase> collection = value.GetXmlCollection())
        collection->ValidateCount(context);
}

void WriteInlineChildAttributes(const CElementInfo& info, XmlElementType elementKind,
                                const CSerializationContext& context, const CXmlGeneratedClass* object,
                                CXmlWriter* writer) {
    // Only a plain group's attributes belong on the parent's element.
    if (elementKind != etGroup) return;
    QxVariant value;
    info.ReadProperty(object, value);
    // A collection writes the attributes of each of its items.
    CSmartPtr<CXmlObjectBase> child = value.GetXmlObject();
    if (child) info.AttributesToXml_Int(child.Get(), writer, context);
}

void ThrowMissingRequired(const CElementInfo& info, const CXmlElement* parent) {
    throw CQxValidationException(
        FormatString(L"Failed to find the required child element [%ls].", info.GetName().c_str()),
        parent->GetXPath());
}

Located LocateInSequence(const CElementInfo& info, const CSerializationContext& context,
                         const CXmlElement* parent, CXmlElement** current, XmlElementType probe,
                         bool skipWhileProbing) {
    while (!info.IsThisElement(context, *current)) {
        if (probe == etElement) {
            if (context.GetIgnoreMissingMandatoryElements()) return Located::Ignored;
            if (!context.GetIgnoreUnknownElements() || !*current) ThrowMissingRequired(info, parent);
        } else if (!skipWhileProbing || !context.GetIgnoreUnknownElements() || !*current) {
            return Located::Absent;
        }
        // The skipped element is lost even if the member is not found after it.
        *current = (*current)->GetNextSiblingElement();
    }
    return Located::Found;
}

CSmartPtr<CXmlObjectBase> NewChild(const CElementInfo& info, const ClassTarget& target) {
    CSmartPtr<CXmlObjectBase> child;
    if (target.factory) child = target.factory(target.classNumber, info.GetName().c_str());
    if (!child)
        throw CQxInvalidStateException(
            FormatString(L"The class factory made no object for [%ls].", info.GetName().c_str()));
    return child;
}

CSmartPtr<CXmlObjectBase> ExistingChild(const CElementInfo& info, const ClassTarget& target,
                                        CXmlGeneratedClass* object, const CXmlElement& at) {
    QxVariant value;
    info.InvokePropertyGet(object, value);
    CSmartPtr<CXmlObjectBase> child = value.GetXmlObject();
    if (!child) {
        child = NewChild(info, target);
        StoreChild(info, object, child.Get(), at);
    }
    return child;
}

void StoreChild(const CElementInfo& info, CXmlGeneratedClass* object, CXmlObjectBase* child,
                const CXmlElement& at) {
    QxVariant value;
    value.SetXmlObject(child);
    info.InvokePropertySet(object, value, at);
}

bool ReadInlineExisting(const CElementInfo& info, const ClassTarget& target, bool ordered,
                        const CSerializationContext& context, CXmlGeneratedClass* object, CXmlElement* parent,
                        CXmlElement** current, XmlElementType probe) {
    CSmartPtr<CXmlObjectBase> child = ExistingChild(info, target, object, *parent);
    CXmlElement* stopped = info.FromXml_Int(child.Get(), parent, *current, context, false);
    const bool consumed = stopped != *current;
    if (!ordered) {
        *current = stopped;
        return consumed;
    }
    if (target.requiredContent) {
        if (!*current || !consumed) {
            if (probe == etElement) ThrowMissingRequired(info, parent);
            return false;
        }
    } else if (!consumed && *current && probe == etElement && context.GetIgnoreUnknownElements()) {
        // Nothing of the group here, but what follows may be skipped: let the caller skip it.
        return false;
    }
    *current = stopped;
    return true;
}

void ThrowNoSubstitution(const CElementInfo& info, const CXmlElement* parent) {
    throw CQxValidationException(
        FormatString(L"Failed to find a suitable substitution element for [%ls].", info.GetName().c_str()),
        parent->GetXPath());
}

void ReadSubstitute(const CElementInfo& info, ElementFactoryFunction factory,
                    const CSerializationContext& context, CXmlGeneratedClass* object,
                    const CXmlElement* parent, CXmlElement** current) {
    CXmlElement* element = *current;
    CSmartPtr<CXmlObjectBase> child = factory ? factory(element) : nullptr;
    if (!child) ThrowNoSubstitution(info, parent);
    info.FromXml_Int(child.Get(), element, element->GetFirstElement(), context, false);
    StoreChild(info, object, child.Get(), *element);
    *current = element->GetNextSiblingElement();
}

CXmlElement* ReadWildcardElement(const CElementInfo& info, CXmlObjectBase* wildcard,
                                 const CSerializationContext& context, CXmlElement* parent,
                                 CXmlElement* current) {
    if (info.GetName() != kAnyElement && info.GetName() != current->GetLocalName()) return current;
    return info.FromXml_Int(wildcard, parent, current, context, false);
}

void ThrowMissingWildcard(const CElementInfo& info, const CXmlElement* parent) {
    throw CQxValidationException(FormatString(L"Failed to find the required element from namespace [%ls].",
                                              info.GetNamespace().c_str()),
                                 parent->GetXPath());
}

CSmartPtr<QxXmlLib16::CXmlCollectionBase> MemberCollection(const CElementInfo& info,
                                                           CXmlGeneratedClass* object) {
    QxVariant value;
    info.InvokePropertyGet(object, value);
    CSmartPtr<QxXmlLib16::CXmlCollectionBase> collection = value.GetXmlCollection();
    if (!collection)
        throw CQxInvalidStateException(
            FormatString(L"The collection member [%ls] holds no collection.", info.GetName().c_str()));
    return collection;
}

CXmlElement* ReadItems(const CElementInfo& info, QxXmlLib16::CXmlCollectionBase* collection,
                       const CSerializationContext& context, CXmlElement* parent, CXmlElement* current) {
    return info.FromXml_Int(collection, parent, current, context, false);
}

} // namespace QxXmlLib16Data::internal
