#include "Plan.h"

#include "Builtins.h"
#include "CodeText.h"
#include "Names.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <algorithm>
#include <cwctype>
#include <functional>

namespace Qxxsd {

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;

namespace {

// What a chain of restrictions of an atomic built-in type amounts to.
struct Restricted {
    const Builtin* builtin = nullptr;
    Whitespace whitespace = Whitespace::Collapse;
    Facets facets;                          // the narrowest bounds, lengths and digits, and the enumeration
    std::vector<std::wstring> patternSteps; // each must match: one per step that has patterns
};

std::wstring StripTypeSuffix(const std::wstring& name) {
    for (const wchar_t* suffix : {L"_Type", L"Type", L"_type"}) {
        const size_t length = std::wcslen(suffix);
        if (name.size() > length && name.compare(name.size() - length, length, suffix) == 0)
            return name.substr(0, name.size() - length);
    }
    return name;
}

std::wstring JoinPatterns(const std::vector<std::wstring>& patterns) {
    if (patterns.size() == 1) return patterns.front();
    std::wstring joined;
    for (const std::wstring& pattern : patterns)
        joined += (joined.empty() ? L"(" : L"|(") + pattern + L")";
    return joined;
}

bool Emptiable(const Particle* particle) {
    if (particle->minOccurs == 0 || particle->kind == Particle::AnyKind) return particle->minOccurs == 0;
    if (particle->kind == Particle::ElementKind) return false;
    const ModelGroup* group = particle->group;
    if (group->particles.empty()) return true;
    if (group->compositor == ModelGroup::Choice)
        return std::any_of(group->particles.begin(), group->particles.end(), Emptiable);
    return std::all_of(group->particles.begin(), group->particles.end(), Emptiable);
}

// Members whose Get and Set would hide operations of the generated class's bases.
const wchar_t* kMemberReserved[] = {L"Base",      L"Namespace",        L"TargetNamespace",    L"ElementName",
                                    L"ClassInfo", L"ClassElementInfo", L"ClassAttributeInfo", L"Nil"};

} // namespace

struct CPlanner::Impl {
    Impl(const SchemaSet& schemas, CDiagnostics& warnings)
        : set(schemas)
        , diagnostics(warnings)
        , names(GlobalScope()) {}

    const SchemaSet& set;
    CDiagnostics& diagnostics;
    CodeModel model;
    CNameScope names;
    std::vector<std::unique_ptr<EnumPlan>> enums;
    std::vector<std::unique_ptr<ValuePlan>> values;
    std::vector<std::unique_ptr<ClassPlan>> classes;
    std::vector<std::unique_ptr<MemberPlan>> members;
    std::vector<std::unique_ptr<Facets>> facets;
    std::map<const SimpleType*, Restricted> restricted;
    std::map<const SimpleType*, ValuePlan*> valueOf;
    std::map<const ComplexType*, ClassPlan*> classOf;
    std::map<const NamedGroup*, ClassPlan*> groupClassOf;
    std::map<const Element*, ClassPlan*> substitutionClassOf;
    std::map<const Element*, ClassPlan*> valueRootOf;
    // Classes named but not yet planned, in the order they were named.
    std::vector<std::pair<ClassPlan*, const ComplexType*>> pending;
    std::map<ClassPlan*, CNameScope> memberScopes;
    std::map<ValuePlan*, std::wstring> textChecks;
    const ComplexType* anyType = nullptr;

    // ---- Simple types ---------------------------------------------------------------------------

    const Restricted& RestrictionOf(const SimpleType* type) {
        const auto known = restricted.find(type);
        if (known != restricted.end()) return known->second;
        Restricted result;
        if (type->builtin) {
            result.builtin = type->builtin;
            result.whitespace = type->builtin->whitespace;
            if (type->builtin->minInclusive) result.facets.minInclusive = type->builtin->minInclusive;
            if (type->builtin->maxInclusive) result.facets.maxInclusive = type->builtin->maxInclusive;
            for (const wchar_t* pattern : type->builtin->patterns)
                if (pattern) result.patternSteps.push_back(pattern);
        } else {
            result = RestrictionOf(type->base);
            const Facets& own = type->facets;
            Facets& merged = result.facets;
            for (auto field : {&Facets::length, &Facets::minLength, &Facets::maxLength, &Facets::totalDigits,
                               &Facets::fractionDigits})
                if (own.*field >= 0) merged.*field = own.*field;
            for (auto field :
                 {&Facets::minInclusive, &Facets::maxInclusive, &Facets::minExclusive, &Facets::maxExclusive})
                if (!(own.*field).empty()) merged.*field = own.*field;
            // A bound replaces its other form: minInclusive narrows a base's minExclusive away.
            if (!own.minInclusive.empty()) merged.minExclusive = own.minExclusive;
            if (!own.minExclusive.empty()) merged.minInclusive = own.minInclusive;
            if (!own.maxInclusive.empty()) merged.maxExclusive = own.maxExclusive;
            if (!own.maxExclusive.empty()) merged.maxInclusive = own.maxInclusive;
            if (!own.enumerations.empty()) merged.enumerations = own.enumerations;
            if (own.whitespace != Whitespace::Unspecified) result.whitespace = own.whitespace;
            if (!own.patterns.empty()) result.patternSteps.push_back(JoinPatterns(own.patterns));
            merged.where = own.where;
            CheckFacets(type, result);
        }
        return restricted[type] = result;
    }

    // Facet values that cannot be values of the type.
    void CheckFacets(const SimpleType* type, const Restricted& result) {
        const Facets& own = type->facets;
        const int item = result.builtin->itemType;
        const Location& where = own.where.line ? own.where : type->where;
        for (const std::wstring* bound :
             {&own.minInclusive, &own.maxInclusive, &own.minExclusive, &own.maxExclusive}) {
            if (bound->empty()) continue;
            try {
                QxVariant value;
                value.FromString(*bound, static_cast<ItemType>(item), CWhitespaceUtils::wsCollapse);
            } catch (const CQxException& e) {
                throw CSchemaError(where, L"the bound \"" + *bound + L"\" is not a value of " +
                                              TypeName(type) + L": " + e.GetMessage());
            }
        }
        const bool measured = item == itString || item == itHexBinary || item == itBase64Binary;
        if (!measured && (own.length >= 0 || own.minLength >= 0 || own.maxLength >= 0))
            throw CSchemaError(where, L"the length facets do not apply to " + TypeName(type));
        const bool digits = item == itDecimal || item == itInteger || (item >= itI1 && item <= itUi8);
        if (!digits && (own.totalDigits >= 0 || own.fractionDigits >= 0))
            throw CSchemaError(where, L"the digit facets do not apply to " + TypeName(type));
        if (result.facets.minLength >= 0 && result.facets.maxLength >= 0 &&
            result.facets.minLength > result.facets.maxLength)
            throw CSchemaError(where, L"minLength is greater than maxLength");
        if (result.facets.totalDigits >= 0 && result.facets.fractionDigits > result.facets.totalDigits)
            throw CSchemaError(where, L"fractionDigits is greater than totalDigits");
        if (!result.builtin->stringLike) {
            for (const std::wstring& value : own.enumerations) {
                try {
                    QxVariant parsed;
                    parsed.FromString(value, static_cast<ItemType>(item), CWhitespaceUtils::wsCollapse);
                } catch (const CQxException& e) {
                    throw CSchemaError(where, L"the enumeration value \"" + value + L"\" is not a value of " +
                                                  TypeName(type) + L": " + e.GetMessage());
                }
            }
        }
    }

    static std::wstring TypeName(const SimpleType* type) {
        if (!type->name.empty()) return type->name.local;
        return type->hint.empty() ? std::wstring(L"an anonymous type") : L"the type of " + type->hint;
    }

    ValuePlan* NewValue(ValuePlan::Kind kind, const SimpleType* type) {
        values.emplace_back(new ValuePlan);
        ValuePlan* plan = values.back().get();
        plan->kind = kind;
        plan->xmlName = TypeName(type);
        plan->documentation = type->documentation;
        return plan;
    }

    std::wstring BaseName(const SimpleType* type) {
        if (!type->name.empty()) return UpperCamel(StripTypeSuffix(type->name.local));
        return UpperCamel(type->hint.empty() ? std::wstring(L"Value") : type->hint);
    }

    ValuePlan* ValueOf(const SimpleType* type) {
        const auto known = valueOf.find(type);
        if (known != valueOf.end()) return known->second;
        ValuePlan* plan = nullptr;
        if (type->builtin && type->builtin->listOf) {
            plan = NewValue(ValuePlan::Text, type);
            valueOf[type] = plan;
            ListCheck(plan, type, type->facets, type);
        } else if (type->builtin) {
            plan = AtomicPlan(type);
        } else if (!type->base && type->variety == SimpleType::Union) {
            plan = NewValue(ValuePlan::Text, type);
            valueOf[type] = plan;
            UnionCheck(plan, type);
        } else if (!type->base && type->variety == SimpleType::List) {
            plan = NewValue(ValuePlan::Text, type);
            valueOf[type] = plan;
            ListCheck(plan, type, Facets(), type);
        } else if (!type->facets.Any()) {
            plan = ValueOf(type->base); // a new name for its base, nothing more
        } else if (type->variety != SimpleType::Atomic) {
            plan = NewValue(ValuePlan::Text, type);
            valueOf[type] = plan;
            RestrictedListOrUnion(plan, type);
        } else {
            plan = AtomicPlan(type);
        }
        valueOf[type] = plan;
        return plan;
    }

    ValuePlan* AtomicPlan(const SimpleType* type) {
        const Restricted& r = RestrictionOf(type);
        const int item = r.builtin->itemType;
        ValuePlan* plan;
        if (!r.facets.enumerations.empty() && r.builtin->stringLike) {
            plan = NewValue(ValuePlan::Enum, type);
            plan->itemType = itString;
            plan->enumeration = EnumOf(type, r.facets.enumerations);
        } else if (r.facets.enumerations.empty() &&
                   (r.patternSteps.empty() || (item == itString && r.patternSteps.size() == 1))) {
            plan = NewValue(ValuePlan::Primitive, type);
            plan->itemType = item;
            plan->facets = RecordOf(r, r.patternSteps.empty() ? std::wstring() : r.patternSteps.front());
        } else {
            plan = NewValue(ValuePlan::Text, type);
            plan->itemType = item;
            plan->facets = RecordOf(r, std::wstring());
        }
        plan->whitespace = r.whitespace;
        if (plan->facets) plan->facetsName = names.Claim(BaseName(type) + L"Facets");
        if (plan->kind == ValuePlan::Text) {
            plan->checkName = names.Claim(L"Check" + BaseName(type));
            for (const std::wstring& pattern : r.patternSteps)
                plan->checkBody.push_back(L"CheckPattern(name, text, " + Literal(pattern) + L", pmExact);");
            plan->checkBody.push_back(
                L"CheckValue(" + ItemTypeName(item) + L", name, text, " + WhitespaceName(r.whitespace) +
                L", " +
                (plan->facets ? plan->facetsName + L"()" : std::wstring(L"CPrimitiveRestrictions()")) +
                L");");
            if (!r.facets.enumerations.empty())
                plan->checkBody.push_back(L"CheckEnumeration(" + ItemTypeName(item) + L", name, text, " +
                                          WhitespaceName(r.whitespace) + L", " +
                                          Texts(r.facets.enumerations) + L");");
        }
        model.values.push_back(plan);
        return plan;
    }

    const Facets* RecordOf(const Restricted& r, const std::wstring& pattern) {
        const Facets& f = r.facets;
        if (pattern.empty() && f.length < 0 && f.minLength < 0 && f.maxLength < 0 && f.totalDigits < 0 &&
            f.fractionDigits < 0 && f.minInclusive.empty() && f.maxInclusive.empty() &&
            f.minExclusive.empty() && f.maxExclusive.empty())
            return nullptr;
        facets.emplace_back(new Facets(f));
        facets.back()->patterns =
            pattern.empty() ? std::vector<std::wstring>() : std::vector<std::wstring>{pattern};
        facets.back()->enumerations.clear();
        return facets.back().get();
    }

    // The name of a function that checks a text against the plan, made on first use.
    std::wstring TextCheck(ValuePlan* plan) {
        if (plan->kind == ValuePlan::Text) return plan->checkName;
        const auto known = textChecks.find(plan);
        if (known != textChecks.end()) return known->second;
        ValuePlan* check = NewCheckOnly(plan);
        return textChecks[plan] = check->checkName;
    }

    ValuePlan* NewCheckOnly(ValuePlan* plan) {
        values.emplace_back(new ValuePlan(*plan));
        ValuePlan* check = values.back().get();
        check->kind = ValuePlan::Text;
        check->facetsName.clear();
        check->facets = nullptr;
        check->documentation.clear();
        const std::wstring stem = plan->enumeration ? plan->enumeration->name : UpperCamel(plan->xmlName);
        check->checkName = names.Claim(L"Check" + stem);
        if (plan->kind == ValuePlan::Enum)
            check->checkBody = {L"CheckEnumeration(itString, name, text, " +
                                WhitespaceName(plan->whitespace) + L", " + Texts(plan->enumeration->values) +
                                L");"};
        else
            check->checkBody = {
                L"CheckValue(" + ItemTypeName(plan->itemType) + L", name, text, " +
                WhitespaceName(plan->whitespace) + L", " +
                (plan->facets ? plan->facetsName + L"()" : std::wstring(L"CPrimitiveRestrictions()")) +
                L");"};
        model.values.push_back(check);
        return check;
    }

    static std::wstring LengthArguments(const Facets& facets) {
        return std::to_wstring(facets.minLength) + L", " + std::to_wstring(facets.maxLength) + L", " +
               std::to_wstring(facets.length);
    }

    void ListCheck(ValuePlan* plan, const SimpleType* type, const Facets& own, const SimpleType* named) {
        const SimpleType* item = type->item;
        plan->itemType = itString;
        plan->whitespace = Whitespace::Collapse;
        plan->checkName = names.Claim(L"Check" + BaseName(named));
        const std::wstring itemCheck = TextCheck(ValueOf(item));
        if (!own.patterns.empty())
            plan->checkBody.push_back(L"CheckPattern(name, text, " + Literal(JoinPatterns(own.patterns)) +
                                      L", pmExact);");
        Facets lengths = type->facets;
        for (auto field : {&Facets::length, &Facets::minLength, &Facets::maxLength})
            if (own.*field >= 0) lengths.*field = own.*field;
        plan->checkBody.push_back(L"CheckList(name, text, " + LengthArguments(lengths) + L", " + itemCheck +
                                  L");");
        if (!own.enumerations.empty())
            plan->checkBody.push_back(
                L"CheckEnumeration(itString, name, text, CWhitespaceUtils::wsCollapse, " +
                Texts(own.enumerations) + L");");
        model.values.push_back(plan);
    }

    void UnionCheck(ValuePlan* plan, const SimpleType* type) {
        plan->itemType = itString;
        plan->whitespace = Whitespace::Collapse;
        std::vector<std::wstring> checks;
        for (const SimpleType* member : type->members)
            checks.push_back(TextCheck(ValueOf(member)));
        // A union of one kind binds as that kind's text; of several, as text every member may take.
        bool preserve = true;
        for (const SimpleType* member : type->members)
            preserve = preserve && ValueOf(member)->whitespace == Whitespace::Preserve;
        if (preserve) plan->whitespace = Whitespace::Preserve;
        plan->checkName = names.Claim(L"Check" + BaseName(type));
        std::wstring list;
        for (const std::wstring& check : checks)
            list += (list.empty() ? L"" : L", ") + check;
        plan->checkBody.push_back(L"CheckUnion(name, text, {" + list + L"});");
        model.values.push_back(plan);
    }

    void RestrictedListOrUnion(ValuePlan* plan, const SimpleType* type) {
        // The base's check and this step's facets, on the whole text.
        const SimpleType* base = type->base;
        while (base && !base->facets.Any() && base->base)
            base = base->base;
        if (type->variety == SimpleType::List) {
            const SimpleType* list = type->base;
            while (list->base)
                list = list->base;
            ListCheck(plan, list, type->facets, type);
            return;
        }
        plan->itemType = itString;
        plan->whitespace = Whitespace::Collapse;
        plan->checkName = names.Claim(L"Check" + BaseName(type));
        if (!type->facets.patterns.empty())
            plan->checkBody.push_back(L"CheckPattern(name, text, " +
                                      Literal(JoinPatterns(type->facets.patterns)) + L", pmExact);");
        plan->checkBody.push_back(TextCheck(ValueOf(type->base)) + L"(name, text);");
        if (!type->facets.enumerations.empty())
            plan->checkBody.push_back(
                L"CheckEnumeration(itString, name, text, CWhitespaceUtils::wsCollapse, " +
                Texts(type->facets.enumerations) + L");");
        model.values.push_back(plan);
    }

    EnumPlan* EnumOf(const SimpleType* type, const std::vector<std::wstring>& texts) {
        enums.emplace_back(new EnumPlan);
        EnumPlan* plan = enums.back().get();
        plan->name = names.Claim(BaseName(type), {L"", L"ToText", L"FromText", L"Col", L"Texts"});
        plan->xmlName = TypeName(type);
        plan->documentation = type->documentation;
        CNameScope enumerators;
        for (const std::wstring& text : texts) {
            if (std::find(plan->values.begin(), plan->values.end(), text) != plan->values.end()) continue;
            std::wstring stem;
            for (wchar_t c : text) {
                if (c < 128 && (iswalnum(c) || c == L'_'))
                    stem += c;
                else if (c >= 128)
                    stem += FormatString(L"_x%04X", static_cast<unsigned>(c));
                else
                    stem += L'_';
            }
            if (stem.empty()) stem = L"Empty";
            plan->values.push_back(text);
            plan->enumerators.push_back(plan->name + L"_" + enumerators.Claim(stem));
        }
        model.enums.push_back(plan);
        return plan;
    }

    // ---- Complex types --------------------------------------------------------------------------

    ClassPlan* NewClass(const std::wstring& stem, const Component& source) {
        classes.emplace_back(new ClassPlan);
        ClassPlan* plan = classes.back().get();
        plan->name = names.Claim(L"C" + stem, {L"", L"Col"});
        plan->documentation = source.documentation;
        plan->where = source.where;
        plan->xmlNamespace = source.targetNamespace;
        memberScopes.emplace(plan, CNameScope());
        for (const wchar_t* reserved : kMemberReserved)
            memberScopes[plan].Reserve(reserved);
        return plan;
    }

    // The class of a complex type; members are planned once every class is named.
    ClassPlan* ClassOf(const ComplexType* type, const std::wstring& owner = std::wstring()) {
        const auto known = classOf.find(type);
        if (known != classOf.end()) return known->second;
        std::wstring stem =
            type->name.empty() ? UpperCamel(type->hint) : UpperCamel(StripTypeSuffix(type->name.local));
        if (type->name.empty() && !owner.empty() &&
            (names.IsUsed(L"C" + stem) || names.IsUsed(L"C" + stem + L"Col")))
            stem = owner + stem;
        ClassPlan* plan = NewClass(stem, *type);
        plan->xmlType = type->name.empty() ? type->hint : type->name.local;
        plan->elementName = plan->xmlType;
        plan->abstract = type->abstract;
        plan->polymorphic = !type->derived.empty();
        classOf[type] = plan;
        pending.emplace_back(plan, type);
        return plan;
    }

    MemberPlan* NewMember(ClassPlan* owner, MemberPlan::Kind kind, const std::wstring& xmlName,
                          const std::wstring& xmlNamespace) {
        members.emplace_back(new MemberPlan);
        MemberPlan* member = members.back().get();
        member->kind = kind;
        member->xmlName = xmlName;
        member->xmlNamespace = xmlNamespace;
        owner->members.push_back(member);
        return member;
    }

    void Fill(ClassPlan* plan) {
        const auto found = std::find_if(
            pending.begin(), pending.end(),
            [&](const std::pair<ClassPlan*, const ComplexType*>& entry) { return entry.first == plan; });
        if (found == pending.end()) return;
        const ComplexType* type = found->second;
        pending.erase(found);
        const ComplexType* base = type->baseComplex == anyType ? nullptr : type->baseComplex;
        if (base) {
            ClassPlan* baseClass = ClassOf(base);
            Fill(baseClass);
            plan->base = baseClass;
            plan->derivedType = true;
            plan->lastProperty = baseClass->lastProperty;
            plan->compositor = baseClass->compositor;
            plan->elements = baseClass->elements;
            plan->attributes = baseClass->attributes;
            plan->content = baseClass->content;
            plan->nillable = plan->nillable || baseClass->nillable;
            memberScopes[plan] = memberScopes[baseClass];
        }
        if (type->simpleContent)
            PlanSimpleContent(plan, type);
        else
            PlanComplexContent(plan, type, base);
        PlanAttributes(plan, type, base);
        Number(plan);
    }

    void PlanSimpleContent(ClassPlan* plan, const ComplexType* type) {
        const ComplexType* base = type->baseComplex;
        if (type->derivation == ComplexType::Extension && type->baseSimple) {
            MemberPlan* content = NewMember(plan, MemberPlan::Value, std::wstring(), std::wstring());
            content->value = ValueOf(type->baseSimple);
            plan->content = content;
            return;
        }
        if (!plan->content) {
            if (base == anyType || !base)
                throw CSchemaError(type->where, L"simple content needs a base type with simple content");
            throw CSchemaError(type->where,
                               L"the base type " + base->name.Text() + L" has no simple content");
        }
        if (type->derivation == ComplexType::Restriction && type->contentRestriction) {
            SimpleType* step = type->contentRestriction;
            if (!step->base) step->base = ContentType(base);
            if (step->facets.Any() || step->base != ContentType(base))
                plan->contentCheck = TextCheck(ValueOf(step));
        }
    }

    // The simple type of a simple-content complex type, through its chain of derivations.
    SimpleType* ContentType(const ComplexType* type) {
        for (; type; type = type->baseComplex) {
            if (type->contentRestriction && type->contentRestriction->base) return type->contentRestriction;
            if (type->baseSimple) return type->baseSimple;
        }
        return nullptr;
    }

    void PlanComplexContent(ClassPlan* plan, const ComplexType* type, const ComplexType* base) {
        const Particle* particle = type->particle;
        if (particle && particle->kind == Particle::GroupKind && particle->group->particles.empty() &&
            !particle->namedGroup)
            particle = nullptr;
        const bool hasElements = particle != nullptr;
        if (type->mixed && !base && !hasElements) {
            // Text only: the element's content is one string.
            MemberPlan* content = NewMember(plan, MemberPlan::Value, std::wstring(), std::wstring());
            content->value = ValueOf(set.simpleTypes.at({kXsdNamespace, L"string"}));
            plan->content = content;
            return;
        }
        if (type->mixed && hasElements)
            diagnostics.Warn(type->where,
                             L"mixed content: the text between the child elements of " +
                                 (type->name.empty() ? type->hint : type->name.local) +
                                 L" is not kept; the generated class reads and writes its elements only");
        if (type->derivation == ComplexType::Restriction && base) {
            RestrictContent(plan, type, particle);
            return;
        }
        if (!particle) return;
        if (base && !plan->elements.empty()) {
            // An extension appends its content to the base's, as one sequence.
            if (plan->compositor != egSequence)
                throw CSchemaError(type->where,
                                   L"the extension of " + base->name.Text() +
                                       L" adds elements to a choice or all group, which the generated "
                                       L"classes cannot represent");
            AddParticle(plan, particle, egSequence);
            return;
        }
        const ModelGroup* group = particle->group;
        if (particle->kind == Particle::GroupKind && particle->minOccurs == 1 && particle->maxOccurs == 1) {
            plan->compositor = Compositor(group);
            for (const Particle* part : group->particles)
                AddParticle(plan, part, plan->compositor);
        } else {
            plan->compositor = egSequence;
            AddParticle(plan, particle, egSequence);
        }
    }

    // The restriction keeps the base's members that it names again, in its own model.
    void RestrictContent(ClassPlan* plan, const ComplexType* type, const Particle* particle) {
        std::vector<MemberPlan*> inherited = plan->elements;
        plan->elements.clear();
        if (!particle) return;
        const ModelGroup* group = particle->group;
        bool flat = particle->kind == Particle::GroupKind && particle->maxOccurs == 1;
        for (const Particle* part : group->particles)
            flat = flat && (part->kind != Particle::GroupKind);
        if (!flat) {
            plan->elements = inherited;
            diagnostics.Warn(type->where, L"the restriction of " + type->baseName.Text() +
                                              L" nests model groups: its content is checked as its base's");
            return;
        }
        plan->compositor = Compositor(group);
        for (const Particle* part : group->particles) {
            MemberPlan* match = nullptr;
            for (MemberPlan* member : inherited) {
                const bool wildcard = part->kind == Particle::AnyKind && member->kind == MemberPlan::Wildcard;
                const bool element = part->kind == Particle::ElementKind &&
                                     part->element->name.local == member->xmlName &&
                                     part->element->name.ns == member->xmlNamespace;
                if (wildcard || element) match = member;
            }
            if (!match)
                throw CSchemaError(part->where, L"the restriction of " + type->baseName.Text() +
                                                    L" has a member its base does not have");
            plan->elements.push_back(match);
        }
    }

    static int Compositor(const ModelGroup* group) {
        return group->compositor == ModelGroup::Sequence ? egSequence
               : group->compositor == ModelGroup::Choice ? egChoice
                                                         : egAll;
    }

    static MemberPlan::Cardinality CardinalityOf(const Particle* particle, int compositor) {
        if (particle->maxOccurs != 1) return MemberPlan::Repeated;
        if (particle->minOccurs == 0 || compositor == egChoice) return MemberPlan::Optional;
        return MemberPlan::Mandatory;
    }

    void AddParticle(ClassPlan* plan, const Particle* particle, int compositor) {
        if (particle->maxOccurs == 0) return; // never present
        MemberPlan* member = nullptr;
        switch (particle->kind) {
        case Particle::ElementKind:
            member = ElementMember(plan, particle);
            break;
        case Particle::AnyKind:
            member = NewMember(plan, MemberPlan::Wildcard, L"AnyElement", plan->xmlNamespace);
            member->rule = particle->any.rule;
            member->ruleTarget = particle->any.targetNamespace;
            member->cppName = memberScopes[plan].Claim(L"Any");
            member->documentation = particle->any.documentation;
            if (particle->any.processContents == L"strict")
                diagnostics.Warn(particle->where,
                                 L"the wildcard's processContents=\"strict\" is not enforced: the "
                                 L"generated code keeps the elements it admits without validating them");
            break;
        case Particle::GroupKind: {
            const ModelGroup* group = particle->group;
            if (group->particles.empty()) return;
            const bool sameKind = Compositor(group) == compositor && compositor != egAll;
            if (!particle->namedGroup && sameKind && particle->minOccurs == 1 && particle->maxOccurs == 1) {
                for (const Particle* part : group->particles)
                    AddParticle(plan, part, compositor);
                return;
            }
            ClassPlan* groupClass =
                particle->namedGroup ? NamedGroupClass(particle->namedGroup) : InlineGroupClass(plan, group);
            member = NewMember(plan, MemberPlan::Group, groupClass->xmlType, plan->xmlNamespace);
            member->type = groupClass;
            // A named group's member takes its name; an anonymous one is the class's Choice, Sequence or All.
            member->cppName = memberScopes[plan].Claim(
                particle->namedGroup ? groupClass->name.substr(1)
                                     : std::wstring(group->compositor == ModelGroup::Sequence ? L"Sequence"
                                                    : group->compositor == ModelGroup::Choice ? L"Choice"
                                                                                              : L"All"));
            member->emptiable = Emptiable(particle) || [&] {
                Particle once = *particle;
                once.minOccurs = 1;
                return Emptiable(&once);
            }();
            member->documentation =
                particle->documentation.empty() ? group->documentation : particle->documentation;
            break;
        }
        }
        member->cardinality = CardinalityOf(particle, compositor);
        member->minOccurs = particle->minOccurs;
        member->maxOccurs = particle->maxOccurs;
        plan->elements.push_back(member);
    }

    MemberPlan* ElementMember(ClassPlan* plan, const Particle* particle) {
        const Element* element = particle->element;
        std::vector<const Element*> substitutes;
        for (const Element* substitute : element->substitutes)
            if (!substitute->abstract) substitutes.push_back(substitute);
        if (!substitutes.empty()) {
            ClassPlan* groupClass = SubstitutionClass(element, substitutes);
            MemberPlan* member = NewMember(plan, MemberPlan::Group, groupClass->xmlType, element->name.ns);
            member->type = groupClass;
            member->cppName = memberScopes[plan].Claim(UpperCamel(element->name.local));
            member->documentation = element->documentation;
            return member;
        }
        if (element->abstract)
            diagnostics.Warn(particle->where, L"the abstract element " + element->name.Text() +
                                                  L" has no substitutes: the member can never be read");
        MemberPlan* member = TypedMember(plan, element);
        member->cppName = memberScopes[plan].Claim(UpperCamel(element->name.local));
        if (!particle->documentation.empty()) member->documentation = particle->documentation;
        return member;
    }

    MemberPlan* TypedMember(ClassPlan* plan, const Element* element) {
        MemberPlan* member;
        if (element->type.complex == anyType) {
            member = NewMember(plan, MemberPlan::Wildcard, element->name.local, element->name.ns);
            // The element's own namespace, as the rule whose default namespace it is.
            member->rule = element->name.ns.empty() ? L"##local" : L"##targetNamespace";
            member->ruleTarget = element->name.ns;
        } else if (element->type.complex) {
            member = NewMember(plan, MemberPlan::Class, element->name.local, element->name.ns);
            member->type = ClassOf(element->type.complex, plan->name.substr(1));
            member->polymorphic = !element->type.complex->derived.empty();
            if (element->nillable) member->type->nillable = true;
        } else {
            member = NewMember(plan, MemberPlan::Value, element->name.local, element->name.ns);
            member->value = ValueOf(element->type.simple);
            member->nillable = element->nillable;
            if (element->fixedValue) {
                member->defaultValue = element->fixedValue;
                member->fixed = true;
            } else {
                member->defaultValue = element->defaultValue;
            }
            if (member->defaultValue) CheckDefault(member, element->where);
        }
        if (element->type.complex && (element->defaultValue || element->fixedValue))
            diagnostics.Warn(element->where, L"the default or fixed value of " + element->name.Text() +
                                                 L", an element of complex type, is not applied");
        // Without a word of its own, an element of a documented simple type says what its type says.
        member->documentation = element->documentation;
        if (member->documentation.empty() && member->value)
            member->documentation = member->value->documentation;
        return member;
    }

    // A default or fixed value must be a value of the member's type.
    void CheckDefault(const MemberPlan* member, const Location& where,
                      const std::wstring& owner = std::wstring()) {
        const std::wstring& name = member->xmlName.empty() ? owner : member->xmlName;
        const ValuePlan* value = member->value;
        const std::wstring& text = *member->defaultValue;
        try {
            if (value->kind == ValuePlan::Enum) {
                const std::wstring collapsed = CWhitespaceUtils::Collapse(text);
                const auto& values = value->enumeration->values;
                if (std::find(values.begin(), values.end(), collapsed) == values.end())
                    throw CQxException(L"it is not one of the enumeration's values");
            } else if (value->kind == ValuePlan::Primitive) {
                QxVariant parsed;
                parsed.FromString(text, static_cast<ItemType>(value->itemType), Rule(value->whitespace));
                if (value->facets)
                    CXmlObjectHelper::CheckRestriction(member->xmlName.c_str(), parsed,
                                                       static_cast<ItemType>(value->itemType),
                                                       Record(*value->facets));
            }
        } catch (const CQxException& e) {
            throw CSchemaError(where, L"the " + std::wstring(member->fixed ? L"fixed" : L"default") +
                                          L" value \"" + text + L"\" of " + name + L" is not valid: " +
                                          e.GetMessage());
        }
    }

    static CPrimitiveRestrictions Record(const Facets& f) {
        return CPrimitiveRestrictions(f.patterns.empty() ? std::wstring() : f.patterns.front(), f.minLength,
                                      f.maxLength, f.minInclusive, f.maxInclusive, f.minExclusive,
                                      f.maxExclusive, f.length, f.totalDigits, f.fractionDigits, pmExact);
    }

    ClassPlan* NamedGroupClass(const NamedGroup* group) {
        const auto known = groupClassOf.find(group);
        if (known != groupClassOf.end()) return known->second;
        ClassPlan* plan = NewClass(UpperCamel(group->name.local), *group);
        plan->group = true;
        plan->xmlType = plan->elementName = group->name.local;
        plan->compositor = Compositor(group->model);
        groupClassOf[group] = plan;
        for (const Particle* part : group->model->particles)
            AddParticle(plan, part, plan->compositor);
        Number(plan);
        return plan;
    }

    ClassPlan* InlineGroupClass(ClassPlan* owner, const ModelGroup* group) {
        const wchar_t* kind = group->compositor == ModelGroup::Sequence ? L"Sequence"
                              : group->compositor == ModelGroup::Choice ? L"Choice"
                                                                        : L"All";
        ClassPlan* plan = NewClass(owner->name.substr(1) + kind, *group);
        plan->group = true;
        plan->xmlType = plan->elementName = plan->name.substr(1);
        plan->xmlNamespace = owner->xmlNamespace;
        plan->compositor = Compositor(group);
        for (const Particle* part : group->particles)
            AddParticle(plan, part, plan->compositor);
        Number(plan);
        return plan;
    }

    // The elements that may stand for a substitution group's head, as one choice.
    ClassPlan* SubstitutionClass(const Element* head, const std::vector<const Element*>& substitutes) {
        const auto known = substitutionClassOf.find(head);
        if (known != substitutionClassOf.end()) return known->second;
        ClassPlan* plan = NewClass(UpperCamel(head->name.local) + L"Substitutes", *head);
        plan->group = true;
        plan->xmlType = plan->elementName = plan->name.substr(1);
        plan->xmlNamespace = head->name.ns;
        plan->compositor = egChoice;
        plan->documentation = L"The elements that may stand where " + head->name.local + L" is expected.";
        substitutionClassOf[head] = plan;
        std::vector<const Element*> choices;
        if (!head->abstract) choices.push_back(head);
        choices.insert(choices.end(), substitutes.begin(), substitutes.end());
        for (const Element* element : choices) {
            MemberPlan* member = TypedMember(plan, element);
            member->cppName = memberScopes[plan].Claim(UpperCamel(element->name.local));
            member->cardinality = MemberPlan::Optional;
            plan->elements.push_back(member);
        }
        Number(plan);
        return plan;
    }

    void AddAttributeUses(std::vector<const AttributeUse*>& uses, std::optional<Wildcard>& any,
                          const AttributeSet& attributes, std::set<const AttributeGroup*>& seen) {
        for (const AttributeUse* use : attributes.uses)
            uses.push_back(use);
        for (const auto& ref : attributes.groupRefs) {
            const AttributeGroup* group = set.attributeGroups.at(ref.first);
            if (!seen.insert(group).second) continue;
            AddAttributeUses(uses, any, group->attributes, seen);
        }
        if (attributes.anyAttribute) {
            if (!any)
                any = attributes.anyAttribute;
            else if (any->rule != attributes.anyAttribute->rule)
                any->rule = any->rule + L" " + attributes.anyAttribute->rule;
        }
    }

    void PlanAttributes(ClassPlan* plan, const ComplexType* type, const ComplexType* base) {
        std::vector<const AttributeUse*> uses;
        std::optional<Wildcard> any;
        std::set<const AttributeGroup*> seen;
        AddAttributeUses(uses, any, type->attributes, seen);
        std::vector<MemberPlan*> own;
        for (const AttributeUse* use : uses) {
            const Attribute* attribute = use->attribute;
            auto inherited =
                std::find_if(plan->attributes.begin(), plan->attributes.end(), [&](MemberPlan* m) {
                    return m->kind != MemberPlan::AnyAttribute && m->xmlName == attribute->name.local &&
                           m->xmlNamespace == attribute->name.ns;
                });
            if (use->use == AttributeUse::Prohibited) {
                if (inherited != plan->attributes.end()) plan->attributes.erase(inherited);
                continue;
            }
            if (inherited != plan->attributes.end()) {
                if (type->derivation == ComplexType::Extension)
                    throw CSchemaError(use->where, L"the attribute " + attribute->name.Text() +
                                                       L" is already declared by the base type");
                continue; // a restriction keeps the base's member
            }
            MemberPlan* member =
                NewMember(plan, MemberPlan::Value, attribute->name.local, attribute->name.ns);
            member->attribute = true;
            member->value = ValueOf(attribute->type.simple);
            member->required = use->use == AttributeUse::Required;
            member->cardinality = member->required ? MemberPlan::Mandatory : MemberPlan::Optional;
            member->documentation =
                use->documentation.empty() ? attribute->documentation : use->documentation;
            if (member->documentation.empty()) member->documentation = member->value->documentation;
            const auto& fixed = use->fixedValue ? use->fixedValue : attribute->fixedValue;
            const auto& defaultValue = use->defaultValue ? use->defaultValue : attribute->defaultValue;
            member->fixed = fixed.has_value();
            member->defaultValue = fixed ? fixed : defaultValue;
            if (member->defaultValue) {
                CheckDefault(member, use->where);
                member->cardinality = MemberPlan::Mandatory; // absent means the default
            }
            for (const MemberPlan* other : own)
                if (other->xmlName == member->xmlName && other->xmlNamespace == member->xmlNamespace)
                    throw CSchemaError(use->where,
                                       L"the attribute " + attribute->name.Text() + L" is declared twice");
            own.push_back(member);
        }
        if (base && type->derivation == ComplexType::Restriction && !any) {
            plan->attributes.erase(
                std::remove_if(plan->attributes.begin(), plan->attributes.end(),
                               [](MemberPlan* m) { return m->kind == MemberPlan::AnyAttribute; }),
                plan->attributes.end());
        }
        for (MemberPlan* member : own) {
            std::wstring stem = UpperCamel(member->xmlName);
            if (memberScopes[plan].IsUsed(stem)) stem += L"Attribute";
            member->cppName = memberScopes[plan].Claim(stem);
            plan->attributes.push_back(member);
        }
        const bool inheritsAny =
            std::any_of(plan->attributes.begin(), plan->attributes.end(),
                        [](MemberPlan* m) { return m->kind == MemberPlan::AnyAttribute; });
        if (any && !inheritsAny) {
            MemberPlan* member = NewMember(plan, MemberPlan::AnyAttribute, L"AnyAttribute", std::wstring());
            member->attribute = true;
            member->rule = any->rule;
            member->ruleTarget = any->targetNamespace;
            member->cardinality = MemberPlan::Optional;
            member->cppName = memberScopes[plan].Claim(L"AnyAttribute");
            plan->attributes.push_back(member);
        }
        if (plan->content && !plan->content->property && plan->content->cppName.empty())
            plan->content->cppName = memberScopes[plan].Claim(L"Value");
    }

    // Property numbers continue after the base's: attributes, elements, then simple content.
    void Number(ClassPlan* plan) {
        int next = plan->lastProperty;
        for (MemberPlan* member : plan->members)
            if (member->attribute) member->property = ++next;
        for (MemberPlan* member : plan->members)
            if (!member->attribute && member != plan->content) member->property = ++next;
        if (plan->content && !plan->content->property) plan->content->property = ++next;
        plan->lastProperty = next;
        std::stable_sort(plan->members.begin(), plan->members.end(),
                         [](const MemberPlan* a, const MemberPlan* b) { return a->property < b->property; });
        if (plan->compositor == egChoice) {
            std::vector<MemberPlan*> single;
            for (MemberPlan* member : plan->elements)
                if (member->cardinality != MemberPlan::Repeated) single.push_back(member);
            for (MemberPlan* member : single)
                for (MemberPlan* other : single)
                    if (other != member) member->choiceSiblings.push_back(other);
        }
    }

    // ---- The whole set --------------------------------------------------------------------------

    ClassPlan* ValueRootClass(const Element* element) {
        ClassPlan* plan = NewClass(UpperCamel(element->name.local), *element);
        plan->xmlType = plan->elementName = element->name.local;
        plan->xmlNamespace = element->name.ns;
        MemberPlan* content = NewMember(plan, MemberPlan::Value, std::wstring(), std::wstring());
        content->value = ValueOf(element->type.simple);
        content->cppName = L"Value";
        if (element->fixedValue) {
            content->defaultValue = element->fixedValue;
            content->fixed = true;
        } else {
            content->defaultValue = element->defaultValue;
        }
        if (content->defaultValue) CheckDefault(content, element->where, element->name.local);
        plan->content = content;
        plan->nillable = element->nillable;
        Number(plan);
        return plan;
    }

    CodeModel& Plan(const std::vector<std::wstring>& schemaFiles) {
        model.schemaFiles = schemaFiles;
        anyType = set.complexTypes.at({kXsdNamespace, L"anyType"});
        // A type with one global element takes that element's name as its default.
        std::map<const ComplexType*, int> uses;
        for (const Element* element : set.elementOrder)
            if (element->type.complex) ++uses[element->type.complex];
        NameNamespaces();
        for (const ComplexType* type : set.complexTypeOrder)
            ClassOf(type);
        // Every named simple type is checked and bound, used or not.
        for (const SimpleType* type : set.simpleTypeOrder)
            if (!type->name.empty()) ValueOf(type);
        for (const Element* element : set.elementOrder) {
            if (element->abstract || element->type.complex == anyType) continue;
            ClassPlan* root =
                element->type.complex ? ClassOf(element->type.complex) : ValueRootClass(element);
            if (element->type.complex && element->nillable) root->nillable = true;
            model.roots.push_back({element->name, root});
        }
        while (!pending.empty())
            Fill(pending.front().first);
        for (const Element* element : set.elementOrder)
            if (element->type.complex && element->type.complex != anyType &&
                uses[element->type.complex] == 1 && !element->type.complex->name.empty())
                classOf[element->type.complex]->elementName = element->name.local;
        Order();
        return model;
    }

    void NameNamespaces() {
        std::vector<std::wstring> namespaces;
        for (const auto& document : set.documents)
            if (std::find(namespaces.begin(), namespaces.end(), document->targetNamespace) ==
                namespaces.end())
                namespaces.push_back(document->targetNamespace);
        for (size_t i = 0; i < namespaces.size(); ++i) {
            std::wstring file;
            for (const auto& document : set.documents)
                if (document->targetNamespace == namespaces[i]) {
                    file = document->file;
                    break;
                }
            const std::wstring constant = i == 0 ? std::wstring(L"kNamespace")
                                                 : names.Claim(L"kNamespace" + UpperCamel(FileStem(file)));
            model.namespaceConstants.emplace_back(constant, namespaces[i]);
            model.namespaceConstant[namespaces[i]] = constant;
        }
        std::set<std::wstring> suffixes;
        for (size_t i = 0; i < model.schemaFiles.size(); ++i) {
            const std::wstring suffix = i == 0 ? std::wstring() : L"-" + FileStem(model.schemaFiles[i]);
            if (!suffixes.insert(suffix).second)
                throw CSchemaError({model.schemaFiles[i], 0},
                                   L"two schemas named on the command line have the file name " +
                                       FileStem(model.schemaFiles[i]) +
                                       L"; their sources would have the same name");
            model.files.push_back({model.schemaFiles[i], suffix});
        }
    }

    // The file name without its folder and last extension.
    static std::wstring FileStem(const std::wstring& file) {
        const size_t slash = file.find_last_of(L"/\\");
        std::wstring stem = file.substr(slash == std::wstring::npos ? 0 : slash + 1);
        const size_t dot = stem.rfind(L'.');
        return dot == std::wstring::npos || dot == 0 ? stem : stem.substr(0, dot);
    }

    // Classes in the order they were named, each base before the classes derived from it.
    void Order() {
        std::set<ClassPlan*> placed;
        std::function<void(ClassPlan*)> place = [&](ClassPlan* plan) {
            if (placed.count(plan)) return;
            if (plan->base) place(plan->base);
            placed.insert(plan);
            model.classes.push_back(plan);
        };
        for (const auto& plan : classes)
            place(plan.get());
        for (ClassPlan* plan : model.classes)
            for (ClassPlan* base = plan->base; base; base = base->base)
                base->derived.push_back(plan);
        for (ClassPlan* plan : model.classes) {
            if (plan->polymorphic) plan->factoryName = names.Claim(L"Create" + plan->name.substr(1));
            for (const auto& document : set.documents)
                if (document->file == plan->where.file) {
                    plan->file = document->root;
                    break;
                }
        }
    }
};

bool Facets::Any() const {
    return !enumerations.empty() || !patterns.empty() || length >= 0 || minLength >= 0 || maxLength >= 0 ||
           totalDigits >= 0 || fractionDigits >= 0 || !minInclusive.empty() || !maxInclusive.empty() ||
           !minExclusive.empty() || !maxExclusive.empty() || whitespace != Whitespace::Unspecified;
}

CPlanner::CPlanner(const SchemaSet& set, CDiagnostics& diagnostics)
    : m_impl(new Impl(set, diagnostics)) {}

CPlanner::~CPlanner() = default;

CodeModel& CPlanner::Plan(const std::vector<std::wstring>& schemaFiles) {
    return m_impl->Plan(schemaFiles);
}

} // namespace Qxxsd
