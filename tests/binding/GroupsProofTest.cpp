#include "binding/support/GroupsSchema.h"
#include "binding/support/Xmllint.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

using namespace QxXmlLib16;
using namespace GroupsSchema;

namespace {

const char* const kSchema = "groups.xsd";

const std::wstring kPicks = L"<pick><item id=\"1\"/></pick>"
                            L"<pick><shape xsi:type=\"Circle\" colour=\"red\" radius=\"2\"/></pick>"
                            L"<pick><count>5</count></pick>"
                            L"<pick><colour>blue</colour></pick>"
                            L"<pick><o:thing>x</o:thing></pick>";
// The all group in reverse schema order.
const std::wstring kBag = L"<bag><more>m</more><tint>green</tint><note>n</note>"
                          L"<figure xsi:type=\"Square\" side=\"3\"/><spare id=\"2\"/><extra>e</extra>"
                          L"<colour>green</colour><count>7</count><shape xsi:type=\"Square\" side=\"4\"/>"
                          L"<item id=\"3\"/></bag>";
const std::wstring kMain = L"<main xsi:type=\"Circle\" radius=\"1.5\"/>";

std::wstring Document(const std::wstring& picks = kPicks, const std::wstring& bag = kBag) {
    return L"<groups xmlns=\"urn:qx:test:groups\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
           L"xmlns:o=\"urn:other\">" +
           picks + bag + kMain + L"</groups>";
}

std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to) {
    text.replace(text.find(from), from.size(), to);
    return text;
}

struct Failure {
    std::wstring message; // innermost, without its path
    std::wstring path;    // innermost path that is set
};

Failure LoadFailure(const std::wstring& document,
                    const CSerializationContext& context = CSerializationContext()) {
    CSmartPtr<CGroups> groups(new CGroups());
    try {
        groups->FromXml(document.c_str(), context);
    } catch (const CQxException& e) {
        Failure failure;
        for (const CQxException* link = &e; link; link = link->GetInnerException()) {
            failure.message = link->GetMessage().substr(0, link->GetMessage().find(L"\nPath: "));
            if (!link->GetPath().empty()) failure.path = link->GetPath();
        }
        return failure;
    }
    return {L"(no exception)", L""};
}

TEST(GroupsProof, EveryContentKindLoadsAndWritesBackValid) {
    const std::wstring document = Document();
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

    const std::wstring written = groups->ToXml(true, false);
    const XmllintResult result = ValidateWithXmllint(written, kSchema);
    EXPECT_TRUE(result.valid) << result.output;
    CSmartPtr<CGroups> again(new CGroups());
    again->FromXml(written.c_str());
    EXPECT_EQ(written, again->ToXml(true, false));
}

TEST(GroupsProof, OptionalAllMembersMayBeAbsent) {
    const std::wstring bag = L"<bag><extra/><count>0</count><item id=\"1\"/><colour>red</colour>"
                             L"<shape xsi:type=\"Circle\" radius=\"1\"/></bag>";
    const std::wstring document = Document(L"<pick><count>1</count></pick>", bag);
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
    const std::wstring written = groups->ToXml();
    EXPECT_TRUE(ValidateWithXmllint(written, kSchema).valid);
    CSmartPtr<CGroups> again(new CGroups());
    again->FromXml(written.c_str());
    const auto* alt = dynamic_cast<const CSquare*>(again->GetAlt());
    ASSERT_NE(nullptr, alt) << written;
    EXPECT_EQ(CDecimal(L"2.5"), alt->GetSide());
    EXPECT_NE(nullptr, dynamic_cast<const CCircle*>(again->GetPicks()->GetPick(0)->GetShape()));

    const std::wstring untyped = Replace(Document(), kMain, L"<main radius=\"1\"/>");
    EXPECT_FALSE(ValidateWithXmllint(untyped, kSchema).valid);
    EXPECT_EQ(L"Failed to find a suitable substitution element for [main].", LoadFailure(untyped).message);
}

struct InvalidCase {
    const char* name;
    std::wstring document;
    std::wstring message;
    std::wstring path;
};

const std::wstring kEmptyPick = Replace(Document(), L"<pick><count>5</count></pick>", L"<pick/>");
const std::wstring kTwoAlternatives =
    Replace(Document(), L"<count>5</count>", L"<count>5</count><colour>red</colour>");
const std::wstring kBagWithoutCount = Replace(Document(), L"<count>7</count>", L"");

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
        {"AllMemberTwice", Replace(Document(), L"<note>n</note>", L"<note>n</note><note>m</note>"),
         L"Failed read all the elements held within the element [bag]. The unexpected element [note] remains "
         L"un processed",
         L"/groups/bag"},
        {"ChoiceFacet", Replace(Document(), L"<count>5</count>", L"<count>100</count>"),
         L"Invalid Value for count [100]", L"/groups/pick[3]/count"},
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

} // namespace
