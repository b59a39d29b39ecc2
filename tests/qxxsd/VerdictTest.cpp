// Every document of every case schema: the generated bindings accept exactly what xmllint accepts
// (but for the differences listed below), and what they accept they write back as a document that
// xmllint accepts and that reads back to the same text.

#include "qxxsd/support/Cases.h"

#include "all.h"
#include "builtins.h"
#include "choice.h"
#include "content.h"
#include "defaults.h"
#include "extension.h"
#include "facets.h"
#include "forms.h"
#include "groups.h"
#include "imports.h"
#include "lists.h"
#include "names.h"
#include "nillable.h"
#include "patterns.h"
#include "restriction.h"
#include "sequence.h"
#include "simpleroot.h"
#include "substitution.h"
#include "wildcards.h"

#include <gtest/gtest.h>

#include <map>

using namespace QxXmlLib16;

namespace {

const std::map<std::string, const CDocumentRoots& (*)()> kRoots = {
    {"all", &All::DocumentRoots},
    {"builtins", &Builtins::DocumentRoots},
    {"choice", &Choice::DocumentRoots},
    {"content", &Content::DocumentRoots},
    {"defaults", &Defaults::DocumentRoots},
    {"extension", &Extension::DocumentRoots},
    {"facets", &Facets::DocumentRoots},
    {"forms", &Forms::DocumentRoots},
    {"groups", &Groups::DocumentRoots},
    {"imports", &Imports::DocumentRoots},
    {"lists", &Lists::DocumentRoots},
    {"names", &Names::DocumentRoots},
    {"nillable", &Nillable::DocumentRoots},
    {"patterns", &Patterns::DocumentRoots},
    {"restriction", &Restriction::DocumentRoots},
    {"sequence", &Sequence::DocumentRoots},
    {"simpleroot", &Simpleroot::DocumentRoots},
    {"substitution", &Substitution::DocumentRoots},
    {"wildcards", &Wildcards::DocumentRoots},
};

// Where the bindings knowingly judge otherwise than xmllint, and why.
const std::map<std::string, const char*> kDifferences = {
    {"builtins/bad-base64.xml", "the runtime's Base64 decoder takes padding that the lexical space does not"},
    {"builtins/bad-decimal.xml", "the runtime's decimal parser takes an exponent"},
    {"lists/empty-tokens.xml", "NMTOKENS has minLength 1 by the recommendation; xmllint takes an empty list"},
    {"nillable/nil-with-value.xml", "the runtime does not read the content of a nil element"},
    {"wildcards/local-attribute.xml", "the runtime's ##other admits unqualified attributes and elements"},
};

std::string Path(const Cases::Document& document) {
    return Cases::Folder() + "/" + document.schema + "/" + document.file;
}

class Verdict : public testing::TestWithParam<Cases::Document> {};

TEST_P(Verdict, AsXmllintAndRoundTrips) {
    const Cases::Document& document = GetParam();
    const auto roots = kRoots.find(document.schema);
    ASSERT_NE(roots, kRoots.end()) << "no bindings for the case " << document.schema;
    std::string said;
    const bool reference = Cases::XmllintValid(document.schema, Path(document), &said);
    CSmartPtr<CXmlObjectBase> loaded;
    std::wstring refusal;
    try {
        loaded = roots->second().Load(Cases::Wide(Path(document)).c_str(),
                                      CSerializationContext::m_defaultContext);
    } catch (const CQxException& e) {
        refusal = e.GetFullMessage();
    }
    const std::string key = document.schema + "/" + document.file;
    const auto difference = kDifferences.find(key);
    if (difference != kDifferences.end()) {
        EXPECT_NE(reference, refusal.empty()) << "listed as a difference, now agrees: " << difference->second;
        return;
    }
    ASSERT_EQ(reference, refusal.empty()) << "xmllint: " << said << "bindings: " << Cases::Utf8(refusal);
    if (!loaded) return;

    const std::wstring written = loaded->ToXml();
    const std::string copy = testing::TempDir() + document.schema + "-" + document.file;
    Cases::WriteFile(copy, Cases::Utf8(written));
    EXPECT_TRUE(Cases::XmllintValid(document.schema, copy, &said)) << said << Cases::Utf8(written);
    const std::string bytes = Cases::Utf8(written);
    const CBinaryData data(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                           static_cast<unsigned long>(bytes.size()), false);
    const CSmartPtr<CXmlObjectBase> again =
        roots->second().Load(data, CSerializationContext::m_defaultContext);
    EXPECT_EQ(Cases::Utf8(written), Cases::Utf8(again->ToXml()));
}

std::string TestName(const testing::TestParamInfo<Cases::Document>& info) {
    std::string name = info.param.schema + "_" + info.param.file.substr(0, info.param.file.size() - 4);
    for (char& c : name)
        if (!isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Cases, Verdict, testing::ValuesIn(Cases::Documents()), TestName);

// A case proves something only with documents of both verdicts.
TEST(Cases, EachHasValidAndInvalidDocuments) {
    std::map<std::string, std::pair<int, int>> verdicts;
    for (const Cases::Document& document : Cases::Documents()) {
        auto& counts = verdicts[document.schema];
        (Cases::XmllintValid(document.schema, Path(document)) ? counts.first : counts.second)++;
    }
    for (const std::string& schema : Cases::Schemas()) {
        EXPECT_GT(verdicts[schema].first, 0) << schema << " has no valid document";
        EXPECT_GT(verdicts[schema].second, 0) << schema << " has no invalid document";
        EXPECT_TRUE(kRoots.count(schema)) << schema << " is not in the table of bindings";
    }
}

} // namespace
