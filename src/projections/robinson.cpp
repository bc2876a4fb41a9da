// Robinson and its TELMAR variant: table projections, lengths of the parallels
// and their distances from the equator read every 5 degrees and interpolated
// by a parabola through three rows.  Robinson takes the authalic radius,
// TELMAR the semi-major axis and a slightly narrower table.
#include "projections/world.h"

namespace {

constexpr int kRows = 20;
constexpr double kRowsPerRadian = 11.459155902616464;  // one row every 5 degrees

// Row latitudes, -5 to 90 degrees; the row for -5 degrees lets the parabola
// through three rows serve the equator.
constexpr double kLatitudes[kRows] = {
    -0.08726646259971647, 0.0, 0.08726646259971647, 0.17453292519943295, 0.26179938779914946,
    0.3490658503988659, 0.4363323129985824, 0.5235987755982989, 0.6108652381980153,
    0.6981317007977318, 0.7853981633974483, 0.8726646259971648, 0.9599310885968813,
    1.0471975511965979, 1.1344640137963142, 1.2217304763960306, 1.3089969389957472,
    1.3962634015954636, 1.4835298641951802, 1.5707963267948966};

// Distance of each row from the equator, the pole's being 1.
constexpr double kY[kRows] = {-0.062, 0,      0.062,  0.124,  0.186,  0.248,  0.31,
                              0.372,  0.434,  0.4958, 0.5571, 0.6176, 0.6769, 0.7346,
                              0.7903, 0.8435, 0.8936, 0.9394, 0.9761, 1};

// Length of each row, the equator's being 1 (Robinson) ...
constexpr double kXRobinson[kRows] = {0.9986, 1,      0.9986, 0.9954, 0.99,   0.9822, 0.973,
                                      0.96,   0.9427, 0.9216, 0.8962, 0.8679, 0.835,  0.7986,
                                      0.7597, 0.7186, 0.6732, 0.6213, 0.5722, 0.5322};
// ... and in the TELMAR table.
constexpr double kXTelmar[kRows] = {0.9844, 0.9858, 0.9844, 0.9813, 0.9759, 0.9682, 0.9591,
                                    0.9463, 0.9293, 0.9085, 0.8835, 0.8556, 0.8231, 0.7872,
                                    0.7489, 0.7084, 0.6636, 0.6125, 0.5641, 0.5246};

// Robinson's constants: [0] R, [1] the x factor R * 0.8487, [2] the y factor.
constexpr int kRadius = 0;
constexpr int kFactorX = 1;
constexpr int kFactorY = 2;
constexpr int kCount = 3;

// The bisection of the inverse halves an interval of pi/2 until its ends are
// equal; that takes about 50 rounds, and a NaN no more.  The cap is a guard.
constexpr int kBisectionCap = 200;

void setup_factors(double radius, double* k) {
  k[kRadius] = radius;
  k[kFactorX] = radius * 0.8487;
  k[kFactorY] = radius * 1.3523319842835606;
}

void robinson_setup(const double* sphere, const double*, int, double* k) {
  setup_factors(gx_auth_r(sphere[0], sphere[1]), k);
}

void telmar_setup(const double* sphere, const double*, int, double* k) {
  setup_factors(sphere[0], k);
}

// The parabola through rows i - 2, i - 1 and i, at v.
double parabola(const double* t, const double* f, int i, double v) {
  double p = (v - t[i - 1]) / (t[i] - t[i - 1]);
  return (p - 1.0) * p * 0.5 * f[i - 2] + (p + 1.0) * p * 0.5 * f[i] +
         (1.0 - p) * (p + 1.0) * f[i - 1];
}

// The row that gx_stirling3 would pick for v in this table (the first i from
// 2 up with v <= row i, kRows for none), found from the even spacing of the
// rows instead of a scan.
int row_of(double v) {
  if (!(v <= kLatitudes[kRows - 1])) return kRows;
  double e = v * kRowsPerRadian;
  int i = e < 0.0 ? 2 : static_cast<int>(e) + 2;
  if (i > kRows - 1) i = kRows - 1;
  while (i > 2 && v <= kLatitudes[i - 1]) --i;
  while (v > kLatitudes[i]) ++i;
  return i;
}

// gx_stirling3 on the rows of this table.
double interpolate(const double* f, double v) {
  int i = row_of(v);
  return i < kRows ? parabola(kLatitudes, f, i, v) : f[kRows - 1];
}

int32_t table_forward(const double* k, const double* x_table, double lam0, int32_t n,
                      double* coords) {
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double dlam = gx_delta_fast(x - lam0), phi = y, v = std::fabs(phi);
    x = dlam * interpolate(x_table, v) * k[kFactorX];
    y = gx_with_sign_of(interpolate(kY, v) * k[kFactorY], phi);
  });
}

// Where the interpolated Y equals t, by solving the row's parabola for it.
// NaN for t outside [0, 1], where there is no such latitude.
double root_of_parabola(double t) {
  if (!(t >= 0.0 && t <= 1.0)) return NAN;
  int i = 2;
  while (i < kRows - 1 && t > kY[i]) ++i;
  double f0 = kY[i - 2], f1 = kY[i - 1], f2 = kY[i];
  // Y(p) = f1 + b p + a p^2 on the row's fraction p; b > 0 on every row.
  double a = (f0 + f2 - 2.0 * f1) * 0.5, b = (f2 - f0) * 0.5, c = f1 - t;
  double p = -2.0 * c / (b + std::sqrt(b * b - 4.0 * a * c));
  return kLatitudes[i - 1] + p * (kLatitudes[i] - kLatitudes[i - 1]);
}

// The latitude whose interpolated Y is t.  The stated search bisects [0,
// pi/2] until Y(mid) equals t or the ends meet, in the sense of gx_eq: it
// ends within 2e-14 rad of the root of the row's parabola (Y rises by at
// least 0.2 per radian, and gx_eq allows 3.6e-15 in Y), and the root is
// what this takes, in closed form.  Where t is not in [0, 1] (a y beyond
// the map, or NaN) there is no root, and the bisection runs as stated, so
// that such a point comes back as it always has.
double bisect(double t) {
  double lo = 0.0, hi = GX_HALFPI, mid = 0.0;
  for (int round = 0; round < kBisectionCap; ++round) {
    mid = (hi + lo) * 0.5;
    double f = interpolate(kY, mid) - t;
    if (gx_equals(f, 0.0) || gx_equals(lo, hi)) break;
    hi = f > 0.0 ? mid : hi;
    lo = f > 0.0 ? lo : mid;
  }
  return mid;
}

double latitude_of(double t) { return t >= 0.0 && t <= 1.0 ? root_of_parabola(t) : bisect(t); }

int32_t table_inverse(const double* k, const double* x_table, double lam0, int32_t n,
                      double* coords) {
  double ky = k[kFactorY], kx = k[kFactorX];
  return gx_count_points(n, coords, [&](double& x, double& y) {
    double p = latitude_of(std::fabs(y) / ky);
    double dlam = x / (interpolate(x_table, p) * kx);
    if (!gx_within_limit(dlam, GX_PI)) return false;
    x = gx_delta_fast(dlam + lam0);
    y = gx_with_sign_of(p, y);
    return true;
  });
}

}  // namespace

double gx_stirling3(const double* t, const double* f, int count, double v) {
  for (int i = 2; i < count; ++i)
    if (v <= t[i]) return parabola(t, f, i, v);
  return f[count - 1];
}

int32_t gx_robinson_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, robinson_setup, sphere, parms, 0);
  return table_forward(k, kXRobinson, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}

int32_t gx_robinson_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t*, const double* doubles) {
  double local[kCount];
  const double* k = gx_layout(doubles, local, robinson_setup, sphere, parms, 0);
  return table_inverse(k, kXRobinson, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}

int32_t gx_robinson_constants(gx_constants* block, const double* sphere, const double* parms) {
  return gx_layout_load(block, kCount, robinson_setup, sphere, parms);
}

int32_t gx_robinson_telmar_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                   const int32_t*, const double*) {
  double k[kCount];
  telmar_setup(sphere, parms, 0, k);
  return table_forward(k, kXTelmar, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}

int32_t gx_robinson_telmar_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                   const int32_t*, const double*) {
  double k[kCount];
  telmar_setup(sphere, parms, 0, k);
  return table_inverse(k, kXTelmar, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}
