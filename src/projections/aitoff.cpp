// Aitoff and Hammer-Aitoff: the equatorial azimuthal equidistant and
// azimuthal equal-area maps of a hemisphere, stretched to twice their width
// so that the whole sphere fits in an ellipse-like outline.
#include "projections/world.h"

int32_t gx_aitoff_forward(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t*, const double*) {
  double a = sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double half = gx_delta_fast(x - lam0) * 0.5, phi = y;
    double cos_phi = std::cos(phi);
    double c = std::acos(std::cos(half) * cos_phi);
    double k = c == 0.0 ? a : (c / std::sin(c)) * a;
    x = 2.0 * std::sin(half) * k * cos_phi;
    y = std::sin(phi) * k;
  });
}

// The azimuthal equidistant inverse of (x / 2, y), whose longitude is then
// doubled; exact, with no iteration.
int32_t gx_aitoff_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t*, const double*) {
  double r = 1.0 / sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double half_x = x * 0.5;
    double rho = std::sqrt(half_x * half_x + y * y);
    double c = rho * r;
    double sin_c = std::sin(c);
    double east = sin_c * half_x, north = std::cos(c) * rho;
    double dlam = (east == 0.0 && north == 0.0) ? 0.0 : 2.0 * std::atan2(east, north);
    // At the origin rho is 0 and so is the latitude.
    double phi = rho == 0.0 ? 0.0 : std::asin(sin_c * y / rho);
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}

int32_t gx_hammer_aitoff_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                 const int32_t*, const double*) {
  double a = sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double half = gx_delta_fast(x - lam0) * 0.5, phi = y;
    double cos_phi = std::cos(phi);
    double k = std::sqrt(2.0 / (std::cos(half) * cos_phi + 1.0)) * a;
    x = 2.0 * std::sin(half) * k * cos_phi;
    y = std::sin(phi) * k;
  });
}

// The asin arguments are clamped: at the pole and on the rim of the map they
// are 1 up to rounding.
int32_t gx_hammer_aitoff_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                 const int32_t*, const double*) {
  double a = sphere[0], aa16 = 16.0 * a * a, r = 1.0 / (4.0 * a * a);
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi, dlam;
    if (std::fabs(y) <= GX_EPS) {
      // The limit of tan(phi) / (2 y) as y goes to 0.
      phi = 0.0;
      dlam = 2.0 * std::asin(gx_clamp_unit(r * std::sqrt(aa16 - x * x) * 0.5 * x));
    } else {
      phi = std::asin(gx_clamp_unit(r * std::sqrt(aa16 - 4.0 * y * y - x * x) * y));
      dlam = gx_is_halfpi(phi) ? 0.0
                               : 2.0 * std::asin(gx_clamp_unit((std::tan(phi) / (2.0 * y)) * x));
    }
    x = gx_delta_fast(dlam + lam0);
    y = phi;
  });
}
