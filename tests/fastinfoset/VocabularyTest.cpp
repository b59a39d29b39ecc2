// The vocabulary tables: what a new one holds, how entries are numbered and found both ways, the
// limit of 2^20 entries, and copies.

#include <QxXmlLib16/fastinfoset/FIVocabulary.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;

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
    (vocabulary.*GetParam().add)(L"b");
    (vocabulary.*GetParam().add)(L"a");
    (vocabulary.*GetParam().add)(L"b"); // known: nothing changes
    const uint64_t first = GetParam().firstFree;
    uint64_t index = 0;
    ASSERT_TRUE(V::FindIndex(table.GetMap(), L"b", index));
    EXPECT_EQ(first, index);
    EXPECT_EQ(L"b", table.GetVector()[index - 1]);
    ASSERT_TRUE(V::FindIndex(table.GetMap(), L"a", index));
    EXPECT_EQ(first + 1, index);
    EXPECT_EQ(L"a", table.GetVector()[index - 1]);
    EXPECT_EQ(first + 1, table.GetVector().size());
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
    ASSERT_EQ(2u, vocabulary.GetRestrictedAlphabets().size());
    EXPECT_EQ(L"0123456789-+.e ", vocabulary.GetRestrictedAlphabets()[0]);
    EXPECT_EQ(L"0123456789-:TZ ", vocabulary.GetRestrictedAlphabets()[1]);
    EXPECT_TRUE(vocabulary.GetElementNamesTable().GetVector().empty());
}

TEST(Vocabulary, QualifiedNamesAddTheirMissingPartsFirstAndShareKnownOnes) {
    V vocabulary;
    vocabulary.AddElement(L"p", L"urn:x", L"item");
    vocabulary.AddAttribute(L"", L"", L"item");
    vocabulary.AddAttribute(L"xml", CXmlWriter::XML_NAMESPACE, L"lang");
    vocabulary.AddElement(L"p", L"urn:x", L"item"); // known

    const V::QNameVector& elements = vocabulary.GetElementNamesTable().GetVector();
    ASSERT_EQ(1u, elements.size());
    EXPECT_EQ(2u, elements[0].prefixIndex);
    EXPECT_EQ(2u, elements[0].namespaceIndex);
    EXPECT_EQ(1u, elements[0].localNameIndex);
    const V::QNameVector& attributes = vocabulary.GetAttributeNamesTable().GetVector();
    ASSERT_EQ(2u, attributes.size());
    EXPECT_EQ(0u, attributes[0].prefixIndex);
    EXPECT_EQ(0u, attributes[0].namespaceIndex);
    EXPECT_EQ(1u, attributes[0].localNameIndex);
    EXPECT_EQ(1u, attributes[1].prefixIndex);
    EXPECT_EQ(1u, attributes[1].namespaceIndex);
    EXPECT_EQ(2u, attributes[1].localNameIndex);

    uint64_t index = 0;
    EXPECT_TRUE(V::FindIndex(vocabulary.GetElementNamesTable().GetMap(), V::QNameKey(L"p", L"urn:x", L"item"),
                             index));
    EXPECT_EQ(1u, index);
    // The same local name in another namespace or with another prefix is another name.
    EXPECT_FALSE(V::FindIndex(vocabulary.GetElementNamesTable().GetMap(),
                              V::QNameKey(L"q", L"urn:x", L"item"), index));
    EXPECT_FALSE(
        V::FindIndex(vocabulary.GetElementNamesTable().GetMap(), V::QNameKey(L"", L"", L"item"), index));
}

TEST(Vocabulary, TablesTakeNoMoreThan2pw20EntriesAndStayInStep) {
    V vocabulary;
    V::CFIStringTable& table = vocabulary.GetAttributeValuesTable();
    for (uint64_t i = 0; i < V::kMaxTableSize; ++i)
        vocabulary.AddAttributeValue(std::to_wstring(i));
    vocabulary.AddAttributeValue(L"one too many");
    V::AddValueToVector(L"one too many", table.GetVector());
    EXPECT_EQ(V::kMaxTableSize, table.GetMap().size());
    EXPECT_EQ(V::kMaxTableSize, table.GetVector().size());
    uint64_t index = 0;
    EXPECT_TRUE(V::FindIndex(table.GetMap(), L"1048575", index));
    EXPECT_EQ(V::kMaxTableSize, index);
    EXPECT_EQ(L"1048575", table.GetVector().back());
    EXPECT_FALSE(V::FindIndex(table.GetMap(), L"one too many", index));

    V::QNameVector names(V::kMaxTableSize);
    V::AddQNameToVector(0, 0, 1, names);
    EXPECT_EQ(V::kMaxTableSize, names.size());
}

TEST(Vocabulary, CopiesEveryTableWithItsIndexes) {
    V original;
    original.AddElement(L"p", L"urn:x", L"a");
    original.AddAttributeValue(L"v");
    original.AddElementValue(L"t");
    original.GetRestrictedAlphabets().push_back(L"ab");
    V copy(original);
    copy.AddAttributeValue(L"w");

    uint64_t index = 0;
    EXPECT_TRUE(copy.FindPrefixNameIndex(L"p", index));
    EXPECT_EQ(2u, index);
    EXPECT_TRUE(V::FindIndex(copy.GetElementNamesTable().GetMap(), V::QNameKey(L"p", L"urn:x", L"a"), index));
    EXPECT_EQ(1u, index);
    EXPECT_TRUE(V::FindIndex(copy.GetCharacterChunksTable().GetMap(), L"t", index));
    EXPECT_EQ(3u, copy.GetRestrictedAlphabets().size());
    EXPECT_TRUE(V::FindIndex(copy.GetAttributeValuesTable().GetMap(), L"w", index));
    EXPECT_EQ(2u, index);
    EXPECT_FALSE(V::FindIndex(original.GetAttributeValuesTable().GetMap(), L"w", index));
}

} // namespace
