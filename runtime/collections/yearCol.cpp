#include <QxXmlLib16/collections/yearCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void CyearCol::CheckFacets(const wchar_t* name, unsigned short value,
                           const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForyear(name, value, restrictions);
}

unsigned short CyearCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::yearFromString(text, rule);
}

std::wstring CyearCol::ToString(unsigned short value, const std::wstring&) {
    return CConversions::yearToString(value);
}

} // namespace QxXmlLib16
