// qxgpx: loads a GPX 1.1 document into the bindings (validating it), prints a summary, and can write
// the document back.

#include "GpxNamespaces.h"
#include "GpxSummary.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

using namespace QxXmlLib16;

namespace {

const char kUsage[] =
    "usage: qxgpx [--in-format xml|json] [--out FILE [--format xml|json|fi] [--gzip]] [--timings] [INPUT]\n"
    "  INPUT          a GPX 1.1 file, XML or Fast Infoset (recognised by its header), plain or\n"
    "                 gzip/zlib-compressed (default: the shipped sample); JSON when its name ends in .json\n"
    "  --in-format F  read INPUT as XML (or Fast Infoset) or as JSON, whatever its name\n"
    "  --out FILE     write the loaded document back\n"
    "  --format F     what --out writes: UTF-8 XML (default), JSON escaped as RFC 8259 requires, or\n"
    "                 Fast Infoset\n"
    "  --gzip         compress what --out writes\n"
    "  --timings      print the seconds spent loading and writing\n";

std::wstring Widen(const char* text) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    const size_t length = std::strlen(text);
    std::wstring wide(UTF8ToUnicode(bytes, length, nullptr, 0), L'\0');
    UTF8ToUnicode(bytes, length, &wide[0], wide.size());
    return wide;
}

void Print(std::FILE* stream, const std::wstring& text) {
    std::string bytes(UnicodeToUTF8(text.c_str(), text.size(), nullptr, 0), '\0');
    UnicodeToUTF8(text.c_str(), text.size(), reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size());
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

// The installed copy when the build tree's is gone.
std::string SampleFile() {
    if (std::FILE* file = std::fopen(QXGPX_SAMPLE, "rb")) {
        std::fclose(file);
        return QXGPX_SAMPLE;
    }
    return QXGPX_INSTALLED_SAMPLE;
}

enum class Format { xml, json, fi };

struct Options {
    std::string input, output;
    bool gzip = false, timings = false;
    bool jsonInput = false;
    Format outputFormat = Format::xml;
};

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Sets format from an --in-format or --format value; false for another value, or for fi as an input
// format (Fast Infoset input is recognised as XML input is read).
bool ParseFormat(const std::string& value, bool input, Format& format) {
    if (value == "xml")
        format = Format::xml;
    else if (value == "json")
        format = Format::json;
    else if (value == "fi" && !input)
        format = Format::fi;
    else
        return false;
    return true;
}

// False (after a message) for arguments that make no sense.
bool ParseArguments(int argc, char** argv, Options& options) {
    bool inputFormatGiven = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if ((argument == "--format" || argument == "--in-format") && i + 1 < argc) {
            const bool input = argument == "--in-format";
            Format format;
            if (!ParseFormat(argv[++i], input, format)) {
                std::fprintf(stderr, "qxgpx: unknown format '%s'\n%s", argv[i], kUsage);
                return false;
            }
            if (input)
                options.jsonInput = format == Format::json;
            else
                options.outputFormat = format;
            inputFormatGiven = inputFormatGiven || input;
        } else if (argument == "--out" && i + 1 < argc) {
            options.output = argv[++i];
        } else if (argument == "--gzip") {
            options.gzip = true;
        } else if (argument == "--timings") {
            options.timings = true;
        } else if (argument == "-h" || argument == "--help") {
            std::fputs(kUsage, stdout);
            std::exit(0);
        } else if (argument[0] == '-' || !options.input.empty()) {
            std::fprintf(stderr, "qxgpx: unexpected argument '%s'\n%s", argument.c_str(), kUsage);
            return false;
        } else {
            options.input = argument;
        }
    }
    if (options.gzip && options.output.empty()) {
        std::fprintf(stderr, "qxgpx: --gzip needs --out\n%s", kUsage);
        return false;
    }
    if (options.input.empty()) options.input = SampleFile();
    if (!inputFormatGiven) options.jsonInput = EndsWith(options.input, ".json");
    return true;
}

template <class F>
double Seconds(F&& step) {
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Loads the input as XML or JSON into gpx through the library's entry points, which give a refused
// document's error its line and column. Writing JSON needs every namespace of the document declared
// on its root, so the document's namespaces then go into the context.
void Load(const Options& options, Gpx::CGpx& gpx, CSerializationContext& context) {
    const std::wstring input = Widen(options.input.c_str());
    if (options.jsonInput)
        gpx.FromJsonFile(input.c_str(), context);
    else
        gpx.FromXmlFile(input.c_str(), context);
    if (options.outputFormat != Format::json) return;
    CXmlDocument document(context);
    if (options.jsonInput) {
        CBinaryData xml = document.LoadJsonFile(input.c_str());
        document.LoadXmlStream(const_cast<unsigned char*>(xml.GetData()), xml.GetLength());
    } else {
        document.Load(input.c_str());
    }
    Gpx::DeclareNamespaces(document, context);
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!ParseArguments(argc, argv, options)) return 2;
    try {
        // GPX readers expect the GPX namespace as the default one, not behind a prefix.
        CSerializationContext context;
        context.SetDefaultNamespaceURI(Gpx::kNamespace);
        // A command-line user expects every JSON tool to read what this one writes.
        context.GetJsonContext()->SetRfc8259Escaping(true);
        const CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
        const double load = Seconds([&] { Load(options, *gpx, context); });
        Print(stdout, Gpx::FormatSummary(Gpx::Summarize(*gpx)));
        if (options.timings) std::printf("load %.3f s\n", load);
        if (!options.output.empty()) {
            const std::wstring output = Widen(options.output.c_str());
            const CompressionType compression = options.gzip ? ctGzip : ctNone;
            const double write = Seconds([&] {
                if (options.outputFormat == Format::json)
                    gpx->ToJsonFile(output.c_str(), true, encUTF8, eolLF, context, compression);
                else if (options.outputFormat == Format::fi)
                    gpx->ToFastInfosetFile(output.c_str(), fidNone, context, compression);
                else
                    gpx->ToXmlFile(output.c_str(), true, true, encUTF8, eolLF, context, compression);
            });
            if (options.timings) std::printf("write %.3f s\n", write);
        }
    } catch (const CQxException& e) {
        std::fflush(stdout);
        // Where in the input, as compilers say it, when the error knows.
        const std::wstring where =
            e.HasPosition()
                ? Widen(options.input.c_str()) + FormatString(L":%lu:%lu: ", e.GetLine(), e.GetColumn())
                : L"qxgpx: ";
        Print(stderr, where + e.GetFullMessage() + L"\n");
        return 1;
    }
    return 0;
}
