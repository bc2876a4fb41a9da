// The sphere pair and parameter vector of a projected system.
#include "convert/projcs_setup.h"

#include "frame/text.h"

namespace {

enum class gx_slot_unit : unsigned char { none, angular, linear };

// What each slot of the vector is taken to (slot 15 is linear only when it
// holds Height, never Option).
constexpr gx_slot_unit slot_units[GX_PARM_COUNT] = {
    gx_slot_unit::linear,  gx_slot_unit::linear,  gx_slot_unit::angular, gx_slot_unit::angular,
    gx_slot_unit::angular, gx_slot_unit::none,    gx_slot_unit::angular, gx_slot_unit::angular,
    gx_slot_unit::angular, gx_slot_unit::angular, gx_slot_unit::angular, gx_slot_unit::angular,
    gx_slot_unit::none,    gx_slot_unit::none,    gx_slot_unit::angular, gx_slot_unit::none,
};

bool holds_height(const gx_parameter* parameter) {
  char name[GX_NAME_SIZE];
  return parameter != nullptr && gx_name_compare(gx_parameter_name(parameter, name), "Height") == 0;
}

}  // namespace

void gx_projcs_setup_build(const gx_projcs* projcs, gx_projcs_setup* setup) {
  const gx_geogcs* geogcs = gx_projcs_geogcs(projcs);
  const gx_spheroid* spheroid = gx_datum_spheroid(gx_geogcs_datum(geogcs));
  double g = gx_unit_factor(gx_geogcs_unit(geogcs));
  double u = gx_unit_factor(gx_projcs_unit(projcs));
  setup->angular_factor = g;
  setup->linear_factor = u;

  double f = gx_spheroid_flattening(spheroid);
  setup->sphere[0] = gx_spheroid_axis(spheroid);
  setup->sphere[1] = (2.0 - f) * f;

  gx_parameter* parameters[GX_PARM_COUNT];
  gx_projcs_parameters(projcs, parameters);
  double* parms = setup->parms;
  for (int slot = 0; slot < GX_PARM_COUNT; ++slot) {
    parms[slot] = gx_parameter_value(parameters[slot]);
    if (slot_units[slot] == gx_slot_unit::angular) parms[slot] *= g;
    if (slot_units[slot] == gx_slot_unit::linear) parms[slot] *= u;
  }
  if (holds_height(parameters[GX_PARM_HEIGHT])) parms[GX_PARM_HEIGHT] *= u;

  // The driver's only defaults: they depend on the parameter being absent.
  if (parameters[GX_PARM_SCALE_FACTOR] == nullptr) parms[GX_PARM_SCALE_FACTOR] = 1.0;
  if (parameters[GX_PARM_STANDARD_PARALLEL_2] == nullptr)
    parms[GX_PARM_STANDARD_PARALLEL_2] = parms[GX_PARM_STANDARD_PARALLEL_1];
  if (parameters[GX_PARM_X_SCALE] == nullptr) parms[GX_PARM_X_SCALE] = 1.0;
  if (parameters[GX_PARM_Y_SCALE] == nullptr) parms[GX_PARM_Y_SCALE] = 1.0;
}
