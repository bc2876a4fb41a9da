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
// 2 theta + sin 2 theta = pi sin |phi| by Brent's method on [0, pi/2].
double gx_mollweide_theta(double phi);

// Three-point interpolation in a table of `count` rows: rows t[] ascending,
// values f[].  At the first row i from 2 up with v <= t[i], the parabola
// through rows i - 2, i - 1, i; beyond the last row, f[count - 1].
double gx_stirling3(const double* t, const double* f, int count, double v);

// ---- the projections ---------------------------------------------------------

#define GX_WORLD_FUNCTIONS(name)                                                        \
  int32_t gx_##name##_forward(const double* sphere, double* parms, int32_t n, double* coords, \
                              const int32_t* ints, const double* doubles);                \
  int32_t gx_##name##_inverse(const double* sphere, double* parms, int32_t n, double* coords, \
                              const int32_t* ints, const double* doubles)
#define GX_WORLD_LOADER(name) \
  int32_t gx_##name##_constants(gx_constants* block, const double* sphere, const double* parms)

// Sinusoidal: on the ellipsoid, the meridian arc and the parallel's radius;
// the loader keeps nothing for a sphere.
GX_WORLD_FUNCTIONS(sinusoidal);
GX_WORLD_LOADER(sinusoidal);
// Mollweide: constants [0] a sqrt 2, [1] a 2 sqrt 2 / pi.
GX_WORLD_FUNCTIONS(mollweide);
GX_WORLD_LOADER(mollweide);
// Mollweide's set-up, which its twin's loader stores for the local sphere.
void gx_mollweide_setup(const double* sphere, const double* parms, int mask, double* layout);
GX_WORLD_FUNCTIONS(eckert_i);
GX_WORLD_FUNCTIONS(eckert_ii);
GX_WORLD_FUNCTIONS(eckert_iii);
GX_WORLD_FUNCTIONS(eckert_iv);
GX_WORLD_FUNCTIONS(eckert_v);
GX_WORLD_FUNCTIONS(eckert_vi);
// Winkel I and II read Standard_Parallel_1 (slot 3).
GX_WORLD_FUNCTIONS(winkel_i);
GX_WORLD_FUNCTIONS(winkel_ii);
// Winkel Tripel reads Standard_Parallel_1 (slot 3); its inverse is a search
// guided by a table of forward samples, and counts the points it converts.
GX_WORLD_FUNCTIONS(winkel_tripel);
GX_WORLD_LOADER(winkel_tripel);
GX_WORLD_FUNCTIONS(quartic_authalic);
GX_WORLD_FUNCTIONS(flat_polar_quartic);
GX_WORLD_LOADER(flat_polar_quartic);
GX_WORLD_FUNCTIONS(craster_parabolic);
GX_WORLD_LOADER(craster_parabolic);
// Loximuthal reads Central_Parallel (slot 6).
GX_WORLD_FUNCTIONS(loximuthal);
// Times: radius the mean of the axes; the inverse counts.
GX_WORLD_FUNCTIONS(times);
GX_WORLD_LOADER(times);
GX_WORLD_FUNCTIONS(van_der_grinten_i);
GX_WORLD_FUNCTIONS(aitoff);
GX_WORLD_FUNCTIONS(hammer_aitoff);
// Robinson: authalic radius; Robinson_TELMAR: radius a, its own table.  Both
// inverses count.
GX_WORLD_FUNCTIONS(robinson);
GX_WORLD_LOADER(robinson);
GX_WORLD_FUNCTIONS(robinson_telmar);
// Goode Homolosine: Option (slot 15) 0 whole, 1 and 2 interrupted; the
// inverse counts.
GX_WORLD_FUNCTIONS(goode_homolosine);
GX_WORLD_LOADER(goode_homolosine);

// The auxiliary sphere twins (see auxiliary_sphere.h).  Mollweide's keeps its
// base's two doubles, then the authalic table; the others the table alone.
GX_WORLD_FUNCTIONS(mollweide_auxiliary_sphere);
GX_WORLD_LOADER(mollweide_auxiliary_sphere);
GX_WORLD_FUNCTIONS(eckert_iv_auxiliary_sphere);
GX_WORLD_LOADER(eckert_iv_auxiliary_sphere);
GX_WORLD_FUNCTIONS(eckert_vi_auxiliary_sphere);
GX_WORLD_LOADER(eckert_vi_auxiliary_sphere);
GX_WORLD_FUNCTIONS(van_der_grinten_i_auxiliary_sphere);
GX_WORLD_LOADER(van_der_grinten_i_auxiliary_sphere);

#undef GX_WORLD_FUNCTIONS
#undef GX_WORLD_LOADER
