#include <QxXmlLib16/data/ElementInfoAllPrimCol.h>

namespace QxXmlLib16Data {

CElementInfoAllPrimCol::CElementInfoAllPrimCol(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber)
    : CElementInfoAllCol(name, namespaceURI, propertyNumber) {}

} // namespace QxXmlLib16Data
