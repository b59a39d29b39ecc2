#include <QxXmlLib16/data/ElementInfoAllEnumCol.h>

namespace QxXmlLib16Data {

CElementInfoAllEnumCol::CElementInfoAllEnumCol(const wchar_t* name, const wchar_t* namespaceURI,
                                               int propertyNumber)
    : CElementInfo(name, namespaceURI, propertyNumber) {}

} // namespace QxXmlLib16Data
