// Internal half of the ellipsoid and angle functions: the angle constants of
// the whole kernel, overflow-safe plane helpers, and the device that every
// latitude and arc series shares (seven sines of even multiples evaluated as
// sin 2x times a polynomial in cos 2x).
#pragma once

#include "gx_geodesy.h"

// The nearest doubles to pi, pi/2, pi/4 and 2 pi.
inline constexpr double GX_PI = 3.141592653589793;
inline constexpr double GX_HALFPI = 1.5707963267948966;
inline constexpr double GX_QUARTERPI = 0.7853981633974483;
inline constexpr double GX_TWOPI = 6.283185307179586;

// Number of sine terms in every series of the kernel, and so the number of
// Horner coefficients and the highest power of the expansion variable.
inline constexpr int GX_SERIES_TERMS = 7;

// sqrt(x^2 + y^2) without overflow or underflow; 0 for (0, 0).
double gx_hypot(double x, double y);
// atan2(y, x) with x the real and y the imaginary part; 0 for (0, 0).
double gx_atan2_safe(double x, double y);

// Third flattening n = (1 - sqrt(1 - e2)) / (1 + sqrt(1 - e2)) = (a - b) / (a + b).
double gx_third_flattening(double e2);

// Coefficients of a series in one small variable t (e2 or the third
// flattening): row k holds the coefficients of t^1 .. t^7 in the factor S(k+1)
// of sin(2(k+1)x).  Powers of t are formed by repeated multiplication.
using gx_series_table = double[GX_SERIES_TERMS][GX_SERIES_TERMS];
void gx_series_factors(const gx_series_table& table, double t, double* s);
// Turns the factors S1..S7 of sin 2x .. sin 14x into the seven Horner
// coefficients c0..c6 of sin 2x * (c0 + C (c1 + ... + C c6)), C = cos 2x.
void gx_series_horner(const double* s, double* c);
// Factors and Horner coefficients in one go.
void gx_series_coefficients(const gx_series_table& table, double t, double* c);
// sin 2x * (c0 + C (c1 + C (c2 + ... + C c6))), C = cos 2x: one sine, one
// cosine.
double gx_series_sum(const double* c, double x);
