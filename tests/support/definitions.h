// Definitions that several test files build: the geographic systems the
// tests stand on, and a projected system of any row of the projection list
// with its starting parameters.
#pragma once

#include <string>

#include "gx_objects.h"
#include "objects/projlist.h"

namespace gx_test {

inline const char* const kWgs84Geogcs =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
inline const char* const kSphereGeogcs =
    "GEOGCS[\"GCS_Sphere\",DATUM[\"D_Sphere\",SPHEROID[\"Sphere\",6371000.0,0.0]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

// A definition of the row's projection with its starting parameters.
inline std::string DefaultDefinition(const gx_projection_row& row, const char* geogcs) {
  gx_projection* projection = gx_projection_new(row.name, nullptr, nullptr, nullptr);
  gx_parameter* parameters[16];
  gx_parameter_projection_defaults(projection, parameters);
  std::string text = std::string("PROJCS[\"Test_") + row.name + "\"," + geogcs +
                     ",PROJECTION[\"" + row.name + "\"]";
  char clause[GX_WKT_SIZE];
  for (gx_parameter* parameter : parameters) {
    if (parameter == nullptr) continue;
    text += ",";
    text += gx_parameter_to_string(parameter, clause);
    gx_parameter_del(parameter);
  }
  gx_projection_del(projection);
  return text + ",UNIT[\"Meter\",1.0]]";
}

}  // namespace gx_test
