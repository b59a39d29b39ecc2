// The parts of the member policies that build wildcard content; kept apart so that the other
// members do not depend on the wildcard classes.

#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/collections/ElementCol.h>

#include "data/ElementMember.h"

namespace QxXmlLib16Data::internal {

using QxXmlLib16::CElement;
using QxXmlLib16::CElementCol;

CSmartPtr<CXmlObjectBase> NewWildcard(const CElementInfo& info, const WildcardTarget& target,
                                      const wchar_t* enclosingNamespace) {
    const std::wstring namespaceURI = CElementInfo::GetAnyDefaultNamespace(
        target.namespaceRule.c_str(), enclosingNamespace, target.targetNamespace.c_str());
    return CSmartPtr<CXmlObjectBase>(new CElement(info.GetName().c_str(), namespaceURI.c_str(),
                                                  target.namespaceRule.c_str(),
                                                  target.targetNamespace.c_str()));
}

CXmlElement* ReadWildcardItems(const CElementInfo& info, QxXmlLib16::CXmlCollectionBase* collection,
                               const CSerializationContext& context, CXmlElement* parent,
                               CXmlElement* current) {
    if (info.GetName() == kAnyElement) return ReadItems(info, collection, context, parent, current);
    auto* elements = dynamic_cast<CElementCol*>(collection);
    if (!elements)
        throw CQxInvalidStateException(FormatString(
            L"The wildcard member [%ls] holds no collection of elements.", info.GetName().c_str()));
    return elements->FromXmlLockElementName_Int(info.GetName(), current ? current->GetNamespaceURI() : L"",
                                                parent, current, context);
}

} // namespace QxXmlLib16Data::internal
