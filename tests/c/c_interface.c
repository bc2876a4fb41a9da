/* The umbrella header compiles as C99, and the shared library serves a C program. */
#include <stdio.h>
#include <string.h>

#include "orvamobilegx.h"

static int failures = 0;
#define CHECK(cond)                                               \
  do {                                                            \
    if (!(cond)) {                                                \
      fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #cond);  \
      failures++;                                                 \
    }                                                             \
  } while (0)

int main(void) {
  char buffer[GX_WKT_SIZE];
  gx_unit *unit = gx_unit_from_string("UNIT[\"Meter\",1.0");
  CHECK(unit != NULL);
  CHECK(gx_unit_p(unit) == 1);
  CHECK(gx_unit_factor(unit) == 1.0);
  CHECK(strcmp(gx_unit_to_string(unit, buffer), "UNIT[\"Meter\",1.0]") == 0);
  CHECK(gx_object_type(unit) == GX_TYPE_UNIT);
  gx_unit_del(unit);
  CHECK(gx_unit_new("x", 0.0) == NULL);
  {
    gx_geogcs *gcs = gx_geogcs_from_string(
        "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
        "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]");
    CHECK(gx_coordsys_p(gcs) == 1);
    CHECK(gx_spheroid_axis(gx_datum_spheroid(gx_geogcs_datum(gcs))) == 6378137.0);
    CHECK(gx_parameter_index(NULL) == -2);
    gx_geogcs_del(gcs);
  }
  CHECK(strcmp(gx_dtoa(6378137.0, buffer, 16), "6378137.0") == 0);
  CHECK(strncmp(gx_version(), "Gexmar Version 9.3.0", 20) == 0);
  printf("c interface: %d failures\n", failures);
  return failures == 0 ? 0 : 1;
}
