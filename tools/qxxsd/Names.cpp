#include "Names.h"

#include <QxXmlLib16/foundation/Functions.h>

#include <cwctype>

namespace Qxxsd {

std::wstring UpperCamel(const std::wstring& xmlName) {
    std::wstring result;
    bool wordStart = true;
    for (wchar_t c : xmlName) {
        const bool ascii = c < 128;
        if (ascii && (iswalnum(c) || c == L'_')) {
            if (c == L'_') {
                if (!result.empty() && result.back() != L'_') wordStart = true;
                continue;
            }
            result += wordStart ? static_cast<wchar_t>(towupper(c)) : c;
            wordStart = false;
        } else if (!ascii) {
            result += QxXmlLib16::FormatString(L"_x%04X", static_cast<unsigned>(c));
            wordStart = true;
        } else {
            wordStart = true;
        }
    }
    return result.empty() ? std::wstring(L"X") : result;
}

std::wstring LowerFirst(const std::wstring& identifier) {
    std::wstring result = identifier;
    if (!result.empty()) result[0] = static_cast<wchar_t>(towlower(result[0]));
    return result;
}

CNameScope::CNameScope(std::initializer_list<const wchar_t*> reserved) {
    for (const wchar_t* name : reserved)
        m_used.insert(name);
}

std::wstring CNameScope::Claim(const std::wstring& base, std::initializer_list<const wchar_t*> family) {
    for (int number = 1;; ++number) {
        const std::wstring stem = number == 1 ? base : base + std::to_wstring(number);
        bool free = true;
        for (const wchar_t* suffix : family)
            free = free && !m_used.count(stem + suffix);
        if (!free) continue;
        for (const wchar_t* suffix : family)
            m_used.insert(stem + suffix);
        return stem;
    }
}

CNameScope GlobalScope() {
    return CNameScope{
        // The library's names that generated code uses unqualified.
        L"CXmlObjectBase", L"CXmlGeneratedClass", L"CXmlElement", L"CXmlAttribute", L"CXmlDocument",
        L"CElement", L"CElementCol", L"CAttribute", L"CAttributeCol", L"CDecimal", L"CBigInteger",
        L"CDateTime", L"CDateTimeSpan", L"CBinaryData", L"CSmartPtr", L"TOptional", L"QxVariant",
        L"CClassMetaData", L"CPrimitiveRestrictions", L"CSerializationContext", L"CXmlObjectHelper",
        L"CWhitespaceUtils", L"CConversions", L"CQxException", L"CClassfactoryBase", L"INillable",
        L"ItemType", L"CXmlCollection", L"CXmlCollectionBase", L"CXmlClassCollection", L"CXmlWriter",
        L"CTypedCollection", L"CInstanceMonitor", L"CXmlTypeCollection", L"FormatString", L"UnknownProperty",
        L"ObjectOf", L"CollectionOf", L"AccessValue", L"AccessObject", L"AccessCollection", L"AdoptChild",
        L"AdoptMandatoryChild", L"NewAnyElement", L"PutNil", L"EnumToText", L"EnumFromText", L"TEnumCol",
        L"TGeneratedClass", L"TItemTraits", L"CreateClass", L"LoadDocument", L"DocumentRoots", L"ClassNumber",
        L"kNamespace", L"CDocumentRoots", L"TXmlGroupCollection", L"TXmlClassCollection", L"TCheckedTextCol",
        L"QxXmlLib16", L"QxXmlLib16Data", L"std", L"CheckPattern", L"CheckValue", L"CheckEnumeration",
        L"CheckList", L"CheckUnion", L"CheckFixed", L"TextCheckFunction", L"CreateByType", L"NewObject",
        L"NewObjectFor", L"STypeEntry", L"SRootEntry", L"CXmlGroupCollection", L"PrimitiveCol",
        L"CPrimitiveCol", L"kInfo",
        // Macros of the C headers that an UpperCamel name can spell.
        L"NULL", L"EOF", L"WEOF", L"BUFSIZ", L"INFINITY", L"NAN", L"TRUE", L"FALSE", L"DOMAIN", L"OVERFLOW",
        L"UNDERFLOW", L"SING", L"TLOSS", L"PLOSS", L"EDOM", L"ERANGE", L"EILSEQ", L"CLOCKS_PER_SEC",
        L"MB_CUR_MAX", L"RAND_MAX", L"EXIT_SUCCESS", L"EXIT_FAILURE", L"L_tmpnam", L"TMP_MAX", L"SEEK_SET",
        L"SEEK_CUR", L"SEEK_END", L"PATH_MAX", L"CHAR_BIT", L"CHAR_MAX", L"CHAR_MIN", L"INT_MAX", L"INT_MIN",
        L"LONG_MAX", L"LONG_MIN", L"UINT_MAX", L"ULONG_MAX", L"SIZE_MAX", L"WCHAR_MAX", L"WCHAR_MIN",
        L"HUGE_VAL", L"FP_NAN", L"FP_ZERO", L"FP_NORMAL", L"FP_INFINITE", L"FP_SUBNORMAL", L"MATH_ERRNO",
        L"MATH_ERREXCEPT", L"X_OK", L"R_OK", L"W_OK", L"F_OK", L"BIG_ENDIAN", L"LITTLE_ENDIAN", L"BYTE_ORDER",
        L"PDP_ENDIAN"};
}

} // namespace Qxxsd
