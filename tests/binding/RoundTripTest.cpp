#include "binding/support/Trips.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

using namespace QxXmlLib16;
using namespace TestSchema;

namespace {

typedef CSmartPtr<CTrip> (*TripMaker)();

struct TreeCase {
    const char* name;
    TripMaker make;
};

const TreeCase kTrees[] = {
    {"Minimal", Trips::Minimal}, {"Full", Trips::Full}, {"NilContact", Trips::NilContact}};

// Loads a fresh trip with load and checks that it writes the same text as the original.
void ExpectSameText(const CTrip& original, const std::function<void(CTrip&)>& load) {
    CSmartPtr<CTrip> copy(new CTrip());
    try {
        load(*copy);
    } catch (const CQxException& e) {
        ADD_FAILURE() << testing::PrintToString(e.GetFullMessage());
        return;
    }
    EXPECT_EQ(original.ToXml(), copy->ToXml());
}

class RoundTrip : public testing::TestWithParam<TreeCase> {};

TEST_P(RoundTrip, TextWithEveryLayout) {
    CSmartPtr<CTrip> trip = GetParam().make();
    for (EOLType eol : {eolLF, eolCRLF})
        for (bool formatted : {false, true})
            for (bool header : {false, true}) {
                SCOPED_TRACE(testing::Message()
                             << "eol " << eol << " formatted " << formatted << " header " << header);
                const std::wstring text = trip->ToXml(header, formatted, eol);
                ExpectSameText(*trip, [&](CTrip& copy) { copy.FromXml(text.c_str()); });
            }
}

TEST_P(RoundTrip, IndentedWithSpaces) {
    CSmartPtr<CTrip> trip = GetParam().make();
    CSerializationContext context;
    context.SetIndentChars(L"  ");
    const std::wstring text = trip->ToXml(false, true, eolLF, context);
    EXPECT_NE(std::wstring::npos, text.find(L"\n  <AA:title>")) << text;
    ExpectSameText(*trip, [&](CTrip& copy) { copy.FromXml(text.c_str(), context); });
}

TEST_P(RoundTrip, StreamsInEveryEncodingAndCompression) {
    CSmartPtr<CTrip> trip = GetParam().make();
    for (XmlEncoding encoding : {encUTF8, encUTF16})
        for (CompressionType compression : {ctNone, ctGzip, ctZlib})
            for (EOLType eol : {eolLF, eolCRLF}) {
                SCOPED_TRACE(testing::Message() << "encoding " << encoding << " compression " << compression);
                const CBinaryData data =
                    trip->ToXmlStream(true, true, encoding, eol, CSerializationContext(), compression);
                ExpectSameText(*trip, [&](CTrip& copy) { copy.FromXmlStream(data); });
            }
}

TEST_P(RoundTrip, FilesInEveryEncodingAndCompression) {
    CSmartPtr<CTrip> trip = GetParam().make();
    const std::string path = testing::TempDir() + "round_trip_" + GetParam().name + ".xml";
    const std::wstring file(path.begin(), path.end());
    for (XmlEncoding encoding : {encUTF8, encUTF16})
        for (CompressionType compression : {ctNone, ctGzip}) {
            SCOPED_TRACE(testing::Message() << "encoding " << encoding << " compression " << compression);
            trip->ToXmlFile(file.c_str(), true, true, encoding, eolCRLF, CSerializationContext(), compression);
            ExpectSameText(*trip, [&](CTrip& copy) { copy.FromXmlFile(file.c_str()); });
        }
    std::remove(path.c_str());
}

INSTANTIATE_TEST_SUITE_P(Trees, RoundTrip, testing::ValuesIn(kTrees),
                         [](const testing::TestParamInfo<TreeCase>& info) { return info.param.name; });

TEST(RoundTripValues, EveryPrimitiveAttributeKeepsItsText) {
    CSmartPtr<CTrip> trip = Trips::Full();
    CSmartPtr<CTrip> copy(new CTrip());
    copy->FromXml(trip->ToXml(false).c_str());
    ASSERT_NE(nullptr, copy->GetReadings());
    for (int type = itHexBinary; type <= itInteger; ++type) {
        SCOPED_TRACE(type);
        EXPECT_EQ(Trips::ReadingText(ItemType(type)),
                  Trips::Reading(*copy->GetReadings(), ItemType(type)).ToString());
    }
}

TEST(RoundTripValues, DerivedTypeComesBackAsItsOwnClass) {
    CSmartPtr<CTrip> copy(new CTrip());
    copy->FromXml(Trips::Full()->ToXml(false).c_str());
    auto* stop = dynamic_cast<CCampsite*>(copy->GetStop());
    ASSERT_NE(nullptr, stop);
    EXPECT_EQ(12, stop->GetPitches());
    EXPECT_FALSE(stop->GetOpen());
    EXPECT_EQ(L"stop", stop->GetElementName());
}

TEST(RoundTripValues, NilElementsOfClassAndPrimitive) {
    CSmartPtr<CTrip> copy(new CTrip());
    copy->FromXml(Trips::NilContact()->ToXml(false).c_str());
    EXPECT_TRUE(copy->GetContact()->IsNil());

    // A nil primitive is written with xsi:nil. Reading one stores nothing (the member keeps the value
    // it had, here absent), and the generated class takes its nil flag from the document, so that it
    // is written back nil.
    CSmartPtr<CTrip> trip = Trips::Minimal();
    trip->SetNoteNil();
    const std::wstring text = trip->ToXml(false, false);
    const size_t note = text.find(L"note ");
    ASSERT_NE(std::wstring::npos, note) << text;
    EXPECT_EQ(text.find(L":nil=\"true\"/>", note), text.find(L"/>", note) - 11) << text;
    copy->FromXml(text.c_str());
    EXPECT_FALSE(copy->GetNote().has_value());
    EXPECT_TRUE(copy->IsNoteNil());
    EXPECT_EQ(text, copy->ToXml(false, false));
}

} // namespace
