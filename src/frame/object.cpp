// The generic layers over all objects (gx_object_*) and over coordinate
// systems (gx_coordsys_*), memory, version, and the names of types and statuses.
#include "frame/object.h"

#include <cctype>
#include <cstdlib>

#include "frame/diagnostics.h"
#include "frame/text.h"
#include "gx_objects.h"

// ---- memory -------------------------------------------------------------------

namespace {
// Allocations left before the next one fails; negative: none fails.  Only
// tests set it, to prove that every creating function survives "No memory".
long allocations_before_failure = -1;
}  // namespace

void gx_alloc_fail_after(long count) { allocations_before_failure = count; }

void* gx_alloc(size_t size) {
  if (size == 0) return nullptr;
  if (allocations_before_failure == 0) return nullptr;
  if (allocations_before_failure > 0) --allocations_before_failure;
  return std::malloc(size);
}
void gx_free(void* pointer) {
  if (pointer != nullptr) std::free(pointer);
}

// ---- names of types and statuses ----------------------------------------------

namespace {

constexpr const char* kVersion = "Gexmar Version 9.3.0 Build 505 (Apr 22 2008)";

struct gx_type_name {
  uint32_t type;
  const char* name;
};

constexpr gx_type_name type_names[] = {
    {GX_TYPE_GEOGCS, "geogcs"},       {GX_TYPE_PROJCS, "projcs"},
    {GX_TYPE_GEOXYZCS, "geoxyzcs"},   {GX_TYPE_VERTCS, "vertcs"},
    {GX_TYPE_HVCOORDSYS, "hvcoordsys"}, {GX_TYPE_DATUM, "datum"},
    {GX_TYPE_VDATUM, "vdatum"},       {GX_TYPE_GEOGTRAN, "geogtran"},
    {GX_TYPE_LINUNIT, "linunit"},     {GX_TYPE_ANGUNIT, "angunit"},
    {GX_TYPE_UNIT, "unit"},           {GX_TYPE_PRIMEM, "primem"},
    {GX_TYPE_SPHEROID, "spheroid"},   {GX_TYPE_METHOD, "method"},
    {GX_TYPE_HTMETHOD, "htmethod"},   {GX_TYPE_PROJECTION, "projection"},
    {GX_TYPE_PARAMETER, "parameter"}, {GX_TYPE_AUTHORITY, "authority"},
    {GX_TYPE_ADJHCS, "adjhcs"},       {GX_TYPE_ARRAY, "array"},
    {GX_TYPE_VERTTRAN, "verttran"},   {GX_TYPE_VTMETHOD, "vtmethod"},
};

struct gx_status_name {
  uint32_t status;
  const char* name;
};

constexpr gx_status_name status_names[] = {
    {0, ""},
    {GX_STATUS_NEW, "new"},
    {GX_STATUS_STRING, "string"},
    {GX_STATUS_CODE, "code"},
    {GX_STATUS_USER, "user"},
    {GX_STATUS_CODECHANGE, "codechange"},
    {GX_STATUS_DISCONTINUED, "discontinued"},
    {GX_STATUS_DEAD, "dead"},
};

const gx_objtable* table_of(const void* obj) {
  const gx_header* head = gx_header_of(obj);
  return head != nullptr ? head->objtable : nullptr;
}

bool is_coordsys(const void* obj) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && (table->type == GX_TYPE_GEOGCS || table->type == GX_TYPE_PROJCS);
}

char* empty_buffer(char* buffer) {
  if (buffer != nullptr) buffer[0] = '\0';
  return buffer;
}

gx_wchar* widen(gx_wchar* buffer, const char* narrow) {
  if (buffer == nullptr) return nullptr;
  gx_wide_from_narrow(buffer, narrow, -1);
  return buffer;
}

}  // namespace

// ---- internal operations of any object ------------------------------------------

int32_t gx_object_code(const void* obj) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->code != nullptr ? table->code(obj) : -1;
}

int gx_object_status_set(void* obj, uint32_t status) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->status_set != nullptr ? table->status_set(obj, status) : 0;
}

int gx_object_code_set(void* obj, int32_t code, const char* authname, const char* authversion) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->code_set != nullptr
             ? table->code_set(obj, code, authname, authversion)
             : 0;
}

extern "C" {

GX_API void* gx_memalloc(size_t size) { return gx_alloc(size); }
GX_API void gx_memdealloc(void* pointer) { gx_free(pointer); }

GX_API const char* gx_version(void) { return kVersion; }

GX_API char* gx_version_string(char* buffer) {
  if (buffer == nullptr) return nullptr;
  std::strcpy(buffer, kVersion);
  return buffer;
}

GX_API gx_wchar* gx_version_string_w(gx_wchar* buffer) { return widen(buffer, kVersion); }

GX_API const char* gx_status_to_string(uint32_t status) {
  for (const gx_status_name& row : status_names)
    if (row.status == status) return row.name;
  return "unknown";
}

GX_API const char* gx_type_to_name(uint32_t type) {
  for (const gx_type_name& row : type_names)
    if (row.type == type) return row.name;
  return nullptr;
}

GX_API uint32_t gx_name_to_type(const char* name) {
  if (name == nullptr || name[0] == '\0') return 0;
  for (const gx_type_name& row : type_names)
    if (gx_type_name_compare(name, row.name) == 0) return row.type;
  return 0;
}

// ---- gx_object_*: one call through the object's table ---------------------------

GX_API int gx_object_p(const void* obj) { return gx_header_of(obj) != nullptr ? 1 : 0; }

GX_API void* gx_object_clone(const void* obj) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->clone != nullptr ? table->clone(obj) : nullptr;
}

GX_API void gx_object_del(void* obj) {
  const gx_objtable* table = table_of(obj);
  if (table != nullptr && table->del != nullptr) table->del(obj);
}

GX_API int gx_object_eq(const void* a, const void* b) {
  const gx_objtable* ta = table_of(a);
  const gx_objtable* tb = table_of(b);
  if (ta == nullptr || tb == nullptr || ta->type != tb->type || ta->eq == nullptr) return 0;
  return ta->eq(a, b);
}

GX_API char* gx_object_name(const void* obj, char* buffer) {
  if (empty_buffer(buffer) == nullptr) return nullptr;
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->name != nullptr ? table->name(obj, buffer) : buffer;
}

GX_API gx_wchar* gx_object_name_w(const void* obj, gx_wchar* buffer) {
  char narrow[GX_NAME_SIZE];
  return widen(buffer, gx_object_name(obj, narrow));
}

GX_API char* gx_object_to_string_ext(const void* obj, int option, char* buffer) {
  if (empty_buffer(buffer) == nullptr) return nullptr;
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->to_string_ext != nullptr
             ? table->to_string_ext(obj, option, buffer)
             : buffer;
}

GX_API char* gx_object_to_string(const void* obj, char* buffer) {
  return gx_object_to_string_ext(obj, GX_WKT_NO_AUTHORITY, buffer);
}

GX_API gx_wchar* gx_object_to_string_ext_w(const void* obj, int option, gx_wchar* buffer) {
  char narrow[GX_WKT_SIZE];
  return widen(buffer, gx_object_to_string_ext(obj, option, narrow));
}

GX_API gx_wchar* gx_object_to_string_w(const void* obj, gx_wchar* buffer) {
  return gx_object_to_string_ext_w(obj, GX_WKT_NO_AUTHORITY, buffer);
}

GX_API uint32_t gx_object_type(const void* obj) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->type_of != nullptr ? table->type_of(obj) : 0;
}

GX_API uint32_t gx_object_status(const void* obj) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->status != nullptr ? table->status(obj) : 0;
}

GX_API gx_authority* gx_object_authority(void* obj) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->authority != nullptr ? table->authority(obj) : nullptr;
}

GX_API int gx_object_authority_set(void* obj, gx_authority* authority) {
  const gx_objtable* table = table_of(obj);
  return table != nullptr && table->authority_set != nullptr ? table->authority_set(obj, authority)
                                                             : 0;
}

GX_API void* gx_object_from_string(const char* text) {
  return gx_object_from_string_errext(text, nullptr);
}

GX_API void* gx_object_from_string_w(const gx_wchar* text) {
  if (text == nullptr) return nullptr;
  char narrow[GX_WKT_SIZE];
  gx_narrow_from_wide(narrow, text, sizeof narrow - 1);
  return gx_object_from_string(narrow);
}

// ---- gx_coordsys_*: a geographic or a projected system ------------------------

GX_API int gx_coordsys_p(const void* obj) { return is_coordsys(obj) ? 1 : 0; }

GX_API uint32_t gx_coordsys_type(const void* obj) {
  return is_coordsys(obj) ? gx_object_type(obj) : 0;
}

// Kept in the interface as it always was: it answers 0 for anything.
GX_API uint32_t gx_coordsys_status(const void* obj) { return 0; }

GX_API char* gx_coordsys_name(const void* obj, char* buffer) {
  if (empty_buffer(buffer) == nullptr) return nullptr;
  return is_coordsys(obj) ? gx_object_name(obj, buffer) : buffer;
}

GX_API gx_wchar* gx_coordsys_name_w(const void* obj, gx_wchar* buffer) {
  char narrow[GX_NAME_SIZE];
  return widen(buffer, gx_coordsys_name(obj, narrow));
}

GX_API gx_authority* gx_coordsys_authority(void* obj) {
  return is_coordsys(obj) ? gx_object_authority(obj) : nullptr;
}

GX_API int gx_coordsys_authority_set(void* obj, gx_authority* authority) {
  return is_coordsys(obj) ? gx_object_authority_set(obj, authority) : 0;
}

GX_API char* gx_coordsys_to_string_ext(const void* obj, int option, char* buffer) {
  if (empty_buffer(buffer) == nullptr) return nullptr;
  return is_coordsys(obj) ? gx_object_to_string_ext(obj, option, buffer) : buffer;
}

GX_API char* gx_coordsys_to_string(const void* obj, char* buffer) {
  return gx_coordsys_to_string_ext(obj, GX_WKT_NO_AUTHORITY, buffer);
}

GX_API gx_wchar* gx_coordsys_to_string_ext_w(const void* obj, int option, gx_wchar* buffer) {
  char narrow[GX_WKT_SIZE];
  return widen(buffer, gx_coordsys_to_string_ext(obj, option, narrow));
}

GX_API gx_wchar* gx_coordsys_to_string_w(const void* obj, gx_wchar* buffer) {
  return gx_coordsys_to_string_ext_w(obj, GX_WKT_NO_AUTHORITY, buffer);
}

GX_API void* gx_coordsys_clone(const void* obj) {
  return is_coordsys(obj) ? gx_object_clone(obj) : nullptr;
}

GX_API void gx_coordsys_del(void* obj) {
  if (is_coordsys(obj)) gx_object_del(obj);
}

GX_API int gx_coordsys_eq(const void* a, const void* b) {
  return is_coordsys(a) && is_coordsys(b) ? gx_object_eq(a, b) : 0;
}

GX_API void* gx_coordsys_from_string_w(const gx_wchar* text) {
  if (text == nullptr) return nullptr;
  char narrow[GX_WKT_SIZE];
  gx_narrow_from_wide(narrow, text, sizeof narrow - 1);
  return gx_coordsys_from_string(narrow);
}

GX_API void* gx_coordsys_from_string(const char* text) {
  return gx_coordsys_from_string_errext(text, nullptr);
}

}  // extern "C"
