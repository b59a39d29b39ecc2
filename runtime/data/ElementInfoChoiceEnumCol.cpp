#include <QxXmlLib16/data/ElementInfoChoiceEnumCol.h>

namespace QxXmlLib16Data {

CElementInfoChoiceEnumCol::CElementInfoChoiceEnumCol(const wchar_t* name, const wchar_t* namespaceURI,
                                                     int propertyNumber)
    : CElementInfoChoiceCol(name, namespaceURI, propertyNumber) {}

} // namespace QxXmlLib16Data
