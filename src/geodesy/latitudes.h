// Table forms of the conformal, authalic and rectifying latitudes.  A
// projection's constants loader fills a table once with an init function; each
// point then costs one sine and one cosine below GX_SERIES_LIMIT.
//
// Layout of every table: entries 0..6 the Horner coefficients of the forward
// series (from phi), 7..13 those of the inverse series (to phi), then:
//   chi  (16): 14 e, 15 e/2
//   beta (18): 14 e, 15 2e, 16 1/(1 - e2) - ln((1 - e)/(1 + e))/(2e), 17 (1 - e2)/2
//   mu   (17): 14 e2/2, 15 E(e2) complete, 16 1 - e2
#pragma once

#include "gx_geodesy.h"
#include "geodesy/ellipsoid.h"

inline constexpr int GX_CHI_TABLE_SIZE = 16;
inline constexpr int GX_BETA_TABLE_SIZE = 18;
inline constexpr int GX_MU_TABLE_SIZE = 17;
inline constexpr int GX_SERIES_FORWARD_AT = 0;
inline constexpr int GX_SERIES_INVERSE_AT = 7;

// Masks of the init functions.  0 fills everything.  Otherwise the series
// are filled only below GX_SERIES_LIMIT (the forward set for bit 0, the
// inverse set for bit 1) and the closed-form entries only at or above it.
inline constexpr int GX_SERIES_ALL = 0;
inline constexpr int GX_SERIES_FORWARD = 1;
inline constexpr int GX_SERIES_INVERSE = 2;
inline constexpr int GX_SERIES_BOTH = 3;

void gx_chi_series_init(double e2, double* table, int mask);
void gx_beta_series_init(double e2, double* table, int mask);
void gx_mu_series_init(double e2, double* table, int mask);

// Same results as the plain functions of gx_geodesy.h, read from a table made
// for the same e2 with the matching half filled.
double gx_phi_to_chi_c(double e2, double phi, const double* table);
double gx_chi_to_phi_c(double e2, double chi, const double* table);
double gx_phi_to_beta_c(double e2, double phi, const double* table);
double gx_beta_to_phi_c(double e2, double beta, const double* table);
double gx_phi_to_mu_c(double e2, double phi, const double* table);
double gx_mu_to_phi_c(double e2, double mu, const double* table);

// ---- the same on angles carried with their sine and cosine --------------------------
//
// Same results as the _c forms to within rounding, with the sine and cosine
// of the result besides: below GX_SERIES_LIMIT the series is summed from the
// argument's sine and cosine and the result turned by it (gx_angle_turn), so
// a point costs no call of the runtime's trigonometry.  The fixed points
// (a sphere, the equator, the poles) come back unchanged; a body at or above
// the limit goes through its _c form.

// The closed-form route: `plain` on the angle, then its sine and cosine.
gx_angle gx_latitude_closed(double (*plain)(double, double, const double*), double e2,
                            const gx_angle& x, const double* table);

template <int half, double (*plain)(double, double, const double*)>
inline gx_angle gx_latitude_turned(double e2, const gx_angle& x, const double* table) {
  if (e2 < GX_EPS || x.rad == 0.0 || gx_is_halfpi(x.rad)) return x;
  if (e2 >= GX_SERIES_LIMIT) return gx_latitude_closed(plain, e2, x, table);
  return gx_angle_turn(x, gx_series_sum_at(table + half, x.sin, x.cos));
}

// The six, each one instantiation (e2, the angle, the table of its kind).
inline constexpr auto gx_phi_to_chi_a = gx_latitude_turned<GX_SERIES_FORWARD_AT, gx_phi_to_chi_c>;
inline constexpr auto gx_chi_to_phi_a = gx_latitude_turned<GX_SERIES_INVERSE_AT, gx_chi_to_phi_c>;
inline constexpr auto gx_phi_to_beta_a = gx_latitude_turned<GX_SERIES_FORWARD_AT, gx_phi_to_beta_c>;
inline constexpr auto gx_beta_to_phi_a = gx_latitude_turned<GX_SERIES_INVERSE_AT, gx_beta_to_phi_c>;
inline constexpr auto gx_phi_to_mu_a = gx_latitude_turned<GX_SERIES_FORWARD_AT, gx_phi_to_mu_c>;
inline constexpr auto gx_mu_to_phi_a = gx_latitude_turned<GX_SERIES_INVERSE_AT, gx_mu_to_phi_c>;

// artanh(x) / x for |x| below sqrt(GX_SERIES_LIMIT) by its even power
// series, whose terms beyond the eighth stay below 1e-19 there; the
// runtime's artanh above.
inline double gx_artanh_ratio(double x) {
  double x2 = x * x;
  if (x2 >= GX_SERIES_LIMIT) return std::atanh(x) / x;
  constexpr double k3 = 1.0 / 3, k5 = 1.0 / 5, k7 = 1.0 / 7, k9 = 1.0 / 9, k11 = 1.0 / 11,
                   k13 = 1.0 / 13, k15 = 1.0 / 15, k17 = 1.0 / 17;
  return 1.0 + x2 * (k3 + x2 * (k5 + x2 * (k7 + x2 * (k9 + x2 * (k11 + x2 * (k13 + x2 * (k15 + x2 * k17)))))));
}

// The isometric latitude psi = ln tan(pi/4 + chi/2) = asinh(tan phi) -
// e atanh(e sin phi) of a latitude between the poles, from its sine and
// cosine and the eccentricity e (0 or below sqrt(GX_EPS) for a sphere, where
// it is asinh(tan phi)): what the conformal projections take the
// exponential of.  Mirrored, so that 1 + sin phi never cancels.
inline double gx_isometric_of(double e, const gx_angle& phi) {
  double s = std::fabs(phi.sin);
  double log_tan = std::log((1.0 + s) / phi.cos);
  double psi = e * e < GX_EPS ? log_tan : log_tan - e * e * s * gx_artanh_ratio(e * s);
  return phi.sin < 0.0 ? -psi : psi;
}

// The authalic q(phi) = (1 - e2) (s / (1 - e2 s^2) + artanh(e s) / e) from
// s = sin phi on an ellipsoid (e2 at or above GX_EPS): q / qp is the sine of
// the authalic latitude, qp being q at the pole.
inline double gx_authalic_q_of(double e, double e2, double s) {
  return (1.0 - e2) * s * (1.0 / (1.0 - e2 * s * s) + gx_artanh_ratio(e * s));
}
