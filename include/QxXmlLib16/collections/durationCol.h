#pragma once

#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:duration elements.
class QX_API CdurationCol : public CPrimitiveCol<CdurationCol, CDateTimeSpan> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itDuration;
    static constexpr const wchar_t* kClassName = L"CdurationCol";
    static void CheckFacets(const wchar_t* name, const CDateTimeSpan& value,
                            const CPrimitiveRestrictions& restrictions);
    static CDateTimeSpan FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(const CDateTimeSpan& value, const std::wstring& format);
};

} // namespace QxXmlLib16
