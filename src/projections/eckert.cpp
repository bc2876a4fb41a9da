// The six Eckert projections: I and II with straight meridians, III to VI
// with elliptical (III, IV) and sinusoidal (V, VI) ones.  II, IV and VI are
// equal-area; IV solves its auxiliary angle by Brent's method, VI by Newton's.
#include "projections/world.h"

namespace {

constexpr double kOneOverPi = 0.3183098861837907;
// Eckert VI's Newton loop: the tolerance on a step, and the step count past
// which the last value stands.
constexpr int kEckertViMaxCount = 50;

double central_meridian(const double* parms) { return parms[GX_PARM_CENTRAL_MERIDIAN]; }

// Eckert IV's equation theta + sin theta cos theta + 2 sin theta
// = (2 + pi/2) sin |phi|, solved by Brent's method.
struct eckert_iv_equation {
  static double rhs(double phi) { return std::sin(std::fabs(phi)) * 3.5707963267948966; }
  static double f(double t, double rhs) {
    double s = std::sin(t);
    return t + s * std::cos(t) + 2.0 * s - rhs;
  }
};
using eckert_iv_angle = gx_brent_angle<eckert_iv_equation>;

// Where the equation's slope 2 cos theta (1 + cos theta) is not small, the
// stated search (ending on |f| <= GX_EPS or a bracket of pi/2 GX_EPS) ends
// within 1e-12 rad of the root: up to theta of pi/2 - 0.002, |phi| of about
// 1.569.  Below |phi| of 1.56 Halley's method finds the root itself, in one
// pass from the start below (gx_halley_angle).  Above the limit, and for
// NaN, the search runs as stated.
constexpr double kEckertIvHalleyLimit = 1.56;
constexpr double kEckertIvTop = 3.5707963267948966;  // 2 + pi/2, the right side at the pole
constexpr double kEckertIvSeriesStart = 2.8;       // r where the top's fit takes over

// theta + sin theta cos theta + 2 sin theta = r.
struct eckert_iv_halley_equation {
  static void terms(double t, double s, double c, double r, double* f, double* slope, double* bend) {
    *f = t + s * c + 2.0 * s - r;
    *slope = 2.0 * c * (1.0 + c);
    *bend = -2.0 * s * (2.0 * c + 1.0);
  }
};

// The start of the iteration (least-squares fits made by
// tools/fits/eckert_iv_start.py, highest power first, good to 5e-7): t / r
// as a polynomial in r^2 up to r of 2.8, and beyond it (pi/2 - t) / w as one
// in w = sqrt(2 + pi/2 - r), for the equation's top is a parabola.
constexpr double kEckertIvEquatorFit[] = {
    1.2552062907868547e-10, -2.537710130638805e-09, 2.6514156497208666e-08,
    -1.0633113338561522e-07, 7.568971085286614e-07, 6.480727014160833e-06,
    0.00014693739413729968, 0.0039061171506435404, 0.2500000063229364};
constexpr double kEckertIvPoleFit[] = {-0.024878682849937654, 0.10876273467833474, -0.2188095987396279,
                                       0.2870838938106548,    -0.3000726394725557, 0.31805091817896364,
                                       -0.3332681260990571,   0.9999992431329626};

double eckert_iv_start(double r) {
  if (r < kEckertIvSeriesStart) return r * gx_polynomial(kEckertIvEquatorFit, r * r);
  double w = std::sqrt(kEckertIvTop - r);
  return GX_HALFPI - w * gx_polynomial(kEckertIvPoleFit, w);
}

gx_angle eckert_iv_halley(double phi) {
  double r = std::sin(std::fabs(phi)) * kEckertIvTop;
  if (r == 0.0) return {std::copysign(0.0, phi), std::copysign(0.0, phi), 1.0};
  return gx_signed_like(gx_halley_angle<eckert_iv_halley_equation>(eckert_iv_start(r), r), phi);
}

gx_angle eckert_iv_theta(double phi) {
  if (std::fabs(phi) <= kEckertIvHalleyLimit) return eckert_iv_halley(phi);
  return gx_angle_of(gx_iterate<eckert_iv_angle>(phi));
}

// Eckert VI's equation theta + sin theta = (1 + pi/2) sin phi, solved by
// Newton from theta = phi; after the 51st pass the last value stands.
struct eckert_vi_equation {
  static double rhs(double phi) { return std::sin(phi) * 2.5707963267948966; }
  static double step(double theta, double rhs) {
    return (std::sin(theta) + theta - rhs) / (std::cos(theta) + 1.0);
  }
  static bool ends(double step, int passes) {
    return std::fabs(step) <= GX_EPS || passes > kEckertViMaxCount;
  }
};
using eckert_vi_angle = gx_newton_angle<eckert_vi_equation>;

}  // namespace

int32_t gx_eckert_i_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double*) {
  double ka = sphere[0] * 0.9213177319235613, lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    x = (1.0 - std::fabs(phi) * kOneOverPi) * dlam * ka;
    y = phi * ka;
  });
}

int32_t gx_eckert_i_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double*) {
  double ka = sphere[0] * 0.9213177319235613, r = 1.0 / ka, lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = y * r;
    double dlam = x / ((1.0 - std::fabs(phi) * kOneOverPi) * ka);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_eckert_ii_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  double a2 = 2.0 * sphere[0], ky = sphere[0] * 1.4472025091165353, lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    double w = std::sqrt(4.0 - 3.0 * std::sin(std::fabs(phi)));
    x = w * dlam * a2 * 0.23032943298089034;
    y = gx_with_sign_of((2.0 - w) * ky, phi);
  });
}

int32_t gx_eckert_ii_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  double a2 = 2.0 * sphere[0], r = 1.0 / (sphere[0] * 1.4472025091165353);
  double lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double w = 2.0 - std::fabs(y) * r;
    double phi = gx_with_sign_of(std::asin(gx_clamp_unit((4.0 - w * w) * 0.3333333333333333)), y);
    double dlam = x * 4.3416075273496055 / (w * a2);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_eckert_iii_forward(const double* sphere, double* parms, int32_t n, double* coords,
                              const int32_t*, const double*) {
  double kx = sphere[0] * 0.4222382003157712, ky = sphere[0] * 0.8444764006315424;
  double lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    double t = phi * 0.6366197723675814;
    double w = 1.0 - t * t;
    x = (std::sqrt(w) + 1.0) * dlam * kx;
    y = phi * ky;
  });
}

int32_t gx_eckert_iii_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                              const int32_t*, const double*) {
  double rx = 1.0 / (sphere[0] * 0.4222382003157712), ry = 1.0 / (sphere[0] * 0.8444764006315424);
  double lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = y * ry;
    double t = phi * 0.6366197723675814;
    double w = 1.0 - t * t;
    double dlam = x * rx / (std::sqrt(w) + 1.0);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_eckert_iv_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  double a = sphere[0], lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    gx_angle theta = eckert_iv_theta(y);
    x = (theta.cos + 1.0) * gx_delta_fast(x - lam0) * a * 0.4222382003157712;
    y = theta.sin * a * 1.3265004281770023;
  });
}

int32_t gx_eckert_iv_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  double a = sphere[0], ky = a * 3.544907701811032, lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double s = gx_clamp_unit(y * 2.6723758443732786 / ky);
    gx_angle theta = gx_angle_of_sine(s);
    double c = theta.cos;
    double phi = std::asin(gx_clamp_unit(((c + 2.0) * s + theta.rad) * 0.2800495767557787));
    double dlam = x * 4.736662856426298 / ((c + 1.0) * a * 2.0);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_eckert_v_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double*) {
  double a = sphere[0], lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    x = (std::cos(phi) + 1.0) * dlam * a * 0.4410127717245515;
    y = phi * a * 0.882025543449103;
  });
}

int32_t gx_eckert_v_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double*) {
  double a = sphere[0], a2 = 2.0 * a, lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = y * 2.267508027238226 / a2;
    double dlam = x * 2.267508027238226 / ((std::cos(phi) + 1.0) * a);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_eckert_vi_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  double a = sphere[0], lam0 = central_meridian(parms);
  return gx_each_point_by_twos(n, coords, gx_iterate_pair<eckert_vi_angle>,
                               gx_iterate<eckert_vi_angle>, [&](double* xy, double theta) {
                                 double dlam = gx_delta_fast(xy[0] - lam0);
                                 xy[0] = (std::cos(theta) + 1.0) * dlam * a * 0.4410127717245515;
                                 xy[1] = theta * a * 0.882025543449103;
                               });
}

int32_t gx_eckert_vi_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  double a = sphere[0], a2 = 2.0 * a, lam0 = central_meridian(parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double theta = y * 2.267508027238226 / a2;
    double phi = std::asin(gx_clamp_unit((std::sin(theta) + theta) * 0.38898452964834274));
    double dlam = x * 2.267508027238226 / ((std::cos(theta) + 1.0) * a);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}
