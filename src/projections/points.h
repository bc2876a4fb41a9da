// The per-point side of a projection function: the loop over the array with
// its count, the marking of points without an image, and the small tests
// against a limit that the world projections and the grids apart share.
#pragma once

#include <type_traits>

#include "projections/setup.h"

// t of magnitude above 1 replaced by +-1 with its sign, before an asin.
inline double gx_clamp_unit(double t) {
  if (t > 1.0) return 1.0;
  if (t < -1.0) return -1.0;
  return t;
}

// |value| with the sign of `sign` (+0 counts as positive).
inline double gx_with_sign_of(double value, double sign) {
  return sign < 0.0 ? -std::fabs(value) : std::fabs(value);
}

// gx_eq, written inline for the per-point tests against a limit.
inline bool gx_equals(double x, double y) {
  return std::fabs(x - y) <= (1.0 + (std::fabs(x) + std::fabs(y)) / 2.0) * GX_EPS;
}

// For the inverses that reject: false when |value| exceeds `limit` and is not
// equal to it in the sense of gx_eq; a value equal to its limit takes the
// limit exactly, with its sign.
inline bool gx_within_limit(double& value, double limit) {
  if (std::fabs(value) <= limit) return true;
  if (!gx_equals(std::fabs(value), limit)) return false;
  value = value < 0.0 ? -limit : limit;
  return true;
}

// A longitude difference beyond a half turn but equal to it in the sense of
// gx_eq is the half turn exactly; any other value stands.
inline double gx_onto_half_turn(double dlam) {
  if (std::fabs(dlam) > GX_PI && gx_equals(std::fabs(dlam), GX_PI)) return dlam < 0.0 ? -GX_PI : GX_PI;
  return dlam;
}

// Runs point(x, y) on each of the n pairs in order.  Returns n, or 0 for n
// below 1.
template <class Point>
inline int32_t gx_each_point(int32_t n, double* coords, Point point) {
  if (n < 1) return 0;
  for (int32_t i = 0; i < n; ++i) point(coords[2 * i], coords[2 * i + 1]);
  return n;
}

// For the functions whose per-point work is a search on one ordinate: runs
// place(xy, found) on each point, with found = one(y) of its second ordinate,
// but takes the results of two points at a time from two(y, found) (y and
// found each two doubles), whose searches then run side by side.  place
// returns nothing where every point has an image, or false for a point
// without one, which then holds NaN in both ordinates.  Returns the number
// of points with an image, 0 for n below 1.
template <class Two, class One, class Place>
inline int32_t gx_each_point_by_twos(int32_t n, double* coords, Two two, One one, Place place) {
  int32_t converted = 0;
  auto finish = [&](double* xy, double found) {
    if constexpr (std::is_void_v<decltype(place(xy, found))>) {
      place(xy, found);
      ++converted;
    } else if (place(xy, found)) {
      ++converted;
    } else {
      gx_point_nan(xy);
    }
  };
  int32_t i = 0;
  for (; i + 1 < n; i += 2) {
    double* xy = coords + 2 * i;
    double y[2] = {xy[1], xy[3]}, found[2];
    two(y, found);
    finish(xy, found[0]);
    finish(xy + 2, found[1]);
  }
  if (i < n) finish(coords + 2 * i, one(coords[2 * i + 1]));
  return converted;
}

// For the functions that count: point(x, y), or point(xy) for one that works
// on the pair as a whole, returns false for a point without an image, which
// then holds NaN in both ordinates.  Returns the number of points that got
// an image, 0 for n below 1.
template <class Point>
inline int32_t gx_count_points(int32_t n, double* coords, Point point) {
  if (n < 1) return 0;
  int32_t converted = 0;
  for (int32_t i = 0; i < n; ++i) {
    double* xy = coords + 2 * i;
    bool has_image;
    if constexpr (std::is_invocable_v<Point, double*>)
      has_image = point(xy);
    else
      has_image = point(xy[0], xy[1]);
    if (has_image) ++converted;
    else gx_point_nan(xy);
  }
  return converted;
}
