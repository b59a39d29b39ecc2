#include <QxXmlLib16/collections/i1Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Ci1Col::CheckFacets(const wchar_t* name, char value, const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFori1(name, value, restrictions);
}

char Ci1Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::i1FromString(text, rule);
}

std::wstring Ci1Col::ToString(char value, const std::wstring&) {
    return CConversions::i1ToString(value);
}

} // namespace QxXmlLib16
