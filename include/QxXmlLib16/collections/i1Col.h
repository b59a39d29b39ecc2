#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:byte elements.
class QX_API Ci1Col : public CPrimitiveCol<Ci1Col, char> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itI1;
    static constexpr const wchar_t* kClassName = L"Ci1Col";
    static void CheckFacets(const wchar_t* name, char value, const CPrimitiveRestrictions& restrictions);
    static char FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(char value, const std::wstring& format);
};

} // namespace QxXmlLib16
