// The azimuthal family at its edges: centres on or near a pole, antipodes,
// rejected points and how they count, refused runs, and the projections that
// hand a run on to another.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <vector>

#include "projections/azimuthal.h"
#include "projections/ellipsoids.h"
#include "projections/projection_cases.h"

using namespace gx_test;

namespace {

// A call of one function on a sphere pair, a parameter list and points given
// in degrees (forward) or metres (inverse); keeps the result and the pairs.
struct call {
  int32_t result = 0;
  std::vector<double> coords;
};

call run_fn(gx_projection_fn fn, double a, double e2, const std::vector<Parameter>& parms,
            std::vector<double> coords, const double* doubles = nullptr) {
  double sphere[2] = {a, e2};
  double v[GX_PARM_COUNT];
  build_parms(parms, v);
  call c;
  c.result =
      fn(sphere, v, static_cast<int32_t>(coords.size() / 2), coords.data(), nullptr, doubles);
  c.coords = coords;
  return c;
}

std::vector<double> radians(std::vector<double> degrees) {
  for (double& d : degrees) d *= kDeg;
  return degrees;
}

void expect_same_bits(const std::vector<double>& a, const std::vector<double>& b) {
  EXPECT_TRUE(same_bits(a, b));
}

// Both ordinates of point i hold the library's NaN mark.
bool marked_nan(const call& c, int i) {
  double mark;
  gx_nan(&mark);
  std::vector<double> expected = {mark, mark};
  std::vector<double> point = {c.coords[2 * i], c.coords[2 * i + 1]};
  return same_bits(point, expected);
}

// The local scales of a forward at (lam, phi) in radians, by central
// differences: along the meridian and the parallel (each per metre on the
// ellipsoid), the area scale and the cosine of the angle between the images
// of the meridian and the parallel.
struct local_scales {
  double meridian, parallel, area, skew;
};

local_scales scales_at(gx_projection_fn fn, double a, double e2,
                       const std::vector<Parameter>& parms, double lam, double phi) {
  const double h = 1e-6;
  call c = run_fn(fn, a, e2, parms, {lam + h, phi, lam - h, phi, lam, phi + h, lam, phi - h});
  const std::vector<double>& p = c.coords;
  double xl = (p[0] - p[2]) / (2 * h), yl = (p[1] - p[3]) / (2 * h);
  double xp = (p[4] - p[6]) / (2 * h), yp = (p[5] - p[7]) / (2 * h);
  double m = gx_m(a, e2, phi), nc = gx_n(a, e2, phi) * std::cos(phi);
  local_scales s;
  s.meridian = std::hypot(xp, yp) / m;
  s.parallel = std::hypot(xl, yl) / nc;
  s.area = std::fabs(xl * yp - xp * yl) / (m * nc);
  s.skew = (xl * xp + yl * yp) / (std::hypot(xl, yl) * std::hypot(xp, yp));
  return s;
}

// ---- Stereographic ----------------------------------------------------------------

TEST(Stereographic, AntipodeOfTheCentreIsNotFinite) {
  // Equatorial centre, point on the far side of the equator: the division by
  // zero stands, the point is not refused and is counted.
  call c = run_fn(gx_stereographic_forward, kSphereR, 0.0, {}, radians({180, 0}));
  EXPECT_EQ(c.result, 1);
  EXPECT_TRUE(std::isinf(c.coords[0]));
}

TEST(Stereographic, FarPoleOfAPolarCentreIsLargeButFinite) {
  call c = run_fn(gx_stereographic_forward, kSphereR, 0.0, {{GX_PARM_LATITUDE_OF_ORIGIN, 90}},
                  radians({0, -90}));
  EXPECT_EQ(c.result, 1);
  EXPECT_TRUE(std::isfinite(c.coords[1]));
  EXPECT_GT(std::fabs(c.coords[1]), 1e20);
}

TEST(Stereographic, CentreWithinToleranceOfThePoleTakesThePolarRowsWithK0) {
  const double near_pole = (GX_HALFPI - 2e-15) / kDeg;
  std::vector<double> points = radians({10, 80, -120, 45, 170, -10});
  for (double e2 : {0.0, kWgs84E2}) {
    call near =
        run_fn(gx_stereographic_forward, kWgs84A, e2,
               {{GX_PARM_LATITUDE_OF_ORIGIN, near_pole}, {GX_PARM_SCALE_FACTOR, 0.994}}, points);
    call exact = run_fn(gx_stereographic_forward, kWgs84A, e2,
                        {{GX_PARM_LATITUDE_OF_ORIGIN, 90}, {GX_PARM_SCALE_FACTOR, 0.994}}, points);
    expect_same_bits(near.coords, exact.coords);
    // k0 is in A2: the scale at the pole is 0.994 of the unscaled one.
    call unscaled =
        run_fn(gx_stereographic_forward, kWgs84A, e2, {{GX_PARM_LATITUDE_OF_ORIGIN, 90}}, points);
    EXPECT_NEAR(exact.coords[1] / unscaled.coords[1], 0.994, 1e-15);
  }
}

TEST(Stereographic, OriginGoesToTheCentre) {
  // The centre as given, with its longitude wrapped.
  for (double e2 : {0.0, kWgs84E2}) {
    for (double phi0 : {52.0, 0.0, 90.0, -90.0}) {
      call c =
          run_fn(gx_stereographic_inverse, kWgs84A, e2,
                 {{GX_PARM_CENTRAL_MERIDIAN, 190}, {GX_PARM_LATITUDE_OF_ORIGIN, phi0}}, {0.0, 0.0});
      EXPECT_EQ(c.result, 1);
      EXPECT_EQ(c.coords[0], gx_delta(190 * kDeg));
      EXPECT_EQ(c.coords[1], phi0 * kDeg);
    }
  }
}

TEST(Stereographic, LongitudeIsTakenFromTheCentralMeridianAndWrapped) {
  for (double e2 : {0.0, kWgs84E2}) {
    std::vector<Parameter> parms = {{GX_PARM_CENTRAL_MERIDIAN, 170},
                                    {GX_PARM_LATITUDE_OF_ORIGIN, 30}};
    call near = run_fn(gx_stereographic_forward, kWgs84A, e2, parms, radians({-175, 35}));
    call far = run_fn(gx_stereographic_forward, kWgs84A, e2, parms, radians({185, 35}));
    EXPECT_NEAR(near.coords[0], far.coords[0], 1e-6);
    EXPECT_NEAR(near.coords[1], far.coords[1], 1e-6);
    EXPECT_GT(near.coords[0], 0.0);
  }
}

// ---- the polar forms ----------------------------------------------------------------

TEST(StereographicPolarForms, SouthWithTrueScaleAtThePoleIsStereographicWithK0One) {
  std::vector<double> points = radians({30, -60, -150, -80, 90, 20, 0, -90});
  call polar = run_fn(gx_stereographic_south_pole_forward, kSphereR, 0.0,
                      {{GX_PARM_STANDARD_PARALLEL_1, -90}}, points);
  call stere =
      run_fn(gx_stereographic_forward, kSphereR, 0.0, {{GX_PARM_LATITUDE_OF_ORIGIN, -90}}, points);
  expect_same_bits(polar.coords, stere.coords);
}

TEST(StereographicPolarForms, ScaleFactorIsNotRead) {
  std::vector<double> points = radians({30, 60, -150, 80});
  for (double e2 : {0.0, kWgs84E2}) {
    call plain = run_fn(gx_stereographic_north_pole_forward, kWgs84A, e2,
                        {{GX_PARM_STANDARD_PARALLEL_1, 70}}, points);
    call scaled = run_fn(gx_stereographic_north_pole_forward, kWgs84A, e2,
                         {{GX_PARM_STANDARD_PARALLEL_1, 70}, {GX_PARM_SCALE_FACTOR, 0.5}}, points);
    expect_same_bits(plain.coords, scaled.coords);
  }
}

TEST(StereographicPolarForms, OriginGivesThePoleExactly) {
  for (double e2 : {0.0, kWgs84E2}) {
    call north = run_fn(gx_stereographic_north_pole_inverse, kWgs84A, e2,
                        {{GX_PARM_STANDARD_PARALLEL_1, 70}}, {0.0, 0.0});
    call south = run_fn(gx_stereographic_south_pole_inverse, kWgs84A, e2,
                        {{GX_PARM_STANDARD_PARALLEL_1, -70}}, {0.0, 0.0});
    EXPECT_EQ(north.coords[1], GX_HALFPI);
    EXPECT_EQ(south.coords[1], -GX_HALFPI);
  }
}

TEST(StereographicPolarForms, TrueScaleOnTheStandardParallel) {
  // The parallel of 70 N has its true length: 2 pi r on the map equals the
  // parallel's circumference 2 pi N cos(phi).
  double phi = 70 * kDeg;
  call c = run_fn(gx_stereographic_north_pole_forward, kWgs84A, kWgs84E2,
                  {{GX_PARM_STANDARD_PARALLEL_1, 70}}, {0.0, phi});
  double r = -c.coords[1];
  EXPECT_NEAR(r, gx_n(kWgs84A, kWgs84E2, phi) * std::cos(phi), 1e-6);
}

// ---- Double_Stereographic -----------------------------------------------------------

TEST(DoubleStereographic, OnASphereIsStereographicToTheBit) {
  std::vector<Parameter> parms = {{GX_PARM_CENTRAL_MERIDIAN, 12},
                                  {GX_PARM_LATITUDE_OF_ORIGIN, 47},
                                  {GX_PARM_SCALE_FACTOR, 0.9998}};
  std::vector<double> points = radians({12, 47, 20, 40, -100, -30, 192, -47});
  call dbl = run_fn(gx_double_stereographic_forward, kSphereR, 0.0, parms, points);
  call stere = run_fn(gx_stereographic_forward, kSphereR, 0.0, parms, points);
  expect_same_bits(dbl.coords, stere.coords);
  call dbl_back = run_fn(gx_double_stereographic_inverse, kSphereR, 0.0, parms, dbl.coords);
  call stere_back = run_fn(gx_stereographic_inverse, kSphereR, 0.0, parms, dbl.coords);
  expect_same_bits(dbl_back.coords, stere_back.coords);
  // The loader keeps nothing for a sphere.
  gx_constants* block = gx_constants_new();
  double sphere[2] = {kSphereR, 0.0};
  double v[GX_PARM_COUNT];
  build_parms(parms, v);
  EXPECT_EQ(gx_double_stereographic_constants(block, sphere, v), 0);
  EXPECT_EQ(gx_constants_doubles(block), nullptr);
  gx_constants_del(block);
}

TEST(DoubleStereographic, LongitudeBeyondTheLimitIsCompressedBothWays) {
  // On the equator B = 1 / sqrt(1 - e2) > 1, so the limit Lm = pi (2 / B - 1)
  // lies below pi.  Beyond it the forward pulls L back by half its excess and
  // the inverse pushes it out by half the excess it sees, so L comes back as
  // (3 L + Lm) / 4; inside it the round trip is exact.
  double B = 1.0 / std::sqrt(1.0 - kWgs84E2);
  double lm = GX_PI - (GX_PI - GX_PI / B) * 2.0;
  double beyond = 179.9 * kDeg;
  ASSERT_GT(beyond, lm);
  std::vector<Parameter> parms = {};
  call fwd = run_fn(gx_double_stereographic_forward, kWgs84A, kWgs84E2, parms, {beyond, 0.3});
  call back = run_fn(gx_double_stereographic_inverse, kWgs84A, kWgs84E2, parms, fwd.coords);
  EXPECT_NEAR(back.coords[0], (3.0 * beyond + lm) / 4.0, 1e-12);
  EXPECT_NEAR(back.coords[1], 0.3, 1e-12);

  double inside = lm - 0.01;
  fwd = run_fn(gx_double_stereographic_forward, kWgs84A, kWgs84E2, parms, {inside, 0.3});
  back = run_fn(gx_double_stereographic_inverse, kWgs84A, kWgs84E2, parms, fwd.coords);
  EXPECT_NEAR(back.coords[0], inside, 1e-12);
}

TEST(DoubleStereographic, PolarCentreHasNoLongitudeLimit) {
  // B = 1 at a polar centre: the whole turn of longitude goes round.
  std::vector<Parameter> parms = {{GX_PARM_LATITUDE_OF_ORIGIN, 90}};
  call fwd =
      run_fn(gx_double_stereographic_forward, kWgs84A, kWgs84E2, parms, radians({179.999, 60}));
  call back = run_fn(gx_double_stereographic_inverse, kWgs84A, kWgs84E2, parms, fwd.coords);
  EXPECT_NEAR(back.coords[0] / kDeg, 179.999, 1e-9);
}

TEST(DoubleStereographic, PolesMapToTheGaussianPoles) {
  std::vector<Parameter> parms = {{GX_PARM_LATITUDE_OF_ORIGIN, 52}};
  call north = run_fn(gx_double_stereographic_forward, kWgs84A, kWgs84E2, parms, radians({40, 90}));
  call back = run_fn(gx_double_stereographic_inverse, kWgs84A, kWgs84E2, parms, north.coords);
  EXPECT_NEAR(back.coords[1], GX_HALFPI, 1e-12);
  EXPECT_NEAR(north.coords[0], 0.0, 1e-6);
}

// Beside the pole an asin of the latitude's sine would lose half the digits
// (1e-16 in the sine is 1.5e-8 rad there); the oblique inverses keep them.
TEST(AzimuthalInverse, ObliqueInversesKeepLatitudesBesideThePole) {
  // Each projection reads its own pair of the centre's slots.
  std::vector<Parameter> parms = {{GX_PARM_CENTRAL_MERIDIAN, 10},
                                  {GX_PARM_LATITUDE_OF_ORIGIN, 52},
                                  {GX_PARM_LONGITUDE_OF_CENTER, 10},
                                  {GX_PARM_LATITUDE_OF_CENTER, 52}};
  std::vector<double> near_pole = radians({10, 89.9999999, 47, 89.99999999, -133, 89.999999,
                                           10, 90, -170, 89.9999999});
  const std::pair<gx_projection_fn, gx_projection_fn> pairs[] = {
      {gx_stereographic_forward, gx_stereographic_inverse},
      {gx_lambert_azimuthal_equal_area_forward, gx_lambert_azimuthal_equal_area_inverse},
      {gx_orthographic_forward, gx_orthographic_inverse},
      {gx_gnomonic_forward, gx_gnomonic_inverse}};
  for (auto [forward, inverse] : pairs) {
    for (double e2 : {0.0, kWgs84E2}) {
      double a = e2 == 0.0 ? kSphereR : kWgs84A;
      call there = run_fn(forward, a, e2, parms, near_pole);
      call back = run_fn(inverse, a, e2, parms, there.coords);
      for (size_t i = 1; i < near_pole.size(); i += 2)
        EXPECT_NEAR(back.coords[i], near_pole[i], 1e-13) << "e2 " << e2 << " point " << i / 2;
    }
  }
}

// ---- Lambert_Azimuthal_Equal_Area ---------------------------------------------------

TEST(LambertAzimuthal, AntipodeOfACentreOffThePolesIsNaNAndCounted) {
  call sphere =
      run_fn(gx_lambert_azimuthal_equal_area_forward, kSphereR, 0.0, {}, radians({180, 0, 30, 10}));
  EXPECT_EQ(sphere.result, 2);
  EXPECT_TRUE(marked_nan(sphere, 0));
  EXPECT_TRUE(std::isfinite(sphere.coords[2]));
  std::vector<Parameter> oblique = {{GX_PARM_CENTRAL_MERIDIAN, 10},
                                    {GX_PARM_LATITUDE_OF_ORIGIN, 52}};
  call ellipsoid = run_fn(gx_lambert_azimuthal_equal_area_forward, kWgs84A, kWgs84E2, oblique,
                          radians({-170, -52, 30, 10}));
  EXPECT_EQ(ellipsoid.result, 2);
  EXPECT_TRUE(marked_nan(ellipsoid, 0));
  EXPECT_TRUE(std::isfinite(ellipsoid.coords[2]));
}

TEST(LambertAzimuthal, FarPoleOfAPolarCentreLiesOnTheLimitCircle) {
  call sphere = run_fn(gx_lambert_azimuthal_equal_area_forward, kSphereR, 0.0,
                       {{GX_PARM_LATITUDE_OF_ORIGIN, 90}}, radians({30, -90}));
  EXPECT_EQ(sphere.result, 1);
  EXPECT_NEAR(std::hypot(sphere.coords[0], sphere.coords[1]), 2 * kSphereR, 1e-6);
  call ellipsoid = run_fn(gx_lambert_azimuthal_equal_area_forward, kWgs84A, kWgs84E2,
                          {{GX_PARM_LATITUDE_OF_ORIGIN, -90}}, radians({30, 90}));
  EXPECT_NEAR(std::hypot(ellipsoid.coords[0], ellipsoid.coords[1]),
              2 * gx_auth_r(kWgs84A, kWgs84E2), 1e-6);
}

TEST(LambertAzimuthal, InverseBeyondTheLimitCircleClampsInsteadOfNaN) {
  for (double e2 : {0.0, kWgs84E2}) {
    call polar = run_fn(gx_lambert_azimuthal_equal_area_inverse, kWgs84A, e2,
                        {{GX_PARM_LATITUDE_OF_ORIGIN, 90}}, {3.0 * kWgs84A, 0.0});
    EXPECT_EQ(polar.coords[1], -GX_HALFPI);
    call oblique = run_fn(gx_lambert_azimuthal_equal_area_inverse, kWgs84A, e2,
                          {{GX_PARM_LATITUDE_OF_ORIGIN, 40}}, {0.0, -3.0 * kWgs84A});
    EXPECT_TRUE(std::isfinite(oblique.coords[0]));
    EXPECT_TRUE(std::isfinite(oblique.coords[1]));
  }
}

TEST(LambertAzimuthal, FarPoleFromAnObliqueCentre) {
  // 90 S seen from 52 N on WGS 84: y = -12038174.511242 m, computed with
  // mpmath from the authalic latitudes in closed form (PROJ gives a value
  // 6 cm off here).  The inverse's asin is ill-conditioned at a pole.
  std::vector<Parameter> parms = {{GX_PARM_CENTRAL_MERIDIAN, 10}, {GX_PARM_LATITUDE_OF_ORIGIN, 52}};
  call fwd =
      run_fn(gx_lambert_azimuthal_equal_area_forward, kWgs84A, kWgs84E2, parms, radians({10, -90}));
  EXPECT_NEAR(fwd.coords[0], 0.0, 1e-6);
  EXPECT_NEAR(fwd.coords[1], -12038174.511242, 1e-6);
  call back = run_fn(gx_lambert_azimuthal_equal_area_inverse, kWgs84A, kWgs84E2, parms, fwd.coords);
  EXPECT_NEAR(back.coords[1] / kDeg, -90.0, 1e-6);
}

TEST(LambertAzimuthal, PolarCentreStaysAccurateNearThePole) {
  // WGS 84, centre 90 N, points at 30 E: a sqrt(qp - q) sin(30 deg) and
  // -cos(30 deg) from mpmath at 40 digits.  PROJ 9.1.1 loses 0.8 mm at
  // 89.9999 N to the cancellation in qp - q.
  struct row {
    double lat, x, y;
  };
  for (row r : {row{89.9999, 5.584698978, -9.672982375},
                {89.99, 558.469897029, -967.298236153},
                {80.0, 557704.525479501, -965972.573741588}}) {
    call c = run_fn(gx_lambert_azimuthal_equal_area_forward, kWgs84A, kWgs84E2,
                    {{GX_PARM_LATITUDE_OF_ORIGIN, 90}}, radians({30, r.lat}));
    EXPECT_NEAR(c.coords[0], r.x, 2e-9) << r.lat;
    EXPECT_NEAR(c.coords[1], r.y, 2e-9) << r.lat;
  }
}

TEST(LambertAzimuthal, KeepsAreasOnTheEllipsoid) {
  for (double phi0 : {52.0, 0.0, 90.0, -90.0}) {
    std::vector<Parameter> parms = {{GX_PARM_CENTRAL_MERIDIAN, 10},
                                    {GX_PARM_LATITUDE_OF_ORIGIN, phi0}};
    for (auto [lon, lat] : {std::pair{25.0, 60.0}, {-20.0, 10.0}, {70.0, -35.0}}) {
      local_scales s = scales_at(gx_lambert_azimuthal_equal_area_forward, kWgs84A, kWgs84E2, parms,
                                 lon * kDeg, lat * kDeg);
      EXPECT_NEAR(s.area, 1.0, 1e-8) << "centre " << phi0 << ", point " << lon << ", " << lat;
    }
  }
}

TEST(Stereographic, IsConformalOnTheEllipsoid) {
  for (double phi0 : {52.0, 0.0, 90.0, -33.0}) {
    std::vector<Parameter> parms = {{GX_PARM_CENTRAL_MERIDIAN, 10},
                                    {GX_PARM_LATITUDE_OF_ORIGIN, phi0},
                                    {GX_PARM_SCALE_FACTOR, 0.9999}};
    for (auto [lon, lat] : {std::pair{25.0, 60.0}, {-20.0, 10.0}, {70.0, 35.0}}) {
      local_scales s =
          scales_at(gx_stereographic_forward, kWgs84A, kWgs84E2, parms, lon * kDeg, lat * kDeg);
      EXPECT_NEAR(s.meridian / s.parallel, 1.0, 1e-8) << phi0 << ": " << lon << ", " << lat;
      EXPECT_NEAR(s.skew, 0.0, 1e-8) << phi0 << ": " << lon << ", " << lat;
    }
  }
  // At the centre the scale is k0.
  std::vector<Parameter> parms = {{GX_PARM_LATITUDE_OF_ORIGIN, 52}, {GX_PARM_SCALE_FACTOR, 0.9999}};
  local_scales centre =
      scales_at(gx_stereographic_forward, kWgs84A, kWgs84E2, parms, 0.0, 52 * kDeg);
  EXPECT_NEAR(centre.meridian, 0.9999, 1e-9);
}

// ---- Gnomonic and Orthographic ---------------------------------------------------

TEST(Gnomonic, HorizonAndBeyondAreNaNAndNotCounted) {
  // 90 degrees from the centre cc is cos(pi/2), about 6e-17: within GX_EPS.
  call c = run_fn(gx_gnomonic_forward, kSphereR, 0.0, {}, radians({0, 0, 90, 0, 120, 0, 10, 10}));
  EXPECT_EQ(c.result, 2);
  EXPECT_FALSE(marked_nan(c, 0));
  EXPECT_TRUE(marked_nan(c, 1));
  EXPECT_TRUE(marked_nan(c, 2));
  EXPECT_FALSE(marked_nan(c, 3));
}

TEST(Orthographic, ExactlyOnTheHorizonStillConverts) {
  // With the centre at 15 N, the point 75 N across the pole has cc exactly 0.
  std::vector<Parameter> centre = {{GX_PARM_LATITUDE_OF_CENTER, 15}};
  call ortho = run_fn(gx_orthographic_forward, kSphereR, 0.0, centre, radians({180, 75}));
  EXPECT_EQ(ortho.result, 1);
  EXPECT_NEAR(std::hypot(ortho.coords[0], ortho.coords[1]), kSphereR, 1e-6);
  call gnom = run_fn(gx_gnomonic_forward, kSphereR, 0.0, centre, radians({180, 75}));
  EXPECT_EQ(gnom.result, 0);
  EXPECT_TRUE(marked_nan(gnom, 0));
  call beyond = run_fn(gx_orthographic_forward, kSphereR, 0.0, centre, radians({180, 74}));
  EXPECT_EQ(beyond.result, 0);
  EXPECT_TRUE(marked_nan(beyond, 0));
}

TEST(Orthographic, InverseOutsideTheDiscIsNaNAndNotCounted) {
  std::vector<Parameter> centre = {{GX_PARM_LATITUDE_OF_CENTER, 40}};
  call c = run_fn(gx_orthographic_inverse, kSphereR, 0.0, centre,
                  {kSphereR, 0.0, 0.0, -kSphereR * (1 + 1e-9), 1000.0, 2000.0});
  EXPECT_EQ(c.result, 2);
  EXPECT_FALSE(marked_nan(c, 0));
  EXPECT_TRUE(marked_nan(c, 1));
  EXPECT_FALSE(marked_nan(c, 2));
}

TEST(Orthographic, OriginGoesToTheCentreAndCounts) {
  std::vector<Parameter> centre = {{GX_PARM_LONGITUDE_OF_CENTER, 200},
                                   {GX_PARM_LATITUDE_OF_CENTER, 40}};
  for (gx_projection_fn fn : {gx_orthographic_inverse, gx_gnomonic_inverse}) {
    call c = run_fn(fn, kSphereR, 0.0, centre, {0.0, 0.0});
    EXPECT_EQ(c.result, 1);
    EXPECT_EQ(c.coords[0], gx_delta(200 * kDeg));
    EXPECT_EQ(c.coords[1], 40 * kDeg);
  }
}

TEST(Orthographic, SphereOnlyWhateverTheEccentricity) {
  std::vector<Parameter> centre = {{GX_PARM_LONGITUDE_OF_CENTER, 20},
                                   {GX_PARM_LATITUDE_OF_CENTER, 40}};
  std::vector<double> points = radians({10, 30, 50, 60, -40, 10});
  for (gx_projection_fn fn : {gx_orthographic_forward, gx_gnomonic_forward}) {
    call sphere = run_fn(fn, kWgs84A, 0.0, centre, points);
    call ellipsoid = run_fn(fn, kWgs84A, kWgs84E2, centre, points);
    expect_same_bits(sphere.coords, ellipsoid.coords);
  }
}

// ---- Vertical_Near_Side_Perspective ---------------------------------------------

TEST(NearSidePerspective, HeightZeroOrBelowRefusesTheRun) {
  for (double h : {0.0, 1e-16, -1000.0}) {
    for (double e2 : {0.0, kWgs84E2}) {
      std::vector<Parameter> parms = {{GX_PARM_LATITUDE_OF_CENTER, 40}, {GX_PARM_HEIGHT, h}};
      for (gx_projection_fn fn :
           {gx_vertical_near_side_perspective_forward, gx_vertical_near_side_perspective_inverse}) {
        call c = run_fn(fn, kWgs84A, e2, parms, {0.1, 0.2});
        EXPECT_EQ(c.result, 0);
        EXPECT_EQ(c.coords[0], 0.1);
        EXPECT_EQ(c.coords[1], 0.2);
      }
      gx_constants* block = gx_constants_new();
      double sphere[2] = {kWgs84A, e2};
      double v[GX_PARM_COUNT];
      build_parms(parms, v);
      EXPECT_EQ(gx_vertical_near_side_perspective_constants(block, sphere, v), 0);
      EXPECT_EQ(gx_constants_doubles(block), nullptr);
      gx_constants_del(block);
    }
  }
}

TEST(NearSidePerspective, BeyondTheHorizonIsNaNAndNotCounted) {
  // From 1000 km the horizon lies where cc = 1 / P, about 30 degrees out.
  std::vector<Parameter> parms = {{GX_PARM_HEIGHT, 1000000}};
  for (double e2 : {0.0, kWgs84E2}) {
    call fwd = run_fn(gx_vertical_near_side_perspective_forward, kWgs84A, e2, parms,
                      radians({0, 0, 60, 0, 10, 10}));
    EXPECT_EQ(fwd.result, 2);
    EXPECT_TRUE(marked_nan(fwd, 1));
    call inv = run_fn(gx_vertical_near_side_perspective_inverse, kWgs84A, e2, parms,
                      {0.0, 0.0, 4e6, 0.0, 1e5, 1e5});
    EXPECT_EQ(inv.result, 2);
    EXPECT_TRUE(marked_nan(inv, 1));
    EXPECT_EQ(inv.coords[0], 0.0);
    EXPECT_EQ(inv.coords[1], 0.0);
  }
}

// The view from height h on the normal of the centre, by vectors: the point
// seen from the viewpoint V is placed where its line of sight crosses the
// plane that touches the ellipsoid at the centre, and read in that plane's
// east and north axes.
std::vector<double> view_by_vectors(double lam0, double phic, double h, double lam, double phi) {
  double c[3], x[3];
  gx_curv_to_cart(kWgs84A, kWgs84E2, phic, lam0, 0.0, &c[0], &c[1], &c[2]);
  gx_curv_to_cart(kWgs84A, kWgs84E2, phi, lam, 0.0, &x[0], &x[1], &x[2]);
  double up[3] = {std::cos(phic) * std::cos(lam0), std::cos(phic) * std::sin(lam0), std::sin(phic)};
  double east[3] = {-std::sin(lam0), std::cos(lam0), 0.0};
  double north[3] = {-std::sin(phic) * std::cos(lam0), -std::sin(phic) * std::sin(lam0),
                     std::cos(phic)};
  double sight[3], from_centre[3];
  for (int i = 0; i < 3; ++i) {
    double v = c[i] + h * up[i];
    sight[i] = x[i] - v;
    from_centre[i] = v - c[i];
  }
  auto dot = [](const double* u, const double* w) {
    return u[0] * w[0] + u[1] * w[1] + u[2] * w[2];
  };
  double t = -dot(from_centre, up) / dot(sight, up);
  double in_plane[3];
  for (int i = 0; i < 3; ++i) in_plane[i] = from_centre[i] + t * sight[i];
  return {dot(in_plane, east), dot(in_plane, north)};
}

TEST(NearSidePerspective, EllipsoidIsTheViewFromTheHeightOnTheNormal) {
  struct view_case {
    double lam0, phic, h;
  };
  for (view_case v : {view_case{10, 52, 2000000},
                      {-75, 0, 35786000},
                      {0, 90, 800000},
                      {30, -90, 5000000},
                      {100, -30, 400000}}) {
    std::vector<Parameter> parms = {{GX_PARM_LONGITUDE_OF_CENTER, v.lam0},
                                    {GX_PARM_LATITUDE_OF_CENTER, v.phic},
                                    {GX_PARM_HEIGHT, v.h}};
    for (auto [dlon, dlat] : {std::pair{0.0, 0.0}, {3.0, 2.0}, {-8.0, -5.0}, {1.0, -9.0}}) {
      double lon = v.lam0 + dlon;
      double lat = v.phic + (v.phic > 0 ? -std::fabs(dlat) : v.phic < 0 ? std::fabs(dlat) : dlat);
      call c = run_fn(gx_vertical_near_side_perspective_forward, kWgs84A, kWgs84E2, parms,
                      radians({lon, lat}));
      std::vector<double> expected =
          view_by_vectors(v.lam0 * kDeg, v.phic * kDeg, v.h, lon * kDeg, lat * kDeg);
      EXPECT_EQ(c.result, 1);
      EXPECT_NEAR(c.coords[0], expected[0], 1e-6) << v.phic << ": " << lon << ", " << lat;
      EXPECT_NEAR(c.coords[1], expected[1], 1e-6) << v.phic << ": " << lon << ", " << lat;
    }
  }
}

// ---- Azimuthal_Equidistant ----------------------------------------------------------

TEST(AzimuthalEquidistant, SphereAntipodeIsFiniteAndCounted) {
  call c = run_fn(gx_azimuthal_equidistant_forward, kSphereR, 0.0, {}, radians({180, 0}));
  EXPECT_EQ(c.result, 1);
  EXPECT_TRUE(std::isfinite(c.coords[0]));
  EXPECT_TRUE(std::isfinite(c.coords[1]));
}

TEST(AzimuthalEquidistant, EquatorFromAnEquatorialCentreIsMeasuredAlongIt) {
  // Along the equator the geodesic is the equator itself: 30 degrees east of
  // the centre is a * pi / 6 east (PROJ's aeqd: 3339584.723798 0).  The
  // centre itself is the origin.
  call c = run_fn(gx_azimuthal_equidistant_forward, kWgs84A, kWgs84E2, {},
                  radians({30, 0, 0, 0, -30, 0}));
  EXPECT_EQ(c.result, 3);
  EXPECT_NEAR(c.coords[0], 3339584.723798, 1e-6);
  EXPECT_NEAR(c.coords[1], 0.0, 1e-6);
  EXPECT_EQ(c.coords[2], 0.0);
  EXPECT_EQ(c.coords[3], 0.0);
  EXPECT_NEAR(c.coords[4], -3339584.723798, 1e-6);
}

TEST(AzimuthalEquidistant, PolarCentreMeasuresAlongTheMeridian) {
  // The distance from the north pole is the quarter meridian less the arc
  // to the point: the kernel's meridian arc, not its rectifying series.
  for (double lat : {89.0, 45.0, 0.0, -60.0}) {
    call c = run_fn(gx_azimuthal_equidistant_forward, kWgs84A, kWgs84E2,
                    {{GX_PARM_LATITUDE_OF_ORIGIN, 90}}, radians({0, lat}));
    EXPECT_NEAR(-c.coords[1], gx_q90(kWgs84A, kWgs84E2) - gx_q(kWgs84A, kWgs84E2, lat * kDeg),
                1e-6);
  }
}

TEST(AzimuthalEquidistant, ObliqueEllipsoidKeepsGeodesicDistanceAndAzimuth) {
  std::vector<Parameter> parms = {{GX_PARM_CENTRAL_MERIDIAN, 30},
                                  {GX_PARM_LATITUDE_OF_ORIGIN, -20}};
  call c = run_fn(gx_azimuthal_equidistant_forward, kWgs84A, kWgs84E2, parms, radians({75, 35}));
  // GeographicLib's GeodSolve -i -p 9 with "-20 30 35 75": azimuth
  // 38.32763539582371 degrees, distance 7723609.797560531 m.
  EXPECT_NEAR(std::hypot(c.coords[0], c.coords[1]), 7723609.797560531, 1e-4);
  EXPECT_NEAR(std::atan2(c.coords[0], c.coords[1]) / kDeg, 38.32763539582371, 1e-9);
}

// ---- Two_Point_Equidistant ----------------------------------------------------------

const std::vector<Parameter> kTwoPoints = {{GX_PARM_STANDARD_PARALLEL_1, 40},
                                           {GX_PARM_LONGITUDE_OF_1ST_POINT, -100},
                                           {GX_PARM_STANDARD_PARALLEL_2, 10},
                                           {GX_PARM_LONGITUDE_OF_2ND_POINT, -60}};

// From PROJ 9.1.1 (proj +proj=tpeqd +lat_1=40 +lon_1=-100 +lat_2=10 +lon_2=-60
// +R=6371000): points left of the line from point 1 to point 2 at positive
// y.  The two points lie on the x axis (PROJ's own y for them is 0.1 m).
const std::vector<Reference> kTwoPointReferences = {
    {-100, 40, -2580125.796498, 0.0},
    {-60, 10, 2580125.796498, 0.0},
    {-80, 25, -96707.036488, -278129.191214},
    {-90, 0, 829636.164286, -3030638.298902},
    {-70, 50, -1351928.761318, 2274048.985087},
    {20, 60, -1349777.922954, 7526135.197516},
    {-100, -40, 3031482.480473, -6902278.428125},
};

TEST(TwoPointEquidistant, MatchesProjBothWays) {
  for (const Reference& r : kTwoPointReferences) {
    call c = run_fn(gx_two_point_equidistant_forward, kSphereR, 0.0, kTwoPoints,
                    radians({r.lon, r.lat}));
    EXPECT_EQ(c.result, 1);
    EXPECT_NEAR(c.coords[0], r.x, 1e-6) << r.lon << ", " << r.lat;
    EXPECT_NEAR(c.coords[1], r.y, 1e-6) << r.lon << ", " << r.lat;
    c = run_fn(gx_two_point_equidistant_inverse, kSphereR, 0.0, kTwoPoints, {r.x, r.y});
    EXPECT_EQ(c.result, 1);
    EXPECT_NEAR(std::remainder(c.coords[0] / kDeg - r.lon, 360.0), 0.0, 1e-7);
    EXPECT_NEAR(c.coords[1] / kDeg, r.lat, 1e-7);
  }
}

TEST(TwoPointEquidistant, RoundTripsOverTheSphere) {
  // Forward then inverse gives every point back, on both sides of the line.
  // Near the line the inverse takes acos of a ratio that is 1 up to
  // rounding, which costs it about 1e-8 radian (some centimetres) there.
  for (double lat = -80; lat <= 80; lat += 10) {
    for (double lon = -175; lon <= 180; lon += 15) {
      std::vector<double> point = radians({lon, lat});
      call fwd = run_fn(gx_two_point_equidistant_forward, kSphereR, 0.0, kTwoPoints, point);
      call back = run_fn(gx_two_point_equidistant_inverse, kSphereR, 0.0, kTwoPoints, fwd.coords);
      double tolerance = std::fabs(fwd.coords[1]) > 1e5 ? 1e-11 : 1e-7;
      EXPECT_NEAR(gx_delta(back.coords[0] - point[0]) * std::cos(point[1]), 0.0, tolerance)
          << lon << ", " << lat;
      EXPECT_NEAR(back.coords[1], point[1], tolerance) << lon << ", " << lat;
    }
  }
}

TEST(TwoPointEquidistant, CoincidentPointsAreAzimuthalEquidistant) {
  std::vector<Parameter> one_point = {{GX_PARM_STANDARD_PARALLEL_1, 40},
                                      {GX_PARM_LONGITUDE_OF_1ST_POINT, -100},
                                      {GX_PARM_STANDARD_PARALLEL_2, 40},
                                      {GX_PARM_LONGITUDE_OF_2ND_POINT, -100}};
  std::vector<Parameter> centre = {{GX_PARM_CENTRAL_MERIDIAN, -100},
                                   {GX_PARM_LATITUDE_OF_ORIGIN, 40}};
  std::vector<double> points = radians({-90, 30, -120, 60, 100, 0});
  // The ellipsoid's e2 is not read: both run on the sphere of radius a.
  call tp = run_fn(gx_two_point_equidistant_forward, kWgs84A, kWgs84E2, one_point, points);
  call aeqd = run_fn(gx_azimuthal_equidistant_forward, kWgs84A, 0.0, centre, points);
  EXPECT_EQ(tp.result, 3);
  expect_same_bits(tp.coords, aeqd.coords);
  call tp_back = run_fn(gx_two_point_equidistant_inverse, kWgs84A, kWgs84E2, one_point, tp.coords);
  call aeqd_back = run_fn(gx_azimuthal_equidistant_inverse, kWgs84A, 0.0, centre, tp.coords);
  expect_same_bits(tp_back.coords, aeqd_back.coords);
}

TEST(TwoPointEquidistant, AntipodalPointsRefuseTheRun) {
  std::vector<Parameter> antipodes = {{GX_PARM_STANDARD_PARALLEL_1, 0},
                                      {GX_PARM_LONGITUDE_OF_1ST_POINT, 0},
                                      {GX_PARM_STANDARD_PARALLEL_2, 0},
                                      {GX_PARM_LONGITUDE_OF_2ND_POINT, 180}};
  for (gx_projection_fn fn : {gx_two_point_equidistant_forward, gx_two_point_equidistant_inverse}) {
    call c = run_fn(fn, kSphereR, 0.0, antipodes, {0.3, 0.4});
    EXPECT_EQ(c.result, 0);
    EXPECT_EQ(c.coords[0], 0.3);
    EXPECT_EQ(c.coords[1], 0.4);
  }
}

TEST(TwoPointEquidistant, SphereOnlyWhateverTheEccentricity) {
  std::vector<double> points = radians({-80, 25, -70, 50, 20, 60});
  call sphere = run_fn(gx_two_point_equidistant_forward, kWgs84A, 0.0, kTwoPoints, points);
  call ellipsoid = run_fn(gx_two_point_equidistant_forward, kWgs84A, kWgs84E2, kTwoPoints, points);
  expect_same_bits(sphere.coords, ellipsoid.coords);
}

TEST(TwoPointEquidistant, EmptyRunTouchesNothing) {
  for (gx_projection_fn fn : {gx_two_point_equidistant_forward, gx_two_point_equidistant_inverse}) {
    call c = run_fn(fn, kSphereR, 0.0, kTwoPoints, {});
    EXPECT_EQ(c.result, 0);
  }
}

// ---- the auxiliary sphere twins -------------------------------------------------------

struct twin_row {
  const char* name;
  gx_projection_fn twin_forward, twin_inverse;
  gx_constants_fn twin_loader;
  gx_projection_fn base_forward, base_inverse;
  int latitude_slot;
  int leading;
};

const twin_row kTwins[] = {
    {"Stereographic", gx_stereographic_auxiliary_sphere_forward,
     gx_stereographic_auxiliary_sphere_inverse, gx_stereographic_auxiliary_sphere_constants,
     gx_stereographic_forward, gx_stereographic_inverse, GX_PARM_LATITUDE_OF_ORIGIN, 3},
    {"Azimuthal_Equidistant", gx_azimuthal_equidistant_auxiliary_sphere_forward,
     gx_azimuthal_equidistant_auxiliary_sphere_inverse,
     gx_azimuthal_equidistant_auxiliary_sphere_constants, gx_azimuthal_equidistant_forward,
     gx_azimuthal_equidistant_inverse, GX_PARM_LATITUDE_OF_ORIGIN, 2},
    {"Lambert_Azimuthal_Equal_Area", gx_lambert_azimuthal_equal_area_auxiliary_sphere_forward,
     gx_lambert_azimuthal_equal_area_auxiliary_sphere_inverse,
     gx_lambert_azimuthal_equal_area_auxiliary_sphere_constants,
     gx_lambert_azimuthal_equal_area_forward, gx_lambert_azimuthal_equal_area_inverse,
     GX_PARM_LATITUDE_OF_ORIGIN, 3},
    {"Orthographic", gx_orthographic_auxiliary_sphere_forward,
     gx_orthographic_auxiliary_sphere_inverse, gx_orthographic_auxiliary_sphere_constants,
     gx_orthographic_forward, gx_orthographic_inverse, GX_PARM_LATITUDE_OF_CENTER, 2},
    {"Gnomonic", gx_gnomonic_auxiliary_sphere_forward, gx_gnomonic_auxiliary_sphere_inverse,
     gx_gnomonic_auxiliary_sphere_constants, gx_gnomonic_forward, gx_gnomonic_inverse,
     GX_PARM_LATITUDE_OF_CENTER, 2},
};

std::vector<Parameter> twin_parms(const twin_row& t, double type) {
  int lon_slot = t.latitude_slot == GX_PARM_LATITUDE_OF_CENTER ? GX_PARM_LONGITUDE_OF_CENTER
                                                               : GX_PARM_CENTRAL_MERIDIAN;
  return {{lon_slot, -100}, {t.latitude_slot, 40}, {GX_PARM_X_SCALE, type}};
}

TEST(AzimuthalTwins, TypeThreeIsTheBaseOnTheAuthalicSphere) {
  const double rq = gx_auth_r(kWgs84A, kWgs84E2);
  std::vector<double> points = radians({-90, 30, -120, 60, -80, 45});
  for (const twin_row& t : kTwins) {
    call twin = run_fn(t.twin_forward, kWgs84A, kWgs84E2, twin_parms(t, 3), points);
    // The base on the sphere of radius Rq, with the centre and the points at
    // their authalic latitudes.
    std::vector<Parameter> base_parms = twin_parms(t, 3);
    base_parms[1].value = gx_phi_to_beta(kWgs84E2, 40 * kDeg) / kDeg;
    std::vector<double> authalic = points;
    for (size_t i = 1; i < authalic.size(); i += 2)
      authalic[i] = gx_phi_to_beta(kWgs84E2, authalic[i]);
    call base = run_fn(t.base_forward, rq, 0.0, base_parms, authalic);
    EXPECT_EQ(twin.result, 3) << t.name;
    for (size_t i = 0; i < points.size(); ++i)
      EXPECT_NEAR(twin.coords[i], base.coords[i], 1e-8) << t.name << " ordinate " << i;
    // And back, to geodetic latitudes.
    call back = run_fn(t.twin_inverse, kWgs84A, kWgs84E2, twin_parms(t, 3), twin.coords);
    for (size_t i = 0; i < points.size(); ++i)
      EXPECT_NEAR(back.coords[i], points[i], 1e-12) << t.name << " ordinate " << i;
  }
}

TEST(AzimuthalTwins, TypesZeroToTwoChooseTheRadius) {
  const double radii[] = {kWgs84A, std::sqrt(1.0 - kWgs84E2) * kWgs84A,
                          gx_auth_r(kWgs84A, kWgs84E2)};
  std::vector<double> points = radians({-90, 30, -120, 60});
  for (const twin_row& t : kTwins) {
    for (int type = 0; type < 3; ++type) {
      call twin = run_fn(t.twin_forward, kWgs84A, kWgs84E2, twin_parms(t, type), points);
      call base = run_fn(t.base_forward, radii[type], 0.0, twin_parms(t, type), points);
      expect_same_bits(twin.coords, base.coords);
    }
  }
}

TEST(AzimuthalTwins, OnASphereTheTwinIsItsBase) {
  std::vector<double> points = radians({-90, 30, -120, 60});
  for (const twin_row& t : kTwins) {
    call twin = run_fn(t.twin_forward, kSphereR, 0.0, twin_parms(t, 3), points);
    call base = run_fn(t.base_forward, kSphereR, 0.0, twin_parms(t, 3), points);
    expect_same_bits(twin.coords, base.coords);
  }
}

TEST(AzimuthalTwins, LoaderKeepsTheBaseSphereConstantsThenTheTable) {
  for (const twin_row& t : kTwins) {
    for (auto [e2, type, count] : {std::tuple{kWgs84E2, 3.0, t.leading + 18},
                                   {kWgs84E2, 0.0, t.leading},
                                   {kWgs84E2, 1.0, t.leading},
                                   {0.0, 3.0, t.leading}}) {
      gx_constants* block = gx_constants_new();
      double sphere[2] = {kWgs84A, e2};
      double v[GX_PARM_COUNT];
      build_parms(twin_parms(t, type), v);
      EXPECT_EQ(t.twin_loader(block, sphere, v), count) << t.name << " type " << type;
      gx_constants_del(block);
    }
  }
}

}  // namespace
