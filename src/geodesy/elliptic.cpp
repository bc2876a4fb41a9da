// Carlson's duplication algorithm with the third argument fixed at 1, the
// elliptic integrals of the second kind built on it, and the AGM sequence.
#include "geodesy/elliptic.h"

#include <cmath>

#include "gx_geodesy.h"

namespace {

// Duplication stops once every relative deviation from the mean is below
// this; the fifth-order closing series then leaves an error near 1e-24.
constexpr double kCarlsonTolerance = 0.0001;
// Each step quarters the deviations, so ordinary arguments need about a dozen
// steps; only a NaN or a divergent integral (x = y = 0 in RF) comes near this.
constexpr int kCarlsonSafetyCap = 10000;

// The three arguments of a symmetric integral and their relative deviations
// from the weighted mean.
struct Duplication {
  double x, y, z;
  double mean, dx, dy, dz;

  // Forms the deviations; true once all are below the tolerance.
  bool settled(double mean_of_args) {
    mean = mean_of_args;
    dx = (mean - x) / mean;
    dy = (mean - y) / mean;
    dz = (mean - z) / mean;
    // A NaN argument never settles: it ends the duplication at once, with
    // the NaN it would give after the cap.
    if (std::isnan(mean)) return true;
    return std::fabs(dx) < kCarlsonTolerance && std::fabs(dy) < kCarlsonTolerance &&
           std::fabs(dz) < kCarlsonTolerance;
  }

  // One duplication step; returns lambda and leaves sqrt(z) of the old z.
  double step(double* root_z) {
    double sx = std::sqrt(x), sy = std::sqrt(y), sz = std::sqrt(z);
    double lambda = sx * sy + sx * sz + sy * sz;
    x = (x + lambda) * 0.25;
    y = (y + lambda) * 0.25;
    z = (z + lambda) * 0.25;
    *root_z = sz;
    return lambda;
  }
};

}  // namespace

double gx_carlson_rf(double x, double y) {
  Duplication d{x, y, 1.0, 0.0, 0.0, 0.0, 0.0};
  for (int step = 0; step < kCarlsonSafetyCap; ++step) {
    if (d.settled((d.x + d.y + d.z) / 3.0)) break;
    double root_z;
    d.step(&root_z);
  }
  double e2 = d.dx * d.dy - d.dz * d.dz;
  double e3 = d.dx * d.dy * d.dz;
  return (1.0 + (e2 / 24.0 - 0.1 - (3.0 / 44.0) * e3) * e2 + (1.0 / 14.0) * e3) / std::sqrt(d.mean);
}

double gx_carlson_rd(double x, double y) {
  Duplication d{x, y, 1.0, 0.0, 0.0, 0.0, 0.0};
  double sum = 0.0, fac = 1.0;
  for (int step = 0; step < kCarlsonSafetyCap; ++step) {
    if (d.settled((d.x + d.y + 3.0 * d.z) / 5.0)) break;
    double z = d.z, root_z;
    double lambda = d.step(&root_z);
    sum += fac / (root_z * (z + lambda));
    fac *= 0.25;
  }
  double dz = d.dz;
  double ea = d.dx * d.dy;
  double eb = dz * dz;
  double ec = ea - eb;
  double ed = ea - 6.0 * eb;
  double ef = ed + ec + ec;
  double series = 1.0 + ed * (-(3.0 / 14.0) + (9.0 / 88.0) * ed - (9.0 / 52.0) * dz * ef) +
                  dz * ((1.0 / 6.0) * ef + dz * (-(9.0 / 22.0) * ec + dz * (3.0 / 26.0) * ea));
  return 3.0 * sum + fac * series / (d.mean * std::sqrt(d.mean));
}

double gx_ellint_e_complete(double m) {
  double y = 1.0 - m;
  return gx_carlson_rf(0.0, y) - (m / 3.0) * gx_carlson_rd(0.0, y);
}

double gx_ellint_e(double phi, double m) {
  double s = std::sin(phi);
  double x = 1.0 - s * s;
  double y = 1.0 - m * s * s;
  return s * gx_carlson_rf(x, y) - (m / 3.0) * gx_carlson_rd(x, y) * s * s * s;
}

int gx_agm_sequence(double* a, double* b, double* c, int capacity) {
  int limit = capacity < GX_AGM_CAPACITY ? capacity : GX_AGM_CAPACITY;
  if (limit < 2) return 0;
  for (int i = 1; i < limit; ++i) {
    a[i] = (a[i - 1] + b[i - 1]) * 0.5;
    b[i] = std::sqrt(a[i - 1] * b[i - 1]);
    c[i] = (a[i - 1] - b[i - 1]) * 0.5;
    if (std::fabs(c[i]) < GX_EPS) return i;
  }
  return limit - 1;
}
