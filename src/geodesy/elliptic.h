// Elliptic integrals by Carlson's symmetric forms, and the sequence of the
// arithmetic-geometric mean, for the closed forms of strongly flattened
// bodies and for the complex Transverse Mercator.
#pragma once

// Carlson's RF(x, y, 1) and RD(x, y, 1) for x, y >= 0 (at most one of them
// 0 for RF, RD needs no more).
double gx_carlson_rf(double x, double y);
double gx_carlson_rd(double x, double y);
// Complete elliptic integral of the second kind E(m), parameter m = k^2 < 1.
double gx_ellint_e_complete(double m);
// Incomplete elliptic integral of the second kind E(phi | m).
double gx_ellint_e(double phi, double m);

// Steps of the arithmetic-geometric mean: the caller sets a[0] and b[0];
// a[i], b[i] and c[i] = (a[i-1] - b[i-1]) / 2 are filled from i = 1 until
// |c[i]| < GX_EPS or the 50th entry.  Returns the index of the last step
// filled (49 when it did not converge; 0 for a capacity below 2).
inline constexpr int GX_AGM_CAPACITY = 50;
int gx_agm_sequence(double* a, double* b, double* c, int capacity);
