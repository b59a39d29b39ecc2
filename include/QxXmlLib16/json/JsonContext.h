#pragma once

#include <QxXmlLib16/foundation/Export.h>

#include <string>

namespace QxXmlLib16 {

// How much of the XML infoset a JSON document keeps.
enum JsonRoundTrip : int {
    jrtNone = 0,    // attributes and text are plain members ("x", ""); no namespaces
    jrtMarkers = 1, // attributes as "@x", text beside attributes or children as "#text"; no namespaces
    jrtFull = 2,    // as 1, with prefixed names and the namespace declarations as "@xmlns" members
};

// The JSON options of a serialization context (CSerializationContext::GetJsonContext).
class QX_API CJsonContext {
public:
    CJsonContext();
    virtual ~CJsonContext();

    // jrtFull by default. Throws CQxInvalidParamException "Invalid JSON round-trip level [%d]." for a
    // value outside the enumeration.
    JsonRoundTrip GetSupportRoundtrip() const { return m_supportRoundtrip; }
    void SetSupportRoundtrip(JsonRoundTrip level);
    // When set, reading wraps the whole JSON value in an element of this name, so that a document
    // whose top level is not a single named member can be loaded. Null sets "".
    const std::wstring& GetRootElementName() const { return m_rootElementName; }
    void SetRootElementName(const wchar_t* name) { m_rootElementName = name ? name : L""; }
    // Whether reading accepts /* */ and // comments where blanks may stand (default true).
    bool GetAllowComments() const { return m_allowComments; }
    // The setter of AllowComments; the name is part of the interface.
    void GetAllowComments(bool allow) { m_allowComments = allow; }
    // Off by default: strings are written with the quote, the backslash, tab, backspace and form
    // feed as they are and line feeds as raw line ends, which standard JSON parsers refuse. On, they
    // are escaped as RFC 8259 requires (and so is every other control character, and surrogates as
    // \u escapes), so that any string reads back unchanged, and comments are left out.
    bool GetRfc8259Escaping() const { return m_rfc8259Escaping; }
    void SetRfc8259Escaping(bool escape) { m_rfc8259Escaping = escape; }

    // Throws the same as SetSupportRoundtrip when level is outside the enumeration.
    static void CheckRoundtrip(JsonRoundTrip level);

private:
    JsonRoundTrip m_supportRoundtrip;
    std::wstring m_rootElementName;
    bool m_allowComments;
    bool m_rfc8259Escaping;
};

} // namespace QxXmlLib16
