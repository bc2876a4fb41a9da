// The common operations of every object family, written once.
//
// A family file defines its struct (gx_header first, then `authority` where
// the family has one, then its own fields) and specialises gx_family<T>:
//
//   template <> struct gx_family<gx_unit> {
//     static constexpr uint32_t type = GX_TYPE_UNIT;
//     static constexpr const char* prefix = "gx_unit";    // for messages
//     static constexpr const char* keyword = "UNIT";      // WKT keyword
//     static constexpr bool has_authority = true;
//     static gx_unit* copy(const gx_unit* obj);           // clone through _new
//     static void release(gx_unit* obj);                  // delete owned parts
//     static bool equal(const gx_unit* a, const gx_unit* b);
//     static void print(const gx_unit* obj, int option, char* buffer);  // WKT up to
//                                                         // the closing bracket
//     static gx_unit* from_tokens(gx_wkt_tokens*, int32_t start, int32_t* next,
//                                 gx_errext* record);
//   };
//
// Two more functions are optional: `scan(block, text)`, for a family that
// finds its text by more than one keyword, and `finish_top_level(obj)`, a
// correction made only when an object is read as a text of its own, never
// when it is read as a part of a larger one.
//
// The family then writes GX_FAMILY_EXPORTS(gx_unit, unit) and, with an authority,
// GX_FAMILY_AUTHORITY_EXPORTS(gx_unit, unit).  Everything else here is shared:
// the table of operations, clone, del, p, eq, name, the WKT text with its
// authority clause, type, status, code, the authority made on demand, the _w
// siblings and the extern "C" layer.
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "frame/diagnostics.h"
#include "frame/object.h"
#include "frame/text.h"
#include "frame/wkt.h"
#include "gx_objects.h"

template <class T>
struct gx_family;

// Stack buffers for the _w siblings: a name or a WKT text.  The conversion
// stops at the buffer's size, so an overlong 16-bit text is cut, never
// written past the buffer.
struct gx_narrow_text {
  char text[GX_WKT_SIZE];
  explicit gx_narrow_text(const gx_wchar* wide) { gx_narrow_from_wide(text, wide, GX_WKT_SIZE - 1); }
};
struct gx_narrow_name {
  char text[GX_NAME_SIZE];
  explicit gx_narrow_name(const gx_wchar* wide) { gx_narrow_from_wide(text, wide, GX_NAME_SIZE - 1); }
};

template <class T>
struct gx_family_ops {
  using F = gx_family<T>;
  static const gx_objtable table;

  static bool valid(const void* obj) {
    const gx_header* head = gx_header_of(obj);
    return head != nullptr && head->objtable->type == F::type;
  }
  static T* as(void* obj) { return valid(obj) ? static_cast<T*>(obj) : nullptr; }

  // A field of a live object, or `neutral` for anything else: the shape of
  // every accessor of a family.
  template <class V>
  static V field(const void* obj, V T::*member, std::type_identity_t<V> neutral) {
    const T* source = as(obj);
    return source != nullptr ? source->*member : neutral;
  }
  static const T* as(const void* obj) { return valid(obj) ? static_cast<const T*>(obj) : nullptr; }

  // A zeroed object with its header filled as a _new function leaves it:
  // status "new", no code, the name cut to 63 characters.  Null on no memory,
  // reported as message 1 under `function`.
  static T* create(const char* name, gx_errext* record, const char* function) {
    T* obj = gx_alloc_object<T>();
    if (obj == nullptr) {
      gx_report(record, 1, function);
      return nullptr;
    }
    obj->head.objtable = &table;
    obj->head.status = GX_STATUS_NEW;
    obj->head.code = -1;
    gx_name_copy(obj->head.name, name != nullptr ? name : "", GX_NAME_SIZE);
    return obj;
  }

  // ---- the sixteen slots ----------------------------------------------------
  static void* from_string(const char* text) { return from_string_errext(text, nullptr); }

  static void* from_string_errext(const char* text, gx_errext* caller) {
    gx_errext local;
    gx_errext* record = gx_errext_begin(caller, &local);
    gx_function_name function(F::prefix, "_from_string");
    if (text == nullptr) {
      if constexpr (requires { F::null_text_function; })
        gx_report(record, 456, F::null_text_function);
      else
        gx_report(record, 456, function.text);
      return nullptr;
    }
    gx_wkt_tokens block;
    int r = scan(&block, text);
    if (block.severity != 0)
      gx_errext_set(record, block.severity, GX_CAT_WKT, block.code, function.text, block.message);
    if (r != 0) return nullptr;
    T* obj = F::from_tokens(&block, 0, nullptr, caller);
    if constexpr (requires { F::finish_top_level(obj); }) {
      if (obj != nullptr) F::finish_top_level(obj);
    }
    return obj;
  }

  static int scan(gx_wkt_tokens* block, const char* text) {
    if constexpr (requires { F::scan(block, text); })
      return F::scan(block, text);
    else
      return gx_wkt_scan(block, text, F::keyword);
  }

  static void* clone(const void* obj) {
    const T* source = as(obj);
    if (source == nullptr) return nullptr;
    gx_authority* authority = nullptr;
    if constexpr (F::has_authority) {
      if (source->authority != nullptr) {
        authority = gx_authority_clone(source->authority);
        if (authority == nullptr) return nullptr;
      }
    }
    T* copy = F::copy(source);
    if (copy == nullptr) {
      gx_authority_del(authority);
      return nullptr;
    }
    copy->head.status = source->head.status;
    copy->head.code = source->head.code;
    copy->head.authname = source->head.authname;
    copy->head.authversion = source->head.authversion;
    if constexpr (F::has_authority) copy->authority = authority;
    return copy;
  }

  static void del(void* obj) {
    T* target = as(obj);
    if (target == nullptr) return;
    target->head.objtable = nullptr;
    if constexpr (F::has_authority) gx_authority_del(target->authority);
    F::release(target);
    gx_free(target);
  }

  static int p(const void* obj) { return valid(obj) ? 1 : 0; }

  static int eq(const void* a, const void* b) {
    const T* x = as(a);
    const T* y = as(b);
    return x != nullptr && y != nullptr && F::equal(x, y) ? 1 : 0;
  }

  static char* name(const void* obj, char* buffer) {
    if (buffer == nullptr) return nullptr;
    buffer[0] = '\0';
    if (const T* source = as(obj)) gx_name_copy(buffer, source->head.name, GX_NAME_SIZE);
    return buffer;
  }

  static char* to_string(const void* obj, char* buffer) { return to_string_ext(obj, 0, buffer); }

  // The family prints its text up to the closing bracket with the option its
  // parts get (option 1 becomes 0 one level down); the authority clause and
  // the bracket are added here.
  static char* to_string_ext(const void* obj, int option, char* buffer) {
    if (buffer == nullptr) return nullptr;
    buffer[0] = '\0';
    const T* source = as(obj);
    if (source == nullptr) return buffer;
    F::print(source, option == GX_WKT_TOP_AUTHORITY ? GX_WKT_NO_AUTHORITY : option, buffer);
    if constexpr (F::has_authority) {
      if (option != GX_WKT_NO_AUTHORITY) append_authority(const_cast<T*>(source), buffer);
    }
    size_t length = std::strlen(buffer);
    if (length + 1 < GX_WKT_SIZE) {
      buffer[length] = ']';
      buffer[length + 1] = '\0';
    }
    return buffer;
  }

  static void append_authority(T* obj, char* buffer) {
    gx_authority* authority = authority_of(obj);
    if (authority == nullptr) return;
    char clause[GX_WKT_SIZE];  // every to_string_ext writes a whole WKT buffer
    gx_wkt_append_clause(buffer, gx_authority_to_string(authority, clause));
  }

  static uint32_t type(const void* obj) { return valid(obj) ? F::type : 0; }
  static uint32_t status(const void* obj) {
    const T* source = as(obj);
    return source != nullptr ? (source->head.status & 255u) : 0;
  }
  static int32_t code(const void* obj) {
    const T* source = as(obj);
    return source != nullptr ? source->head.code : -1;
  }

  // The held authority; for an object made from a factory row, the first
  // call makes it from the row's authority name, code and version.
  static gx_authority* authority_of(T* obj) {
    if (obj->authority == nullptr && obj->head.code >= 1)
      obj->authority = gx_authority_new(obj->head.authname, obj->head.code, obj->head.authversion);
    return obj->authority;
  }
  static gx_authority* authority(void* obj) {
    T* target = as(obj);
    return target != nullptr ? authority_of(target) : nullptr;
  }
  static int authority_set(void* obj, gx_authority* authority) {
    T* target = as(obj);
    if (target == nullptr) return 0;
    if (authority != nullptr && gx_authority_p(authority) == 0) return 0;
    if (target->authority != authority) gx_authority_del(target->authority);
    target->authority = authority;
    return 1;
  }
  static int status_set(void* obj, uint32_t value) {
    T* target = as(obj);
    if (target == nullptr) return 0;
    target->head.status = value;
    return 1;
  }
  static int code_set(void* obj, int32_t value, const char* authname, const char* authversion) {
    T* target = as(obj);
    if (target == nullptr) return 0;
    target->head.code = value;
    target->head.authname = authname;
    target->head.authversion = authversion;
    return 1;
  }

  // ---- the _w siblings ------------------------------------------------------
  static gx_wchar* name_w(const void* obj, gx_wchar* buffer) {
    if (buffer == nullptr) return nullptr;
    char narrow[GX_NAME_SIZE];
    gx_wide_from_narrow(buffer, name(obj, narrow), -1);
    return buffer;
  }
  static gx_wchar* to_string_ext_w(const void* obj, int option, gx_wchar* buffer) {
    if (buffer == nullptr) return nullptr;
    char narrow[GX_WKT_SIZE];
    gx_wide_from_narrow(buffer, to_string_ext(obj, option, narrow), -1);
    return buffer;
  }
  static void* from_string_w(const gx_wchar* text) {
    if (text == nullptr) return nullptr;
    gx_narrow_text narrow(text);
    return from_string(narrow.text);
  }

  // After a successful walk: status "string" and the authority of the text.
  static T* finish_parse(T* obj, gx_wkt_walk* walk) {
    if (obj == nullptr) {
      gx_wkt_walk_drop(walk);
      return nullptr;
    }
    obj->head.status = GX_STATUS_STRING;
    if constexpr (F::has_authority) {
      obj->authority = static_cast<gx_authority*>(walk->parts[GX_WKT_AUTHORITY_SLOT]);
      walk->parts[GX_WKT_AUTHORITY_SLOT] = nullptr;
    }
    return obj;
  }
};

template <class T>
constexpr gx_objtable gx_family_table() {
  using O = gx_family_ops<T>;
  gx_objtable table{GX_OBJECT_MAGIC, gx_family<T>::type, O::from_string, O::from_string_errext,
                    O::clone,        O::del,             O::p,           O::eq,
                    O::name,         O::to_string,       O::to_string_ext, O::type,
                    O::status,       nullptr,            nullptr,        nullptr,
                    O::status_set,   nullptr};
  if constexpr (gx_family<T>::has_authority) {
    table.code = O::code;
    table.authority = O::authority;
    table.authority_set = O::authority_set;
    table.code_set = O::code_set;
  }
  return table;
}

template <class T>
const gx_objtable gx_family_ops<T>::table = gx_family_table<T>();

// The AUTHORITY clause that every family with an authority reads.
gx_authority* gx_authority_from_tokens(gx_wkt_tokens* block, int32_t start, int32_t* next,
                                       gx_errext* record);
constexpr gx_wkt_clause gx_authority_clause = {
    "AUTHORITY", nullptr, gx_wkt_parser_of<gx_authority, gx_authority_from_tokens>,
    GX_WKT_AUTHORITY_SLOT, 403, 0, false, nullptr};

// The walk of an object that is only a name and an AUTHORITY clause, such as
// PROJECTION["name"] or METHOD["name"]: `make` turns the name into the object
// (from its list), and the text's authority is attached.
template <class T>
T* gx_read_named(gx_wkt_tokens* block, int32_t start, int32_t* next, gx_errext* record,
                 T* (*make)(const char* name, gx_errext* record)) {
  using F = gx_family<T>;
  static constexpr gx_wkt_clause clauses[] = {gx_authority_clause};
  gx_wkt_walk walk;
  gx_function_name function(F::prefix, "_from_string");
  if (!gx_wkt_walk_begin(&walk, block, start, next, record, F::keyword, nullptr, 2,
                         function.text))
    return nullptr;
  if (!gx_wkt_walk_clauses(&walk, start + 2, clauses, 1)) {
    gx_wkt_walk_drop(&walk);
    return nullptr;
  }
  T* obj = make(walk.name, walk.caller_record ? walk.record : nullptr);
  return gx_family_ops<T>::finish_parse(obj, &walk);
}

// The extern "C" layer of a family: the common operations under their names.
#define GX_FAMILY_EXPORTS(T, fam)                                                          \
  extern "C" {                                                                             \
  T* gx_##fam##_from_string(const char* text) {                                            \
    return static_cast<T*>(gx_family_ops<T>::from_string(text));                           \
  }                                                                                        \
  T* gx_##fam##_from_string_errext(const char* text, gx_errext* record) {                  \
    return static_cast<T*>(gx_family_ops<T>::from_string_errext(text, record));            \
  }                                                                                        \
  T* gx_##fam##_from_string_w(const gx_wchar* text) {                                      \
    return static_cast<T*>(gx_family_ops<T>::from_string_w(text));                         \
  }                                                                                        \
  T* gx_##fam##_clone(const T* obj) { return static_cast<T*>(gx_family_ops<T>::clone(obj)); } \
  void gx_##fam##_del(T* obj) { gx_family_ops<T>::del(obj); }                              \
  int gx_##fam##_p(const void* obj) { return gx_family_ops<T>::p(obj); }                   \
  int gx_##fam##_eq(const T* a, const T* b) { return gx_family_ops<T>::eq(a, b); }         \
  char* gx_##fam##_name(const T* obj, char* buffer) {                                      \
    return gx_family_ops<T>::name(obj, buffer);                                            \
  }                                                                                        \
  gx_wchar* gx_##fam##_name_w(const T* obj, gx_wchar* buffer) {                            \
    return gx_family_ops<T>::name_w(obj, buffer);                                          \
  }                                                                                        \
  char* gx_##fam##_to_string(const T* obj, char* buffer) {                                 \
    return gx_family_ops<T>::to_string(obj, buffer);                                       \
  }                                                                                        \
  char* gx_##fam##_to_string_ext(const T* obj, int option, char* buffer) {                 \
    return gx_family_ops<T>::to_string_ext(obj, option, buffer);                           \
  }                                                                                        \
  gx_wchar* gx_##fam##_to_string_w(const T* obj, gx_wchar* buffer) {                       \
    return gx_family_ops<T>::to_string_ext_w(obj, 0, buffer);                              \
  }                                                                                        \
  gx_wchar* gx_##fam##_to_string_ext_w(const T* obj, int option, gx_wchar* buffer) {        \
    return gx_family_ops<T>::to_string_ext_w(obj, option, buffer);                         \
  }                                                                                        \
  uint32_t gx_##fam##_type(const T* obj) { return gx_family_ops<T>::type(obj); }           \
  uint32_t gx_##fam##_status(const T* obj) { return gx_family_ops<T>::status(obj); }       \
  }                                                                                        \
  int gx_##fam##_status_set(T* obj, uint32_t status) {                                     \
    return gx_family_ops<T>::status_set(obj, status);                                      \
  }

// The authority operations of a family that holds one; code and code_set
// are internal.
#define GX_FAMILY_AUTHORITY_EXPORTS(T, fam)                                               \
  extern "C" {                                                                            \
  gx_authority* gx_##fam##_authority(T* obj) { return gx_family_ops<T>::authority(obj); } \
  int gx_##fam##_authority_set(T* obj, gx_authority* authority) {                         \
    return gx_family_ops<T>::authority_set(obj, authority);                               \
  }                                                                                       \
  }                                                                                       \
  int32_t gx_##fam##_code(const T* obj) { return gx_family_ops<T>::code(obj); }           \
  int gx_##fam##_code_set(T* obj, int32_t code, const char* authname,                     \
                          const char* authversion) {                                      \
    return gx_family_ops<T>::code_set(obj, code, authname, authversion);                  \
  }
