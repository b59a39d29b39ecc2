#pragma once

#include <string>

// The full documents of the content and groups schemas, shared by the proofs of each encoding.
namespace ProofDocuments {

// Every repeated member of the content schema filled, every wildcard used.
extern const wchar_t kContentFull[];

// The parts of the full groups document, which the invalid variants replace: choices, the all
// group, the abstract main member, and the repeated members after it.
extern const wchar_t kGroupsPicks[];
extern const wchar_t kGroupsBag[];
extern const wchar_t kGroupsMain[];
extern const wchar_t kGroupsTail[];
// Declared on the groups root.
extern const wchar_t kGroupsNamespaces[];
std::wstring Groups(const std::wstring& picks = kGroupsPicks, const std::wstring& bag = kGroupsBag,
                    const std::wstring& tail = kGroupsTail);

} // namespace ProofDocuments
