#include "Compiler.h"

#include "Locator.h"
#include "Names.h"
#include "Plan.h"
#include "SchemaReader.h"

namespace Qxxsd {

std::wstring DefaultPrefix(const std::wstring& schema) {
    const size_t slash = schema.find_last_of(L"/\\");
    std::wstring stem = schema.substr(slash == std::wstring::npos ? 0 : slash + 1);
    const size_t dot = stem.rfind(L'.');
    if (dot != std::wstring::npos && dot > 0) stem = stem.substr(0, dot);
    return UpperCamel(stem);
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
    return result;
}

} // namespace Qxxsd
