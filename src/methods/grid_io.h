// Small pieces shared by the readers of grid files: checked reads, file
// sizes in 64 bits, safe cell indexes and the bilinear form.
#pragma once

#include <cstdint>
#include <cstdio>

#include "frame/constants.h"

namespace gx_grid {

const double kArcSecondToDegree = 0.0002777777777777778;
const double kDegreeToRadian = 0.017453292519943295;
const double kRadianToDegree = 57.29577951308232;
// An integer header field above this, read in this machine's byte order,
// says the file is in the other one.
const int32_t kByteOrderLimit = 999999;
// Inverse shifts: passes before an unconverged point is taken as it stands.
const int kInversePasses = 50;

// Size of an open file in bytes, or -1.  Leaves the position at the end.
int64_t file_size(FILE* file);
// Seeks to `offset` from the start and reads exactly `size` bytes; 1 on success.
int read_at(FILE* file, int64_t offset, void* buffer, size_t size);
// Reads exactly `size` bytes at the current position; 1 on success.
int read_exact(FILE* file, void* buffer, size_t size);
// Closes a file that may be null.
void close_file(FILE* file);

// Index of the cell that holds grid coordinate g, in 0..last; values below,
// above or NaN are taken to the nearest end rather than cast.
int32_t cell_index(double g, int32_t last);

// t0 at (ix, iy), t1 at (ix + 1, iy), t2 at (ix, iy + 1), t3 at (ix + 1, iy + 1).
inline double bilinear(const float* t, double fx, double fy) {
  const double t0 = t[0], t1 = t[1], t2 = t[2], t3 = t[3];
  return t0 + (t1 - t0) * fx + (t2 - t0) * fy + (t3 - t1 - t2 + t0) * fx * fy;
}

// Allocates `count` elements of `size` bytes with gx_memalloc, refusing
// counts whose byte size does not fit; null on failure.
void* alloc_array(int64_t count, size_t size);

// Empties the three slots of a block (freeing what they held).
void clear_block(gx_constants* block);

}  // namespace gx_grid
