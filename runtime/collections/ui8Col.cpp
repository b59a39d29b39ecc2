#include <QxXmlLib16/collections/ui8Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Cui8Col::CheckFacets(const wchar_t* name, unsigned long long value,
                          const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForui8(name, value, restrictions);
}

unsigned long long Cui8Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::ui8FromString(text, rule);
}

std::wstring Cui8Col::ToString(unsigned long long value, const std::wstring&) {
    return CConversions::ui8ToString(value);
}

} // namespace QxXmlLib16
