#include "support/ContentSchema.h"
#include "support/ProofDocuments.h"
#include "support/Untyped.h"
#include "support/Xmllint.h"

#include <gtest/gtest.h>

#include <string>

using namespace ContentSchema;
using namespace ProofDocuments;

namespace {

const char kSchema[] = "content.xsd";

std::string Narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

// The smallest valid bag; the invalid documents below each break one rule of it.
std::wstring Bag(const std::wstring& attributes, const std::wstring& items, const std::wstring& wildcards) {
    return L"<bag xmlns=\"urn:qx:test:content\" xmlns:o=\"urn:qx:o\"" + attributes + L">" + items +
           wildcards + L"</bag>";
}
const std::wstring kItems = L"<i4>1</i4>";
const std::wstring kWildcards = L"<o:x/><own><t/></own>";

CSerializationContext Relaxed(void (CSerializationContext::*option)(bool)) {
    CSerializationContext context;
    (context.*option)(true);
    return context;
}

TEST(ContentProof, EveryValueTypeAndWildcardSurvivesARoundTrip) {
    CSmartPtr<CBag> bag(new CBag);
    bag->FromXml(kContentFull);
    EXPECT_EQ(bag->GetI1().GetCount(), 2);
    EXPECT_EQ(bag->GetStr().Item(1), L" x y ");
    EXPECT_EQ(bag->GetShade().Item(0), Shade_dark);
    ASSERT_TRUE(bag->GetOther() && bag->GetLocal());
    EXPECT_EQ(bag->GetOther()->GetNamespace(), L"urn:qx:o");
    EXPECT_EQ(bag->GetLocal()->GetText(), L"plain");
    EXPECT_EQ(bag->GetListed().GetCount(), 2);
    EXPECT_EQ(bag->GetRest().GetCount(), 2);
    EXPECT_EQ(bag->GetAttributes().GetCount(), 1);

    const std::wstring written = bag->ToXml();
    const XmllintResult lint = ValidateWithXmllint(written, kSchema);
    EXPECT_TRUE(lint.valid) << lint.output << Narrow(written);
    CSmartPtr<CBag> again(new CBag);
    again->FromXml(written.c_str());
    EXPECT_EQ(again->ToXml(), written);
}

TEST(ContentProof, AdditionalRootAttributesAreWrittenAndReadBackByTheWildcard) {
    CSerializationContext context;
    context.GetAdditionalRootAttributes()->Add(L"origin", L"x", L"urn:qx:b");
    CSmartPtr<CBag> bag(new CBag);
    bag->FromXml(Bag(L"", kItems, kWildcards).c_str());
    const std::wstring written = bag->ToXml(true, true, eolLF, context);
    EXPECT_NE(written.find(L"origin=\"x\""), std::wstring::npos) << Narrow(written);
    EXPECT_TRUE(ValidateWithXmllint(written, kSchema).valid) << Narrow(written);

    bag->FromXml(written.c_str());
    ASSERT_EQ(bag->GetAttributes().GetCount(), 1);
    EXPECT_EQ(bag->GetAttributes().Item(0)->GetNamespace(), L"urn:qx:b");
    EXPECT_EQ(bag->ToXml(), written);
}

struct InvalidCase {
    const char* name;
    std::wstring document;
    UntypedFailure failure; // innermost message, and its path
};

TEST(ContentProof, InvalidDocumentsAreRejectedByBothValidators) {
    const InvalidCase cases[] = {
        {"too few i4",
         Bag(L"", L"", kWildcards),
         {L"The Minimum number of [i4] elements allowed in this collection is 1", L"/bag"}},
        {"too many i4",
         Bag(L"", L"<i4>1</i4><i4>2</i4><i4>3</i4><i4>4</i4>", kWildcards),
         {L"The Maximum number of [i4] elements allowed in this collection is 3", L"/bag"}},
        {"too many dates",
         Bag(L"", kItems + L"<date>2024-01-01</date><date>2024-01-02</date><date>2024-01-03</date>",
             kWildcards),
         {L"The Maximum number of [date] elements allowed in this collection is 2", L"/bag"}},
        {"dateTime in a date list",
         Bag(L"", kItems + L"<date>2024-01-01</date><date>2024-01-02T03:04:05</date>", kWildcards),
         {L"Invalid Date ('T' not allowed)", L"/bag/date[2]"}},
        {"i4 above its maximum",
         Bag(L"", L"<i4>1</i4><i4>101</i4>", kWildcards),
         {L"Invalid Value for i4 [101]", L"/bag/i4[2]"}},
        {"str too long",
         Bag(L"", kItems + L"<str>abcdef</str>", kWildcards),
         {L"Invalid Value for str [abcdef].", L"/bag/str"}},
        {"dec with three decimals",
         Bag(L"", kItems + L"<dec>1.234</dec>", kWildcards),
         {L"Invalid Value for dec [1.234].", L"/bag/dec"}},
        {"unknown shade",
         Bag(L"", kItems + L"<shade>pink</shade>", kWildcards),
         {L"The value [pink] is not a valid Shade", L"/bag/shade"}},
        {"##other given the target namespace",
         Bag(L"", kItems, L"<x/><own><t/></own>"),
         {L"Failed to find the required element from namespace [urn:qx:test:content].", L"/bag"}},
        {"list given another URI",
         Bag(L"", kItems, L"<o:x/><c:x xmlns:c=\"urn:qx:c\"/><own><t/></own>"),
         {L"Failed to find the required child element [own].", L"/bag"}},
        {"##targetNamespace given another",
         Bag(L"", kItems, L"<o:x/><own><o:t/></own>"),
         {L"Failed to find the required element from namespace [urn:qx:test:content].", L"/bag/own"}},
        {"own missing after the optional wildcards",
         Bag(L"", kItems, L"<o:x/>"),
         {L"Failed to find the required child element [own].", L"/bag"}},
        {"attribute of the target namespace",
         Bag(L" xmlns:c=\"urn:qx:test:content\" c:z=\"1\"", kItems, kWildcards),
         {L"Unexpected Attribute found.", L"/bag/@z"}},
    };
    for (const InvalidCase& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_FALSE(ValidateWithXmllint(c.document, kSchema).valid);
        CSmartPtr<CBag> bag(new CBag);
        const UntypedFailure failure = FailureOf([&] { bag->FromXml(c.document.c_str()); });
        EXPECT_EQ(Narrow(failure.message), Narrow(c.failure.message));
        EXPECT_EQ(Narrow(failure.path), Narrow(c.failure.path));
    }
}

// "##other" excludes only the target namespace here, so unqualified content passes where the
// schema validator refuses it.
TEST(ContentProof, OtherAdmitsUnqualifiedContentThatXmllintRefuses) {
    const std::wstring document = Bag(L" z=\"1\"", kItems, L"<x xmlns=\"\"/><own><t/></own>");
    EXPECT_FALSE(ValidateWithXmllint(document, kSchema).valid);
    CSmartPtr<CBag> bag(new CBag);
    bag->FromXml(document.c_str());
    EXPECT_EQ(bag->GetOther()->GetNamespace(), L"");
    ASSERT_EQ(bag->GetAttributes().GetCount(), 1);
    EXPECT_EQ(bag->GetAttributes().Item(0)->GetName(), L"z");
}

TEST(ContentProof, IgnoringCollectionCountsLoadsAndWritesListsOutOfBounds) {
    const CSerializationContext relaxed = Relaxed(&CSerializationContext::SetIgnoreInvalidCollectionCounts);
    CSmartPtr<CBag> bag(new CBag);
    bag->FromXml(Bag(L"", L"<i4>1</i4><i4>2</i4><i4>3</i4><i4>4</i4>", kWildcards).c_str(), relaxed);
    EXPECT_EQ(bag->GetI4().GetCount(), 4);
    EXPECT_NE(bag->ToXml(true, true, eolLF, relaxed).find(L"i4>4</"), std::wstring::npos);
    EXPECT_EQ(FailureOf([&] { bag->ToXml(); }).message,
              L"The Maximum number of [i4] elements allowed in this collection is 3");

    bag->FromXml(Bag(L"", L"", kWildcards).c_str(), relaxed);
    EXPECT_EQ(bag->GetI4().GetCount(), 0);
}

TEST(ContentProof, IgnoringUnknownElementsSkipsToTheNextNamedMemberButNotIntoAWildcard) {
    const CSerializationContext relaxed = Relaxed(&CSerializationContext::SetIgnoreUnknownElements);
    CSmartPtr<CBag> bag(new CBag);
    bag->FromXml(Bag(L"", kItems, L"<o:x/><c:x xmlns:c=\"urn:qx:c\"/><own><t/></own>").c_str(), relaxed);
    EXPECT_EQ(bag->GetListed().GetCount(), 0);
    EXPECT_EQ(bag->GetOwn()->GetAny()->GetName(), L"t");

    const UntypedFailure failure =
        FailureOf([&] { bag->FromXml(Bag(L"", kItems, L"<x/><own><t/></own>").c_str(), relaxed); });
    EXPECT_EQ(failure.message, L"Failed to find the required element from namespace [urn:qx:test:content].");
}

TEST(ContentProof, CollectionsRefuseBadValuesThroughTheApi) {
    CSmartPtr<CBag> bag(new CBag);
    const CDateTime stamp =
        CConversions::datetimeFromString(L"2024-01-02T03:04:05", CWhitespaceUtils::wsCollapse);
    EXPECT_EQ(FailureOf([&] { bag->GetDate().Add(stamp); }).message,
              L"Dates added to this collection must be of type dt_date");
    EXPECT_EQ(FailureOf([&] { bag->GetI4().Add(101); }).message, L"Invalid Value for i4 [101]");
    EXPECT_EQ(FailureOf([&] { bag->GetShade().Add(static_cast<Shade>(7)); }).message,
              L"Invalid Value for shade [7]");
    EXPECT_EQ(bag->GetDate().GetCount() + bag->GetI4().GetCount() + bag->GetShade().GetCount(), 0);
}

} // namespace
