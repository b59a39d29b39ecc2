#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:double elements.
class QX_API Cr8Col : public CPrimitiveCol<Cr8Col, double> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itR8;
    static constexpr const wchar_t* kClassName = L"Cr8Col";
    static void CheckFacets(const wchar_t* name, double value, const CPrimitiveRestrictions& restrictions);
    static double FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(double value, const std::wstring& format);
};

} // namespace QxXmlLib16
