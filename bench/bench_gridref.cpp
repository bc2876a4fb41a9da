// Time per point of GEOREF text, both ways, over a spread of points in
// degrees.  The counter "per_point" is seconds per point.
#include <benchmark/benchmark.h>

#include <vector>

#include "gridref/georef_codec.h"

namespace {

constexpr double kDegree = 0.017453292519943295;
constexpr int kPoints = 4096;

std::vector<double> spread_of_points() {
  std::vector<double> coords(2 * kPoints);
  for (int i = 0; i < kPoints; i++) {
    coords[2 * i] = -180.0 + 359.99 * ((i * 7919) % kPoints) / kPoints;
    coords[2 * i + 1] = -90.0 + 179.99 * ((i * 104729) % kPoints) / kPoints;
  }
  return coords;
}

struct Texts {
  std::vector<char> storage = std::vector<char>(kPoints * GX_GEOREF_SIZE);
  std::vector<char*> pointers = std::vector<char*>(kPoints);
  Texts() {
    for (int i = 0; i < kPoints; i++) pointers[i] = &storage[i * GX_GEOREF_SIZE];
  }
};

void per_point(benchmark::State& state) {
  state.counters["per_point"] = benchmark::Counter(
      kPoints, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_GeorefEncode(benchmark::State& state) {
  std::vector<double> coords = spread_of_points();
  Texts texts;
  int precision = static_cast<int>(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(gx_georef_encode(kDegree, kPoints, coords.data(), precision, 0, texts.pointers.data()));
  }
  per_point(state);
}

void BM_GeorefDecode(benchmark::State& state) {
  std::vector<double> coords = spread_of_points();
  Texts texts;
  gx_georef_encode(kDegree, kPoints, coords.data(), static_cast<int>(state.range(0)), 0, texts.pointers.data());
  std::vector<const char*> readable(texts.pointers.begin(), texts.pointers.end());
  for (auto _ : state) {
    benchmark::DoNotOptimize(gx_georef_decode(kDegree, kPoints, readable.data(), coords.data()));
  }
  per_point(state);
}

BENCHMARK(BM_GeorefEncode)->Arg(2)->Arg(5)->Arg(9);
BENCHMARK(BM_GeorefDecode)->Arg(2)->Arg(5)->Arg(9);

}  // namespace
