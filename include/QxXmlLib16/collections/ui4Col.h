#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:unsignedInt elements.
class QX_API Cui4Col : public CPrimitiveCol<Cui4Col, unsigned long> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itUi4;
    static constexpr const wchar_t* kClassName = L"Cui4Col";
    static void CheckFacets(const wchar_t* name, unsigned long value,
                            const CPrimitiveRestrictions& restrictions);
    static unsigned long FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(unsigned long value, const std::wstring& format);
};

} // namespace QxXmlLib16
