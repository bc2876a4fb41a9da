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

#include "projections/setup.h"

GX_DECLARE_PROJECTION(lambert_conformal_conic);
GX_DECLARE_LOADER(lambert_conformal_conic);

GX_DECLARE_PROJECTION(albers);
GX_DECLARE_LOADER(albers);

GX_DECLARE_PROJECTION(equidistant_conic);
GX_DECLARE_LOADER(equidistant_conic);

GX_DECLARE_PROJECTION(polyconic);
GX_DECLARE_LOADER(polyconic);

GX_DECLARE_PROJECTION(bonne);
GX_DECLARE_LOADER(bonne);

// Krovak counts: it returns the number of points that got an image.
GX_DECLARE_PROJECTION(krovak);
GX_DECLARE_LOADER(krovak);

// ---- what the family's functions share ----------------------------------

// The per-point work of a run over the run's constants k; returns the number
// of points that got an image.
using gx_conic_body = int32_t (*)(const double* sphere, const double* parms, const double* k,
                                  int32_t n, double* coords);

// Room for the largest layout of the family (Krovak's on an ellipsoid).
inline constexpr int GX_CONIC_LAYOUT_ROOM = 9 + GX_TABLE_ROOM;

// What a function of the family does around its points: 0 for no points,
// the run's constants (the block's doubles, or the set-up's with `mask` on
// the stack), then the body over the points.
int32_t gx_conic_run(const double* sphere, const double* parms, int32_t n, double* coords,
                     const double* doubles, gx_setup_fn setup, int mask, gx_conic_body body);

// The y of the point (lam0, phi0) under a projection function: what a
// hand-off to a cylinder or a plane subtracts so that y is measured from the
// latitude of origin.
inline double gx_conic_origin_y(gx_projection_fn fn, const double* sphere, double* parms,
                                double phi0, const int32_t* ints, const double* doubles) {
  double origin[2] = {parms[GX_PARM_CENTRAL_MERIDIAN], phi0};
  fn(sphere, parms, 1, origin, ints, doubles);
  return origin[1];
}
