#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/data/ElementInfoSeqCol.h>

namespace QxXmlLib16Data {

// Repeated enumeration values in a sequence.
class QX_API CElementInfoSeqEnumCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqEnumCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber);
};

} // namespace QxXmlLib16Data
