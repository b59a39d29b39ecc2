#include <QxXmlLib16/collections/hexBinaryCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void ChexBinaryCol::CheckFacets(const wchar_t* name, const CBinaryData& value,
                                const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForhexBinary(name, value, restrictions);
}

CBinaryData ChexBinaryCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::hexBinaryFromString(text, rule);
}

std::wstring ChexBinaryCol::ToString(const CBinaryData& value, const std::wstring&) {
    return CConversions::hexBinaryToString(value);
}

} // namespace QxXmlLib16
