// The exported GEOREF functions: the geographic CS only lends its angular
// unit; everything else is the text layer's.
#include "gridref/georef_codec.h"
#include "gx_gridref.h"
#include "gx_objects.h"

namespace {

// Radians per unit of the system's angles; 0 (which the text layer refuses)
// when cs is not a live geographic CS.
double angular_factor(const gx_geogcs* cs) {
  if (!gx_geogcs_p(cs)) return 0.0;
  return gx_unit_factor(gx_geogcs_unit(cs));
}

}  // namespace

extern "C" int gx_geog_to_georef(const gx_geogcs* cs, int n, const double* coords, int precision,
                                 int rounding, char** strings) {
  return gx_georef_encode(angular_factor(cs), n, coords, precision, rounding, strings);
}

extern "C" int gx_geog_to_georef_w(const gx_geogcs* cs, int n, const double* coords,
                                   int precision, int rounding, gx_wchar** strings) {
  return gx_georef_encode(angular_factor(cs), n, coords, precision, rounding, strings);
}

extern "C" int gx_georef_to_geog(const gx_geogcs* cs, int n, const char* const* strings,
                                 double* coords) {
  return gx_georef_decode(angular_factor(cs), n, strings, coords);
}

extern "C" int gx_georef_to_geog_w(const gx_geogcs* cs, int n, const gx_wchar* const* strings,
                                   double* coords) {
  return gx_georef_decode(angular_factor(cs), n, strings, coords);
}
