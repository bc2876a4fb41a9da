// Loads any bytes as a NADCON pair (the same bytes as both files, and a
// shortened latitude file) and shifts points across the grid, from memory
// and from the files.
#include <cstddef>
#include <cstdint>

#include "frame/constants.h"
#include "fuzz_file.h"
#include "methods/methods.h"

namespace {

const double kDegree = 0.017453292519943295;

void shift_across(const double* b, const gx_constants* block) {
  const double parms[16] = {0};
  const double sphere[2] = {6378206.4, 0.006768657997291};
  // xmin, ymin, xmax, ymax, dx, dy
  double coords[] = {(b[0] + b[4] / 3) * kDegree, (b[1] + b[5] / 5) * kDegree,
                     (b[2] - b[4] / 7) * kDegree, (b[3] - b[5] / 9) * kDegree,
                     (b[0] + b[2]) / 2 * kDegree, (b[1] + b[3]) / 2 * kDegree};
  int32_t* ints = block != nullptr ? block->ints : nullptr;
  void* values = block != nullptr ? block->values : nullptr;
  double* doubles = block != nullptr ? block->doubles : nullptr;
  gx_method_nadcon_forward(sphere, sphere, parms, "fuzz", 3, coords, nullptr, ints, values,
                           doubles);
  gx_method_nadcon_inverse(sphere, sphere, parms, "fuzz", 3, coords, nullptr, ints, values,
                           doubles);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  gx_fuzz::write_file("nadcon/fuzz.los", data, size);
  gx_fuzz::write_file("nadcon/fuzz.las", data, size);
  gx_constants* block = gx_constants_new();
  if (block == nullptr) return 0;
  if (gx_method_nadcon_load(block, "Dataset_fuzz") > 0) {
    shift_across(block->doubles, block);  // from memory
    shift_across(block->doubles, nullptr);  // the same from the files
  }
  gx_constants_del(block);
  // A latitude file shorter than the longitude file.
  gx_fuzz::write_file("nadcon/fuzz.las", data, size / 2);
  block = gx_constants_new();
  if (block != nullptr) gx_method_nadcon_load(block, "fuzz");
  gx_constants_del(block);
  return 0;
}
