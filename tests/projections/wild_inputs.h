// A check that every family's tests run on their cases: NaN, infinities and
// huge values reach every function in both directions; each must return,
// and no point may leave its place or be counted twice.
#pragma once

#include <cmath>
#include <vector>

#include "projections/projection_cases.h"

namespace gx_test {

inline void expect_wild_inputs_end(const ProjectionCase* cases, size_t count) {
  const double wild[] = {NAN, INFINITY, -INFINITY, 1e300, -1e300, 0.0, 1e-310};
  std::vector<double> coords;
  for (double u : wild)
    for (double v : wild) {
      coords.push_back(u);
      coords.push_back(v);
    }
  for (size_t i = 0; i < count; ++i) {
    const ProjectionCase& c = cases[i];
    for (gx_projection_fn fn : {c.projection.forward, c.projection.inverse}) {
      std::vector<double> work = coords;
      int32_t n = run_function(fn, c, nullptr, nullptr, work);
      EXPECT_GE(n, 0) << c.label;
      EXPECT_LE(n, static_cast<int32_t>(work.size() / 2)) << c.label;
    }
  }
}

}  // namespace gx_test
