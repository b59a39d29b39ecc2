#pragma once

// qxconv's work, apart from its command line: any document into the library's document tree, and the
// tree out through the library's writers as XML text, Fast Infoset or JSON.

#include <QxXmlLib16/QxXmlLib16.h>

#include <functional>
#include <string>

namespace QxConv {

enum class Format { xml, fi, json };

// The format a file name asks for: ".json", ".fi" or ".finf" (also before a final ".gz"), else XML.
Format FormatOfName(const std::string& fileName);
// "XML", "Fast Infoset" or "JSON".
const char* FormatName(Format format);

// Called now and then with the count of elements written so far, and once at the end.
typedef std::function<void(unsigned long elements)> Progress;

// Loads a whole document of any format, plain or gzip/zlib-compressed, into document: JSON is
// recognised by its first character, Fast Infoset by its header. format tells which it was. Bad
// input fails with the library's CQxException, with a line and column where the input is text
// (XML, or JSON that is no JSON).
void Load(QxXmlLib16::CBinaryData input, QxXmlLib16::CXmlDocument& document, Format& format);

// Writes the document's tree in format, gzip-compressed when asked. Elements, attributes, their
// namespaces and each element's text are kept; the text of an element that has child elements goes
// before them, and is left out when it is only blanks (the indentation between children). JSON
// gathers the same-named children of an element into one array, at the place of the first.
QxXmlLib16::CBinaryData Write(const QxXmlLib16::CXmlDocument& document, Format format, bool gzip,
                              const Progress& progress = nullptr);

} // namespace QxConv
