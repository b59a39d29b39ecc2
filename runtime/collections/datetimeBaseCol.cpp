#include <QxXmlLib16/collections/datetimeBaseCol.h>

namespace QxXmlLib16 {

void CdatetimeBaseCol::BaseAddAt(int index, CDateTime value) {
    InsertAt(index, std::move(value), [](const wchar_t*, const CDateTime&, const CPrimitiveRestrictions&) {});
}

} // namespace QxXmlLib16
