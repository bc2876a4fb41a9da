// Times: a Gall-like stereographic spacing of the parallels with meridians
// bent by the sine of a quarter turn; the atlas projection of The Times.
// The radius is the mean of the two axes, on a sphere and an ellipsoid alike.
#include "projections/world.h"

namespace {

constexpr int kEquator = 0;  // R / pi * 2.33246, the equator's x factor
constexpr int kBend = 1;     // R / pi * 1.086778, what S^2 takes off it
constexpr int kY = 2;        // R (1 + sqrt 2 / 2), the y factor
constexpr int kCount = 3;

void setup(const double* sphere, const double*, int, double* k) {
  double mean_radius = (std::sqrt(1.0 - sphere[1]) + 1.0) * sphere[0] * 0.5;
  double r_over_pi = mean_radius * 0.3183098861837907;
  k[kEquator] = r_over_pi * 2.33246;
  k[kBend] = r_over_pi * 1.086778;
  k[kY] = mean_radius * 1.7071067811865475;
}

// The x factor of the parallel whose half-angle tangent is t.
double width(const double* k, double t) {
  double s = std::sin(t * GX_QUARTERPI);
  return k[kEquator] - s * s * k[kBend];
}

}  // namespace

int32_t gx_times_forward(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0);
    double t = std::tan(y * 0.5);
    x = width(k, t) * dlam;
    y = t * k[kY];
  });
}

int32_t gx_times_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, setup, sphere, parms, 0);
  double ry = 1.0 / k[kY], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_count_points(n, coords, [&](double& x, double& y) {
    double t = y * ry;
    if (!gx_within_limit(t, 1.0)) return false;
    double dlam = x / width(k, t);
    if (!gx_within_limit(dlam, GX_PI)) return false;
    x = gx_delta_fast(dlam + lam0);
    y = 2.0 * std::atan(t);
    return true;
  });
}

int32_t gx_times_constants(gx_constants* block, const double* sphere, const double* parms) {
  return gx_layout_load(block, kCount, setup, sphere, parms);
}
