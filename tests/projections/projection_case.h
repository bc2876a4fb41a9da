// One runner for tables of projection cases: a case names the functions, the
// sphere pair, the parameters, reference points and a grid for round trips;
// the checks below run every case the same way, calling the functions
// directly as the driver would (radians and metres, defaults applied).
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "frame/constants.h"
#include "geodesy/wgs84.h"
#include "gx_projections.h"

namespace gx_test {

inline constexpr double kDeg = kDegree;

// The bodies of the projection tests, besides WGS 84: a sphere, and the
// International (1924) and Bessel (1841) ellipsoids.
inline constexpr double kSphereR = 6371000.0;
inline constexpr double kIntlA = 6378388.0;
inline constexpr double kIntlF = 1.0 / 297.0;
inline constexpr double kIntlE2 = (2.0 - kIntlF) * kIntlF;
inline constexpr double kBesselA = 6377397.155;
inline constexpr double kBesselF = 1.0 / 299.1528128;
inline constexpr double kBesselE2 = (2.0 - kBesselF) * kBesselF;

// The functions of one row of the projection list; `loader` may be null.
struct projection_fns {
  const char* name;
  gx_projection_fn forward;
  gx_projection_fn inverse;
  gx_constants_fn loader;
};

// A parameter: its slot and its value, angles in degrees and lengths in metres.
struct parm {
  int slot;
  double value;
};

// A point and its image: degrees, metres from the natural origin.
struct reference_point {
  double lon;
  double lat;
  double x;
  double y;
};

// A square grid of points in degrees, for round trips and the comparison of
// the constants and set-up routes.
struct grid {
  double lon_lo, lon_hi, lat_lo, lat_hi;
};

struct projection_case {
  std::string label;
  projection_fns fns;
  double a;
  double e2;
  std::vector<parm> parms;
  std::vector<reference_point> points;
  double tol_m;           // forward agreement with the reference, metres
  double tol_deg;         // inverse agreement with the reference, degrees
  grid round_trip;        // where inverse(forward(p)) must give p back
  double round_trip_deg;  // how closely
};

using parm_vector = std::array<double, GX_PARM_COUNT>;

inline bool angular_slot(int slot) {
  switch (slot) {
    case GX_PARM_FALSE_EASTING:
    case GX_PARM_FALSE_NORTHING:
    case GX_PARM_SCALE_FACTOR:
    case GX_PARM_X_SCALE:
    case GX_PARM_Y_SCALE:
    case GX_PARM_HEIGHT:
      return false;
    default:
      return true;
  }
}

// The vector the driver builds: angles to radians, then its four defaults
// (scale factor, X and Y scale 1, the second parallel from the first).
inline parm_vector make_parms(const std::vector<parm>& parms) {
  parm_vector v{};
  bool scale = false, x_scale = false, y_scale = false, parallel2 = false;
  for (const parm& p : parms) {
    v[p.slot] = angular_slot(p.slot) ? p.value * kDeg : p.value;
    scale |= p.slot == GX_PARM_SCALE_FACTOR;
    x_scale |= p.slot == GX_PARM_X_SCALE;
    y_scale |= p.slot == GX_PARM_Y_SCALE;
    parallel2 |= p.slot == GX_PARM_STANDARD_PARALLEL_2;
  }
  if (!scale) v[GX_PARM_SCALE_FACTOR] = 1.0;
  if (!x_scale) v[GX_PARM_X_SCALE] = 1.0;
  if (!y_scale) v[GX_PARM_Y_SCALE] = 1.0;
  if (!parallel2) v[GX_PARM_STANDARD_PARALLEL_2] = v[GX_PARM_STANDARD_PARALLEL_1];
  return v;
}

// Runs one direction over a copy of `coords` on the set-up route (no
// constants); returns the result and leaves the converted pairs in `coords`.
inline int32_t run(gx_projection_fn fn, const projection_case& c, std::vector<double>& coords,
                   const double* doubles = nullptr) {
  double sphere[2] = {c.a, c.e2};
  parm_vector parms = make_parms(c.parms);
  return fn(sphere, parms.data(), static_cast<int32_t>(coords.size() / 2), coords.data(), nullptr,
            doubles);
}

// One point through one direction.
inline std::array<double, 2> run_point(gx_projection_fn fn, const projection_case& c, double u,
                                       double v) {
  std::vector<double> coords = {u, v};
  run(fn, c, coords);
  return {coords[0], coords[1]};
}

// The points of a case's grid, 9 by 9, in radians.
inline std::vector<double> grid_points(const grid& g) {
  std::vector<double> coords;
  const int steps = 8;
  for (int i = 0; i <= steps; ++i) {
    for (int j = 0; j <= steps; ++j) {
      coords.push_back((g.lon_lo + (g.lon_hi - g.lon_lo) * j / steps) * kDeg);
      coords.push_back((g.lat_lo + (g.lat_hi - g.lat_lo) * i / steps) * kDeg);
    }
  }
  return coords;
}

// The difference of two longitudes in degrees, across the antimeridian.
inline double lon_difference(double a, double b) {
  double d = std::fmod(a - b, 360.0);
  if (d > 180.0) d -= 360.0;
  if (d < -180.0) d += 360.0;
  return d;
}

inline bool same_bits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// A block loaded by the case's loader, freed with the object.
struct loaded_constants {
  gx_constants* block = gx_constants_new();
  int32_t count = 0;
  explicit loaded_constants(const projection_case& c) {
    if (c.fns.loader == nullptr) return;
    double sphere[2] = {c.a, c.e2};
    parm_vector parms = make_parms(c.parms);
    count = c.fns.loader(block, sphere, parms.data());
  }
  ~loaded_constants() { gx_constants_del(block); }
  const double* doubles() const { return count > 0 ? gx_constants_doubles(block) : nullptr; }
};

// ---- the checks --------------------------------------------------------------

inline void check_forward(const projection_case& c) {
  for (const reference_point& p : c.points) {
    auto xy = run_point(c.fns.forward, c, p.lon * kDeg, p.lat * kDeg);
    EXPECT_NEAR(xy[0], p.x, c.tol_m) << c.label << " at " << p.lon << ", " << p.lat;
    EXPECT_NEAR(xy[1], p.y, c.tol_m) << c.label << " at " << p.lon << ", " << p.lat;
  }
}

// Longitude is not compared at a pole, where it has no meaning.
inline void check_inverse(const projection_case& c) {
  for (const reference_point& p : c.points) {
    auto lp = run_point(c.fns.inverse, c, p.x, p.y);
    EXPECT_NEAR(lp[1] / kDeg, p.lat, c.tol_deg) << c.label << " at " << p.x << ", " << p.y;
    if (std::fabs(p.lat) < 90.0 - 1e-9) {
      EXPECT_NEAR(lon_difference(lp[0] / kDeg, p.lon), 0.0, c.tol_deg)
          << c.label << " at " << p.x << ", " << p.y;
    }
  }
}

inline void check_round_trip(const projection_case& c) {
  std::vector<double> start = grid_points(c.round_trip);
  std::vector<double> coords = start;
  run(c.fns.forward, c, coords);
  run(c.fns.inverse, c, coords);
  for (size_t i = 0; i < start.size(); i += 2) {
    double lon = start[i] / kDeg, lat = start[i + 1] / kDeg;
    EXPECT_NEAR(coords[i + 1] / kDeg, lat, c.round_trip_deg)
        << c.label << " at " << lon << ", " << lat;
    if (std::fabs(lat) < 90.0 - 1e-9) {
      EXPECT_NEAR(lon_difference(coords[i] / kDeg, lon), 0.0, c.round_trip_deg)
          << c.label << " at " << lon << ", " << lat;
    }
  }
}

// The constants route and the set-up route give the same bits, both ways.
inline void check_routes(const projection_case& c) {
  loaded_constants constants(c);
  if (constants.doubles() == nullptr) return;
  std::vector<double> plain = grid_points(c.round_trip);
  std::vector<double> loaded = plain;
  int32_t plain_count = run(c.fns.forward, c, plain);
  int32_t loaded_count = run(c.fns.forward, c, loaded, constants.doubles());
  EXPECT_EQ(plain_count, loaded_count) << c.label;
  for (size_t i = 0; i < plain.size(); ++i)
    ASSERT_TRUE(same_bits(plain[i], loaded[i])) << c.label << " forward, ordinate " << i;
  plain_count = run(c.fns.inverse, c, plain);
  loaded_count = run(c.fns.inverse, c, loaded, constants.doubles());
  EXPECT_EQ(plain_count, loaded_count) << c.label;
  for (size_t i = 0; i < plain.size(); ++i)
    ASSERT_TRUE(same_bits(plain[i], loaded[i])) << c.label << " inverse, ordinate " << i;
}

// n of 0 or below returns 0 and touches nothing.
inline void check_empty_run(const projection_case& c) {
  for (gx_projection_fn fn : {c.fns.forward, c.fns.inverse}) {
    for (int32_t n : {0, -1}) {
      double sphere[2] = {c.a, c.e2};
      parm_vector parms = make_parms(c.parms);
      double coords[2] = {0.25, 0.5};
      EXPECT_EQ(fn(sphere, parms.data(), n, coords, nullptr, nullptr), 0) << c.label;
      EXPECT_EQ(coords[0], 0.25) << c.label;
      EXPECT_EQ(coords[1], 0.5) << c.label;
    }
  }
}

// Names a case in test output.
inline void PrintTo(const projection_case& c, std::ostream* os) { *os << c.label; }

inline std::string case_name(const projection_case& c) {
  std::string name;
  for (char ch : c.label) name += std::isalnum(static_cast<unsigned char>(ch)) ? ch : '_';
  return name;
}

}  // namespace gx_test
