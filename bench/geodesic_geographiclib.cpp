// The geodesic problems per call, this library against GeographicLib's
// Geodesic (Karney's series) on the same WGS 84 lines, in one run.  Built
// where GeographicLib's development files are installed
// (libgeographiclib-dev): bench_geodesic_geographiclib.
#include <benchmark/benchmark.h>

#include <GeographicLib/Geodesic.hpp>
#include <cmath>
#include <random>
#include <vector>

#include "gx_geodesy.h"

namespace {

constexpr double kA = 6378137.0, kF = 1 / 298.257223563, kE2 = (2 - kF) * kF;
constexpr double kDeg = 0.017453292519943295;

// Random lines away from the antipodal zone, where Vincenty's iteration is
// left unsettled and both methods do other work.
struct Lines {
  std::vector<double> lat1, lon1, lat2, lon2, s12, azi1;
  explicit Lines(int n) {
    std::mt19937_64 rng(7);
    std::uniform_real_distribution<double> lat(-80, 80), lon(-170, 170);
    const GeographicLib::Geodesic& g = GeographicLib::Geodesic::WGS84();
    while (static_cast<int>(lat1.size()) < n) {
      double a = lat(rng), b = lat(rng), dl = lon(rng);
      if (std::fabs(a + b) < 5 && std::fabs(dl) > 160) continue;
      double s, az1, az2;
      g.Inverse(a, 0, b, dl, s, az1, az2);
      lat1.push_back(a), lon1.push_back(0), lat2.push_back(b), lon2.push_back(dl), s12.push_back(s),
          azi1.push_back(az1);
    }
  }
};

const Lines& lines() {
  static const Lines l(4096);
  return l;
}

void BM_InverseHere(benchmark::State& state) {
  const Lines& l = lines();
  size_t i = 0;
  for (auto _ : state) {
    double s;
    gx_geodesic_distance(kA, kE2, l.lon1[i] * kDeg, l.lat1[i] * kDeg, l.lon2[i] * kDeg, l.lat2[i] * kDeg,
                         &s, nullptr, nullptr);
    benchmark::DoNotOptimize(s);
    i = (i + 1) & 4095;
  }
}

void BM_InverseGeographicLib(benchmark::State& state) {
  const Lines& l = lines();
  const GeographicLib::Geodesic& g = GeographicLib::Geodesic::WGS84();
  size_t i = 0;
  for (auto _ : state) {
    double s;
    g.Inverse(l.lat1[i], l.lon1[i], l.lat2[i], l.lon2[i], s);
    benchmark::DoNotOptimize(s);
    i = (i + 1) & 4095;
  }
}

void BM_DirectHere(benchmark::State& state) {
  const Lines& l = lines();
  size_t i = 0;
  for (auto _ : state) {
    double lon, lat;
    gx_geodesic_coordinate(kA, kE2, l.lon1[i] * kDeg, l.lat1[i] * kDeg, l.s12[i], l.azi1[i] * kDeg, &lon, &lat);
    benchmark::DoNotOptimize(lat);
    i = (i + 1) & 4095;
  }
}

void BM_DirectGeographicLib(benchmark::State& state) {
  const Lines& l = lines();
  const GeographicLib::Geodesic& g = GeographicLib::Geodesic::WGS84();
  size_t i = 0;
  for (auto _ : state) {
    double lat, lon;
    g.Direct(l.lat1[i], l.lon1[i], l.azi1[i], l.s12[i], lat, lon);
    benchmark::DoNotOptimize(lat);
    i = (i + 1) & 4095;
  }
}

BENCHMARK(BM_InverseHere);
BENCHMARK(BM_InverseGeographicLib);
BENCHMARK(BM_DirectHere);
BENCHMARK(BM_DirectGeographicLib);

}  // namespace
