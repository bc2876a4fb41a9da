/*
 * gx_geodesy.h - the geodesy kernel: stateless functions on an ellipsoid
 * given as its semi-major axis a and squared eccentricity e2 (a sphere has
 * e2 = 0).  Angles are radians.  Nothing here allocates or keeps state.
 */
#ifndef GX_GEODESY_H
#define GX_GEODESY_H

#include "gx_frame.h"

#ifdef __cplusplus
extern "C" {
#endif

#define GX_EPS 3.552713678800501e-15          /* 2^-48: the library's one tolerance */
#define GX_SERIES_LIMIT 0.006884661117170036  /* e2 where series give way to closed forms */
#define GX_HALFPI_CLAMP 1.570796326794891      /* stands in for a pole */

/* 1 when |x - y| <= (1 + (|x| + |y|) / 2) * GX_EPS. */
GX_API int gx_eq(double x, double y);

#ifdef __cplusplus
}
#endif

#endif /* GX_GEODESY_H */
