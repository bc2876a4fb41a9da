// What the azimuthal projections share beyond the header: the last step of
// their loaders.
#include "projections/azimuthal.h"

#include <cstring>

int32_t gx_azimuthal_store(gx_constants* block, const double* values, int32_t count) {
  if (count < 1) return 0;
  double* doubles = gx_loader_doubles(block, count);
  if (doubles == nullptr) return 0;
  std::memcpy(doubles, values, static_cast<size_t>(count) * sizeof(double));
  return count;
}
