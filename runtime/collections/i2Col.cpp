#include <QxXmlLib16/collections/i2Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Ci2Col::CheckFacets(const wchar_t* name, short value, const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionFori2(name, value, restrictions);
}

short Ci2Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::i2FromString(text, rule);
}

std::wstring Ci2Col::ToString(short value, const std::wstring&) {
    return CConversions::i2ToString(value);
}

} // namespace QxXmlLib16
