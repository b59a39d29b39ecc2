#include <QxXmlLib16/collections/durationCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CdurationCol::CheckFacets(const wchar_t* name, const CDateTimeSpan& value,
                               const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForduration(name, value, restrictions);
}

CDateTimeSpan CdurationCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::durationFromString(text, rule);
}

std::wstring CdurationCol::ToString(const CDateTimeSpan& value, const std::wstring&) {
    return CConversions::durationToString(value);
}

} // namespace QxXmlLib16
