#include <QxXmlLib16/collections/monthCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CmonthCol::CheckFacets(const wchar_t* name, unsigned char value,
                            const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFormonth(name, value, restrictions);
}

unsigned char CmonthCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::monthFromString(text, rule);
}

std::wstring CmonthCol::ToString(unsigned char value, const std::wstring&) {
    return CConversions::monthToString(value);
}

} // namespace QxXmlLib16
