// gx_htmethod: a fitting method of adjusted systems, its forward and inverse
// functions, and the method list's rows made into objects.
#include "adjust/htmethlist.h"
#include "frame/family.h"
#include "objects/families.h"

struct gx_htmethod {
  gx_header head;
  gx_authority* authority;
  gx_htmethod_fn forward;
  gx_htmethod_fn inverse;
};

namespace {

constexpr const char* kNew = "gx_htmethod_new";

// What an invalid method hands out: coordinates stay as they are.
int32_t identity(int32_t, const double*, int32_t n, double*) { return n; }

gx_htmethod* new_full(const char* name, gx_htmethod_fn forward, gx_htmethod_fn inverse,
                      gx_errext* record) {
  gx_htmethod* obj = gx_family_ops<gx_htmethod>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->forward = forward;
  obj->inverse = inverse;
  if (const gx_htmethod_row* row = gx_htmethlist_row_from_name(obj->head.name))
    gx_family_ops<gx_htmethod>::code_set(obj, row->code, row->authname, row->version);
  return obj;
}

}  // namespace

template <>
struct gx_family<gx_htmethod> {
  static constexpr uint32_t type = GX_TYPE_HTMETHOD;
  static constexpr const char* prefix = "gx_htmethod";
  static constexpr const char* keyword = "HTMETHOD";
  static constexpr bool has_authority = true;

  static gx_htmethod* copy(const gx_htmethod* obj) {
    return new_full(obj->head.name, obj->forward, obj->inverse, nullptr);
  }
  static void release(gx_htmethod*) {}
  static bool equal(const gx_htmethod* a, const gx_htmethod* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && a->forward == b->forward &&
           a->inverse == b->inverse;
  }
  static void print(const gx_htmethod* obj, int, char* buffer) {
    gx_snprintf(buffer, GX_WKT_SIZE, "HTMETHOD[\"%s\"", obj->head.name);
  }
  // HTMETHOD["name",AUTHORITY[...]]: the name must be in the method list.
  static gx_htmethod* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                  gx_errext* record) {
    return gx_read_named<gx_htmethod>(block, start, next, record, gx_htmethlist_htmethod_from_name);
  }
};

GX_FAMILY_EXPORTS(gx_htmethod, htmethod)
GX_FAMILY_AUTHORITY_EXPORTS(gx_htmethod, htmethod)

gx_htmethod* gx_htmethod_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                     gx_errext* record) {
  return gx_family<gx_htmethod>::from_tokens(block, start, next, record);
}

gx_htmethod* gx_htmethlist_htmethod_from_name(const char* name, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  const gx_htmethod_row* row = gx_htmethlist_row_from_name(name);
  if (row == nullptr) {
    gx_report(record, 306, "gx_htmethlist_htmethod_from_name", name != nullptr ? name : "");
    return nullptr;
  }
  gx_htmethod* obj = new_full(row->name, row->forward, row->inverse, record);
  if (obj != nullptr) obj->head.status = GX_STATUS_STRING;
  return obj;
}

extern "C" {

GX_API gx_htmethod* gx_htmethod_new_errext(const char* name, gx_htmethod_fn forward,
                                           gx_htmethod_fn inverse, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (forward == nullptr || inverse == nullptr) {
    gx_report_alt(record, 340, kNew);
    return nullptr;
  }
  return new_full(name, forward, inverse, record);
}

GX_API gx_htmethod* gx_htmethod_new(const char* name, gx_htmethod_fn forward, gx_htmethod_fn inverse) {
  return gx_htmethod_new_errext(name, forward, inverse, nullptr);
}

GX_API gx_htmethod* gx_htmethod_new_w(const gx_wchar* name, gx_htmethod_fn forward,
                                      gx_htmethod_fn inverse) {
  if (name == nullptr) return nullptr;
  return gx_htmethod_new(gx_narrow_name(name).text, forward, inverse);
}

GX_API gx_htmethod_fn gx_htmethod_forward(const gx_htmethod* obj) {
  return gx_family_ops<gx_htmethod>::field(obj, &gx_htmethod::forward, identity);
}

GX_API gx_htmethod_fn gx_htmethod_inverse(const gx_htmethod* obj) {
  return gx_family_ops<gx_htmethod>::field(obj, &gx_htmethod::inverse, identity);
}

}  // extern "C"
