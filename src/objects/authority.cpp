// gx_authority: who defined an object and under which number.
#include <cstdlib>

#include "frame/family.h"

struct gx_authority {
  gx_header head;  // the name is the authority's name, "EPSG", "ORVA" ...
  int32_t authcode;
  char version[16];
};

namespace {
constexpr const char* kNew = "gx_authority_new";
constexpr int32_t kMinTokens = 3;  // keyword, name, code
}  // namespace

template <>
struct gx_family<gx_authority> {
  static constexpr uint32_t type = GX_TYPE_AUTHORITY;
  static constexpr const char* prefix = "gx_authority";
  static constexpr const char* keyword = "AUTHORITY";
  static constexpr bool has_authority = false;

  static gx_authority* copy(const gx_authority* obj) {
    return gx_authority_new(obj->head.name, obj->authcode, obj->version);
  }
  static void release(gx_authority*) {}
  static bool equal(const gx_authority* a, const gx_authority* b) {
    return gx_name_compare(a->head.name, b->head.name) == 0 && a->authcode == b->authcode;
  }
  // The version is not written: a text read back has none.
  static void print(const gx_authority* obj, int, char* buffer) {
    gx_snprintf(buffer, GX_WKT_SIZE, "AUTHORITY[\"%s\",%d", obj->head.name, obj->authcode);
  }
  static gx_authority* from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                   gx_errext* record);
};

GX_FAMILY_EXPORTS(gx_authority, authority)

// AUTHORITY["EPSG",4326], AUTHORITY["EPSG","4326"] and AUTHORITY["EPSG","6.5",4326]:
// with more than three tokens, an all-digit token after the name is the code
// and the next the version; otherwise the version comes first.
gx_authority* gx_family<gx_authority>::from_tokens(gx_wkt_tokens* block, int32_t start,
                                                   int32_t* next, gx_errext* record) {
  gx_wkt_walk walk;
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, keyword, nullptr, kMinTokens,
                         "gx_authority_from_string"))
    return nullptr;
  const char* first = block->tokens[start + 2].value;
  const char* code_text = first;
  const char* version = "";
  if (walk.end - start > kMinTokens) {
    const char* second = block->tokens[start + 3].value;
    if (gx_digits_p(first)) {
      version = second;
    } else {
      version = first;
      code_text = second;
    }
  }
  gx_authority* obj =
      gx_authority_new_errext(walk.name, std::atoi(code_text), version, walk.caller_record ? walk.record : nullptr);
  if (obj != nullptr) obj->head.status = GX_STATUS_STRING;
  return obj;
}

gx_authority* gx_authority_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                       gx_errext* record) {
  return gx_family<gx_authority>::from_tokens(block, start, next, record);
}

extern "C" {

GX_API gx_authority* gx_authority_new_errext(const char* name, int32_t code, const char* version,
                                             gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  if (name == nullptr || name[0] == '\0') {
    gx_report(record, 320, kNew);
    return nullptr;
  }
  if (code <= 0) {
    gx_report(record, 311, kNew, code);
    return nullptr;
  }
  gx_authority* obj = gx_family_ops<gx_authority>::create(name, record, kNew);
  if (obj == nullptr) return nullptr;
  obj->authcode = code;
  gx_name_copy(obj->version, version != nullptr ? version : "", sizeof obj->version);
  return obj;
}

GX_API gx_authority* gx_authority_new(const char* name, int32_t code, const char* version) {
  return gx_authority_new_errext(name, code, version, nullptr);
}

GX_API gx_authority* gx_authority_new_w(const gx_wchar* name, int32_t code,
                                        const gx_wchar* version) {
  if (name == nullptr) return nullptr;
  return gx_authority_new(gx_narrow_name(name).text, code, gx_narrow_name(version).text);
}

GX_API int32_t gx_authority_authcode(const gx_authority* obj) {
  return gx_family_ops<gx_authority>::field(obj, &gx_authority::authcode, 0);
}

GX_API char* gx_authority_version(const gx_authority* obj, char* buffer) {
  if (buffer == nullptr) return nullptr;
  buffer[0] = '\0';
  if (const gx_authority* source = gx_family_ops<gx_authority>::as(obj))
    gx_name_copy(buffer, source->version, sizeof source->version);
  return buffer;
}

GX_API gx_wchar* gx_authority_version_w(const gx_authority* obj, gx_wchar* buffer) {
  if (buffer == nullptr) return nullptr;
  char narrow[16];
  gx_wide_from_narrow(buffer, gx_authority_version(obj, narrow), -1);
  return buffer;
}

}  // extern "C"
