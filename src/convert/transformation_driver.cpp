// Geographic to geographic through a transformation's method: units, prime
// meridians and the method's parameters are handled here, so that a method
// function sees radians and a vector of metres, radians and a ratio.
#include <cstring>

#include "frame/constants.h"
#include "frame/object.h"
#include "gx_convert.h"
#include "gx_geodesy.h"
#include "objects/families.h"
#include "objects/methlist.h"

namespace {

constexpr double kDegree = 0.017453292519943295;
constexpr double kArcSecond = 4.84813681109536e-6;
constexpr double kPartsPerMillion = 1e-6;

enum : int32_t {
  kLongitudeRotation = 9601,
  kNadcon = 9613,
  kNtv2 = 9615,
  kHarn = 109613,
};

struct gx_side {
  double sphere[2];
  double unit;             // radians per unit
  double prime_meridian;   // radians
  bool apply_prime_meridian;
};

gx_side side_of(const gx_geogcs* geogcs) {
  gx_side side;
  const gx_spheroid* spheroid = gx_datum_spheroid(gx_geogcs_datum(geogcs));
  double f = gx_spheroid_flattening(spheroid);
  side.sphere[0] = gx_spheroid_axis(spheroid);
  side.sphere[1] = (2.0 - f) * f;
  side.unit = gx_unit_factor(gx_geogcs_unit(geogcs));
  side.prime_meridian = gx_primem_longitude(gx_geogcs_primem(geogcs)) * kDegree;
  side.apply_prime_meridian = false;
  return side;
}

// What a method function gets beside the coordinates.
struct gx_method_call {
  double parms[16] = {};
  const char* dataset = nullptr;
  int32_t* ints = nullptr;
  void* values = nullptr;
  double* doubles = nullptr;
  char dataset_name[GX_NAME_SIZE] = {};
};

// Rotations from arc-seconds to radians, scale from parts per million.
void fill_formula_vector(gx_geogtran* tran, gx_method_call* call) {
  gx_parameter* parameters[16];
  gx_geogtran_parameters(tran, parameters);
  for (int slot = 0; slot < 16; ++slot) call->parms[slot] = gx_parameter_value(parameters[slot]);
  for (int slot = 3; slot <= 5; ++slot) call->parms[slot] *= kArcSecond;
  call->parms[6] *= kPartsPerMillion;
}

// A grid method needs its loaded block and a data set name; false when
// either is missing.
bool prepare_grid(gx_geogtran* tran, gx_method_call* call) {
  if (!gx_geogtran_isconstloaded(tran)) gx_geogtran_load_constants(tran);
  gx_constants* block = gx_geogtran_constants(tran);
  gx_parameter* parameters[16];
  gx_geogtran_parameters(tran, parameters);
  if (block == nullptr || parameters[15] == nullptr) return false;
  gx_parameter_name(parameters[15], call->dataset_name);
  if (call->dataset_name[0] == '\0') return false;
  call->dataset = call->dataset_name;
  call->ints = gx_constants_ints(block);
  call->values = gx_constants_values(block);
  call->doubles = gx_constants_doubles(block);
  return true;
}

void to_radians(int32_t n, double* coords, const gx_side& side) {
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    p[1] = p[1] * side.unit;
    p[0] = p[0] * side.unit;
    if (side.apply_prime_meridian) p[0] = gx_delta(p[0] + side.prime_meridian);
  }
}

void from_radians(int32_t n, double* coords, const gx_side& side) {
  double inverse = 1.0 / side.unit;
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    if (side.apply_prime_meridian) p[0] = gx_delta(p[0] - side.prime_meridian);
    p[1] = p[1] * inverse;
    p[0] = p[0] * inverse;
  }
}

}  // namespace

extern "C" {

GX_API int32_t gx_geog_to_geog(gx_geogtran* tran, int32_t n, double* coords, double* z,
                               int32_t direction) {
  gx_side side1 = side_of(gx_geogtran_geogcs1(tran));
  gx_side side2 = side_of(gx_geogtran_geogcs2(tran));
  const gx_method* method = gx_geogtran_method(tran);
  gx_method_call call;
  int32_t code = gx_object_code(method);
  if (code == kLongitudeRotation) {
    if (!gx_datum_eq(gx_geogcs_datum(gx_geogtran_geogcs1(tran)),
                     gx_geogcs_datum(gx_geogtran_geogcs2(tran))))
      return 0;
    call.parms[5] = direction == 0 ? side1.prime_meridian - side2.prime_meridian
                                   : side2.prime_meridian - side1.prime_meridian;
  } else if (code == kNadcon || code == kNtv2 || code == kHarn) {
    if (!prepare_grid(tran, &call)) return 0;
  } else {
    fill_formula_vector(tran, &call);
    side1.apply_prime_meridian = side1.prime_meridian != 0.0;
    side2.apply_prime_meridian = side2.prime_meridian != 0.0;
  }
  const gx_side& from = direction == 0 ? side1 : side2;
  const gx_side& to = direction == 0 ? side2 : side1;
  gx_method_fn function = direction == 0 ? gx_method_forward(method) : gx_method_inverse(method);
  to_radians(n, coords, from);
  int32_t r = function(side1.sphere, side2.sphere, call.parms, call.dataset, n, coords, z,
                       call.ints, call.values, call.doubles);
  if (n < 1) return r;
  from_radians(n, coords, to);
  return r;
}

GX_API int32_t gx_geog1_to_geog2(gx_geogtran* tran, int32_t n, double* coords, double* z) {
  return gx_geog_to_geog(tran, n, coords, z, 0);
}

GX_API int32_t gx_geog2_to_geog1(gx_geogtran* tran, int32_t n, double* coords, double* z) {
  return gx_geog_to_geog(tran, n, coords, z, 1);
}

}  // extern "C"
