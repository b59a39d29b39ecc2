// qxxsd: compiles XML Schemas into bindings for QxXmlLib16.

#include "CodeText.h"
#include "Compiler.h"
#include "Names.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/stat.h>

namespace {

const char kUsage[] =
    "usage: qxxsd [options] SCHEMA.xsd... -o DIR\n"
    "Writes the bindings of the schemas, with every schema they include or import, into DIR:\n"
    "PREFIX.h with every class, PREFIX.cpp with the classes of the first schema and the class\n"
    "factory, and PREFIX-NAME.cpp with those of each further schema named NAME.xsd.\n"
    "  -o, --output DIR          the folder to write to (made when missing)\n"
    "  -n, --namespace NAME      the C++ namespace, Outer::Inner allowed (default: the first\n"
    "                            schema's name in UpperCamel case)\n"
    "  -p, --file-prefix PREFIX  the name of the generated files (default: the first schema's name)\n"
    "  -i, --include-prefix TEXT what the sources put before PREFIX.h in their #include\n"
    "      --map URL=FILE        read FILE for the schema at URL, or for an import of namespace URL\n"
    "                            that has no schemaLocation; nothing is ever fetched\n"
    "      --catalog FILE        an XML catalog, searched before those of XML_CATALOG_FILES\n"
    "      --depfile FILE        also write the schema files read, as a make rule for PREFIX.h\n"
    "  -q, --quiet               do not print warnings\n"
    "  -h, --help                print this text\n"
    "Exit status: 0 written, 1 a schema was refused, 2 bad arguments or an output not written.\n";

std::wstring Widen(const char* text) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    const size_t length = std::strlen(text);
    std::wstring wide(::UTF8ToUnicode(bytes, length, nullptr, 0), L'\0');
    ::UTF8ToUnicode(bytes, length, &wide[0], wide.size());
    return wide;
}

std::string Narrow(const std::wstring& text) {
    return Qxxsd::Utf8(text);
}

void Print(std::FILE* stream, const std::wstring& text) {
    const std::string bytes = Narrow(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

bool MakeFolder(const std::string& path) {
    std::string partial;
    for (size_t i = 0; i <= path.size(); ++i) {
        if (i == path.size() || (path[i] == '/' && i > 0)) {
            partial = path.substr(0, i);
            struct stat info;
            if (stat(partial.c_str(), &info) != 0 && mkdir(partial.c_str(), 0777) != 0) return false;
        }
    }
    return true;
}

std::vector<std::wstring> CatalogsFromEnvironment() {
    std::vector<std::wstring> catalogs;
    const char* files = std::getenv("XML_CATALOG_FILES");
    const std::wstring list = files ? Widen(files) : L"/etc/xml/catalog";
    for (size_t start = 0; start < list.size();) {
        size_t end = list.find(L' ', start);
        if (end == std::wstring::npos) end = list.size();
        if (end > start) catalogs.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return catalogs;
}

} // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    Qxxsd::CompileOptions options;
    std::wstring output, depfile;
    bool quiet = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        auto value = [&](const char* name) -> std::wstring {
            if (i + 1 >= argc) {
                std::fprintf(stderr, "qxxsd: %s needs a value\n%s", name, kUsage);
                std::exit(2);
            }
            return Widen(argv[++i]);
        };
        if (argument == "-o" || argument == "--output") {
            output = value("--output");
        } else if (argument == "-n" || argument == "--namespace") {
            options.emit.cppNamespace = value("--namespace");
        } else if (argument == "-p" || argument == "--file-prefix") {
            options.emit.filePrefix = value("--file-prefix");
        } else if (argument == "-i" || argument == "--include-prefix") {
            options.emit.includePrefix = value("--include-prefix");
        } else if (argument == "--map") {
            const std::wstring mapping = value("--map");
            const size_t equals = mapping.rfind(L'=');
            if (equals == std::wstring::npos || equals == 0 || equals + 1 == mapping.size()) {
                std::fprintf(stderr, "qxxsd: --map takes URL=FILE\n");
                return 2;
            }
            options.mappings[mapping.substr(0, equals)] = mapping.substr(equals + 1);
        } else if (argument == "--depfile") {
            depfile = value("--depfile");
        } else if (argument == "--catalog") {
            options.catalogs.push_back(value("--catalog"));
        } else if (argument == "-q" || argument == "--quiet") {
            quiet = true;
        } else if (argument == "-h" || argument == "--help") {
            std::fputs(kUsage, stdout);
            return 0;
        } else if (!argument.empty() && argument[0] == '-') {
            std::fprintf(stderr, "qxxsd: unknown option %s\n%s", argument.c_str(), kUsage);
            return 2;
        } else {
            options.schemas.push_back(Widen(argv[i]));
        }
    }
    if (options.schemas.empty() || output.empty()) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const std::wstring stem = Qxxsd::FileStem(options.schemas.front());
    if (options.emit.filePrefix.empty()) options.emit.filePrefix = stem;
    if (options.emit.cppNamespace.empty()) options.emit.cppNamespace = Qxxsd::UpperCamel(stem);
    for (const std::wstring& catalog : CatalogsFromEnvironment())
        options.catalogs.push_back(catalog);

    Qxxsd::CompileResult result;
    try {
        result = Qxxsd::Compile(options);
    } catch (const Qxxsd::CSchemaError& e) {
        Print(stderr, e.Text() + L"\n");
        return 1;
    } catch (const QxXmlLib16::CQxException& e) {
        Print(stderr, L"qxxsd: " + e.GetFullMessage() + L"\n");
        return 1;
    }
    if (!quiet)
        for (const std::wstring& warning : result.warnings)
            Print(stderr, warning + L"\n");
    const std::string folder = Narrow(output);
    if (!MakeFolder(folder)) {
        std::fprintf(stderr, "qxxsd: cannot make the folder %s\n", folder.c_str());
        return 2;
    }
    for (const auto& file : result.files) {
        const std::string path = folder + "/" + Narrow(file.first);
        std::FILE* stream = std::fopen(path.c_str(), "wb");
        const bool written =
            stream && std::fwrite(file.second.data(), 1, file.second.size(), stream) == file.second.size();
        if (!stream || std::fclose(stream) != 0 || !written) {
            std::fprintf(stderr, "qxxsd: cannot write %s\n", path.c_str());
            return 2;
        }
    }
    if (!depfile.empty()) {
        // Make's escapes: a blank or # is preceded by a backslash, $ is doubled.
        auto escape = [](const std::string& path) {
            std::string escaped;
            for (char c : path) {
                if (c == ' ' || c == '#') escaped += '\\';
                if (c == '$') escaped += '$';
                escaped += c;
            }
            return escaped;
        };
        std::string rule = escape(folder + "/" + Narrow(options.emit.filePrefix) + ".h") + ":";
        for (const std::wstring& input : result.inputs)
            rule += " \\\n  " + escape(Narrow(input));
        rule += "\n";
        std::FILE* stream = std::fopen(Narrow(depfile).c_str(), "wb");
        const bool written = stream && std::fwrite(rule.data(), 1, rule.size(), stream) == rule.size();
        if (!stream || std::fclose(stream) != 0 || !written) {
            std::fprintf(stderr, "qxxsd: cannot write %s\n", Narrow(depfile).c_str());
            return 2;
        }
    }
    return 0;
}
