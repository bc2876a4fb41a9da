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

// The per-point loop of a forward or inverse function, reading its derived
// values from `layout`; returns the count that the function returns.
using gx_points_fn = int32_t (*)(const double* layout, const double* sphere, const double* parms,
                                 int32_t n, double* coords);

// A point loop that takes the sphere's branch or the ellipsoid's.
template <gx_points_fn on_sphere, gx_points_fn on_ellipsoid>
int32_t gx_branch(const double* layout, const double* sphere, const double* parms, int32_t n,
                  double* coords) {
  return gx_is_sphere(sphere) ? on_sphere(layout, sphere, parms, n, coords)
                              : on_ellipsoid(layout, sphere, parms, n, coords);
}

// Room for the largest layout of any projection: the set-up route's local
// copy lives on the stack.
inline constexpr int GX_LAYOUT_CAPACITY = 32;

// The shape of every forward and inverse function: 0 for n below 1;
// otherwise the points run on the block's doubles when they are given, or on
// a local layout filled by the set-up (with the `mask` half of any table).
int32_t gx_run(gx_setup_fn setup, int mask, gx_points_fn points, const double* sphere,
               const double* parms, int32_t n, double* coords, const double* doubles);

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

// Equality with 1 in magnitude, in the sense of gx_eq.
inline bool gx_is_unit(double value) {
  double a = std::fabs(value);
  return std::fabs(a - 1.0) <= ((a + 1.0) / 2 + 1) * GX_EPS;
}

// ---- declaring and defining the functions of a projection -----------------------

// Defines gx_<name>_forward and gx_<name>_inverse as runs (gx_run) of the
// point loops `fpoints` and `ipoints` over the set-up `setup`, which fills
// the halves `fmask` and `imask` of any series table.
#define GX_DEFINE_PROJECTION(name, setup, fpoints, fmask, ipoints, imask) \
  GX_DEFINE_RUNS(name, setup, fpoints, fmask, ipoints, imask, doubles)

// The same for a projection without a loader: whatever doubles it is handed
// (a twin hands on its own), it runs its set-up.
#define GX_DEFINE_PROJECTION_WITHOUT_LOADER(name, setup, fpoints, ipoints) \
  GX_DEFINE_RUNS(name, setup, fpoints, GX_SERIES_FORWARD, ipoints, GX_SERIES_INVERSE, nullptr)

// What both stand on: the two functions, running on `block`.
#define GX_DEFINE_RUNS(name, setup, fpoints, fmask, ipoints, imask, block)                    \
  int32_t gx_##name##_forward(const double* sphere, double* parms, int32_t n,               \
                              double* coords, const int32_t*, const double* doubles) {      \
    return gx_run(setup, fmask, fpoints, sphere, parms, n, coords, block);                  \
  }                                                                                         \
  int32_t gx_##name##_inverse(const double* sphere, double* parms, int32_t n,               \
                              double* coords, const int32_t*, const double* doubles) {      \
    return gx_run(setup, imask, ipoints, sphere, parms, n, coords, block);                  \
  }

// Defines gx_<name>_constants: `sphere_count` doubles on a sphere and
// `ellipsoid_count` otherwise, filled by `setup`.  Both are constants, and
// the larger must fit the set-up route's local layout.
#define GX_DEFINE_LOADER(name, setup, sphere_count, ellipsoid_count)                      \
  static_assert((sphere_count) <= GX_LAYOUT_CAPACITY &&                                   \
                    (ellipsoid_count) <= GX_LAYOUT_CAPACITY,                              \
                "the layout of " #name " outgrows GX_LAYOUT_CAPACITY");                   \
  int32_t gx_##name##_constants(gx_constants* block, const double* sphere,                \
                                const double* parms) {                                    \
    int32_t count = gx_is_sphere(sphere) ? (sphere_count) : (ellipsoid_count);            \
    return gx_layout_load(block, count, setup, sphere, parms);                            \
  }
