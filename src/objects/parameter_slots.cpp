// What the families with 16 parameter slots do alike with them.
#include "objects/parameter_slots.h"

#include "frame/diagnostics.h"
#include "objects/families.h"
#include "objects/parmlist.h"

void gx_parameter_slots_delete(gx_parameter** slots) {
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot) {
    gx_parameter_del(slots[slot]);
    slots[slot] = nullptr;
  }
}

int gx_parameter_slots_lend(gx_parameter* const* slots, gx_parameter** out) {
  if (out == nullptr) return 0;
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot)
    out[slot] = slots != nullptr ? slots[slot] : nullptr;
  return slots != nullptr ? 1 : 0;
}

bool gx_parameter_slots_clone(gx_parameter* const* source, gx_parameter** copy) {
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot) copy[slot] = nullptr;
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot) {
    if (source[slot] == nullptr) continue;
    copy[slot] = gx_parameter_clone(source[slot]);
    if (copy[slot] == nullptr) {
      gx_parameter_slots_delete(copy);
      return false;
    }
  }
  return true;
}

bool gx_parameter_slots_equal(gx_parameter* const* a, gx_parameter* const* b) {
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot) {
    if (a[slot] == nullptr && b[slot] == nullptr) continue;
    if (!gx_parameter_eq(a[slot], b[slot])) return false;
  }
  return true;
}

void gx_parameter_slots_print(gx_parameter* const* slots, int option, char* buffer) {
  char clause[GX_WKT_SIZE];
  for (int slot = 0; slot < GX_PARAMETER_SLOTS; ++slot) {
    if (slots[slot] == nullptr) continue;
    gx_wkt_append_clause(buffer, gx_parameter_to_string_ext(slots[slot], option, clause));
  }
}

bool gx_parameter_take(gx_wkt_walk* walk, int32_t index, int32_t* next,
                       const gx_parameter_owner& owner) {
  gx_errext* record = walk->caller_record ? walk->record : nullptr;
  gx_parameter* parameter = gx_parameter_from_tokens(walk->block, index, next, record);
  if (parameter == nullptr) return false;
  char name[GX_NAME_SIZE];
  gx_parameter_name(parameter, name);
  const gx_parmlist_row* row = gx_parmlist_row_from_name(name);
  bool ok = false;
  if (row == nullptr)
    gx_report(walk->record, 423, owner.function, name);
  else if ((row->owners & owner.owner_bit) == 0)
    gx_report(walk->record, 424, owner.function, name, owner.owner_text);
  else if (walk->parts[owner.first_part + row->slot] != nullptr)
    gx_report(walk->record, 411, owner.function, name);
  else
    ok = true;
  if (!ok) {
    gx_parameter_del(parameter);
    return false;
  }
  walk->parts[owner.first_part + row->slot] = parameter;
  return true;
}
