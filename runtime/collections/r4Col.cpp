#include <QxXmlLib16/collections/r4Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Cr4Col::CheckFacets(const wchar_t* name, float value, const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForr4(name, value, restrictions);
}

float Cr4Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::r4FromString(text, rule);
}

std::wstring Cr4Col::ToString(float value, const std::wstring&) {
    return CConversions::r4ToString(value);
}

} // namespace QxXmlLib16
