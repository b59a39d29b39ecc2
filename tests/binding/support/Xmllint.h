#pragma once

#include <string>

// Runs the independent validator xmllint on a document against a schema of binding/support (the
// trip schema by default). The document is written to a temporary file in the working directory
// (the test's build folder).
struct XmllintResult {
    bool valid;
    std::string output; // xmllint's diagnostics
};

XmllintResult ValidateWithXmllint(const std::string& utf8Document, const char* schema = "testschema.xsd");
XmllintResult ValidateWithXmllint(const std::wstring& document, const char* schema = "testschema.xsd");
