// The WKT parsers of the object families, for containers that name them in
// their clause tables.
#pragma once

#include <cstdint>

#include "frame/wkt.h"
#include "gx_methods.h"
#include "gx_objects.h"
#include "methods/methods.h"

gx_authority* gx_authority_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                       gx_errext* record);
gx_unit* gx_unit_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                             gx_errext* record);
gx_parameter* gx_parameter_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                       gx_errext* record);
gx_spheroid* gx_spheroid_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                     gx_errext* record);
gx_primem* gx_primem_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record);
gx_datum* gx_datum_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                               gx_errext* record);
gx_geogcs* gx_geogcs_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record);
gx_projection* gx_projection_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                         gx_errext* record);
gx_projcs* gx_projcs_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record);

// Internal accessors of the projected families.
gx_constants_fn gx_projection_constants_fn(const gx_projection* obj);
gx_constants* gx_projcs_constants(const gx_projcs* obj);
gx_method* gx_method_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                 gx_errext* record);
gx_geogtran* gx_geogtran_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                     gx_errext* record);
gx_constants* gx_geogtran_constants(const gx_geogtran* obj);
gx_method_loader gx_method_constants_fn(const gx_method* obj);
