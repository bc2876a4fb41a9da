// The perspective azimuthals: the view of the globe from its centre
// (Gnomonic), from infinitely far (Orthographic) and from a height above the
// centre (Vertical_Near_Side_Perspective).  Each sees only part of the globe:
// a point beyond the horizon has no image, gets NaN, and is not counted.
//
// Gnomonic and Orthographic are sphere only; the perspective also has an
// ellipsoidal form, whose viewpoint lies on the normal of the centre.
#include <cmath>

#include "projections/azimuthal.h"
#include "projections/points.h"

namespace {

// ---- Gnomonic and Orthographic -----------------------------------------------------

// cos phic, sin phic: all that either keeps.
constexpr int kCosC = 0;
constexpr int kSinC = 1;
constexpr int kCentreCount = 2;

// What a run of these projections reads: the centre with its cosine and
// sine (from the constants, or the set-up), and the radius.
struct centre_run {
  double lam0;
  double phic;
  double cos_c;
  double sin_c;
  double a;

  centre_run(const double* sphere, const double* parms, double cos_phic, double sin_phic)
      : lam0(parms[GX_PARM_LONGITUDE_OF_CENTER]),
        phic(parms[GX_PARM_LATITUDE_OF_CENTER]),
        cos_c(cos_phic),
        sin_c(sin_phic),
        a(sphere[0]) {}
};

centre_run centre_constants(const double* sphere, const double* parms, const double* doubles) {
  double local[kCentreCount];
  const double* k = gx_layout(doubles, local, gx_gnomonic_setup, sphere, parms, GX_SERIES_ALL);
  return centre_run(sphere, parms, k[kCosC], k[kSinC]);
}

// A point as the forwards see it: its sines and cosines, and cc, the cosine
// of its angular distance from the centre, which decides its visibility.
struct view {
  double s, c, sd, cd, cc;
};

view look(const centre_run& r, double dlam, double phi) {
  view v;
  v.s = std::sin(phi);
  v.c = std::cos(phi);
  v.sd = std::sin(dlam);
  v.cd = std::cos(dlam);
  v.cc = v.s * r.sin_c + v.cd * v.c * r.cos_c;
  return v;
}

// The northing of a point, before its scale.
double northing(const centre_run& r, const view& v) { return v.s * r.cos_c - v.cd * v.c * r.sin_c; }

// The tail that the inverses of Orthographic and the perspective share, from
// the sine and cosine of the angular distance ce of a point off the centre:
// (lam, phi) of the point; the longitude from a polar centre by direction
// alone.
void from_distance(const centre_run& r, double sce, double cce, double rho, double* p) {
  double x = p[0];
  double y = p[1];
  double dlam;
  p[1] = gx_azimuthal_back(sce, cce, x, y, rho, r.sin_c, r.cos_c, 1.0, 1.0, &dlam).rad;
  gx_aspect aspect = gx_azimuthal_aspect(r.phic);
  if (gx_azimuthal_polar(aspect)) dlam = gx_polar_dlam(aspect == GX_ASPECT_NORTH, x, y);
  p[0] = gx_delta_fast(dlam + r.lam0);
}

// The centre itself: counted, as a converted point.
void to_centre(const centre_run& r, double* p) {
  p[0] = gx_delta_fast(0.0 + r.lam0);
  p[1] = r.phic;
}

// ---- Vertical_Near_Side_Perspective -----------------------------------------------

// Sphere: P (the distance of the viewpoint from the globe's centre in radii),
// 1 / P, cos phic, sin phic, and the radius of the horizon on the map.
constexpr int kP = 0;
constexpr int kInvP = 1;
constexpr int kPCos = 2;
constexpr int kPSin = 3;
constexpr int kHorizon = 4;
constexpr int kSphereCount = 5;

// Ellipsoid: P, 1 / P, cos phic, sin phic, then P cos(tdiff) and P sin(tdiff)
// with tdiff the angle between the normal at the centre and the direction of
// the viewpoint, the coefficients L, G, J and A of the inverse's quadratic,
// and 1 - e2.
constexpr int kPCosT = 4;
constexpr int kPSinT = 5;
constexpr int kL = 6;
constexpr int kG = 7;
constexpr int kJ = 8;
constexpr int kA = 9;
constexpr int kOneMinusE2 = 10;
constexpr int kEllipsoidCount = 11;

// The viewpoint's geocentric latitude settles to this; a safety cap stops a
// pathological input.
constexpr double kViewpointTolerance = 1e-15;
constexpr int kViewpointPasses = 10000;

bool refused_height(double h) { return h < 0.0 || std::fabs(h) <= GX_EPS; }

// The geocentric latitude of the viewpoint at height h on the normal of the
// centre phic, and its distance from the body's centre in units of a.
void viewpoint(double a, double e2, double phic, double h, double* phig_out, double* p_out) {
  double n1 = a / gx_w(e2, phic);
  double phig = phic;
  for (int pass = 0; pass < kViewpointPasses; ++pass) {
    double p = (std::cos(phic) / std::cos(phig)) * (n1 + h) / a;
    double next = phic - std::asin(n1 * std::sin(phic) * std::cos(phic) * e2 / (p * a));
    bool settled = std::fabs(next - phig) <= kViewpointTolerance;
    phig = next;
    if (settled) break;
  }
  *phig_out = phig;
  if (std::fabs(std::cos(phig)) > GX_EPS) {
    *p_out = (std::cos(phic) / std::cos(phig)) * (n1 + h) / a;
  } else {
    // Above a pole the ratio of cosines is 0 / 0: the same distance comes
    // from the viewpoint's height above the equatorial plane.
    *p_out = ((1.0 - e2) * n1 + h) * std::sin(phic) / (std::sin(phig) * a);
  }
}

// Fills k for a height that the run accepts.
void perspective_setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0];
  double e2 = sphere[1];
  double phic = parms[GX_PARM_LATITUDE_OF_CENTER];
  double h = parms[GX_PARM_HEIGHT];
  k[kPCos] = std::cos(phic);
  k[kPSin] = std::sin(phic);
  if (gx_is_sphere(sphere)) {
    double P = h / a + 1.0;
    k[kP] = P;
    k[kInvP] = 1.0 / P;
    k[kHorizon] = a * std::sqrt((P - 1.0) / (P + 1.0));
    return;
  }
  double phig;
  double P;
  viewpoint(a, e2, phic, h, &phig, &P);
  double tdiff = phic - phig;
  double cos_c = k[kPCos];
  double sin_c = k[kPSin];
  double cos_g = std::cos(phig);
  k[kP] = P;
  k[kInvP] = 1.0 / P;
  k[kPCosT] = P * std::cos(tdiff);
  k[kPSinT] = P * std::sin(tdiff);
  k[kL] = 1.0 - cos_c * cos_c * e2;
  k[kG] = 1.0 - sin_c * sin_c * e2;
  k[kJ] = 2.0 * sin_c * cos_c * e2;
  k[kA] = (1.0 - cos_g * cos_g * e2) * P * P - (1.0 - e2);
  k[kOneMinusE2] = 1.0 - e2;
}

// Constants of a perspective run; null when the height refuses the run.
const double* perspective_constants(const double* sphere, const double* parms,
                                    const double* doubles, double* local) {
  if (refused_height(parms[GX_PARM_HEIGHT])) return nullptr;
  return gx_layout(doubles, local, perspective_setup, sphere, parms, GX_SERIES_ALL);
}

// One point forward; false when it lies beyond the horizon.  Visibility is
// the sphere's test on both branches.
bool perspective_point(const centre_run& r, double e2, const double* k, double h, double dlam,
                       double* p) {
  view v = look(r, dlam, p[1]);
  if (!(v.cc >= k[kInvP])) return false;
  if (e2 < GX_EPS) {
    double f = (k[kP] - 1.0) / (k[kP] - v.cc);
    p[0] = v.sd * f * v.c * r.a;
    p[1] = northing(r, v) * f * r.a;
    return true;
  }
  double w = gx_w(e2, p[1]);
  double C = v.c / w;
  double S = k[kOneMinusE2] * v.s / w;
  double K = h / (k[kPCosT] - (C * v.cd * r.cos_c + S * r.sin_c));
  p[0] = v.sd * K * C;
  p[1] = (S * r.cos_c + k[kPSinT] - C * v.cd * r.sin_c) * K;
  return true;
}

// One point off the centre back on the sphere; false beyond the horizon.
bool perspective_sphere_inverse(const centre_run& r, const double* k, double rho, double* p) {
  if (!(rho <= k[kHorizon])) return false;
  double P = k[kP];
  double A = (P - 1.0) * r.a;
  double sce = (P - std::sqrt(1.0 - (P + 1.0) * rho * rho / (A * r.a))) / (A / rho + rho / A);
  double cce = std::sqrt(1.0 - sce * sce);
  from_distance(r, sce, cce, rho, p);
  return true;
}

// One point off the centre back on the ellipsoid: the line from the viewpoint through the
// plane point meets the ellipsoid where a quadratic has its root.  False when
// it misses (no real root).
bool perspective_ellipsoid_inverse(const centre_run& r, const double* k, double h, double* p) {
  double x = p[0];
  double y = p[1];
  double B = k[kPCosT];
  double D = k[kPSinT];
  double L = k[kL];
  double G = k[kG];
  double J = k[kJ];
  double A = k[kA];
  double one_minus_e2 = k[kOneMinusE2];
  double u = (y * B + D * h) * J - 2.0 * (y * G * D + L * B * h);
  double v = y * y * G + L * h * h - y * J * h + one_minus_e2 * x * x;
  double t = 2.0 * A / (std::sqrt(u * u - 4.0 * v * A) - u);
  double bp = B - t * h;
  double dp = t * y - D;
  double W = dp * r.cos_c + bp * r.sin_c;
  double V = bp * r.cos_c - dp * r.sin_c;
  double phi = std::atan(W / std::sqrt((one_minus_e2 - W * W) * one_minus_e2));
  double lam = gx_delta_fast(std::atan2(t * x * r.a, V * r.a) + r.lam0);
  if (std::isnan(phi) || std::isnan(lam)) return false;
  p[0] = lam;
  p[1] = phi;
  return true;
}

}  // namespace

// ---- Gnomonic -----------------------------------------------------------------

int32_t gx_gnomonic_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  centre_run r = centre_constants(sphere, parms, doubles);
  return gx_count_points(n, coords, [&r](double* p) {
    view v = look(r, gx_delta_fast(p[0] - r.lam0), p[1]);
    if (!(v.cc > 0.0 && std::fabs(v.cc) > GX_EPS)) return false;
    double f = r.a / v.cc;
    p[0] = v.sd * f * v.c;
    p[1] = northing(r, v) * f;
    return true;
  });
}

int32_t gx_gnomonic_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  centre_run r = centre_constants(sphere, parms, doubles);
  return gx_count_points(n, coords, [&r](double* p) {
    double x = p[0];
    double y = p[1];
    double rho = std::sqrt(x * x + y * y);
    if (rho <= GX_EPS) {
      to_centre(r, p);
      return true;
    }
    double ce = std::atan(rho / r.a);
    double cce = std::cos(ce);
    if (!(cce > 0.0)) return false;
    double sce = std::sin(ce), dlam;
    p[1] = gx_azimuthal_back(sce, cce, x, y, rho, r.sin_c, r.cos_c, 1.0, 1.0, &dlam).rad;
    p[0] = gx_delta_fast(dlam + r.lam0);
    return true;
  });
}

void gx_gnomonic_setup(const double* sphere, const double* parms, int mask, double* k) {
  double phic = parms[GX_PARM_LATITUDE_OF_CENTER];
  k[kCosC] = std::cos(phic);
  k[kSinC] = std::sin(phic);
}

// Shared by Gnomonic and Orthographic.
int32_t gx_gnomonic_constants(gx_constants* block, const double* sphere, const double* parms) {
  return gx_layout_load(block, kCentreCount, gx_gnomonic_setup, sphere, parms);
}

// ---- Orthographic ----------------------------------------------------------------

int32_t gx_orthographic_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  centre_run r = centre_constants(sphere, parms, doubles);
  return gx_count_points(n, coords, [&r](double* p) {
    view v = look(r, gx_delta_fast(p[0] - r.lam0), p[1]);
    if (!(v.cc >= 0.0)) return false;
    p[0] = v.sd * v.c * r.a;
    p[1] = northing(r, v) * r.a;
    return true;
  });
}

int32_t gx_orthographic_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  centre_run r = centre_constants(sphere, parms, doubles);
  return gx_count_points(n, coords, [&r](double* p) {
    double rho = std::sqrt(p[0] * p[0] + p[1] * p[1]);
    if (rho <= GX_EPS) {
      to_centre(r, p);
      return true;
    }
    if (!(rho <= r.a)) return false;
    // ce = asin(rho / a): its sine is rho / a, its cosine follows.
    gx_angle ce = gx_angle_of_sine(rho / r.a);
    from_distance(r, ce.sin, ce.cos, rho, p);
    return true;
  });
}

// ---- Vertical_Near_Side_Perspective ---------------------------------------------

int32_t gx_vertical_near_side_perspective_forward(const double* sphere, double* parms, int32_t n,
                                                  double* coords, const int32_t* ints,
                                                  const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* k = perspective_constants(sphere, parms, doubles, local);
  if (k == nullptr) return 0;
  centre_run r(sphere, parms, k[kPCos], k[kPSin]);
  double h = parms[GX_PARM_HEIGHT];
  double e2 = sphere[1];
  return gx_count_points(n, coords, [&](double* p) {
    return perspective_point(r, e2, k, h, gx_delta_fast(p[0] - r.lam0), p);
  });
}

int32_t gx_vertical_near_side_perspective_inverse(const double* sphere, double* parms, int32_t n,
                                                  double* coords, const int32_t* ints,
                                                  const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* k = perspective_constants(sphere, parms, doubles, local);
  if (k == nullptr) return 0;
  centre_run r(sphere, parms, k[kPCos], k[kPSin]);
  double h = parms[GX_PARM_HEIGHT];
  bool on_sphere = gx_is_sphere(sphere);
  return gx_count_points(n, coords, [&](double* p) {
    double rho = std::sqrt(p[0] * p[0] + p[1] * p[1]);
    if (rho <= GX_EPS) {
      to_centre(r, p);
      return true;
    }
    return on_sphere ? perspective_sphere_inverse(r, k, rho, p)
                     : perspective_ellipsoid_inverse(r, k, h, p);
  });
}

int32_t gx_vertical_near_side_perspective_constants(gx_constants* block, const double* sphere,
                                                    const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  if (refused_height(parms[GX_PARM_HEIGHT])) count = 0;
  return gx_layout_load(block, count, perspective_setup, sphere, parms);
}
