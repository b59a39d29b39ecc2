#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoSeqCol.h>

namespace QxXmlLib16Data {

// Repeated primitive values in a sequence.
class QX_API CElementInfoSeqPrimCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqPrimCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);
};

} // namespace QxXmlLib16Data
