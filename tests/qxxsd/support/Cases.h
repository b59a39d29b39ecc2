#pragma once

#include <ostream>
#include <string>
#include <vector>

// The schemas of qxxsd/cases and their documents.
namespace Cases {

struct Document {
    std::string schema; // the case: its schema is <schema>.xsd
    std::string file;   // <schema>/<file>
};
inline void PrintTo(const Document& document, std::ostream* out) {
    *out << document.schema << "/" << document.file;
}

std::string Folder();
std::vector<std::string> Schemas();
std::vector<Document> Documents();

// Whether xmllint finds the document valid against the case's schema, with the case folder's
// catalogs; what it said goes to output.
bool XmllintValid(const std::string& schema, const std::string& document, std::string* output = nullptr);

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& bytes);
std::string Utf8(const std::wstring& text);
std::wstring Wide(const std::string& utf8);

} // namespace Cases
