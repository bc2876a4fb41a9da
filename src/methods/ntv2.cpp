// NTv2: a grid shift file of National Transformation version 2, a tree of
// sub-grids of latitude and longitude shifts.
//
// The file is a sequence of records, each an 8-byte keyword and a value,
// walked by position (keywords are not tested).  Two record forms exist: the
// padded one, where an integer is followed by 4 bytes of pad so that every
// record takes 16 bytes, and the compact one, where an integer record takes
// 12.  Either byte order is read.  An overview header of 11 records is
// followed by the sub-grids, each a header of 11 records and GS_COUNT nodes
// of four floats (latitude shift, longitude shift and their accuracies),
// row by row from the south, each row from the east.  Longitudes in the file
// are positive west.
//
// The loaded form keeps, in a constants block:
//   ints:    number of grids, unit code, number of roots, the root indexes;
//            then per grid: index, parent index, child count, node count,
//            rows, columns, file offset, float offset, the child indexes;
//   values:  per grid at its float offset, the longitude shifts then the
//            latitude shifts, in arc-seconds;
//   doubles: per grid south, north, east, west, latitude and longitude
//            increments, in degrees, east positive.
#include <cmath>
#include <cstring>

#include "frame/text.h"
#include "gx_geodesy.h"
#include "methods/datahome.h"
#include "methods/grid_io.h"
#include "methods/methods.h"

using namespace gx_grid;

namespace {

// ---- the file ---------------------------------------------------------------

const int32_t kOverviewRecords = 11;
const size_t kKeywordBytes = 8;
const int64_t kPaddedOverviewBytes = 176;
const int64_t kPaddedSubgridBytes = 176;
const int64_t kCompactOverviewBytes = 164;
const int64_t kCompactSubgridBytes = 172;
const int64_t kNodeBytes = 16;
const char kRootParent[] = "NONE    ";
// Nodes are read in chunks of this many.
const int kNodeChunk = 256;

struct unit_row {
  const char* name;  // the first 7 characters of GS_TYPE
  double to_degrees;  // edges and increments
  float to_seconds;   // shifts, in single precision
};

const unit_row kUnits[] = {
    {"SECONDS", 0.0002777777777777778, 1.0f},
    {"MINUTES", 0.016666666666666666, 60.0f},
    {"DEGREES", 1.0, 3600.0f},
    {"RADIANS", 57.29577951308232, 206264.8125f},
};
const int32_t kUnitCount = sizeof kUnits / sizeof kUnits[0];

// Reads the values of consecutive records out of a header held in memory.
struct record_cursor {
  const unsigned char* data;
  size_t at;
  int padded;
  int swap;
};

int32_t next_int(record_cursor* c) {
  int32_t value;
  memcpy(&value, c->data + c->at + kKeywordBytes, sizeof value);
  if (c->swap) gx_swap32_array(&value, 1);
  c->at += kKeywordBytes + (c->padded ? 8 : 4);
  return value;
}

double next_double(record_cursor* c) {
  double value;
  memcpy(&value, c->data + c->at + kKeywordBytes, sizeof value);
  if (c->swap) gx_swap64_array(&value, 1);
  c->at += kKeywordBytes + 8;
  return value;
}

void next_text(record_cursor* c, char* text) {
  memcpy(text, c->data + c->at + kKeywordBytes, 8);
  c->at += kKeywordBytes + 8;
}

struct overview {
  int padded;
  int swap;
  int32_t grid_count;
  int32_t unit;
  int64_t overview_bytes;
  int64_t subgrid_bytes;
};

struct subgrid {
  char name[8];
  char parent_name[8];
  double edges[6];  // south, north, east, west, latitude and longitude increment
  int32_t count;    // GS_COUNT
  int32_t rows, columns;
  int64_t node_offset;
  int32_t parent;  // index, or -1
  int root;        // PARENT is "NONE    "
  int32_t child_count;
  int64_t float_offset;
};

enum { kSouth, kNorth, kEast, kWest, kLatInc, kLonInc, kEdgeCount };

int read_overview(FILE* file, overview* ov) {
  unsigned char raw[kPaddedOverviewBytes];
  if (!read_at(file, 0, raw, kKeywordBytes + 8)) return 0;
  int32_t records;
  memcpy(&records, raw + kKeywordBytes, sizeof records);
  ov->swap = records > kByteOrderLimit;
  // Four zero bytes after NUM_OREC's value are pad; anything else is the
  // start of the next keyword.
  ov->padded = raw[12] == 0 && raw[13] == 0 && raw[14] == 0 && raw[15] == 0;
  ov->overview_bytes = ov->padded ? kPaddedOverviewBytes : kCompactOverviewBytes;
  ov->subgrid_bytes = ov->padded ? kPaddedSubgridBytes : kCompactSubgridBytes;
  if (!read_at(file, 0, raw, static_cast<size_t>(ov->overview_bytes))) return 0;

  record_cursor c = {raw, 0, ov->padded, ov->swap};
  if (next_int(&c) != kOverviewRecords) return 0;
  next_int(&c);  // NUM_SREC
  ov->grid_count = next_int(&c);
  char type[8];
  next_text(&c, type);
  ov->unit = -1;
  for (int32_t u = 0; u < kUnitCount; ++u) {
    if (strncmp(type, kUnits[u].name, 7) == 0) ov->unit = u;
  }
  // A unit outside the four leaves no scale for the numbers: not a grid.
  return ov->unit >= 0 && ov->grid_count >= 1;
}

// The rows and columns a sub-grid's edges and increments imply.
int32_t node_lines(double from, double to, double increment) {
  const double lines = fabs(to - from) / increment + 1.5;
  if (!(lines < 2147483647.0)) return 0;
  return static_cast<int32_t>(lines);
}

int read_subgrid(FILE* file, const overview& ov, int64_t offset, subgrid* g) {
  unsigned char raw[kPaddedSubgridBytes];
  if (!read_at(file, offset, raw, static_cast<size_t>(ov.subgrid_bytes))) return 0;
  record_cursor c = {raw, 0, ov.padded, ov.swap};
  char ignored[8];
  next_text(&c, g->name);
  next_text(&c, g->parent_name);
  next_text(&c, ignored);  // CREATED
  next_text(&c, ignored);  // UPDATED
  double raw_edges[kEdgeCount];
  for (double& e : raw_edges) e = next_double(&c);
  g->count = next_int(&c);
  g->node_offset = offset + ov.subgrid_bytes;

  for (double e : raw_edges) {
    if (!std::isfinite(e)) return 0;
  }
  const double south = raw_edges[0], north = raw_edges[1];
  const double east_west = raw_edges[2], west_west = raw_edges[3];  // positive west
  if (!(raw_edges[4] > 0.0) || !(raw_edges[5] > 0.0)) return 0;
  if (!(south < north) || !(east_west < west_west)) return 0;
  g->rows = node_lines(south, north, raw_edges[4]);
  g->columns = node_lines(east_west, west_west, raw_edges[5]);
  if (g->rows < 2 || g->columns < 2 || g->count < 1) return 0;
  if (static_cast<int64_t>(g->rows) * g->columns > g->count) return 0;

  const double f = kUnits[ov.unit].to_degrees;
  g->edges[kSouth] = south * f;
  g->edges[kNorth] = north * f;
  g->edges[kEast] = -east_west * f;
  g->edges[kWest] = -west_west * f;
  g->edges[kLatInc] = raw_edges[4] * f;
  g->edges[kLonInc] = raw_edges[5] * f;
  return 1;
}

// Parents by name, roots by "NONE    ".  A cycle of parents is refused.
int link_subgrids(subgrid* grids, int32_t count, int32_t* state) {
  for (int32_t i = 0; i < count; ++i) {
    grids[i].parent = -1;
    grids[i].child_count = 0;
    grids[i].root = memcmp(grids[i].parent_name, kRootParent, 8) == 0;
    if (grids[i].root) continue;
    for (int32_t j = 0; j < count; ++j) {
      if (j != i && memcmp(grids[j].name, grids[i].parent_name, 8) == 0) {
        grids[i].parent = j;
        break;
      }
    }
  }
  // Walk up from each grid; meeting a grid of the walk in progress is a cycle.
  enum { kUnseen, kOnPath, kDone };
  for (int32_t i = 0; i < count; ++i) state[i] = kUnseen;
  for (int32_t i = 0; i < count; ++i) {
    int32_t g = i;
    while (g >= 0 && state[g] == kUnseen) {
      state[g] = kOnPath;
      g = grids[g].parent;
    }
    if (g >= 0 && state[g] == kOnPath) return 0;
    for (g = i; g >= 0 && state[g] == kOnPath; g = grids[g].parent) state[g] = kDone;
  }
  for (int32_t i = 0; i < count; ++i) {
    if (grids[i].parent >= 0) grids[grids[i].parent].child_count++;
  }
  return 1;
}

// Block 1 as laid out at the top of this file.
void fill_table(const subgrid* grids, const overview& ov, int32_t roots, int32_t* table) {
  const int32_t count = ov.grid_count;
  table[0] = count;
  table[1] = ov.unit;
  table[2] = roots;
  int32_t at = 3;
  for (int32_t i = 0; i < count; ++i) {
    if (grids[i].root) table[at++] = i;
  }
  for (int32_t i = 0; i < count; ++i) {
    const subgrid& g = grids[i];
    table[at++] = i;
    table[at++] = g.parent;
    table[at++] = g.child_count;
    table[at++] = g.count;
    table[at++] = g.rows;
    table[at++] = g.columns;
    table[at++] = g.node_offset > INT32_MAX ? INT32_MAX : static_cast<int32_t>(g.node_offset);
    table[at++] = static_cast<int32_t>(g.float_offset);
    for (int32_t j = 0; j < count; ++j) {
      if (grids[j].parent == i) table[at++] = j;
    }
  }
}

// The nodes of one sub-grid: longitude then latitude shifts, in arc-seconds.
int read_nodes(FILE* file, const overview& ov, const subgrid& g, float* values) {
  float chunk[kNodeChunk * 4];
  float* lon = values + g.float_offset;
  float* lat = lon + g.count;
  const float to_seconds = kUnits[ov.unit].to_seconds;
  if (fseek(file, static_cast<long>(g.node_offset), SEEK_SET) != 0) return 0;
  for (int32_t done = 0; done < g.count;) {
    const int32_t take = g.count - done < kNodeChunk ? g.count - done : kNodeChunk;
    if (!read_exact(file, chunk, sizeof(float) * 4 * take)) return 0;
    if (ov.swap) gx_swap32_array(chunk, 4 * take);
    for (int32_t k = 0; k < take; ++k) {
      lat[done + k] = chunk[4 * k] * to_seconds;
      lon[done + k] = chunk[4 * k + 1] * to_seconds;
    }
    done += take;
  }
  return 1;
}

// Reads every sub-grid header, checking each against the bytes the file
// holds, and links the tree.  Returns the table of headers or null.
subgrid* read_subgrids(FILE* file, const overview& ov, int64_t size) {
  const int32_t count = ov.grid_count;
  if (ov.overview_bytes + count * ov.subgrid_bytes > size) return nullptr;
  subgrid* grids = static_cast<subgrid*>(alloc_array(count, sizeof(subgrid)));
  int32_t* state = static_cast<int32_t*>(alloc_array(count, sizeof(int32_t)));
  int ok = grids != nullptr && state != nullptr;
  int64_t offset = ov.overview_bytes;
  int64_t floats = 0;
  for (int32_t i = 0; ok && i < count; ++i) {
    ok = read_subgrid(file, ov, offset, &grids[i]);
    if (!ok) break;
    grids[i].float_offset = floats;
    floats += 2 * static_cast<int64_t>(grids[i].count);
    offset = grids[i].node_offset + kNodeBytes * grids[i].count;
    ok = offset <= size && floats <= INT32_MAX;
  }
  if (ok) ok = link_subgrids(grids, count, state);
  gx_memdealloc(state);
  if (!ok) {
    gx_memdealloc(grids);
    return nullptr;
  }
  return grids;
}

int32_t load_file(gx_constants* block, FILE* file) {
  const int64_t size = file_size(file);
  overview ov;
  if (size < 0 || !read_overview(file, &ov)) return 0;
  subgrid* grids = read_subgrids(file, ov, size);
  if (grids == nullptr) return 0;

  const int32_t count = ov.grid_count;
  int32_t roots = 0, children = 0;
  for (int32_t i = 0; i < count; ++i) {
    roots += grids[i].root;
    children += grids[i].parent >= 0;
  }
  const subgrid& last = grids[count - 1];
  const int64_t floats = last.float_offset + 2 * static_cast<int64_t>(last.count);
  const int64_t table_size = 3 + static_cast<int64_t>(roots) + 8 * static_cast<int64_t>(count) + children;
  int32_t* table = static_cast<int32_t*>(alloc_array(table_size, sizeof(int32_t)));
  float* values = static_cast<float*>(alloc_array(floats, sizeof(float)));
  double* edges = static_cast<double*>(alloc_array(kEdgeCount * static_cast<int64_t>(count), sizeof(double)));
  int32_t loaded = 0;
  if (table != nullptr && values != nullptr && edges != nullptr) {
    fill_table(grids, ov, roots, table);
    for (int32_t i = 0; i < count; ++i) memcpy(edges + kEdgeCount * i, grids[i].edges, sizeof grids[i].edges);
    gx_constants_set_ints(block, table);
    gx_constants_set_values(block, values);
    gx_constants_set_doubles(block, edges);
    int ok = 1;
    for (int32_t i = 0; ok && i < count; ++i) ok = read_nodes(file, ov, grids[i], values);
    if (ok) {
      loaded = static_cast<int32_t>(floats);
    } else {
      clear_block(block);
    }
  } else {
    gx_memdealloc(table);
    gx_memdealloc(values);
    gx_memdealloc(edges);
  }
  gx_memdealloc(grids);
  return loaded;
}

// ---- the grids at conversion time ---------------------------------------

// One sub-grid as a call sees it, read from the blocks.
struct grid_view {
  const double* edges;
  int32_t rows, columns, count;
  const float* lon;
  const float* lat;
  int32_t child_count;
  const int32_t* children;
};

// The working copy of the grid table for one call.
struct grid_set {
  int32_t count;
  int32_t root_count;
  const int32_t* roots;
  grid_view* grids;
};

// Builds the call's working copy of block 1 and block 3; 0 on no memory.
int open_set(const int32_t* table, const float* values, const double* edges, grid_set* set) {
  set->count = table[0];
  set->root_count = table[2];
  set->roots = table + 3;
  set->grids = static_cast<grid_view*>(alloc_array(set->count, sizeof(grid_view)));
  if (set->grids == nullptr) return 0;
  const int32_t* record = set->roots + set->root_count;
  for (int32_t i = 0; i < set->count; ++i) {
    grid_view& g = set->grids[i];
    g.edges = edges + kEdgeCount * i;
    g.child_count = record[2];
    g.count = record[3];
    g.rows = record[4];
    g.columns = record[5];
    g.lon = values + record[7];
    g.lat = g.lon + g.count;
    g.children = record + 8;
    record = g.children + g.child_count;
  }
  return 1;
}

// Where a point lies in a grid, lowest wins; kOutside for not at all.
enum { kInterior = 1, kNorthEdge = 2, kWestEdge = 3, kNorthWestCorner = 4, kOutside = 5 };

int rank_in(const double* e, double x, double y) {
  const int across = x <= e[kEast] && x > e[kWest];
  const int up = y >= e[kSouth] && y < e[kNorth];
  const int on_west = x == e[kWest];
  const int on_north = y == e[kNorth];
  if (across && up) return kInterior;
  if (across && on_north) return kNorthEdge;
  if (on_west && up) return kWestEdge;
  if (on_west && on_north) return kNorthWestCorner;
  return kOutside;
}

// Takes the first interior grid of the list, else the first with a strictly
// better edge rank than the one held.  1 if the held grid changed.
int select_from(const grid_set& set, const int32_t* list, int32_t n, double x, double y,
                int32_t* grid, int* rank) {
  int changed = 0;
  for (int32_t i = 0; i < n; ++i) {
    const int r = rank_in(set.grids[list[i]].edges, x, y);
    if (r == kInterior || r < *rank) {
      *grid = list[i];
      *rank = r;
      changed = 1;
      if (r == kInterior) break;
    }
  }
  return changed;
}

// The grid of a point: the best root, then down through its children.
int32_t find_grid(const grid_set& set, double x, double y, int* rank) {
  int32_t grid = -1;
  *rank = kOutside;
  if (!select_from(set, set.roots, set.root_count, x, y, &grid, rank)) return -1;
  // Each step goes one level down a tree; the count bounds the depth.
  for (int32_t depth = 0; depth < set.count; ++depth) {
    const grid_view& g = set.grids[grid];
    if (g.child_count == 0 || !select_from(set, g.children, g.child_count, x, y, &grid, rank)) {
      break;
    }
  }
  return grid;
}

// The four corners of the node cell, with rows or columns beyond the grid
// folded onto the last by the rank of the point.
void corners(const grid_view& g, const float* plane, int32_t ix, int32_t iy, int rank,
             float* t) {
  const int32_t ix1 = ix + 1 < g.columns ? ix + 1 : ix;
  const int32_t iy1 = iy + 1 < g.rows ? iy + 1 : iy;
  const int64_t row0 = static_cast<int64_t>(iy) * g.columns;
  const int64_t row1 = static_cast<int64_t>(iy1) * g.columns;
  t[0] = plane[row0 + ix];
  t[1] = plane[row0 + ix1];
  t[2] = plane[row1 + ix];
  t[3] = plane[row1 + ix1];
  if (rank == kNorthEdge) {
    t[2] = t[0];
    t[3] = t[1];
  } else if (rank == kWestEdge) {
    t[1] = t[0];
    t[3] = t[2];
  } else if (rank == kNorthWestCorner) {
    t[1] = t[2] = t[3] = t[0];
  }
}

// Shifts in arc-seconds at (x, y) degrees; 0 when no grid holds the point.
int shifts_at(const grid_set& set, double x, double y, double* dlon, double* dlat) {
  int rank;
  const int32_t index = find_grid(set, x, y, &rank);
  if (index < 0) return 0;
  const grid_view& g = set.grids[index];
  const double gx = (g.edges[kEast] - x) / g.edges[kLonInc];
  const double gy = (y - g.edges[kSouth]) / g.edges[kLatInc];
  const int32_t ix = cell_index(gx, g.columns - 1);
  const int32_t iy = cell_index(gy, g.rows - 1);
  const double fx = gx - ix;
  const double fy = gy - iy;
  float t[4];
  corners(g, g.lon, ix, iy, rank, t);
  *dlon = bilinear(t, fx, fy);
  corners(g, g.lat, ix, iy, rank, t);
  *dlat = bilinear(t, fx, fy);
  return 1;
}

int32_t shift_forward(const grid_set& set, int32_t n, double* coords) {
  int32_t count = 0;
  for (int32_t i = 0; i < n; ++i) {
    double* point = coords + 2 * i;
    const double x = point[0] * kRadianToDegree;
    const double y = point[1] * kRadianToDegree;
    double dlon, dlat;
    if (!shifts_at(set, x, y, &dlon, &dlat)) continue;
    point[0] = gx_delta((x - dlon * kArcSecondToDegree) * kDegreeToRadian);
    point[1] = (y + dlat * kArcSecondToDegree) * kDegreeToRadian;
    ++count;
  }
  return count;
}

// Fixed-point passes from the target; the grid is searched anew each pass,
// and a point that leaves every grid keeps its last estimate.
int32_t shift_inverse(const grid_set& set, int32_t n, double* coords) {
  int32_t count = 0;
  for (int32_t i = 0; i < n; ++i) {
    double* point = coords + 2 * i;
    const double tx = point[0] * kRadianToDegree;
    const double ty = point[1] * kRadianToDegree;
    double x = tx, y = ty;
    int passes = 0;
    double dlon, dlat;
    while (shifts_at(set, x, y, &dlon, &dlat)) {
      const double rx = (x - dlon * kArcSecondToDegree) - tx;
      const double ry = (y + dlat * kArcSecondToDegree) - ty;
      ++passes;
      if ((fabs(rx) <= GX_EPS && fabs(ry) <= GX_EPS) || passes > kInversePasses) break;
      x -= rx;
      y -= ry;
    }
    if (passes == 0) continue;
    point[0] = gx_delta(x * kDegreeToRadian);
    point[1] = y * kDegreeToRadian;
    ++count;
  }
  return count;
}

typedef int32_t (*set_shift)(const grid_set& set, int32_t n, double* coords);

int32_t run_blocks(const int32_t* ints, const void* values, const double* doubles, int32_t n,
                   double* coords, set_shift shift) {
  grid_set set;
  if (!open_set(ints, static_cast<const float*>(values), doubles, &set)) return 0;
  const int32_t count = shift(set, n, coords);
  gx_memdealloc(set.grids);
  return count;
}

// With the loaded blocks, or else with a block loaded for this call alone.
int32_t run(const char* dataset, int32_t n, double* coords, int32_t* ints, void* values,
            double* doubles, set_shift shift) {
  if (n < 1) return n;
  if (ints != nullptr && values != nullptr && doubles != nullptr) {
    return run_blocks(ints, values, doubles, n, coords, shift);
  }
  gx_constants* block = gx_constants_new();
  if (block == nullptr) return 0;
  int32_t count = 0;
  if (gx_method_ntv2_load(block, dataset) >= 1) {
    count = run_blocks(block->ints, block->values, block->doubles, n, coords, shift);
  }
  gx_constants_del(block);
  return count;
}

}  // namespace

int32_t gx_method_ntv2_load(gx_constants* block, const char* dataset) {
  if (!gx_constants_p(block)) return 0;
  FILE* file = gx_ntv2_open(dataset);
  if (file == nullptr) return 0;
  const int32_t loaded = load_file(block, file);
  fclose(file);
  return loaded;
}

GX_METHOD_FN(gx_method_ntv2_forward) {
  return run(dataset, n, coords, ints, values, doubles, shift_forward);
}

GX_METHOD_FN(gx_method_ntv2_inverse) {
  return run(dataset, n, coords, ints, values, doubles, shift_inverse);
}
