// The pseudocylindrical and world projections: equal-area and compromise maps
// of the whole sphere.  All are sphere only, of radius a, except where a
// function's comment says otherwise, and all read Central_Meridian (slot 2).
//
// Each projection has gx_<name>_forward and gx_<name>_inverse
// (gx_projection_fn) and, where the projection list gives it one,
// gx_<name>_constants (gx_constants_fn).
#pragma once

#include "projections/points.h"

// ---- what the family's functions share --------------------------------------

// The Mollweide auxiliary angle of a latitude, signed like it: the root of
// 2 theta + sin 2 theta = pi sin |phi| (mollweide.cpp tells how it is found),
// with its sine and cosine.
gx_angle gx_mollweide_angle(double phi);
inline double gx_mollweide_theta(double phi) { return gx_mollweide_angle(phi).rad; }
// The angles of two latitudes phi[0] and phi[1], each as gx_mollweide_theta
// gives it.
inline void gx_mollweide_theta_pair(const double* phi, double* theta) {
  theta[0] = gx_mollweide_theta(phi[0]);
  theta[1] = gx_mollweide_theta(phi[1]);
}

// The Mollweide angle theta = asin(t) of a sine t already clamped to +-1,
// with its cosine from t, and the latitude asin((sin 2 theta + 2 theta) / pi)
// that it stands for.
inline double gx_mollweide_latitude(double t, double* theta, double* cos_theta) {
  double c = std::sqrt((1.0 - t) * (1.0 + t));
  *theta = std::asin(t);
  *cos_theta = c;
  double u = 2.0 * *theta;
  return std::asin(gx_clamp_unit((2.0 * t * c + u) * 0.3183098861837907));
}

// Three-point interpolation in a table of `count` rows: rows t[] ascending,
// values f[].  At the first row i from 2 up with v <= t[i], the parabola
// through rows i - 2, i - 1, i; beyond the last row, f[count - 1].
double gx_stirling3(const double* t, const double* f, int count, double v);

// ---- the projections ---------------------------------------------------------

// Sinusoidal: on the ellipsoid, the meridian arc and the parallel's radius;
// the loader keeps nothing for a sphere.
GX_DECLARE_PROJECTION(sinusoidal);
GX_DECLARE_LOADER(sinusoidal);
// Mollweide: constants [0] a sqrt 2, [1] a 2 sqrt 2 / pi.
GX_DECLARE_PROJECTION(mollweide);
GX_DECLARE_LOADER(mollweide);
// Mollweide's set-up, which its twin's loader stores for the local sphere.
void gx_mollweide_setup(const double* sphere, const double* parms, int mask, double* layout);
GX_DECLARE_PROJECTION(eckert_i);
GX_DECLARE_PROJECTION(eckert_ii);
GX_DECLARE_PROJECTION(eckert_iii);
GX_DECLARE_PROJECTION(eckert_iv);
GX_DECLARE_PROJECTION(eckert_v);
GX_DECLARE_PROJECTION(eckert_vi);
// Winkel I and II read Standard_Parallel_1 (slot 3).
GX_DECLARE_PROJECTION(winkel_i);
GX_DECLARE_PROJECTION(winkel_ii);
// Winkel Tripel reads Standard_Parallel_1 (slot 3); its inverse is a search
// guided by a table of forward samples, and counts the points it converts.
GX_DECLARE_PROJECTION(winkel_tripel);
GX_DECLARE_LOADER(winkel_tripel);
GX_DECLARE_PROJECTION(quartic_authalic);
GX_DECLARE_PROJECTION(flat_polar_quartic);
GX_DECLARE_LOADER(flat_polar_quartic);
GX_DECLARE_PROJECTION(craster_parabolic);
GX_DECLARE_LOADER(craster_parabolic);
// Loximuthal reads Central_Parallel (slot 6).
GX_DECLARE_PROJECTION(loximuthal);
// Times: radius the mean of the axes; the inverse counts.
GX_DECLARE_PROJECTION(times);
GX_DECLARE_LOADER(times);
GX_DECLARE_PROJECTION(van_der_grinten_i);
GX_DECLARE_PROJECTION(aitoff);
GX_DECLARE_PROJECTION(hammer_aitoff);
// Robinson: authalic radius; Robinson_TELMAR: radius a, its own table.  Both
// inverses count.
GX_DECLARE_PROJECTION(robinson);
GX_DECLARE_LOADER(robinson);
GX_DECLARE_PROJECTION(robinson_telmar);
// Goode Homolosine: Option (slot 15) 0 whole, 1 and 2 interrupted; the
// inverse counts.
GX_DECLARE_PROJECTION(goode_homolosine);
GX_DECLARE_LOADER(goode_homolosine);

// The auxiliary sphere twins (see auxiliary_sphere.h).  Mollweide's keeps its
// base's two doubles, then the authalic table; the others the table alone.
GX_DECLARE_PROJECTION(mollweide_auxiliary_sphere);
GX_DECLARE_LOADER(mollweide_auxiliary_sphere);
GX_DECLARE_PROJECTION(eckert_iv_auxiliary_sphere);
GX_DECLARE_LOADER(eckert_iv_auxiliary_sphere);
GX_DECLARE_PROJECTION(eckert_vi_auxiliary_sphere);
GX_DECLARE_LOADER(eckert_vi_auxiliary_sphere);
GX_DECLARE_PROJECTION(van_der_grinten_i_auxiliary_sphere);
GX_DECLARE_LOADER(van_der_grinten_i_auxiliary_sphere);

