#include <QxXmlLib16/data/ParentElementInfo.h>

namespace QxXmlLib16Data {

CParentElementInfo::CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                                       const wchar_t* name, const wchar_t* namespaceURI,
                                       bool reportUnknownAttributes, bool typeAttributeAllowed,
                                       int contentPropertyNumber, QxXmlLib16::ItemType contentItemType,
                                       const wchar_t* contentFormat, bool contentIsString)
    : m_groupType(groupType)
    , m_elementType(elementType)
    , m_name(name ? name : L"")
    , m_namespace(namespaceURI ? namespaceURI : L"")
    , m_reportUnknownAttributes(reportUnknownAttributes)
    , m_typeAttributeAllowed(typeAttributeAllowed)
    , m_contentPropertyNumber(contentPropertyNumber)
    , m_contentItemType(contentItemType)
    , m_contentFormat(contentFormat ? contentFormat : L"")
    , m_contentIsString(contentIsString) {}

CParentElementInfo::~CParentElementInfo() = default;

} // namespace QxXmlLib16Data
