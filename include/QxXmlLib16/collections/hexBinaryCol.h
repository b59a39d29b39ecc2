#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:hexBinary elements.
class QX_API ChexBinaryCol : public CPrimitiveCol<ChexBinaryCol, CBinaryData> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itHexBinary;
    static constexpr const wchar_t* kClassName = L"ChexBinaryCol";
    static void CheckFacets(const wchar_t* name, const CBinaryData& value,
                            const CPrimitiveRestrictions& restrictions);
    static CBinaryData FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(const CBinaryData& value, const std::wstring& format);
};

} // namespace QxXmlLib16
