// Carlson's integrals, Legendre's integrals of the second kind and the AGM.
// Reference values: mpmath elliprf, elliprd and ellipe at 40 digits
// (tests/geodesy/data/reference_values.py).
#include <gtest/gtest.h>

#include <cmath>

#include "geodesy/ellipsoid.h"
#include "geodesy/elliptic.h"

namespace {

TEST(Carlson, AgreesWithMpmath) {
  EXPECT_NEAR(gx_carlson_rf(0.0, 2.0), 1.3110287771460599, 1e-15);
  EXPECT_NEAR(gx_carlson_rd(0.0, 2.0), 1.7972103521033883, 1e-15);
  EXPECT_NEAR(gx_carlson_rf(0.5, 0.25), 1.3701716332668719, 1e-15);
  EXPECT_NEAR(gx_carlson_rd(0.5, 0.25), 1.7470458039471172, 1e-15);
  EXPECT_NEAR(gx_carlson_rf(2.0, 3.0), 0.7269459354689082, 1e-15);
  EXPECT_NEAR(gx_carlson_rd(2.0, 3.0), 0.55911221740544415, 1e-15);
  EXPECT_EQ(gx_carlson_rf(1.0, 1.0), 1.0);
  EXPECT_EQ(gx_carlson_rd(1.0, 1.0), 1.0);
}

TEST(Carlson, DivergentOrNaNArgumentsEndTheLoop) {
  // RF(0, 0, 1) diverges; the duplication never settles and the safety cap
  // ends it.  The value is meaningless but the call returns.
  (void)gx_carlson_rf(0.0, 0.0);
  EXPECT_TRUE(std::isnan(gx_carlson_rf(NAN, 1.0)));
  EXPECT_TRUE(std::isnan(gx_carlson_rd(1.0, NAN)));
}

TEST(EllipticE, CompleteAndIncomplete) {
  EXPECT_NEAR(gx_ellint_e_complete(0.0), GX_HALFPI, 1e-16);
  EXPECT_NEAR(gx_ellint_e_complete(0.5), 1.3506438810476755, 1e-15);
  EXPECT_NEAR(gx_ellint_e_complete(0.99), 1.0159935450252239, 1e-15);
  EXPECT_NEAR(gx_ellint_e(1.2, 0.3), 1.1321933311414645, 1e-15);
  EXPECT_NEAR(gx_ellint_e(-0.7, 0.9), -0.65021716292604434, 1e-15);
  EXPECT_EQ(gx_ellint_e(0.0, 0.5), 0.0);
  EXPECT_NEAR(gx_ellint_e(GX_HALFPI, 0.5), gx_ellint_e_complete(0.5), 1e-15);
}

TEST(Agm, ConvergesToGaussConstant) {
  // agm(1, 1/sqrt 2) = 1 / (sqrt 2 G) with Gauss's constant G.
  double a[GX_AGM_CAPACITY], b[GX_AGM_CAPACITY], c[GX_AGM_CAPACITY];
  a[0] = 1.0;
  b[0] = std::sqrt(0.5);
  int last = gx_agm_sequence(a, b, c, GX_AGM_CAPACITY);
  EXPECT_GT(last, 2);
  EXPECT_LT(last, 8);
  EXPECT_LT(std::fabs(c[last]), GX_EPS);
  EXPECT_GE(std::fabs(c[last - 1]), GX_EPS);
  EXPECT_NEAR(a[last], 0.8472130847939790866, 4e-16);
  EXPECT_NEAR(b[last], 0.8472130847939790866, 4e-16);
}

TEST(Agm, StopsAtTheCapacity) {
  double a[GX_AGM_CAPACITY], b[GX_AGM_CAPACITY], c[GX_AGM_CAPACITY];
  a[0] = NAN;
  b[0] = 1.0;
  EXPECT_EQ(gx_agm_sequence(a, b, c, GX_AGM_CAPACITY), GX_AGM_CAPACITY - 1);
  a[0] = 1.0;
  EXPECT_EQ(gx_agm_sequence(a, b, c, 1), 0);
  // Equal means are already converged after one step.
  EXPECT_EQ(gx_agm_sequence(a, b, c, 3), 1);
}

}  // namespace
