// One set-up per projection, shared by its functions and its loader.
//
// A projection keeps its derived values in one layout of doubles: the layout
// its loader stores in the constants block.  The set-up fills that layout;
// the forward and inverse functions read the block's doubles when they are
// given and otherwise run the set-up into a local array of the same layout.
// Both routes therefore compute every value by the same instructions and give
// the same bits.
#pragma once

#include "projections/contract.h"

// Fills `layout` from the sphere pair and the parameter vector.  `mask` is
// the half of a latitude series table that the caller will read
// (GX_SERIES_FORWARD, GX_SERIES_INVERSE, both, or GX_SERIES_ALL for a loader).
using gx_setup_fn = void (*)(const double* sphere, const double* parms, int mask, double* layout);

// Room that a layout keeps for one latitude series table, whatever its kind.
inline constexpr int GX_TABLE_ROOM = 18;

// The sphere test of every projection with an ellipsoidal branch.
inline bool gx_is_sphere(const double* sphere) { return sphere[1] < GX_EPS; }

// The doubles a function works from: the block's when it has them, otherwise
// `local` after the set-up has filled it.
inline const double* gx_layout(const double* doubles, double* local, gx_setup_fn setup,
                               const double* sphere, const double* parms, int mask) {
  if (doubles != nullptr) return doubles;
  setup(sphere, parms, mask, local);
  return local;
}

// A loader: `count` doubles filled by the set-up with whole tables.  Returns
// the count; 0, with nothing left in the block, when `count` is 0 or an
// allocation failed.
int32_t gx_layout_load(gx_constants* block, int32_t count, gx_setup_fn setup,
                       const double* sphere, const double* parms);

// gx_delta, without the division for an angle already in range; the result
// has the same bits, since the wrap returns such an angle unchanged.
inline double gx_delta_fast(double angle) {
  return std::fabs(angle) <= GX_PI ? angle : gx_delta(angle);
}

// Equality with pi/2 in the sense of gx_eq, written inline as every
// projection writes it.
inline bool gx_is_halfpi(double angle) {
  double a = std::fabs(angle);
  return std::fabs(a - GX_HALFPI) <= ((a + GX_HALFPI) / 2 + 1) * GX_EPS;
}

// Equality with 1 in magnitude, in the sense of gx_eq.
inline bool gx_is_unit(double value) {
  double a = std::fabs(value);
  return std::fabs(a - 1.0) <= ((a + 1.0) / 2 + 1) * GX_EPS;
}
