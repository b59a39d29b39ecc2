#include <QxXmlLib16/collections/integerCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CintegerCol::CheckFacets(const wchar_t* name, const CBigInteger& value,
                              const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForinteger(name, value, restrictions);
}

CBigInteger CintegerCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::integerFromString(text, rule);
}

std::wstring CintegerCol::ToString(const CBigInteger& value, const std::wstring&) {
    return CConversions::integerToString(value);
}

} // namespace QxXmlLib16
