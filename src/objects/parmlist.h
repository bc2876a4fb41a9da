// The parameter table: each parameter name tied to its factory code, its
// default, its slot in the 16-slot parameter vector and the object types
// that may hold it.
#pragma once

#include <cstdint>

#include "gx_objects.h"

struct gx_parmlist_row {
  int32_t code;
  const char* authname;
  const char* version;
  const char* name;
  double default_value;
  int32_t slot;     // index in the 16-slot parameter vector
  uint32_t owners;  // GX_TYPE_ bits of the objects that may hold it
};

// The prefix of a grid file's parameter: "Dataset_" and the data set name.
constexpr const char* GX_DATASET_PREFIX = "Dataset_";

// The current spelling of a parameter name (old names are read, never
// written); the name itself when it has no old form.
const char* gx_parmlist_alias_lookup(const char* name);
// The row of a name: old names first, then the rows in table order by the
// name comparison, then the Dataset_ rule (a name of 9 characters or more
// whose first 8 compare equal to "Dataset_").  Null if none.
const gx_parmlist_row* gx_parmlist_row_from_name(const char* name);
// The first row that carries exactly this name (no Dataset_ rule), or null.
const gx_parmlist_row* gx_parmlist_row_named(const char* name);
// The row of a factory code, or null.
const gx_parmlist_row* gx_parmlist_row_from_code(int32_t code);
// The row at `index` in table order, or null beyond the last.
const gx_parmlist_row* gx_parmlist_row_at(int32_t index);
// A new parameter from a factory code: the row's name and default, status
// "code", the row's code and authority.  An unknown code is message 218 and
// null.
gx_parameter* gx_parmlist_parameter_from_code(int32_t code);
