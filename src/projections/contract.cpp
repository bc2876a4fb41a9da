// The shape of a projection's constants loader, shared by all of them.
#include "projections/contract.h"

double* gx_loader_doubles(gx_constants* block, int32_t count) {
  if (!gx_constants_p(block) || count < 1) return nullptr;
  int32_t* ints = static_cast<int32_t*>(gx_memalloc(2 * sizeof(int32_t)));
  double* doubles = static_cast<double*>(gx_memalloc(static_cast<size_t>(count) * sizeof(double)));
  if (ints == nullptr || doubles == nullptr) {
    gx_memdealloc(ints);
    gx_memdealloc(doubles);
    return nullptr;
  }
  ints[0] = 2;
  ints[1] = count;
  gx_constants_set_ints(block, ints);
  gx_constants_set_doubles(block, doubles);
  return doubles;
}
