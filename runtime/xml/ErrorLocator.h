#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <functional>
#include <string>

namespace QxXmlLib16 {

class CQxException;
class CXmlDocument;

namespace internal {

// Gives load errors the line and column of the node they name. Nothing of it runs while a load
// succeeds: the input is read once more, and only when an error is thrown.
class QX_API CErrorLocator {
public:
    // The name a path gives to a node of namespace namespaceURI and local name localName.
    typedef std::function<std::wstring(const std::wstring& namespaceURI, const std::wstring& localName)>
        QualifiedName;

    // Where the node that path names (as CXmlElement::GetXPath and CXmlAttribute::GetXPath write
    // it: "/a/p:b[2]/@c") stands in the XML text data: the start of its start tag, or of the
    // attribute's name. utf16 says data is UTF-16 whatever its declaration says. False when the
    // text holds no such node or is malformed before it.
    static bool Find(const unsigned char* data, unsigned long length, bool utf16, bool namespaceAware,
                     const std::wstring& path, const QualifiedName& qualifiedName, unsigned long& line,
                     unsigned long& column);

    // Gives error, unless it has a position already, that of the node named by the innermost path
    // of its chain, in the XML text document was loaded from. Only while that text still exists,
    // that is inside the entry point that loaded it; nothing for a document loaded from anything
    // else.
    static void Locate(const CXmlDocument& document, CQxException& error);
};

} // namespace internal
} // namespace QxXmlLib16
