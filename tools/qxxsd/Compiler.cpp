#include "Compiler.h"

#include "Locator.h"
#include "Names.h"
#include "Plan.h"
#include "SchemaReader.h"

#include <algorithm>

namespace Qxxsd {

std::wstring FileStem(const std::wstring& schema) {
    const size_t slash = schema.find_last_of(L"/\\");
    std::wstring stem = schema.substr(slash == std::wstring::npos ? 0 : slash + 1);
    const size_t dot = stem.rfind(L'.');
    return dot != std::wstring::npos && dot > 0 ? stem.substr(0, dot) : stem;
}

CompileResult Compile(const CompileOptions& options) {
    CDiagnostics diagnostics;
    SchemaSet set;
    CLocator locator(options.mappings, options.catalogs);
    CSchemaReader reader(set, locator, diagnostics);
    for (const std::wstring& schema : options.schemas)
        reader.Read(schema);
    reader.Resolve();
    CPlanner planner(set, diagnostics);
    const CodeModel& model = planner.Plan(options.schemas);
    CompileResult result;
    result.files = CEmitter(model, options.emit).Files();
    result.warnings = diagnostics.Warnings();
    for (const auto& document : set.documents)
        if (std::find(result.inputs.begin(), result.inputs.end(), document->path) == result.inputs.end())
            result.inputs.push_back(document->path);
    return result;
}

} // namespace Qxxsd
