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

// Where the equation's slope 2 + 2 cos 2 theta is not small, the stated
// search, which ends on |f| <= GX_EPS or on a bracket of pi/2 GX_EPS, ends
// within 1e-12 rad of the root: the slope is 4 (pi/2 - theta)^2 near the
// pole, so up to theta of pi/2 - 0.03, or |phi| of about 1.566.  Below
// |phi| of 1.55 Halley's method on u = 2 theta (u + sin u = r) finds the
// root itself: from a start good to 1e-3 (u = r/2 + r^3/96 from the equator,
// pi - cbrt(6 (pi - r)) towards the pole) it takes two passes, three at
// most (gx_halley_angle).  Above the limit, and for NaN, the search runs as
// stated.
constexpr double kHalleyLimit = 1.55;
constexpr double kSeriesStartLimit = 2.3;  // r where the pole's start is the better

// u + sin u = r, in u = 2 theta.
struct doubled_angle_equation {
  static void terms(double u, double s, double c, double r, double* f, double* slope, double* bend) {
    *f = u + s - r;
    *slope = 1.0 + c;
    *bend = -s;
  }
};

// The half angle of u with its sine and cosine, from those of u, each by the
// form that keeps its digits (1 + cos u is small towards the pole, 1 - cos u
// towards the equator).
gx_angle half_of(const gx_angle& u) {
  if (u.rad < GX_HALFPI) {
    double c = std::sqrt((1.0 + u.cos) * 0.5);
    return {u.rad * 0.5, u.sin / (2.0 * c), c};
  }
  double s = std::sqrt((1.0 - u.cos) * 0.5);
  return {u.rad * 0.5, s, u.sin / (2.0 * s)};
}

gx_angle halley_angle(double phi) {
  constexpr double pi = 3.141592653589793;
  double r = std::sin(std::fabs(phi)) * pi;
  if (r == 0.0) return {std::copysign(0.0, phi), std::copysign(0.0, phi), 1.0};
  double u = r < kSeriesStartLimit ? r * 0.5 + r * r * r / 96.0 : pi - std::cbrt(6.0 * (pi - r));
  return gx_signed_like(half_of(gx_halley_angle<doubled_angle_equation>(u, r)), phi);
}

}  // namespace

gx_angle gx_mollweide_angle(double phi) {
  if (std::fabs(phi) <= kHalleyLimit) return halley_angle(phi);
  return gx_angle_of(gx_iterate<mollweide_angle>(phi));
}

int32_t gx_mollweide_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, gx_mollweide_setup, sphere, parms, 0);
  double cy = k[kCy], cx = k[kCx], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    gx_angle theta = gx_mollweide_angle(y);
    x = theta.cos * gx_delta_fast(x - lam0) * cx;
    y = theta.sin * cy;
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
