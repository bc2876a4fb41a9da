// Geodesics against GeographicLib's GeodSolve (exact to nanometres): 3000
// random WGS 84 lines in data/geodsolve_lines.inc, made by
// data/make_geodsolve_lines.py, plus the pole, equator and sphere rules.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "geodesy/ellipsoid.h"
#include "geodesy/geodesic.h"
#include "geodesy/wgs84.h"

using namespace gx_test;

namespace {

struct Line {
  double lat1, lon1, lat2, lon2, s12, azi1, azi2;  // degrees, metres; azi2 forward at 2
};

const Line kLines[] = {
#include "geodesy/data/geodsolve_lines.inc"
};

// How far, in degrees of arc on the sphere, point 2 lies from the antipode
// of point 1.
double antipodal_gap(const Line& l) {
  double p1 = l.lat1 * kDegree, p2 = l.lat2 * kDegree, dl = (l.lon2 - l.lon1) * kDegree;
  double c = std::sin(p1) * std::sin(p2) + std::cos(p1) * std::cos(p2) * std::cos(dl);
  return 180.0 - std::acos(std::fmax(-1.0, std::fmin(1.0, c))) / kDegree;
}

struct Solved {
  double distance, azimuth12, azimuth21;
};

Solved solve(const Line& l) {
  Solved s;
  gx_geodesic_distance(kWgs84A, kWgs84E2, l.lon1 * kDegree, l.lat1 * kDegree, l.lon2 * kDegree,
                       l.lat2 * kDegree, &s.distance, &s.azimuth12, &s.azimuth21);
  return s;
}

// azimuth21 is the azimuth back towards point 1: GeodSolve's azi2 turned round.
double back_azimuth(const Line& l) { return gx_delta(l.azi2 * kDegree + GX_PI); }

TEST(GeodesicLines, InverseAwayFromAntipodes) {
  // Measured over the lines at least 1 degree from the antipode: distance
  // within 0.076 mm, azimuths within 0.55 nanoradian.
  int checked = 0;
  for (const Line& l : kLines) {
    if (antipodal_gap(l) < 1.0) continue;
    ++checked;
    Solved s = solve(l);
    EXPECT_NEAR(s.distance, l.s12, 1e-4) << l.lat1 << " " << l.lon1 << " " << l.lat2 << " " << l.lon2;
    EXPECT_NEAR(gx_delta(s.azimuth12 - l.azi1 * kDegree), 0.0, 2e-9) << l.lat1 << " " << l.lon1;
    EXPECT_NEAR(gx_delta(s.azimuth21 - back_azimuth(l)), 0.0, 2e-9) << l.lat2 << " " << l.lon2;
  }
  EXPECT_GT(checked, 2500);
}

TEST(GeodesicLines, InverseNearAntipodes) {
  // Within 1 degree of the antipode Vincenty's iteration on lambda may
  // oscillate between two values until its cap of 5001 passes, and the
  // antipodal iteration stops after 71 passes, often before it has settled.
  // Where it has settled (azimuth right to 1e-9), its distance still differs
  // from GeodSolve, by up to 39 km, through its first correction term (the
  // polynomial in u^2 scaled by 0.25; a scale of 1/2048 would bring these
  // lines within 3 cm).  Measured over the 431 such lines here: 345 within
  // 0.1 mm, 61 settled but off in distance, 25 unsettled; the worst 50.5 km
  // off in distance and 0.72 rad in azimuth.  This test keeps those bounds
  // and that every result is a number.
  int near = 0, exact = 0;
  for (const Line& l : kLines) {
    if (antipodal_gap(l) >= 1.0) continue;
    ++near;
    Solved s = solve(l);
    ASSERT_TRUE(std::isfinite(s.distance) && std::isfinite(s.azimuth12) && std::isfinite(s.azimuth21));
    EXPECT_NEAR(s.distance, l.s12, 51e3);
    EXPECT_NEAR(gx_delta(s.azimuth12 - l.azi1 * kDegree), 0.0, 0.75);
    if (std::fabs(s.distance - l.s12) <= 1e-4) ++exact;
  }
  EXPECT_GT(near, 400);
  EXPECT_GE(exact, near * 3 / 4);
}

TEST(GeodesicLines, DirectReachesTheEndPoint) {
  // The direct solution has no antipodal weakness: every line ends within
  // 1.5e-11 radian (0.1 mm) of GeodSolve's end point.
  for (const Line& l : kLines) {
    double lambda2, phi2;
    gx_geodesic_coordinate(kWgs84A, kWgs84E2, l.lon1 * kDegree, l.lat1 * kDegree, l.s12, l.azi1 * kDegree,
                           &lambda2, &phi2);
    EXPECT_NEAR(phi2, l.lat2 * kDegree, 3e-11) << l.lat1 << " " << l.lon1 << " " << l.azi1;
    EXPECT_NEAR(gx_delta(lambda2 - l.lon2 * kDegree) * std::cos(phi2), 0.0, 3e-11) << l.lat1 << " " << l.lon1;
  }
}

// ---- fixed cases ---------------------------------------------------------------

void distance_of(double a, double e2, double lon1, double lat1, double lon2, double lat2, Solved* s) {
  gx_geodesic_distance(a, e2, lon1 * kDegree, lat1 * kDegree, lon2 * kDegree, lat2 * kDegree, &s->distance,
                       &s->azimuth12, &s->azimuth21);
}

TEST(Geodesic, SamePointAndSamePoleGiveZeros) {
  Solved s{-1.0, -1.0, -1.0};
  distance_of(kWgs84A, kWgs84E2, 12.0, 34.0, 12.0, 34.0, &s);
  EXPECT_EQ(s.distance, 0.0);
  EXPECT_EQ(s.azimuth12, 0.0);
  EXPECT_EQ(s.azimuth21, 0.0);
  s = Solved{-1.0, -1.0, -1.0};
  distance_of(kWgs84A, kWgs84E2, 12.0, -90.0, -150.0, -90.0, &s);
  EXPECT_EQ(s.distance, 0.0);
  EXPECT_EQ(s.azimuth12, 0.0);
  EXPECT_EQ(s.azimuth21, 0.0);
  // A full turn of longitude apart is the same point.
  s = Solved{-1.0, -1.0, -1.0};
  gx_geodesic_distance(kWgs84A, kWgs84E2, -GX_PI, 0.3, GX_PI, 0.3, &s.distance, &s.azimuth12, &s.azimuth21);
  EXPECT_EQ(s.distance, 0.0);
}

TEST(Geodesic, EquatorialAntipodesTakeTheAntipodalPath) {
  // Distance A b pi with u^2 = e'^2: twice the quarter meridian.  GeodSolve
  // gives 20003931.458625447 m.
  double b = kWgs84A * (1.0 - kWgs84F);
  double u2 = kWgs84E2 / (1.0 - kWgs84E2);
  double A = 1.0 + ((((320.0 - 175.0 * u2) * u2 - 768.0) * u2) + 4096.0) * u2 * 6.103515625e-05;
  Solved s;
  distance_of(kWgs84A, kWgs84E2, 10.0, 0.0, -170.0, 0.0, &s);
  EXPECT_EQ(s.distance, A * b * GX_PI);
  EXPECT_NEAR(s.distance, 20003931.458625447, 1e-5);
  EXPECT_EQ(s.azimuth12, 0.0);
  EXPECT_EQ(s.azimuth21, 0.0);
  distance_of(kWgs84A, kWgs84E2, 30.0, -45.0, -150.0, 45.0, &s);
  EXPECT_NEAR(s.distance, 20003931.458625447, 1e-5);
}

TEST(Geodesic, PoleTakesItsAzimuthFromTheOtherLongitude) {
  // From a pole: the destination's longitude in the south, pi minus it in
  // the north; the same rule at a pole of arrival with the start's longitude.
  // Distances from GeodSolve.
  Solved s;
  distance_of(kWgs84A, kWgs84E2, 0.0, 90.0, 30.0, -10.0, &s);
  EXPECT_NEAR(s.distance, 11107820.562547095, 1e-4);
  EXPECT_NEAR(s.azimuth12, 150.0 * kDegree, 1e-15);
  distance_of(kWgs84A, kWgs84E2, 0.0, -90.0, 30.0, -10.0, &s);
  EXPECT_NEAR(s.distance, 8896110.896078352, 1e-4);
  EXPECT_NEAR(s.azimuth12, 30.0 * kDegree, 1e-15);
  distance_of(kWgs84A, kWgs84E2, 30.0, -10.0, 0.0, 90.0, &s);
  EXPECT_NEAR(s.azimuth21, 150.0 * kDegree, 1e-15);
  EXPECT_NEAR(s.azimuth12, 0.0, 1e-15);
  distance_of(kWgs84A, kWgs84E2, 30.0, -10.0, 45.0, -90.0, &s);
  EXPECT_NEAR(s.azimuth21, 30.0 * kDegree, 1e-15);
  EXPECT_NEAR(s.azimuth12, GX_PI, 1e-15);
}

TEST(Geodesic, NullResultsAreAllowed) {
  double distance = -1.0, azimuth = -1.0;
  gx_geodesic_distance(kWgs84A, kWgs84E2, 0.1, 0.2, 0.3, 0.4, &distance, nullptr, nullptr);
  Solved full;
  gx_geodesic_distance(kWgs84A, kWgs84E2, 0.1, 0.2, 0.3, 0.4, &full.distance, &full.azimuth12, &full.azimuth21);
  EXPECT_EQ(distance, full.distance);
  gx_geodesic_distance(kWgs84A, kWgs84E2, 0.1, 0.2, 0.3, 0.4, nullptr, nullptr, &azimuth);
  EXPECT_EQ(azimuth, full.azimuth21);
  gx_geodesic_distance(kWgs84A, kWgs84E2, 0.1, 0.2, 0.3, 0.4, nullptr, nullptr, nullptr);
  gx_geodesic_distance(kWgs84A, 0.0, 0.1, 0.2, 0.3, 0.4, nullptr, &azimuth, nullptr);
  gx_geodesic_distance(kWgs84A, kWgs84E2, 0.0, 0.0, GX_PI, 0.0, nullptr, &azimuth, nullptr);
  double lambda = -1.0;
  gx_geodesic_coordinate(kWgs84A, kWgs84E2, 0.1, 0.2, 1e6, 0.5, &lambda, nullptr);
  EXPECT_TRUE(std::isfinite(lambda));
  gx_geodesic_coordinate(kWgs84A, kWgs84E2, 0.1, 0.2, 1e6, 0.5, nullptr, nullptr);
}

TEST(Geodesic, DirectWithNoDistanceStaysPut) {
  for (double e2 : {0.0, kWgs84E2}) {
    double lambda2, phi2;
    gx_geodesic_coordinate(kWgs84A, e2, 0.7, -0.4, 0.0, 2.0, &lambda2, &phi2);
    EXPECT_NEAR(lambda2, 0.7, 1e-15);
    EXPECT_NEAR(phi2, -0.4, 1e-15);
  }
}

TEST(Geodesic, DirectFromAPoleIgnoresItsLongitude) {
  double lambda2, phi2;
  gx_geodesic_coordinate(kWgs84A, kWgs84E2, 1.0, GX_HALFPI, 1e6, 2.0, &lambda2, &phi2);
  double again_lambda, again_phi;
  gx_geodesic_coordinate(kWgs84A, kWgs84E2, -2.5, GX_HALFPI, 1e6, 2.0, &again_lambda, &again_phi);
  EXPECT_EQ(lambda2, again_lambda);
  EXPECT_EQ(phi2, again_phi);
  // Heading 2 rad from the north pole is longitude pi - 2.
  EXPECT_NEAR(lambda2, GX_PI - 2.0, 1e-12);
}

TEST(Geodesic, EquatorialLines) {
  // Along the equator the direct solution is exact: a distance s moves the
  // longitude by s / a.
  double lambda2, phi2;
  gx_geodesic_coordinate(kWgs84A, kWgs84E2, 0.0, 0.0, 1e6, GX_HALFPI, &lambda2, &phi2);
  EXPECT_NEAR(lambda2, 1e6 / kWgs84A, 1e-15);
  EXPECT_EQ(phi2, 0.0);
  // The inverse along the equator, both ways, and a hair off it, where
  // sin(alpha) rounds to 1 and cos^2(alpha) is the square of cos(asin(1)):
  // finite, against GeographicLib's GeodSolve (azi2 there is the forward
  // azimuth at point 2; azimuth21 here points back).
  const Line lines[] = {
      {0, 0, 0, 10, 1113194.9079327357, 90, 90},
      {0, 10, 0, 0, 1113194.9079327357, -90, -90},
      {0, 0, 0, 0.001, 111.3194907933, 90, 90},
      {0, -170, 0, 100, 10018754.1713946220, -90, -90},
      {0, 0, 0, 179, 19926188.8519959711, 90, 90},
      {0, 0, 1e-9, 10, 1113194.9079327357, 89.999999994279591, 89.999999994367073},
      {0, 0, 1e-12, 10, 1113194.9079327357, 89.999999999994273, 89.999999999994373},
      {-1e-9, 0, 0, 90, 10018754.1713946201, 90.000000000005272, 89.999999999003336},
      {0, 0, 1e-6, 10, 1113194.9079327411, 89.999994279584783, 89.999994367074947},
  };
  for (const Line& l : lines) {
    Solved s = solve(l);
    EXPECT_NEAR(s.distance, l.s12, 2e-4 + 2e-11 * l.s12) << l.lon2;
    EXPECT_NEAR(s.azimuth12, l.azi1 * kDegree, 1e-9) << l.lon2;
    EXPECT_NEAR(gx_delta(s.azimuth21 + GX_PI), l.azi2 * kDegree, 1e-9) << l.lon2;
  }
}

TEST(Geodesic, NaNInputsReturn) {
  Solved s;
  gx_geodesic_distance(kWgs84A, kWgs84E2, NAN, 0.1, 0.2, 0.3, &s.distance, &s.azimuth12, &s.azimuth21);
  EXPECT_TRUE(std::isnan(s.distance));
  double lambda2, phi2;
  gx_geodesic_coordinate(kWgs84A, kWgs84E2, 0.1, 0.2, NAN, 0.3, &lambda2, &phi2);
  EXPECT_TRUE(std::isnan(phi2));
}

TEST(Geodesic, ExactAntipodesHaveAzimuths) {
  // The antipodal iteration starts from acos(sin U1 sin U2 - cos U1 cos U2),
  // which rounding can carry just below -1 for exact antipodes; the arc is
  // then pi, and every latitude gets numbers, not NaN.
  for (int i = 1; i < 2000; ++i) {
    double phi = i * (GX_HALFPI / 2000.0);
    for (double e2 : {kWgs84E2, 1e-10}) {
      Solved s;
      gx_geodesic_distance(kWgs84A, e2, 0.3, phi, 0.3 + GX_PI, -phi, &s.distance, &s.azimuth12, &s.azimuth21);
      ASSERT_TRUE(std::isfinite(s.distance) && std::isfinite(s.azimuth12) && std::isfinite(s.azimuth21))
          << phi << " " << e2;
    }
  }
}

// ---- many geodesics from one origin ------------------------------------------------

bool same_bits(double x, double y) { return std::memcmp(&x, &y, sizeof x) == 0; }

// Latitudes and longitudes, radians, of the starts and ends below: poles,
// the equator, points a hair off both, a latitude past a pole, NaN.
const double kLatitudes[] = {-GX_HALFPI, -GX_HALFPI + 1e-15, -1.2, -1e-9, 0.0, 1e-300, 0.4,
                             1.5707963, GX_HALFPI, 2.0, NAN};
const double kLongitudes[] = {-GX_PI, -2.5, -1e-12, 0.0, 0.7, 3.0, GX_PI, 7.0};

TEST(GeodesicOrigin, InverseFromAnOriginIsTheExportedInverse) {
  // One origin serves a whole run: each problem from it gives the bits of
  // gx_geodesic_distance, exact antipodes and the same point included.
  for (double e2 : {kWgs84E2, 0.0, 0.08}) {
    for (double phi1 : kLatitudes) {
      for (double lambda1 : {-1.0, 0.0, 2.9}) {
        gx_geodesic_origin origin = gx_geodesic_origin_of(kWgs84A, e2, lambda1, phi1);
        auto check = [&](double lambda2, double phi2) {
          Solved want, got;
          gx_geodesic_distance(kWgs84A, e2, lambda1, phi1, lambda2, phi2, &want.distance, &want.azimuth12,
                               &want.azimuth21);
          gx_geodesic_distance_from(origin, lambda2, phi2, &got.distance, &got.azimuth12, &got.azimuth21);
          EXPECT_TRUE(same_bits(want.distance, got.distance) && same_bits(want.azimuth12, got.azimuth12) &&
                      same_bits(want.azimuth21, got.azimuth21))
              << e2 << ": " << lambda1 << " " << phi1 << " to " << lambda2 << " " << phi2;
        };
        for (double phi2 : kLatitudes)
          for (double lambda2 : kLongitudes) check(lambda2, phi2);
        check(lambda1 + GX_PI, -phi1);
        check(lambda1 + GX_PI - 0.01, 0.003 - phi1);
        check(lambda1, phi1);
      }
    }
  }
}

TEST(GeodesicOrigin, DirectFromAnOriginIsTheExportedDirect) {
  for (double e2 : {kWgs84E2, 0.0, 0.08}) {
    for (double phi1 : kLatitudes) {
      for (double lambda1 : {-1.0, 0.0, 2.9}) {
        gx_geodesic_origin origin = gx_geodesic_origin_of(kWgs84A, e2, lambda1, phi1);
        for (double distance : {0.0, 1.0, 1e5, 1e7, 2.0004e7, 3e7, -4e6}) {
          for (double azimuth : {-GX_PI, -2.0, 0.0, GX_HALFPI, 3.0, GX_PI, 7.0}) {
            double want_lambda, want_phi, got_lambda, got_phi;
            gx_geodesic_coordinate(kWgs84A, e2, lambda1, phi1, distance, azimuth, &want_lambda, &want_phi);
            gx_geodesic_coordinate_from(origin, distance, azimuth, &got_lambda, &got_phi);
            EXPECT_TRUE(same_bits(want_lambda, got_lambda) && same_bits(want_phi, got_phi))
                << e2 << ": " << lambda1 << " " << phi1 << " " << distance << " " << azimuth;
          }
        }
      }
    }
  }
}

TEST(GeodesicOrigin, DirectTowardADirectionIsTheDirectAtItsAzimuth) {
  // Given the sine and cosine of the azimuth instead of the angle, the end
  // point moves by a unit or two in the last place (measured: 1.6e-15 rad at
  // most, on the flattest body); along the axes, signed zeros included, the
  // sine and cosine are exact and so are the results.
  for (double e2 : {kWgs84E2, 0.0, 0.08}) {
    for (double phi1 : kLatitudes) {
      if (std::isnan(phi1)) continue;
      gx_geodesic_origin origin = gx_geodesic_origin_of(kWgs84A, e2, 0.3, phi1);
      for (int k = 0; k < 40; ++k) {
        double x = std::sin(k * 0.7), y = std::cos(k * 1.3);
        double rho = std::hypot(x, y);
        for (double distance : {0.0, 1.0, 1e5, 1e7, 2.0004e7, 3e7}) {
          double want_lambda, want_phi, got_lambda, got_phi;
          gx_geodesic_coordinate_from(origin, distance, std::atan2(x, y), &want_lambda, &want_phi);
          gx_geodesic_coordinate_toward(origin, distance, x / rho, y / rho, &got_lambda, &got_phi);
          double east = gx_delta(got_lambda - want_lambda) * std::cos(want_phi);
          EXPECT_LT(std::hypot(east, got_phi - want_phi), 4e-15) << e2 << " " << phi1 << " " << k << " " << distance;
        }
      }
      const double axes[][2] = {{0.0, 1.0}, {-0.0, 1.0}, {0.0, -1.0}, {-0.0, -1.0},
                                {1.0, 0.0}, {1.0, -0.0}, {-1.0, 0.0}, {-1.0, -0.0}};
      for (const auto& axis : axes) {
        double want_lambda, want_phi, got_lambda, got_phi;
        gx_geodesic_coordinate_from(origin, 3e6, std::atan2(axis[0], axis[1]), &want_lambda, &want_phi);
        gx_geodesic_coordinate_toward(origin, 3e6, axis[0], axis[1], &got_lambda, &got_phi);
        EXPECT_TRUE(same_bits(want_lambda, got_lambda) && same_bits(want_phi, got_phi))
            << e2 << " " << phi1 << " " << axis[0] << " " << axis[1];
      }
    }
  }
}

// ---- sphere ----------------------------------------------------------------------

TEST(GeodesicSphere, GreatCircles) {
  Solved s;
  gx_geodesic_distance(1.0, 0.0, 0.0, 0.0, GX_HALFPI, 0.0, &s.distance, &s.azimuth12, &s.azimuth21);
  EXPECT_NEAR(s.distance, GX_HALFPI, 1e-15);
  EXPECT_EQ(s.azimuth12, GX_HALFPI);
  EXPECT_EQ(s.azimuth21, -GX_HALFPI);
  gx_geodesic_distance(2.0, 0.0, 0.0, 0.0, GX_PI, 0.0, &s.distance, nullptr, nullptr);
  EXPECT_NEAR(s.distance, GX_TWOPI, 1e-15);
  gx_geodesic_distance(1.0, 0.0, 0.3, -GX_HALFPI, -2.0, 0.5, &s.distance, &s.azimuth12, nullptr);
  EXPECT_NEAR(s.distance, GX_HALFPI + 0.5, 1e-15);
  EXPECT_EQ(s.azimuth12, -2.0);
}

TEST(GeodesicSphere, DirectAndInverseAgree) {
  const double a = 6371000.0;
  for (double lat1 = -80.0; lat1 <= 80.0; lat1 += 20.0) {
    for (double az = -170.0; az <= 180.0; az += 35.0) {
      for (double distance : {1.0, 1e5, 5e6, 1.5e7}) {
        double lambda2, phi2;
        gx_geodesic_coordinate(a, 0.0, 0.4, lat1 * kDegree, distance, az * kDegree, &lambda2, &phi2);
        Solved s;
        gx_geodesic_distance(a, 0.0, 0.4, lat1 * kDegree, lambda2, phi2, &s.distance, &s.azimuth12, nullptr);
        EXPECT_NEAR(s.distance, distance, 1e-8 * (1.0 + distance / 1e6)) << lat1 << " " << az << " " << distance;
        // Short lines lose azimuth digits to cancellation: about 1e-16 a / s.
        double tolerance = 1e-15 * a / distance + 1e-12;
        EXPECT_NEAR(gx_delta(s.azimuth12 - az * kDegree), 0.0, tolerance) << lat1 << " " << az << " " << distance;
      }
    }
  }
}

TEST(GeodesicSphere, HalfTurnFromAPole) {
  // Half a great circle from a pole reaches the other pole; its longitude is
  // the azimuth from the south pole and pi minus it from the north pole.
  double lambda2, phi2;
  gx_geodesic_coordinate(1.0, 0.0, 0.0, -GX_HALFPI, GX_PI, 0.5, &lambda2, &phi2);
  EXPECT_EQ(lambda2, 0.5);
  EXPECT_NEAR(phi2, GX_HALFPI, 1e-15);
  gx_geodesic_coordinate(1.0, 0.0, 0.0, GX_HALFPI, GX_PI, 0.5, &lambda2, &phi2);
  EXPECT_EQ(lambda2, GX_PI - 0.5);
  EXPECT_NEAR(phi2, -GX_HALFPI, 1e-15);
}

}  // namespace
