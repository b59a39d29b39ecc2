#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

class CXmlElement;

// Base of the class factories a code generator emits to honour xsi:type: a factory maps the pair
// (type namespace, type name) read from an element to the generated class to create.
class QX_API CClassfactoryBase {
public:
    CClassfactoryBase() = default;
    virtual ~CClassfactoryBase() = default;

    // The local part of the element's xsi:type value; empty without one.
    static std::wstring GetElementType(CXmlElement* element);
    // The namespace of the element's xsi:type value: its prefix resolved in the document, or the
    // element's own namespace when it has no prefix or the prefix is unknown.
    static std::wstring GetElementTypeNamespaceUri(CXmlElement* element);
};

} // namespace QxXmlLib16
