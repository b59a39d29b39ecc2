#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:base64Binary elements.
class QX_API Cbase64BinaryCol : public CPrimitiveCol<Cbase64BinaryCol, CBinaryData> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itBase64Binary;
    static constexpr const wchar_t* kClassName = L"Cbase64BinaryCol";
    static void CheckFacets(const wchar_t* name, const CBinaryData& value,
                            const CPrimitiveRestrictions& restrictions);
    static CBinaryData FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(const CBinaryData& value, const std::wstring& format);
};

} // namespace QxXmlLib16
