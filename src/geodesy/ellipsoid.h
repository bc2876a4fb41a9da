// Internal half of the ellipsoid and angle functions: the angle constants of
// the whole kernel, overflow-safe plane helpers, and the device that every
// latitude and arc series shares (seven sines of even multiples evaluated as
// sin 2x times a polynomial in cos 2x).
#pragma once

#include <cmath>

#include "gx_geodesy.h"

// The nearest doubles to pi, pi/2, pi/4 and 2 pi.
inline constexpr double GX_PI = 3.141592653589793;
inline constexpr double GX_HALFPI = 1.5707963267948966;
inline constexpr double GX_QUARTERPI = 0.7853981633974483;
inline constexpr double GX_TWOPI = 6.283185307179586;

// Number of sine terms in every series of the kernel, and so the number of
// Horner coefficients and the highest power of the expansion variable.
inline constexpr int GX_SERIES_TERMS = 7;

// sqrt(x^2 + y^2) without overflow or underflow; 0 for (0, 0).  Inline:
// the inverse projections take one per point.
inline double gx_hypot(double x, double y) {
  double p = std::fabs(x);
  double q = std::fabs(y);
  if (p + q == 0.0) return 0.0;
  if (p > q) {
    double r = q / p;
    return p * std::sqrt(1.0 + r * r);
  }
  double r = p / q;
  return q * std::sqrt(1.0 + r * r);
}
// atan2(y, x) with x the real and y the imaginary part; 0 for (0, 0).
double gx_atan2_safe(double x, double y);

// Third flattening n = (1 - sqrt(1 - e2)) / (1 + sqrt(1 - e2)) = (a - b) / (a + b).
double gx_third_flattening(double e2);

// Coefficients of a series in one small variable t (e2 or the third
// flattening): row k holds the coefficients of t^1 .. t^7 in the factor S(k+1)
// of sin(2(k+1)x).  Powers of t are formed by repeated multiplication.
using gx_series_table = double[GX_SERIES_TERMS][GX_SERIES_TERMS];
void gx_series_factors(const gx_series_table& table, double t, double* s);
// Turns the factors S1..S7 of sin 2x .. sin 14x into the seven Horner
// coefficients c0..c6 of sin 2x * (c0 + C (c1 + ... + C c6)), C = cos 2x.
void gx_series_horner(const double* s, double* c);
// Factors and Horner coefficients in one go.
void gx_series_coefficients(const gx_series_table& table, double t, double* c);
// sin 2x * (c0 + C (c1 + C (c2 + ... + C c6))), C = cos 2x: one sine, one
// cosine.
double gx_series_sum(const double* c, double x);

// The same sum at an angle whose sine and cosine are at hand: no call of the
// runtime at all.
inline double gx_series_sum_at(const double* c, double sin_x, double cos_x) {
  static_assert(GX_SERIES_TERMS == 7);
  // The polynomial in pairs of terms rather than by Horner's rule: the same
  // value, in half the chain of dependent steps that a point waits on.
  double C = (cos_x - sin_x) * (cos_x + sin_x), C2 = C * C;
  double poly = (c[0] + C * c[1]) + C2 * ((c[2] + C * c[3]) + C2 * ((c[4] + C * c[5]) + C2 * c[6]));
  return 2.0 * sin_x * cos_x * poly;
}

// Equality with pi/2 in magnitude in the sense of gx_eq, written inline for
// the per-point code: the poles that every latitude function leaves alone.
inline bool gx_is_halfpi(double angle) {
  double a = std::fabs(angle);
  return std::fabs(a - GX_HALFPI) <= ((a + GX_HALFPI) / 2 + 1) * GX_EPS;
}

// ---- angles with their sine and cosine ---------------------------------------------
//
// Per-point code that needs both an angle and its sine and cosine carries
// them together.  A latitude series moves its argument by less than a
// hundredth of a radian, so the sine and cosine of the result follow from
// those of the argument by the addition theorem with short Taylor
// polynomials of the small turn, and no second call of the runtime's
// trigonometry is made.

struct gx_angle {
  double rad, sin, cos;
};

// The angle with its sine and cosine (one sincos call).
inline gx_angle gx_angle_of(double x) { return gx_angle{x, std::sin(x), std::cos(x)}; }

// x + d for |d| below 0.01, where the Taylor terms left out stay below
// 1e-17: sin d to d^5, cos d - 1 to d^6.
inline gx_angle gx_angle_turn(const gx_angle& x, double d) {
  constexpr double k6 = 1.0 / 6.0, k120 = 1.0 / 120.0, k24 = 1.0 / 24.0, k720 = 1.0 / 720.0;
  double d2 = d * d;
  double sin_d = d - d * d2 * (k6 - d2 * k120);
  double cos_d_less_1 = -d2 * (0.5 - d2 * (k24 - d2 * k720));
  return gx_angle{x.rad + d, x.sin + (x.sin * cos_d_less_1 + x.cos * sin_d),
                  x.cos + (x.cos * cos_d_less_1 - x.sin * sin_d)};
}

// asin(v) with its sine v and its cosine sqrt(1 - v^2).
inline gx_angle gx_angle_of_sine(double v) {
  return gx_angle{std::asin(v), v, std::sqrt((1.0 - v) * (1.0 + v))};
}

// The angle pi/2 - 2 atan(t) for t >= 0, the form in which the conformal
// projections give back a conformal latitude; sine and cosine come from t
// by the half-angle forms, written in 1/t beyond 1 so that no square
// overflows.
inline gx_angle gx_angle_from_half_tangent(double t) {
  double rad = GX_HALFPI - 2.0 * std::atan(t);
  if (t <= 1.0) {
    double t2 = t * t, r = 1.0 / (1.0 + t2);
    return gx_angle{rad, (1.0 - t2) * r, 2.0 * t * r};
  }
  double u = 1.0 / t, u2 = u * u, r = 1.0 / (1.0 + u2);
  return gx_angle{rad, (u2 - 1.0) * r, 2.0 * u * r};
}

// The radii of curvature from the sine of the latitude already at hand, for
// per-point code that would otherwise take a second sine: the instructions
// of gx_w, gx_n and gx_m, so the same results.  The _of_w forms serve code
// that needs w itself besides.
inline double gx_w_of_sin(double e2, double s) { return std::sqrt(1.0 - s * s * e2); }
inline double gx_m_of_w(double a, double e2, double w) { return ((1.0 - e2) * a) / (w * w * w); }
inline double gx_n_of_w(double a, double w) { return a / w; }
inline double gx_n_of_sin(double a, double e2, double s) { return gx_n_of_w(a, gx_w_of_sin(e2, s)); }
inline double gx_m_of_sin(double a, double e2, double s) {
  return gx_m_of_w(a, e2, gx_w_of_sin(e2, s));
}
