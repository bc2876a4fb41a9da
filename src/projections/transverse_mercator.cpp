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
    // One division for both 1 / cos phi and 1 / w.
    double w = gx_w_of_sin(e2, s), r = 1 / (w * cs);
    double t = s * w * r, t2 = t * t;
    double eta = ep2 * cs * cs, eta2 = eta * eta, eta3 = eta2 * eta, eta4 = eta3 * eta;
    double Nk = ak0 * cs * r;
    double c3 = cs * cs * cs, c5 = c3 * cs * cs, c7 = c5 * cs * cs;
    double t4 = t2 * t2, t6 = t4 * t2;
    double mdist = (gx_phi_to_mu_a(e2, phi, table).rad - mu0) * rect_r * k0;
    double P2 = (Nk / 2) * cs * s;
    double P4 = (Nk * kP4) * c3 * s * (5 - t2 + 9 * eta + 4 * eta2);
    double P6 = (Nk * kP6) * c5 * s *
                (61 - 58 * t2 + t4 + 270 * eta + 445 * eta2 + 324 * eta3 + 88 * eta4 -
                 t2 * eta * (330 + 680 * eta + 600 * eta2 + 192 * eta3));
    double P8 = (Nk * kP8) * c7 * s * (1385 - 3111 * t2 + 543 * t4 - t6);
    double Q3 = (Nk * kQ3) * c3 * (1 - t2 + eta);
    double Q5 = (Nk * kQ5) * c5 *
                (5 - 18 * t2 + t4 + 14 * eta + 13 * eta2 + 4 * eta3 -
                 t2 * eta * (58 + 64 * eta + 24 * eta2));
    double Q7 = (Nk * kQ7) * c7 * (61 - 479 * t2 + 179 * t4 - t6);
    p[1] = mdist + L2 * (P2 + L2 * (P4 + L2 * (P6 + L2 * P8)));
    p[0] = L * (Nk * cs + L2 * (Q3 + L2 * (Q5 + L2 * Q7)));
  }
  return n;
}

int32_t ellipsoid_inverse(const double* c, const double* sphere, const double* parms,
                          int32_t n, double* coords) {
  const double a = sphere[0], e2 = sphere[1];
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], k0 = parms[GX_PARM_SCALE_FACTOR];
  const double ep2 = c[kEp2], mu0 = c[kMu0], rect_r = c[kRectR];
  const double* table = c + kTable;
  // The powers of 1 / k0 and the divisors of the series' terms, once per run:
  // the loop multiplies by reciprocals where the formulas divide.
  const double r1 = 1 / k0, r2 = r1 * r1, r3 = r2 * r1, r4 = r3 * r1, r5 = r4 * r1,
               r6 = r5 * r1, r7 = r6 * r1, r8 = r7 * r1;
  const double a2 = r2 / 2, a4 = r4 / 24, a6 = r6 / 720, a8 = r8 / 40320;
  const double b3 = r3 / 6, b5 = r5 / 120, b7 = r7 / kB7Divisor;
  const double to_mu = 1 / (rect_r * k0);
  // 1 / N = w / a and 1 / M = w^3 / ((1 - e2) a): the radii's reciprocals
  // without a division.
  const double ra = 1 / a, rb = 1 / ((1.0 - e2) * a);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double x = p[0];
    double mu = p[1] * to_mu + mu0;
    gx_angle phi1 = gx_mu_to_phi_a(e2, gx_angle_of(mu), table);
    double s = phi1.sin, cs = phi1.cos;
    double w = gx_w_of_sin(e2, s);
    double rcs = 1 / cs, t = s * rcs, T = t * t, T2 = T * T, T3 = T2 * T;
    double eta = ep2 * cs * cs, eta2 = eta * eta, eta3 = eta2 * eta, eta4 = eta3 * eta;
    double X2 = x * x;
    double rN = w * ra, rN2 = rN * rN, rN3 = rN2 * rN, rN5 = rN3 * rN2, rN7 = rN5 * rN2;
    double tM = t * (w * w * w * rb);
    double A2 = tM * rN * a2;
    double A4 = tM * (5 + 3 * T + eta * (1 - 4 * eta) - 9 * eta * T) * rN3 * a4;
    double A6 = tM *
                (61 + 90 * T + 45 * T2 + 46 * eta - 3 * eta2 + 100 * eta3 + 88 * eta4 +
                 eta * T * (-252 - 66 * eta + 84 * eta2 - 192 * eta3 + T * (-90 + 225 * eta))) *
                rN5 * a6;
    double A8 = tM * (1385 + 3633 * T + 4095 * T2 + 1575 * T3) * rN7 * a8;
    double B3 = (1 + 2 * T + eta) * rN3 * rcs * b3;
    double B5 = (5 + 28 * T + 24 * T2 + 6 * eta - 3 * eta2 - 4 * eta3 +
                 eta * T * (8 + 4 * eta + 24 * eta2)) *
                rN5 * rcs * b5;
    double B7 = (61 + 662 * T + 1320 * T2 + 720 * T3) * rN7 * rcs * b7;
    p[1] = phi1.rad + X2 * (-A2 + X2 * (A4 + X2 * (-A6 + X2 * A8)));
    double dlam = x * (rN * rcs * r1 + X2 * (-B3 + X2 * (B5 - X2 * B7)));
    p[0] = gx_delta_fast(dlam + lam0);
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
