// gx_unit: a linear or angular unit, one family whatever it measures.
#include <cmath>

#include "frame/family.h"
#include "gx_geodesy.h"

struct gx_unit {
  gx_header head;
  gx_authority* authority;
  double factor;  // metres or radians per unit
};

namespace {

constexpr const char* kNew = "gx_unit_new";
constexpr const char* kFromString = "gx_unit_from_string";
constexpr int32_t kMinTokens = 3;  // keyword, name, factor

// Old spellings of unit names, read and never written again.
constexpr gx_alias unit_aliases[] = {
    {"Meters", "Meter"},
    {"Metres", "Meter"},
    {"Metre", "Meter"},
    {nullptr, nullptr},
};

constexpr gx_wkt_clause unit_clauses[] = {gx_authority_clause};

// A finite factor above 0: NaN and infinities are refused like 0.
bool factor_valid(double factor) { return std::isfinite(factor) && factor > 0.0; }

}  // namespace

template <>
struct gx_family<gx_unit> {
  static constexpr uint32_t type = GX_TYPE_UNIT;
  static constexpr const char* prefix = "gx_unit";
  static constexpr const char* keyword = "UNIT";
  static constexpr bool has_authority = true;

  static gx_unit* copy(const gx_unit* obj) { return gx_unit_new(obj->head.name, obj->factor); }
  static void release(gx_unit*) {}
  static bool equal(const gx_unit* a, const gx_unit* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && gx_eq(a->factor, b->factor);
  }
  static void print(const gx_unit* obj, int, char* buffer) {
    gx_number_text factor(obj->factor);
    gx_snprintf(buffer, GX_WKT_SIZE, "UNIT[\"%s\",%s", obj->head.name, factor.text);
  }
  static gx_unit* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                              gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_unit, unit)
GX_FAMILY_AUTHORITY_EXPORTS(gx_unit, unit)

// UNIT["name",factor,AUTHORITY[...]]
gx_unit* gx_family<gx_unit>::from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                         gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         kFromString))
    return nullptr;
  const char* factor_text = gx_wkt_walk_value(&walk, start + 2);
  if (factor_text == nullptr) {
    gx_report(walk.record, 455, kFromString);
    return nullptr;
  }
  double factor = gx_atod(factor_text);
  if (!factor_valid(factor)) {
    gx_report(walk.record, 422, kFromString, gx_number_text(factor).text);
    return nullptr;
  }
  if (!gx_wkt_walk_clauses(&walk, start + 3, unit_clauses, 1)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  const char* name = gx_alias_lookup(unit_aliases, walk.name);
  gx_unit* obj = gx_unit_new_errext(name, factor, walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<gx_unit>::finish_parse(obj, &walk);
}

gx_unit* gx_unit_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                             gx_errext* record) {
  return gx_family<gx_unit>::from_tokens(block, start, next, record);
}

extern "C" {

GX_API gx_unit* gx_unit_new_errext(const char* name, double factor, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (!factor_valid(factor)) {
    gx_report(record, 304, kNew, gx_number_text(factor).text);
    return nullptr;
  }
  gx_unit* obj = gx_family_ops<gx_unit>::create(gx_alias_lookup(unit_aliases, name), record, kNew);
  if (obj != nullptr) obj->factor = factor;
  return obj;
}

GX_API gx_unit* gx_unit_new(const char* name, double factor) {
  return gx_unit_new_errext(name, factor, nullptr);
}

GX_API gx_unit* gx_unit_new_w(const gx_wchar* name, double factor) {
  if (name == nullptr) return nullptr;
  return gx_unit_new(gx_narrow_name(name).text, factor);
}

GX_API double gx_unit_factor(const gx_unit* obj) {
  return gx_family_ops<gx_unit>::field(obj, &gx_unit::factor, 1.0);
}

GX_API void gx_unit_factor_w(const gx_unit* obj, double* factor) {
  if (factor == nullptr) return;
  const gx_unit* source = gx_family_ops<gx_unit>::as(obj);
  *factor = source != nullptr ? source->factor : 0.0;
}

}  // extern "C"
