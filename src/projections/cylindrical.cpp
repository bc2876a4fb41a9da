// The sphere-only normal cylinders: Plate_Carree (43001),
// Equidistant_Cylindrical (43002), Miller_Cylindrical (43003) and
// Gall_Stereographic (43016).  They use a as the radius whatever e2 says.
#include "projections/cylindrical.h"
#include "projections/setup.h"

namespace {

// Miller's cylinder stretches the Mercator latitude by 5/4 after shrinking
// the latitude by 4/5; its inverse undoes both.
constexpr double kMillerShrink = 0.4;
constexpr double kMillerStretch = 1.25;
constexpr double kMillerUnstretch = 0.8;
constexpr double kMillerUnshrink = 2.5;
constexpr double kMillerOffset = 1.9634954084936207;  // 2.5 * pi/4

// Gall's cylinder secant at 45 degrees: cos(45 degrees).
constexpr double kGallCos45 = 0.7071067811865475;
constexpr int kGallX = 0;  // a * cos(45 degrees)
constexpr int kGallY = 1;  // that plus a
constexpr int32_t kGallCount = 2;

// x = dlam * xscale, y = phi * a: the equidistant cylinders.
int32_t equidistant_forward(double a, double xscale, double lam0, int32_t n, double* coords) {
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = gx_delta_fast(p[0] - lam0) * xscale;
    p[1] = p[1] * a;
  }
  return n;
}

// phi = y * (1 / a), lam = x * (1 / xscale) + lam0, wrapped.
int32_t equidistant_inverse(double a, double xscale, double lam0, int32_t n, double* coords) {
  const double ra = 1.0 / a, rx = 1.0 / xscale;
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[1] = p[1] * ra;
    p[0] = gx_delta_fast(p[0] * rx + lam0);
  }
  return n;
}

void gall_setup(const double* sphere, const double* parms, int mask, double* layout) {
  double a = sphere[0];
  layout[kGallX] = a * kGallCos45;
  layout[kGallY] = a * kGallCos45 + a;
}

}  // namespace

// ---- Plate_Carree -------------------------------------------------------------

int32_t gx_plate_carree_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double a = sphere[0];
  return equidistant_forward(a, a, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}

int32_t gx_plate_carree_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double a = sphere[0];
  return equidistant_inverse(a, a, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}

// ---- Equidistant_Cylindrical ---------------------------------------------------
// A standard parallel on a pole is not guarded: x collapses to 0 forward and
// the inverse divides by 0.

int32_t gx_equidistant_cylindrical_forward(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles) {
  if (n < 1) return 0;
  double a = sphere[0];
  double xscale = std::cos(parms[GX_PARM_STANDARD_PARALLEL_1]) * a;
  return equidistant_forward(a, xscale, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}

int32_t gx_equidistant_cylindrical_inverse(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles) {
  if (n < 1) return 0;
  double a = sphere[0];
  double xscale = std::cos(parms[GX_PARM_STANDARD_PARALLEL_1]) * a;
  return equidistant_inverse(a, xscale, parms[GX_PARM_CENTRAL_MERIDIAN], n, coords);
}

// ---- Miller_Cylindrical ---------------------------------------------------------

int32_t gx_miller_cylindrical_forward(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  const double a = sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = gx_delta_fast(p[0] - lam0) * a;
    p[1] = std::log(std::tan(p[1] * kMillerShrink + GX_QUARTERPI)) * a * kMillerStretch;
  }
  return n;
}

int32_t gx_miller_cylindrical_inverse(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ra = 1.0 / sphere[0];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[1] = std::atan(std::exp(p[1] * ra * kMillerUnstretch)) * kMillerUnshrink - kMillerOffset;
    p[0] = gx_delta_fast(p[0] * ra + lam0);
  }
  return n;
}

// ---- Gall_Stereographic ---------------------------------------------------------

int32_t gx_gall_stereographic_forward(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double local[kGallCount];
  const double* c = gx_layout(doubles, local, gall_setup, sphere, parms, GX_SERIES_FORWARD);
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ax = c[kGallX], ay = c[kGallY];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = gx_delta_fast(p[0] - lam0) * ax;
    p[1] = std::tan(p[1] * 0.5) * ay;
  }
  return n;
}

int32_t gx_gall_stereographic_inverse(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles) {
  if (n < 1) return 0;
  double local[kGallCount];
  const double* c = gx_layout(doubles, local, gall_setup, sphere, parms, GX_SERIES_INVERSE);
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ax = c[kGallX], ay = c[kGallY];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[1] = std::atan2(p[1], ay) * 2.0;
    p[0] = gx_delta_fast(p[0] / ax + lam0);
  }
  return n;
}

int32_t gx_gall_stereographic_constants(gx_constants* block, const double* sphere,
                                        const double* parms) {
  return gx_layout_load(block, kGallCount, gall_setup, sphere, parms);
}
