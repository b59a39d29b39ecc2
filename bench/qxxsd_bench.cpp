// qxxsd on a schema of many lines, and the build of what it makes.
//   qxxsd_bench [lines]   (default 10000)
// A schema of about that many lines (records with patterns, enumerations, decimal facets, choices,
// optional and repeated members, attributes and extensions) is written to the working folder. The
// compiler's time is a ratio to a parse of the same schema into a document (the floor: reading the
// XML) and, as processes, to xmllint compiling the schema to validate a small document. The build of
// the generated source is timed with g++ -O2 as a ratio per line to the library's own largest source.
// Processes are timed by the processor time they take.

#include "BenchTiming.h"

#include "Compiler.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <sys/resource.h>

namespace {

std::string Schema(int lines) {
    std::ostringstream xsd;
    xsd << "<?xml version='1.0'?>\n<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns='urn:bench'\n"
           "           targetNamespace='urn:bench' elementFormDefault='qualified'>\n";
    int written = 3;
    for (int i = 0; written < lines - 1; ++i) {
        xsd << "  <xs:simpleType name='Code" << i << "'>\n"
            << "    <xs:annotation><xs:documentation>Codes of kind " << i
            << ".</xs:documentation></xs:annotation>\n"
            << "    <xs:restriction base='xs:token'><xs:pattern value='[A-Z]{2}[0-9]{1,4}'/><xs:maxLength "
               "value='6'/>"
               "</xs:restriction>\n  </xs:simpleType>\n"
            << "  <xs:simpleType name='Kind" << i << "'>\n    <xs:restriction base='xs:string'>\n"
            << "      <xs:enumeration value='new'/>\n      <xs:enumeration value='used'/>\n"
            << "      <xs:enumeration value='broken-" << i
            << "'/>\n    </xs:restriction>\n  </xs:simpleType>\n"
            << "  <xs:complexType name='Record" << i << "'>\n";
        const bool derived = i > 0 && i % 5 == 0;
        if (derived) xsd << "    <xs:complexContent><xs:extension base='Record" << i - 1 << "'>\n";
        xsd << "    <xs:sequence>\n"
            << "      <xs:element name='id" << i << "' type='Code" << i << "'/>\n"
            << "      <xs:element name='kind' type='Kind" << i << "' minOccurs='0'/>\n"
            << "      <xs:element name='amount' minOccurs='0'><xs:simpleType><xs:restriction "
               "base='xs:decimal'>"
               "<xs:minInclusive value='0'/><xs:fractionDigits value='2'/></xs:restriction></xs:simpleType>"
               "</xs:element>\n"
            << "      <xs:element name='when' type='xs:dateTime' minOccurs='0'/>\n"
            << "      <xs:element name='note' type='xs:string' minOccurs='0' maxOccurs='unbounded'/>\n"
            << "      <xs:choice minOccurs='0'>\n        <xs:element name='count' type='xs:int'/>\n"
            << "        <xs:element name='ratio' type='xs:double'/>\n      </xs:choice>\n";
        if (i > 0 && !derived)
            xsd << "      <xs:element name='previous' type='Record" << i - 1 << "' minOccurs='0'/>\n";
        xsd << "    </xs:sequence>\n"
            << "    <xs:attribute name='rank" << i << "' type='xs:unsignedShort' default='1'/>\n";
        if (derived) xsd << "    </xs:extension></xs:complexContent>\n";
        xsd << "  </xs:complexType>\n  <xs:element name='record" << i << "' type='Record" << i << "'/>\n";
        written += derived ? 27 : 26;
    }
    xsd << "</xs:schema>\n";
    return xsd.str();
}

size_t Lines(const std::string& text) {
    size_t lines = 0;
    for (char c : text)
        lines += c == '\n';
    return lines;
}

// The median over three runs of the processor time a command takes (user and system, its children
// included): on a machine shared with other builds, wall time says more about them than about it.
double ProcessSeconds(const std::string& command) {
    std::vector<double> times;
    for (int run = 0; run < 3; ++run) {
        rusage before, after;
        getrusage(RUSAGE_CHILDREN, &before);
        if (std::system(command.c_str()) != 0) std::fprintf(stderr, "failed: %s\n", command.c_str());
        getrusage(RUSAGE_CHILDREN, &after);
        const auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
        times.push_back(seconds(after.ru_utime) - seconds(before.ru_utime) + seconds(after.ru_stime) -
                        seconds(before.ru_stime));
    }
    std::sort(times.begin(), times.end());
    return times[1];
}

} // namespace

int main(int argc, char** argv) {
    const int lines = argc > 1 ? std::atoi(argv[1]) : 10000;
    const std::string schema = Schema(lines);
    std::ofstream("qxxsd-bench.xsd") << schema;
    std::ofstream("qxxsd-bench.xml") << "<record0 xmlns='urn:bench'><id0>AB1</id0></record0>\n";
    std::printf("schema: %zu lines, %zu KiB\n", Lines(schema), schema.size() / 1024);

    const double parse = MedianSeconds([] {
        QxXmlLib16::CXmlDocument document;
        document.Load(L"qxxsd-bench.xsd");
    });
    Qxxsd::CompileOptions options;
    options.schemas = {L"qxxsd-bench.xsd"};
    options.emit = {L"Bench", L"qxxsd-bench", L""};
    Qxxsd::CompileResult result;
    const double compile = MedianSeconds([&] { result = Qxxsd::Compile(options); });
    size_t generated = 0;
    for (const auto& file : result.files) {
        std::ofstream(QxXmlLib16::UnicodeToMultiByte(file.first.c_str()), std::ios::binary) << file.second;
        generated += Lines(file.second);
    }
    std::printf("%-44s %8.3f s\n", "(a) parse of the schema into a document", parse);
    std::printf("%-44s %8.3f s  %6.1f x (a)  (%zu lines generated)\n", "(b) qxxsd compiling it, in process",
                compile, compile / parse, generated);

    const double lint =
        ProcessSeconds("xmllint --noout --schema qxxsd-bench.xsd qxxsd-bench.xml 2>/dev/null");
    const double ours = ProcessSeconds(std::string(QXXSD_PATH) + " -q qxxsd-bench.xsd -o qxxsd-bench-out");
    std::printf("%-44s %8.3f s\n", "(c) xmllint compiling it to validate, CPU", lint);
    std::printf("%-44s %8.3f s  %6.2f x (c)\n", "(d) qxxsd, CPU", ours, ours / lint);

    const std::string gxx =
        "g++ -std=c++17 -O2 -c -o /dev/null -I" QX_INCLUDE_DIR " -I" QX_SOURCE_DIR "/runtime -I. ";
    const double reference = ProcessSeconds(gxx + QX_SOURCE_DIR "/runtime/values/DateTime.cpp");
    const double build = ProcessSeconds(gxx + "qxxsd-bench.cpp");
    std::ifstream source(QX_SOURCE_DIR "/runtime/values/DateTime.cpp");
    const size_t referenceLines = Lines(std::string(std::istreambuf_iterator<char>(source), {}));
    std::printf("%-44s %8.3f s  (%zu lines)\n", "(e) g++ -O2, the library's DateTime.cpp, CPU", reference,
                referenceLines);
    std::printf("%-44s %8.3f s  %6.2f x (e) per line\n", "(f) g++ -O2, the generated source, CPU", build,
                (build / generated) / (reference / referenceLines));
    return 0;
}
