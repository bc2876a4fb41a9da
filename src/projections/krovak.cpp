// Krovak: an oblique conformal conic in three stages.  The ellipsoid is
// mapped conformally onto a Gaussian sphere, the sphere is turned so that the
// cone's axis stands on an oblique pole, and the cone (one pseudo standard
// parallel ps, scale k0) is developed.  Its plane may then be scaled per axis
// and rotated, which is how the southing/westing of the classic definition
// becomes an easting/northing.
//
// The Azimuth is used with the sign the definition gives: the Czech and
// Slovak grids state it as +30.28813975277778 degrees, the angle of the cone's
// axis east of the centre's meridian, and that is the value the oblique pole
// is turned by.  A negated azimuth puts the oblique pole on the other side of
// the centre and every point some thousands of kilometres off.
//
// On the ellipsoid a point more than pi / B from the central meridian has no
// image; the two functions count the points that got one.
#include <cmath>

#include "projections/conic.h"

namespace {

// Constants: the plane rotation's cosine and sine, the oblique azimuth's
// cosine and sine, the cone constant n and F (metres); on the ellipsoid also
// the Gaussian sphere's exponent B and factor k, the longitude limit pi / B
// and the conformal table.
enum : int { kCosRot, kSinRot, kCosAz, kSinAz, kN, kF, kB, kK, kLimit, kTable };
constexpr int kSphereCount = kB;
constexpr int kEllipsoidCount = kTable + GX_TABLE_ROOM;
static_assert(kEllipsoidCount <= GX_CONIC_LAYOUT_ROOM);
constexpr double kLimitSlack = 1e-12;

bool is_refused(const double* parms) {
  return std::fabs(parms[GX_PARM_STANDARD_PARALLEL_1]) <= GX_EPS;
}

void setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double phi0 = parms[GX_PARM_LATITUDE_OF_CENTER];
  double ps = parms[GX_PARM_STANDARD_PARALLEL_1];
  double rot = gx_delta(parms[GX_PARM_XY_PLANE_ROTATION]);
  double az = gx_delta(parms[GX_PARM_AZIMUTH]);
  double n = std::sin(ps);
  double F0 = std::cos(ps) / (std::pow(std::tan(GX_QUARTERPI - ps / 2), n) * n);
  k[kCosRot] = std::cos(rot);
  k[kSinRot] = std::sin(rot);
  k[kCosAz] = std::cos(az);
  k[kSinAz] = std::sin(az);
  k[kN] = n;
  double k0 = parms[GX_PARM_SCALE_FACTOR];
  if (gx_is_sphere(sphere)) {
    k[kF] = F0 * k0 * a;
    return;
  }
  gx_chi_series_init(e2, k + kTable, mask);
  double ep2 = e2 / (1 - e2);
  double c = std::cos(phi0), s = std::sin(phi0);
  double B = std::sqrt(ep2 * (c * c * c * c) + 1);
  double s0 = s / B;
  double chi0 = gx_phi_to_chi_c(e2, phi0, k + kTable);
  k[kF] = (std::sqrt(1 - e2) * a / (1 - s * s * e2)) * F0 * k0;
  k[kB] = B;
  k[kK] =
      std::tan(std::asin(s0) / 2 + GX_QUARTERPI) / std::pow(std::tan(chi0 / 2 + GX_QUARTERPI), B);
  k[kLimit] = GX_PI / B;
}

// The cone's radius at the oblique latitude S.  At the cone's apex it is 0;
// at the opposite pole it is large but finite, from the clamp.
double cone_radius(double S, double n, double F) {
  if (gx_is_halfpi(S)) {
    if ((n < 0) == (S < 0)) return 0;
    return std::pow(std::tan(GX_QUARTERPI - std::copysign(GX_HALFPI_CLAMP, S) / 2), n) * F;
  }
  return std::pow(std::tan(GX_QUARTERPI - S / 2), n) * F;
}

int32_t forward(const double* sphere, const double* parms, const double* k, int32_t count,
                double* coords) {
  double e2 = sphere[1];
  bool on_sphere = gx_is_sphere(sphere);
  double lam0 = parms[GX_PARM_LONGITUDE_OF_CENTER];
  double xs = parms[GX_PARM_X_SCALE], ys = parms[GX_PARM_Y_SCALE];
  double cr = k[kCosRot], sr = k[kSinRot], ca = k[kCosAz], sa = k[kSinAz], n = k[kN], F = k[kF];
  double B = on_sphere ? 1 : k[kB], gauss = on_sphere ? 1 : k[kK];
  double limit = on_sphere ? 0 : k[kLimit] + kLimitSlack;
  int32_t converted = 0;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - lam0);
    double U = p[1], V = dlam;
    if (!on_sphere) {
      if (std::fabs(dlam) > limit) {
        gx_point_nan(p);
        continue;
      }
      double chi = gx_phi_to_chi_c(e2, p[1], k + kTable);
      U = 2 * (std::atan(std::pow(std::tan(chi / 2 + GX_QUARTERPI), B) * gauss) - GX_QUARTERPI);
      V = dlam * B;
    }
    double cu = std::cos(U), su = std::sin(U), cv = std::cos(V);
    double D = std::atan2(std::sin(V) * cu, cv * cu * ca - su * sa);
    double S = std::asin(cv * cu * sa + su * ca);
    double theta = D * n;
    double rho = cone_radius(S, n, F);
    double xp = std::cos(theta) * rho * xs;
    double yp = -(std::sin(theta) * rho) * ys;
    p[0] = xp * cr - yp * sr;
    p[1] = xp * sr + yp * cr;
    ++converted;
  }
  return converted;
}

int32_t inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                double* coords) {
  double e2 = sphere[1];
  bool on_sphere = gx_is_sphere(sphere);
  double lam0 = parms[GX_PARM_LONGITUDE_OF_CENTER];
  bool rotated = std::fabs(gx_delta(parms[GX_PARM_XY_PLANE_ROTATION])) > GX_EPS;
  double rxs = 1 / parms[GX_PARM_X_SCALE], rys = 1 / parms[GX_PARM_Y_SCALE];
  double cr = k[kCosRot], sr = k[kSinRot], ca = k[kCosAz], sa = k[kSinAz], n = k[kN], F = k[kF];
  double rn = 1 / n;
  double rB = on_sphere ? 1 : 1 / k[kB], gauss = on_sphere ? 1 : k[kK];
  double limit = on_sphere ? 0 : k[kLimit] + kLimitSlack;
  int32_t converted = 0;
  for (int32_t i = 0; i < count; ++i) {
    double* pt = coords + 2 * i;
    double xp = pt[0], yp = pt[1];
    if (rotated) {
      yp = pt[1] * cr - pt[0] * sr;
      xp = pt[1] * sr + pt[0] * cr;
    }
    double p = -(yp * rys), q = -(xp * rxs);
    double theta = n > 0 ? std::atan2(p, -q) : std::atan2(-p, q);
    double rho = gx_hypot(p, q);
    if (n < 0) rho = -rho;
    double S = 2 * (GX_QUARTERPI - std::atan(std::pow(rho / F, rn)));
    double D = theta / n;
    double cs = std::cos(S), ss = std::sin(S), cd = std::cos(D);
    double V = std::atan2(std::sin(D) * cs, cd * cs * ca + ss * sa);
    double U = std::asin(ss * ca - cd * cs * sa);
    double dlam = V, phi = U;
    if (!on_sphere) {
      dlam = V / k[kB];
      if (std::fabs(dlam) > limit) {
        gx_point_nan(pt);
        continue;
      }
      double chi =
          2 * (std::atan(std::pow(std::tan(U / 2 + GX_QUARTERPI) / gauss, rB)) - GX_QUARTERPI);
      phi = gx_chi_to_phi_c(e2, chi, k + kTable);
    }
    pt[0] = gx_delta_fast(dlam + lam0);
    pt[1] = phi;
    ++converted;
  }
  return converted;
}

}  // namespace

int32_t gx_krovak_forward(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles) {
  if (is_refused(parms)) return 0;
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_FORWARD, forward);
}

int32_t gx_krovak_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles) {
  if (is_refused(parms)) return 0;
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_BOTH, inverse);
}

int32_t gx_krovak_constants(gx_constants* block, const double* sphere, const double* parms) {
  if (is_refused(parms)) return 0;
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, setup, sphere, parms);
}
