// Transverse_Mercator (43006) and Gauss_Kruger (43005): the conformal
// transverse cylinder.  On the ellipsoid, power series in the longitude
// difference through the eighth order around the meridian distance; no point
// iterates and no point is refused, however far from the central meridian.
#include "projections/transverse_mercator.h"

namespace {

// Layout of the doubles.
constexpr int kAk = 0;      // sphere: k0 * a
constexpr int kHalfAk = 1;  // sphere: half of it
constexpr int32_t kSphereCount = 2;

constexpr int kEp2 = 0;    // e2 / (1 - e2), the second eccentricity squared
constexpr int kMu0 = 1;    // rectifying latitude of the origin
constexpr int kRectR = 2;  // rectifying radius
constexpr int kTable = 3;  // rectifying latitude series
constexpr int32_t kEllipsoidCount = kTable + GX_TABLE_ROOM;

// |B| = 1 is a point 90 degrees from the central meridian on the equator;
// 1 - GX_EPS keeps its x large but finite.
constexpr double kUnitBelowOne = 0.9999999999999964;

// Factorials of the series, as they stand: 1/24, 1/720, 1/40320, 1/6,
// 1/120, 1/5040.
constexpr double kP4 = 1.0 / 24;
constexpr double kQ3 = 1.0 / 6;
constexpr double kP6 = 0.001388888888888889;
constexpr double kP8 = 2.48015873015873e-5;
constexpr double kQ5 = 0.008333333333333333;
constexpr double kQ7 = 0.0001984126984126984;
// The divisor of the seventh-order longitude term of the inverse is 5020,
// not 5040: forward and inverse are not exact inverses in that term, and
// the results keep it that way.
constexpr double kB7Divisor = 5020.0;

void setup(const double* sphere, const double* parms, int mask, double* layout) {
  double a = sphere[0], e2 = sphere[1];
  if (gx_is_sphere(sphere)) {
    layout[kAk] = parms[GX_PARM_SCALE_FACTOR] * a;
    layout[kHalfAk] = layout[kAk] * 0.5;
    return;
  }
  double* table = layout + kTable;
  gx_mu_series_init(e2, table, mask);
  layout[kEp2] = e2 / (1.0 - e2);
  layout[kMu0] = gx_phi_to_mu_c(e2, parms[GX_PARM_LATITUDE_OF_ORIGIN], table);
  layout[kRectR] = gx_rect_r(a, e2);
}

int32_t ellipsoid_forward(const double* c, const double* sphere, const double* parms,
                          int32_t n, double* coords) {
  const double a = sphere[0], e2 = sphere[1];
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], k0 = parms[GX_PARM_SCALE_FACTOR];
  const double ep2 = c[kEp2], mu0 = c[kMu0], rect_r = c[kRectR], ak0 = a * k0;
  const double* table = c + kTable;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    gx_angle phi = gx_angle_of(gx_pole_clamp(p[1]));
    double L = gx_delta_fast(p[0] - lam0), L2 = L * L;
    double s = phi.sin, cs = phi.cos;
    // t and N apart, so that the series' long polynomials in t wait on one
    // division and not on the square root of w as well.
    double t = s / cs, t2 = t * t;
    double eta = ep2 * cs * cs;
    double Nk = ak0 / gx_w_of_sin(e2, s);
    double mdist = (gx_phi_to_mu_a(e2, phi, table).rad - mu0) * rect_r * k0;
    // The terms of order 2k in dlam carry cos(phi)^2k: as a series in
    // A2 = (cos(phi) dlam)^2 each bracket is a polynomial in t2 and eta.
    double A2 = cs * cs * L2;
    double P4 = 5 - t2 + eta * (9 + 4 * eta);
    double P6 = 61 + t2 * (-58 + t2) + eta * (270 + eta * (445 + eta * (324 + 88 * eta))) -
                t2 * eta * (330 + eta * (680 + eta * (600 + 192 * eta)));
    double P8 = 1385 + t2 * (-3111 + t2 * (543 - t2));
    double Q3 = 1 - t2 + eta;
    double Q5 = 5 + t2 * (-18 + t2) + eta * (14 + eta * (13 + 4 * eta)) -
                t2 * eta * (58 + eta * (64 + 24 * eta));
    double Q7 = 61 + t2 * (-479 + t2 * (179 - t2));
    double along = 0.5 + A2 * (P4 * kP4 + A2 * (P6 * kP6 + A2 * (P8 * kP8)));
    double across = 1 + A2 * (Q3 * kQ3 + A2 * (Q5 * kQ5 + A2 * (Q7 * kQ7)));
    p[1] = mdist + Nk * s * cs * L2 * along;
    p[0] = Nk * cs * L * across;
  }
  return n;
}

int32_t ellipsoid_inverse(const double* c, const double* sphere, const double* parms,
                          int32_t n, double* coords) {
  const double a = sphere[0], e2 = sphere[1];
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], k0 = parms[GX_PARM_SCALE_FACTOR];
  const double ep2 = c[kEp2], mu0 = c[kMu0], rect_r = c[kRectR];
  const double* table = c + kTable;
  const double to_mu = 1 / (rect_r * k0);
  // 1 / N = w / a and N / M = w^2 / (1 - e2): the radii without a division.
  const double r_ak0 = 1 / (a * k0), r_one_minus_e2 = 1 / (1.0 - e2);
  constexpr double k24 = 1.0 / 24, k720 = 1.0 / 720, k40320 = 1.0 / 40320;
  constexpr double k6 = 1.0 / 6, k120 = 1.0 / 120, k7 = 1.0 / kB7Divisor;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double mu = p[1] * to_mu + mu0;
    gx_angle phi1 = gx_mu_to_phi_a(e2, gx_angle_of(mu), table);
    double s = phi1.sin, cs = phi1.cos;
    double w = gx_w_of_sin(e2, s);
    double rcs = 1 / cs, t = s * rcs, T = t * t;
    double eta = ep2 * cs * cs;
    // The series in D = x / (N k0): the term of order k carries 1 / N^k.
    double D = p[0] * w * r_ak0, D2 = D * D;
    double A4 = 5 + 3 * T + eta * (1 - 4 * eta) - 9 * eta * T;
    double A6 = 61 + T * (90 + 45 * T) + eta * (46 + eta * (-3 + eta * (100 + 88 * eta))) +
                eta * T * (-252 + eta * (-66 + eta * (84 - 192 * eta)) + T * (-90 + 225 * eta));
    double A8 = 1385 + T * (3633 + T * (4095 + 1575 * T));
    double B3 = 1 + 2 * T + eta;
    double B5 = 5 + T * (28 + 24 * T) + eta * (6 + eta * (-3 - 4 * eta)) +
                eta * T * (8 + eta * (4 + 24 * eta));
    double B7 = 61 + T * (662 + T * (1320 + 720 * T));
    double along = 0.5 - D2 * (A4 * k24 - D2 * (A6 * k720 - D2 * (A8 * k40320)));
    double across = 1 - D2 * (B3 * k6 - D2 * (B5 * k120 - D2 * (B7 * k7)));
    p[1] = phi1.rad - t * (w * w * r_one_minus_e2) * D2 * along;
    p[0] = gx_delta_fast(D * rcs * across + lam0);
  }
  return n;
}

}  // namespace

int32_t gx_transverse_mercator_sphere_forward(const double* layout, const double* sphere,
                                              const double* parms, int32_t n, double* coords) {
  const double ak = layout[kAk], half_ak = layout[kHalfAk];
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    gx_angle phi = gx_angle_of(gx_pole_clamp(p[1]));
    gx_angle dlam = gx_angle_of(gx_delta_fast(p[0] - lam0));
    double B = dlam.sin * phi.cos;
    if (gx_is_unit(B)) B = B < 0.0 ? -kUnitBelowOne : kUnitBelowOne;
    p[0] = std::log((B + 1) / (1 - B)) * half_ak;
    // atan2(tan phi, cos dlam), with the tangent's cosine moved across: cos
    // phi is positive within the poles.
    p[1] = (std::atan2(phi.sin, phi.cos * dlam.cos) - phi0) * ak;
  }
  return n;
}

int32_t gx_transverse_mercator_sphere_inverse(const double* layout, const double* sphere,
                                              const double* parms, int32_t n, double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  const double r = 1.0 / layout[kAk];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double xr = r * p[0], D = r * p[1] + phi0;
    double g = std::exp(xr), h = 1 / g;
    gx_angle d = gx_angle_of(D);
    double s = 2 * d.sin / (h + g);
    if (std::fabs(s) > 1.0) s = s < 0.0 ? -1.0 : 1.0;
    p[1] = std::asin(s);
    p[0] = gx_delta_fast(std::atan2(g - h, 2 * d.cos) + lam0);
  }
  return n;
}

// The inverse needs the forward series too, for the origin's rectifying
// latitude.
GX_DEFINE_PROJECTION(transverse_mercator, setup,
                     (gx_branch<gx_transverse_mercator_sphere_forward, ellipsoid_forward>),
                     GX_SERIES_FORWARD,
                     (gx_branch<gx_transverse_mercator_sphere_inverse, ellipsoid_inverse>),
                     GX_SERIES_BOTH)
GX_DEFINE_LOADER(transverse_mercator, setup, kSphereCount, kEllipsoidCount)
