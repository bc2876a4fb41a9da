// The auxiliary sphere twins of the azimuthal family:
// Stereographic_Auxiliary_Sphere (43126),
// Azimuthal_Equidistant_Auxiliary_Sphere (43132),
// Lambert_Azimuthal_Equal_Area_Auxiliary_Sphere (43133),
// Orthographic_Auxiliary_Sphere (43141) and Gnomonic_Auxiliary_Sphere
// (43147).  Each runs its base's sphere formulas on the local sphere, so it
// stores the base's sphere constants.
#include "projections/auxiliary_sphere.h"
#include "projections/azimuthal.h"

namespace {

// Stereographic's sphere reads 2 k0 R, sin phi0, cos phi0.
constexpr gx_twin kStereographic = {gx_stereographic_forward, gx_stereographic_inverse,
                                    GX_PARM_LATITUDE_OF_ORIGIN, 3, gx_stereographic_setup};
// Azimuthal_Equidistant's sphere reads sin phi0, cos phi0.
constexpr gx_twin kAzimuthalEquidistant = {
    gx_azimuthal_equidistant_forward, gx_azimuthal_equidistant_inverse, GX_PARM_LATITUDE_OF_ORIGIN,
    2, gx_azimuthal_equidistant_setup};
// Lambert_Azimuthal_Equal_Area's sphere reads 2R, cos phi0, sin phi0.
constexpr gx_twin kLambertAzimuthal = {
    gx_lambert_azimuthal_equal_area_forward, gx_lambert_azimuthal_equal_area_inverse,
    GX_PARM_LATITUDE_OF_ORIGIN, 3, gx_lambert_azimuthal_equal_area_setup};
// Orthographic and Gnomonic read cos phic, sin phic.
constexpr gx_twin kOrthographic = {gx_orthographic_forward, gx_orthographic_inverse,
                                   GX_PARM_LATITUDE_OF_CENTER, 2, gx_gnomonic_setup};
constexpr gx_twin kGnomonic = {gx_gnomonic_forward, gx_gnomonic_inverse, GX_PARM_LATITUDE_OF_CENTER,
                               2, gx_gnomonic_setup};

}  // namespace

GX_DEFINE_TWIN(stereographic_auxiliary_sphere, kStereographic)
GX_DEFINE_TWIN(azimuthal_equidistant_auxiliary_sphere, kAzimuthalEquidistant)
GX_DEFINE_TWIN(lambert_azimuthal_equal_area_auxiliary_sphere, kLambertAzimuthal)
GX_DEFINE_TWIN(orthographic_auxiliary_sphere, kOrthographic)
GX_DEFINE_TWIN(gnomonic_auxiliary_sphere, kGnomonic)
