// Mollweide: the equal-area ellipse, its auxiliary angle found by Brent's
// method rather than Newton's, which creeps near the poles.
#include "projections/world.h"

namespace {

constexpr int kCy = 0;  // a sqrt 2, the y factor first
constexpr int kCx = 1;  // a 2 sqrt 2 / pi
constexpr int kCount = 2;

// The Mollweide equation 2 theta + sin 2 theta = pi sin |phi|.
struct mollweide_equation {
  static double rhs(double phi) { return std::sin(std::fabs(phi)) * 3.141592653589793; }
  static double f(double t, double rhs) { return 2.0 * t + std::sin(2.0 * t) - rhs; }
};
using mollweide_angle = gx_brent_angle<mollweide_equation>;

}  // namespace

void gx_mollweide_setup(const double* sphere, const double*, int, double* k) {
  k[kCy] = sphere[0] * 1.4142135623730951;
  k[kCx] = sphere[0] * 0.9003163161571062;
}

double gx_mollweide_theta(double phi) { return gx_iterate<mollweide_angle>(phi); }

void gx_mollweide_theta_pair(const double* phi, double* theta) {
  gx_iterate_pair<mollweide_angle>(phi, theta);
}

int32_t gx_mollweide_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, gx_mollweide_setup, sphere, parms, 0);
  double cy = k[kCy], cx = k[kCx], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point_by_twos(n, coords, gx_mollweide_theta_pair, gx_mollweide_theta,
                               [&](double* xy, double theta) {
                                 double dlam = gx_delta_fast(xy[0] - lam0);
                                 xy[0] = std::cos(theta) * dlam * cx;
                                 xy[1] = std::sin(theta) * cy;
                               });
}

int32_t gx_mollweide_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, gx_mollweide_setup, sphere, parms, 0);
  double cy = k[kCy], r = 1.0 / cy, lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double theta, cos_theta;
    double phi = gx_mollweide_latitude(gx_clamp_unit(y * r), &theta, &cos_theta);
    double dlam = gx_is_halfpi(theta) ? 0.0 : 1.5707963267948966 * x / (cos_theta * cy);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_mollweide_constants(gx_constants* block, const double* sphere, const double* parms) {
  return gx_layout_load(block, kCount, gx_mollweide_setup, sphere, parms);
}
