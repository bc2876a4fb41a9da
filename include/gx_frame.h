/*
 * gx_frame.h - object frame, diagnostics, text and numbers.
 *
 * Every definition (unit, datum, coordinate system, projection ...) is a heap
 * object with a common header and a read-only table of operations.  Objects
 * are opaque: callers hold pointers and reach them through these functions.
 *
 * Conventions that hold for every function of the library:
 *  - a null or invalid object is never fatal: queries return a neutral value
 *    (0, null, an empty buffer, factor 1.0) and creating functions return null;
 *  - creating functions take ownership of the objects they are given only on
 *    success; accessors lend pointers that live as long as their owner;
 *  - name buffers hold 64 bytes (GX_NAME_SIZE), WKT buffers 1024 bytes
 *    (GX_WKT_SIZE); the caller owns them;
 *  - why a creating function failed is told through a gx_errext record and the
 *    message hook, never through a return code.
 */
#ifndef GX_FRAME_H
#define GX_FRAME_H

#include <stddef.h>
#include <stdint.h>

#if defined(__GNUC__) || defined(__clang__)
#define GX_API __attribute__((visibility("default")))
#else
#define GX_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- sizes that are part of the behaviour ------------------------------ */
#define GX_NAME_SIZE 64        /* a name: 63 characters and the terminator   */
#define GX_WKT_SIZE 1024       /* a WKT text: 1023 characters and terminator */
#define GX_WKT_MAX_TOKENS 256  /* tokens in one scanned WKT text             */
#define GX_NUMBER_SIZE 32      /* buffer for one number printed by gx_dtoa    */

/* ---- the 16-bit text type of the _w functions --------------------------- */
typedef uint16_t gx_wchar;

/* ---- object families (opaque) ----------------------------------------- */
typedef struct gx_authority gx_authority;
typedef struct gx_unit gx_unit;
typedef struct gx_parameter gx_parameter;
typedef struct gx_spheroid gx_spheroid;
typedef struct gx_primem gx_primem;
typedef struct gx_datum gx_datum;
typedef struct gx_geogcs gx_geogcs;
typedef struct gx_projection gx_projection;
typedef struct gx_projcs gx_projcs;
typedef struct gx_method gx_method;
typedef struct gx_geogtran gx_geogtran;
typedef struct gx_constants gx_constants;

/* ---- type codes: one bit per object type -------------------------------- */
#define GX_TYPE_GEOGCS     0x000001u
#define GX_TYPE_PROJCS     0x000002u
#define GX_TYPE_GEOXYZCS   0x000004u
#define GX_TYPE_VERTCS     0x000008u
#define GX_TYPE_HVCOORDSYS 0x000010u
#define GX_TYPE_DATUM      0x000020u
#define GX_TYPE_VDATUM     0x000040u
#define GX_TYPE_GEOGTRAN   0x000080u
#define GX_TYPE_LINUNIT    0x000100u
#define GX_TYPE_ANGUNIT    0x000200u
#define GX_TYPE_UNIT       0x000300u /* linunit | angunit: the one unit family */
#define GX_TYPE_PRIMEM     0x000400u
#define GX_TYPE_SPHEROID   0x000800u
#define GX_TYPE_METHOD     0x001000u
#define GX_TYPE_HTMETHOD   0x002000u
#define GX_TYPE_PROJECTION 0x004000u
#define GX_TYPE_PARAMETER  0x008000u
#define GX_TYPE_AUTHORITY  0x010000u
#define GX_TYPE_ADJHCS     0x020000u
#define GX_TYPE_ARRAY      0x040000u
#define GX_TYPE_VERTTRAN   0x080000u
#define GX_TYPE_VTMETHOD   0x100000u

/* ---- status values: how an object came to be ---------------------------- */
#define GX_STATUS_NEW          1u  /* made by a _new function           */
#define GX_STATUS_STRING       2u  /* read from WKT                      */
#define GX_STATUS_CODE         4u  /* made from a factory code           */
#define GX_STATUS_USER         8u  /* the remaining bits are for callers */
#define GX_STATUS_CODECHANGE   16u
#define GX_STATUS_DISCONTINUED 32u
#define GX_STATUS_DEAD         64u

#define GX_OBJECT_MAGIC 0x11235813u

/* ---- to_string_ext options ---------------------------------------------- */
#define GX_WKT_NO_AUTHORITY  0 /* no AUTHORITY clause                         */
#define GX_WKT_TOP_AUTHORITY 1 /* the clause of the object, none of its parts  */
#define GX_WKT_ALL_AUTHORITY 2 /* the clause at every level                    */

/* ---- diagnostics --------------------------------------------------------- */
#define GX_SEV_ERROR   2u
#define GX_SEV_WARNING 4u

#define GX_CAT_MEMORY    1u  /* allocation failure                        */
#define GX_CAT_TRANSFORM 2u  /* rules of a method's parameters            */
#define GX_CAT_FACTORY   4u  /* an unknown factory code                   */
#define GX_CAT_ARGUMENT  8u  /* a bad argument to a function              */
#define GX_CAT_WKT       16u /* anything found in a WKT text              */

#define GX_ERREXT_FUNCTION_SIZE 256
#define GX_ERREXT_MESSAGE_SIZE 1280

/* Why something failed.  Filled by value by the failing function; only one
 * failure fits, a later report overwrites the former. */
typedef struct gx_errext {
  uint32_t severity; /* 0, GX_SEV_ERROR or GX_SEV_WARNING          */
  uint32_t category; /* one GX_CAT_ bit                             */
  uint32_t code;     /* the stable message number                   */
  char function[GX_ERREXT_FUNCTION_SIZE]; /* reporting function name */
  char message[GX_ERREXT_MESSAGE_SIZE];   /* formatted message text  */
} gx_errext;

/* The message hook.  Sees every record as it is filled; the record may live
 * on the reporter's stack, so the callback must not keep the pointer.  Its
 * return value is not used. */
typedef int (*gx_msg_callback)(void *user_data, const gx_errext *record);

/* Installs the hook.  A null callback clears the user pointer too.  A mask of
 * -1 leaves that mask as it stood; otherwise it is stored (0 when the callback
 * is null).  Nothing is delivered while either mask is 0. */
GX_API void gx_msg_setrtn(void *user_data, int32_t severity_mask, int32_t category_mask,
                          gx_msg_callback callback);
/* Reads the hook; every pointer may be null. */
GX_API void gx_msg_getrtn(void **user_data, int32_t *severity_mask, int32_t *category_mask,
                          gx_msg_callback *callback);
/* Sets severity, category and code to 0 and empties both strings. Null: no-op. */
GX_API void gx_errext_clear(gx_errext *record);

/* ---- memory: the one allocator; free anything the library hands out here --- */
GX_API void *gx_memalloc(size_t size);   /* null for size 0 or no memory */
GX_API void gx_memdealloc(void *pointer); /* null is ignored               */

/* ---- version and names --------------------------------------------------- */
GX_API const char *gx_version(void);
GX_API char *gx_version_string(char *buffer);          /* null buffer: null */
GX_API gx_wchar *gx_version_string_w(gx_wchar *buffer);
/* Text of a status value: "", "new", "string", "code", ..., "unknown". Never null. */
GX_API const char *gx_status_to_string(uint32_t status);
/* Name of a type code ("geogcs" ... "vtmethod", "unit"); null if none. */
GX_API const char *gx_type_to_name(uint32_t type);
/* Type code of a name, case blind, '-' taken for '_'; 0 if none. */
GX_API uint32_t gx_name_to_type(const char *name);

/* ---- numbers in WKT ------------------------------------------------------- */
/* Prints value with `precision` significant digits (the library uses 16) in
 * plain notation where it reads well, without trailing zeros; the buffer must
 * hold GX_NUMBER_SIZE bytes.  Returns buffer, null for a null buffer. */
GX_API char *gx_dtoa(double value, char *buffer, int precision);
/* Reads a number as atof does; null or empty text gives 0.0. */
GX_API double gx_atod(const char *text);

/* ---- the common operations of every family --------------------------------
 * GX_DECLARE_COMMON(T, fam) declares, for the family gx_<fam>:
 *   T *gx_<fam>_from_string(text)            WKT to object, null on failure
 *   T *gx_<fam>_from_string_errext(text, record)
 *   T *gx_<fam>_from_string_w(text16)
 *   T *gx_<fam>_clone(obj)                   deep copy, null on failure
 *   void gx_<fam>_del(obj)                   destroys obj and all it owns
 *   int gx_<fam>_p(obj)                      1 if obj is a live object of the family
 *   int gx_<fam>_eq(a, b)                    1 if the definitions are the same
 *   char *gx_<fam>_name(obj, buffer)         name into a 64-byte buffer
 *   char *gx_<fam>_to_string(obj, buffer)    WKT without authority, 1024 bytes
 *   char *gx_<fam>_to_string_ext(obj, option, buffer)   GX_WKT_* option
 *   the _w siblings of name, to_string and to_string_ext
 *   uint32_t gx_<fam>_type(obj)              type code, 0 if invalid
 *   uint32_t gx_<fam>_status(obj)            status & 255, 0 if invalid
 * GX_DECLARE_AUTHORITY_OPS(T, fam) adds, for families that hold an authority:
 *   gx_authority *gx_<fam>_authority(obj)    lent; made on first demand for
 *                                            objects made from a factory code
 *   int gx_<fam>_authority_set(obj, auth)    takes auth (null removes); 1 on success
 * Buffer functions write the empty string first and return null for a null
 * buffer; an invalid object leaves the buffer empty. */
#define GX_DECLARE_COMMON(T, fam)                                                        \
  GX_API T *gx_##fam##_from_string(const char *text);                                    \
  GX_API T *gx_##fam##_from_string_errext(const char *text, gx_errext *record);          \
  GX_API T *gx_##fam##_from_string_w(const gx_wchar *text);                               \
  GX_API T *gx_##fam##_clone(const T *obj);                                               \
  GX_API void gx_##fam##_del(T *obj);                                                     \
  GX_API int gx_##fam##_p(const void *obj);                                               \
  GX_API int gx_##fam##_eq(const T *a, const T *b);                                       \
  GX_API char *gx_##fam##_name(const T *obj, char *buffer);                               \
  GX_API gx_wchar *gx_##fam##_name_w(const T *obj, gx_wchar *buffer);                     \
  GX_API char *gx_##fam##_to_string(const T *obj, char *buffer);                          \
  GX_API char *gx_##fam##_to_string_ext(const T *obj, int option, char *buffer);          \
  GX_API gx_wchar *gx_##fam##_to_string_w(const T *obj, gx_wchar *buffer);                \
  GX_API gx_wchar *gx_##fam##_to_string_ext_w(const T *obj, int option, gx_wchar *buffer); \
  GX_API uint32_t gx_##fam##_type(const T *obj);                                          \
  GX_API uint32_t gx_##fam##_status(const T *obj);

#define GX_DECLARE_AUTHORITY_OPS(T, fam)                    \
  GX_API gx_authority *gx_##fam##_authority(T *obj);        \
  GX_API int gx_##fam##_authority_set(T *obj, gx_authority *authority);

/* ---- units: linear or angular, one family --------------------------------- */
GX_DECLARE_COMMON(gx_unit, unit)
GX_DECLARE_AUTHORITY_OPS(gx_unit, unit)
/* A unit of `factor` metres or radians.  "Meters", "Metres" and "Metre" are
 * stored as "Meter".  factor <= 0: error 304, null. */
GX_API gx_unit *gx_unit_new(const char *name, double factor);
GX_API gx_unit *gx_unit_new_errext(const char *name, double factor, gx_errext *record);
GX_API gx_unit *gx_unit_new_w(const gx_wchar *name, double factor);
GX_API double gx_unit_factor(const gx_unit *obj);            /* 1.0 if invalid */
GX_API void gx_unit_factor_w(const gx_unit *obj, double *factor); /* 0.0 if invalid */

/* ---- any object, through its table of operations ---------------------------- */
GX_API int gx_object_p(const void *obj);
GX_API void *gx_object_clone(const void *obj);
GX_API void gx_object_del(void *obj);
GX_API int gx_object_eq(const void *a, const void *b);
GX_API char *gx_object_name(const void *obj, char *buffer);
GX_API gx_wchar *gx_object_name_w(const void *obj, gx_wchar *buffer);
GX_API char *gx_object_to_string(const void *obj, char *buffer);
GX_API char *gx_object_to_string_ext(const void *obj, int option, char *buffer);
GX_API gx_wchar *gx_object_to_string_w(const void *obj, gx_wchar *buffer);
GX_API gx_wchar *gx_object_to_string_ext_w(const void *obj, int option, gx_wchar *buffer);
GX_API uint32_t gx_object_type(const void *obj);
GX_API uint32_t gx_object_status(const void *obj);
GX_API gx_authority *gx_object_authority(void *obj);
GX_API int gx_object_authority_set(void *obj, gx_authority *authority);
/* Picks the family by the text's keyword; a text with no letter gives null
 * and no message, an unknown keyword message 461. */
GX_API void *gx_object_from_string(const char *text);
GX_API void *gx_object_from_string_errext(const char *text, gx_errext *record);
GX_API void *gx_object_from_string_w(const gx_wchar *text);
/* The family of `type` (0: by keyword; 0x100, 0x200, 0x300: unit); another
 * type is message 426. */
GX_API void *gx_object_from_string_by_type(uint32_t type, const char *text);
GX_API void *gx_object_from_string_by_type_errext(uint32_t type, const char *text,
                                                   gx_errext *record);

/* ---- coordinate systems: a gx_geogcs or a gx_projcs ------------------------- */
GX_API int gx_coordsys_p(const void *obj);
GX_API uint32_t gx_coordsys_type(const void *obj);
GX_API uint32_t gx_coordsys_status(const void *obj); /* always 0 */
GX_API char *gx_coordsys_name(const void *obj, char *buffer);
GX_API gx_wchar *gx_coordsys_name_w(const void *obj, gx_wchar *buffer);
GX_API gx_authority *gx_coordsys_authority(void *obj);
GX_API int gx_coordsys_authority_set(void *obj, gx_authority *authority);
GX_API char *gx_coordsys_to_string(const void *obj, char *buffer);
GX_API char *gx_coordsys_to_string_ext(const void *obj, int option, char *buffer);
GX_API gx_wchar *gx_coordsys_to_string_w(const void *obj, gx_wchar *buffer);
GX_API gx_wchar *gx_coordsys_to_string_ext_w(const void *obj, int option, gx_wchar *buffer);
GX_API void *gx_coordsys_clone(const void *obj);
GX_API void gx_coordsys_del(void *obj);
GX_API int gx_coordsys_eq(const void *a, const void *b);
/* PROJCS anywhere in the text: a gx_projcs; otherwise a gx_geogcs. */
GX_API void *gx_coordsys_from_string(const char *text);
GX_API void *gx_coordsys_from_string_errext(const char *text, gx_errext *record);
GX_API void *gx_coordsys_from_string_w(const gx_wchar *text);

#ifdef __cplusplus
}
#endif

#endif /* GX_FRAME_H */
