// Winkel I and Winkel II: the means of an equirectangular map on the
// standard parallel with a sinusoidal (I) or an elliptical-meridian (II) map.
#include "projections/world.h"

namespace {

struct winkel_terms {
  double cos_phi1, a, r, lam0;
};

winkel_terms terms(const double* sphere, const double* parms) {
  double a = sphere[0];
  return {std::cos(parms[GX_PARM_STANDARD_PARALLEL_1]), a, 1.0 / a, parms[GX_PARM_CENTRAL_MERIDIAN]};
}

// Winkel II's elliptical term sqrt(1 - (2 phi / pi)^2).
double elliptical(double phi) {
  double t = gx_clamp_unit(phi * 0.6366197723675814);
  return std::sqrt(1.0 - t * t);
}

}  // namespace

int32_t gx_winkel_i_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double*) {
  winkel_terms w = terms(sphere, parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - w.lam0), phi = y;
    x = (std::cos(phi) + w.cos_phi1) * dlam * w.a * 0.5;
    y = phi * w.a;
  });
}

int32_t gx_winkel_i_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double*) {
  winkel_terms w = terms(sphere, parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = y * w.r;
    double dlam = 2.0 * x / ((std::cos(phi) + w.cos_phi1) * w.a);
    x = gx_delta_fast(dlam + w.lam0);
    y = phi;
  });
}

int32_t gx_winkel_ii_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  winkel_terms w = terms(sphere, parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - w.lam0), phi = y;
    x = (w.cos_phi1 + elliptical(phi)) * dlam * w.a * 0.5;
    y = phi * w.a;
  });
}

int32_t gx_winkel_ii_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t*, const double*) {
  winkel_terms w = terms(sphere, parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = y * w.r;
    double dlam = 2.0 * x / ((w.cos_phi1 + elliptical(phi)) * w.a);
    x = gx_delta_fast(dlam + w.lam0);
    y = phi;
  });
}
