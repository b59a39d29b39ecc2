#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:unsignedLong elements.
class QX_API Cui8Col : public CPrimitiveCol<Cui8Col, unsigned long long> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itUi8;
    static constexpr const wchar_t* kClassName = L"Cui8Col";
    static void CheckFacets(const wchar_t* name, unsigned long long value,
                            const CPrimitiveRestrictions& restrictions);
    static unsigned long long FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(unsigned long long value, const std::wstring& format);
};

} // namespace QxXmlLib16
