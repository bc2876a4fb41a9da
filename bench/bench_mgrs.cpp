// Time per point of MGRS references, both ways, at the highest precision
// (8 digits per axis), over points spread across the globe and over points
// of one zone.  The counter "per_point" is seconds per point.
#include <benchmark/benchmark.h>

#include <vector>

#include "orvamobilegx.h"

namespace {

constexpr int kPoints = 4096;
constexpr int kPrecision = 8;

gx_geogcs* wgs84() {
  static gx_geogcs* geogcs = gx_geogcs_from_string(
      "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
      "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]");
  return geogcs;
}

// Points over the whole globe, caps included, in a scrambled order so that
// the zone changes from one point to the next; or within zone 31U.
std::vector<double> points(bool one_zone) {
  std::vector<double> coords(2 * kPoints);
  for (int i = 0; i < kPoints; i++) {
    double u = static_cast<double>((i * 7919) % kPoints) / kPoints;
    double v = static_cast<double>((i * 104729) % kPoints) / kPoints;
    coords[2 * i] = one_zone ? 0.1 + 5.8 * u : -180.0 + 359.99 * u;
    coords[2 * i + 1] = one_zone ? 48.1 + 7.8 * v : -89.99 + 179.98 * v;
  }
  return coords;
}

struct References {
  std::vector<char> storage = std::vector<char>(kPoints * GX_MGRS_BUFFER_SIZE);
  std::vector<char*> pointers = std::vector<char*>(kPoints);
  References() {
    for (int i = 0; i < kPoints; i++) pointers[i] = &storage[i * GX_MGRS_BUFFER_SIZE];
  }
};

void per_point(benchmark::State& state) {
  state.counters["per_point"] = benchmark::Counter(
      kPoints, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_GeogToMgrs(benchmark::State& state) {
  std::vector<double> coords = points(state.range(0) != 0);
  References refs;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        gx_geog_to_mgrs(wgs84(), kPoints, coords.data(), kPrecision, 0, refs.pointers.data()));
  }
  per_point(state);
}

void BM_MgrsToGeog(benchmark::State& state) {
  std::vector<double> coords = points(state.range(0) != 0);
  References refs;
  gx_geog_to_mgrs(wgs84(), kPoints, coords.data(), kPrecision, 0, refs.pointers.data());
  std::vector<const char*> readable(refs.pointers.begin(), refs.pointers.end());
  for (auto _ : state) {
    benchmark::DoNotOptimize(gx_mgrs_to_geog(wgs84(), kPoints, readable.data(), coords.data()));
  }
  per_point(state);
}

// One point a call: the set-up of a call (constants, band limits) included.
void BM_GeogToMgrsSingle(benchmark::State& state) {
  std::vector<double> coords = points(false);
  References refs;
  int i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(gx_geog_to_mgrs(wgs84(), 1, &coords[2 * i], kPrecision, 0, &refs.pointers[i]));
    i = (i + 1) % kPoints;
  }
}

void BM_MgrsToGeogSingle(benchmark::State& state) {
  std::vector<double> coords = points(false);
  References refs;
  gx_geog_to_mgrs(wgs84(), kPoints, coords.data(), kPrecision, 0, refs.pointers.data());
  std::vector<const char*> readable(refs.pointers.begin(), refs.pointers.end());
  int i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(gx_mgrs_to_geog(wgs84(), 1, &readable[i], &coords[2 * i]));
    i = (i + 1) % kPoints;
  }
}

BENCHMARK(BM_GeogToMgrs)->ArgName("one_zone")->Arg(0)->Arg(1);
BENCHMARK(BM_MgrsToGeog)->ArgName("one_zone")->Arg(0)->Arg(1);
BENCHMARK(BM_GeogToMgrsSingle);
BENCHMARK(BM_MgrsToGeogSingle);

}  // namespace
