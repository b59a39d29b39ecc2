#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoChoiceCol.h>

namespace QxXmlLib16Data {

// Repeated enumeration values in a choice.
class QX_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceEnumCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);
};

} // namespace QxXmlLib16Data
