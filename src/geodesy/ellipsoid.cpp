// Angles, the tolerance test, radii of curvature and the meridian arc.
#include "geodesy/ellipsoid.h"

#include <cmath>

#include "geodesy/elliptic.h"

namespace {

// Meridian arc: the factors of sin 2phi .. sin 14phi in powers n .. n^7 of the
// third flattening.
constexpr gx_series_table kMeridianArc = {
    {-1.5, 0.0, 0.1875, 0.0, 0.0234375, 0.0, 0.00732421875},
    {0.0, 0.9375, 0.0, -0.234375, 0.0, -0.03662109375, 0.0},
    {0.0, 0.0, -0.7291666666666666, 0.0, 0.22786458333333334, 0.0, 0.039876302083333336},
    {0.0, 0.0, 0.0, 0.615234375, 0.0, -0.21533203125, 0.0},
    {0.0, 0.0, 0.0, 0.0, -0.54140625, 0.0, 0.20302734375},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.48876953125, 0.0},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, -0.44886997767857145},
};

// The factor of phi in the meridian arc: 1 + n^2/4 + n^4/64 + n^6/256.
double arc_linear_factor(double n) {
  double n2 = n * n;
  double n4 = n2 * n2;
  double n6 = n4 * n2;
  return 1.0 + n2 / 4.0 + n4 / 64.0 + n6 / 256.0;
}

}  // namespace

// ---- angles ----------------------------------------------------------------

double gx_delta(double angle) {
  double r = std::fmod(angle, GX_TWOPI);
  if (std::fabs(r) <= GX_PI) return r;
  return r < 0.0 ? r + GX_TWOPI : r - GX_TWOPI;
}

double gx_delta_center(double angle, double center) {
  double r = std::fmod(angle - center, GX_TWOPI);
  if (std::fabs(r) <= GX_PI) return r + center;
  return r < 0.0 ? (r + center) + GX_TWOPI : (r - GX_TWOPI) + center;
}

int gx_eq(double x, double y) {
  return std::fabs(x - y) <= (1.0 + (std::fabs(x) + std::fabs(y)) / 2.0) * GX_EPS ? 1 : 0;
}

double gx_atan2_safe(double x, double y) {
  if (x == 0.0 && y == 0.0) return 0.0;
  return std::atan2(y, x);
}

double gx_third_flattening(double e2) {
  double root = std::sqrt(1.0 - e2);
  return (1.0 - root) / (1.0 + root);
}

// ---- the sine series device --------------------------------------------------

void gx_series_factors(const gx_series_table& table, double t, double* s) {
  double powers[GX_SERIES_TERMS];
  powers[0] = t;
  for (int j = 1; j < GX_SERIES_TERMS; ++j) powers[j] = powers[j - 1] * t;
  for (int k = 0; k < GX_SERIES_TERMS; ++k) {
    double sum = 0.0;
    for (int j = k; j < GX_SERIES_TERMS; ++j) sum += table[k][j] * powers[j];
    s[k] = sum;
  }
}

void gx_series_horner(const double* s, double* c) {
  c[0] = s[0] - s[2] + s[4] - s[6];
  c[1] = 2.0 * s[1] - 4.0 * s[3] + 6.0 * s[5];
  c[2] = 4.0 * s[2] - 12.0 * s[4] + 24.0 * s[6];
  c[3] = 8.0 * s[3] - 32.0 * s[5];
  c[4] = 16.0 * s[4] - 80.0 * s[6];
  c[5] = 32.0 * s[5];
  c[6] = 64.0 * s[6];
}

void gx_series_coefficients(const gx_series_table& table, double t, double* c) {
  double s[GX_SERIES_TERMS];
  gx_series_factors(table, t, s);
  gx_series_horner(s, c);
}

double gx_series_sum(const double* c, double x) {
  double cos2x = std::cos(2.0 * x);
  double poly = c[6];
  for (int k = GX_SERIES_TERMS - 2; k >= 0; --k) poly = c[k] + cos2x * poly;
  return std::sin(2.0 * x) * poly;
}

// ---- radii ---------------------------------------------------------------------

double gx_w(double e2, double phi) { return gx_w_of_sin(e2, std::sin(phi)); }

double gx_m(double a, double e2, double phi) { return gx_m_of_w(a, e2, gx_w(e2, phi)); }

double gx_n(double a, double e2, double phi) { return gx_n_of_w(a, gx_w(e2, phi)); }

double gx_auth_r(double a, double e2) {
  if (e2 < GX_EPS) return a;
  double e = std::sqrt(e2);
  return a * std::sqrt(0.5 * (1.0 - ((1.0 - e2) / (2.0 * e)) * std::log((1.0 - e) / (1.0 + e))));
}

double gx_rect_r(double a, double e2) {
  if (e2 < GX_EPS) return a;
  return gx_ellint_e_complete(e2) * a * 0.6366197723675814;
}

// ---- meridian arc --------------------------------------------------------------

double gx_q(double a, double e2, double phi) {
  if (e2 >= GX_SERIES_LIMIT) {
    double arc = gx_ellint_e(phi, e2);
    return a * (arc - 0.5 * e2 * std::sin(2.0 * phi) / gx_w(e2, phi));
  }
  double n = gx_third_flattening(e2);
  double c[GX_SERIES_TERMS];
  gx_series_coefficients(kMeridianArc, n, c);
  return (gx_series_sum(c, phi) + arc_linear_factor(n) * phi) / (1.0 + n) * a;
}

double gx_q90(double a, double e2) {
  if (e2 >= GX_SERIES_LIMIT) return a * gx_ellint_e_complete(e2);
  double n = gx_third_flattening(e2);
  return a * GX_HALFPI * arc_linear_factor(n) / (1.0 + n);
}
