// Every row of the projection list through the driver: nanoseconds per point
// of gx_geog_to_proj and gx_proj_to_geog on 100000 points around the centre
// of the row's starting parameters, on WGS 84, constants loaded.  One
// benchmark registered per row from the list itself, so no row is missed.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "objects/projlist.h"
#include "orvamobilegx.h"

namespace {

constexpr int kPoints = 100000;

const char* kWgs84 =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

struct Definition {
  gx_projcs* projcs = nullptr;
  double lon0 = 0, lat0 = 0;
};

Definition Make(const gx_projection_row& row) {
  gx_projection* projection = gx_projection_new(row.name, nullptr, nullptr, nullptr);
  gx_parameter* parameters[16];
  gx_parameter_projection_defaults(projection, parameters);
  std::string text = std::string("PROJCS[\"B\",") + kWgs84 + ",PROJECTION[\"" + row.name + "\"]";
  char clause[GX_WKT_SIZE];
  for (gx_parameter* parameter : parameters) {
    if (parameter == nullptr) continue;
    text += std::string(",") + gx_parameter_to_string(parameter, clause);
    gx_parameter_del(parameter);
  }
  gx_projection_del(projection);
  Definition d;
  d.projcs = gx_projcs_from_string((text + ",UNIT[\"Meter\",1.0]]").c_str());
  gx_parameter* slots[16];
  gx_projcs_parameters(d.projcs, slots);
  d.lon0 = gx_parameter_value(slots[slots[10] != nullptr ? 10 : 2]);
  d.lat0 = gx_parameter_value(slots[slots[11] != nullptr ? 11 : 6]);
  return d;
}

// Points within 10 degrees of the centre, off its own lines.
std::vector<double> Points(const Definition& d) {
  std::vector<double> points(2 * kPoints);
  for (int i = 0; i < kPoints; ++i) {
    double u = ((i * 7919) % 1000) / 1000.0, v = ((i * 104729) % 1000) / 1000.0;
    points[2 * i] = d.lon0 - 9.7 + 19.4 * u;
    points[2 * i + 1] = std::fmax(-85.0, std::fmin(85.0, d.lat0 - 9.7 + 19.4 * v));
  }
  return points;
}

void Forward(benchmark::State& state, const gx_projection_row* row) {
  Definition d = Make(*row);
  gx_projcs_load_constants(d.projcs);
  std::vector<double> source = Points(d), work(source.size());
  for (auto _ : state) {
    state.PauseTiming();
    work = source;
    state.ResumeTiming();
    benchmark::DoNotOptimize(gx_geog_to_proj(d.projcs, kPoints, work.data()));
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
  gx_projcs_del(d.projcs);
}

void Inverse(benchmark::State& state, const gx_projection_row* row) {
  Definition d = Make(*row);
  std::vector<double> source = Points(d), work(source.size());
  gx_geog_to_proj(d.projcs, kPoints, source.data());
  for (auto _ : state) {
    state.PauseTiming();
    work = source;
    state.ResumeTiming();
    benchmark::DoNotOptimize(gx_proj_to_geog(d.projcs, kPoints, work.data()));
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
  gx_projcs_del(d.projcs);
}

int Register() {
  for (int32_t i = 0; i < gx_projlist_count(); ++i) {
    const gx_projection_row* row = &gx_projlist_rows()[i];
    benchmark::RegisterBenchmark((std::string(row->name) + "/forward").c_str(), Forward, row)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string(row->name) + "/inverse").c_str(), Inverse, row)
        ->Unit(benchmark::kMillisecond);
  }
  return 0;
}

const int registered = Register();

}  // namespace
