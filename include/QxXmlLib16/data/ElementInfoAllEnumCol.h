#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfo.h>

namespace QxXmlLib16Data {

// Repeated enumeration values in an all-group. No descriptor can read or write them there, so
// this member is deliberately left abstract.
class QX_API CElementInfoAllEnumCol : public CElementInfo {
public:
    CElementInfoAllEnumCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);
};

} // namespace QxXmlLib16Data
