#include "CodeText.h"

#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/Types.h>

#include <cwctype>

namespace Qxxsd {

using namespace QxXmlLib16;

namespace {

struct Kind {
    int itemType;
    const wchar_t* name;
    const wchar_t* valueType;
    const wchar_t* stem;
    bool large;
    const wchar_t* accessor;
};

const Kind kKinds[] = {
    {itHexBinary, L"itHexBinary", L"CBinaryData", L"hexBinary", true, L"HexBinary"},
    {itBase64Binary, L"itBase64Binary", L"CBinaryData", L"base64Binary", true, L"Base64Binary"},
    {itI1, L"itI1", L"char", L"i1", false, L"I1"},
    {itI2, L"itI2", L"short", L"i2", false, L"I2"},
    {itI4, L"itI4", L"long", L"i4", false, L"I4"},
    {itI8, L"itI8", L"long long", L"i8", false, L"I8"},
    {itUi1, L"itUi1", L"unsigned char", L"ui1", false, L"UI1"},
    {itUi2, L"itUi2", L"unsigned short", L"ui2", false, L"UI2"},
    {itUi4, L"itUi4", L"unsigned long", L"ui4", false, L"UI4"},
    {itUi8, L"itUi8", L"unsigned long long", L"ui8", false, L"UI8"},
    {itR4, L"itR4", L"float", L"r4", false, L"R4"},
    {itR8, L"itR8", L"double", L"r8", false, L"R8"},
    {itDuration, L"itDuration", L"CDateTimeSpan", L"duration", true, L"Duration"},
    {itYearMonth, L"itYearMonth", L"CDateTime", L"yearMonth", true, L"YearMonth"},
    {itMonthDay, L"itMonthDay", L"CDateTime", L"monthDay", true, L"MonthDay"},
    {itYear, L"itYear", L"unsigned short", L"year", false, L"Year"},
    {itMonth, L"itMonth", L"unsigned char", L"month", false, L"Month"},
    {itDay, L"itDay", L"unsigned char", L"day", false, L"Day"},
    {itDate, L"itDate", L"CDateTime", L"date", true, L"Date"},
    {itDateTime, L"itDateTime", L"CDateTime", L"datetime", true, L"DateTime"},
    {itTime, L"itTime", L"CDateTime", L"time", true, L"Time"},
    {itString, L"itString", L"std::wstring", L"string", true, L"String"},
    {itBoolean, L"itBoolean", L"bool", L"boolean", false, L"Boolean"},
    {itDecimal, L"itDecimal", L"CDecimal", L"decimal", true, L"Decimal"},
    {itInteger, L"itInteger", L"CBigInteger", L"integer", true, L"Integer"},
};

const Kind& KindOf(int itemType) {
    for (const Kind& kind : kKinds)
        if (kind.itemType == itemType) return kind;
    return kKinds[21]; // string
}

} // namespace

std::wstring ItemTypeName(int itemType) {
    return KindOf(itemType).name;
}

std::wstring ValueTypeName(int itemType) {
    return KindOf(itemType).valueType;
}

bool IsLargeValue(int itemType) {
    return KindOf(itemType).large;
}

std::wstring VariantAccessor(int itemType) {
    return KindOf(itemType).accessor;
}

std::wstring CollectionName(int itemType) {
    return std::wstring(L"C") + KindOf(itemType).stem + L"Col";
}

std::wstring ConversionStem(int itemType) {
    return KindOf(itemType).stem;
}

std::wstring WhitespaceName(Whitespace rule) {
    switch (rule) {
    case Whitespace::Preserve:
        return L"CWhitespaceUtils::wsPreserve";
    case Whitespace::Replace:
        return L"CWhitespaceUtils::wsReplace";
    default:
        return L"CWhitespaceUtils::wsCollapse";
    }
}

CWhitespaceUtils::WhitespaceRule Rule(Whitespace rule) {
    switch (rule) {
    case Whitespace::Preserve:
        return CWhitespaceUtils::wsPreserve;
    case Whitespace::Replace:
        return CWhitespaceUtils::wsReplace;
    default:
        return CWhitespaceUtils::wsCollapse;
    }
}

std::wstring Literal(const std::wstring& text) {
    std::wstring literal = L"L\"";
    bool hexPending = false; // a hex escape must not run into a following hex digit
    for (wchar_t c : text) {
        const bool hexDigit = iswxdigit(c) && c < 128;
        if (c == L'"' || c == L'\\') {
            literal += L'\\';
            literal += c;
        } else if (c == L'\n') {
            literal += L"\\n";
        } else if (c == L'\t') {
            literal += L"\\t";
        } else if (c == L'\r') {
            literal += L"\\r";
        } else if (c >= 0x20 && c < 0x7F) {
            if (hexPending && hexDigit) literal += L"\" L\"";
            literal += c;
        } else if (c >= 0xA0 && (c < 0xD800 || c > 0xDFFF) && c <= 0x10FFFF) {
            literal += c <= 0xFFFF ? FormatString(L"\\u%04X", static_cast<unsigned>(c))
                                   : FormatString(L"\\U%08X", static_cast<unsigned>(c));
            hexPending = false;
            continue;
        } else {
            literal += FormatString(L"\\x%X", static_cast<unsigned>(c));
            hexPending = true;
            continue;
        }
        hexPending = false;
    }
    return literal + L"\"";
}

std::wstring Texts(const std::vector<std::wstring>& texts) {
    std::wstring list = L"{";
    for (size_t i = 0; i < texts.size(); ++i)
        list += (i ? L", " : L"") + Literal(texts[i]);
    return list + L"}";
}

std::string Utf8(const std::wstring& text) {
    std::string bytes(::UnicodeToUTF8(text.c_str(), text.size(), nullptr, 0), '\0');
    ::UnicodeToUTF8(text.c_str(), text.size(), reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size());
    return bytes;
}

std::wstring Comment(const std::wstring& text, const std::wstring& indent) {
    std::wstring comment;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos) end = text.size();
        std::wstring line = text.substr(start, end - start);
        // A comment line must not end in a backslash, which would continue it onto the code.
        while (!line.empty() && (line.back() == L'\\' || line.back() == L' '))
            line.pop_back();
        // Long lines are wrapped at a blank before the code's width.
        const size_t width = 110 - indent.size() - 3;
        while (line.size() > width) {
            size_t cut = line.rfind(L' ', width);
            if (cut == std::wstring::npos || cut == 0) break;
            comment += indent + L"// " + line.substr(0, cut) + L"\n";
            line = line.substr(line.find_first_not_of(L' ', cut));
        }
        comment += indent + (line.empty() ? L"//" : L"// " + line) + L"\n";
        start = end + 1;
    }
    return comment;
}

} // namespace Qxxsd
