// Every test binding through JSON and back: object to JSON to object writes the same XML text, at
// each round-trip level that keeps what the document needs, and Python's json module reads what we
// write. Then the JSON entry points of bound objects: every output shape reads back through every
// input shape, and the context's namespace switch is set and put back around a load.

#include "binding/support/ContentSchema.h"
#include "binding/support/GroupsSchema.h"
#include "binding/support/ProofDocuments.h"
#include "binding/support/Trips.h"
#include "foundation/support/MessageOf.h"
#include "json/support/PythonJson.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
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

// Python reads all we write under RFC 8259 escaping, and the established form of every document
// whose strings need no escaping; that form reads back too. (Without RFC 8259 escaping a line feed
// is dropped on reading and a quote ends the string early.)
TEST_P(JsonProof, PythonReadsWhatWeWriteAndEstablishedEscapingReadsBackWhereTheStringsAllow) {
    const ProofCase& proof = GetParam();
    const Object original = proof.make();
    std::vector<std::string> files;
    for (JsonRoundTrip level : {jrtNone, jrtMarkers, jrtFull})
        for (bool formatted : {false, true})
            for (bool rfc8259 : {false, true}) {
                const CSerializationContext context = Context(proof, level, rfc8259);
                const std::wstring json = original->ToJson(formatted, eolCRLF, context);
                // Which characters a string holds shows only where they are escaped.
                if (!rfc8259 && PythonJson::HasCharactersLeftUnescaped(
                                    original->ToJson(formatted, eolCRLF, Context(proof, level, true))))
                    continue;
                files.push_back(PythonJson::WriteUtf8File(
                    std::string(proof.name) + "_" + std::to_string(level) + std::to_string(formatted) +
                        std::to_string(rfc8259) + ".json",
                    json));
                if (rfc8259 || level != jrtFull) continue;
                const Object copy = proof.fresh();
                copy->FromJson(json.c_str(), context);
                EXPECT_EQ(original->ToXml(), copy->ToXml());
            }
    EXPECT_GE(files.size(), 6u);
    EXPECT_EQ("", PythonJson::Run(files));
}

INSTANTIATE_TEST_SUITE_P(Bindings, JsonProof, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<ProofCase>& info) { return info.param.name; });

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

// Every output shape of the entry points reads back through the matching input: text in each
// layout, UTF-8 streams and files plain and compressed (the loaders take UTF-8 only).
TEST(JsonEntryPoints, EveryOutputReadsBackThroughItsInput) {
    using TestSchema::CTrip;
    const CSmartPtr<CTrip> trip = Trips::NilContact();
    const CSerializationContext context = Context(kCases[2], jrtFull, false);
    const std::wstring expected = trip->ToXml();
    const auto expectSame = [&](const std::function<void(CTrip&)>& load) {
        CSmartPtr<CTrip> copy(new CTrip());
        load(*copy);
        EXPECT_EQ(expected, copy->ToXml());
    };
    for (EOLType eol : {eolLF, eolCRLF})
        for (bool formatted : {false, true}) {
            const std::wstring json = trip->ToJson(formatted, eol, context);
            EXPECT_EQ(formatted, json.find(eol == eolLF ? L"{\n" : L"{\r\n") == 0);
            expectSame([&](CTrip& copy) { copy.FromJson(json.c_str(), context); });
        }
    const CBinaryData utf8 = CEncoder::UnicodeToUtf8Binary(trip->ToJson(true, eolLF, context).c_str());
    expectSame([&](CTrip& copy) {
        copy.FromJson(std::string(reinterpret_cast<const char*>(utf8.GetData()), utf8.GetLength()).c_str(),
                      context);
    });
    EXPECT_EQ(utf8, trip->ToJsonStream(true, encUTF8, eolLF, context, ctNone));
    const std::string path = testing::TempDir() + "entry_points.json";
    const std::wstring widePath(path.begin(), path.end());
    for (CompressionType compression : {ctNone, ctGzip, ctZlib}) {
        SCOPED_TRACE(testing::Message() << "compression " << compression);
        const CBinaryData data = trip->ToJsonStream(true, encUTF8, eolLF, context, compression);
        expectSame([&](CTrip& copy) { copy.FromJsonStream(data, context); });
        EXPECT_NE(0u, trip->ToJsonStream(true, encUTF16, eolLF, context, compression).GetLength());
        if (compression == ctZlib) {
            std::remove(path.c_str());
            EXPECT_EQ(L"ZLIB Compression only available for To Stream methods.", MessageOf<CQxException>([&] {
                          trip->ToJsonFile(widePath.c_str(), true, encUTF8, eolLF, context, ctZlib);
                      }));
            EXPECT_FALSE(std::ifstream(path).good());
            continue;
        }
        trip->ToJsonFile(widePath.c_str(), true, encUTF8, eolCRLF, context, compression);
        EXPECT_EQ(compression == ctGzip ? 0x1F : '{', std::ifstream(path, std::ios::binary).get());
        expectSame([&](CTrip& copy) { copy.FromJsonFile(widePath.c_str(), context); });
    }
    std::remove(path.c_str());
}

// Notes the namespace switch its load sees, and can refuse the load.
class CSwitchProbe : public CXmlObjectBase {
public:
    bool sawIgnoreNamespaces = false;
    bool refuse = false;
    CXmlObjectBase* GetBase() override { return this; }
    std::wstring GetTargetNamespace() const override { return L""; }
    std::wstring GetNamespace() const override { return L""; }

protected:
    void ToXml_Int(CXmlWriter*, bool, const wchar_t*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CSerializationContext& context,
                             bool) override {
        sawIgnoreNamespaces = context.GetIgnoreNamespaces();
        if (refuse) throw CQxValidationException(L"refused", L"/r");
        return firstChild;
    }
};

// Below level 2 the load matches names by their local part; the switch is put back afterwards,
// whether the load succeeds or fails.
TEST(JsonEntryPoints, NamespaceSwitchIsSetForTheLoadAndPutBack) {
    for (JsonRoundTrip level : {jrtNone, jrtMarkers, jrtFull})
        for (bool refuse : {false, true}) {
            SCOPED_TRACE(testing::Message() << "level " << level << " refuse " << refuse);
            CSerializationContext context;
            context.GetJsonContext()->SetSupportRoundtrip(level);
            CSmartPtr<CSwitchProbe> probe(new CSwitchProbe);
            probe->refuse = refuse;
            EXPECT_EQ(refuse ? L"refused\nPath: /r" : L"(no exception)",
                      MessageOf<CQxException>([&] { probe->FromJson(L"{\"r\": 1}", context); }));
            EXPECT_EQ(level != jrtFull, probe->sawIgnoreNamespaces);
            EXPECT_FALSE(context.GetIgnoreNamespaces());
        }
    // The value put back is the computed one: with SchemaType 2 the switch itself stays set.
    CSerializationContext context;
    context.SetSchemaType(stNoNamespaces);
    CSmartPtr<CSwitchProbe> probe(new CSwitchProbe);
    probe->FromJson(L"{\"r\": 1}", context);
    context.SetSchemaType(stDefault);
    EXPECT_TRUE(context.GetIgnoreNamespaces());
}

TEST(JsonEntryPoints, GrammarErrorsReachTheCaller) {
    CSmartPtr<TestSchema::CTrip> trip(new TestSchema::CTrip());
    EXPECT_EQ(L"Unexpected End of File. Expected Object terminator character '}' at line 1, position 16.\n"
              L"Path: .trip",
              MessageOf<CQxValidationException>(
                  [&] { trip->FromJson(L"{\"trip\": {\"a\": 1", CSerializationContext()); }));
    EXPECT_EQ(L"JSON String is empty!",
              MessageOf<CQxException>([&] { trip->FromJson(L"", CSerializationContext()); }));
}

// Wildcard content of any depth writes as JSON without recursion; reading JSON stops at the
// reader's depth limit with its message, long before any stack would suffer.
TEST(JsonEntryPoints, MillionLevelsWriteWholeAndReadUpToTheLimit) {
    const size_t depth = 1000000;
    std::wstring xml;
    for (size_t i = 0; i < depth; ++i)
        xml += L"<a>";
    xml += L"leaf";
    for (size_t i = 0; i < depth; ++i)
        xml += L"</a>";
    CSmartPtr<CElement> element(new CElement(L"a"));
    element->FromXml(xml.c_str());
    const std::wstring json = element->ToJson(false);
    ASSERT_EQ(7 * (depth - 1) + 11 + 2, json.size());
    EXPECT_EQ(0u, json.find(L"{\"a\": {\"a\": {"));
    EXPECT_EQ(json.size() - depth - 11, json.find(L"\"a\": \"leaf\"}"));
    EXPECT_EQ(0u, MessageOf<CQxValidationException>([&] {
                      element->FromJson(json.c_str());
                  }).find(L"JSON exceeded depth limit at line 1, position 601.\nPath: .a.a.a"));
}

} // namespace
