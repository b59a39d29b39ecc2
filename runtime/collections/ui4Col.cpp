#include <QxXmlLib16/collections/ui4Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Cui4Col::CheckFacets(const wchar_t* name, unsigned long value,
                          const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForui4(name, value, restrictions);
}

unsigned long Cui4Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::ui4FromString(text, rule);
}

std::wstring Cui4Col::ToString(unsigned long value, const std::wstring&) {
    return CConversions::ui4ToString(value);
}

} // namespace QxXmlLib16
