// The parameter table and its look-ups.
#include "objects/parmlist.h"

#include <cstring>

#include "frame/diagnostics.h"
#include "frame/object.h"
#include "frame/text.h"

namespace {

constexpr const char* ORVA = "ORVA";
constexpr const char* V930 = "9.3.0";

constexpr uint32_t PCS = GX_TYPE_PROJCS;
constexpr uint32_t GTR = GX_TYPE_GEOGTRAN;
constexpr uint32_t VTR = GX_TYPE_VERTTRAN;
constexpr uint32_t VCS = GX_TYPE_VERTCS;

// Searched from the first row: where two names share a slot, both rows stay.
constexpr gx_parmlist_row rows[] = {
    {100001, ORVA, V930, "False_Easting", 0.0, 0, PCS},
    {100002, ORVA, V930, "False_Northing", 0.0, 1, PCS},
    {100010, ORVA, V930, "Central_Meridian", 0.0, 2, PCS},
    {100011, ORVA, V930, "Longitude_Of_Origin", 0.0, 2, PCS},
    {100025, ORVA, V930, "Standard_Parallel_1", 60.0, 3, PCS},
    {100026, ORVA, V930, "Standard_Parallel_2", 60.0, 4, PCS},
    {100003, ORVA, V930, "Scale_Factor", 1.0, 5, PCS},
    {100020, ORVA, V930, "Central_Parallel", 0.0, 6, PCS},
    {100021, ORVA, V930, "Latitude_Of_Origin", 0.0, 6, PCS},
    {100004, ORVA, V930, "Azimuth", 45.0, 7, PCS},
    {100005, ORVA, V930, "Height", 0.0, 15, PCS},
    {100036, ORVA, V930, "Option", 0.0, 15, PCS},
    {100023, ORVA, V930, "Latitude_Of_1st_Point", 0.0, 3, PCS},
    {100024, ORVA, V930, "Latitude_Of_2nd_Point", 60.0, 4, PCS},
    {100013, ORVA, V930, "Longitude_Of_1st_Point", 0.0, 8, PCS},
    {100014, ORVA, V930, "Longitude_Of_2nd_Point", 60.0, 9, PCS},
    {100012, ORVA, V930, "Longitude_Of_Center", -75.0, 10, PCS},
    {100022, ORVA, V930, "Latitude_Of_Center", 40.0, 11, PCS},
    {100027, ORVA, V930, "Pseudo_Standard_Parallel_1", 60.0, 3, PCS},
    {100039, ORVA, V930, "XY_Plane_Rotation", 0.0, 14, PCS},
    {100037, ORVA, V930, "X_Scale", 1.0, 12, PCS},
    {100038, ORVA, V930, "Y_Scale", 1.0, 13, PCS},
    {100035, ORVA, V930, "Auxiliary_Sphere_Type", 0.0, 12, PCS},
    {100040, ORVA, V930, "X_Axis_Translation", 0.0, 0, GTR},
    {100041, ORVA, V930, "Y_Axis_Translation", 0.0, 1, GTR},
    {100042, ORVA, V930, "Z_Axis_Translation", 0.0, 2, GTR},
    {100043, ORVA, V930, "X_Axis_Rotation", 0.0, 3, GTR},
    {100044, ORVA, V930, "Y_Axis_Rotation", 0.0, 4, GTR},
    {100045, ORVA, V930, "Z_Axis_Rotation", 0.0, 5, GTR},
    {100046, ORVA, V930, "Scale_Difference", 0.0, 6, GTR},
    {100048, ORVA, V930, "X_Coordinate_of_Rotation_Origin", 0.0, 7, GTR},
    {100049, ORVA, V930, "Y_Coordinate_of_Rotation_Origin", 0.0, 8, GTR},
    {100050, ORVA, V930, "Z_Coordinate_of_Rotation_Origin", 0.0, 9, GTR},
    {100047, ORVA, V930, "Dataset_", 0.0, 15, GTR | VTR},
    {100060, ORVA, V930, "Vertical_Offset", 0.0, 0, VTR},
    {100061, ORVA, V930, "Latitude_Of_Evaluation", 0.0, 6, VTR},
    {100062, ORVA, V930, "Longitude_Of_Evaluation", 0.0, 2, VTR},
    {100063, ORVA, V930, "Inclination_North", 0.0, 13, VTR},
    {100064, ORVA, V930, "Inclination_East", 0.0, 14, VTR},
    {100006, ORVA, V930, "Vertical_Shift", 0.0, 0, VCS},
    {100007, ORVA, V930, "Direction", 1.0, 1, VCS},
};

constexpr int32_t row_count = static_cast<int32_t>(sizeof rows / sizeof rows[0]);
static_assert(row_count == 41, "the parameter table has 41 rows");

constexpr bool codes_unique() {
  for (int32_t i = 0; i < row_count; ++i)
    for (int32_t j = i + 1; j < row_count; ++j)
      if (rows[i].code == rows[j].code) return false;
  return true;
}
static_assert(codes_unique(), "parameter factory codes are unique");

constexpr bool slots_in_range() {
  for (const gx_parmlist_row& row : rows)
    if (row.slot < 0 || row.slot > 15) return false;
  return true;
}
static_assert(slots_in_range(), "parameter slots are 0 to 15");

// Old parameter names: none so far, but names pass through here first.
constexpr gx_alias parameter_aliases[] = {
    {nullptr, nullptr},
};

// Row 100047 also stands for every "Dataset_<file>" name.
constexpr int32_t kDatasetCode = 100047;
constexpr size_t kDatasetPrefixLength = 8;

bool dataset_name_p(const char* name) {
  if (std::strlen(name) <= kDatasetPrefixLength) return false;
  char head[kDatasetPrefixLength + 1];
  gx_name_copy(head, name, sizeof head);
  return gx_name_compare(head, GX_DATASET_PREFIX) == 0;
}

}  // namespace

const char* gx_parmlist_alias_lookup(const char* name) {
  return gx_alias_lookup(parameter_aliases, name);
}

const gx_parmlist_row* gx_parmlist_row_named(const char* name) {
  for (const gx_parmlist_row& row : rows)
    if (gx_name_compare(row.name, name) == 0) return &row;
  return nullptr;
}

const gx_parmlist_row* gx_parmlist_row_from_name(const char* name) {
  if (name == nullptr) return nullptr;
  name = gx_parmlist_alias_lookup(name);
  if (const gx_parmlist_row* row = gx_parmlist_row_named(name)) return row;
  return dataset_name_p(name) ? gx_parmlist_row_from_code(kDatasetCode) : nullptr;
}

const gx_parmlist_row* gx_parmlist_row_from_code(int32_t code) {
  for (const gx_parmlist_row& row : rows)
    if (row.code == code) return &row;
  return nullptr;
}

const gx_parmlist_row* gx_parmlist_row_at(int32_t index) {
  return index >= 0 && index < row_count ? &rows[index] : nullptr;
}

gx_parameter* gx_parmlist_parameter_from_code(int32_t code) {
  gx_errext record;
  gx_errext_clear(&record);
  const gx_parmlist_row* row = gx_parmlist_row_from_code(code);
  if (row == nullptr) {
    gx_report(&record, 218, "gx_parmlist_parameter_from_code", code);
    return nullptr;
  }
  gx_parameter* obj = gx_parameter_new_errext(row->name, row->default_value, &record);
  if (obj == nullptr) return nullptr;
  gx_object_status_set(obj, GX_STATUS_CODE);
  gx_object_code_set(obj, row->code, row->authname, row->version);
  return obj;
}
