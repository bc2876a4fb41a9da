// The 16 parameter slots that a projcs, a geogtran or a verttran holds: what
// those families do alike with them.
#pragma once

#include <cstdint>

#include "frame/wkt.h"
#include "gx_objects.h"

constexpr int GX_PARAMETER_SLOTS = 16;

void gx_parameter_slots_delete(gx_parameter** slots);
// Lends the 16 slots of an object (null: none) into the caller's array after
// clearing it; 1 when slots were lent, 0 for a null object or array.
int gx_parameter_slots_lend(gx_parameter* const* slots, gx_parameter** out);
// Clones every slot; false (and nothing left) when one clone fails.
bool gx_parameter_slots_clone(gx_parameter* const* source, gx_parameter** copy);
// Equal when each slot is empty in both or holds equal parameters.
bool gx_parameter_slots_equal(gx_parameter* const* a, gx_parameter* const* b);
// Appends ",PARAMETER[...]" for each filled slot, in slot order, by the
// length rule of gx_wkt_append_clause.
void gx_parameter_slots_print(gx_parameter* const* slots, int option, char* buffer);

// Who may hold a parameter, for the PARAMETER clause of a walk.
struct gx_parameter_owner {
  uint32_t owner_bit;     // the owner mask bit of the parameter table
  const char* owner_text; // "a projcs", "a geogtran" ... in message 424
  const char* function;   // "gx_projcs_from_string" ...
  int first_part;         // walk part of slot 0
};

// PARAMETER in a walk: read, known to the parameter table (423), allowed for
// the owner (424), one per slot (411); then kept in its slot.
bool gx_parameter_take(gx_wkt_walk* walk, int32_t index, int32_t* next,
                       const gx_parameter_owner& owner);
