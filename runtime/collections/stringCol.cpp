#include <QxXmlLib16/collections/stringCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CstringCol::CheckFacets(const wchar_t* name, const std::wstring& value,
                             const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForstring(name, value, restrictions);
}

std::wstring CstringCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::stringFromString(text, rule);
}

std::wstring CstringCol::ToString(const std::wstring& value, const std::wstring&) {
    return CConversions::stringToString(value);
}

} // namespace QxXmlLib16
