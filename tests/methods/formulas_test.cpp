// The formula methods against independent numbers and their own properties.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "method_call.h"

namespace {

using gx_test::from_flattening;
using gx_test::kArcSecond;
using gx_test::kPpm;
using gx_test::point3;
using gx_test::run_degrees;
using gx_test::sphere;

const sphere kWgs72 = from_flattening(6378135.0, 298.26);
const sphere kWgs84 = from_flattening(6378137.0, 298.257223563);

// Translations in metres, rotations in arc-seconds, scale in ppm, rotation
// origin in metres: the vector as the driver hands it over.
std::vector<double> parameters(double tx, double ty, double tz, double rx = 0, double ry = 0,
                               double rz = 0, double ds = 0, double px = 0, double py = 0,
                               double pz = 0) {
  std::vector<double> p(16, 0.0);
  p[0] = tx, p[1] = ty, p[2] = tz;
  p[3] = rx * kArcSecond, p[4] = ry * kArcSecond, p[5] = rz * kArcSecond;
  p[6] = ds * kPpm;
  p[7] = px, p[8] = py, p[9] = pz;
  return p;
}

const std::vector<double> kSeven = parameters(-87.1, -98.2, -121.3, 1.5, -2.1, 3.3, -1.2);
const std::vector<point3> kPoints = {{4.0, 55.0, 0.0}, {-73.5, -33.25, 300.0}, {150.0, 10.0, -20.0}};

struct reference_case {
  const char* name;
  gx_method_fn forward;
  std::vector<double> parms;
  std::vector<point3> expected;  // for kPoints, WGS 72 to WGS 84
  double degrees, metres;        // tolerances
};

// Expected values computed with PROJ 9.1 (cct), e.g. for the coordinate frame
// case: +proj=pipeline +step +proj=cart +a=6378135 +rf=298.26
//   +step +proj=helmert +x=-87.1 +y=-98.2 +z=-121.3 +rx=1.5 +ry=-2.1 +rz=3.3
//   +s=-1.2 +convention=coordinate_frame +exact +step +inv +proj=cart +ellps=WGS84
// and +proj=molodensky [+abridged] +a=6378135 +rf=298.26 +da=2
//   +df=3.1210580009322086e-08 +dx=-87.1 +dy=-98.2 +dz=-121.3.
const std::vector<reference_case> kReferenceCases = {
    {"Coordinate_Frame", gx_method_bursa_wolf_forward, kSeven,
     {{3.998179377698, 54.999457119483, -162.841097508557},
      {-73.502553345487, -33.250338854008, 414.900139924139},
      {150.000141933462, 9.999178092825, -24.742098667659}},
     1e-9, 1e-4},
    // PROJ's exact position vector matrix is the transpose of the coordinate
    // frame one, while here the rotations are negated: the two differ by the
    // square of the angles, about a millimetre at these rotations.
    {"Position_Vector", gx_method_position_vector_forward, kSeven,
     {{3.998948868559, 55.000676327080, -162.412834526971},
      {-73.499837428509, -33.250807783841, 415.056202604435},
      {150.002203820955, 9.998580619203, -24.811917128973}},
     3e-8, 3e-3},
    {"Geocentric_Translation", gx_method_geocentric_translation_forward,
     parameters(-87.1, -98.2, -121.3),
     {{3.998564127964, 55.000066505247, -154.990413201973},
      {-73.501195389338, -33.250573114266, 422.624590249732},
      {150.001172878011, 9.998879284054, -17.124042056501}},
     1e-9, 1e-4},
    {"Molodensky", gx_method_molodensky_forward, parameters(-87.1, -98.2, -121.3),
     {{3.998564164672, 55.000066512123, -154.991077930616},
      {-73.501195404879, -33.250573131255, 422.623300429581},
      {150.001172882927, 9.998879285365, -17.126550590567}},
     1e-11, 1e-6},
    {"Molodensky_Abridged", gx_method_molodensky_abridged_forward,
     parameters(-87.1, -98.2, -121.3),
     {{3.998564164672, 55.000066510164, -154.990927607842},
      {-73.501195461049, -33.250573160560, 422.623443333029},
      {150.001172879250, 9.998879290874, -17.126530740450}},
     1e-11, 1e-6},
    // +proj=molobadekas ... +px=3900000 +py=300000 +pz=5000000
    //   +convention=coordinate_frame +exact between the same cart steps.
    {"Molodensky_Badekas", gx_method_molodensky_badekas_forward,
     parameters(-87.1, -98.2, -121.3, 1.5, -2.1, 3.3, -1.2, 3900000, 300000, 5000000),
     {{3.998646444625, 55.000064870834, -151.753386393189},
      {-73.502997889818, -33.250174522594, 355.360574546270},
      {150.000166133325, 9.999514383370, 40.087867417373}},
     1e-9, 1e-4},
};

TEST(FormulaMethods, MatchIndependentReferenceValues) {
  for (const reference_case& c : kReferenceCases) {
    SCOPED_TRACE(c.name);
    std::vector<point3> points = kPoints;
    EXPECT_EQ(run_degrees(c.forward, kWgs72, kWgs84, c.parms.data(), points), 3);
    for (size_t i = 0; i < points.size(); ++i) {
      EXPECT_NEAR(points[i].lon, c.expected[i].lon, c.degrees);
      EXPECT_NEAR(points[i].lat, c.expected[i].lat, c.degrees);
      EXPECT_NEAR(points[i].h, c.expected[i].h, c.metres);
    }
  }
}

// The worked example of the Position Vector method in the EPSG guidance note
// 7-2 (WGS 72 to WGS 84, tZ 4.5 m, rZ 0.554", dS 0.219 ppm): 55N 4E becomes
// 55 00 00.090 N, 4 00 00.554 E, with a height of 3.22 m.
TEST(FormulaMethods, PositionVectorGuidanceNoteExample) {
  const std::vector<double> p = parameters(0, 0, 4.5, 0, 0, 0.554, 0.219);
  std::vector<point3> points = {{4.0, 55.0, 0.0}};
  run_degrees(gx_method_position_vector_forward, kWgs72, kWgs84, p.data(), points);
  EXPECT_NEAR(points[0].lon, 4.0 + 0.554 / 3600, 1e-8);
  EXPECT_NEAR(points[0].lat, 55.0 + 0.090 / 3600, 0.0005 / 3600);  // published to 0.001"

  EXPECT_NEAR(points[0].h, 3.22, 0.005);
}

struct round_trip_case {
  const char* name;
  gx_method_fn forward, inverse;
  std::vector<double> parms;
  double degrees;
};

// The Cartesian methods invert exactly; the Molodensky pair only to the
// order of the method, by design.
const std::vector<round_trip_case> kRoundTrips = {
    {"Bursa_Wolf", gx_method_bursa_wolf_forward, gx_method_bursa_wolf_inverse, kSeven, 1e-10},
    {"Position_Vector", gx_method_position_vector_forward, gx_method_position_vector_inverse,
     kSeven, 1e-10},
    {"Geocentric_Translation", gx_method_geocentric_translation_forward,
     gx_method_geocentric_translation_inverse, parameters(-87.1, -98.2, -121.3), 1e-10},
    {"Molodensky_Badekas", gx_method_molodensky_badekas_forward,
     gx_method_molodensky_badekas_inverse,
     parameters(-87.1, -98.2, -121.3, 1.5, -2.1, 3.3, -1.2, 3900000, 300000, 5000000), 1e-10},
    {"Molodensky", gx_method_molodensky_forward, gx_method_molodensky_inverse,
     parameters(-87.1, -98.2, -121.3), 1e-7},
    {"Molodensky_Abridged", gx_method_molodensky_abridged_forward,
     gx_method_molodensky_abridged_inverse, parameters(-87.1, -98.2, -121.3), 1e-6},
};

TEST(FormulaMethods, InverseUndoesForward) {
  for (const round_trip_case& c : kRoundTrips) {
    SCOPED_TRACE(c.name);
    std::vector<point3> points = kPoints;
    run_degrees(c.forward, kWgs72, kWgs84, c.parms.data(), points);
    // The inverse still gets the spheres in the transformation's order.
    EXPECT_EQ(run_degrees(c.inverse, kWgs72, kWgs84, c.parms.data(), points), 3);
    for (size_t i = 0; i < points.size(); ++i) {
      EXPECT_NEAR(points[i].lon, kPoints[i].lon, c.degrees);
      EXPECT_NEAR(points[i].lat, kPoints[i].lat, c.degrees);
      EXPECT_NEAR(points[i].h, kPoints[i].h, c.degrees * 1e6);
    }
  }
}

const gx_method_fn kAllFormulaFunctions[] = {
    gx_method_longitude_rotation,
    gx_method_bursa_wolf_forward,
    gx_method_bursa_wolf_inverse,
    gx_method_position_vector_forward,
    gx_method_position_vector_inverse,
    gx_method_geocentric_translation_forward,
    gx_method_geocentric_translation_inverse,
    gx_method_molodensky_forward,
    gx_method_molodensky_inverse,
    gx_method_molodensky_abridged_forward,
    gx_method_molodensky_abridged_inverse,
    gx_method_molodensky_badekas_forward,
    gx_method_molodensky_badekas_inverse,
};

TEST(FormulaMethods, NoPointsReturnsTheCountUntouched) {
  const double pair[2] = {6378137.0, 0.00669437999014};
  for (gx_method_fn fn : kAllFormulaFunctions) {
    double coords[2] = {0.5, 0.25};
    double z[1] = {7.0};
    EXPECT_EQ(fn(pair, pair, kSeven.data(), nullptr, 0, coords, z, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(fn(pair, pair, kSeven.data(), nullptr, -3, coords, z, nullptr, nullptr, nullptr), -3);
    EXPECT_EQ(coords[0], 0.5);
    EXPECT_EQ(coords[1], 0.25);
    EXPECT_EQ(z[0], 7.0);
  }
}

TEST(FormulaMethods, PositionVectorLeavesTheCallersRotations) {
  std::vector<double> p = kSeven;
  const std::vector<double> before = p;
  std::vector<point3> points = kPoints;
  run_degrees(gx_method_position_vector_forward, kWgs72, kWgs84, p.data(), points);
  run_degrees(gx_method_position_vector_inverse, kWgs72, kWgs84, p.data(), points);
  EXPECT_EQ(p, before);
}

TEST(FormulaMethods, PositionVectorIsCoordinateFrameWithRotationsReversed) {
  std::vector<double> reversed = kSeven;
  for (int i = 3; i <= 5; ++i) reversed[i] = -reversed[i];
  std::vector<point3> a = kPoints, b = kPoints;
  run_degrees(gx_method_position_vector_forward, kWgs72, kWgs84, kSeven.data(), a);
  run_degrees(gx_method_bursa_wolf_forward, kWgs72, kWgs84, reversed.data(), b);
  for (size_t i = 0; i < a.size(); ++i) {
    EXPECT_EQ(a[i].lon, b[i].lon);
    EXPECT_EQ(a[i].lat, b[i].lat);
    EXPECT_EQ(a[i].h, b[i].h);
  }
  // With no rotation the two conventions are one.
  const std::vector<double> plain = parameters(10, 20, 30, 0, 0, 0, 2.5);
  a = kPoints, b = kPoints;
  run_degrees(gx_method_position_vector_forward, kWgs72, kWgs84, plain.data(), a);
  run_degrees(gx_method_bursa_wolf_forward, kWgs72, kWgs84, plain.data(), b);
  for (size_t i = 0; i < a.size(); ++i) EXPECT_EQ(memcmp(&a[i], &b[i], sizeof a[i]), 0);
}

// Molodensky-Badekas about an origin is Bursa-Wolf with the translation
// T + P - M P; with the origin at the centre it is Bursa-Wolf itself.
TEST(FormulaMethods, BadekasWithOriginAtCentreIsBursaWolf) {
  std::vector<point3> a = kPoints, b = kPoints;
  run_degrees(gx_method_molodensky_badekas_forward, kWgs72, kWgs84, kSeven.data(), a);
  run_degrees(gx_method_bursa_wolf_forward, kWgs72, kWgs84, kSeven.data(), b);
  for (size_t i = 0; i < a.size(); ++i) {
    EXPECT_NEAR(a[i].lon, b[i].lon, 1e-12);
    EXPECT_NEAR(a[i].lat, b[i].lat, 1e-12);
    EXPECT_NEAR(a[i].h, b[i].h, 1e-6);
  }
}

TEST(FormulaMethods, ZeroBursaWolfStillGoesThroughCartesian) {
  const std::vector<double> zero(16, 0.0);
  std::vector<point3> points = kPoints;
  run_degrees(gx_method_bursa_wolf_forward, kWgs84, kWgs84, zero.data(), points);
  for (size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(points[i].lon, kPoints[i].lon, 1e-12);
    EXPECT_NEAR(points[i].lat, kPoints[i].lat, 1e-11);
    EXPECT_NEAR(points[i].h, kPoints[i].h, 1e-5);
  }
}

TEST(FormulaMethods, NullHeightsMeanHeightZero) {
  const std::vector<double> p = parameters(-87.1, -98.2, -121.3);
  std::vector<point3> with_zero = {{4.0, 55.0, 0.0}};
  std::vector<point3> without = {{4.0, 55.0, 123.0}};  // the 123 must not be read
  run_degrees(gx_method_geocentric_translation_forward, kWgs72, kWgs84, p.data(), with_zero);
  run_degrees(gx_method_geocentric_translation_forward, kWgs72, kWgs84, p.data(), without, false);
  EXPECT_EQ(without[0].lon, with_zero[0].lon);
  EXPECT_EQ(without[0].lat, with_zero[0].lat);
  EXPECT_EQ(without[0].h, 123.0);  // and nothing written back
  // Without heights each direction assumes 0, so a round trip lands off the
  // start by about what the height change of the first step would have moved.
  run_degrees(gx_method_geocentric_translation_inverse, kWgs72, kWgs84, p.data(), without, false);
  EXPECT_NEAR(without[0].lat, 55.0, 1e-5);
  EXPECT_GT(fabs(without[0].lat - 55.0), 1e-9);
}

TEST(FormulaMethods, MolodenskyAtThePoleKeepsItsLongitude) {
  const std::vector<double> p = parameters(-87.1, -98.2, -121.3);
  for (gx_method_fn fn : {gx_method_molodensky_forward, gx_method_molodensky_abridged_forward}) {
    std::vector<point3> points = {{10.0, 90.0, 0.0}, {-170.0, -90.0, 0.0}};
    run_degrees(fn, kWgs72, kWgs84, p.data(), points);
    EXPECT_NEAR(points[0].lon, 10.0, 1e-13);
    EXPECT_NEAR(points[1].lon, -170.0, 1e-13);
    EXPECT_LE(fabs(points[0].lat), 90.0);
  }
}

TEST(FormulaMethods, LatitudePushedBeyondThePoleIsClamped) {
  // A large X translation moves points near the pole along the meridian
  // of longitude 0 by about 1.6e-3 radians.
  const std::vector<double> p = parameters(-10000.0, 0, 0);
  const double pair[2] = {kWgs84.a, kWgs84.e2};
  double coords[2] = {0.0, 1.5705};
  gx_method_molodensky_forward(pair, pair, p.data(), nullptr, 1, coords, nullptr, nullptr,
                               nullptr, nullptr);
  EXPECT_EQ(coords[1], 1.5707963267948966);
}

TEST(FormulaMethods, LongitudeRotationAddsSlotFiveAndWraps) {
  std::vector<double> p(16, 0.0);
  p[5] = 2.33722917 * gx_test::kRadian;  // Paris to Greenwich
  std::vector<point3> points = {{0.0, 48.8, 35.0}, {179.0, -10.0, 0.0}};
  EXPECT_EQ(run_degrees(gx_method_longitude_rotation, kWgs84, kWgs84, p.data(), points), 2);
  EXPECT_NEAR(points[0].lon, 2.33722917, 1e-12);
  EXPECT_NEAR(points[0].lat, 48.8, 1e-12);
  EXPECT_EQ(points[0].h, 35.0);
  EXPECT_NEAR(points[1].lon, 181.33722917 - 360.0, 1e-12);
}

}  // namespace
