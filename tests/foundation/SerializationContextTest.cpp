#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/Exceptions.h>

#include <gtest/gtest.h>

#include "foundation/support/MessageOf.h"

using namespace QxXmlLib16;

TEST(SerializationContext, TheTwoIgnoreSwitchesExcludeEachOther) {
    const std::wstring common =
        L"The parser can only ignore additional elements, or ignore the fact that some required "
        L"ones are missing, you can not ignore both\n";
    CSerializationContext first;
    first.SetIgnoreUnknownElements(true);
    EXPECT_EQ(
        MessageOf<CQxInvalidStateException>([&] { first.SetIgnoreMissingMandatoryElements(true); }),
        common + L"Set IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
    EXPECT_FALSE(first.GetIgnoreMissingMandatoryElements());
    first.SetIgnoreMissingMandatoryElements(false);

    CSerializationContext second;
    second.SetIgnoreMissingMandatoryElements(true);
    EXPECT_EQ(
        MessageOf<CQxInvalidStateException>([&] { second.SetIgnoreUnknownElements(true); }),
        common + L"Set IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
    second.SetIgnoreUnknownElements(false);
    second.SetIgnoreMissingMandatoryElements(false);
    second.SetIgnoreUnknownElements(true);
    EXPECT_TRUE(second.GetIgnoreUnknownElements());
}

TEST(SerializationContext, IndentAcceptsOnlyTabsAndBlanks) {
    CSerializationContext context;
    context.SetIndentChars(L"  \t");
    EXPECT_EQ(context.GetIndentChars(), L"  \t");
    EXPECT_EQ(MessageOf<CQxInvalidParamException>([&] { context.SetIndentChars(L" x"); }),
              L"IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
    EXPECT_EQ(context.GetIndentChars(), L"  \t");
    context.SetIndentChars(nullptr);
    EXPECT_EQ(context.GetIndentChars(), L"");
}

TEST(NamespaceAliasMap, EntriesAreKeptInUriOrder) {
    CNamespaceAliasMap map;
    map.Add(L"z", L"urn:b");
    map.Add(L"a", L"urn:a");
    map.Add(L"b", L"urn:a"); // replaces the alias of urn:a
    map.Add(L"p", L"urn:");
    ASSERT_EQ(map.GetNamespaceCount(), 3);
    EXPECT_EQ(map.GetNamespaceAt(0), L"urn:");
    EXPECT_EQ(map.GetNamespaceAt(-5), L"urn:");
    EXPECT_EQ(map.GetNamespaceAt(1), L"urn:a");
    EXPECT_EQ(map.GetNamespaceAt(2), L"urn:b");
    EXPECT_EQ(map.GetAliasFromNamespace(L"urn:a"), L"b");
    EXPECT_TRUE(map.DoesAliasExist(L"z"));
    EXPECT_FALSE(map.DoesAliasExist(L"a"));

    map.RemoveNamespace(L"urn:b");
    map.RemoveNamespace(L"urn:absent");
    EXPECT_FALSE(map.DoesNamespaceExist(L"urn:b"));
    EXPECT_EQ(map.GetNamespaceCount(), 2);
}

TEST(NamespaceAliasMap, LookupsByAliasAndByUri) {
    CNamespaceAliasMap map;
    map.Add(L"s", L"urn:y");
    map.Add(L"s", L"urn:x");
    EXPECT_EQ(map.GetNamespaceFromAlias(L"s"), L"urn:x"); // the URI that sorts first
    EXPECT_EQ(MessageOf<CQxException>([&] { map.GetNamespaceFromAlias(L"q"); }),
              L"Namespace alias [q] not found");
    const CNamespaceAliasMap& constMap = map;
    EXPECT_EQ(constMap.GetAliasFromNamespace(L"urn:new"), L"");
    EXPECT_EQ(map.GetNamespaceCount(), 3); // the lookup inserted the URI
}
