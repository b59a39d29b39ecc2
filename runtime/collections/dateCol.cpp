#include <QxXmlLib16/collections/dateCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CdateCol::CheckFacets(const wchar_t* name, const CDateTime& value,
                           const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFordate(name, value, restrictions);
}

CDateTime CdateCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::dateFromString(text, rule);
}

std::wstring CdateCol::ToString(const CDateTime& value, const std::wstring& format) {
    return CConversions::dateToString(value, format);
}

} // namespace QxXmlLib16
