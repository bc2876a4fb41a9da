// gx_adjhcs: a geographic or projected system with a local fit of its
// coordinates: the fit's method and coefficients, and the unit of the
// adjusted coordinates.  It has no authority.
#include "adjust/htmethlist.h"
#include "frame/family.h"
#include "objects/families.h"

struct gx_adjhcs {
  gx_header head;
  gx_htmethod* htmethod;
  gx_array* array;
  void* coordsys;  // a gx_geogcs or a gx_projcs
  gx_unit* unit;
};

gx_htmethod* gx_htmethod_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                     gx_errext* record);
gx_array* gx_array_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next, gx_errext* record);

namespace {

constexpr const char* kNew = "gx_adjhcs_new";
constexpr const char* kFromString = "gx_adjhcs_from_string";
constexpr int32_t kMinTokens = 2;

enum walk_slot { kCoordsys = GX_WKT_AUTHORITY_SLOT + 1, kHtmethod, kArray, kUnit };

// GEOGCS or PROJCS: one coordinate system, whichever it is.
bool take_coordsys(gx_wkt_walk* walk, int32_t index, int32_t* next) {
  if (walk->parts[kCoordsys] != nullptr) {
    gx_report(walk->record, 404, kFromString);
    *next = gx_wkt_skip(walk->block, index, walk->end);
    return false;
  }
  gx_errext* record = walk->caller_record ? walk->record : nullptr;
  bool projected = gx_name_compare(walk->block->tokens[index].value, "PROJCS") == 0;
  walk->parts[kCoordsys] = projected
                               ? static_cast<void*>(gx_projcs_from_tokens(walk->block, index, next, record))
                               : static_cast<void*>(gx_geogcs_from_tokens(walk->block, index, next, record));
  return walk->parts[kCoordsys] != nullptr;
}

// The missing parts are told after the walk, in this order.
constexpr gx_wkt_clause adjhcs_clauses[] = {
    {"GEOGCS", "PROJCS", nullptr, kCoordsys, 404, 429, false, take_coordsys},
    {"HTMETHOD", nullptr, gx_wkt_parser_of<gx_htmethod, gx_htmethod_from_tokens>, kHtmethod, 407, 436,
     false, nullptr},
    {"ARRAY", nullptr, gx_wkt_parser_of<gx_array, gx_array_from_tokens>, kArray, 402, 428, false,
     nullptr},
    {"UNIT", nullptr, gx_wkt_parser_of<gx_unit, gx_unit_from_tokens>, kUnit, 416, 446, false, nullptr},
};

bool is_coordsys(const void* obj) { return gx_geogcs_p(obj) || gx_projcs_p(obj); }

// The fit's function run on a copy of the coefficients.
int32_t apply(gx_htmethod_fn fn, const gx_adjhcs* adjhcs, int32_t n, double* coords) {
  int32_t count = gx_array_num_values(adjhcs->array);
  double* copy = static_cast<double*>(gx_alloc(sizeof(double) * static_cast<size_t>(count)));
  if (copy == nullptr) return 0;
  gx_array_values_copy(adjhcs->array, copy);
  int32_t result = fn(count, copy, n, coords);
  gx_free(copy);
  return result;
}

}  // namespace

template <>
struct gx_family<gx_adjhcs> {
  static constexpr uint32_t type = GX_TYPE_ADJHCS;
  static constexpr const char* prefix = "gx_adjhcs";
  static constexpr const char* keyword = "ADJHCS";
  static constexpr bool has_authority = false;

  static gx_adjhcs* copy(const gx_adjhcs* obj) {
    void* coordsys = gx_object_clone(obj->coordsys);
    gx_htmethod* htmethod = gx_htmethod_clone(obj->htmethod);
    gx_array* array = gx_array_clone(obj->array);
    gx_unit* unit = gx_unit_clone(obj->unit);
    gx_adjhcs* copy = gx_adjhcs_new(obj->head.name, coordsys, htmethod, array, unit);
    if (copy == nullptr) {
      gx_object_del(coordsys);
      gx_htmethod_del(htmethod);
      gx_array_del(array);
      gx_unit_del(unit);
    }
    return copy;
  }
  static void release(gx_adjhcs* obj) {
    gx_object_del(obj->coordsys);
    gx_htmethod_del(obj->htmethod);
    gx_array_del(obj->array);
    gx_unit_del(obj->unit);
  }
  static bool equal(const gx_adjhcs* a, const gx_adjhcs* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && gx_object_eq(a->coordsys, b->coordsys) &&
           gx_htmethod_eq(a->htmethod, b->htmethod) && gx_array_eq(a->array, b->array) &&
           gx_unit_eq(a->unit, b->unit);
  }
  static void print(const gx_adjhcs* obj, int option, char* buffer) {
    char part[GX_WKT_SIZE];
    gx_snprintf(buffer, GX_WKT_SIZE, "ADJHCS[\"%s\"", obj->head.name);
    gx_wkt_append_clause(buffer, gx_object_to_string_ext(obj->coordsys, option, part));
    gx_wkt_append_clause(buffer, gx_htmethod_to_string_ext(obj->htmethod, option, part));
    gx_wkt_append_clause(buffer, gx_array_to_string_ext(obj->array, option, part));
    gx_wkt_append_clause(buffer, gx_unit_to_string_ext(obj->unit, option, part));
  }
  static gx_adjhcs* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next, gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_adjhcs, adjhcs)

// ADJHCS["name",GEOGCS[...] or PROJCS[...],HTMETHOD[...],ARRAY[...],UNIT[...]],
// the clauses in any order.
gx_adjhcs* gx_family<gx_adjhcs>::from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                             gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens, kFromString))
    return nullptr;
  if (!gx_wkt_walk_clauses(&walk, start + 2, adjhcs_clauses, 4, true)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  gx_adjhcs* obj = gx_adjhcs_new_errext(walk.name, walk.parts[kCoordsys],
                                        static_cast<gx_htmethod*>(walk.parts[kHtmethod]),
                                        static_cast<gx_array*>(walk.parts[kArray]),
                                        static_cast<gx_unit*>(walk.parts[kUnit]),
                                        walk.caller_record ? walk.record : nullptr);
  // On success the object owns the parts; on failure the walk deletes them.
  if (obj != nullptr)
    for (int k = kCoordsys; k <= kUnit; ++k) walk.parts[k] = nullptr;
  return gx_family_ops<gx_adjhcs>::finish_parse(obj, &walk);
}

extern "C" {

GX_API gx_adjhcs* gx_adjhcs_new_errext(const char* name, void* coordsys, gx_htmethod* htmethod,
                                       gx_array* array, gx_unit* unit, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (!is_coordsys(coordsys)) {
    gx_report(record, 338, kNew);
    return nullptr;
  }
  if (!gx_array_p(array)) {
    gx_report(record, 325, kNew);
    return nullptr;
  }
  if (!gx_htmethod_p(htmethod)) {
    gx_report(record, 336, kNew);
    return nullptr;
  }
  if (!gx_unit_p(unit)) {
    gx_report(record, 324, kNew);
    return nullptr;
  }
  gx_adjhcs* obj = gx_family_ops<gx_adjhcs>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->coordsys = coordsys;
  obj->htmethod = htmethod;
  obj->array = array;
  obj->unit = unit;
  return obj;
}

GX_API gx_adjhcs* gx_adjhcs_new(const char* name, void* coordsys, gx_htmethod* htmethod, gx_array* array,
                                gx_unit* unit) {
  return gx_adjhcs_new_errext(name, coordsys, htmethod, array, unit, nullptr);
}

GX_API gx_adjhcs* gx_adjhcs_new_w(const gx_wchar* name, void* coordsys, gx_htmethod* htmethod,
                                  gx_array* array, gx_unit* unit) {
  if (name == nullptr) return nullptr;
  return gx_adjhcs_new(gx_narrow_name(name).text, coordsys, htmethod, array, unit);
}

GX_API void* gx_adjhcs_coordsys(const gx_adjhcs* obj) {
  return gx_family_ops<gx_adjhcs>::field(obj, &gx_adjhcs::coordsys, nullptr);
}
GX_API gx_htmethod* gx_adjhcs_htmethod(const gx_adjhcs* obj) {
  return gx_family_ops<gx_adjhcs>::field(obj, &gx_adjhcs::htmethod, nullptr);
}
GX_API gx_array* gx_adjhcs_array(const gx_adjhcs* obj) {
  return gx_family_ops<gx_adjhcs>::field(obj, &gx_adjhcs::array, nullptr);
}
GX_API gx_unit* gx_adjhcs_unit(const gx_adjhcs* obj) {
  return gx_family_ops<gx_adjhcs>::field(obj, &gx_adjhcs::unit, nullptr);
}

GX_API int32_t gx_adjhcs_to_coordsys(const gx_adjhcs* adjhcs, int32_t n, double* coords) {
  const gx_adjhcs* obj = gx_family_ops<gx_adjhcs>::as(static_cast<const void*>(adjhcs));
  return obj != nullptr ? apply(gx_htmethod_inverse(obj->htmethod), obj, n, coords) : 0;
}

GX_API int32_t gx_coordsys_to_adjhcs(const gx_adjhcs* adjhcs, int32_t n, double* coords) {
  const gx_adjhcs* obj = gx_family_ops<gx_adjhcs>::as(static_cast<const void*>(adjhcs));
  return obj != nullptr ? apply(gx_htmethod_forward(obj->htmethod), obj, n, coords) : 0;
}

}  // extern "C"
