// GPX 1.1 bindings against a bare parse and two peer binding tools, in one run.
//   gpx_bench <document.gpx> [runs]
// Every tool works in fresh processes forked after the document was read into memory, as the
// peers' published figures were taken: a process loads the document (cold), writes it back to
// UTF-8 bytes in memory, then loads it once more (warm: the memory is already the process's). The
// median of the runs (default 3) counts; the peak resident memory is the process's after its first
// load, the document bytes included.

#include "BareExpat.h"
#include "BenchTiming.h"
#include "DocumentBench.h"
#include "FreshProcess.h"
#include "gpx/GpxTool.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <vector>

namespace {

struct Sample {
    bool ok;
    double load, write, warmLoad;
    long peakKiB;
    size_t written;
};

typedef std::function<Sample(const std::vector<unsigned char>&)> Measure;

// Runs measure in a fresh process; not ok if it failed there.
Sample InChild(const Measure& measure, const std::vector<unsigned char>& document) {
    Sample sample{};
    sample.ok = bench::InFreshProcess([&] { return measure(document); }, sample);
    return sample;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The medians of each figure over runs fresh processes; not ok if any run failed.
Sample MedianSample(const Measure& measure, const std::vector<unsigned char>& document, int runs) {
    std::vector<double> load, write, warm, peak;
    Sample result{true, 0, 0, 0, 0, 0};
    for (int run = 0; run < runs; ++run) {
        const Sample sample = InChild(measure, document);
        if (!sample.ok) return Sample{};
        load.push_back(sample.load);
        write.push_back(sample.write);
        warm.push_back(sample.warmLoad);
        peak.push_back(static_cast<double>(sample.peakKiB));
        result.written = sample.written;
    }
    result.load = Median(load);
    result.write = Median(write);
    result.warmLoad = Median(warm);
    result.peakKiB = static_cast<long>(Median(peak));
    return result;
}

Measure ToolMeasure(std::unique_ptr<bench::CGpxTool> (*make)()) {
    return [make](const std::vector<unsigned char>& document) {
        std::unique_ptr<bench::CGpxTool> tool = make();
        Sample sample{};
        sample.load = Seconds([&] { tool->Load(document); });
        sample.peakKiB = PeakResidentKiB();
        sample.write = Seconds([&] { sample.written = tool->Write(); });
        sample.warmLoad = Seconds([&] { tool->Load(document); });
        return sample;
    };
}

struct Tool {
    const char* label;
    std::unique_ptr<bench::CGpxTool> (*make)(); // null when not built
    const char* packages;
};

} // namespace

int main(int argc, char** argv) {
    bench::DocumentRun run;
    if (!bench::ReadDocumentRun(argc, argv, 3, run)) return 2;
    const int runs = run.runs;
    const std::vector<unsigned char>& document = run.document;
    std::printf("input %.1f MiB, median of %d fresh processes per tool\n", document.size() / 1048576.0, runs);

    const Sample bare = MedianSample(
        [](const std::vector<unsigned char>& bytes) {
            Sample sample{};
            sample.load = Seconds([&] { bench::BareParse(bytes); });
            sample.peakKiB = PeakResidentKiB();
            sample.warmLoad = Seconds([&] { bench::BareParse(bytes); });
            return sample;
        },
        document, runs);
    std::printf("%-28s %8s %6s %8s %6s %9s %10s\n", "", "load s", "x(a)", "write s", "x(a)", "warm load",
                "peak MiB");
    std::printf("%-28s %8.3f %6.2f %8s %6s %9.3f %10.1f\n", "(a) bare expat, wide build", bare.load, 1.0, "",
                "", bare.warmLoad, bare.peakKiB / 1024.0);

#ifdef QX_BENCH_GSOAP
    const auto gsoap = &bench::MakeGsoapTool;
#else
    const auto gsoap = nullptr;
#endif
#ifdef QX_BENCH_XSD
    const auto xsd = &bench::MakeXsdTool;
#else
    const auto xsd = nullptr;
#endif
    const Tool tools[] = {{"(b,c) QxXmlLib16 bindings", &bench::MakeQxTool, ""},
                          {"(d,e) gSOAP, strict", gsoap, "gsoap libgsoap-dev"},
                          {"(f,g) XSD C++/Tree", xsd, "xsdcxx libxerces-c-dev"}};
    Sample results[3] = {};
    for (int i = 0; i < 3; ++i) {
        if (!tools[i].make) {
            std::printf("%-28s skipped: %s not installed at configure time\n", tools[i].label,
                        tools[i].packages);
            continue;
        }
        results[i] = MedianSample(ToolMeasure(tools[i].make), document, runs);
        if (!results[i].ok) {
            std::printf("%-28s failed\n", tools[i].label);
            continue;
        }
        const Sample& r = results[i];
        std::printf("%-28s %8.3f %6.2f %8.3f %6.2f %9.3f %10.1f   (%zu bytes written)\n", tools[i].label,
                    r.load, r.load / bare.load, r.write, r.write / bare.load, r.warmLoad, r.peakKiB / 1024.0,
                    r.written);
    }

    const Sample& ours = results[0];
    const Sample& peer = results[1];
    if (!ours.ok) return 1;
    std::printf("targets: load <= 2.0 x (a): %s", bench::Verdict(ours.load <= 2.0 * bare.load));
    std::printf("; write <= 1.0 x (a): %s", bench::Verdict(ours.write <= bare.load));
    if (peer.ok)
        std::printf("; load faster than gSOAP: %s; write faster than gSOAP: %s; peak <= gSOAP's: %s",
                    bench::Verdict(ours.load < peer.load), bench::Verdict(ours.write < peer.write),
                    bench::Verdict(ours.peakKiB <= peer.peakKiB));
    std::printf("\n");
    return 0;
}
