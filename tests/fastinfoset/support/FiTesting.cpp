#include "FiTesting.h"

#include "support/Documents.h"

#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace fs = std::filesystem;
using namespace QxXmlLib16;

namespace FiTesting {

Octets FromHex(const std::string& hex) {
    Octets octets;
    std::istringstream in(hex);
    std::string pair;
    while (in >> pair)
        octets.push_back(static_cast<unsigned char>(std::stoul(pair, nullptr, 16)));
    return octets;
}

std::string Hex(const Octets& octets) {
    std::string text;
    char pair[4];
    for (unsigned char octet : octets) {
        std::snprintf(pair, sizeof pair, "%02X", octet);
        if (!text.empty()) text += ' ';
        text += pair;
    }
    return text;
}

Octets ToOctets(const CBinaryData& data) {
    return Octets(data.GetData(), data.GetData() + data.GetLength());
}

// Not the library's compressor, which refuses data that does not shrink.
Octets Compressed(const Octets& octets, CompressionType type) {
    z_stream stream = {};
    if (deflateInit2(&stream, 1, Z_DEFLATED, type == ctGzip ? 31 : 15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return Octets();
    Octets out(deflateBound(&stream, static_cast<uLong>(octets.size())) + 32);
    stream.next_in = const_cast<unsigned char*>(octets.data());
    stream.avail_in = static_cast<uInt>(octets.size());
    stream.next_out = out.data();
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

Octets ReadFile(const std::string& path) {
    const std::string bytes = Documents::ReadBytes(path);
    return Octets(bytes.begin(), bytes.end());
}

void WriteFile(const std::string& path, const Octets& octets) {
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(octets.data()), octets.size());
}

void WriteFile(const std::string& path, const std::wstring& text) {
    WriteFile(path, ToOctets(CEncoder::UnicodeToUtf8Binary(text.c_str())));
}

std::wstring Wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

std::string Utf8(const std::wstring& text) {
    const Octets bytes = ToOctets(CEncoder::UnicodeToUtf8Binary(text.c_str()));
    return std::string(bytes.begin(), bytes.end());
}

std::vector<std::string> VectorPaths() {
    std::vector<std::string> paths;
    std::error_code error; // a missing folder lists nothing, and the tests say so
    for (const char* folder : {"fi-vectors", "fi-vectors/crafted"})
        for (const auto& entry : fs::directory_iterator(Documents::Shared(folder), error))
            if (entry.path().extension() == ".finf")
                paths.push_back(entry.path().parent_path().string() + "/" + entry.path().stem().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

Octets Written(const CFastInfosetContext& context, const std::function<void(CFastInfosetWriter&)>& body) {
    CBinaryStream stream;
    {
        CFastInfosetWriter writer(context, stream);
        writer.Open();
        writer.WriteStartDocument(fidNone);
        body(writer);
        writer.WriteEndDocument();
        writer.Close();
    }
    return ToOctets(stream.GetBinaryStream());
}

std::unique_ptr<CXmlDocument> Loaded(const Octets& octets, const CSerializationContext& context) {
    std::unique_ptr<CXmlDocument> document(new CXmlDocument(context));
    Octets copy = octets;
    document->LoadXmlStream(copy.data(), static_cast<unsigned long>(copy.size()));
    return document;
}

namespace {

// UTF-32, whatever the reader made of characters outside the BMP.
std::wstring Characters(const std::wstring& text) {
    std::wstring joined;
    for (size_t i = 0; i < text.size(); ++i) {
        const uint32_t c = static_cast<uint32_t>(text[i]);
        const uint32_t next = i + 1 < text.size() ? static_cast<uint32_t>(text[i + 1]) : 0;
        if (c >= 0xD800 && c < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            joined += static_cast<wchar_t>(0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00));
            ++i;
        } else {
            joined += text[i];
        }
    }
    return joined;
}

bool SameText(const std::wstring& expected, const std::wstring& actual, bool numbersByValue) {
    if (Characters(expected) == Characters(actual)) return true;
    wchar_t *endA = nullptr, *endB = nullptr;
    const double a = std::wcstod(expected.c_str(), &endA), b = std::wcstod(actual.c_str(), &endB);
    return numbersByValue && !expected.empty() && !actual.empty() && *endA == L'\0' && *endB == L'\0' &&
           a == b;
}

std::map<std::wstring, std::wstring> Attributes(const CXmlElement& element) {
    std::map<std::wstring, std::wstring> attributes;
    for (const CXmlAttribute* attribute : element.GetAttributes())
        attributes[L"{" + attribute->GetNamespaceURI() + L"}" + attribute->GetLocalName()] =
            attribute->GetValue();
    return attributes;
}

} // namespace

std::wstring TreeDifference(const CXmlElement& expected, const CXmlElement& actual, bool numbersByValue) {
    std::vector<std::pair<const CXmlElement*, const CXmlElement*>> pending{{&expected, &actual}};
    while (!pending.empty()) {
        const CXmlElement& e = *pending.back().first;
        const CXmlElement& a = *pending.back().second;
        pending.pop_back();
        const auto at = [&e] { return e.GetXPath() + L": "; }; // a walk to the root: only when needed
        if (e.GetLocalName() != a.GetLocalName() || e.GetNamespaceURI() != a.GetNamespaceURI())
            return at() + L"name {" + a.GetNamespaceURI() + L"}" + a.GetLocalName();
        if (!SameText(e.GetText(), a.GetText(), numbersByValue))
            return at() + L"text [" + a.GetText() + L"] instead of [" + e.GetText() + L"]";
        const auto left = Attributes(e), right = Attributes(a);
        if (!std::equal(left.begin(), left.end(), right.begin(), right.end(),
                        [&](const auto& x, const auto& y) {
                            return x.first == y.first && SameText(x.second, y.second, numbersByValue);
                        }))
            return at() + L"attributes";
        const CXmlElement* x = e.GetFirstElement();
        const CXmlElement* y = a.GetFirstElement();
        for (; x && y; x = x->GetNextSiblingElement(), y = y->GetNextSiblingElement())
            pending.emplace_back(x, y);
        if (x || y) return at() + L"child count";
    }
    return std::wstring();
}

std::string TextDifference(const std::string& expected, const std::string& actual) {
    const auto mismatch = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    if (mismatch.first == expected.end() && mismatch.second == actual.end()) return std::string();
    const size_t at = static_cast<size_t>(mismatch.first - expected.begin());
    const size_t from = at < 80 ? 0 : at - 80;
    return "at octet " + std::to_string(at) + ": expected ..." + expected.substr(from, 160) +
           "\nbut found ..." + actual.substr(from, 160);
}

std::string XmlOf(const CXmlObjectBase& object, const CSerializationContext& context) {
    const CBinaryData bytes = object.ToXmlStream(true, true, encUTF8, eolLF, context);
    return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
}

std::string Reference(const std::string& direction,
                      const std::vector<std::pair<std::string, std::string>>& files) {
    const std::string list = TempPath("reference_" + direction + ".list");
    const std::string log = TempPath("reference_" + direction + ".log");
    {
        std::ofstream out(list);
        for (const auto& pair : files) {
            std::remove(pair.second.c_str());
            out << pair.first << '\t' << pair.second << '\n';
        }
    }
    const std::string command = std::string("\"") + QX_JAVA + "\" -cp \"" + QX_FASTINFOSET_JAR + "\" \"" +
                                QX_TEST_SOURCE_DIR + "/fastinfoset/support/ReferenceBatch.java\" " +
                                direction + " \"" + list + "\" >\"" + log + "\" 2>&1";
    if (std::system(command.c_str()) == 0) return std::string();
    return "the reference " + direction + "r failed: " + Documents::ReadBytes(log);
}

} // namespace FiTesting
