// The list of fitting methods of adjusted systems, and their functions.
#pragma once

#include <cstdint>

#include "gx_adjust.h"

struct gx_htmethod_row {
  int32_t code;
  const char* authname;
  const char* version;
  const char* name;
  gx_htmethod_fn forward;
  gx_htmethod_fn inverse;
  int32_t values;                  // coefficients the method reads
  const double* identity;          // the coefficients of its identity fit
};

const gx_htmethod_row* gx_htmethlist_row_from_name(const char* name);
const gx_htmethod_row* gx_htmethlist_row_from_code(int32_t code);
// A method object with the row's functions (status "string"); message 306
// when no row has the name.
gx_htmethod* gx_htmethlist_htmethod_from_name(const char* name, gx_errext* record);
