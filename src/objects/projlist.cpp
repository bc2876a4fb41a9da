// The projection list: every projection with its functions, in table order.
#include "objects/projlist.h"

#include "frame/text.h"
#include "horizon/horizon.h"
#include "projections/apart.h"
#include "projections/auxiliary_sphere.h"
#include "projections/azimuthal.h"
#include "projections/cylindrical.h"
#include "projections/points.h"
#include "projections/transverse_mercator.h"
#include "projections/world.h"

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
    {43005, kOrva, kVersion, "Gauss_Kruger", gx_transverse_mercator_forward,
     gx_transverse_mercator_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_transverse_mercator_constants},
    {43006, kOrva, kVersion, "Transverse_Mercator", gx_transverse_mercator_forward,
     gx_transverse_mercator_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_transverse_mercator_constants},
    {43056, kOrva, kVersion, "Transverse_Mercator_Complex", gx_transverse_mercator_complex_forward,
     gx_transverse_mercator_complex_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_transverse_mercator_complex_constants},
    {43008, kOrva, kVersion, "Sinusoidal", gx_sinusoidal_forward, gx_sinusoidal_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, gx_sinusoidal_constants},
    {43009, kOrva, kVersion, "Mollweide", gx_mollweide_forward, gx_mollweide_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, gx_mollweide_constants},
    {43109, kOrva, kVersion, "Mollweide_Auxiliary_Sphere", gx_mollweide_auxiliary_sphere_forward,
     gx_mollweide_auxiliary_sphere_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_mollweide_auxiliary_sphere_constants},
    {43010, kOrva, kVersion, "Eckert_VI", gx_eckert_vi_forward, gx_eckert_vi_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43110, kOrva, kVersion, "Eckert_VI_Auxiliary_Sphere", gx_eckert_vi_auxiliary_sphere_forward,
     gx_eckert_vi_auxiliary_sphere_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_eckert_vi_auxiliary_sphere_constants},
    {43011, kOrva, kVersion, "Eckert_V", gx_eckert_v_forward, gx_eckert_v_inverse, gx_horizon_world,
     nullptr, nullptr, nullptr, nullptr},
    {43012, kOrva, kVersion, "Eckert_IV", gx_eckert_iv_forward, gx_eckert_iv_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43112, kOrva, kVersion, "Eckert_IV_Auxiliary_Sphere", gx_eckert_iv_auxiliary_sphere_forward,
     gx_eckert_iv_auxiliary_sphere_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_eckert_iv_auxiliary_sphere_constants},
    {43013, kOrva, kVersion, "Eckert_III", gx_eckert_iii_forward, gx_eckert_iii_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43014, kOrva, kVersion, "Eckert_II", gx_eckert_ii_forward, gx_eckert_ii_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43015, kOrva, kVersion, "Eckert_I", gx_eckert_i_forward, gx_eckert_i_inverse, gx_horizon_world,
     nullptr, nullptr, nullptr, nullptr},
    {43016, kOrva, kVersion, "Gall_Stereographic", gx_gall_stereographic_forward,
     gx_gall_stereographic_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_gall_stereographic_constants},
    {43017, kOrva, kVersion, "Behrmann", gx_behrmann_forward, gx_behrmann_inverse, gx_horizon_world,
     nullptr, nullptr, nullptr, gx_behrmann_constants},
    {43018, kOrva, kVersion, "Winkel_I", gx_winkel_i_forward, gx_winkel_i_inverse, gx_horizon_world,
     nullptr, nullptr, nullptr, nullptr},
    {43019, kOrva, kVersion, "Winkel_II", gx_winkel_ii_forward, gx_winkel_ii_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43022, kOrva, kVersion, "Quartic_Authalic", gx_quartic_authalic_forward,
     gx_quartic_authalic_inverse, gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43023, kOrva, kVersion, "Loximuthal", gx_loximuthal_forward, gx_loximuthal_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43026, kOrva, kVersion, "Stereographic", gx_stereographic_forward, gx_stereographic_inverse,
     nullptr, nullptr, nullptr, nullptr, gx_stereographic_constants},
    {43126, kOrva, kVersion, "Stereographic_Auxiliary_Sphere",
     gx_stereographic_auxiliary_sphere_forward, gx_stereographic_auxiliary_sphere_inverse, nullptr,
     nullptr, nullptr, nullptr, gx_stereographic_auxiliary_sphere_constants},
    {43050, kOrva, kVersion, "Stereographic_North_Pole", gx_stereographic_north_pole_forward,
     gx_stereographic_north_pole_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_stereographic_north_pole_constants},
    {43051, kOrva, kVersion, "Stereographic_South_Pole", gx_stereographic_south_pole_forward,
     gx_stereographic_south_pole_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_stereographic_south_pole_constants},
    {43028, kOrva, kVersion, "Cassini", gx_cassini_forward, gx_cassini_inverse, nullptr, nullptr,
     nullptr, nullptr, gx_cassini_constants},
    {43029, kOrva, kVersion, "Van_der_Grinten_I", gx_van_der_grinten_i_forward,
     gx_van_der_grinten_i_inverse, gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43129, kOrva, kVersion, "Van_der_Grinten_I_Auxiliary_Sphere",
     gx_van_der_grinten_i_auxiliary_sphere_forward, gx_van_der_grinten_i_auxiliary_sphere_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, gx_van_der_grinten_i_auxiliary_sphere_constants},
    {43030, kOrva, kVersion, "Robinson", gx_robinson_forward, gx_robinson_inverse, gx_horizon_world,
     nullptr, nullptr, nullptr, gx_robinson_constants},
    {43057, kOrva, kVersion, "Robinson_TELMAR", gx_robinson_telmar_forward,
     gx_robinson_telmar_inverse, gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43031, kOrva, kVersion, "Two_Point_Equidistant", gx_two_point_equidistant_forward,
     gx_two_point_equidistant_inverse, nullptr, nullptr, nullptr, nullptr, nullptr},
    {43032, kOrva, kVersion, "Azimuthal_Equidistant", gx_azimuthal_equidistant_forward,
     gx_azimuthal_equidistant_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_azimuthal_equidistant_constants},
    {43132, kOrva, kVersion, "Azimuthal_Equidistant_Auxiliary_Sphere",
     gx_azimuthal_equidistant_auxiliary_sphere_forward,
     gx_azimuthal_equidistant_auxiliary_sphere_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_azimuthal_equidistant_auxiliary_sphere_constants},
    {43033, kOrva, kVersion, "Lambert_Azimuthal_Equal_Area",
     gx_lambert_azimuthal_equal_area_forward, gx_lambert_azimuthal_equal_area_inverse, nullptr,
     nullptr, nullptr, nullptr, gx_lambert_azimuthal_equal_area_constants},
    {43133, kOrva, kVersion, "Lambert_Azimuthal_Equal_Area_Auxiliary_Sphere",
     gx_lambert_azimuthal_equal_area_auxiliary_sphere_forward,
     gx_lambert_azimuthal_equal_area_auxiliary_sphere_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_lambert_azimuthal_equal_area_auxiliary_sphere_constants},
    {43034, kOrva, kVersion, "Cylindrical_Equal_Area", gx_cylindrical_equal_area_forward,
     gx_cylindrical_equal_area_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_cylindrical_equal_area_constants},
    {43038, kOrva, kVersion, "Double_Stereographic", gx_double_stereographic_forward,
     gx_double_stereographic_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_double_stereographic_constants},
    {43040, kOrva, kVersion, "New_Zealand_Map_Grid", gx_new_zealand_map_grid_forward,
     gx_new_zealand_map_grid_inverse, nullptr, nullptr, nullptr, nullptr, nullptr},
    {43041, kOrva, kVersion, "Orthographic", gx_orthographic_forward, gx_orthographic_inverse,
     nullptr, nullptr, nullptr, nullptr, nullptr},
    {43141, kOrva, kVersion, "Orthographic_Auxiliary_Sphere",
     gx_orthographic_auxiliary_sphere_forward, gx_orthographic_auxiliary_sphere_inverse, nullptr,
     nullptr, nullptr, nullptr, gx_orthographic_auxiliary_sphere_constants},
    {43042, kOrva, kVersion, "Winkel_Tripel", gx_winkel_tripel_forward, gx_winkel_tripel_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, gx_winkel_tripel_constants},
    {43043, kOrva, kVersion, "Aitoff", gx_aitoff_forward, gx_aitoff_inverse, gx_horizon_world,
     nullptr, nullptr, nullptr, nullptr},
    {43044, kOrva, kVersion, "Hammer_Aitoff", gx_hammer_aitoff_forward, gx_hammer_aitoff_inverse,
     gx_horizon_world, nullptr, nullptr, nullptr, nullptr},
    {43045, kOrva, kVersion, "Flat_Polar_Quartic", gx_flat_polar_quartic_forward,
     gx_flat_polar_quartic_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_flat_polar_quartic_constants},
    {43046, kOrva, kVersion, "Craster_Parabolic", gx_craster_parabolic_forward,
     gx_craster_parabolic_inverse, gx_horizon_world, nullptr, nullptr, nullptr,
     gx_craster_parabolic_constants},
    {43047, kOrva, kVersion, "Gnomonic", gx_gnomonic_forward, gx_gnomonic_inverse, nullptr, nullptr,
     nullptr, nullptr, gx_gnomonic_constants},
    {43147, kOrva, kVersion, "Gnomonic_Auxiliary_Sphere", gx_gnomonic_auxiliary_sphere_forward,
     gx_gnomonic_auxiliary_sphere_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_gnomonic_auxiliary_sphere_constants},
    {43048, kOrva, kVersion, "Times", gx_times_forward, gx_times_inverse, gx_horizon_world, nullptr,
     nullptr, nullptr, gx_times_constants},
    {43049, kOrva, kVersion, "Vertical_Near_Side_Perspective",
     gx_vertical_near_side_perspective_forward, gx_vertical_near_side_perspective_inverse, nullptr,
     nullptr, nullptr, nullptr, gx_vertical_near_side_perspective_constants},
    {43058, kOrva, kVersion, "Local", gx_local_forward, gx_local_inverse, nullptr, nullptr, nullptr,
     nullptr, gx_local_constants},
    {43059, kOrva, kVersion, "Goode_Homolosine", gx_goode_homolosine_forward,
     gx_goode_homolosine_inverse, nullptr, nullptr, nullptr, nullptr,
     gx_goode_homolosine_constants},
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
