// gx_geogcs: a geographic coordinate system, a datum, a prime meridian and an
// angular unit (radians per unit).
#include "frame/family.h"
#include "gx_geodesy.h"
#include "objects/families.h"

struct gx_geogcs {
  gx_header head;
  gx_authority* authority;
  gx_datum* datum;    // owned
  gx_primem* primem;  // owned
  gx_unit* unit;      // owned, angular
};

namespace {

constexpr const char* kNew = "gx_geogcs_new";
constexpr const char* kFromString = "gx_geogcs_from_string";
constexpr int32_t kMinTokens = 2;  // keyword, name
constexpr int kDatumSlot = 1;
constexpr int kPrimemSlot = 2;
constexpr int kUnitSlot = 3;

// Old names of geographic systems, read and never written again.
constexpr gx_alias geogcs_aliases[] = {
    {"GCS_Deutsche_Hauptdreiecksnetz", "GCS_Deutsches_Hauptdreiecksnetz"},
    {"GCS_Tahiti", "GCS_Tahiti_1952"},
    {"GCS_Tahaa", "GCS_Tahaa_1954"},
    {"GCS_K0_1949", "GCS_Kerguelen_Island_1949"},
    {"GCS_Reunion", "GCS_Reunion_1947"},
    {"GCS_Piton_des_Neiges", "GCS_Reunion_1947"},
    {"GCS_North_American_1983_CSRS98", "GCS_North_American_1983_CSRS"},
    {nullptr, nullptr},
};

// The parts are required, and the missing ones are reported in this order.
constexpr gx_wkt_clause geogcs_clauses[] = {
    gx_authority_clause,
    {"DATUM", nullptr, gx_wkt_parser_of<gx_datum, gx_datum_from_tokens>, kDatumSlot, 405, 431,
     false, nullptr},
    {"PRIMEM", nullptr, gx_wkt_parser_of<gx_primem, gx_primem_from_tokens>, kPrimemSlot, 412, 440,
     false, nullptr},
    {"UNIT", nullptr, gx_wkt_parser_of<gx_unit, gx_unit_from_tokens>, kUnitSlot, 401, 427, false,
     nullptr},
};
constexpr int kClauseCount = sizeof geogcs_clauses / sizeof geogcs_clauses[0];

// "GCS_Hong_Kong_1963" on Greenwich in degrees, over the 1963(67) datum, is
// the 1963(67) system.
constexpr const char* kHongKongName = "GCS_Hong_Kong_1963";
constexpr const char* kHongKong67Name = "GCS_Hong_Kong_1963_67";
constexpr const char* kHongKong67Datum = "D_Hong_Kong_1963_67";
constexpr double kDegree = 0.017453292519943295;  // radians

}  // namespace

template <>
struct gx_family<gx_geogcs> {
  static constexpr uint32_t type = GX_TYPE_GEOGCS;
  static constexpr const char* prefix = "gx_geogcs";
  static constexpr const char* keyword = "GEOGCS";
  static constexpr bool has_authority = true;

  static gx_geogcs* copy(const gx_geogcs* obj) {
    gx_datum* datum = gx_datum_clone(obj->datum);
    gx_primem* primem = gx_primem_clone(obj->primem);
    gx_unit* unit = gx_unit_clone(obj->unit);
    gx_geogcs* copy = gx_geogcs_new(obj->head.name, datum, primem, unit);
    if (copy == nullptr) {
      gx_datum_del(datum);
      gx_primem_del(primem);
      gx_unit_del(unit);
    }
    return copy;
  }
  static void release(gx_geogcs* obj) {
    gx_datum_del(obj->datum);
    gx_primem_del(obj->primem);
    gx_unit_del(obj->unit);
  }
  static bool equal(const gx_geogcs* a, const gx_geogcs* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 &&
           gx_datum_eq(a->datum, b->datum) != 0 && gx_primem_eq(a->primem, b->primem) != 0 &&
           gx_unit_eq(a->unit, b->unit) != 0;
  }
  static void print(const gx_geogcs* obj, int option, char* buffer) {
    char datum[GX_WKT_SIZE];
    char primem[GX_WKT_SIZE];
    char unit[GX_WKT_SIZE];
    gx_snprintf(buffer, GX_WKT_SIZE, "GEOGCS[\"%s\",%s,%s,%s", obj->head.name,
                gx_datum_to_string_ext(obj->datum, option, datum),
                gx_primem_to_string_ext(obj->primem, option, primem),
                gx_unit_to_string_ext(obj->unit, option, unit));
  }
  // The Hong Kong correction, for a system read as a text of its own.  The
  // datum inside was read as a part, without its own correction, so this
  // holds only where the text already gives the datum its new name.
  static void finish_top_level(gx_geogcs* obj) {
    if (gx_name_compare(obj->head.name, kHongKongName) == 0 &&
        gx_eq(gx_primem_longitude(obj->primem), 0.0) &&
        gx_eq(gx_unit_factor(obj->unit), kDegree) &&
        gx_name_compare(gx_header_of(obj->datum)->name, kHongKong67Datum) == 0)
      gx_name_copy(obj->head.name, kHongKong67Name, GX_NAME_SIZE);
  }
  static gx_geogcs* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_geogcs, geogcs)
GX_FAMILY_AUTHORITY_EXPORTS(gx_geogcs, geogcs)

// GEOGCS["name",DATUM[...],PRIMEM[...],UNIT[...],AUTHORITY[...]]
gx_geogcs* gx_family<gx_geogcs>::from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                             gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         kFromString))
    return nullptr;
  if (!gx_wkt_walk_clauses(&walk, start + 2, geogcs_clauses, kClauseCount)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  const char* name = gx_alias_lookup(geogcs_aliases, walk.name);
  gx_geogcs* obj = gx_geogcs_new_errext(name, static_cast<gx_datum*>(walk.parts[kDatumSlot]),
                                        static_cast<gx_primem*>(walk.parts[kPrimemSlot]),
                                        static_cast<gx_unit*>(walk.parts[kUnitSlot]),
                                        walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<gx_geogcs>::finish_parse(obj, &walk);
}

gx_geogcs* gx_geogcs_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record) {
  return gx_family<gx_geogcs>::from_tokens(block, start, next, record);
}

extern "C" {

GX_API gx_geogcs* gx_geogcs_new_errext(const char* name, gx_datum* datum, gx_primem* primem,
                                       gx_unit* unit, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (gx_datum_p(datum) == 0) {
    gx_report(record, 334, kNew);
    return nullptr;
  }
  if (gx_primem_p(primem) == 0) {
    gx_report(record, 329, kNew);
    return nullptr;
  }
  if (gx_unit_p(unit) == 0) {
    gx_report(record, 322, kNew);
    return nullptr;
  }
  gx_geogcs* obj = gx_family_ops<gx_geogcs>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->datum = datum;
  obj->primem = primem;
  obj->unit = unit;
  return obj;
}

GX_API gx_geogcs* gx_geogcs_new(const char* name, gx_datum* datum, gx_primem* primem,
                                gx_unit* unit) {
  return gx_geogcs_new_errext(name, datum, primem, unit, nullptr);
}

GX_API gx_geogcs* gx_geogcs_new_w(const gx_wchar* name, gx_datum* datum, gx_primem* primem,
                                  gx_unit* unit) {
  if (name == nullptr) return nullptr;
  return gx_geogcs_new(gx_narrow_name(name).text, datum, primem, unit);
}

GX_API gx_datum* gx_geogcs_datum(const gx_geogcs* obj) {
  return gx_family_ops<gx_geogcs>::field(obj, &gx_geogcs::datum, nullptr);
}

GX_API gx_primem* gx_geogcs_primem(const gx_geogcs* obj) {
  return gx_family_ops<gx_geogcs>::field(obj, &gx_geogcs::primem, nullptr);
}

GX_API gx_unit* gx_geogcs_unit(const gx_geogcs* obj) {
  return gx_family_ops<gx_geogcs>::field(obj, &gx_geogcs::unit, nullptr);
}

}  // extern "C"
