#include "Diagnostics.h"

#include <QxXmlLib16/foundation/Functions.h>

namespace Qxxsd {

std::wstring Describe(const Location& where) {
    return where.line > 0 ? QxXmlLib16::FormatString(L"%ls:%d", where.file.c_str(), where.line) : where.file;
}

std::wstring CSchemaError::Text() const {
    return Describe(m_where) + L": error: " + m_reason;
}

void CDiagnostics::Warn(const Location& where, const std::wstring& text) {
    const std::wstring line = Describe(where) + L": warning: " + text;
    // A construct in a type used many times is reported once.
    for (const std::wstring& known : m_warnings)
        if (known == line) return;
    m_warnings.push_back(line);
}

} // namespace Qxxsd
