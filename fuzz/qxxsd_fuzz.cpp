// The schema compiler on any text taken for a schema: it compiles it or refuses it with a file, line
// and reason (CSchemaError). Anything else escaping, the library's exceptions included, and any
// sanitizer report, is a bug.
#include "Compiler.h"
#include "Diagnostics.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

// The compiler reads schemas from files; each input is written to the same one.
std::string SchemaFile() {
    static const std::string file = [] {
        char folder[] = "/tmp/qx_qxxsd_fuzz.XXXXXX";
        if (!mkdtemp(folder)) std::abort();
        return std::string(folder) + "/schema.xsd";
    }();
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string file = SchemaFile();
    FILE* out = std::fopen(file.c_str(), "wb");
    if (!out || std::fwrite(data, 1, size, out) != size || std::fclose(out) != 0) std::abort();
    Qxxsd::CompileOptions options;
    options.schemas = {std::wstring(file.begin(), file.end())};
    options.emit = {L"Fuzz", L"fuzz", L""};
    try {
        Qxxsd::Compile(options);
    } catch (const Qxxsd::CSchemaError&) {
    }
    return 0;
}
