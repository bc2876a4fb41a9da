// Brent's zero-in on the interval [0, pi/2]: inverse quadratic or secant
// steps while they make progress, bisection otherwise.
#include "geodesy/roots.h"

#include <cmath>

#include "geodesy/ellipsoid.h"

namespace {

constexpr double kAngleTolerance = GX_HALFPI * GX_EPS;
// Brent needs at most about (log2 of the interval / tolerance)^2 steps, a few
// thousand; only a function that returns NaN can keep it going this long.
constexpr int kBrentSafetyCap = 10000;

bool same_sign(double u, double v) { return (u > 0.0 && v > 0.0) || (u < 0.0 && v < 0.0); }

}  // namespace

double gx_root_brent(const void* context, gx_root_function f) {
  double a = 0.0, fa = f(0.0, context);
  double b = GX_HALFPI, fb = f(GX_HALFPI, context);
  double c = a, fc = fa;
  double d = b - a, e = d;
  for (int step = 0; step < kBrentSafetyCap; ++step) {
    if (same_sign(fb, fc)) {
      c = a;
      fc = fa;
      d = e = b - a;
    }
    if (std::fabs(fc) < std::fabs(fb)) {  // b is the better estimate
      a = b;
      b = c;
      c = a;
      fa = fb;
      fb = fc;
      fc = fa;
    }
    double m = 0.5 * (c - b);
    if (std::fabs(m) <= kAngleTolerance || std::fabs(fb) <= GX_EPS) return b;
    if (std::fabs(e) < kAngleTolerance || std::fabs(fa) <= std::fabs(fb)) {
      d = e = m;
    } else {
      double s = fb / fa, p, q;
      if (a == c) {  // secant
        p = 2.0 * m * s;
        q = 1.0 - s;
      } else {  // inverse quadratic
        double qa = fa / fc, r = fb / fc;
        p = s * (2.0 * m * qa * (qa - r) - (b - a) * (r - 1.0));
        q = (qa - 1.0) * (r - 1.0) * (s - 1.0);
      }
      if (p > 0.0) q = -q;
      else p = -p;
      // Interpolation only inside 3/4 of the interval and at most half the
      // step before last; otherwise bisect.
      if (2.0 * p < 3.0 * m * q - std::fabs(kAngleTolerance * q) && p < std::fabs(0.5 * e * q)) {
        e = d;
        d = p / q;
      } else {
        d = e = m;
      }
    }
    a = b;
    fa = fb;
    b += std::fabs(d) > kAngleTolerance ? d : (m > 0.0 ? kAngleTolerance : -kAngleTolerance);
    fb = f(b, context);
  }
  return b;
}
