#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/Types.h>

#include <string>

namespace QxXmlLib16 {

// The facets of one primitive member, copied by value into its descriptor or collection. A text
// facet is absent when empty, a numeric facet when negative. Bounds stay text in the member type's
// lexical form, so one record serves every primitive type; CXmlObjectHelper converts them when it
// checks a value.
class QX_API CPrimitiveRestrictions {
public:
    // Every facet absent.
    CPrimitiveRestrictions();
    // The fields in record order, as generated code and the typed collections pass them. The pattern
    // mode comes last: code generated from a schema asks for pmExact.
    CPrimitiveRestrictions(std::wstring pattern, long long minLength, long long maxLength,
                           std::wstring minInclusive, std::wstring maxInclusive, std::wstring minExclusive,
                           std::wstring maxExclusive, long long length, long long totalDigits,
                           long long fractionDigits, PatternMode patternMode = pmTranslated);
    CPrimitiveRestrictions(const CPrimitiveRestrictions&) = default;
    CPrimitiveRestrictions(CPrimitiveRestrictions&&) noexcept = default;
    CPrimitiveRestrictions& operator=(const CPrimitiveRestrictions&) = default;
    CPrimitiveRestrictions& operator=(CPrimitiveRestrictions&&) noexcept = default;
    virtual ~CPrimitiveRestrictions();

    static bool IsPresent(const std::wstring& facet) { return !facet.empty(); }
    static bool IsPresent(long long facet) { return facet >= 0; }

    std::wstring m_pattern;
    long long m_minLength;
    long long m_maxLength;
    std::wstring m_minInclusive;
    std::wstring m_maxInclusive;
    std::wstring m_minExclusive;
    std::wstring m_maxExclusive;
    long long m_length;
    long long m_totalDigits;
    long long m_fractionDigits;
    PatternMode m_patternMode;
};

} // namespace QxXmlLib16
