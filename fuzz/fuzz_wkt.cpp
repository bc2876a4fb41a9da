// Feeds arbitrary text to the WKT readers (the keyword dispatch and the
// readers of single families), as 8-bit and as 16-bit text.  Whatever reads
// is written back at every authority option, cloned and deleted.  A written
// text that reads again must, after one more round, be written the same way.
// (It need not read: a name taken from an unquoted token may hold a quote,
// which the text form has no way to escape.)
#include <cstdint>
#include <cstring>
#include <string>

#include "gx_objects.h"

namespace {

using reader = void* (*)(const char*);

template <class T, T* (*Read)(const char*)>
void* read_as(const char* text) {
  return Read(text);
}

constexpr reader readers[] = {
    gx_object_from_string,
    gx_coordsys_from_string,
    read_as<gx_geogcs, gx_geogcs_from_string>,
    read_as<gx_datum, gx_datum_from_string>,
    read_as<gx_spheroid, gx_spheroid_from_string>,
    read_as<gx_primem, gx_primem_from_string>,
    read_as<gx_unit, gx_unit_from_string>,
    read_as<gx_parameter, gx_parameter_from_string>,
    read_as<gx_authority, gx_authority_from_string>,
};

// Reads `text` as an object of `type` and writes it again; false if it does
// not read.
bool rewrite(uint32_t type, int option, const char* text, char* out) {
  void* obj = gx_object_from_string_by_type(type, text);
  if (obj == nullptr) return false;
  gx_object_to_string_ext(obj, option, out);
  gx_object_del(obj);
  return true;
}

// One round trip may still change a text (a name cut to 63 characters can end
// in blanks, which reading trims); the second must not.
void check_written_text_is_stable(const void* obj) {
  char first[GX_WKT_SIZE];
  char second[GX_WKT_SIZE];
  char third[GX_WKT_SIZE];
  uint32_t type = gx_object_type(obj);
  for (int option = GX_WKT_NO_AUTHORITY; option <= GX_WKT_ALL_AUTHORITY; ++option) {
    gx_object_to_string_ext(obj, option, first);
    if (std::strlen(first) >= GX_WKT_SIZE) __builtin_trap();
    if (!rewrite(type, option, first, second)) continue;
    if (!rewrite(type, option, second, third)) __builtin_trap();
    if (std::strcmp(second, third) != 0) __builtin_trap();
  }
}

void exercise(void* obj) {
  if (obj == nullptr) return;
  check_written_text_is_stable(obj);
  void* copy = gx_object_clone(obj);
  if (copy == nullptr || gx_object_eq(obj, copy) != gx_object_eq(obj, obj)) __builtin_trap();
  char name[GX_NAME_SIZE];
  gx_object_name(copy, name);
  gx_object_del(copy);
  gx_object_del(obj);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  for (reader read : readers) exercise(read(text.c_str()));

  std::u16string wide;
  for (size_t i = 0; i + 1 < size; i += 2) wide += static_cast<char16_t>(data[i] | data[i + 1] << 8);
  exercise(gx_object_from_string_w(reinterpret_cast<const gx_wchar*>(wide.c_str())));
  return 0;
}
