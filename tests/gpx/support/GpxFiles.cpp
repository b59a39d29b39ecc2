#include "GpxFiles.h"

#include "GpxBindings.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace fs = std::filesystem;
using namespace QxXmlLib16;

namespace GpxFiles {

namespace {

std::wstring Trimmed(const std::wstring& text) {
    const size_t first = text.find_first_not_of(L" \t\r\n");
    if (first == std::wstring::npos) return L"";
    return text.substr(first, text.find_last_not_of(L" \t\r\n") - first + 1);
}

// Typed members write their values in canonical form ("46.2040" comes back as "46.204",
// "08.000Z" as "08Z"): texts are the same when they are, or when they hold the same decimal or
// dateTime value.
bool SameValue(const std::wstring& expected, const std::wstring& actual) {
    if (expected == actual) return true;
    try {
        return CDecimal(expected.c_str()) == CDecimal(actual.c_str());
    } catch (const CQxException&) {
    }
    try {
        return CDateTime::ParseXSDDateTime(expected.c_str()) == CDateTime::ParseXSDDateTime(actual.c_str());
    } catch (const CQxException&) {
    }
    return false;
}

// Schema-instance attributes (the schema location hints) are not data, and no binding keeps them.
std::map<std::wstring, std::wstring> Attributes(const CXmlElement& element) {
    std::map<std::wstring, std::wstring> attributes;
    for (const CXmlAttribute* attribute : element.GetAttributes())
        if (attribute->GetNamespaceURI() != L"http://www.w3.org/2001/XMLSchema-instance")
            attributes[L"{" + attribute->GetNamespaceURI() + L"}" + attribute->GetLocalName()] =
                attribute->GetValue();
    return attributes;
}

bool SameAttributes(const CXmlElement& expected, const CXmlElement& actual) {
    const auto left = Attributes(expected), right = Attributes(actual);
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const auto& a, const auto& b) {
        return a.first == b.first && SameValue(a.second, b.second);
    });
}

} // namespace

std::string Shared(const std::string& relative) {
    return std::string(QX_SHARED_DATA_DIR) + "/gpx/" + relative;
}

std::vector<std::string> ValidRealFiles() {
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(Shared("")))
        if (entry.is_regular_file() && entry.path().extension() == ".gpx")
            files.push_back(entry.path().filename().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::string SchemaErrors(const std::string& path) {
    const std::string command = "xmllint --noout --schema '" + Shared("gpx.xsd") + "' '" + path + "' 2>&1";
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return "xmllint could not be started";
    std::string output;
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, n);
    return pclose(pipe) == 0 ? std::string() : output;
}

std::wstring InfosetDifference(const CXmlElement& expected, const CXmlElement& actual) {
    // A loop, not recursion: generated documents can be deep enough to matter under the sanitizers.
    std::vector<std::pair<const CXmlElement*, const CXmlElement*>> pending{{&expected, &actual}};
    while (!pending.empty()) {
        const auto [e, a] = pending.back();
        pending.pop_back();
        const auto where = [e = e] { return e->GetXPath() + L": "; };
        if (e->GetLocalName() != a->GetLocalName() || e->GetNamespaceURI() != a->GetNamespaceURI())
            return where() + L"name {" + a->GetNamespaceURI() + L"}" + a->GetLocalName();
        if (!SameValue(Trimmed(e->GetText()), Trimmed(a->GetText())))
            return where() + L"text [" + a->GetText() + L"]";
        if (!SameAttributes(*e, *a)) return where() + L"attributes";
        const CXmlElement* x = e->GetFirstElement();
        const CXmlElement* y = a->GetFirstElement();
        for (; x && y; x = x->GetNextSiblingElement(), y = y->GetNextSiblingElement())
            pending.emplace_back(x, y);
        if (x || y) return where() + L"child count";
    }
    return L"";
}

std::wstring LoadFailure(const std::string& path) {
    try {
        const CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
        gpx->FromXmlFile(std::wstring(path.begin(), path.end()).c_str());
    } catch (const CQxException& e) {
        return e.GetFullMessage();
    }
    return L"(loaded)";
}

} // namespace GpxFiles
