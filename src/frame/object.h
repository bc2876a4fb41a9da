// The object frame: the header every object begins with, the per-type table
// of operations, and the allocation helpers behind gx_memalloc.
#pragma once

#include <cstdint>
#include <cstring>

#include "gx_frame.h"

// Every object begins with these fields, in this order.
struct gx_header {
  const struct gx_objtable* objtable;  // what the object is; null once deleted
  uint32_t status;                     // GX_STATUS_ bits
  int32_t code;                        // factory code, -1 when none
  char name[GX_NAME_SIZE];
  const char* authname;     // authority name of the factory row, not owned
  const char* authversion;  // version text of the factory row, not owned
};

// The read-only table of operations of one object type.  A slot is null where
// the family has no such operation.
struct gx_objtable {
  uint32_t magic;  // GX_OBJECT_MAGIC
  uint32_t type;   // GX_TYPE_ code
  void* (*from_string)(const char* text);
  void* (*from_string_errext)(const char* text, gx_errext* record);
  void* (*clone)(const void* obj);
  void (*del)(void* obj);
  int (*p)(const void* obj);
  int (*eq)(const void* a, const void* b);
  char* (*name)(const void* obj, char* buffer);
  char* (*to_string)(const void* obj, char* buffer);
  char* (*to_string_ext)(const void* obj, int option, char* buffer);
  uint32_t (*type_of)(const void* obj);
  uint32_t (*status)(const void* obj);
  int32_t (*code)(const void* obj);
  gx_authority* (*authority)(void* obj);
  int (*authority_set)(void* obj, gx_authority* authority);
  int (*status_set)(void* obj, uint32_t status);
  int (*code_set)(void* obj, int32_t code, const char* authname, const char* authversion);
};

// The header of an object whose table is in order, whatever its type; null otherwise.
inline const gx_header* gx_header_of(const void* obj) {
  const gx_header* head = static_cast<const gx_header*>(obj);
  if (head == nullptr || head->objtable == nullptr) return nullptr;
  return head->objtable->magic == GX_OBJECT_MAGIC ? head : nullptr;
}

// The allocator pair behind gx_memalloc/gx_memdealloc: null for size 0.
void* gx_alloc(size_t size);
// A test hook: the allocation after the next `count` fails (and every later
// one until the hook is reset with -1).
void gx_alloc_fail_after(long count);
void gx_free(void* pointer);

// A zeroed heap object of type T, or null.
template <class T>
T* gx_alloc_object() {
  void* memory = gx_alloc(sizeof(T));
  if (memory != nullptr) std::memset(memory, 0, sizeof(T));
  return static_cast<T*>(memory);
}

// Internal operations shared by the generic layer: the factory code of any
// object (-1 if none or invalid), and the writers of status and code.
int32_t gx_object_code(const void* obj);
int gx_object_status_set(void* obj, uint32_t status);
int gx_object_code_set(void* obj, int32_t code, const char* authname, const char* authversion);
