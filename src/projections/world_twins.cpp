// The auxiliary sphere twins of the world family: Mollweide (43109),
// Eckert_VI (43110), Eckert_IV (43112) and Van_der_Grinten_I (43129).  None
// of the bases has a latitude parameter, so only the points' latitudes are
// made authalic for type 3.
#include "projections/auxiliary_sphere.h"
#include "projections/world.h"

namespace {

// Mollweide's sphere reads [0] R sqrt 2 and [1] R 2 sqrt 2 / pi; the other
// bases read no doubles, so their twins keep only the authalic table.
constexpr gx_twin kMollweide = {gx_mollweide_forward, gx_mollweide_inverse, -1, 2,
                                gx_mollweide_setup};
constexpr gx_twin kEckertIv = {gx_eckert_iv_forward, gx_eckert_iv_inverse, -1, 0, nullptr};
constexpr gx_twin kEckertVi = {gx_eckert_vi_forward, gx_eckert_vi_inverse, -1, 0, nullptr};
constexpr gx_twin kVanDerGrintenI = {gx_van_der_grinten_i_forward, gx_van_der_grinten_i_inverse,
                                     -1, 0, nullptr};

}  // namespace

GX_DEFINE_TWIN(mollweide_auxiliary_sphere, kMollweide)
GX_DEFINE_TWIN(eckert_iv_auxiliary_sphere, kEckertIv)
GX_DEFINE_TWIN(eckert_vi_auxiliary_sphere, kEckertVi)
GX_DEFINE_TWIN(van_der_grinten_i_auxiliary_sphere, kVanDerGrintenI)

