#pragma once

#include "Plan.h"

#include <string>
#include <utility>
#include <vector>

namespace Qxxsd {

struct EmitOptions {
    std::wstring cppNamespace;  // may be nested: "Acme::Orders"
    std::wstring filePrefix;    // the generated files are <prefix>.h, <prefix>.cpp, <prefix><Tag>.cpp
    std::wstring includePrefix; // put before the header's name where the sources include it
};

// Writes the code model as C++: one header for the whole set, and one source per target namespace,
// the first of which also holds the enumerations, value checks and factories.
class CEmitter {
public:
    CEmitter(const CodeModel& model, EmitOptions options);
    // (file name, UTF-8 content), in a fixed order.
    std::vector<std::pair<std::wstring, std::string>> Files() const;

private:
    std::wstring Header() const;
    std::wstring Source(size_t file) const;

    std::wstring ClassDeclaration(const ClassPlan& plan) const;
    std::wstring ClassDefinition(const ClassPlan& plan) const;
    std::wstring MemberDeclaration(const ClassPlan& owner, const MemberPlan& member) const;
    std::wstring Setter(const ClassPlan& owner, const MemberPlan& member) const;
    std::wstring Reset(const ClassPlan& plan) const;
    std::wstring MetaData(const ClassPlan& plan) const;
    std::wstring AccessProperty(const ClassPlan& plan) const;
    std::wstring ElementDescriptor(const ClassPlan& plan, const MemberPlan& member) const;
    std::wstring AttributeDescriptor(const ClassPlan& plan, const MemberPlan& member) const;
    std::wstring Factories() const;
    std::wstring ValueDefinitions() const;

    std::wstring ValueType(const ValuePlan& value) const;
    std::wstring FieldType(const MemberPlan& member) const;
    std::wstring CollectionType(const MemberPlan& member) const;
    std::wstring NewCollection(const MemberPlan& member) const;
    std::wstring NamespaceOf(const std::wstring& uri) const;
    std::wstring TypeFactory(const ClassPlan& plan) const;
    std::wstring DefaultValue(const MemberPlan& member) const;
    std::wstring FacetsOf(const ValuePlan& value) const;
    bool SetterOutOfLine(const MemberPlan& member) const;
    std::wstring Cleared(const MemberPlan& member) const;
    bool Small(const ValuePlan& value) const;

    const CodeModel& m_model;
    EmitOptions m_options;
};

} // namespace Qxxsd
