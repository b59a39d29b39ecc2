#pragma once

#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/TypedCollection.h>

#include <string>

namespace QxXmlLib16 {

// The array of dates shared by the five date collections (date, time, dateTime, gYearMonth,
// gMonthDay); each of them vets the kind of a value. A date carries its kind, so one text serves all.
class QX_API CdatetimeBaseCol : public CTypedCollection<CdatetimeBaseCol, CDateTime> {
public:
    using CTypedCollection::CTypedCollection;

    std::wstring ItemToString(const CDateTime& value) const;

protected:
    // Inserts a value whose kind and facets are already checked, with the add events and index rule
    // of every typed collection.
    void BaseAddAt(int index, CDateTime value);
};

} // namespace QxXmlLib16
