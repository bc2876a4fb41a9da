// The geographic transformation methods: nanoseconds per point of each
// formula method, and of the NADCON and NTv2 shifts from loaded grids, on an
// array of 10000 points.  The grids are built in memory in the layout their
// loaders produce, so no file is read while timing.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "frame/constants.h"
#include "methods/methods.h"

namespace {

const double kDegree = 0.017453292519943295;
const double kClarke1866[2] = {6378206.4, 0.006768657997291};
const double kWgs84[2] = {6378137.0, 0.0066943799901413165};
const int kPoints = 10000;

// Points in a box of the given corners, in radians.
std::vector<double> box_points(double west, double south, double east, double north) {
  std::vector<double> points(2 * kPoints);
  for (int i = 0; i < kPoints; ++i) {
    points[2 * i] = (west + (east - west) * ((i * 7919) % 1000) / 1000.0) * kDegree;
    points[2 * i + 1] = (south + (north - south) * ((i * 104729) % 1000) / 1000.0) * kDegree;
  }
  return points;
}

std::vector<double> seven_parameters() {
  std::vector<double> p(16, 0.0);
  const double arc_second = 4.84813681109536e-6;
  p[0] = -87.1, p[1] = -98.2, p[2] = -121.3;
  p[3] = 1.5 * arc_second, p[4] = -2.1 * arc_second, p[5] = 3.3 * arc_second;
  p[6] = -1.2e-6;
  p[7] = 3900000, p[8] = 300000, p[9] = 5000000;
  return p;
}

void run_method(benchmark::State& state, gx_method_fn fn, const std::vector<double>& source,
                int32_t* ints = nullptr, void* values = nullptr, double* doubles = nullptr) {
  const std::vector<double> parms = seven_parameters();
  std::vector<double> work(source.size());
  std::vector<double> heights(kPoints, 100.0);
  for (auto _ : state) {
    state.PauseTiming();
    work = source;
    state.ResumeTiming();
    benchmark::DoNotOptimize(fn(kClarke1866, kWgs84, parms.data(), "grid", kPoints, work.data(),
                                heights.data(), ints, values, doubles));
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
}

void BM_Formula(benchmark::State& state, gx_method_fn fn) {
  run_method(state, fn, box_points(-10, 30, 40, 70));
}

BENCHMARK_CAPTURE(BM_Formula, Bursa_Wolf, gx_method_bursa_wolf_forward);
BENCHMARK_CAPTURE(BM_Formula, Bursa_Wolf_inverse, gx_method_bursa_wolf_inverse);
BENCHMARK_CAPTURE(BM_Formula, Position_Vector, gx_method_position_vector_forward);
BENCHMARK_CAPTURE(BM_Formula, Geocentric_Translation, gx_method_geocentric_translation_forward);
BENCHMARK_CAPTURE(BM_Formula, Molodensky, gx_method_molodensky_forward);
BENCHMARK_CAPTURE(BM_Formula, Molodensky_Abridged, gx_method_molodensky_abridged_forward);
BENCHMARK_CAPTURE(BM_Formula, Molodensky_Badekas, gx_method_molodensky_badekas_forward);

// A smooth shift field over a grid of rows x columns nodes.
float shift(int row, int column, double scale) {
  return static_cast<float>(scale * (1.0 + 0.01 * row - 0.02 * column + 1e-4 * row * column));
}

// NADCON blocks: {nr, nc}; longitude then latitude shifts; xmin, ymin, xmax,
// ymax, dx, dy.  125W to 65W, 20N to 50N at a quarter degree.
void BM_NadconLoaded(benchmark::State& state, gx_method_fn fn) {
  const int nc = 241, nr = 121;
  int32_t ints[2] = {nr, nc};
  std::vector<float> values(2 * nc * nr);
  for (int r = 0; r < nr; ++r) {
    for (int c = 0; c < nc; ++c) {
      values[r * nc + c] = shift(r, c, 1.0);
      values[nc * nr + r * nc + c] = shift(r, c, -0.5);
    }
  }
  double bounds[6] = {-125.0, 20.0, -65.0, 50.0, 0.25, 0.25};
  run_method(state, fn, box_points(-124, 21, -66, 49), ints, values.data(), bounds);
}

BENCHMARK_CAPTURE(BM_NadconLoaded, forward, gx_method_nadcon_forward);
BENCHMARK_CAPTURE(BM_NadconLoaded, inverse, gx_method_nadcon_inverse);

// NTv2 blocks for one root grid: header, the root list, one grid record;
// longitude then latitude shifts; south, north, east, west and increments.
// 40N to 60N, 5W to 25E at 5 minutes.
void BM_Ntv2Loaded(benchmark::State& state, gx_method_fn fn) {
  const int rows = 241, columns = 361, count = rows * columns;
  int32_t ints[] = {1, 0, 1, 0, /* grid 0 */ 0, -1, 0, count, rows, columns, 0, 0};
  std::vector<float> values(2 * count);
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) {
      values[r * columns + c] = shift(r, c, 2.0);
      values[count + r * columns + c] = shift(r, c, 1.0);
    }
  }
  double edges[6] = {40.0, 60.0, 25.0, -5.0, 1.0 / 12, 1.0 / 12};
  run_method(state, fn, box_points(-4, 41, 24, 59), ints, values.data(), edges);
}

BENCHMARK_CAPTURE(BM_Ntv2Loaded, forward, gx_method_ntv2_forward);
BENCHMARK_CAPTURE(BM_Ntv2Loaded, inverse, gx_method_ntv2_inverse);

}  // namespace
