// Geographic to projected and back: units, latitude limit, false origin and
// constants are handled here, once per array, so that a projection function
// sees only radians and metres from its natural origin.
#include <cmath>

#include "convert/projcs_setup.h"
#include "frame/constants.h"
#include "gx_convert.h"
#include "gx_geodesy.h"
#include "objects/families.h"

namespace {

constexpr double kHalfPi = 1.5707963267948966;

struct gx_block_arrays {
  const int32_t* ints = nullptr;
  const double* doubles = nullptr;
};

// Loads the constants on first use; a failed load leaves both arrays null
// and the conversion goes on without them.
gx_block_arrays block_arrays(gx_projcs* projcs) {
  if (!gx_projcs_isconstloaded(projcs)) gx_projcs_load_constants(projcs);
  gx_block_arrays arrays;
  if (gx_constants* block = gx_projcs_constants(projcs)) {
    arrays.ints = gx_constants_ints(block);
    arrays.doubles = gx_constants_doubles(block);
  }
  return arrays;
}

void scale_points(int32_t n, double* coords, double factor) {
  for (int32_t i = 0; i < 2 * n; ++i) coords[i] *= factor;
}

}  // namespace

extern "C" {

GX_API int32_t gx_geog_to_proj(gx_projcs* projcs, int32_t n, double* coords) {
  gx_projcs_setup setup;
  gx_projcs_setup_build(projcs, &setup);
  gx_projection_fn forward = gx_projection_forward(gx_projcs_projection(projcs));
  gx_block_arrays arrays = block_arrays(projcs);
  double g = setup.angular_factor;
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    p[0] *= g;
    p[1] *= g;
    if (std::fabs(p[1]) > kHalfPi) p[1] = p[1] < 0 ? -kHalfPi : kHalfPi;
  }
  int32_t r = forward(setup.sphere, setup.parms, n, coords, arrays.ints, arrays.doubles);
  if (r < 1) {
    scale_points(n, coords, 1.0 / g);
    return r;
  }
  double inverse_u = 1.0 / setup.linear_factor;
  double x0 = setup.parms[GX_PARM_FALSE_EASTING];
  double y0 = setup.parms[GX_PARM_FALSE_NORTHING];
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    p[0] = (p[0] + x0) * inverse_u;
    p[1] = (p[1] + y0) * inverse_u;
  }
  return r;
}

GX_API int32_t gx_proj_to_geog_center(gx_projcs* projcs, int32_t n, double* coords,
                                      double center) {
  gx_projcs_setup setup;
  gx_projcs_setup_build(projcs, &setup);
  gx_projection_fn inverse = gx_projection_inverse(gx_projcs_projection(projcs));
  double g = setup.angular_factor;
  double u = setup.linear_factor;
  double c = center * g;
  gx_block_arrays arrays = block_arrays(projcs);
  double x0 = setup.parms[GX_PARM_FALSE_EASTING];
  double y0 = setup.parms[GX_PARM_FALSE_NORTHING];
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    p[0] = p[0] * u - x0;
    p[1] = p[1] * u - y0;
  }
  int32_t r = inverse(setup.sphere, setup.parms, n, coords, arrays.ints, arrays.doubles);
  if (r < 1) {
    double inverse_u = 1.0 / u;
    for (int32_t i = 0; i < n; ++i) {
      double* p = coords + 2 * i;
      p[0] = (p[0] + x0) * inverse_u;
      p[1] = (p[1] + y0) * inverse_u;
    }
    return r;
  }
  double inverse_g = 1.0 / g;
  if (std::fabs(c) <= GX_EPS) {
    scale_points(n, coords, inverse_g);
    return r;
  }
  for (int32_t i = 0; i < n; ++i) {
    double* p = coords + 2 * i;
    p[0] = gx_delta_center(p[0], c) * inverse_g;
    p[1] = p[1] * inverse_g;
  }
  return r;
}

GX_API int32_t gx_proj_to_geog(gx_projcs* projcs, int32_t n, double* coords) {
  return gx_proj_to_geog_center(projcs, n, coords, 0.0);
}

GX_API int32_t gx_proj_geog(gx_projcs* projcs, int32_t n, double* coords, int32_t direction) {
  if (direction == 0) return gx_proj_to_geog(projcs, n, coords);
  if (direction == 1) return gx_geog_to_proj(projcs, n, coords);
  return 0;
}

}  // extern "C"
