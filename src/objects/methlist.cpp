// The method list, in table order, closed by code 0.
#include "objects/methlist.h"

#include "frame/text.h"

namespace {

constexpr const char* kEpsg = "EPSG";
constexpr const char* kEpsgVersion = "6.13";
constexpr const char* kOrva = "ORVA";
constexpr const char* kOrvaVersion = "9.3.0";

constexpr gx_method_row rows[] = {
    {9601, kEpsg, kEpsgVersion, "Longitude_Rotation", gx_method_longitude_rotation,
     gx_method_longitude_rotation, nullptr},
    {109607, kOrva, kOrvaVersion, "Bursa_Wolf", gx_method_bursa_wolf_forward,
     gx_method_bursa_wolf_inverse, nullptr},
    {9606, kEpsg, kEpsgVersion, "Position_Vector", gx_method_position_vector_forward,
     gx_method_position_vector_inverse, nullptr},
    {9607, kEpsg, kEpsgVersion, "Coordinate_Frame", gx_method_bursa_wolf_forward,
     gx_method_bursa_wolf_inverse, nullptr},
    {9603, kEpsg, kEpsgVersion, "Geocentric_Translation", gx_method_geocentric_translation_forward,
     gx_method_geocentric_translation_inverse, nullptr},
    {9604, kEpsg, kEpsgVersion, "Molodensky", gx_method_molodensky_forward,
     gx_method_molodensky_inverse, nullptr},
    {9605, kEpsg, kEpsgVersion, "Molodensky_Abridged", gx_method_molodensky_abridged_forward,
     gx_method_molodensky_abridged_inverse, nullptr},
    {9636, kEpsg, kEpsgVersion, "Molodensky_Badekas", gx_method_molodensky_badekas_forward,
     gx_method_molodensky_badekas_inverse, nullptr},
    {9613, kEpsg, kEpsgVersion, "NADCON", gx_method_nadcon_forward, gx_method_nadcon_inverse,
     gx_method_nadcon_load},
    {109613, kOrva, kOrvaVersion, "HARN", gx_method_harn_forward, gx_method_harn_inverse,
     gx_method_harn_load},
    {9615, kEpsg, kEpsgVersion, "NTv2", gx_method_ntv2_forward, gx_method_ntv2_inverse,
     gx_method_ntv2_load},
    {0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
};

constexpr int32_t row_count = static_cast<int32_t>(sizeof rows / sizeof rows[0]) - 1;

// The old-name table of methods is part of the design and has no rows.
constexpr gx_alias old_names[] = {{nullptr, nullptr}};

}  // namespace

const gx_method_row* gx_methlist_rows() { return rows; }
int32_t gx_methlist_count() { return row_count; }

const gx_method_row* gx_methlist_row_from_name(const char* name) {
  const char* current = gx_alias_lookup(old_names, name);
  for (int32_t i = 0; i < row_count; ++i)
    if (gx_name_compare(rows[i].name, current) == 0) return &rows[i];
  return nullptr;
}

const gx_method_row* gx_methlist_row_from_code(int32_t code) {
  for (int32_t i = 0; i < row_count; ++i)
    if (rows[i].code == code) return &rows[i];
  return nullptr;
}
