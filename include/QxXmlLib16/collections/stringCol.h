#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:string elements.
class QX_API CstringCol : public CPrimitiveCol<CstringCol, std::wstring> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itString;
    static constexpr const wchar_t* kClassName = L"CstringCol";
    static void CheckFacets(const wchar_t* name, const std::wstring& value,
                            const CPrimitiveRestrictions& restrictions);
    static std::wstring FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(const std::wstring& value, const std::wstring& format);
};

} // namespace QxXmlLib16
