// Short names of the parameter slots, and direct calls of projection
// functions on a vector built as the driver builds it, for the tests that
// look at one definition at a time.
#pragma once

#include <initializer_list>
#include <vector>

#include "projections/ellipsoids.h"
#include "projections/projection_cases.h"

namespace gx_test {

inline constexpr int kCm = GX_PARM_CENTRAL_MERIDIAN;
inline constexpr int kSp1 = GX_PARM_STANDARD_PARALLEL_1;
inline constexpr int kSp2 = GX_PARM_STANDARD_PARALLEL_2;
inline constexpr int kK0 = GX_PARM_SCALE_FACTOR;
inline constexpr int kLo = GX_PARM_LATITUDE_OF_ORIGIN;
inline constexpr int kAz = GX_PARM_AZIMUTH;
inline constexpr int kLon1 = GX_PARM_LONGITUDE_OF_1ST_POINT;
inline constexpr int kLon2 = GX_PARM_LONGITUDE_OF_2ND_POINT;
inline constexpr int kLonC = GX_PARM_LONGITUDE_OF_CENTER;
inline constexpr int kLatC = GX_PARM_LATITUDE_OF_CENTER;
inline constexpr int kXScale = GX_PARM_X_SCALE;
inline constexpr int kYScale = GX_PARM_Y_SCALE;
inline constexpr int kRotation = GX_PARM_XY_PLANE_ROTATION;
// The two-point rows read their latitudes from the standard parallels' slots.
inline constexpr int kLat1 = GX_PARM_STANDARD_PARALLEL_1;
inline constexpr int kLat2 = GX_PARM_STANDARD_PARALLEL_2;

// Sphere pairs of the bodies the tests use most.
inline constexpr double kWgs84Pair[2] = {kWgs84A, kWgs84E2};
inline constexpr double kSpherePair[2] = {kSphereR, 0.0};

// A parameter vector in radians and metres, as the driver hands it over.
struct Vector {
  double v[GX_PARM_COUNT];
  explicit Vector(const std::vector<Parameter>& given) { build_parms(given, v); }
};

// Runs fn over a copy of `coords` with its own copy of the vector, on the
// set-up route unless `doubles` is given; the count it returns goes to
// *result when asked.
inline std::vector<double> run(gx_projection_fn fn, const double* sphere, const Vector& parms,
                               std::vector<double> coords, int32_t* result = nullptr,
                               const double* doubles = nullptr) {
  Vector local = parms;
  int32_t r =
      fn(sphere, local.v, static_cast<int32_t>(coords.size() / 2), coords.data(), nullptr, doubles);
  if (result != nullptr) *result = r;
  return coords;
}

// Degrees to radians, element by element.
inline std::vector<double> degrees(std::initializer_list<double> values) {
  std::vector<double> out;
  for (double v : values) out.push_back(v * kDeg);
  return out;
}

}  // namespace gx_test
