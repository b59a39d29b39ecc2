#pragma once

#include "Schema.h"

namespace Qxxsd {

// A built-in simple type of XML Schema and what binds it.
struct Builtin {
    const wchar_t* name;
    int itemType;          // QxXmlLib16::ItemType of its values; 0 for the list types
    Whitespace whitespace; // its whiteSpace facet
    bool stringLike;       // an enumeration of it becomes a C++ enumeration
    const wchar_t* minInclusive;
    const wchar_t* maxInclusive;
    // The lexical rules of the string types, as patterns that must all match.
    const wchar_t* patterns[2];
    const wchar_t* listOf; // the item type of NMTOKENS, IDREFS and ENTITIES
};

// The built-in type of that local name in the XML Schema namespace, or null.
const Builtin* FindBuiltin(const std::wstring& name);
// Every built-in simple type, for the reader to register.
const Builtin* BuiltinTypes(size_t& count);

} // namespace Qxxsd
