// The azimuthal family at its edges: centres on or near a pole, antipodes,
// rejected points and how they count, refused runs, and the projections that
// hand a run on to another.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "projections/azimuthal.h"
#include "projections/projection_case.h"

using namespace gx_test;

namespace {

// A call of one function on a sphere pair, a parameter list and points given
// in degrees (forward) or metres (inverse); keeps the result and the pairs.
struct call {
  int32_t result = 0;
  std::vector<double> coords;
};

call run_fn(gx_projection_fn fn, double a, double e2, const std::vector<parm>& parms,
            std::vector<double> coords, const double* doubles = nullptr) {
  double sphere[2] = {a, e2};
  parm_vector v = make_parms(parms);
  call c;
  c.result = fn(sphere, v.data(), static_cast<int32_t>(coords.size() / 2), coords.data(), nullptr,
                doubles);
  c.coords = coords;
  return c;
}

std::vector<double> radians(std::vector<double> degrees) {
  for (double& d : degrees) d *= kDeg;
  return degrees;
}

void expect_same_bits(const std::vector<double>& a, const std::vector<double>& b) {
  ASSERT_EQ(a.size(), b.size());
  for (size_t i = 0; i < a.size(); ++i) EXPECT_TRUE(same_bits(a[i], b[i])) << "ordinate " << i;
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
    std::vector<parm> parms = {{GX_PARM_CENTRAL_MERIDIAN, 170}, {GX_PARM_LATITUDE_OF_ORIGIN, 30}};
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
  std::vector<parm> parms = {{GX_PARM_CENTRAL_MERIDIAN, 12},
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
  parm_vector v = make_parms(parms);
  EXPECT_EQ(gx_double_stereographic_constants(block, sphere, v.data()), 0);
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
  std::vector<parm> parms = {};
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
  std::vector<parm> parms = {{GX_PARM_LATITUDE_OF_ORIGIN, 90}};
  call fwd =
      run_fn(gx_double_stereographic_forward, kWgs84A, kWgs84E2, parms, radians({179.999, 60}));
  call back = run_fn(gx_double_stereographic_inverse, kWgs84A, kWgs84E2, parms, fwd.coords);
  EXPECT_NEAR(back.coords[0] / kDeg, 179.999, 1e-9);
}

TEST(DoubleStereographic, PolesMapToTheGaussianPoles) {
  std::vector<parm> parms = {{GX_PARM_LATITUDE_OF_ORIGIN, 52}};
  call north = run_fn(gx_double_stereographic_forward, kWgs84A, kWgs84E2, parms, radians({40, 90}));
  call back = run_fn(gx_double_stereographic_inverse, kWgs84A, kWgs84E2, parms, north.coords);
  EXPECT_NEAR(back.coords[1], GX_HALFPI, 1e-12);
  EXPECT_NEAR(north.coords[0], 0.0, 1e-6);
}

}  // namespace
