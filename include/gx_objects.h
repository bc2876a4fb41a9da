/*
 * gx_objects.h - definition objects: authorities, parameters, spheroids,
 * prime meridians, datums, coordinate systems, projections, methods and
 * geographic transformations.  The common operations of each family are
 * described with GX_DECLARE_COMMON in gx_frame.h.
 */
#ifndef GX_OBJECTS_H
#define GX_OBJECTS_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- authority: who defined an object, under which number -------------------- */
GX_DECLARE_COMMON(gx_authority, authority)
/* name null or empty: error 320; code <= 0: error 311.  A null version is
 * empty; the version is cut to 15 characters. */
GX_API gx_authority *gx_authority_new(const char *name, int32_t code, const char *version);
GX_API gx_authority *gx_authority_new_errext(const char *name, int32_t code, const char *version,
                                             gx_errext *record);
GX_API gx_authority *gx_authority_new_w(const gx_wchar *name, int32_t code,
                                        const gx_wchar *version);
GX_API int32_t gx_authority_authcode(const gx_authority *obj); /* 0 if invalid */
/* Copies the version into a 16-byte buffer; empty if invalid, null for a null buffer. */
GX_API char *gx_authority_version(const gx_authority *obj, char *buffer);
GX_API gx_wchar *gx_authority_version_w(const gx_authority *obj, gx_wchar *buffer);

#ifdef __cplusplus
}
#endif

#endif /* GX_OBJECTS_H */
