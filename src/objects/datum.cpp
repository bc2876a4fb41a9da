// gx_datum: a named datum on its spheroid.
#include "frame/family.h"
#include "gx_geodesy.h"
#include "objects/families.h"

struct gx_datum {
  gx_header head;
  gx_authority* authority;
  gx_spheroid* spheroid;  // owned
};

namespace {

constexpr const char* kNew = "gx_datum_new";
constexpr const char* kFromString = "gx_datum_from_string";
constexpr int32_t kMinTokens = 2;  // keyword, name
constexpr int kSpheroidSlot = 1;

// Old datum names, read and never written again.
constexpr gx_alias datum_aliases[] = {
    {"D_Deutsche_Hauptdreiecksnetz", "D_Deutsches_Hauptdreiecksnetz"},
    {"D_Tahiti", "D_Tahiti_1952"},
    {"D_Tahaa", "D_Tahaa_1954"},
    {"D_K0_1949", "D_Kerguelen_Island_1949"},
    {"D_Reunion", "D_Reunion_1947"},
    {"D_Piton_des_Neiges", "D_Reunion_1947"},
    {"D_Phillipine_Reference_System_1992", "D_Philippine_Reference_System_1992"},
    {"D_North_American_1983_CSRS98", "D_North_American_1983_CSRS"},
    {nullptr, nullptr},
};

constexpr gx_wkt_clause datum_clauses[] = {
    gx_authority_clause,
    {"SPHEROID", "ELLIPSOID", gx_wkt_parser_of<gx_spheroid, gx_spheroid_from_tokens>,
     kSpheroidSlot, 415, 442, false, nullptr},
};
constexpr int kClauseCount = sizeof datum_clauses / sizeof datum_clauses[0];

// "D_Hong_Kong_1963" once named two definitions; the one on the International
// 1924 spheroid is the 1963(67) datum.
constexpr const char* kHongKongName = "D_Hong_Kong_1963";
constexpr const char* kHongKong67Name = "D_Hong_Kong_1963_67";
constexpr const char* kInternationalName = "International_1924";
constexpr double kInternationalAxis = 6378388.0;
constexpr double kInternationalFlattening = 0.003367003367003367;  // 1/297

bool international_1924_p(const gx_spheroid* spheroid) {
  return gx_name_compare(gx_header_of(spheroid)->name, kInternationalName) == 0 &&
         gx_eq(gx_spheroid_axis(spheroid), kInternationalAxis) &&
         gx_eq(gx_spheroid_flattening(spheroid), kInternationalFlattening);
}

}  // namespace

template <>
struct gx_family<gx_datum> {
  static constexpr uint32_t type = GX_TYPE_DATUM;
  static constexpr const char* prefix = "gx_datum";
  static constexpr const char* keyword = "DATUM";
  static constexpr bool has_authority = true;

  static gx_datum* copy(const gx_datum* obj) {
    gx_spheroid* spheroid = gx_spheroid_clone(obj->spheroid);
    gx_datum* copy = gx_datum_new(obj->head.name, spheroid);
    if (copy == nullptr) gx_spheroid_del(spheroid);
    return copy;
  }
  static void release(gx_datum* obj) { gx_spheroid_del(obj->spheroid); }
  static bool equal(const gx_datum* a, const gx_datum* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 &&
           gx_spheroid_eq(a->spheroid, b->spheroid) != 0;
  }
  static void print(const gx_datum* obj, int option, char* buffer) {
    char spheroid[GX_WKT_SIZE];
    gx_snprintf(buffer, GX_WKT_SIZE, "DATUM[\"%s\",%s", obj->head.name,
                gx_spheroid_to_string_ext(obj->spheroid, option, spheroid));
  }
  // The Hong Kong correction, for a datum read as a text of its own.
  static void finish_top_level(gx_datum* obj) {
    if (gx_name_compare(obj->head.name, kHongKongName) == 0 && international_1924_p(obj->spheroid))
      gx_name_copy(obj->head.name, kHongKong67Name, GX_NAME_SIZE);
  }
  static gx_datum* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                               gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_datum, datum)
GX_FAMILY_AUTHORITY_EXPORTS(gx_datum, datum)

// DATUM["name",SPHEROID[...],AUTHORITY[...]]
gx_datum* gx_family<gx_datum>::from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                           gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         kFromString))
    return nullptr;
  if (!gx_wkt_walk_clauses(&walk, start + 2, datum_clauses, kClauseCount)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  const char* name = gx_alias_lookup(datum_aliases, walk.name);
  auto* spheroid = static_cast<gx_spheroid*>(walk.parts[kSpheroidSlot]);
  gx_datum* obj = gx_datum_new_errext(name, spheroid, walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<gx_datum>::finish_parse(obj, &walk);
}

gx_datum* gx_datum_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                               gx_errext* record) {
  return gx_family<gx_datum>::from_tokens(block, start, next, record);
}

extern "C" {

GX_API gx_datum* gx_datum_new_errext(const char* name, gx_spheroid* spheroid, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (gx_spheroid_p(spheroid) == 0) {
    gx_report(record, 327, kNew);
    return nullptr;
  }
  gx_datum* obj = gx_family_ops<gx_datum>::create(name, record, kNew);
  if (obj != nullptr) obj->spheroid = spheroid;
  return obj;
}

GX_API gx_datum* gx_datum_new(const char* name, gx_spheroid* spheroid) {
  return gx_datum_new_errext(name, spheroid, nullptr);
}

GX_API gx_datum* gx_datum_new_w(const gx_wchar* name, gx_spheroid* spheroid) {
  if (name == nullptr) return nullptr;
  return gx_datum_new(gx_narrow_name(name).text, spheroid);
}

GX_API gx_spheroid* gx_datum_spheroid(const gx_datum* obj) {
  return gx_family_ops<gx_datum>::field(obj, &gx_datum::spheroid, nullptr);
}

}  // extern "C"
