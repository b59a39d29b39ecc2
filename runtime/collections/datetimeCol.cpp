#include <QxXmlLib16/collections/datetimeCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CdatetimeCol::CheckFacets(const wchar_t* name, const CDateTime& value,
                               const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFordatetime(name, value, restrictions);
}

CDateTime CdatetimeCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::datetimeFromString(text, rule);
}

std::wstring CdatetimeCol::ToString(const CDateTime& value, const std::wstring& format) {
    return CConversions::datetimeToString(value, format);
}

} // namespace QxXmlLib16
