#include "Emitter.h"

#include "CodeText.h"
#include "Names.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <algorithm>
#include <set>

namespace Qxxsd {

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;

namespace {

std::wstring Field(const MemberPlan& member) {
    return L"m_" + LowerFirst(member.cppName);
}

std::wstring NilFlag(const MemberPlan& member) {
    return Field(member) + L"Nil";
}

std::wstring Property(const MemberPlan& member) {
    return L"pn" + member.cppName;
}

std::wstring ClassNumber(const ClassPlan& plan) {
    return L"cn" + plan.name.substr(1);
}

std::wstring GroupPrefix(int compositor) {
    return compositor == egChoice ? L"Choice" : compositor == egAll ? L"All" : L"Seq";
}

std::wstring Section(const std::wstring& title) {
    std::wstring line = L"// ---- " + title + L" ";
    while (line.size() < 100)
        line += L'-';
    return line + L"\n";
}

bool NillableAncestor(const ClassPlan* plan) {
    for (const ClassPlan* base = plan->base; base; base = base->base)
        if (base->nillable) return true;
    return false;
}

std::vector<std::wstring> NamespaceParts(const std::wstring& cppNamespace) {
    std::vector<std::wstring> parts;
    size_t start = 0;
    while (start <= cppNamespace.size()) {
        size_t end = cppNamespace.find(L"::", start);
        if (end == std::wstring::npos) end = cppNamespace.size();
        parts.push_back(cppNamespace.substr(start, end - start));
        start = end + 2;
    }
    return parts;
}

// The fields of a facet record in the order its constructor and the typed collections take them,
// from the pattern to fractionDigits.
std::wstring FacetArguments(const Facets& f) {
    return Literal(f.patterns.empty() ? std::wstring() : f.patterns.front()) + L", " +
           std::to_wstring(f.minLength) + L", " + std::to_wstring(f.maxLength) + L", " + Literal(f.minInclusive) +
           L", " + Literal(f.maxInclusive) + L", " + Literal(f.minExclusive) + L", " + Literal(f.maxExclusive) +
           L", " + std::to_wstring(f.length) + L", " + std::to_wstring(f.totalDigits) + L", " +
           std::to_wstring(f.fractionDigits);
}

} // namespace

CEmitter::CEmitter(const CodeModel& model, EmitOptions options)
    : m_model(model)
    , m_options(std::move(options)) {}

// ---- Types of members ----------------------------------------------------------------------------

bool CEmitter::Small(const ValuePlan& value) const {
    return value.kind == ValuePlan::Enum ||
           (value.kind == ValuePlan::Primitive && !IsLargeValue(value.itemType));
}

std::wstring CEmitter::ValueType(const ValuePlan& value) const {
    switch (value.kind) {
    case ValuePlan::Enum:
        return value.enumeration->name;
    case ValuePlan::Text:
        return L"std::wstring";
    default:
        return ValueTypeName(value.itemType);
    }
}

std::wstring CEmitter::CollectionType(const MemberPlan& member) const {
    switch (member.kind) {
    case MemberPlan::Value:
        if (member.value->kind == ValuePlan::Enum) return member.value->enumeration->name + L"Col";
        if (member.value->kind == ValuePlan::Text)
            return L"TCheckedTextCol<" + member.value->checkName + L">";
        return CollectionName(member.value->itemType);
    case MemberPlan::Wildcard:
        return L"CElementCol";
    case MemberPlan::AnyAttribute:
        return L"CAttributeCol";
    default:
        return member.type->name + L"Col";
    }
}

std::wstring CEmitter::FieldType(const MemberPlan& member) const {
    if (member.cardinality == MemberPlan::Repeated || member.kind == MemberPlan::AnyAttribute)
        return L"CSmartPtr<" + CollectionType(member) + L">";
    switch (member.kind) {
    case MemberPlan::Value: {
        const std::wstring type = ValueType(*member.value);
        if (member.cardinality == MemberPlan::Mandatory) return type;
        return (Small(*member.value) ? L"std::optional<" : L"TOptional<") + type + L">";
    }
    case MemberPlan::Wildcard:
        return L"CSmartPtr<CElement>";
    default:
        return L"CSmartPtr<" + member.type->name + L">";
    }
}

std::wstring CEmitter::NamespaceOf(const std::wstring& uri) const {
    const auto known = m_model.namespaceConstant.find(uri);
    return known == m_model.namespaceConstant.end() ? Literal(uri) : known->second;
}

std::wstring CEmitter::FacetsOf(const ValuePlan& value) const {
    return value.kind == ValuePlan::Primitive && value.facets ? value.facetsName + L"()"
                                                              : std::wstring(L"CPrimitiveRestrictions()");
}

std::wstring CEmitter::TypeFactory(const ClassPlan& plan) const {
    return plan.factoryName;
}

std::wstring CEmitter::DefaultValue(const MemberPlan& member) const {
    const ValuePlan& value = *member.value;
    const std::wstring text = CWhitespaceUtils::ApplyRule(Rule(value.whitespace), *member.defaultValue);
    if (value.kind == ValuePlan::Enum) {
        for (size_t i = 0; i < value.enumeration->values.size(); ++i)
            if (value.enumeration->values[i] == text) return value.enumeration->enumerators[i];
    }
    if (value.kind == ValuePlan::Text || value.itemType == itString) return Literal(text);
    if (value.itemType == itBoolean) return text == L"true" || text == L"1" ? L"true" : L"false";
    return L"CConversions::" + ConversionStem(value.itemType) + L"FromString(" + Literal(text) +
           L", CWhitespaceUtils::wsCollapse)";
}

// The statement tail that sets a mandatory value member to its type's initial value.
std::wstring CEmitter::Cleared(const MemberPlan& member) const {
    const ValuePlan& value = *member.value;
    if (value.kind == ValuePlan::Text || (value.kind == ValuePlan::Primitive && value.itemType == itString))
        return L".clear()";
    if (value.kind == ValuePlan::Primitive && !IsLargeValue(value.itemType))
        return value.itemType == itBoolean ? L" = false" : L" = 0";
    return L" = " + ValueType(value) + L"()";
}

bool CEmitter::SetterOutOfLine(const MemberPlan& member) const {
    if (member.kind != MemberPlan::Value) return true;
    const ValuePlan& value = *member.value;
    return member.fixed || member.nillable || !member.choiceSiblings.empty() ||
           value.kind == ValuePlan::Text || (value.kind == ValuePlan::Primitive && value.facets);
}

std::wstring CEmitter::NewCollection(const MemberPlan& member) const {
    const std::wstring counts = L", " + std::to_wstring(member.minOccurs) + L", " +
                                std::to_wstring(member.maxOccurs < 0 ? -1 : member.maxOccurs);
    const std::wstring name = Literal(member.xmlName) + L", " + NamespaceOf(member.xmlNamespace);
    switch (member.kind) {
    case MemberPlan::Value: {
        const ValuePlan& value = *member.value;
        if (value.kind == ValuePlan::Enum)
            return L"new " + CollectionType(member) + L"(" + name + counts + L")";
        if (value.kind == ValuePlan::Text)
            return L"new " + CollectionType(member) + L"(" + name + counts + L", " +
                   WhitespaceName(value.whitespace) + L")";
        const Facets none;
        const Facets& f = value.facets ? *value.facets : none;
        return L"new " + CollectionType(member) + L"(" + name + counts + L", " + FacetArguments(f) + L", " +
               WhitespaceName(value.whitespace) + L", L\"\", pmExact)";
    }
    case MemberPlan::Wildcard:
        return L"new CElementCol(L\"\", " + Literal(member.rule) + L", " + NamespaceOf(member.ruleTarget) +
               counts + L")";
    case MemberPlan::AnyAttribute:
        return L"new CAttributeCol(L\"\", " + Literal(member.rule) + L", " + NamespaceOf(member.ruleTarget) +
               L")";
    case MemberPlan::Class:
        return L"new " + CollectionType(member) + L"(" + name + counts +
               (member.polymorphic ? L", " + TypeFactory(*member.type) : std::wstring()) + L")";
    default:
        return L"new " + CollectionType(member) + L"(" + name + counts + L")";
    }
}

// ---- Header --------------------------------------------------------------------------------------

std::wstring CEmitter::MemberDeclaration(const ClassPlan& owner, const MemberPlan& member) const {
    std::wstring text = Comment(member.documentation, L"    ");
    const std::wstring& name = member.cppName;
    const std::wstring field = Field(member);
    if (member.cardinality == MemberPlan::Repeated || member.kind == MemberPlan::AnyAttribute)
        return text + L"    " + CollectionType(member) + L"* Get" + name + L"() const { return " + field +
               L".Get(); }\n";
    if (member.kind != MemberPlan::Value) {
        const std::wstring type = member.kind == MemberPlan::Wildcard ? L"CElement" : member.type->name;
        return text + L"    " + type + L"* Get" + name + L"() const { return " + field + L".Get(); }\n" +
               L"    void Set" + name + L"(" + type + L"* value);\n";
    }
    const std::wstring type = FieldType(member);
    const bool byValue = member.cardinality == MemberPlan::Mandatory && Small(*member.value);
    text += L"    " + (byValue ? type : L"const " + type + L"&") + L" Get" + name + L"() const { return " +
            field + L"; }\n";
    if (SetterOutOfLine(member))
        text += L"    void Set" + name + L"(" + type + L" value);\n";
    else
        text += L"    void Set" + name + L"(" + type + L" value) { " + field +
                (byValue ? L" = value; }\n" : L" = std::move(value); }\n");
    if (member.nillable) {
        text += L"    // The element may be written as nil (xsi:nil) instead of a value.\n";
        text += L"    bool Is" + name + L"Nil() const { return " + NilFlag(member) + L"; }\n";
        text += L"    void Set" + name + L"Nil();\n";
    }
    (void)owner;
    return text;
}

std::wstring CEmitter::ClassDeclaration(const ClassPlan& plan) const {
    std::wstring text;
    std::wstring doc = plan.documentation;
    if (doc.empty())
        doc = plan.group
                  ? L"The model group " + plan.xmlType + L": its elements stand among its parent's children."
                  : L"The type " + plan.xmlType + L".";
    text += Comment(doc, L"");
    const bool declaresNil = plan.nillable && !NillableAncestor(&plan);
    text += L"class " + plan.name + L" : public TGeneratedClass<" + plan.name +
            (plan.base ? L", " + plan.base->name : std::wstring()) + L">" +
            (declaresNil ? L", public INillable" : L"") + L" {\npublic:\n";
    text += L"    explicit " + plan.name + L"(const wchar_t* elementName = " + Literal(plan.elementName) +
            L");\n";
    bool first = true;
    auto declare = [&](const MemberPlan* member) {
        if (first) text += L"\n";
        first = false;
        text += MemberDeclaration(plan, *member);
    };
    for (const MemberPlan* member : plan.members)
        if (member->attribute) declare(member);
    for (const MemberPlan* member : plan.members)
        if (!member->attribute && member != plan.content) declare(member);
    if (plan.content &&
        std::find(plan.members.begin(), plan.members.end(), plan.content) != plan.members.end()) {
        if (first) text += L"\n";
        first = false;
        text += L"    // The element's own content.\n" + MemberDeclaration(plan, *plan.content);
    }
    if (declaresNil) {
        text += L"\n    // The element is nil (xsi:nil): it has no content.\n";
        text += L"    bool IsNil() const override { return m_nil; }\n";
        text += L"    void SetNil(bool nil) override { m_nil = nil; }\n";
    }
    text += L"\n    int AccessProperty(int propertyNumber, bool read, QxVariant& value) override;\n";
    text += L"    void OnBeforeFromXml(CXmlElement* element, CXmlElement* firstChild, const "
            L"CSerializationContext& "
            L"context,\n                         bool flag) override;\n";
    const std::wstring ns = NamespaceOf(plan.xmlNamespace);
    text += L"    std::wstring GetTargetNamespace() const override { return " + ns + L"; }\n";
    text += L"    std::wstring GetNamespace() const override { return " + ns + L"; }\n";
    text += L"    static const CClassMetaData& MetaData();\n";
    if (!plan.members.empty()) {
        text += L"\nprotected:\n    enum Property : int {";
        for (size_t i = 0; i < plan.members.size(); ++i) {
            const MemberPlan* member = plan.members[i];
            text += (i ? L", " : L" ") + Property(*member) + L" = " + std::to_wstring(member->property);
        }
        text += L" };\n";
    }
    text += L"\nprivate:\n    void Reset();\n";
    for (const MemberPlan* member : plan.members) {
        text += L"    " + FieldType(*member) + L" " + Field(*member) + L";\n";
        if (member->nillable) text += L"    bool " + NilFlag(*member) + L" = false;\n";
    }
    if (declaresNil) text += L"    bool m_nil = false;\n";
    return text + L"};\n";
}

std::wstring CEmitter::Header() const {
    std::wstring text = L"#pragma once\n\n";
    std::wstring sources;
    for (const std::wstring& file : m_model.schemaFiles)
        sources +=
            (sources.empty() ? L"" : L", ") +
            file.substr(file.find_last_of(L"/\\") == std::wstring::npos ? 0 : file.find_last_of(L"/\\") + 1);
    text += L"// Bindings of " + sources +
            L", generated by qxxsd. Regenerate them from the schema rather than\n"
            L"// editing them: docs/generated-classes.md of QxXmlLib16 describes their form.\n\n";
    text += L"#include <QxXmlLib16/QxXmlLib16.h>\n\n#include <optional>\n#include <string>\n\n";
    for (const std::wstring& part : NamespaceParts(m_options.cppNamespace))
        text += L"namespace " + part + L" {\n";
    text += L"\nusing namespace QxXmlLib16;\n";
    text += L"\n" + Section(L"Namespaces");
    for (const auto& constant : m_model.namespaceConstants)
        text += L"constexpr const wchar_t* " + constant.first + L" = " + Literal(constant.second) + L";\n";

    text += L"\n" + Section(L"Classes and loading");
    for (const ClassPlan* plan : m_model.classes)
        text += L"class " + plan->name + L";\n";
    text += L"\n// The class factory: a new object of the class with that number, named after its "
            L"element.\nenum ClassNumber : int {";
    for (size_t i = 0; i < m_model.classes.size(); ++i)
        text += (i ? L", " : L" ") + ClassNumber(*m_model.classes[i]);
    text += L" };\nCSmartPtr<CXmlObjectBase> CreateClass(int classNumber, const wchar_t* elementName);\n";
    for (const ClassPlan* plan : m_model.classes)
        if (plan->polymorphic)
            text += L"// The class of an element of type " + plan->xmlType +
                    L" or of a type derived from it, by its xsi:type.\n"
                    L"CSmartPtr<CXmlObjectBase> " +
                    TypeFactory(*plan) + L"(CXmlElement* element);\n";
    text +=
        L"\n// Loads a document whose root is any global element of the schema into that element's class,\n"
        L"// validating it: from a file or from bytes, XML text or Fast Infoset, plain or compressed.\n";
    text += L"CSmartPtr<CXmlObjectBase> LoadDocument(const wchar_t* fileName,\n"
            L"                                       const CSerializationContext& context = "
            L"CSerializationContext::m_defaultContext);\n";
    text += L"CSmartPtr<CXmlObjectBase> LoadDocument(const CBinaryData& document,\n"
            L"                                       const CSerializationContext& context = "
            L"CSerializationContext::m_defaultContext);\n";
    text += L"// The global elements and their classes.\nconst CDocumentRoots& DocumentRoots();\n";

    if (!m_model.enums.empty()) text += L"\n" + Section(L"Enumerations");
    std::set<const EnumPlan*> repeatedEnums;
    std::set<const ClassPlan*> repeatedClasses;
    for (const ClassPlan* plan : m_model.classes)
        for (const MemberPlan* member : plan->members) {
            if (member->cardinality != MemberPlan::Repeated) continue;
            if (member->kind == MemberPlan::Value && member->value->kind == ValuePlan::Enum)
                repeatedEnums.insert(member->value->enumeration);
            if (member->kind == MemberPlan::Class || member->kind == MemberPlan::Group)
                repeatedClasses.insert(member->type);
        }
    for (const EnumPlan* plan : m_model.enums) {
        text +=
            L"\n" +
            Comment(plan->xmlName + (plan->documentation.empty() ? L"" : L": " + plan->documentation), L"");
        text += L"enum " + plan->name + L" : int {";
        for (size_t i = 0; i < plan->enumerators.size(); ++i)
            text += (i ? L", " : L" ") + plan->enumerators[i];
        text += L" };\n";
        text += L"const wchar_t* " + plan->name + L"ToText(int value);\n";
        text += L"// Throws CQxInvalidValueException for a text the schema does not list.\n";
        text += L"int " + plan->name + L"FromText(const wchar_t* text);\n";
        if (repeatedEnums.count(plan))
            text += L"typedef TEnumCol<" + plan->name + L", " + plan->name + L"ToText, " + plan->name +
                    L"FromText> " + plan->name + L"Col;\n";
    }

    bool checks = false;
    for (const ValuePlan* value : m_model.values) {
        if (!value->facetsName.empty() || !value->checkName.empty()) {
            if (!checks) text += L"\n" + Section(L"Facets and checks of the simple types");
            checks = true;
            if (!value->facetsName.empty())
                text += L"const CPrimitiveRestrictions& " + value->facetsName + L"();\n";
            if (!value->checkName.empty())
                text += L"void " + value->checkName + L"(const wchar_t* name, const std::wstring& text);\n";
        }
    }

    if (!repeatedClasses.empty()) text += L"\n" + Section(L"Collections");
    for (const ClassPlan* plan : m_model.classes)
        if (repeatedClasses.count(plan))
            text += L"typedef " +
                    std::wstring(plan->group ? L"TXmlGroupCollection<" : L"TXmlClassCollection<") +
                    plan->name + L"> " + plan->name + L"Col;\n";

    for (const ClassPlan* plan : m_model.classes)
        text += L"\n" + ClassDeclaration(*plan);
    text += L"\n";
    const std::vector<std::wstring> parts = NamespaceParts(m_options.cppNamespace);
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        text += L"} // namespace " + *part + L"\n";
    return text;
}

// ---- Sources -------------------------------------------------------------------------------------

std::wstring CEmitter::Setter(const ClassPlan& owner, const MemberPlan& member) const {
    const std::wstring& name = member.cppName;
    const std::wstring field = Field(member);
    const std::wstring xmlName = Literal(member.xmlName.empty() ? owner.xmlType : member.xmlName);
    std::wstring clearSiblings;
    for (const MemberPlan* sibling : member.choiceSiblings) {
        clearSiblings +=
            L"    " + Field(*sibling) +
            (sibling->kind == MemberPlan::Value ? L".reset();\n" : std::wstring(L" = nullptr;\n"));
        if (sibling->nillable) clearSiblings += L"    " + NilFlag(*sibling) + L" = false;\n";
    }
    std::wstring text;
    if (member.kind != MemberPlan::Value) {
        const std::wstring type = member.kind == MemberPlan::Wildcard ? L"CElement" : member.type->name;
        text += L"void " + owner.name + L"::Set" + name + L"(" + type + L"* value) {\n" + clearSiblings;
        if (member.kind == MemberPlan::Wildcard)
            text += member.cardinality == MemberPlan::Mandatory
                        ? L"    CXmlObjectBase::Throw_IfPropertyIsNull(value, " + xmlName + L");\n    " +
                              field + L" = value;\n"
                        : L"    " + field + L" = value;\n";
        else
            text += std::wstring(member.cardinality == MemberPlan::Mandatory ? L"    AdoptMandatoryChild("
                                                                             : L"    AdoptChild(") +
                    field + L", value, " + xmlName + L");\n";
        return text + L"}\n";
    }
    const ValuePlan& value = *member.value;
    const std::wstring type = FieldType(member);
    text += L"void " + owner.name + L"::Set" + name + L"(" + type + L" value) {\n";
    const bool optional = member.cardinality == MemberPlan::Optional;
    const std::wstring checked = optional ? L"*value" : L"value";
    std::wstring check;
    if (value.kind == ValuePlan::Text) {
        check = value.checkName + L"(" + xmlName + L", " + checked + L");";
    } else if (value.kind == ValuePlan::Primitive && value.facets) {
        check = L"CXmlObjectHelper::CheckRestrictionFor" + ConversionStem(value.itemType) + L"(" + xmlName +
                L", " + checked + L", " + value.facetsName + L"());";
    }
    if (!check.empty()) text += optional ? L"    if (value) " + check + L"\n" : L"    " + check + L"\n";
    if (member.fixed) {
        const std::wstring accessor =
            value.kind == ValuePlan::Enum
                ? L"String"
                : VariantAccessor(value.kind == ValuePlan::Text ? itString : value.itemType);
        const std::wstring argument =
            value.kind == ValuePlan::Enum ? value.enumeration->name + L"ToText(" + checked + L")" : checked;
        const std::wstring indent = optional ? L"        " : L"    ";
        text += (optional ? L"    if (value) {\n" : L"") + indent + L"QxVariant fixed;\n" + indent +
                L"fixed.Set" + accessor + L"(" + argument + L");\n" + indent + L"CheckFixed(" + xmlName +
                L", fixed, " + Literal(*member.defaultValue) + L");\n" + (optional ? L"    }\n" : L"");
    }
    text += clearSiblings;
    if (member.nillable) text += L"    " + NilFlag(member) + L" = false;\n";
    text += L"    " + field + L" = std::move(value);\n}\n";
    if (member.nillable) {
        text += L"void " + owner.name + L"::Set" + name + L"Nil() {\n" + clearSiblings;
        text += member.cardinality == MemberPlan::Optional ? L"    " + field + L".reset();\n"
                                                           : L"    " + field + Cleared(member) + L";\n";
        text += L"    " + NilFlag(member) + L" = true;\n}\n";
    }
    return text;
}

std::wstring CEmitter::Reset(const ClassPlan& plan) const {
    std::wstring text = L"void " + plan.name + L"::Reset() {\n";
    for (const MemberPlan* member : plan.members) {
        const std::wstring field = L"    " + Field(*member);
        if (member->cardinality == MemberPlan::Repeated || member->kind == MemberPlan::AnyAttribute) {
            text += field + L"->Clear();\n";
            continue;
        }
        switch (member->kind) {
        case MemberPlan::Value:
            if (member->cardinality == MemberPlan::Optional)
                text += field + L".reset();\n";
            else if (member->defaultValue)
                text += field + L" = " + DefaultValue(*member) + L";\n";
            else
                text += field + Cleared(*member) + L";\n";
            if (member->nillable) text += L"    " + NilFlag(*member) + L" = false;\n";
            break;
        case MemberPlan::Wildcard:
            if (member->cardinality == MemberPlan::Optional)
                text += field + L" = nullptr;\n";
            else if (member->xmlName == L"AnyElement")
                text += field + L" = NewAnyElement(" + Literal(member->rule) + L", " +
                        NamespaceOf(member->xmlNamespace) + L", " + NamespaceOf(member->ruleTarget) + L");\n";
            else
                text += field + L" = new CElement(" + Literal(member->xmlName) + L", " +
                        NamespaceOf(member->xmlNamespace) + L", " + Literal(member->rule) + L", " +
                        NamespaceOf(member->ruleTarget) + L");\n";
            break;
        default: {
            // A mandatory member of an abstract type starts as its first concrete derived type.
            const ClassPlan* made = member->type;
            for (size_t i = 0; made && made->abstract; ++i)
                made = i < member->type->derived.size() ? member->type->derived[i] : nullptr;
            if (member->cardinality == MemberPlan::Optional || !made)
                text += field + L" = nullptr;\n";
            else
                text += field + L" = new " + made->name + L"(" + Literal(member->xmlName) + L");\n";
        }
        }
    }
    if (plan.nillable && !NillableAncestor(&plan)) text += L"    m_nil = false;\n";
    return text + L"}\n";
}

std::wstring CEmitter::ElementDescriptor(const ClassPlan& plan, const MemberPlan& member) const {
    const std::wstring group = GroupPrefix(plan.compositor);
    MemberPlan::Cardinality cardinality = member.cardinality;
    if (plan.compositor == egChoice && cardinality == MemberPlan::Mandatory)
        cardinality = MemberPlan::Optional;
    const std::wstring suffix = cardinality == MemberPlan::Mandatory  ? L"Mnd"
                                : cardinality == MemberPlan::Optional ? L"Opt"
                                                                      : L"Col";
    const std::wstring head =
        Literal(member.xmlName) + L", " + NamespaceOf(member.xmlNamespace) + L", " + Property(member);
    std::wstring kind, arguments;
    switch (member.kind) {
    case MemberPlan::Value: {
        const ValuePlan& value = *member.value;
        const bool isEnum = value.kind == ValuePlan::Enum;
        kind = isEnum ? L"Enum" : L"Prim";
        if (cardinality == MemberPlan::Repeated) break;
        const std::wstring defaultText = member.defaultValue ? Literal(*member.defaultValue) : L"L\"\"";
        arguments = std::wstring(L", ") + (member.nillable ? L"true" : L"false") + L", ";
        if (isEnum)
            arguments +=
                value.enumeration->name + L"ToText, " + value.enumeration->name + L"FromText, " + defaultText;
        else
            arguments += ItemTypeName(value.kind == ValuePlan::Text ? itString : value.itemType) +
                         L", L\"\", " + WhitespaceName(value.whitespace) + L", " + FacetsOf(value) + L", " +
                         defaultText;
        break;
    }
    case MemberPlan::Class:
        kind = member.polymorphic ? L"AbsCls" : L"Cls";
        arguments = L", etElement";
        if (cardinality == MemberPlan::Repeated) break;
        if (member.polymorphic)
            arguments += L", " + TypeFactory(*member.type) +
                         (plan.compositor == egAll && cardinality == MemberPlan::Mandatory ? L", 0" : L"");
        else
            arguments += L", CreateClass, " + ClassNumber(*member.type) +
                         (cardinality == MemberPlan::Mandatory ? L", false" : L"");
        break;
    case MemberPlan::Group:
        if (cardinality == MemberPlan::Repeated) break;
        kind = L"Cls";
        arguments =
            L", etGroup, CreateClass, " + ClassNumber(*member.type) +
            (cardinality == MemberPlan::Mandatory ? (member.emptiable ? L", false" : L", true") : L"");
        break;
    case MemberPlan::Wildcard:
        kind = L"Untpd";
        if (cardinality != MemberPlan::Repeated)
            arguments = L", " + Literal(member.rule) + L", " + NamespaceOf(member.ruleTarget);
        break;
    case MemberPlan::AnyAttribute:
        break;
    }
    return L"new CElementInfo" + group + kind + suffix + L"(" + head + arguments + L")";
}

std::wstring CEmitter::AttributeDescriptor(const ClassPlan&, const MemberPlan& member) const {
    const std::wstring head =
        Literal(member.xmlName) + L", " + NamespaceOf(member.xmlNamespace) + L", " + Property(member);
    if (member.kind == MemberPlan::AnyAttribute)
        return L"new CAttributeInfoAny(L\"AnyAttribute\", L\"\", " + Property(member) + L", true, L\"\", " +
               Literal(member.rule) + L", " + NamespaceOf(member.ruleTarget) + L")";
    const ValuePlan& value = *member.value;
    const std::wstring optional = member.required ? L"false" : L"true";
    const std::wstring defaultText = member.defaultValue ? Literal(*member.defaultValue) : L"L\"\"";
    if (value.kind == ValuePlan::Enum)
        return L"new CAttributeInfoEnum(" + head + L", " + optional + L", " + value.enumeration->name +
               L"ToText, " + value.enumeration->name + L"FromText, " + defaultText + L")";
    return L"new CAttributeInfoPrimitive(" + head + L", " + optional + L", " +
           ItemTypeName(value.kind == ValuePlan::Text ? itString : value.itemType) + L", L\"\", " +
           WhitespaceName(value.whitespace) + L", " + FacetsOf(value) + L", " + defaultText + L")";
}

std::wstring CEmitter::MetaData(const ClassPlan& plan) const {
    std::wstring contentProperty = L"-1", contentType = L"itNone", contentIsString = L"false";
    if (plan.content) {
        const ValuePlan& value = *plan.content->value;
        const bool typed = value.kind == ValuePlan::Primitive && value.itemType != itString;
        contentProperty = Property(*plan.content);
        contentType = typed ? ItemTypeName(value.itemType) : L"itString";
        contentIsString = typed ? L"false" : L"true";
    }
    std::wstring text =
        L"const CClassMetaData& " + plan.name + L"::MetaData() {\n    static const CClassMetaData data(\n";
    text += L"        new CParentElementInfo(eg" +
            std::wstring(plan.compositor == egChoice ? L"Choice"
                         : plan.compositor == egAll  ? L"All"
                                                     : L"Sequence") +
            L", " + (plan.group ? L"etGroup" : L"etElement") + L", " + Literal(plan.xmlType) + L", " +
            NamespaceOf(plan.xmlNamespace) + L", " + (plan.group ? L"false" : L"true") + L", " +
            (plan.derivedType ? L"true" : L"false") + L", " + contentProperty + L", " + contentType +
            L", L\"\", " + contentIsString + L"),\n";
    auto list = [&](const std::vector<MemberPlan*>& members, bool attributes) {
        if (members.empty()) return std::wstring(L"        {}");
        std::wstring items = L"        {\n";
        for (const MemberPlan* member : members)
            items += L"            " +
                     (attributes ? AttributeDescriptor(plan, *member) : ElementDescriptor(plan, *member)) +
                     L",\n";
        return items + L"        }";
    };
    text += list(plan.elements, false) + L",\n" + list(plan.attributes, true) + L");\n    return data;\n}\n";
    return text;
}

std::wstring CEmitter::AccessProperty(const ClassPlan& plan) const {
    std::wstring text =
        L"int " + plan.name + L"::AccessProperty(int propertyNumber, bool read, QxVariant& value) {\n";
    std::wstring cases;
    for (const MemberPlan* member : plan.members) {
        const std::wstring field = Field(*member);
        const std::wstring setter = L"&" + plan.name + L"::Set" + member->cppName;
        const std::wstring xmlName = Literal(member->xmlName.empty() ? plan.xmlType : member->xmlName);
        cases += L"    case " + Property(*member) + L":\n";
        if (member->cardinality == MemberPlan::Repeated || member->kind == MemberPlan::AnyAttribute) {
            cases += L"        return AccessCollection(read, value, " + field + L", " + xmlName + L");\n";
            continue;
        }
        if (member->kind != MemberPlan::Value) {
            cases += L"        return AccessObject(read, value, " + field + L", " + xmlName + L", this, " +
                     setter + L");\n";
            continue;
        }
        const ValuePlan& v = *member->value;
        if (member == plan.content && (v.kind != ValuePlan::Primitive || v.itemType == itString)) {
            // The content arrives as the element's text.
            const std::wstring text =
                L"CWhitespaceUtils::ApplyRule(" + WhitespaceName(v.whitespace) + L", value.GetString())";
            if (v.kind == ValuePlan::Enum)
                cases += L"        if (read)\n            value.SetString(" + v.enumeration->name +
                         L"ToText(" + field + L"));\n        else\n            Set" + member->cppName + L"(" +
                         v.enumeration->name + L"(" + v.enumeration->name + L"FromText(" + text +
                         L".c_str())));\n        return 0;\n";
            else
                cases += L"        if (read)\n            value.SetString(" + field +
                         L");\n        else\n            Set" + member->cppName + L"(" + text +
                         L");\n        return 0;\n";
            continue;
        }
        const std::wstring kind = v.kind == ValuePlan::Enum   ? L"itI4"
                                  : v.kind == ValuePlan::Text ? L"itString"
                                                              : ItemTypeName(v.itemType);
        std::wstring access = L"AccessValue<" + kind + L">(read, value, " + field +
                              (SetterOutOfLine(*member) ? L", this, " + setter : std::wstring()) + L")";
        if (member->nillable)
            access = L"read && " + NilFlag(*member) + L" ? PutNil<" + kind + L">(value) : " + access;
        cases += L"        return " + access + L";\n";
    }
    const std::wstring fallback =
        plan.base ? L"    return " + plan.base->name + L"::AccessProperty(propertyNumber, read, value);\n"
                  : L"    return UnknownProperty(propertyNumber);\n";
    std::wstring restriction;
    if (!plan.contentCheck.empty())
        restriction = L"    if (!read && propertyNumber == " + Property(*plan.content) + L") " +
                      plan.contentCheck + L"(" + Literal(plan.xmlType) + L", value.ToString());\n";
    if (cases.empty()) return text + restriction + fallback + L"}\n";
    return text + restriction + L"    switch (propertyNumber) {\n" + cases + L"    }\n" + fallback + L"}\n";
}

std::wstring CEmitter::ClassDefinition(const ClassPlan& plan) const {
    std::wstring text = L"\n" + Section(plan.group ? L"group " + plan.xmlType : plan.xmlType) + L"\n";
    text += plan.name + L"::" + plan.name + L"(const wchar_t* elementName)";
    std::vector<std::wstring> initializers;
    if (plan.base) initializers.push_back(L"TGeneratedClass(elementName)");
    for (const MemberPlan* member : plan.members)
        if (member->cardinality == MemberPlan::Repeated || member->kind == MemberPlan::AnyAttribute)
            initializers.push_back(Field(*member) + L"(" + NewCollection(*member) + L")");
    for (size_t i = 0; i < initializers.size(); ++i)
        text += (i ? L"\n    , " : L"\n    : ") + initializers[i];
    text += L" {\n";
    if (!plan.base) text += L"    SetElementName(elementName);\n";
    text += L"    Reset();\n}\n\n" + Reset(plan);
    for (const MemberPlan* member : plan.members)
        if (SetterOutOfLine(*member) && member->cardinality != MemberPlan::Repeated &&
            member->kind != MemberPlan::AnyAttribute)
            text += L"\n" + Setter(plan, *member);
    text += L"\n" + MetaData(plan) + L"\n" + AccessProperty(plan) + L"\n";
    // Reading leaves the member of a nil element as it was: its flag comes from the document.
    std::wstring nils;
    for (const MemberPlan* member : plan.members)
        if (member->nillable)
            nils += L"    " + NilFlag(*member) + L" = IsNilElement(firstChild, " + Literal(member->xmlName) +
                    L", " + NamespaceOf(member->xmlNamespace) + L");\n";
    if (plan.base)
        text += L"void " + plan.name + L"::OnBeforeFromXml(CXmlElement* element, CXmlElement* firstChild,\n" +
                L"                                const CSerializationContext& context, bool flag) {\n    " +
                plan.base->name + L"::OnBeforeFromXml(element, firstChild, context, flag);\n    Reset();\n" +
                nils + L"}\n";
    else
        text += L"void " + plan.name + L"::OnBeforeFromXml(CXmlElement*, CXmlElement*" +
                (nils.empty() ? L"" : L" firstChild") +
                L", const CSerializationContext&, bool) {\n    Reset();\n" + nils + L"}\n";
    return text;
}

std::wstring CEmitter::ValueDefinitions() const {
    std::wstring text;
    for (const EnumPlan* plan : m_model.enums) {
        text += L"\nnamespace {\nconst wchar_t* const k" + plan->name + L"Texts[] = " + Texts(plan->values) +
                L";\n}\n\n";
        text += L"const wchar_t* " + plan->name + L"ToText(int value) {\n    return EnumToText(k" +
                plan->name + L"Texts, value);\n}\n\n";
        text += L"int " + plan->name + L"FromText(const wchar_t* text) {\n    return EnumFromText(k" +
                plan->name + L"Texts, text, " + Literal(plan->xmlName) + L");\n}\n";
    }
    for (const ValuePlan* value : m_model.values) {
        if (!value->facetsName.empty()) {
            const Facets& f = *value->facets;
            text += L"\nconst CPrimitiveRestrictions& " + value->facetsName + L"() {\n";
            text += L"    static const CPrimitiveRestrictions facets(" + FacetArguments(f) +
                    L", pmExact);\n    return facets;\n}\n";
        }
        if (!value->checkName.empty()) {
            text += L"\n" + Comment(value->xmlName +
                                        (value->documentation.empty() ? L"" : L": " + value->documentation),
                                    L"");
            text += L"void " + value->checkName + L"(const wchar_t* name, const std::wstring& text) {\n";
            for (const std::wstring& statement : value->checkBody)
                text += L"    " + statement + L"\n";
            text += L"}\n";
        }
    }
    return text;
}

std::wstring CEmitter::Factories() const {
    std::wstring text =
        L"\nCSmartPtr<CXmlObjectBase> CreateClass(int classNumber, const wchar_t* elementName) {\n"
        L"    switch (classNumber) {\n";
    for (const ClassPlan* plan : m_model.classes)
        text +=
            L"    case " + ClassNumber(*plan) + L":\n        return new " + plan->name + L"(elementName);\n";
    text += L"    }\n    return nullptr;\n}\n";
    for (const ClassPlan* plan : m_model.classes) {
        if (!plan->polymorphic) continue;
        text += L"\nCSmartPtr<CXmlObjectBase> " + TypeFactory(*plan) + L"(CXmlElement* element) {\n";
        text += L"    static const STypeEntry types[] = {\n";
        std::vector<const ClassPlan*> family{plan};
        family.insert(family.end(), plan->derived.begin(), plan->derived.end());
        for (const ClassPlan* type : family)
            text += L"        {" + NamespaceOf(type->xmlNamespace) + L", " + Literal(type->xmlType) + L", " +
                    (type->abstract ? std::wstring(L"nullptr") : L"&NewObject<" + type->name + L">") +
                    L"},\n";
        text += L"    };\n    return CreateByType(element, types);\n}\n";
    }
    text += L"\nconst CDocumentRoots& DocumentRoots() {\n    static const CDocumentRoots roots({\n";
    for (const RootPlan& root : m_model.roots)
        text += L"        {" + NamespaceOf(root.name.ns) + L", " + Literal(root.name.local) + L", " +
                (root.type->polymorphic ? L"&" + TypeFactory(*root.type)
                                        : L"&NewObjectFor<" + root.type->name + L">") +
                L"},\n";
    text += L"    });\n    return roots;\n}\n";
    text += L"\nCSmartPtr<CXmlObjectBase> LoadDocument(const wchar_t* fileName, const CSerializationContext& "
            L"context) {\n"
            L"    return DocumentRoots().Load(fileName, context);\n}\n";
    text += L"\nCSmartPtr<CXmlObjectBase> LoadDocument(const CBinaryData& document, const "
            L"CSerializationContext& context) {\n"
            L"    return DocumentRoots().Load(document, context);\n}\n";
    return text;
}

std::wstring CEmitter::Source(size_t file) const {
    const std::wstring& schema = m_model.files[file].schema;
    std::wstring text = L"// Generated by qxxsd: the classes of " +
                        schema.substr(schema.find_last_of(L"/\\") + 1) +
                        L" and the schemas it brings in.\n\n";
    text += L"#include \"" + m_options.includePrefix + m_options.filePrefix + L".h\"\n\n";
    text += L"using namespace QxXmlLib16Data;\n\n";
    for (const std::wstring& part : NamespaceParts(m_options.cppNamespace))
        text += L"namespace " + part + L" {\n";

    if (file == 0) text += ValueDefinitions() + Factories();
    for (const ClassPlan* plan : m_model.classes)
        if (static_cast<size_t>(plan->file) == file) text += ClassDefinition(*plan);
    text += L"\n";
    const std::vector<std::wstring> parts = NamespaceParts(m_options.cppNamespace);
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        text += L"} // namespace " + *part + L"\n";
    return text;
}

std::vector<std::pair<std::wstring, std::string>> CEmitter::Files() const {
    std::vector<std::pair<std::wstring, std::string>> files;
    files.emplace_back(m_options.filePrefix + L".h", Utf8(Header()));
    for (size_t i = 0; i < m_model.files.size(); ++i)
        files.emplace_back(m_options.filePrefix + m_model.files[i].suffix + L".cpp", Utf8(Source(i)));
    return files;
}

} // namespace Qxxsd
