#include <QxXmlLib16/data/PrimitiveRestrictions.h>

#include <utility>

namespace QxXmlLib16 {

CPrimitiveRestrictions::CPrimitiveRestrictions()
    : CPrimitiveRestrictions({}, -1, -1, {}, {}, {}, {}, -1, -1, -1) {}

CPrimitiveRestrictions::CPrimitiveRestrictions(std::wstring pattern, long long minLength, long long maxLength,
                                               std::wstring minInclusive, std::wstring maxInclusive,
                                               std::wstring minExclusive, std::wstring maxExclusive,
                                               long long length, long long totalDigits,
                                               long long fractionDigits, PatternMode patternMode)
    : m_pattern(std::move(pattern))
    , m_minLength(minLength)
    , m_maxLength(maxLength)
    , m_minInclusive(std::move(minInclusive))
    , m_maxInclusive(std::move(maxInclusive))
    , m_minExclusive(std::move(minExclusive))
    , m_maxExclusive(std::move(maxExclusive))
    , m_length(length)
    , m_totalDigits(totalDigits)
    , m_fractionDigits(fractionDigits)
    , m_patternMode(patternMode) {}

// Out of line so that the class's type information and vtable live in the library.
CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

} // namespace QxXmlLib16
