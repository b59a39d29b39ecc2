#pragma once

// Files and checks shared by the GPX proof tests.

#include <QxXmlLib16/xml/XmlElement.h>

#include <string>
#include <vector>

namespace GpxFiles {

// A path under the shared GPX data folder.
std::string Shared(const std::string& relative);
// The schema-valid real documents (the top of the shared GPX folder), by file name.
std::vector<std::string> ValidRealFiles();

std::string ReadBytes(const std::string& path);

// xmllint's verdict on a file against gpx.xsd: empty when valid, else its diagnostics.
std::string SchemaErrors(const std::string& path);

// Empty when both trees hold the same elements, namespaces, attributes (in any order, schema-instance
// ones aside) and text (surrounding whitespace aside, decimals and dateTimes by value); otherwise
// where they first differ.
std::wstring InfosetDifference(const QxXmlLib16::CXmlElement& expected,
                               const QxXmlLib16::CXmlElement& actual);

// The message chain of a failed load of path, with its paths; "(loaded)" when it did not fail.
std::wstring LoadFailure(const std::string& path);

} // namespace GpxFiles
