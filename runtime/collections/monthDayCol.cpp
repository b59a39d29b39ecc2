#include <QxXmlLib16/collections/monthDayCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CmonthDayCol::CheckFacets(const wchar_t* name, const CDateTime& value,
                               const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFormonthDay(name, value, restrictions);
}

CDateTime CmonthDayCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::monthDayFromString(text, rule);
}

std::wstring CmonthDayCol::ToString(const CDateTime& value, const std::wstring& format) {
    return CConversions::monthDayToString(value, format);
}

} // namespace QxXmlLib16
