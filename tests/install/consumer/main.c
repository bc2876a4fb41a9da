#include <orvamobilegx.h>
#include <stdio.h>
#include <string.h>

int main(void) {
  gx_unit *unit = gx_unit_new("Metre", 1.0);
  char name[GX_NAME_SIZE];
  int ok = unit != NULL && strcmp(gx_unit_name(unit, name), "Meter") == 0;
  gx_unit_del(unit);
  printf("consumer: %s\n", ok ? "ok" : "failed");
  return ok ? 0 : 1;
}
