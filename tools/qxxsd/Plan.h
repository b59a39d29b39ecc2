#pragma once

// What the compiler will emit: the schema's components mapped to C++ enumerations, value checks and
// classes with their members, named once and for all. The emitter only writes this out.

#include "Diagnostics.h"
#include "Schema.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Qxxsd {

struct EnumPlan {
    std::wstring name;    // the C++ enumeration
    std::wstring xmlName; // the schema type it binds, for messages
    std::vector<std::wstring> values;
    std::vector<std::wstring> enumerators;
    std::wstring documentation;
};

// How the values of one simple type are held and checked.
struct ValuePlan {
    enum Kind {
        Primitive, // a library value type, its facets in a CPrimitiveRestrictions record
        Enum,      // a C++ enumeration
        Text,      // the text, checked by a generated function (lists, unions, facets the record lacks)
    };
    Kind kind = Primitive;
    int itemType = 0;
    Whitespace whitespace = Whitespace::Collapse;
    const Facets* facets = nullptr; // Primitive: the effective facets, null when none apply
    std::wstring facetsName;        // the function that returns the record
    EnumPlan* enumeration = nullptr;
    std::wstring checkName;              // Text: the check function
    std::vector<std::wstring> checkBody; // its statements
    std::wstring xmlName;
    std::wstring documentation;
    bool emitted = false;
};

struct ClassPlan;

struct MemberPlan {
    enum Kind { Value, Class, Wildcard, Group, AnyAttribute };
    enum Cardinality { Mandatory, Optional, Repeated };
    Kind kind = Value;
    Cardinality cardinality = Mandatory;
    bool attribute = false;
    std::wstring xmlName, xmlNamespace;
    std::wstring cppName; // GetX, SetX, m_x, pnX
    int property = 0;
    ValuePlan* value = nullptr;
    ClassPlan* type = nullptr;
    bool polymorphic = false; // the element may hold derived types: chosen by the type factory
    long long minOccurs = 1, maxOccurs = 1;
    bool nillable = false;
    std::optional<std::wstring> defaultValue;
    bool fixed = false;
    bool required = false;         // an attribute the element must carry
    bool emptiable = false;        // a group that may read nothing
    std::wstring rule, ruleTarget; // wildcards
    std::wstring documentation;
    std::vector<MemberPlan*> choiceSiblings; // members that setting this one clears
};

struct ClassPlan {
    std::wstring name;
    std::wstring xmlType, xmlNamespace; // the type (or group) as the schema names it
    std::wstring elementName;           // the default element name of a new object
    bool group = false;                 // content inline in the parent's element
    int compositor = 0;                 // egSequence, egChoice, egAll
    ClassPlan* base = nullptr;
    bool derivedType = false; // written with xsi:type where its element names another type
    bool abstract = false;
    bool nillable = false;
    bool polymorphic = false;            // has derived types: a type factory chooses among them
    std::vector<MemberPlan*> members;    // its own, properties numbered after the base's
    std::vector<MemberPlan*> attributes; // every attribute descriptor, inherited ones included
    std::vector<MemberPlan*> elements;   // every element descriptor, in model order
    MemberPlan* content = nullptr;       // simple content
    std::wstring contentCheck;           // checks a narrower content type than the base's
    std::wstring factoryName;            // polymorphic: the function choosing the class by xsi:type
    std::vector<ClassPlan*> derived;     // every class derived from it, transitively
    int lastProperty = 0;
    int file = 0; // index of the source file it goes to
    std::wstring documentation;
    Location where;
};

struct RootPlan {
    QName name;
    ClassPlan* type;
};

// One source per schema named by the user, holding the classes of the documents it brought in.
struct SourceFile {
    std::wstring schema;
    std::wstring suffix; // of the file name: empty for the first
};

struct CodeModel {
    std::vector<EnumPlan*> enums;
    std::vector<ValuePlan*> values;  // in dependency order: checks call those of their parts
    std::vector<ClassPlan*> classes; // bases before derived classes
    std::vector<RootPlan> roots;
    std::vector<SourceFile> files;
    std::vector<std::pair<std::wstring, std::wstring>> namespaceConstants; // name, URI
    std::map<std::wstring, std::wstring> namespaceConstant;                // URI to name
    std::vector<std::wstring> schemaFiles;
};

// Maps a read and resolved SchemaSet to the code model.
class CPlanner {
public:
    CPlanner(const SchemaSet& set, CDiagnostics& diagnostics);
    ~CPlanner();
    CodeModel& Plan(const std::vector<std::wstring>& schemaFiles);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace Qxxsd
