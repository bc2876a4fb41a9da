// Mollweide: the equal-area ellipse, its auxiliary angle the root of
// 2 theta + sin 2 theta = pi sin |phi|, by Brent's search where Newton's
// method would creep, next to the poles, and by Halley's method elsewhere.
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

namespace {

// Below |phi| of 1.5 rad the equation's slope 2 + 2 cos 2 theta is at least
// 0.13, so the stated search, which ends on |f| <= GX_EPS or on a bracket of
// pi/2 GX_EPS, ends within 3e-14 rad of the root.  There Halley's method on
// u = 2 theta (u + sin u = r) finds the root itself: from a start good to
// 1e-3 (u = r/2 + r^3/96 from the equator, pi - cbrt(6 (pi - r)) towards the
// pole) it takes two passes of one sine and cosine, three at most: Halley's
// error goes as the cube of the last step (with a factor below 4 here), so a
// step below 1e-6 leaves one below 1e-17.  Above the limit, and for NaN,
// the search runs as stated.
constexpr double kHalleyLimit = 1.5;
constexpr double kSeriesStartLimit = 2.3;  // r where the pole's start is the better
constexpr double kLastStep = 1e-6;
constexpr int kHalleyCap = 8;

double halley_theta(double phi) {
  constexpr double pi = 3.141592653589793;
  double r = std::sin(std::fabs(phi)) * pi;
  double u = r < kSeriesStartLimit ? r * 0.5 + r * r * r / 96.0 : pi - std::cbrt(6.0 * (pi - r));
  for (int pass = 0; pass < kHalleyCap; ++pass) {
    double s = std::sin(u), c = std::cos(u);
    double g = u + s - r, slope = 1.0 + c;
    double step = g / (slope + g * s / (2.0 * slope));
    u -= step;
    if (std::fabs(step) <= kLastStep) break;
  }
  return std::copysign(u * 0.5, phi);
}

}  // namespace

double gx_mollweide_theta(double phi) {
  return std::fabs(phi) <= kHalleyLimit ? halley_theta(phi) : gx_iterate<mollweide_angle>(phi);
}

void gx_mollweide_theta_pair(const double* phi, double* theta) {
  theta[0] = gx_mollweide_theta(phi[0]);
  theta[1] = gx_mollweide_theta(phi[1]);
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
