// Reads a definition and then converts a grid of points through it, forward
// and inverse, and a few points taken from the input itself: this reaches
// every projection's set-up and its iterations with the parameters the text
// gives (a zero parallel, a NaN scale, a huge height), where divisions by
// zero and searches that never end would live.  Geographic transformations
// go through their methods the same way.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "orvamobilegx.h"

namespace {

constexpr int kGrid = 7;  // points per side of the grid of longitudes and latitudes

void grid(double* coords) {
  for (int i = 0; i < kGrid; ++i) {
    for (int j = 0; j < kGrid; ++j) {
      coords[2 * (i * kGrid + j)] = -180.0 + 360.0 * i / (kGrid - 1);
      coords[2 * (i * kGrid + j) + 1] = -90.0 + 180.0 * j / (kGrid - 1);
    }
  }
}

// Doubles from the tail of the input, so that the fuzzer can steer points to
// the singular places of a definition it found.
int tail_points(const uint8_t* data, size_t size, double* coords, int room) {
  int count = 0;
  while (size >= 16 && count < room) {
    std::memcpy(&coords[2 * count], data + size - 16, 16);
    size -= 16;
    ++count;
  }
  return count;
}

void convert_projcs(gx_projcs* projcs, const uint8_t* data, size_t size) {
  double coords[2 * (kGrid * kGrid + 8)];
  grid(coords);
  int n = kGrid * kGrid + tail_points(data, size, coords + 2 * kGrid * kGrid, 8);
  gx_geog_to_proj(projcs, n, coords);
  gx_proj_to_geog(projcs, n, coords);
  double center[2] = {0.0, 0.0};
  gx_proj_to_geog_center(projcs, n, coords, center[0]);
}

void convert_geogtran(gx_geogtran* tran, const uint8_t* data, size_t size) {
  double coords[2 * (kGrid * kGrid + 8)];
  grid(coords);
  int n = kGrid * kGrid + tail_points(data, size, coords + 2 * kGrid * kGrid, 8);
  gx_geog1_to_geog2(tran, n, coords, nullptr);
  gx_geog2_to_geog1(tran, n, coords, nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  void* obj = gx_object_from_string(text.c_str());
  if (obj == nullptr) return 0;
  uint32_t type = gx_object_type(obj);
  if (type == gx_name_to_type("projcs")) convert_projcs(static_cast<gx_projcs*>(obj), data, size);
  if (type == gx_name_to_type("geogtran")) convert_geogtran(static_cast<gx_geogtran*>(obj), data, size);
  gx_object_del(obj);
  return 0;
}
