// qxconv: converts any XML document to Fast Infoset or JSON and back, through the library's document
// tree and writers; no schema is involved.

#include "Converter.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace QxXmlLib16;

namespace {

const char kUsage[] =
    "usage: qxconv [--to xml|fi|json] [--gzip] [--stats] IN OUT\n"
    "  IN          an XML document, Fast Infoset or JSON (told apart by their content), plain or\n"
    "              gzip/zlib-compressed\n"
    "  OUT         the converted document, in the format its name says: *.json JSON, *.fi or *.finf\n"
    "              Fast Infoset, anything else XML (also before a final .gz, which compresses)\n"
    "  --to F      write format F whatever OUT's name\n"
    "  --gzip      gzip-compress OUT\n"
    "  --stats     print the sizes, their ratio and the times of reading and writing\n";

// Inputs from this size on report their progress on stderr.
const unsigned long kProgressFrom = 100ul * 1000 * 1000;

struct Options {
    std::string input, output;
    bool formatGiven = false;
    QxConv::Format format = QxConv::Format::xml;
    bool gzip = false, stats = false;
};

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// False (after a message) for arguments that make no sense.
bool ParseArguments(int argc, char** argv, Options& options) {
    std::vector<std::string> files;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--to" && i + 1 < argc) {
            const std::string format = argv[++i];
            options.formatGiven = true;
            if (format == "xml")
                options.format = QxConv::Format::xml;
            else if (format == "fi")
                options.format = QxConv::Format::fi;
            else if (format == "json")
                options.format = QxConv::Format::json;
            else {
                std::fprintf(stderr, "qxconv: unknown format '%s'\n%s", format.c_str(), kUsage);
                return false;
            }
        } else if (argument == "--gzip") {
            options.gzip = true;
        } else if (argument == "--stats") {
            options.stats = true;
        } else if (argument == "-h" || argument == "--help") {
            std::fputs(kUsage, stdout);
            std::exit(0);
        } else if (argument.size() > 1 && argument[0] == '-') {
            std::fprintf(stderr, "qxconv: unknown option '%s'\n%s", argument.c_str(), kUsage);
            return false;
        } else {
            files.push_back(argument);
        }
    }
    if (files.size() != 2) {
        std::fprintf(stderr, "qxconv: give one input and one output\n%s", kUsage);
        return false;
    }
    options.input = files[0];
    options.output = files[1];
    if (!options.formatGiven) options.format = QxConv::FormatOfName(options.output);
    options.gzip = options.gzip || EndsWith(options.output, ".gz");
    return true;
}

std::wstring Widen(const std::string& text) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    std::wstring wide(UTF8ToUnicode(bytes, text.size(), nullptr, 0), L'\0');
    UTF8ToUnicode(bytes, text.size(), &wide[0], wide.size());
    return wide;
}

void Print(std::FILE* stream, const std::wstring& text) {
    std::string bytes(UnicodeToUTF8(text.c_str(), text.size(), nullptr, 0), '\0');
    UnicodeToUTF8(text.c_str(), text.size(), reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size());
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// The whole file; fails with the library's messages for files.
CBinaryData ReadFile(const std::string& name) {
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(name.c_str(), "rb"));
    if (!file) throw CQxException(FormatString(L"Failed to open the file [%ls].", Widen(name).c_str()));
    CBinaryData data;
    unsigned char chunk[1 << 16];
    for (size_t read; (read = std::fread(chunk, 1, sizeof chunk, file.get())) > 0;)
        data.Append(chunk, static_cast<unsigned long>(read));
    if (std::ferror(file.get()) || data.GetLength() == 0)
        throw CQxException(FormatString(L"Failed to read the contents of the file [%ls] Error [%d]",
                                        Widen(name).c_str(), std::ferror(file.get()) ? errno : 0));
    return data;
}

void WriteFile(const std::string& name, const CBinaryData& data) {
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(name.c_str(), "wb"));
    if (!file || std::fwrite(data.GetData(), 1, data.GetLength(), file.get()) != data.GetLength() ||
        std::fclose(file.release()) != 0)
        throw CQxException(FormatString(L"Failed to write data to the file [%ls].", Widen(name).c_str()));
}

template <class F>
double Seconds(F&& step) {
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The progress line of a large input, rewritten in place on stderr.
struct ProgressLine {
    static const char* name;
    static unsigned long elements;
    static bool Count(CXmlElement*) {
        if ((++elements & 0xFFFFF) == 0)
            std::fprintf(stderr, "\rqxconv: reading %s: %lu elements", name, elements);
        return false; // the element stays in the tree
    }
};
const char* ProgressLine::name = "";
unsigned long ProgressLine::elements = 0;

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!ParseArguments(argc, argv, options)) return 2;
    bool large = false;
    try {
        CBinaryData input = ReadFile(options.input);
        large = input.GetLength() >= kProgressFrom;
        ProgressLine::name = options.input.c_str();
        if (large)
            std::fprintf(stderr, "qxconv: reading %s (%lu MB)", options.input.c_str(),
                         input.GetLength() / 1000000);
        CXmlDocument document(large ? ProgressLine::Count : nullptr);
        QxConv::Format inputFormat;
        const unsigned long inputLength = input.GetLength();
        const double read = Seconds([&] { QxConv::Load(std::move(input), document, inputFormat); });
        QxConv::Progress progress;
        if (large)
            progress = [&](unsigned long written) {
                std::fprintf(stderr, "\rqxconv: writing %s: %lu of %lu elements", options.output.c_str(),
                             written, ProgressLine::elements);
            };
        CBinaryData output;
        const double write = Seconds([&] {
            output = QxConv::Write(document, options.format, options.gzip, progress);
            WriteFile(options.output, output);
        });
        if (large) std::fputs("\n", stderr);
        if (options.stats) {
            std::printf("input   %s: %s, %lu bytes\n", options.input.c_str(), QxConv::FormatName(inputFormat),
                        inputLength);
            std::printf("output  %s: %s%s, %lu bytes\n", options.output.c_str(),
                        QxConv::FormatName(options.format), options.gzip ? " (gzip)" : "",
                        output.GetLength());
            std::printf("ratio   %.3f\n", inputLength ? double(output.GetLength()) / inputLength : 0.0);
            std::printf("read    %.3f s\n", read);
            std::printf("write   %.3f s\n", write);
        }
    } catch (const CQxException& e) {
        std::fflush(stdout);
        if (large) std::fputs("\n", stderr); // after the progress line
        // Where in the input, as compilers say it, when the error knows.
        const std::wstring where =
            e.HasPosition() ? Widen(options.input) + FormatString(L":%lu:%lu: ", e.GetLine(), e.GetColumn())
                            : L"qxconv: ";
        Print(stderr, where + e.GetFullMessage() + L"\n");
        return 1;
    }
    return 0;
}
