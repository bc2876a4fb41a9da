// Albers equal-area conic, with two standard parallels (or one, phi1 = phi2)
// and a latitude of origin phi0 from which y is measured.  Parallels that
// mirror each other about the equator make a cylinder: such a run is a
// cylindrical equal-area run with y measured from phi0.
#include <cmath>

#include "projections/conic.h"
#include "projections/cylindrical.h"

namespace {

bool albers_is_cylinder(const double* parms) {
  return gx_eq(parms[GX_PARM_STANDARD_PARALLEL_1], -parms[GX_PARM_STANDARD_PARALLEL_2]);
}

// The cone's constants: radius of the parallel of origin (metres), the
// constant C and the cone constant n; on the ellipsoid also qp, the authalic
// q of the pole, and the authalic table.  The sphere's qp is 2.
enum : int { kRho0, kC, kN, kQp, kTable };
constexpr int kSphereCount = kQp;
constexpr int kEllipsoidCount = kTable + GX_TABLE_ROOM;
static_assert(kEllipsoidCount <= GX_CONIC_LAYOUT_ROOM);
constexpr double kSphereQp = 2.0;

void cone_setup_sphere(const double* sphere, const double* parms, double* k) {
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  double phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  double n = (std::sin(phi1) + std::sin(phi2)) / 2;
  double C = std::cos(phi1) * std::cos(phi1) + 2 * n * std::sin(phi1);
  k[kRho0] = std::sqrt(C - 2 * n * std::sin(phi0)) / n * sphere[0];
  k[kC] = C;
  k[kN] = n;
}

// q(p) = sin(beta(p)) * qp, in closed form from sin p (set-up and points
// alike, so the parallel of origin gives rho0 exactly), and the unit radius
// of the parallel p.
double ellipsoid_q(double e2, double p) { return gx_authalic_q_of(std::sqrt(e2), e2, std::sin(p)); }
double ellipsoid_m(double e2, double p) { return std::cos(p) / gx_w(e2, p); }

void cone_setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0], e2 = sphere[1];
  if (gx_is_sphere(sphere)) {
    cone_setup_sphere(sphere, parms, k);
    return;
  }
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  double phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  double* table = k + kTable;
  gx_beta_series_init(e2, table, mask);
  double e = std::sqrt(e2);
  double qp = 1 - ((1 - e2) / (2 * e)) * std::log((1 - e) / (1 + e));
  double q1 = ellipsoid_q(e2, phi1), q2 = ellipsoid_q(e2, phi2);
  double m1 = ellipsoid_m(e2, phi1), m2 = ellipsoid_m(e2, phi2);
  double n = gx_eq(q1, q2) ? std::sin(phi1) : (m1 * m1 - m2 * m2) / (q2 - q1);
  double C = m1 * m1 + n * q1;
  k[kRho0] = std::sqrt(C - n * ellipsoid_q(e2, phi0)) / n * a;
  k[kC] = C;
  k[kN] = n;
  k[kQp] = qp;
}

int32_t cone_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                     double* coords) {
  double a = sphere[0], e2 = sphere[1], e = std::sqrt(e2);
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  double rho0 = k[kRho0], C = k[kC], n = k[kN], a_over_n = a / n;
  bool on_sphere = gx_is_sphere(sphere);
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - lam0);
    double sin_phi = std::sin(p[1]);
    double q = on_sphere ? 2 * sin_phi : gx_authalic_q_of(e, e2, sin_phi);
    // Beyond the cone's reach the root is of a negative number: NaN.
    double rho = std::sqrt(C - n * q) * a_over_n;
    gx_angle theta = gx_angle_of(dlam * n);
    p[0] = theta.sin * rho;
    p[1] = rho0 - theta.cos * rho;
  }
  return count;
}

int32_t cone_inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                     double* coords) {
  double e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  double rho0 = k[kRho0], C = k[kC], n = k[kN];
  bool on_sphere = gx_is_sphere(sphere);
  double ra = 1 / sphere[0], rn = 1 / n, rqp = 1 / (on_sphere ? kSphereQp : k[kQp]);
  const double* table = k + kTable;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double x = p[0], y = p[1];
    double dy = rho0 - y;
    double rho = gx_hypot(x, dy);
    double theta = n < 0 ? std::atan2(-x, y - rho0) : std::atan2(x, dy);
    double r = rho * ra * n;
    // s is the sine of the (authalic) latitude; rounding may carry it past 1.
    double s = (C - r * r) * rn * rqp;
    if (std::fabs(s) <= GX_EPS) s = 0;
    if (std::fabs(s) > 1) s = std::copysign(1.0, s);
    double lam = gx_delta_fast(theta * rn + lam0);
    p[0] = std::fabs(lam) <= GX_EPS ? 0.0 : lam;
    p[1] = on_sphere ? std::asin(s) : gx_beta_to_phi_a(e2, gx_angle_of_sine(s), table).rad;
  }
  return count;
}

// Parallels that mirror each other: the cylindrical equal-area on phi1, with
// y measured from phi0.
double cylinder_origin_y(const double* sphere, double* parms, const int32_t* ints,
                         const double* doubles) {
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  if (phi0 == 0.0) return 0;
  return gx_conic_origin_y(gx_cylindrical_equal_area_forward, sphere, parms, phi0, ints, doubles);
}

}  // namespace

int32_t gx_albers_forward(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  if (!albers_is_cylinder(parms))
    return gx_conic_run(sphere, parms, n, coords, doubles, cone_setup, GX_SERIES_FORWARD,
                        cone_forward);
  double y0 = cylinder_origin_y(sphere, parms, ints, doubles);
  int32_t result = gx_cylindrical_equal_area_forward(sphere, parms, n, coords, ints, doubles);
  for (double* p = coords; p < coords + 2 * n; p += 2) p[1] = p[1] - y0;
  return result;
}

int32_t gx_albers_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  if (!albers_is_cylinder(parms))
    return gx_conic_run(sphere, parms, n, coords, doubles, cone_setup, GX_SERIES_BOTH,
                        cone_inverse);
  double y0 = cylinder_origin_y(sphere, parms, ints, doubles);
  for (double* p = coords; p < coords + 2 * n; p += 2) p[1] = p[1] + y0;
  return gx_cylindrical_equal_area_inverse(sphere, parms, n, coords, ints, doubles);
}

int32_t gx_albers_constants(gx_constants* block, const double* sphere, const double* parms) {
  if (albers_is_cylinder(parms)) return gx_cylindrical_equal_area_constants(block, sphere, parms);
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, cone_setup, sphere, parms);
}
