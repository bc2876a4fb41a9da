// Transverse_Mercator (43006) and Gauss_Kruger (43005): the conformal
// transverse cylinder.  On the ellipsoid, power series in the longitude
// difference through the eighth order around the meridian distance; no point
// iterates and no point is refused, however far from the central meridian.
#include "projections/transverse_mercator.h"

#include "projections/setup.h"

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

// Factorials of the series, as they stand: 1/720, 1/40320, 1/120, 1/5040.
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

void ellipsoid_forward(const double* c, double a, double e2, const double* parms, int32_t n,
                       double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], k0 = parms[GX_PARM_SCALE_FACTOR];
  const double ep2 = c[kEp2], mu0 = c[kMu0], rect_r = c[kRectR];
  const double* table = c + kTable;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double phi = gx_pole_clamp(p[1]);
    double L = gx_delta_fast(p[0] - lam0), L2 = L * L;
    double s = std::sin(phi), cs = std::cos(phi), t = std::tan(phi), t2 = t * t;
    double eta = ep2 * cs * cs, eta2 = eta * eta, eta3 = eta2 * eta, eta4 = eta3 * eta;
    double Nk = gx_n(a, e2, phi) * k0;
    double c3 = cs * cs * cs, c5 = c3 * cs * cs, c7 = c5 * cs * cs;
    double t4 = t2 * t2, t6 = t4 * t2;
    double mdist = (gx_phi_to_mu_c(e2, phi, table) - mu0) * rect_r * k0;
    double P2 = (Nk / 2) * cs * s;
    double P4 = (Nk / 24) * c3 * s * (5 - t2 + 9 * eta + 4 * eta2);
    double P6 = (Nk * kP6) * c5 * s *
                (61 - 58 * t2 + t4 + 270 * eta + 445 * eta2 + 324 * eta3 + 88 * eta4 -
                 t2 * eta * (330 + 680 * eta + 600 * eta2 + 192 * eta3));
    double P8 = (Nk * kP8) * c7 * s * (1385 - 3111 * t2 + 543 * t4 - t6);
    double Q3 = (Nk / 6) * c3 * (1 - t2 + eta);
    double Q5 = (Nk * kQ5) * c5 *
                (5 - 18 * t2 + t4 + 14 * eta + 13 * eta2 + 4 * eta3 -
                 t2 * eta * (58 + 64 * eta + 24 * eta2));
    double Q7 = (Nk * kQ7) * c7 * (61 - 479 * t2 + 179 * t4 - t6);
    p[1] = mdist + L2 * (P2 + L2 * (P4 + L2 * (P6 + L2 * P8)));
    p[0] = L * (Nk * cs + L2 * (Q3 + L2 * (Q5 + L2 * Q7)));
  }
}

void ellipsoid_inverse(const double* c, double a, double e2, const double* parms, int32_t n,
                       double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], k0 = parms[GX_PARM_SCALE_FACTOR];
  const double ep2 = c[kEp2], mu0 = c[kMu0], rect_r = c[kRectR];
  const double* table = c + kTable;
  const double k02 = k0 * k0, k03 = k02 * k0, k04 = k03 * k0, k05 = k04 * k0, k06 = k05 * k0,
               k07 = k06 * k0, k08 = k07 * k0;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double x = p[0];
    double mu = p[1] / (rect_r * k0) + mu0;
    double phi1 = gx_mu_to_phi_c(e2, mu, table);
    double N = gx_n(a, e2, phi1), M = gx_m(a, e2, phi1);
    double t = std::tan(phi1), T = t * t, T2 = T * T, T3 = T2 * T, cs = std::cos(phi1);
    double eta = ep2 * cs * cs, eta2 = eta * eta, eta3 = eta2 * eta, eta4 = eta3 * eta;
    double X2 = x * x;
    double N3 = N * N * N, N5 = N3 * N * N, N7 = N5 * N * N;
    double A2 = t / (N * M * k02 * 2);
    double A4 = t * (5 + 3 * T + eta * (1 - 4 * eta) - 9 * eta * T) / (N3 * M * k04 * 24);
    double A6 = t *
                (61 + 90 * T + 45 * T2 + 46 * eta - 3 * eta2 + 100 * eta3 + 88 * eta4 +
                 eta * T * (-252 - 66 * eta + 84 * eta2 - 192 * eta3 + T * (-90 + 225 * eta))) /
                (N5 * M * k06 * 720);
    double A8 = t * (1385 + 3633 * T + 4095 * T2 + 1575 * T3) / (N7 * M * k08 * 40320);
    double B3 = (1 + 2 * T + eta) / (N3 * cs * k03 * 6);
    double B5 = (5 + 28 * T + 24 * T2 + 6 * eta - 3 * eta2 - 4 * eta3 +
                 eta * T * (8 + 4 * eta + 24 * eta2)) /
                (N5 * cs * k05 * 120);
    double B7 = (61 + 662 * T + 1320 * T2 + 720 * T3) / (N7 * cs * k07 * kB7Divisor);
    p[1] = phi1 + X2 * (-A2 + X2 * (A4 + X2 * (-A6 + X2 * A8)));
    double dlam = x * (1 / (N * cs * k0) + X2 * (-B3 + X2 * (B5 - X2 * B7)));
    p[0] = gx_delta_fast(dlam + lam0);
  }
}

}  // namespace

void gx_transverse_mercator_sphere_forward(double ak, double half_ak, double lam0, double phi0,
                                           int32_t n, double* coords) {
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double phi = gx_pole_clamp(p[1]);
    double dlam = gx_delta_fast(p[0] - lam0);
    double B = std::sin(dlam) * std::cos(phi);
    if (gx_is_unit(B)) B = B < 0.0 ? -kUnitBelowOne : kUnitBelowOne;
    p[0] = std::log((B + 1) / (1 - B)) * half_ak;
    p[1] = (std::atan2(std::tan(phi), std::cos(dlam)) - phi0) * ak;
  }
}

void gx_transverse_mercator_sphere_inverse(double ak, double lam0, double phi0, int32_t n,
                                           double* coords) {
  const double r = 1.0 / ak;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double xr = r * p[0], D = r * p[1] + phi0;
    double g = std::exp(xr), h = std::exp(-xr);
    double s = 2 * std::sin(D) / (h + g);
    if (std::fabs(s) > 1.0) s = s < 0.0 ? -1.0 : 1.0;
    p[1] = std::asin(s);
    p[0] = gx_delta_fast(std::atan2(g - h, 2 * std::cos(D)) + lam0);
  }
}

int32_t gx_transverse_mercator_forward(const double* sphere, double* parms, int32_t n,
                                       double* coords, const int32_t* ints,
                                       const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* c = gx_layout(doubles, local, setup, sphere, parms, GX_SERIES_FORWARD);
  if (gx_is_sphere(sphere))
    gx_transverse_mercator_sphere_forward(c[kAk], c[kHalfAk], parms[GX_PARM_CENTRAL_MERIDIAN],
                                          parms[GX_PARM_LATITUDE_OF_ORIGIN], n, coords);
  else
    ellipsoid_forward(c, sphere[0], sphere[1], parms, n, coords);
  return n;
}

int32_t gx_transverse_mercator_inverse(const double* sphere, double* parms, int32_t n,
                                       double* coords, const int32_t* ints,
                                       const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  // The origin's rectifying latitude needs the forward series too.
  const double* c = gx_layout(doubles, local, setup, sphere, parms, GX_SERIES_BOTH);
  if (gx_is_sphere(sphere))
    gx_transverse_mercator_sphere_inverse(c[kAk], parms[GX_PARM_CENTRAL_MERIDIAN],
                                          parms[GX_PARM_LATITUDE_OF_ORIGIN], n, coords);
  else
    ellipsoid_inverse(c, sphere[0], sphere[1], parms, n, coords);
  return n;
}

int32_t gx_transverse_mercator_constants(gx_constants* block, const double* sphere,
                                         const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, setup, sphere, parms);
}
