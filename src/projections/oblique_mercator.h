// The oblique Mercator family: Hotine oblique Mercator and the rectified skew
// orthomorphic, each with the central line given by an azimuth at its centre
// or by two points, and with coordinates from the natural origin (where the
// central line meets the equator of the aposphere) or from the centre.  All
// six share one core, projecting onto the skew (u, v) plane of the oblique
// cylinder; they differ in their set-up and in how the plane is turned into
// (x, y).  Each has the contract's forward and inverse functions
// (gx_projection_fn) and a constants loader (gx_constants_fn); see
// projections/contract.h.
#pragma once

#include "gx_projections.h"

#define GX_OBLIQUE_MERCATOR_DECLARE(name)                                                     \
  int32_t gx_##name##_forward(const double* sphere, double* parms, int32_t n, double* coords, \
                              const int32_t* ints, const double* doubles);                    \
  int32_t gx_##name##_inverse(const double* sphere, double* parms, int32_t n, double* coords, \
                              const int32_t* ints, const double* doubles);                    \
  int32_t gx_##name##_constants(gx_constants* block, const double* sphere, const double* parms);

// Rotated by the azimuth of the central line at its centre.
GX_OBLIQUE_MERCATOR_DECLARE(hotine_oblique_mercator_azimuth_natural_origin)
GX_OBLIQUE_MERCATOR_DECLARE(hotine_oblique_mercator_azimuth_center)
GX_OBLIQUE_MERCATOR_DECLARE(hotine_oblique_mercator_two_point_natural_origin)
GX_OBLIQUE_MERCATOR_DECLARE(hotine_oblique_mercator_two_point_center)
// Rotated by XY_Plane_Rotation.
GX_OBLIQUE_MERCATOR_DECLARE(rectified_skew_orthomorphic_natural_origin)
GX_OBLIQUE_MERCATOR_DECLARE(rectified_skew_orthomorphic_center)

#undef GX_OBLIQUE_MERCATOR_DECLARE
