// Cassini (43028): the transverse equidistant cylinder.  The ellipsoid takes
// a short series in A = cos(phi) * dlam of fixed order; both branches scale
// by k0 at the end of the forward and the start of the inverse.
#include "projections/transverse_mercator.h"

namespace {

// Layout of the doubles; the sphere keeps none.
constexpr int kMu0 = 0;    // rectifying latitude of the origin
constexpr int kRectR = 1;  // rectifying radius
constexpr int kTable = 2;  // rectifying latitude series
constexpr int32_t kEllipsoidCount = kTable + GX_TABLE_ROOM;

// Below this an angle counts as exactly pi/2 or pi for the clean-ups of
// cosines and sines that must be 0.
constexpr double kExactAngle = 2e-16;
// Stands in for tan(pi/2).
constexpr double kTanOfHalfPi = 1e100;

// Series factors as they stand: 1/6, 1/120, 1/24, 1/3, 1/15.
constexpr double kSixth = 0.16666666666666666;
constexpr double kOneTwentieth = 0.008333333333333333;
constexpr double kTwentyFourth = 0.041666666666666664;
constexpr double kThird = 0.3333333333333333;
constexpr double kFifteenth = 0.06666666666666667;

// True when |angle| is pi/2 by gx_eq and also within kExactAngle of it.
bool exactly_halfpi(double angle) {
  return gx_is_halfpi(angle) && std::fabs(GX_HALFPI - std::fabs(angle)) < kExactAngle;
}

// True when |angle| is pi by gx_eq and also within kExactAngle of it.
bool exactly_pi(double angle) {
  double a = std::fabs(angle);
  return std::fabs(a - GX_PI) <= ((a + GX_PI) / 2 + 1) * GX_EPS &&
         std::fabs(GX_PI - a) < kExactAngle;
}

void setup(const double* sphere, const double* parms, int mask, double* layout) {
  if (gx_is_sphere(sphere)) return;
  double a = sphere[0], e2 = sphere[1];
  double* table = layout + kTable;
  gx_mu_series_init(e2, table, mask);
  layout[kMu0] = gx_phi_to_mu_c(e2, parms[GX_PARM_LATITUDE_OF_ORIGIN], table);
  layout[kRectR] = gx_rect_r(a, e2);
}

int32_t sphere_forward(const double* c, const double* sphere, const double* parms, int32_t n,
                       double* coords) {
  const double a = sphere[0];
  const double k0 = parms[GX_PARM_SCALE_FACTOR], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double phi = gx_pole_clamp(p[1]);
    double dlam = gx_delta_fast(p[0] - lam0);
    double C = std::cos(dlam), S = std::sin(dlam);
    if (exactly_halfpi(dlam)) C = 0.0;
    if (exactly_pi(dlam)) S = 0.0;
    double x = std::asin(std::cos(phi) * S) * a;
    double y = (std::atan2(std::tan(phi), C) - phi0) * a;
    p[0] = x * k0;
    p[1] = y * k0;
  }
  return n;
}

int32_t sphere_inverse(const double* c, const double* sphere, const double* parms, int32_t n,
                       double* coords) {
  const double a = sphere[0];
  const double k0 = parms[GX_PARM_SCALE_FACTOR], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN], rk = 1.0 / k0;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double xr = p[0] * rk / a, D = p[1] * rk / a + phi0;
    double cos_d = std::cos(D), sin_d = std::sin(D), cos_x = std::cos(xr), tan_x = std::tan(xr);
    if (gx_is_halfpi(xr)) tan_x = xr < 0.0 ? -kTanOfHalfPi : kTanOfHalfPi;
    if (exactly_halfpi(D)) cos_d = 0.0;
    if (exactly_pi(D)) sin_d = 0.0;
    p[1] = std::asin(sin_d * cos_x);
    p[0] = gx_delta_fast(std::atan2(tan_x, cos_d) + lam0);
  }
  return n;
}

int32_t ellipsoid_forward(const double* c, const double* sphere, const double* parms, int32_t n,
                          double* coords) {
  const double a = sphere[0], e2 = sphere[1], ep2 = e2 / (1 - e2);
  const double k0 = parms[GX_PARM_SCALE_FACTOR], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double mu0 = c[kMu0], rect_r = c[kRectR];
  const double* table = c + kTable;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    gx_angle phi = gx_angle_of(gx_pole_clamp(p[1]));
    double dlam = gx_delta_fast(p[0] - lam0);
    double cs = phi.cos, t = phi.sin / cs, T = t * t;
    double Cc = cs * cs * ep2;
    double N = gx_n_of_sin(a, e2, phi.sin);
    double A = cs * dlam, A2 = A * A, A3 = A2 * A, A4 = A2 * A2, A5 = A4 * A;
    double mu = gx_phi_to_mu_a(e2, phi, table).rad;
    double x = N * (A - A3 * T * kSixth - (8 - T + 8 * Cc) * A5 * T * kOneTwentieth);
    double y = (mu - mu0) * rect_r + N * t * (A2 * 0.5 + (5 - T + 6 * Cc) * A4 * kTwentyFourth);
    p[0] = x * k0;
    p[1] = y * k0;
  }
  return n;
}

// 1 / N = w / a and N / M = w^2 / (1 - e2): no division per point but the
// secant's.
int32_t ellipsoid_inverse(const double* c, const double* sphere, const double* parms, int32_t n,
                          double* coords) {
  const double a = sphere[0], e2 = sphere[1];
  const double k0 = parms[GX_PARM_SCALE_FACTOR], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double mu0 = c[kMu0], rect_r = c[kRectR], rk = 1.0 / k0;
  const double to_mu = 1.0 / rect_r, ra = 1.0 / a, r_one_minus_e2 = 1.0 / (1.0 - e2);
  const double* table = c + kTable;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double x = p[0] * rk, y = p[1] * rk;
    double mu = y * to_mu + mu0;
    gx_angle phi1 = gx_mu_to_phi_a(e2, gx_angle_of(mu), table);
    double s = phi1.sin, secant = 1.0 / phi1.cos, t = s * secant, T = t * t;
    double w = gx_w_of_sin(e2, s);
    double D = x * (w * ra), D2 = D * D, D3 = D2 * D, D4 = D2 * D2, D5 = D4 * D;
    double N_over_M = w * w * r_one_minus_e2;
    p[1] = phi1.rad - N_over_M * t * (D2 * 0.5 - (1 + 3 * T) * D4 * kTwentyFourth);
    p[0] = gx_delta_fast((D - D3 * T * kThird + D5 * T * (1 + 3 * T) * kFifteenth) * secant +
                         lam0);
  }
  return n;
}

}  // namespace

// The inverse needs the forward series too, for the origin's rectifying
// latitude.  The sphere keeps no doubles.
GX_DEFINE_PROJECTION(cassini, setup, (gx_branch<sphere_forward, ellipsoid_forward>),
                     GX_SERIES_FORWARD, (gx_branch<sphere_inverse, ellipsoid_inverse>),
                     GX_SERIES_BOTH)
GX_DEFINE_LOADER(cassini, setup, 0, kEllipsoidCount)
