#include "GpxSummary.h"

#include <algorithm>
#include <cmath>

namespace Gpx {

namespace {

constexpr double kEarthRadiusKm = 6371.0088;
constexpr double kPi = 3.14159265358979323846;

void Widen(std::optional<CDecimal>& low, std::optional<CDecimal>& high, const CDecimal& value) {
    if (!low || value < *low) low = value;
    if (!high || value > *high) high = value;
}

void Visit(Summary& summary, const CWpt& point) {
    Widen(summary.minLat, summary.maxLat, point.GetLat());
    Widen(summary.minLon, summary.maxLon, point.GetLon());
    if (const auto& time = point.GetTime()) {
        if (!summary.first || *time < *summary.first) summary.first = *time;
        if (!summary.last || *time > *summary.last) summary.last = *time;
    }
}

std::wstring Duration(long seconds) {
    return FormatString(L"%ld:%02ld:%02ld", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

} // namespace

double GreatCircleKm(double lat1, double lon1, double lat2, double lon2) {
    const double radians = kPi / 180;
    const double dLat = (lat2 - lat1) * radians, dLon = (lon2 - lon1) * radians;
    const double a = std::pow(std::sin(dLat / 2), 2) +
                     std::cos(lat1 * radians) * std::cos(lat2 * radians) * std::pow(std::sin(dLon / 2), 2);
    return 2 * kEarthRadiusKm * std::asin(std::sqrt(std::min(1.0, a)));
}

Summary Summarize(const CGpx& gpx) {
    Summary summary;
    summary.creator = gpx.GetCreator();
    if (const CMetadata* metadata = gpx.GetMetadata()) summary.name = metadata->GetName().value_or(L"");
    for (const CWpt* point : *gpx.GetWpt()) {
        ++summary.waypoints;
        Visit(summary, *point);
    }
    for (const CRte* route : *gpx.GetRte()) {
        ++summary.routes;
        for (const CWpt* point : *route->GetRtept()) {
            ++summary.routePoints;
            Visit(summary, *point);
        }
    }
    for (const CTrk* track : *gpx.GetTrk()) {
        ++summary.tracks;
        for (const CTrkseg* segment : *track->GetTrkseg()) {
            ++summary.segments;
            const CWpt* previous = nullptr;
            for (const CWpt* point : *segment->GetTrkpt()) {
                ++summary.trackPoints;
                Visit(summary, *point);
                if (previous)
                    summary.trackKm +=
                        GreatCircleKm(previous->GetLat().ToDouble(), previous->GetLon().ToDouble(),
                                      point->GetLat().ToDouble(), point->GetLon().ToDouble());
                previous = point;
            }
        }
    }
    return summary;
}

std::wstring FormatSummary(const Summary& s) {
    std::wstring text = FormatString(L"creator       %ls\n", s.creator.c_str());
    if (!s.name.empty()) text += FormatString(L"name          %ls\n", s.name.c_str());
    text += FormatString(L"waypoints     %d\n"
                         L"routes        %d (%d points)\n"
                         L"tracks        %d (%d segments, %d points)\n",
                         s.waypoints, s.routes, s.routePoints, s.tracks, s.segments, s.trackPoints);
    if (s.first)
        text += FormatString(L"time span     %ls .. %ls (%ls)\n", s.first->ToString().c_str(),
                             s.last->ToString().c_str(),
                             Duration(s.last->GetTime() - s.first->GetTime()).c_str());
    if (s.minLat)
        text += FormatString(L"bounds        lat %ls .. %ls, lon %ls .. %ls\n", s.minLat->ToString().c_str(),
                             s.maxLat->ToString().c_str(), s.minLon->ToString().c_str(),
                             s.maxLon->ToString().c_str());
    text += FormatString(L"track length  %.3f km\n", s.trackKm);
    return text;
}

} // namespace Gpx
