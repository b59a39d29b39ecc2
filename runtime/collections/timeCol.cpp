#include <QxXmlLib16/collections/timeCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CtimeCol::CheckFacets(const wchar_t* name, const CDateTime& value,
                           const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFortime(name, value, restrictions);
}

CDateTime CtimeCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::timeFromString(text, rule);
}

std::wstring CtimeCol::ToString(const CDateTime& value, const std::wstring& format) {
    return CConversions::timeToString(value, format);
}

} // namespace QxXmlLib16
