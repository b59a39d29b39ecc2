#pragma once

#include "Schema.h"

#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <string>
#include <vector>

namespace Qxxsd {

// Pieces of C++ text the planner and the emitter share.

// "itDecimal" for the ItemType value.
std::wstring ItemTypeName(int itemType);
// The C++ type of a value of that ItemType ("CDecimal", "long").
std::wstring ValueTypeName(int itemType);
// Small values are held in std::optional, the larger ones out of line in TOptional.
bool IsLargeValue(int itemType);
// The name in QxVariant's accessors of that ItemType ("Decimal" for SetDecimal).
std::wstring VariantAccessor(int itemType);
// The typed collection of that ItemType ("CdecimalCol").
std::wstring CollectionName(int itemType);
// The stem of its conversions and facet check ("decimal" for decimalFromString).
std::wstring ConversionStem(int itemType);
std::wstring WhitespaceName(Whitespace rule);
QxXmlLib16::CWhitespaceUtils::WhitespaceRule Rule(Whitespace rule);
// A wide string literal: L"..." with everything outside printable ASCII escaped.
std::wstring Literal(const std::wstring& text);
// {L"a", L"b"}
std::wstring Texts(const std::vector<std::wstring>& texts);
// UTF-8 bytes of a wide text.
std::string Utf8(const std::wstring& text);
// The lines of a documentation text as // comments at the indentation.
std::wstring Comment(const std::wstring& text, const std::wstring& indent);

} // namespace Qxxsd
