// Brent's root finder on [0, pi/2].
#include <gtest/gtest.h>

#include <cmath>

#include "geodesy/ellipsoid.h"
#include "geodesy/roots.h"

namespace {

struct Counted {
  double rhs;
  int calls;
};

// The Mollweide equation 2t + sin 2t = pi sin(phi), increasing in t.
double mollweide(double t, const void* context) {
  auto* c = static_cast<Counted*>(const_cast<void*>(context));
  ++c->calls;
  return 2.0 * t + std::sin(2.0 * t) - c->rhs;
}

TEST(Brent, SolvesTheMollweideEquation) {
  for (double deg = 0.0; deg <= 90.0; deg += 5.0) {
    Counted c{GX_PI * std::sin(deg * GX_PI / 180.0), 0};
    double t = gx_root_brent(&c, mollweide);
    EXPECT_NEAR(2.0 * t + std::sin(2.0 * t), c.rhs, 1e-14) << deg;
    EXPECT_GE(t, 0.0);
    EXPECT_LE(t, GX_HALFPI);
    EXPECT_LT(c.calls, 60) << deg;
  }
}

TEST(Brent, EndsOfTheIntervalAreExact) {
  Counted pole{GX_PI, 0};
  EXPECT_EQ(gx_root_brent(&pole, mollweide), GX_HALFPI);
  Counted equator{0.0, 0};
  EXPECT_EQ(gx_root_brent(&equator, mollweide), 0.0);
}

double decreasing(double t, const void*) { return std::cos(t) - t; }

TEST(Brent, DecreasingFunction) {
  // The fixed point of cos, the Dottie number.
  EXPECT_NEAR(gx_root_brent(nullptr, decreasing), 0.7390851332151607, 1e-15);
}

double always_nan(double, const void*) { return NAN; }

TEST(Brent, NaNFunctionStillReturns) { (void)gx_root_brent(nullptr, always_nan); }

}  // namespace
