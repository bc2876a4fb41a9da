// Transverse_Mercator_Complex (43056): the transverse Mercator of the
// ellipsoid written with Jacobi elliptic functions of a complex argument
// (Lee's form), valid over the whole ellipsoid and not only near the
// central meridian.  Forward and inverse solve by Newton's method in the
// complex plane; a point that does not converge in 50 steps gets NaN, and
// the functions count the points that converged.
#include "projections/transverse_mercator.h"

namespace {

// Layout of the doubles.
constexpr int kSphereAk = 0;      // k0 * a
constexpr int kSphereHalfAk = 1;  // half of it
constexpr int32_t kSphereCount = 2;

constexpr int kAk = 0;          // k0 * a
constexpr int kOneMinusE2 = 1;  // 1 - e2
constexpr int kE = 2;           // e
constexpr int kEps = 3;         // the machine epsilon
constexpr int kTolA = 4;        // relative part of Newton's stopping bound
constexpr int kTolB = 5;        // absolute part
constexpr int kM0 = 6;          // northing of the origin from the equator
constexpr int kTable = 7;       // conformal latitude series
constexpr int32_t kEllipsoidCount = kTable + GX_TABLE_ROOM;

constexpr int kNewtonSteps = 50;

// Value forms of the kernel's complex helpers.
template <gx_complex* (*op)(gx_complex, gx_complex, gx_complex*)>
gx_complex binary(gx_complex a, gx_complex b) {
  gx_complex r;
  return *op(a, b, &r);
}
template <gx_complex* (*op)(gx_complex, gx_complex*)>
gx_complex unary(gx_complex z) {
  gx_complex r;
  return *op(z, &r);
}
constexpr auto add = binary<gx_cplx_add>;
constexpr auto sub = binary<gx_cplx_sub>;
constexpr auto mul = binary<gx_cplx_mul>;
constexpr auto div = binary<gx_cplx_div>;
constexpr auto csqrt = unary<gx_cplx_sqrt>;
constexpr auto catanh = unary<gx_cplx_atanh>;
gx_complex scale(double k, gx_complex z) { return {k * z.re, k * z.im}; }
gx_complex real(double x) { return {x, 0.0}; }
double modulus(gx_complex z) { return gx_hypot(z.re, z.im); }

// sn, cn and dn of a real argument.
struct Jacobi {
  double s, c, d;
};

// Jacobi's functions of the real argument u for the parameter whose
// complementary modulus is `b0` (sqrt(1 - parameter)): the AGM from (1, b0),
// the phase 2^n a_n u at its last step, then the descent
// phase_(k-1) = (phase_k + asin((c_k / a_k) sin phase_k)) / 2.
Jacobi jacobi_real(double u, double b0) {
  double a[GX_AGM_CAPACITY], b[GX_AGM_CAPACITY], c[GX_AGM_CAPACITY];
  a[0] = 1.0;
  b[0] = b0;
  int last = gx_agm_sequence(a, b, c, GX_AGM_CAPACITY);
  double power = 1.0;
  for (int k = 0; k < last; ++k) power *= 2.0;
  double phase = power * a[last] * u, above = phase;
  for (int k = last; k >= 1; --k) {
    above = phase;
    phase = (phase + std::asin((c[k] / a[k]) * std::sin(phase))) / 2;
  }
  double s = std::sin(phase), cs = std::cos(phase);
  return {s, cs, cs / std::cos(above - phase)};
}

// The two descents of a complex argument: the real part with the parameter
// m, the imaginary part with the complementary parameter 1 - m.
struct Descents {
  Jacobi x, y;
};

Descents descend(gx_complex z, double m) {
  return {jacobi_real(z.re, std::sqrt(1.0 - m)), jacobi_real(z.im, std::sqrt(m))};
}

// sn(x + iy) = (sx d1 + i cx dx s1 c1) / (c1^2 + m sx^2 s1^2).
gx_complex sn_of(const Descents& j, double m) {
  const Jacobi& x = j.x;
  const Jacobi& y = j.y;
  double den = y.c * y.c + m * x.s * x.s * y.s * y.s;
  return {x.s * y.d / den, x.c * x.d * y.s * y.c / den};
}

// E(am u | m) of a real argument from s = sn u: s RF(1 - s^2, 1 - m s^2)
// - (m / 3) s^3 RD(1 - s^2, 1 - m s^2).
double ellint_e_of_sn(double s, double m) {
  double x = 1.0 - s * s, y = 1.0 - m * s * s;
  return s * gx_carlson_rf(x, y) - (m / 3) * s * s * s * gx_carlson_rd(x, y);
}

// cn and dn of u from sn u, and psi(u) = atanh(sn) - e atanh(e sn), the
// isometric latitude plus i times the longitude.
gx_complex cn_of(gx_complex sn) { return csqrt(mul(sub(real(1.0), sn), add(real(1.0), sn))); }
gx_complex dn_of(gx_complex sn, double e) {
  gx_complex esn = scale(e, sn);
  return csqrt(mul(sub(real(1.0), esn), add(real(1.0), esn)));
}
gx_complex psi_of(gx_complex sn, double e) {
  return sub(catanh(sn), scale(e, catanh(scale(e, sn))));
}

// Newton's stopping test: half the step below the bound, strictly.
bool settled(gx_complex u, gx_complex next, const double* c) {
  return modulus(sub(next, u)) * 0.5 < modulus(next) * c[kTolA] + c[kTolB];
}

void setup(const double* sphere, const double* parms, int mask, double* layout) {
  double a = sphere[0], e2 = sphere[1], k0 = parms[GX_PARM_SCALE_FACTOR];
  double ak = k0 * a;
  if (gx_is_sphere(sphere)) {
    layout[kSphereAk] = ak;
    layout[kSphereHalfAk] = ak / 2;
    return;
  }
  layout[kAk] = ak;
  layout[kOneMinusE2] = 1.0 - e2;
  layout[kE] = std::sqrt(e2);
  // The machine epsilon, found as the platform has it.
  double eps = 1.0;
  while (1.0 + eps > 1.0) eps *= 0.5;
  layout[kEps] = eps;
  layout[kTolA] = 2 * eps;
  layout[kTolB] = std::sqrt(eps);
  // The origin's northing: the projection itself, from the equator, at the
  // origin.
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  double m0 = 0.0;
  if (std::fabs(phi0) > GX_EPS) {
    double from_equator[GX_PARM_COUNT];
    for (int i = 0; i < GX_PARM_COUNT; ++i) from_equator[i] = parms[i];
    from_equator[GX_PARM_LATITUDE_OF_ORIGIN] = 0.0;
    double origin[2] = {parms[GX_PARM_CENTRAL_MERIDIAN], phi0};
    gx_transverse_mercator_complex_forward(sphere, from_equator, 1, origin, nullptr, nullptr);
    m0 = origin[1];
  }
  layout[kM0] = m0;
  gx_chi_series_init(e2, layout + kTable, mask);
}

int32_t ellipsoid_forward(const double* c, const double* sphere, const double* parms, int32_t n,
                          double* coords) {
  const double e2 = sphere[1], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double ak = c[kAk], e = c[kE], onee2 = c[kOneMinusE2], m0 = c[kM0];
  const double* table = c + kTable;
  int32_t converted = 0;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double phi = gx_pole_clamp(p[1]);
    double dlam = gx_delta_fast(p[0] - lam0);
    double chi = gx_phi_to_chi_c(e2, phi, table);
    double q = chi == 0.0 ? 0.0 : std::log(std::tan(chi / 2 + GX_QUARTERPI));
    gx_complex w = {q, dlam}, u;
    gx_cplx_asin(*gx_cplx_tanh(w, &u), &u);
    bool done = false;
    for (int step = 0; step < kNewtonSteps && !done; ++step) {
      gx_complex sn;
      gx_cplx_sn(u, e2, &sn);
      gx_complex dpsi = div(real(onee2), mul(cn_of(sn), dn_of(sn, e)));
      gx_complex next = sub(u, div(sub(psi_of(sn, e), w), dpsi));
      done = settled(u, next, c);
      u = next;
      // A NaN never settles: the point has no image, as after the last step.
      if (std::isnan(u.re) || std::isnan(u.im)) break;
    }
    if (!done) {
      gx_point_nan(p);
      continue;
    }
    gx_complex sn, z;
    gx_cplx_sn(u, e2, &sn);
    gx_cplx_ellint_e(u, e2, &z);
    z = sub(z, scale(e2, div(mul(sn, cn_of(sn)), dn_of(sn, e))));
    p[1] = z.re * ak - m0;
    p[0] = z.im * ak;
    ++converted;
  }
  return converted;
}

int32_t ellipsoid_inverse(const double* c, const double* sphere, const double* parms, int32_t n,
                          double* coords) {
  const double e2 = sphere[1], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double e = c[kE], onee2 = c[kOneMinusE2], m0 = c[kM0], r = 1.0 / c[kAk];
  const double* table = c + kTable;
  int32_t converted = 0;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    gx_complex target = {(p[1] + m0) * r, p[0] * r}, u = target;
    bool done = false;
    for (int step = 0; step < kNewtonSteps && !done; ++step) {
      gx_complex sn, big_e;
      gx_cplx_sn(u, e2, &sn);
      gx_cplx_ellint_e(u, e2, &big_e);
      gx_complex s2 = mul(sn, sn);
      gx_complex w2 = sub(real(1.0), scale(e2, s2));  // 1 - e2 s2
      gx_complex c2 = sub(real(1.0), s2);             // 1 - s2
      gx_complex f = sub(sub(big_e, scale(e2, mul(sn, csqrt(div(c2, w2))))), target);
      gx_complex slope = sub(w2, scale(e2, sub(c2, div(scale(onee2, s2), w2))));
      gx_complex next = sub(u, div(f, slope));
      done = settled(u, next, c);
      u = next;
      // A NaN never settles: the point has no image, as after the last step.
      if (std::isnan(u.re) || std::isnan(u.im)) break;
    }
    if (!done) {
      gx_point_nan(p);
      continue;
    }
    gx_complex sn;
    gx_cplx_sn(u, e2, &sn);
    gx_complex psi = psi_of(sn, e);
    double chi = 2 * std::atan(std::exp(psi.re)) - GX_HALFPI;
    p[1] = gx_chi_to_phi_c(e2, chi, table);
    p[0] = gx_delta_fast(psi.im + lam0);
    ++converted;
  }
  return converted;
}

}  // namespace

gx_complex* gx_cplx_sn(gx_complex z, double m, gx_complex* result) {
  *result = sn_of(descend(z, m), m);
  return result;
}

// E(x + iy) = E(x) + E(iy) - m sn(x) sn(iy) sn(x + iy), with sn(iy | m) =
// i sc(y | 1 - m) and E(iy | m) = i (y - E(y | 1 - m) + dn sc(y | 1 - m)).
gx_complex* gx_cplx_ellint_e(gx_complex z, double m, gx_complex* result) {
  Descents j = descend(z, m);
  gx_complex sn = sn_of(j, m);
  double sc1 = j.y.s / j.y.c;
  double real_part = ellint_e_of_sn(j.x.s, m);
  double imaginary_part = z.im - ellint_e_of_sn(j.y.s, 1.0 - m) + j.y.d * sc1;
  gx_complex product = mul({0.0, m * j.x.s * sc1}, sn);
  *result = sub({real_part, imaginary_part}, product);
  return result;
}

// The sphere branch is Transverse_Mercator's and counts every point; the
// ellipsoid's counts the points that converged.
GX_DEFINE_PROJECTION(transverse_mercator_complex, setup,
                     (gx_branch<gx_transverse_mercator_sphere_forward, ellipsoid_forward>),
                     GX_SERIES_FORWARD,
                     (gx_branch<gx_transverse_mercator_sphere_inverse, ellipsoid_inverse>),
                     GX_SERIES_INVERSE)
GX_DEFINE_LOADER(transverse_mercator_complex, setup, kSphereCount, kEllipsoidCount)
