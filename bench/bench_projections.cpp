// Time per point of the projection functions, forward and inverse, with the
// definition's constants loaded, on 100000 points spread over each
// projection's usable area.  One benchmark runs over the table below; a new
// projection is a new row.
//
//   cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DGX_BUILD_BENCH=ON
//   cmake --build build-bench -j2 && build-bench/bench/bench_projections
#include <benchmark/benchmark.h>

#include <cstring>
#include <initializer_list>
#include <vector>

#include "frame/constants.h"
#include "gx_projections.h"
#include "projections/apart.h"
#include "projections/world.h"

namespace {

constexpr double kDeg = 3.141592653589793 / 180.0;
constexpr int kPoints = 100000;
constexpr double kWgs84A = 6378137.0;
constexpr double kWgs84E2 = (2.0 - 1.0 / 298.257223563) / 298.257223563;
constexpr double kSphereR = 6371000.0;

struct Parameter {
  int slot;
  double value;  // radians, metres or as it is, as the driver passes it
};

struct Row {
  const char* name;
  gx_projection_fn forward;
  gx_projection_fn inverse;
  gx_constants_fn loader;
  double a, e2;
  std::initializer_list<Parameter> parameters;
  double lon_lo, lon_hi, lat_lo, lat_hi;  // degrees: the usable area timed
};

constexpr int kCm = GX_PARM_CENTRAL_MERIDIAN;
constexpr int kSp1 = GX_PARM_STANDARD_PARALLEL_1;
constexpr int kK0 = GX_PARM_SCALE_FACTOR;
constexpr int kPhi0 = GX_PARM_LATITUDE_OF_ORIGIN;
constexpr int kType = GX_PARM_X_SCALE;
constexpr int kOption = GX_PARM_HEIGHT;
constexpr int kAz = GX_PARM_AZIMUTH;
constexpr int kLonC = GX_PARM_LONGITUDE_OF_CENTER;
constexpr int kLatC = GX_PARM_LATITUDE_OF_CENTER;

// A world projection's forward and inverse.
#define W(name) gx_##name##_forward, gx_##name##_inverse

const Row kRows[] = {
    {"Sinusoidal sphere", W(sinusoidal), gx_sinusoidal_constants, kSphereR, 0.0, {}, -179, 179,
     -89, 89},
    {"Sinusoidal WGS84", W(sinusoidal), gx_sinusoidal_constants, kWgs84A, kWgs84E2, {}, -179, 179,
     -89, 89},
    {"Mollweide sphere", W(mollweide), gx_mollweide_constants, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Eckert_I sphere", W(eckert_i), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_II sphere", W(eckert_ii), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_III sphere", W(eckert_iii), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_IV sphere", W(eckert_iv), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_V sphere", W(eckert_v), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_VI sphere", W(eckert_vi), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Winkel_I sphere", W(winkel_i), nullptr, kSphereR, 0.0, {{kSp1, 30 * kDeg}}, -179, 179, -89,
     89},
    {"Winkel_II sphere", W(winkel_ii), nullptr, kSphereR, 0.0, {{kSp1, 30 * kDeg}}, -179, 179,
     -89, 89},
    {"Winkel_Tripel sphere", W(winkel_tripel), gx_winkel_tripel_constants, kSphereR, 0.0,
     {{kSp1, 50.467 * kDeg}}, -179, 179, -89, 89},
    {"Quartic_Authalic sphere", W(quartic_authalic), nullptr, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Flat_Polar_Quartic sphere", W(flat_polar_quartic), gx_flat_polar_quartic_constants,
     kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Craster_Parabolic sphere", W(craster_parabolic), gx_craster_parabolic_constants, kSphereR,
     0.0, {}, -179, 179, -89, 89},
    {"Loximuthal sphere", W(loximuthal), nullptr, kSphereR, 0.0, {{kPhi0, 40 * kDeg}}, -179, 179,
     -89, 89},
    {"Times sphere", W(times), gx_times_constants, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Van_der_Grinten_I sphere", W(van_der_grinten_i), nullptr, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Aitoff sphere", W(aitoff), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Hammer_Aitoff sphere", W(hammer_aitoff), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Robinson sphere", W(robinson), gx_robinson_constants, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Robinson_TELMAR sphere", W(robinson_telmar), nullptr, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Goode_Homolosine sphere", W(goode_homolosine), gx_goode_homolosine_constants, kSphereR, 0.0,
     {}, -179, 179, -89, 89},
    {"Goode_Homolosine sphere Option 1", W(goode_homolosine), gx_goode_homolosine_constants,
     kSphereR, 0.0, {{kOption, 1}}, -179, 179, -89, 89},
    {"Mollweide_Auxiliary_Sphere WGS84 type 3", W(mollweide_auxiliary_sphere),
     gx_mollweide_auxiliary_sphere_constants, kWgs84A, kWgs84E2, {{kType, 3}}, -179, 179, -89, 89},
    {"New_Zealand_Map_Grid", gx_new_zealand_map_grid_forward, gx_new_zealand_map_grid_inverse,
     nullptr, 6378388.0, (2.0 - 1.0 / 297.0) / 297.0, {{kCm, 173 * kDeg}, {kPhi0, -41 * kDeg}},
     166, 179, -47.5, -34},
    {"Local WGS84", gx_local_forward, gx_local_inverse, gx_local_constants, kWgs84A, kWgs84E2,
     {{kLonC, 10 * kDeg}, {kLatC, 50 * kDeg}, {kAz, 30 * kDeg}, {kK0, 0.9996}}, 0, 20, 40, 60},
    {"Local sphere", gx_local_forward, gx_local_inverse, gx_local_constants, kSphereR, 0.0,
     {{kLonC, 10 * kDeg}, {kLatC, 50 * kDeg}}, 0, 20, 40, 60},
};
constexpr int kRowCount = sizeof kRows / sizeof kRows[0];

// The vector as the driver builds it for every call.
void build_parms(const Row& row, double* parms) {
  for (int i = 0; i < GX_PARM_COUNT; ++i) parms[i] = 0.0;
  parms[GX_PARM_SCALE_FACTOR] = parms[GX_PARM_X_SCALE] = parms[GX_PARM_Y_SCALE] = 1.0;
  for (const Parameter& p : row.parameters) parms[p.slot] = p.value;
  parms[GX_PARM_STANDARD_PARALLEL_2] = parms[GX_PARM_STANDARD_PARALLEL_1];
}

// Points spread evenly over the area, in a scrambled order.
std::vector<double> spread_points(const Row& row) {
  std::vector<double> out(2 * kPoints);
  uint64_t state = 0x9E3779B97F4A7C15ull;
  auto next = [&state] {
    state = state * 6364136223846793005ull + 1442695040888963407ull;
    return static_cast<double>(state >> 11) / 9007199254740992.0;
  };
  for (int i = 0; i < kPoints; ++i) {
    out[2 * i] = (row.lon_lo + (row.lon_hi - row.lon_lo) * next()) * kDeg;
    out[2 * i + 1] = (row.lat_lo + (row.lat_hi - row.lat_lo) * next()) * kDeg;
  }
  return out;
}

// Arguments: the row, then 0 for forward or 1 for inverse.
void BM_Projection(benchmark::State& state) {
  const Row& row = kRows[state.range(0)];
  const bool inverse = state.range(1) == 1;
  state.SetLabel(std::string(row.name) + (inverse ? " inverse" : " forward"));
  const double sphere[2] = {row.a, row.e2};
  double parms[GX_PARM_COUNT];
  build_parms(row, parms);
  gx_constants* block = gx_constants_new();
  if (row.loader != nullptr) row.loader(block, sphere, parms);
  const int32_t* ints = gx_constants_ints(block);
  const double* doubles = gx_constants_doubles(block);
  std::vector<double> input = spread_points(row);
  if (inverse) row.forward(sphere, parms, kPoints, input.data(), ints, doubles);
  gx_projection_fn fn = inverse ? row.inverse : row.forward;
  std::vector<double> work(input.size());
  for (auto _ : state) {
    state.PauseTiming();
    std::memcpy(work.data(), input.data(), input.size() * sizeof(double));
    build_parms(row, parms);
    state.ResumeTiming();
    benchmark::DoNotOptimize(fn(sphere, parms, kPoints, work.data(), ints, doubles));
    benchmark::ClobberMemory();
  }
  // Seconds per point, shown with its SI prefix (n for nanoseconds).
  state.counters["per_point"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kPoints,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  gx_constants_del(block);
}

BENCHMARK(BM_Projection)
    ->ArgsProduct({benchmark::CreateDenseRange(0, kRowCount - 1, 1), {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
