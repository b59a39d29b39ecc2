#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:boolean elements.
class QX_API CbooleanCol : public CPrimitiveCol<CbooleanCol, bool> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itBoolean;
    static constexpr const wchar_t* kClassName = L"CbooleanCol";
    static void CheckFacets(const wchar_t* name, bool value, const CPrimitiveRestrictions& restrictions);
    static bool FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(bool value, const std::wstring& format);
};

} // namespace QxXmlLib16
