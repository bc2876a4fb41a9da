// What every projection file shares: the contract types, the pole clamp,
// the marking of a point without an image, and the shape of a loader.
//
// A projection file holds, per projection, a small set-up that derives its
// constants from the sphere pair and the parameter vector, a forward and an
// inverse function (gx_projection_fn) that take those constants either from
// the block's doubles or from the set-up, and a loader (gx_constants_fn) that
// stores them.  Functions are named gx_<projection>_forward, _inverse and
// _constants, and declared in the family's header beside this one; the
// projection list registers them.
#pragma once

#include <cmath>
#include <cstdint>

#include "frame/constants.h"
#include "frame/text.h"
#include "geodesy/kernel.h"
#include "gx_projections.h"

// Where an algorithm can't take the exact pole, a latitude equal to +-pi/2
// in the sense of gx_eq is replaced by +-GX_HALFPI_CLAMP.
inline double gx_pole_clamp(double phi) {
  double a = std::fabs(phi);
  if (std::fabs(a - GX_HALFPI) <= ((a + GX_HALFPI) / 2 + 1) * GX_EPS)
    return phi < 0 ? -GX_HALFPI_CLAMP : GX_HALFPI_CLAMP;
  return phi;
}

// Marks the point at xy as having no image: NaN in both ordinates.
inline void gx_point_nan(double* xy) {
  gx_nan(xy);
  gx_nan(xy + 1);
}

// Fills all n points with NaN: the mark of a refused run.
inline void gx_points_nan(int32_t n, double* coords) {
  for (int32_t i = 0; i < n; ++i) gx_point_nan(coords + 2 * i);
}

// The shape of a loader: allocates the ints record {2, count} and `count`
// doubles, hands both to the block and returns the doubles to fill; null (and
// nothing left in the block) when either allocation failed.
double* gx_loader_doubles(gx_constants* block, int32_t count);
