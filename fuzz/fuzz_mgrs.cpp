// libFuzzer harness for the MGRS reader: any bytes, read as one reference
// (narrow and 16-bit) in every lettering mode, on WGS 84 and on a Clarke 1866
// datum that turns the old lettering on.
#include <initializer_list>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "gridref/mgrs_grid.h"
#include "orvamobilegx.h"

namespace {

gx_geogcs* make_geogcs(const char* text) { return gx_geogcs_from_string(text); }

gx_geogcs* wgs84() {
  static gx_geogcs* geogcs = make_geogcs(
      "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
      "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]");
  return geogcs;
}

gx_geogcs* nad27() {
  static gx_geogcs* geogcs = make_geogcs(
      "GEOGCS[\"GCS_North_American_1927\",DATUM[\"D_North_American_1927\",SPHEROID["
      "\"Clarke_1866\",6378206.4,294.9786982]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\","
      "0.0174532925199433]]");
  return geogcs;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  char text[4097];
  std::memcpy(text, data, size);
  text[size] = '\0';

  gx_mgrs_reference ref;
  gx_mgrs_read(text, &ref);

  const char* strings[1] = {text};
  double coords[2];
  for (int32_t mode : {GX_MGRS_BY_DATUM, GX_MGRS_NEW, GX_MGRS_OLD})
    gx_mgrs_to_geog_extended(mode == GX_MGRS_NEW ? wgs84() : nad27(), 1, strings, mode, coords);

  gx_wchar wide[4097];
  for (size_t i = 0; i + 1 < size; i += 2) wide[i / 2] = static_cast<gx_wchar>(data[i] | data[i + 1] << 8);
  wide[size / 2] = 0;
  const gx_wchar* wides[1] = {wide};
  gx_mgrs_to_geog_w(wgs84(), 1, wides, coords);
  return 0;
}
