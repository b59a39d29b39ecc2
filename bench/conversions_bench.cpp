// Text conversions of the hot kinds against the bare C library calls on the same inputs.
// Each phase runs over one million values; the median of several runs is reported, and the ratios
// compare phases measured in this same run.

#include "BenchTiming.h"

#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/Decimal.h>

#include <algorithm>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <functional>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

const int kValues = 1000000;
const auto kRule = CWhitespaceUtils::wsCollapse; // what schema numbers and dates use

// Keeps results observable so that no phase is optimised away.

// A small deterministic generator, so that every run sees the same inputs.
struct Random {
    unsigned long long state = 0x9E3779B97F4A7C15ull;
    unsigned long long Next() {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return state;
    }
};

std::vector<std::wstring> Texts(int count, const std::function<std::wstring(Random&)>& make) {
    Random random;
    std::vector<std::wstring> texts;
    texts.reserve(count);
    for (int i = 0; i < count; ++i)
        texts.push_back(make(random));
    return texts;
}

std::wstring Printed(const wchar_t* format, ...) {
    wchar_t buffer[64];
    va_list args;
    va_start(args, format);
    vswprintf(buffer, 64, format, args);
    va_end(args);
    return buffer;
}

void Report(const char* name, double seconds, double reference, const char* referenceName) {
    std::printf("%-28s %8.1f ms   %5.2f x %s\n", name, seconds * 1e3, seconds / reference, referenceName);
}

} // namespace

int main() {
    std::vector<std::wstring> i4Texts = Texts(kValues, [](Random& r) {
        // Mixed magnitudes, as coordinates, counts and identifiers give in real documents.
        long value = static_cast<long>(static_cast<int>(r.Next())) >> (r.Next() % 31);
        return Printed(L"%ld", value);
    });
    std::vector<long> i4Values;
    for (const auto& text : i4Texts)
        i4Values.push_back(std::wcstol(text.c_str(), nullptr, 10));

    std::vector<std::wstring> r8Texts = Texts(kValues, [](Random& r) {
        double value =
            (static_cast<double>(r.Next() % 20000000) - 1e7) / static_cast<double>(1 + r.Next() % 100000);
        return Printed(L"%.16g", value);
    });
    std::vector<double> r8Values;
    for (const auto& text : r8Texts)
        r8Values.push_back(std::wcstod(text.c_str(), nullptr));

    std::vector<std::wstring> decimalTexts = Texts(kValues, [](Random& r) {
        // Twelve significant digits, as coordinates and amounts carry.
        long long digits = static_cast<long long>(r.Next() % 900000000000ull) + 100000000000ll;
        int point = static_cast<int>(r.Next() % 12);
        std::wstring text = Printed(L"%s%lld", r.Next() % 2 ? "-" : "", digits);
        text.insert(text.size() - point, point ? L"." : L"");
        return text;
    });
    std::vector<std::wstring> dateTimeTexts = Texts(kValues, [](Random& r) {
        const wchar_t* zones[] = {L"Z", L"+02:00", L"-05:30", L""};
        return Printed(L"%04d-%02d-%02dT%02d:%02d:%02d.%03d%ls", 1900 + static_cast<int>(r.Next() % 200),
                       1 + static_cast<int>(r.Next() % 12), 1 + static_cast<int>(r.Next() % 28),
                       static_cast<int>(r.Next() % 24), static_cast<int>(r.Next() % 60),
                       static_cast<int>(r.Next() % 60), static_cast<int>(r.Next() % 1000),
                       zones[r.Next() % 4]);
    });
    std::vector<std::wstring> durationTexts = Texts(kValues, [](Random& r) {
        return Printed(L"P%dY%dM%dDT%dH%dM%d.%dS", static_cast<int>(r.Next() % 10),
                       static_cast<int>(r.Next() % 12), static_cast<int>(r.Next() % 31),
                       static_cast<int>(r.Next() % 24), static_cast<int>(r.Next() % 60),
                       static_cast<int>(r.Next() % 60), static_cast<int>(r.Next() % 1000));
    });

    wchar_t buffer[64];
    double cI4From = MedianSeconds([&] {
        long sum = 0;
        for (const auto& text : i4Texts)
            sum += std::wcstol(text.c_str(), nullptr, 10);
        return static_cast<double>(sum);
    });
    double i4From = MedianSeconds([&] {
        long sum = 0;
        for (const auto& text : i4Texts)
            sum += CConversions::i4FromString(text, kRule);
        return static_cast<double>(sum);
    });
    double cI4To = MedianSeconds([&] {
        size_t length = 0;
        for (long value : i4Values)
            length += swprintf(buffer, 64, L"%ld", value);
        return static_cast<double>(length);
    });
    double i4To = MedianSeconds([&] {
        size_t length = 0;
        for (long value : i4Values)
            length += CConversions::i4ToString(value).size();
        return static_cast<double>(length);
    });
    double cR8From = MedianSeconds([&] {
        double sum = 0;
        for (const auto& text : r8Texts)
            sum += std::wcstod(text.c_str(), nullptr);
        return sum;
    });
    double r8From = MedianSeconds([&] {
        double sum = 0;
        for (const auto& text : r8Texts)
            sum += CConversions::r8FromString(text, kRule);
        return sum;
    });
    double cR8To = MedianSeconds([&] {
        size_t length = 0;
        for (double value : r8Values)
            length += swprintf(buffer, 64, L"%.16g", value);
        return static_cast<double>(length);
    });
    double r8To = MedianSeconds([&] {
        size_t length = 0;
        for (double value : r8Values)
            length += CConversions::r8ToString(value).size();
        return static_cast<double>(length);
    });

    auto roundTrip = [&](const std::vector<std::wstring>& texts, auto convert) {
        return MedianSeconds([&] {
            size_t length = 0;
            for (const auto& text : texts)
                length += convert(text).size();
            return static_cast<double>(length);
        });
    };
    using C = CConversions;
    double r8Trip =
        roundTrip(r8Texts, [](const std::wstring& t) { return C::r8ToString(C::r8FromString(t, kRule)); });
    double decimalTrip = roundTrip(decimalTexts, [](const std::wstring& t) {
        return C::decimalToString(C::decimalFromString(t, kRule));
    });
    double dateTimeTrip = roundTrip(dateTimeTexts, [](const std::wstring& t) {
        return C::datetimeToString(C::datetimeFromString(t, kRule));
    });
    double durationTrip = roundTrip(durationTexts, [](const std::wstring& t) {
        return C::durationToString(C::durationFromString(t, kRule));
    });

    std::printf("%d values per phase, median of %d runs\n", kValues, kBenchRuns);
    Report("wcstol", cI4From, cI4From, "wcstol");
    Report("i4FromString", i4From, cI4From, "wcstol");
    Report("swprintf %ld", cI4To, cI4To, "swprintf");
    Report("i4ToString", i4To, cI4To, "swprintf");
    Report("wcstod", cR8From, cR8From, "wcstod");
    Report("r8FromString", r8From, cR8From, "wcstod");
    Report("swprintf %.16g", cR8To, cR8To, "swprintf");
    Report("r8ToString", r8To, cR8To, "swprintf");
    Report("r8 round trip", r8Trip, r8Trip, "r8 round trip");
    Report("decimal round trip", decimalTrip, r8Trip, "r8 round trip");
    Report("dateTime round trip", dateTimeTrip, r8Trip, "r8 round trip");
    Report("duration round trip", durationTrip, r8Trip, "r8 round trip");
    return 0;
}
