#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/data/ElementInfo.h>

#include <string>

namespace QxXmlLib16Data {

// Descriptor of a generated class itself: its model group, whether it has an element of its own or
// stands inline in its parent, its schema type name and namespace, and its simple content.
class QX_API CParentElementInfo {
public:
    CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType, const wchar_t* name,
                       const wchar_t* namespaceURI, bool reportUnknownAttributes, bool typeAttributeAllowed,
                       int contentPropertyNumber, QxXmlLib16::ItemType contentItemType,
                       const wchar_t* contentFormat, bool contentIsString);
    virtual ~CParentElementInfo();

    XmlElementGroupType GetGroupType() const { return m_groupType; }
    XmlElementType GetElementType() const { return m_elementType; }
    // The schema type name, written as xsi:type when an object stands under another element name.
    const std::wstring& GetName() const { return m_name; }
    const std::wstring& GetNamespace() const { return m_namespace; }
    bool GetReportUnknownAttributes() const { return m_reportUnknownAttributes; }
    bool GetTypeAttributeAllowed() const { return m_typeAttributeAllowed; }
    // -1 when the class has no simple content.
    int GetContentPropertyNumber() const { return m_contentPropertyNumber; }
    QxXmlLib16::ItemType GetContentItemType() const { return m_contentItemType; }
    const std::wstring& GetContentFormat() const { return m_contentFormat; }
    // Simple content kept as the plain text of the element.
    bool GetContentIsString() const { return m_contentIsString; }

private:
    XmlElementGroupType m_groupType;
    XmlElementType m_elementType;
    std::wstring m_name;
    std::wstring m_namespace;
    bool m_reportUnknownAttributes;
    bool m_typeAttributeAllowed;
    int m_contentPropertyNumber;
    QxXmlLib16::ItemType m_contentItemType;
    std::wstring m_contentFormat;
    bool m_contentIsString;
};

} // namespace QxXmlLib16Data
