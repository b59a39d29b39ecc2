#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:long elements.
class QX_API Ci8Col : public CPrimitiveCol<Ci8Col, long long> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itI8;
    static constexpr const wchar_t* kClassName = L"Ci8Col";
    static void CheckFacets(const wchar_t* name, long long value, const CPrimitiveRestrictions& restrictions);
    static long long FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(long long value, const std::wstring& format);
};

} // namespace QxXmlLib16
