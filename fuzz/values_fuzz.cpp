// The same text (UTF-8) through the parser of every primitive kind: decimal, integer, the date and
// time family, duration, hex and Base64, the fixed-size numbers, boolean. A value that parses must
// print a text that parses to the same text again, and must lie within bounds made of that text.
#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace QxXmlLib16;

namespace {

[[noreturn]] void Fail(const char* what, ItemType type, const std::wstring& text) {
    std::fprintf(stderr, "%s: item type %d, text \"%ls\"\n", what, static_cast<int>(type), text.c_str());
    std::abort();
}

// Floating-point texts have fewer digits than a round trip needs, and NaN equals nothing.
bool IsExact(ItemType type) {
    return type != itR4 && type != itR8;
}

// Bounds are compared in the member's own type; char has no facets.
bool HasBounds(ItemType type) {
    return IsExact(type) && type != itChar && type != itString && type != itBoolean &&
           type != itHexBinary && type != itBase64Binary;
}

void Check(const std::wstring& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    QxVariant value;
    try {
        value.FromString(text, type, rule);
    } catch (const CQxException&) {
        return;
    }
    const std::wstring printed = value.ToString();
    if (!IsExact(type)) return;
    QxVariant again;
    try {
        again.FromString(printed, type, CWhitespaceUtils::wsPreserve);
    } catch (const CQxException&) {
        Fail("the printed value does not parse", type, printed);
    }
    if (again.ToString() != printed) Fail("the printed value changes when read again", type, printed);
    if (!HasBounds(type)) return;
    const CPrimitiveRestrictions within(L"", -1, -1, printed, printed, L"", L"", -1, -1, -1);
    try {
        CXmlObjectHelper::CheckRestriction(L"v", value, type, within);
    } catch (const CQxException&) {
        Fail("the value is not within bounds of itself", type, printed);
    }
    const CPrimitiveRestrictions beyond(L"", -1, -1, L"", L"", printed, L"", -1, -1, -1);
    try {
        CXmlObjectHelper::CheckRestriction(L"v", value, type, beyond);
    } catch (const CQxException&) {
        return;
    }
    Fail("the value is greater than itself", type, printed);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 4096) return 0; // longer texts take no other path
    const std::wstring text = CEncoder::Utf8ToUnicode(data, static_cast<int>(size));
    for (int type = itHexBinary; type <= itInteger; ++type) {
        Check(text, ItemType(type), CWhitespaceUtils::wsPreserve);
        Check(text, ItemType(type), CWhitespaceUtils::wsCollapse);
    }
    return 0;
}
