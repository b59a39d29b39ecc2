#include "qxxsd/support/Cases.h"

#include <QxXmlLib16/foundation/ConvertUTF.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace Cases {

std::string Folder() {
    return QX_QXXSD_CASES;
}

std::vector<std::string> Schemas() {
    std::vector<std::string> schemas;
    for (const auto& entry : fs::directory_iterator(Folder()))
        if (entry.path().extension() == ".xsd") schemas.push_back(entry.path().stem().string());
    std::sort(schemas.begin(), schemas.end());
    return schemas;
}

std::vector<Document> Documents() {
    std::vector<Document> documents;
    for (const std::string& schema : Schemas()) {
        const fs::path folder = fs::path(Folder()) / schema;
        if (!fs::is_directory(folder)) continue;
        std::vector<std::string> files;
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().extension() == ".xml") files.push_back(entry.path().filename().string());
        std::sort(files.begin(), files.end());
        for (const std::string& file : files)
            documents.push_back({schema, file});
    }
    return documents;
}

bool XmllintValid(const std::string& schema, const std::string& document, std::string* output) {
    std::string catalogs;
    const fs::path folder = fs::path(Folder()) / schema;
    if (fs::is_directory(folder))
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().extension() == ".catalog")
                catalogs += (catalogs.empty() ? "" : " ") + entry.path().string();
    const std::string command = "XML_CATALOG_FILES='" + catalogs + "' xmllint --noout --nonet --schema '" +
                                Folder() + "/" + schema + ".xsd' '" + document + "' 2>&1";
    std::FILE* pipe = popen(command.c_str(), "r");
    std::string said;
    char buffer[4096];
    for (size_t read; pipe && (read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        said.append(buffer, read);
    const int status = pipe ? pclose(pipe) : -1;
    if (output) *output = said;
    return status == 0;
}

std::string ReadFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

void WriteFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string Utf8(const std::wstring& text) {
    std::string bytes(UnicodeToUTF8(text.c_str(), text.size(), nullptr, 0), '\0');
    UnicodeToUTF8(text.c_str(), text.size(), reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size());
    return bytes;
}

std::wstring Wide(const std::string& utf8) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(utf8.data());
    std::wstring text(UTF8ToUnicode(bytes, utf8.size(), nullptr, 0), L'\0');
    UTF8ToUnicode(bytes, utf8.size(), &text[0], text.size());
    return text;
}

} // namespace Cases
