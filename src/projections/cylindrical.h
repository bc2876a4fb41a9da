// The cylindrical family: the normal-aspect cylinders and their auxiliary
// sphere twins.  Every function has the form of gx_projection_fn and every
// loader that of gx_constants_fn (see contract.h); the projection list
// registers them.  Projections without a loader always run their set-up.
#pragma once

#include "projections/contract.h"

// Plate_Carree: sphere only, no loader.
int32_t gx_plate_carree_forward(const double* sphere, double* parms, int32_t n, double* coords,
                                const int32_t* ints, const double* doubles);
int32_t gx_plate_carree_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                                const int32_t* ints, const double* doubles);

// Equidistant_Cylindrical: sphere only, no loader.
int32_t gx_equidistant_cylindrical_forward(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles);
int32_t gx_equidistant_cylindrical_inverse(const double* sphere, double* parms, int32_t n,
                                           double* coords, const int32_t* ints,
                                           const double* doubles);

// Miller_Cylindrical: sphere only, no loader.
int32_t gx_miller_cylindrical_forward(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles);
int32_t gx_miller_cylindrical_inverse(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles);

// Mercator: sphere or ellipsoid.
int32_t gx_mercator_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles);
int32_t gx_mercator_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles);
int32_t gx_mercator_constants(gx_constants* block, const double* sphere, const double* parms);

// Cylindrical_Equal_Area: sphere or ellipsoid; a standard parallel on a pole
// refuses the run.
int32_t gx_cylindrical_equal_area_forward(const double* sphere, double* parms, int32_t n,
                                          double* coords, const int32_t* ints,
                                          const double* doubles);
int32_t gx_cylindrical_equal_area_inverse(const double* sphere, double* parms, int32_t n,
                                          double* coords, const int32_t* ints,
                                          const double* doubles);
int32_t gx_cylindrical_equal_area_constants(gx_constants* block, const double* sphere,
                                            const double* parms);

// Behrmann: the equal-area cylinder on the fixed parallel of 30 degrees.
int32_t gx_behrmann_forward(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles);
int32_t gx_behrmann_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                            const int32_t* ints, const double* doubles);
int32_t gx_behrmann_constants(gx_constants* block, const double* sphere, const double* parms);

// Gall_Stereographic: sphere only.
int32_t gx_gall_stereographic_forward(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles);
int32_t gx_gall_stereographic_inverse(const double* sphere, double* parms, int32_t n,
                                      double* coords, const int32_t* ints, const double* doubles);
int32_t gx_gall_stereographic_constants(gx_constants* block, const double* sphere,
                                        const double* parms);

// The auxiliary sphere twins of this family (see auxiliary_sphere.h).
int32_t gx_equidistant_cylindrical_auxiliary_sphere_forward(const double* sphere, double* parms,
                                                            int32_t n, double* coords,
                                                            const int32_t* ints,
                                                            const double* doubles);
int32_t gx_equidistant_cylindrical_auxiliary_sphere_inverse(const double* sphere, double* parms,
                                                            int32_t n, double* coords,
                                                            const int32_t* ints,
                                                            const double* doubles);
int32_t gx_equidistant_cylindrical_auxiliary_sphere_constants(gx_constants* block,
                                                              const double* sphere,
                                                              const double* parms);
int32_t gx_miller_cylindrical_auxiliary_sphere_forward(const double* sphere, double* parms,
                                                       int32_t n, double* coords,
                                                       const int32_t* ints, const double* doubles);
int32_t gx_miller_cylindrical_auxiliary_sphere_inverse(const double* sphere, double* parms,
                                                       int32_t n, double* coords,
                                                       const int32_t* ints, const double* doubles);
int32_t gx_miller_cylindrical_auxiliary_sphere_constants(gx_constants* block,
                                                         const double* sphere,
                                                         const double* parms);
int32_t gx_mercator_auxiliary_sphere_forward(const double* sphere, double* parms, int32_t n,
                                             double* coords, const int32_t* ints,
                                             const double* doubles);
int32_t gx_mercator_auxiliary_sphere_inverse(const double* sphere, double* parms, int32_t n,
                                             double* coords, const int32_t* ints,
                                             const double* doubles);
int32_t gx_mercator_auxiliary_sphere_constants(gx_constants* block, const double* sphere,
                                               const double* parms);

// Mercator's set-up (layout [0] k, [1] a * k, then the conformal table on an
// ellipsoid); the twin's loader stores it for its local sphere.
void gx_mercator_setup(const double* sphere, const double* parms, int mask, double* layout);
