// Auxiliary latitudes: conformal (chi), authalic (beta) and rectifying (mu) by
// series or closed forms, reduced (eta) and geocentric (phig) in closed form.
#include "geodesy/latitudes.h"

#include <cmath>

#include "geodesy/ellipsoid.h"
#include "geodesy/elliptic.h"

namespace {

// Factors of sin 2x .. sin 14x in powers e2 .. e2^7 (column k is the power
// k + 1): conformal and authalic latitudes, each direction.
// clang-format off
constexpr gx_series_table kChiForward = {
    {-0.5, -0.20833333333333334, -0.09375, -0.04878472222222222, -0.029166666666666667, -0.019389054232804234, -0.013882559317129629},
    {0.0, 0.10416666666666667, 0.0875, 0.06050347222222222, 0.04151785714285714, 0.029589585400132276, 0.022036675347222222},
    {0.0, 0.0, -0.027083333333333334, -0.03430059523809524, -0.031491815476190475, -0.026343591545414463, -0.021568967358355378},
    {0.0, 0.0, 0.0, 0.007669890873015873, 0.012996031746031747, 0.01480513530643739, 0.01454454953803912},
    {0.0, 0.0, 0.0, 0.0, -0.002275545634920635, -0.004830845032667949, -0.006558395368616723},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0006957236677288761, 0.0017751930024065441},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, -0.0002173240893944019},
};
constexpr gx_series_table kChiInverse = {
    {0.5, 0.20833333333333334, 0.08333333333333333, 0.03611111111111111, 0.01875, 0.011956018518518519, 0.008863673941798942},
    {0.0, 0.14583333333333334, 0.12083333333333333, 0.07039930555555556, 0.03616071428571429, 0.01839451058201058, 0.010171130952380952},
    {0.0, 0.0, 0.058333333333333334, 0.07232142857142858, 0.05634300595238095, 0.03553257964065256, 0.02023554618606702},
    {0.0, 0.0, 0.0, 0.026531498015873015, 0.04379960317460317, 0.042921179177689596, 0.03255384637546096},
    {0.0, 0.0, 0.0, 0.0, 0.012940228174603175, 0.026681043445366363, 0.03155651254609588},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.006594547909652076, 0.016307526867422702},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.003463473736911237},
};
constexpr gx_series_table kBetaForward = {
    {-0.3333333333333333, -0.17222222222222222, -0.10535714285714286, -0.0707853835978836, -0.05055507121479344, -0.03771903131774164, -0.028103213345957733},
    {0.0, 0.04722222222222222, 0.048412698412698414, 0.042421186067019404, 0.035980005077227296, 0.03039299050403961, 0.025106317130422894},
    {0.0, 0.0, -0.008443562610229277, -0.01291280864197531, -0.014628686000213779, -0.01489322667318148, -0.014527660868321003},
    {0.0, 0.0, 0.0, 0.0016553681657848324, 0.0033618760354871464, 0.004659863128861145, 0.005820225528806878},
    {0.0, 0.0, 0.0, 0.0, -0.0003413182753460531, -0.0008638920327908423, -0.0015590726488279858},
    {0.0, 0.0, 0.0, 0.0, 0.0, 7.268428032179134e-05, 0.0002517739959249549},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, -1.8601548066063426e-05},
};
constexpr gx_series_table kBetaInverse = {
    {0.3333333333333333, 0.17222222222222222, 0.10257936507936508, 0.06635196208112874, 0.04550307973919085, 0.032662094794535274, 0.023353554499824156},
    {0.0, 0.06388888888888888, 0.0664021164021164, 0.056375110229276895, 0.045167849126182456, 0.035538758108471236, 0.0285767683103097},
    {0.0, 0.0, 0.01677689594356261, 0.02621307319223986, 0.029027109721554166, 0.028071918829056176, 0.025466293397593},
    {0.0, 0.0, 0.0, 0.005009093915343916, 0.01044691291219069, 0.01428374584765127, 0.01594339011978452},
    {0.0, 0.0, 0.0, 0.0, 0.00160390278445834, 0.0041840877223648385, 0.006955425443924856},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0005366632882822808, 0.001649183676844336},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0001878436562308182},
};
// The same for the rectifying latitude, in powers n .. n^7 of the third
// flattening.
constexpr gx_series_table kMuForward = {
    {-1.5, 0.0, 0.5625, 0.0, -0.09375, 0.0, 0.02783203125},
    {0.0, 0.9375, 0.0, -0.46875, 0.0, 0.06591796875, 0.0},
    {0.0, 0.0, -0.7291666666666666, 0.0, 0.41015625, 0.0, -0.05126953125},
    {0.0, 0.0, 0.0, 0.615234375, 0.0, -0.369140625, 0.0},
    {0.0, 0.0, 0.0, 0.0, -0.54140625, 0.0, 0.33837890625},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.48876953125, 0.0},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, -0.44886997767857145},
};
constexpr gx_series_table kMuInverse = {
    {1.5, 0.0, -0.84375, 0.0, 0.525390625, 0.0, -0.2688395182291667},
    {0.0, 1.3125, 0.0, -1.71875, 0.0, 1.650146484375, 0.0},
    {0.0, 0.0, 1.5729166666666667, 0.0, -3.2578125, 0.0, 4.295068359375},
    {0.0, 0.0, 0.0, 2.142578125, 0.0, -6.071484375, 0.0},
    {0.0, 0.0, 0.0, 0.0, 3.129296875, 0.0, -11.249837239583334},
    {0.0, 0.0, 0.0, 0.0, 0.0, 4.775276692708333, 0.0},
    {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 7.958636765252976},
};
// clang-format on

// Iterations that have no stopping cap of their own end here; only a NaN or a
// body with e2 at or above 1 comes near.
constexpr int kSafetyCap = 10000;
constexpr int kAuthalicPasses = 500;
constexpr int kAuthalicCycleSteps = 5;
constexpr int kRectifyingPasses = 50;
constexpr double kRectifyingStep = 1e-16;

// Entries past the two series in each table.
constexpr int kChiE = 14, kChiHalfE = 15;
constexpr int kBetaE = 14, kBetaTwoE = 15, kBetaQp = 16, kBetaHalfOneMinusE2 = 17;
constexpr int kMuHalfE2 = 14, kMuQuarterArc = 15, kMuOneMinusE2 = 16;

// The opening that every chi, beta and mu function shares: a sphere, the
// equator and the poles map to themselves.
bool is_fixed_point(double e2, double latitude) {
  if (e2 < GX_EPS || latitude == 0.0) return true;
  return gx_eq(std::fabs(latitude), GX_HALFPI) != 0;
}

bool uses_series(double e2) { return e2 < GX_SERIES_LIMIT; }

// Fills the two series of a table from their factor tables in the variable t
// as the mask asks; true when the closed-form entries are wanted too.
bool fill_series(double e2, double t, const gx_series_table& forward,
                 const gx_series_table& inverse, double* table, int mask) {
  bool all = mask == GX_SERIES_ALL;
  bool series = uses_series(e2);
  if (all || (series && (mask & GX_SERIES_FORWARD)))
    gx_series_coefficients(forward, t, table + GX_SERIES_FORWARD_AT);
  if (all || (series && (mask & GX_SERIES_INVERSE)))
    gx_series_coefficients(inverse, t, table + GX_SERIES_INVERSE_AT);
  return all || !series;
}

// ln((1 - s) / (1 + s)), the logarithm of the conformal and authalic forms.
double log_ratio(double s) { return std::log((1.0 - s) / (1.0 + s)); }

// Meridian arc to phi on a body of unit axis: E(phi | e2) - (e2/2) sin 2phi / w.
double arc_over_a(double e2, double phi, const double* table) {
  return gx_ellint_e(phi, e2) - std::sin(2.0 * phi) / gx_w(e2, phi) * table[kMuHalfE2];
}

}  // namespace

// ---- tables -------------------------------------------------------------------

void gx_chi_series_init(double e2, double* table, int mask) {
  if (!fill_series(e2, e2, kChiForward, kChiInverse, table, mask)) return;
  double e = std::sqrt(e2);
  table[kChiE] = e;
  table[kChiHalfE] = e / 2.0;
}

void gx_beta_series_init(double e2, double* table, int mask) {
  if (!fill_series(e2, e2, kBetaForward, kBetaInverse, table, mask)) return;
  double e = std::sqrt(e2);
  table[kBetaE] = e;
  table[kBetaTwoE] = 2.0 * e;
  table[kBetaQp] = 1.0 / (1.0 - e2) - log_ratio(e) / (2.0 * e);
  table[kBetaHalfOneMinusE2] = (1.0 - e2) / 2.0;
}

void gx_mu_series_init(double e2, double* table, int mask) {
  if (!fill_series(e2, gx_third_flattening(e2), kMuForward, kMuInverse, table, mask)) return;
  table[kMuHalfE2] = e2 / 2.0;
  table[kMuQuarterArc] = gx_ellint_e_complete(e2);
  table[kMuOneMinusE2] = 1.0 - e2;
}

// ---- conformal latitude ----------------------------------------------------------

double gx_phi_to_chi_c(double e2, double phi, const double* table) {
  if (is_fixed_point(e2, phi)) return phi;
  if (uses_series(e2)) return phi + gx_series_sum(table + GX_SERIES_FORWARD_AT, phi);
  double s = table[kChiE] * std::sin(phi);
  return 2.0 * std::atan(std::pow((1.0 - s) / (1.0 + s), table[kChiHalfE]) *
                         std::tan(phi / 2.0 + GX_QUARTERPI)) -
         GX_HALFPI;
}

double gx_chi_to_phi_c(double e2, double chi, const double* table) {
  if (is_fixed_point(e2, chi)) return chi;
  if (uses_series(e2)) return chi + gx_series_sum(table + GX_SERIES_INVERSE_AT, chi);
  double tangent = std::tan(chi / 2.0 + GX_QUARTERPI);
  double phi = chi;
  for (int pass = 0; pass < kSafetyCap; ++pass) {
    double s = table[kChiE] * std::sin(phi);
    double next = 2.0 * std::atan(std::pow((1.0 + s) / (1.0 - s), table[kChiHalfE]) * tangent) -
                  GX_HALFPI;
    bool settled = gx_eq(next, phi) != 0;
    phi = next;
    if (settled) break;
  }
  return phi;
}

// ---- authalic latitude -------------------------------------------------------------

double gx_phi_to_beta_c(double e2, double phi, const double* table) {
  if (is_fixed_point(e2, phi)) return phi;
  if (uses_series(e2)) return phi + gx_series_sum(table + GX_SERIES_FORWARD_AT, phi);
  double sin_phi = std::sin(phi);
  double s = table[kBetaE] * sin_phi;
  double q = sin_phi / (1.0 - s * s) - log_ratio(s) / table[kBetaTwoE];
  double v = q / table[kBetaQp];
  if (std::fabs(v) > 1.0) v = v < 0.0 ? -1.0 : 1.0;
  return std::asin(v);
}

// Newton's iteration on the authalic q.  Near the poles rounding can leave it
// jumping between two values; five opposite steps in a row end it at their
// mean.
double gx_beta_to_phi_c(double e2, double beta, const double* table) {
  if (is_fixed_point(e2, beta)) return beta;
  if (uses_series(e2)) return beta + gx_series_sum(table + GX_SERIES_INVERSE_AT, beta);
  double target = table[kBetaQp] * std::sin(beta);
  double phi = std::asin(table[kBetaHalfOneMinusE2] * target);
  double last_step = GX_PI;
  int opposite_steps = 0;
  for (int pass = 0; pass < kAuthalicPasses; ++pass) {
    double sin_phi = std::sin(phi);
    double w2 = 1.0 - sin_phi * sin_phi * e2;
    double s = table[kBetaE] * sin_phi;
    double step = (target - sin_phi / w2 + log_ratio(s) / table[kBetaTwoE]) * (w2 / std::cos(phi)) *
                  w2 * 0.5;
    double next = phi + step;
    if (gx_eq(next, phi)) {
      phi = next;
      break;
    }
    if (std::fabs(step + last_step) <= GX_EPS) {
      if (++opposite_steps > kAuthalicCycleSteps) {
        phi = (phi + next) / 2.0;
        break;
      }
    } else {
      opposite_steps = 0;
    }
    last_step = step;
    phi = next;
  }
  return std::asin(std::sin(phi));
}

// ---- rectifying latitude -------------------------------------------------------------

double gx_phi_to_mu_c(double e2, double phi, const double* table) {
  if (is_fixed_point(e2, phi)) return phi;
  if (uses_series(e2)) return phi + gx_series_sum(table + GX_SERIES_FORWARD_AT, phi);
  double mu = arc_over_a(e2, std::fabs(phi), table) / table[kMuQuarterArc] * GX_HALFPI;
  return phi < 0.0 ? -mu : mu;
}

// Newton's iteration on the meridian arc, whose derivative is (1 - e2) / w^3.
double gx_mu_to_phi_c(double e2, double mu, const double* table) {
  if (is_fixed_point(e2, mu)) return mu;
  if (uses_series(e2)) return mu + gx_series_sum(table + GX_SERIES_INVERSE_AT, mu);
  double phi = std::fabs(mu);
  double target = std::fabs(mu) * table[kMuQuarterArc] / (table[kMuOneMinusE2] * GX_HALFPI);
  for (int pass = 0; pass < kRectifyingPasses; ++pass) {
    double w = gx_w(e2, phi);
    double residual = arc_over_a(e2, phi, table) / table[kMuOneMinusE2] - target;
    double step = residual * w * w * w;
    phi = phi - step;
    if (std::fabs(step) <= kRectifyingStep) break;
  }
  return mu < 0.0 ? -phi : phi;
}

// ---- on angles with their sine and cosine --------------------------------------------

gx_angle gx_latitude_closed(double (*plain)(double, double, const double*), double e2,
                            const gx_angle& x, const double* table) {
  return gx_angle_of(plain(e2, x.rad, table));
}

// ---- plain forms: a table on the stack with only the half that is needed --------------

namespace {

template <int size, void (*init)(double, double*, int), double (*by_table)(double, double, const double*),
          int half>
double by_stack_table(double e2, double latitude) {
  if (is_fixed_point(e2, latitude)) return latitude;
  double table[size];
  init(e2, table, half);
  return by_table(e2, latitude, table);
}

}  // namespace

double gx_phi_to_chi(double e2, double phi) {
  return by_stack_table<GX_CHI_TABLE_SIZE, gx_chi_series_init, gx_phi_to_chi_c, GX_SERIES_FORWARD>(e2, phi);
}

double gx_chi_to_phi(double e2, double chi) {
  return by_stack_table<GX_CHI_TABLE_SIZE, gx_chi_series_init, gx_chi_to_phi_c, GX_SERIES_INVERSE>(e2, chi);
}

double gx_phi_to_beta(double e2, double phi) {
  return by_stack_table<GX_BETA_TABLE_SIZE, gx_beta_series_init, gx_phi_to_beta_c, GX_SERIES_FORWARD>(e2, phi);
}

double gx_beta_to_phi(double e2, double beta) {
  return by_stack_table<GX_BETA_TABLE_SIZE, gx_beta_series_init, gx_beta_to_phi_c, GX_SERIES_INVERSE>(e2, beta);
}

double gx_phi_to_mu(double e2, double phi) {
  return by_stack_table<GX_MU_TABLE_SIZE, gx_mu_series_init, gx_phi_to_mu_c, GX_SERIES_FORWARD>(e2, phi);
}

double gx_mu_to_phi(double e2, double mu) {
  return by_stack_table<GX_MU_TABLE_SIZE, gx_mu_series_init, gx_mu_to_phi_c, GX_SERIES_INVERSE>(e2, mu);
}

// ---- reduced and geocentric latitudes ----------------------------------------------------

namespace {

// Folds x into [0, pi/2] by its reference angle, scales its tangent by
// sqrt(1 - e2) (towards the reduced latitude) or by its inverse, and gives the
// result the sign of sin x.
double fold_reduced(double e2, double x, bool to_reduced) {
  double sign = std::sin(x) >= 0.0 ? 1.0 : -1.0;
  double r = std::fabs(std::fmod(x, GX_PI));
  if (r > GX_HALFPI) r = GX_PI - r;
  if (!gx_eq(r, GX_HALFPI)) {
    double root = std::sqrt(1.0 - e2);
    r = to_reduced ? std::atan(std::tan(r) * root) : std::atan(std::tan(r) / root);
  }
  return sign * r;
}

}  // namespace

double gx_phi_to_eta(double e2, double phi) { return fold_reduced(e2, phi, true); }

double gx_eta_to_phi(double e2, double eta) { return fold_reduced(e2, eta, false); }

double gx_phi_to_phig(double e2, double phi) {
  return std::atan2((1.0 - e2) * std::sin(phi), std::cos(phi));
}

double gx_phig_to_phi(double e2, double phig) {
  return std::atan2(std::sin(phig), (1.0 - e2) * std::cos(phig));
}
