// The projection list: every projection with its functions, in table order.
#include "objects/projlist.h"

#include "frame/text.h"
#include "horizon/horizon.h"

namespace {

constexpr const char* kOrva = "ORVA";
constexpr const char* kVersion = "9.3.0";

// Rows enter as their functions exist; the list is closed by code 0.
constexpr gx_projection_row rows[] = {
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
