#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:unsignedShort elements.
class QX_API Cui2Col : public CPrimitiveCol<Cui2Col, unsigned short> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itUi2;
    static constexpr const wchar_t* kClassName = L"Cui2Col";
    static void CheckFacets(const wchar_t* name, unsigned short value,
                            const CPrimitiveRestrictions& restrictions);
    static unsigned short FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(unsigned short value, const std::wstring& format);
};

} // namespace QxXmlLib16
