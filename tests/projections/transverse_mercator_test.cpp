// The transverse Mercator family: Transverse_Mercator (and Gauss_Kruger,
// the same functions), Cassini and Transverse_Mercator_Complex.
//
// Reference values: PROJ 9.1 (`proj -f %.6f`, +proj=utm / tmerc / cass)
// and GeographicLib 2.1 (`TransverseMercatorProj -k 0.9996 -l 9`, the exact
// projection, nanometre accuracy everywhere), unless a comment names
// Snyder's "Map Projections: A Working Manual" or EPSG Guidance Note 7-2.
//
// How far the series agree.  Transverse_Mercator's eighth-order series is
// within 1 mm of the exact projection up to 6 degrees from the central
// meridian (0.1 mm at 6 degrees); forward then inverse (with the divisor 5020 of the seventh-order
// term) gives back the point within 1e-11 degrees up to 3 degrees out,
// 5e-9 at 6 degrees and 4e-7 at 10 degrees.  Cassini's short series agrees
// with PROJ's forward to the micrometre, but its inverse is the short series
// too: forward then inverse gives back the latitude within 2e-9 degrees 1
// degree out and 2e-7 degrees 3 degrees out.  Transverse_Mercator_Complex
// matches GeographicLib's exact projection to the micrometre even 89
// degrees from the central meridian.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "projections/ellipsoids.h"
#include "projections/projection_cases.h"
#include "projections/transverse_mercator.h"

namespace gx_test {
namespace {

const Projection kTm = {"Transverse_Mercator", gx_transverse_mercator_forward,
                        gx_transverse_mercator_inverse, gx_transverse_mercator_constants};
const Projection kCassini = {"Cassini", gx_cassini_forward, gx_cassini_inverse,
                             gx_cassini_constants};
const Projection kTmc = {"Transverse_Mercator_Complex", gx_transverse_mercator_complex_forward,
                         gx_transverse_mercator_complex_inverse,
                         gx_transverse_mercator_complex_constants};

constexpr int kCm = GX_PARM_CENTRAL_MERIDIAN;
constexpr int kK0 = GX_PARM_SCALE_FACTOR;
constexpr int kPhi0 = GX_PARM_LATITUDE_OF_ORIGIN;

// UTM zone 32 without its false easting, and the zone's usable band.
const std::vector<Parameter> kUtm32 = {{kCm, 9}, {kK0, 0.9996}};
const Region kZone = {6.0, 12.0, -80.0, 84.0};
const Region kDoubleZone = {3.0, 15.0, -80.0, 84.0};

// Clarke's link in metres, for EPSG's Trinidad example.
constexpr double kLink = 0.201166195164;
// Clarke 1858 by its axes in Clarke's feet (0.3047972654 m).
constexpr double kClarke1858A = 20926348.0 * 0.3047972654;
constexpr double kClarke1858E2 = 1.0 - (20855233.0 / 20926348.0) * (20855233.0 / 20926348.0);

const ProjectionCase kCases[] = {
    // PROJ utm +zone=32 (exact), less the false easting.
    {"TransverseMercatorUtm32", kTm, kWgs84A, kWgs84E2, kUtm32,
     {{9, 48, 0.0, 5316300.224451},
      {12, 60, 167294.821124, 6655205.483635},
      {6, -30, -289409.653236, -3322575.904385},
      {10.5, 0.1, 166931.390323, 11056.819152}},
     1e-4, 1e-10, kZone, 1e-10},
    // Six degrees out: within a millimetre of the exact value.
    {"TransverseMercatorUtm32Wide", kTm, kWgs84A, kWgs84E2, kUtm32,
     {{15, 45, 472891.791269, 5000491.005461},
      {3, 72, -206636.495890, 7999233.637230}},
     1e-3, 2e-8, kDoubleZone, 1e-7},
    // EPSG Guidance Note 7-2, British National Grid (Airy 1830):
    // E = 577274.99, N = 69740.50, less the false origin (400000, -100000).
    {"TransverseMercatorEpsgBng", kTm, kAiryA, kAiryE2,
     {{kCm, -2}, {kK0, 0.9996012717}, {kPhi0, 49}},
     {{0.5, 50.5, 177274.99, 169740.50}},
     1e-2, 1e-7, {-5.0, 1.0, 49.0, 61.0}, 1e-10},
    // Snyder p. 269: Clarke 1866, x = 127 106.5, y = 4 484 124.4 (PROJ's
    // digits).
    {"TransverseMercatorSnyder", kTm, kClarke1866A, kClarke1866E2, {{kCm, -75}, {kK0, 0.9996}},
     {{-73.5, 40.5, 127106.467394, 4484124.434424}},
     1e-3, 1e-10, {-78.0, -72.0, -80.0, 84.0}, 1e-10},
    {"TransverseMercatorSphere", kTm, kSphereR, 0.0, {{kK0, 0.9996}, {kPhi0, 10}},
     {{10, 20, 1048551.283331, 1143022.247336},
      {-5, -60, -277699.440387, -7791034.968264},
      {30, 10, 3434051.686105, 167658.599388},
      {3, 0.5, 333591.087305, -1055852.997845},
      {120, 30, 6196217.301104, 13437355.056962}},
     1e-5, 1e-10, {-80.0, 80.0, -85.0, 85.0}, 1e-10},
    // Snyder p. 284 and PROJ cass: Clarke 1866, x = 163 071.1, y = 335 127.6.
    {"CassiniSnyder", kCassini, kClarke1866A, kClarke1866E2, {{kCm, -75}, {kPhi0, 40}},
     {{-73, 43, 163071.127886, 335127.587507}},
     1e-5, 1e-7, {-78.0, -72.0, 20.0, 60.0}, 2e-7},
    {"CassiniWgs84", kCassini, kWgs84A, kWgs84E2, {{kCm, -100}, {kPhi0, 40}},
     {{-100, 40, 0.0, 0.0},
      {-98, 45, 157677.654681, 557361.896282},
      {-103, 30, -289425.749226, -1105623.575587},
      {-101, 60, -55797.876825, 2224965.502887},
      {-97.5, 20, 261607.998536, -2215209.316557}},
     1e-5, 1e-7, {-103.0, -97.0, 20.0, 60.0}, 2e-7},
    // EPSG Guidance Note 7-2, Trinidad 1903 / Trinidad Grid (Clarke 1858 in
    // links): E = 66644.94, N = 82536.22 less the false origin (430000,
    // 325000), taken to metres.
    {"CassiniEpsgTrinidad", kCassini, kClarke1858A, kClarke1858E2,
     {{kCm, -(61.0 + 20.0 / 60)}, {kPhi0, 10.0 + 26.0 / 60 + 30.0 / 3600}},
     {{-62, 10, (66644.94 - 430000.0) * kLink, (82536.22 - 325000.0) * kLink}},
     5e-3, 1e-7, {-62.5, -60.5, 9.5, 11.5}, 1e-9},
    {"CassiniSphere", kCassini, kSphereR, 0.0, {{kPhi0, 10}},
     {{10, 20, 1044263.335856, 1143479.639191},
      {-5, -60, -277722.566486, -7794152.629316},
      {30, 10, 3280106.253087, 167725.689664},
      {3, 0.5, 333572.066428, -1056275.508049}},
     1e-5, 1e-10, {-60.0, 60.0, -80.0, 80.0}, 1e-10},
    // GeographicLib's exact projection, close to and far from the meridian.
    {"TransverseMercatorComplexUtm32", kTmc, kWgs84A, kWgs84E2, kUtm32,
     {{9, 48, 0.0, 5316300.224451},
      {12, 60, 167294.821124, 6655205.483635},
      {6, -30, -289409.653236, -3322575.904385},
      {10.5, 0.1, 166931.390323, 11056.819152},
      {3, 72, -206636.495890, 7999233.637230},
      {15, 45, 472891.791269, 5000491.005461},
      {40, 10, 3565386.546377, 1286450.995603},
      {60, -40, 4379079.818471, -5892420.852962},
      {80, 80, 1059798.296010, 9631174.779171},
      {89, 1, 15859619.462434, 724402.325478},
      {70, 30, 6318111.245241, 5550545.607329}},
     1e-5, 1e-10, {-51.0, 69.0, -85.0, 85.0}, 1e-9},
    {"TransverseMercatorComplexEpsgBng", kTmc, kAiryA, kAiryE2,
     {{kCm, -2}, {kK0, 0.9996012717}, {kPhi0, 49}},
     {{0.5, 50.5, 177274.99, 169740.50}},
     1e-2, 1e-7, {-8.0, 2.0, 49.0, 61.0}, 1e-9},
    {"TransverseMercatorComplexSphere", kTmc, kSphereR, 0.0, {{kK0, 0.9996}, {kPhi0, 10}},
     {{10, 20, 1048551.283331, 1143022.247336},
      {-5, -60, -277699.440387, -7791034.968264},
      {30, 10, 3434051.686105, 167658.599388}},
     1e-5, 1e-10, {-80.0, 80.0, -85.0, 85.0}, 1e-10},
};

INSTANTIATE_TEST_SUITE_P(TransverseMercator, ProjectionCaseTest, ::testing::ValuesIn(kCases),
                         case_name);


// ---- single-purpose checks -----------------------------------------------------------

const double kWgs84[2] = {kWgs84A, kWgs84E2};
const double kSphere[2] = {kSphereR, 0.0};

struct Vector {
  double parms[GX_PARM_COUNT];
  explicit Vector(const std::vector<Parameter>& given) { build_parms(given, parms); }
};

bool is_nan_mark(double v) {
  uint64_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  return bits == 0x7FF8000000000001ull;
}

TEST(TransverseMercator, PoleIsTheQuarterMeridianFromTheOrigin) {
  Vector v({{kK0, 0.9996}, {kPhi0, 30}, {kCm, 9}});
  double xy[4] = {12.0 * kDeg, GX_HALFPI, 9.0 * kDeg, -GX_HALFPI};
  ASSERT_EQ(gx_transverse_mercator_forward(kWgs84, v.parms, 2, xy, nullptr, nullptr), 2);
  double from_origin = gx_q90(kWgs84A, kWgs84E2) - gx_q(kWgs84A, kWgs84E2, 30.0 * kDeg);
  EXPECT_NEAR(xy[0], 0.0, 1e-6);
  EXPECT_NEAR(xy[1], 0.9996 * from_origin, 1e-6);
  EXPECT_NEAR(xy[3], -0.9996 * (from_origin + 2.0 * gx_q(kWgs84A, kWgs84E2, 30.0 * kDeg)), 1e-6);
}

TEST(TransverseMercator, SphereQuarterTurnOnTheEquatorIsFinite) {
  Vector v({});
  double xy[4] = {GX_HALFPI, 0.0, -GX_HALFPI, 0.0};
  ASSERT_EQ(gx_transverse_mercator_forward(kSphere, v.parms, 2, xy, nullptr, nullptr), 2);
  // B is 1 - 2^-48: x = ln((2 - 2^-48) / 2^-48) * a / 2.
  EXPECT_NEAR(xy[0], std::log(2.0 / GX_EPS) * kSphereR * 0.5, 1e-6);
  EXPECT_EQ(xy[2], -xy[0]);
  EXPECT_TRUE(std::isfinite(xy[1]));
}

TEST(TransverseMercator, EllipsoidInverseOnTheCentralMeridian) {
  Vector v({{kK0, 0.9996}, {kCm, 9}, {kPhi0, 10}});
  double xy[4] = {0.0, 3.0e6, 0.0, -7.0e6};
  ASSERT_EQ(gx_transverse_mercator_inverse(kWgs84, v.parms, 2, xy, nullptr, nullptr), 2);
  EXPECT_EQ(xy[0], 9.0 * kDeg);
  EXPECT_EQ(xy[2], 9.0 * kDeg);
  // The latitude is the footpoint latitude: back through the forward it
  // lands on the meridian at the same northing.
  ASSERT_EQ(gx_transverse_mercator_forward(kWgs84, v.parms, 2, xy, nullptr, nullptr), 2);
  EXPECT_EQ(xy[0], 0.0);
  EXPECT_NEAR(xy[1], 3.0e6, 1e-8);
  EXPECT_NEAR(xy[3], -7.0e6, 1e-8);
}

TEST(TransverseMercator, FarPointsGetNumbersNeverNaN) {
  Vector v({{kK0, 0.9996}});
  double xy[6] = {80.0 * kDeg, 10.0 * kDeg, 179.0 * kDeg, -40.0 * kDeg, -GX_PI, 0.0};
  ASSERT_EQ(gx_transverse_mercator_forward(kWgs84, v.parms, 3, xy, nullptr, nullptr), 3);
  for (double d : xy) EXPECT_TRUE(std::isfinite(d));
}

TEST(Cassini, ScaleFactorScalesBothOrdinates) {
  for (const double* sphere : {kWgs84, kSphere}) {
    Vector one({{kCm, -100}, {kPhi0, 40}}), half({{kCm, -100}, {kPhi0, 40}, {kK0, 0.5}});
    double a[2] = {-98.0 * kDeg, 45.0 * kDeg}, b[2] = {a[0], a[1]};
    gx_cassini_forward(sphere, one.parms, 1, a, nullptr, nullptr);
    gx_cassini_forward(sphere, half.parms, 1, b, nullptr, nullptr);
    EXPECT_EQ(b[0], a[0] * 0.5);
    EXPECT_EQ(b[1], a[1] * 0.5);
    gx_cassini_inverse(sphere, half.parms, 1, b, nullptr, nullptr);
    EXPECT_NEAR(b[0], -98.0 * kDeg, 1e-9);
    EXPECT_NEAR(b[1], 45.0 * kDeg, 1e-9);
  }
}

TEST(Cassini, SphereHalfTurnHasNoStrayEasting) {
  // sin(pi) is 1.2e-16, not 0: without the clean-up x would be 0.8 nm.
  Vector v({});
  double xy[4] = {GX_PI, 0.5, -GX_PI, -0.5};
  gx_cassini_forward(kSphere, v.parms, 2, xy, nullptr, nullptr);
  EXPECT_EQ(xy[0], 0.0);
  EXPECT_EQ(xy[2], 0.0);
  EXPECT_NEAR(xy[1], (GX_PI - 0.5) * kSphereR, 1e-6);
}

TEST(Cassini, SphereQuarterTurnOfLongitude) {
  Vector v({});
  double xy[2] = {GX_HALFPI, 0.5};
  gx_cassini_forward(kSphere, v.parms, 1, xy, nullptr, nullptr);
  EXPECT_NEAR(xy[0], (GX_HALFPI - 0.5) * kSphereR, 1e-6);
  EXPECT_EQ(xy[1], GX_HALFPI * kSphereR);
}

TEST(Cassini, SphereInverseAtAQuarterTurnOfEasting) {
  Vector v({{kCm, 10}});
  double xy[4] = {GX_HALFPI * kSphereR, 0.0, -GX_HALFPI * kSphereR, 0.0};
  ASSERT_EQ(gx_cassini_inverse(kSphere, v.parms, 2, xy, nullptr, nullptr), 2);
  EXPECT_NEAR(xy[0], 10.0 * kDeg + GX_HALFPI, 1e-15);
  EXPECT_NEAR(xy[2], 10.0 * kDeg - GX_HALFPI, 1e-15);
  EXPECT_NEAR(xy[1], 0.0, 1e-15);
}

TEST(TransverseMercatorComplex, OriginMapsToZero) {
  for (double phi0 : {0.0, 49.0, -33.0}) {
    Vector v({{kCm, -2}, {kK0, 0.9996012717}, {kPhi0, phi0}});
    double xy[2] = {-2.0 * kDeg, phi0 * kDeg};
    ASSERT_EQ(gx_transverse_mercator_complex_forward(kWgs84, v.parms, 1, xy, nullptr, nullptr), 1);
    EXPECT_NEAR(xy[0], 0.0, 1e-9);
    EXPECT_NEAR(xy[1], 0.0, 1e-9);
  }
}

TEST(TransverseMercatorComplex, NonConvergedPointsAreMarkedAndNotCounted) {
  // Newton's method from asin(tanh w) overshoots the quarter period close to
  // a pole and on the equator a quarter turn out, and never comes back.
  Vector v({{kCm, 9}, {kK0, 0.9996}});
  double xy[6] = {12.0 * kDeg, 45.0 * kDeg, 9.0 * kDeg, GX_HALFPI, 99.0 * kDeg, 0.0};
  EXPECT_EQ(gx_transverse_mercator_complex_forward(kWgs84, v.parms, 3, xy, nullptr, nullptr), 1);
  EXPECT_TRUE(std::isfinite(xy[0]) && std::isfinite(xy[1]));
  for (int i = 2; i < 6; ++i) EXPECT_TRUE(is_nan_mark(xy[i]));
  // None converged: the run counts as failed.
  double pole[2] = {0.0, GX_HALFPI};
  EXPECT_EQ(gx_transverse_mercator_complex_forward(kWgs84, v.parms, 1, pole, nullptr, nullptr), 0);
  // The inverse marks its failures the same way.
  double far[4] = {100000.0, 5.0e6, 3.0e7, 3.0e7};
  EXPECT_EQ(gx_transverse_mercator_complex_inverse(kWgs84, v.parms, 2, far, nullptr, nullptr), 1);
  EXPECT_TRUE(is_nan_mark(far[2]) && is_nan_mark(far[3]));
}

TEST(TransverseMercatorComplex, SphereCountsEveryPoint) {
  Vector v({});
  double xy[4] = {GX_HALFPI, 0.0, 0.0, GX_HALFPI};
  EXPECT_EQ(gx_transverse_mercator_complex_forward(kSphere, v.parms, 2, xy, nullptr, nullptr), 2);
}

TEST(JacobiFunctions, RealAndImaginaryArguments) {
  // mpmath 1.3 at 30 digits: ellipfun("sn", z, m), and E as the integral of
  // dn^2 from 0 to z by quadrature, m = 0.1.
  const double m = 0.1;
  gx_complex sn, e;
  gx_cplx_sn({0.7, 0.0}, m, &sn);
  EXPECT_NEAR(sn.re, 0.64025170664545421, 1e-15);
  EXPECT_EQ(sn.im, 0.0);
  gx_cplx_sn({0.0, 0.7}, m, &sn);
  EXPECT_NEAR(sn.re, 0.0, 1e-15);
  EXPECT_NEAR(sn.im, 0.76653931013777667, 1e-15);
  gx_cplx_sn({0.5, 0.3}, m, &sn);
  EXPECT_NEAR(sn.re, 0.50066641157231249, 1e-15);
  EXPECT_NEAR(sn.im, 0.26431536628772846, 1e-15);
  gx_cplx_ellint_e({0.5, 0.3}, m, &e);
  EXPECT_NEAR(e.re, 0.49990547783371564, 1e-15);
  EXPECT_NEAR(e.im, 0.29362362489914783, 1e-15);
  gx_cplx_ellint_e({0.7, 0.0}, m, &e);
  EXPECT_NEAR(e.re, 0.68971807691030899, 1e-15);
  EXPECT_NEAR(e.im, 0.0, 1e-15);
}

}  // namespace
}  // namespace gx_test
