// Every document of the test data through qxconv's conversions and back: XML text and Fast Infoset
// return the same tree, and so does JSON once the same-named children of each element are gathered
// at the first one's place.

#include "Converter.h"
#include "support/Documents.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

using namespace QxXmlLib16;
using QxConv::Format;

namespace {

namespace fs = std::filesystem;

// The documents of the shared data and of the repository, by folder.
std::map<std::string, std::vector<std::string>> AllDocuments() {
    std::map<std::string, std::vector<std::string>> folders;
    for (const fs::path& root :
         {fs::path(QX_SHARED_DATA_DIR), fs::path(QX_REPOSITORY_DIR) / "tests",
          fs::path(QX_REPOSITORY_DIR) / "docs", fs::path(QX_REPOSITORY_DIR) / "examples"}) {
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            const std::string extension = entry.path().extension().string();
            if (entry.is_regular_file() &&
                (extension == ".xml" || extension == ".gpx" || extension == ".finf"))
                folders[entry.path().parent_path().string()].push_back(entry.path().string());
        }
    }
    for (auto& folder : folders)
        std::sort(folder.second.begin(), folder.second.end());
    return folders;
}

std::string Name(const std::string& path) {
    const std::string data = QX_SHARED_DATA_DIR, repository = QX_REPOSITORY_DIR;
    std::string name = path;
    if (name.compare(0, data.size(), data) == 0)
        name = "shared" + name.substr(data.size());
    else if (name.compare(0, repository.size(), repository) == 0)
        name = name.substr(repository.size());
    return Documents::TestName(name);
}

bool IsBlank(const std::wstring& text) {
    return text.find_first_not_of(L" \t\r\n") == std::wstring::npos;
}

// The XML text reader keeps a character above U+FFFF as its two UTF-16 halves, the other readers as
// one character: the same text either way.
std::wstring Characters(const std::wstring& text) {
    std::wstring joined;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] >= 0xD800 && text[i] <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] <= 0xDFFF) {
            joined += static_cast<wchar_t>(0x10000 + ((text[i] - 0xD800) << 10) + (text[i + 1] - 0xDC00));
            ++i;
        } else {
            joined += text[i];
        }
    }
    return joined;
}

// The children of element, gathered by name at the first one's place when grouped.
std::vector<const CXmlElement*> Children(const CXmlElement& element, bool grouped) {
    std::vector<const CXmlElement*> children;
    for (const CXmlElement* child = element.GetFirstElement(); child; child = child->GetNextSiblingElement())
        children.push_back(child);
    if (!grouped) return children;
    std::map<std::pair<std::wstring, std::wstring>, size_t> first;
    for (const CXmlElement* child : children)
        first.emplace(std::make_pair(child->GetNamespaceURI(), child->GetLocalName()), first.size());
    std::stable_sort(children.begin(), children.end(), [&](const CXmlElement* a, const CXmlElement* b) {
        return first[{a->GetNamespaceURI(), a->GetLocalName()}] <
               first[{b->GetNamespaceURI(), b->GetLocalName()}];
    });
    return children;
}

std::wstring Describe(const CXmlElement& element) {
    return L"{" + element.GetNamespaceURI() + L"}" + element.GetLocalName();
}

// The first difference between two trees, by the element where it stands; empty when none. Blank
// text beside child elements is indentation, not content.
std::wstring Difference(const CXmlElement& expected, const CXmlElement& actual, bool grouped) {
    std::vector<std::pair<const CXmlElement*, const CXmlElement*>> pending{{&expected, &actual}};
    while (!pending.empty()) {
        const CXmlElement& e = *pending.back().first;
        const CXmlElement& a = *pending.back().second;
        pending.pop_back();
        if (Describe(e) != Describe(a)) return Describe(e) + L" became " + Describe(a);
        // JSON comes back as indented XML text, whose blanks join the text of an element that has
        // children: such text is compared without its blanks at either end.
        const auto text = [grouped](const CXmlElement& element) {
            const std::wstring& own = element.GetText();
            if (!element.GetFirstElement()) return Characters(own);
            if (!grouped) return IsBlank(own) ? std::wstring() : Characters(own);
            const size_t first = own.find_first_not_of(L" \t\r\n");
            return first == std::wstring::npos
                       ? std::wstring()
                       : Characters(own.substr(first, own.find_last_not_of(L" \t\r\n") + 1 - first));
        };
        if (text(e) != text(a)) return Describe(e) + L": text [" + text(e) + L"] became [" + text(a) + L"]";
        const auto& ea = e.GetAttributes();
        const auto& aa = a.GetAttributes();
        if (ea.size() != aa.size()) return Describe(e) + L": another number of attributes";
        for (size_t i = 0; i < ea.size(); ++i)
            if (ea[i]->GetNamespaceURI() != aa[i]->GetNamespaceURI() ||
                ea[i]->GetLocalName() != aa[i]->GetLocalName() ||
                Characters(ea[i]->GetValue()) != Characters(aa[i]->GetValue()))
                return Describe(e) + L": attribute " + ea[i]->GetLocalName() + L"=[" + ea[i]->GetValue() +
                       L"] became " + aa[i]->GetLocalName() + L"=[" + aa[i]->GetValue() + L"]";
        const std::vector<const CXmlElement*> ec = Children(e, grouped), ac = Children(a, false);
        if (ec.size() != ac.size()) return Describe(e) + L": another number of children";
        for (size_t i = ec.size(); i-- > 0;)
            pending.emplace_back(ec[i], ac[i]);
    }
    return std::wstring();
}

Format Loaded(std::string bytes, CXmlDocument& document) {
    Format format;
    QxConv::Load(CBinaryData(reinterpret_cast<unsigned char*>(&bytes[0]),
                             static_cast<unsigned long>(bytes.size()), false),
                 document, format);
    return format;
}

typedef std::pair<const std::string, std::vector<std::string>> Folder;

class RoundTrip : public testing::TestWithParam<Folder> {};

TEST_P(RoundTrip, EveryFormatGivesBackTheSameTree) {
    for (const std::string& path : GetParam().second) {
        SCOPED_TRACE(path);
        CXmlDocument document;
        const Format format = Loaded(Documents::ReadBytes(path), document);
        EXPECT_EQ(format, fs::path(path).extension() == ".finf" ? Format::fi : Format::xml);
        for (const Format to : {Format::xml, Format::fi, Format::json}) {
            for (const bool gzip : {false, true}) {
                SCOPED_TRACE(std::string(QxConv::FormatName(to)) + (gzip ? " gzip" : ""));
                const CBinaryData converted = QxConv::Write(document, to, gzip);
                CXmlDocument back;
                Format read;
                QxConv::Load(converted, back, read);
                EXPECT_EQ(read, to);
                EXPECT_EQ(Difference(*document.GetDocumentElement(), *back.GetDocumentElement(),
                                     to == Format::json),
                          L"");
            }
        }
    }
}

// One test per folder of documents.
INSTANTIATE_TEST_SUITE_P(TestData, RoundTrip, testing::ValuesIn(AllDocuments()),
                         [](const testing::TestParamInfo<Folder>& info) { return Name(info.param.first); });

// The JSON declares every namespace on the root, a default one only while no element lacks a
// namespace: it would capture such an element.
TEST(Json, KeepsElementsOfNoNamespaceBesideADefaultOneDeclaredBelow) {
    CXmlDocument document, back;
    Loaded("<r><c xmlns='urn:d'><d/></c><e/></r>", document);
    Format format;
    QxConv::Load(QxConv::Write(document, Format::json, false), back, format);
    EXPECT_EQ(L"", Difference(*document.GetDocumentElement(), *back.GetDocumentElement(), true));
}

} // namespace
