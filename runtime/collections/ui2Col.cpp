#include <QxXmlLib16/collections/ui2Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Cui2Col::CheckFacets(const wchar_t* name, unsigned short value,
                          const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForui2(name, value, restrictions);
}

unsigned short Cui2Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::ui2FromString(text, rule);
}

std::wstring Cui2Col::ToString(unsigned short value, const std::wstring&) {
    return CConversions::ui2ToString(value);
}

} // namespace QxXmlLib16
