#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/foundation/Optional.h>

#include <gtest/gtest.h>

#include <string>

using namespace QxXmlLib16;

// Generated classes copy members by value: a copy must own its own value.
TEST(Optional, CopiesOwnTheirValue) {
    TOptional<std::wstring> original(std::wstring(L"Gräfenberg"));
    TOptional<std::wstring> copy = original;
    *copy += L" ⇄ Île-de-Ré";
    EXPECT_EQ(*original, L"Gräfenberg");
    EXPECT_NE(original, copy);

    copy = original;
    EXPECT_EQ(original, copy);
    copy = copy; // self-assignment keeps the value
    EXPECT_EQ(*copy, L"Gräfenberg");

    copy = TOptional<std::wstring>();
    EXPECT_FALSE(copy);
    EXPECT_EQ(copy, TOptional<std::wstring>(std::nullopt));
    EXPECT_NE(copy, original);
}

TEST(Optional, ReadsLikeStdOptional) {
    TOptional<CDecimal> absent;
    EXPECT_FALSE(absent.has_value());
    EXPECT_THROW(absent.value(), std::bad_optional_access);
    EXPECT_EQ(absent.value_or(CDecimal(L"1.5")).ToString(), L"1.5");

    TOptional<CDecimal> fromStd(std::optional<CDecimal>(CDecimal(L"-0.25")));
    ASSERT_TRUE(fromStd);
    EXPECT_EQ(fromStd->ToString(), L"-0.25");
    fromStd = CDecimal(L"12.034");
    EXPECT_EQ(fromStd.value().ToString(), L"12.034");
    fromStd = std::nullopt;
    EXPECT_FALSE(fromStd);
}
