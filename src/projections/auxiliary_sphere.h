// The auxiliary sphere convention: a twin of a projection that runs the
// base's sphere formulas on a local sphere chosen by Auxiliary_Sphere_Type
// (slot 12), optionally through the authalic latitude.
//
//   type 0  radius a                       latitudes unchanged
//   type 1  radius sqrt(1 - e2) * a        latitudes unchanged
//   type 2  the authalic radius            latitudes unchanged
//   type 3  the authalic radius            latitudes made authalic
//
// Any other value behaves as 0; the slot is read as the truncation of its
// value plus 0.001.  On a sphere a twin is its base.  Every twin of every
// family goes through the three functions below with a description of
// itself; the twin's own forward, inverse and loader are one-line calls.
#pragma once

#include "projections/setup.h"

struct gx_twin {
  gx_projection_fn forward;  // the base's functions
  gx_projection_fn inverse;
  int latitude_slot;  // parameter slot made authalic for type 3, or -1
  int32_t leading;    // doubles stored before the authalic table
  // Fills the `leading` doubles from the local sphere pair (R, 0) and the
  // parameters as the base reads them; null when `leading` is 0.
  gx_setup_fn setup;
};

// Twin forward: for type 3 converts the latitude slot of `parms` in place
// and every point's latitude, calls the base forward on the local sphere
// and, if the base refused the run, converts the latitudes back.
int32_t gx_twin_forward(const gx_twin* twin, const double* sphere, double* parms, int32_t n,
                        double* coords, const int32_t* ints, const double* doubles);
// Twin inverse: for type 3 converts the latitude slot, calls the base
// inverse on the local sphere and converts the resulting latitudes back to
// geodetic ones unless the base refused the run.
int32_t gx_twin_inverse(const gx_twin* twin, const double* sphere, double* parms, int32_t n,
                        double* coords, const int32_t* ints, const double* doubles);
// Twin loader: the base's leading doubles for the local sphere, then, for
// type 3 on an ellipsoid only, the authalic table.  Returns the count, 0
// when nothing is to be kept or an allocation failed.
int32_t gx_twin_constants(const gx_twin* twin, gx_constants* block, const double* sphere,
                          const double* parms);
