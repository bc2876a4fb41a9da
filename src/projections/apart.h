// The two projections that stand apart from the families: the New Zealand
// Map Grid, a conformal polynomial grid in complex arithmetic, and Local, a
// tangent plane for small areas.  Both have the form of gx_projection_fn;
// Local has a loader (gx_constants_fn), the grid none.
#pragma once

#include "projections/contract.h"

// New_Zealand_Map_Grid: reads Central_Meridian (slot 2) and
// Latitude_Of_Origin (slot 6); radius a, e2 is not read.  No point is
// rejected.
int32_t gx_new_zealand_map_grid_forward(const double* sphere, double* parms, int32_t n,
                                        double* coords, const int32_t* ints,
                                        const double* doubles);
int32_t gx_new_zealand_map_grid_inverse(const double* sphere, double* parms, int32_t n,
                                        double* coords, const int32_t* ints,
                                        const double* doubles);

// Local: reads Longitude_Of_Center (slot 10), Latitude_Of_Center (slot 11),
// Scale_Factor (slot 5) and Azimuth (slot 7).  A point of the plane beyond
// the body's limb has NaN, and still counts.
int32_t gx_local_forward(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles);
int32_t gx_local_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                         const int32_t* ints, const double* doubles);
int32_t gx_local_constants(gx_constants* block, const double* sphere, const double* parms);
