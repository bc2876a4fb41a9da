// What the conic family's functions share.
#include "projections/conic.h"

int32_t gx_conic_run(const double* sphere, const double* parms, int32_t n, double* coords,
                     const double* doubles, gx_setup_fn setup, int mask, gx_conic_body body) {
  if (n < 1) return 0;
  double local[GX_CONIC_LAYOUT_ROOM];
  return body(sphere, parms, gx_layout(doubles, local, setup, sphere, parms, mask), n, coords);
}
