// Reading any object from text: the family is picked by the text's keyword,
// in a fixed order of tests (a table: each family adds its row).
#include <cctype>

#include "frame/diagnostics.h"
#include "frame/object.h"
#include "frame/text.h"
#include "gx_adjust.h"
#include "gx_objects.h"

namespace {

using gx_reader = void* (*)(const char* text, gx_errext* record);

template <class T, T* (*Read)(const char*, gx_errext*)>
void* reader_of(const char* text, gx_errext* record) {
  return Read(text, record);
}

enum class gx_match : uint8_t {
  starts,    // the text starts with the keyword
  compound,  // the text holds GEOGCS or PROJCS and also VERTCS
};

struct gx_reader_row {
  gx_match match;
  const char* keyword;
  uint32_t type;
  gx_reader read;
};

// The order of the rows is the order of the tests; it matters where one
// keyword holds another or one text holds several objects.
constexpr gx_reader_row readers[] = {
    {gx_match::starts, "ADJHCS", GX_TYPE_ADJHCS, reader_of<gx_adjhcs, gx_adjhcs_from_string_errext>},
    {gx_match::starts, "GEOGTRAN", GX_TYPE_GEOGTRAN,
     reader_of<gx_geogtran, gx_geogtran_from_string_errext>},
    {gx_match::starts, "PROJCS", GX_TYPE_PROJCS, reader_of<gx_projcs, gx_projcs_from_string_errext>},
    {gx_match::starts, "GEOGCS", GX_TYPE_GEOGCS, reader_of<gx_geogcs, gx_geogcs_from_string_errext>},
    {gx_match::starts, "DATUM", GX_TYPE_DATUM, reader_of<gx_datum, gx_datum_from_string_errext>},
    {gx_match::starts, "LINUNIT", GX_TYPE_UNIT, reader_of<gx_unit, gx_unit_from_string_errext>},
    {gx_match::starts, "ANGUNIT", GX_TYPE_UNIT, reader_of<gx_unit, gx_unit_from_string_errext>},
    {gx_match::starts, "UNIT", GX_TYPE_UNIT, reader_of<gx_unit, gx_unit_from_string_errext>},
    {gx_match::starts, "PRIMEM", GX_TYPE_PRIMEM, reader_of<gx_primem, gx_primem_from_string_errext>},
    {gx_match::starts, "SPHEROID", GX_TYPE_SPHEROID,
     reader_of<gx_spheroid, gx_spheroid_from_string_errext>},
    {gx_match::starts, "ELLIPSOID", GX_TYPE_SPHEROID,
     reader_of<gx_spheroid, gx_spheroid_from_string_errext>},
    {gx_match::starts, "METHOD", GX_TYPE_METHOD, reader_of<gx_method, gx_method_from_string_errext>},
    {gx_match::starts, "HTMETHOD", GX_TYPE_HTMETHOD,
     reader_of<gx_htmethod, gx_htmethod_from_string_errext>},
    {gx_match::starts, "PROJECTION", GX_TYPE_PROJECTION,
     reader_of<gx_projection, gx_projection_from_string_errext>},
    {gx_match::starts, "PARAMETER", GX_TYPE_PARAMETER,
     reader_of<gx_parameter, gx_parameter_from_string_errext>},
    {gx_match::starts, "AUTHORITY", GX_TYPE_AUTHORITY,
     reader_of<gx_authority, gx_authority_from_string_errext>},
    {gx_match::starts, "ARRAY", GX_TYPE_ARRAY, reader_of<gx_array, gx_array_from_string_errext>},
};

bool row_matches(const gx_reader_row& row, const char* text) {
  if (row.match == gx_match::starts) return gx_name_prefix(text, row.keyword) == 0;
  return (gx_name_search(text, "GEOGCS") != nullptr || gx_name_search(text, "PROJCS") != nullptr) &&
         gx_name_search(text, "VERTCS") != nullptr;
}

const gx_reader_row* reader_of_type(uint32_t type) {
  for (const gx_reader_row& row : readers)
    if (row.type == type) return &row;
  return nullptr;
}

void report_unrecognised(gx_errext* record, const char* text, const char* function) {
  char keyword[GX_WKT_SIZE];
  size_t length = 0;
  while (text[length] != '\0' && text[length] != ']' && length + 1 < sizeof keyword) ++length;
  std::memcpy(keyword, text, length);
  keyword[length] = '\0';
  gx_report(record, 461, function, keyword);
}

}  // namespace

extern "C" {

GX_API void* gx_object_from_string_errext(const char* text, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  const char* function = "gx_object_from_string";
  if (text == nullptr) {
    gx_report(record, 456, function);
    return nullptr;
  }
  while (*text != '\0' && std::isalpha(static_cast<unsigned char>(*text)) == 0) ++text;
  if (*text == '\0') return nullptr;
  for (const gx_reader_row& row : readers)
    if (row_matches(row, text)) return row.read(text, caller);
  report_unrecognised(record, text, function);
  return nullptr;
}

GX_API void* gx_object_from_string_by_type_errext(uint32_t type, const char* text,
                                                   gx_errext* caller) {
  if (type == 0) return gx_object_from_string_errext(text, caller);
  if (type == GX_TYPE_LINUNIT || type == GX_TYPE_ANGUNIT) type = GX_TYPE_UNIT;
  if (const gx_reader_row* row = reader_of_type(type)) return row->read(text, caller);
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  gx_report(record, 426, "gx_object_from_string_by_type", type);
  return nullptr;
}

GX_API void* gx_object_from_string_by_type(uint32_t type, const char* text) {
  return gx_object_from_string_by_type_errext(type, text, nullptr);
}

// A projected system when PROJCS stands anywhere in the text, otherwise a
// geographic one, whatever the text holds.
GX_API void* gx_coordsys_from_string_errext(const char* text, gx_errext* caller) {
  gx_errext local;
  gx_errext* record = gx_errext_begin(caller, &local);
  const char* function = "gx_coordsys_from_string";
  if (text == nullptr) {
    gx_report(record, 456, function);
    return nullptr;
  }
  uint32_t type = gx_name_search(text, "PROJCS") != nullptr ? GX_TYPE_PROJCS : GX_TYPE_GEOGCS;
  if (const gx_reader_row* row = reader_of_type(type)) return row->read(text, caller);
  report_unrecognised(record, text, function);
  return nullptr;
}

}  // extern "C"
