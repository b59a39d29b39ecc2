// Real and generated GPX documents load into the bindings, write back schema-valid, keep their
// infoset, and write the same bytes again once reloaded.

#include "GpxBindings.h"
#include "support/GpxFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace QxXmlLib16;
using namespace GpxFiles;

namespace {

std::wstring Wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

// Loads input, writes it to output (UTF-8, formatted) and returns the written bytes.
std::string LoadAndWrite(const std::string& input, const std::string& output) {
    const CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
    gpx->FromXmlFile(Wide(input).c_str());
    CSerializationContext context;
    context.SetDefaultNamespaceURI(Gpx::kNamespace);
    gpx->ToXmlFile(Wide(output).c_str(), true, true, encUTF8, eolLF, context);
    return ReadBytes(output);
}

void ExpectRoundTrip(const std::string& input, const std::string& name, bool schemaCheck = true) {
    const std::string first = name + ".out.gpx", second = name + ".out2.gpx";
    const std::string written = LoadAndWrite(input, first);
    if (schemaCheck) {
        EXPECT_EQ(SchemaErrors(first), "");
    }
    EXPECT_TRUE(written == LoadAndWrite(first, second)) << "second write differs: " << second;

    CXmlDocument original, copy;
    original.Load(Wide(input).c_str());
    copy.Load(Wide(first).c_str());
    EXPECT_EQ(InfosetDifference(*original.GetDocumentElement(), *copy.GetDocumentElement()), L"");
}

class RealFile : public ::testing::TestWithParam<std::string> {};

TEST_P(RealFile, RoundTripsValidAndUnchanged) {
    ExpectRoundTrip(Shared(GetParam()), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Shared, RealFile, ::testing::ValuesIn(ValidRealFiles()), [](const auto& info) {
    std::string name = info.param.substr(0, info.param.find('.'));
    for (char& c : name)
        if (!isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
});

// Thirty significant digits survive, which no double-based binding could do. libxml2 caps decimals
// at 24 digits, so xmllint cannot judge this file.
TEST(LongDecimals, EveryDigitKept) {
    const std::string input = Shared("long-decimals/garmin-connect-bikeride.gpx");
    ExpectRoundTrip(input, "long-decimals", false);
    EXPECT_NE(ReadBytes("long-decimals.out.gpx").find("lat=\"35.7804112695157527923583984375\""),
              std::string::npos);
}

TEST(Generated, RoundTripsValidAndUnchanged) {
    const std::string command =
        "python3 '" + std::string(QX_SHARED_DATA_DIR) +
        "/../tools/gen_gpx.py' --points 3000 --waypoints 20 --routes 3 -o generated.gpx";
    ASSERT_EQ(std::system(command.c_str()), 0);
    ExpectRoundTrip("generated.gpx", "generated");
}

// Foreign content nested a million levels deep, as a 7 MB hostile file holds it, loads into the
// bindings and is written back whole (without indentation, which would grow with the square of the
// depth).
TEST(DeepExtensions, MillionLevelsLoadAndWriteBack) {
    const int depth = 1000000;
    std::string xml = "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='deep'>"
                      "<extensions><a xmlns='urn:x'>";
    for (int i = 1; i < depth; ++i)
        xml += "<a>";
    xml += "leaf";
    for (int i = 0; i < depth; ++i)
        xml += "</a>";
    xml += "</extensions></gpx>";
    const CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
    gpx->FromXml(xml.c_str());
    CSerializationContext context;
    context.SetDefaultNamespaceURI(Gpx::kNamespace);
    CXmlDocument original, written;
    original.LoadXml(xml.c_str());
    written.LoadXml(gpx->ToXml(false, false, eolLF, context).c_str());
    EXPECT_EQ(InfosetDifference(*original.GetDocumentElement(), *written.GetDocumentElement()), L"");
}

// A strict loader refuses both real exports that break the schema, and says where: the element out
// of order, within the XPath of its parent.
TEST(InvalidFile, RefusedWithThePathOfTheOffendingNode) {
    struct Case {
        const char* file;
        const wchar_t* path;
    } const cases[] = {
        {"invalid/endomondo-metadata-order.gpx",
         L"The unexpected element [name] remains un processed\nPath: /gpx/metadata"},
        {"invalid/osmand-empty-ele.gpx",
         L"The unexpected element [ele] remains un processed\nPath: /gpx/trk/trkseg/trkpt[1]"},
    };
    for (const Case& c : cases) {
        const std::wstring failure = LoadFailure(Shared(c.file));
        EXPECT_NE(failure.find(c.path), std::wstring::npos)
            << c.file << ": " << std::string(failure.begin(), failure.end());
    }
}

} // namespace
