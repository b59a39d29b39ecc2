// The vocabulary tables: what a new one holds, how entries are numbered and found, and the limit of
// 2^20 entries, whose last index the writer and reader take in the longest integer form.

#include "support/FiTesting.h"

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;
using namespace FiTesting;

namespace {

typedef CFIVocabulary V;

struct StringTable {
    const char* name;
    V::CFIStringTable& (V::*table)();
    void (V::*add)(const std::wstring&);
    uint64_t firstFree; // the index the first added string gets
};

const StringTable kStringTables[] = {
    {"prefixes", &V::GetPrefixNamesTable, &V::AddPrefixName, 2},
    {"namespaces", &V::GetNamespaceNamesTable, &V::AddNamespaceName, 2},
    {"localNames", &V::GetLocalNamesTable, &V::AddLocalName, 1},
    {"attributeValues", &V::GetAttributeValuesTable, &V::AddAttributeValue, 1},
    {"characterChunks", &V::GetCharacterChunksTable, &V::AddElementValue, 1},
};

class StringTables : public testing::TestWithParam<StringTable> {};

TEST_P(StringTables, NumberEntriesInOrderAndFindThemByValueAndByIndex) {
    V vocabulary;
    V::CFIStringTable& table = (vocabulary.*GetParam().table)();
    for (const wchar_t* text : {L"b", L"a", L"b"}) // the second "b" is known: nothing changes
        (vocabulary.*GetParam().add)(text);
    uint64_t index = 0;
    for (const std::wstring text : {L"b", L"a"}) {
        ASSERT_TRUE(V::FindIndex(table.GetMap(), text, index));
        EXPECT_EQ(GetParam().firstFree + (text == L"a"), index);
        EXPECT_EQ(text, table.GetVector()[index - 1]);
    }
    EXPECT_EQ(GetParam().firstFree + 1, table.GetVector().size());
    EXPECT_FALSE(V::FindIndex(table.GetMap(), L"c", index));
}

INSTANTIATE_TEST_SUITE_P(EveryTable, StringTables, testing::ValuesIn(kStringTables),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Vocabulary, StartsWithTheXmlPrefixItsNamespaceAndTheBuiltInAlphabets) {
    const V vocabulary;
    uint64_t index = 0;
    EXPECT_TRUE(vocabulary.FindPrefixNameIndex(L"xml", index));
    EXPECT_EQ(1u, index);
    EXPECT_TRUE(vocabulary.FindNamespaceNameIndex(CXmlWriter::XML_NAMESPACE, index));
    EXPECT_EQ(1u, index);
    EXPECT_FALSE(vocabulary.FindLocalNameIndex(L"xml", index));
    EXPECT_EQ((std::vector<std::wstring>{L"0123456789-+.e ", L"0123456789-:TZ "}),
              vocabulary.GetRestrictedAlphabets());
}

TEST(Vocabulary, QualifiedNamesAddTheirMissingPartsFirstAndShareKnownOnes) {
    V vocabulary;
    vocabulary.AddElement(L"p", L"urn:x", L"item");
    vocabulary.AddAttribute(L"", L"", L"item");
    vocabulary.AddAttribute(L"xml", CXmlWriter::XML_NAMESPACE, L"lang");
    vocabulary.AddElement(L"p", L"urn:x", L"item"); // known
    const auto indexes = [](const V::QNameVector& names) {
        std::string text;
        for (const auto& name : names)
            text += std::to_string(name.prefixIndex) + std::to_string(name.namespaceIndex) +
                    std::to_string(name.localNameIndex) + " ";
        return text;
    };
    EXPECT_EQ("221 ", indexes(vocabulary.GetElementNamesTable().GetVector()));
    EXPECT_EQ("001 112 ", indexes(vocabulary.GetAttributeNamesTable().GetVector()));

    const V::IndexMap& elements = vocabulary.GetElementNamesTable().GetMap();
    uint64_t index = 0;
    EXPECT_TRUE(V::FindIndex(elements, V::QNameKey(L"p", L"urn:x", L"item"), index));
    EXPECT_EQ(1u, index);
    // The same local name in another namespace or with another prefix is another name.
    EXPECT_FALSE(V::FindIndex(elements, V::QNameKey(L"q", L"urn:x", L"item"), index));
    EXPECT_FALSE(V::FindIndex(elements, V::QNameKey(L"", L"", L"item"), index));
}

TEST(Vocabulary, TablesTakeNoMoreThan2pw20EntriesAndTheLastIsWrittenAndReadByIndex) {
    CFastInfosetContext context;
    context.SetUseGeneratedVocabulary(true);
    V& vocabulary = context.GetVocabulary();
    for (uint64_t i = 1; i < V::kMaxTableSize; ++i)
        vocabulary.AddAttributeValue(std::to_wstring(i));
    vocabulary.AddAttributeValue(L"last"); // short enough to go by index
    vocabulary.AddAttributeValue(L"one too many");
    V::AddValueToVector(L"one too many", vocabulary.GetAttributeValuesTable().GetVector());
    V::QNameVector names(V::kMaxTableSize);
    V::AddQNameToVector(0, 0, 1, names);
    EXPECT_EQ(V::kMaxTableSize, names.size());
    EXPECT_EQ(V::kMaxTableSize, vocabulary.GetAttributeValuesTable().GetMap().size());
    EXPECT_EQ(V::kMaxTableSize, vocabulary.GetAttributeValuesTable().GetVector().size());

    // The last index, and a value the full table cannot take: literal each time.
    const Octets octets = Written(context, [](CFastInfosetWriter& w) {
        w.WriteStartElement(L"r", L"");
        w.WriteAttributeString(L"a", L"", L"last", itString);
        for (const wchar_t* name : {L"b", L"c"})
            w.WriteAttributeString(name, L"", L"x", itString);
        w.WriteEndElement();
    });
    EXPECT_EQ("78 00 61 EF DF BF 78 00 62", Hex(Octets(octets.end() - 18, octets.end() - 9)));
    EXPECT_EQ("78 00 63", Hex(Octets(octets.end() - 7, octets.end() - 4)));
    CSerializationContext reading;
    *reading.GetFIContext() = context;
    const std::unique_ptr<CXmlDocument> document = Loaded(octets, reading);
    EXPECT_EQ(L"last", document->GetDocumentElement()->GetAttribute(L"a", L""));
    EXPECT_EQ(L"x", document->GetDocumentElement()->GetAttribute(L"c", L""));
}

} // namespace
