#pragma once

// Python's json module as the judge of what the library writes (see json_check.py beside this).

#include "json/support/Handlers.h"

#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/json/JsonTextReader.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace PythonJson {

// The checker's report on the arguments (files that must be JSON, or --strings and its two files):
// empty when everything passed.
inline std::string Run(const std::vector<std::string>& arguments) {
    std::string command = "python3 '" QX_TEST_SOURCE_DIR "/json/support/json_check.py'";
    for (const std::string& argument : arguments)
        command += " '" + argument + "'";
    command += " 2>&1";
    std::string output;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[4096];
        for (size_t read; (read = fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            output.append(buffer, read);
        if (pclose(pipe) != 0 && output.empty()) output = "the checker failed";
    } else {
        output = "python3 could not be started";
    }
    return output;
}

// Whether a string of json, written with RFC 8259 escaping, holds a character that the established
// escaping writes as it is: the quote, the backslash, tab, backspace, form feed or line feed.
inline bool HasCharactersLeftUnescaped(const std::wstring& json) {
    struct Scan : CIgnoringHandler {
        bool found = false;
        void Check(const std::wstring& text) {
            for (wchar_t c : text)
                found =
                    found || c == L'"' || c == L'\\' || c == L'\t' || c == L'\b' || c == L'\f' || c == L'\n';
        }
        void ReadName(const std::wstring& name) override { Check(name); }
        void ReadString(const std::wstring& value) override { Check(value); }
    } scan;
    QxXmlLib16::CJsonTextReader reader(json);
    reader.SetJsonReaderHandler(&scan);
    reader.Read();
    return scan.found;
}

// Writes text as UTF-8 into a file under the test's temporary folder and returns its path.
inline std::string WriteUtf8File(const std::string& name, const std::wstring& text) {
    const std::string path = testing::TempDir() + name;
    const QxXmlLib16::CBinaryData bytes = QxXmlLib16::CEncoder::UnicodeToUtf8Binary(text.c_str());
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.GetData()),
               static_cast<std::streamsize>(bytes.GetLength()));
    return path;
}

} // namespace PythonJson
