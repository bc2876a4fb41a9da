// Mercator (43004): the conformal normal cylinder, true to scale on the
// standard parallel.  The ellipsoid goes through the conformal latitude by
// its series table, so no point iterates; forward, the conformal latitude
// stays implicit in the isometric latitude.  Each point makes one call of
// the runtime's trigonometry and one logarithm or exponential.
#include "projections/cylindrical.h"

namespace {

// Layout of the doubles.  The point loops read only a * k and the table.
constexpr int kScale = 0;  // k, the scale on the standard parallel
constexpr int kAk = 1;     // a * k
constexpr int kTable = 2;  // conformal latitude series
constexpr int32_t kSphereCount = 2;
constexpr int32_t kEllipsoidCount = kTable + GX_TABLE_ROOM;

// y / ak of an ellipsoid's latitude: ln tan(pi/4 + chi/2) of its conformal
// latitude chi, which is the isometric latitude, one sincos and one
// logarithm away.  The clamped pole keeps the tangent form of chi = phi.
double ellipsoid_y(double e, double phi) {
  if (gx_is_halfpi(phi)) return std::log(std::tan(phi * 0.5 + GX_QUARTERPI));
  return gx_isometric_of(e, gx_angle_of(phi));
}

// The latitude of y * r = y / ak on an ellipsoid, mirrored like ellipsoid_y:
// chi = pi/2 - 2 atan(exp(-|y| r)) carries its sine and cosine from the
// exponential.
double ellipsoid_phi(double e2, double yr, const double* table) {
  gx_angle chi = gx_angle_from_half_tangent(std::exp(-std::fabs(yr)));
  double phi = gx_chi_to_phi_a(e2, chi, table).rad;
  return yr < 0.0 ? -phi : phi;
}

int32_t forward_points(const double* c, const double* sphere, const double* parms, int32_t n,
                       double* coords) {
  const double e = std::sqrt(sphere[1]), lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ak = c[kAk];
  const bool ellipsoid = !gx_is_sphere(sphere);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double dlam = gx_delta_fast(p[0] - lam0);
    double phi = gx_pole_clamp(p[1]);
    double y = ellipsoid ? ellipsoid_y(e, phi) : std::log(std::tan(phi * 0.5 + GX_QUARTERPI));
    p[0] = dlam * ak;
    p[1] = y * ak;
  }
  return n;
}

int32_t inverse_points(const double* c, const double* sphere, const double* parms, int32_t n,
                       double* coords) {
  const double e2 = sphere[1], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], r = 1.0 / c[kAk];
  const double* table = c + kTable;
  const bool ellipsoid = !gx_is_sphere(sphere);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double yr = r * p[1];
    p[1] = ellipsoid ? ellipsoid_phi(e2, yr, table) : GX_HALFPI - 2.0 * std::atan(std::exp(-yr));
    p[0] = gx_delta_fast(r * p[0] + lam0);
  }
  return n;
}

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

GX_DEFINE_PROJECTION(mercator, gx_mercator_setup, forward_points, GX_SERIES_FORWARD,
                     inverse_points, GX_SERIES_INVERSE)
GX_DEFINE_LOADER(mercator, gx_mercator_setup, kSphereCount, kEllipsoidCount)
