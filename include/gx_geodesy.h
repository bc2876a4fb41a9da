/*
 * gx_geodesy.h - the geodesy kernel: stateless functions on an ellipsoid
 * given as its semi-major axis a and squared eccentricity e2 (a sphere has
 * e2 = 0).  Angles are radians.  Nothing here allocates or keeps state.
 *
 * Lengths come back in the unit of a.  No function reports a failure: an
 * argument outside the domain (e2 at or above 1, a NaN) gives a NaN or a
 * meaningless number, never a crash and never an endless loop.
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

/* ---- angles and the tolerance ------------------------------------------ */

/* The angle wrapped into [-pi, +pi]; both ends are legal results, so -pi
 * stays -pi and +pi stays +pi. */
GX_API double gx_delta(double angle);
/* The angle wrapped into [center - pi, center + pi]. */
GX_API double gx_delta_center(double angle, double center);
/* 1 when |x - y| <= (1 + (|x| + |y|) / 2) * GX_EPS, else 0: absolute near
 * zero, relative for large values.  The equality of doubles everywhere. */
GX_API int gx_eq(double x, double y);

/* ---- radii and meridian arcs (a in any linear unit, phi in radians) ---- */

/* w = sqrt(1 - e2 sin^2 phi), without unit. */
GX_API double gx_w(double e2, double phi);
/* Radius of curvature in the meridian at phi. */
GX_API double gx_m(double a, double e2, double phi);
/* Radius of curvature in the prime vertical at phi. */
GX_API double gx_n(double a, double e2, double phi);
/* Radius of the sphere of the same area (authalic radius); a for a sphere. */
GX_API double gx_auth_r(double a, double e2);
/* Radius of the sphere of the same meridian length (rectifying radius); a
 * for a sphere. */
GX_API double gx_rect_r(double a, double e2);
/* Length of the meridian arc from the equator to phi, signed like phi.  A
 * series in the third flattening for e2 below GX_SERIES_LIMIT, elliptic
 * integrals at and above it. */
GX_API double gx_q(double a, double e2, double phi);
/* Length of the quarter meridian, equator to pole. */
GX_API double gx_q90(double a, double e2);

/* ---- auxiliary latitudes (e2, latitude in radians -> latitude) ---------
 * chi conformal, beta authalic, mu rectifying, eta reduced (parametric),
 * phig geocentric; phi is the geodetic latitude.  Chi, beta and mu return a
 * latitude of exactly 0, a pole and any latitude on a sphere unchanged; they
 * use series below GX_SERIES_LIMIT and closed forms (iterated for the
 * inverses) at and above it.  Eta folds its argument into [-pi/2, pi/2]
 * keeping the sign of its sine. */
GX_API double gx_phi_to_chi(double e2, double phi);
GX_API double gx_chi_to_phi(double e2, double chi);
GX_API double gx_phi_to_beta(double e2, double phi);
GX_API double gx_beta_to_phi(double e2, double beta);
GX_API double gx_phi_to_mu(double e2, double phi);
GX_API double gx_mu_to_phi(double e2, double mu);
GX_API double gx_phi_to_eta(double e2, double phi);
GX_API double gx_eta_to_phi(double e2, double eta);
GX_API double gx_phi_to_phig(double e2, double phi);
GX_API double gx_phig_to_phi(double e2, double phig);

/* ---- geodetic and geocentric Cartesian coordinates --------------------- */

/* Latitude phi, longitude lambda (radians) and height h above the ellipsoid
 * to Earth-centred x, y, z in the unit of a.  The three output pointers must
 * not be null. */
GX_API void gx_curv_to_cart(double a, double e2, double phi, double lambda, double h, double *x,
                            double *y, double *z);
/* Earth-centred x, y, z to latitude, longitude (radians) and height, by two
 * fixed passes of Bowring's formula: about 1e-11 radian for heights of a few
 * kilometres.  On the polar axis (the centre included) lambda is 0 and phi
 * +-pi/2 by the sign of z.  The three output pointers must not be null. */
GX_API void gx_cart_to_curv(double a, double e2, double x, double y, double z, double *phi,
                            double *lambda, double *h);

/* ---- geodesics ------------------------------------------------------------
 * Longitude comes before latitude; angles in radians, azimuths clockwise from
 * north, lengths in the unit of a.  A sphere (e2 below GX_EPS) takes the great
 * circle; an ellipsoid Vincenty's formulas, with a separate iteration for
 * nearly antipodal points.  Accuracy of the inverse on WGS 84: 0.1 mm in
 * distance and a nanoradian in azimuth for points more than a degree from
 * each other's antipode; closer to it the iterations may stop unsettled and
 * the distance may be off by tens of kilometres.  The direct problem holds
 * 0.1 mm everywhere.
 *
 * A start or end at a pole takes its azimuth from the other point's
 * longitude: that longitude in the south, pi minus it in the north.  A line
 * along the equator has the distance along it and azimuths of +-pi/2. */

/* Inverse problem: distance from point 1 to point 2, azimuth12 at point 1
 * towards point 2, azimuth21 at point 2 back towards point 1.  Any result
 * pointer may be null; only the results asked for are computed.  The same
 * point twice, or two points at the same pole, give 0 for all three. */
GX_API void gx_geodesic_distance(double a, double e2, double lambda1, double phi1, double lambda2,
                                 double phi2, double *distance, double *azimuth12,
                                 double *azimuth21);
/* Direct problem: the point reached from (lambda1, phi1) after `distance`
 * along `azimuth`.  lambda2 is wrapped into [-pi, pi].  Either result
 * pointer may be null. */
GX_API void gx_geodesic_coordinate(double a, double e2, double lambda1, double phi1,
                                   double distance, double azimuth, double *lambda2,
                                   double *phi2);

/* The same for n lines at once, for callers that hold arrays (bindings to
 * other languages, say).  from and to: n (longitude, latitude) pairs;
 * distance, azimuth12, azimuth21: n values each, any of them null when not
 * wanted.  Returns n, or 0 when n < 1 or from or to is null. */
GX_API int32_t gx_geodesic_distance_n(double a, double e2, int32_t n, const double *from,
                                      const double *to, double *distance, double *azimuth12,
                                      double *azimuth21);
/* n direct problems: from n pairs, n distances and n azimuths to n pairs.
 * Returns n, or 0 when n < 1 or an array is null. */
GX_API int32_t gx_geodesic_coordinate_n(double a, double e2, int32_t n, const double *from,
                                        const double *distance, const double *azimuth,
                                        double *to);

#ifdef __cplusplus
}
#endif

#endif /* GX_GEODESY_H */
