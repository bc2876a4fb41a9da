// Table forms of the conformal, authalic and rectifying latitudes.  A
// projection's constants loader fills a table once with an init function; each
// point then costs one sine and one cosine below GX_SERIES_LIMIT.
//
// Layout of every table: entries 0..6 the Horner coefficients of the forward
// series (from phi), 7..13 those of the inverse series (to phi), then:
//   chi  (16): 14 e, 15 e/2
//   beta (18): 14 e, 15 2e, 16 1/(1 - e2) - ln((1 - e)/(1 + e))/(2e), 17 (1 - e2)/2
//   mu   (17): 14 e2/2, 15 E(e2) complete, 16 1 - e2
#pragma once

#include "gx_geodesy.h"

inline constexpr int GX_CHI_TABLE_SIZE = 16;
inline constexpr int GX_BETA_TABLE_SIZE = 18;
inline constexpr int GX_MU_TABLE_SIZE = 17;
inline constexpr int GX_SERIES_FORWARD_AT = 0;
inline constexpr int GX_SERIES_INVERSE_AT = 7;

// Masks of the init functions.  0 fills everything.  Otherwise the series
// are filled only below GX_SERIES_LIMIT (the forward set for bit 0, the
// inverse set for bit 1) and the closed-form entries only at or above it.
inline constexpr int GX_SERIES_ALL = 0;
inline constexpr int GX_SERIES_FORWARD = 1;
inline constexpr int GX_SERIES_INVERSE = 2;
inline constexpr int GX_SERIES_BOTH = 3;

void gx_chi_series_init(double e2, double* table, int mask);
void gx_beta_series_init(double e2, double* table, int mask);
void gx_mu_series_init(double e2, double* table, int mask);

// Same results as the plain functions of gx_geodesy.h, read from a table made
// for the same e2 with the matching half filled.
double gx_phi_to_chi_c(double e2, double phi, const double* table);
double gx_chi_to_phi_c(double e2, double chi, const double* table);
double gx_phi_to_beta_c(double e2, double phi, const double* table);
double gx_beta_to_phi_c(double e2, double beta, const double* table);
double gx_phi_to_mu_c(double e2, double phi, const double* table);
double gx_mu_to_phi_c(double e2, double mu, const double* table);
