#pragma once

#include <QxXmlLib16/foundation/Functions.h>

#include <optional>
#include <string>

namespace QxXmlLib16 {
namespace internal {

// An XML Schema regular expression in PCRE2 syntax (UTF-8, for PCRE2_UTF with the match anchored
// at both ends), or why the pattern is not one.
struct CSchemaRegexTranslation {
    std::string pcre;
    std::optional<CPatternError> error;
};

CSchemaRegexTranslation TranslateSchemaRegex(const std::wstring& pattern);

} // namespace internal
} // namespace QxXmlLib16
