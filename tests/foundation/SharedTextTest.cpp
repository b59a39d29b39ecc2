#include <QxXmlLib16/foundation/SharedText.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using namespace QxXmlLib16;

TEST(SharedText, EqualTextsShareOneStringAndKeepTheirValue) {
    const std::wstring uri = L"http://www.topografix.com/GPX/1/1";
    const CSharedText a(uri.c_str());
    const CSharedText b(uri);
    EXPECT_EQ(&a.Get(), &b.Get());
    EXPECT_EQ(uri, a.Get());
    EXPECT_TRUE(CSharedText(nullptr).empty());
    EXPECT_TRUE(CSharedText(L"").empty());
    EXPECT_NE(&a.Get(), &CSharedText(L"urn:other").Get());
}

// More distinct texts than are remembered: the older ones are made anew, never mixed up.
TEST(SharedText, ManyDistinctTextsStayDistinct) {
    std::vector<CSharedText> texts;
    for (int i = 0; i < 40; ++i)
        texts.emplace_back(std::to_wstring(i % 20));
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(std::to_wstring(i % 20), texts[i].Get());
}

TEST(SharedText, OutlivesTheThreadThatMadeIt) {
    CSharedText kept;
    std::thread([&] { kept = CSharedText(L"urn:made:elsewhere"); }).join();
    EXPECT_EQ(L"urn:made:elsewhere", kept.Get());
    EXPECT_EQ(L"urn:made:elsewhere", CSharedText(L"urn:made:elsewhere").Get());
}
