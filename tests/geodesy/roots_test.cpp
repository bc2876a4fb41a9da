// The root finders of the auxiliary angles: Brent's search on [0, pi/2], Newton's
// method, and iterations run side by side.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

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

// The Mollweide equation as an equation type of the angle searches.
struct MollweideEquation {
  static double rhs(double phi) { return std::sin(std::fabs(phi)) * GX_PI; }
  static double f(double t, double rhs) { return 2.0 * t + std::sin(2.0 * t) - rhs; }
};
using MollweideAngle = gx_brent_angle<MollweideEquation>;

// Latitudes from pole to pole, with the ends, zeros of both signs and a NaN.
std::vector<double> test_latitudes() {
  std::vector<double> phi = {0.0, -0.0, GX_HALFPI, -GX_HALFPI, 1e-300, NAN};
  for (int i = 1; i < 400; ++i) phi.push_back(-GX_HALFPI + GX_PI * i / 400.0 + 1e-7 * (i % 7));
  return phi;
}

TEST(Brent, AngleSearchIsTheFunctionPointerSearchToTheBit) {
  // The inlined search must take the steps of gx_root_brent, to the last bit.
  for (double phi : test_latitudes()) {
    Counted c{MollweideEquation::rhs(phi), 0};
    double by_pointer = gx_root_brent(&c, mollweide);
    double inlined = gx_iterate<MollweideAngle>(phi);
    if (std::isnan(phi)) continue;  // the sign of a NaN latitude's angle is not defined
    EXPECT_EQ(std::fabs(inlined), by_pointer) << phi;
    EXPECT_EQ(std::signbit(inlined), phi < 0.0) << phi;
  }
}

TEST(Brent, SearchesSideBySideGiveTheirOwnRoots) {
  std::vector<double> phi = test_latitudes();
  for (size_t i = 0; i + 1 < phi.size(); ++i) {
    double pair[2], theta[2];
    gx_iterate_pair<MollweideAngle>(&phi[i], theta);
    pair[0] = gx_iterate<MollweideAngle>(phi[i]);
    pair[1] = gx_iterate<MollweideAngle>(phi[i + 1]);
    for (int k = 0; k < 2; ++k) {
      uint64_t a, b;
      std::memcpy(&a, &pair[k], 8);
      std::memcpy(&b, &theta[k], 8);
      EXPECT_EQ(a, b) << phi[i + k];
    }
  }
}

// An iteration that counts down from its start, one a pass, and records the
// passes it was given.
struct Countdown {
  struct state {
    double left;
    int passes;
  };
  static state start(double x) { return {x, 0}; }
  static bool pass(state& s) {
    ++s.passes;
    s.left -= 1.0;
    return s.left > 0.0;
  }
  static double value(const state& s) { return s.passes; }
};

TEST(Iterations, SideBySideEachMakesItsOwnPasses) {
  // Unequal lengths, either one the longer, and a pair that ends at once.
  const double starts[][2] = {{3, 7}, {7, 3}, {5, 5}, {1, 1}, {0, 4}};
  for (const auto& x : starts) {
    double passes[2];
    gx_iterate_pair<Countdown>(x, passes);
    EXPECT_EQ(passes[0], gx_iterate<Countdown>(x[0])) << x[0] << " " << x[1];
    EXPECT_EQ(passes[1], gx_iterate<Countdown>(x[1])) << x[0] << " " << x[1];
  }
  // One that does not go on at all makes no pass beside the other.
  int made[2] = {0, 0};
  gx_side_by_side(false, true, [&made](int k) { return ++made[k] < 3; });
  EXPECT_EQ(made[0], 0);
  EXPECT_EQ(made[1], 3);
}

// Newton on t^3 = rhs from t = phi, and on an equation whose corrections
// never shrink: the count of passes ends the second.
struct Cube {
  static double rhs(double phi) { return phi * phi * phi + 1.0; }
  static double step(double t, double rhs) { return (t * t * t - rhs) / (3.0 * t * t); }
  static bool ends(double step, int passes) { return std::fabs(step) <= 1e-15 || passes >= 100; }
};
struct Stubborn {
  static double rhs(double) { return 0.0; }
  static double step(double, double) { return 1.0; }
  static bool ends(double step, int passes) { return std::fabs(step) <= 1e-15 || passes > 50; }
};

TEST(Iterations, NewtonAngleEndsOnItsStepOrItsCount) {
  EXPECT_NEAR(gx_iterate<gx_newton_angle<Cube>>(1.0), std::cbrt(2.0), 1e-15);
  // From phi = 0 the stubborn one subtracts 1 on each of its 51 passes.
  EXPECT_EQ(gx_iterate<gx_newton_angle<Stubborn>>(0.0), -51.0);
}

}  // namespace
