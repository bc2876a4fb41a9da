// Geodetic and Cartesian coordinates.  Cartesian values on WGS 84 from
// GeographicLib's CartConvert -p 9 (the forward conversion is exact up to
// rounding, so they hold to a few nanometres).
#include <gtest/gtest.h>

#include <cmath>

#include "geodesy/ellipsoid.h"
#include "geodesy/wgs84.h"

using namespace gx_test;

namespace {

struct CartCase {
  double lat_deg, lon_deg, h, x, y, z;
};

constexpr CartCase kCartConvert[] = {
    {45.0, 10.0, 1000.0, 4449654.886667983, 784594.211360832, 4488055.515647106},
    {-33.5, -70.25, -250.0, 1799021.671756276, -5010690.380719062, -3500196.303776028},
    {0.0, -90.0, 0.0, 0.0, -6378137.0, 0.0},
    {89.9999, 179.0, 8000.0, -11.181657310, 0.195176554, 6364752.314235420},
    {-60.0, 120.0, 20000.0, -1603552.293461973, 2777434.044869736, -5517797.642014328},
};

TEST(Cartesian, ForwardAgreesWithCartConvert) {
  for (const CartCase& c : kCartConvert) {
    double x, y, z;
    gx_curv_to_cart(kWgs84A, kWgs84E2, c.lat_deg * kDegree, c.lon_deg * kDegree, c.h, &x, &y, &z);
    EXPECT_NEAR(x, c.x, 5e-9) << c.lat_deg;
    EXPECT_NEAR(y, c.y, 5e-9) << c.lat_deg;
    EXPECT_NEAR(z, c.z, 5e-9) << c.lat_deg;
  }
}

TEST(Cartesian, InverseAgreesWithCartConvert) {
  for (const CartCase& c : kCartConvert) {
    double phi, lambda, h;
    gx_cart_to_curv(kWgs84A, kWgs84E2, c.x, c.y, c.z, &phi, &lambda, &h);
    EXPECT_NEAR(phi, c.lat_deg * kDegree, 1e-14) << c.lat_deg;
    // The printed x and y carry nanometres: near the axis that bounds lambda.
    double p = std::hypot(c.x, c.y);
    EXPECT_NEAR(lambda, c.lon_deg * kDegree, 1e-14 + 1e-9 / p) << c.lat_deg;
    EXPECT_NEAR(h, c.h, 1e-8) << c.lat_deg;
  }
}

TEST(Cartesian, RoundTripAtAnyHeight) {
  // Two Bowring passes: measured on WGS 84, the latitude comes back within
  // 4e-16 radian from 1000 km below the surface to geostationary height, and
  // within 6.1e-9 radian 6000 km below; heights within 15 nanometres.
  for (double h : {-6000e3, -1000e3, -5000.0, 0.0, 3000.0, 9000.0, 400e3, 36000e3}) {
    double tolerance = h < -1000e3 ? 1e-8 : 1e-15;
    for (double deg = -90.0; deg <= 90.0; deg += 2.5) {
      double x, y, z, phi, lambda, back_h;
      double lon = (deg * 3.0 - 100.0) * kDegree;
      gx_curv_to_cart(kWgs84A, kWgs84E2, deg * kDegree, lon, h, &x, &y, &z);
      gx_cart_to_curv(kWgs84A, kWgs84E2, x, y, z, &phi, &lambda, &back_h);
      EXPECT_NEAR(phi, deg * kDegree, tolerance) << deg << " " << h;
      EXPECT_NEAR(back_h, h, 2e-8) << deg << " " << h;
      if (std::fabs(deg) < 90.0) {
        EXPECT_NEAR(lambda, gx_delta(lon), 1e-15) << deg;
      }
    }
  }
}

TEST(Cartesian, PolarAxisAndCentre) {
  double b = std::sqrt(1.0 - kWgs84E2) * kWgs84A;
  double phi, lambda, h;
  gx_cart_to_curv(kWgs84A, kWgs84E2, 0.0, 0.0, 0.0, &phi, &lambda, &h);
  EXPECT_EQ(phi, GX_HALFPI);
  EXPECT_EQ(lambda, 0.0);
  EXPECT_EQ(h, -b);
  gx_cart_to_curv(kWgs84A, kWgs84E2, 0.0, 0.0, -6400000.0, &phi, &lambda, &h);
  EXPECT_EQ(phi, -GX_HALFPI);
  EXPECT_EQ(lambda, 0.0);
  EXPECT_EQ(h, 6400000.0 - b);
  // Within the tolerance of the axis counts as on it.
  gx_cart_to_curv(kWgs84A, kWgs84E2, 1e-15, 0.0, 6400000.0, &phi, &lambda, &h);
  EXPECT_EQ(phi, GX_HALFPI);
}

TEST(Cartesian, EquatorAndSphere) {
  double phi, lambda, h;
  gx_cart_to_curv(kWgs84A, kWgs84E2, 0.0, -7000000.0, 0.0, &phi, &lambda, &h);
  EXPECT_EQ(phi, 0.0);
  EXPECT_EQ(lambda, -GX_HALFPI);
  EXPECT_NEAR(h, 7000000.0 - kWgs84A, 1e-9);
  // On a sphere the result is the spherical one.
  gx_cart_to_curv(1000.0, 0.0, 300.0, 400.0, 1200.0, &phi, &lambda, &h);
  EXPECT_NEAR(phi, std::atan2(1200.0, 500.0), 1e-15);
  EXPECT_NEAR(lambda, std::atan2(400.0, 300.0), 1e-15);
  EXPECT_NEAR(h, 300.0, 1e-12);
}

TEST(Cartesian, PointNearTheCentreFoldsItsLatitude) {
  // Inside the evolute the atan2 of Bowring's formula can leave +-pi/2; the
  // fold brings it back.
  double phi, lambda, h;
  gx_cart_to_curv(kWgs84A, kWgs84E2, 1000.0, 0.0, -1.0, &phi, &lambda, &h);
  EXPECT_LE(std::fabs(phi), GX_HALFPI);
  EXPECT_TRUE(std::isfinite(h));
}

}  // namespace
