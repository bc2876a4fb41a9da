// The loader that every projection with a set-up shares.
#include "projections/setup.h"

int32_t gx_layout_load(gx_constants* block, int32_t count, gx_setup_fn setup,
                       const double* sphere, const double* parms) {
  if (count < 1) return 0;
  double* doubles = gx_loader_doubles(block, count);
  if (doubles == nullptr) return 0;
  // Room a layout keeps but its table does not use stays 0, not garbage.
  for (int32_t i = 0; i < count; ++i) doubles[i] = 0.0;
  setup(sphere, parms, GX_SERIES_ALL, doubles);
  return count;
}
