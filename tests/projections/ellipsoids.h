// Ellipsoids of the projection tests' reference examples.
#pragma once

namespace gx_test {

// WGS 84.
inline constexpr double kWgs84A = 6378137.0;
inline constexpr double kWgs84E2 = (2.0 - 1.0 / 298.257223563) / 298.257223563;
// Clarke 1866, by its axes 6378206.4 m and 6356583.8 m (Snyder's examples).
inline constexpr double kClarke1866A = 6378206.4;
inline constexpr double kClarke1866E2 = 1.0 - (6356583.8 * 6356583.8) / (6378206.4 * 6378206.4);
// Krassowsky 1940 (EPSG's Caspian Sea Mercator example).
inline constexpr double kKrassowskyA = 6378245.0;
inline constexpr double kKrassowskyE2 = (2.0 - 1.0 / 298.3) / 298.3;
// Airy 1830 (EPSG's British National Grid example).
inline constexpr double kAiryA = 6377563.396;
inline constexpr double kAiryE2 = (2.0 - 1.0 / 299.3249646) / 299.3249646;
// A sphere of the Earth's mean radius.
inline constexpr double kSphereR = 6371000.0;

}  // namespace gx_test
