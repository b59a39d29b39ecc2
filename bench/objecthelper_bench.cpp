// Facet checks as a load meets them: every coordinate of a large GPX file is a decimal between two
// inclusive bounds, every count an i4 with bounds and totalDigits. Bounds are text and are converted on
// each check, so each check is timed against converting the value itself from text, which the load
// does anyway, measured in the same run. A pattern facet, as banking messages use on every account
// number, is timed against a length facet on the same strings and against bare PCRE2 matching with
// the pattern compiled once.
#include "BenchTiming.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

constexpr int kValues = 400000; // two coordinates per point of a 50 MB track
constexpr int kAccounts = 100000;
const auto kCollapse = CWhitespaceUtils::wsCollapse;

void Report(const char* name, double measured, double reference) {
    std::printf("%-44s %8.3f s  reference %8.3f s  ratio %5.2f\n", name, measured, reference,
                measured / reference);
}

} // namespace

int main() {
    std::vector<std::wstring> texts;
    for (int i = 0; i < kValues; ++i)
        texts.push_back(std::to_wstring(i % 90) + L"." + std::to_wstring(100000000 + i * 7919LL % 99999999));
    std::vector<CDecimal> decimals;
    std::vector<long> counts;
    for (const std::wstring& text : texts) {
        decimals.push_back(CConversions::decimalFromString(text, kCollapse));
        counts.push_back(static_cast<long>(decimals.size()));
    }

    const CPrimitiveRestrictions latitude(L"", -1, -1, L"-90.0", L"90.0", L"", L"", -1, -1, -1);
    const double decimalCheck = MedianSeconds([&] {
        for (const CDecimal& value : decimals)
            CXmlObjectHelper::CheckRestrictionFordecimal(L"lat", value, latitude);
    });
    const double decimalParse = MedianSeconds([&] {
        for (const std::wstring& text : texts)
            CConversions::decimalFromString(text, kCollapse);
    });
    Report("decimal bounds / decimal from text", decimalCheck, decimalParse);

    const CPrimitiveRestrictions count(L"", -1, -1, L"0", L"1000000", L"", L"", -1, 7, -1);
    const double i4Check = MedianSeconds([&] {
        for (long value : counts)
            CXmlObjectHelper::CheckRestrictionFori4(L"count", value, count);
    });
    const double i4Parse = MedianSeconds([&] {
        for (const std::wstring& text : texts)
            CConversions::i4FromString(text.substr(0, text.find(L'.')), kCollapse);
    });
    Report("i4 bounds and totalDigits / i4 from text", i4Check, i4Parse);

    std::vector<std::wstring> accounts;
    for (int i = 0; i < kAccounts; ++i)
        accounts.push_back(L"CH" + std::to_wstring(10 + i % 90) + L"0070" + std::to_wstring(1000000000000LL + i));
    const std::wstring iban = L"[A-Z]{2}[0-9]{2}[A-Z0-9]{4}[0-9]{7}([A-Z0-9]?){0,16}";
    const CPrimitiveRestrictions patternFacet(iban, -1, -1, L"", L"", L"", L"", -1, -1, -1);
    const CPrimitiveRestrictions lengthFacet(L"", 5, 34, L"", L"", L"", L"", -1, -1, -1);
    const double patternCheck = MedianSeconds([&] {
        for (const std::wstring& value : accounts)
            CXmlObjectHelper::CheckRestrictionForstring(L"IBAN", value, patternFacet);
    });
    const double lengthCheck = MedianSeconds([&] {
        for (const std::wstring& value : accounts)
            CXmlObjectHelper::CheckRestrictionForstring(L"IBAN", value, lengthFacet);
    });
    Report("string pattern / string length", patternCheck, lengthCheck);

    // The same matches as a careful caller writes them: compiled and JIT-compiled once, one match
    // data for all values, each value encoded to UTF-8 into one reused buffer.
    int error = 0;
    PCRE2_SIZE errorOffset = 0;
    const std::string translated = "^(" + std::string(iban.begin(), iban.end()) + ")$";
    pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(translated.c_str()), translated.size(),
                                     PCRE2_UTF | PCRE2_ANCHORED, &error, &errorOffset, nullptr);
    pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    pcre2_match_data* matchData = pcre2_match_data_create_from_pattern(code, nullptr);
    const double bareMatch = MedianSeconds([&] {
        long matched = 0;
        std::string utf8;
        for (const std::wstring& value : accounts) {
            utf8.resize(4 * value.size());
            utf8.resize(UnicodeToUTF8(value.data(), value.size(), reinterpret_cast<unsigned char*>(&utf8[0]),
                                      utf8.size()));
            matched += pcre2_match(code, reinterpret_cast<PCRE2_SPTR>(utf8.data()), utf8.size(), 0, 0,
                                   matchData, nullptr) > 0;
        }
        return matched;
    });
    pcre2_match_data_free(matchData);
    pcre2_code_free(code);
    Report("string pattern / PCRE2 compiled once", patternCheck, bareMatch);
    return 0;
}
