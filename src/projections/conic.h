// The conic family: Lambert conformal conic, Albers equal-area, equidistant
// conic, polyconic, Bonne and Krovak.  Each has the contract's forward and
// inverse functions (gx_projection_fn) and a constants loader
// (gx_constants_fn); see projections/contract.h.
//
// The three two-parallel cones hand a run whose parallels mirror each other
// about the equator to their cylindrical relative (Lambert to Mercator, Albers
// to the cylindrical equal-area; the equidistant cone degenerates in place),
// and Lambert with both parallels on one pole to the stereographic.
#pragma once

#include "gx_projections.h"

int32_t gx_lambert_conformal_conic_forward(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles);
int32_t gx_lambert_conformal_conic_inverse(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles);
int32_t gx_lambert_conformal_conic_constants(gx_constants* block, const double* sphere,
                                             const double* parms);

int32_t gx_albers_forward(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles);
int32_t gx_albers_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles);
int32_t gx_albers_constants(gx_constants* block, const double* sphere, const double* parms);

int32_t gx_equidistant_conic_forward(const double* sphere, double* parms, int32_t n,
                                     double* coords, const int32_t* ints, const double* doubles);
int32_t gx_equidistant_conic_inverse(const double* sphere, double* parms, int32_t n,
                                     double* coords, const int32_t* ints, const double* doubles);
int32_t gx_equidistant_conic_constants(gx_constants* block, const double* sphere,
                                       const double* parms);

int32_t gx_polyconic_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t* ints, const double* doubles);
int32_t gx_polyconic_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t* ints, const double* doubles);
int32_t gx_polyconic_constants(gx_constants* block, const double* sphere, const double* parms);

int32_t gx_bonne_forward(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles);
int32_t gx_bonne_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles);
int32_t gx_bonne_constants(gx_constants* block, const double* sphere, const double* parms);

// Krovak counts: it returns the number of points that got an image.
int32_t gx_krovak_forward(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles);
int32_t gx_krovak_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                          const int32_t* ints, const double* doubles);
int32_t gx_krovak_constants(gx_constants* block, const double* sphere, const double* parms);

// The y of the point (lam0, phi0) under a projection function: what a
// hand-off to a cylinder or a plane subtracts so that y is measured from the
// latitude of origin.
inline double gx_conic_origin_y(gx_projection_fn fn, const double* sphere, double* parms,
                                double phi0, const int32_t* ints, const double* doubles) {
  double origin[2] = {parms[GX_PARM_CENTRAL_MERIDIAN], phi0};
  fn(sphere, parms, 1, origin, ints, doubles);
  return origin[1];
}
