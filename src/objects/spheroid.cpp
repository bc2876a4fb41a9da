// gx_spheroid: the size and shape of the earth model, a semi-major axis and
// a flattening (0 for a sphere).  Text carries the inverse flattening.
#include <cmath>

#include "frame/family.h"
#include "gx_geodesy.h"
#include "objects/families.h"

struct gx_spheroid {
  gx_header head;
  gx_authority* authority;
  double axis;        // semi-major axis, metres
  double flattening;  // f, not 1/f; 0 for a sphere
};

namespace {

constexpr const char* kNew = "gx_spheroid_new";
constexpr const char* kFromString = "gx_spheroid_from_string";
// The axis and inverse flattening of a text report under this name.
constexpr const char* kFromStringValues = "gx_spheroid from string";
constexpr const char* kAltKeyword = "ELLIPSOID";  // read, never written
constexpr int32_t kMinTokens = 4;                 // keyword, name, axis, inverse flattening
// Two spheroids whose flattenings differ only in how they were stored have
// quarter meridians closer than this (metres).
constexpr double kQuarterMeridianTolerance = 1e-6;

// Old spheroid names, applied when reading text: none so far.
constexpr gx_alias spheroid_aliases[] = {
    {nullptr, nullptr},
};

constexpr gx_wkt_clause spheroid_clauses[] = {gx_authority_clause};

// A finite axis above 0; a flattening from 0 to 1.  NaN and infinities are
// refused with the same messages as the values out of range.
bool axis_valid(double axis) { return std::isfinite(axis) && axis > 0.0; }
bool flattening_valid(double flattening) { return flattening >= 0.0 && flattening <= 1.0; }
// The inverse flattening of a text: 0 for a sphere, else finite and at least 1.
bool inverse_flattening_valid(double inverse) {
  return inverse == 0.0 || (std::isfinite(inverse) && inverse >= 1.0);
}

double squared_eccentricity(double flattening) { return (2.0 - flattening) * flattening; }

}  // namespace

template <>
struct gx_family<gx_spheroid> {
  static constexpr uint32_t type = GX_TYPE_SPHEROID;
  static constexpr const char* prefix = "gx_spheroid";
  static constexpr const char* keyword = "SPHEROID";
  static constexpr bool has_authority = true;

  static gx_spheroid* copy(const gx_spheroid* obj) {
    return gx_spheroid_new(obj->head.name, obj->axis, obj->flattening);
  }
  static void release(gx_spheroid*) {}

  // Equal flattenings, or flattenings that differ only in how they were
  // stored (1/f rounded one way or another): then the quarter meridians agree
  // below a micrometre.
  static bool equal(const gx_spheroid* a, const gx_spheroid* b) {
    if (gx_name_compare(a->head.name, b->head.name) != 0 || !gx_eq(a->axis, b->axis)) return false;
    if (gx_eq(a->flattening, b->flattening)) return true;
    double qa = gx_q90(a->axis, squared_eccentricity(a->flattening));
    double qb = gx_q90(b->axis, squared_eccentricity(b->flattening));
    return std::fabs(qa - qb) < kQuarterMeridianTolerance;
  }

  static void print(const gx_spheroid* obj, int, char* buffer) {
    gx_number_text axis(obj->axis);
    bool sphere = std::fabs(obj->flattening) <= GX_EPS;
    gx_number_text inverse(sphere ? 0.0 : 1.0 / obj->flattening);
    gx_snprintf(buffer, GX_WKT_SIZE, "SPHEROID[\"%s\",%s,%s", obj->head.name, axis.text,
                inverse.text);
  }

  // A text may use either keyword: the second is looked for only when the
  // first is nowhere in it.
  static int scan(gx_wkt_tokens* block, const char* text) {
    int r = gx_wkt_scan(block, text, keyword);
    if (r != 0 && block->severity == GX_SEV_ERROR && block->code == 466)
      r = gx_wkt_scan(block, text, kAltKeyword);
    return r;
  }

  static gx_spheroid* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                  gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_spheroid, spheroid)
GX_FAMILY_AUTHORITY_EXPORTS(gx_spheroid, spheroid)

// SPHEROID["name",axis,inverse_flattening,AUTHORITY[...]], or ELLIPSOID[...].
// A bad axis ends the reading at once; a bad inverse flattening is a failure
// of the walk, which goes on (without a record) so that a faulty AUTHORITY is
// reported too.
gx_spheroid* gx_family<gx_spheroid>::from_tokens(gx_wkt_tokens* block, int32_t start,
                                                 int32_t* next, gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, kAltKeyword, kMinTokens,
                         kFromString))
    return nullptr;
  const char* axis_text = gx_wkt_walk_value(&walk, start + 2);
  if (axis_text == nullptr) {
    gx_report(walk.record, 451, kFromString);
    return nullptr;
  }
  double axis = gx_atod(axis_text);
  if (!axis_valid(axis)) {
    gx_report(walk.record, 420, kFromStringValues, axis_text);
    return nullptr;
  }
  const char* inverse_text = gx_wkt_walk_value(&walk, start + 3);
  if (inverse_text == nullptr) {
    gx_report(walk.record, 452, kFromString);
    return nullptr;
  }
  double inverse = gx_atod(inverse_text);
  double flattening = 0.0;
  if (!inverse_flattening_valid(inverse)) {
    gx_report(walk.record, 421, kFromStringValues, inverse_text);
    gx_wkt_walk_fail(&walk);
  } else if (inverse != 0.0) {
    flattening = 1.0 / inverse;
  }
  if (!gx_wkt_walk_clauses(&walk, start + 4, spheroid_clauses, 1)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  const char* name = gx_alias_lookup(spheroid_aliases, walk.name);
  gx_spheroid* obj = gx_spheroid_new_errext(name, axis, flattening,
                                            walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<gx_spheroid>::finish_parse(obj, &walk);
}

gx_spheroid* gx_spheroid_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                     gx_errext* record) {
  return gx_family<gx_spheroid>::from_tokens(block, start, next, record);
}

extern "C" {

GX_API gx_spheroid* gx_spheroid_new_errext(const char* name, double axis, double flattening,
                                           gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (!axis_valid(axis)) {
    gx_report(record, 302, kNew, gx_number_text(axis).text);
    return nullptr;
  }
  if (!flattening_valid(flattening)) {
    gx_report(record, 303, kNew, gx_number_text(flattening).text);
    return nullptr;
  }
  gx_spheroid* obj = gx_family_ops<gx_spheroid>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->axis = axis;
  obj->flattening = flattening;
  return obj;
}

GX_API gx_spheroid* gx_spheroid_new(const char* name, double axis, double flattening) {
  return gx_spheroid_new_errext(name, axis, flattening, nullptr);
}

GX_API gx_spheroid* gx_spheroid_new_w(const gx_wchar* name, double axis, double flattening) {
  if (name == nullptr) return nullptr;
  return gx_spheroid_new(gx_narrow_name(name).text, axis, flattening);
}

GX_API double gx_spheroid_axis(const gx_spheroid* obj) {
  return gx_family_ops<gx_spheroid>::field(obj, &gx_spheroid::axis, 1.0);
}

GX_API void gx_spheroid_axis_w(const gx_spheroid* obj, double* axis) {
  if (axis == nullptr) return;
  const gx_spheroid* source = gx_family_ops<gx_spheroid>::as(obj);
  *axis = source != nullptr ? source->axis : 0.0;
}

GX_API double gx_spheroid_flattening(const gx_spheroid* obj) {
  return gx_family_ops<gx_spheroid>::field(obj, &gx_spheroid::flattening, 0.0);
}

GX_API void gx_spheroid_flattening_w(const gx_spheroid* obj, double* flattening) {
  if (flattening == nullptr) return;
  *flattening = gx_spheroid_flattening(obj);
}

}  // extern "C"
