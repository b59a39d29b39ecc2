#pragma once

#include <QxXmlLib16/foundation/Types.h>

#include <cstddef>
#include <string>

namespace QxXmlLib16 {
namespace internal {

// True when value[0, length) matches the XML Schema pattern (UTF-8), read in the given mode, as a
// whole; text from the first null character on is not looked at. Each distinct pattern is
// translated and compiled once per process and mode and kept, within a budget; any number of
// threads may match at once. Throws CQxException "Invalid Regular Expression: ..." for a pattern
// that does not compile, and "Failed to match the Regular Expression: ..." when a match needs more
// than the matcher's time or memory limit.
bool MatchesPattern(const std::string& pattern, PatternMode mode, const wchar_t* value, size_t length);
// The same for a wide pattern, as facet records hold it.
bool MatchesPattern(const std::wstring& pattern, PatternMode mode, const wchar_t* value, size_t length);

} // namespace internal
} // namespace QxXmlLib16
