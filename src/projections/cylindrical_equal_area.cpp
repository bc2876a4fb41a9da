// Cylindrical_Equal_Area (43034) and Behrmann (43017), the equal-area normal
// cylinder on a chosen or on the fixed parallel of 30 degrees.  On the
// ellipsoid the inverse solves the authalic q for the latitude by Newton's
// method from asin(q / 2).
#include "projections/cylindrical.h"

namespace {

// Layout of the doubles: the sphere keeps two, the ellipsoid eight.
constexpr int kSphereX = 0;  // a * k
constexpr int kSphereY = 1;  // a / k
constexpr int32_t kSphereCount = 2;

constexpr int kE = 0;           // e
constexpr int kTwoE = 1;        // 2 e
constexpr int kAk = 2;          // a * k
constexpr int kYScale = 3;      // a / (2 k)
constexpr int kOneMinusE2 = 4;  // 1 - e2
constexpr int kTwoK = 5;        // 2 k
constexpr int kQ90 = 6;         // q at the pole, on a unit axis
constexpr int kQ90A = 7;        // that times a
constexpr int32_t kEllipsoidCount = 8;

// Behrmann's parallel, its cosine and secant, as stated literals.
constexpr double kBehrmannPhi1 = 0.5235987755982988;
constexpr double kBehrmannCos = 0.8660254037844386;
constexpr double kBehrmannSec = 1.1547005383792517;

// Newton's method on the authalic q: step bound and step caps.
constexpr double kNewtonStep = 1e-16;
constexpr int kCeaSteps = 15;
constexpr int kBehrmannSteps = 10;
// The authalic sine up to which the inverse takes the latitude series.
constexpr double kSeriesSineLimit = 0.9999;

void fill_ellipsoid(double a, double e2, double k, double* layout) {
  double e = std::sqrt(e2);
  double q90 = 1.0 - ((1.0 - e2) / (2.0 * e)) * std::log((1.0 - e) / (1.0 + e));
  layout[kE] = e;
  layout[kTwoE] = 2.0 * e;
  layout[kAk] = a * k;
  layout[kYScale] = a / (2.0 * k);
  layout[kOneMinusE2] = 1.0 - e2;
  layout[kTwoK] = 2.0 * k;
  layout[kQ90] = q90;
  layout[kQ90A] = q90 * a;
}

void cea_setup(const double* sphere, const double* parms, int mask, double* layout) {
  double a = sphere[0], e2 = sphere[1], phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  if (gx_is_sphere(sphere)) {
    double k = std::cos(phi1);
    layout[kSphereX] = a * k;
    layout[kSphereY] = a / k;
  } else {
    fill_ellipsoid(a, e2, std::cos(phi1) / gx_w(e2, phi1), layout);
  }
}

void behrmann_setup(const double* sphere, const double* parms, int mask, double* layout) {
  double a = sphere[0], e2 = sphere[1];
  if (gx_is_sphere(sphere)) {
    layout[kSphereX] = a * kBehrmannCos;
    layout[kSphereY] = a * kBehrmannSec;
  } else {
    fill_ellipsoid(a, e2, kBehrmannCos / gx_w(e2, kBehrmannPhi1), layout);
  }
}

// A standard parallel on a pole leaves no cylinder: the run is refused.
bool cea_refused(const double* parms) { return gx_is_halfpi(parms[GX_PARM_STANDARD_PARALLEL_1]); }

int32_t forward_points(const double* c, const double* sphere, const double* parms, int32_t n,
                       double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  if (gx_is_sphere(sphere)) {
    for (double* p = coords; p < coords + 2 * n; p += 2) {
      p[0] = gx_delta_fast(p[0] - lam0) * c[kSphereX];
      p[1] = std::sin(p[1]) * c[kSphereY];
    }
    return n;
  }
  const double e2 = sphere[1], e = c[kE];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double s = std::sin(p[1]), es = s * e;
    p[0] = gx_delta_fast(p[0] - lam0) * c[kAk];
    p[1] = (s / (1.0 - s * s * e2) - std::log((1.0 - es) / (1.0 + es)) / c[kTwoE]) *
           c[kOneMinusE2] * c[kYScale];
  }
  return n;
}

// One step of Newton's method on q towards `target` (q / (1 - e2)).
double newton_step(const double* c, double e2, double target, double phi) {
  double s = std::sin(phi), es = s * c[kE], d = 1.0 - s * s * e2;
  return phi + (target - s / d + std::log((1.0 - es) / (1.0 + es)) / c[kTwoE]) *
                   (d * d / (2.0 * std::cos(phi)));
}

// The latitude whose authalic sine is t: 0 and the poles directly, otherwise
// Newton's method on q, ended by the step bound or after `steps` steps.
//
// Near its root the iteration often settles into two values a last bit
// apart, which the step bound of 1e-16 can't separate.  From then on every
// step swaps them, so the value that the last step would leave is known at
// once by the parity of the steps left, and the loop ends there.
double latitude_of_authalic_sine(const double* c, double e2, double t, int steps) {
  if (std::fabs(t) <= GX_EPS) return 0.0;
  if (gx_is_unit(t)) return t < 0.0 ? -GX_HALFPI : GX_HALFPI;
  double q = t * c[kQ90];
  double target = q / c[kOneMinusE2];
  double phi = std::asin(q * 0.5);
  double before = phi;
  for (int step = 0; step < steps; ++step) {
    double next = newton_step(c, e2, target, phi);
    if (std::fabs(phi - next) <= kNewtonStep) return next;
    if (step > 0 && next == before) return (steps - 1 - step) % 2 == 0 ? next : phi;
    before = phi;
    phi = next;
  }
  return phi;
}

int32_t inverse_points(const double* c, const double* sphere, const double* parms, int steps,
                       int32_t n, double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  if (gx_is_sphere(sphere)) {
    for (double* p = coords; p < coords + 2 * n; p += 2) {
      double t = p[1] / c[kSphereY];
      if (std::fabs(t) > 1.0) t = t < 0.0 ? -1.0 : 1.0;
      p[1] = std::asin(t);
      p[0] = gx_delta_fast(p[0] / c[kSphereX] + lam0);
    }
    return n;
  }
  const double e2 = sphere[1];
  // Below the series limit the authalic series gives the latitude of an
  // authalic sine t directly; up to |t| of 0.9999 it agrees with the stated
  // Newton iteration, which converges there, within 1e-13 rad (6e-14 on
  // WGS 84, whose e2 is near the limit).  Closer to the poles the iteration
  // creeps and stops at its cap, and it runs as stated; so it does for a
  // flatter body and for the exact cases (0 and the poles) that it settles
  // by itself.
  double table[GX_BETA_TABLE_SIZE];
  bool series = e2 < GX_SERIES_LIMIT;
  if (series) gx_beta_series_init(e2, table, GX_SERIES_INVERSE);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double lamdiff = p[0] / c[kAk];
    double t = p[1] * c[kTwoK] / c[kQ90A];
    bool by_series = series && std::fabs(t) > GX_EPS && std::fabs(t) <= kSeriesSineLimit;
    p[1] = by_series ? gx_beta_to_phi_a(e2, gx_angle_of_sine(t), table).rad
                     : latitude_of_authalic_sine(c, e2, t, steps);
    p[0] = gx_delta_fast(lamdiff + lam0);
  }
  return n;
}

// The refusal marks every point and counts none.
int32_t refuse(int32_t n, double* coords) {
  gx_points_nan(n, coords);
  return 0;
}

int32_t cea_forward_points(const double* c, const double* sphere, const double* parms,
                           int32_t n, double* coords) {
  if (cea_refused(parms)) return refuse(n, coords);
  return forward_points(c, sphere, parms, n, coords);
}

int32_t cea_inverse_points(const double* c, const double* sphere, const double* parms,
                           int32_t n, double* coords) {
  if (cea_refused(parms)) return refuse(n, coords);
  return inverse_points(c, sphere, parms, kCeaSteps, n, coords);
}

int32_t behrmann_inverse_points(const double* c, const double* sphere, const double* parms,
                                int32_t n, double* coords) {
  return inverse_points(c, sphere, parms, kBehrmannSteps, n, coords);
}

}  // namespace

GX_DEFINE_PROJECTION(cylindrical_equal_area, cea_setup, cea_forward_points, GX_SERIES_FORWARD,
                     cea_inverse_points, GX_SERIES_INVERSE)
GX_DEFINE_PROJECTION(behrmann, behrmann_setup, forward_points, GX_SERIES_FORWARD,
                     behrmann_inverse_points, GX_SERIES_INVERSE)
GX_DEFINE_LOADER(behrmann, behrmann_setup, kSphereCount, kEllipsoidCount)

int32_t gx_cylindrical_equal_area_constants(gx_constants* block, const double* sphere,
                                            const double* parms) {
  if (cea_refused(parms)) return 0;
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, cea_setup, sphere, parms);
}
