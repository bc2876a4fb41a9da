// The auxiliary sphere twins of the cylindrical family:
// Equidistant_Cylindrical_Auxiliary_Sphere (43102),
// Miller_Cylindrical_Auxiliary_Sphere (43103) and
// Mercator_Auxiliary_Sphere (43104).
#include "projections/auxiliary_sphere.h"
#include "projections/cylindrical.h"

namespace {

// The two sphere-only bases read no doubles, so their twins keep only the
// authalic table.
constexpr gx_twin kEquidistantCylindrical = {gx_equidistant_cylindrical_forward,
                                             gx_equidistant_cylindrical_inverse,
                                             GX_PARM_STANDARD_PARALLEL_1, 0, nullptr};
constexpr gx_twin kMillerCylindrical = {gx_miller_cylindrical_forward,
                                        gx_miller_cylindrical_inverse, -1, 0, nullptr};
// Mercator's sphere reads [1] a * k; [0] k stands before it.
constexpr gx_twin kMercator = {gx_mercator_forward, gx_mercator_inverse,
                               GX_PARM_STANDARD_PARALLEL_1, 2, gx_mercator_setup};

}  // namespace

int32_t gx_equidistant_cylindrical_auxiliary_sphere_forward(const double* sphere, double* parms,
                                                            int32_t n, double* coords,
                                                            const int32_t* ints,
                                                            const double* doubles) {
  return gx_twin_forward(&kEquidistantCylindrical, sphere, parms, n, coords, ints, doubles);
}

int32_t gx_equidistant_cylindrical_auxiliary_sphere_inverse(const double* sphere, double* parms,
                                                            int32_t n, double* coords,
                                                            const int32_t* ints,
                                                            const double* doubles) {
  return gx_twin_inverse(&kEquidistantCylindrical, sphere, parms, n, coords, ints, doubles);
}

int32_t gx_equidistant_cylindrical_auxiliary_sphere_constants(gx_constants* block,
                                                              const double* sphere,
                                                              const double* parms) {
  return gx_twin_constants(&kEquidistantCylindrical, block, sphere, parms);
}

int32_t gx_miller_cylindrical_auxiliary_sphere_forward(const double* sphere, double* parms,
                                                       int32_t n, double* coords,
                                                       const int32_t* ints,
                                                       const double* doubles) {
  return gx_twin_forward(&kMillerCylindrical, sphere, parms, n, coords, ints, doubles);
}

int32_t gx_miller_cylindrical_auxiliary_sphere_inverse(const double* sphere, double* parms,
                                                       int32_t n, double* coords,
                                                       const int32_t* ints,
                                                       const double* doubles) {
  return gx_twin_inverse(&kMillerCylindrical, sphere, parms, n, coords, ints, doubles);
}

int32_t gx_miller_cylindrical_auxiliary_sphere_constants(gx_constants* block,
                                                         const double* sphere,
                                                         const double* parms) {
  return gx_twin_constants(&kMillerCylindrical, block, sphere, parms);
}

int32_t gx_mercator_auxiliary_sphere_forward(const double* sphere, double* parms, int32_t n,
                                             double* coords, const int32_t* ints,
                                             const double* doubles) {
  return gx_twin_forward(&kMercator, sphere, parms, n, coords, ints, doubles);
}

int32_t gx_mercator_auxiliary_sphere_inverse(const double* sphere, double* parms, int32_t n,
                                             double* coords, const int32_t* ints,
                                             const double* doubles) {
  return gx_twin_inverse(&kMercator, sphere, parms, n, coords, ints, doubles);
}

int32_t gx_mercator_auxiliary_sphere_constants(gx_constants* block, const double* sphere,
                                               const double* parms) {
  return gx_twin_constants(&kMercator, block, sphere, parms);
}
