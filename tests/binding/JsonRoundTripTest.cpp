// Every test binding through JSON and back: object to JSON to object writes the same XML text, at
// each round-trip level that keeps what the document needs, and Python's json module reads what we
// write.

#include "binding/support/ContentSchema.h"
#include "binding/support/GroupsSchema.h"
#include "binding/support/ProofDocuments.h"
#include "binding/support/Trips.h"
#include "json/support/PythonJson.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <functional>

using namespace QxXmlLib16;

namespace {

typedef CSmartPtr<CXmlObjectBase> Object;

// What a level keeps of a document, as the README describes it.
enum Needs : unsigned {
    kNamespaces = 1, // typed derivation (xsi:type) or wildcard content chosen by namespace
    kAttributes = 2, // attributes, or text beside them
};

struct ProofCase {
    const char* name;
    std::function<Object()> make;  // the object, filled
    std::function<Object()> fresh; // an empty object of its class
    std::wstring source;           // its XML, whose namespace declarations the JSON context repeats
    unsigned needs;
};

void PrintTo(const ProofCase& c, std::ostream* os) {
    *os << c.name;
}

template <class T>
Object Loaded(const std::wstring& xml) {
    CSmartPtr<T> object(new T);
    object->FromXml(xml.c_str());
    return Object(object.Get());
}

template <class T>
Object Fresh() {
    return Object(new T);
}

// An untyped tree: what even level 0 keeps.
Object Untyped() {
    CSmartPtr<CElement> root(new CElement(L"log"));
    root->FromXml(L"<log><day>mon</day><entry><at>10</at><what>walk</what></entry><entry><at>12</at>"
                  L"<what>lunch</what></entry><empty/></log>");
    return Object(root.Get());
}

const ProofCase kCases[] = {
    {"TripMinimal", [] { return Object(Trips::Minimal().Get()); }, Fresh<TestSchema::CTrip>, L"",
     kAttributes},
    {"TripFull", [] { return Object(Trips::Full().Get()); }, Fresh<TestSchema::CTrip>, L"",
     kAttributes | kNamespaces},
    {"TripNilContact", [] { return Object(Trips::NilContact().Get()); }, Fresh<TestSchema::CTrip>, L"",
     kAttributes},
    {"ContentFull", [] { return Loaded<ContentSchema::CBag>(ProofDocuments::kContentFull); },
     Fresh<ContentSchema::CBag>, ProofDocuments::kContentFull, kAttributes | kNamespaces},
    {"GroupsFull", [] { return Loaded<GroupsSchema::CGroups>(ProofDocuments::Groups()); },
     Fresh<GroupsSchema::CGroups>, ProofDocuments::Groups(), kAttributes | kNamespaces},
    {"Untyped", Untyped, [] { return Object(new CElement(L"log")); }, L"", 0},
};

// Level 2 writes every namespace's prefix on the root: the XSI namespace for xsi:type, and those
// the source document declares for its wildcard content.
CSerializationContext Context(const ProofCase& proof, JsonRoundTrip level, bool rfc8259) {
    CSerializationContext context;
    context.GetNamespaceAliases().Add(L"xsi", CXmlWriter::XSI_NAMESPACE);
    if (!proof.source.empty()) {
        CXmlDocument document;
        document.LoadXml(proof.source.c_str());
        for (const auto& alias : document.GetAliasMap())
            if (!alias.first.empty())
                context.GetNamespaceAliases().Add(alias.first.c_str(), alias.second.c_str());
    }
    context.GetJsonContext()->SetSupportRoundtrip(level);
    context.GetJsonContext()->SetRfc8259Escaping(rfc8259);
    return context;
}

bool Keeps(JsonRoundTrip level, unsigned needs) {
    return level == jrtFull || (level == jrtMarkers && !(needs & kNamespaces)) || needs == 0;
}

std::string Narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

class JsonProof : public testing::TestWithParam<ProofCase> {};

TEST_P(JsonProof, SameXmlAtEveryLevelThatKeepsTheDocument) {
    const ProofCase& proof = GetParam();
    const Object original = proof.make();
    const std::wstring expected = original->ToXml();
    for (JsonRoundTrip level : {jrtNone, jrtMarkers, jrtFull})
        for (bool formatted : {false, true}) {
            SCOPED_TRACE(testing::Message() << "level " << level << " formatted " << formatted);
            const CSerializationContext context = Context(proof, level, true);
            const Object copy = proof.fresh();
            try {
                copy->FromJson(original->ToJson(formatted, eolLF, context).c_str(), context);
                EXPECT_TRUE(Keeps(level, proof.needs)) << "the level was expected to lose something";
                if (Keeps(level, proof.needs)) {
                    EXPECT_EQ(expected, copy->ToXml());
                }
            } catch (const CQxException& e) {
                EXPECT_FALSE(Keeps(level, proof.needs)) << Narrow(e.GetFullMessage());
            }
        }
}

// Without RFC 8259 escaping a document reads back unless its strings hold a line feed (dropped on
// reading) or a quote (which ends the string early).
TEST_P(JsonProof, EstablishedEscapingWhereTheStringsAllow) {
    const ProofCase& proof = GetParam();
    const Object original = proof.make();
    const std::wstring strict = original->ToJson(true, eolLF, Context(proof, jrtFull, true));
    if (PythonJson::HasCharactersLeftUnescaped(strict)) return; // TripFull, below
    const CSerializationContext context = Context(proof, jrtFull, false);
    const std::wstring established = original->ToJson(true, eolLF, context);
    EXPECT_EQ(strict, established);
    const Object copy = proof.fresh();
    copy->FromJson(established.c_str(), context);
    EXPECT_EQ(original->ToXml(), copy->ToXml());
}

// Python reads all we write under RFC 8259 escaping, and the established form of every document
// whose strings need no escaping.
TEST_P(JsonProof, PythonReadsWhatWeWrite) {
    const ProofCase& proof = GetParam();
    const Object original = proof.make();
    std::vector<std::string> files;
    for (JsonRoundTrip level : {jrtNone, jrtMarkers, jrtFull})
        for (bool formatted : {false, true})
            for (bool rfc8259 : {false, true}) {
                const std::wstring json =
                    original->ToJson(formatted, eolCRLF, Context(proof, level, rfc8259));
                // Which characters a string holds shows only where they are escaped.
                if (!rfc8259 && PythonJson::HasCharactersLeftUnescaped(
                                    original->ToJson(formatted, eolCRLF, Context(proof, level, true))))
                    continue;
                files.push_back(PythonJson::WriteUtf8File(
                    std::string(proof.name) + "_" + std::to_string(level) + std::to_string(formatted) +
                        std::to_string(rfc8259) + ".json",
                    json));
            }
    EXPECT_GE(files.size(), 6u);
    EXPECT_EQ("", PythonJson::Run(files));
}

INSTANTIATE_TEST_SUITE_P(Bindings, JsonProof, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<ProofCase>& info) { return info.param.name; });

TEST(JsonRoundTripLosses, EstablishedEscapingDropsLineFeeds) {
    const CSmartPtr<TestSchema::CTrip> trip = Trips::Full();
    CSerializationContext context = Context(kCases[1], jrtFull, false);
    CSmartPtr<TestSchema::CTrip> copy(new TestSchema::CTrip);
    copy->FromJson(trip->ToJson(true, eolLF, context).c_str(), context);
    EXPECT_EQ(std::wstring(L"Windyon the cliffs"), copy->GetNote().value());
    context.GetJsonContext()->SetRfc8259Escaping(true);
    copy->FromJson(trip->ToJson(true, eolLF, context).c_str(), context);
    EXPECT_EQ(std::wstring(L"Windy\non the cliffs"), copy->GetNote().value());
}

TEST(JsonRoundTripLosses, WhatTheLowerLevelsCannotCarry) {
    // Level 0: an element's text beside its attributes has an empty key, which reads back as nothing.
    CSerializationContext context = Context(kCases[0], jrtNone, true);
    const CSmartPtr<TestSchema::CTrip> trip = Trips::Minimal();
    CSmartPtr<TestSchema::CTrip> copy(new TestSchema::CTrip);
    try {
        copy->FromJson(trip->ToJson(true, eolLF, context).c_str(), context);
        FAIL();
    } catch (const CQxValidationException& e) {
        EXPECT_EQ(L"JSON item has an empty Name.\nPath: .trip.distance", e.GetMessage());
    }
    // Level 1: xsi:type is a plain attribute without its namespace, which the stop refuses.
    context = Context(kCases[1], jrtMarkers, true);
    try {
        copy->FromJson(Trips::Full()->ToJson(true, eolLF, context).c_str(), context);
        FAIL();
    } catch (const CQxException& e) {
        EXPECT_NE(std::wstring::npos,
                  e.GetFullMessage().find(L"Unexpected Attribute found.\nPath: /trip/stop/@type"));
    }
}

} // namespace
