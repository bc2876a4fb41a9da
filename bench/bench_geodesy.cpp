// Cost of the geodesy kernel per call: geodesics on WGS 84 and the sphere,
// and the latitude series in their table and plain forms.
#include <benchmark/benchmark.h>

#include <cmath>

#include "geodesy/ellipsoid.h"
#include "geodesy/latitudes.h"

namespace {

constexpr double kA = 6378137.0;
constexpr double kF = 1.0 / 298.257223563;
constexpr double kE2 = kF * (2.0 - kF);
constexpr int kPoints = 256;

// Deterministic spread of points over the globe: latitude, longitude pairs.
struct Points {
  double lat[kPoints], lon[kPoints];
  Points() {
    for (int i = 0; i < kPoints; ++i) {
      lat[i] = std::asin(std::fmod(i * 0.618033988749895, 2.0) - 1.0) * 0.98;
      lon[i] = std::fmod(i * 2.399963229728653, GX_TWOPI) - GX_PI;
    }
  }
};

const Points kPointsSet;

void BM_GeodesicDistance(benchmark::State& state) {
  double e2 = state.range(0) ? kE2 : 0.0;
  int i = 0;
  for (auto _ : state) {
    int j = (i * 7 + 3) % kPoints;
    double distance, az12, az21;
    gx_geodesic_distance(kA, e2, kPointsSet.lon[i], kPointsSet.lat[i], kPointsSet.lon[j], kPointsSet.lat[j],
                         &distance, &az12, &az21);
    benchmark::DoNotOptimize(distance);
    i = (i + 1) % kPoints;
  }
}
BENCHMARK(BM_GeodesicDistance)->Arg(1)->Arg(0)->ArgName("ellipsoid");

void BM_GeodesicCoordinate(benchmark::State& state) {
  double e2 = state.range(0) ? kE2 : 0.0;
  int i = 0;
  for (auto _ : state) {
    double lambda2, phi2;
    gx_geodesic_coordinate(kA, e2, kPointsSet.lon[i], kPointsSet.lat[i], 1e4 + i * 5e4, kPointsSet.lon[i],
                           &lambda2, &phi2);
    benchmark::DoNotOptimize(lambda2);
    benchmark::DoNotOptimize(phi2);
    i = (i + 1) % kPoints;
  }
}
BENCHMARK(BM_GeodesicCoordinate)->Arg(1)->Arg(0)->ArgName("ellipsoid");

using table_fn = double (*)(double, double, const double*);
using init_fn = void (*)(double, double*, int);
using plain_fn = double (*)(double, double);

// The per-point path of a projection: a table filled once, then one sine and
// one cosine per latitude.
template <init_fn init, table_fn convert>
void BM_TableLatitude(benchmark::State& state) {
  double table[GX_BETA_TABLE_SIZE];
  init(kE2, table, GX_SERIES_ALL);
  int i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(convert(kE2, kPointsSet.lat[i], table));
    i = (i + 1) % kPoints;
  }
}
BENCHMARK(BM_TableLatitude<gx_chi_series_init, gx_phi_to_chi_c>)->Name("phi_to_chi_c");
BENCHMARK(BM_TableLatitude<gx_chi_series_init, gx_chi_to_phi_c>)->Name("chi_to_phi_c");
BENCHMARK(BM_TableLatitude<gx_beta_series_init, gx_phi_to_beta_c>)->Name("phi_to_beta_c");
BENCHMARK(BM_TableLatitude<gx_beta_series_init, gx_beta_to_phi_c>)->Name("beta_to_phi_c");
BENCHMARK(BM_TableLatitude<gx_mu_series_init, gx_phi_to_mu_c>)->Name("phi_to_mu_c");
BENCHMARK(BM_TableLatitude<gx_mu_series_init, gx_mu_to_phi_c>)->Name("mu_to_phi_c");

// The plain forms build their coefficients on every call.
template <plain_fn convert>
void BM_PlainLatitude(benchmark::State& state) {
  double e2 = state.range(0) ? 0.1 : kE2;  // 1: a body past the series limit
  int i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(convert(e2, kPointsSet.lat[i]));
    i = (i + 1) % kPoints;
  }
}
BENCHMARK(BM_PlainLatitude<gx_phi_to_chi>)->Name("phi_to_chi")->Arg(0)->Arg(1)->ArgName("closed");
BENCHMARK(BM_PlainLatitude<gx_chi_to_phi>)->Name("chi_to_phi")->Arg(0)->Arg(1)->ArgName("closed");
BENCHMARK(BM_PlainLatitude<gx_beta_to_phi>)->Name("beta_to_phi")->Arg(0)->Arg(1)->ArgName("closed");
BENCHMARK(BM_PlainLatitude<gx_mu_to_phi>)->Name("mu_to_phi")->Arg(0)->Arg(1)->ArgName("closed");

void BM_MeridianArc(benchmark::State& state) {
  int i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(gx_q(kA, kE2, kPointsSet.lat[i]));
    i = (i + 1) % kPoints;
  }
}
BENCHMARK(BM_MeridianArc);

}  // namespace
