#pragma once

#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:integer elements.
class QX_API CintegerCol : public CPrimitiveCol<CintegerCol, CBigInteger> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itInteger;
    static constexpr const wchar_t* kClassName = L"CintegerCol";
    static void CheckFacets(const wchar_t* name, const CBigInteger& value,
                            const CPrimitiveRestrictions& restrictions);
    static CBigInteger FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(const CBigInteger& value, const std::wstring& format);
};

} // namespace QxXmlLib16
