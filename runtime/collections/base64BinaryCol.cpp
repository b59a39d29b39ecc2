#include <QxXmlLib16/collections/base64BinaryCol.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

namespace QxXmlLib16 {

void Cbase64BinaryCol::CheckFacets(const wchar_t* name, const CBinaryData& value,
                                   const CPrimitiveRestrictions& restrictions) {
    CXmlObjectHelper::CheckRestrictionForbase64Binary(name, value, restrictions);
}

CBinaryData Cbase64BinaryCol::FromString(const std::wstring& text, CWhitespaceUtils::WhitespaceRule rule) {
    return CConversions::base64BinaryFromString(text, rule);
}

std::wstring Cbase64BinaryCol::ToString(const CBinaryData& value, const std::wstring&) {
    return CConversions::base64BinaryToString(value);
}

} // namespace QxXmlLib16
