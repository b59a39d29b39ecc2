// Text round trips of dateTime and duration values against a double round trip (wcstod, then
// swprintf "%.16g") on texts of similar length, all measured in this run. A GPX document of 50 MB
// holds about 180,000 dateTimes, which is the size of one pass here.

#include "BenchTiming.h"

#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cwchar>
#include <functional>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

const int kValues = 180000;

std::vector<std::wstring> MakeTexts(const wchar_t* format, int count) {
    std::vector<std::wstring> texts;
    texts.reserve(count);
    wchar_t buffer[64];
    for (int i = 0; i < count; ++i) {
        const int day = i % 28 + 1, hour = i % 24, minute = i % 60, second = (i * 7) % 60,
                  fraction = i % 1000;
        std::swprintf(buffer, 64, format, 1990 + i % 30, i % 12 + 1, day, hour, minute, second, fraction);
        texts.emplace_back(buffer);
    }
    return texts;
}

std::size_t DoubleRoundTrip(const std::vector<std::wstring>& texts) {
    std::size_t total = 0;
    wchar_t buffer[64];
    for (const std::wstring& text : texts) {
        const double value = std::wcstod(text.c_str(), nullptr);
        total += std::wstring(buffer, std::swprintf(buffer, 64, L"%.16g", value)).size();
    }
    return total;
}

} // namespace

int main() {
    // Typical GPX times, with and without milliseconds, and a double of about the same length.
    const std::vector<std::wstring> dateTimes = MakeTexts(L"%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", kValues);
    const std::vector<std::wstring> durations = MakeTexts(L"P%dY%dM%dDT%dH%dM%d.%03dS", kValues);
    const std::vector<std::wstring> doubles = MakeTexts(L"%d%02d%02d.%02d%02d%02d%03d", kValues);

    const double reference = MedianSeconds([&] { return DoubleRoundTrip(doubles); });
    const double dateTime = MedianSeconds([&] {
        std::size_t total = 0;
        for (const std::wstring& text : dateTimes)
            total += CDateTime::ParseXSDDateTime(text.c_str()).ToString().size();
        return total;
    });
    const double duration = MedianSeconds([&] {
        std::size_t total = 0;
        for (const std::wstring& text : durations)
            total += CDateTimeSpan::ParseXSDDuration(text.c_str()).ToString().size();
        return total;
    });

    std::printf("%d values, median of %d runs\n", kValues, kBenchRuns);
    std::printf("double round trip (wcstod + %%.16g)  %8.2f ms  1.00\n", reference * 1e3);
    std::printf("dateTime round trip                  %8.2f ms  %.2f\n", dateTime * 1e3,
                dateTime / reference);
    std::printf("duration round trip                  %8.2f ms  %.2f\n", duration * 1e3,
                duration / reference);
    return 0;
}
