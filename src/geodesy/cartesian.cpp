// Geodetic coordinates to Earth-centred Cartesian ones and back.
#include "geodesy/cartesian.h"

#include <cmath>

#include "geodesy/ellipsoid.h"

namespace {

// Sine and cosine of atan2(y, x) for x >= 0, an angle in [-pi/2, pi/2],
// without forming the angle.
void sin_cos_of_slope(double y, double x, double* s, double* c) {
  const double r = std::sqrt(x * x + y * y);
  *s = y / r;
  *c = x / r;
}

// One pass of Bowring's formula from the reduced latitude u (its sine and
// cosine): the latitude as the slope num / den.  A point beyond the centre
// of curvature gives a negative den, a latitude past +-pi/2; folding it back
// into [-pi/2, pi/2] (pi - phi, or -pi - phi) is taking |den|.
void bowring_slope(const gx_cartesian_ellipsoid& k, double p, double z, double sin_u,
                   double cos_u, double* num, double* den) {
  *num = z + k.k1 * sin_u * sin_u * sin_u;
  *den = std::fabs(p - k.k2 * cos_u * cos_u * cos_u);
}

}  // namespace

void gx_cartesian_setup(double a, double e2, gx_cartesian_ellipsoid* ellipsoid) {
  ellipsoid->a = a;
  ellipsoid->e2 = e2;
  ellipsoid->one_minus_e2 = 1.0 - e2;
  ellipsoid->b = std::sqrt(1.0 - e2) * a;
  ellipsoid->ratio = ellipsoid->b / a;
  ellipsoid->k1 = ellipsoid->b * e2 / (1.0 - e2);
  ellipsoid->k2 = a * e2;
}

void gx_cartesian_from_curv(const gx_cartesian_ellipsoid& ellipsoid, double phi, double lambda,
                            double h, double* x, double* y, double* z) {
  const double sin_phi = std::sin(phi), cos_phi = std::cos(phi);
  const double sin_lambda = std::sin(lambda), cos_lambda = std::cos(lambda);
  const double n = gx_n_of_sin(ellipsoid.a, ellipsoid.e2, sin_phi);
  *x = (n + h) * cos_lambda * cos_phi;
  *y = (n + h) * sin_lambda * cos_phi;
  *z = (ellipsoid.one_minus_e2 * n + h) * sin_phi;
}

// Two passes and no convergence test: the first from the reduced latitude of
// the point itself, u = atan2(a z, b p), the second from that of the first
// estimate, u = atan(tan(phi) b / a).  Only the sines and cosines of these
// angles enter, and they follow from the slopes directly; only the final
// latitude is formed as an angle.  The height is the residual projected on
// the normal, so no division by cos(phi) occurs.
void gx_cartesian_to_curv(const gx_cartesian_ellipsoid& k, double x, double y, double z,
                          double* phi, double* lambda, double* h) {
  const double p = std::sqrt(x * x + y * y);
  if (gx_eq(p, 0.0)) {
    *lambda = 0.0;
    *phi = z >= 0.0 ? GX_HALFPI : -GX_HALFPI;
    *h = std::fabs(z) - k.b;
    return;
  }
  *lambda = std::atan2(y, x);
  double sin_u, cos_u, num, den;
  sin_cos_of_slope(k.a * z, k.b * p, &sin_u, &cos_u);
  bowring_slope(k, p, z, sin_u, cos_u, &num, &den);
  sin_cos_of_slope(k.ratio * num, den, &sin_u, &cos_u);
  bowring_slope(k, p, z, sin_u, cos_u, &num, &den);
  *phi = std::atan2(num, den);
  double sin_phi, cos_phi;
  sin_cos_of_slope(num, den, &sin_phi, &cos_phi);
  sin_cos_of_slope(k.ratio * num, den, &sin_u, &cos_u);
  *h = (p - k.a * cos_u) * cos_phi + (z - k.b * sin_u) * sin_phi;
}

void gx_curv_to_cart(double a, double e2, double phi, double lambda, double h, double* x, double* y,
                     double* z) {
  gx_cartesian_ellipsoid ellipsoid;
  gx_cartesian_setup(a, e2, &ellipsoid);
  gx_cartesian_from_curv(ellipsoid, phi, lambda, h, x, y, z);
}

void gx_cart_to_curv(double a, double e2, double x, double y, double z, double* phi,
                     double* lambda, double* h) {
  gx_cartesian_ellipsoid ellipsoid;
  gx_cartesian_setup(a, e2, &ellipsoid);
  gx_cartesian_to_curv(ellipsoid, x, y, z, phi, lambda, h);
}
