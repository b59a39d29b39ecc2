// Documents and object trees of every schema, and real documents into untyped content: each loads
// (or is built), writes back schema-valid with the content expected of it, and writes the same
// bytes again once reloaded.

#include "binding/support/GroupsSchema.h"
#include "binding/support/ProofDocuments.h"
#include "binding/support/Schemas.h"
#include "binding/support/Trips.h"
#include "support/TempFile.h"
#include "support/Documents.h"
#include "support/Failure.h"

#include <QxXmlLib16/QxXmlLib16.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>

using namespace QxXmlLib16;

namespace {

// What is written: UTF-8 bytes, unformatted, so that untyped content keeps its text as it was.
std::string Written(const CXmlObjectBase& root, const CSerializationContext& context) {
    const CBinaryData bytes = root.ToXmlStream(true, false, encUTF8, eolLF, context);
    return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
}

std::wstring Wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

struct Case {
    std::string name;
    Schema schema;
    // The object to write: built, or a new root that loads a document or a file.
    std::function<CSmartPtr<CXmlObjectBase>()> build = nullptr;
    std::wstring document = L"";
    std::string file = "";
    // What the written document must hold: the tree of this document (values in canonical form;
    // the input itself when empty), and a text (prefixed names are AA:, AB:, ...).
    std::wstring expected = L"";
    std::wstring contains = L"";
    bool validate = true; // by xmllint against the schema file, when there is one
    std::function<void(CSerializationContext&)> configure = nullptr;
};

// The all groups are written in member order, whatever order they were read in.
const wchar_t kBagInOrder[] = L"<bag><item id=\"3\"/><shape xsi:type=\"Square\" side=\"4\"/><count>7</count>"
                              L"<colour>green</colour><extra>e</extra><spare id=\"2\"/>"
                              L"<figure xsi:type=\"Square\" side=\"3\"/><note>n</note><tint>green</tint>"
                              L"<more>m</more></bag>";
const wchar_t kCrateInOrder[] =
    L"<crate xmlns=\"urn:qx:test:groups\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    L"xmlns:o=\"urn:other\"><item id=\"1\"/><item id=\"2\"/><shape xsi:type=\"Circle\" radius=\"1\"/>"
    L"<shape xsi:type=\"Square\" side=\"2\"/><count>1</count><count>3</count><pick><count>2</count></pick>"
    L"<o:x/><o:y>t</o:y></crate>";

// A GPX document of thousands of points made by the shared generator, once.
std::string Generated() {
    static const std::string path = [] {
        const std::string file = TempPath("generated.gpx");
        const std::string command = "python3 '" + Documents::Shared("../tools/gen_gpx.py") +
                                    "' --points 3000 --waypoints 20 --routes 3 -o '" + file + "'";
        return std::system(command.c_str()) == 0 ? file : std::string("(not generated)");
    }();
    return path;
}

CSmartPtr<CXmlObjectBase> GroupsBuilt() {
    using namespace GroupsSchema;
    const auto square = [](const wchar_t* side) {
        CSquare* shape = new CSquare();
        shape->SetSide(CDecimal(side));
        return shape;
    };
    CSmartPtr<CGroups> groups(new CGroups());
    groups->SetAlt(square(L"2.5"));
    groups->GetPick()->Add()->SetShape(new CCircle());
    groups->GetFigure()->Add(square(L"3"));
    CPalette* palette = groups->GetPalette()->Add();
    for (Colour colour : {Colour_blue, Colour_red, Colour_blue})
        palette->GetColour()->Add(colour);
    groups->GetPalette()->Add()->GetChoice()->Add()->SetNote(std::wstring(L"only"));
    return groups.Get();
}

std::vector<Case> Cases() {
    std::vector<Case> cases = {
        {"TripMinimal", Schema::Trip, [] { return Trips::Minimal(); }, L"", "", L"",
         L"<AA:label>Bay &amp; harbour &lt;east&gt;</AA:label>"},
        {"TripFull", Schema::Trip, [] { return Trips::Full(); }, L"", "", L"", L"type=\"AA:Campsite\""},
        {"TripNilContact", Schema::Trip, [] { return Trips::NilContact(); }, L"", "", L"",
         L"AB:nil=\"true\"/>"},
        {"TripDocument", Schema::Trip, nullptr, ValidDocument(Schema::Trip)},
        // An empty element takes its default value, and a value equal to it is written without text.
        {"TripDefaults", Schema::Trip, nullptr, Edited(Schema::Trip, L"</title>", L"</title><days/>")},
        {"GroupsDocument", Schema::Groups, nullptr, ValidDocument(Schema::Groups), "",
         ProofDocuments::Groups(ProofDocuments::kGroupsPicks, kBagInOrder)},
        {"GroupsBuilt", Schema::Groups, GroupsBuilt, L"", "", L"",
         L"<AA:palette><AA:colour>blue</AA:colour><AA:colour>red</AA:colour><AA:colour>blue</AA:colour>"
         L"</AA:palette><AA:palette><AA:note>only</AA:note></AA:palette>"},
        {"Crate", Schema::Crate, nullptr, ValidDocument(Schema::Crate), "", kCrateInOrder},
        {"ContentFull", Schema::Content, nullptr, ProofDocuments::kContentFull},
        {"ContentRootAttributes", Schema::Content, nullptr, ValidDocument(Schema::Content), "",
         Edited(Schema::Content, L"xmlns:o=\"urn:qx:o\"",
                L"xmlns:o=\"urn:qx:o\" xmlns:b=\"urn:qx:b\" b:origin=\"x\""),
         L"origin=\"x\"", true,
         [](CSerializationContext& context) {
             context.GetAdditionalRootAttributes()->Add(L"origin", L"x", L"urn:qx:b");
         }},
        // libxml2 caps decimals at 24 digits, so xmllint cannot judge this one.
        {"GpxLongDecimals", Schema::Gpx, nullptr, L"",
         Documents::Shared("gpx/long-decimals/garmin-connect-bikeride.gpx"), L"",
         L"lat=\"35.7804112695157527923583984375\"", false},
        {"GpxGenerated", Schema::Gpx, nullptr, L"", Generated()},
    };
    for (const std::string& file : Documents::SharedFiles("gpx", ".gpx"))
        cases.push_back({"Gpx_" + Documents::TestName(file.substr(4)), Schema::Gpx, nullptr, L"",
                         Documents::Shared(file)});
    for (const char* folder : {"gpx", "fi-vectors", "fi-vectors/crafted"})
        for (const std::string& file : Documents::SharedFiles(folder, folder[0] == 'g' ? ".gpx" : ".xml"))
            cases.push_back({"Untyped_" + Documents::TestName(file), Schema::Untyped, nullptr, L"",
                             Documents::Shared(file)});
    return cases;
}

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class RoundTrip : public testing::TestWithParam<Case> {};

TEST_P(RoundTrip, WritesBackValidWhatItHoldsAndAgainTheSame) {
    const Case& c = GetParam();
    // Optional attributes at their default are left out, as the documents leave them out.
    CSerializationContext plain;
    plain.SetNoOptionalAttributeDefaultOutput(true);
    CSerializationContext context(plain);
    if (c.configure) c.configure(context);
    CSmartPtr<CXmlObjectBase> root = c.build ? c.build() : NewRoot(c.schema);
    if (!c.build) {
        ASSERT_EQ(FailureOf([&] {
                      c.file.empty() ? root->FromXml(c.document.c_str())
                                     : root->FromXmlFile(Wide(c.file).c_str());
                  }).message,
                  L"(no exception)");
    }
    const std::string written = Written(*root, context);

    if (c.validate) {
        EXPECT_EQ(Documents::XmllintErrors(Wide(written), SchemaFile(c.schema)), "");
    }
    CXmlDocument document, expected;
    document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(written.data())),
                           written.size());
    if (!c.expected.empty())
        expected.LoadXml(c.expected.c_str());
    else if (!c.document.empty())
        expected.LoadXml(c.document.c_str());
    else if (!c.file.empty())
        expected.Load(Wide(c.file).c_str());
    if (expected.GetDocumentElement()) {
        EXPECT_EQ(Documents::TreeDifference(*expected.GetDocumentElement(), *document.GetDocumentElement(),
                                            c.schema != Schema::Untyped),
                  L"");
    }
    if (!c.contains.empty()) {
        EXPECT_NE(root->ToXml(true, false, eolLF, context).find(c.contains), std::wstring::npos);
    }

    CSmartPtr<CXmlObjectBase> again = NewRoot(c.schema);
    again->FromXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(written.data())), written.size());
    EXPECT_TRUE(Written(*again, plain) == written) << "written differently once reloaded";
}

INSTANTIATE_TEST_SUITE_P(Corpus, RoundTrip, testing::ValuesIn(Cases()),
                         [](const testing::TestParamInfo<Case>& info) { return info.param.name; });

// Every layout, encoding, compression and output form reads back as the same tree.
TEST(RoundTripForms, EveryLayoutEncodingAndCompression) {
    const CSmartPtr<TestSchema::CTrip> trip = Trips::Full();
    const std::wstring expected = trip->ToXml();
    const auto expectSame = [&](const std::function<void(TestSchema::CTrip&)>& load) {
        CSmartPtr<TestSchema::CTrip> copy(new TestSchema::CTrip());
        EXPECT_EQ(FailureOf([&] { load(*copy); }).message, L"(no exception)");
        EXPECT_EQ(copy->ToXml(), expected);
    };
    for (EOLType eol : {eolLF, eolCRLF})
        for (bool formatted : {false, true})
            for (bool header : {false, true}) {
                SCOPED_TRACE(testing::Message()
                             << "eol " << eol << " formatted " << formatted << " header " << header);
                const std::wstring text = trip->ToXml(header, formatted, eol);
                expectSame([&](TestSchema::CTrip& copy) { copy.FromXml(text.c_str()); });
            }
    EXPECT_NE(trip->ToXml(false, true, eolLF).find(L"\n\t<AA:title>"), std::wstring::npos); // one tab a level
    CSerializationContext spaces;
    spaces.SetIndentChars(L"  ");
    const std::wstring indented = trip->ToXml(false, true, eolLF, spaces);
    EXPECT_NE(indented.find(L"\n  <AA:title>"), std::wstring::npos);
    expectSame([&](TestSchema::CTrip& copy) { copy.FromXml(indented.c_str()); });

    const std::string path = TempPath("round_trip.xml");
    for (XmlEncoding encoding : {encUTF8, encUTF16})
        for (CompressionType compression : {ctNone, ctGzip, ctZlib}) {
            SCOPED_TRACE(testing::Message() << "encoding " << encoding << " compression " << compression);
            const CBinaryData data =
                trip->ToXmlStream(true, true, encoding, eolCRLF, CSerializationContext(), compression);
            expectSame([&](TestSchema::CTrip& copy) { copy.FromXmlStream(data); });
            if (compression == ctZlib) continue; // files take no zlib stream
            trip->ToXmlFile(Wide(path).c_str(), true, true, encoding, eolCRLF, CSerializationContext(),
                            compression);
            expectSame([&](TestSchema::CTrip& copy) { copy.FromXmlFile(Wide(path).c_str()); });
        }
    std::remove(path.c_str());
}

// Each primitive kind keeps its text; a nil value is written, and reading one stores nothing but the
// flag.
TEST(RoundTripValues, EveryKindKeepsItsTextAndNilIsNotStored) {
    CSmartPtr<TestSchema::CTrip> copy(new TestSchema::CTrip());
    copy->FromXml(Trips::Full()->ToXml(false).c_str());
    for (int type = itHexBinary; type <= itInteger; ++type)
        EXPECT_EQ(Trips::Reading(*copy->GetReadings(), ItemType(type)).ToString(),
                  Trips::ReadingText(ItemType(type)))
            << type;

    CSmartPtr<TestSchema::CTrip> trip = Trips::Minimal();
    trip->SetNoteNil();
    const std::wstring text = trip->ToXml(false, false);
    EXPECT_NE(text.find(L"AB:nil=\"true\"/><AA:mode>"), std::wstring::npos) << testing::PrintToString(text);
    copy->FromXml(text.c_str());
    EXPECT_FALSE(copy->GetNote().has_value());
    // The generated class takes the nil flag from the document, so that it is written back nil.
    EXPECT_TRUE(copy->IsNoteNil());
    EXPECT_EQ(text, copy->ToXml(false, false));
}

} // namespace
