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
  CHECK(strcmp(gx_dtoa(6378137.0, buffer, 16), "6378137.0") == 0);
  CHECK(strncmp(gx_version(), "Gexmar Version 9.3.0", 20) == 0);
  printf("c interface: %d failures\n", failures);
  return failures == 0 ? 0 : 1;
}
