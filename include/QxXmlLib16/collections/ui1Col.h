#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:unsignedByte elements.
class QX_API Cui1Col : public CPrimitiveCol<Cui1Col, unsigned char> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itUi1;
    static constexpr const wchar_t* kClassName = L"Cui1Col";
    static void CheckFacets(const wchar_t* name, unsigned char value,
                            const CPrimitiveRestrictions& restrictions);
    static unsigned char FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(unsigned char value, const std::wstring& format);
};

} // namespace QxXmlLib16
