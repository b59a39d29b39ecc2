#include <QxXmlLib16/data/ElementInfoSeqEnumCol.h>

namespace QxXmlLib16Data {

CElementInfoSeqEnumCol::CElementInfoSeqEnumCol(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber)
    : CElementInfoSeqCol(name, namespaceURI, propertyNumber) {}

} // namespace QxXmlLib16Data
