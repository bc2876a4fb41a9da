#include "methods/grid_io.h"

#include <climits>

namespace gx_grid {

int64_t file_size(FILE* file) {
  if (fseek(file, 0, SEEK_END) != 0) return -1;
  long size = ftell(file);
  return size < 0 ? -1 : static_cast<int64_t>(size);
}

int read_at(FILE* file, int64_t offset, void* buffer, size_t size) {
  if (offset < 0 || offset > LONG_MAX) return 0;
  if (fseek(file, static_cast<long>(offset), SEEK_SET) != 0) return 0;
  return read_exact(file, buffer, size);
}

int read_exact(FILE* file, void* buffer, size_t size) {
  return fread(buffer, 1, size, file) == size;
}

void close_file(FILE* file) {
  if (file != nullptr) fclose(file);
}

int32_t cell_index(double g, int32_t last) {
  if (last <= 0 || !(g > 0.0)) return 0;
  if (g >= static_cast<double>(last)) return last;
  return static_cast<int32_t>(g);
}

void* alloc_array(int64_t count, size_t size) {
  if (count < 1 || count > INT64_MAX / static_cast<int64_t>(size)) return nullptr;
  const int64_t bytes = count * static_cast<int64_t>(size);
  if (static_cast<uint64_t>(bytes) > SIZE_MAX) return nullptr;
  return gx_memalloc(static_cast<size_t>(bytes));
}

void clear_block(gx_constants* block) {
  gx_constants_set_ints(block, nullptr);
  gx_constants_set_values(block, nullptr);
  gx_constants_set_doubles(block, nullptr);
}

}  // namespace gx_grid
