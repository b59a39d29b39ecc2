#include <QxXmlLib16/collections/dayCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CdayCol::CheckFacets(const wchar_t* name, unsigned char value,
                          const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForday(name, value, restrictions);
}

unsigned char CdayCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::dayFromString(text, rule);
}

std::wstring CdayCol::ToString(unsigned char value, const std::wstring&) {
    return CConversions::dayToString(value);
}

} // namespace QxXmlLib16
