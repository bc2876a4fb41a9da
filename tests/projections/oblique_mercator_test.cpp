// The oblique Mercator family: Hotine and the rectified skew orthomorphic,
// by azimuth or by two points, from the natural origin or from the centre.
//
// Reference values: PROJ 9.1.1 (+proj=omerc), printed by tests/projections/
// data/conic_reference.py with the false origins taken off.  PROJ's omerc is
// the Hotine rows with +gamma left to default to the azimuth, and the
// rectified rows with +gamma as XY_Plane_Rotation; +no_uoff selects the
// natural origin.  PROJ measures two-point coordinates from the centre
// whatever +no_uoff says, so the two-point natural-origin rows are checked
// against the centre rows instead.
//
// Agreement: the conformal latitude is a series through e2^7 here and a
// closed form in PROJ; the results agree to a micrometre.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "geodesy/ellipsoid.h"
#include "projections/ellipsoids.h"
#include "projections/oblique_mercator.h"
#include "projections/projection_calls.h"

namespace gx_test {
namespace {

#define GX_OBLIQUE_PROJECTION(name, fn)                                        \
  const Projection name = {#fn, gx_##fn##_forward, gx_##fn##_inverse, \
                           gx_##fn##_constants}
GX_OBLIQUE_PROJECTION(kHotineAzimuthNatural, hotine_oblique_mercator_azimuth_natural_origin);
GX_OBLIQUE_PROJECTION(kHotineAzimuthCenter, hotine_oblique_mercator_azimuth_center);
GX_OBLIQUE_PROJECTION(kHotineTwoPointNatural, hotine_oblique_mercator_two_point_natural_origin);
GX_OBLIQUE_PROJECTION(kHotineTwoPointCenter, hotine_oblique_mercator_two_point_center);
GX_OBLIQUE_PROJECTION(kRsoNatural, rectified_skew_orthomorphic_natural_origin);
GX_OBLIQUE_PROJECTION(kRsoCenter, rectified_skew_orthomorphic_center);
#undef GX_OBLIQUE_PROJECTION

constexpr double kMicrometre = 1e-6;
constexpr double kInverseDeg = 1e-10;
constexpr double kTripDeg = 1e-11;

const std::vector<Parameter> kBorneo = {
    {kLatC, 4}, {kLonC, 115}, {kAz, 53.31582047222222}, {kRotation, 53.13010236111111},
    {kK0, 0.99984}};
const std::vector<Parameter> kTwoPoints = {
    {kLatC, 45}, {kLat1, 40}, {kLon1, -100}, {kLat2, 50}, {kLon2, -80}};

const ProjectionCase kCases[] = {
    // EPSG 7-2, Timbalai 1948 / RSO Borneo (variant B): E = 679 245.73,
    // N = 596 562.78 with the centre at (590 476.87, 442 857.65).
    {"RsoBorneoCenter", kRsoCenter, kEverest1967A, kEverest1967E2, kBorneo,
     {{115.80550544444444, 5.387253583333333, 88768.858179, 153705.127472},
      {115, 4, 0.0, 0.0},
      {109.5, 1.2, -611116.975028, -310171.872781},
      {119.3, 7.1, 473990.144282, 345845.049366}},
     kMicrometre, kInverseDeg, {109, 120, 0, 8}, kTripDeg},
    // The same from the natural origin (variant A).
    {"RsoBorneoNaturalOrigin", kRsoNatural, kEverest1967A, kEverest1967E2, kBorneo,
     {{115.80550544444444, 5.387253583333333, 679245.733526, 596562.783871},
      {115, 4, 590476.875347, 442857.656398},
      {109.5, 1.2, -20640.099681, 132685.783618},
      {119.3, 7.1, 1064467.019629, 788702.705764}},
     kMicrometre, kInverseDeg, {109, 120, 0, 8}, kTripDeg},
    // NAD27 / Alaska zone 1: the azimuth atan(-3/4) at the centre, whose
    // false origin is (5 000 000, -5 000 000) US survey feet.
    {"HotineAlaskaZone1", kHotineAzimuthCenter, kClarke1866A, kClarke1866E2,
     {{kLatC, 57}, {kLonC, -133.66666666666667}, {kAz, -36.86989764584402}, {kK0, 0.9999}},
     {{-133.66666666666666, 57, 0.0, 0.0},
      {-132.75, 56.2, 56894.517655, -88693.776705},
      {-141, 60, -408482.459441, 356456.177413},
      {-129.9, 54.7, 242755.598663, -249437.990337}},
     kMicrometre, kInverseDeg, {-142, -129, 53, 61}, kTripDeg},
    {"HotineNaturalOriginSouthWgs84", kHotineAzimuthNatural, kWgs84A, kWgs84E2,
     {{kLatC, -36}, {kLonC, 150}, {kAz, -20}, {kK0, 0.9999}},
     {{150, -36, 1431797.352654, -3933830.895653},
      {155, -30, 1914967.355113, -3278429.283913},
      {145, -45, 1037801.541293, -4947099.094683},
      {150, 0, 1347760.716044, 78811.361099}},
     kMicrometre, kInverseDeg, {140, 160, -50, 0}, kTripDeg},
    {"RsoNaturalOriginSphere", kRsoNatural, kSphereR, 0.0,
     {{kLatC, 30}, {kLonC, -40}, {kAz, 35}, {kRotation, 10}, {kK0, 0.9996}},
     {{-40, 30, 678948.778744, 3850509.865343},
      {-30, 40, 965806.226051, 5256308.740530},
      {-55, 15, -120950.100869, 1729793.068394}},
     kMicrometre, kInverseDeg, {-60, -20, 10, 50}, kTripDeg},
    {"HotineTwoPointCenterWgs84", kHotineTwoPointCenter, kWgs84A, kWgs84E2, kTwoPoints,
     {{-90, 45, 136582.127334, 1465.080965},
      {-100, 40, -705778.639086, -520395.779277},
      {-80, 50, 839011.687954, 618633.261189},
      {-95, 52, -224743.620365, 785197.884420}},
     kMicrometre, kInverseDeg, {-110, -70, 30, 60}, kTripDeg},
    {"HotineTwoPointCenterClarke", kHotineTwoPointCenter, kClarke1866A, kClarke1866E2,
     {{kLatC, 45}, {kLat1, 40}, {kLon1, -100}, {kLat2, 50}, {kLon2, -80}, {kK0, 0.9996}},
     {{-90, 45, 136535.218121, 1464.617686},
      {-100, 40, -705510.841312, -520179.943317},
      {-80, 50, 838706.840050, 618386.636987},
      {-95, 52, -224658.188492, 784882.883367}},
     kMicrometre, kInverseDeg, {-110, -70, 30, 60}, kTripDeg},
    // Point 1 on the equator of a sphere takes the line's azimuth from the
    // great circle; PROJ has the points the other way round.
    {"HotineTwoPointCenterSphereFromTheEquator", kHotineTwoPointCenter, kSphereR, 0.0,
     {{kLatC, 10}, {kLat1, 0}, {kLon1, -10}, {kLat2, 30}, {kLon2, 20}},
     {{-10, 0, -981640.983582, -1103189.225330},
      {20, 30, 2079239.613200, 2336694.144322},
      {0, 20, 130665.567645, 1113836.712598},
      {5, -5, 695183.399569, -1686677.095858}},
     kMicrometre, kInverseDeg, {-20, 30, -10, 40}, kTripDeg},
    // From the natural origin no PROJ figures stand (see above); the round
    // trip and the two routes still hold.
    {"HotineTwoPointNaturalOrigin", kHotineTwoPointNatural, kWgs84A, kWgs84E2, kTwoPoints, {},
     kMicrometre, kInverseDeg, {-110, -70, 30, 60}, kTripDeg},
    // An azimuth of 90 degrees at the centre: see EastWestCentreIsTheOrigin.
    {"HotineAzimuthCenterEastWest", kHotineAzimuthCenter, kWgs84A, kWgs84E2,
     {{kLatC, 46.95}, {kLonC, 7.44}, {kAz, 90}},
     {}, kMicrometre, kInverseDeg, {4, 11, 44, 50}, kTripDeg},
};

INSTANTIATE_TEST_SUITE_P(ObliqueMercator, ProjectionCaseTest, ::testing::ValuesIn(kCases),
                         case_name);

// With the line running east-west through the centre, the centre is the
// line's vertex, where asin(g) meets 1 and is steep: this set-up clamps g and
// puts the centre exactly on the origin, while PROJ, whose g falls short of 1
// by rounding, puts it 9.5 cm west and everything else 8.5e-7 degree east.
TEST(ObliqueMercator, EastWestCentreIsTheOrigin) {
  Vector parms({{kLatC, 46.95}, {kLonC, 7.44}, {kAz, 90}});
  std::vector<double> xy =
      run(kHotineAzimuthCenter.forward, kWgs84Pair, parms, degrees({7.44, 46.95}));
  EXPECT_NEAR(xy[0], 0.0, 1e-8);
  EXPECT_NEAR(xy[1], 0.0, 1e-8);
  // East of the centre along the line is +x, north of it +y.
  xy = run(kHotineAzimuthCenter.forward, kWgs84Pair, parms, degrees({10.5, 46.95, 7.44, 47.5}));
  EXPECT_GT(xy[0], 200000.0);
  EXPECT_GT(xy[3], 60000.0);
}

// The natural origin lies on the central line, uc from the centre: the two
// forms of a two-point definition differ by one vector along the line.
TEST(ObliqueMercator, TwoPointNaturalOriginIsTheCentreShiftedAlongTheLine) {
  Vector parms(kTwoPoints);
  std::vector<double> points = degrees({-90, 45, -100, 40, -80, 50, -95, 52, -70, 30});
  std::vector<double> natural = run(kHotineTwoPointNatural.forward, kWgs84Pair, parms, points);
  std::vector<double> centre = run(kHotineTwoPointCenter.forward, kWgs84Pair, parms, points);
  double dx = natural[0] - centre[0], dy = natural[1] - centre[1];
  EXPECT_GT(std::hypot(dx, dy), 1e6);
  for (size_t i = 2; i < points.size(); i += 2) {
    EXPECT_NEAR(natural[i] - centre[i], dx, 1e-6);
    EXPECT_NEAR(natural[i + 1] - centre[i + 1], dy, 1e-6);
  }
}

// A centre on a pole is moved 2e-7 radian off it, onto the meridian beyond
// the pole, with the line running north.
TEST(ObliqueMercator, CentreOnThePoleIsMovedOffIt) {
  Vector on_pole({{kLonC, 20}, {kAz, 45}, {kK0, 0.9996}});
  on_pole.v[kLatC] = GX_HALFPI;
  Vector moved = on_pole;
  moved.v[kLatC] = 1.5707961267948967;
  moved.v[kLonC] = gx_delta(on_pole.v[kLonC] + GX_PI);
  moved.v[kAz] = 0;
  std::vector<double> points = degrees({20, 80, -160, 85, 100, 60});
  for (const Projection* p : {&kHotineAzimuthCenter, &kHotineAzimuthNatural}) {
    std::vector<double> a = run(p->forward, kWgs84Pair, on_pole, points);
    std::vector<double> b = run(p->forward, kWgs84Pair, moved, points);
    EXPECT_TRUE(same_bits(a, b)) << p->name;
    for (double v : a) EXPECT_TRUE(std::isfinite(v)) << p->name;
  }
}

// The line's azimuth is taken northward: 100 degrees is -80.
TEST(ObliqueMercator, AzimuthIsFoldedNorthward) {
  std::vector<double> points = degrees({10, 40, 14, 43, 5, 35});
  std::vector<double> a = run(kHotineAzimuthCenter.forward, kWgs84Pair,
                              Vector({{kLatC, 40}, {kLonC, 10}, {kAz, 100}}), points);
  std::vector<double> b = run(kHotineAzimuthCenter.forward, kWgs84Pair,
                              Vector({{kLatC, 40}, {kLonC, 10}, {kAz, -80}}), points);
  for (size_t i = 0; i < a.size(); ++i) EXPECT_NEAR(a[i], b[i], 1e-8);
}

// XY_Plane_Rotation of 720 degrees asks for the azimuth's rotation; without
// the parameter (slot 14 reads 0) the skew plane is not turned at all.
TEST(ObliqueMercator, RectifiedRotationSentinelAndNoRotation) {
  std::vector<Parameter> given = {
      {kLatC, 4}, {kLonC, 115}, {kAz, 53.31582047222222}, {kK0, 0.99984}};
  std::vector<double> points = degrees({115.8, 5.4, 109.5, 1.2, 119.3, 7.1});
  const double everest[2] = {kEverest1967A, kEverest1967E2};
  std::vector<Parameter> sentinel = given;
  sentinel.push_back({kRotation, 720});
  EXPECT_TRUE(same_bits(run(kRsoCenter.forward, everest, Vector(sentinel), points),
                        run(kHotineAzimuthCenter.forward, everest, Vector(given), points)));

  // Unrotated, the rectified plane is (v, u - uc); turned by the azimuth it is
  // the Hotine plane.
  LoadedConstants block(kRsoCenter.loader, everest, Vector(given).v);
  const double sa = block.doubles()[5], ca = block.doubles()[6];
  std::vector<double> skew = run(kRsoCenter.forward, everest, Vector(given), points);
  std::vector<double> hotine = run(kHotineAzimuthCenter.forward, everest, Vector(given), points);
  for (size_t i = 0; i < points.size(); i += 2) {
    EXPECT_NEAR(skew[i] * ca + skew[i + 1] * sa, hotine[i], 1e-8);
    EXPECT_NEAR(skew[i + 1] * ca - skew[i] * sa, hotine[i + 1], 1e-8);
  }
}

// With the line on the equator (gamma0 = 0) a point with u = pi/2 Ak, v = 0
// has Qp exactly 1: the inverse gives the pole exactly, on the line's origin
// meridian.
TEST(ObliqueMercator, InverseAtQpOfOneIsThePole) {
  Vector parms({{kLatC, 0}, {kLonC, 30}, {kAz, 0}});
  LoadedConstants block(kRsoNatural.loader, kWgs84Pair, parms.v);
  ASSERT_EQ(block.count(), 29);
  const double Ak = block.doubles()[9], rAk = block.doubles()[10];
  double u = GX_HALFPI * Ak;
  while (u * rAk < GX_HALFPI) u = std::nextafter(u, 1e300);
  while (u * rAk > GX_HALFPI) u = std::nextafter(u, 0.0);
  ASSERT_EQ(u * rAk, GX_HALFPI);
  std::vector<double> ll = run(kRsoNatural.inverse, kWgs84Pair, parms, {0.0, u});
  EXPECT_EQ(ll[1], GX_HALFPI);
  EXPECT_NEAR(ll[0], 30 * kDeg, 1e-12);
}

// Two points that make no line refuse the definition: nothing stored, no
// point converted.
TEST(ObliqueMercator, TwoPointDefinitionsWithoutALineAreRefused) {
  const std::vector<Parameter> refused[] = {
      {{kLatC, 45}, {kLat1, 40}, {kLon1, -100}, {kLat2, 40}, {kLon2, -100}},  // one point twice
      {{kLatC, 45}, {kLat1, 90}, {kLon1, -100}, {kLat2, 90}, {kLon2, 20}},    // both on one pole
      // A line nearly along the equator cannot pass through a centre at 80
      // degrees: sin of its azimuth there would exceed 1.
      {{kLatC, 80}, {kLat1, 0.5}, {kLon1, 0}, {kLat2, 1}, {kLon2, 10}},
  };
  for (const std::vector<Parameter>& given : refused) {
    Vector parms(given);
    for (const Projection* p : {&kHotineTwoPointCenter, &kHotineTwoPointNatural}) {
      LoadedConstants block(p->loader, kWgs84Pair, parms.v);
      EXPECT_EQ(block.count(), 0) << p->name;
      EXPECT_EQ(block.doubles(), nullptr) << p->name;
      int32_t result = -1;
      std::vector<double> points = degrees({-90, 45});
      EXPECT_TRUE(same_bits(run(p->forward, kWgs84Pair, parms, points, &result), points));
      EXPECT_EQ(result, 0) << p->name;
      EXPECT_TRUE(same_bits(run(p->inverse, kWgs84Pair, parms, {1000.0, 2000.0}, &result),
                            std::vector<double>{1000.0, 2000.0}));
      EXPECT_EQ(result, 0) << p->name;
    }
  }
}

// A point on a pole moves off it along the other point's meridian.
TEST(ObliqueMercator, TwoPointPoleIsMovedOffIt) {
  Vector parms({{kLatC, 60}, {kLat1, 90}, {kLon1, 0}, {kLat2, 40}, {kLon2, 30}});
  std::vector<double> points = degrees({30, 40, 30, 89.9, 100, 80});
  int32_t result = 0;
  std::vector<double> xy = run(kHotineTwoPointCenter.forward, kWgs84Pair, parms, points, &result);
  EXPECT_EQ(result, 3);
  std::vector<double> back = run(kHotineTwoPointCenter.inverse, kWgs84Pair, parms, xy);
  for (size_t i = 0; i < points.size(); ++i) EXPECT_NEAR(back[i], points[i], 1e-11) << i;
}

// On the equator D is 1 in exact arithmetic and may fall below it by
// rounding; the root of D^2 - 1 must not make a NaN.
TEST(ObliqueMercator, CentreOnTheEquatorGivesNoNaN) {
  std::vector<double> points = degrees({0, 0, 3, 2, -4, -5});
  for (const double* sphere : {kWgs84Pair, kSpherePair}) {
    Vector parms({{kLatC, 0}, {kLonC, 0}, {kAz, 30}});
    std::vector<double> xy = run(kHotineAzimuthCenter.forward, sphere, parms, points);
    for (double v : xy) EXPECT_TRUE(std::isfinite(v));
    std::vector<double> back = run(kHotineAzimuthCenter.inverse, sphere, parms, xy);
    for (size_t i = 0; i < points.size(); ++i) EXPECT_NEAR(back[i], points[i], 1e-12) << i;
  }
}

// The line's own poles are at v = +-infinity; the core reports what the
// logarithm gives and keeps the point.
TEST(ObliqueMercator, PoleOfTheLineIsInfinite) {
  Vector parms({{kLatC, 0}, {kLonC, 0}, {kAz, 0}});  // the central line is the meridian 0
  int32_t result = 0;
  std::vector<double> xy =
      run(kHotineAzimuthNatural.forward, kSpherePair, parms, degrees({90, 0}), &result);
  EXPECT_EQ(result, 1);
  EXPECT_TRUE(std::isinf(xy[0]) || std::fabs(xy[0]) > 1e8);
}

}  // namespace
}  // namespace gx_test
