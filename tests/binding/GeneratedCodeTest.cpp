#include <QxXmlLib16/QxXmlLib16.h>

#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

using namespace QxXmlLib16;

namespace {

enum Mode : int { Mode_walk, Mode_ride };
const wchar_t* const kModes[] = {L"walk", L"ride"};
const wchar_t* ModeToText(int value) {
    return EnumToText(kModes, value);
}
int ModeFromText(const wchar_t* text) {
    return EnumFromText(kModes, text, L"Mode");
}

const CDecimal kTen = CConversions::decimalFromString(L"10.5", CWhitespaceUtils::wsCollapse);

// A member of each shape a generator may give an optional value.
template <class Member>
struct OptionalShape : testing::Test {};
using OptionalShapes = testing::Types<TOptional<CDecimal>, std::optional<CDecimal>>;
TYPED_TEST_SUITE(OptionalShape, OptionalShapes);

TYPED_TEST(OptionalShape, AbsentLeavesTheVariantInvalidAndAWriteMakesItPresent) {
    TypeParam member;
    QxVariant value;
    AccessValue<itDecimal>(true, value, member);
    EXPECT_FALSE(value.IsValid());
    value.SetDecimal(kTen);
    AccessValue<itDecimal>(false, value, member);
    ASSERT_TRUE(member.has_value());
    EXPECT_EQ(0, member->CompareTo(kTen));
    QxVariant back;
    AccessValue<itDecimal>(true, back, member);
    EXPECT_EQ(L"10.5", back.ToString());

    // Generated classes copy members by value: a copy owns its value.
    TypeParam copy = member;
    *copy = CDecimal(L"-1");
    EXPECT_EQ(0, member->CompareTo(kTen));
    copy = member;
    copy = copy;
    EXPECT_EQ(0, copy->CompareTo(kTen));
    copy = std::nullopt;
    EXPECT_FALSE(copy.has_value());
}

TEST(GeneratedAccess, RefusalsNameTheProperty) {
    CSmartPtr<CElement> element(new CElement(L"e"));
    CSmartPtr<CElementCol> elements(new CElementCol(L"", L"##any", L"", 0, -1));
    CSmartPtr<CXmlGeneratedClass> child;
    CSmartPtr<CstringCol> strings;
    QxVariant object, collection, nothing;
    object.SetXmlObject(element.Get());
    collection.SetXmlCollection(elements.Get());
    const struct {
        std::function<void()> action;
        const wchar_t* message;
    } cases[] = {
        {[&] { AccessObject(false, object, child, L"child"); },
         L"The Property [child] was given an object of another class"},
        {[&] { AccessCollection(false, collection, strings, L"s"); },
         L"The Property [s] needs a collection of its own class"},
        {[&] { AccessCollection(false, nothing, strings, L"s"); },
         L"The Property [s] needs a collection of its own class"},
        {[&] { UnknownProperty(42); }, L"Unknown property number 42"},
        {[&] { ModeFromText(L"fly"); }, L"The value [fly] is not a valid Mode"},
        {[&] { TEnumCol<Mode, ModeToText, ModeFromText>(L"mode", L"", 0, -1).Add(Mode(2)); },
         L"Invalid Value for mode [2]"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MessageOf<CQxException>(c.action), c.message);
    EXPECT_STREQ(L"", ModeToText(-1));
    EXPECT_STREQ(L"", ModeToText(2));
}

} // namespace
