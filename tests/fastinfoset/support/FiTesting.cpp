#include "FiTesting.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>
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

Octets Body(const Octets& document) {
    return document.size() < 5 ? Octets() : Octets(document.begin() + 5, document.end());
}

Octets Compressed(const Octets& octets, bool gzip) {
    z_stream stream = {};
    if (deflateInit2(&stream, 1, Z_DEFLATED, gzip ? 31 : 15, 8, Z_DEFAULT_STRATEGY) != Z_OK) return Octets();
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

std::string SharedData(const std::string& relative) {
    return std::string(QX_SHARED_DATA_DIR) + "/" + relative;
}

Octets ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return Octets(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

void WriteFile(const std::string& path, const Octets& octets) {
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(octets.data()), octets.size());
}

void WriteFile(const std::string& path, const std::wstring& text) {
    const std::string bytes = Utf8(text);
    WriteFile(path, Octets(bytes.begin(), bytes.end()));
}

std::wstring Wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

std::string Utf8(const std::wstring& text) {
    std::string bytes(UnicodeToUTF8(text.data(), text.size(), nullptr, 0), '\0');
    if (!bytes.empty())
        UnicodeToUTF8(text.data(), text.size(), reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size());
    return bytes;
}

std::vector<std::string> VectorPaths() {
    std::vector<std::string> paths;
    std::error_code error; // a missing folder lists nothing, and the tests say so
    for (const char* folder : {"fi-vectors", "fi-vectors/crafted"})
        for (const auto& entry : fs::directory_iterator(SharedData(folder), error))
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

bool IsNumber(const std::wstring& text, double& value) {
    if (text.empty()) return false;
    wchar_t* end = nullptr;
    value = std::wcstod(text.c_str(), &end);
    return end == text.c_str() + text.size();
}

bool SameText(const std::wstring& expected, const std::wstring& actual, bool numbersByValue) {
    if (Characters(expected) == Characters(actual)) return true;
    double a, b;
    return numbersByValue && IsNumber(expected, a) && IsNumber(actual, b) && a == b;
}

std::map<std::wstring, std::wstring> Attributes(const CXmlElement& element) {
    std::map<std::wstring, std::wstring> attributes;
    for (const CXmlAttribute* attribute : element.GetAttributes())
        attributes[L"{" + attribute->GetNamespaceURI() + L"}" + attribute->GetLocalName()] =
            attribute->GetValue();
    return attributes;
}

std::wstring NodeDifference(const CXmlElement& expected, const CXmlElement& actual, bool numbersByValue) {
    if (expected.GetLocalName() != actual.GetLocalName() ||
        expected.GetNamespaceURI() != actual.GetNamespaceURI())
        return L"name {" + actual.GetNamespaceURI() + L"}" + actual.GetLocalName();
    if (!SameText(expected.GetText(), actual.GetText(), numbersByValue))
        return L"text [" + actual.GetText() + L"] instead of [" + expected.GetText() + L"]";
    const auto left = Attributes(expected), right = Attributes(actual);
    if (left.size() != right.size()) return L"attribute count";
    for (auto a = left.begin(), b = right.begin(); a != left.end(); ++a, ++b)
        if (a->first != b->first || !SameText(a->second, b->second, numbersByValue))
            return L"attribute " + b->first + L"=[" + b->second + L"] instead of " + a->first + L"=[" +
                   a->second + L"]";
    return std::wstring();
}

} // namespace

std::wstring TreeDifference(const CXmlElement& expected, const CXmlElement& actual, bool numbersByValue) {
    const CXmlElement* a = &expected;
    const CXmlElement* b = &actual;
    for (;;) {
        const std::wstring difference = NodeDifference(*a, *b, numbersByValue);
        if (!difference.empty()) return a->GetXPath() + L": " + difference;
        if (a->GetFirstElement() || b->GetFirstElement()) {
            if (!a->GetFirstElement() || !b->GetFirstElement()) return a->GetXPath() + L": child count";
            a = a->GetFirstElement();
            b = b->GetFirstElement();
            continue;
        }
        for (;;) {
            if (a == &expected) return std::wstring();
            if (a->GetNextSiblingElement() || b->GetNextSiblingElement()) {
                if (!a->GetNextSiblingElement() || !b->GetNextSiblingElement())
                    return a->GetParentElement()->GetXPath() + L": child count";
                a = a->GetNextSiblingElement();
                b = b->GetNextSiblingElement();
                break;
            }
            a = a->GetParentElement();
            b = b->GetParentElement();
        }
    }
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
    const Octets output = ReadFile(log);
    return "the reference " + direction + "r failed: " + std::string(output.begin(), output.end());
}

} // namespace FiTesting
