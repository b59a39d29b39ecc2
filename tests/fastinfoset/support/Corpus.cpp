#include "Corpus.h"

#include "support/Documents.h"

#include "binding/support/ContentSchema.h"
#include "binding/support/GroupsSchema.h"
#include "binding/support/ProofDocuments.h"
#include "binding/support/Trips.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;
using namespace QxXmlLib16;

namespace FiCorpus {

std::vector<Bound> SchemaObjects() {
    typedef CSmartPtr<CXmlObjectBase> Object;
    const std::pair<const char*, std::function<Object()>> objects[] = {
        {"minimalTrip", [] { return Object(Trips::Minimal().Get()); }},
        {"fullTrip", [] { return Object(Trips::Full().Get()); }},
        {"nilContactTrip", [] { return Object(Trips::NilContact().Get()); }},
        {"fullBag",
         [] {
             CSmartPtr<ContentSchema::CBag> bag(new ContentSchema::CBag);
             bag->FromXml(ProofDocuments::kContentFull);
             return Object(bag.Get());
         }},
        {"fullGroups",
         [] {
             CSmartPtr<GroupsSchema::CGroups> groups(new GroupsSchema::CGroups);
             groups->FromXml(ProofDocuments::Groups().c_str());
             return Object(groups.Get());
         }},
    };
    std::vector<Bound> bound;
    for (bool suggested : {false, true})
        for (const auto& object : objects)
            bound.push_back(
                Bound{std::string(object.first) + (suggested ? "Suggested" : ""), object.second, suggested});
    return bound;
}

std::vector<std::string> GpxFiles() {
    std::vector<std::string> files = Documents::SharedFiles("gpx", ".gpx");
    files.push_back("gpx/long-decimals/garmin-connect-bikeride.gpx");
    for (std::string& file : files)
        file = Documents::Shared(file);
    return files;
}

std::string GeneratedGpx(int points) {
    const std::string path = TempPath("generated-" + std::to_string(points) + ".gpx");
    if (!fs::exists(path)) {
        const std::string command = "python3 \"" + std::string(QX_SHARED_DATA_DIR) +
                                    "/../tools/gen_gpx.py\" --points " + std::to_string(points) + " -o \"" +
                                    path + "\"";
        if (std::system(command.c_str()) != 0) return std::string();
    }
    return path;
}

namespace {

// A short text per number, distinct for every number: table entries below the max add length.
std::wstring Short(int number) {
    const wchar_t digits[] = L"0123456789abcdefghijklmnopqrstuvwxyz";
    std::wstring text;
    do {
        text.insert(text.begin(), digits[number % 36]);
        number /= 36;
    } while (number);
    return text;
}

void Text(CXmlWriter& w, const std::wstring& name, const std::wstring& text) {
    w.WriteStartElement(name, L"");
    w.WriteString(text, itString, false);
    w.WriteEndElement();
}

// Element names past the two- and three-octet forms on the third bit, attribute names past the
// two-octet form on the second, then written again by index on both sides of each bound; local
// names of each length form.
void Names(CXmlWriter& w) {
    w.WriteStartElement(L"names", L"");
    for (size_t length : {64, 65, 320, 321})
        Text(w, std::wstring(length, L'n'), L"");
    for (int i = 0; i < 2100; ++i)
        Text(w, L"e" + std::to_wstring(i), L"");
    for (int round = 0; round < 2; ++round) {
        w.WriteStartElement(L"e2099", L"");
        for (int i = 0; i < 70; ++i)
            w.WriteAttributeString(L"a" + std::to_wstring(i), L"", L"v", itString);
        w.WriteEndElement();
        for (int i : {26, 27, 2074, 2075}) // indexes 32, 33, 2080, 2081
            Text(w, L"e" + std::to_wstring(i), L"");
    }
    w.WriteEndElement();
}

// Attribute values past the three-octet form on the second bit, chunks past the four-octet form
// on the fourth; again by index the first, the last, and both sides of each bound.
void Values(CXmlWriter& w) {
    w.WriteStartElement(L"values", L"");
    for (int i = 0; i < 8300; ++i) {
        w.WriteStartElement(L"v", L"");
        w.WriteAttributeString(L"a", L"", Short(i), itString);
        w.WriteEndElement();
    }
    for (int i = 0; i < 263200; ++i)
        Text(w, L"t", Short(i));
    for (int i : {0, 63, 64, 8255, 8256, 8299}) { // index i + 1
        w.WriteStartElement(L"v", L"");
        w.WriteAttributeString(L"a", L"", Short(i), itString);
        w.WriteEndElement();
    }
    for (int i : {0, 15, 16, 1039, 1040, 263183, 263184, 263199})
        Text(w, L"t", Short(i));
    w.WriteEndElement();
}

// (An element in no namespace inside a default one is left out: the text writer names such an
// element without undeclaring the default namespace.)
void Namespaces(CXmlWriter& w) {
    w.AddNamespace(L"p", L"urn:p");
    w.SetDefaultNamespace(L"urn:d");
    w.WriteStartElement(L"r", L"urn:d");
    w.WriteAttributeString(L"x", L"urn:a", L"1", itString);
    w.WriteAttributeString(L"lang", CXmlWriter::XML_NAMESPACE, L"en", itString);
    w.WriteAttributeString(L"plain", L"", L"2", itString);
    w.WriteStartElement(L"c", L"urn:p");
    w.WriteAttributeString(L"y", L"urn:p", L"3", itString);
    w.WriteEndElement();
    w.WriteStartElement(L"c", L"urn:new");
    w.WriteAttributeType(L"urn:types", L"Derived", itString);
    w.WriteAttributeString(L"z", L"urn:other", L"4", itString);
    w.WriteStartElement(L"d", L"urn:new");
    w.WriteAttributeNil();
    w.WriteEndElement();
    w.WriteEndElement();
    w.WriteStartElement(L"c", L"urn:d");
    w.WriteEndElement();
    w.WriteEndElement();
}

// Every length form of chunks and values, and characters of every UTF-8 length. (No tab in the
// values: the text writer leaves it as it is, and XML text turns it into a blank.)
void Texts(CXmlWriter& w) {
    w.WriteStartElement(L"texts", L"");
    const std::wstring characters = L"a\u00E9\u65E5\U0001F600&<>\"'\n ";
    for (size_t length = 1; length <= 400; ++length) {
        std::wstring text;
        for (size_t i = 0; i < length; ++i)
            text += characters[i % characters.size()];
        w.WriteStartElement(L"t", L"");
        w.WriteAttributeString(L"v", L"", text, itString);
        w.WriteString(text + L"\t", itString, false);
        w.WriteEndElement();
    }
    Text(w, L"long", std::wstring(70000, L'x') + L"\u00E9");
    w.WriteStartElement(L"mixed", L"");
    w.WriteString(L"before ", itString, false);
    Text(w, L"b", L"bold");
    w.WriteString(L" after", itString, false);
    Text(w, L"i", L"");
    w.WriteString(L"<![CDATA[a <b> & c]]>", itString, false);
    w.WriteEndElement();
    w.WriteEndElement();
}

void Depth(CXmlWriter& w) {
    for (int i = 0; i < 2000; ++i)
        w.WriteStartElement(L"d", L"");
    w.WriteString(L"bottom", itString, false);
    for (int i = 0; i < 2000; ++i)
        w.WriteEndElement();
}

} // namespace

std::vector<Script> Scripts() {
    return {
        {"names", Names}, {"values", Values}, {"namespaces", Namespaces}, {"texts", Texts}, {"depth", Depth}};
}

std::wstring AsXml(const Script& script) {
    CTextStream stream;
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    writer.Open();
    script.write(writer);
    writer.Close();
    return std::wstring(stream.GetText(), stream.GetLength());
}

FiTesting::Octets AsFastInfoset(const Script& script) {
    return FiTesting::Written(CFastInfosetContext(),
                              [&](CFastInfosetWriter& writer) { script.write(writer); });
}

} // namespace FiCorpus
