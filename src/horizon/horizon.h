// Horizon records and the builders shared by many projections.
#pragma once

#include "gx_horizon.h"

// An array of `count` zeroed records, each with room for `points` points;
// null (nothing left allocated) on no memory.
gx_horizon* gx_horizon_alloc(int32_t count, int32_t points);

// The whole world around the central meridian (slot 2), cut at its seam: the
// default builder of every projection without a builder of its own.
gx_horizon* gx_horizon_world(const double* sphere, const double* parms);
