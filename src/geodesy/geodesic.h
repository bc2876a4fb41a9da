// Geodesics from one first point to many.  A caller that solves a run of
// problems from the same point on the same body (the equidistant azimuthal
// from its centre) takes the body's derived values and the first point's
// reduced latitude once, in an origin, and then pays per problem only for
// the second point.  gx_geodesic_distance and gx_geodesic_coordinate build
// an origin and go through the same code, so both routes give the same bits.
#pragma once

#include "geodesy/ellipsoid.h"

// What a run of geodesics from (lambda1, phi1) derives once.
struct gx_geodesic_origin {
  double a;            // semi-major axis (the radius on a sphere)
  double e2;           // squared eccentricity; below GX_EPS a sphere
  double f;            // flattening, 1 - sqrt(1 - e2)
  double b;            // semi-minor axis, (1 - f) a
  double ep2;          // second eccentricity squared, e2 / (1 - e2)
  double root;         // sqrt(1 - e2), the ratio of tan U to tan phi
  double lambda1;      // longitude of the first point, radians, as given
  double phi1;         // latitude of the first point, radians
  double sin1, cos1;   // of the first point's reduced latitude (phi1 on a sphere)
  bool sphere;         // e2 below GX_EPS: great circles
  bool pole;           // phi1 at a pole (gx_eq with pi/2)
};

// The origin of geodesics from (lambda1, phi1) on the body (a, e2).  Angles
// in radians, a in any length unit; never fails.
gx_geodesic_origin gx_geodesic_origin_of(double a, double e2, double lambda1, double phi1);

// gx_geodesic_distance from the origin's point to (lambda2, phi2): the same
// results, bit for bit.  Any result pointer may be null.
void gx_geodesic_distance_from(const gx_geodesic_origin& origin, double lambda2, double phi2,
                               double* distance, double* azimuth12, double* azimuth21);

// gx_geodesic_coordinate from the origin's point: the same results, bit for
// bit.  Either result pointer may be null.
void gx_geodesic_coordinate_from(const gx_geodesic_origin& origin, double distance,
                                 double azimuth, double* lambda2, double* phi2);

// gx_geodesic_coordinate_from at the azimuth atan2(east, north), given by
// its sine `east` and cosine `north` (a direction of unit length, to
// rounding), for a caller that holds the direction rather than the angle.
// The end point agrees with gx_geodesic_coordinate_from's at that angle to a
// unit or two in the last place, exactly along the axes.  Either result
// pointer may be null.
void gx_geodesic_coordinate_toward(const gx_geodesic_origin& origin, double distance,
                                   double east, double north, double* lambda2, double* phi2);
