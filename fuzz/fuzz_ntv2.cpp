// Loads any bytes as an NTv2 file; what loads is then used to shift points
// at and around every sub-grid's corners, in both directions.
#include <cstddef>
#include <cstdint>

#include "frame/constants.h"
#include "fuzz_file.h"
#include "methods/methods.h"

namespace {

const double kDegree = 0.017453292519943295;

void shift_around_grids(const gx_constants* block) {
  const int32_t grids = block->ints[0];
  const double parms[16] = {0};
  const double sphere[2] = {6378137.0, 0.0066943799901413165};
  for (int32_t g = 0; g < grids && g < 64; ++g) {
    const double* e = block->doubles + 6 * g;  // south, north, east, west, increments
    double coords[] = {e[2] * kDegree, e[0] * kDegree, e[3] * kDegree, e[1] * kDegree,
                       (e[2] + e[3]) / 2 * kDegree, (e[0] + e[1]) / 2 * kDegree,
                       (e[2] - e[5] / 3) * kDegree, (e[1] - e[4] / 7) * kDegree};
    gx_method_ntv2_forward(sphere, sphere, parms, nullptr, 4, coords, nullptr, block->ints,
                           block->values, block->doubles);
    gx_method_ntv2_inverse(sphere, sphere, parms, nullptr, 4, coords, nullptr, block->ints,
                           block->values, block->doubles);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  gx_fuzz::write_file("ntv2/fuzz.gsb", data, size);
  gx_constants* block = gx_constants_new();
  if (block == nullptr) return 0;
  if (gx_method_ntv2_load(block, "Dataset_fuzz") > 0) shift_around_grids(block);
  gx_constants_del(block);
  return 0;
}
