// Oblique Mercator: Hotine's construction.  The ellipsoid is mapped
// conformally onto an aposphere (exponent B, constant E), the aposphere is
// projected onto a cylinder tangent along the great circle of the central
// line, and the skew plane (u along the line, v across it) is turned into
// (x, y) by the azimuth of the line or by a plane rotation of its own.
//
// One formulation serves the sphere and the ellipsoid alike: on a sphere the
// series return their argument and B comes out as 1.
//
// The constants are always computed as a block; a run without a loaded block
// computes one on its stack, with the loader's own set-up.
#include "projections/oblique_mercator.h"

#include <cmath>
#include <cstring>

#include "projections/setup.h"

namespace {

// The layout, 29 doubles for every row: B, the aposphere's exponent; ln E;
// the longitude of the central line's origin; sine and cosine of gamma0, the
// line's azimuth on the aposphere; sine and cosine of the line's azimuth at
// the centre; u of the centre; gamma0 / 2; A k0 / B and its reciprocal; the
// conformal table.
enum : int {
  kB,
  kLnE,
  kLam0c,
  kSinGamma,
  kCosGamma,
  kSinAz,
  kCosAz,
  kUc,
  kHalfGamma,
  kAk,
  kRAk,
  kTable,
  kCount = kTable + GX_TABLE_ROOM
};

// A centre or a point on a pole is moved this far off it.
constexpr double kOffPole = 1.5707961267948967;
// An XY_Plane_Rotation of 720 degrees asks for the azimuth's rotation.
constexpr double kUseAzimuth = 12.566370614359172;
constexpr double kE = 2.718281828459045;

// ln(tan(chi/2 + pi/4)): the aposphere's isometric latitude before scaling
// by B, exactly 0 on the equator.
double isometric(double e2, double phi, const double* table) {
  if (phi == 0.0) return 0;
  return std::log(std::tan(gx_phi_to_chi_c(e2, phi, table) / 2 + GX_QUARTERPI));
}

// What both set-ups derive from the centre's latitude phi0: B, ln E, Ak and
// its reciprocal, and the table in k; A, D and Q0 for the rest of the set-up.
struct centre_terms {
  double A, D, Q0;
};

centre_terms centre_setup(const double* sphere, double k0, double phi0, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double* table = k + kTable;
  gx_chi_series_init(e2, table, GX_SERIES_ALL);
  double c = std::cos(phi0), s = std::sin(phi0);
  double B = std::sqrt(c * c * c * c * e2 / (1 - e2) + 1);
  double A = std::sqrt(1 - e2) * B * a / (1 - s * s * e2);
  double Q0 = isometric(e2, phi0, table) * B;
  double D = A / ((c / gx_w(e2, phi0)) * a);
  // D is at least 1 in exact arithmetic; rounding must not make the root NaN.
  if (D < 1) D = 1;
  double F = (phi0 >= 0 ? 1 : -1) * std::log(std::sqrt(D * D - 1) + D);
  double Ak = (1 / B) * A * k0;
  k[kB] = B;
  k[kLnE] = F - Q0;
  k[kAk] = Ak;
  k[kRAk] = 1 / Ak;
  return {A, D, Q0};
}

// gamma0 with its half, sine and cosine.
void store_gamma(double gamma0, double* k) {
  k[kHalfGamma] = gamma0 * 0.5;
  k[kSinGamma] = std::sin(gamma0);
  k[kCosGamma] = std::fabs(gamma0) == GX_HALFPI ? 0 : std::cos(gamma0);
}

// asin(tan(gamma0) sinh(ln E + Q0)), the longitude of the centre from the
// line's origin on the aposphere, times B.
double centre_offset(double gamma0, const double* k, double Q0) {
  double g = std::tan(gamma0) * std::sinh(k[kLnE] + Q0);
  if (std::fabs(g) > 1) g = std::copysign(1.0, g);
  return std::asin(g);
}

// u of the centre (lamc, phi0): the core's u of that point.
void store_centre_u(double* k, double lamc, const centre_terms& c, double k0) {
  double dlam = gx_delta(lamc - k[kLam0c]);
  if (std::fabs(k[kCosAz]) <= GX_EPS) {
    k[kUc] = dlam * c.A * k0;
    return;
  }
  double Lc = dlam * k[kB];
  k[kUc] = std::atan2(std::sin(Lc) * k[kSinGamma] + std::sinh(k[kLnE] + c.Q0) * k[kCosGamma],
                      std::cos(Lc)) *
           k[kAk];
}

// The central line by its centre (lamc, phi0) and its azimuth there.
bool azimuth_setup(const double* sphere, const double* parms, double* k) {
  double k0 = parms[GX_PARM_SCALE_FACTOR];
  double alpha = parms[GX_PARM_AZIMUTH];
  double lamc = parms[GX_PARM_LONGITUDE_OF_CENTER];
  double phi0 = parms[GX_PARM_LATITUDE_OF_CENTER];
  if (gx_is_halfpi(phi0)) {
    bool north = phi0 > 0;
    phi0 = north ? kOffPole : -kOffPole;
    lamc = gx_delta(north ? lamc + GX_PI : lamc);
    alpha = north ? 0 : GX_PI;
  }
  // The line's azimuth is taken in its northward direction.
  alpha = gx_delta(alpha);
  if (gx_is_halfpi(alpha))
    alpha = GX_HALFPI;
  else if (std::fabs(alpha) > GX_HALFPI)
    alpha = alpha >= 0 ? alpha - GX_PI : alpha + GX_PI;
  k[kSinAz] = std::sin(alpha);
  k[kCosAz] = std::fabs(alpha) == GX_HALFPI ? 0 : std::cos(alpha);
  centre_terms c = centre_setup(sphere, k0, phi0, k);
  double gamma0 = std::asin(k[kSinAz] / c.D);
  store_gamma(gamma0, k);
  k[kLam0c] = gx_delta(lamc - (1 / k[kB]) * centre_offset(gamma0, k, c.Q0));
  store_centre_u(k, lamc, c, k0);
  return true;
}

// The central line through two points; false when they don't make a line.
bool two_point_setup(const double* sphere, const double* parms, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double k0 = parms[GX_PARM_SCALE_FACTOR];
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1], phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];
  double lam1 = parms[GX_PARM_LONGITUDE_OF_1ST_POINT], lam2 = parms[GX_PARM_LONGITUDE_OF_2ND_POINT];
  double phi0 = parms[GX_PARM_LATITUDE_OF_CENTER];
  if (gx_eq(lam1, lam2) && gx_eq(phi1, phi2)) return false;
  if (gx_is_halfpi(phi1) && gx_is_halfpi(phi2) && gx_eq(phi1, phi2)) return false;
  // A point on a pole is moved off it along the other point's meridian.
  if (gx_is_halfpi(phi0)) phi0 = std::copysign(kOffPole, phi0);
  if (gx_is_halfpi(phi1)) {
    phi1 = std::copysign(kOffPole, phi1);
    lam1 = lam2;
  }
  if (gx_is_halfpi(phi2)) {
    phi2 = std::copysign(kOffPole, phi2);
    lam2 = lam1;
  }
  centre_terms c = centre_setup(sphere, k0, phi0, k);
  double B = k[kB], rB = 1 / B, lnE = k[kLnE];
  const double* table = k + kTable;
  double t1 = isometric(e2, phi1, table), t2 = isometric(e2, phi2, table);
  // The points are joined the short way round.
  if (std::fabs(lam1 - lam2) > GX_PI) lam2 = lam1 - lam2 >= 0 ? lam2 + GX_TWOPI : lam2 - GX_TWOPI;
  double h = B * 0.5;
  k[kLam0c] = gx_delta((lam2 + lam1) * 0.5 -
                       std::atan(std::tanh((t2 + t1) * h + lnE) * std::tan((lam1 - lam2) * h) /
                                 std::tanh((t1 - t2) * h)) *
                           rB);
  double gamma0;
  if (e2 < GX_EPS && phi1 == 0.0) {
    double az = 0;
    gx_geodesic_distance(a, 0.0, lam1, 0.0, gx_delta(lam2), phi2, nullptr, &az, nullptr);
    gamma0 = std::fabs(az) > GX_HALFPI ? (std::fabs(az) - GX_PI) * (az < 0 ? -1 : 1) : az;
  } else {
    gamma0 = std::atan(std::sin(gx_delta(lam1 - k[kLam0c]) * B) / std::sinh(t1 * B + lnE));
  }
  store_gamma(gamma0, k);
  double sa = k[kSinGamma] * c.D;
  if (std::fabs(sa) > 1) return false;
  k[kSinAz] = sa;
  k[kCosAz] = std::fabs(std::asin(sa)) == GX_HALFPI ? 0 : std::cos(std::asin(sa));
  double lamc = gx_delta(centre_offset(gamma0, k, c.Q0) * rB + k[kLam0c]);
  store_centre_u(k, lamc, c, k0);
  return true;
}

using om_setup_fn = bool (*)(const double* sphere, const double* parms, double* k);

// The rotation from the skew plane to (x, y): by the line's azimuth, or by
// XY_Plane_Rotation unless that holds the 720-degree sentinel.
void plane_rotation(const double* parms, const double* k, bool by_plane, double* cr, double* sr) {
  double rot = parms[GX_PARM_XY_PLANE_ROTATION];
  if (!by_plane || gx_eq(std::fabs(rot), kUseAzimuth)) {
    *cr = k[kCosAz];
    *sr = k[kSinAz];
    return;
  }
  *sr = std::sin(rot);
  *cr = std::fabs(rot) == GX_HALFPI ? 0 : std::cos(rot);
}

// Longitude and latitude to (v, u) on the skew plane.
void core_forward(double e2, const double* k, double lam, double phi, double* v, double* u) {
  double B = k[kB], lnE = k[kLnE], sg = k[kSinGamma], cg = k[kCosGamma], Ak = k[kAk];
  if (gx_is_halfpi(phi)) {
    *u = phi * Ak;
    *v = k[kHalfGamma] == 0.0
             ? 0
             : std::log(std::tan(GX_QUARTERPI - (phi >= 0 ? 1 : -1) * k[kHalfGamma])) * Ak;
    return;
  }
  double L = gx_delta_fast(lam - k[kLam0c]) * B;
  double Q = lnE + B * isometric(e2, phi, k + kTable);
  double S = std::sinh(Q);
  double sL = std::sin(L), cL = std::cos(L);
  *u = std::atan2(S * cg + sL * sg, cL) * Ak;
  // On the line's own poles Us is +-1 and v is infinite.
  double Us = (sL * cg - S * sg) / std::cosh(Q);
  *v = std::log((Us + 1) / (1 - Us)) * Ak * 0.5;
}

// (v, u) on the skew plane to longitude and latitude.
void core_inverse(double e2, const double* k, double v, double u, double* lam, double* phi) {
  double B = k[kB], sg = k[kSinGamma], cg = k[kCosGamma];
  double X = v * k[kRAk], Y = u * k[kRAk];
  double sX = std::sinh(X), sY = std::sin(Y);
  *lam = gx_delta_fast((1 / B) * std::atan2(sX * cg + sY * sg, std::cos(Y)) + k[kLam0c]);
  double Qp = (sY * cg - sX * sg) / std::cosh(X);
  if (std::fabs(Qp) >= 1) {
    *phi = std::copysign(GX_HALFPI, Qp);
    return;
  }
  double t = std::log((Qp + 1) / (1 - Qp)) * 0.5 - k[kLnE];
  double chi = 2 * std::atan(std::pow(kE, t / B)) - GX_HALFPI;
  *phi = gx_chi_to_phi_c(e2, chi, k + kTable);
}

// One row of the family: its set-up, whether u is measured from the centre,
// and whether the plane is turned by XY_Plane_Rotation.
// The constants of a run and the turn from the skew plane to (x, y).
struct skew_plane {
  const double* k;
  double cr, sr;
};

template <om_setup_fn setup, bool from_centre, bool by_plane>
struct oblique_row {
  // The block's doubles, or the set-up's on the stack, and the turn; false
  // when the set-up refuses the definition.
  static bool open(const double* sphere, const double* parms, const double* doubles, double* local,
                   skew_plane* plane) {
    plane->k = doubles;
    if (doubles == nullptr) {
      if (!setup(sphere, parms, local)) return false;
      plane->k = local;
    }
    plane_rotation(parms, plane->k, by_plane, &plane->cr, &plane->sr);
    return true;
  }

  static int32_t forward(const double* sphere, const double* parms, int32_t n, double* coords,
                         const double* doubles) {
    double local[kCount];
    skew_plane plane;
    if (n < 1 || !open(sphere, parms, doubles, local, &plane)) return 0;
    double cr = plane.cr, sr = plane.sr, uc = plane.k[kUc];
    for (double* p = coords; p < coords + 2 * n; p += 2) {
      double v, u;
      core_forward(sphere[1], plane.k, p[0], p[1], &v, &u);
      if (from_centre) u = u - uc;
      p[0] = v * cr + u * sr;
      p[1] = u * cr - v * sr;
    }
    return n;
  }

  static int32_t inverse(const double* sphere, const double* parms, int32_t n, double* coords,
                         const double* doubles) {
    double local[kCount];
    skew_plane plane;
    if (n < 1 || !open(sphere, parms, doubles, local, &plane)) return 0;
    double cr = plane.cr, sr = plane.sr, uc = plane.k[kUc];
    for (double* p = coords; p < coords + 2 * n; p += 2) {
      double v = p[0] * cr - p[1] * sr, u = p[1] * cr + p[0] * sr;
      if (from_centre) u = u + uc;
      core_inverse(sphere[1], plane.k, v, u, p, p + 1);
    }
    return n;
  }

  static int32_t constants(gx_constants* block, const double* sphere, const double* parms) {
    double k[kCount];
    if (!setup(sphere, parms, k)) return 0;
    double* doubles = gx_loader_doubles(block, kCount);
    if (doubles == nullptr) return 0;
    std::memcpy(doubles, k, sizeof k);
    return kCount;
  }
};

}  // namespace

#define GX_OBLIQUE_MERCATOR_DEFINE(name, setup, from_centre, by_plane)                            \
  int32_t gx_##name##_forward(const double* sphere, double* parms, int32_t n, double* coords,     \
                              const int32_t*, const double* doubles) {                            \
    return oblique_row<setup, from_centre, by_plane>::forward(sphere, parms, n, coords, doubles); \
  }                                                                                               \
  int32_t gx_##name##_inverse(const double* sphere, double* parms, int32_t n, double* coords,     \
                              const int32_t*, const double* doubles) {                            \
    return oblique_row<setup, from_centre, by_plane>::inverse(sphere, parms, n, coords, doubles); \
  }                                                                                               \
  int32_t gx_##name##_constants(gx_constants* block, const double* sphere, const double* parms) { \
    return oblique_row<setup, from_centre, by_plane>::constants(block, sphere, parms);            \
  }

GX_OBLIQUE_MERCATOR_DEFINE(hotine_oblique_mercator_azimuth_natural_origin, azimuth_setup, false,
                           false)
GX_OBLIQUE_MERCATOR_DEFINE(hotine_oblique_mercator_azimuth_center, azimuth_setup, true, false)
GX_OBLIQUE_MERCATOR_DEFINE(hotine_oblique_mercator_two_point_natural_origin, two_point_setup, false,
                           false)
GX_OBLIQUE_MERCATOR_DEFINE(hotine_oblique_mercator_two_point_center, two_point_setup, true, false)
GX_OBLIQUE_MERCATOR_DEFINE(rectified_skew_orthomorphic_natural_origin, azimuth_setup, false, true)
GX_OBLIQUE_MERCATOR_DEFINE(rectified_skew_orthomorphic_center, azimuth_setup, true, true)
