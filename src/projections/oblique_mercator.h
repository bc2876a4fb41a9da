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

#include "projections/contract.h"

// Rotated by the azimuth of the central line at its centre.
GX_DECLARE_PROJECTION(hotine_oblique_mercator_azimuth_natural_origin);
GX_DECLARE_LOADER(hotine_oblique_mercator_azimuth_natural_origin);
GX_DECLARE_PROJECTION(hotine_oblique_mercator_azimuth_center);
GX_DECLARE_LOADER(hotine_oblique_mercator_azimuth_center);
GX_DECLARE_PROJECTION(hotine_oblique_mercator_two_point_natural_origin);
GX_DECLARE_LOADER(hotine_oblique_mercator_two_point_natural_origin);
GX_DECLARE_PROJECTION(hotine_oblique_mercator_two_point_center);
GX_DECLARE_LOADER(hotine_oblique_mercator_two_point_center);
// Rotated by XY_Plane_Rotation.
GX_DECLARE_PROJECTION(rectified_skew_orthomorphic_natural_origin);
GX_DECLARE_LOADER(rectified_skew_orthomorphic_natural_origin);
GX_DECLARE_PROJECTION(rectified_skew_orthomorphic_center);
GX_DECLARE_LOADER(rectified_skew_orthomorphic_center);

