#pragma once

// What qxgpx reports about a loaded document.

#include "GpxBindings.h"

#include <optional>
#include <string>

namespace Gpx {

struct Summary {
    std::wstring creator;
    std::wstring name; // of the metadata; empty without one
    int waypoints = 0, routes = 0, routePoints = 0, tracks = 0, segments = 0, trackPoints = 0;
    // Earliest and latest time of any point.
    std::optional<CDateTime> first, last;
    // Of all points; unset when there are none.
    std::optional<CDecimal> minLat, minLon, maxLat, maxLon;
    // Great-circle distance between consecutive points of each track segment.
    double trackKm = 0;
};

Summary Summarize(const CGpx& gpx);
// One "label  value" line per figure.
std::wstring FormatSummary(const Summary& summary);
// On a sphere of the Earth's mean radius (haversine formula).
double GreatCircleKm(double lat1, double lon1, double lat2, double lon2);

} // namespace Gpx
