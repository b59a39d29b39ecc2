// Documents built through the bindings' own interface write as valid GPX, and the summary qxgpx
// prints is computed from them correctly.

#include "GpxSummary.h"
#include "support/TempFile.h"
#include "support/Documents.h"

#include <gtest/gtest.h>

using namespace QxXmlLib16;

namespace {

// Two segments of a track along the equator and a waypoint, made as an application makes them.
CSmartPtr<Gpx::CGpx> BuiltDocument() {
    CSmartPtr<Gpx::CGpx> gpx(new Gpx::CGpx);
    gpx->SetCreator(L"authoring test");
    gpx->SetMetadata(new Gpx::CMetadata);
    gpx->GetMetadata()->SetName(std::wstring(L"Equator"));
    gpx->GetMetadata()->SetBounds(new Gpx::CBounds);
    gpx->GetMetadata()->GetBounds()->SetMaxlat(CDecimal(L"1"));
    Gpx::CWpt* waypoint = gpx->GetWpt()->Add();
    waypoint->SetLat(CDecimal(L"-90"));
    waypoint->SetFix(Gpx::Fix_dgps);
    Gpx::CTrk* track = gpx->GetTrk()->Add();
    for (const wchar_t* times : {L"2024-01-01T10:00:00Z", L"2024-01-01T12:30:00Z"}) {
        Gpx::CTrkseg* segment = track->GetTrkseg()->Add();
        for (int degree = 0; degree < 3; ++degree) {
            Gpx::CWpt* point = segment->GetTrkpt()->Add();
            point->SetLon(CDecimal(degree));
            point->SetTime(CDateTime::ParseXSDDateTime(times));
        }
    }
    return gpx;
}

TEST(Authoring, BuiltDocumentWritesValidAndReadsBack) {
    const CSmartPtr<Gpx::CGpx> gpx = BuiltDocument();
    const std::string path = TempPath("authored.gpx");
    gpx->ToXmlFile(std::wstring(path.begin(), path.end()).c_str());
    EXPECT_EQ(Documents::XmllintFileErrors(path, Documents::Shared("gpx/gpx.xsd")), "");

    const CSmartPtr<Gpx::CGpx> copy(new Gpx::CGpx);
    copy->FromXmlFile(std::wstring(path.begin(), path.end()).c_str());
    EXPECT_EQ(copy->ToXml(), gpx->ToXml());
}

// The setters refuse a value that breaks a facet and keep the one they held.
TEST(Authoring, SettersCheckFacetsBeforeStoring) {
    Gpx::CWpt point;
    point.SetLat(CDecimal(L"45.5"));
    EXPECT_THROW(point.SetLat(CDecimal(L"95.5")), CQxException);
    EXPECT_THROW(point.SetDgpsid(CBigInteger(1024)), CQxException);
    EXPECT_EQ(point.GetLat(), CDecimal(L"45.5"));
    EXPECT_FALSE(point.GetDgpsid());
}

TEST(Summary, CountsSpanBoundsAndLength) {
    const Gpx::Summary summary = Gpx::Summarize(*BuiltDocument());
    EXPECT_EQ(summary.name, L"Equator");
    EXPECT_EQ(summary.waypoints, 1);
    EXPECT_EQ(summary.segments, 2);
    EXPECT_EQ(summary.trackPoints, 6);
    EXPECT_EQ(summary.last->GetTime() - summary.first->GetTime(), 9000);
    EXPECT_EQ(*summary.minLat, CDecimal(L"-90"));
    EXPECT_EQ(*summary.maxLon, CDecimal(L"2"));
    // Two degrees of the equator per segment; no distance between segments.
    EXPECT_NEAR(summary.trackKm, 4 * 111.195, 0.01);
}

TEST(Summary, GreatCircle) {
    EXPECT_NEAR(Gpx::GreatCircleKm(0, 0, 0, 180), 20015.1, 0.1);          // half the equator
    EXPECT_NEAR(Gpx::GreatCircleKm(90, 0, -90, 0), 20015.1, 0.1);         // pole to pole
    EXPECT_NEAR(Gpx::GreatCircleKm(0, 179.5, 0, -179.5), 111.195, 0.001); // across the date line
    EXPECT_EQ(Gpx::GreatCircleKm(45, 7, 45, 7), 0);
}

TEST(Summary, EmptyDocument) {
    const Gpx::Summary summary = Gpx::Summarize(Gpx::CGpx());
    EXPECT_FALSE(summary.first);
    EXPECT_FALSE(summary.minLat);
    EXPECT_EQ(Gpx::FormatSummary(summary),
              L"creator       \nwaypoints     0\nroutes        0 (0 points)\n"
              L"tracks        0 (0 segments, 0 points)\ntrack length  0.000 km\n");
}

} // namespace
