// The constants block: what a definition needs at conversion time and is
// costly to make again (a projection's series coefficients, a grid method's
// grid).  A projcs, geogtran or verttran owns at most one; the block is no
// part of the definition, so it is neither cloned nor compared.
//
// The block has no length: a loader and the functions that read its arrays
// agree on the layout between them.
#pragma once

#include <cstdint>

#include "gx_frame.h"

#define GX_CONSTANTS_MARKER 0x1000000u

struct gx_constants {
  uint32_t marker;  // GX_CONSTANTS_MARKER while the block is alive
  int32_t* ints;    // owned; sizes and layout words
  void* values;     // owned; a grid's values (grid methods only)
  double* doubles;  // owned; series coefficients or a grid's header values
};

// A block with the marker set and three empty slots; null on no memory.
gx_constants* gx_constants_new();
// Frees the three arrays and the block; a null or dead block is ignored.
void gx_constants_del(gx_constants* block);
// 1 for a live block, 0 for null or a block whose marker is gone.
int gx_constants_p(const gx_constants* block);

// The slots, lent; null for an invalid block.
int32_t* gx_constants_ints(const gx_constants* block);
void* gx_constants_values(const gx_constants* block);
double* gx_constants_doubles(const gx_constants* block);

// Free what the slot held and store `pointer` (from gx_memalloc), which the
// block then owns.  Returns 1; for an invalid block 0, and the pointer stays
// the caller's.
int gx_constants_set_ints(gx_constants* block, int32_t* pointer);
int gx_constants_set_values(gx_constants* block, void* pointer);
int gx_constants_set_doubles(gx_constants* block, double* pointer);
