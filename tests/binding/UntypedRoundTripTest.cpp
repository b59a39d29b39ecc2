#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using namespace QxXmlLib16;
namespace fs = std::filesystem;

namespace {

// The real documents of the shared data: GPX exports and the XML side of the Fast Infoset vectors.
std::vector<std::string> SharedDocuments() {
    const fs::path root(QX_SHARED_DATA_DIR);
    std::vector<std::string> files;
    const auto collect = [&](const fs::path& folder, const char* extension) {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            if (entry.is_regular_file() && entry.path().extension() == extension)
                files.push_back(fs::relative(entry.path(), root).string());
    };
    collect(root / "gpx", ".gpx");
    collect(root / "fi-vectors", ".xml");
    collect(root / "fi-vectors" / "crafted", ".xml");
    std::sort(files.begin(), files.end());
    return files;
}

// Both trees have the same elements, attributes, namespaces and text, in the same order; reports
// the first difference.
::testing::AssertionResult SameTree(const CXmlElement* expected, const CXmlElement* actual) {
    std::vector<std::pair<const CXmlElement*, const CXmlElement*>> pending{{expected, actual}};
    while (!pending.empty()) {
        const auto [e, a] = pending.back();
        pending.pop_back();
        if (!e || !a) {
            if (e == a) continue;
            return ::testing::AssertionFailure()
                   << "child count differs under " << (e ? e : a)->GetParentElement();
        }
        const std::wstring xpath = e->GetXPath();
        const std::string at = " at " + std::string(xpath.begin(), xpath.end());
        if (e->GetLocalName() != a->GetLocalName() || e->GetNamespaceURI() != a->GetNamespaceURI())
            return ::testing::AssertionFailure() << "name differs" << at;
        if (e->GetText() != a->GetText()) return ::testing::AssertionFailure() << "text differs" << at;
        const auto& ea = e->GetAttributes();
        const auto& aa = a->GetAttributes();
        if (ea.size() != aa.size()) return ::testing::AssertionFailure() << "attribute count differs" << at;
        for (size_t i = 0; i < ea.size(); ++i)
            if (ea[i]->GetLocalName() != aa[i]->GetLocalName() ||
                ea[i]->GetNamespaceURI() != aa[i]->GetNamespaceURI() ||
                ea[i]->GetValue() != aa[i]->GetValue())
                return ::testing::AssertionFailure() << "attribute " << i << " differs" << at;
        pending.emplace_back(e->GetNextSiblingElement(), a->GetNextSiblingElement());
        pending.emplace_back(e->GetFirstElement(), a->GetFirstElement());
    }
    return ::testing::AssertionSuccess();
}

class UntypedRoundTrip : public ::testing::TestWithParam<std::string> {};

TEST_P(UntypedRoundTrip, DocumentLoadsIntoAnElementAndWritesBackEquivalently) {
    const std::wstring path = (fs::path(QX_SHARED_DATA_DIR) / GetParam()).wstring();
    CXmlDocument original;
    original.Load(path.c_str());

    const CSmartPtr<CElement> element(new CElement(L"any"));
    element->FromXmlFile(path.c_str());
    // The tree keeps characters beyond the BMP as surrogate pairs, which only UTF-16 carries back.
    CBinaryData written = element->ToXmlStream(true, false, encUTF16);
    CXmlDocument reloaded;
    reloaded.LoadXmlStream(const_cast<unsigned char*>(written.GetData()), written.GetLength());
    EXPECT_TRUE(SameTree(original.GetDocumentElement(), reloaded.GetDocumentElement()));

    // Copying the tree gives the same element as reading it.
    const CSmartPtr<CElement> copy(new CElement(L"any"));
    copy->CopyXmlElement(original.GetDocumentElement());
    EXPECT_EQ(copy->ToXml(false, false), element->ToXml(false, false));
}

INSTANTIATE_TEST_SUITE_P(SharedData, UntypedRoundTrip, ::testing::ValuesIn(SharedDocuments()),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param;
                             std::replace_if(
                                 name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
                             return name;
                         });

} // namespace
