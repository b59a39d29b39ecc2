#include <QxXmlLib16/collections/yearMonthCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CyearMonthCol::CheckFacets(const wchar_t* name, const CDateTime& value,
                                const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForyearMonth(name, value, restrictions);
}

CDateTime CyearMonthCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::yearMonthFromString(text, rule);
}

std::wstring CyearMonthCol::ToString(const CDateTime& value, const std::wstring& format) {
    return CConversions::yearMonthToString(value, format);
}

} // namespace QxXmlLib16
