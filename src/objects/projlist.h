// The projection list: the one place where projections are registered.
#pragma once

#include <cstdint>

#include "gx_horizon.h"
#include "gx_objects.h"
#include "gx_projections.h"

struct gx_projection_row {
  int32_t code;  // factory code; a twin on the auxiliary sphere is its base + 100
  const char* authname;
  const char* version;
  const char* name;
  gx_projection_fn forward;
  gx_projection_fn inverse;
  gx_horizon_builder horizon;             // geographic side
  gx_horizon_builder horizon_pcs;         // projected side
  gx_horizon_builder horizon_gcs_raster;  // polyhedral nets only
  gx_horizon_builder horizon_pcs_raster;
  gx_constants_fn constants;  // null: the projection always runs its set-up
};

// All rows in table order, and their number.
const gx_projection_row* gx_projlist_rows();
int32_t gx_projlist_count();

// Lookups: by name through the old-name table, by code; null if none.
const gx_projection_row* gx_projlist_row_from_name(const char* name);
const gx_projection_row* gx_projlist_row_from_code(int32_t code);

// A projection object with all of a row's functions: from a code (status
// "code"; message 217 when there is no row) or from a name as WKT gives it
// (status "string"; message 309).
gx_projection* gx_projlist_projection_from_code(int32_t code);
gx_projection* gx_projlist_projection_from_name(const char* name, gx_errext* record);
