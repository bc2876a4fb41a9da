// The projection list: every projection with its functions, in table order.
#include "objects/projlist.h"

#include "frame/text.h"
#include "horizon/horizon.h"
#include "projections/auxiliary_sphere.h"
#include "projections/cylindrical.h"

namespace {

constexpr const char* kOrva = "ORVA";
constexpr const char* kVersion = "9.3.0";

// Rows enter as their functions exist; the list is closed by code 0.
constexpr gx_projection_row rows[] = {
    {43001, kOrva, kVersion, "Plate_Carree", gx_plate_carree_forward, gx_plate_carree_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43002, kOrva, kVersion, "Equidistant_Cylindrical", gx_equidistant_cylindrical_forward,
     gx_equidistant_cylindrical_inverse, gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43102, kOrva, kVersion, "Equidistant_Cylindrical_Auxiliary_Sphere",
     gx_equidistant_cylindrical_auxiliary_sphere_forward,
     gx_equidistant_cylindrical_auxiliary_sphere_inverse, gx_horizon_world, nullptr, nullptr,
     nullptr, gx_equidistant_cylindrical_auxiliary_sphere_constants},
    {43003, kOrva, kVersion, "Miller_Cylindrical", gx_miller_cylindrical_forward,
     gx_miller_cylindrical_inverse, gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43103, kOrva, kVersion, "Miller_Cylindrical_Auxiliary_Sphere",
     gx_miller_cylindrical_auxiliary_sphere_forward, gx_miller_cylindrical_auxiliary_sphere_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, gx_miller_cylindrical_auxiliary_sphere_constants},
    {43004, kOrva, kVersion, "Mercator", gx_mercator_forward, gx_mercator_inverse, nullptr, nullptr,
     nullptr, nullptr, gx_mercator_constants},
    {43104, kOrva, kVersion, "Mercator_Auxiliary_Sphere", gx_mercator_auxiliary_sphere_forward,
     gx_mercator_auxiliary_sphere_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_mercator_auxiliary_sphere_constants},
    {43016, kOrva, kVersion, "Gall_Stereographic", gx_gall_stereographic_forward,
     gx_gall_stereographic_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_gall_stereographic_constants},
    {43017, kOrva, kVersion, "Behrmann", gx_behrmann_forward, gx_behrmann_inverse, gx_horizon_world,
     nullptr, nullptr, nullptr, gx_behrmann_constants},
    {43034, kOrva, kVersion, "Cylindrical_Equal_Area", gx_cylindrical_equal_area_forward,
     gx_cylindrical_equal_area_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_cylindrical_equal_area_constants},
    {0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
};

constexpr int32_t row_count = static_cast<int32_t>(sizeof rows / sizeof rows[0]) - 1;

// Old projection names, read and never written again.
constexpr gx_alias old_names[] = {
    {"Albers_Equal_Area_Conic", "Albers"},
    {"Albers_Conical_Equal_Area", "Albers"},
    {"Gall", "Gall_Stereographic"},
    {"Hotine_Oblique_Mercator", "Hotine_Oblique_Mercator_Azimuth_Natural_Origin"},
    {"Lambert_Conformal_Conic_1SP", "Lambert_Conformal_Conic"},
    {"Lambert_Conformal_Conic_2SP", "Lambert_Conformal_Conic"},
    {nullptr, nullptr},
};

constexpr bool codes_unique() {
  for (int32_t i = 0; i < row_count; ++i)
    for (int32_t j = i + 1; j < row_count; ++j)
      if (rows[i].code == rows[j].code) return false;
  return true;
}
static_assert(codes_unique(), "every projection code stands once in the list");

}  // namespace

const gx_projection_row* gx_projlist_rows() { return rows; }
int32_t gx_projlist_count() { return row_count; }

const gx_projection_row* gx_projlist_row_from_name(const char* name) {
  const char* current = gx_alias_lookup(old_names, name);
  for (int32_t i = 0; i < row_count; ++i)
    if (gx_name_compare(rows[i].name, current) == 0) return &rows[i];
  return nullptr;
}

const gx_projection_row* gx_projlist_row_from_code(int32_t code) {
  for (int32_t i = 0; i < row_count; ++i)
    if (rows[i].code == code) return &rows[i];
  return nullptr;
}
