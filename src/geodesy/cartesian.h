// Geodetic and Earth-centred Cartesian coordinates for many points on one
// ellipsoid: the constants of both directions are computed once, and each
// point then costs two sine-cosine pairs one way and two arc tangents the
// other.  gx_curv_to_cart and gx_cart_to_curv are these functions with a
// setup of their own.
#pragma once

#include "gx_geodesy.h"

struct gx_cartesian_ellipsoid {
  double a, e2;
  double one_minus_e2;
  double b;       // semi-minor axis, sqrt(1 - e2) a
  double ratio;   // b / a, formed as that quotient
  double k1, k2;  // Bowring's b e2 / (1 - e2) and a e2
};

void gx_cartesian_setup(double a, double e2, gx_cartesian_ellipsoid* ellipsoid);
// Latitude phi, longitude lambda (radians), height h to x, y, z.
void gx_cartesian_from_curv(const gx_cartesian_ellipsoid& ellipsoid, double phi, double lambda,
                            double h, double* x, double* y, double* z);
// x, y, z to latitude, longitude (radians) and height: two fixed passes of
// Bowring's formula.
void gx_cartesian_to_curv(const gx_cartesian_ellipsoid& ellipsoid, double x, double y, double z,
                          double* phi, double* lambda, double* h);
