// The conversion drivers and the WKT reader: nanoseconds per point of
// gx_geog_to_proj and gx_proj_to_geog on arrays of 1, 100 and 100000 points
// (UTM zone 32N on WGS 84, constants loaded), and the reading of a PROJCS.
#include <benchmark/benchmark.h>

#include <vector>

#include "orvamobilegx.h"

namespace {

const char* kUtm32 =
    "PROJCS[\"WGS_1984_UTM_Zone_32N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
    "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
    "PARAMETER[\"Central_Meridian\",9.0],PARAMETER[\"Scale_Factor\",0.9996],"
    "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";

// Points spread over the zone: 6 degrees of longitude, 0 to 80 degrees north.
std::vector<double> ZonePoints(int n) {
  std::vector<double> points(2 * n);
  for (int i = 0; i < n; ++i) {
    points[2 * i] = 6.0 + 6.0 * ((i * 7919) % 1000) / 1000.0;
    points[2 * i + 1] = 80.0 * ((i * 104729) % 1000) / 1000.0;
  }
  return points;
}

void BM_GeogToProj(benchmark::State& state) {
  gx_projcs* utm = gx_projcs_from_string(kUtm32);
  gx_projcs_load_constants(utm);
  int n = static_cast<int>(state.range(0));
  std::vector<double> source = ZonePoints(n);
  std::vector<double> work(source.size());
  for (auto _ : state) {
    state.PauseTiming();
    work = source;
    state.ResumeTiming();
    benchmark::DoNotOptimize(gx_geog_to_proj(utm, n, work.data()));
  }
  state.SetItemsProcessed(state.iterations() * n);
  gx_projcs_del(utm);
}

void BM_ProjToGeog(benchmark::State& state) {
  gx_projcs* utm = gx_projcs_from_string(kUtm32);
  int n = static_cast<int>(state.range(0));
  std::vector<double> source = ZonePoints(n);
  gx_geog_to_proj(utm, n, source.data());
  std::vector<double> work(source.size());
  for (auto _ : state) {
    state.PauseTiming();
    work = source;
    state.ResumeTiming();
    benchmark::DoNotOptimize(gx_proj_to_geog(utm, n, work.data()));
  }
  state.SetItemsProcessed(state.iterations() * n);
  gx_projcs_del(utm);
}

void BM_ProjcsFromString(benchmark::State& state) {
  for (auto _ : state) {
    gx_projcs* utm = gx_projcs_from_string(kUtm32);
    benchmark::DoNotOptimize(utm);
    gx_projcs_del(utm);
  }
}

BENCHMARK(BM_GeogToProj)->Arg(1)->Arg(100)->Arg(100000);
BENCHMARK(BM_ProjToGeog)->Arg(1)->Arg(100)->Arg(100000);
BENCHMARK(BM_ProjcsFromString);

}  // namespace
