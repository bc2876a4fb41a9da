// gx_parameter: a named value that a projected system or a transformation
// carries; its name ties it to a row of the parameter table and so to a slot.
#include "frame/family.h"
#include "gx_geodesy.h"
#include "objects/parmlist.h"

struct gx_parameter {
  gx_header head;
  gx_authority* authority;
  double value;  // in the units of the text; the drivers convert
};

namespace {

constexpr const char* kNew = "gx_parameter_new";
constexpr const char* kFromString = "gx_parameter_from_string";
constexpr int32_t kMinTokens = 3;  // keyword, name, value

constexpr gx_wkt_clause parameter_clauses[] = {gx_authority_clause};

}  // namespace

template <>
struct gx_family<gx_parameter> {
  static constexpr uint32_t type = GX_TYPE_PARAMETER;
  static constexpr const char* prefix = "gx_parameter";
  static constexpr const char* keyword = "PARAMETER";
  static constexpr bool has_authority = true;

  static gx_parameter* copy(const gx_parameter* obj) {
    return gx_parameter_new(obj->head.name, obj->value);
  }
  static void release(gx_parameter*) {}
  static bool equal(const gx_parameter* a, const gx_parameter* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && gx_eq(a->value, b->value);
  }
  static void print(const gx_parameter* obj, int, char* buffer) {
    gx_number_text value(obj->value);
    gx_snprintf(buffer, GX_WKT_SIZE, "PARAMETER[\"%s\",%s", obj->head.name, value.text);
  }
  static gx_parameter* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                   gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_parameter, parameter)
GX_FAMILY_AUTHORITY_EXPORTS(gx_parameter, parameter)

// PARAMETER["name",value,AUTHORITY[...]]; the value is taken as it stands.
gx_parameter* gx_family<gx_parameter>::from_tokens(gx_wkt_tokens* block, int32_t start,
                                                   int32_t* next, gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         kFromString))
    return nullptr;
  const char* value_text = gx_wkt_walk_value(&walk, start + 2);
  if (value_text == nullptr) {
    gx_report(walk.record, 450, kFromString);
    return nullptr;
  }
  if (!gx_wkt_walk_clauses(&walk, start + 3, parameter_clauses, 1)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  const char* name = gx_parmlist_alias_lookup(walk.name);
  gx_parameter* obj = gx_parameter_new_errext(name, gx_atod(value_text),
                                              walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<gx_parameter>::finish_parse(obj, &walk);
}

gx_parameter* gx_parameter_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                       gx_errext* record) {
  return gx_family<gx_parameter>::from_tokens(block, start, next, record);
}

extern "C" {

// A parameter made by hand with a known name still carries the row's code,
// so that it finds its slot by code like one made from the table.
GX_API gx_parameter* gx_parameter_new_errext(const char* name, double value, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  gx_parameter* obj = gx_family_ops<gx_parameter>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->value = value;
  if (const gx_parmlist_row* row = gx_parmlist_row_named(obj->head.name))
    gx_parameter_code_set(obj, row->code, row->authname, row->version);
  return obj;
}

GX_API gx_parameter* gx_parameter_new(const char* name, double value) {
  return gx_parameter_new_errext(name, value, nullptr);
}

GX_API gx_parameter* gx_parameter_new_w(const gx_wchar* name, double value) {
  if (name == nullptr) return nullptr;
  return gx_parameter_new(gx_narrow_name(name).text, value);
}

GX_API double gx_parameter_value(const gx_parameter* obj) {
  return gx_family_ops<gx_parameter>::field(obj, &gx_parameter::value, 0.0);
}

GX_API void gx_parameter_value_w(const gx_parameter* obj, double* value) {
  if (value == nullptr) return;
  *value = gx_parameter_value(obj);
}

GX_API int gx_parameter_value_set(gx_parameter* obj, double value) {
  gx_parameter* target = gx_family_ops<gx_parameter>::as(obj);
  if (target == nullptr) return 0;
  target->value = value;
  return 1;
}

// The code stays as it was: a renamed parameter keeps its slot.
GX_API int gx_parameter_name_set(gx_parameter* obj, const char* name) {
  gx_parameter* target = gx_family_ops<gx_parameter>::as(obj);
  if (target == nullptr || name == nullptr) return 0;
  gx_name_copy(target->head.name, name, GX_NAME_SIZE);
  return 1;
}

GX_API int gx_parameter_name_set_w(gx_parameter* obj, const gx_wchar* name) {
  if (name == nullptr) return 0;
  return gx_parameter_name_set(obj, gx_narrow_name(name).text);
}

GX_API int32_t gx_parameter_index(const gx_parameter* obj) {
  const gx_parameter* source = gx_family_ops<gx_parameter>::as(obj);
  if (source == nullptr) return -2;
  const gx_parmlist_row* row = source->head.code > 0
                                   ? gx_parmlist_row_from_code(source->head.code)
                                   : gx_parmlist_row_from_name(source->head.name);
  return row != nullptr ? row->slot : -1;
}

}  // extern "C"
