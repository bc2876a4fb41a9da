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
