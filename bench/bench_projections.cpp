// The projection functions themselves, without the driver: nanoseconds per
// point forward and inverse on 100000 points spread over each projection's
// usable area, with the constants loaded as the driver holds them.  One
// benchmark per direction runs over the table below; a family adds its rows.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "frame/constants.h"
#include "projections/azimuthal.h"

namespace {

constexpr double kDeg = 3.141592653589793 / 180.0;
constexpr int kPoints = 100000;

constexpr double kWgs84A = 6378137.0;
constexpr double kWgs84E2 = (2.0 - 1.0 / 298.257223563) / 298.257223563;
constexpr double kBesselA = 6377397.155;
constexpr double kBesselE2 = (2.0 - 1.0 / 299.1528128) / 299.1528128;
constexpr double kSphereR = 6371000.0;

struct parm {
  int slot;
  double value;  // angles in degrees
};

struct bench_row {
  const char* name;
  gx_projection_fn forward;
  gx_projection_fn inverse;
  gx_constants_fn loader;  // null when the projection has none
  double a, e2;
  std::vector<parm> parms;
  double lon_lo, lon_hi, lat_lo, lat_hi;  // where the points are, degrees
};

const std::vector<bench_row>& rows() {
  static const std::vector<bench_row> table = {
      {"Stereographic/sphere_oblique",
       gx_stereographic_forward,
       gx_stereographic_inverse,
       gx_stereographic_constants,
       kSphereR,
       0.0,
       {{GX_PARM_CENTRAL_MERIDIAN, 5}, {GX_PARM_LATITUDE_OF_ORIGIN, 52}},
       -5,
       15,
       40,
       65},
      {"Stereographic/wgs84_oblique",
       gx_stereographic_forward,
       gx_stereographic_inverse,
       gx_stereographic_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, 5},
        {GX_PARM_LATITUDE_OF_ORIGIN, 52},
        {GX_PARM_SCALE_FACTOR, 0.9999}},
       -5,
       15,
       40,
       65},
      {"Stereographic/wgs84_north",
       gx_stereographic_forward,
       gx_stereographic_inverse,
       gx_stereographic_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_LATITUDE_OF_ORIGIN, 90}, {GX_PARM_SCALE_FACTOR, 0.994}},
       -180,
       180,
       60,
       90},
      {"Stereographic_North_Pole/wgs84",
       gx_stereographic_north_pole_forward,
       gx_stereographic_north_pole_inverse,
       gx_stereographic_north_pole_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, -45}, {GX_PARM_STANDARD_PARALLEL_1, 70}},
       -180,
       180,
       60,
       90},
      {"Double_Stereographic/bessel",
       gx_double_stereographic_forward,
       gx_double_stereographic_inverse,
       gx_double_stereographic_constants,
       kBesselA,
       kBesselE2,
       {{GX_PARM_CENTRAL_MERIDIAN, 5.38763888888889},
        {GX_PARM_LATITUDE_OF_ORIGIN, 52.15616055555555},
        {GX_PARM_SCALE_FACTOR, 0.9999079}},
       3,
       8,
       50,
       54},
      {"Lambert_Azimuthal_Equal_Area/sphere",
       gx_lambert_azimuthal_equal_area_forward,
       gx_lambert_azimuthal_equal_area_inverse,
       gx_lambert_azimuthal_equal_area_constants,
       kSphereR,
       0.0,
       {{GX_PARM_CENTRAL_MERIDIAN, 10}, {GX_PARM_LATITUDE_OF_ORIGIN, 52}},
       -20,
       40,
       30,
       70},
      {"Lambert_Azimuthal_Equal_Area/wgs84",
       gx_lambert_azimuthal_equal_area_forward,
       gx_lambert_azimuthal_equal_area_inverse,
       gx_lambert_azimuthal_equal_area_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, 10}, {GX_PARM_LATITUDE_OF_ORIGIN, 52}},
       -20,
       40,
       30,
       70},
      {"Azimuthal_Equidistant/sphere",
       gx_azimuthal_equidistant_forward,
       gx_azimuthal_equidistant_inverse,
       gx_azimuthal_equidistant_constants,
       kSphereR,
       0.0,
       {{GX_PARM_CENTRAL_MERIDIAN, -100}, {GX_PARM_LATITUDE_OF_ORIGIN, 40}},
       -160,
       -40,
       0,
       80},
      {"Azimuthal_Equidistant/wgs84_oblique",
       gx_azimuthal_equidistant_forward,
       gx_azimuthal_equidistant_inverse,
       gx_azimuthal_equidistant_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, -100}, {GX_PARM_LATITUDE_OF_ORIGIN, 40}},
       -160,
       -40,
       0,
       80},
      {"Azimuthal_Equidistant/wgs84_north",
       gx_azimuthal_equidistant_forward,
       gx_azimuthal_equidistant_inverse,
       gx_azimuthal_equidistant_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_LATITUDE_OF_ORIGIN, 90}},
       -180,
       180,
       0,
       90},
      {"Two_Point_Equidistant/sphere",
       gx_two_point_equidistant_forward,
       gx_two_point_equidistant_inverse,
       nullptr,
       kSphereR,
       0.0,
       {{GX_PARM_STANDARD_PARALLEL_1, 40},
        {GX_PARM_LONGITUDE_OF_1ST_POINT, -100},
        {GX_PARM_STANDARD_PARALLEL_2, 10},
        {GX_PARM_LONGITUDE_OF_2ND_POINT, -60}},
       -120,
       -40,
       -10,
       60},
      {"Gnomonic/sphere",
       gx_gnomonic_forward,
       gx_gnomonic_inverse,
       gx_gnomonic_constants,
       kSphereR,
       0.0,
       {{GX_PARM_LONGITUDE_OF_CENTER, -100}, {GX_PARM_LATITUDE_OF_CENTER, 40}},
       -140,
       -60,
       10,
       70},
      {"Orthographic/sphere",
       gx_orthographic_forward,
       gx_orthographic_inverse,
       gx_gnomonic_constants,
       kSphereR,
       0.0,
       {{GX_PARM_LONGITUDE_OF_CENTER, -100}, {GX_PARM_LATITUDE_OF_CENTER, 40}},
       -150,
       -50,
       0,
       80},
      {"Vertical_Near_Side_Perspective/sphere",
       gx_vertical_near_side_perspective_forward,
       gx_vertical_near_side_perspective_inverse,
       gx_vertical_near_side_perspective_constants,
       kSphereR,
       0.0,
       {{GX_PARM_LONGITUDE_OF_CENTER, -100},
        {GX_PARM_LATITUDE_OF_CENTER, 40},
        {GX_PARM_HEIGHT, 35786000}},
       -140,
       -60,
       10,
       70},
      {"Vertical_Near_Side_Perspective/wgs84",
       gx_vertical_near_side_perspective_forward,
       gx_vertical_near_side_perspective_inverse,
       gx_vertical_near_side_perspective_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_LONGITUDE_OF_CENTER, -100},
        {GX_PARM_LATITUDE_OF_CENTER, 40},
        {GX_PARM_HEIGHT, 35786000}},
       -140,
       -60,
       10,
       70},
      {"Stereographic_Auxiliary_Sphere/wgs84_type3",
       gx_stereographic_auxiliary_sphere_forward,
       gx_stereographic_auxiliary_sphere_inverse,
       gx_stereographic_auxiliary_sphere_constants,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, 5}, {GX_PARM_LATITUDE_OF_ORIGIN, 52}, {GX_PARM_X_SCALE, 3}},
       -5,
       15,
       40,
       65},
  };
  return table;
}

bool angular(int slot) {
  return slot != GX_PARM_SCALE_FACTOR && slot != GX_PARM_X_SCALE && slot != GX_PARM_Y_SCALE &&
         slot != GX_PARM_HEIGHT && slot != GX_PARM_FALSE_EASTING && slot != GX_PARM_FALSE_NORTHING;
}

// The vector as the driver builds it: defaults, then the row's values.
std::vector<double> parameter_vector(const bench_row& row) {
  std::vector<double> v(GX_PARM_COUNT, 0.0);
  v[GX_PARM_SCALE_FACTOR] = v[GX_PARM_X_SCALE] = v[GX_PARM_Y_SCALE] = 1.0;
  bool second = false;
  for (const parm& p : row.parms) {
    v[p.slot] = angular(p.slot) ? p.value * kDeg : p.value;
    second |= p.slot == GX_PARM_STANDARD_PARALLEL_2;
  }
  if (!second) v[GX_PARM_STANDARD_PARALLEL_2] = v[GX_PARM_STANDARD_PARALLEL_1];
  return v;
}

// A run as the driver makes it: the sphere pair, the vector, the loaded
// constants, and points in radians over the row's area.
struct prepared {
  double sphere[2];
  std::vector<double> parms;
  gx_constants* block = gx_constants_new();
  const int32_t* ints = nullptr;
  const double* doubles = nullptr;
  std::vector<double> geographic;

  explicit prepared(const bench_row& row) : sphere{row.a, row.e2}, parms(parameter_vector(row)) {
    if (row.loader != nullptr && row.loader(block, sphere, parms.data()) > 0) {
      ints = gx_constants_ints(block);
      doubles = gx_constants_doubles(block);
    }
    std::mt19937_64 rng(11);
    std::uniform_real_distribution<double> lon(row.lon_lo, row.lon_hi), lat(row.lat_lo, row.lat_hi);
    geographic.resize(2 * kPoints);
    for (int i = 0; i < kPoints; ++i) {
      geographic[2 * i] = lon(rng) * kDeg;
      geographic[2 * i + 1] = lat(rng) * kDeg;
    }
  }
  ~prepared() { gx_constants_del(block); }

  int32_t run(gx_projection_fn fn, std::vector<double>& coords) {
    // The driver rebuilds the vector for every call; a twin may change it.
    std::vector<double> vector = parms;
    return fn(sphere, vector.data(), kPoints, coords.data(), ints, doubles);
  }
};

void run_direction(benchmark::State& state, const bench_row* row, bool forward) {
  prepared p(*row);
  std::vector<double> input = p.geographic;
  if (!forward) p.run(row->forward, input);
  std::vector<double> work(input.size());
  for (auto _ : state) {
    state.PauseTiming();
    work = input;
    state.ResumeTiming();
    benchmark::DoNotOptimize(p.run(forward ? row->forward : row->inverse, work));
  }
  // Seconds per point, shown with its SI prefix (n for nanoseconds).
  state.counters["per_point"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kPoints,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

const int kRegistered = [] {
  for (const bench_row& row : rows()) {
    benchmark::RegisterBenchmark((std::string("forward/") + row.name).c_str(), run_direction, &row,
                                 true)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string("inverse/") + row.name).c_str(), run_direction, &row,
                                 false)
        ->Unit(benchmark::kMillisecond);
  }
  return 0;
}();

}  // namespace
