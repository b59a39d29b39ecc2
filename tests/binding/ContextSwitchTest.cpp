#include "binding/support/Documents.h"
#include "binding/support/Trips.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <thread>

using namespace QxXmlLib16;
using namespace TestSchema;

namespace {

bool Contains(const std::wstring& text, const std::wstring& part) {
    return text.find(part) != std::wstring::npos;
}

std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to) {
    text.replace(text.find(from), from.size(), to);
    return text;
}

// Loads the document with the context; the failure's full message, or empty.
std::wstring Load(CTrip& trip, const std::wstring& document, const CSerializationContext& context) {
    try {
        trip.FromXml(document.c_str(), context);
    } catch (const CQxException& e) {
        return e.GetFullMessage();
    }
    return L"";
}

TEST(ReadingSwitches, EachLeniencyAcceptsWhatItNames) {
    const std::wstring body = Documents::MinimalBody();
    struct Case {
        const char* name;
        void (CSerializationContext::*set)(bool);
        std::wstring document;
    } cases[] = {
        {"unknown element", &CSerializationContext::SetIgnoreUnknownElements,
         Documents::Trip(L" id=\"T1\"", Replace(body, L"<mode>", L"<extra>x</extra><mode>"))},
        {"unknown attribute", &CSerializationContext::SetIgnoreUnknownAttributes,
         Documents::Trip(L" id=\"T1\" x=\"1\"")},
        {"missing mandatory", &CSerializationContext::SetIgnoreMissingMandatoryElements,
         Documents::Trip(L" id=\"T1\"", Replace(body, L"<mode>walk</mode>", L""))},
        {"namespaces", &CSerializationContext::SetIgnoreNamespaces,
         Replace(Documents::Trip(), L"urn:qx:test:trip", L"urn:qx:test:other")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CSmartPtr<CTrip> trip(new CTrip());
        CSerializationContext context;
        EXPECT_NE(L"", Load(*trip, c.document, context));
        (context.*c.set)(true);
        EXPECT_EQ(L"", Load(*trip, c.document, context));
        EXPECT_EQ(L"Coast", trip->GetTitle());
    }
}

TEST(ReadingSwitches, SchemaTypeTwoReadsDocumentsWithoutNamespaces) {
    const std::wstring document = L"<trip id=\"T1\">" + Documents::MinimalBody() + L"</trip>";
    CSmartPtr<CTrip> trip(new CTrip());
    CSerializationContext context;
    EXPECT_NE(L"", Load(*trip, document, context));
    context.SetSchemaType(SchemaType(2));
    EXPECT_EQ(L"", Load(*trip, document, context));
    EXPECT_EQ(L"Bay", trip->GetStart()->GetLabel());
}

// With namespaces ignored an enumerated attribute is taken from any namespace, a primitive one only
// from its own.
TEST(ReadingSwitches, IgnoredNamespacesReachEnumeratedAttributesOnly) {
    CSerializationContext context;
    context.SetIgnoreNamespaces(true);
    CSmartPtr<CTrip> trip(new CTrip());
    EXPECT_EQ(L"", Load(*trip, Documents::Trip(L" id=\"T1\" xmlns:o=\"urn:o\" o:pace=\"fast\""), context));
    EXPECT_EQ(Pace_fast, trip->GetPaceAttribute());
    EXPECT_TRUE(
        Contains(Load(*trip, Documents::Trip(L" id=\"T1\" xmlns:o=\"urn:o\" o:version=\"3\""), context),
                 L"Unexpected Attribute found.\nPath: /trip/@o:version"));
}

TEST(WritingSwitches, TypeAttributeAndDefaults) {
    CSmartPtr<CTrip> trip = Trips::Full();
    CSerializationContext context;
    EXPECT_TRUE(Contains(trip->ToXml(false, false, eolLF, context), L"type=\"AA:Campsite\""));
    context.SetWriteTypeAttribute(false);
    EXPECT_FALSE(Contains(trip->ToXml(false, false, eolLF, context), L"Campsite"));

    // Optional attributes at their default: pace and version of the trip, i2, date and flag of the
    // readings. The required i4 stays.
    trip = Trips::Minimal();
    trip->SetReadings(new CReadings());
    trip->GetReadings()->SetI4(5);
    const std::wstring all = trip->ToXml(false, false, eolLF, context);
    context.SetNoOptionalAttributeDefaultOutput(true);
    const std::wstring reduced = trip->ToXml(false, false, eolLF, context);
    for (const wchar_t* attribute : {L" pace=\"steady\"", L" version=\"1\"", L" i2=\"7\"",
                                     L" date=\"2024-01-01\"", L" flag=\"false\""}) {
        EXPECT_TRUE(Contains(all, attribute)) << attribute;
        EXPECT_FALSE(Contains(reduced, attribute)) << attribute;
    }
    EXPECT_TRUE(Contains(reduced, L" i4=\"5\""));

    trip->SetDays(1);
    EXPECT_TRUE(Contains(trip->ToXml(false, false, eolLF, context), L"<AA:days/>"));
    context.SetWriteDefaultElementValues(true);
    EXPECT_TRUE(Contains(trip->ToXml(false, false, eolLF, context), L"<AA:days>1</AA:days>"));
}

TEST(WritingSwitches, RootMatterComesInDocumentOrderAndReadsBack) {
    CSmartPtr<CTrip> trip = Trips::Minimal();
    CSerializationContext context;
    context.GetNamespaceAliases().Add(L"t", kNamespace);
    // The writer takes processing instructions as complete markup.
    context.GetProcessingInstructions().push_back(L"<?xml-stylesheet href=\"trip.xsl\"?>");
    context.SetInLineSchema(L"<!-- schema -->");
    const std::wstring text = trip->ToXml(false, false, eolLF, context);
    EXPECT_EQ(0u, text.find(L"<?xml-stylesheet href=\"trip.xsl\"?>")) << text;
    const size_t root = text.find(L"<t:trip xmlns:t=\"urn:qx:test:trip\" id=\"T1\"");
    const size_t schema = text.find(L"<!-- schema -->");
    ASSERT_NE(std::wstring::npos, root) << text;
    EXPECT_LT(root, schema);
    EXPECT_LT(text.find(L"version=\"1\""), schema);
    EXPECT_LT(schema, text.find(L"<t:title>"));
    // Read back without the in-line schema: the writer leaves it inside the open start tag.
    context.SetInLineSchema(L"");
    CSmartPtr<CTrip> copy(new CTrip());
    EXPECT_EQ(L"", Load(*copy, trip->ToXml(false, false, eolLF, context), context));
    EXPECT_EQ(trip->GetTitle(), copy->GetTitle());

    CSerializationContext plain;
    plain.SetDefaultNamespaceURI(kNamespace);
    EXPECT_EQ(0u,
              trip->ToXml(false, false, eolLF, plain).find(L"<trip xmlns=\"urn:qx:test:trip\" id=\"T1\""));
}

// Descriptors are shared by every object of a class; threads that write and read their own
// objects must not disturb each other.
TEST(SharedDescriptors, TwoThreadsRoundTripAtOnce) {
    const std::wstring expected[] = {Trips::Full()->ToXml(false), Trips::NilContact()->ToXml(false)};
    int mismatches[2] = {0, 0};
    std::thread threads[2];
    for (int t = 0; t < 2; ++t)
        threads[t] = std::thread([&, t] {
            for (int i = 0; i < 200; ++i) {
                CSmartPtr<CTrip> trip = t == 0 ? Trips::Full() : Trips::NilContact();
                CSmartPtr<CTrip> copy(new CTrip());
                copy->FromXml(trip->ToXml(false).c_str());
                if (copy->ToXml(false) != expected[t]) ++mismatches[t];
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(0, mismatches[0]);
    EXPECT_EQ(0, mismatches[1]);
}

// Children replaced by a load or dropped by a failed one are released exactly once; the sanitizer
// build reports the leaks and double deletes this would otherwise hide.
TEST(Ownership, ReplacedAndHalfReadChildrenAreReleased) {
    CSmartPtr<CTrip> trip = Trips::Full();
    CSmartPtr<CPlace> oldStop(trip->GetStop());
    trip->FromXml(Trips::Minimal()->ToXml(false).c_str());
    EXPECT_EQ(nullptr, trip->GetStop());
    EXPECT_EQ(2, oldStop->AddRef()); // ours and this one: nobody else holds it
    oldStop->Release();

    const std::wstring broken = Replace(Trips::Full()->ToXml(false), L"<AA:pitches>12", L"<AA:pitches>many");
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(L"", Load(*trip, broken, CSerializationContext()));
}

} // namespace
