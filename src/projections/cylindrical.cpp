// The sphere-only normal cylinders: Plate_Carree (43001),
// Equidistant_Cylindrical (43002), Miller_Cylindrical (43003) and
// Gall_Stereographic (43016).  They use a as the radius whatever e2 says.
#include "projections/cylindrical.h"

namespace {

// The equidistant cylinders: x = dlam * xscale, y = phi * a.
constexpr int kRadius = 0;  // a
constexpr int kXScale = 1;  // a on the equator, cos(phi1) * a on phi1

// Miller's cylinder shrinks the latitude by 4/5, takes its Mercator value
// and stretches that by 5/4; its inverse undoes both.
constexpr double kMillerShrink = 0.4;
constexpr double kMillerStretch = 1.25;
constexpr double kMillerUnstretch = 0.8;
constexpr double kMillerUnshrink = 2.5;
constexpr double kMillerOffset = 1.9634954084936207;  // 2.5 * pi/4

// Gall's cylinder, secant at 45 degrees.
constexpr double kGallCos45 = 0.7071067811865475;
constexpr int kGallX = 0;  // a * cos(45 degrees)
constexpr int kGallY = 1;  // that plus a
constexpr int32_t kGallCount = 2;

void plate_carree_setup(const double* sphere, const double* parms, int mask, double* layout) {
  layout[kRadius] = sphere[0];
  layout[kXScale] = sphere[0];
}

// A standard parallel on a pole is not guarded: x collapses to 0 forward
// and the inverse divides by 0.
void equidistant_setup(const double* sphere, const double* parms, int mask, double* layout) {
  layout[kRadius] = sphere[0];
  layout[kXScale] = std::cos(parms[GX_PARM_STANDARD_PARALLEL_1]) * sphere[0];
}

int32_t equidistant_forward(const double* c, const double* sphere, const double* parms,
                            int32_t n, double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], a = c[kRadius], xscale = c[kXScale];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = gx_delta_fast(p[0] - lam0) * xscale;
    p[1] = p[1] * a;
  }
  return n;
}

int32_t equidistant_inverse(const double* c, const double* sphere, const double* parms,
                            int32_t n, double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  const double ra = 1.0 / c[kRadius], rx = 1.0 / c[kXScale];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[1] = p[1] * ra;
    p[0] = gx_delta_fast(p[0] * rx + lam0);
  }
  return n;
}

// Miller's cylinder derives nothing beyond a.
void miller_setup(const double* sphere, const double* parms, int mask, double* layout) {}

int32_t miller_forward(const double* c, const double* sphere, const double* parms, int32_t n,
                       double* coords) {
  const double a = sphere[0], lam0 = parms[GX_PARM_CENTRAL_MERIDIAN];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = gx_delta_fast(p[0] - lam0) * a;
    p[1] = std::log(std::tan(p[1] * kMillerShrink + GX_QUARTERPI)) * a * kMillerStretch;
  }
  return n;
}

int32_t miller_inverse(const double* c, const double* sphere, const double* parms, int32_t n,
                       double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ra = 1.0 / sphere[0];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[1] = std::atan(std::exp(p[1] * ra * kMillerUnstretch)) * kMillerUnshrink - kMillerOffset;
    p[0] = gx_delta_fast(p[0] * ra + lam0);
  }
  return n;
}

void gall_setup(const double* sphere, const double* parms, int mask, double* layout) {
  double a = sphere[0];
  layout[kGallX] = a * kGallCos45;
  layout[kGallY] = a * kGallCos45 + a;
}

int32_t gall_forward(const double* c, const double* sphere, const double* parms, int32_t n,
                     double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ax = c[kGallX], ay = c[kGallY];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[0] = gx_delta_fast(p[0] - lam0) * ax;
    p[1] = std::tan(p[1] * 0.5) * ay;
  }
  return n;
}

int32_t gall_inverse(const double* c, const double* sphere, const double* parms, int32_t n,
                     double* coords) {
  const double lam0 = parms[GX_PARM_CENTRAL_MERIDIAN], ax = c[kGallX], ay = c[kGallY];
  for (double* p = coords; p < coords + 2 * n; p += 2) {
    p[1] = std::atan2(p[1], ay) * 2.0;
    p[0] = gx_delta_fast(p[0] / ax + lam0);
  }
  return n;
}

}  // namespace

GX_DEFINE_PROJECTION_WITHOUT_LOADER(plate_carree, plate_carree_setup, equidistant_forward,
                                    equidistant_inverse)
GX_DEFINE_PROJECTION_WITHOUT_LOADER(equidistant_cylindrical, equidistant_setup,
                                    equidistant_forward, equidistant_inverse)
GX_DEFINE_PROJECTION_WITHOUT_LOADER(miller_cylindrical, miller_setup, miller_forward,
                                    miller_inverse)
GX_DEFINE_PROJECTION(gall_stereographic, gall_setup, gall_forward, GX_SERIES_FORWARD,
                     gall_inverse, GX_SERIES_INVERSE)
GX_DEFINE_LOADER(gall_stereographic, gall_setup, kGallCount, kGallCount)
