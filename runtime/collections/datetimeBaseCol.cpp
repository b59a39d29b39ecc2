#include <QxXmlLib16/collections/datetimeBaseCol.h>

#include <QxXmlLib16/binding/Conversions.h>

namespace QxXmlLib16 {

std::wstring CdatetimeBaseCol::ItemToString(const CDateTime& value) const {
    return CConversions::datetimeToString(value, GetFormat());
}

void CdatetimeBaseCol::BaseAddAt(int index, CDateTime value) {
    InsertAt(index, std::move(value), [](const wchar_t*, const CDateTime&, const CPrimitiveRestrictions&) {});
}

} // namespace QxXmlLib16
