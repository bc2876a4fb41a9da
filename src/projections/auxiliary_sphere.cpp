// The one wrapper that every auxiliary sphere twin goes through.
#include "projections/auxiliary_sphere.h"

namespace {

// The type codes of Auxiliary_Sphere_Type.
constexpr int kSemiMajorRadius = 0;
constexpr int kSemiMinorRadius = 1;
constexpr int kAuthalicRadiusOnly = 2;
constexpr int kAuthalicSphere = 3;
constexpr int kTypeCount = 4;
// Added before truncation, so that 2.9995 still reads as 3.
constexpr double kTypeRounding = 0.001;

// The type in slot 12; anything outside the four codes (a NaN included)
// behaves as the semi-major radius.
int sphere_type(const double* parms) {
  double v = parms[GX_PARM_X_SCALE] + kTypeRounding;
  if (!(v >= 0.0 && v < kTypeCount)) return kSemiMajorRadius;
  return static_cast<int>(v);
}

// Radius of the local sphere for a type.
double local_radius(int type, const double* sphere) {
  double a = sphere[0], e2 = sphere[1];
  switch (type) {
    case kSemiMinorRadius:
      return std::sqrt(1.0 - e2) * a;
    case kAuthalicRadiusOnly:
    case kAuthalicSphere:
      return gx_auth_r(a, e2);
    default:
      return a;
  }
}

// The authalic table: after the twin's leading doubles in the block, or
// built whole in `stack` on the route without constants.
const double* authalic_table(const gx_twin* twin, double e2, const double* doubles,
                             double* stack) {
  if (doubles != nullptr) return doubles + twin->leading;
  gx_beta_series_init(e2, stack, GX_SERIES_BOTH);
  return stack;
}

// Type 3 puts the base's latitude parameter, if it has one, on the
// authalic sphere too.
void make_slot_authalic(const gx_twin* twin, double e2, double* parms, const double* table) {
  if (twin->latitude_slot < 0) return;
  parms[twin->latitude_slot] = gx_phi_to_beta_c(e2, parms[twin->latitude_slot], table);
}

void latitudes_to_authalic(double e2, const double* table, int32_t n, double* coords) {
  for (double* p = coords; p < coords + 2 * n; p += 2) p[1] = gx_phi_to_beta_c(e2, p[1], table);
}

void latitudes_to_geodetic(double e2, const double* table, int32_t n, double* coords) {
  for (double* p = coords; p < coords + 2 * n; p += 2) p[1] = gx_beta_to_phi_c(e2, p[1], table);
}

}  // namespace

int32_t gx_twin_forward(const gx_twin* twin, const double* sphere, double* parms, int32_t n,
                        double* coords, const int32_t* ints, const double* doubles) {
  if (gx_is_sphere(sphere)) return twin->forward(sphere, parms, n, coords, ints, doubles);
  const double e2 = sphere[1];
  const int type = sphere_type(parms);
  const double local[2] = {local_radius(type, sphere), 0.0};
  if (type != kAuthalicSphere) return twin->forward(local, parms, n, coords, ints, doubles);
  double stack[GX_BETA_TABLE_SIZE];
  const double* table = authalic_table(twin, e2, doubles, stack);
  make_slot_authalic(twin, e2, parms, table);
  if (n > 0) latitudes_to_authalic(e2, table, n, coords);
  int32_t result = twin->forward(local, parms, n, coords, ints, doubles);
  if (result == 0 && n > 0) latitudes_to_geodetic(e2, table, n, coords);
  return result;
}

int32_t gx_twin_inverse(const gx_twin* twin, const double* sphere, double* parms, int32_t n,
                        double* coords, const int32_t* ints, const double* doubles) {
  if (gx_is_sphere(sphere)) return twin->inverse(sphere, parms, n, coords, ints, doubles);
  const double e2 = sphere[1];
  const int type = sphere_type(parms);
  const double local[2] = {local_radius(type, sphere), 0.0};
  if (type != kAuthalicSphere) return twin->inverse(local, parms, n, coords, ints, doubles);
  double stack[GX_BETA_TABLE_SIZE];
  const double* table = authalic_table(twin, e2, doubles, stack);
  make_slot_authalic(twin, e2, parms, table);
  int32_t result = twin->inverse(local, parms, n, coords, ints, doubles);
  if (result != 0) latitudes_to_geodetic(e2, table, n, coords);
  return result;
}

int32_t gx_twin_constants(const gx_twin* twin, gx_constants* block, const double* sphere,
                          const double* parms) {
  const bool on_sphere = gx_is_sphere(sphere);
  const double e2 = sphere[1];
  const int type = on_sphere ? kSemiMajorRadius : sphere_type(parms);
  const bool with_table = type == kAuthalicSphere;
  const int32_t count = twin->leading + (with_table ? GX_TABLE_ROOM : 0);
  if (count < 1) return 0;
  double* doubles = gx_loader_doubles(block, count);
  if (doubles == nullptr) return 0;
  for (int32_t i = 0; i < count; ++i) doubles[i] = 0.0;
  double local_parms[GX_PARM_COUNT];
  for (int i = 0; i < GX_PARM_COUNT; ++i) local_parms[i] = parms[i];
  if (with_table) {
    double* table = doubles + twin->leading;
    gx_beta_series_init(e2, table, GX_SERIES_ALL);
    make_slot_authalic(twin, e2, local_parms, table);
  }
  const double local[2] = {local_radius(type, sphere), 0.0};
  if (twin->leading > 0) twin->setup(local, local_parms, GX_SERIES_ALL, doubles);
  return count;
}
