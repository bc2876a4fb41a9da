// The ellipsoids the geodesy tests share.
#pragma once

namespace gx_test {

inline constexpr double kWgs84A = 6378137.0;
inline constexpr double kWgs84F = 1.0 / 298.257223563;
inline constexpr double kWgs84E2 = kWgs84F * (2.0 - kWgs84F);
inline constexpr double kDegree = 3.141592653589793 / 180.0;

}  // namespace gx_test
