// Hostile shapes of GPX documents: one enormous text, one element with a great many attributes or
// namespace declarations, a great many siblings. Each is loaded into a document tree and into the
// GPX bindings at two sizes, against a bare parse by the same expat build in the same run; every
// figure is the median of fresh processes. Time should double with the size (linear), and stay
// within a small factor of the bare parse.
//   hostile_bench [scale]          scale 1 (default): a million of each, 100 MB of text
//   hostile_bench --stream FILE    a GPX file of any size read through the element-complete callback,
//                                  which drops every point, against bare expat fed the same pieces;
//                                  then loaded whole into the bindings (one fresh process each)

#include "BareExpat.h"
#include "BenchTiming.h"
#include "FreshProcess.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include "GpxBindings.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

const char kGpxStart[] = "<?xml version='1.0' encoding='UTF-8'?>\n"
                         "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='hostile'>";

std::vector<unsigned char> Bytes(const std::string& text) {
    return std::vector<unsigned char>(text.begin(), text.end());
}

// <metadata><desc> holding one text of about that many bytes, in lines of 64.
std::vector<unsigned char> EnormousText(size_t bytes) {
    std::string xml = kGpxStart;
    xml += "<metadata><desc>";
    const std::string line = "The quick brown fox jumps over the lazy dog &amp; co. 0123456789\n";
    while (xml.size() < bytes)
        xml += line;
    return Bytes(xml + "</desc></metadata></gpx>");
}

// An extension element carrying count attributes, or count namespace declarations.
std::vector<unsigned char> WideElement(size_t count, bool declarations) {
    std::string xml = kGpxStart;
    xml += "<extensions><e xmlns='urn:x'";
    for (size_t i = 0; i < count; ++i) {
        const std::string n = std::to_string(i);
        xml += declarations ? " xmlns:p" + n + "='urn:p" + n + "'" : " a" + n + "='" + n + "'";
    }
    return Bytes(xml + "/></extensions></gpx>");
}

std::vector<unsigned char> Siblings(size_t count) {
    std::string xml = kGpxStart;
    for (size_t i = 0; i < count; ++i)
        xml += "<wpt lat='" + std::to_string(i % 90) + ".5' lon='1.25'/>";
    return Bytes(xml + "</gpx>");
}

long ResidentKiB() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.compare(0, 6, "VmRSS:") == 0) return std::stol(line.substr(6));
    return -1;
}

// The time of one phase in a fresh process, and the memory it added at its peak, in bytes.
template <class Phase>
bench::Sample Measure(Phase phase) {
    return bench::Median(kBenchRuns, [&] {
        const long before = ResidentKiB();
        const double seconds = Seconds(phase);
        return bench::Sample{seconds, static_cast<unsigned long>(PeakResidentKiB() - before) * 1024};
    });
}

struct Figures {
    bench::Sample bare, tree, bindings;
};

Figures Run(std::vector<unsigned char> input) {
    Figures figures;
    figures.bare = Measure([&] { bench::BareParse(input); });
    figures.tree = Measure([&] {
        CXmlDocument document;
        document.LoadXmlStream(input.data(), static_cast<unsigned long>(input.size()));
    });
    figures.bindings = Measure([&] { Gpx::LoadDocument(CBinaryData(input.data(), input.size(), false)); });
    return figures;
}

void Report(const char* shape, size_t size, const std::vector<unsigned char>& small,
            const std::vector<unsigned char>& large) {
    const Figures half = Run(small);
    const Figures whole = Run(large);
    const double mb = static_cast<double>(large.size()) / 1e6;
    std::printf("%s (%zu; %.1f MB)\n", shape, size, mb);
    std::printf("  bare expat   %7.3f s              (half size %.3f s, growth %.2f)\n", whole.bare.seconds,
                half.bare.seconds, whole.bare.seconds / half.bare.seconds);
    const auto line = [&](const char* name, const bench::Sample& sample, const bench::Sample& smaller) {
        std::printf(
            "  %-12s %7.3f s  %5.2f x bare  (half size %.3f s, growth %.2f)  peak +%.0f MB = %.2f x input\n",
            name, sample.seconds, sample.seconds / whole.bare.seconds, smaller.seconds,
            sample.seconds / smaller.seconds, static_cast<double>(sample.bytes) / 1e6,
            static_cast<double>(sample.bytes) / static_cast<double>(large.size()));
    };
    line("tree", whole.tree, half.tree);
    line("bindings", whole.bindings, half.bindings);
    std::fflush(stdout);
}

// Bare expat over the file in pieces of the size the library reads.
void BareParseFile(const char* path) {
    FILE* file = std::fopen(path, "rb");
    if (!file) throw std::runtime_error("cannot open the file");
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(parser, bench::NoStart, bench::NoEnd);
    XML_SetCharacterDataHandler(parser, bench::NoText);
    const size_t kPiece = 1 << 20;
    std::unique_ptr<char[]> piece(new char[kPiece]);
    size_t length;
    do {
        length = std::fread(piece.get(), 1, kPiece, file);
        if (XML_Parse(parser, piece.get(), static_cast<int>(length), length < kPiece) != XML_STATUS_OK)
            std::fprintf(stderr, "bare parse failed\n");
    } while (length == kPiece);
    XML_ParserFree(parser);
    std::fclose(file);
}

long g_points;

bool DropPoints(CXmlElement* element) {
    const std::wstring& name = element->GetLocalName();
    if (name != L"trkpt" && name != L"wpt" && name != L"rtept") return false;
    ++g_points;
    return true;
}

int Stream(const char* path) {
    const std::wstring file(path, path + std::strlen(path));
    const auto once = [](auto phase) {
        bench::Sample sample{};
        if (!bench::InFreshProcess(
                [&] {
                    const double seconds = Seconds(phase);
                    return bench::Sample{seconds, static_cast<unsigned long>(PeakResidentKiB()) * 1024};
                },
                sample))
            std::exit(1);
        return sample;
    };
    const auto line = [](const char* name, const bench::Sample& sample, const bench::Sample& bare) {
        std::printf("  %-34s %8.2f s  %5.2f x bare  peak %7.0f MB\n", name, sample.seconds,
                    sample.seconds / bare.seconds, static_cast<double>(sample.bytes) / 1e6);
    };
    const bench::Sample bare = once([&] { BareParseFile(path); });
    const bench::Sample streamed = once([&] {
        CXmlDocument document(DropPoints);
        document.Load(file.c_str());
        std::printf("  %ld points passed through the callback\n", g_points);
    });
    const bench::Sample whole = once([&] { Gpx::LoadDocument(file.c_str()); });
    std::printf("%s\n", path);
    line("bare expat, 1 MiB pieces", bare, bare);
    line("element-complete callback", streamed, bare);
    line("whole, into the bindings", whole, bare);
    std::fflush(stdout);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--stream") == 0) return Stream(argv[2]);
    const double scale = argc > 1 ? std::atof(argv[1]) : 1.0;
    if (scale <= 0) {
        std::fprintf(stderr, "usage: %s [scale] | --stream FILE\n", argv[0]);
        return 2;
    }
    const size_t million = static_cast<size_t>(1e6 * scale);
    Report("one text", 100 * million, EnormousText(50 * million), EnormousText(100 * million));
    Report("attributes on one element", million, WideElement(million / 2, false),
           WideElement(million, false));
    Report("namespace declarations on one element", million, WideElement(million / 2, true),
           WideElement(million, true));
    Report("sibling elements", million, Siblings(million / 2), Siblings(million));
    return 0;
}
