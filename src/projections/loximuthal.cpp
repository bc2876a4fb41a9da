// Loximuthal: from the central point on the central parallel, every rhumb
// line is straight and true in length and azimuth.
#include "projections/world.h"

namespace {

struct loximuthal_terms {
  double a, phi1, lam0;
  double cos_phi1;
  double tan1;  // tan(phi1 / 2 + pi/4), the central parallel's isometric term
};

loximuthal_terms terms(const double* sphere, const double* parms) {
  double phi1 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  return {sphere[0], phi1, parms[GX_PARM_CENTRAL_MERIDIAN], std::cos(phi1),
          std::tan(phi1 * 0.5 + GX_QUARTERPI)};
}

// ln of the isometric term's ratio between phi and the central parallel.
double isometric(const loximuthal_terms& t, double phi) {
  return std::log(std::tan(phi * 0.5 + GX_QUARTERPI) / t.tan1);
}

}  // namespace

int32_t gx_loximuthal_forward(const double* sphere, double* parms, int32_t n, double* coords,
                              const int32_t*, const double*) {
  loximuthal_terms t = terms(sphere, parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - t.lam0), phi = gx_pole_clamp(y);
    y = (phi - t.phi1) * t.a;
    if (gx_equals(phi, t.phi1)) x = t.cos_phi1 * dlam * t.a;
    else x = ((phi - t.phi1) / isometric(t, phi)) * dlam * t.a;
  });
}

int32_t gx_loximuthal_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                              const int32_t*, const double*) {
  loximuthal_terms t = terms(sphere, parms);
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double phi = y / t.a + t.phi1, dlam;
    if (gx_equals(y, 0.0)) {
      dlam = x / (t.cos_phi1 * t.a);
    } else {
      dlam = gx_onto_half_turn(x * isometric(t, phi) / ((phi - t.phi1) * t.a));
    }
    x = gx_delta_fast(dlam + t.lam0);
    y = phi;
  });
}
