// gx_projection: a named set of functions out of the projection list.
#include "frame/family.h"
#include "horizon/horizon.h"
#include "objects/families.h"
#include "objects/projlist.h"

struct gx_projection {
  gx_header head;
  gx_authority* authority;
  gx_projection_fn forward;
  gx_projection_fn inverse;
  gx_horizon_builder horizon;
  gx_horizon_builder horizon_pcs;
  gx_horizon_builder horizon_gcs_raster;
  gx_horizon_builder horizon_pcs_raster;
  gx_constants_fn constants;
};

namespace {

constexpr const char* kNew = "gx_projection_new";

// What an invalid projection hands out: coordinates stay as they are.
int32_t identity(const double*, double*, int32_t n, double*, const int32_t*, const double*) {
  return n;
}

// The horizon of a projection made by hand without one: the world rectangle,
// through a builder of its own so that such a projection is told apart from
// the listed one by gx_projection_eq.
gx_horizon* gx_horizon_builder_default(const double* sphere, const double* parms) {
  return gx_horizon_world(sphere, parms);
}

gx_projection* new_full(const char* name, const gx_projection_row& functions, gx_errext* record) {
  gx_projection* obj = gx_family_ops<gx_projection>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->forward = functions.forward;
  obj->inverse = functions.inverse;
  obj->horizon = functions.horizon != nullptr ? functions.horizon : gx_horizon_world;
  obj->horizon_pcs = functions.horizon_pcs;
  obj->horizon_gcs_raster = functions.horizon_gcs_raster;
  obj->horizon_pcs_raster = functions.horizon_pcs_raster;
  obj->constants = functions.constants;
  if (const gx_projection_row* row = gx_projlist_row_from_name(obj->head.name))
    gx_family_ops<gx_projection>::code_set(obj, row->code, row->authname, row->version);
  return obj;
}

}  // namespace

template <>
struct gx_family<gx_projection> {
  static constexpr uint32_t type = GX_TYPE_PROJECTION;
  static constexpr const char* prefix = "gx_projection";
  static constexpr const char* keyword = "PROJECTION";
  static constexpr bool has_authority = true;

  static gx_projection* copy(const gx_projection* obj) {
    gx_projection_row functions = {};
    functions.forward = obj->forward;
    functions.inverse = obj->inverse;
    functions.horizon = obj->horizon;
    functions.horizon_pcs = obj->horizon_pcs;
    functions.horizon_gcs_raster = obj->horizon_gcs_raster;
    functions.horizon_pcs_raster = obj->horizon_pcs_raster;
    functions.constants = obj->constants;
    return new_full(obj->head.name, functions, nullptr);
  }
  static void release(gx_projection*) {}
  static bool equal(const gx_projection* a, const gx_projection* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && a->forward == b->forward &&
           a->inverse == b->inverse && a->horizon == b->horizon;
  }
  static void print(const gx_projection* obj, int, char* buffer) {
    gx_snprintf(buffer, GX_WKT_SIZE, "PROJECTION[\"%s\"", obj->head.name);
  }
  static gx_projection* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                    gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_projection, projection)
GX_FAMILY_AUTHORITY_EXPORTS(gx_projection, projection)

// PROJECTION["name",AUTHORITY[...]]: the name must be in the projection list,
// so a projection read from text always has its functions.
gx_projection* gx_family<gx_projection>::from_tokens(gx_wkt_tokens* block, int32_t start,
                                                     int32_t* next, gx_errext* record) {
  return gx_read_named<gx_projection>(block, start, next, record,
                                      gx_projlist_projection_from_name);
}

gx_projection* gx_projection_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                         gx_errext* record) {
  return gx_family<gx_projection>::from_tokens(block, start, next, record);
}

gx_projection* gx_projlist_projection_from_code(int32_t code) {
  const gx_projection_row* row = gx_projlist_row_from_code(code);
  gx_errext record;
  gx_errext_clear(&record);
  if (row == nullptr) {
    gx_report(&record, 217, "gx_projlist_projection_from_code", code);
    return nullptr;
  }
  gx_projection* obj = new_full(row->name, *row, &record);
  if (obj != nullptr) obj->head.status = GX_STATUS_CODE;
  return obj;
}

gx_projection* gx_projlist_projection_from_name(const char* name, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  const gx_projection_row* row = gx_projlist_row_from_name(name);
  if (row == nullptr) {
    gx_report(record, 309, "gx_projection_from_string", name != nullptr ? name : "");
    return nullptr;
  }
  gx_projection* obj = new_full(row->name, *row, record);
  if (obj != nullptr) obj->head.status = GX_STATUS_STRING;
  return obj;
}

gx_constants_fn gx_projection_constants_fn(const gx_projection* obj) {
  return gx_family_ops<gx_projection>::field(obj, &gx_projection::constants, nullptr);
}

extern "C" {

// A projection made by hand has the functions given, or those of the listed
// projection of its name, but never a constants loader or projected-side
// horizons: it always runs the path without constants.
GX_API gx_projection* gx_projection_new_errext(const char* name, gx_projection_fn forward,
                                               gx_projection_fn inverse,
                                               gx_horizon_builder horizon, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  gx_projection_row functions = {};
  functions.forward = forward;
  functions.inverse = inverse;
  functions.horizon = horizon != nullptr ? horizon : gx_horizon_builder_default;
  if (forward == nullptr || inverse == nullptr) {
    const gx_projection_row* row = gx_projlist_row_from_name(name);
    if (row == nullptr) {
      gx_report(record, 340, kNew);
      return nullptr;
    }
    functions.forward = row->forward;
    functions.inverse = row->inverse;
  }
  return new_full(name, functions, record);
}

GX_API gx_projection* gx_projection_new(const char* name, gx_projection_fn forward,
                                        gx_projection_fn inverse, gx_horizon_builder horizon) {
  return gx_projection_new_errext(name, forward, inverse, horizon, nullptr);
}

GX_API gx_projection* gx_projection_new_w(const gx_wchar* name) {
  if (name == nullptr) return nullptr;
  char narrow[GX_NAME_SIZE];
  gx_narrow_from_wide(narrow, name, sizeof narrow - 1);
  return gx_projection_new(narrow, nullptr, nullptr, nullptr);
}

GX_API gx_projection_fn gx_projection_forward(const gx_projection* obj) {
  return gx_family_ops<gx_projection>::field(obj, &gx_projection::forward, identity);
}

GX_API gx_projection_fn gx_projection_inverse(const gx_projection* obj) {
  return gx_family_ops<gx_projection>::field(obj, &gx_projection::inverse, identity);
}

GX_API gx_horizon_builder gx_projection_horizon(const gx_projection* obj) {
  return gx_family_ops<gx_projection>::field(obj, &gx_projection::horizon, gx_horizon_world);
}

GX_API gx_horizon_builder gx_projection_horizon_pcs(const gx_projection* obj) {
  return gx_family_ops<gx_projection>::field(obj, &gx_projection::horizon_pcs, nullptr);
}

GX_API gx_horizon_builder gx_projection_horizon_gcs_raster(const gx_projection* obj) {
  return gx_family_ops<gx_projection>::field(obj, &gx_projection::horizon_gcs_raster, nullptr);
}

GX_API gx_horizon_builder gx_projection_horizon_pcs_raster(const gx_projection* obj) {
  return gx_family_ops<gx_projection>::field(obj, &gx_projection::horizon_pcs_raster, nullptr);
}

}  // extern "C"
