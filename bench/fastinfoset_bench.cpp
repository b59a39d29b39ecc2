// Fast Infoset against XML text for the same GPX objects, and the reference implementation (the
// Java FastInfoset library) on the same document, in one run.
//   fastinfoset_bench <document.gpx> [runs]
// Every figure of ours is the median of fresh processes forked once the inputs are in memory:
// writing times ToXmlStream / ToFastInfosetStream (no indentation, no declaration) of bindings loaded
// untimed in that process; loading times FromXmlStream of the XML or of the Fast Infoset into new
// bindings. Sizes are those of the documents written, plain and gzip-compressed (level 1). The
// reference converters run as their command lines do (XML_SAX_FI, FI_SAX_XML), so their times
// include the start of a JVM, which is also timed alone on an empty document.

#include "BareExpat.h"
#include "BenchTiming.h"
#include "DocumentBench.h"
#include "FreshProcess.h"

#include <GpxBindings.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

typedef std::vector<unsigned char> Bytes;

// GPX readers expect the GPX namespace as the default one, as qxgpx writes it.
CSerializationContext GpxContext() {
    CSerializationContext context;
    context.SetDefaultNamespaceURI(Gpx::kNamespace);
    return context;
}

CSmartPtr<Gpx::CGpx> Load(const Bytes& document) {
    CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
    gpx->FromXmlStream(const_cast<unsigned char*>(document.data()),
                       static_cast<unsigned long>(document.size()), GpxContext());
    return gpx;
}

CBinaryData WriteXml(const Gpx::CGpx& gpx, CompressionType compression = ctNone) {
    return gpx.ToXmlStream(false, false, encUTF8, eolLF, GpxContext(), compression);
}

CBinaryData WriteFastInfoset(const Gpx::CGpx& gpx, CompressionType compression = ctNone) {
    return gpx.ToFastInfosetStream(fidNone, GpxContext(), compression);
}

using bench::Median;
using bench::Sample;

Sample TimedWrite(const Bytes& xml, CBinaryData (*write)(const Gpx::CGpx&, CompressionType)) {
    const CSmartPtr<Gpx::CGpx> gpx = Load(xml);
    Sample sample{};
    sample.seconds = Seconds([&] { sample.bytes = write(*gpx, ctNone).GetLength(); });
    return sample;
}

Sample TimedLoad(const Bytes& input) {
    CSmartPtr<Gpx::CGpx> gpx;
    Sample sample{};
    sample.seconds = Seconds([&] { gpx = Load(input); });
    sample.bytes = static_cast<unsigned long>(input.size());
    return sample;
}

bool WriteFile(const std::string& path, const CBinaryData& data) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
    return static_cast<bool>(file);
}

// The median wall time of a shell command over runs runs; negative when it fails.
double CommandSeconds(const std::string& command, int runs) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        int status = 0;
        times.push_back(Seconds([&] { status = std::system(command.c_str()); }));
        if (status != 0) return -1.0;
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double MiB(unsigned long bytes) {
    return bytes / 1048576.0;
}

} // namespace

int main(int argc, char** argv) {
    bench::DocumentRun run;
    if (!bench::ReadDocumentRun(argc, argv, kBenchRuns, run)) return 2;
    const int runs = run.runs;
    const std::string input = argv[1];
    const Bytes& xml = run.document;
    // The documents to load and measure are made in a child of their own, so that this process
    // stays as small as the forked ones should start.
    const std::string fiPath = input + ".finf", xmlPath = input + ".written.xml";
    struct Sizes {
        bool ok;
        unsigned long xml, xmlGzip, fi, fiGzip;
    } sizes{};
    bench::InFreshProcess(
        [&] {
            const CSmartPtr<Gpx::CGpx> gpx = Load(xml);
            const CBinaryData text = WriteXml(*gpx), fi = WriteFastInfoset(*gpx);
            return Sizes{WriteFile(xmlPath, text) && WriteFile(fiPath, fi), text.GetLength(),
                         WriteXml(*gpx, ctGzip).GetLength(), fi.GetLength(),
                         WriteFastInfoset(*gpx, ctGzip).GetLength()};
        },
        sizes);
    if (!sizes.ok) return 1;
    const Bytes fi = bench::ReadFile(fiPath.c_str());
    std::printf("input %.1f MiB; median of %d fresh processes per figure\n\n", MiB(xml.size()), runs);
    std::printf("size of what the library writes   plain MiB   gzip MiB\n");
    std::printf("(a) XML text                       %9.2f  %9.2f\n", MiB(sizes.xml), MiB(sizes.xmlGzip));
    std::printf(
        "(b) Fast Infoset                   %9.2f  %9.2f   ratio to (a) %.2f and %.2f (target <= 0.5)\n\n",
        MiB(sizes.fi), MiB(sizes.fiGzip), double(sizes.fi) / sizes.xml, double(sizes.fiGzip) / sizes.xmlGzip);

    const Sample xmlWrite = Median(runs, [&] { return TimedWrite(xml, WriteXml); });
    const Sample fiWrite = Median(runs, [&] { return TimedWrite(xml, WriteFastInfoset); });
    const Sample xmlLoad = Median(runs, [&] { return TimedLoad(xml); });
    const Sample fiLoad = Median(runs, [&] { return TimedLoad(fi); });
    std::printf("GPX bindings\n");
    std::printf("(c) XML write                      %.3f s\n", xmlWrite.seconds);
    std::printf("(d) Fast Infoset write             %.3f s   ratio to (c) %.2f (target <= 1.0)\n",
                fiWrite.seconds, fiWrite.seconds / xmlWrite.seconds);
    std::printf("(e) XML load                       %.3f s\n", xmlLoad.seconds);
    std::printf("(f) Fast Infoset load              %.3f s   (e) / (f) = %.2f (target >= 1.5)\n\n",
                fiLoad.seconds, xmlLoad.seconds / fiLoad.seconds);

    const std::string java =
        std::string("\"") + QX_JAVA + "\" -cp \"" + QX_FASTINFOSET_JAR + "\" com.sun.xml.fastinfoset.tools.";
    const std::string empty = input + ".empty.xml";
    std::ofstream(empty) << "<a/>";
    const double start = CommandSeconds(java + "XML_SAX_FI " + empty + " " + empty + ".finf", runs);
    const double encode = CommandSeconds(java + "XML_SAX_FI " + xmlPath + " " + input + ".java.finf", runs);
    const double decode =
        CommandSeconds(java + "FI_SAX_XML " + input + ".java.finf " + input + ".java.xml", runs);
    const double decodeOurs = CommandSeconds(java + "FI_SAX_XML " + fiPath + " " + input + ".our.xml", runs);
    if (!*QX_JAVA || !*QX_FASTINFOSET_JAR || start < 0 || encode < 0 || decode < 0 || decodeOurs < 0) {
        std::printf("reference implementation: not run (it needs java and libfastinfoset-java)\n\n");
    } else {
        const Bytes javaFi = bench::ReadFile((input + ".java.finf").c_str());
        std::printf("reference implementation (Java), JVM start included, wall time\n");
        std::printf("    JVM start, empty document      %.3f s\n", start);
        std::printf("    encode (a)                     %.3f s   %.2f MiB, ratio to (a) %.2f\n", encode,
                    MiB(javaFi.size()), double(javaFi.size()) / sizes.xml);
        std::printf("    decode its encoding of (a)     %.3f s\n", decode);
        std::printf("    decode (b)                     %.3f s\n\n", decodeOurs);
    }
    std::printf("targets: FI size <= 0.5 x XML: %s; FI load >= 1.5 x faster: %s; FI write <= XML write: %s\n",
                bench::Verdict(2 * sizes.fi <= sizes.xml),
                bench::Verdict(xmlLoad.seconds >= 1.5 * fiLoad.seconds),
                bench::Verdict(fiWrite.seconds <= xmlWrite.seconds));
    return 0;
}
