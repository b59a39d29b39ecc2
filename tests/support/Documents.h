#pragma once

#include <QxXmlLib16/xml/XmlElement.h>

#include <string>
#include <vector>

// Documents shared by the tests: the shared data folder, the independent validator xmllint, and
// comparison of element trees.
namespace Documents {

// A file of the shared test documents, by its path below the shared data folder.
std::string Shared(const std::string& relative);
// The files with the extension in a folder of the shared data, by their path below it, sorted.
std::vector<std::string> SharedFiles(const std::string& folder, const std::string& extension);
std::string ReadBytes(const std::string& path);
// A name fit for a parameterised test.
std::string TestName(std::string text);

// Validates with xmllint against a schema (a path), or for well-formedness only (empty schema).
// The diagnostics, or empty when valid.
std::string XmllintErrors(const std::wstring& document, const std::string& schema);
std::string XmllintFileErrors(const std::string& path, const std::string& schema);

// The first difference of two trees, by the XPath where it stands; empty when they agree in names,
// namespaces, attributes (in order) and text. With canonical values, for a document written back by
// the bindings, a value also agrees when it holds the same decimal, real or dateTime, blanks around
// text and the order of attributes do not count, and of the schema-instance attributes only an
// xsi:type counts, by its local part.
std::wstring TreeDifference(const QxXmlLib16::CXmlElement& expected, const QxXmlLib16::CXmlElement& actual,
                            bool canonicalValues = false);

} // namespace Documents
