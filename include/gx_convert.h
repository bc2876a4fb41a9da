/*
 * gx_convert.h - converting arrays of coordinates.
 *
 * Coordinates are n pairs of doubles converted in place: (longitude,
 * latitude) in the angular unit of the geographic CS, or (x, y) in the linear
 * unit of the projected CS, false origin included.  A point without an image
 * comes back as NaN in both ordinates.  The functions report nothing through
 * the message hook: they return the number of points converted, and a result
 * below 1 means that the whole call failed and the input was given back.
 */
#ifndef GX_CONVERT_H
#define GX_CONVERT_H

#include "gx_objects.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Geographic to projected.  Latitudes beyond +-90 degrees are limited to the
 * pole.  The first call loads the system's constants into it, so a system is
 * not shared between threads before gx_projcs_load_constants. */
GX_API int32_t gx_geog_to_proj(gx_projcs *projcs, int32_t n, double *coords);
/* Projected to geographic; longitudes wrapped to +-180 degrees. */
GX_API int32_t gx_proj_to_geog(gx_projcs *projcs, int32_t n, double *coords);
/* As gx_proj_to_geog with longitudes wrapped into the turn centred on
 * `center` (in the geographic CS's unit). */
GX_API int32_t gx_proj_to_geog_center(gx_projcs *projcs, int32_t n, double *coords,
                                      double center);
/* direction 0: gx_proj_to_geog; 1: gx_geog_to_proj; anything else: 0. */
GX_API int32_t gx_proj_geog(gx_projcs *projcs, int32_t n, double *coords, int32_t direction);

/* Between the two geographic systems of a transformation: direction 0 from
 * geogcs1 to geogcs2, 1 the reverse.  coords in the unit of the system it
 * starts from; z null or n heights in metres.  Returns the method's count;
 * unlike the projected conversions, the array is not given back on failure. */
GX_API int32_t gx_geog_to_geog(gx_geogtran *tran, int32_t n, double *coords, double *z,
                               int32_t direction);
GX_API int32_t gx_geog1_to_geog2(gx_geogtran *tran, int32_t n, double *coords, double *z);
GX_API int32_t gx_geog2_to_geog1(gx_geogtran *tran, int32_t n, double *coords, double *z);

#ifdef __cplusplus
}
#endif

#endif /* GX_CONVERT_H */
