// The generated-class engine and the entry points, on the proof bindings: what writing refuses, what
// the writing switches of the context change, the root matter, xsi:type, sharing and ownership.

#include "binding/support/ContentSchema.h"
#include "binding/support/GroupsSchema.h"
#include "binding/support/Trips.h"
#include "foundation/support/MessageOf.h"
#include "support/Failure.h"
#include "support/TempFile.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <cstdio>

using namespace QxXmlLib16;
using namespace QxXmlLib16Data;

namespace {

bool Contains(const std::wstring& text, const std::wstring& part) {
    return text.find(part) != std::wstring::npos;
}

TEST(Writing, MandatoryMemberWithoutValueAndEmptyChoiceAreRefused) {
    CSmartPtr<ContentSchema::COwn> own(new ContentSchema::COwn());
    QxVariant none;
    none.SetXmlObject(nullptr);
    // The setter refuses to leave a mandatory member empty, so writing never meets one.
    EXPECT_EQ(MessageOf<CQxInvalidParamException>([&] { own->AccessProperty(1, false, none); }),
              L"The Property [AnyElement] is mandatory, it may node be NULL");

    CSmartPtr<GroupsSchema::CGroups> groups(new GroupsSchema::CGroups());
    groups->GetPick()->Add();
    EXPECT_EQ(MessageOf<CQxValidationException>([&] { groups->ToXml(false, false); }),
              L"Failed to convert the element [groups] to XML");
    EXPECT_EQ(
        FailureOf([&] { groups->ToXml(); }).message,
        L"This element is a choice, and as such must have at one (and only one) valid item, currently there "
        L"are none set");
    CSerializationContext lenient;
    lenient.SetIgnoreMissingChoice(true);
    EXPECT_TRUE(Contains(groups->ToXml(false, false, eolLF, lenient), L"<AA:pick/>"));
}

TEST(WritingSwitches, TypeAttributeAndDefaults) {
    CSmartPtr<TestSchema::CTrip> trip = Trips::Full();
    CSerializationContext context;
    const std::wstring typed = trip->ToXml(false, false, eolLF, context);
    EXPECT_TRUE(Contains(
        typed, L"<AA:stop xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:Campsite\""));
    // Under its own type's name an object needs no xsi:type.
    EXPECT_FALSE(Contains(typed, L"AB:type=\"AA:Place\""));
    context.SetWriteTypeAttribute(false);
    EXPECT_FALSE(Contains(trip->ToXml(false, false, eolLF, context), L"Campsite"));

    // Optional attributes at their default: pace and version of the trip, i2, date and flag of the
    // readings. The required i4 stays.
    trip = Trips::Minimal();
    trip->SetReadings(new TestSchema::CReadings());
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
    CSmartPtr<TestSchema::CTrip> trip = Trips::Minimal();
    CSerializationContext context;
    context.GetNamespaceAliases().Add(L"t", TestSchema::kNamespace);
    // The writer takes processing instructions as complete markup.
    context.GetProcessingInstructions().push_back(L"<?xml-stylesheet href=\"trip.xsl\"?>");
    context.SetInLineSchema(L"<!-- schema -->");
    const CSmartPtr<CAttributeCol> extra = context.GetAdditionalRootAttributes();
    extra->Add(L"extra", L"e", L"urn:o");
    const std::wstring text = trip->ToXml(false, false, eolLF, context);
    EXPECT_EQ(text.find(L"<?xml-stylesheet href=\"trip.xsl\"?>"), 0u);
    // Additional root attributes come before the object's own.
    EXPECT_TRUE(
        Contains(text, L"\n<t:trip xmlns:t=\"urn:qx:test:trip\" xmlns:AA=\"urn:o\" AA:extra=\"e\" id=\"T1\""))
        << testing::PrintToString(text);
    const size_t schema = text.find(L"<!-- schema -->");
    EXPECT_LT(text.find(L"version=\"1\""), schema);
    EXPECT_LT(schema, text.find(L"<t:title>"));
    // Copies of the context share the collection, which outlives them all.
    EXPECT_EQ(CSerializationContext(context).GetAdditionalRootAttributes(), extra);

    // Read back without the in-line schema (the writer leaves it inside the open start tag) and
    // without the attribute the trip does not know.
    context.SetInLineSchema(L"");
    extra->Clear();
    CSmartPtr<TestSchema::CTrip> copy(new TestSchema::CTrip());
    copy->FromXml(trip->ToXml(false, false, eolLF, context).c_str(), context);
    EXPECT_EQ(copy->GetTitle(), trip->GetTitle());

    CSerializationContext plain;
    plain.SetDefaultNamespaceURI(TestSchema::kNamespace);
    EXPECT_EQ(trip->ToXml(false, false, eolLF, plain).find(L"<trip xmlns=\"urn:qx:test:trip\" id=\"T1\""),
              0u);
}

TEST(ClassFactory, TypeNameAndNamespaceFromXsiType) {
    struct Case {
        const wchar_t* type; // xsi:type value, or null for none
        const wchar_t* name;
        const wchar_t* uri;
    } const cases[] = {
        {nullptr, L"", L"urn:e"},     {L"T", L"T", L"urn:e"},    {L"p:T", L"T", L"urn:p"},
        {L"a:b:c", L"b:c", L"urn:e"}, {L"zz:T", L"T", L"urn:e"}, // undeclared prefix: element's namespace
    };
    for (const Case& c : cases) {
        std::wstring xml =
            L"<e xmlns='urn:e' xmlns:p='urn:p' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'";
        if (c.type) xml += std::wstring(L" xsi:type='") + c.type + L"'";
        CXmlDocument document;
        document.LoadXml((xml + L"/>").c_str());
        EXPECT_EQ(CClassfactoryBase::GetElementType(document.GetDocumentElement()), c.name) << xml;
        EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(document.GetDocumentElement()), c.uri) << xml;
    }
}

TEST(Metadata, CleanMetaDataDestroysEverythingAndNullsTheReferences) {
    auto* info =
        new CParentElementInfo(egSequence, etElement, L"t", L"", false, false, -1, itNone, nullptr, false);
    auto** elements =
        new CElementInfo* [2] { new CElementInfoSeqClsOpt(L"a", L"", 0, etElement, nullptr, 0), nullptr };
    auto** attributes = new CAttributeInfo* [1] { nullptr };
    CXmlGeneratedClass::CleanMetaData(info, elements, attributes);
    EXPECT_EQ(info, nullptr);
    EXPECT_EQ(elements, nullptr);
    EXPECT_EQ(attributes, nullptr);
}

TEST(EntryPoints, StreamsFilesAndElements) {
    CSmartPtr<TestSchema::CTrip> trip = Trips::Minimal();
    const std::wstring text = trip->ToXml(false, false);
    // Uncompressed stream bytes are the plain UTF-8 text.
    const CBinaryData bytes = trip->ToXmlStream(false, false, encUTF8);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength()),
              std::string(text.begin(), text.end()));

    const std::string path = TempPath("entry_points.xml");
    std::remove(path.c_str());
    EXPECT_EQ(MessageOf<CQxException>([&] {
                  trip->ToXmlFile(std::wstring(path.begin(), path.end()).c_str(), true, true, encUTF8, eolLF,
                                  CSerializationContext(), ctZlib);
              }),
              L"ZLIB Compression only available for To Stream methods.");
    EXPECT_EQ(std::fopen(path.c_str(), "r"), nullptr);

    // A bound object reads from untyped content as from a document.
    const CSmartPtr<CElement> element(new CElement(L"any"));
    element->FromXml(text.c_str());
    CSmartPtr<TestSchema::CTrip> copy(new TestSchema::CTrip());
    copy->FromXmlElement(element.Get());
    EXPECT_EQ(copy->ToXml(false, false), text);
}

// Children replaced by a load or dropped by a failed one are released exactly once; the sanitizer
// build reports the leaks and double deletes this would otherwise hide.
TEST(Ownership, ReplacedAndHalfReadChildrenAreReleased) {
    CSmartPtr<TestSchema::CTrip> trip = Trips::Full();
    CSmartPtr<TestSchema::CPlace> oldStop(trip->GetStop());
    trip->FromXml(Trips::Minimal()->ToXml(false).c_str());
    EXPECT_EQ(trip->GetStop(), nullptr);
    EXPECT_EQ(oldStop->AddRef(), 2); // ours and this one: nobody else holds it
    oldStop->Release();

    std::wstring broken = Trips::Full()->ToXml(false);
    broken.replace(broken.find(L"<AA:pitches>12"), 14, L"<AA:pitches>many");
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(FailureOf([&] { trip->FromXml(broken.c_str()); }).message, L"(no exception)");
}

} // namespace
