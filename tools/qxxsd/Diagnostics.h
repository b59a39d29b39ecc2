#pragma once

#include "Schema.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace Qxxsd {

// A schema the compiler refuses: where and why. The compiler stops at the first one.
class CSchemaError : public std::exception {
public:
    CSchemaError(Location where, std::wstring reason)
        : m_where(std::move(where))
        , m_reason(std::move(reason)) {}
    const char* what() const noexcept override { return "schema error"; }
    // "file:line: error: reason"
    std::wstring Text() const;

private:
    Location m_where;
    std::wstring m_reason;
};

// The constructs the compiler skips, each with what the generated code does instead.
class CDiagnostics {
public:
    void Warn(const Location& where, const std::wstring& text);
    const std::vector<std::wstring>& Warnings() const { return m_warnings; }

private:
    std::vector<std::wstring> m_warnings;
};

std::wstring Describe(const Location& where);

} // namespace Qxxsd
