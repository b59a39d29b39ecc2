#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>

#include <string>

namespace QxXmlLib16 {

// Repeated xs:gYear elements.
class QX_API CyearCol : public CPrimitiveCol<CyearCol, unsigned short> {
public:
    using CPrimitiveCol::CPrimitiveCol;

private:
    friend CPrimitiveCol;
    static constexpr ItemType kItemType = itYear;
    static constexpr const wchar_t* kClassName = L"CyearCol";
    static void CheckFacets(const wchar_t* name, unsigned short value,
                            const CPrimitiveRestrictions& restrictions);
    static unsigned short FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule);
    static std::wstring ToString(unsigned short value, const std::wstring& format);
};

} // namespace QxXmlLib16
