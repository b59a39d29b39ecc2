#include <QxXmlLib16/data/ElementInfoAllUntpdCol.h>

#include "data/ElementMember.h"

using namespace QxXmlLib16;

namespace QxXmlLib16Data {

using namespace internal;

CElementInfoAllUntpdCol::CElementInfoAllUntpdCol(const wchar_t* name, const wchar_t* namespaceURI, int propertyNumber)
    : CElementInfoAllCol(name, namespaceURI, propertyNumber) {}

} // namespace QxXmlLib16Data
