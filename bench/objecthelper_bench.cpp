// Facet checks as a load meets them: every coordinate of a large GPX file is a decimal between two
// inclusive bounds, every count an i4 with bounds and totalDigits. Bounds are text and are converted on
// each check, so each check is timed against converting the value itself from text, which the load
// does anyway, measured in the same run.
#include "BenchTiming.h"

#include <QxXmlLib16/binding/Conversions.h>
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
    return 0;
}
