// gx_geogtran: two geographic systems, a method and its parameters; and the
// constants block a grid method loads.
#include "frame/constants.h"
#include "frame/family.h"
#include "objects/families.h"
#include "objects/methlist.h"
#include "objects/parameter_slots.h"

struct gx_geogtran {
  gx_header head;
  int32_t constants_loaded;  // set by a load, failed or not; a failed grid is not tried again
  gx_authority* authority;
  gx_geogcs* geogcs1;
  gx_geogcs* geogcs2;
  gx_method* method;
  gx_parameter* parameters[GX_PARAMETER_SLOTS];
  gx_constants* constants;
};

namespace {

constexpr const char* kNew = "gx_geogtran_new";
constexpr const char* kFromString = "gx_geogtran_from_string";
constexpr int32_t kMinTokens = 2;

enum walk_slot { kAuthority = GX_WKT_AUTHORITY_SLOT, kGeogcs1, kGeogcs2, kMethod, kFirstParameter };
static_assert(kFirstParameter + GX_PARAMETER_SLOTS <= GX_WKT_MAX_PARTS, "the walk holds every slot");

// Old names of transformations, read and never written again.
constexpr gx_alias old_names[] = {
    {"Tahiti_To_WGS_1984_1", "Tahiti_1952_To_WGS_1984_1"},
    {"Tahaa_To_WGS_1984_1", "Tahaa_1954_To_WGS_1984_1"},
    {"K0_1949_To_WGS_1984_1", "Kerguelen_Island_1949_To_WGS_1984_1"},
    {"Piton_des_Neiges_To_WGS_1984_1", "Reunion_1947_To_WGS_1984_1"},
    {"Piton_des_Neiges_To_RGR_1992_1", "Reunion_1947_To_RGR_1992_1"},
    {"RGR_1992_To_Piton_des_Neiges_1", "RGR_1992_To_Reunion_1947_1"},
    {"Amersfoort_To_WGS_1984_3X", "Amersfoort_To_WGS_1984_3"},
    {"NAD_1983_CSRS98_To_WGS_1984", "NAD_1983_CSRS_To_WGS_1984"},
    {"ATS_1977_To_NAD_1983_CSRS98_NTv2_New_Brunswick", "ATS_1977_To_NAD_1983_CSRS_NTv2_New_Brunswick"},
    {"NAD_1983_CSRS98_To_WGS_1984_1", "NAD_1983_CSRS_To_WGS_1984_1"},
    {"NAD_1983_To_NAD_1983_CSRS98_1", "NAD_1983_To_NAD_1983_CSRS_1"},
    {"NAD_1927_To_NAD_1983_CSRS98_1", "NAD_1927_To_NAD_1983_CSRS_1"},
    {"NAD_1927_CGQ77_To_NAD_1983_CSRS98", "NAD_1927_CGQ77_To_NAD_1983_CSRS"},
    {"ATS_1977_To_NAD_1983_CSRS98_2_NTv2_Prince_Edward_Is",
     "ATS_1977_To_NAD_1983_CSRS_2_NTv2_Prince_Edward_Is"},
    {"NAD_1927_To_NAD_1983_CSRS98_2", "NAD_1927_To_NAD_1983_CSRS_2"},
    {"NAD_1983_To_NAD_1983_CSRS98_2", "NAD_1983_To_NAD_1983_CSRS_2"},
    {"NAD_1983_To_NAD_1983_CSRS98_3", "NAD_1983_To_NAD_1983_CSRS_3"},
    {"ATS_1977_To_NAD_1983_CSRS98_NTv2_Nova_Scotia", "ATS_1977_To_NAD_1983_CSRS_NTv2_Nova_Scotia"},
    {"NAD_1983_CSRS98_To_WGS_1984_2", "NAD_1983_CSRS_To_WGS_1984_2"},
    {"NAD_1983_To_NAD_1983_CSRS98_4", "NAD_1983_To_NAD_1983_CSRS_4"},
    {"ATS_1977_To_NAD_1983_CSRS98_NTv2_Maritimes", "ATS_1977_To_NAD_1983_CSRS_NTv2_Maritimes"},
    {"KKJ_To_ETRS_1989_1", "KKJ_To_ETRS_1989_1_Old"},
    {"KKJ_To_WGS_1984_1", "KKJ_To_WGS_1984_1_Old"},
    {nullptr, nullptr},
};

constexpr gx_parameter_owner geogtran_owner = {GX_TYPE_GEOGTRAN, "a geogtran", kFromString,
                                               kFirstParameter};

bool take_parameter(gx_wkt_walk* walk, int32_t index, int32_t* next) {
  return gx_parameter_take(walk, index, next, geogtran_owner);
}

// The first GEOGCS is the source, the second the target, a third is 406.
bool take_geogcs(gx_wkt_walk* walk, int32_t index, int32_t* next) {
  int part = walk->parts[kGeogcs1] == nullptr ? kGeogcs1 : kGeogcs2;
  if (walk->parts[part] != nullptr) {
    gx_report(walk->record, 406, kFromString);
    return false;
  }
  walk->parts[part] =
      gx_geogcs_from_tokens(walk->block, index, next, walk->caller_record ? walk->record : nullptr);
  return walk->parts[part] != nullptr;
}

// The missing parts are told after the walk, in this order.
constexpr gx_wkt_clause geogtran_clauses[] = {
    gx_authority_clause,
    {"GEOGCS", nullptr, nullptr, 0, 0, 0, false, take_geogcs},
    {"METHOD", nullptr, gx_wkt_parser_of<gx_method, gx_method_from_tokens>, kMethod, 410, 0, false,
     nullptr},
    {"PARAMETER", nullptr, nullptr, 0, 0, 0, false, take_parameter},
};

// Which slots a method requires and which it does not allow, and how hard
// each kind of breach is.
struct gx_method_rule {
  int32_t codes[3];
  uint32_t required;     // slot bits
  uint32_t not_allowed;  // slot bits
  uint32_t missing_severity;
  uint32_t extra_severity;
};

constexpr uint32_t slots(int first, int last) {
  uint32_t bits = 0;
  for (int s = first; s <= last; ++s) bits |= 1u << s;
  return bits;
}

constexpr gx_method_rule method_rules[] = {
    {{9603, 9604, 9605}, slots(0, 2), slots(3, 9), GX_SEV_WARNING, GX_SEV_WARNING},
    {{9606, 9607, 109607}, slots(0, 6), slots(7, 9), GX_SEV_WARNING, GX_SEV_WARNING},
    {{9636, 0, 0}, slots(0, 9), 0, GX_SEV_WARNING, GX_SEV_WARNING},
    // Slot 2 is left out of the test of a grid method's extras.
    {{9613, 9615, 109613}, slots(15, 15), slots(0, 1) | slots(3, 9), GX_SEV_ERROR, GX_SEV_WARNING},
};

const gx_method_rule* rule_of(int32_t code) {
  for (const gx_method_rule& rule : method_rules)
    for (int32_t member : rule.codes)
      if (member != 0 && member == code) return &rule;
  return nullptr;
}

// One message 453 for any missing parameter and one 454 for any extra one;
// false when a missing one is an error.
bool check_parameters(gx_wkt_walk* walk, const gx_method* method) {
  const gx_method_rule* rule = rule_of(gx_object_code(method));
  if (rule == nullptr) return true;
  uint32_t present = 0;
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot)
    if (walk->parts[kFirstParameter + slot] != nullptr) present |= 1u << slot;
  char name[GX_NAME_SIZE];
  gx_method_name(method, name);
  if ((present & rule->required) != rule->required) {
    gx_report_severity(walk->record, rule->missing_severity, 453, kFromString, name);
    if (rule->missing_severity == GX_SEV_ERROR) return false;
  }
  if ((present & rule->not_allowed) != 0)
    gx_report_severity(walk->record, rule->extra_severity, 454, kFromString, name);
  return true;
}

bool equal_but_name(const gx_geogtran* a, const gx_geogtran* b) {
  return gx_geogcs_eq(a->geogcs1, b->geogcs1) && gx_geogcs_eq(a->geogcs2, b->geogcs2) &&
         gx_method_eq(a->method, b->method);
}

gx_geogtran* new_or_delete(const char* name, gx_geogcs* geogcs1, gx_geogcs* geogcs2,
                           gx_method* method, gx_parameter** parameters) {
  gx_geogtran* obj = gx_geogtran_new(name, geogcs1, geogcs2, method, parameters);
  if (obj == nullptr) {
    gx_geogcs_del(geogcs1);
    gx_geogcs_del(geogcs2);
    gx_method_del(method);
    gx_parameter_slots_delete(parameters);
  }
  return obj;
}

}  // namespace

template <>
struct gx_family<gx_geogtran> {
  static constexpr uint32_t type = GX_TYPE_GEOGTRAN;
  static constexpr const char* prefix = "gx_geogtran";
  static constexpr const char* keyword = "GEOGTRAN";
  static constexpr bool has_authority = true;
  static constexpr const char* null_text_function = kNew;

  static gx_geogtran* copy(const gx_geogtran* obj) {
    gx_parameter* parameters[GX_PARAMETER_SLOTS];
    if (!gx_parameter_slots_clone(obj->parameters, parameters)) return nullptr;
    return new_or_delete(obj->head.name, gx_geogcs_clone(obj->geogcs1),
                         gx_geogcs_clone(obj->geogcs2), gx_method_clone(obj->method), parameters);
  }
  static void release(gx_geogtran* obj) {
    gx_geogcs_del(obj->geogcs1);
    gx_geogcs_del(obj->geogcs2);
    gx_method_del(obj->method);
    gx_parameter_slots_delete(obj->parameters);
    gx_constants_del(obj->constants);
  }
  static bool equal(const gx_geogtran* a, const gx_geogtran* b) {
    return gx_parameter_slots_equal(a->parameters, b->parameters) &&
           gx_name_compare(a->head.name, b->head.name) == 0 && equal_but_name(a, b);
  }
  // GEOGTRAN["name",GEOGCS[...],GEOGCS[...],METHOD[...],PARAMETER[...]...
  static void print(const gx_geogtran* obj, int option, char* buffer) {
    char geogcs1[GX_WKT_SIZE];
    char geogcs2[GX_WKT_SIZE];
    char method[GX_WKT_SIZE];
    gx_geogcs_to_string_ext(obj->geogcs1, option, geogcs1);
    gx_geogcs_to_string_ext(obj->geogcs2, option, geogcs2);
    gx_method_to_string_ext(obj->method, option, method);
    gx_snprintf(buffer, GX_WKT_SIZE, "GEOGTRAN[\"%s\",%s,%s,%s", obj->head.name, geogcs1, geogcs2,
                method);
    gx_parameter_slots_print(obj->parameters, option, buffer);
  }
  static gx_geogtran* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                  gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_geogtran, geogtran)
GX_FAMILY_AUTHORITY_EXPORTS(gx_geogtran, geogtran)

gx_geogtran* gx_family<gx_geogtran>::from_tokens(gx_wkt_tokens* block, int32_t start,
                                                 int32_t* next, gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         kFromString))
    return nullptr;
  bool ok = gx_wkt_walk_clauses(&walk, start + 2, geogtran_clauses,
                                sizeof geogtran_clauses / sizeof geogtran_clauses[0]);
  if (!walk.stopped) {
    static constexpr struct { int part; uint16_t code; } missing[] = {
        {kGeogcs1, 434}, {kGeogcs2, 435}, {kMethod, 439}};
    for (const auto& m : missing)
      if (walk.parts[m.part] == nullptr) {
        gx_report(walk.record, m.code, kFromString);
        ok = false;
      }
  }
  if (ok) ok = check_parameters(&walk, static_cast<gx_method*>(walk.parts[kMethod]));
  if (!ok) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  gx_parameter* parameters[GX_PARAMETER_SLOTS];
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot)
    parameters[slot] = static_cast<gx_parameter*>(walk.parts[kFirstParameter + slot]);
  gx_geogtran* obj = gx_geogtran_new_errext(
      gx_alias_lookup(old_names, walk.name), static_cast<gx_geogcs*>(walk.parts[kGeogcs1]),
      static_cast<gx_geogcs*>(walk.parts[kGeogcs2]), static_cast<gx_method*>(walk.parts[kMethod]),
      parameters, walk.caller_record ? walk.record : nullptr);
  if (obj != nullptr)
    for (int k = kGeogcs1; k < GX_WKT_MAX_PARTS; ++k) walk.parts[k] = nullptr;
  return gx_family_ops<gx_geogtran>::finish_parse(obj, &walk);
}

gx_constants* gx_geogtran_constants(const gx_geogtran* obj) {
  return gx_family_ops<gx_geogtran>::field(obj, &gx_geogtran::constants, nullptr);
}

extern "C" {

GX_API gx_geogtran* gx_geogtran_new_errext(const char* name, gx_geogcs* geogcs1,
                                           gx_geogcs* geogcs2, gx_method* method,
                                           gx_parameter** parameters, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (!gx_geogcs_p(geogcs1)) {
    gx_report(record, 332, kNew);
    return nullptr;
  }
  if (!gx_geogcs_p(geogcs2)) {
    gx_report(record, 333, kNew);
    return nullptr;
  }
  if (!gx_method_p(method)) {
    gx_report(record, 335, kNew);
    return nullptr;
  }
  if (parameters == nullptr) {
    gx_report(record, 330, kNew);
    return nullptr;
  }
  gx_geogtran* obj = gx_family_ops<gx_geogtran>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->geogcs1 = geogcs1;
  obj->geogcs2 = geogcs2;
  obj->method = method;
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot) obj->parameters[slot] = parameters[slot];
  return obj;
}

GX_API gx_geogtran* gx_geogtran_new(const char* name, gx_geogcs* geogcs1, gx_geogcs* geogcs2,
                                    gx_method* method, gx_parameter** parameters) {
  return gx_geogtran_new_errext(name, geogcs1, geogcs2, method, parameters, nullptr);
}

GX_API gx_geogtran* gx_geogtran_new_w(const gx_wchar* name, gx_geogcs* geogcs1,
                                      gx_geogcs* geogcs2, gx_method* method,
                                      gx_parameter** parameters) {
  if (name == nullptr) return nullptr;
  char narrow[GX_NAME_SIZE];
  gx_narrow_from_wide(narrow, name, sizeof narrow - 1);
  return gx_geogtran_new(narrow, geogcs1, geogcs2, method, parameters);
}

GX_API gx_geogcs* gx_geogtran_geogcs1(const gx_geogtran* obj) {
  return gx_family_ops<gx_geogtran>::field(obj, &gx_geogtran::geogcs1, nullptr);
}

GX_API gx_geogcs* gx_geogtran_geogcs2(const gx_geogtran* obj) {
  return gx_family_ops<gx_geogtran>::field(obj, &gx_geogtran::geogcs2, nullptr);
}

GX_API gx_method* gx_geogtran_method(const gx_geogtran* obj) {
  return gx_family_ops<gx_geogtran>::field(obj, &gx_geogtran::method, nullptr);
}

GX_API int gx_geogtran_parameters(const gx_geogtran* obj, gx_parameter** parameters) {
  const gx_geogtran* source = gx_family_ops<gx_geogtran>::as(obj);
  return gx_parameter_slots_lend(source != nullptr ? source->parameters : nullptr, parameters);
}

GX_API void gx_geogtran_unload_constants(gx_geogtran* obj) {
  gx_geogtran* target = gx_family_ops<gx_geogtran>::as(obj);
  if (target == nullptr) return;
  gx_constants_del(target->constants);
  target->constants = nullptr;
  target->constants_loaded = 0;
}

// Reads the flag, not the block: a load that failed counts as done.
GX_API int gx_geogtran_isconstloaded(const gx_geogtran* obj) {
  const gx_geogtran* source = gx_family_ops<gx_geogtran>::as(obj);
  return source != nullptr && source->constants_loaded != 0 ? 1 : 0;
}

GX_API int32_t gx_geogtran_load_constants(gx_geogtran* obj) {
  gx_geogtran* target = gx_family_ops<gx_geogtran>::as(obj);
  if (target == nullptr) return 0;
  gx_geogtran_unload_constants(target);
  gx_method_loader loader = gx_method_constants_fn(target->method);
  if (loader == nullptr) return 0;
  char dataset[GX_NAME_SIZE];
  gx_parameter_name(target->parameters[GX_PARM_HEIGHT], dataset);
  target->constants_loaded = 1;
  gx_constants* block = gx_constants_new();
  if (block == nullptr) return 0;
  int32_t result = loader(block, dataset);
  if (result == 0) {
    gx_constants_del(block);
    return 0;
  }
  target->constants = block;
  return result;
}

}  // extern "C"
