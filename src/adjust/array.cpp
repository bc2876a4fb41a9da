// gx_array: a named list of doubles, the coefficients of an adjusted
// system's fit.  It has no authority.
#include <cstdlib>
#include <cstring>

#include "adjust/htmethlist.h"
#include "frame/family.h"
#include "gx_geodesy.h"
#include "objects/families.h"

struct gx_array {
  gx_header head;
  int32_t num_values;  // at least 1
  double* values;      // owned
};

namespace {

constexpr const char* kNew = "gx_array_new";
constexpr const char* kFromString = "gx_array_from_string";
constexpr int32_t kMinTokens = 3;  // keyword, name, count
constexpr const char* kDefaultName = "Coefficients";

}  // namespace

template <>
struct gx_family<gx_array> {
  static constexpr uint32_t type = GX_TYPE_ARRAY;
  static constexpr const char* prefix = "gx_array";
  static constexpr const char* keyword = "ARRAY";
  static constexpr bool has_authority = false;

  static gx_array* copy(const gx_array* obj) {
    return gx_array_new(obj->head.name, obj->num_values, obj->values);
  }
  static void release(gx_array* obj) { gx_free(obj->values); }
  static bool equal(const gx_array* a, const gx_array* b) {
    if (gx_name_compare(a->head.name, b->head.name) != 0 || a->num_values != b->num_values)
      return false;
    for (int32_t i = 0; i < a->num_values; ++i)
      if (!gx_eq(a->values[i], b->values[i])) return false;
    return true;
  }
  // ARRAY["name",count,v1,...]: values in 16 significant digits, as many as
  // the buffer holds.
  static void print(const gx_array* obj, int, char* buffer) {
    gx_snprintf(buffer, GX_WKT_SIZE, "ARRAY[\"%s\",%d", obj->head.name, obj->num_values);
    for (int32_t i = 0; i < obj->num_values; ++i) {
      gx_number_text value(obj->values[i]);
      size_t length = std::strlen(buffer);
      gx_snprintf(buffer + length, GX_WKT_SIZE - length, ",%s", value.text);
    }
  }
  static gx_array* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next, gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_array, array)

// ARRAY["name",count,v1,...,vcount]: the count must match the values given.
gx_array* gx_family<gx_array>::from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                           gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens, kFromString,
                         GX_WKT_ALT_462))
    return nullptr;
  const char* count_text = gx_wkt_walk_value(&walk, start + 2);
  if (count_text == nullptr) {
    gx_report(walk.record, 448, kFromString);
    return nullptr;
  }
  int32_t count = std::atoi(count_text);
  double values[GX_WKT_MAX_TOKENS];
  int32_t found = 0;
  for (int32_t i = start + 3; i < walk.end; ++i)
    if (block->tokens[i].level == walk.level + 1) values[found++] = gx_atod(block->tokens[i].value);
  if (count != found) {
    gx_report(walk.record, 425, kFromString, count, found);
    return nullptr;
  }
  gx_array* obj = gx_array_new_errext(walk.name, count, values, walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<gx_array>::finish_parse(obj, &walk);
}

gx_array* gx_array_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next, gx_errext* record) {
  return gx_family<gx_array>::from_tokens(block, start, next, record);
}

extern "C" {

GX_API gx_array* gx_array_new_errext(const char* name, int32_t num_values, const double* values,
                                     gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (num_values < 1) {
    gx_report(record, 310, kNew, num_values);
    return nullptr;
  }
  if (values == nullptr) {
    gx_report(record, 326, kNew);
    return nullptr;
  }
  double* copy = static_cast<double*>(gx_alloc(sizeof(double) * static_cast<size_t>(num_values)));
  if (copy == nullptr) {
    gx_report(record, 1, kNew);
    return nullptr;
  }
  gx_array* obj = gx_family_ops<gx_array>::create(name, record, kNew);
  if (obj == nullptr) {
    gx_free(copy);
    return nullptr;
  }
  std::memcpy(copy, values, sizeof(double) * static_cast<size_t>(num_values));
  obj->num_values = num_values;
  obj->values = copy;
  return obj;
}

GX_API gx_array* gx_array_new(const char* name, int32_t num_values, const double* values) {
  return gx_array_new_errext(name, num_values, values, nullptr);
}

GX_API gx_array* gx_array_new_w(const gx_wchar* name, int32_t num_values, const double* values) {
  if (name == nullptr) return nullptr;
  return gx_array_new(gx_narrow_name(name).text, num_values, values);
}

GX_API int32_t gx_array_num_values(const gx_array* obj) {
  return gx_family_ops<gx_array>::field(obj, &gx_array::num_values, 0);
}

GX_API const double* gx_array_values_pointer(const gx_array* obj) {
  return gx_family_ops<gx_array>::field(obj, &gx_array::values, nullptr);
}

GX_API int gx_array_values_copy(const gx_array* obj, double* destination) {
  const gx_array* source = gx_family_ops<gx_array>::as(static_cast<const void*>(obj));
  if (source == nullptr || destination == nullptr) return 0;
  std::memcpy(destination, source->values, sizeof(double) * static_cast<size_t>(source->num_values));
  return 1;
}

GX_API int gx_array_values_set(gx_array* obj, const double* values) {
  gx_array* target = gx_family_ops<gx_array>::as(static_cast<void*>(obj));
  if (target == nullptr || values == nullptr) return 0;
  std::memcpy(target->values, values, sizeof(double) * static_cast<size_t>(target->num_values));
  return 1;
}

GX_API int gx_array_name_set(gx_array* obj, const char* name) {
  gx_array* target = gx_family_ops<gx_array>::as(static_cast<void*>(obj));
  if (target == nullptr) return 0;
  gx_name_copy(target->head.name, name != nullptr ? name : "", GX_NAME_SIZE);
  return 1;
}

GX_API gx_array* gx_array_htmethod_default(const gx_htmethod* method) {
  const gx_htmethod_row* row = gx_htmethlist_row_from_code(gx_object_code(method));
  if (row == nullptr) return nullptr;
  return gx_array_new(kDefaultName, row->values, row->identity);
}

}  // extern "C"
