// The transverse Mercator family: Transverse_Mercator and Gauss_Kruger (one
// pair of functions for two rows of the projection list), Cassini, and
// Transverse_Mercator_Complex.  All read Central_Meridian (slot 2),
// Scale_Factor (slot 5) and Latitude_Of_Origin (slot 6).
#pragma once

#include "projections/contract.h"

// Transverse_Mercator and Gauss_Kruger: series through the eighth order in
// the longitude difference on the ellipsoid, closed forms on the sphere.
int32_t gx_transverse_mercator_forward(const double* sphere, double* parms, int32_t n,
                                       double* coords, const int32_t* ints,
                                       const double* doubles);
int32_t gx_transverse_mercator_inverse(const double* sphere, double* parms, int32_t n,
                                       double* coords, const int32_t* ints,
                                       const double* doubles);
int32_t gx_transverse_mercator_constants(gx_constants* block, const double* sphere,
                                         const double* parms);

// Cassini: the transverse equidistant cylinder, a short series on the
// ellipsoid.
int32_t gx_cassini_forward(const double* sphere, double* parms, int32_t n, double* coords,
                           const int32_t* ints, const double* doubles);
int32_t gx_cassini_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                           const int32_t* ints, const double* doubles);
int32_t gx_cassini_constants(gx_constants* block, const double* sphere, const double* parms);

// Transverse_Mercator_Complex: the exact transverse Mercator through Jacobi
// elliptic functions of a complex argument.  Returns the number of points
// that converged; the others hold NaN.
int32_t gx_transverse_mercator_complex_forward(const double* sphere, double* parms, int32_t n,
                                               double* coords, const int32_t* ints,
                                               const double* doubles);
int32_t gx_transverse_mercator_complex_inverse(const double* sphere, double* parms, int32_t n,
                                               double* coords, const int32_t* ints,
                                               const double* doubles);
int32_t gx_transverse_mercator_complex_constants(gx_constants* block, const double* sphere,
                                                 const double* parms);

// The sphere branch that Transverse_Mercator and Transverse_Mercator_Complex
// share: `ak` is k0 * a, `half_ak` half of it, phi0 the latitude of origin.
void gx_transverse_mercator_sphere_forward(double ak, double half_ak, double lam0, double phi0,
                                           int32_t n, double* coords);
void gx_transverse_mercator_sphere_inverse(double ak, double lam0, double phi0, int32_t n,
                                           double* coords);

// Jacobi's sn(z | m) of a complex argument, by descending Landen steps for
// the real part (parameter m) and the imaginary part (parameter 1 - m) and
// the addition formula; 0 <= m < 1.
gx_complex* gx_cplx_sn(gx_complex z, double m, gx_complex* result);
// The incomplete elliptic integral of the second kind in Jacobi's argument,
// E(am z | m), for a complex z whose real part lies within the quarter
// period; by Carlson's forms for the real and the imaginary part and the
// addition theorem.
gx_complex* gx_cplx_ellint_e(gx_complex z, double m, gx_complex* result);
