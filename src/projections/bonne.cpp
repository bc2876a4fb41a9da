// Bonne: an equal-area pseudoconic whose parallels are concentric circles
// spaced true to scale along the central meridian, touching the cone of the
// standard parallel phi1.  With phi1 on the equator the circles become
// straight lines and the projection is the sinusoidal.
//
// M(p) is the meridian arc to p: the rectifying latitude times the rectifying
// radius.
#include <cmath>

#include "projections/conic.h"

namespace {

// Constants: tan(phi1); on the ellipsoid also the prime vertical radius N1 at
// phi1, the rectifying radius, M(phi1) and the rectifying table.
enum : int { kTanPhi1, kN1, kRect, kM1, kTable };
constexpr int kSphereCount = 1;
constexpr int kEllipsoidCount = kTable + GX_TABLE_ROOM;
static_assert(kEllipsoidCount <= GX_CONIC_LAYOUT_ROOM);

void setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  k[kTanPhi1] = std::tan(phi1);
  if (gx_is_sphere(sphere)) return;
  gx_mu_series_init(e2, k + kTable, mask);
  k[kN1] = gx_n(a, e2, phi1);
  k[kRect] = gx_rect_r(a, e2);
  k[kM1] = gx_phi_to_mu_c(e2, phi1, k + kTable) * k[kRect];
}

bool is_sinusoidal(const double* parms) {
  return std::fabs(parms[GX_PARM_STANDARD_PARALLEL_1]) <= GX_EPS;
}

double meridian_arc(double e2, double p, const double* k) {
  return gx_phi_to_mu_c(e2, p, k + kTable) * k[kRect];
}

// The longitude from the central meridian, with a rounding excess over pi
// taken back to pi.
double longitude(double dlam, double lam0) {
  if (std::fabs(dlam) > GX_PI && gx_eq(std::fabs(dlam), GX_PI)) dlam = std::copysign(GX_PI, dlam);
  return gx_delta_fast(dlam + lam0);
}

int32_t sphere_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                       double* coords) {
  double a = sphere[0];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  bool sinusoidal = is_sinusoidal(parms);
  double ct = 1 / k[kTanPhi1];
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - lam0), phi = p[1];
    if (sinusoidal) {
      p[0] = std::cos(phi) * dlam * a;
      p[1] = phi * a;
    } else {
      double rho = ct + phi1 - phi;
      double E = dlam * std::cos(phi) / rho;
      p[0] = std::sin(E) * rho * a;
      p[1] = (ct - std::cos(E) * rho) * a;
    }
  }
  return count;
}

int32_t ellipsoid_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                          double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  bool sinusoidal = is_sinusoidal(parms);
  double apex = k[kN1] / k[kTanPhi1];
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - lam0), phi = p[1];
    double N = gx_n(a, e2, phi);
    if (sinusoidal) {
      p[0] = std::cos(phi) * N * dlam;
      p[1] = meridian_arc(e2, phi, k);
    } else {
      double rho = apex + k[kM1] - meridian_arc(e2, phi, k);
      double E = dlam * std::cos(phi) * N / rho;
      p[0] = std::sin(E) * rho;
      p[1] = apex - std::cos(E) * rho;
    }
  }
  return count;
}

int32_t sphere_inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                       double* coords) {
  double a = sphere[0];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  bool sinusoidal = is_sinusoidal(parms);
  double ct = 1 / k[kTanPhi1];
  double cta = ct * a;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double x = p[0], y = p[1];
    double phi, dlam = 0;
    if (sinusoidal) {
      phi = y / a;
      if (!gx_is_halfpi(phi)) dlam = x / (std::cos(phi) * a);
    } else {
      double dy = cta - y;
      double rho = gx_hypot(x, dy);
      if (phi1 < 0) rho = -rho;
      phi = ct + phi1 - rho / a;
      if (!gx_is_halfpi(phi)) {
        double theta = phi1 >= 0 ? std::atan2(x, dy) : std::atan2(-x, -dy);
        dlam = theta * rho / (std::cos(phi) * a);
      }
    }
    p[0] = longitude(dlam, lam0);
    p[1] = phi;
  }
  return count;
}

int32_t ellipsoid_inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                          double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  bool sinusoidal = is_sinusoidal(parms);
  double apex = k[kN1] / k[kTanPhi1];
  const double* table = k + kTable;
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double x = p[0], y = p[1];
    double phi, dlam = 0;
    if (sinusoidal) {
      phi = gx_mu_to_phi_c(e2, y / k[kRect], table);
      if (!gx_is_halfpi(phi)) dlam = x / (std::cos(phi) * gx_n(a, e2, phi));
    } else {
      double dy = apex - y;
      double rho = gx_hypot(x, dy);
      if (phi1 < 0) rho = -rho;
      phi = gx_mu_to_phi_c(e2, (apex + k[kM1] - rho) / k[kRect], table);
      if (!gx_is_halfpi(phi)) {
        double theta = phi1 >= 0 ? std::atan2(x, dy) : std::atan2(-x, -dy);
        // The longitude lies on the side of the central meridian that x says.
        dlam = std::copysign(theta * rho / (std::cos(phi) * gx_n(a, e2, phi)), x);
      }
    }
    p[0] = longitude(dlam, lam0);
    p[1] = phi;
  }
  return count;
}

}  // namespace

int32_t gx_bonne_forward(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles) {
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_FORWARD,
                      gx_is_sphere(sphere) ? sphere_forward : ellipsoid_forward);
}

// The inverse's set-up needs M forward (the arc of phi1) and its latitudes
// come back through the inverse series.
int32_t gx_bonne_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles) {
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_BOTH,
                      gx_is_sphere(sphere) ? sphere_inverse : ellipsoid_inverse);
}

int32_t gx_bonne_constants(gx_constants* block, const double* sphere, const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, setup, sphere, parms);
}
