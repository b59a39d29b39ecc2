#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

// The XML Schema whiteSpace facet.
class QX_API CWhitespaceUtils {
public:
    enum WhitespaceRule : int {
        wsNone = 0,     // text unchanged
        wsPreserve = 1, // only line ends normalised to LF
        wsReplace = 2,  // tab, LF and CR each become a blank (CR LF one blank)
        wsCollapse = 3, // runs of whitespace become one blank, none leading or trailing
    };

    // Tab, line feed, carriage return and blank.
    static bool IsWhiteSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r'; }
    static std::wstring Preserve(const std::wstring& text);
    static std::wstring Preserve(const wchar_t* text, int length);
    static std::wstring Replace(const std::wstring& text);
    static std::wstring Collapse(const std::wstring& text);
    // Throws CQxException "Unknown WhitespaceRule" for a value outside 0..3.
    static std::wstring ApplyRule(WhitespaceRule rule, const std::wstring& text);
};

} // namespace QxXmlLib16
