// The cylindrical family: the normal-aspect cylinders and their auxiliary
// sphere twins.  Every forward and inverse function has the form of
// gx_projection_fn and every loader that of gx_constants_fn (contract.h);
// the projection list registers them.  A projection without a loader always
// runs its set-up.
#pragma once

#include "projections/setup.h"

// Plate_Carree, Equidistant_Cylindrical, Miller_Cylindrical: sphere only,
// no loader.
GX_DECLARE_PROJECTION(plate_carree);
GX_DECLARE_PROJECTION(equidistant_cylindrical);
GX_DECLARE_PROJECTION(miller_cylindrical);

// Mercator: sphere or ellipsoid.
GX_DECLARE_PROJECTION(mercator);
GX_DECLARE_LOADER(mercator);
// Its set-up (layout [0] k, [1] a * k, then the conformal table on an
// ellipsoid), which its twin's loader stores for the local sphere.
void gx_mercator_setup(const double* sphere, const double* parms, int mask, double* layout);

// Cylindrical_Equal_Area: sphere or ellipsoid; a standard parallel on a pole
// refuses the run.
GX_DECLARE_PROJECTION(cylindrical_equal_area);
GX_DECLARE_LOADER(cylindrical_equal_area);

// Behrmann: the equal-area cylinder on the fixed parallel of 30 degrees.
GX_DECLARE_PROJECTION(behrmann);
GX_DECLARE_LOADER(behrmann);

// Gall_Stereographic: sphere only.
GX_DECLARE_PROJECTION(gall_stereographic);
GX_DECLARE_LOADER(gall_stereographic);

// The auxiliary sphere twins of this family (auxiliary_sphere.h).
GX_DECLARE_PROJECTION(equidistant_cylindrical_auxiliary_sphere);
GX_DECLARE_LOADER(equidistant_cylindrical_auxiliary_sphere);
GX_DECLARE_PROJECTION(miller_cylindrical_auxiliary_sphere);
GX_DECLARE_LOADER(miller_cylindrical_auxiliary_sphere);
GX_DECLARE_PROJECTION(mercator_auxiliary_sphere);
GX_DECLARE_LOADER(mercator_auxiliary_sphere);
