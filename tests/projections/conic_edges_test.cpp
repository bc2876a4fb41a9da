// The conic family's degenerate definitions, refusals, layouts and the
// points where a formula meets its limits.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "projections/azimuthal.h"
#include "projections/conic.h"
#include "projections/cylindrical.h"
#include "projections/ellipsoids.h"
#include "projections/projection_calls.h"

namespace gx_test {
namespace {

const std::vector<Parameter> kKrovakEpsg = {{kLonC, 24.833333333333333},
                                            {kLatC, 49.5},
                                            {kSp1, 78.5},
                                            {kK0, 0.9999},
                                            {kAz, 30.28813975277778}};

// ---- Lambert conformal conic ---------------------------------------------

TEST(LambertConformalConic, OneParallelOnAPoleIsRefused) {
  Vector parms({{kSp1, 90}, {kSp2, 45}});
  const std::vector<double> points = degrees({10, 50, -20, 60});
  for (gx_projection_fn fn :
       {gx_lambert_conformal_conic_forward, gx_lambert_conformal_conic_inverse}) {
    int32_t result = -1;
    EXPECT_TRUE(same_bits(run(fn, kWgs84Pair, parms, points, &result), points));
    EXPECT_EQ(result, 0);
  }
  LoadedConstants block(gx_lambert_conformal_conic_constants, kWgs84Pair, parms.v);
  EXPECT_EQ(block.count(), 0);
  EXPECT_EQ(block.doubles(), nullptr);
}

// Both parallels on the equator are mirror images too: Mercator, times k0.
TEST(LambertConformalConic, EquatorialParallelsAreAScaledMercator) {
  Vector parms({{kCm, 10}, {kSp1, 0}, {kSp2, 0}, {kK0, 0.5}});
  const std::vector<double> points = degrees({10, 0, 50, 60, -100, -80});
  std::vector<double> lambert = run(gx_lambert_conformal_conic_forward, kWgs84Pair, parms, points);
  std::vector<double> mercator = run(gx_mercator_forward, kWgs84Pair, parms, points);
  for (double& v : mercator) v *= 0.5;
  EXPECT_TRUE(same_bits(lambert, mercator));
  std::vector<double> back = run(gx_lambert_conformal_conic_inverse, kWgs84Pair, parms, lambert);
  for (size_t i = 0; i < points.size(); ++i) EXPECT_NEAR(back[i], points[i], 1e-14);
}

// The pole opposite the cone's apex is at a large but finite distance, from
// the clamp.  The apex, at (0, rho0), is reached only as near as the clamped
// latitude allows: about 8 mm for this cone.
TEST(LambertConformalConic, PolesOfTheCone) {
  Vector parms({{kCm, -96}, {kSp1, 33}, {kSp2, 45}, {kLo, 23}});
  for (const double* sphere : {kWgs84Pair, kSpherePair}) {
    std::vector<double> xy = run(gx_lambert_conformal_conic_forward, sphere, parms,
                                 degrees({-96, -90, -96, 90, -96, 95}));
    EXPECT_TRUE(std::isfinite(xy[1]));
    EXPECT_LT(xy[1], -1e9);
    LoadedConstants block(gx_lambert_conformal_conic_constants, sphere, parms.v);
    EXPECT_EQ(xy[2], 0.0);
    EXPECT_NEAR(xy[3], block.doubles()[2], 0.01);  // rho0: the apex
    EXPECT_LT(xy[3], block.doubles()[2]);
    EXPECT_TRUE(same_bits({xy[4], xy[5]}, {xy[2], xy[3]}));  // beyond the pole is the pole
  }
}

// ---- Albers ------------------------------------------------------------------

// At the apex rho is 0: the sine of the latitude comes out as C / n / qp and
// is clamped to the pole; the longitude is the central meridian.
TEST(Albers, InverseAtTheApexIsThePole) {
  for (const double* sphere : {kWgs84Pair, kSpherePair}) {
    for (double sign : {1.0, -1.0}) {
      Vector parms({{kCm, -96}, {kSp1, 29.5 * sign}, {kSp2, 45.5 * sign}, {kLo, 23 * sign}});
      LoadedConstants block(gx_albers_constants, sphere, parms.v);
      std::vector<double> ll = run(gx_albers_inverse, sphere, parms, {0.0, block.doubles()[0]});
      EXPECT_NEAR(ll[0], -96 * kDeg, 1e-15);
      EXPECT_NEAR(ll[1], sign * GX_HALFPI, 1e-15);
    }
  }
}

// ---- Polyconic -----------------------------------------------------------------

// On the parallel of origin's image A is 0: latitude 0 at once, and the
// longitude is x / a.
TEST(Polyconic, InverseOnTheEquatorNeedsNoIteration) {
  Vector parms({{kCm, 10}, {kLo, 0}});
  for (const double* sphere : {kWgs84Pair, kSpherePair}) {
    std::vector<double> ll = run(gx_polyconic_inverse, sphere, parms, {1000000.0, 0.0});
    EXPECT_EQ(ll[1], 0.0);
    EXPECT_NEAR(ll[0], 1000000.0 / sphere[0] + 10 * kDeg, 1e-15);
  }
}

// A point on which Newton's method can't settle (a NaN here, since none of
// the plane's finite points was found to cycle) fails the whole run, with the
// points before it already converted.
TEST(Polyconic, UnsettledPointFailsTheRunHalfWay) {
  Vector parms({{kCm, 10}, {kLo, 30}});
  for (const double* sphere : {kWgs84Pair, kSpherePair}) {
    int32_t result = -1;
    std::vector<double> ll = run(gx_polyconic_inverse, sphere, parms,
                                 {100000.0, 100000.0, std::nan(""), 1.0, 5.0, 6.0}, &result);
    EXPECT_EQ(result, 0);
    EXPECT_NE(ll[0], 100000.0);
    EXPECT_NEAR(ll[1], 30.9 * kDeg, 0.1 * kDeg);
    EXPECT_EQ(ll[4], 5.0);
    EXPECT_EQ(ll[5], 6.0);
  }
}

// The poles and the equator take their own rows of the forward.
TEST(Polyconic, PolesAndEquator) {
  Vector parms({{kCm, 10}, {kLo, 30}});
  for (const double* sphere : {kWgs84Pair, kSpherePair}) {
    std::vector<double> xy = run(gx_polyconic_forward, sphere, parms, degrees({70, 90, 40, 0}));
    EXPECT_EQ(xy[0], 0.0);
    EXPECT_NEAR(
        xy[1], gx_q(sphere[0], sphere[1], GX_HALFPI) - gx_q(sphere[0], sphere[1], 30 * kDeg), 1e-6);
    EXPECT_NEAR(xy[2], 30 * kDeg * sphere[0], 1e-6);
    EXPECT_NEAR(xy[3], -gx_q(sphere[0], sphere[1], 30 * kDeg), 1e-6);
    // The terms of the polyconic equation grow as tan(phi) towards the pole
    // and cancel: there the iteration settles a few nanoradians short.
    std::vector<double> ll = run(gx_polyconic_inverse, sphere, parms, xy);
    EXPECT_NEAR(ll[1], GX_HALFPI, 1e-8);
    EXPECT_NEAR(ll[2], 40 * kDeg, 1e-12);
    EXPECT_NEAR(ll[3], 0.0, 1e-12);
  }
}

// ---- Krovak ------------------------------------------------------------------------

TEST(Krovak, ZeroPseudoStandardParallelIsRefused) {
  Vector parms({{kLonC, 24.8}, {kLatC, 49.5}, {kSp1, 0}});
  const std::vector<double> points = degrees({20, 50});
  for (gx_projection_fn fn : {gx_krovak_forward, gx_krovak_inverse}) {
    int32_t result = -1;
    EXPECT_TRUE(same_bits(run(fn, kWgs84Pair, parms, points, &result), points));
    EXPECT_EQ(result, 0);
  }
  LoadedConstants block(gx_krovak_constants, kWgs84Pair, parms.v);
  EXPECT_EQ(block.count(), 0);
}

// On the ellipsoid the Gaussian sphere covers pi / B of longitude each way:
// beyond it a point has no image and is not counted.
TEST(Krovak, PointsBeyondTheGaussianSphereAreNotCounted) {
  Vector parms(kKrovakEpsg);
  const double bessel[2] = {kBesselA, kBesselE2};
  int32_t result = -1;
  std::vector<double> xy =
      run(gx_krovak_forward, bessel, parms,
          degrees({16.85, 50.2, 24.833333333333333 + 179.95, 50, 12, 48}), &result);
  EXPECT_EQ(result, 2);
  EXPECT_TRUE(std::isnan(xy[2]) && std::isnan(xy[3]));
  EXPECT_TRUE(std::isfinite(xy[4]));
  // A sphere has no such limit.
  run(gx_krovak_forward, kSpherePair, parms, degrees({24.833333333333333 + 179.95, 50}), &result);
  EXPECT_EQ(result, 1);
}

// Axis scales of -1 turn the axes round.
TEST(Krovak, AxisScalesFlipTheAxes) {
  std::vector<Parameter> flipped = kKrovakEpsg;
  flipped.push_back({kXScale, -1});
  flipped.push_back({kYScale, -1});
  const double bessel[2] = {kBesselA, kBesselE2};
  const std::vector<double> points = degrees({16.85, 50.2, 12, 48});
  std::vector<double> a = run(gx_krovak_forward, bessel, Vector(kKrovakEpsg), points);
  std::vector<double> b = run(gx_krovak_forward, bessel, Vector(flipped), points);
  for (size_t i = 0; i < a.size(); ++i) EXPECT_EQ(b[i], -a[i]);
  std::vector<double> back = run(gx_krovak_inverse, bessel, Vector(flipped), b);
  for (size_t i = 0; i < a.size(); ++i) EXPECT_NEAR(back[i], points[i], 1e-14);
}

// A plane rotation within GX_EPS of 0 still turns the forward's plane by its
// sine but takes the inverse's short path.
TEST(Krovak, TinyRotationTakesTheShortPathInTheInverseOnly) {
  std::vector<Parameter> tiny = kKrovakEpsg;
  tiny.push_back({kRotation, 1e-16 / kDeg});
  const double bessel[2] = {kBesselA, kBesselE2};
  std::vector<double> xy = {1050538.63, 568990.99};
  EXPECT_TRUE(same_bits(run(gx_krovak_inverse, bessel, Vector(tiny), xy),
                        run(gx_krovak_inverse, bessel, Vector(kKrovakEpsg), xy)));
  std::vector<double> a = run(gx_krovak_forward, bessel, Vector(tiny), degrees({16.85, 50.2}));
  std::vector<double> b =
      run(gx_krovak_forward, bessel, Vector(kKrovakEpsg), degrees({16.85, 50.2}));
  EXPECT_NE(a[1], b[1]);
  EXPECT_NEAR(a[1], b[1], 1e-9);
}

// ---- every projection of the family ------------------------------------------------------

struct Layout {
  const char* label;
  gx_constants_fn loader;
  std::vector<Parameter> parameters;
  int32_t sphere_count, ellipsoid_count;
};

// The number of doubles each loader keeps, by case: the layouts that the
// functions read.
const Layout kLayouts[] = {
    {"Lambert", gx_lambert_conformal_conic_constants, {{kSp1, 33}, {kSp2, 45}}, 3, 21},
    {"LambertOnePoleParallel",
     gx_lambert_conformal_conic_constants,
     {{kSp1, 90}, {kSp2, 45}},
     0,
     0},
    {"LambertMirroredIsMercator",
     gx_lambert_conformal_conic_constants,
     {{kSp1, 30}, {kSp2, -30}},
     2,
     20},
    {"LambertPolarIsStereographic",
     gx_lambert_conformal_conic_constants,
     {{kSp1, -90}, {kSp2, -90}},
     3,
     25},
    {"Albers", gx_albers_constants, {{kSp1, 29.5}, {kSp2, 45.5}}, 3, 22},
    {"AlbersMirroredIsCylindricalEqualArea", gx_albers_constants, {{kSp1, 30}, {kSp2, -30}}, 2, 8},
    {"EquidistantConic", gx_equidistant_conic_constants, {{kSp1, 29.5}, {kSp2, 45.5}}, 3, 22},
    {"EquidistantConicMirrored", gx_equidistant_conic_constants, {{kSp1, 30}, {kSp2, -30}}, 1, 21},
    {"Polyconic", gx_polyconic_constants, {{kLo, 30}}, 1, 24},
    {"Bonne", gx_bonne_constants, {{kSp1, 45}}, 1, 22},
    {"Krovak", gx_krovak_constants, kKrovakEpsg, 6, 27},
};

TEST(ConicLayouts, LoadersKeepTheirCounts) {
  for (const Layout& l : kLayouts) {
    Vector parms(l.parameters);
    LoadedConstants sphere(l.loader, kSpherePair, parms.v);
    LoadedConstants ellipsoid(l.loader, kWgs84Pair, parms.v);
    EXPECT_EQ(sphere.count(), l.sphere_count) << l.label;
    EXPECT_EQ(ellipsoid.count(), l.ellipsoid_count) << l.label;
  }
}

struct Family {
  const char* label;
  gx_projection_fn forward;
  std::vector<Parameter> parameters;
  std::vector<double> points;  // degrees
};

// The sphere is the limit of the ellipsoid: a body with e2 of 1e-12 takes the
// ellipsoidal formulas and must land within a few micrometres of the sphere's,
// or within a millimetre where a closed form divides a logarithm of
// (1 - e) / (1 + e) by e, which keeps only 10 digits for e of 1e-6.
TEST(ConicFamily, SphereIsTheLimitOfTheEllipsoid) {
  const Family families[] = {
      {"Lambert",
       gx_lambert_conformal_conic_forward,
       {{kCm, 10}, {kSp1, 20}, {kSp2, 60}, {kLo, 40}, {kK0, 0.99}},
       {10, 40, -20, 70, 50, 10}},
      {"Albers",
       gx_albers_forward,
       {{kCm, 10}, {kSp1, -20}, {kSp2, -60}, {kLo, -40}},
       {10, -40, -20, -70, 50, -10}},
      {"AlbersMirrored",
       gx_albers_forward,
       {{kCm, 10}, {kSp1, 30}, {kSp2, -30}, {kLo, 5}},
       {10, -40, -20, -70, 50, -10}},
      {"EquidistantConic",
       gx_equidistant_conic_forward,
       {{kCm, 10}, {kSp1, 20}, {kSp2, 60}, {kLo, 40}},
       {10, 40, -20, 70, 50, 10}},
      {"EquidistantConicMirrored",
       gx_equidistant_conic_forward,
       {{kCm, 10}, {kSp1, 20}, {kSp2, -20}, {kLo, 40}},
       {10, 40, -20, 70, 50, 10}},
      {"Polyconic", gx_polyconic_forward, {{kCm, 10}, {kLo, 40}}, {10, 40, -20, 70, 50, 10}},
      {"Bonne", gx_bonne_forward, {{kCm, 10}, {kSp1, 40}}, {10, 40, -20, 70, 50, 10}},
      {"BonneSinusoidal", gx_bonne_forward, {{kCm, 10}, {kSp1, 0}}, {10, 40, -20, 70, 50, 10}},
      {"Krovak", gx_krovak_forward, kKrovakEpsg, {16.85, 50.2, 12, 48, 22.5, 51}},
  };
  const double near_sphere[2] = {kSphereR, 1e-12};
  for (const Family& f : families) {
    Vector parms(f.parameters);
    std::vector<double> points;
    for (double v : f.points) points.push_back(v * kDeg);
    std::vector<double> a = run(f.forward, kSpherePair, parms, points);
    std::vector<double> b = run(f.forward, near_sphere, parms, points);
    for (size_t i = 0; i < a.size(); ++i) EXPECT_NEAR(a[i], b[i], 1e-3) << f.label << " " << i;
  }
}

}  // namespace
}  // namespace gx_test
