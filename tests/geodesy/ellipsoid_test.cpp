// Angles, the tolerance, radii and the meridian arc.  Reference values come
// from tests/geodesy/data/reference_values.py (mpmath at 40 digits, arcs by
// quadrature of the meridian radius), cross-checked with GeodSolve -i.
#include <gtest/gtest.h>

#include <cmath>

#include "geodesy/ellipsoid.h"
#include "geodesy/wgs84.h"

using namespace gx_test;

namespace {

TEST(Delta, KeepsBothEndsOfTheRange) {
  EXPECT_EQ(gx_delta(GX_PI), GX_PI);
  EXPECT_EQ(gx_delta(-GX_PI), -GX_PI);
  EXPECT_EQ(gx_delta(0.0), 0.0);
  EXPECT_EQ(gx_delta(1.0), 1.0);
}

TEST(Delta, WrapsByWholeTurns) {
  EXPECT_NEAR(gx_delta(GX_PI + 0.5), -GX_PI + 0.5, 1e-15);
  EXPECT_NEAR(gx_delta(-GX_PI - 0.5), GX_PI - 0.5, 1e-15);
  EXPECT_NEAR(gx_delta(7.0 * GX_TWOPI + 0.25), 0.25, 1e-13);
  EXPECT_NEAR(gx_delta(-7.0 * GX_TWOPI - 0.25), -0.25, 1e-13);
  // Three half turns: the fmod leaves a magnitude of pi (its sign is that of
  // the rounding), never zero.
  EXPECT_NEAR(std::fabs(gx_delta(3.0 * GX_PI)), GX_PI, 1e-15);
  EXPECT_NEAR(std::fabs(gx_delta(-3.0 * GX_PI)), GX_PI, 1e-15);
}

TEST(Delta, PassesNaN) { EXPECT_TRUE(std::isnan(gx_delta(NAN))); }

TEST(DeltaCenter, WrapsAroundTheCenter) {
  EXPECT_EQ(gx_delta_center(3.0, 3.0), 3.0);
  EXPECT_NEAR(gx_delta_center(-3.0, 3.0), -3.0 + GX_TWOPI, 1e-15);
  EXPECT_NEAR(gx_delta_center(10.0, 3.0), 10.0 - GX_TWOPI, 1e-14);
  EXPECT_NEAR(gx_delta_center(0.5, -2.0), 0.5, 1e-15);
  EXPECT_NEAR(gx_delta_center(2.0, -2.0), 2.0 - GX_TWOPI, 1e-15);
  EXPECT_EQ(gx_delta_center(1.0 + GX_PI, 1.0), 1.0 + GX_PI);
}

TEST(Eq, AbsoluteNearZeroRelativeFarOut) {
  EXPECT_EQ(gx_eq(0.0, 1e-15), 1);
  EXPECT_EQ(gx_eq(0.0, 1e-14), 0);
  EXPECT_EQ(gx_eq(1e6, 1e6 + 1e-9), 1);
  EXPECT_EQ(gx_eq(1e6, 1e6 + 1e-8), 0);
  // The latitude that stands in for a pole still counts as the pole.
  EXPECT_EQ(gx_eq(GX_HALFPI, GX_HALFPI_CLAMP), 1);
  EXPECT_EQ(gx_eq(GX_HALFPI, 1.57079632679488), 0);
  EXPECT_EQ(gx_eq(-2.0, -2.0), 1);
  EXPECT_EQ(gx_eq(NAN, NAN), 0);
}

TEST(Hypot, NoOverflowAndZero) {
  EXPECT_EQ(gx_hypot(0.0, 0.0), 0.0);
  EXPECT_EQ(gx_hypot(3.0, -4.0), 5.0);
  EXPECT_DOUBLE_EQ(gx_hypot(3e200, 4e200), 5e200);
  EXPECT_DOUBLE_EQ(gx_hypot(3e-200, 4e-200), 5e-200);
  EXPECT_EQ(gx_atan2_safe(0.0, 0.0), 0.0);
  EXPECT_EQ(gx_atan2_safe(-1.0, 0.0), GX_PI);
  EXPECT_EQ(gx_atan2_safe(0.0, 1.0), GX_HALFPI);
}

TEST(Radii, CurvaturesOnWgs84) {
  // Equator: N = a, M = a (1 - e2); pole: N = M = a / sqrt(1 - e2).
  double polar = kWgs84A / std::sqrt(1.0 - kWgs84E2);
  EXPECT_EQ(gx_w(kWgs84E2, 0.0), 1.0);
  EXPECT_EQ(gx_n(kWgs84A, kWgs84E2, 0.0), kWgs84A);
  EXPECT_NEAR(gx_m(kWgs84A, kWgs84E2, 0.0), kWgs84A * (1.0 - kWgs84E2), 1e-8);
  EXPECT_NEAR(gx_n(kWgs84A, kWgs84E2, GX_HALFPI), polar, 1e-8);
  EXPECT_NEAR(gx_m(kWgs84A, kWgs84E2, -GX_HALFPI), polar, 1e-8);
  EXPECT_EQ(gx_m(2.0, 0.0, 1.0), 2.0);
}

TEST(Radii, AuthalicAndRectifying) {
  EXPECT_NEAR(gx_auth_r(kWgs84A, kWgs84E2), 6371007.1809184739, 1e-8);
  EXPECT_NEAR(gx_rect_r(kWgs84A, kWgs84E2), 6367449.1458234153, 1e-8);
  EXPECT_NEAR(gx_auth_r(1.0, 0.1), 0.98283759223552691, 1e-15);
  EXPECT_NEAR(gx_auth_r(1.0, 0.5), 0.90089545457290174, 1e-15);
  // Below the tolerance the body is a sphere and a comes back exactly.
  EXPECT_EQ(gx_auth_r(6e6, 1e-15), 6e6);
  EXPECT_EQ(gx_rect_r(6e6, 1e-15), 6e6);
}

struct ArcCase {
  double e2, a, phi_deg, arc;
};

// Meridian arcs by quadrature; the first rows also agree with GeodSolve -i.
constexpr ArcCase kArcs[] = {
    {kWgs84E2, kWgs84A, 1.0, 110574.3885577988},
    {kWgs84E2, kWgs84A, 30.0, 3320113.3979403829},
    {kWgs84E2, kWgs84A, 45.0, 4984944.3779777435},
    {kWgs84E2, kWgs84A, 60.0, 6654072.8194905117},
    {kWgs84E2, kWgs84A, 89.0, 9890271.864398523},
    {kWgs84E2, kWgs84A, 90.0, 10001965.729312723},
    {GX_SERIES_LIMIT, 1.0, 40.0, 0.69438258757283714},
    {0.1, 1.0, 40.0, 0.64266486101047457},
    {0.5, 1.0, 40.0, 0.39512292662718434},
};

TEST(MeridianArc, AgreesWithQuadratureInBothForms) {
  for (const ArcCase& c : kArcs) {
    double tolerance = c.a == 1.0 ? 1e-15 : 1e-8;
    double phi = c.phi_deg * kDegree;
    EXPECT_NEAR(gx_q(c.a, c.e2, phi), c.arc, tolerance) << c.e2 << " " << c.phi_deg;
    EXPECT_EQ(gx_q(c.a, c.e2, -phi), -gx_q(c.a, c.e2, phi)) << c.e2 << " " << c.phi_deg;
  }
}

TEST(MeridianArc, QuarterMeridian) {
  EXPECT_NEAR(gx_q90(kWgs84A, kWgs84E2), 10001965.729312723, 1e-8);
  EXPECT_NEAR(gx_q90(1.0, GX_SERIES_LIMIT), 1.5680892266400904, 1e-15);
  EXPECT_NEAR(gx_q90(1.0, 0.1), 1.5307576368977632, 1e-15);
  EXPECT_EQ(gx_q90(6e6, 0.0), 6e6 * GX_HALFPI);
  EXPECT_NEAR(gx_q(kWgs84A, kWgs84E2, GX_HALFPI), gx_q90(kWgs84A, kWgs84E2), 1e-8);
}

TEST(MeridianArc, SeriesAndClosedFormMeetAtTheLimit) {
  // At the limit itself the closed form runs, just below it the series; on
  // an Earth-sized body the two differ by far less than a millimetre.
  double below = std::nextafter(GX_SERIES_LIMIT, 0.0);
  for (double deg = -90.0; deg <= 90.0; deg += 7.5) {
    double phi = deg * kDegree;
    EXPECT_NEAR(gx_q(kWgs84A, below, phi), gx_q(kWgs84A, GX_SERIES_LIMIT, phi), 1e-6) << deg;
  }
  EXPECT_NEAR(gx_q90(kWgs84A, below), gx_q90(kWgs84A, GX_SERIES_LIMIT), 1e-6);
}

TEST(MeridianArc, SphereIsTheArcOfACircle) {
  EXPECT_EQ(gx_q(2.0, 0.0, 0.0), 0.0);
  EXPECT_NEAR(gx_q(2.0, 0.0, 0.7), 1.4, 1e-15);
}

TEST(SeriesDevice, HornerFormEqualsTheSumOfSines) {
  const double s[GX_SERIES_TERMS] = {0.3, -0.2, 0.1, 0.05, -0.025, 0.0125, -0.00625};
  double c[GX_SERIES_TERMS];
  gx_series_horner(s, c);
  for (double x = -1.5; x <= 1.5; x += 0.25) {
    double direct = 0.0;
    for (int k = 0; k < GX_SERIES_TERMS; ++k) direct += s[k] * std::sin(2.0 * (k + 1) * x);
    EXPECT_NEAR(gx_series_sum(c, x), direct, 1e-15) << x;
  }
}

}  // namespace
