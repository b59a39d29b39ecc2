#include <QxXmlLib16/data/ElementInfoSeqPrimCol.h>

namespace QxXmlLib16Data {

CElementInfoSeqPrimCol::CElementInfoSeqPrimCol(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber)
    : CElementInfoSeqCol(name, namespaceURI, propertyNumber) {}

} // namespace QxXmlLib16Data
