#include "SchemaReader.h"

#include "Builtins.h"
#include "CodeText.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <cstring>
#include <cwchar>
#include <cwctype>
#include <set>
#include <unistd.h>

namespace Qxxsd {

using namespace QxXmlLib16;

const wchar_t* const kXsdNamespace = L"http://www.w3.org/2001/XMLSchema";
const wchar_t* const kXmlNamespace = L"http://www.w3.org/XML/1998/namespace";

namespace {

bool IsXsd(const CXmlElement* element, const wchar_t* name) {
    return element->GetNamespaceURI() == kXsdNamespace && element->GetLocalName() == name;
}

const std::wstring& Attr(const CXmlElement* element, const wchar_t* name) {
    return element->GetAttribute(name, L"");
}

bool Has(const CXmlElement* element, const wchar_t* name) {
    for (const CXmlAttribute* attribute : element->GetAttributes())
        if (attribute->GetLocalName() == name && attribute->GetNamespaceURI().empty()) return true;
    return false;
}

// Generated code reads patterns with XML Schema's grammar and meaning, so a pattern is refused here
// by that grammar, and by the matcher for what it cannot take, rather than on the first value read.
void CheckPattern(const std::wstring& pattern, const Location& where) {
    if (const std::optional<CPatternError> error = CheckXmlSchemaPattern(pattern))
        throw CSchemaError(where, L"the pattern \"" + pattern + L"\" is not an XML Schema regular expression: " +
                                      error->reason + L" (at character " + std::to_wstring(error->position + 1) +
                                      L")");
    try {
        TestRegEx(Utf8(pattern), L"", pmExact);
    } catch (const CQxException& e) {
        throw CSchemaError(where, L"the pattern \"" + pattern + L"\" cannot be matched: " + e.GetMessage());
    }
}

std::optional<std::wstring> Optional(const CXmlElement* element, const wchar_t* name) {
    if (!Has(element, name)) return std::nullopt;
    return Attr(element, name);
}

std::wstring MultiByteToWide(const char* text) {
    std::wstring wide;
    std::mbstate_t state{};
    wchar_t c;
    for (size_t length;
         (length = std::mbrtowc(&c, text, std::strlen(text), &state)) != 0 && length < (size_t)-2;
         text += length)
        wide += c;
    return wide;
}

std::wstring Collapse(const std::wstring& text) {
    return CWhitespaceUtils::ApplyRule(CWhitespaceUtils::wsCollapse, text);
}

// The text of an element and its descendants, in document order as far as the tree keeps it.
void GatherText(const CXmlElement* element, std::wstring& text) {
    text += element->GetText();
    for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
        GatherText(child, text);
}

// The xs:documentation of a component, each line trimmed, blank lines at either end dropped.
std::wstring Documentation(const CXmlElement* element) {
    std::wstring text;
    for (const CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (!IsXsd(child, L"annotation")) continue;
        for (const CXmlElement* doc = child->GetFirstElement(); doc; doc = doc->GetNextSiblingElement()) {
            if (!IsXsd(doc, L"documentation")) continue;
            if (!text.empty()) text += L"\n";
            GatherText(doc, text);
        }
    }
    std::wstring result;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos) end = text.size();
        std::wstring line = text.substr(start, end - start);
        const size_t first = line.find_first_not_of(L" \t\r");
        line = first == std::wstring::npos ? std::wstring()
                                           : line.substr(first, line.find_last_not_of(L" \t\r") - first + 1);
        if (!line.empty() || !result.empty()) result += line + L"\n";
        start = end + 1;
    }
    while (!result.empty() && result.back() == L'\n')
        result.pop_back();
    return result;
}

long long Occurs(const std::wstring& text, bool allowUnbounded) {
    const std::wstring value = Collapse(text);
    if (allowUnbounded && value == L"unbounded") return -1;
    if (value.empty() || value.find_first_not_of(L"0123456789") != std::wstring::npos || value.size() > 12)
        return -2;
    return std::stoll(value);
}

} // namespace

CSchemaReader::CSchemaReader(SchemaSet& set, const CLocator& locator, CDiagnostics& diagnostics)
    : m_set(set)
    , m_locator(locator)
    , m_diagnostics(diagnostics) {
    size_t count = 0;
    const Builtin* builtins = BuiltinTypes(count);
    for (size_t i = 0; i < count; ++i) {
        SimpleType* type = m_set.Make<SimpleType>();
        type->name = {kXsdNamespace, builtins[i].name};
        type->builtin = &builtins[i];
        type->where.file = L"(built-in)";
        m_set.simpleTypes[type->name] = type;
    }
    for (size_t i = 0; i < count; ++i) {
        if (!builtins[i].listOf) continue;
        SimpleType* list = m_set.simpleTypes[{kXsdNamespace, builtins[i].name}];
        list->variety = SimpleType::List;
        list->item = m_set.simpleTypes[{kXsdNamespace, builtins[i].listOf}];
        list->facets.minLength = 1;
    }
    m_anyType = m_set.Make<ComplexType>();
    m_anyType->name = {kXsdNamespace, L"anyType"};
    m_anyType->mixed = true;
    m_anyType->where.file = L"(built-in)";
    m_set.complexTypes[m_anyType->name] = m_anyType;

    // The attributes of the xml: namespace, known without its schema.
    struct XmlAttribute {
        const wchar_t* name;
        const wchar_t* type;
    };
    for (const XmlAttribute& known : {XmlAttribute{L"lang", L"language"}, XmlAttribute{L"base", L"anyURI"},
                                      XmlAttribute{L"id", L"ID"}, XmlAttribute{L"space", nullptr}}) {
        Attribute* attribute = m_set.Make<Attribute>();
        attribute->name = {kXmlNamespace, known.name};
        attribute->global = true;
        attribute->where.file = L"(built-in)";
        if (known.type) {
            attribute->type.simple = m_set.simpleTypes[{kXsdNamespace, known.type}];
        } else {
            SimpleType* space = m_set.Make<SimpleType>();
            space->baseName = {kXsdNamespace, L"NCName"};
            space->facets.enumerations = {L"default", L"preserve"};
            space->hint = L"space";
            space->where.file = L"(built-in)";
            attribute->type.simple = space;
            m_set.simpleTypeOrder.push_back(space);
        }
        m_set.attributes[attribute->name] = attribute;
    }
}

Location CSchemaReader::Where(const Context& context, const CXmlElement* element) const {
    Location where{context.document->file, 0};
    int column = 0;
    context.xml->GetElementPosition(element, where.line, column);
    return where;
}

QName CSchemaReader::Reference(const Context& context, const CXmlElement* element, const std::wstring& text) {
    const std::wstring name = Collapse(text);
    const size_t colon = name.find(L':');
    const std::wstring prefix = colon == std::wstring::npos ? std::wstring() : name.substr(0, colon);
    const std::wstring local = colon == std::wstring::npos ? name : name.substr(colon + 1);
    if (local.empty() || local.find(L':') != std::wstring::npos)
        throw CSchemaError(Where(context, element), L"\"" + text + L"\" is not a qualified name");
    std::wstring ns;
    if (!context.xml->LookupNamespaceInScope(element, prefix, ns)) {
        if (!prefix.empty())
            throw CSchemaError(Where(context, element),
                               L"the prefix " + prefix + L" of \"" + text + L"\" is not declared");
        ns.clear();
    }
    if (ns.empty() && !context.chameleon.empty()) ns = context.chameleon;
    return {ns, local};
}

QName CSchemaReader::Declared(const Context& context, const CXmlElement* element, bool qualified) {
    const std::wstring name = Collapse(Attr(element, L"name"));
    if (name.empty() || name.find(L':') != std::wstring::npos)
        throw CSchemaError(Where(context, element),
                           L"the " + element->GetLocalName() + L" needs a name without a prefix");
    return {qualified ? context.document->targetNamespace : std::wstring(), name};
}

template <class T>
void CSchemaReader::Register(std::map<QName, T*>& table, T* component, const QName& name,
                             const wchar_t* kind) {
    const auto existing = table.find(name);
    if (existing != table.end())
        throw CSchemaError(component->where, std::wstring(kind) + L" " + name.Text() +
                                                 L" is declared twice (also at " +
                                                 Describe(existing->second->where) + L")");
    table[name] = component;
}

void CSchemaReader::Read(const std::wstring& file) {
    ++m_root;
    std::wstring base;
    if (!CLocator::IsRemote(file) && (file.empty() || file[0] != L'/')) {
        char folder[4096];
        if (getcwd(folder, sizeof folder)) base = MultiByteToWide(folder) + L"/";
    }
    const CLocator::Found found = m_locator.Resolve(file, base, {file, 0});
    Load(found.file, found.location, file, nullptr, {file, 0});
}

void CSchemaReader::Load(const std::wstring& file, const std::wstring& location, const std::wstring& display,
                         const std::wstring* includerNamespace, const Location& from) {
    CXmlDocument xml;
    try {
        xml.Load(file.c_str());
    } catch (const CQxException& e) {
        throw CSchemaError({display, 0}, L"the schema is not well-formed XML: " + e.GetMessage());
    }
    const CXmlElement* root = xml.GetDocumentElement();
    if (!IsXsd(root, L"schema"))
        throw CSchemaError(from, display + L" is not an XML Schema: its document element is {" +
                                     root->GetNamespaceURI() + L"}" + root->GetLocalName());
    // A schema is read once for each namespace it ends up in: a schema without a target namespace takes
    // the namespace of each schema that includes it.
    std::wstring effective = Attr(root, L"targetNamespace");
    if (effective.empty() && includerNamespace) effective = *includerNamespace;
    if (!m_loaded.emplace(location + L"\n" + effective, true).second) return;
    m_set.documents.emplace_back(new SchemaDocument);
    SchemaDocument* document = m_set.documents.back().get();
    document->file = display;
    document->location = location;
    document->path = file;
    document->root = m_root;
    document->targetNamespace = Attr(root, L"targetNamespace");
    document->elementsQualified = Collapse(Attr(root, L"elementFormDefault")) == L"qualified";
    document->attributesQualified = Collapse(Attr(root, L"attributeFormDefault")) == L"qualified";
    Context context{document, &xml, std::wstring()};
    if (includerNamespace) {
        if (document->targetNamespace.empty() && !includerNamespace->empty()) {
            document->targetNamespace = *includerNamespace;
            context.chameleon = *includerNamespace;
        } else if (document->targetNamespace != *includerNamespace) {
            throw CSchemaError(from, L"the included schema " + display + L" has the target namespace \"" +
                                         document->targetNamespace + L"\", not the including schema's \"" +
                                         *includerNamespace + L"\"");
        }
    }
    ReadSchema(context, root);
}

void CSchemaReader::ReadInclusion(const Context& context, const CXmlElement* element) {
    const Location where = Where(context, element);
    const std::wstring& kind = element->GetLocalName();
    if (kind == L"redefine" || kind == L"override")
        throw CSchemaError(where, L"xs:" + kind +
                                      L" is not supported: the generated code cannot bind components "
                                      L"that another schema redefines; include a schema that declares "
                                      L"them as they are meant to be");
    const std::wstring reference = Collapse(Attr(element, L"schemaLocation"));
    if (kind == L"include") {
        if (reference.empty()) throw CSchemaError(where, L"xs:include needs a schemaLocation");
        const CLocator::Found found = m_locator.Resolve(reference, context.document->location, where);
        Load(found.file, found.location, found.location == found.file ? found.file : found.location,
             &context.document->targetNamespace, where);
        return;
    }
    // import
    const std::wstring ns = Attr(element, L"namespace");
    if (ns == context.document->targetNamespace)
        throw CSchemaError(where, L"xs:import of the schema's own target namespace; use xs:include");
    if (ns == kXmlNamespace || ns == kXsdNamespace) return; // known without a schema
    if (reference.empty()) {
        const std::wstring file = m_locator.ResolveNamespace(ns);
        if (!file.empty())
            Load(file, file, file, nullptr, where);
        else
            m_unlocatedImports.emplace(ns, where);
        return;
    }
    const CLocator::Found found = m_locator.Resolve(reference, context.document->location, where);
    const size_t before = m_set.documents.size();
    Load(found.file, found.location, found.location == found.file ? found.file : found.location, nullptr,
         where);
    if (m_set.documents.size() > before && m_set.documents[before]->targetNamespace != ns)
        throw CSchemaError(where, L"the imported schema " + found.location + L" has the target namespace \"" +
                                      m_set.documents[before]->targetNamespace + L"\", not \"" + ns + L"\"");
}

void CSchemaReader::ReadSchema(const Context& context, const CXmlElement* schema) {
    for (const CXmlElement* child = schema->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (child->GetNamespaceURI() != kXsdNamespace) continue;
        const std::wstring& kind = child->GetLocalName();
        if (kind == L"include" || kind == L"import" || kind == L"redefine" || kind == L"override") {
            ReadInclusion(context, child);
        } else if (kind == L"simpleType") {
            SimpleType* type = ReadSimpleType(context, child, Declared(context, child, true));
            Register(m_set.simpleTypes, type, type->name, L"the type");
            if (m_set.complexTypes.count(type->name))
                throw CSchemaError(type->where, L"the type " + type->name.Text() + L" is declared twice");
        } else if (kind == L"complexType") {
            ComplexType* type = ReadComplexType(context, child, Declared(context, child, true));
            Register(m_set.complexTypes, type, type->name, L"the type");
            if (m_set.simpleTypes.count(type->name))
                throw CSchemaError(type->where, L"the type " + type->name.Text() + L" is declared twice");
            m_set.complexTypeOrder.push_back(type);
        } else if (kind == L"element") {
            Element* element = ReadElement(context, child, true);
            Register(m_set.elements, element, element->name, L"the element");
            m_set.elementOrder.push_back(element);
        } else if (kind == L"attribute") {
            Attribute* attribute = ReadAttribute(context, child, true);
            Register(m_set.attributes, attribute, attribute->name, L"the attribute");
        } else if (kind == L"group") {
            NamedGroup* group = m_set.Make<NamedGroup>();
            group->where = Where(context, child);
            group->targetNamespace = context.document->targetNamespace;
            group->documentation = Documentation(child);
            group->name = Declared(context, child, true);
            for (const CXmlElement* part = child->GetFirstElement(); part;
                 part = part->GetNextSiblingElement())
                if (IsXsd(part, L"sequence") || IsXsd(part, L"choice") || IsXsd(part, L"all"))
                    group->model = ReadModelGroup(context, part);
            if (!group->model)
                throw CSchemaError(group->where, L"the group " + group->name.Text() + L" has no model group");
            Register(m_set.groups, group, group->name, L"the group");
            m_set.groupOrder.push_back(group);
        } else if (kind == L"attributeGroup") {
            AttributeGroup* group = m_set.Make<AttributeGroup>();
            group->where = Where(context, child);
            group->targetNamespace = context.document->targetNamespace;
            group->name = Declared(context, child, true);
            ReadAttributes(context, child, group->attributes);
            Register(m_set.attributeGroups, group, group->name, L"the attribute group");
        } else if (kind == L"defaultOpenContent") {
            m_diagnostics.Warn(Where(context, child),
                               L"xs:defaultOpenContent is skipped: the generated classes "
                               L"accept only the declared content");
        }
    }
}

SimpleType* CSchemaReader::ReadSimpleType(const Context& context, const CXmlElement* element, QName name,
                                          const std::wstring& hint) {
    SimpleType* type = m_set.Make<SimpleType>();
    type->name = std::move(name);
    type->hint = hint;
    const std::wstring stem = type->name.empty() ? hint : type->name.local;
    type->where = Where(context, element);
    type->targetNamespace = context.document->targetNamespace;
    type->documentation = Documentation(element);
    m_set.simpleTypeOrder.push_back(type);
    const CXmlElement* derivation = nullptr;
    for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
        if (IsXsd(child, L"restriction") || IsXsd(child, L"list") || IsXsd(child, L"union"))
            derivation = child;
    if (!derivation) throw CSchemaError(type->where, L"the simple type has no restriction, list or union");
    auto inlineTypes = [&](const CXmlElement* parent, const wchar_t* role) {
        std::vector<SimpleType*> types;
        for (const CXmlElement* child = parent->GetFirstElement(); child;
             child = child->GetNextSiblingElement())
            if (IsXsd(child, L"simpleType"))
                types.push_back(ReadSimpleType(context, child, QName(), stem + role));
        return types;
    };
    if (IsXsd(derivation, L"restriction")) {
        const std::vector<SimpleType*> bases = inlineTypes(derivation, L"Base");
        if (Has(derivation, L"base"))
            type->baseName = Reference(context, derivation, Attr(derivation, L"base"));
        if (!bases.empty()) type->base = bases.front();
        if (type->baseName.empty() && !type->base)
            throw CSchemaError(type->where, L"the restriction names no base type");
        type->facets.where = Where(context, derivation);
        for (const CXmlElement* facet = derivation->GetFirstElement(); facet;
             facet = facet->GetNextSiblingElement())
            ReadFacet(context, facet, type->facets);
    } else if (IsXsd(derivation, L"list")) {
        type->variety = SimpleType::List;
        const std::vector<SimpleType*> items = inlineTypes(derivation, L"Item");
        if (Has(derivation, L"itemType"))
            type->itemName = Reference(context, derivation, Attr(derivation, L"itemType"));
        if (!items.empty()) type->item = items.front();
        if (type->itemName.empty() && !type->item)
            throw CSchemaError(type->where, L"the list names no item type");
    } else {
        type->variety = SimpleType::Union;
        const std::wstring members = Collapse(Attr(derivation, L"memberTypes"));
        for (size_t start = 0; start < members.size();) {
            size_t end = members.find(L' ', start);
            if (end == std::wstring::npos) end = members.size();
            type->memberNames.push_back(Reference(context, derivation, members.substr(start, end - start)));
            start = end + 1;
        }
        type->members = inlineTypes(derivation, L"Member");
        if (type->memberNames.empty() && type->members.empty())
            throw CSchemaError(type->where, L"the union has no member types");
    }
    return type;
}

void CSchemaReader::ReadFacet(const Context& context, const CXmlElement* element, Facets& facets) {
    if (element->GetNamespaceURI() != kXsdNamespace) return;
    const std::wstring& kind = element->GetLocalName();
    if (kind == L"annotation" || kind == L"simpleType" || kind == L"attribute" || kind == L"attributeGroup" ||
        kind == L"anyAttribute")
        return;
    const Location where = Where(context, element);
    const std::wstring& value = Attr(element, L"value");
    if (!Has(element, L"value")) throw CSchemaError(where, L"the facet xs:" + kind + L" has no value");
    auto count = [&](long long& into) {
        const long long number = Occurs(value, false);
        if (number < 0)
            throw CSchemaError(where, L"the facet xs:" + kind + L" needs a non-negative integer, not \"" +
                                          value + L"\"");
        if (kind == L"totalDigits" && number == 0)
            throw CSchemaError(where, L"the facet xs:totalDigits must be positive");
        into = number;
    };
    if (kind == L"enumeration") {
        facets.enumerations.push_back(value);
    } else if (kind == L"pattern") {
        CheckPattern(value, where);
        facets.patterns.push_back(value);
    } else if (kind == L"length") {
        count(facets.length);
    } else if (kind == L"minLength") {
        count(facets.minLength);
    } else if (kind == L"maxLength") {
        count(facets.maxLength);
    } else if (kind == L"totalDigits") {
        count(facets.totalDigits);
    } else if (kind == L"fractionDigits") {
        count(facets.fractionDigits);
    } else if (kind == L"minInclusive") {
        facets.minInclusive = Collapse(value);
    } else if (kind == L"maxInclusive") {
        facets.maxInclusive = Collapse(value);
    } else if (kind == L"minExclusive") {
        facets.minExclusive = Collapse(value);
    } else if (kind == L"maxExclusive") {
        facets.maxExclusive = Collapse(value);
    } else if (kind == L"whiteSpace") {
        const std::wstring rule = Collapse(value);
        if (rule == L"preserve")
            facets.whitespace = Whitespace::Preserve;
        else if (rule == L"replace")
            facets.whitespace = Whitespace::Replace;
        else if (rule == L"collapse")
            facets.whitespace = Whitespace::Collapse;
        else
            throw CSchemaError(where, L"the facet xs:whiteSpace takes preserve, replace or collapse, not \"" +
                                          value + L"\"");
    } else if (kind == L"assertion" || kind == L"explicitTimezone") {
        m_diagnostics.Warn(where, L"the facet xs:" + kind + L" is not checked by the generated code");
    } else {
        throw CSchemaError(where, L"xs:" + kind + L" is not a facet");
    }
}

Wildcard CSchemaReader::ReadWildcard(const Context& context, const CXmlElement* element) {
    Wildcard wildcard;
    wildcard.where = Where(context, element);
    wildcard.targetNamespace = context.document->targetNamespace;
    wildcard.documentation = Documentation(element);
    if (Has(element, L"namespace")) wildcard.rule = Collapse(Attr(element, L"namespace"));
    if (Has(element, L"processContents"))
        wildcard.processContents = Collapse(Attr(element, L"processContents"));
    wildcard.targetNamespace = context.document->targetNamespace;
    if (Has(element, L"notNamespace") || Has(element, L"notQName"))
        m_diagnostics.Warn(wildcard.where, L"notNamespace and notQName of a wildcard are not supported: the "
                                           L"generated code applies only its namespace attribute");
    return wildcard;
}

void CSchemaReader::ReadOccurs(const Context& context, const CXmlElement* element, Particle* particle) {
    if (Has(element, L"minOccurs")) particle->minOccurs = Occurs(Attr(element, L"minOccurs"), false);
    if (Has(element, L"maxOccurs")) particle->maxOccurs = Occurs(Attr(element, L"maxOccurs"), true);
    if (particle->minOccurs < 0 || particle->maxOccurs < -1)
        throw CSchemaError(
            Where(context, element),
            L"minOccurs and maxOccurs take non-negative integers (maxOccurs also \"unbounded\")");
    if (particle->maxOccurs != -1 && particle->minOccurs > particle->maxOccurs)
        throw CSchemaError(Where(context, element), L"minOccurs is greater than maxOccurs");
    if (particle->maxOccurs > 0x7FFFFFFF || particle->minOccurs > 0x7FFFFFFF)
        throw CSchemaError(Where(context, element), L"minOccurs and maxOccurs must fit in 32 bits");
}

Particle* CSchemaReader::ReadParticle(const Context& context, const CXmlElement* element) {
    Particle* particle = m_set.Make<Particle>();
    particle->where = Where(context, element);
    particle->targetNamespace = context.document->targetNamespace;
    particle->documentation = Documentation(element);
    ReadOccurs(context, element, particle);
    m_allParticles.push_back(particle);
    if (IsXsd(element, L"element")) {
        particle->kind = Particle::ElementKind;
        if (Has(element, L"ref"))
            particle->ref = Reference(context, element, Attr(element, L"ref"));
        else
            particle->element = ReadElement(context, element, false);
    } else if (IsXsd(element, L"group")) {
        particle->kind = Particle::GroupKind;
        if (!Has(element, L"ref"))
            throw CSchemaError(particle->where, L"a group within a content model needs a ref");
        particle->ref = Reference(context, element, Attr(element, L"ref"));
    } else if (IsXsd(element, L"any")) {
        particle->kind = Particle::AnyKind;
        particle->any = ReadWildcard(context, element);
    } else {
        particle->kind = Particle::GroupKind;
        particle->group = ReadModelGroup(context, element);
    }
    return particle;
}

ModelGroup* CSchemaReader::ReadModelGroup(const Context& context, const CXmlElement* element) {
    ModelGroup* group = m_set.Make<ModelGroup>();
    group->where = Where(context, element);
    group->targetNamespace = context.document->targetNamespace;
    group->documentation = Documentation(element);
    group->compositor = IsXsd(element, L"sequence") ? ModelGroup::Sequence
                        : IsXsd(element, L"choice") ? ModelGroup::Choice
                                                    : ModelGroup::All;
    for (const CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (IsXsd(child, L"element") || IsXsd(child, L"group") || IsXsd(child, L"any") ||
            IsXsd(child, L"sequence") || IsXsd(child, L"choice") || IsXsd(child, L"all")) {
            if (group->compositor == ModelGroup::All && !IsXsd(child, L"element"))
                throw CSchemaError(Where(context, child), L"xs:all may hold only elements");
            group->particles.push_back(ReadParticle(context, child));
        }
    }
    return group;
}

Element* CSchemaReader::ReadElement(const Context& context, const CXmlElement* element, bool global) {
    Element* declared = m_set.Make<Element>();
    declared->where = Where(context, element);
    declared->targetNamespace = context.document->targetNamespace;
    declared->documentation = Documentation(element);
    declared->global = global;
    bool qualified = global || context.document->elementsQualified;
    if (Has(element, L"form")) qualified = Collapse(Attr(element, L"form")) == L"qualified";
    if (Has(element, L"targetNamespace")) {
        declared->name = Declared(context, element, false);
        declared->name.ns = Attr(element, L"targetNamespace");
    } else {
        declared->name = Declared(context, element, qualified);
    }
    declared->nillable =
        Collapse(Attr(element, L"nillable")) == L"true" || Collapse(Attr(element, L"nillable")) == L"1";
    declared->abstract =
        Collapse(Attr(element, L"abstract")) == L"true" || Collapse(Attr(element, L"abstract")) == L"1";
    declared->defaultValue = Optional(element, L"default");
    declared->fixedValue = Optional(element, L"fixed");
    if (declared->defaultValue && declared->fixedValue)
        throw CSchemaError(declared->where, L"an element may have a default or a fixed value, not both");
    if (Has(element, L"substitutionGroup")) {
        if (!global)
            throw CSchemaError(declared->where, L"only a global element may name a substitutionGroup");
        const std::wstring heads = Collapse(Attr(element, L"substitutionGroup"));
        declared->substitutionGroupName = Reference(context, element, heads.substr(0, heads.find(L' ')));
        if (heads.find(L' ') != std::wstring::npos)
            m_diagnostics.Warn(declared->where,
                               L"an element of several substitution groups joins only the first, " +
                                   declared->substitutionGroupName.Text());
    }
    if (Has(element, L"type")) {
        declared->type.name = Reference(context, element, Attr(element, L"type"));
        declared->hasTypeAttribute = true;
    }
    for (const CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (IsXsd(child, L"simpleType") || IsXsd(child, L"complexType")) {
            if (declared->hasTypeAttribute)
                throw CSchemaError(declared->where,
                                   L"an element may have a type attribute or an inline type, not both");
            if (IsXsd(child, L"simpleType")) {
                declared->type.simple = ReadSimpleType(context, child, QName(), declared->name.local);
            } else {
                declared->type.complex = ReadComplexType(context, child, QName());
                declared->type.complex->hint = declared->name.local;
            }
        } else if (IsXsd(child, L"unique") || IsXsd(child, L"key") || IsXsd(child, L"keyref")) {
            m_diagnostics.Warn(Where(context, child),
                               L"the identity constraint xs:" + child->GetLocalName() +
                                   L" is not enforced: the generated code accepts duplicate "
                                   L"and dangling keys");
        } else if (IsXsd(child, L"alternative")) {
            m_diagnostics.Warn(Where(context, child),
                               L"xs:alternative is skipped: the element always has its "
                               L"declared type");
        }
    }
    m_allElements.push_back(declared);
    return declared;
}

Attribute* CSchemaReader::ReadAttribute(const Context& context, const CXmlElement* element, bool global) {
    Attribute* attribute = m_set.Make<Attribute>();
    attribute->where = Where(context, element);
    attribute->targetNamespace = context.document->targetNamespace;
    attribute->documentation = Documentation(element);
    attribute->global = global;
    bool qualified = global || context.document->attributesQualified;
    if (Has(element, L"form")) qualified = Collapse(Attr(element, L"form")) == L"qualified";
    attribute->name = Declared(context, element, qualified);
    if (attribute->name.local == L"xmlns")
        throw CSchemaError(attribute->where, L"an attribute may not be named xmlns");
    attribute->defaultValue = Optional(element, L"default");
    attribute->fixedValue = Optional(element, L"fixed");
    if (attribute->defaultValue && attribute->fixedValue)
        throw CSchemaError(attribute->where, L"an attribute may have a default or a fixed value, not both");
    if (Has(element, L"type")) attribute->type.name = Reference(context, element, Attr(element, L"type"));
    for (const CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (!IsXsd(child, L"simpleType")) continue;
        if (Has(element, L"type"))
            throw CSchemaError(attribute->where,
                               L"an attribute may have a type attribute or an inline type, not both");
        attribute->type.simple = ReadSimpleType(context, child, QName(), attribute->name.local);
    }
    if (attribute->type.name.empty() && !attribute->type.simple)
        attribute->type.name = {kXsdNamespace, L"anySimpleType"};
    m_allAttributes.push_back(attribute);
    return attribute;
}

AttributeUse* CSchemaReader::ReadAttributeUse(const Context& context, const CXmlElement* element) {
    AttributeUse* use = m_set.Make<AttributeUse>();
    use->where = Where(context, element);
    use->targetNamespace = context.document->targetNamespace;
    use->documentation = Documentation(element);
    const std::wstring kind = Collapse(Attr(element, L"use"));
    use->use = kind == L"required"     ? AttributeUse::Required
               : kind == L"prohibited" ? AttributeUse::Prohibited
                                       : AttributeUse::Optional;
    if (!kind.empty() && kind != L"required" && kind != L"prohibited" && kind != L"optional")
        throw CSchemaError(use->where, L"use takes optional, required or prohibited, not \"" + kind + L"\"");
    if (Has(element, L"ref")) {
        use->ref = Reference(context, element, Attr(element, L"ref"));
        use->defaultValue = Optional(element, L"default");
        use->fixedValue = Optional(element, L"fixed");
    } else {
        use->attribute = ReadAttribute(context, element, false);
    }
    const auto& defaultValue = use->attribute ? use->attribute->defaultValue : use->defaultValue;
    if (defaultValue && use->use == AttributeUse::Required)
        throw CSchemaError(use->where, L"a required attribute cannot have a default value");
    return use;
}

void CSchemaReader::ReadAttributes(const Context& context, const CXmlElement* element, AttributeSet& into) {
    m_allAttributeSets.push_back(&into);
    for (const CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (IsXsd(child, L"attribute")) {
            into.uses.push_back(ReadAttributeUse(context, child));
        } else if (IsXsd(child, L"attributeGroup")) {
            if (!Has(child, L"ref"))
                throw CSchemaError(Where(context, child), L"an attributeGroup here needs a ref");
            into.groupRefs.emplace_back(Reference(context, child, Attr(child, L"ref")),
                                        Where(context, child));
        } else if (IsXsd(child, L"anyAttribute")) {
            into.anyAttribute = ReadWildcard(context, child);
        }
    }
}

ComplexType* CSchemaReader::ReadComplexType(const Context& context, const CXmlElement* element, QName name) {
    ComplexType* type = m_set.Make<ComplexType>();
    type->name = std::move(name);
    type->where = Where(context, element);
    type->targetNamespace = context.document->targetNamespace;
    type->documentation = Documentation(element);
    type->abstract =
        Collapse(Attr(element, L"abstract")) == L"true" || Collapse(Attr(element, L"abstract")) == L"1";
    type->mixed = Collapse(Attr(element, L"mixed")) == L"true" || Collapse(Attr(element, L"mixed")) == L"1";
    bool content = false;
    for (const CXmlElement* child = element->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (IsXsd(child, L"simpleContent") || IsXsd(child, L"complexContent")) {
            ReadComplexContent(context, child, type);
            content = true;
        } else if (IsXsd(child, L"sequence") || IsXsd(child, L"choice") || IsXsd(child, L"all") ||
                   IsXsd(child, L"group")) {
            type->particle = ReadParticle(context, child);
        } else if (IsXsd(child, L"openContent") || IsXsd(child, L"assert")) {
            m_diagnostics.Warn(Where(context, child),
                               L"xs:" + child->GetLocalName() +
                                   L" is skipped: the generated class accepts only the "
                                   L"declared content and checks no assertion");
        }
    }
    if (!content) ReadAttributes(context, element, type->attributes);
    return type;
}

void CSchemaReader::ReadComplexContent(const Context& context, const CXmlElement* element,
                                       ComplexType* type) {
    type->simpleContent = IsXsd(element, L"simpleContent");
    if (Has(element, L"mixed")) type->mixed = Collapse(Attr(element, L"mixed")) == L"true";
    const CXmlElement* derivation = nullptr;
    for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
        if (IsXsd(child, L"restriction") || IsXsd(child, L"extension")) derivation = child;
    if (!derivation || !Has(derivation, L"base"))
        throw CSchemaError(Where(context, element),
                           L"the content needs a restriction or extension of a base type");
    type->derivation = IsXsd(derivation, L"extension") ? ComplexType::Extension : ComplexType::Restriction;
    type->baseName = Reference(context, derivation, Attr(derivation, L"base"));
    if (type->simpleContent && type->derivation == ComplexType::Restriction) {
        SimpleType* step = m_set.Make<SimpleType>();
        step->where = Where(context, derivation);
        step->targetNamespace = context.document->targetNamespace;
        step->facets.where = step->where;
        step->hint = type->name.empty() ? std::wstring() : type->name.local;
        m_set.simpleTypeOrder.push_back(step);
        for (const CXmlElement* child = derivation->GetFirstElement(); child;
             child = child->GetNextSiblingElement()) {
            if (IsXsd(child, L"simpleType"))
                step->base = ReadSimpleType(context, child, QName(), step->hint + L"Base");
            else
                ReadFacet(context, child, step->facets);
        }
        type->contentRestriction = step;
    }
    for (const CXmlElement* child = derivation->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
        if (!type->simpleContent && (IsXsd(child, L"sequence") || IsXsd(child, L"choice") ||
                                     IsXsd(child, L"all") || IsXsd(child, L"group")))
            type->particle = ReadParticle(context, child);
        else if (IsXsd(child, L"openContent") || IsXsd(child, L"assert"))
            m_diagnostics.Warn(Where(context, child), L"xs:" + child->GetLocalName() + L" is skipped");
    }
    ReadAttributes(context, derivation, type->attributes);
}

// ---- Resolution ----------------------------------------------------------------------------------

void CSchemaReader::Unknown(const wchar_t* kind, const QName& name, const Location& where) const {
    std::wstring reason = std::wstring(L"unknown ") + kind + L" " + name.Text();
    const auto unlocated = m_unlocatedImports.find(name.ns);
    if (unlocated != m_unlocatedImports.end())
        reason += L"; its namespace is imported at " + Describe(unlocated->second) +
                  L" without a schemaLocation: pass --map " + name.ns + L"=FILE or a catalog entry for it";
    else if (name.ns == kXsdNamespace)
        reason += L": XML Schema has no such built-in";
    throw CSchemaError(where, reason);
}

void CSchemaReader::ResolveType(TypeRef& type, const Location& where, bool simpleOnly) {
    if (type.Resolved() || type.name.empty()) return;
    const auto simple = m_set.simpleTypes.find(type.name);
    if (simple != m_set.simpleTypes.end()) {
        type.simple = simple->second;
        return;
    }
    const auto complex = m_set.complexTypes.find(type.name);
    if (complex != m_set.complexTypes.end()) {
        if (simpleOnly)
            throw CSchemaError(where, L"the complex type " + type.name.Text() + L" cannot type an attribute");
        type.complex = complex->second;
        return;
    }
    Unknown(L"type", type.name, where);
}

void CSchemaReader::ResolveSimpleType(SimpleType* type) {
    if (type->builtin || type->resolving) return;
    type->resolving = true;
    auto find = [&](const QName& name) {
        const auto found = m_set.simpleTypes.find(name);
        if (found != m_set.simpleTypes.end()) return found->second;
        if (m_set.complexTypes.count(name))
            throw CSchemaError(type->where,
                               L"the complex type " + name.Text() + L" cannot derive a simple type");
        Unknown(L"simple type", name, type->where);
    };
    if (!type->baseName.empty() && !type->base) type->base = find(type->baseName);
    if (!type->itemName.empty() && !type->item) type->item = find(type->itemName);
    std::vector<SimpleType*> members;
    for (const QName& name : type->memberNames)
        members.push_back(find(name));
    type->members.insert(type->members.begin(), members.begin(), members.end());
    type->memberNames.clear();
    for (SimpleType* related : {type->base, type->item})
        if (related) ResolveSimpleType(related);
    for (SimpleType* member : type->members)
        ResolveSimpleType(member);
    // A chain that comes back to itself never reaches a built-in type.
    for (const SimpleType* step = type->base; step; step = step->base)
        if (step == type)
            throw CSchemaError(type->where,
                               L"the simple type " + type->name.Text() + L" derives from itself");
    if (type->variety == SimpleType::Atomic && type->base && type->base->variety != SimpleType::Atomic)
        type->variety = type->base->variety;
}

void CSchemaReader::ResolveAttributes(AttributeSet& attributes) {
    for (AttributeUse* use : attributes.uses) {
        if (!use->attribute) {
            const auto found = m_set.attributes.find(use->ref);
            if (found == m_set.attributes.end()) Unknown(L"attribute", use->ref, use->where);
            use->attribute = found->second;
        }
    }
    for (const auto& ref : attributes.groupRefs)
        if (!m_set.attributeGroups.count(ref.first)) Unknown(L"attribute group", ref.first, ref.second);
}

void CSchemaReader::ResolveParticle(Particle* particle) {
    if (particle->kind == Particle::ElementKind && !particle->element) {
        const auto found = m_set.elements.find(particle->ref);
        if (found == m_set.elements.end()) Unknown(L"element", particle->ref, particle->where);
        particle->element = found->second;
    } else if (particle->kind == Particle::GroupKind && !particle->group) {
        const auto found = m_set.groups.find(particle->ref);
        if (found == m_set.groups.end()) Unknown(L"group", particle->ref, particle->where);
        particle->namedGroup = found->second;
        particle->group = found->second->model;
    }
}

void CSchemaReader::ResolveComplexType(ComplexType* type) {
    if (type->baseName.empty() || type->baseComplex || type->baseSimple) return;
    const auto complex = m_set.complexTypes.find(type->baseName);
    const auto simple = m_set.simpleTypes.find(type->baseName);
    if (complex != m_set.complexTypes.end()) {
        type->baseComplex = complex->second;
        type->baseComplex->derived.push_back(type);
    } else if (simple != m_set.simpleTypes.end()) {
        if (!type->simpleContent)
            throw CSchemaError(type->where, L"complex content cannot derive from the simple type " +
                                                type->baseName.Text());
        if (type->derivation == ComplexType::Restriction)
            throw CSchemaError(
                type->where, L"a simpleContent restriction needs a complex base type, not the simple type " +
                                 type->baseName.Text());
        type->baseSimple = simple->second;
    } else {
        Unknown(L"type", type->baseName, type->where);
    }
}

void CSchemaReader::CheckGroupCycles(NamedGroup* group, const ModelGroup* model) {
    for (const Particle* particle : model->particles) {
        if (particle->kind != Particle::GroupKind) continue;
        if (particle->namedGroup) {
            NamedGroup* inner = particle->namedGroup;
            if (inner->state == 1)
                throw CSchemaError(particle->where,
                                   L"the group " + inner->name.Text() + L" contains itself" +
                                       (group ? L" (through " + group->name.Text() + L")" : std::wstring()));
            if (inner->state == 0) {
                inner->state = 1;
                CheckGroupCycles(inner, inner->model);
                inner->state = 2;
            }
        } else {
            CheckGroupCycles(group, particle->group);
        }
    }
}

void CSchemaReader::Resolve() {
    for (Particle* particle : m_allParticles)
        ResolveParticle(particle);
    for (auto& entry : m_set.groups) {
        NamedGroup* group = entry.second;
        if (group->state) continue;
        group->state = 1;
        CheckGroupCycles(group, group->model);
        group->state = 2;
    }
    for (AttributeSet* attributes : m_allAttributeSets)
        ResolveAttributes(*attributes);
    for (auto& entry : m_set.attributeGroups) {
        // Attribute groups that contain themselves.
        std::vector<std::pair<AttributeGroup*, size_t>> path{{entry.second, 0}};
        std::set<AttributeGroup*> open{entry.second};
        while (!path.empty()) {
            AttributeGroup* current = path.back().first;
            if (path.back().second == current->attributes.groupRefs.size()) {
                open.erase(current);
                path.pop_back();
                continue;
            }
            const auto& ref = current->attributes.groupRefs[path.back().second++];
            AttributeGroup* inner = m_set.attributeGroups[ref.first];
            if (open.count(inner))
                throw CSchemaError(ref.second,
                                   L"the attribute group " + inner->name.Text() + L" contains itself");
            if (path.size() < 64) {
                open.insert(inner);
                path.emplace_back(inner, 0);
            }
        }
    }
    for (Attribute* attribute : m_allAttributes) {
        ResolveType(attribute->type, attribute->where, true);
        ResolveSimpleType(attribute->type.simple);
    }
    for (SimpleType* type : m_set.simpleTypeOrder)
        ResolveSimpleType(type);
    for (auto& entry : m_set.complexTypes)
        ResolveComplexType(entry.second);
    for (Element* element : m_allElements) {
        if (!element->substitutionGroupName.empty()) {
            const auto head = m_set.elements.find(element->substitutionGroupName);
            if (head == m_set.elements.end())
                Unknown(L"element", element->substitutionGroupName, element->where);
            element->head = head->second;
        }
    }
    // Derivation chains must end; types without a type take their head's, or anyType.
    for (auto& entry : m_set.complexTypes) {
        int steps = 0;
        for (const ComplexType* step = entry.second; step; step = step->baseComplex)
            if (++steps > 1000 || (steps > 1 && step == entry.second))
                throw CSchemaError(entry.second->where,
                                   L"the type " + entry.first.Text() + L" derives from itself");
    }
    for (Element* element : m_allElements) {
        int steps = 0;
        for (const Element* head = element->head; head; head = head->head)
            if (head == element || ++steps > 1000)
                throw CSchemaError(element->where, L"the element " + element->name.Text() +
                                                       L" is in its own substitution group");
    }
    for (Element* element : m_allElements) {
        if (element->type.Resolved() || !element->type.name.empty()) continue;
        const Element* source = element->head;
        while (source && !source->type.Resolved() && source->type.name.empty())
            source = source->head;
        if (source)
            element->type = source->type;
        else
            element->type.complex = m_anyType;
    }
    for (Element* element : m_allElements) {
        ResolveType(element->type, element->where, false);
        for (Element* head = element->head; head; head = head->head)
            head->substitutes.push_back(element);
    }
}

} // namespace Qxxsd
