#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/values/QxVariant.h>

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <memory>

using namespace QxXmlLib16;

TEST(QxVariantNil, KeepsTheTypeButNotTheValueAndCountsAsValid) {
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

    // Validity follows the type and the nil flag: nil is valid even without a known type.
    QxVariant untyped;
    EXPECT_FALSE(untyped.IsValid());
    untyped.SetNil();
    EXPECT_TRUE(untyped.IsValid());
    untyped.SetInvalid();
    EXPECT_FALSE(untyped.IsValid());
    EXPECT_FALSE(untyped.IsNil());
    untyped.SetString(L"x");
    untyped.Clear();
    EXPECT_FALSE(untyped.IsValid());
    EXPECT_EQ(MessageOf<CQxException>([&] { untyped.GetType(); }), L"Invalid Type 0");
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
