#pragma once

#include "Emitter.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Qxxsd {

struct CompileOptions {
    std::vector<std::wstring> schemas;
    EmitOptions emit;
    std::map<std::wstring, std::wstring> mappings; // location or namespace URI to a local file
    std::vector<std::wstring> catalogs;            // XML catalogs, in search order
};

struct CompileResult {
    std::vector<std::pair<std::wstring, std::string>> files; // name, UTF-8 content
    std::vector<std::wstring> warnings;
    std::vector<std::wstring> inputs; // every schema file read, for a build's dependencies
};

// Reads the schemas and everything they include and import, and makes their bindings. A schema the
// compiler refuses throws CSchemaError; nothing is written here.
CompileResult Compile(const CompileOptions& options);

// The file name of a schema without its folder and extension: the default file prefix.
std::wstring FileStem(const std::wstring& schema);

} // namespace Qxxsd
