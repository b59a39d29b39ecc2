#include <QxXmlLib16/data/ElementInfoChoicePrimCol.h>

namespace QxXmlLib16Data {

CElementInfoChoicePrimCol::CElementInfoChoicePrimCol(const wchar_t* name, const wchar_t* namespaceURI,
                                                     int propertyNumber)
    : CElementInfoChoiceCol(name, namespaceURI, propertyNumber) {}

} // namespace QxXmlLib16Data
