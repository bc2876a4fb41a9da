// Sinusoidal: parallels at their true distance along the central meridian,
// each at its true length.  On the ellipsoid the distance is the meridian arc,
// through the rectifying latitude and radius.
#include "projections/world.h"

namespace {

// Layout on an ellipsoid: the rectifying radius, then the rectifying table.
// A sphere keeps nothing.
constexpr int kRectR = 0;
constexpr int kTable = 1;
constexpr int kEllipsoidCount = kTable + GX_MU_TABLE_SIZE;

void setup(const double* sphere, const double*, int mask, double* k) {
  if (gx_is_sphere(sphere)) return;
  k[kRectR] = gx_rect_r(sphere[0], sphere[1]);
  gx_mu_series_init(sphere[1], k + kTable, mask);
}

// The parallel's radius cos(phi) * gx_n(a, e2, phi), with gx_n's own formula
// written out so that its sine and the cosine come from one call.
double parallel_radius(double a, double e2, double phi) {
  double s = std::sin(phi), c = std::cos(phi);
  return c * (a / std::sqrt(1.0 - s * s * e2));
}

}  // namespace

int32_t gx_sinusoidal_forward(const double* sphere, double* parms, int32_t n, double* coords,
                              const int32_t*, const double* doubles) {
  double local[kEllipsoidCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, GX_SERIES_FORWARD);
  double a = sphere[0], e2 = sphere[1], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  if (gx_is_sphere(sphere)) {
    return gx_each_point(n, coords, [&](double& x, double& y) {
      double dlam = gx_delta_fast(x - lam0), phi = y;
      x = std::cos(phi) * dlam * a;
      y = phi * a;
    });
  }
  double rect_r = k[kRectR];
  const double* table = k + kTable;
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    x = parallel_radius(a, e2, phi) * dlam;
    y = gx_phi_to_mu_c(e2, phi, table) * rect_r;
  });
}

int32_t gx_sinusoidal_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                              const int32_t*, const double* doubles) {
  double local[kEllipsoidCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, GX_SERIES_INVERSE);
  double a = sphere[0], e2 = sphere[1], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  if (gx_is_sphere(sphere)) {
    return gx_each_point(n, coords, [&](double& x, double& y) {
      double phi = y / a;
      double dlam = gx_is_halfpi(phi) ? 0.0 : gx_onto_half_turn(x / (std::cos(phi) * a));
      x = gx_delta_fast(dlam + lam0);
      y = phi;
    });
  }
  double rect_r = k[kRectR];
  const double* table = k + kTable;
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = gx_mu_to_phi_c(e2, y / rect_r, table);
    double dlam = gx_is_halfpi(phi) ? 0.0 : gx_onto_half_turn(x / parallel_radius(a, e2, phi));
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_sinusoidal_constants(gx_constants* block, const double* sphere, const double* parms) {
  return gx_layout_load(block, gx_is_sphere(sphere) ? 0 : kEllipsoidCount, setup, sphere, parms);
}
