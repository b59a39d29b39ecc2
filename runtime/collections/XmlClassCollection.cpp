#include <QxXmlLib16/collections/XmlClassCollection.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/xml/XmlElement.h>

namespace QxXmlLib16 {

CXmlClassCollection::CXmlClassCollection(const wchar_t* elementName, const wchar_t* namespaceURI,
                                         int minOccurs, int maxOccurs)
    : CXmlCollection(elementName, namespaceURI, minOccurs, maxOccurs) {}

void CXmlClassCollection::ToXml_Int(CXmlWriter* writer, bool, const wchar_t* namespaceURI,
                                    const CSerializationContext& context, bool flag) const {
    for (CXmlObjectBase* item : *this)
        CXmlObjectBase::ToXml_Int(item, writer, false, namespaceURI, context, flag);
}

CXmlElement* CXmlClassCollection::FromXml_Int(CXmlElement* parent, CXmlElement* current,
                                              const CSerializationContext& context, bool) {
    const std::wstring& name = GetElementName();
    const std::wstring namespaceURI = GetNamespace();
    while (current && DoesElementNameMatch(context, current, name.c_str(), namespaceURI.c_str())) {
        // Filled before it is added, so listeners never see a half-read item.
        const CSmartPtr<CXmlObjectBase> item = NewItem(current);
        if (!item)
            throw CQxValidationException(
                FormatString(L"Failed to find a suitable substitution element for [%ls].", name.c_str()),
                (parent ? parent : current)->GetXPath());
        CXmlObjectBase::FromXml_Int(item.Get(), current, current->GetFirstElement(), context);
        AppendItem(item.Get());
        current = current->GetNextSiblingElement();
    }
    return current;
}

} // namespace QxXmlLib16
