#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/QxVariant.h>

#include <gtest/gtest.h>

#include <memory>

using namespace QxXmlLib16;

namespace {

const auto kCollapse = CWhitespaceUtils::wsCollapse;

template <class Exception, class Call>
std::wstring MessageOf(Call call) {
    try {
        call();
    } catch (const Exception& e) {
        return e.GetMessage();
    }
    return L"(no exception)";
}

struct TextCase {
    ItemType type;
    const wchar_t* name;
    const wchar_t* input;
    const wchar_t* text; // what ToString gives back
};

// One row per kind: FromString must pick the kind's own conversion and ToString its inverse.
const TextCase kTextCases[] = {
    {itHexBinary, L"hexBinary", L" 0a1B ", L"0A1B"},
    {itBase64Binary, L"base64Binary", L"AQID", L"AQID"},
    {itI1, L"i1", L"-128", L"-128"},
    {itI2, L"i2", L" -32768", L"-32768"},
    {itI4, L"i4", L"+2147483647", L"2147483647"},
    {itI8, L"i8", L"-9223372036854775808", L"-9223372036854775808"},
    {itUi1, L"ui1", L"255", L"255"},
    {itUi2, L"ui2", L"65535", L"65535"},
    {itUi4, L"ui4", L"4294967295", L"4294967295"},
    {itUi8, L"ui8", L"18446744073709551615", L"18446744073709551615"},
    {itR4, L"r4", L"0.1", L"0.1"},
    {itR8, L"r8", L"-INF", L"-INF"},
    {itDuration, L"duration", L"P1Y2MT3H4.5S", L"P1Y2MT3H4.5S"},
    {itYearMonth, L"yearMonth", L"2001-02", L"2001-02"},
    {itMonthDay, L"monthDay", L"--02-29", L"--02-29"},
    {itYear, L"year", L"2001", L"2001"},
    {itMonth, L"month", L"--05", L"--05"},
    {itDay, L"day", L"---07", L"---07"},
    {itDate, L"date", L"2000-02-29Z", L"2000-02-29Z"},
    {itDateTime, L"datetime", L"2001-10-26T21:32:52.5+02:00", L"2001-10-26T21:32:52.5+02:00"},
    {itTime, L"time", L"21:32:52", L"21:32:52"},
    {itChar, L"char", L"\x20AC", L"\x20AC"},
    {itString, L"string", L"  a \t b ", L"a b"},
    {itBoolean, L"boolean", L"TRUE", L"true"},
    {itDecimal, L"decimal", L"-0001.500", L"-1.5"},
    {itInteger, L"integer", L"123456789012345678901234567890", L"123456789012345678901234567890"},
};

} // namespace

TEST(QxVariantText, EveryKindRoundTripsThroughItsOwnConversion) {
    for (const TextCase& c : kTextCases) {
        QxVariant v;
        v.FromString(c.input, c.type, kCollapse);
        EXPECT_EQ(v.GetItemType(), c.type) << c.name;
        EXPECT_EQ(v.GetType(), c.name);
        EXPECT_FALSE(v.IsNil()) << c.name;
        EXPECT_EQ(v.ToString(), c.text) << c.name;
        QxVariant copy(v);
        EXPECT_EQ(copy.ToString(), c.text) << c.name;
    }
}

TEST(QxVariantText, DateKindsUseTheGivenFormat) {
    QxVariant v;
    v.FromString(L"2001-10-26", itDate, kCollapse);
    EXPECT_EQ(v.ToString(L"s"), L"2001-10-26");
    EXPECT_EQ(v.ToString(L"x"), L"Unknown Format: x");
}

TEST(QxVariantText, FailuresNameTheTypeAndLeaveTheValue) {
    QxVariant v;
    v.SetI4(7);
    EXPECT_EQ(MessageOf<CQxInvalidValueException>([&] { v.FromString(L"128", itI1, kCollapse); }),
              L"The value [128] is to large to fit in a i1");
    EXPECT_EQ(v.GetType(), L"i4");
    EXPECT_EQ(v.GetI4(), 7);

    for (int type : {0, 27, 28, 29, -1})
        EXPECT_EQ(MessageOf<CQxInvalidParamException>(
                      [&] { v.FromString(L"1", static_cast<ItemType>(type), kCollapse); }),
                  L"Unknown Type");
    EXPECT_EQ(v.GetI4(), 7);

    QxVariant empty;
    EXPECT_EQ(MessageOf<CQxException>([&] { empty.ToString(); }), L"Invalid Type 0 to convert to string");
}

TEST(QxVariantNil, KeepsTheTypeButNotTheValue) {
    QxVariant v;
    v.SetI4(42);
    v.SetNil();
    EXPECT_TRUE(v.IsNil());
    EXPECT_TRUE(v.IsValid());
    EXPECT_EQ(v.GetType(), L"i4");
    EXPECT_EQ(v.GetI4(), 0);
    EXPECT_EQ(v.ToString(), L"");

    v.SetDecimal(CDecimal(L"1.25"));
    v.SetNil();
    EXPECT_EQ(v.GetType(), L"decimal");
    EXPECT_EQ(MessageOf<CQxInvalidStateException>([&] { v.GetDecimal(); }), L"Invalid Type 25");
    QxVariant copy(v);
    EXPECT_TRUE(copy.IsNil());
    EXPECT_EQ(copy.GetType(), L"decimal");

    v.SetBoolean(false); // a setter stores a real value again
    EXPECT_FALSE(v.IsNil());
    EXPECT_EQ(v.ToString(), L"false");
}

TEST(QxVariantNil, ValidityFollowsTypeAndNilFlag) {
    QxVariant v;
    EXPECT_FALSE(v.IsValid());
    v.SetNil();
    EXPECT_TRUE(v.IsValid()); // nil without a known type
    v.SetInvalid();
    EXPECT_FALSE(v.IsValid());
    EXPECT_FALSE(v.IsNil());
    v.SetString(L"x");
    v.Clear();
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(MessageOf<CQxException>([&] { v.GetType(); }), L"Invalid Type 0");
}

TEST(QxVariantOwnership, CopiesAreDeepAndIndependent) {
    auto original = std::make_unique<QxVariant>();
    original->SetDecimal(CDecimal(L"3.14"));
    QxVariant copy(*original);
    QxVariant assigned;
    assigned.SetString(L"old");
    assigned = *original;
    EXPECT_NE(&copy.GetDecimal(), &original->GetDecimal());
    EXPECT_NE(&assigned.GetDecimal(), &original->GetDecimal());
    original.reset(); // the copies must not share what it freed
    EXPECT_EQ(copy.GetDecimal().ToString(), L"3.14");
    EXPECT_EQ(assigned.ToString(), L"3.14");

    assigned = assigned;
    EXPECT_EQ(assigned.ToString(), L"3.14");
    assigned.SetDecimal(assigned.GetDecimal()); // from its own value
    EXPECT_EQ(assigned.ToString(), L"3.14");

    QxVariant moved(std::move(copy));
    EXPECT_EQ(moved.ToString(), L"3.14");
    EXPECT_FALSE(copy.IsValid());
    copy = std::move(moved);
    EXPECT_EQ(copy.ToString(), L"3.14");
}

TEST(QxVariantOwnership, OwnedGettersCheckTheType) {
    QxVariant v;
    v.SetInteger(CBigInteger(L"12"));
    EXPECT_EQ(v.GetInteger().ToString(), L"12");
    EXPECT_EQ(MessageOf<CQxInvalidStateException>([&] { v.GetDecimal(); }), L"Invalid Type 26");
    EXPECT_EQ(MessageOf<CQxInvalidStateException>([&] { v.GetString(); }), L"Invalid Type 26");
    // Inline getters read the stored bits whatever the type.
    v.SetI4(-1);
    EXPECT_EQ(v.GetUI1(), 255);
    EXPECT_TRUE(v.GetBoolean());
    v.SetUI1(0);
    EXPECT_FALSE(v.GetBoolean());
}
