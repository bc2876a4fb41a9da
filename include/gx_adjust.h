/*
 * gx_adjust.h - adjusted horizontal systems: a geographic or projected
 * system with a local 2D fit of its coordinates (a scanned map, a site
 * grid), given by a method and an array of its coefficients.
 */
#ifndef GX_ADJUST_H
#define GX_ADJUST_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct gx_array gx_array;
typedef struct gx_htmethod gx_htmethod;
typedef struct gx_adjhcs gx_adjhcs;

/* A fit's function: count of coefficients, the coefficients, n, and n
 * (x, y) pairs changed in place.  Returns n, or 0 for a singular inverse
 * (the pairs are then left alone). */
typedef int32_t (*gx_htmethod_fn)(int32_t count, const double *values, int32_t n, double *coords);

/* ---- arrays: a named list of coefficients ----------------------------------
 * ARRAY["name",count,v1,...,vcount].  No authority. */
GX_DECLARE_COMMON(gx_array, array)
/* A copy of `values` (num_values of them, at least 1).  Errors: 310 for a
 * count below 1, 326 for null values, 1 for no memory; null then. */
GX_API gx_array *gx_array_new(const char *name, int32_t num_values, const double *values);
GX_API gx_array *gx_array_new_errext(const char *name, int32_t num_values, const double *values,
                                     gx_errext *record);
GX_API gx_array *gx_array_new_w(const gx_wchar *name, int32_t num_values, const double *values);
GX_API int32_t gx_array_num_values(const gx_array *obj);             /* 0 if invalid */
GX_API const double *gx_array_values_pointer(const gx_array *obj);   /* lent; null if invalid */
/* Copies all values into `destination` (num_values doubles); 0 if invalid. */
GX_API int gx_array_values_copy(const gx_array *obj, double *destination);
/* Overwrites all values from `values` (num_values doubles); 0 if invalid. */
GX_API int gx_array_values_set(gx_array *obj, const double *values);
GX_API int gx_array_name_set(gx_array *obj, const char *name);
/* A new array "Coefficients" of the method's identity fit, or null for a
 * method of no listed code. */
GX_API gx_array *gx_array_htmethod_default(const gx_htmethod *method);

/* ---- fitting methods ---------------------------------------------------------
 * HTMETHOD["name",AUTHORITY[...]]: Affine_Parametric (6 coefficients:
 * x' = c0 x + c1 y + c2, y' = c3 x + c4 y + c5) and
 * 2D_Projective_Parametric (8: the same over c6 x + c7 y + 1). */
GX_DECLARE_COMMON(gx_htmethod, htmethod)
GX_DECLARE_AUTHORITY_OPS(gx_htmethod, htmethod)
/* Error 340 when a function is null. */
GX_API gx_htmethod *gx_htmethod_new(const char *name, gx_htmethod_fn forward, gx_htmethod_fn inverse);
GX_API gx_htmethod *gx_htmethod_new_errext(const char *name, gx_htmethod_fn forward,
                                           gx_htmethod_fn inverse, gx_errext *record);
GX_API gx_htmethod *gx_htmethod_new_w(const gx_wchar *name, gx_htmethod_fn forward,
                                      gx_htmethod_fn inverse);
GX_API gx_htmethod_fn gx_htmethod_forward(const gx_htmethod *obj); /* identity if invalid */
GX_API gx_htmethod_fn gx_htmethod_inverse(const gx_htmethod *obj);

/* ---- adjusted systems ------------------------------------------------------
 * ADJHCS["name",coordsys,HTMETHOD[...],ARRAY[...],UNIT[...]].  No authority.
 * The new object owns all four parts on success. */
GX_DECLARE_COMMON(gx_adjhcs, adjhcs)
/* Errors in order: 338 coordsys (a gx_geogcs or gx_projcs), 325 array,
 * 336 htmethod, 324 unit, 1 no memory; null then. */
GX_API gx_adjhcs *gx_adjhcs_new(const char *name, void *coordsys, gx_htmethod *htmethod,
                                gx_array *array, gx_unit *unit);
GX_API gx_adjhcs *gx_adjhcs_new_errext(const char *name, void *coordsys, gx_htmethod *htmethod,
                                       gx_array *array, gx_unit *unit, gx_errext *record);
GX_API gx_adjhcs *gx_adjhcs_new_w(const gx_wchar *name, void *coordsys, gx_htmethod *htmethod,
                                  gx_array *array, gx_unit *unit);
GX_API void *gx_adjhcs_coordsys(const gx_adjhcs *obj); /* lent; null if invalid */
GX_API gx_htmethod *gx_adjhcs_htmethod(const gx_adjhcs *obj);
GX_API gx_array *gx_adjhcs_array(const gx_adjhcs *obj);
GX_API gx_unit *gx_adjhcs_unit(const gx_adjhcs *obj);
/* The fit backwards: adjusted coordinates to those of the coordsys, in
 * place.  Returns the method's result (0 for a singular fit or an invalid
 * adjhcs).  The unit is not applied. */
GX_API int32_t gx_adjhcs_to_coordsys(const gx_adjhcs *adjhcs, int32_t n, double *coords);
/* The fit forwards: coordinates of the coordsys to adjusted ones. */
GX_API int32_t gx_coordsys_to_adjhcs(const gx_adjhcs *adjhcs, int32_t n, double *coords);

#ifdef __cplusplus
}
#endif

#endif /* GX_ADJUST_H */
