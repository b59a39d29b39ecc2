#pragma once

// The components of a set of XML Schema documents, as the compiler reads them: what the schema
// says, resolved across documents and namespaces, before any decision about C++.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Qxxsd {

extern const wchar_t* const kXsdNamespace;
extern const wchar_t* const kXmlNamespace;

// Where a component was declared: the schema file as the user named it, and the line.
struct Location {
    std::wstring file;
    int line = 0;
};

struct QName {
    std::wstring ns;
    std::wstring local;
    bool empty() const { return local.empty(); }
    bool operator<(const QName& other) const { return ns != other.ns ? ns < other.ns : local < other.local; }
    bool operator==(const QName& other) const { return ns == other.ns && local == other.local; }
    // "{ns}local", or the local name alone without a namespace.
    std::wstring Text() const { return ns.empty() ? local : L"{" + ns + L"}" + local; }
};

struct Component {
    Location where;
    std::wstring documentation;
    std::wstring targetNamespace; // of the schema document that declares it
};

enum class Whitespace { Unspecified, Preserve, Replace, Collapse };

// The facets one restriction step declares. Patterns of one step are alternatives; the patterns of
// the steps of a derivation chain must all match.
struct Facets {
    std::vector<std::wstring> enumerations;
    std::vector<std::wstring> patterns;
    long long length = -1, minLength = -1, maxLength = -1, totalDigits = -1, fractionDigits = -1;
    std::wstring minInclusive, maxInclusive, minExclusive, maxExclusive;
    Whitespace whitespace = Whitespace::Unspecified;
    Location where;
    bool Any() const;
};

struct Builtin;
struct ComplexType;

struct SimpleType : Component {
    enum Variety { Atomic, List, Union };
    QName name; // empty for an anonymous type
    Variety variety = Atomic;
    const Builtin* builtin = nullptr; // set for the built-in types only
    QName baseName;                   // Atomic: the type restricted
    SimpleType* base = nullptr;
    Facets facets; // of this restriction step (also restricts a list or union base)
    QName itemName;
    SimpleType* item = nullptr; // List
    std::vector<QName> memberNames;
    std::vector<SimpleType*> members; // Union
    std::wstring hint;                // a name for an anonymous type: its element or attribute
    bool resolving = false;
};

struct Element;
struct ModelGroup;
struct NamedGroup;

struct Wildcard : Component {
    std::wstring rule = L"##any"; // the namespace attribute as written
    std::wstring targetNamespace; // of the schema that declares it
    std::wstring processContents = L"strict";
};

struct Particle : Component {
    enum Kind { ElementKind, GroupKind, AnyKind };
    Kind kind = ElementKind;
    long long minOccurs = 1, maxOccurs = 1; // -1: unbounded
    Element* element = nullptr;             // local declaration, or the global one a ref names
    QName ref;                              // element or group reference
    ModelGroup* group = nullptr;            // inline group, or the model of the named group a ref names
    NamedGroup* namedGroup = nullptr;
    Wildcard any;
};

struct ModelGroup : Component {
    enum Compositor { Sequence, Choice, All };
    Compositor compositor = Sequence;
    std::vector<Particle*> particles;
};

struct NamedGroup : Component {
    QName name;
    ModelGroup* model = nullptr;
    int state = 0; // for the cycle check: 1 while being checked, 2 when done
};

struct TypeRef {
    QName name;
    SimpleType* simple = nullptr;
    ComplexType* complex = nullptr;
    bool Resolved() const { return simple || complex; }
};

struct Element : Component {
    QName name;
    bool global = false;
    TypeRef type; // unresolved name, or an anonymous type, until resolved
    bool hasTypeAttribute = false;
    bool nillable = false, abstract = false;
    std::optional<std::wstring> defaultValue, fixedValue;
    QName substitutionGroupName;
    Element* head = nullptr;
    std::vector<Element*> substitutes; // the members of its substitution group, transitively
};

struct Attribute : Component {
    QName name;
    bool global = false;
    TypeRef type;
    std::optional<std::wstring> defaultValue, fixedValue;
};

struct AttributeUse : Component {
    enum Use { Optional, Required, Prohibited };
    Attribute* attribute = nullptr;
    QName ref;
    Use use = Optional;
    std::optional<std::wstring> defaultValue, fixedValue; // a ref's own, over the declaration's
};

// The attributes a complex type or group declares, with its attribute group references.
struct AttributeSet {
    std::vector<AttributeUse*> uses;
    std::vector<std::pair<QName, Location>> groupRefs;
    std::optional<Wildcard> anyAttribute;
};

struct AttributeGroup : Component {
    QName name;
    AttributeSet attributes;
};

struct ComplexType : Component {
    enum Derivation { None, Extension, Restriction };
    QName name; // empty for an anonymous type
    bool abstract = false, mixed = false;
    bool simpleContent = false;
    Derivation derivation = None;
    QName baseName;
    ComplexType* baseComplex = nullptr;
    SimpleType* baseSimple = nullptr;
    SimpleType* contentRestriction = nullptr; // simpleContent restriction: its own step
    Particle* particle = nullptr;             // the content model, a group or group reference
    AttributeSet attributes;
    std::vector<ComplexType*> derived; // directly derived types of the set
    std::wstring hint;                 // a name for an anonymous type: its element
    int state = 0;
};

// Where a schema document's declarations are reported and what its defaults are.
struct SchemaDocument {
    std::wstring file;     // as the user or the including schema named it
    std::wstring location; // the absolute path or URL it was found under
    std::wstring path;     // the local file read
    std::wstring targetNamespace;
    bool elementsQualified = false, attributesQualified = false;
    int root = 0; // which of the schemas named by the user brought it in first
};

// Every component of the compiled documents, owned here.
class SchemaSet {
public:
    template <class T>
    T* Make() {
        T* component = new T();
        m_owned.emplace_back(component, [](void* p) { delete static_cast<T*>(p); });
        return component;
    }

    std::map<QName, SimpleType*> simpleTypes;
    std::map<QName, ComplexType*> complexTypes;
    std::map<QName, Element*> elements;
    std::map<QName, Attribute*> attributes;
    std::map<QName, NamedGroup*> groups;
    std::map<QName, AttributeGroup*> attributeGroups;
    // In declaration order, documents in the order they were read.
    std::vector<SimpleType*> simpleTypeOrder;
    std::vector<ComplexType*> complexTypeOrder;
    std::vector<Element*> elementOrder;
    std::vector<NamedGroup*> groupOrder;
    std::vector<std::unique_ptr<SchemaDocument>> documents;

private:
    std::vector<std::unique_ptr<void, void (*)(void*)>> m_owned;
};

} // namespace Qxxsd
