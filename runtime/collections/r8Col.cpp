#include <QxXmlLib16/collections/r8Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Cr8Col::CheckFacets(const wchar_t* name, double value, const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForr8(name, value, restrictions);
}

double Cr8Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::r8FromString(text, rule);
}

std::wstring Cr8Col::ToString(double value, const std::wstring&) {
    return CConversions::r8ToString(value);
}

} // namespace QxXmlLib16
