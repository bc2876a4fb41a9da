// Van der Grinten I: the whole sphere in a circle, meridians and parallels
// arcs of circles.  The inverse takes the latitude as the trigonometric root
// of a cubic, so it needs no iteration; where the cubic nears a double root
// (near the equator and the poles) that root keeps about half the digits, a
// latitude good to 1e-9 radian.
#include "projections/world.h"

namespace {

constexpr double kOneOverPi = 0.3183098861837907;
constexpr double kTwoOverPi = 0.6366197723675814;

// The general point, in units of a pi: the intersection of the meridian's
// and the parallel's circles.
void general_point(double dlam, double phi, double* x, double* y) {
  double adl = std::fabs(dlam);
  double A = (GX_PI / adl - adl * kOneOverPi) * 0.5;
  double t = std::asin(gx_clamp_unit(std::fabs(phi) * kTwoOverPi));
  double sn = std::sin(t), cs = std::cos(t);
  double G = cs / (cs + sn - 1.0);
  double P = G * (2.0 / sn - 1.0);
  double Q = A * A + G;
  double D = P * P + A * A;
  double gp = G - P * P;
  *x = gx_with_sign_of((A * gp + std::sqrt(A * A * (gp * gp) - D * (G * G - P * P))) / D, dlam);
  *y = gx_with_sign_of((P * Q - A * std::sqrt((A * A + 1.0) * D - Q * Q)) / D, phi);
}

}  // namespace

int32_t gx_van_der_grinten_i_forward(const double* sphere, double* parms, int32_t n,
                                     double* coords, const int32_t*, const double*) {
  double a = sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y;
    if (gx_equals(phi, 0.0)) {
      x = dlam * a;
      y = 0.0;
    } else if (gx_equals(dlam, 0.0) || gx_is_halfpi(phi)) {
      double t = std::asin(gx_clamp_unit(std::fabs(phi) * kTwoOverPi));
      x = 0.0;
      y = gx_with_sign_of(std::tan(t * 0.5) * a * GX_PI, phi);
    } else {
      general_point(dlam, phi, &x, &y);
      x = x * a * GX_PI;
      y = y * a * GX_PI;
    }
  });
}

int32_t gx_van_der_grinten_i_inverse(const double* sphere, double* parms, int32_t n,
                                     double* coords, const int32_t*, const double*) {
  double r = 1.0 / (sphere[0] * GX_PI), lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double X = x * r, Y = y * r;
    double X2 = X * X, Y2 = Y * Y, R2 = X2 + Y2;
    double c1 = -std::fabs(Y) * (R2 + 1.0);
    double c2 = c1 - 2.0 * Y2 + X2;
    double c3 = R2 * R2 - 2.0 * c1 + 2.0 * Y2 + 1.0;
    double a2 = c2 / c3;
    double a1 = (c1 - c2 * c2 / (3.0 * c3)) / c3;
    double a3 = (2.0 * a2 * a2 * a2 - 9.0 * (c1 / c3) * a2) * 0.037037037037037035 + Y2 / c3;
    double m1 = 2.0 * std::sqrt(-a1 * 0.3333333333333333);
    // On the equator the cubic has a double root at 0, which the
    // trigonometric form resolves only to the square root of the rounding
    // (1e-8 radian): the latitude there is 0 exactly, as for m1 of 0.
    double phi = 0.0;
    if (Y != 0.0 && !gx_equals(m1, 0.0)) {
      double theta1 = std::acos(gx_clamp_unit(3.0 * a3 / (a1 * m1))) * 0.3333333333333333;
      phi = gx_with_sign_of((-m1 * std::cos(theta1 + 1.0471975511965976) - c2 / (3.0 * c3)) * GX_PI, y);
    }
    double dlam = gx_equals(X, 0.0) ? 0.0
                           : ((R2 - 1.0 + std::sqrt(2.0 * (X2 - Y2) + R2 * R2 + 1.0)) / X) *
                                 1.5707963267948966;
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}
