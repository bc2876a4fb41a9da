// The transverse Mercator family: Transverse_Mercator and Gauss_Kruger (one
// pair of functions for two rows of the projection list), Cassini, and
// Transverse_Mercator_Complex.  All read Central_Meridian (slot 2),
// Scale_Factor (slot 5) and Latitude_Of_Origin (slot 6).
#pragma once

#include "projections/setup.h"

// Transverse_Mercator and Gauss_Kruger: series through the eighth order in
// the longitude difference on the ellipsoid, closed forms on the sphere.
GX_DECLARE_PROJECTION(transverse_mercator);
GX_DECLARE_LOADER(transverse_mercator);

// Cassini: the transverse equidistant cylinder, a short series on the
// ellipsoid.
GX_DECLARE_PROJECTION(cassini);
GX_DECLARE_LOADER(cassini);

// Transverse_Mercator_Complex: the exact transverse Mercator through Jacobi
// elliptic functions of a complex argument.  Returns the number of points
// that converged; the others hold NaN.
GX_DECLARE_PROJECTION(transverse_mercator_complex);
GX_DECLARE_LOADER(transverse_mercator_complex);

// The sphere branch that Transverse_Mercator and Transverse_Mercator_Complex
// share, as point loops over the layout [0] k0 * a, [1] half of it.
int32_t gx_transverse_mercator_sphere_forward(const double* layout, const double* sphere,
                                              const double* parms, int32_t n, double* coords);
int32_t gx_transverse_mercator_sphere_inverse(const double* layout, const double* sphere,
                                              const double* parms, int32_t n, double* coords);

// Jacobi's sn(z | m) of a complex argument, by descending Landen steps for
// the real part (parameter m) and the imaginary part (parameter 1 - m) and
// the addition formula; 0 <= m < 1.
gx_complex* gx_cplx_sn(gx_complex z, double m, gx_complex* result);
// The incomplete elliptic integral of the second kind in Jacobi's argument,
// E(am z | m), for a complex z whose real part lies within the quarter
// period; by Carlson's forms for the real and the imaginary part and the
// addition theorem.
gx_complex* gx_cplx_ellint_e(gx_complex z, double m, gx_complex* result);
