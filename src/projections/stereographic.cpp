// Stereographic projections.  `Stereographic` takes any centre, on the
// ellipsoid through the conformal latitude; the two polar forms set their
// scale by a parallel of true scale instead of a scale factor; and
// `Double_Stereographic` maps the ellipsoid conformally onto a Gaussian
// sphere first and projects that sphere with `Stereographic`.
//
// None of them refuses a point: at the antipode of the centre the division
// gives an infinity, and that is the result.
#include <cmath>

#include "projections/azimuthal.h"

namespace {

// ---- Stereographic: constants ---------------------------------------------------

// Sphere: A2 = 2 k0 a, sin phi0, cos phi0.
constexpr int kA2 = 0;
constexpr int kSin0 = 1;
constexpr int kCos0 = 2;
constexpr int kSphereCount = 3;
// Ellipsoid: A2, e, m0 = cos phi0 / w(phi0), Q, the conformal latitude chi0
// of the centre with its sine and cosine, then the conformal table.
constexpr int kE = 1;
constexpr int kM0 = 2;
constexpr int kQ = 3;
constexpr int kChi0 = 4;
constexpr int kSinChi0 = 5;
constexpr int kCosChi0 = 6;
constexpr int kChiTable = 7;
constexpr int kEllipsoidCount = kChiTable + GX_TABLE_ROOM;

// Q = sqrt((1 - e)^(1 - e) (1 + e)^(1 + e)): the ratio of the polar
// stereographic of the ellipsoid to that of its conformal sphere at the pole.
double polar_ratio(double e) {
  return std::sqrt(std::pow(1.0 - e, 1.0 - e) * std::pow(1.0 + e, 1.0 + e));
}

// ---- the polar rows, shared with the polar forms -----------------------------------

// What a polar row needs: the pole, A2, and on the ellipsoid Q and the table.
struct polar_rows {
  bool north;
  bool sphere;
  double e2;
  double a2;
  double q;
  const double* table;
  double lam0;
};

// tan(pi/4 - chi/2) for a northern row, tan(pi/4 + chi/2) for a southern:
// exp(-psi) and exp(psi) of the isometric latitude.  The poles keep the
// tangents of chi = phi, which give the centre exactly.
double polar_tangent(bool north, double e, double phi) {
  if (gx_is_halfpi(phi))
    return north ? std::tan(GX_QUARTERPI - phi / 2.0) : std::tan(phi / 2.0 + GX_QUARTERPI);
  double psi = gx_isometric_of(e, gx_angle_of(phi));
  return std::exp(north ? -psi : psi);
}

void polar_forward(const polar_rows& f, int32_t n, double* coords) {
  double e = std::sqrt(f.e2);
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    double dlam = gx_delta_fast(p[0] - f.lam0);
    double r;
    if (f.sphere) {
      double phi = p[1];
      r = (f.north ? std::tan(GX_QUARTERPI - phi / 2.0) : std::tan(phi / 2.0 + GX_QUARTERPI)) *
          f.a2;
    } else {
      r = polar_tangent(f.north, e, p[1]) / f.q * f.a2;
    }
    gx_polar_point(f.north, dlam, r, p);
  }
}

// The latitude of a point at distance rho from the pole; the south's is the
// negative of the north's, the conformal latitude being odd in phi.
double polar_latitude(const polar_rows& f, double rho) {
  if (f.sphere) {
    double ce = 2.0 * std::atan(rho / f.a2);
    return f.north ? std::asin(std::cos(ce)) : -std::asin(std::cos(ce));
  }
  gx_angle chi = gx_angle_from_half_tangent((rho / f.a2) * f.q);
  double phi = gx_chi_to_phi_a(f.e2, chi, f.table).rad;
  return f.north ? phi : -phi;
}

// ---- Stereographic: per point ------------------------------------------------

void sphere_forward(gx_aspect aspect, const double* k, double lam0, double* p) {
  double dlam = gx_delta_fast(p[0] - lam0);
  double s = std::sin(p[1]);
  double c = std::cos(p[1]);
  double sd = std::sin(dlam);
  double cd = std::cos(dlam);
  if (aspect == GX_ASPECT_EQUATOR) {
    double A = k[kA2] / (cd * c + 1.0);
    p[0] = sd * c * A;
    p[1] = s * A;
    return;
  }
  double A = k[kA2] / (cd * c * k[kCos0] + s * k[kSin0] + 1.0);
  p[0] = sd * c * A;
  p[1] = (s * k[kCos0] - cd * c * k[kSin0]) * A;
}

void ellipsoid_forward(gx_aspect aspect, double e2, const double* k, double lam0, double* p) {
  gx_angle dlam = gx_angle_of(gx_delta_fast(p[0] - lam0));
  gx_angle chi = gx_phi_to_chi_a(e2, gx_angle_of(p[1]), k + kChiTable);
  double sc = chi.sin, cc = chi.cos, sd = dlam.sin, cd = dlam.cos;
  if (aspect == GX_ASPECT_EQUATOR) {
    double A = k[kA2] / (cd * cc + 1.0);
    p[0] = sd * cc * A;
    p[1] = sc * A;
    return;
  }
  double A = k[kM0] * k[kA2] / ((cc * cd * k[kCosChi0] + sc * k[kSinChi0] + 1.0) * k[kCosChi0]);
  p[0] = sd * cc * A;
  p[1] = (sc * k[kCosChi0] - cc * cd * k[kSinChi0]) * A;
}

// The inverse of a point at rho > 0 from the centre, on the sphere or the
// conformal sphere, to dlam and the (conformal) latitude.  The angle ce =
// 2 atan(u) from the centre comes with its sine and cosine from u itself,
// as the complement pi/2 - 2 atan(u).
gx_angle azimuthal_inverse(double u, double s0, double c0, double rho, double* p) {
  gx_angle ce_complement = gx_angle_from_half_tangent(u);
  return gx_azimuthal_back(ce_complement.cos, ce_complement.sin, p[0], p[1], rho, s0, c0, 1.0, 1.0,
                           p);
}

// The sphere's inverse; the polar aspects are done by the polar rows.
void sphere_inverse(gx_aspect aspect, const double* k, double rho, double* p) {
  bool equator = aspect == GX_ASPECT_EQUATOR;
  double s0 = equator ? 0.0 : k[kSin0], c0 = equator ? 1.0 : k[kCos0];
  p[1] = azimuthal_inverse(rho / k[kA2], s0, c0, rho, p).rad;
}

// The ellipsoid's inverse, through the conformal latitude.
void ellipsoid_inverse(gx_aspect aspect, double e2, const double* k, double rho, double* p) {
  gx_angle chi;
  if (aspect == GX_ASPECT_EQUATOR) {
    chi = azimuthal_inverse(rho / k[kA2], 0.0, 1.0, rho, p);
  } else {
    double u = rho * k[kCosChi0] / (k[kM0] * k[kA2]);
    chi = azimuthal_inverse(u, k[kSinChi0], k[kCosChi0], rho, p);
  }
  p[1] = gx_chi_to_phi_a(e2, chi, k + kChiTable).rad;
}

polar_rows stereographic_polar(gx_aspect aspect, const double* sphere, const double* parms,
                               const double* k) {
  bool on_sphere = gx_is_sphere(sphere);
  if (on_sphere)
    return {aspect == GX_ASPECT_NORTH,      true, 0.0, k[kA2], 0.0, nullptr,
            parms[GX_PARM_CENTRAL_MERIDIAN]};
  return {aspect == GX_ASPECT_NORTH,      false, sphere[1], k[kA2], k[kQ], k + kChiTable,
          parms[GX_PARM_CENTRAL_MERIDIAN]};
}

// ---- the polar forms -------------------------------------------------------------

// Sphere: A2.  Ellipsoid: A2, Q, then the conformal table.
constexpr int kPolarA2 = 0;
constexpr int kPolarQ = 1;
constexpr int kPolarTable = 2;
constexpr int32_t kPolarSphereCount = 1;
constexpr int32_t kPolarEllipsoidCount = kPolarTable + GX_TABLE_ROOM;

// The scale at the pole that gives true scale on the parallel phi1.
double polar_scale(bool north, const double* sphere, double phi1, double q) {
  if (gx_is_sphere(sphere)) {
    return north ? (std::cos(-(GX_HALFPI - phi1)) + 1.0) * 0.5
                 : (std::cos(-(-GX_HALFPI - phi1)) + 1.0) * 0.5;
  }
  double e2 = sphere[1];
  double e = std::sqrt(e2);
  double s = std::sin(phi1);
  double es = e * s;
  double ratio = north ? (1.0 - es) / (1.0 + es) : (1.0 + es) / (1.0 - es);
  double side = north ? 1.0 + s : 1.0 - s;
  return side * std::sqrt(std::pow(ratio, e) / (1.0 - s * s * e2)) * q * 0.5;
}

void polar_setup(bool north, const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0];
  double phi1 = parms[GX_PARM_STANDARD_PARALLEL_1];
  if (gx_is_sphere(sphere)) {
    k[kPolarA2] = 2.0 * polar_scale(north, sphere, phi1, 0.0) * a;
    return;
  }
  double q = polar_ratio(std::sqrt(sphere[1]));
  k[kPolarA2] = 2.0 * polar_scale(north, sphere, phi1, q) * a;
  k[kPolarQ] = q;
  gx_chi_series_init(sphere[1], k + kPolarTable, mask);
}

void north_setup(const double* sphere, const double* parms, int mask, double* k) {
  polar_setup(true, sphere, parms, mask, k);
}

void south_setup(const double* sphere, const double* parms, int mask, double* k) {
  polar_setup(false, sphere, parms, mask, k);
}

gx_setup_fn polar_setup_of(bool north) { return north ? north_setup : south_setup; }

polar_rows polar_form(bool north, const double* sphere, const double* parms, const double* k) {
  bool on_sphere = gx_is_sphere(sphere);
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  if (on_sphere) return {north, true, 0.0, k[kPolarA2], 0.0, nullptr, lam0};
  return {north, false, sphere[1], k[kPolarA2], k[kPolarQ], k + kPolarTable, lam0};
}

int32_t polar_form_forward(bool north, const double* sphere, const double* parms, int32_t n,
                           double* coords, const double* doubles) {
  if (n < 1) return 0;
  double local[kPolarEllipsoidCount];
  const double* k =
      gx_layout(doubles, local, polar_setup_of(north), sphere, parms, GX_SERIES_FORWARD);
  polar_forward(polar_form(north, sphere, parms, k), n, coords);
  return n;
}

// The origin needs no case of its own: it gives the pole exactly.
int32_t polar_form_inverse(bool north, const double* sphere, const double* parms, int32_t n,
                           double* coords, const double* doubles) {
  if (n < 1) return 0;
  double local[kPolarEllipsoidCount];
  const double* k =
      gx_layout(doubles, local, polar_setup_of(north), sphere, parms, GX_SERIES_INVERSE);
  polar_rows f = polar_form(north, sphere, parms, k);
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    double rho = gx_hypot(p[0], p[1]);
    double phi = polar_latitude(f, rho);
    p[0] = gx_delta_fast(gx_polar_dlam(north, p[0], p[1]) + f.lam0);
    p[1] = phi;
  }
  return n;
}

int32_t polar_form_constants(bool north, gx_constants* block, const double* sphere,
                             const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kPolarSphereCount : kPolarEllipsoidCount;
  return gx_layout_load(block, count, polar_setup_of(north), sphere, parms);
}

// ---- Double_Stereographic -------------------------------------------------------

// Ellipsoid only.  First the constants of Stereographic on the Gaussian
// sphere (A2 = 2 k0 R, sin chi0, cos chi0), then R, e, chi0, B, c, the
// longitude limit Lm and 1 / B.
constexpr int kGaussStereo = 0;
constexpr int kGaussR = kSphereCount;
constexpr int kGaussE = kGaussR + 1;
constexpr int kGaussChi0 = kGaussE + 1;
constexpr int kGaussB = kGaussChi0 + 1;
constexpr int kGaussC = kGaussB + 1;
constexpr int kGaussLm = kGaussC + 1;
constexpr int kGaussInvB = kGaussLm + 1;
constexpr int kGaussCount = kGaussInvB + 1;

// ((1 - e s) / (1 + e s))^(e / 2): the ellipsoid's factor in the isometric latitude.
double isometric_factor(double e, double s) {
  return std::pow((1.0 - e * s) / (1.0 + e * s), e * 0.5);
}

// The parameter vector of Stereographic on the Gaussian sphere: central
// meridian 0, centre chi0, the same scale factor.
void gaussian_parms(const double* parms, double chi0, double* local) {
  for (int i = 0; i < GX_PARM_COUNT; ++i) local[i] = parms[i];
  local[GX_PARM_CENTRAL_MERIDIAN] = 0.0;
  local[GX_PARM_LATITUDE_OF_ORIGIN] = chi0;
}

void double_setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0];
  double e2 = sphere[1];
  double e = std::sqrt(e2);
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  double s0 = std::sin(phi0);
  double B;
  double chi0;
  double c;
  if (gx_eq(std::fabs(phi0), GX_HALFPI)) {
    B = 1.0;
    chi0 = phi0 < 0.0 ? -GX_HALFPI : GX_HALFPI;
    c = std::pow((1.0 + e) / (1.0 - e), e * 0.5);
  } else {
    double cos0 = std::cos(phi0);
    double cos2 = cos0 * cos0;
    B = std::sqrt(cos2 * cos2 * e2 / (1.0 - e2) + 1.0);
    chi0 = std::asin(s0 / B);
    c = std::pow(isometric_factor(e, s0) * std::tan(phi0 / 2.0 + GX_QUARTERPI), -B) *
        std::tan(chi0 / 2.0 + GX_QUARTERPI);
  }
  double w2 = 1.0 - s0 * s0 * e2;
  double R = std::sqrt(((1.0 - e2) / std::pow(w2, 1.5) * a) * (a / std::sqrt(w2)));
  double gauss_sphere[2] = {R, 0.0};
  double gauss[GX_PARM_COUNT];
  gaussian_parms(parms, chi0, gauss);
  gx_stereographic_setup(gauss_sphere, gauss, mask, k + kGaussStereo);
  k[kGaussR] = R;
  k[kGaussE] = e;
  k[kGaussChi0] = chi0;
  k[kGaussB] = B;
  k[kGaussC] = c;
  k[kGaussLm] = GX_PI - (GX_PI - GX_PI / B) * 2.0;
  k[kGaussInvB] = 1.0 / B;
}

// Geodetic to Gaussian-sphere coordinates: (L B, chi), with a longitude
// beyond Lm pulled back by half its excess.
void to_gaussian(const double* k, double lam0, double* p) {
  double e = k[kGaussE];
  double phi = p[1];
  double chi;
  if (gx_eq(phi, GX_HALFPI)) {
    chi = GX_HALFPI;
  } else if (gx_eq(phi, -GX_HALFPI)) {
    chi = -GX_HALFPI;
  } else {
    double b = isometric_factor(e, std::sin(phi)) * std::tan(phi / 2.0 + GX_QUARTERPI);
    chi = 2.0 * std::atan(std::pow(b, k[kGaussB]) * k[kGaussC]) - GX_HALFPI;
  }
  double L = gx_delta_fast(p[0] - lam0);
  double lm = k[kGaussLm];
  if (std::fabs(L) > lm) L = L - std::copysign(1.0, L) * (std::fabs(L) - lm) * 0.5;
  p[0] = L * k[kGaussB];
  p[1] = chi;
}

constexpr int kGaussMaxIterations = 30;

// The geodetic latitude of a Gaussian latitude, by Newton's method.
double from_gaussian_latitude(const double* k, double e2, double chi) {
  if (gx_eq(std::fabs(chi), GX_HALFPI)) return chi < 0.0 ? -GX_HALFPI : GX_HALFPI;
  double e = k[kGaussE];
  double B = k[kGaussB];
  double c = k[kGaussC];
  double T = std::tan(chi / 2.0 + GX_QUARTERPI);
  double phi = chi;
  for (int count = 1;; ++count) {
    double S = std::sin(phi);
    double u = phi / 2.0 + GX_QUARTERPI;
    double factor = isometric_factor(e, S);
    double tu = std::tan(u);
    double cu = std::cos(u);
    double b = factor * tu;
    double slope = (0.5 / (cu * cu) - std::cos(phi) * e2 * tu / (1.0 - S * S * e2)) * factor *
                   std::pow(b, B - 1.0) * c * B;
    double next = phi - (std::pow(b, B) * c - T) / slope;
    bool done = std::fabs(next - phi) <= GX_EPS || count > kGaussMaxIterations;
    phi = next;
    if (done) return phi;
  }
}

// Gaussian-sphere coordinates (L', chi) back to geodetic ones.
void from_gaussian(const double* k, double e2, double lam0, double* p) {
  double L = p[0] * k[kGaussInvB];
  double lm = k[kGaussLm];
  if (std::fabs(L) > lm) L = L + std::copysign(1.0, L) * (std::fabs(L) - lm) * 0.5;
  p[1] = from_gaussian_latitude(k, e2, p[1]);
  p[0] = gx_delta_fast(L + lam0);
}

// A run on the Gaussian sphere: the constants (the block's or the set-up's),
// and the sphere pair and parameter vector that Stereographic is given.
struct gaussian_run {
  double local[kGaussCount];
  const double* k;
  double sphere[2];
  double parms[GX_PARM_COUNT];

  gaussian_run(const double* ellipsoid, const double* given, const double* doubles) : k(doubles) {
    if (k == nullptr) {
      double_setup(ellipsoid, given, GX_SERIES_ALL, local);
      k = local;
    }
    sphere[0] = k[kGaussR];
    sphere[1] = 0.0;
    gaussian_parms(given, k[kGaussChi0], parms);
  }
};

}  // namespace

// ---- Stereographic ------------------------------------------------------------------

void gx_stereographic_setup(const double* sphere, const double* parms, int mask, double* k) {
  double a = sphere[0];
  double e2 = sphere[1];
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  k[kA2] = 2.0 * parms[GX_PARM_SCALE_FACTOR] * a;
  if (gx_is_sphere(sphere)) {
    k[kSin0] = std::sin(phi0);
    k[kCos0] = std::cos(phi0);
    return;
  }
  double e = std::sqrt(e2);
  k[kE] = e;
  k[kM0] = std::cos(phi0) / gx_w(e2, phi0);
  k[kQ] = polar_ratio(e);
  gx_chi_series_init(e2, k + kChiTable, mask);
  // The plain form gives the table form's bits, and it also serves the
  // inverse, whose table holds only the series towards phi.
  double chi0 = gx_phi_to_chi(e2, phi0);
  k[kChi0] = chi0;
  k[kSinChi0] = std::sin(chi0);
  k[kCosChi0] = std::cos(chi0);
}

int32_t gx_stereographic_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                 const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* k =
      gx_layout(doubles, local, gx_stereographic_setup, sphere, parms, GX_SERIES_FORWARD);
  gx_azimuthal_frame f = gx_azimuthal_frame_of(sphere, parms);
  if (gx_azimuthal_polar(f.aspect)) {
    polar_forward(stereographic_polar(f.aspect, sphere, parms, k), n, coords);
  } else if (f.sphere) {
    for (double* p = coords; p < coords + 2 * n; p += 2) sphere_forward(f.aspect, k, f.lam0, p);
  } else {
    for (double* p = coords; p < coords + 2 * n; p += 2)
      ellipsoid_forward(f.aspect, sphere[1], k, f.lam0, p);
  }
  return n;
}

int32_t gx_stereographic_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                 const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double local[kEllipsoidCount];
  const double* k =
      gx_layout(doubles, local, gx_stereographic_setup, sphere, parms, GX_SERIES_INVERSE);
  gx_azimuthal_frame f = gx_azimuthal_frame_of(sphere, parms);
  polar_rows polar = stereographic_polar(f.aspect, sphere, parms, k);
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    double rho = gx_hypot(p[0], p[1]);
    if (gx_eq(rho, 0.0)) {
      gx_azimuthal_centre(p, f.lam0, f.phi0);
      continue;
    }
    if (gx_azimuthal_polar(f.aspect)) {
      double phi = polar_latitude(polar, rho);
      p[0] = gx_polar_dlam(polar.north, p[0], p[1]);
      p[1] = phi;
    } else if (f.sphere) {
      sphere_inverse(f.aspect, k, rho, p);
    } else {
      ellipsoid_inverse(f.aspect, sphere[1], k, rho, p);
    }
    p[0] = gx_delta_fast(p[0] + f.lam0);
  }
  return n;
}

int32_t gx_stereographic_constants(gx_constants* block, const double* sphere, const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? kSphereCount : kEllipsoidCount;
  return gx_layout_load(block, count, gx_stereographic_setup, sphere, parms);
}

// ---- Stereographic_North_Pole and Stereographic_South_Pole ------------------------------

// The three functions of one polar form, each a call of the shared form.
#define GX_STEREOGRAPHIC_POLAR_FORM(pole, north)                                            \
  int32_t gx_stereographic_##pole##_forward(const double* sphere, double* parms, int32_t n, \
                                            double* coords, const int32_t*,                 \
                                            const double* doubles) {                        \
    return polar_form_forward(north, sphere, parms, n, coords, doubles);                    \
  }                                                                                         \
  int32_t gx_stereographic_##pole##_inverse(const double* sphere, double* parms, int32_t n, \
                                            double* coords, const int32_t*,                 \
                                            const double* doubles) {                        \
    return polar_form_inverse(north, sphere, parms, n, coords, doubles);                    \
  }                                                                                         \
  int32_t gx_stereographic_##pole##_constants(gx_constants* block, const double* sphere,    \
                                              const double* parms) {                        \
    return polar_form_constants(north, block, sphere, parms);                               \
  }

GX_STEREOGRAPHIC_POLAR_FORM(north_pole, true)
GX_STEREOGRAPHIC_POLAR_FORM(south_pole, false)

// ---- Double_Stereographic -------------------------------------------------------------

int32_t gx_double_stereographic_forward(const double* sphere, double* parms, int32_t n,
                                        double* coords, const int32_t* ints,
                                        const double* doubles) {
  if (gx_is_sphere(sphere))
    return gx_stereographic_forward(sphere, parms, n, coords, ints, doubles);
  if (n < 1) return 0;
  gaussian_run run(sphere, parms, doubles);
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  for (int32_t i = 0; i < n; ++i) to_gaussian(run.k, lam0, coords + 2 * i);
  return gx_stereographic_forward(run.sphere, run.parms, n, coords, ints, run.k + kGaussStereo);
}

int32_t gx_double_stereographic_inverse(const double* sphere, double* parms, int32_t n,
                                        double* coords, const int32_t* ints,
                                        const double* doubles) {
  if (gx_is_sphere(sphere))
    return gx_stereographic_inverse(sphere, parms, n, coords, ints, doubles);
  if (n < 1) return 0;
  gaussian_run run(sphere, parms, doubles);
  gx_stereographic_inverse(run.sphere, run.parms, n, coords, ints, run.k + kGaussStereo);
  double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  for (int32_t i = 0; i < n; ++i) from_gaussian(run.k, sphere[1], lam0, coords + 2 * i);
  return n;
}

int32_t gx_double_stereographic_constants(gx_constants* block, const double* sphere,
                                          const double* parms) {
  int32_t count = gx_is_sphere(sphere) ? 0 : kGaussCount;
  return gx_layout_load(block, count, double_setup, sphere, parms);
}
