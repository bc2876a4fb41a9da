// The azimuthal family: projections onto a plane touching (or cutting) the
// body at a centre, with every direction from the centre kept.
//
// Each function first sorts the run by where the centre lies: on the north
// pole, on the south pole, on the equator, or anywhere else.  The inverse of
// every member sends a point at distance 0 from the origin to the centre.
//
// Stereographic family (stereographic.cpp): Stereographic, the two polar
// forms with a parallel of true scale, and Double_Stereographic (the
// ellipsoid mapped conformally onto a Gaussian sphere first).
// Lambert_Azimuthal_Equal_Area (lambert_azimuthal.cpp), Azimuthal_Equidistant
// and Two_Point_Equidistant (azimuthal_equidistant.cpp), Gnomonic,
// Orthographic and Vertical_Near_Side_Perspective (perspective.cpp), and the
// auxiliary sphere twins (azimuthal_twins.cpp).
#pragma once

#include "projections/setup.h"

// Where the centre of an azimuthal projection lies.
enum gx_aspect { GX_ASPECT_NORTH, GX_ASPECT_SOUTH, GX_ASPECT_EQUATOR, GX_ASPECT_OBLIQUE };

// The aspect of a centre latitude, each test by gx_eq.
inline gx_aspect gx_azimuthal_aspect(double phi0) {
  if (gx_eq(phi0, GX_HALFPI)) return GX_ASPECT_NORTH;
  if (gx_eq(phi0, -GX_HALFPI)) return GX_ASPECT_SOUTH;
  if (gx_eq(phi0, 0.0)) return GX_ASPECT_EQUATOR;
  return GX_ASPECT_OBLIQUE;
}

inline bool gx_azimuthal_polar(gx_aspect aspect) {
  return aspect == GX_ASPECT_NORTH || aspect == GX_ASPECT_SOUTH;
}

// What a run of a projection centred at (Central_Meridian,
// Latitude_Of_Origin) reads first: the centre, its aspect, and whether the
// body is a sphere.
struct gx_azimuthal_frame {
  double lam0;
  double phi0;
  gx_aspect aspect;
  bool sphere;
};

inline gx_azimuthal_frame gx_azimuthal_frame_of(const double* sphere, const double* parms) {
  double phi0 = parms[GX_PARM_LATITUDE_OF_ORIGIN];
  return {parms[GX_PARM_CENTRAL_MERIDIAN], phi0, gx_azimuthal_aspect(phi0), gx_is_sphere(sphere)};
}

// A point of a polar aspect at distance r from the pole and longitude dlam
// from the central meridian: the meridian below the north pole points down.
inline void gx_polar_point(bool north, double dlam, double r, double* xy) {
  xy[0] = std::sin(dlam) * r;
  xy[1] = north ? -std::cos(dlam) * r : std::cos(dlam) * r;
}

// The longitude from the central meridian of a plane point of a polar aspect.
inline double gx_polar_dlam(bool north, double x, double y) {
  return north ? std::atan2(x, -y) : std::atan2(x, y);
}

// The image of the origin under an inverse: the centre itself.
inline void gx_azimuthal_centre(double* lp, double lam0, double phi0) {
  lp[0] = gx_delta_fast(lam0);
  lp[1] = phi0;
}

// The inverse's last step for a centre off the poles.  A map point (x, y) at
// distance rho, whose angular distance ce from the centre is known by its
// sine and cosine, is turned back from the centre (latitude sine s0, cosine
// c0); d stretches y against x and d2 is its square, from the caller's
// constants (both 1 but for the ellipsoid's equal-area azimuth).  Writes the
// longitude from the central meridian to *dlam and returns the latitude
// with its sine and cosine.  The latitude is the atan2 of the point's
// height over its distance from the axis rather than an asin of the height,
// so that it keeps its digits beside the poles.
inline gx_angle gx_azimuthal_back(double sce, double cce, double x, double y, double rho,
                                  double s0, double c0, double d, double d2, double* dlam) {
  double east = x * sce, north = d * rho * c0 * cce - d2 * y * s0 * sce;
  *dlam = std::atan2(east, north);
  double r_over_d = 1.0 / (rho * d);
  double up = cce * s0 + d2 * y * sce * c0 * r_over_d;
  double across = gx_hypot(east, north) * r_over_d;
  return gx_angle{std::atan2(up, across), up, across};
}

// ---- the projections ------------------------------------------------------------


// The set-ups of the projections whose sphere layout an auxiliary sphere twin
// stores (gx_setup_fn).
void gx_stereographic_setup(const double* sphere, const double* parms, int mask, double* layout);
void gx_lambert_azimuthal_equal_area_setup(const double* sphere, const double* parms, int mask,
                                           double* layout);
void gx_azimuthal_equidistant_setup(const double* sphere, const double* parms, int mask,
                                    double* layout);
// Gnomonic's and Orthographic's: the cosine and sine of the centre.
void gx_gnomonic_setup(const double* sphere, const double* parms, int mask, double* layout);

GX_DECLARE_PROJECTION(stereographic);
GX_DECLARE_LOADER(stereographic);
GX_DECLARE_PROJECTION(stereographic_north_pole);
GX_DECLARE_LOADER(stereographic_north_pole);
GX_DECLARE_PROJECTION(stereographic_south_pole);
GX_DECLARE_LOADER(stereographic_south_pole);
GX_DECLARE_PROJECTION(double_stereographic);
GX_DECLARE_LOADER(double_stereographic);
GX_DECLARE_PROJECTION(lambert_azimuthal_equal_area);
GX_DECLARE_LOADER(lambert_azimuthal_equal_area);
GX_DECLARE_PROJECTION(azimuthal_equidistant);
GX_DECLARE_LOADER(azimuthal_equidistant);
GX_DECLARE_PROJECTION(two_point_equidistant);
GX_DECLARE_PROJECTION(gnomonic);
GX_DECLARE_LOADER(gnomonic);  // Orthographic's loader too
GX_DECLARE_PROJECTION(orthographic);
GX_DECLARE_PROJECTION(vertical_near_side_perspective);
GX_DECLARE_LOADER(vertical_near_side_perspective);

// The auxiliary sphere twins (see auxiliary_sphere.h).
GX_DECLARE_PROJECTION(stereographic_auxiliary_sphere);
GX_DECLARE_LOADER(stereographic_auxiliary_sphere);
GX_DECLARE_PROJECTION(azimuthal_equidistant_auxiliary_sphere);
GX_DECLARE_LOADER(azimuthal_equidistant_auxiliary_sphere);
GX_DECLARE_PROJECTION(lambert_azimuthal_equal_area_auxiliary_sphere);
GX_DECLARE_LOADER(lambert_azimuthal_equal_area_auxiliary_sphere);
GX_DECLARE_PROJECTION(orthographic_auxiliary_sphere);
GX_DECLARE_LOADER(orthographic_auxiliary_sphere);
GX_DECLARE_PROJECTION(gnomonic_auxiliary_sphere);
GX_DECLARE_LOADER(gnomonic_auxiliary_sphere);
