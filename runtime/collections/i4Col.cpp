#include <QxXmlLib16/collections/i4Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Ci4Col::CheckFacets(const wchar_t* name, long value, const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFori4(name, value, restrictions);
}

long Ci4Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::i4FromString(text, rule);
}

std::wstring Ci4Col::ToString(long value, const std::wstring&) {
    return CConversions::i4ToString(value);
}

} // namespace QxXmlLib16
