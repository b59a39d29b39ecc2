#pragma once

#include "Diagnostics.h"
#include "Locator.h"
#include "Schema.h"

#include <map>
#include <string>

namespace QxXmlLib16 {
class CXmlDocument;
class CXmlElement;
} // namespace QxXmlLib16

namespace Qxxsd {

// Reads schema documents into a SchemaSet: each one named, with everything it includes and imports,
// then resolves the references between their components. Every refusal is a CSchemaError with the
// file and line of the offending declaration.
class CSchemaReader {
public:
    CSchemaReader(SchemaSet& set, const CLocator& locator, CDiagnostics& diagnostics);

    // A schema named by the user.
    void Read(const std::wstring& file);
    // Resolves every reference once all documents are read, and checks the set for cycles.
    void Resolve();

private:
    struct Context {
        SchemaDocument* document;
        const QxXmlLib16::CXmlDocument* xml;
        // The namespace a schema without one takes from the schema that includes it.
        std::wstring chameleon;
    };

    void Load(const std::wstring& file, const std::wstring& location, const std::wstring& display,
              const std::wstring* includerNamespace, const Location& from);
    void ReadSchema(const Context& context, const QxXmlLib16::CXmlElement* schema);
    void ReadInclusion(const Context& context, const QxXmlLib16::CXmlElement* element);

    SimpleType* ReadSimpleType(const Context& context, const QxXmlLib16::CXmlElement* element, QName name,
                               const std::wstring& hint = std::wstring());
    ComplexType* ReadComplexType(const Context& context, const QxXmlLib16::CXmlElement* element, QName name);
    void ReadComplexContent(const Context& context, const QxXmlLib16::CXmlElement* element,
                            ComplexType* type);
    Element* ReadElement(const Context& context, const QxXmlLib16::CXmlElement* element, bool global);
    Attribute* ReadAttribute(const Context& context, const QxXmlLib16::CXmlElement* element, bool global);
    AttributeUse* ReadAttributeUse(const Context& context, const QxXmlLib16::CXmlElement* element);
    // The attribute, attributeGroup and anyAttribute children of element.
    void ReadAttributes(const Context& context, const QxXmlLib16::CXmlElement* element, AttributeSet& into);
    Particle* ReadParticle(const Context& context, const QxXmlLib16::CXmlElement* element);
    ModelGroup* ReadModelGroup(const Context& context, const QxXmlLib16::CXmlElement* element);
    void ReadFacet(const Context& context, const QxXmlLib16::CXmlElement* element, Facets& facets);
    Wildcard ReadWildcard(const Context& context, const QxXmlLib16::CXmlElement* element);
    void ReadOccurs(const Context& context, const QxXmlLib16::CXmlElement* element, Particle* particle);

    Location Where(const Context& context, const QxXmlLib16::CXmlElement* element) const;
    QName Reference(const Context& context, const QxXmlLib16::CXmlElement* element, const std::wstring& text);
    QName Declared(const Context& context, const QxXmlLib16::CXmlElement* element, bool qualified);
    template <class T>
    void Register(std::map<QName, T*>& table, T* component, const QName& name, const wchar_t* kind);
    [[noreturn]] void Unknown(const wchar_t* kind, const QName& name, const Location& where) const;

    void ResolveType(TypeRef& type, const Location& where, bool simpleOnly);
    void ResolveSimpleType(SimpleType* type);
    void ResolveComplexType(ComplexType* type);
    void ResolveParticle(Particle* particle);
    void ResolveAttributes(AttributeSet& attributes);
    void CheckGroupCycles(NamedGroup* group, const ModelGroup* model);

    SchemaSet& m_set;
    const CLocator& m_locator;
    CDiagnostics& m_diagnostics;
    std::map<std::wstring, bool> m_loaded; // by location and target namespace
    // Namespaces imported without a schema location, for the advice when their components are missing.
    std::map<std::wstring, Location> m_unlocatedImports;
    std::vector<Element*> m_allElements;
    std::vector<Attribute*> m_allAttributes;
    std::vector<Particle*> m_allParticles;
    std::vector<AttributeSet*> m_allAttributeSets;
    ComplexType* m_anyType = nullptr;
    int m_root = -1;
};

} // namespace Qxxsd
