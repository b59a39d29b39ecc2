#include "Xmllint.h"

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Encoder.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <unistd.h>

XmllintResult ValidateWithXmllint(const std::string& utf8Document, const char* schema) {
    static std::atomic<int> counter{0};
    const std::string file = "xmllint-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".xml";
    std::ofstream(file, std::ios::binary) << utf8Document;
    const std::string command = "xmllint --noout --schema '" QX_TEST_SOURCE_DIR "/binding/support/" +
                                std::string(schema) + "' '" + file + "' 2>&1";
    XmllintResult result{false, std::string()};
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[512];
        while (size_t n = fread(buffer, 1, sizeof buffer, pipe))
            result.output.append(buffer, n);
        result.valid = pclose(pipe) == 0;
    }
    std::remove(file.c_str());
    return result;
}

XmllintResult ValidateWithXmllint(const std::wstring& document, const char* schema) {
    const QxXmlLib16::CBinaryData bytes = QxXmlLib16::CEncoder::UnicodeToUtf8Binary(document.c_str());
    return ValidateWithXmllint(std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength()),
                               schema);
}
