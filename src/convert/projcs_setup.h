// The numbers a projected system hands to its projection: the sphere pair,
// the parameter vector in radians and metres with the driver's defaults, and
// the two unit factors.  Built in this one place for the conversions, the
// constants loader and the horizons.
#pragma once

#include "gx_objects.h"
#include "gx_projections.h"

struct gx_projcs_setup {
  double sphere[2];             // semi-major axis (metres), e2 = (2 - f) f
  double parms[GX_PARM_COUNT];  // radians and metres
  double angular_factor;        // radians per unit of the geographic CS
  double linear_factor;         // metres per unit of the projected CS
};

// Reads the definition through its accessors, so an invalid system gives
// factors 1.0, a unit sphere pair and the defaults.
void gx_projcs_setup_build(const gx_projcs* projcs, gx_projcs_setup* setup);
