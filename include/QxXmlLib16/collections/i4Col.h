#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:int elements.
class QX_API Ci4Col : public CPrimitiveCol<Ci4Col, long> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itI4;
    static constexpr const wchar_t* kClassName = L"Ci4Col";
    static void CheckFacets(const wchar_t* name, long value, const CPrimitiveRestrictions& restrictions);
    static long FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(long value, const std::wstring& format);
};

} // namespace QxXmlLib16
