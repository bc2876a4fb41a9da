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
// root itself, in one pass from the start below (gx_halley_angle).  Above
// the limit, and for NaN, the search runs as stated.
constexpr double kHalleyLimit = 1.55;
constexpr double kSeriesStartLimit = 2.3;  // r where the pole's fit takes over

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

// The start of the iteration, good to 5e-8 (least-squares fits made by
// tools/fits/mollweide_start.py, highest power first): u / r as a
// polynomial in r^2 up to r of 2.3, and beyond it (pi - u) / s as one in
// s^2, s = cbrt(6 (pi - r)), for u + sin u has a cube-root end at the pole.
// One pass of Halley's method then leaves an error of order 1e-22.
constexpr double kEquatorFit[] = {1.4274546190114604e-09, -1.739776784172673e-08, 1.32345563385971e-07,
                                  -2.13864134344229e-07,  3.1673061950031292e-06, 3.252030120232283e-05,
                                  0.0005212510744411084,  0.010416584571159297,   0.5000000026211961};
constexpr double kPoleFit[] = {3.2945753381298734e-07, 1.9033289725663335e-06, 4.0606748171566635e-05,
                               0.0007136524358672643,  0.016666821971552552,   0.9999999939322042};

double start_of(double r) {
  constexpr double pi = 3.141592653589793;
  if (r < kSeriesStartLimit) return r * gx_polynomial(kEquatorFit, r * r);
  double s = std::cbrt(6.0 * (pi - r));
  return pi - s * gx_polynomial(kPoleFit, s * s);
}

gx_angle halley_angle(double phi) {
  double r = std::sin(std::fabs(phi)) * 3.141592653589793;
  if (r == 0.0) return {std::copysign(0.0, phi), std::copysign(0.0, phi), 1.0};
  return gx_signed_like(half_of(gx_halley_angle<doubled_angle_equation>(start_of(r), r)), phi);
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
