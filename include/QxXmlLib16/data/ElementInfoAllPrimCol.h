#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoAllCol.h>

namespace QxXmlLib16Data {

// Repeated primitive values in an all-group.
class QX_API CElementInfoAllPrimCol : public CElementInfoAllCol {
public:
    CElementInfoAllPrimCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);
};

} // namespace QxXmlLib16Data
