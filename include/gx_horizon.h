/*
 * gx_horizon.h - where a projection is usable: rectangles and rings on the
 * geographic side (longitude, latitude) or the projected side (x, y).
 */
#ifndef GX_HORIZON_H
#define GX_HORIZON_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

#define GX_HORIZON_MARGIN 2e-7 /* radians kept from a projection's seam */

#define GX_HORIZON_RECTANGLE 0 /* 2 points: lower-left and upper-right corner */
#define GX_HORIZON_POLYGON 1   /* a ring whose last point repeats the first */

/* One record of a horizon; a horizon is an array of records, the first of
 * which says how many there are.  Each record's points are a separate
 * allocation; gx_horizon_del frees all of it. */
typedef struct gx_horizon {
  int32_t horizon_count; /* records in the array (read from the first)     */
  int32_t kind;          /* GX_HORIZON_RECTANGLE or GX_HORIZON_POLYGON      */
  int32_t inclusive;     /* 1: the inside is usable; 0: the inside is a hole */
  int32_t replicate;     /* bit 0: again one turn west; bit 1: one turn east */
  int32_t point_count;
  double *points;        /* point_count pairs (x, y), owned                 */
} gx_horizon;

/* Makes a horizon from the sphere pair {a, e2} and the parameter vector
 * (radians and metres); null on failure. */
typedef gx_horizon *(*gx_horizon_builder)(const double *sphere, const double *parms);

/* Frees a horizon made by the library; null does nothing. */
GX_API void gx_horizon_del(gx_horizon *horizon);

#ifdef __cplusplus
}
#endif

#endif /* GX_HORIZON_H */
