#include <QxXmlLib16/binding/GeneratedCode.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <cwchar>

namespace QxXmlLib16 {

int UnknownProperty(int propertyNumber) {
    throw CQxInvalidParamException(FormatString(L"Unknown property number %d", propertyNumber));
}

void ThrowWrongObjectClass(const wchar_t* property) {
    throw CQxInvalidParamException(
        FormatString(L"The Property [%ls] was given an object of another class", property ? property : L""));
}

void ThrowWrongCollectionClass(const wchar_t* property) {
    throw CQxInvalidParamException(
        FormatString(L"The Property [%ls] needs a collection of its own class", property ? property : L""));
}

void ThrowInvalidEnumValue(const wchar_t* element, int value) {
    throw CQxInvalidValueException(
        FormatString(L"Invalid Value for %ls [%d]", element ? element : L"", value));
}

const wchar_t* EnumToText(const wchar_t* const* texts, int count, int value) {
    return value >= 0 && value < count ? texts[value] : L"";
}

int EnumFromText(const wchar_t* const* texts, int count, const wchar_t* text, const wchar_t* typeName) {
    if (!text) text = L"";
    for (int i = 0; i < count; ++i)
        if (std::wcscmp(texts[i], text) == 0) return i;
    throw CQxInvalidValueException(
        FormatString(L"The value [%ls] is not a valid %ls", text, typeName ? typeName : L""));
}

} // namespace QxXmlLib16
