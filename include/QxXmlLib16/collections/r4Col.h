#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:float elements.
class QX_API Cr4Col : public CPrimitiveCol<Cr4Col, float> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itR4;
    static constexpr const wchar_t* kClassName = L"Cr4Col";
    static void CheckFacets(const wchar_t* name, float value, const CPrimitiveRestrictions& restrictions);
    static float FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(float value, const std::wstring& format);
};

} // namespace QxXmlLib16
