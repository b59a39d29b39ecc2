// GPX 1.1 bindings against a bare parse and two peer binding tools, in one run.
//   gpx_bench [--runs N] [--report DIR] <document.gpx> [scaling-document.gpx...]
// Every tool works in fresh processes forked after the document was read into memory, as the
// peers' published figures were taken: a process loads the document (cold), writes it back to
// UTF-8 bytes in memory twice (cold, then warm), then loads it once more (warm: the memory is
// already the process's). The median of the runs (default 3) counts; the peak resident memory is
// the process's after its first load, the document bytes included.
// Scaling documents are loaded cold by the bare parse and by our bindings alone, to show how time
// and memory grow with the number of points. --report writes the figures as DIR/benchmark-gpx.md
// and the chart DIR/benchmark-gpx.svg.

#include "BarChart.h"
#include "BareExpat.h"
#include "BenchTiming.h"
#include "FreshProcess.h"
#include "gpx/GpxTool.h"

#include <QxXmlLib16/foundation/Exceptions.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace {

struct Sample {
    bool ok;
    double load, write, warmWrite, warmLoad;
    long peakKiB;
    size_t written;
};

typedef std::function<Sample(const std::vector<unsigned char>&)> Measure;

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The medians of each figure over runs fresh processes; not ok if any run failed.
Sample MedianSample(const Measure& measure, const std::vector<unsigned char>& document, int runs) {
    std::vector<double> load, write, warmWrite, warmLoad, peak;
    Sample result{};
    for (int run = 0; run < runs; ++run) {
        Sample sample{};
        if (!bench::InFreshProcess([&] { return measure(document); }, sample)) return Sample{};
        load.push_back(sample.load);
        write.push_back(sample.write);
        warmWrite.push_back(sample.warmWrite);
        warmLoad.push_back(sample.warmLoad);
        peak.push_back(static_cast<double>(sample.peakKiB));
        result.written = sample.written;
    }
    result.ok = true;
    result.load = Median(load);
    result.write = Median(write);
    result.warmWrite = Median(warmWrite);
    result.warmLoad = Median(warmLoad);
    result.peakKiB = static_cast<long>(Median(peak));
    return result;
}

Sample BareSample(const std::vector<unsigned char>& bytes) {
    Sample sample{};
    sample.load = Seconds([&] { bench::BareParse(bytes); });
    sample.peakKiB = PeakResidentKiB();
    sample.warmLoad = Seconds([&] { bench::BareParse(bytes); });
    return sample;
}

Measure ToolMeasure(std::unique_ptr<bench::CGpxTool> (*make)(), bool writeAndReload) {
    return [make, writeAndReload](const std::vector<unsigned char>& document) {
        std::unique_ptr<bench::CGpxTool> tool = make();
        Sample sample{};
        try {
            sample.load = Seconds([&] { tool->Load(document); });
        } catch (const QxXmlLib16::CQxException& e) {
            std::fprintf(stderr, "  %ls\n", e.GetFullMessage().c_str());
            throw;
        }
        sample.peakKiB = PeakResidentKiB();
        if (!writeAndReload) return sample;
        sample.write = Seconds([&] { sample.written = tool->Write(); });
        sample.warmWrite = Seconds([&] { tool->Write(); });
        sample.warmLoad = Seconds([&] { tool->Load(document); });
        return sample;
    };
}

struct Tool {
    const char* label;
    std::unique_ptr<bench::CGpxTool> (*make)(); // null when not built
    const char* packages;
};

struct Scaled {
    size_t points;
    double megabytes;
    Sample bare, ours;
};

const char* Verdict(bool met) {
    return met ? "met" : "missed";
}

size_t CountPoints(const std::vector<unsigned char>& document) {
    static const char tag[] = "<trkpt ";
    size_t count = 0;
    for (auto at = document.begin();; ++at) {
        at = std::search(at, document.end(), tag, tag + sizeof tag - 1);
        if (at == document.end()) return count;
        ++count;
    }
}

std::wstring Wide(const char* text) {
    return std::wstring(text, text + std::strlen(text));
}

struct Options {
    int runs = 3;
    const char* reportDir = nullptr;
    std::vector<const char*> documents;
};

bool ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--runs") == 0 && i + 1 < argc)
            options.runs = std::max(1, std::atoi(argv[++i]));
        else if (std::strcmp(argv[i], "--report") == 0 && i + 1 < argc)
            options.reportDir = argv[++i];
        else if (argv[i][0] == '-')
            return false;
        else
            options.documents.push_back(argv[i]);
    }
    return !options.documents.empty();
}

// The table of results as Markdown, the chart beside it.
void WriteReport(const std::string& dir, const Tool* tools, const Sample* results, size_t toolCount,
                 const Sample& bare, double inputMiB, int runs, const std::vector<Scaled>& scaling) {
    const std::string path = dir + "/benchmark-gpx.md";
    FILE* out = std::fopen(path.c_str(), "w");
    if (!out) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        return;
    }
    char date[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof date, "%Y-%m-%d", std::gmtime(&now));
    std::fprintf(out, "# GPX bindings benchmark\n\n");
    std::fprintf(out,
                 "Written by `bash tools/bench.sh gpx` on %s: a generated GPX 1.1 document of %.1f MiB, each "
                 "figure the median of %d fresh processes, ratios against the bare parse (a) measured in the "
                 "same run. Absolute times depend on the machine and its load; compare the ratios.\n\n",
                 date, inputMiB, runs);
    std::fprintf(out, "![load, write and peak memory of each tool](benchmark-gpx.svg)\n\n");
    std::fprintf(
        out,
        "| tool | load s | load / (a) | warm load s | write s | write / (a) | warm write s | peak MiB |\n");
    std::fprintf(out, "|---|---|---|---|---|---|---|---|\n");
    std::fprintf(out, "| (a) bare expat parse, wide build | %.3f | 1.00 | %.3f | | | | %.0f |\n", bare.load,
                 bare.warmLoad, bare.peakKiB / 1024.0);
    for (size_t i = 0; i < toolCount; ++i) {
        const Sample& r = results[i];
        if (!r.ok) continue;
        std::fprintf(out, "| %s | %.3f | %.2f | %.3f | %.3f | %.2f | %.3f | %.0f |\n", tools[i].label, r.load,
                     r.load / bare.load, r.warmLoad, r.write, r.write / bare.load, r.warmWrite,
                     r.peakKiB / 1024.0);
    }
    if (!scaling.empty()) {
        std::fprintf(
            out, "\nScaling, our bindings loading documents of growing size (cold, fresh processes):\n\n");
        std::fprintf(
            out,
            "| points | MiB | bare parse s | load s | load / bare | peak MiB |\n|---|---|---|---|---|---|\n");
        for (const Scaled& s : scaling)
            std::fprintf(out, "| %zu | %.1f | %.3f | %.3f | %.2f | %.0f |\n", s.points, s.megabytes,
                         s.bare.load, s.ours.load, s.ours.load / s.bare.load, s.ours.peakKiB / 1024.0);
    }
    std::fclose(out);

    std::vector<bench::ChartPanel> panels(2);
    panels[0] = {L"Time, as a multiple of a bare expat parse (shorter is better)",
                 {L"load", L"warm load", L"write", L"warm write"},
                 {},
                 L"%.2f x",
                 1.0,
                 L"bare parse"};
    panels[1] = {
        L"Peak resident memory, MiB, input included (shorter is better)", {L"peak"}, {}, L"%.0f MiB", 0, L""};
    for (size_t i = 0; i < toolCount; ++i) {
        const Sample& r = results[i];
        if (!r.ok) continue;
        const std::wstring label = Wide(tools[i].label + 6); // without the "(b,c) " column letters
        panels[0].rows.push_back(
            {label,
             {r.load / bare.load, r.warmLoad / bare.load, r.write / bare.load, r.warmWrite / bare.load}});
        panels[1].rows.push_back({label, {r.peakKiB / 1024.0}});
    }
    panels[1].rows.push_back({L"bare expat parse", {bare.peakKiB / 1024.0}});
    const std::string chart = dir + "/benchmark-gpx.svg";
    bench::WriteBarChart(std::wstring(chart.begin(), chart.end()).c_str(),
                         QxXmlLib16::FormatString(L"Loading and writing a %.0f MiB GPX document", inputMiB),
                         panels);
    std::printf("report written to %s and %s\n", path.c_str(), chart.c_str());
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!ParseOptions(argc, argv, options)) {
        std::fprintf(stderr, "usage: %s [--runs N] [--report DIR] <document.gpx> [scaling-document.gpx...]\n",
                     argv[0]);
        return 2;
    }
    const int runs = options.runs;
    const std::vector<unsigned char> document = bench::ReadFile(options.documents[0]);
    if (document.empty()) {
        std::fprintf(stderr, "cannot read %s\n", options.documents[0]);
        return 2;
    }
    const double inputMiB = document.size() / 1048576.0;
    std::printf("input %.1f MiB, median of %d fresh processes per tool\n", inputMiB, runs);

    const Sample bare = MedianSample(BareSample, document, runs);
    std::printf("%-28s %8s %6s %9s %8s %6s %10s %9s\n", "", "load s", "x(a)", "warm load", "write s", "x(a)",
                "warm write", "peak MiB");
    std::printf("%-28s %8.3f %6.2f %9.3f %8s %6s %10s %9.1f\n", "(a) bare expat, wide build", bare.load, 1.0,
                bare.warmLoad, "", "", "", bare.peakKiB / 1024.0);

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
        results[i] = MedianSample(ToolMeasure(tools[i].make, true), document, runs);
        if (!results[i].ok) {
            std::printf("%-28s failed\n", tools[i].label);
            continue;
        }
        const Sample& r = results[i];
        std::printf("%-28s %8.3f %6.2f %9.3f %8.3f %6.2f %10.3f %9.1f   (%zu bytes written)\n",
                    tools[i].label, r.load, r.load / bare.load, r.warmLoad, r.write, r.write / bare.load,
                    r.warmWrite, r.peakKiB / 1024.0, r.written);
    }

    const Sample& ours = results[0];
    const Sample& peer = results[1];
    if (!ours.ok) return 1;
    std::printf("targets: load <= 2.5 x (a): %s; write <= 1.0 x (a): %s",
                Verdict(ours.load <= 2.5 * bare.load), Verdict(ours.write <= bare.load));
    if (peer.ok)
        std::printf(
            "; load faster than gSOAP cold: %s, warm: %s; write faster than gSOAP cold: %s, warm: %s; "
            "peak <= gSOAP's: %s",
            Verdict(ours.load < peer.load), Verdict(ours.warmLoad < peer.warmLoad),
            Verdict(ours.write < peer.write), Verdict(ours.warmWrite < peer.warmWrite),
            Verdict(ours.peakKiB <= peer.peakKiB));
    std::printf("\n");

    // Growth is linear when each step adds the same time and memory per point as the step before.
    std::vector<Scaled> scaling;
    for (size_t i = 1; i < options.documents.size(); ++i) {
        const std::vector<unsigned char> bytes = bench::ReadFile(options.documents[i]);
        if (bytes.empty()) {
            std::fprintf(stderr, "cannot read %s\n", options.documents[i]);
            return 2;
        }
        Scaled scaled{CountPoints(bytes), bytes.size() / 1048576.0, MedianSample(BareSample, bytes, runs),
                      MedianSample(ToolMeasure(&bench::MakeQxTool, false), bytes, runs)};
        if (!scaled.ours.ok) return 1;
        if (scaling.empty())
            std::printf("scaling: %9s %8s %9s %8s %6s %9s %16s %16s\n", "points", "MiB", "bare s", "load s",
                        "x", "peak MiB", "us/point (step)", "KiB/point (step)");
        std::printf("         %9zu %8.1f %9.3f %8.3f %6.2f %9.1f", scaled.points, scaled.megabytes,
                    scaled.bare.load, scaled.ours.load, scaled.ours.load / scaled.bare.load,
                    scaled.ours.peakKiB / 1024.0);
        if (!scaling.empty()) {
            const Scaled& before = scaling.back();
            const double added = static_cast<double>(scaled.points - before.points);
            std::printf(" %16.2f %16.3f", (scaled.ours.load - before.ours.load) * 1e6 / added,
                        (scaled.ours.peakKiB - before.ours.peakKiB) / added);
        }
        std::printf("\n");
        scaling.push_back(scaled);
    }

    if (options.reportDir) {
        try {
            WriteReport(options.reportDir, tools, results, 3, bare, inputMiB, runs, scaling);
        } catch (const QxXmlLib16::CQxException& e) {
            std::fprintf(stderr, "cannot write the chart: %ls\n", e.GetFullMessage().c_str());
            return 1;
        }
    }
    return 0;
}
