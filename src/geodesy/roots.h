// Root finders for the auxiliary angles of the pseudocylindrical
// projections: Brent's bracketing search, Newton's method from the latitude,
// and the running of two such iterations side by side.
#pragma once

#include <cmath>

#include "geodesy/ellipsoid.h"

// A function of one angle in [0, pi/2]; the context carries its constants.
using gx_root_function = double (*)(double angle, const void* context);

// A root of f on [0, pi/2].  f(0) and f(pi/2) must have opposite signs (or one
// of them be 0); that is not checked.  The angle tolerance is pi/2 * GX_EPS,
// and |f| <= GX_EPS also ends the search.
double gx_root_brent(const void* context, gx_root_function f);

// ---- the search itself ------------------------------------------------------------

// The angle tolerance of the search.
inline constexpr double GX_BRENT_TOLERANCE = GX_HALFPI * GX_EPS;
// Brent needs at most about (log2 of the interval / tolerance)^2 steps, a few
// thousand; only a function that returns NaN can keep it going this long.
inline constexpr int GX_BRENT_SAFETY_CAP = 10000;

// One search between evaluations of its function: the bracket [b, c] with
// b the best estimate, a the estimate before it, their values, and the last
// two steps d and e.  A search begins with the function's values at 0 and
// pi/2; each advance either ends it, with the root in b, or moves b to the
// next angle whose value the caller then stores in fb.  A caller that runs
// the searches of two points side by side lets the processor overlap the
// one's evaluation with the other's step, and each still takes exactly the
// steps it would take alone.
struct gx_brent_state {
  double a, b, c, fa, fb, fc, d, e;
  int steps;
};

inline void gx_brent_begin(gx_brent_state& s, double f_at_0, double f_at_halfpi) {
  s.a = 0.0;
  s.fa = f_at_0;
  s.b = GX_HALFPI;
  s.fb = f_at_halfpi;
  s.c = s.a;
  s.fc = s.fa;
  s.d = s.e = s.b - s.a;
  s.steps = 0;
}

// False when the search has ended and b is the root; otherwise true, with b
// the next angle to evaluate.
inline bool gx_brent_advance(gx_brent_state& s) {
  constexpr double tol = GX_BRENT_TOLERANCE;
  auto same_sign = [](double u, double v) { return (u > 0.0 && v > 0.0) || (u < 0.0 && v < 0.0); };
  if (s.steps >= GX_BRENT_SAFETY_CAP) return false;  // b, as last evaluated, stands
  double a = s.a, b = s.b, c = s.c, fa = s.fa, fb = s.fb, fc = s.fc, d = s.d, e = s.e;
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
  if (std::fabs(m) <= tol || std::fabs(fb) <= GX_EPS) {
    s.b = b;
    return false;
  }
  if (std::fabs(e) < tol || std::fabs(fa) <= std::fabs(fb)) {
    d = e = m;
  } else {
    double q0 = fb / fa, p, q;
    if (a == c) {  // secant
      p = 2.0 * m * q0;
      q = 1.0 - q0;
    } else {  // inverse quadratic
      double qa = fa / fc, r = fb / fc;
      p = q0 * (2.0 * m * qa * (qa - r) - (b - a) * (r - 1.0));
      q = (qa - 1.0) * (r - 1.0) * (q0 - 1.0);
    }
    if (p > 0.0) q = -q;
    else p = -p;
    // Interpolation only inside 3/4 of the interval and at most half the
    // step before last; otherwise bisect.
    if (2.0 * p < 3.0 * m * q - std::fabs(tol * q) && p < std::fabs(0.5 * e * q)) {
      e = d;
      d = p / q;
    } else {
      d = e = m;
    }
  }
  s.a = b;
  s.fa = fb;
  s.b = b + (std::fabs(d) > tol ? d : (m > 0.0 ? tol : -tol));
  s.c = c;
  s.fc = fc;
  s.d = d;
  s.e = e;
  ++s.steps;
  return true;
}

// The search of gx_root_brent on a function object f(angle).
template <class Function>
inline double gx_brent_search(Function f) {
  gx_brent_state s;
  gx_brent_begin(s, f(0.0), f(GX_HALFPI));
  while (gx_brent_advance(s)) s.fb = f(s.b);
  return s.b;
}

// ---- iterations, one at a time or two side by side --------------------------------

// An iteration is a type with a `state` and three static functions:
// start(x) makes the state for the value x, pass(state) makes one pass and
// says whether the iteration goes on, and value(state) is its result.  The
// per-point searches of the projections are written so, and a point loop
// that has two points in hand runs their iterations side by side.

// The result of an iteration for x.
template <class Iteration>
inline double gx_iterate(double x) {
  typename Iteration::state s = Iteration::start(x);
  while (Iteration::pass(s)) {
  }
  return Iteration::value(s);
}

// Two iterations side by side: step(k) makes one pass of iteration k (0 or
// 1) and returns whether it goes on; going0 and going1 say whether each goes
// on to begin with.  While both go on each round makes a pass of both, and
// the processor overlaps the one's pass with the other's; the one left then
// goes on alone.  Each makes exactly the passes it would make alone.  (With
// three or four side by side the passes' branches cost more than the
// overlap gains.)
template <class Step>
inline void gx_side_by_side(bool going0, bool going1, Step step) {
  while (going0 && going1) {
    going0 = step(0);
    going1 = step(1);
  }
  while (going0) going0 = step(0);
  while (going1) going1 = step(1);
}

// The results of an iteration for x[0] and x[1], side by side: each to the
// bit as gx_iterate gives it.
template <class Iteration>
inline void gx_iterate_pair(const double* x, double* values) {
  typename Iteration::state s[2] = {Iteration::start(x[0]), Iteration::start(x[1])};
  gx_side_by_side(true, true, [&s](int k) { return Iteration::pass(s[k]); });
  values[0] = Iteration::value(s[0]);
  values[1] = Iteration::value(s[1]);
}

// ---- the auxiliary angles of a latitude -------------------------------------------

// The angles below are roots of an equation g(theta) = rhs(phi), given by a
// type with static rhs(phi) and the function of the search.

// Brent's search for the angle on [0, pi/2], from rhs of |phi|; the angle
// takes the sign of phi.  Equation::f(angle, rhs) is g(angle) - rhs.  A
// pass is a step of the search and the evaluation of its new estimate.  The
// equation is inlined, so g at the two ends of the bracket, a constant of
// the equation, costs no call of trigonometry.
template <class Equation>
struct gx_brent_angle {
  struct state {
    gx_brent_state search;
    double rhs, phi;
  };
  static state start(double phi) {
    state s;
    s.rhs = Equation::rhs(phi);
    s.phi = phi;
    gx_brent_begin(s.search, Equation::f(0.0, s.rhs), Equation::f(GX_HALFPI, s.rhs));
    return s;
  }
  static bool pass(state& s) {
    if (!gx_brent_advance(s.search)) return false;
    s.search.fb = Equation::f(s.search.b, s.rhs);
    return true;
  }
  static double value(const state& s) { return s.phi < 0.0 ? -s.search.b : s.search.b; }
};

// Newton's method for the angle from theta = phi: Equation::step(theta, rhs)
// is the correction that a pass subtracts from theta, and
// Equation::ends(correction, passes) says whether the iteration ends after
// that many passes.
template <class Equation>
struct gx_newton_angle {
  struct state {
    double rhs, theta;
    int passes;
  };
  static state start(double phi) { return {Equation::rhs(phi), phi, 0}; }
  static bool pass(state& s) {
    double correction = Equation::step(s.theta, s.rhs);
    s.theta = s.theta - correction;
    return !Equation::ends(correction, ++s.passes);
  }
  static double value(const state& s) { return s.theta; }
};

// A polynomial by Horner's rule, its coefficients highest power first: the
// fitted starts of the iterations below.
template <size_t count>
double gx_polynomial(const double (&c)[count], double x) {
  double sum = c[0];
  for (size_t i = 1; i < count; ++i) sum = sum * x + c[i];
  return sum;
}

// Halley's method for an angle x, for the projections whose stated search
// is slow where the equation is well conditioned: from a start `x`, passes
// of one sine and cosine each, Equation::terms(x, sin x, cos x, rhs, &f,
// &slope, &bend) giving the equation's value and its first two derivatives.
// The iteration is cubic, so a step below 1e-6 leaves an error of order
// 1e-17 (for the bounded second derivatives of these equations) and ends
// it; the angle's sine and cosine then follow from the last pass's by the
// sum formulas, with no further call.  A safety cap ends a wild input.
inline constexpr double GX_HALLEY_LAST_STEP = 1e-6;
inline constexpr int GX_HALLEY_CAP = 8;

template <class Equation>
gx_angle gx_halley_angle(double x, double rhs) {
  double s = 0.0, c = 1.0, step = 1.0;
  for (int pass = 0; pass < GX_HALLEY_CAP && std::fabs(step) > GX_HALLEY_LAST_STEP; ++pass) {
    s = std::sin(x);
    c = std::cos(x);
    double f, slope, bend;
    Equation::terms(x, s, c, rhs, &f, &slope, &bend);
    step = f / (slope - f * bend / (2.0 * slope));
    x -= step;
  }
  double sd = step - step * step * step / 6.0, cd = 1.0 - step * step * 0.5;
  return {x, s * cd - c * sd, c * cd + s * sd};
}

// The same angle for a negative latitude: the equations are odd.
inline gx_angle gx_signed_like(gx_angle theta, double phi) {
  if (phi < 0.0) {
    theta.rad = -theta.rad;
    theta.sin = -theta.sin;
  }
  return theta;
}
