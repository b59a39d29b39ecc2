#pragma once

// The bound objects and writer scripts that the round-trip and interoperability tests write.

#include "FiTesting.h"

#include <functional>
#include <string>
#include <vector>

namespace FiCorpus {

// A bound object to write, by name.
struct Bound {
    std::string name;
    std::function<QxXmlLib16::CSmartPtr<QxXmlLib16::CXmlObjectBase>()> make;
    bool suggested; // write under the suggested encodings
};
// The trips, the content schema's bag (every built-in value type, every wildcard) and the groups
// schema's document (choices, all groups, derived types), under the default and the suggested
// encodings.
std::vector<Bound> SchemaObjects();

// The schema-valid real GPX documents of the shared folder, and the one with long decimals.
std::vector<std::string> GpxFiles();
// A generated GPX document (every construct the GPX generator makes) of the given size, made once.
std::string GeneratedGpx(int points);

// The same calls to an XML text writer and a Fast Infoset writer: both give one document.
struct Script {
    std::string name;
    std::function<void(QxXmlLib16::CXmlWriter&)> write;
};
// Names and values past every index form, namespaces, long, mixed and non-ASCII text, depth.
std::vector<Script> Scripts();
// The script's document as XML text (UTF-8, unformatted) and as Fast Infoset.
std::wstring AsXml(const Script& script);
FiTesting::Octets AsFastInfoset(const Script& script);

} // namespace FiCorpus
