#include <QxXmlLib16/collections/i8Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Ci8Col::CheckFacets(const wchar_t* name, long long value, const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFori8(name, value, restrictions);
}

long long Ci8Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::i8FromString(text, rule);
}

std::wstring Ci8Col::ToString(long long value, const std::wstring&) {
    return CConversions::i8ToString(value);
}

} // namespace QxXmlLib16
