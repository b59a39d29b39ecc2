#include <QxXmlLib16/collections/decimalCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CdecimalCol::CheckFacets(const wchar_t* name, const CDecimal& value,
                              const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFordecimal(name, value, restrictions);
}

CDecimal CdecimalCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::decimalFromString(text, rule);
}

std::wstring CdecimalCol::ToString(const CDecimal& value, const std::wstring&) {
    return CConversions::decimalToString(value);
}

} // namespace QxXmlLib16
