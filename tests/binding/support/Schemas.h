#pragma once

#include <QxXmlLib16/QxXmlLib16.h>

#include <string>

// The schemas the binding tests load documents of, each with its bindings' root class.
enum class Schema {
    Trip,    // testschema.xsd: sequences, every primitive attribute, nil, xsi:type
    Groups,  // groups.xsd: choices, all groups, inline groups, abstract types
    Crate,   // repeated all-group members, which XML Schema 1.0 cannot express: no schema file
    Content, // content.xsd: every typed collection and wildcards of every rule
    Gpx,     // the GPX 1.1 bindings of examples/gpx
    Untyped, // any document, into a wildcard element (CElement)
};

// The schema file, or empty for Crate and Untyped.
std::string SchemaFile(Schema schema);
// A new, empty root object of the schema's bindings.
QxXmlLib16::CSmartPtr<QxXmlLib16::CXmlObjectBase> NewRoot(Schema schema);

// The smallest valid document of each schema, and one with a single replacement made in it.
std::wstring ValidDocument(Schema schema);
std::wstring Edited(Schema schema, const std::wstring& from, const std::wstring& to);
