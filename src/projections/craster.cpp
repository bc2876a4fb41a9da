// Craster Parabolic: an equal-area map whose meridians are parabolas.
#include "projections/world.h"

namespace {

constexpr int kX = 0;  // a * 0.9772050238058398, the x factor
constexpr int kY = 1;  // a * 3.0699801238394655, the y factor
constexpr int kCount = 2;

void setup(const double* sphere, const double*, int, double* k) {
  k[kX] = sphere[0] * 0.9772050238058398;
  k[kY] = sphere[0] * 3.0699801238394655;
}

// 2 cos(2 phi / 3) - 1: the width of a parallel against the equator's.
double width(double phi) { return 2.0 * std::cos(phi * 0.6666666666666666) - 1.0; }

}  // namespace

int32_t gx_craster_parabolic_forward(const double* sphere, double* parms, int32_t n,
                                     double* coords, const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double kx = k[kX], ky = k[kY], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    x = width(phi) * dlam * kx;
    y = std::sin(phi * 0.3333333333333333) * ky;
  });
}

int32_t gx_craster_parabolic_inverse(const double* sphere, double* parms, int32_t n,
                                     double* coords, const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double kx = k[kX], ry = 1.0 / k[kY], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = 3.0 * std::asin(y * ry);
    double dlam = x / (width(phi) * kx);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_craster_parabolic_constants(gx_constants* block, const double* sphere,
                                       const double* parms) {
  return gx_layout_load(block, kCount, setup, sphere, parms);
}
