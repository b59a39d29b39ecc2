#pragma once

#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:decimal elements.
class QX_API CdecimalCol : public CPrimitiveCol<CdecimalCol, CDecimal> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itDecimal;
    static constexpr const wchar_t* kClassName = L"CdecimalCol";
    static void CheckFacets(const wchar_t* name, const CDecimal& value,
                            const CPrimitiveRestrictions& restrictions);
    static CDecimal FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(const CDecimal& value, const std::wstring& format);
};

} // namespace QxXmlLib16
