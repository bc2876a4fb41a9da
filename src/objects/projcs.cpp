// gx_projcs: a geographic CS, a projection, up to 16 parameters in their
// slots and a linear unit; and the constants block a conversion loads.
#include "convert/projcs_setup.h"
#include "frame/constants.h"
#include <initializer_list>

#include "frame/family.h"
#include "gx_geodesy.h"
#include "objects/families.h"
#include "objects/parameter_slots.h"
#include "objects/projlist.h"

struct gx_projcs {
  gx_header head;
  gx_authority* authority;
  gx_geogcs* geogcs;
  gx_projection* projection;
  gx_parameter* parameters[GX_PARM_COUNT];  // by slot, null where absent
  gx_unit* unit;
  gx_constants* constants;  // made on demand; no part of the definition
};

namespace {

constexpr const char* kNew = "gx_projcs_new";
constexpr const char* kFromString = "gx_projcs_from_string";
constexpr int32_t kMinTokens = 2;  // keyword, name

enum walk_slot { kAuthority = GX_WKT_AUTHORITY_SLOT, kGeogcs, kProjection, kUnit, kFirstParameter };
static_assert(kFirstParameter + GX_PARM_COUNT <= GX_WKT_MAX_PARTS, "the walk holds every slot");

// Old names of projected systems, read and never written again.
constexpr gx_alias old_names[] = {
    {"Tahiti_UTM_6S", "Tahiti_1952_UTM_6S"},
    {"Tahaa_UTM_5S", "Tahaa_1954_UTM_5S"},
    {"K0_1949_UTM_42S", "Kerguelen_1949_UTM_42S"},
    {"Piton_des_Neiges_TM_Reunion", "Reunion_1947_TM_Reunion"},
    {"Irish_National_Grid", "TM65_Irish_Grid"},
    {"Douala_1948_AOF_West", "Douala_1948_AEF_West"},
    {"NAD_1983_CSRS98_New_Brunswick_Stereographic", "NAD_1983_CSRS_New_Brunswick_Stereographic"},
    {"NAD_1983_CSRS98_UTM_Zone_19N", "NAD_1983_CSRS_UTM_Zone_19N"},
    {"NAD_1983_CSRS98_UTM_Zone_20N", "NAD_1983_CSRS_UTM_Zone_20N"},
    {"NAD_1983_CSRS98_MTM_2_SCoPQ", "NAD_1983_CSRS_MTM_2_SCoPQ"},
    {"NAD_1983_CRS98_MTM_3", "NAD_1983_CRS_MTM_3"},
    {"NAD_1983_CRS98_MTM_4", "NAD_1983_CRS_MTM_4"},
    {"NAD_1983_CRS98_MTM_5", "NAD_1983_CRS_MTM_5"},
    {"NAD_1983_CRS98_MTM_6", "NAD_1983_CRS_MTM_6"},
    {"NAD_1983_CRS98_MTM_7", "NAD_1983_CRS_MTM_7"},
    {"NAD_1983_CRS98_MTM_8", "NAD_1983_CRS_MTM_8"},
    {"NAD_1983_CRS98_MTM_9", "NAD_1983_CRS_MTM_9"},
    {"NAD_1983_CRS98_MTM_10", "NAD_1983_CRS_MTM_10"},
    {"NAD_1983_CSRS98_UTM_Zone_21N", "NAD_1983_CSRS_UTM_Zone_21N"},
    {"NAD_1983_CSRS98_UTM_Zone_18N", "NAD_1983_CSRS_UTM_Zone_18N"},
    {"NAD_1983_CSRS98_UTM_Zone_17N", "NAD_1983_CSRS_UTM_Zone_17N"},
    {"NAD_1983_CSRS98_UTM_Zone_13N", "NAD_1983_CSRS_UTM_Zone_13N"},
    {"NAD_1983_CSRS98_UTM_Zone_12N", "NAD_1983_CSRS_UTM_Zone_12N"},
    {"NAD_1983_CSRS98_UTM_Zone_11N", "NAD_1983_CSRS_UTM_Zone_11N"},
    {"NAD_1983_CSRS98_Prince_Edward_Island", "NAD_1983_CSRS_Prince_Edward_Island"},
    {"NAD_1983_CSRS98_UTM_Zone_14N", "NAD_1983_CSRS_UTM_Zone_14N"},
    {"NAD_1983_CSRS98_UTM_Zone_15N", "NAD_1983_CSRS_UTM_Zone_15N"},
    {"NAD_1983_CSRS98_UTM_Zone_16N", "NAD_1983_CSRS_UTM_Zone_16N"},
    {"Alaska_Albers_Equal_Area_Conic", "NAD_1983_Alaska_Albers"},
    {"Dabola_UTM_Zone_28N", "Dabola_1981_UTM_Zone_28N"},
    {"Dabola_UTM_Zone_29N", "Dabola_1981_UTM_Zone_29N"},
    {"NAD_1927_StatePlane_Vermont_FIPS_3400", "NAD_1927_StatePlane_Vermont_FIPS_4400"},
    {nullptr, nullptr},
};

constexpr gx_parameter_owner projcs_owner = {GX_TYPE_PROJCS, "a projcs", kFromString,
                                             kFirstParameter};

bool take_parameter(gx_wkt_walk* walk, int32_t index, int32_t* next) {
  return gx_parameter_take(walk, index, next, projcs_owner);
}

constexpr gx_wkt_clause projcs_clauses[] = {
    gx_authority_clause,
    {"GEOGCS", nullptr, gx_wkt_parser_of<gx_geogcs, gx_geogcs_from_tokens>, kGeogcs, 406, 433,
     false, nullptr},
    {"PROJECTION", nullptr, gx_wkt_parser_of<gx_projection, gx_projection_from_tokens>,
     kProjection, 414, 441, false, nullptr},
    {"UNIT", nullptr, gx_wkt_parser_of<gx_unit, gx_unit_from_tokens>, kUnit, 409, 438, false,
     nullptr},
    {"PARAMETER", nullptr, nullptr, 0, 0, 0, false, take_parameter},
};

bool equal_but_name(const gx_projcs* a, const gx_projcs* b) {
  return gx_parameter_slots_equal(a->parameters, b->parameters) && gx_geogcs_eq(a->geogcs, b->geogcs) &&
         gx_projection_eq(a->projection, b->projection) && gx_unit_eq(a->unit, b->unit);
}

// Makes a projcs from parts it owns from then on, or deletes them all.
gx_projcs* new_or_delete(const char* name, gx_geogcs* geogcs, gx_projection* projection,
                         gx_parameter** parameters, gx_unit* unit) {
  gx_projcs* obj = gx_projcs_new(name, geogcs, projection, parameters, unit);
  if (obj == nullptr) {
    gx_geogcs_del(geogcs);
    gx_projection_del(projection);
    gx_parameter_slots_delete(parameters);
    gx_unit_del(unit);
  }
  return obj;
}

}  // namespace

template <>
struct gx_family<gx_projcs> {
  static constexpr uint32_t type = GX_TYPE_PROJCS;
  static constexpr const char* prefix = "gx_projcs";
  static constexpr const char* keyword = "PROJCS";
  static constexpr bool has_authority = true;

  static gx_projcs* copy(const gx_projcs* obj) {
    gx_parameter* parameters[GX_PARM_COUNT];
    if (!gx_parameter_slots_clone(obj->parameters, parameters)) return nullptr;
    return new_or_delete(obj->head.name, gx_geogcs_clone(obj->geogcs),
                         gx_projection_clone(obj->projection), parameters,
                         gx_unit_clone(obj->unit));
  }
  static void release(gx_projcs* obj) {
    gx_geogcs_del(obj->geogcs);
    gx_projection_del(obj->projection);
    gx_parameter_slots_delete(obj->parameters);
    gx_unit_del(obj->unit);
    gx_constants_del(obj->constants);
  }
  static bool equal(const gx_projcs* a, const gx_projcs* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && equal_but_name(a, b);
  }
  // PROJCS["name",GEOGCS[...],PROJECTION[...],PARAMETER[...]...,UNIT[...]
  static void print(const gx_projcs* obj, int option, char* buffer) {
    char geogcs[GX_WKT_SIZE];
    char part[GX_WKT_SIZE];
    gx_geogcs_to_string_ext(obj->geogcs, option, geogcs);
    gx_projection_to_string_ext(obj->projection, option, part);
    gx_snprintf(buffer, GX_WKT_SIZE, "PROJCS[\"%s\",%s,%s", obj->head.name, geogcs, part);
    gx_parameter_slots_print(obj->parameters, option, buffer);
    gx_wkt_append_clause(buffer, gx_unit_to_string_ext(obj->unit, option, part));
  }
  static gx_projcs* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_projcs, projcs)
GX_FAMILY_AUTHORITY_EXPORTS(gx_projcs, projcs)

gx_projcs* gx_family<gx_projcs>::from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                             gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         kFromString, GX_WKT_ALT_459))
    return nullptr;
  if (!gx_wkt_walk_clauses(&walk, start + 2, projcs_clauses,
                           sizeof projcs_clauses / sizeof projcs_clauses[0])) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  gx_parameter* parameters[GX_PARM_COUNT];
  for (int slot = 0; slot < GX_PARM_COUNT; ++slot)
    parameters[slot] = static_cast<gx_parameter*>(walk.parts[kFirstParameter + slot]);
  gx_projcs* obj = gx_projcs_new_errext(
      gx_alias_lookup(old_names, walk.name), static_cast<gx_geogcs*>(walk.parts[kGeogcs]),
      static_cast<gx_projection*>(walk.parts[kProjection]), parameters,
      static_cast<gx_unit*>(walk.parts[kUnit]), walk.caller_record ? walk.record : nullptr);
  if (obj != nullptr) {
    for (int k = kGeogcs; k < GX_WKT_MAX_PARTS; ++k) walk.parts[k] = nullptr;
  }
  return gx_family_ops<gx_projcs>::finish_parse(obj, &walk);
}

gx_projcs* gx_projcs_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record) {
  return gx_family<gx_projcs>::from_tokens(block, start, next, record);
}

gx_constants* gx_projcs_constants(const gx_projcs* obj) {
  return gx_family_ops<gx_projcs>::field(obj, &gx_projcs::constants, nullptr);
}

extern "C" {

GX_API gx_projcs* gx_projcs_new_errext(const char* name, gx_geogcs* geogcs,
                                       gx_projection* projection, gx_parameter** parameters,
                                       gx_unit* unit, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (!gx_geogcs_p(geogcs)) {
    gx_report_alt(record, 331, kNew);
    return nullptr;
  }
  if (!gx_projection_p(projection)) {
    gx_report(record, 328, kNew);
    return nullptr;
  }
  if (parameters == nullptr) {
    gx_report(record, 330, kNew);
    return nullptr;
  }
  if (!gx_unit_p(unit)) {
    gx_report(record, 323, kNew);
    return nullptr;
  }
  gx_projcs* obj = gx_family_ops<gx_projcs>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->geogcs = geogcs;
  obj->projection = projection;
  for (int slot = 0; slot < GX_PARM_COUNT; ++slot) obj->parameters[slot] = parameters[slot];
  obj->unit = unit;
  return obj;
}

GX_API gx_projcs* gx_projcs_new(const char* name, gx_geogcs* geogcs, gx_projection* projection,
                                gx_parameter** parameters, gx_unit* unit) {
  return gx_projcs_new_errext(name, geogcs, projection, parameters, unit, nullptr);
}

GX_API gx_projcs* gx_projcs_new_w(const gx_wchar* name, gx_geogcs* geogcs,
                                  gx_projection* projection, gx_parameter** parameters,
                                  gx_unit* unit) {
  if (name == nullptr) return nullptr;
  char narrow[GX_NAME_SIZE];
  gx_narrow_from_wide(narrow, name, sizeof narrow - 1);
  return gx_projcs_new(narrow, geogcs, projection, parameters, unit);
}

GX_API gx_geogcs* gx_projcs_geogcs(const gx_projcs* obj) {
  return gx_family_ops<gx_projcs>::field(obj, &gx_projcs::geogcs, nullptr);
}

GX_API gx_projection* gx_projcs_projection(const gx_projcs* obj) {
  return gx_family_ops<gx_projcs>::field(obj, &gx_projcs::projection, nullptr);
}

GX_API gx_unit* gx_projcs_unit(const gx_projcs* obj) {
  return gx_family_ops<gx_projcs>::field(obj, &gx_projcs::unit, nullptr);
}

GX_API int gx_projcs_parameters(const gx_projcs* obj, gx_parameter** parameters) {
  const gx_projcs* source = gx_family_ops<gx_projcs>::as(obj);
  return gx_parameter_slots_lend(source != nullptr ? source->parameters : nullptr, parameters);
}

GX_API int gx_projcs_eqnn(const gx_projcs* a, const gx_projcs* b) {
  const gx_projcs* x = gx_family_ops<gx_projcs>::as(a);
  const gx_projcs* y = gx_family_ops<gx_projcs>::as(b);
  return x != nullptr && y != nullptr && equal_but_name(x, y) ? 1 : 0;
}

GX_API void gx_projcs_unload_constants(gx_projcs* obj) {
  gx_projcs* target = gx_family_ops<gx_projcs>::as(obj);
  if (target == nullptr) return;
  gx_constants_del(target->constants);
  target->constants = nullptr;
}

GX_API int gx_projcs_isconstloaded(const gx_projcs* obj) {
  return gx_projcs_constants(obj) != nullptr ? 1 : 0;
}

GX_API int32_t gx_projcs_load_constants(gx_projcs* obj) {
  gx_projcs* target = gx_family_ops<gx_projcs>::as(obj);
  if (target == nullptr) return 0;
  gx_projcs_unload_constants(target);
  gx_constants_fn loader = gx_projection_constants_fn(target->projection);
  if (loader == nullptr) return 0;
  gx_constants* block = gx_constants_new();
  if (block == nullptr) return 0;
  gx_projcs_setup setup;
  gx_projcs_setup_build(target, &setup);
  int32_t result = loader(block, setup.sphere, setup.parms);
  if (result == 0) {
    gx_constants_del(block);
    return 0;
  }
  target->constants = block;
  return result;
}

// A copy whose numbers are in other units and mean the same geometry: the
// angular slots follow the new angular unit, the false origin the new linear
// unit; Height keeps its number.
GX_API gx_projcs* gx_projcs_clone_alterunits(const gx_projcs* obj, const gx_unit* linear_unit,
                                             const gx_unit* angular_unit) {
  const gx_projcs* source = gx_family_ops<gx_projcs>::as(obj);
  if (source == nullptr) return nullptr;
  bool linear = false, angular = false;
  double linear_ratio = 1.0, angular_ratio = 1.0;
  if (gx_unit_p(linear_unit)) {
    double old_factor = gx_unit_factor(source->unit);
    double new_factor = gx_unit_factor(linear_unit);
    if (!gx_eq(old_factor, new_factor)) {
      linear_ratio = old_factor / new_factor;
      linear = true;
    }
  }
  gx_unit* old_angular = gx_geogcs_unit(source->geogcs);
  if (gx_unit_p(angular_unit)) {
    double old_factor = gx_unit_factor(old_angular);
    double new_factor = gx_unit_factor(angular_unit);
    if (!gx_eq(old_factor, new_factor)) {
      angular_ratio = old_factor / new_factor;
      angular = true;
    }
  }
  if (!linear && !angular) return gx_projcs_clone(source);

  gx_projection* projection = gx_projection_clone(source->projection);
  gx_parameter* parameters[GX_PARM_COUNT];
  if (!gx_parameter_slots_clone(source->parameters, parameters)) {
    gx_projection_del(projection);
    return nullptr;
  }
  gx_geogcs* geogcs;
  if (angular) {
    static constexpr int angular_slots[] = {2, 6, 8, 3, 9, 4, 10, 11, 7, 14};
    for (int slot : angular_slots)
      if (parameters[slot] != nullptr)
        gx_parameter_value_set(parameters[slot],
                               gx_parameter_value(parameters[slot]) * angular_ratio);
    char name[GX_NAME_SIZE];
    gx_geogcs_name(source->geogcs, name);
    geogcs = gx_geogcs_new(name, gx_datum_clone(gx_geogcs_datum(source->geogcs)),
                           gx_primem_clone(gx_geogcs_primem(source->geogcs)),
                           gx_unit_clone(angular_unit));
  } else {
    geogcs = gx_geogcs_clone(source->geogcs);
  }
  if (!linear)
    return new_or_delete(source->head.name, geogcs, projection, parameters,
                         gx_unit_clone(source->unit));
  for (int slot : {GX_PARM_FALSE_EASTING, GX_PARM_FALSE_NORTHING})
    if (parameters[slot] != nullptr)
      gx_parameter_value_set(parameters[slot], gx_parameter_value(parameters[slot]) * linear_ratio);
  return new_or_delete(source->head.name, geogcs, projection, parameters,
                       gx_unit_clone(linear_unit));
}

// The names of the auxiliary sphere types are not resolved in this system:
// the pair is kept in the interface and answers "none" for anything.
GX_API const char* gx_auxiliary_sphere_code_to_name(int32_t code) { return nullptr; }
GX_API int32_t gx_auxiliary_sphere_name_to_code(const char* name) { return -1; }

}  // extern "C"
