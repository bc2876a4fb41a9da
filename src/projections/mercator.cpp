// Mercator (43004): the conformal normal cylinder, true to scale on the
// standard parallel.  The ellipsoid goes through the conformal latitude by
// its series table, so no point iterates.
#include "projections/cylindrical.h"
#include "projections/setup.h"

namespace {

// Layout of the doubles.  Forward and inverse read only a * k and the table.
constexpr int kScale = 0;  // k, the scale on the standard parallel
constexpr int kAk = 1;     // a * k
constexpr int kTable = 2;  // conformal latitude series
constexpr int32_t kSphereCount = 2;
constexpr int32_t kEllipsoidCount = kTable + GX_TABLE_ROOM;

}  // namespace

void gx_mercator_setup(const double* sphere, const double* parms, int mask, double* layout) {
  double a = sphere[0], e2 = sphere[1];
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  double k;
  if (gx_is_sphere(sphere)) {
    k = std::cos(phi1);
  } else {
    k = std::cos(phi1) / gx_w(e2, phi1);
    gx_chi_series_init(e2, layout + kTable, mask);
  }
  layout[kScale] = k;
  layout[kAk] = k * a;
}

int32_t gx_mercator_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* c = gx_layout(doubles, local, gx_mercator_setup, sphere, parms, GX_SERIES_FORWARD);
  const double e2 = sphere[1], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ak = c[kAk];
  const double* table = c + kTable;
  const bool ellipsoid = !gx_is_sphere(sphere);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double dlam = gx_delta_fast(p[0] - lam0);
    double phi = gx_pole_clamp(p[1]);
    double chi = ellipsoid ? gx_phi_to_chi_c(e2, phi, table) : phi;
    p[0] = dlam * ak;
    p[1] = std::log(std::tan(chi * 0.5 + GX_QUARTERPI)) * ak;
  }
  return n;
}

int32_t gx_mercator_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* c = gx_layout(doubles, local, gx_mercator_setup, sphere, parms, GX_SERIES_INVERSE);
  const double e2 = sphere[1], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double r = 1.0 / c[kAk];
  const double* table = c + kTable;
  const bool ellipsoid = !gx_is_sphere(sphere);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double chi = GX_HALFPI - 2.0 * std::atan(std::exp(-(r * p[1])));
    p[1] = ellipsoid ? gx_chi_to_phi_c(e2, chi, table) : chi;
    p[0] = gx_delta_fast(r * p[0] + lam0);
  }
  return n;
}

int32_t gx_mercator_constants(gx_constants* block, const double* sphere, const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, gx_mercator_setup, sphere, parms);
}
