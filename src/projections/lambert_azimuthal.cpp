// Lambert_Azimuthal_Equal_Area: the azimuthal projection that keeps areas.
// On the ellipsoid it projects the authalic sphere (radius Rq, authalic
// latitude beta) and, for centres off the poles, restores true scale along
// the centre's meridian with the factor D.
//
// The antipode of a centre off the poles has no image: it gets NaN and is
// still counted.  A polar centre takes the far pole onto its limit circle.
#include <cmath>

#include "projections/azimuthal.h"

namespace {

// Sphere: 2a, cos phi0, sin phi0.
constexpr int kTwoA = 0;
constexpr int kCos0 = 1;
constexpr int kSin0 = 2;
constexpr int kSphereCount = 3;
// Ellipsoid: 2 Rq, Rq, D with its square and the ratio a / Rq it is made
// from, the authalic latitude beta0 of the centre with its cosine and sine,
// then the authalic table.
constexpr int kTwoRq = 0;
constexpr int kRq = 1;
constexpr int kD = 2;
constexpr int kD2 = 3;
constexpr int kAOverRq = 4;
constexpr int kBeta0 = 5;
constexpr int kCosBeta0 = 6;
constexpr int kSinBeta0 = 7;
constexpr int kBetaTable = 8;
constexpr int kEllipsoidCount = kBetaTable + GX_TABLE_ROOM;

// Distance from the pole on the map of a polar aspect, for the latitude (or
// authalic latitude) phi and the diameter A2 of the (authalic) sphere.
double polar_radius(bool north, double phi, double a2) {
  return north ? std::sin(GX_QUARTERPI - phi / 2.0) * a2 : std::cos(GX_QUARTERPI - phi / 2.0) * a2;
}

// The latitude (or authalic latitude) of a point at distance rho from the
// pole, on a sphere of radius r.
double polar_latitude(bool north, double rho, double r) {
  double q = (rho / r) * (rho / r) * 0.5;
  if (q > 2.0) q = 2.0;
  return north ? std::asin(1.0 - q) : -std::asin(1.0 - q);
}

void sphere_forward(gx_aspect aspect, double a, const double* k, double dlam, double* p) {
  double phi = p[1];
  if (gx_azimuthal_polar(aspect)) {
    bool north = aspect == GX_ASPECT_NORTH;
    gx_polar_point(north, dlam, polar_radius(north, phi, k[kTwoA]), p);
    return;
  }
  double s = std::sin(phi);
  double c = std::cos(phi);
  double sd = std::sin(dlam);
  double cd = std::cos(dlam);
  if (aspect == GX_ASPECT_EQUATOR) {
    double d = cd * c + 1.0;
    if (std::fabs(d) <= GX_EPS) return gx_point_nan(p);
    double f = std::sqrt(2.0 / d);
    p[0] = sd * f * c * a;
    p[1] = s * f * a;
    return;
  }
  double d = cd * c * k[kCos0] + s * k[kSin0] + 1.0;
  if (std::fabs(d) <= GX_EPS) return gx_point_nan(p);
  double f = std::sqrt(2.0 / d);
  p[0] = sd * f * c * a;
  p[1] = (s * k[kCos0] - cd * c * k[kSin0]) * f * a;
}

void ellipsoid_forward(gx_aspect aspect, double e2, const double* k, double dlam, double* p) {
  gx_angle beta = gx_phi_to_beta_a(e2, gx_angle_of(p[1]), k + kBetaTable);
  if (gx_azimuthal_polar(aspect)) {
    bool north = aspect == GX_ASPECT_NORTH;
    gx_polar_point(north, dlam, polar_radius(north, beta.rad, k[kTwoRq]), p);
    return;
  }
  double sb = beta.sin, cb = beta.cos;
  gx_angle d_lam = gx_angle_of(dlam);
  double d = d_lam.cos * cb * k[kCosBeta0] + sb * k[kSinBeta0] + 1.0;
  if (std::fabs(d) <= GX_EPS) return gx_point_nan(p);
  double B = k[kRq] * std::sqrt(2.0 / d);
  p[0] = B * k[kD] * cb * d_lam.sin;
  p[1] = (B / k[kD]) * (k[kCosBeta0] * sb - k[kSinBeta0] * cb * d_lam.cos);
}

// The angle ce = 2 asin(t) from the centre of a point at t = rho / (2 R),
// t at most 1, as a latitude-free gx_angle: its sine and cosine follow from
// t without a call.
gx_angle chord_angle(double t) {
  if (t > 1.0) t = 1.0;
  return gx_angle{0.0, 2.0 * t * std::sqrt((1.0 - t) * (1.0 + t)), 1.0 - 2.0 * t * t};
}

// The sphere's inverse of a point off the centre to (dlam, phi).
void sphere_inverse(gx_aspect aspect, double a, const double* k, double rho, double* p) {
  double x = p[0];
  double y = p[1];
  if (gx_azimuthal_polar(aspect)) {
    bool north = aspect == GX_ASPECT_NORTH;
    p[1] = polar_latitude(north, rho, a);
    p[0] = gx_polar_dlam(north, x, y);
    return;
  }
  gx_angle ce = chord_angle(rho / k[kTwoA]);
  bool equator = aspect == GX_ASPECT_EQUATOR;
  double s0 = equator ? 0.0 : k[kSin0], c0 = equator ? 1.0 : k[kCos0];
  p[1] = gx_azimuthal_back(ce.sin, ce.cos, x, y, rho, s0, c0, 1.0, 1.0, p).rad;
}

// The ellipsoid's inverse of a point off a polar centre to dlam and the
// authalic latitude; rho is measured in the plane stretched by D.
gx_angle ellipsoid_inverse(const double* k, double rho, double* p) {
  gx_angle ce = chord_angle(rho / k[kTwoRq]);
  return gx_azimuthal_back(ce.sin, ce.cos, p[0], p[1], rho, k[kSinBeta0], k[kCosBeta0], k[kD],
                           k[kD2], p);
}

}  // namespace

void gx_lambert_azimuthal_equal_area_setup(const double* sphere, const double* parms, int mask,
                                           double* k) {
  double a = sphere[0];
  double e2 = sphere[1];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  if (gx_is_sphere(sphere)) {
    k[kTwoA] = 2.0 * a;
    k[kCos0] = std::cos(phi0);
    k[kSin0] = std::sin(phi0);
    return;
  }
  double rq = gx_auth_r(a, e2);
  gx_beta_series_init(e2, k + kBetaTable, mask);
  double beta0 = gx_phi_to_beta_c(e2, phi0, k + kBetaTable);
  k[kTwoRq] = 2.0 * rq;
  k[kRq] = rq;
  k[kD] = (std::cos(phi0) / gx_w(e2, phi0)) / std::cos(beta0) * a / rq;
  k[kD2] = k[kD] * k[kD];
  k[kAOverRq] = a / rq;
  k[kBeta0] = beta0;
  k[kCosBeta0] = std::cos(beta0);
  k[kSinBeta0] = std::sin(beta0);
}

int32_t gx_lambert_azimuthal_equal_area_forward(const double* sphere, double* parms, int32_t n,
                                                double* coords, const int32_t* ints,
                                                const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* k = gx_layout(doubles, local, gx_lambert_azimuthal_equal_area_setup, sphere, parms,
                              GX_SERIES_FORWARD);
  gx_azimuthal_frame f = gx_azimuthal_frame_of(sphere, parms);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double dlam = gx_delta_fast(p[0] - f.lam0);
    if (f.sphere) {
      sphere_forward(f.aspect, sphere[0], k, dlam, p);
    } else {
      ellipsoid_forward(f.aspect, sphere[1], k, dlam, p);
    }
  }
  return n;
}

int32_t gx_lambert_azimuthal_equal_area_inverse(const double* sphere, double* parms, int32_t n,
                                                double* coords, const int32_t* ints,
                                                const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  // Both halves: the centre's authalic latitude is a forward one.
  const double* k = gx_layout(doubles, local, gx_lambert_azimuthal_equal_area_setup, sphere, parms,
                              GX_SERIES_BOTH);
  gx_azimuthal_frame f = gx_azimuthal_frame_of(sphere, parms);
  bool polar = gx_azimuthal_polar(f.aspect);
  double stretch = f.sphere || polar ? 1.0 : k[kD], r_stretch = 1.0 / stretch;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    // On the ellipsoid off the poles rho is measured in the plane stretched by D.
    double rho = gx_hypot(p[0] * r_stretch, p[1] * stretch);
    if (gx_eq(rho, 0.0)) {
      gx_azimuthal_centre(p, f.lam0, f.phi0);
      continue;
    }
    if (f.sphere) {
      sphere_inverse(f.aspect, sphere[0], k, rho, p);
    } else {
      if (polar) {
        bool north = f.aspect == GX_ASPECT_NORTH;
        double beta = polar_latitude(north, rho, k[kRq]);
        p[0] = gx_polar_dlam(north, p[0], p[1]);
        p[1] = gx_beta_to_phi_c(sphere[1], beta, k + kBetaTable);
      } else {
        p[1] = gx_beta_to_phi_a(sphere[1], ellipsoid_inverse(k, rho, p), k + kBetaTable).rad;
      }
    }
    p[0] = gx_delta_fast(p[0] + f.lam0);
  }
  return n;
}

int32_t gx_lambert_azimuthal_equal_area_constants(gx_constants* block, const double* sphere,
                                                  const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, gx_lambert_azimuthal_equal_area_setup, sphere, parms);
}
