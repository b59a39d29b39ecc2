#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/QxXmlLib16.h>

#include "binding/support/FamilyFixtures.h"
#include "foundation/support/MessageOf.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;
using namespace FamilyFixtures;

TEST(FamilyWildcard, MandatoryMemberTakesAnElementOfItsOwnNameOrAnyForAnyElement) {
    struct Case {
        const wchar_t* member;
        const wchar_t* xml;
        bool taken;
    };
    const Case cases[] = {
        {L"AnyElement", L"<r><zz a='1'>t</zz><x/></r>", true},
        {L"zz", L"<r><zz>t</zz><x/></r>", true},
        {L"yy", L"<r><zz>t</zz><x/></r>", false},
    };
    for (const Case& c : cases) {
        const CElementInfoSeqUntpdMnd info(c.member, L"urn:w", 0, L"##any", L"");
        CSlots object;
        CSmartPtr<CElement> held(new CElement(L"held", L"", L"##any", L""));
        object.slot[0].SetXmlObject(held.Get());
        const Outcome outcome = ReadMember(info, object, c.xml, etGroup);
        EXPECT_EQ(c.taken, outcome.result) << c.member;
        EXPECT_EQ(c.taken ? L"x" : L"zz", outcome.at) << c.member;
        // The member's own element reads the content in place.
        EXPECT_EQ(c.taken ? L"zz" : L"held", held->GetName()) << c.member;
    }
}

TEST(FamilyWildcard, MandatorySequenceMemberReportsWhatIsMissing) {
    const CElementInfoSeqUntpdMnd info(L"yy", L"urn:w", 0, L"##any", L"");
    CSlots object;
    object.slot[0].SetXmlObject(new CElement(L"held", L"", L"##any", L""));
    const Failure wrongName = FailureOf(info, object, L"<r><zz/></r>", etElement);
    EXPECT_EQ(L"Failed to find the required element from namespace [urn:w].", wrongName.message);
    EXPECT_EQ(L"/r", wrongName.path);
    // At the end of the parent even a probe fails loudly.
    EXPECT_EQ(L"Failed to find the required child element [yy].",
              FailureOf(info, object, L"<r/>", etGroup).message);
}

TEST(FamilyWildcard, OptionalMemberStoresANewElementOrNothing) {
    const CElementInfoChoiceUntpdOpt info(L"AnyElement", L"", 0, L"##targetNamespace", L"urn:t");
    CSlots object;
    const Outcome foreign = ReadMember(info, object, L"<r><zz xmlns='urn:other'/></r>", etElement);
    EXPECT_FALSE(foreign.result);
    EXPECT_EQ(L"zz", foreign.at);
    EXPECT_FALSE(object.slot[0].GetXmlObject());

    const Outcome taken = ReadMember(info, object, L"<r><zz xmlns='urn:t'>t</zz></r>", etElement);
    EXPECT_TRUE(taken.result);
    EXPECT_EQ(L"(end)", taken.at);
    CSmartPtr<CElement> element = object.slot[0].GetXmlObject().DynamicCast<CElement>();
    ASSERT_TRUE(element);
    EXPECT_EQ(L"zz", element->GetName());
    EXPECT_EQ(L"t", element->GetText());

    EXPECT_FALSE(ReadMember(info, object, L"<r/>", etElement).result);
}

TEST(FamilyWildcard, NamedCollectionTakesOnlyElementsOfItsName) {
    const CElementInfoSeqUntpdCol named(L"zz", L"", 0);
    const CElementInfoChoiceUntpdCol any(L"AnyElement", L"", 0);
    CSlots object;
    CSmartPtr<CElementCol> elements(new CElementCol(L"", L"##any", L"", 0, -1));
    object.slot[0].SetXmlCollection(elements.Get());

    const Outcome byName =
        ReadMember(named, object, L"<r><zz xmlns='urn:a'/><zz xmlns='urn:a'/><yy/></r>", etElement);
    EXPECT_TRUE(byName.result);
    EXPECT_EQ(L"yy", byName.at);
    EXPECT_EQ(2, elements->GetCount());

    elements->Clear();
    const Outcome anyName = ReadMember(any, object, L"<r><zz/><yy/></r>", etElement);
    EXPECT_TRUE(anyName.result);
    EXPECT_EQ(L"(end)", anyName.at);
    EXPECT_EQ(2, elements->GetCount());
}

TEST(FamilyWildcard, AllGroupMembersValidateAsTheirCardinalitySays) {
    const CSerializationContext context;
    const CElementInfoAllUntpdMnd mandatory(L"w", L"", 0, L"##any", L"");
    const CElementInfoAllUntpdOpt optional(L"w", L"", 0, L"##any", L"");
    CSlots object;
    EXPECT_TRUE(optional.Validate(context, &object, false, true));
    EXPECT_EQ(L"Failed to find the mandatory element [w].",
              MessageOf<CQxValidationException>([&] { mandatory.Validate(context, &object, false, true); }));
    EXPECT_EQ(L"The Property [w] is mandatory, it may not be NULL",
              MessageOf<CQxInvalidParamException>([&] { WriteMember(mandatory, object); }));
}
