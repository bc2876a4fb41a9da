// The quartic equal-area maps: Quartic Authalic, whose pole is a point, and
// the Flat Polar Quartic, whose pole is a line a third as long as the equator.
#include "projections/world.h"

namespace {

// Flat Polar Quartic constants: [0] the x factor, [1] the y factor.
constexpr int kFpqX = 0;
constexpr int kFpqY = 1;
constexpr int kFpqCount = 2;
// Its Newton loop ends on this step size.  It has no count of its own; the
// cap only stops a NaN latitude.
constexpr double kFpqTolerance = 1e-13;
constexpr int kFpqSafetyCap = 10000;

void fpq_setup(const double* sphere, const double*, int, double* k) {
  k[kFpqX] = sphere[0] * 0.3124597141037825;
  k[kFpqY] = sphere[0] * 1.874758284622695;
}

// The auxiliary angle: sin(theta / 2) + sin theta = (1 + sqrt 2 / 2) sin phi,
// by Newton from theta = phi.  A pass takes the sine and cosine of theta
// from those of theta / 2, by the double angle: one call of trigonometry
// instead of two.
struct fpq_equation {
  static double rhs(double phi) { return std::sin(phi) * 1.7071067811865475; }
  static double step(double theta, double rhs) {
    double sh = std::sin(theta * 0.5), ch = std::cos(theta * 0.5);
    double f = rhs - sh - 2.0 * sh * ch;
    double df = -ch * 0.5 - (ch - sh) * (ch + sh);
    return f / df;
  }
  static bool ends(double step, int passes) {
    return std::fabs(step) <= kFpqTolerance || passes >= kFpqSafetyCap;
  }
};
using fpq_angle = gx_newton_angle<fpq_equation>;

}  // namespace

int32_t gx_quartic_authalic_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                    const int32_t*, const double*) {
  double a = sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    double half = phi * 0.5;
    x = (std::cos(phi) / std::cos(half)) * dlam * a;
    y = std::sin(half) * a * 2.0;
  });
}

int32_t gx_quartic_authalic_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                    const int32_t*, const double*) {
  double a = sphere[0], r = 1.0 / (2.0 * a), lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = 2.0 * std::asin(gx_clamp_unit(y * r));
    double dlam = gx_is_halfpi(phi) ? 0.0 : (std::cos(phi * 0.5) / std::cos(phi)) * x / a;
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_flat_polar_quartic_forward(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t*, const double* doubles) {
  double local[kFpqCount];
  const double* k = gx_layout(doubles, local, fpq_setup, sphere, parms, 0);
  double kx = k[kFpqX], ky = k[kFpqY], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point_by_twos(n, coords, gx_iterate_pair<fpq_angle>, gx_iterate<fpq_angle>,
                               [&](double* xy, double theta) {
                                 double dlam = gx_delta_fast(xy[0] - lam0);
                                 double sh = std::sin(theta * 0.5), ch = std::cos(theta * 0.5);
                                 double cos_theta = (ch - sh) * (ch + sh);
                                 xy[0] = (2.0 * cos_theta / ch + 1.0) * dlam * kx;
                                 xy[1] = sh * ky;
                               });
}

int32_t gx_flat_polar_quartic_inverse(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t*, const double* doubles) {
  double local[kFpqCount];
  const double* k = gx_layout(doubles, local, fpq_setup, sphere, parms, 0);
  double kx = k[kFpqX], ry = 1.0 / k[kFpqY], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double s = y * ry;
    // sin 2t and cos 2t from the sine and cosine of t = asin(s), which s
    // itself gives.
    gx_angle t = gx_angle_of_sine(s);
    double st = t.sin, ct = t.cos;
    double phi = std::asin((2.0 * st * ct + s) * 0.585786437626905);
    double dlam = x / ((2.0 * ((ct - st) * (ct + st)) / ct + 1.0) * kx);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_flat_polar_quartic_constants(gx_constants* block, const double* sphere,
                                        const double* parms) {
  return gx_layout_load(block, kFpqCount, fpq_setup, sphere, parms);
}
