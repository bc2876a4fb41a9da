// New Zealand Map Grid: a conformal map of New Zealand by a complex
// polynomial of the isometric latitude difference and the longitude, with
// the published coefficient tables of the grid.
#include "projections/apart.h"
#include "projections/points.h"

namespace {

// The latitude difference in units of 1e5 seconds of arc, and back.
constexpr double kToGridUnits = 2.0626480624709638;
constexpr double kFromGridUnits = 0.48481368110953593;

// Latitude difference to isometric latitude difference, powers 1 to 10.
constexpr double kA[10] = {0.6399175073,  -0.1358797613, 0.063294409, -0.02526853, 0.0117879,
                           -0.0055161,    0.0026906,     -0.001333,   0.00067,     -0.00034};
// Isometric coordinates to the grid, powers 1 to 6.
constexpr gx_complex kB[6] = {{0.7557853228, 0.0},        {0.249204646, 0.003371507},
                              {-0.001541739, 0.04105856}, {-0.10162907, 0.01727609},
                              {-0.26623489, -0.36249218}, {-0.6870983, -1.1651967}};
// The grid to isometric coordinates, first approximation, powers 1 to 6.
constexpr gx_complex kC[6] = {{1.3231270439, 0.0},         {-0.577245789, -0.007809598},
                              {0.508307513, -0.112208952}, {-0.15094762, 0.18200602},
                              {1.01418179, 1.64497696},    {1.9660549, 2.5127645}};
// Isometric latitude difference to latitude difference, powers 1 to 9.
constexpr double kD[9] = {1.5627014243, 0.5185406398, -0.03333098, -0.1052906, -0.0368594,
                          0.007317,     0.01220,      0.00394,     -0.0013};
constexpr int kNewtonRounds = 2;

// The sum of coefficient k times t^(k + 1), in ascending powers.  The powers
// are repeated products: pow would cost as much as the rest of the grid and
// differ from them in the last bit only.
double real_polynomial(const double* coefficients, int count, double t) {
  double sum = 0.0, power = 1.0;
  for (int k = 0; k < count; ++k) {
    power *= t;
    sum += coefficients[k] * power;
  }
  return sum;
}

// The products and sums of gx_cplx_mul and gx_cplx_add, written inline: the
// grid makes some sixty of them per point, and the out-of-line calls cost
// several times the arithmetic.  The bits are the same.
gx_complex operator*(gx_complex a, gx_complex b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
gx_complex operator+(gx_complex a, gx_complex b) { return {a.re + b.re, a.im + b.im}; }
gx_complex operator*(double s, gx_complex z) { return {s * z.re, s * z.im}; }

// The sum of coefficient k times z^(k + 1), powers by repeated products from 1.
gx_complex polynomial(const gx_complex* coefficients, int count, gx_complex z) {
  gx_complex sum = {0.0, 0.0}, power = {1.0, 0.0};
  for (int k = 0; k < count; ++k) {
    power = power * z;
    sum = sum + coefficients[k] * power;
  }
  return sum;
}

// One Newton round on z = B(theta): theta = (z + N) / M with N the sum of
// (k - 1) B_k theta^k over k from 2 and M the sum of k B_k theta^(k - 1).
gx_complex newton_round(gx_complex z, gx_complex theta) {
  gx_complex n = {0.0, 0.0}, m = kB[0], power = {1.0, 0.0};
  for (int k = 2; k <= 6; ++k) {
    power = power * theta;  // theta^(k - 1)
    m = m + (k * kB[k - 1]) * power;
    n = n + ((k - 1) * kB[k - 1]) * power * theta;
  }
  gx_complex result;
  return *gx_cplx_div(z + n, m, &result);
}

}  // namespace

int32_t gx_new_zealand_map_grid_forward(const double* sphere, double* parms, int32_t n,
                                        double* coords, const int32_t*, const double*) {
  double a = sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    double psi = real_polynomial(kA, 10, (y - phi0) * kToGridUnits);
    gx_complex z = polynomial(kB, 6, {psi, gx_delta_fast(x - lam0)});
    x = z.im * a;
    y = z.re * a;
  });
}

int32_t gx_new_zealand_map_grid_inverse(const double* sphere, double* parms, int32_t n,
                                        double* coords, const int32_t*, const double*) {
  double r = 1.0 / sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  return gx_each_point(n, coords, [&](double& x, double& y) {
    gx_complex z = {y * r, x * r};
    gx_complex theta = polynomial(kC, 6, z);
    for (int round = 0; round < kNewtonRounds; ++round) theta = newton_round(z, theta);
    x = gx_delta_fast(theta.im + lam0);
    y = real_polynomial(kD, 9, theta.re) * kFromGridUnits + phi0;
  });
}
