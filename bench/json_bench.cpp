// JSON against XML text for the same GPX objects, in one run.
//   json_bench <document.gpx> [runs]
// Every figure is the median of fresh processes forked once the inputs are in memory: writing
// times ToXmlStream / ToJsonStream (UTF-8, unindented) of bindings loaded untimed in that process;
// loading times FromXmlStream / FromJsonStream into new bindings. The JSON is written at level 2
// with the GPX namespace as default and the extensions' namespaces declared on the root.

#include "BareExpat.h"
#include "BenchTiming.h"
#include "DocumentBench.h"
#include "FreshProcess.h"

#include <GpxBindings.h>
#include <GpxNamespaces.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

typedef std::vector<unsigned char> Bytes;

// The bindings of an XML document and the context that writes them as JSON.
struct Loaded {
    CSmartPtr<Gpx::CGpx> gpx{new Gpx::CGpx};
    CSerializationContext context;

    Loaded(const Bytes& xml, bool rfc8259) {
        {
            CXmlDocument document;
            document.LoadXmlStream(const_cast<unsigned char*>(xml.data()),
                                   static_cast<unsigned long>(xml.size()));
            gpx->FromXmlElement(document.GetDocumentElement());
            Gpx::DeclareNamespaces(document, context);
        }
        context.SetDefaultNamespaceURI(Gpx::kNamespace);
        context.GetJsonContext()->SetRfc8259Escaping(rfc8259);
    }
};

CBinaryData WriteXml(const Loaded& loaded) {
    return loaded.gpx->ToXmlStream(true, false, encUTF8, eolLF, loaded.context);
}

CBinaryData WriteJson(const Loaded& loaded) {
    return loaded.gpx->ToJsonStream(false, encUTF8, eolLF, loaded.context);
}

using bench::Median;
using bench::Sample;

Sample TimedWrite(const Bytes& xml, bool rfc8259, CBinaryData (*write)(const Loaded&)) {
    const Loaded loaded(xml, rfc8259);
    Sample sample{};
    sample.seconds = Seconds([&] { sample.bytes = write(loaded).GetLength(); });
    return sample;
}

template <class Load>
Sample TimedLoad(const Bytes& input, Load load) {
    const CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
    Sample sample{};
    sample.seconds = Seconds([&] { load(*gpx, input); });
    sample.bytes = static_cast<unsigned long>(input.size());
    return sample;
}

} // namespace

int main(int argc, char** argv) {
    bench::DocumentRun run;
    if (!bench::ReadDocumentRun(argc, argv, kBenchRuns, run)) return 2;
    const int runs = run.runs;
    const Bytes& xml = run.document;
    // The JSON to load is made in a child of its own, so that this process stays as small as the
    // forked ones should start.
    Bytes json;
    {
        const char* path = "json_bench.json";
        struct Done {
            bool ok;
        } done{};
        bench::InFreshProcess(
            [&] {
                // Escaped as RFC 8259 requires: the document's strings hold quotes and line feeds.
                const CBinaryData bytes = WriteJson(Loaded(xml, true));
                FILE* file = std::fopen(path, "wb");
                const bool ok =
                    file && std::fwrite(bytes.GetData(), 1, bytes.GetLength(), file) == bytes.GetLength();
                if (file) std::fclose(file);
                return Done{ok};
            },
            done);
        if (!done.ok) return 1;
        json = bench::ReadFile(path);
        std::remove(path);
    }
    std::printf("input %.1f MiB of XML, %.1f MiB of JSON; median of %d fresh processes per figure\n",
                xml.size() / 1048576.0, json.size() / 1048576.0, runs);

    // Each figure is printed once measured.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    const Sample xmlWrite = Median(runs, [&] { return TimedWrite(xml, false, WriteXml); });
    std::printf("(a) XML write                  %.3f s   %lu bytes\n", xmlWrite.seconds, xmlWrite.bytes);
    const Sample jsonWrite = Median(runs, [&] { return TimedWrite(xml, false, WriteJson); });
    std::printf("(b) JSON write                 %.3f s   ratio to (a) %.2f (target <= 1.0), %lu bytes\n",
                jsonWrite.seconds, jsonWrite.seconds / xmlWrite.seconds, jsonWrite.bytes);
    const Sample strictWrite = Median(runs, [&] { return TimedWrite(xml, true, WriteJson); });
    std::printf("    same, RFC 8259 escaping    %.3f s   ratio to (a) %.2f\n", strictWrite.seconds,
                strictWrite.seconds / xmlWrite.seconds);
    const Sample xmlLoad = Median(runs, [&] {
        return TimedLoad(xml, [](Gpx::CGpx& gpx, const Bytes& bytes) {
            gpx.FromXmlStream(const_cast<unsigned char*>(bytes.data()),
                              static_cast<unsigned long>(bytes.size()));
        });
    });
    std::printf("(c) XML load                   %.3f s\n", xmlLoad.seconds);
    const Sample jsonLoad = Median(runs, [&] {
        return TimedLoad(json, [](Gpx::CGpx& gpx, const Bytes& bytes) {
            gpx.FromJsonStream(const_cast<unsigned char*>(bytes.data()),
                               static_cast<unsigned long>(bytes.size()));
        });
    });
    std::printf("(d) JSON load                  %.3f s   ratio to (c) %.2f (target <= 1.5)\n",
                jsonLoad.seconds, jsonLoad.seconds / xmlLoad.seconds);
    std::printf("targets: JSON write <= XML write: %s; JSON load <= 1.5 x XML load: %s\n",
                bench::Verdict(jsonWrite.seconds <= xmlWrite.seconds),
                bench::Verdict(jsonLoad.seconds <= 1.5 * xmlLoad.seconds));
    return 0;
}
