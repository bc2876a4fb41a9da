// The WKT parsers of the object families, for containers that name them in
// their clause tables.
#pragma once

#include <cstdint>

#include "frame/wkt.h"
#include "gx_objects.h"

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
