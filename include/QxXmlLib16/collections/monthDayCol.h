#pragma once

#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>
#include <QxXmlLib16/collections/datetimeBaseCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:gMonthDay elements; only dates of that kind are accepted.
class QX_API CmonthDayCol : public CPrimitiveCol<CmonthDayCol, CDateTime, CdatetimeBaseCol> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itMonthDay;
    static constexpr const wchar_t* kClassName = L"CmonthDayCol";
    static constexpr CDateTime::DTType kKind = CDateTime::dt_gMonthDay;
    static constexpr const wchar_t* kWrongKind =
        L"Dates added to this collection must be of type dt_gMonthDay";
    static void CheckFacets(const wchar_t* name, const CDateTime& value,
                            const CPrimitiveRestrictions& restrictions);
    static CDateTime FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(const CDateTime& value, const std::wstring& format);
};

} // namespace QxXmlLib16
