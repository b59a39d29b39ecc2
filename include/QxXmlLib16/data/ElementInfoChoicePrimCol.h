#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoChoiceCol.h>

namespace QxXmlLib16Data {

// Repeated primitive values in a choice.
class QX_API CElementInfoChoicePrimCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoicePrimCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);
};

} // namespace QxXmlLib16Data
