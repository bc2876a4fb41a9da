#include "frame/constants.h"

namespace {

// Every setter is the same move on a different slot.
template <typename T>
int replace_slot(gx_constants* block, T* gx_constants::*slot, T* pointer) {
  if (!gx_constants_p(block)) return 0;
  if (block->*slot != pointer) gx_memdealloc(block->*slot);
  block->*slot = pointer;
  return 1;
}

}  // namespace

gx_constants* gx_constants_new() {
  gx_constants* block = static_cast<gx_constants*>(gx_memalloc(sizeof(gx_constants)));
  if (block == nullptr) return nullptr;
  block->marker = GX_CONSTANTS_MARKER;
  block->ints = nullptr;
  block->values = nullptr;
  block->doubles = nullptr;
  return block;
}

void gx_constants_del(gx_constants* block) {
  if (!gx_constants_p(block)) return;
  // The marker goes first, so that a second delete of the same block finds
  // it dead rather than freeing the arrays again.
  block->marker = 0;
  gx_memdealloc(block->ints);
  gx_memdealloc(block->values);
  gx_memdealloc(block->doubles);
  block->ints = nullptr;
  block->values = nullptr;
  block->doubles = nullptr;
  gx_memdealloc(block);
}

int gx_constants_p(const gx_constants* block) {
  return block != nullptr && block->marker == GX_CONSTANTS_MARKER;
}

int32_t* gx_constants_ints(const gx_constants* block) {
  return gx_constants_p(block) ? block->ints : nullptr;
}

void* gx_constants_values(const gx_constants* block) {
  return gx_constants_p(block) ? block->values : nullptr;
}

double* gx_constants_doubles(const gx_constants* block) {
  return gx_constants_p(block) ? block->doubles : nullptr;
}

int gx_constants_set_ints(gx_constants* block, int32_t* pointer) {
  return replace_slot(block, &gx_constants::ints, pointer);
}

int gx_constants_set_values(gx_constants* block, void* pointer) {
  return replace_slot(block, &gx_constants::values, pointer);
}

int gx_constants_set_doubles(gx_constants* block, double* pointer) {
  return replace_slot(block, &gx_constants::doubles, pointer);
}
