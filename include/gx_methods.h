/*
 * gx_methods.h - geographic transformation methods and the data home.
 *
 * A method function moves an array of geographic coordinates from the
 * ellipsoid of one geographic coordinate system to that of another.  The
 * library's own methods are reached through gx_method objects; this header
 * gives the form every method function has, so that a caller can hand his own
 * to gx_method_new, and the one setting that grid methods depend on: the data
 * home, the directory under which grid files are found.
 *
 * Grid files lie below the data home in one sub-directory per family:
 *   <home>/nadcon/<name>.los and .las    NADCON grid pairs
 *   <home>/harn/<name>.los and .las      HARN grid pairs
 *   <home>/ntv2/<name>.gsb               NTv2 grid shift files
 *   <home>/vertical/...                  vertical grids
 * The home is process-wide and unguarded: set it before converting, not
 * while another thread converts.  Until one of the set functions has run,
 * the first lookup takes the home from the environment variable GXDATAHOME,
 * once; after that only the set functions change it.
 */
#ifndef GX_METHODS_H
#define GX_METHODS_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

#define GX_DATAHOME_SIZE 256 /* the home holds at most 255 characters */

/*
 * The form of every forward and inverse function of a method.
 *   sphere1, sphere2  (a, e2) of the transformation's first and second
 *                     geographic coordinate system, in this order in both
 *                     directions; a in metres.
 *   parms             16 doubles: slots 0-2 translations in metres, 3-5
 *                     rotations in radians, 6 scale difference as a ratio,
 *                     7-9 rotation origin in metres.
 *   dataset           name of the grid data set, or null for formula methods.
 *   n, coords         n pairs (longitude, latitude) in radians, converted in
 *                     place.
 *   z                 null, or n ellipsoidal heights in metres that methods
 *                     working in three dimensions read and replace.
 *   ints, values, doubles
 *                     the three arrays of a loaded grid, or null.
 * Returns the number of points converted: n for formula methods (n itself,
 * untouched, when it is below 1); grid methods count only the points that
 * fall on their grid and leave the others as they were.
 */
typedef int32_t (*gx_method_fn)(const double *sphere1, const double *sphere2,
                                const double *parms, const char *dataset, int32_t n,
                                double *coords, double *z, int32_t *ints, void *values,
                                double *doubles);

/*
 * Sets the data home.  The home is emptied first; then `directory` is copied
 * in if it is not null, not empty and at most 255 characters long (a longer
 * one leaves the home empty).  Null clears the home, and GXDATAHOME is not
 * read again.  The string is copied; the caller keeps it.
 */
GX_API void gx_datahome_setdir(const char *directory);
/* The same with a 16-bit string (each unit cut to its low byte). */
GX_API void gx_datahome_setdir_w(const gx_wchar *directory);
/*
 * Calls `source` once and passes its result to gx_datahome_setdir; a null
 * function clears the home.  The returned string is only read during the
 * call.
 */
GX_API void gx_datahome_setfunc(const char *(*source)(void));

#ifdef __cplusplus
}
#endif

#endif /* GX_METHODS_H */
