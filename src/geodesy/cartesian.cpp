// Geodetic coordinates to Earth-centred Cartesian ones and back.
#include <cmath>

#include "geodesy/ellipsoid.h"

namespace {

// Constants of Bowring's formula for one ellipsoid: b / a, b e2 / (1 - e2)
// and a e2.
struct Bowring {
  double ratio, k1, k2;
};

// One pass of Bowring's formula from the reduced latitude u, folded back into
// [-pi/2, pi/2] when the point lies beyond the centre of curvature.
double bowring_latitude(const Bowring& k, double p, double z, double u) {
  double s = std::sin(u), c = std::cos(u);
  double phi = std::atan2(z + k.k1 * s * s * s, p - k.k2 * c * c * c);
  if (std::fabs(phi) > GX_HALFPI) phi = (phi >= 0.0 ? GX_PI : -GX_PI) - phi;
  return phi;
}

}  // namespace

void gx_curv_to_cart(double a, double e2, double phi, double lambda, double h, double* x, double* y,
                     double* z) {
  double n = gx_n(a, e2, phi);
  *x = (n + h) * std::cos(lambda) * std::cos(phi);
  *y = (n + h) * std::sin(lambda) * std::cos(phi);
  *z = ((1.0 - e2) * n + h) * std::sin(phi);
}

// Two passes and no convergence test: the first from the reduced latitude of
// the point itself, the second from that of the first estimate.  The height
// is the residual projected on the normal, so no division by cos(phi) occurs.
void gx_cart_to_curv(double a, double e2, double x, double y, double z, double* phi,
                     double* lambda, double* h) {
  double p = std::sqrt(x * x + y * y);
  double b = std::sqrt(1.0 - e2) * a;
  Bowring k{b / a, b * e2 / (1.0 - e2), a * e2};
  if (gx_eq(p, 0.0)) {
    *lambda = 0.0;
    *phi = z >= 0.0 ? GX_HALFPI : -GX_HALFPI;
    *h = std::fabs(z) - b;
    return;
  }
  *lambda = std::atan2(y, x);
  double u = std::atan2(a * z, b * p);
  double latitude = bowring_latitude(k, p, z, u);
  u = std::atan(std::tan(latitude) * k.ratio);
  latitude = bowring_latitude(k, p, z, u);
  u = std::atan(std::tan(latitude) * k.ratio);
  *phi = latitude;
  *h = (p - a * std::cos(u)) * std::cos(latitude) + (z - b * std::sin(u)) * std::sin(latitude);
}
