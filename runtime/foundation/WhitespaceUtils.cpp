#include <QxXmlLib16/foundation/WhitespaceUtils.h>

#include <QxXmlLib16/foundation/Exceptions.h>

#include <cwchar>

namespace QxXmlLib16 {

std::wstring CWhitespaceUtils::Preserve(const std::wstring& text) {
    return Preserve(text.data(), static_cast<int>(text.size()));
}

std::wstring CWhitespaceUtils::Preserve(const wchar_t* text, int length) {
    if (!text || length <= 0) return std::wstring();
    const wchar_t* end = text + length;
    const wchar_t* cr = std::wmemchr(text, L'\r', length);
    if (!cr) return std::wstring(text, end);
    std::wstring result;
    result.reserve(length);
    const wchar_t* run = text;
    for (; cr; cr = std::wmemchr(run, L'\r', end - run)) {
        result.append(run, cr);
        result += L'\n';
        run = cr + 1;
        if (run < end && *run == L'\n') ++run;
    }
    result.append(run, end);
    return result;
}

std::wstring CWhitespaceUtils::Replace(const std::wstring& text) {
    std::wstring result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i];
        if (c == L'\r') {
            result += L' ';
            if (i + 1 < text.size() && text[i + 1] == L'\n') ++i;
        } else {
            result += (c == L'\t' || c == L'\n') ? L' ' : c;
        }
    }
    return result;
}

std::wstring CWhitespaceUtils::Collapse(const std::wstring& text) {
    std::wstring result;
    result.reserve(text.size());
    bool pendingBlank = false;
    for (const wchar_t c : text) {
        if (IsWhiteSpace(c)) {
            pendingBlank = !result.empty();
            continue;
        }
        if (pendingBlank) {
            result += L' ';
            pendingBlank = false;
        }
        result += c;
    }
    return result;
}

std::wstring CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const std::wstring& text) {
    switch (rule) {
    case wsNone:
        return text;
    case wsPreserve:
        return Preserve(text);
    case wsReplace:
        return Replace(text);
    case wsCollapse:
        return Collapse(text);
    }
    throw CQxException(L"Unknown WhitespaceRule");
}

} // namespace QxXmlLib16
