// Calling method functions on points given in degrees, as the tests do.
#pragma once

#include <cstdint>
#include <vector>

#include "methods/methods.h"

namespace gx_test {

const double kRadian = 0.017453292519943295;
const double kArcSecond = 4.84813681109536e-6;  // the driver's factor for rotations
const double kPpm = 1e-6;                         // and for the scale difference

struct sphere {
  double a, e2;
};

inline sphere from_flattening(double a, double inverse_flattening) {
  const double f = 1.0 / inverse_flattening;
  return {a, (2.0 - f) * f};
}

// A point in degrees and metres.
struct point3 {
  double lon, lat, h;
};

// Runs `fn` on the points (degrees in, degrees out), heights through z when
// `with_heights`; returns the function's count.
inline int32_t run_degrees(gx_method_fn fn, const sphere& s1, const sphere& s2,
                           const double* parms, std::vector<point3>& points,
                           bool with_heights = true, const char* dataset = nullptr,
                           int32_t* ints = nullptr, void* values = nullptr,
                           double* doubles = nullptr) {
  std::vector<double> coords, heights;
  for (const point3& p : points) {
    coords.push_back(p.lon * kRadian);
    coords.push_back(p.lat * kRadian);
    heights.push_back(p.h);
  }
  const double pair1[2] = {s1.a, s1.e2};
  const double pair2[2] = {s2.a, s2.e2};
  const int32_t n = static_cast<int32_t>(points.size());
  const int32_t r = fn(pair1, pair2, parms, dataset, n, coords.data(),
                       with_heights ? heights.data() : nullptr, ints, values, doubles);
  for (size_t i = 0; i < points.size(); ++i) {
    points[i].lon = coords[2 * i] / kRadian;
    points[i].lat = coords[2 * i + 1] / kRadian;
    points[i].h = heights[i];
  }
  return r;
}

}  // namespace gx_test
