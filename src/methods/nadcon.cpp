// NADCON and HARN: a pair of grids of longitude and latitude shifts in the
// NADCON binary layout, "<name>.los" and "<name>.las".
//
// Each file is a sequence of records of (nc + 1) 32-bit words.  Record 0 is
// the header (comment, nc, nr, nz, xmin, dx, ymin, dy, angle); record r + 1
// holds row r from the south: one word to skip, then nc shifts in
// arc-seconds from the west.  Longitude shifts are positive westward.
//
// The grids run from a constants block filled once by the loader, or straight
// from the files for one call.
#include <cmath>
#include <cstring>

#include "frame/text.h"
#include "gx_geodesy.h"
#include "methods/datahome.h"
#include "methods/grid_io.h"
#include "methods/methods.h"

using namespace gx_grid;

namespace {

const char kNadconDirectory[] = "nadcon";
const char kHarnDirectory[] = "harn";

const int64_t kHeaderBytes = 96;
const int64_t kNcOffset = 64;
// The reading buffer of the file form: 4096 bytes and a margin, which bounds
// the number of columns a grid may have to be read from file.
const int32_t kRowBufferWords = 4096 / 4 + 8;
// Words read for one cell from file: to the same column of the next record.
int32_t cell_words(int32_t nc) { return nc + 3; }

// Above this longitude (degrees) points are taken 360 degrees west, which
// reaches the Alaskan grids across the antimeridian.
const double kAlaskaWrap = 140.0;
// West of this longitude, southern points are looked up at positive
// latitudes: the American Samoa grids are stored that way.
const double kSamoaWest = -164.0;

// Block 3: xmin, ymin, xmax, ymax, dx, dy.
enum { kXmin, kYmin, kXmax, kYmax, kDx, kDy, kBoundsCount };

struct nadcon_header {
  int32_t nc, nr;
  int swap;
  double bounds[kBoundsCount];
};

// The grid a call works on: the two planes in memory, or the two files.
struct nadcon_grid {
  int32_t nc, nr;
  const double* bounds;
  const float* lon;  // memory form: nc * nr longitude shifts
  const float* lat;  // and as many latitude shifts
  FILE* los;         // file form
  FILE* las;
  int swap;
};

int64_t record_length(int32_t nc) { return (static_cast<int64_t>(nc) + 1) * 4; }

// Reads and checks the .los header: byte order, sizes that the two files
// actually hold, increments that make a grid.
int read_header(FILE* los, FILE* las, nadcon_header* header) {
  unsigned char raw[kHeaderBytes];
  if (!read_at(los, 0, raw, sizeof raw)) return 0;
  int32_t ints[3];
  float floats[5];
  memcpy(ints, raw + kNcOffset, sizeof ints);
  memcpy(floats, raw + kNcOffset + sizeof ints, sizeof floats);
  header->swap = ints[0] > kByteOrderLimit || ints[0] < -kByteOrderLimit;
  if (header->swap) {
    gx_swap32_array(ints, 3);
    gx_swap32_array(floats, 5);
  }
  header->nc = ints[0];
  header->nr = ints[1];
  const float xmin = floats[0], dx = floats[1], ymin = floats[2], dy = floats[3];
  if (header->nc < 1 || header->nr < 1) return 0;
  if (!std::isfinite(xmin) || !std::isfinite(ymin) || !(dx > 0.0f) || !(dy > 0.0f) ||
      !std::isfinite(dx) || !std::isfinite(dy)) {
    return 0;
  }
  // Both files must hold the header record and every row; each count is
  // tested against the bytes before any product of counts is formed.
  const int64_t los_size = file_size(los), las_size = file_size(las);
  const int64_t size = los_size < las_size ? los_size : las_size;
  const int64_t reclen = record_length(header->nc);
  if (size < kHeaderBytes || reclen > size) return 0;
  if (static_cast<int64_t>(header->nr) + 1 > size / reclen) return 0;
  // The far edges in single precision, as the grid's own numbers are.
  const float xmax = static_cast<float>(header->nc - 1) * dx + xmin;
  const float ymax = static_cast<float>(header->nr - 1) * dy + ymin;
  header->bounds[kXmin] = xmin;
  header->bounds[kYmin] = ymin;
  header->bounds[kXmax] = xmax;
  header->bounds[kYmax] = ymax;
  header->bounds[kDx] = dx;
  header->bounds[kDy] = dy;
  return 1;
}

int open_pair(const char* dataset, const char* subdirectory, FILE** los, FILE** las) {
  char los_path[GX_PATH_SIZE];
  char las_path[GX_PATH_SIZE];
  *los = *las = nullptr;
  if (!gx_grid_pair_paths(dataset, subdirectory, los_path, las_path)) return 0;
  if (gx_file_exists(los_path)) *los = fopen(los_path, "rb");
  if (*los != nullptr && gx_file_exists(las_path)) *las = fopen(las_path, "rb");
  if (*las != nullptr) return 1;
  close_file(*los);
  *los = nullptr;
  return 0;
}

// Every row of one file into `plane`: skip the record's first word, read nc.
int read_plane(FILE* file, const nadcon_header& header, float* plane) {
  const int64_t reclen = record_length(header.nc);
  for (int32_t row = 0; row < header.nr; ++row) {
    float* destination = plane + static_cast<int64_t>(row) * header.nc;
    const int64_t offset = (row + 1) * reclen + 4;
    if (!read_at(file, offset, destination, sizeof(float) * header.nc)) return 0;
  }
  return 1;
}

int32_t load_pair(gx_constants* block, const char* dataset, const char* subdirectory) {
  if (!gx_constants_p(block)) return 0;
  FILE* los;
  FILE* las;
  if (!open_pair(dataset, subdirectory, &los, &las)) return 0;
  nadcon_header header;
  int32_t loaded = 0;
  if (read_header(los, las, &header)) {
    const int64_t count = 2 * static_cast<int64_t>(header.nc) * header.nr;
    int32_t* ints = static_cast<int32_t*>(alloc_array(2, sizeof(int32_t)));
    float* values = count <= INT32_MAX ? static_cast<float*>(alloc_array(count, sizeof(float)))
                                       : nullptr;
    double* doubles = static_cast<double*>(alloc_array(kBoundsCount, sizeof(double)));
    if (ints != nullptr && values != nullptr && doubles != nullptr) {
      ints[0] = header.nr;
      ints[1] = header.nc;
      memcpy(doubles, header.bounds, sizeof header.bounds);
      gx_constants_set_ints(block, ints);
      gx_constants_set_values(block, values);
      gx_constants_set_doubles(block, doubles);
      const int64_t half = count / 2;
      if (read_plane(los, header, values) && read_plane(las, header, values + half)) {
        if (header.swap) gx_swap32_array(values, static_cast<int>(count));
        loaded = static_cast<int32_t>(count);
      } else {
        clear_block(block);
      }
    } else {
      gx_memdealloc(ints);
      gx_memdealloc(values);
      gx_memdealloc(doubles);
    }
  }
  close_file(los);
  close_file(las);
  return loaded;
}

// The corner values of cell (ix, iy) in one plane, from memory.
void memory_corners(const float* plane, int32_t nc, int32_t ix, int32_t iy, float* t) {
  const int64_t at = static_cast<int64_t>(iy) * nc + ix;
  t[0] = plane[at];
  t[1] = plane[at + 1];
  t[2] = plane[at + nc];
  t[3] = plane[at + nc + 1];
}

// The same from file: one read from (ix, iy) to (ix + 1, iy + 1).
int file_corners(FILE* file, const nadcon_grid& grid, int32_t ix, int32_t iy, float* t) {
  float words[kRowBufferWords];
  const int64_t reclen = record_length(grid.nc);
  const int32_t next_row = static_cast<int32_t>(reclen / 4);
  const int64_t offset = (static_cast<int64_t>(iy) + 1) * reclen + (static_cast<int64_t>(ix) + 1) * 4;
  if (!read_at(file, offset, words, sizeof(float) * cell_words(grid.nc))) return 0;
  t[0] = words[0];
  t[1] = words[1];
  t[2] = words[next_row];
  t[3] = words[next_row + 1];
  if (grid.swap) gx_swap32_array(t, 4);
  return 1;
}

// Shifts in arc-seconds at (x, y) in degrees; 0 if the cell can't be read.
int shifts_at(const nadcon_grid& grid, double x, double y, double* dlon, double* dlat) {
  const double* b = grid.bounds;
  const double gx = (x - b[kXmin]) / b[kDx];
  const double gy = (y - b[kYmin]) / b[kDy];
  const int32_t ix = cell_index(gx, grid.nc - 2);
  const int32_t iy = cell_index(gy, grid.nr - 2);
  const double fx = gx - ix;
  const double fy = gy - iy;
  float lon[4], lat[4];
  if (grid.lon != nullptr) {
    memory_corners(grid.lon, grid.nc, ix, iy, lon);
    memory_corners(grid.lat, grid.nc, ix, iy, lat);
  } else if (!file_corners(grid.los, grid, ix, iy, lon) ||
             !file_corners(grid.las, grid, ix, iy, lat)) {
    return 0;
  }
  *dlon = bilinear(lon, fx, fy);
  *dlat = bilinear(lat, fx, fy);
  return 1;
}

// A point in the grid's terms: degrees, Alaska wrap, Samoa rule.
struct grid_point {
  double x, y, sign;
};

// 1 if the point lies strictly inside the grid.
int locate(const nadcon_grid& grid, const double* point, grid_point* p) {
  p->x = point[0] * kRadianToDegree;
  p->y = point[1] * kRadianToDegree;
  if (p->x > kAlaskaWrap) p->x -= 360.0;
  p->sign = 1.0;
  if (p->y < 0.0 && p->x < kSamoaWest) {
    p->y = -p->y;
    p->sign = -1.0;
  }
  const double* b = grid.bounds;
  return p->x > b[kXmin] && p->x < b[kXmax] && p->y > b[kYmin] && p->y < b[kYmax];
}

void store_point(double* point, double x, double y, double sign) {
  point[0] = gx_delta(x * kDegreeToRadian);
  point[1] = y * sign * kDegreeToRadian;
}

int32_t shift_forward(const nadcon_grid& grid, int32_t n, double* coords) {
  int32_t count = 0;
  for (int32_t i = 0; i < n; ++i) {
    double* point = coords + 2 * i;
    grid_point p;
    double dlon, dlat;
    if (!locate(grid, point, &p) || !shifts_at(grid, p.x, p.y, &dlon, &dlat)) continue;
    point[0] = gx_delta((p.x - dlon * kArcSecondToDegree) * kDegreeToRadian);
    point[1] = (p.y + dlat * kArcSecondToDegree) * p.sign * kDegreeToRadian;
    ++count;
  }
  return count;
}

// Finds the point whose forward shift lands on the given one, by fixed-point
// passes; the cell follows the estimate with no new bounds test.
int32_t shift_inverse(const nadcon_grid& grid, int32_t n, double* coords) {
  int32_t count = 0;
  for (int32_t i = 0; i < n; ++i) {
    double* point = coords + 2 * i;
    grid_point target;
    if (!locate(grid, point, &target)) continue;
    double x = target.x, y = target.y;
    int readable = 1;
    for (int pass = 1;; ++pass) {
      double dlon, dlat;
      if (!shifts_at(grid, x, y, &dlon, &dlat)) {
        readable = 0;
        break;
      }
      const double rx = (x - dlon * kArcSecondToDegree) - target.x;
      const double ry = (y + dlat * kArcSecondToDegree) - target.y;
      if ((fabs(rx) <= GX_EPS && fabs(ry) <= GX_EPS) || pass > kInversePasses) break;
      x -= rx;
      y -= ry;
    }
    if (!readable) continue;
    store_point(point, x, y, target.sign);
    ++count;
  }
  return count;
}

typedef int32_t (*grid_shift)(const nadcon_grid& grid, int32_t n, double* coords);

// Runs a direction on the loaded blocks, or else on the files for this call.
int32_t run_pair(const char* dataset, const char* subdirectory, int32_t n, double* coords,
                 int32_t* ints, void* values, double* doubles, grid_shift shift) {
  if (n < 1) return n;
  nadcon_grid grid;
  memset(&grid, 0, sizeof grid);
  if (ints != nullptr && values != nullptr && doubles != nullptr) {
    grid.nr = ints[0];
    grid.nc = ints[1];
    grid.bounds = doubles;
    grid.lon = static_cast<const float*>(values);
    grid.lat = grid.lon + static_cast<int64_t>(grid.nc) * grid.nr;
    return shift(grid, n, coords);
  }
  if (dataset == nullptr || dataset[0] == '\0') return 0;
  if (!open_pair(dataset, subdirectory, &grid.los, &grid.las)) return 0;
  nadcon_header header;
  int32_t count = 0;
  if (read_header(grid.los, grid.las, &header) && cell_words(header.nc) <= kRowBufferWords) {
    grid.nc = header.nc;
    grid.nr = header.nr;
    grid.swap = header.swap;
    grid.bounds = header.bounds;
    count = shift(grid, n, coords);
  }
  close_file(grid.los);
  close_file(grid.las);
  return count;
}

}  // namespace

GX_METHOD_FN(gx_method_nadcon_forward) {
  return run_pair(dataset, kNadconDirectory, n, coords, ints, values, doubles, shift_forward);
}

GX_METHOD_FN(gx_method_nadcon_inverse) {
  return run_pair(dataset, kNadconDirectory, n, coords, ints, values, doubles, shift_inverse);
}

int32_t gx_method_nadcon_load(gx_constants* block, const char* dataset) {
  return load_pair(block, dataset, kNadconDirectory);
}

GX_METHOD_FN(gx_method_harn_forward) {
  return run_pair(dataset, kHarnDirectory, n, coords, ints, values, doubles, shift_forward);
}

GX_METHOD_FN(gx_method_harn_inverse) {
  return run_pair(dataset, kHarnDirectory, n, coords, ints, values, doubles, shift_inverse);
}

int32_t gx_method_harn_load(gx_constants* block, const char* dataset) {
  return load_pair(block, dataset, kHarnDirectory);
}
