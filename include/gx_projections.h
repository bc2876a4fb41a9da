/*
 * gx_projections.h - the contract of the projection functions.
 *
 * Every projection has a forward and an inverse function of one form, and
 * may have a constants loader that computes once, per definition, what the
 * two functions would otherwise compute at every call.
 *
 * A function sees only numbers: the sphere pair {a in metres, e2}, the
 * parameter vector of GX_PARM_COUNT doubles (angles in radians, lengths in
 * metres, in the slots below), and n coordinate pairs converted in place:
 * (longitude, latitude) in radians on the geographic side, (x, y) in metres
 * from the natural origin on the projected side.  It returns the number of
 * points handled (0 for n < 1 or a refused run); a point without an image
 * holds NaN in both ordinates.
 */
#ifndef GX_PROJECTIONS_H
#define GX_PROJECTIONS_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Slots of the parameter vector. */
#define GX_PARM_FALSE_EASTING 0
#define GX_PARM_FALSE_NORTHING 1
#define GX_PARM_CENTRAL_MERIDIAN 2     /* also Longitude_Of_Origin */
#define GX_PARM_STANDARD_PARALLEL_1 3  /* also Latitude_Of_1st_Point, Pseudo_Standard_Parallel_1 */
#define GX_PARM_STANDARD_PARALLEL_2 4  /* also Latitude_Of_2nd_Point */
#define GX_PARM_SCALE_FACTOR 5
#define GX_PARM_LATITUDE_OF_ORIGIN 6   /* also Central_Parallel */
#define GX_PARM_AZIMUTH 7
#define GX_PARM_LONGITUDE_OF_1ST_POINT 8
#define GX_PARM_LONGITUDE_OF_2ND_POINT 9
#define GX_PARM_LONGITUDE_OF_CENTER 10
#define GX_PARM_LATITUDE_OF_CENTER 11
#define GX_PARM_X_SCALE 12             /* also Auxiliary_Sphere_Type */
#define GX_PARM_Y_SCALE 13
#define GX_PARM_XY_PLANE_ROTATION 14
#define GX_PARM_HEIGHT 15              /* also Option */
#define GX_PARM_COUNT 16

/* A forward or inverse projection function.  `ints` and `doubles` are the
 * first and third arrays of the definition's constants block, or null; when
 * `doubles` is not null it replaces the function's own set-up. */
typedef int32_t (*gx_projection_fn)(const double *sphere, double *parms, int32_t n,
                                    double *coords, const int32_t *ints, const double *doubles);

/* A constants loader: fills `block` from the sphere pair and the parameter
 * vector; returns the number of doubles stored, 0 when none are. */
typedef int32_t (*gx_constants_fn)(gx_constants *block, const double *sphere,
                                   const double *parms);

#ifdef __cplusplus
}
#endif

#endif /* GX_PROJECTIONS_H */
