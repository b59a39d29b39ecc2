#include <QxXmlLib16/QxXmlLib16.h>
#include <QxXmlLib16/collections/XmlCollection.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/values/QxVariant.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include "binding/support/FamilyFixtures.h"
#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;
using namespace FamilyFixtures;

namespace {

const CSerializationContext kStrict;

CSerializationContext IgnoringUnknownElements() {
    CSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    return context;
}

CSerializationContext IgnoringCounts() {
    CSerializationContext context;
    context.SetIgnoreInvalidCollectionCounts(true);
    return context;
}

// n elements, 2 to 3 of them.
CSmartPtr<Ci4Col> Numbers() {
    return new Ci4Col(L"n", L"", 2, 3, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                      CWhitespaceUtils::wsCollapse, nullptr);
}

} // namespace

// ---- Collections ----------------------------------------------------------------------------------

TEST(FamilySequenceCollection, TakesItsRunAndHoldsItToItsCount) {
    const CElementInfoSeqPrimCol info(L"n", L"", 0);
    CSlots object;
    CSmartPtr<Ci4Col> numbers = Numbers();
    object.slot[0].SetXmlCollection(numbers.Get());

    const Outcome outcome = ReadMember(info, object, L"<r><n>1</n><n>2</n><x/></r>", etElement);
    EXPECT_TRUE(outcome.result);
    EXPECT_EQ(L"x", outcome.at);
    EXPECT_EQ(2, numbers->GetCount());

    numbers->Clear();
    EXPECT_EQ(L"The Minimum number of [n] elements allowed in this collection is 2",
              FailureOf(info, object, L"<r><n>1</n></r>", etElement).message);
    numbers->Clear();
    // Probing reports the count instead; the sequence has moved past the item all the same.
    const Outcome probed = ReadMember(info, object, L"<r><n>1</n><x/></r>", etGroup);
    EXPECT_FALSE(probed.result);
    EXPECT_EQ(L"x", probed.at);
    numbers->Clear();
    EXPECT_TRUE(ReadMember(info, object, L"<r><n>1</n></r>", etElement, IgnoringCounts()).result);
}

TEST(FamilySequenceCollection, MemberWithoutCollectionIsMisuse) {
    const CElementInfoSeqClsCol info(L"n", L"", 0, etElement);
    CSlots object;
    EXPECT_EQ(L"The collection member [n] holds no collection.", MessageOf<CQxInvalidStateException>([&] {
                  ReadMember(info, object, L"<r><n/></r>", etElement);
              }));
}

TEST(FamilyChoiceCollection, ReportsWhetherItMatched) {
    const CElementInfoChoicePrimCol info(L"n", L"", 0);
    CSlots object;
    CSmartPtr<Ci4Col> numbers = Numbers();
    object.slot[0].SetXmlCollection(numbers.Get());

    const Outcome none = ReadMember(info, object, L"<r><x/></r>", etElement);
    EXPECT_FALSE(none.result);
    EXPECT_EQ(L"x", none.at);

    const Outcome enough = ReadMember(info, object, L"<r><n>1</n><n>2</n><x/></r>", etGroup);
    EXPECT_TRUE(enough.result);
    EXPECT_EQ(L"x", enough.at);
}

TEST(FamilyChoiceCollection, ProbedWithTooFewItemsKeepsThePositionButNotTheItems) {
    const CElementInfoChoicePrimCol info(L"n", L"", 0);
    CSlots object;
    CSmartPtr<Ci4Col> numbers = Numbers();
    object.slot[0].SetXmlCollection(numbers.Get());

    const Outcome outcome = ReadMember(info, object, L"<r><n>7</n><x/></r>", etGroup);
    EXPECT_FALSE(outcome.result);
    EXPECT_EQ(L"n", outcome.at);
    ASSERT_EQ(1, numbers->GetCount());
    EXPECT_EQ(7, numbers->Item(0));

    numbers->Clear();
    EXPECT_EQ(L"The Minimum number of [n] elements allowed in this collection is 2",
              FailureOf(info, object, L"<r><n>7</n></r>", etElement).message);
}

TEST(FamilyAllCollection, TakesItsItemsButNeverReportsTheMemberFound) {
    const CElementInfoAllPrimCol info(L"n", L"", 0);
    CSlots object;
    CSmartPtr<Ci4Col> numbers = Numbers();
    object.slot[0].SetXmlCollection(numbers.Get());
    for (XmlElementType probe : {etElement, etGroup}) {
        numbers->Clear();
        const Outcome outcome = ReadMember(info, object, L"<r><n>1</n><n>2</n><x/></r>", probe);
        EXPECT_FALSE(outcome.result);
        EXPECT_EQ(L"x", outcome.at);
        EXPECT_EQ(2, numbers->GetCount());
    }
}

TEST(FamilyCollectionWriting, SequenceAndAllCheckTheCountFirstChoiceDoesNot) {
    const CElementInfoSeqCol sequence(L"c", L"", 0);
    const CElementInfoAllClsCol all(L"c", L"", 0, etElement);
    const CElementInfoChoiceAbsClsCol choice(L"c", L"", 0, etElement);
    CSlots object;
    CSmartPtr<CLeafCol> leaves(new CLeafCol(2, 3));
    object.slot[0].SetXmlCollection(leaves.Get());
    leaves->AppendItem(NewLeaf(5).Get());

    const wchar_t* const tooFew = L"The Minimum number of [c] elements allowed in this collection is 2";
    EXPECT_EQ(tooFew, MessageOf<CQxValidationException>([&] { WriteMember(sequence, object); }));
    EXPECT_EQ(tooFew, MessageOf<CQxValidationException>([&] { WriteMember(all, object); }));
    EXPECT_EQ(L"<c id=\"5\"/>", WriteMember(choice, object));
    EXPECT_EQ(L"<c id=\"5\"/>", WriteMember(sequence, object, IgnoringCounts()));

    leaves->Clear();
    EXPECT_EQ(L"", WriteMember(choice, object));
}

// ---- Values in choice and all groups --------------------------------------------------------------

TEST(FamilyChoiceAndAllValues, ReadOnlyTheirOwnElementAndSaySo) {
    const CElementInfoChoicePrimOpt prim(L"v", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                         nullptr);
    const CElementInfoAllEnumMnd enumeration(L"v", L"", 0, false, ColourToText, TextToColour, nullptr);
    const CElementInfo* const members[] = {&prim, &enumeration};
    for (const CElementInfo* info : members) {
        CSlots object;
        const Outcome miss =
            ReadMember(*info, object, L"<r><x/><v>1</v></r>", etElement, IgnoringUnknownElements());
        EXPECT_FALSE(miss.result);
        EXPECT_EQ(L"x", miss.at);
        EXPECT_FALSE(object.slot[0].IsValid());

        const Outcome hit = ReadMember(*info, object, L"<r><v>1</v><x/></r>", etElement);
        EXPECT_TRUE(hit.result);
        EXPECT_EQ(L"x", hit.at);
        EXPECT_EQ(1, object.slot[0].GetI4());
    }
}

TEST(FamilyAllValidation, MandatoryMembersReportTheirAbsence) {
    const CElementInfoAllPrimMnd prim(L"p", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                      nullptr);
    const CElementInfoAllEnumMnd enumeration(L"e", L"", 0, false, ColourToText, TextToColour, nullptr);
    const CElementInfoAllAbsClsMnd derived(L"d", L"", 0, etElement, MakeByType, 9);
    const CElementInfoAllClsMnd group(L"g", L"", 0, etGroup, MakeLeaf, 0, false);
    const CElementInfo* const members[] = {&prim, &enumeration, &derived, &group};
    CSlots object;
    for (const CElementInfo* info : members) {
        EXPECT_TRUE(info->Validate(kStrict, &object, true, true));
        EXPECT_FALSE(info->Validate(kStrict, &object, false, false));
        const std::wstring expected = L"Failed to find the mandatory element [" + info->GetName() + L"].";
        EXPECT_EQ(expected,
                  MessageOf<CQxValidationException>([&] { info->Validate(kStrict, &object, false, true); }));
    }
}

TEST(FamilyAllValidation, ClassMemberThatMayStandEmptyIsNeverMissing) {
    struct Case {
        XmlElementType kind;
        bool requiredContent;
        bool throws;
    };
    const Case cases[] = {{etElement, false, false},
                          {etElement, true, true},
                          {etGroup, false, true},
                          {static_cast<XmlElementType>(2), false, false}};
    CSlots object;
    for (const Case& c : cases) {
        const CElementInfoAllClsMnd info(L"c", L"", 0, c.kind, MakeLeaf, 0, c.requiredContent);
        const std::wstring message = MessageOf<CQxValidationException>(
            [&] { EXPECT_TRUE(info.Validate(kStrict, &object, false, true)); });
        EXPECT_EQ(c.throws, message == L"Failed to find the mandatory element [c].")
            << "kind " << c.kind << ", required " << c.requiredContent;
    }
}

TEST(FamilyAllValidation, OptionalMembersAcceptEveryCall) {
    const CElementInfoAllPrimOpt prim(L"p", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                      nullptr);
    const CElementInfoAllClsOpt cls(L"c", L"", 0, etElement, MakeLeaf, 0);
    const CElementInfo* const members[] = {&prim, &cls};
    CSlots object;
    for (const CElementInfo* info : members)
        for (bool found : {false, true})
            for (bool check : {false, true})
                EXPECT_TRUE(info->Validate(kStrict, &object, found, check));
}

TEST(FamilyWriting, MandatoryMembersWithoutValueAreRefused) {
    const CElementInfoAllPrimMnd prim(L"p", L"", 0, false, itI4, nullptr, CWhitespaceUtils::wsCollapse, {},
                                      nullptr);
    const CElementInfoSeqAbsClsMnd derived(L"d", L"", 0, etElement, MakeByType);
    const CElementInfoAllClsMnd cls(L"c", L"", 0, etElement, MakeLeaf, 0, false);
    const CElementInfo* const members[] = {&prim, &derived, &cls};
    CSlots object;
    for (const CElementInfo* info : members)
        EXPECT_EQ(L"The Property [" + info->GetName() + L"] is mandatory, it may not be NULL",
                  MessageOf<CQxInvalidParamException>([&] { WriteMember(*info, object); }));
}

// ---- Class members -------------------------------------------------------------------------------

TEST(FamilyDerivedClass, FactoryChoosesTheClassFromTheElement) {
    const CElementInfoSeqAbsClsMnd info(L"d", L"", 0, etElement, MakeByType);
    CSlots object;
    const Outcome outcome =
        ReadMember(info, object, L"<r><d kind='leaf' id='4'><v>8</v></d><x/></r>", etElement);
    EXPECT_TRUE(outcome.result);
    EXPECT_EQ(L"x", outcome.at);
    CSmartPtr<CLeaf> leaf = object.slot[0].GetXmlObject().DynamicCast<CLeaf>();
    ASSERT_TRUE(leaf);
    EXPECT_EQ(4, leaf->id.value_or(0));
    EXPECT_EQ(8, leaf->v.value_or(0));
}

TEST(FamilyDerivedClass, MissingOrUnknownSubstitutionIsAnErrorOfTheMandatorySequenceMember) {
    const CElementInfoSeqAbsClsMnd info(L"d", L"", 0, etElement, MakeByType);
    CSlots object;
    for (const wchar_t* xml : {L"<r><x/></r>", L"<r/>", L"<r><d kind='castle'/></r>"}) {
        const Failure failure = FailureOf(info, object, xml, etElement);
        EXPECT_EQ(L"Failed to find a suitable substitution element for [d].", failure.message) << xml;
        EXPECT_EQ(L"/r", failure.path);
    }
    EXPECT_FALSE(ReadMember(info, object, L"<r><x/></r>", etGroup).result);
}

TEST(FamilyDerivedClass, NonMatchingElementSatisfiesOnlyTheOptionalSequenceMember) {
    const CElementInfoSeqAbsClsOpt sequence(L"d", L"", 0, etElement, MakeByType);
    const CElementInfoChoiceAbsClsOpt choice(L"d", L"", 0, etElement, MakeByType);
    const CElementInfoAllAbsClsOpt all(L"d", L"", 0, etElement, MakeByType);
    CSlots object;
    EXPECT_TRUE(ReadMember(sequence, object, L"<r><x/></r>", etElement).result);
    EXPECT_FALSE(ReadMember(choice, object, L"<r><x/></r>", etElement).result);
    EXPECT_FALSE(ReadMember(all, object, L"<r><x/></r>", etElement).result);
    EXPECT_FALSE(object.slot[0].IsValid());
    EXPECT_EQ(L"Failed to find a suitable substitution element for [d].",
              FailureOf(choice, object, L"<r><d kind='castle'/></r>", etGroup).message);
}

TEST(FamilyKnownClass, ChoiceAndAllMembersReadANewObjectForTheirElementOnly) {
    const CElementInfoChoiceClsOpt choice(L"c", L"", 0, etElement, MakeLeaf, 0);
    const CElementInfoAllClsOpt all(L"c", L"", 0, etElement, MakeLeaf, 0);
    const CElementInfo* const members[] = {&choice, &all};
    for (const CElementInfo* info : members) {
        CSlots object;
        EXPECT_FALSE(ReadMember(*info, object, L"<r><x/></r>", etElement).result);
        EXPECT_FALSE(object.slot[0].IsValid());
        const Outcome outcome = ReadMember(*info, object, L"<r><c id='2'/><x/></r>", etElement);
        EXPECT_TRUE(outcome.result);
        EXPECT_EQ(L"x", outcome.at);
        CSmartPtr<CLeaf> leaf = object.slot[0].GetXmlObject().DynamicCast<CLeaf>();
        ASSERT_TRUE(leaf);
        EXPECT_EQ(2, leaf->id.value_or(0));
    }
}

TEST(FamilyKnownClass, InlineCollectionPutsTheAttributesOfItsItemsOnTheParent) {
    CSlots object;
    CSmartPtr<CLeafCol> leaves(new CLeafCol(0, -1));
    // Only the second item has an attribute to show.
    leaves->AppendItem(NewLeaf({}).Get());
    leaves->AppendItem(NewLeaf(2).Get());
    object.slot[0].SetXmlCollection(leaves.Get());
    const CElementInfoSeqClsCol inline_(L"c", L"", 0, etGroup);
    const CElementInfoAllAbsClsCol ownElement(L"c", L"", 0, etElement);
    EXPECT_EQ(L"<p id=\"2\"/>", WriteAttributesOn(inline_, object));
    EXPECT_EQ(L"<p/>", WriteAttributesOn(ownElement, object));
}

// The class tree generated code and casts rely on: repeated members of a kind are their group's
// plain collection member, and an enumeration collection in an all-group cannot be made.
static_assert(std::is_base_of<CElementInfoSeqCol, CElementInfoSeqUntpdCol>::value);
static_assert(std::is_base_of<CElementInfoChoiceCol, CElementInfoChoiceClsCol>::value);
static_assert(std::is_base_of<CElementInfoAllCol, CElementInfoAllAbsClsCol>::value);
static_assert(!std::is_base_of<CElementInfoAllCol, CElementInfoAllEnumCol>::value);
static_assert(std::is_abstract<CElementInfoAllEnumCol>::value);
static_assert(!std::is_constructible<CElementInfoChoiceClsOpt, const wchar_t*, const wchar_t*, int,
                                     XmlElementType, ClassFactoryFunction, int, bool>::value,
              "only mandatory class members take the required-content flag");
