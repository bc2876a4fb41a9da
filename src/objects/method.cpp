// gx_method: one way of going from one geographic CS to another.
#include "frame/family.h"
#include "objects/families.h"
#include "objects/methlist.h"

struct gx_method {
  gx_header head;
  gx_authority* authority;
  gx_method_fn forward;
  gx_method_fn inverse;
  gx_method_loader constants;
};

namespace {

constexpr const char* kNew = "gx_method_new";

// What an invalid method hands out: coordinates stay as they are.
int32_t identity(const double*, const double*, const double*, const char*, int32_t n, double*,
                 double*, int32_t*, void*, double*) {
  return n;
}

gx_method* new_full(const char* name, gx_method_fn forward, gx_method_fn inverse,
                    gx_method_loader constants, gx_errext* record) {
  gx_method* obj = gx_family_ops<gx_method>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->forward = forward;
  obj->inverse = inverse;
  obj->constants = constants;
  if (const gx_method_row* row = gx_methlist_row_from_name(obj->head.name))
    gx_family_ops<gx_method>::code_set(obj, row->code, row->authname, row->version);
  return obj;
}

}  // namespace

template <>
struct gx_family<gx_method> {
  static constexpr uint32_t type = GX_TYPE_METHOD;
  static constexpr const char* prefix = "gx_method";
  static constexpr const char* keyword = "METHOD";
  static constexpr bool has_authority = true;

  static gx_method* copy(const gx_method* obj) {
    return new_full(obj->head.name, obj->forward, obj->inverse, obj->constants, nullptr);
  }
  static void release(gx_method*) {}
  static bool equal(const gx_method* a, const gx_method* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && a->forward == b->forward &&
           a->inverse == b->inverse;
  }
  static void print(const gx_method* obj, int, char* buffer) {
    gx_snprintf(buffer, GX_WKT_SIZE, "METHOD[\"%s\"", obj->head.name);
  }
  // METHOD["name",AUTHORITY[...]]: the name must be in the method list.
  static gx_method* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                gx_errext* record) {
    return gx_read_named<gx_method>(block, start, next, record, gx_methlist_method_from_name);
  }
};

GX_FAMILY_EXPORTS(gx_method, method)
GX_FAMILY_AUTHORITY_EXPORTS(gx_method, method)

gx_method* gx_method_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record) {
  return gx_family<gx_method>::from_tokens(block, start, next, record);
}

gx_method* gx_methlist_method_from_name(const char* name, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  const gx_method_row* row = gx_methlist_row_from_name(name);
  if (row == nullptr) {
    gx_report(record, 305, "gx_method_from_string", name != nullptr ? name : "");
    return nullptr;
  }
  gx_method* obj = new_full(row->name, row->forward, row->inverse, row->constants, record);
  if (obj != nullptr) obj->head.status = GX_STATUS_STRING;
  return obj;
}

gx_method_loader gx_method_constants_fn(const gx_method* obj) {
  return gx_family_ops<gx_method>::field(obj, &gx_method::constants, nullptr);
}

extern "C" {

// A method made by hand has the functions given, or those of the listed
// method of its name, but never a loader.
GX_API gx_method* gx_method_new_errext(const char* name, gx_method_fn forward,
                                       gx_method_fn inverse, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (forward == nullptr || inverse == nullptr) {
    const gx_method_row* row = gx_methlist_row_from_name(name);
    if (row == nullptr) {
      gx_report(record, 340, kNew);
      return nullptr;
    }
    forward = row->forward;
    inverse = row->inverse;
  }
  return new_full(name, forward, inverse, nullptr, record);
}

GX_API gx_method* gx_method_new(const char* name, gx_method_fn forward, gx_method_fn inverse) {
  return gx_method_new_errext(name, forward, inverse, nullptr);
}

GX_API gx_method* gx_method_new_w(const gx_wchar* name, gx_method_fn forward,
                                  gx_method_fn inverse) {
  if (name == nullptr) return nullptr;
  char narrow[GX_NAME_SIZE];
  gx_narrow_from_wide(narrow, name, sizeof narrow - 1);
  return gx_method_new(narrow, forward, inverse);
}

GX_API gx_method_fn gx_method_forward(const gx_method* obj) {
  return gx_family_ops<gx_method>::field(obj, &gx_method::forward, identity);
}

GX_API gx_method_fn gx_method_inverse(const gx_method* obj) {
  return gx_family_ops<gx_method>::field(obj, &gx_method::inverse, identity);
}

}  // extern "C"
