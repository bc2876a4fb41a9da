// Lambert conformal conic, with one standard parallel (phi1 = phi2) or two,
// a scale factor k0 and a latitude of origin phi0 from which y is measured.
//
// The shape of the run is decided first, the same way in all three
// functions: both parallels on one pole make a plane (a polar stereographic),
// parallels that mirror each other about the equator make a cylinder (a
// Mercator scaled by k0), one parallel on a pole is no projection at all, and
// everything else is a cone.
#include <cmath>

#include "projections/azimuthal.h"
#include "projections/conic.h"
#include "projections/cylindrical.h"

namespace {

// The shapes a definition can take; the cone comes last, after the hand-offs.
enum class lcc_shape { plane, cylinder, refused, cone };

lcc_shape lcc_choose(const double* parms) {
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  double phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];
  if (gx_eq(phi1, phi2) && gx_is_halfpi(phi1)) return lcc_shape::plane;
  if (gx_eq(phi1, -phi2)) return lcc_shape::cylinder;
  if (gx_is_halfpi(phi1) || gx_is_halfpi(phi2)) return lcc_shape::refused;
  return lcc_shape::cone;
}

// The cone's constants: the cone constant n, F (with the sign of n, in
// metres) and the radius rho0 of the parallel of origin; then, on the
// ellipsoid, the conformal table.
enum : int {
  kN,
  kF,
  kRho0,
  kTable,
  kSphereCount = kTable,
  kEllipsoidCount = kTable + GX_TABLE_ROOM
};
static_assert(kEllipsoidCount <= GX_CONIC_LAYOUT_ROOM);

// m(p): the radius of the parallel p on a unit body.
double cone_m(double e2, double p) { return e2 < GX_EPS ? std::cos(p) : std::cos(p) / gx_w(e2, p); }

// t(p) = tan(pi/4 - chi(p)/2), chi being p itself on the sphere.
double cone_t(double e2, double p, const double* table) {
  return std::tan(GX_QUARTERPI - gx_phi_to_chi_c(e2, p, table) / 2);
}

void cone_setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  double phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  const double* table = k + kTable;
  if (!gx_is_sphere(sphere)) gx_chi_series_init(e2, k + kTable, mask);
  double m1 = cone_m(e2, phi1), t1 = cone_t(e2, phi1, table);
  double n;
  if (gx_eq(phi1, phi2)) {
    n = std::sin(phi1);
  } else {
    double m2 = cone_m(e2, phi2), t2 = cone_t(e2, phi2, table);
    n = (std::log(m1) - std::log(m2)) / (std::log(t1) - std::log(t2));
  }
  double F = m1 / (std::pow(t1, n) * n) * a;
  k[kN] = n;
  k[kF] = F;
  k[kRho0] = std::pow(cone_t(e2, phi0, table), n) * F;
}

// A latitude at or beyond a pole is taken as the clamped pole.
double cone_clamp(double phi) {
  if (std::fabs(phi) >= GX_HALFPI) return std::copysign(GX_HALFPI_CLAMP, phi);
  return gx_pole_clamp(phi);
}

// -ln t(phi) per point: the isometric latitude, t being exp(-psi), so that
// t^n is one exponential.  The clamped pole keeps the tangent of chi = phi.
double cone_minus_log_t(double e, double phi) {
  if (gx_is_halfpi(phi)) return -std::log(std::tan(GX_QUARTERPI - phi / 2));
  return gx_isometric_of(e, gx_angle_of(phi));
}

int32_t cone_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                     double* coords) {
  double e = std::sqrt(sphere[1]);
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], k0 = parms[GX_PARM_SCALE_FACTOR];
  double n = k[kN], Fk0 = k[kF] * k0, rho0k0 = k[kRho0] * k0;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - lam0);
    double rho_k0 = std::exp(-n * cone_minus_log_t(e, cone_clamp(p[1]))) * Fk0;
    gx_angle theta = gx_angle_of(dlam * n);
    p[0] = theta.sin * rho_k0;
    p[1] = rho0k0 - theta.cos * rho_k0;
  }
  return count;
}

int32_t cone_inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                     double* coords) {
  double e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  double rk0 = 1 / parms[GX_PARM_SCALE_FACTOR];
  double n = k[kN], rho0 = k[kRho0];
  double rn = 1 / n, rF = 1 / k[kF];
  const double* table = k + kTable;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double xs = p[0] * rk0, ys = p[1] * rk0;
    double dy = rho0 - ys;
    double rho = gx_hypot(xs, dy);
    if (n < 0) rho = -rho;
    double theta = n > 0 ? std::atan2(xs, dy) : std::atan2(-xs, -dy);
    gx_angle chi = gx_angle_from_half_tangent(std::pow(rho * rF, rn));
    double dlam = theta * rn;
    // On the antimeridian of a run centred on Greenwich, a rounding excess
    // over pi must not flip the point to the other side.
    if (lam0 == 0.0 && std::fabs(dlam) > GX_PI && std::fabs(dlam) - GX_PI < 1e-15)
      dlam = std::copysign(GX_PI, dlam);
    p[0] = gx_delta_fast(dlam + lam0);
    p[1] = gx_chi_to_phi_a(e2, chi, table).rad;
  }
  return count;
}

// Parallels that mirror each other: a Mercator with true scale on phi1
// (the caller's slot 3), y measured from phi0, everything scaled by k0.
double cylinder_origin_y(const double* sphere, double* parms, const int32_t* ints,
                         const double* doubles) {
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  if (phi0 == 0.0) return 0;
  return gx_conic_origin_y(gx_mercator_forward, sphere, parms, phi0, ints, doubles);
}

int32_t cylinder_forward(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles) {
  double k0 = parms[GX_PARM_SCALE_FACTOR];
  double y0 = cylinder_origin_y(sphere, parms, ints, doubles);
  int32_t result = gx_mercator_forward(sphere, parms, n, coords, ints, doubles);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = p[0] * k0;
    p[1] = (p[1] - y0) * k0;
  }
  return result;
}

int32_t cylinder_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles) {
  double rk0 = 1 / parms[GX_PARM_SCALE_FACTOR];
  double y0 = cylinder_origin_y(sphere, parms, ints, doubles);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = p[0] * rk0;
    p[1] = p[1] * rk0 + y0;
  }
  return gx_mercator_inverse(sphere, parms, n, coords, ints, doubles);
}

// Both parallels on one pole: a polar stereographic on that pole with the
// caller's central meridian and k0, y measured from phi0.
struct plane_parms {
  double v[GX_PARM_COUNT];
  explicit plane_parms(const double* parms) {
    for (int i = 0; i < GX_PARM_COUNT; ++i) v[i] = parms[i];
    v[GX_PARM_LATITUDE_OF_ORIGIN] = parms[GX_PARM_STANDARD_PARALLEL_1];
  }
};

double plane_origin_y(const double* sphere, const double* parms, plane_parms& local,
                      const int32_t* ints, const double* doubles) {
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  if (gx_eq(phi0, parms[GX_PARM_STANDARD_PARALLEL_1])) return 0;
  return gx_conic_origin_y(gx_stereographic_forward, sphere, local.v, phi0, ints, doubles);
}

int32_t plane_forward(const double* sphere, double* parms, int32_t n, double* coords,
                      const int32_t* ints, const double* doubles) {
  plane_parms local(parms);
  double y0 = plane_origin_y(sphere, parms, local, ints, doubles);
  int32_t result = gx_stereographic_forward(sphere, local.v, n, coords, ints, doubles);
  for (double* p = coords; p < coords + 2 * n; p += 2) p[1] = p[1] - y0;
  return result;
}

int32_t plane_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                      const int32_t* ints, const double* doubles) {
  plane_parms local(parms);
  double y0 = plane_origin_y(sphere, parms, local, ints, doubles);
  for (double* p = coords; p < coords + 2 * n; p += 2) p[1] = p[1] + y0;
  return gx_stereographic_inverse(sphere, local.v, n, coords, ints, doubles);
}

int32_t plane_constants(gx_constants* block, const double* sphere, const double* parms) {
  plane_parms local(parms);
  return gx_stereographic_constants(block, sphere, local.v);
}

// One parallel on a pole: no projection, the coordinates stay as they came.
int32_t refused_run(const double*, double*, int32_t, double*, const int32_t*, const double*) {
  return 0;
}
int32_t refused_constants(gx_constants*, const double*, const double*) { return 0; }

// The shapes other than the cone, by lcc_shape.
struct hand_off {
  gx_projection_fn forward, inverse;
  gx_constants_fn constants;
};
constexpr hand_off kHandOffs[] = {
    {plane_forward, plane_inverse, plane_constants},
    {cylinder_forward, cylinder_inverse, gx_mercator_constants},
    {refused_run, refused_run, refused_constants},
};
static_assert(sizeof kHandOffs / sizeof kHandOffs[0] == static_cast<int>(lcc_shape::cone));

const hand_off& hand_off_of(lcc_shape shape) { return kHandOffs[static_cast<int>(shape)]; }

}  // namespace

int32_t gx_lambert_conformal_conic_forward(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles) {
  lcc_shape shape = lcc_choose(parms);
  if (n < 1) return 0;
  if (shape != lcc_shape::cone)
    return hand_off_of(shape).forward(sphere, parms, n, coords, ints, doubles);
  return gx_conic_run(sphere, parms, n, coords, doubles, cone_setup, GX_SERIES_FORWARD,
                      cone_forward);
}

int32_t gx_lambert_conformal_conic_inverse(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles) {
  lcc_shape shape = lcc_choose(parms);
  if (n < 1) return 0;
  if (shape != lcc_shape::cone)
    return hand_off_of(shape).inverse(sphere, parms, n, coords, ints, doubles);
  return gx_conic_run(sphere, parms, n, coords, doubles, cone_setup, GX_SERIES_BOTH, cone_inverse);
}

int32_t gx_lambert_conformal_conic_constants(gx_constants* block, const double* sphere,
                                             const double* parms) {
  lcc_shape shape = lcc_choose(parms);
  if (shape != lcc_shape::cone) return hand_off_of(shape).constants(block, sphere, parms);
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, cone_setup, sphere, parms);
}
