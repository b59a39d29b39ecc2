// XML text load and write against a bare parse by the same expat build, in one run.
//   xml_bench <document.xml>
// Each phase runs alone on the document already in memory; the median of 5 runs is reported. The
// load is also timed cold, in fresh processes, as a program that loads one document pays for it.

#include "BareExpat.h"
#include "BenchTiming.h"
#include "FreshProcess.h"

#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

// Encodes each block the writer flushes (every 4096 characters) into UTF-8 bytes, as a file stream
// does, so that the whole document never waits as wide text.
class Utf8Sink : public CTextStream {
public:
    // Room for the whole output up front, as a file would take it: growing the vector would time
    // copies of the output, not the writer. The sink is reused across runs, as a file stream reuses
    // its buffer: fresh memory for every run would time the first touch of 60 MB of pages (about
    // 0.2 s on a virtual machine), not the writer.
    explicit Utf8Sink(size_t expectedBytes)
        : CTextStream(encUTF8) {
        bytes.reserve(expectedBytes);
    }
    void Flush() override {
        if (GetLength() == 0) return;
        const CBinaryData encoded = GetEncodedStream();
        bytes.insert(bytes.end(), encoded.GetData(), encoded.GetData() + encoded.GetLength());
        m_buffer.Empty();
    }
    void Close() override { Flush(); }
    std::vector<unsigned char> bytes;
};

// Attributes, own text, then children: the order the binding writes in.
void WriteTree(const CXmlElement& element, CXmlWriter& writer) {
    writer.WriteStartElement(element.GetLocalName(), element.GetNamespaceURI());
    for (const CXmlAttribute* attribute : element.GetAttributes())
        writer.WriteAttributeString(attribute->GetLocalName(), attribute->GetNamespaceURI(),
                                    attribute->GetValue(), itString);
    writer.WriteString(element.GetText(), itString, false);
    for (const CXmlElement* child = element.GetFirstElement(); child; child = child->GetNextSiblingElement())
        WriteTree(*child, writer);
    writer.WriteEndElement();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <document.xml>\n", argv[0]);
        return 2;
    }
    const std::vector<unsigned char> input = bench::ReadFile(argv[1]);
    if (input.empty()) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 2;
    }

    const double bare = MedianSeconds([&] { bench::BareParse(input); });
    const double coldBare = bench::Median(kBenchRuns, [&] {
                                return bench::Sample{Seconds([&] { bench::BareParse(input); }), 0};
                            }).seconds;
    const double coldLoad =
        bench::Median(kBenchRuns, [&] {
            CXmlDocument fresh;
            return bench::Sample{
                Seconds([&] { fresh.LoadXmlStream(const_cast<unsigned char*>(input.data()), input.size()); }),
                0};
        }).seconds;

    CXmlDocument document;
    document.LoadXmlStream(const_cast<unsigned char*>(input.data()), input.size());
    const long peakKiB = PeakResidentKiB();
    const double load = MedianSeconds(
        [&] { document.LoadXmlStream(const_cast<unsigned char*>(input.data()), input.size()); });

    unsigned long written = 0;
    Utf8Sink stream(2 * input.size());
    const double write = MedianSeconds([&] {
        stream.bytes.clear();
        CXmlTextWriter writer(stream);
        writer.SetFormat(false);
        writer.WriteStartDocument();
        WriteTree(*document.GetDocumentElement(), writer);
        writer.Close();
        written = stream.bytes.size();
    });
    const double writeInMemory = MedianSeconds([&] {
        CTextStream stream(encUTF8);
        CXmlTextWriter writer(stream);
        writer.SetFormat(false);
        writer.WriteStartDocument();
        WriteTree(*document.GetDocumentElement(), writer);
        writer.Close();
        written = stream.GetEncodedStream().GetLength();
    });

    const double inputMiB = input.size() / (1024.0 * 1024.0);
    std::printf("input                       %.1f MiB\n", inputMiB);
    std::printf("(a) bare expat parse        %.3f s\n", bare);
    std::printf("(b) CXmlDocument load       %.3f s   ratio to (a) %.2f (target <= 1.4)\n", load,
                load / bare);
    std::printf("    both cold, fresh process %.3f s against %.3f s, ratio %.2f (target <= 2.0)\n", coldLoad,
                coldBare, coldLoad / coldBare);
    std::printf("(c) write tree as UTF-8     %.3f s   ratio to (a) %.2f (target <= 1.0), %lu bytes\n", write,
                write / bare, written);
    std::printf(
        "    same, whole text kept   %.3f s   ratio to (a) %.2f (memory CTextStream, encoded at the end)\n",
        writeInMemory, writeInMemory / bare);
    std::printf("peak RSS after (b)          %.1f MiB  ratio to input %.2f (target <= 5)\n", peakKiB / 1024.0,
                peakKiB / 1024.0 / inputMiB);
    return 0;
}
