#include "binding/support/GroupsSchema.h"
#include "binding/support/ProofDocuments.h"
#include "binding/support/Xmllint.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

using namespace QxXmlLib16;
using namespace GroupsSchema;
using namespace ProofDocuments;

namespace {

const char* const kSchema = "groups.xsd";

std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to) {
    text.replace(text.find(from), from.size(), to);
    return text;
}

struct Failure {
    std::wstring message; // innermost, without its path
    std::wstring path;    // innermost path that is set
};

Failure Innermost(const CQxException& e) {
    Failure failure;
    for (const CQxException* link = &e; link; link = link->GetInnerException()) {
        failure.message = link->GetMessage().substr(0, link->GetMessage().find(L"\nPath: "));
        if (!link->GetPath().empty()) failure.path = link->GetPath();
    }
    return failure;
}

// Unprefixed output, so that tests can look for the text they expect.
std::wstring Plain(const CXmlObjectBase& root) {
    CSerializationContext context;
    context.SetDefaultNamespaceURI(kNamespace);
    return root.ToXml(false, false, eolLF, context);
}

template <class Root = CGroups>
Failure LoadFailure(const std::wstring& document,
                    const CSerializationContext& context = CSerializationContext()) {
    CSmartPtr<Root> root(new Root());
    try {
        root->FromXml(document.c_str(), context);
    } catch (const CQxException& e) {
        return Innermost(e);
    }
    return {L"(no exception)", L""};
}

TEST(GroupsProof, EveryContentKindLoadsAndWritesBackValid) {
    const std::wstring document = Groups();
    ASSERT_TRUE(ValidateWithXmllint(document, kSchema).valid);

    CSmartPtr<CGroups> groups(new CGroups());
    groups->FromXml(document.c_str());
    const CPickCol& picks = *groups->GetPicks();
    ASSERT_EQ(5, picks.GetCount());
    EXPECT_EQ(1, picks.GetPick(0)->GetItem()->GetId());
    const auto* circle = dynamic_cast<const CCircle*>(picks.GetPick(1)->GetShape());
    ASSERT_NE(nullptr, circle);
    EXPECT_EQ(CDecimal(L"2"), circle->GetRadius());
    EXPECT_EQ(Colour_red, circle->GetColour());
    EXPECT_EQ(5, picks.GetPick(2)->GetCount());
    EXPECT_EQ(Colour_blue, picks.GetPick(3)->GetColour());
    ASSERT_NE(nullptr, picks.GetPick(4)->GetAny());
    EXPECT_EQ(nullptr, picks.GetPick(4)->GetItem());

    const CBag& bag = *groups->GetBag();
    EXPECT_EQ(3, bag.GetItem()->GetId());
    EXPECT_NE(nullptr, dynamic_cast<const CSquare*>(bag.GetShape()));
    EXPECT_EQ(7, bag.GetCount());
    EXPECT_EQ(Colour_green, bag.GetColour());
    EXPECT_EQ(2, bag.GetSpare()->GetId());
    EXPECT_NE(nullptr, dynamic_cast<const CSquare*>(bag.GetFigure()));
    EXPECT_EQ(L"n", bag.GetNote());
    EXPECT_EQ(Colour_green, bag.GetTint());
    EXPECT_NE(nullptr, bag.GetMore());
    EXPECT_NE(nullptr, dynamic_cast<const CCircle*>(groups->GetMain()));
    EXPECT_EQ(nullptr, groups->GetAlt());
    ASSERT_EQ(2, groups->GetFigures()->GetCount());
    EXPECT_NE(nullptr, dynamic_cast<const CCircle*>(groups->GetFigures()->Item(0)));
    const auto* square = dynamic_cast<const CSquare*>(groups->GetFigures()->Item(1));
    ASSERT_NE(nullptr, square);
    EXPECT_EQ(Colour_blue, square->GetColour());

    const std::wstring written = groups->ToXml(true, false);
    const XmllintResult result = ValidateWithXmllint(written, kSchema);
    EXPECT_TRUE(result.valid) << result.output;
    CSmartPtr<CGroups> again(new CGroups());
    again->FromXml(written.c_str());
    EXPECT_EQ(written, again->ToXml(true, false));
}

// Each palette takes one alternative, which repeats; the others stay empty.
TEST(GroupsProof, RepeatedAlternativesOfAChoiceRoundTrip) {
    CSmartPtr<CGroups> groups(new CGroups());
    groups->FromXml(Groups().c_str());
    const auto& palettes = *groups->GetPalettes();
    ASSERT_EQ(6, palettes.GetCount());
    const CItemCol& items = *palettes.Item(0)->GetItems();
    ASSERT_EQ(2, items.GetCount());
    EXPECT_EQ(5, items.Item(1)->GetId());
    EXPECT_EQ(0, palettes.Item(0)->GetColours()->GetCount());
    const CColourCol& colours = *palettes.Item(1)->GetColours();
    ASSERT_EQ(2, colours.GetCount());
    EXPECT_EQ(Colour_green, colours.Item(1));
    EXPECT_EQ(0, palettes.Item(1)->GetEntries()->GetCount());
    const CEntryCol& entries = *palettes.Item(2)->GetEntries();
    ASSERT_EQ(3, entries.GetCount());
    EXPECT_EQ(1, entries.GetEntry(0)->GetCount());
    EXPECT_EQ(L"two", entries.GetEntry(1)->GetNote());
    EXPECT_FALSE(entries.GetEntry(1)->GetCount());
    EXPECT_EQ(3, entries.GetEntry(2)->GetCount());
    const CShapeCol& shapes = *palettes.Item(3)->GetShapes();
    ASSERT_EQ(2, shapes.GetCount());
    EXPECT_NE(nullptr, dynamic_cast<CCircle*>(shapes.Item(1)));
    const CdecimalCol& sizes = *palettes.Item(4)->GetSizes();
    ASSERT_EQ(2, sizes.GetCount());
    EXPECT_EQ(L"1.25", sizes.Item(0).ToString());
    const CElementCol& others = *palettes.Item(5)->GetOthers();
    ASSERT_EQ(2, others.GetCount());
    EXPECT_EQ(L"x", others.Item(1)->GetText());
    EXPECT_EQ(0, palettes.Item(5)->GetItems()->GetCount() + palettes.Item(5)->GetSizes()->GetCount());
    // The sequence's own repeated choice, after the label.
    ASSERT_EQ(2, groups->GetEntries()->GetCount());
    EXPECT_EQ(8, groups->GetEntries()->GetEntry(1)->GetCount());

    // Built in code, each palette is written in its alternative's own form.
    CSmartPtr<CGroups> built(new CGroups());
    built->GetPicks()->Add()->SetCount(0);
    CPalette* palette = built->GetPalettes()->Add();
    palette->GetColours()->Add(Colour_blue);
    palette->GetColours()->Add(Colour_red);
    palette->GetColours()->Add(Colour_blue);
    built->GetPalettes()->Add()->GetEntries()->Add()->SetNote(L"only");
    const std::wstring written = Plain(*built);
    EXPECT_NE(
        std::wstring::npos,
        written.find(L"<palette><colour>blue</colour><colour>red</colour><colour>blue</colour></palette>"
                     L"<palette><note>only</note></palette>"))
        << written;
    const XmllintResult result = ValidateWithXmllint(written, kSchema);
    EXPECT_TRUE(result.valid) << result.output;

    // Too many colours are refused on writing as well.
    palette->GetColours()->Add(Colour_green);
    try {
        built->ToXml();
        ADD_FAILURE() << "four colours were written";
    } catch (const CQxException& e) {
        EXPECT_EQ(L"The Maximum number of [colour] elements allowed in this collection is 3",
                  Innermost(e).message);
    }
}

// The group's attribute is written on, and read from, the element of the class that holds the group.
TEST(GroupsProof, InlineGroupAttributesStandOnTheParent) {
    CSmartPtr<CGroups> groups(new CGroups());
    groups->FromXml(Groups().c_str());
    const CLabel* label = groups->GetLabel();
    ASSERT_NE(nullptr, label);
    EXPECT_EQ(L"t", label->GetText());
    EXPECT_EQ(L"me", label->GetStamp()->GetBy());
    EXPECT_TRUE(label->GetStamp()->GetSigned());

    groups->GetLabel()->GetStamp()->SetSigned(false);
    const std::wstring written = Plain(*groups);
    EXPECT_NE(std::wstring::npos, written.find(L"<label signed=\"false\"><text>t</text><by>me</by></label>"))
        << written;
    EXPECT_TRUE(ValidateWithXmllint(written, kSchema).valid);
    CSmartPtr<CGroups> again(new CGroups());
    again->FromXml(written.c_str());
    EXPECT_FALSE(again->GetLabel()->GetStamp()->GetSigned());
    EXPECT_EQ(L"me", again->GetLabel()->GetStamp()->GetBy());
}

TEST(GroupsProof, OptionalAllMembersMayBeAbsent) {
    const std::wstring bag = L"<bag><extra/><count>0</count><item id=\"1\"/><colour>red</colour>"
                             L"<shape xsi:type=\"Circle\" radius=\"1\"/></bag>";
    const std::wstring document = Groups(L"<pick><count>1</count></pick>", bag, L"");
    ASSERT_TRUE(ValidateWithXmllint(document, kSchema).valid);
    CSmartPtr<CGroups> groups(new CGroups());
    groups->FromXml(document.c_str());
    EXPECT_EQ(nullptr, groups->GetBag()->GetSpare());
    EXPECT_FALSE(groups->GetBag()->GetNote());
    EXPECT_TRUE(ValidateWithXmllint(groups->ToXml(), kSchema).valid);
}

// A derived type is chosen by xsi:type; the abstract type itself has no class to hold it.
TEST(GroupsProof, AbstractElementNeedsAKnownDerivedType) {
    CSmartPtr<CGroups> groups(new CGroups());
    groups->SetAlt(new CSquare(L"x", L"2.5"));
    groups->GetPicks()->Add()->SetShape(new CCircle());
    groups->GetFigures()->Add(new CSquare(L"y", L"3"));
    const std::wstring written = groups->ToXml();
    EXPECT_TRUE(ValidateWithXmllint(written, kSchema).valid);
    CSmartPtr<CGroups> again(new CGroups());
    again->FromXml(written.c_str());
    const auto* alt = dynamic_cast<const CSquare*>(again->GetAlt());
    ASSERT_NE(nullptr, alt) << written;
    EXPECT_EQ(CDecimal(L"2.5"), alt->GetSide());
    EXPECT_NE(nullptr, dynamic_cast<const CCircle*>(again->GetPicks()->GetPick(0)->GetShape()));
    ASSERT_EQ(1, again->GetFigures()->GetCount());
    EXPECT_NE(nullptr, dynamic_cast<const CSquare*>(again->GetFigures()->Item(0)));

    const std::wstring untyped = Replace(Groups(), kGroupsMain, L"<main radius=\"1\"/>");
    EXPECT_FALSE(ValidateWithXmllint(untyped, kSchema).valid);
    EXPECT_EQ(L"Failed to find a suitable substitution element for [main].", LoadFailure(untyped).message);
}

struct InvalidCase {
    const char* name;
    std::wstring document;
    std::wstring message;
    std::wstring path;
};

const std::wstring kEmptyPick = Replace(Groups(), L"<pick><count>5</count></pick>", L"<pick/>");
const std::wstring kTwoAlternatives =
    Replace(Groups(), L"<count>5</count>", L"<count>5</count><colour>red</colour>");
const std::wstring kBagWithoutCount = Replace(Groups(), L"<count>7</count>", L"");

std::vector<InvalidCase> InvalidCases() {
    return {
        {"ChoiceWithNone", kEmptyPick,
         L"No child elements within the element [pick] were populated. The element represents a choice, so "
         L"one "
         L"and only one element should be populated. The element contained no sutable child elements",
         L"/groups/pick[3]"},
        {"ChoiceWithTwo", kTwoAlternatives,
         L"Failed read all the elements held within the element [pick]. The unexpected element [colour] "
         L"remains "
         L"un processed",
         L"/groups/pick[3]"},
        {"AllMemberMissing", kBagWithoutCount, L"Failed to find the mandatory element [count].",
         L"/groups/bag"},
        {"AllMemberTwice", Replace(Groups(), L"<note>n</note>", L"<note>n</note><note>m</note>"),
         L"Failed read all the elements held within the element [bag]. The unexpected element [note] remains "
         L"un processed",
         L"/groups/bag"},
        {"ChoiceFacet", Replace(Groups(), L"<count>5</count>", L"<count>100</count>"),
         L"Invalid Value for count [100]", L"/groups/pick[3]/count"},
        {"ChoiceUnknownEnumeration", Replace(Groups(), L"<colour>blue</colour>", L"<colour>pink</colour>"),
         L"The value [pink] is not a valid Colour", L"/groups/pick[4]/colour"},
        {"ChoiceTextNotANumber", Replace(Groups(), L"<count>5</count>", L"<count>five</count>"),
         L"The value [five] can not be converted to a i4", L"/groups/pick[3]/count"},
        {"AttributeUnknownEnumeration", Replace(Groups(), L"colour=\"blue\"", L"colour=\"pink\""),
         L"The value [pink] is not a valid Colour", L"/groups/figure[2]/@colour"},
        {"AttributeTextNotANumber", Replace(Groups(), L"id=\"2\"", L"id=\"two\""),
         L"The value [two] can not be converted to a i4", L"/groups/bag/spare/@id"},
        {"ChoiceCollectionTooShort", Replace(Groups(), L"<colour>green</colour></palette>", L"</palette>"),
         L"The Minimum number of [colour] elements allowed in this collection is 2", L"/groups/palette[2]"},
        {"ChoiceCollectionTooLong",
         Replace(Groups(), L"<colour>red</colour><colour>green</colour>",
                 L"<colour>red</colour><colour>green</colour><colour>red</colour><colour>blue</colour>"),
         L"The Maximum number of [colour] elements allowed in this collection is 3", L"/groups/palette[2]"},
        {"ChoiceCollectionThenAnother", Replace(Groups(), L"<item id=\"5\"/>", L"<count>5</count>"),
         L"Failed read all the elements held within the element [palette]. The unexpected element [count] "
         L"remains un processed",
         L"/groups/palette[1]"},
        {"RepeatedChoiceThenAnother", Replace(Groups(), L"<count>3</count>", L"<colour>red</colour>"),
         L"Failed read all the elements held within the element [palette]. The unexpected element [colour] "
         L"remains un processed",
         L"/groups/palette[3]"},
        {"RepeatedChoiceFacet", Replace(Groups(), L"<count>3</count>", L"<count>-3</count>"),
         L"Invalid Value for count [-3]", L"/groups/palette[3]/count[2]"},
        {"ChoiceSizesTooMany",
         Replace(Groups(), L"<size>2</size>", L"<size>2</size><size>3</size><size>4</size><size>5</size>"),
         L"The Maximum number of [size] elements allowed in this collection is 4", L"/groups/palette[5]"},
        {"ChoiceSizesThenWildcard", Replace(Groups(), L"<size>2</size>", L"<size>2</size><o:z/>"),
         L"Failed read all the elements held within the element [palette]. The unexpected element [z] "
         L"remains un processed",
         L"/groups/palette[5]"},
        {"SequenceRepeatedChoiceThenAnother", Replace(Groups(), L"<count>8</count>", L"<colour>red</colour>"),
         L"Failed read all the elements held within the element [groups]. The unexpected element [colour] "
         L"remains un processed",
         L"/groups"},
        {"AbstractCollectionWithoutType", Replace(Groups(), L"<figure xsi:type=\"Circle\"", L"<figure"),
         L"Failed to find a suitable substitution element for [figure].", L"/groups"},
        {"InlineGroupAttributeMissing", Replace(Groups(), L" signed=\"true\"", L""),
         L"Failed to find the required Attribute [signed].", L"/groups/label"},
        {"InlineGroupContentMissing", Replace(Groups(), L"<by>me</by>", L""),
         L"Failed to find the required child element [Stamp].", L"/groups/label"},
    };
}

class InvalidGroupsDocument : public testing::TestWithParam<InvalidCase> {};

TEST_P(InvalidGroupsDocument, RejectedByXmllintAndByUs) {
    const InvalidCase& c = GetParam();
    EXPECT_FALSE(ValidateWithXmllint(c.document, kSchema).valid) << "xmllint accepted it";
    const Failure failure = LoadFailure(c.document);
    EXPECT_EQ(c.message, failure.message);
    EXPECT_EQ(c.path, failure.path);
}

INSTANTIATE_TEST_SUITE_P(Cases, InvalidGroupsDocument, testing::ValuesIn(InvalidCases()),
                         [](const testing::TestParamInfo<InvalidCase>& info) { return info.param.name; });

TEST(GroupsProof, ContextOptionsRelaxTheGroupChecks) {
    CSerializationContext missingChoice;
    missingChoice.SetIgnoreMissingChoice(true);
    EXPECT_EQ(L"(no exception)", LoadFailure(kEmptyPick, missingChoice).message);

    CSerializationContext unknownElements;
    unknownElements.SetIgnoreUnknownElements(true);
    CSmartPtr<CGroups> groups(new CGroups());
    EXPECT_EQ(L"(no exception)", LoadFailure(kTwoAlternatives, unknownElements).message);
    groups->FromXml(kTwoAlternatives.c_str(), unknownElements);
    EXPECT_EQ(5, groups->GetPicks()->GetPick(2)->GetCount());
    EXPECT_FALSE(groups->GetPicks()->GetPick(2)->GetColour()) << "the second alternative was taken";
    // Unknown elements do not excuse a missing choice, nor a missing all-group member.
    EXPECT_NE(L"(no exception)", LoadFailure(kEmptyPick, unknownElements).message);
    EXPECT_EQ(L"Failed to find the mandatory element [count].",
              LoadFailure(kBagWithoutCount, unknownElements).message);

    CSerializationContext missingMandatory;
    missingMandatory.SetIgnoreMissingMandatoryElements(true);
    EXPECT_EQ(L"(no exception)", LoadFailure(kBagWithoutCount, missingMandatory).message);
    groups->FromXml(kBagWithoutCount.c_str(), missingMandatory);
    EXPECT_EQ(0, groups->GetBag()->GetCount());
}

// The choice check on writing: an empty pick is refused unless the context lets it through.
TEST(GroupsProof, EmptyChoiceIsRefusedOnWriting) {
    CSmartPtr<CGroups> groups(new CGroups());
    groups->GetPicks()->Add();
    EXPECT_THROW(groups->ToXml(), CQxException);
    CSerializationContext context;
    context.SetIgnoreMissingChoice(true);
    EXPECT_NO_THROW(groups->ToXml(true, true, eolLF, context));
}

// A crate is an all group of repeated members, which XML Schema 1.0 cannot express: no xmllint here.
std::wstring Crate(const std::wstring& content) {
    return std::wstring(L"<crate ") + kGroupsNamespaces + L">" + content + L"</crate>";
}

const std::wstring kCrate = L"<count>1</count><item id=\"1\"/><o:x/><shape xsi:type=\"Circle\" radius=\"1\"/>"
                            L"<pick><count>2</count></pick><item id=\"2\"/><count>3</count>"
                            L"<shape xsi:type=\"Square\" side=\"2\"/><o:y>t</o:y>";

TEST(GroupsProof, RepeatedAllMembersGatherFromAnyPosition) {
    CSmartPtr<CCrate> crate(new CCrate());
    crate->FromXml(Crate(kCrate).c_str());
    ASSERT_EQ(2, crate->GetItems()->GetCount());
    EXPECT_EQ(2, crate->GetItems()->Item(1)->GetId());
    ASSERT_EQ(2, crate->GetShapes()->GetCount());
    EXPECT_NE(nullptr, dynamic_cast<const CCircle*>(crate->GetShapes()->Item(0)));
    EXPECT_NE(nullptr, dynamic_cast<const CSquare*>(crate->GetShapes()->Item(1)));
    ASSERT_EQ(2, crate->GetCounts()->GetCount());
    EXPECT_EQ(3, crate->GetCounts()->Item(1));
    ASSERT_EQ(1, crate->GetPicks()->GetCount());
    EXPECT_EQ(2, crate->GetPicks()->GetPick(0)->GetCount());
    ASSERT_EQ(2, crate->GetExtras()->GetCount());
    EXPECT_EQ(L"t", crate->GetExtras()->Item(1)->GetText());

    // Written in member order; read back, it writes the same.
    const std::wstring written = crate->ToXml(true, false);
    CSmartPtr<CCrate> again(new CCrate());
    again->FromXml(written.c_str());
    EXPECT_EQ(written, again->ToXml(true, false));
    EXPECT_LT(written.find(L"id=\"2\""), written.find(L"<count>1</count>")) << written;
}

// Reading never counts the items of a repeated all member; writing does.
TEST(GroupsProof, RepeatedAllMembersAreCountedOnWriting) {
    const std::wstring fourItems = L"<item id=\"1\"/><item id=\"2\"/><pick><count>1</count></pick>"
                                   L"<item id=\"3\"/><item id=\"4\"/>";
    for (const auto& [content, message] :
         {std::pair(fourItems, L"The Maximum number of [item] elements allowed in this collection is 3"),
          std::pair(std::wstring(L"<pick><count>1</count></pick>"),
                    L"The Minimum number of [item] elements allowed in this collection is 1")}) {
        CSmartPtr<CCrate> crate(new CCrate());
        crate->FromXml(Crate(content).c_str());
        try {
            crate->ToXml();
            ADD_FAILURE() << "written: " << crate->GetItems()->GetCount() << " items";
        } catch (const CQxException& e) {
            EXPECT_EQ(message, Innermost(e).message);
        }
    }
}

TEST(GroupsProof, InvalidCratesAreRejected) {
    const struct {
        std::wstring content, message, path;
    } cases[] = {
        {Replace(kCrate, L"<shape xsi:type=\"Circle\"", L"<shape"),
         L"Failed to find a suitable substitution element for [shape].", L"/crate"},
        {Replace(kCrate, L"<count>3</count>", L"<count>100</count>"), L"Invalid Value for count [100]",
         L"/crate/count[2]"},
        {Replace(kCrate, L"<item id=\"2\"/>", L"<item/>"), L"Failed to find the required Attribute [id].",
         L"/crate/item[2]"},
        {Replace(kCrate, L"<o:x/>", L"<x/>"),
         L"Failed read all the elements held within the element [crate]. The unexpected element [x] remains "
         L"un processed",
         L"/crate"},
        {Replace(kCrate, L"<pick><count>2</count></pick>", L"<pick/>"),
         L"No child elements within the element [pick] were populated. The element represents a choice, so "
         L"one and only one element should be populated. The element contained no sutable child elements",
         L"/crate/pick"},
    };
    for (const auto& c : cases) {
        const Failure failure = LoadFailure<CCrate>(Crate(c.content));
        EXPECT_EQ(c.message, failure.message) << c.content;
        EXPECT_EQ(c.path, failure.path) << c.content;
    }
}

} // namespace
