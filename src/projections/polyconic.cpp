// American polyconic: every parallel is the standard parallel of its own cone,
// true to scale along the central meridian, with y measured from phi0.  The
// inverse solves the polyconic equation for the latitude by Newton's method;
// it is the one run of the family that can give up half way.
//
// M(p) is the meridian arc to p: the rectifying latitude times the rectifying
// radius.
#include <cmath>

#include "projections/conic.h"

namespace {

// Constants: on the sphere the origin term a * phi0; on the ellipsoid M(phi0),
// the four coefficients of dM/dphi / a = k0 - k2 cos 2phi + k4 cos 4phi
// - k6 cos 6phi, the rectifying radius and the rectifying table.
enum : int {
  kOrigin,
  kArcDerivative0,
  kArcDerivative2,
  kArcDerivative4,
  kArcDerivative6,
  kRect,
  kTable
};
constexpr int kSphereCount = 1;
constexpr int kEllipsoidCount = kTable + GX_TABLE_ROOM;
static_assert(kEllipsoidCount <= GX_CONIC_LAYOUT_ROOM);

// Newton's iteration: its cap, and from which pass a near miss is accepted.
constexpr int kMaxPasses = 500;
constexpr int kLoosePass = 471;
constexpr double kLooseStep = 3e-8;

void setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0], e2 = sphere[1];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  if (gx_is_sphere(sphere)) {
    k[kOrigin] = a * phi0;
    return;
  }
  double e4 = e2 * e2, e6 = e4 * e2;
  double rect = gx_rect_r(a, e2);
  gx_mu_series_init(e2, k + kTable, mask);
  k[kOrigin] = gx_phi_to_mu_c(e2, phi0, k + kTable) * rect;
  k[kArcDerivative0] = 1 - e2 * 0.25 - e4 * 0.046875 - e6 * 0.01953125;
  k[kArcDerivative2] = e2 * 0.75 + e4 * 0.1875 + e6 * 0.087890625;
  k[kArcDerivative4] = e4 * 0.234375 + e6 * 0.17578125;
  k[kArcDerivative6] = e6 * 0.068359375;
  k[kRect] = rect;
}

double meridian_arc(double e2, double p, const double* k) {
  return gx_phi_to_mu_c(e2, p, k + kTable) * k[kRect];
}

int32_t sphere_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                       double* coords) {
  double a = sphere[0];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - lam0), phi = p[1];
    if (gx_is_halfpi(phi)) {
      p[0] = 0;
      p[1] = (std::copysign(GX_HALFPI, phi) - phi0) * a;
    } else if (gx_eq(phi, 0)) {
      p[0] = dlam * a;
      p[1] = -phi0 * a;
    } else {
      double E = dlam * std::sin(phi), ct = 1 / std::tan(phi);
      p[0] = ct * std::sin(E) * a;
      p[1] = ((phi - phi0) + ct * (1 - std::cos(E))) * a;
    }
  }
  return count;
}

int32_t ellipsoid_forward(const double* sphere, const double* parms, const double* k, int32_t count,
                          double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], M0 = k[kOrigin];
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - lam0), phi = p[1];
    if (gx_is_halfpi(phi)) {
      p[0] = 0;
      p[1] = meridian_arc(e2, phi, k) - M0;
    } else if (gx_eq(phi, 0)) {
      p[0] = dlam * a;
      p[1] = -M0;
    } else {
      double E = dlam * std::sin(phi), ct = 1 / std::tan(phi);
      double N = gx_n(a, e2, phi);
      p[0] = ct * std::sin(E) * N;
      p[1] = (meridian_arc(e2, phi, k) - M0) + ct * (1 - std::cos(E)) * N;
    }
  }
  return count;
}

// One Newton step towards the root of the polyconic equation in phi, for
// A = y / a and B = A^2 + X^2 in units of a.
double sphere_step(double phi, double A, double B) {
  double tp = std::tan(phi);
  return phi - (A * (phi * tp + 1) - phi - (phi * phi + B) * tp * 0.5) / ((phi - A) / tp - 1);
}

double ellipsoid_step(double phi, double A, double B, double a, double e2, const double* k) {
  double C = std::tan(phi) * gx_w(e2, phi);
  double Ma = meridian_arc(e2, phi, k) / a;
  double Mp = k[kArcDerivative0] - k[kArcDerivative2] * std::cos(2 * phi) +
              k[kArcDerivative4] * std::cos(4 * phi) - k[kArcDerivative6] * std::cos(6 * phi);
  double s2 = std::sin(2 * phi);
  return phi -
         (A * (Ma * C + 1) - Ma - (Ma * Ma + B) * C * 0.5) /
             (e2 * s2 * (Ma * Ma + B - 2 * Ma * A) / (4 * C) + (C * Mp - 2 / s2) * (A - Ma) - Mp);
}

// A step is kept within a turn and folded back into [-pi/2, pi/2].  The
// remainder of an angle already within a turn is the angle itself, so the
// division is spared there.
double fold_latitude(double phi) {
  if (std::fabs(phi) >= GX_TWOPI) phi = std::fmod(phi, GX_TWOPI);
  for (int pass = 0; pass < 2 && std::fabs(phi) > GX_HALFPI; ++pass)
    phi = std::copysign(GX_PI, phi) - phi;
  return phi;
}

// The latitude that solves the equation, or false when the iteration has not
// settled within its cap.
bool solve_latitude(double A, double X, double a, double e2, const double* k, double* phi_out) {
  double B = A * A + X * X;
  double phi = A / (X * X + 1);
  for (int pass = 1;; ++pass) {
    if (pass > kMaxPasses) return false;
    double next = e2 < GX_EPS ? sphere_step(phi, A, B) : ellipsoid_step(phi, A, B, a, e2, k);
    next = fold_latitude(next);
    bool settled = gx_eq(phi, next) || (pass >= kLoosePass && std::fabs(phi - next) <= kLooseStep);
    phi = next;
    if (settled) break;
  }
  *phi_out = phi;
  return true;
}

int32_t inverse(const double* sphere, const double* parms, const double* k, int32_t count,
                double* coords) {
  double a = sphere[0], e2 = sphere[1];
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  bool on_sphere = gx_is_sphere(sphere);
  for (int32_t i = 0; i < count; ++i) {
    double* p = coords + 2 * i;
    double x = p[0], y = p[1];
    double X = x / a;
    double A = on_sphere ? y / a + phi0 : (y + k[kOrigin]) / a;
    double phi = 0, dlam = X;
    if (!gx_eq(A, 0)) {
      if (!solve_latitude(A, X, a, e2, k, &phi)) return 0;
      if (gx_is_halfpi(phi)) {
        dlam = 0;
      } else if (on_sphere) {
        double tp = std::tan(phi);
        dlam = std::atan2(tp * X, 1 - (A - phi) * tp) / std::sin(phi);
      } else {
        double tp = std::tan(phi), N = gx_n(a, e2, phi);
        double C = tp * a / N;
        dlam = std::atan2(C * X, 1 - (y + k[kOrigin] - meridian_arc(e2, phi, k)) * tp / N) /
               std::sin(phi);
      }
    }
    if (gx_eq(std::fabs(dlam), GX_PI)) dlam = std::copysign(GX_PI, x);
    p[0] = gx_delta_fast(dlam + lam0);
    p[1] = phi;
  }
  return count;
}

}  // namespace

int32_t gx_polyconic_forward(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t* ints, const double* doubles) {
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_FORWARD,
                      gx_is_sphere(sphere) ? sphere_forward : ellipsoid_forward);
}

// The inverse needs M only forward: the arc to the iterate.
int32_t gx_polyconic_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                             const int32_t* ints, const double* doubles) {
  return gx_conic_run(sphere, parms, n, coords, doubles, setup, GX_SERIES_FORWARD, inverse);
}

int32_t gx_polyconic_constants(gx_constants* block, const double* sphere, const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, setup, sphere, parms);
}
