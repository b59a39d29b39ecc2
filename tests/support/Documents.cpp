#include "support/Documents.h"

#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/xml/XmlAttribute.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

using namespace QxXmlLib16;
namespace fs = std::filesystem;

namespace Documents {

namespace {

const wchar_t kXsi[] = L"http://www.w3.org/2001/XMLSchema-instance";

std::wstring Trimmed(const std::wstring& text) {
    const size_t first = text.find_first_not_of(L" \t\r\n");
    if (first == std::wstring::npos) return L"";
    return text.substr(first, text.find_last_not_of(L" \t\r\n") - first + 1);
}

template <class Parse>
bool SameParsed(const std::wstring& a, const std::wstring& b, Parse parse) {
    try {
        return parse(a) == parse(b);
    } catch (const CQxException&) {
        return false;
    }
}

// A real number spelled wholly as wcstod reads it, else NaN.
double Real(const std::wstring& text) {
    wchar_t* end = nullptr;
    const double value = std::wcstod(text.c_str(), &end);
    return !text.empty() && *end == L'\0' ? value : std::nan("");
}

bool SameValue(const std::wstring& expected, const std::wstring& actual, bool canonical) {
    if (expected == actual) return true;
    if (!canonical) return false;
    const std::wstring a = Trimmed(expected), b = Trimmed(actual);
    return a == b || SameParsed(a, b, [](const std::wstring& t) { return CDecimal(t.c_str()); }) ||
           SameParsed(a, b, [](const std::wstring& t) { return CDateTime::ParseXSDDateTime(t.c_str()); }) ||
           Real(a) == Real(b);
}

// Attributes as ({namespace}name, value), in document order. With canonical values their order does
// not count, the schema location hints are left out and an xsi:type keeps only its local part, since
// its prefix is the writer's choice.
std::vector<std::pair<std::wstring, std::wstring>> Attributes(const CXmlElement& element, bool canonical) {
    std::vector<std::pair<std::wstring, std::wstring>> attributes;
    for (const CXmlAttribute* attribute : element.GetAttributes()) {
        std::wstring value = attribute->GetValue();
        if (canonical && attribute->GetNamespaceURI() == kXsi) {
            if (attribute->GetLocalName() != L"type") continue;
            value = value.substr(value.find(L':') + 1);
        }
        attributes.emplace_back(L"{" + attribute->GetNamespaceURI() + L"}" + attribute->GetLocalName(),
                                value);
    }
    if (canonical) std::sort(attributes.begin(), attributes.end());
    return attributes;
}

} // namespace

std::string Shared(const std::string& relative) {
    return std::string(QX_SHARED_DATA_DIR) + "/" + relative;
}

std::vector<std::string> SharedFiles(const std::string& folder, const std::string& extension) {
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(Shared(folder)))
        if (entry.is_regular_file() && entry.path().extension() == extension)
            files.push_back(folder + "/" + entry.path().filename().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::string TestName(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return text;
}

std::string XmllintFileErrors(const std::string& path, const std::string& schema) {
    const std::string command = "xmllint --noout " +
                                (schema.empty() ? std::string() : "--schema '" + schema + "' ") + "'" + path +
                                "' 2>&1";
    std::string output;
    int status = -1;
    if (std::FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[4096];
        while (size_t n = std::fread(buffer, 1, sizeof buffer, pipe))
            output.append(buffer, n);
        status = pclose(pipe);
    }
    return status == 0 ? std::string() : output.empty() ? "xmllint failed" : output;
}

std::string XmllintErrors(const std::wstring& document, const std::string& schema) {
    static std::atomic<int> counter{0};
    const std::string file = "xmllint-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".xml";
    const CBinaryData bytes = CEncoder::UnicodeToUtf8Binary(document.c_str());
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
    const std::string errors = XmllintFileErrors(file, schema);
    std::remove(file.c_str());
    return errors;
}

std::wstring TreeDifference(const CXmlElement& expected, const CXmlElement& actual, bool canonicalValues) {
    // A loop, not recursion: the shared documents are deep enough to matter under the sanitizers.
    std::vector<std::pair<const CXmlElement*, const CXmlElement*>> pending{{&expected, &actual}};
    while (!pending.empty()) {
        const auto [e, a] = pending.back();
        pending.pop_back();
        // The path costs a walk to the root: built only for a difference.
        const auto at = [e = e] { return e->GetXPath() + L": "; };
        if (e->GetLocalName() != a->GetLocalName() || e->GetNamespaceURI() != a->GetNamespaceURI())
            return at() + L"name {" + a->GetNamespaceURI() + L"}" + a->GetLocalName();
        if (!SameValue(e->GetText(), a->GetText(), canonicalValues))
            return at() + L"text [" + a->GetText() + L"]";
        const auto left = Attributes(*e, canonicalValues), right = Attributes(*a, canonicalValues);
        if (!std::equal(left.begin(), left.end(), right.begin(), right.end(),
                        [&](const auto& x, const auto& y) {
                            return x.first == y.first && SameValue(x.second, y.second, canonicalValues);
                        }))
            return at() + L"attributes";
        const CXmlElement* x = e->GetFirstElement();
        const CXmlElement* y = a->GetFirstElement();
        for (; x && y; x = x->GetNextSiblingElement(), y = y->GetNextSiblingElement())
            pending.emplace_back(x, y);
        if (x || y) return at() + L"child count";
    }
    return L"";
}

} // namespace Documents
