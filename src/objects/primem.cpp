// gx_primem: a prime meridian, its longitude in degrees east of Greenwich
// (degrees whatever the unit of the system that holds it).
#include <cmath>

#include "frame/family.h"
#include "gx_geodesy.h"
#include "objects/families.h"

struct gx_primem {
  gx_header head;
  gx_authority* authority;
  double longitude;  // degrees east of Greenwich
};

namespace {

constexpr const char* kNew = "gx_primem_new";
constexpr const char* kFromString = "gx_primem_from_string";
constexpr int32_t kMinTokens = 3;  // keyword, name, longitude
constexpr double kLongitudeLimit = 180.0;

constexpr gx_wkt_clause primem_clauses[] = {gx_authority_clause};

// -180 to 180, both included; NaN is refused like a longitude out of range.
bool longitude_valid(double longitude) { return std::fabs(longitude) <= kLongitudeLimit; }

}  // namespace

template <>
struct gx_family<gx_primem> {
  static constexpr uint32_t type = GX_TYPE_PRIMEM;
  static constexpr const char* prefix = "gx_primem";
  static constexpr const char* keyword = "PRIMEM";
  static constexpr bool has_authority = true;

  static gx_primem* copy(const gx_primem* obj) {
    return gx_primem_new(obj->head.name, obj->longitude);
  }
  static void release(gx_primem*) {}
  static bool equal(const gx_primem* a, const gx_primem* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && gx_eq(a->longitude, b->longitude);
  }
  static void print(const gx_primem* obj, int, char* buffer) {
    gx_number_text longitude(obj->longitude);
    gx_snprintf(buffer, GX_WKT_SIZE, "PRIMEM[\"%s\",%s", obj->head.name, longitude.text);
  }
  static gx_primem* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_primem, primem)
GX_FAMILY_AUTHORITY_EXPORTS(gx_primem, primem)

// PRIMEM["name",longitude,AUTHORITY[...]]
gx_primem* gx_family<gx_primem>::from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                             gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         kFromString))
    return nullptr;
  const char* longitude_text = gx_wkt_walk_value(&walk, start + 2);
  if (longitude_text == nullptr) {
    gx_report(walk.record, 449, kFromString);
    return nullptr;
  }
  double longitude = gx_atod(longitude_text);
  if (!longitude_valid(longitude)) {
    gx_report(walk.record, 419, kFromString, longitude_text);
    return nullptr;
  }
  if (!gx_wkt_walk_clauses(&walk, start + 3, primem_clauses, 1)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  gx_primem* obj =
      gx_primem_new_errext(walk.name, longitude, walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<gx_primem>::finish_parse(obj, &walk);
}

gx_primem* gx_primem_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record) {
  return gx_family<gx_primem>::from_tokens(block, start, next, record);
}

extern "C" {

GX_API gx_primem* gx_primem_new_errext(const char* name, double longitude, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (!longitude_valid(longitude)) {
    gx_report(record, 301, kNew, gx_number_text(longitude).text);
    return nullptr;
  }
  gx_primem* obj = gx_family_ops<gx_primem>::create(name, record, kNew);
  if (obj != nullptr) obj->longitude = longitude;
  return obj;
}

GX_API gx_primem* gx_primem_new(const char* name, double longitude) {
  return gx_primem_new_errext(name, longitude, nullptr);
}

GX_API gx_primem* gx_primem_new_w(const gx_wchar* name, double longitude) {
  if (name == nullptr) return nullptr;
  return gx_primem_new(gx_narrow_name(name).text, longitude);
}

GX_API double gx_primem_longitude(const gx_primem* obj) {
  return gx_family_ops<gx_primem>::field(obj, &gx_primem::longitude, 0.0);
}

GX_API void gx_primem_longitude_w(const gx_primem* obj, double* longitude) {
  if (longitude == nullptr) return;
  *longitude = gx_primem_longitude(obj);
}

}  // extern "C"
