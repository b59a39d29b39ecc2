#include "Builtins.h"

#include <QxXmlLib16/foundation/Types.h>

namespace Qxxsd {

using namespace QxXmlLib16;

namespace {

constexpr Whitespace P = Whitespace::Preserve, R = Whitespace::Replace, C = Whitespace::Collapse;

// Generated code reads patterns with XML Schema's meaning, where \i and \c are the name characters
// of XML 1.0.
#define QX_NCNAME L"[\\i-[:]][\\c-[:]]*"

const Builtin kBuiltins[] = {
    {L"anySimpleType", itString, P, true, nullptr, nullptr, {}, nullptr},
    {L"string", itString, P, true, nullptr, nullptr, {}, nullptr},
    {L"normalizedString", itString, R, true, nullptr, nullptr, {}, nullptr},
    {L"token", itString, C, true, nullptr, nullptr, {}, nullptr},
    {L"language", itString, C, true, nullptr, nullptr, {L"[a-zA-Z]{1,8}(-[a-zA-Z0-9]{1,8})*"}, nullptr},
    {L"NMTOKEN", itString, C, true, nullptr, nullptr, {L"\\c+"}, nullptr},
    {L"Name", itString, C, true, nullptr, nullptr, {L"\\i\\c*"}, nullptr},
    {L"NCName", itString, C, true, nullptr, nullptr, {QX_NCNAME}, nullptr},
    {L"ID", itString, C, true, nullptr, nullptr, {QX_NCNAME}, nullptr},
    {L"IDREF", itString, C, true, nullptr, nullptr, {QX_NCNAME}, nullptr},
    {L"ENTITY", itString, C, true, nullptr, nullptr, {QX_NCNAME}, nullptr},
    {L"anyURI", itString, C, true, nullptr, nullptr, {}, nullptr},
    {L"QName", itString, C, true, nullptr, nullptr, {}, nullptr},
    {L"NOTATION", itString, C, true, nullptr, nullptr, {}, nullptr},
    {L"NMTOKENS", 0, C, false, nullptr, nullptr, {}, L"NMTOKEN"},
    {L"IDREFS", 0, C, false, nullptr, nullptr, {}, L"IDREF"},
    {L"ENTITIES", 0, C, false, nullptr, nullptr, {}, L"ENTITY"},
    {L"boolean", itBoolean, C, false, nullptr, nullptr, {}, nullptr},
    {L"decimal", itDecimal, C, false, nullptr, nullptr, {}, nullptr},
    {L"integer", itInteger, C, false, nullptr, nullptr, {}, nullptr},
    {L"nonPositiveInteger", itInteger, C, false, nullptr, L"0", {}, nullptr},
    {L"negativeInteger", itInteger, C, false, nullptr, L"-1", {}, nullptr},
    {L"nonNegativeInteger", itInteger, C, false, L"0", nullptr, {}, nullptr},
    {L"positiveInteger", itInteger, C, false, L"1", nullptr, {}, nullptr},
    {L"long", itI8, C, false, nullptr, nullptr, {}, nullptr},
    {L"int", itI4, C, false, nullptr, nullptr, {}, nullptr},
    {L"short", itI2, C, false, nullptr, nullptr, {}, nullptr},
    {L"byte", itI1, C, false, nullptr, nullptr, {}, nullptr},
    {L"unsignedLong", itUi8, C, false, nullptr, nullptr, {}, nullptr},
    {L"unsignedInt", itUi4, C, false, nullptr, nullptr, {}, nullptr},
    {L"unsignedShort", itUi2, C, false, nullptr, nullptr, {}, nullptr},
    {L"unsignedByte", itUi1, C, false, nullptr, nullptr, {}, nullptr},
    {L"float", itR4, C, false, nullptr, nullptr, {}, nullptr},
    {L"double", itR8, C, false, nullptr, nullptr, {}, nullptr},
    {L"duration", itDuration, C, false, nullptr, nullptr, {}, nullptr},
    {L"dayTimeDuration", itDuration, C, false, nullptr, nullptr, {L"[^YM]*(T.*)?"}, nullptr},
    {L"yearMonthDuration", itDuration, C, false, nullptr, nullptr, {L"[^DT]*"}, nullptr},
    {L"dateTime", itDateTime, C, false, nullptr, nullptr, {}, nullptr},
    {L"dateTimeStamp",
     itDateTime,
     C,
     false,
     nullptr,
     nullptr,
     {L".*(Z|(\\+|-)[0-9][0-9]:[0-9][0-9])"},
     nullptr},
    {L"date", itDate, C, false, nullptr, nullptr, {}, nullptr},
    {L"time", itTime, C, false, nullptr, nullptr, {}, nullptr},
    {L"gYearMonth", itYearMonth, C, false, nullptr, nullptr, {}, nullptr},
    {L"gMonthDay", itMonthDay, C, false, nullptr, nullptr, {}, nullptr},
    {L"gYear", itYear, C, false, nullptr, nullptr, {}, nullptr},
    {L"gMonth", itMonth, C, false, nullptr, nullptr, {}, nullptr},
    {L"gDay", itDay, C, false, nullptr, nullptr, {}, nullptr},
    {L"hexBinary", itHexBinary, C, false, nullptr, nullptr, {}, nullptr},
    {L"base64Binary", itBase64Binary, C, false, nullptr, nullptr, {}, nullptr},
};

} // namespace

const Builtin* FindBuiltin(const std::wstring& name) {
    for (const Builtin& builtin : kBuiltins)
        if (name == builtin.name) return &builtin;
    return nullptr;
}

const Builtin* BuiltinTypes(size_t& count) {
    count = sizeof kBuiltins / sizeof kBuiltins[0];
    return kBuiltins;
}

} // namespace Qxxsd
