// Equidistant conic: meridians are true to scale, with two standard parallels
// (or one, phi1 = phi2) and a latitude of origin phi0 from which y is
// measured.  Parallels that mirror each other about the equator make the cone
// a cylinder, and the projection degenerates in place to an equidistant
// cylindrical one (true scale on phi1).
//
// M(p) is the meridian arc to p: the rectifying latitude times the rectifying
// radius.
#include <cmath>

#include "projections/conic.h"

namespace {

bool is_cylinder(const double* parms) {
  return gx_eq(parms[GX_PARM_STANDARD_PARALLEL_1], -parms[GX_PARM_STANDARD_PARALLEL_2]);
}

// Constants of the cylinder: x scale (metres per radian of longitude), and on
// the ellipsoid M(phi0), the rectifying radius and the rectifying table.
enum : int { kXScale, kCylM0, kCylRect, kCylTable };
// Constants of the cone: the cone constant n, G (radians on the sphere, a
// ratio to a on the ellipsoid) and the radius of the parallel of origin; on
// the ellipsoid also the rectifying radius and table.
enum : int { kN, kG, kRho0, kRect, kTable };
constexpr int kCylSphereCount = 1;
constexpr int kCylEllipsoidCount = kCylTable + GX_TABLE_ROOM;
constexpr int kSphereCount = kRect;
constexpr int kEllipsoidCount = kTable + GX_TABLE_ROOM;
static_assert(kEllipsoidCount <= GX_CONIC_LAYOUT_ROOM);

double unit_parallel_radius(double e2, double p) { return std::cos(p) / gx_w(e2, p); }

double meridian_arc(double e2, double p, double rect, const double* table) {
  return gx_phi_to_mu_c(e2, p, table) * rect;
}

void cylinder_setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  if (gx_is_sphere(sphere)) {
    k[kXScale] = a * std::cos(phi1);
    return;
  }
  double* table = k + kCylTable;
  gx_mu_series_init(e2, table, mask);
  double rect = gx_rect_r(a, e2);
  k[kXScale] = a * unit_parallel_radius(e2, phi1);
  k[kCylM0] = meridian_arc(e2, parms[GX_PARM_LATITUDE_OF_ORIGIN], rect, table);
  k[kCylRect] = rect;
}

void cone_setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  double phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  bool single = gx_eq(phi1, phi2);
  if (gx_is_sphere(sphere)) {
    double n = single ? std::sin(phi1) : (std::cos(phi1) - std::cos(phi2)) / (phi2 - phi1);
    double G = std::cos(phi1) / n + phi1;
    k[kN] = n;
    k[kG] = G;
    k[kRho0] = (G - phi0) * a;
    return;
  }
  double* table = k + kTable;
  gx_mu_series_init(e2, table, mask);
  double rect = gx_rect_r(a, e2);
  double m1 = unit_parallel_radius(e2, phi1), M1 = meridian_arc(e2, phi1, rect, table);
  double n = single ? std::sin(phi1)
                    : (m1 - unit_parallel_radius(e2, phi2)) * a /
                          (meridian_arc(e2, phi2, rect, table) - M1);
  double G = m1 / n + M1 / a;
  k[kN] = n;
  k[kG] = G;
  k[kRho0] = G * a - meridian_arc(e2, phi0, rect, table);
  k[kRect] = rect;
}

void setup(const double* sphere, const double* parms, int mask, double* k) {
  if (is_cylinder(parms))
    cylinder_setup(sphere, parms, mask, k);
  else
    cone_setup(sphere, parms, mask, k);
}

int32_t layout_count(const double* sphere, const double* parms) {
  if (is_cylinder(parms)) return gx_is_sphere(sphere) ? kCylSphereCount : kCylEllipsoidCount;
  return gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
}

int32_t cylinder_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                         double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  bool on_sphere = gx_is_sphere(sphere);
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    p[0] = gx_delta_fast(p[0] - lam0) * k[kXScale];
    p[1] = on_sphere ? (p[1] - phi0) * a
                     : meridian_arc(e2, p[1], k[kCylRect], k + kCylTable) - k[kCylM0];
  }
  return count;
}

int32_t cylinder_inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                         double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  bool on_sphere = gx_is_sphere(sphere);
  double rscale = 1 / k[kXScale];
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    p[0] = gx_delta_fast(p[0] * rscale + lam0);
    p[1] = on_sphere ? p[1] / a + phi0
                     : gx_mu_to_phi_c(e2, (p[1] + k[kCylM0]) / k[kCylRect], k + kCylTable);
  }
  return count;
}

int32_t cone_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                     double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  double n = k[kN], G = k[kG], rho0 = k[kRho0];
  bool on_sphere = gx_is_sphere(sphere);
  double Ga = G * a;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double theta = gx_delta_fast(p[0] - lam0) * n;
    double rho = on_sphere ? (G - p[1]) * a : Ga - meridian_arc(e2, p[1], k[kRect], k + kTable);
    p[0] = std::sin(theta) * rho;
    p[1] = rho0 - std::cos(theta) * rho;
  }
  return count;
}

int32_t cone_inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                     double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  double n = k[kN], G = k[kG], rho0 = k[kRho0];
  bool on_sphere = gx_is_sphere(sphere);
  double Ga = G * a, rn = 1 / n;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double x = p[0], y = p[1];
    double dy = rho0 - y;
    double rho = gx_hypot(x, dy);
    if (n < 0) rho = -rho;
    double theta = 0;
    if (!gx_eq(rho, 0)) theta = n < 0 ? std::atan2(-x, y - rho0) : std::atan2(x, dy);
    p[0] = gx_delta_fast(theta * rn + lam0);
    p[1] = on_sphere ? G - rho / a : gx_mu_to_phi_c(e2, (Ga - rho) / k[kRect], k + kTable);
  }
  return count;
}

}  // namespace

int32_t gx_equidistant_conic_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                     const int32_t* ints, const double* doubles) {
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_FORWARD,
                      is_cylinder(parms) ? cylinder_forward : cone_forward);
}

// The set-up of the inverse needs M both ways: the arcs of the parallels and
// the latitude of an arc.
int32_t gx_equidistant_conic_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                     const int32_t* ints, const double* doubles) {
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_BOTH,
                      is_cylinder(parms) ? cylinder_inverse : cone_inverse);
}

int32_t gx_equidistant_conic_constants(gx_constants* block, const double* sphere,
                                       const double* parms) {
  return gx_layout_load(block, layout_count(sphere, parms), setup, sphere, parms);
}
