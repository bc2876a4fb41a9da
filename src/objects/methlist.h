// The method list: every geographic transformation method with its functions.
#pragma once

#include <cstdint>

#include "gx_methods.h"
#include "gx_objects.h"
#include "methods/methods.h"

struct gx_method_row {
  int32_t code;
  const char* authname;
  const char* version;
  const char* name;
  gx_method_fn forward;
  gx_method_fn inverse;
  gx_method_loader constants;  // grid methods only
};

const gx_method_row* gx_methlist_rows();
int32_t gx_methlist_count();
const gx_method_row* gx_methlist_row_from_name(const char* name);
const gx_method_row* gx_methlist_row_from_code(int32_t code);

// A method object with all of a row's functions (status "string"); message
// 305 when no row has the name.
gx_method* gx_methlist_method_from_name(const char* name, gx_errext* record);
