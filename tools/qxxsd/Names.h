#pragma once

#include <initializer_list>
#include <set>
#include <string>

namespace Qxxsd {

// XML names as C++ identifiers: the letters and digits of the name in UpperCamel case (a word
// starts after any other character), characters outside ASCII as _xHHHH. Never empty.
std::wstring UpperCamel(const std::wstring& xmlName);
// The same with a lower-case first letter, for fields.
std::wstring LowerFirst(const std::wstring& identifier);

// One scope of names. A name that is taken (by the library, a macro or an earlier claim) gets
// the smallest number from 2 up that frees it, together with the names derived from it.
class CNameScope {
public:
    explicit CNameScope(std::initializer_list<const wchar_t*> reserved = {});
    void Reserve(const std::wstring& name) { m_used.insert(name); }
    bool IsUsed(const std::wstring& name) const { return m_used.count(name) > 0; }
    // base with the first suffix, free together with each of the other suffixes appended.
    std::wstring Claim(const std::wstring& base, std::initializer_list<const wchar_t*> family = {L""});

private:
    std::set<std::wstring> m_used;
};

// The names of the library and of the C and C++ headers it includes that a generated name must
// not hide.
CNameScope GlobalScope();

} // namespace Qxxsd
