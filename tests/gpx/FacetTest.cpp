// The facets of the GPX simple types hold on load (through the checking setters) and in the setters
// themselves.

#include "GpxBindings.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;

namespace {

std::wstring Document(const std::wstring& body, const std::wstring& version = L"1.1") {
    return L"<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"" + version + L"\" creator=\"t\">" +
           body + L"</gpx>";
}

// The full message of the failed load, or "(loaded)".
std::wstring LoadFailure(const std::wstring& document) {
    try {
        const CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
        gpx->FromXml(document.c_str());
    } catch (const CQxException& e) {
        return e.GetFullMessage();
    }
    return L"(loaded)";
}

struct Case {
    const wchar_t* body;
    const wchar_t* message; // a message of the chain and its path; null when the document is valid
};

const Case kCases[] = {
    // latitudeType: [-90, 90]
    {L"<wpt lat=\"95.5\" lon=\"0\"/>", L"Failed to set the property value [lat].\nPath: /gpx/wpt/@lat"},
    {L"<wpt lat=\"-90.000001\" lon=\"0\"/>", L"Failed to set the property value [lat].\nPath: /gpx/wpt/@lat"},
    {L"<wpt lat=\"-90.0\" lon=\"0\"/><wpt lat=\"90\" lon=\"0\"/>", nullptr},
    // longitudeType: [-180, 180)
    {L"<wpt lat=\"0\" lon=\"180\"/>", L"Failed to set the property value [lon].\nPath: /gpx/wpt/@lon"},
    {L"<wpt lat=\"0\" lon=\"-180\"/><wpt lat=\"0\" lon=\"179.999999\"/>", nullptr},
    {L"<metadata><bounds minlat=\"0\" minlon=\"-180.5\" maxlat=\"1\" maxlon=\"1\"/></metadata>",
     L"Failed to set the property value [minlon].\nPath: /gpx/metadata/bounds/@minlon"},
    // degreesType: [0, 360)
    {L"<wpt lat=\"0\" lon=\"0\"><magvar>360</magvar></wpt>",
     L"Failed to set the property value.\nPath: /gpx/wpt/magvar"},
    {L"<wpt lat=\"0\" lon=\"0\"><magvar>0</magvar></wpt><wpt lat=\"0\" "
     L"lon=\"0\"><magvar>359.9</magvar></wpt>",
     nullptr},
    // dgpsStationType: 0..1023; sat is a nonNegativeInteger
    {L"<wpt lat=\"0\" lon=\"0\"><dgpsid>1024</dgpsid></wpt>",
     L"Failed to set the property value.\nPath: /gpx/wpt/dgpsid"},
    {L"<wpt lat=\"0\" lon=\"0\"><sat>-1</sat></wpt>",
     L"Failed to set the property value.\nPath: /gpx/wpt/sat"},
    {L"<wpt lat=\"0\" lon=\"0\"><sat>0</sat><dgpsid>1023</dgpsid></wpt>", nullptr},
    // rte/number, trk/number: nonNegativeInteger
    {L"<trk><number>-2</number></trk>", L"Failed to set the property value.\nPath: /gpx/trk/number"},
};

TEST(Facets, HoldOnLoad) {
    for (const Case& c : kCases) {
        const std::wstring failure = LoadFailure(Document(c.body));
        if (c.message)
            EXPECT_NE(failure.find(c.message), std::wstring::npos) << c.body << "\n" << failure;
        else
            EXPECT_EQ(failure, L"(loaded)") << c.body;
    }
}

TEST(Facets, VersionIsFixed) {
    EXPECT_NE(LoadFailure(Document(L"", L"1.0"))
                  .find(L"Failed to set the property value [version].\nPath: /gpx/@version"),
              std::wstring::npos);
}

TEST(Facets, FixIsAnEnumeration) {
    EXPECT_EQ(LoadFailure(Document(L"<wpt lat=\"0\" lon=\"0\"><fix>pps</fix></wpt>")), L"(loaded)");
    EXPECT_NE(LoadFailure(Document(L"<wpt lat=\"0\" lon=\"0\"><fix>4d</fix></wpt>"))
                  .find(L"Path: /gpx/wpt/fix\nThe value [4d] is not a valid fixType"),
              std::wstring::npos);
}

// Extensions take only elements of other namespaces.
TEST(Extensions, RefuseTheGpxNamespace) {
    EXPECT_EQ(
        LoadFailure(Document(L"<extensions><x:a xmlns:x=\"urn:x\" x:b=\"1\">t<x:c/></x:a></extensions>")),
        L"(loaded)");
    EXPECT_NE(LoadFailure(Document(L"<extensions><name>n</name></extensions>")), L"(loaded)");
}

TEST(Setters, CheckFacetsBeforeStoring) {
    Gpx::CWpt point;
    point.SetLat(CDecimal(L"45.5"));
    EXPECT_THROW(point.SetLat(CDecimal(L"95.5")), CQxException);
    EXPECT_THROW(point.SetLon(CDecimal(L"180")), CQxException);
    EXPECT_THROW(point.SetDgpsid(CBigInteger(1024)), CQxException);
    EXPECT_EQ(point.GetLat(), CDecimal(L"45.5"));
    EXPECT_FALSE(point.GetDgpsid());
    Gpx::CGpx gpx;
    EXPECT_THROW(gpx.SetVersion(L"1.0"), CQxException);
    EXPECT_EQ(gpx.GetVersion(), L"1.1");
}

} // namespace
