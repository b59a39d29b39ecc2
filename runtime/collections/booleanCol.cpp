#include <QxXmlLib16/collections/booleanCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CbooleanCol::CheckFacets(const wchar_t* name, bool value, const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForboolean(name, value, restrictions);
}

bool CbooleanCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::booleanFromString(text, rule);
}

std::wstring CbooleanCol::ToString(bool value, const std::wstring&) {
    return CConversions::booleanToString(value);
}

} // namespace QxXmlLib16
