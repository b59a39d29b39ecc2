// Text round trip of decimals as a document load and save does them: parse, then print.
// Reference, measured in the same run: wcstod + swprintf("%.16g"). Prints the median of 5 runs
// of each and their ratio.

#include "BenchTiming.h"

#include <QxXmlLib16/values/Decimal.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

// Coordinates like those of a GPS track: about 12 significant digits, both signs.
std::vector<std::wstring> MakeInputs(std::size_t count) {
    std::mt19937 rng(12345);
    std::vector<std::wstring> inputs;
    inputs.reserve(count);
    wchar_t buffer[64];
    for (std::size_t i = 0; i < count; ++i) {
        const bool latitude = i % 2 == 0;
        const double range = latitude ? 90.0 : 180.0;
        const double value = std::uniform_real_distribution<double>(-range, range)(rng);
        std::swprintf(buffer, 64, latitude ? L"%.9f" : L"%.7f", value);
        inputs.emplace_back(buffer);
    }
    return inputs;
}

} // namespace

int main() {
    const std::vector<std::wstring> inputs = MakeInputs(500000);
    std::size_t sink = 0;

    const double reference = MedianSeconds([&] {
        wchar_t buffer[32];
        for (const std::wstring& text : inputs) {
            const double value = std::wcstod(text.c_str(), nullptr);
            sink += static_cast<std::size_t>(std::swprintf(buffer, 32, L"%.16g", value));
        }
    });
    const double fresh = MedianSeconds([&] {
        for (const std::wstring& text : inputs) {
            const CDecimal value(text.c_str());
            sink += value.ToString().size();
        }
    });
    const double reused = MedianSeconds([&] {
        CDecimal value;
        for (const std::wstring& text : inputs) {
            value.Parse(text.c_str(), text.size());
            sink += value.ToString().size();
        }
    });

    std::printf("%zu decimals, median of 5 runs (checksum %zu)\n", inputs.size(), sink);
    std::printf("wcstod + swprintf(%%.16g)          %8.1f ns/value  1.00\n", reference / inputs.size() * 1e9);
    std::printf("CDecimal(text) + ToString()         %8.1f ns/value  %.2f\n", fresh / inputs.size() * 1e9,
                fresh / reference);
    std::printf("CDecimal::Parse (reused) + ToString %8.1f ns/value  %.2f\n", reused / inputs.size() * 1e9,
                reused / reference);
    return 0;
}
