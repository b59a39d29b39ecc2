#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:short elements.
class QX_API Ci2Col : public CPrimitiveCol<Ci2Col, short> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itI2;
    static constexpr const wchar_t* kClassName = L"Ci2Col";
    static void CheckFacets(const wchar_t* name, short value, const CPrimitiveRestrictions& restrictions);
    static short FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(short value, const std::wstring& format);
};

} // namespace QxXmlLib16
