#include <QxXmlLib16/collections/ui1Col.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Cui1Col::CheckFacets(const wchar_t* name, unsigned char value,
                          const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForui1(name, value, restrictions);
}

unsigned char Cui1Col::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::ui1FromString(text, rule);
}

std::wstring Cui1Col::ToString(unsigned char value, const std::wstring&) {
    return CConversions::ui1ToString(value);
}

} // namespace QxXmlLib16
