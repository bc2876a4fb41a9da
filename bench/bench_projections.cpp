// Time per point of the projection functions, forward and inverse, with the
// definition's constants loaded, on 100000 points spread over each
// projection's usable area.  One benchmark runs over the table below; a new
// projection is a new row.
//
//   cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DGX_BUILD_BENCH=ON
//   cmake --build build-bench -j2 && build-bench/bench/bench_projections
#include <benchmark/benchmark.h>

#include <cstring>
#include <initializer_list>
#include <vector>

#include "frame/constants.h"
#include "gx_projections.h"
#include "projections/apart.h"
#include "projections/azimuthal.h"
#include "projections/cylindrical.h"
#include "projections/transverse_mercator.h"
#include "projections/conic.h"
#include "projections/oblique_mercator.h"
#include "projections/world.h"

namespace {

constexpr double kDeg = 3.141592653589793 / 180.0;
constexpr int kPoints = 100000;
constexpr double kWgs84A = 6378137.0;
constexpr double kWgs84E2 = (2.0 - 1.0 / 298.257223563) / 298.257223563;
constexpr double kSphereR = 6371000.0;
constexpr double kBesselA = 6377397.155;
constexpr double kBesselE2 = (2.0 - 1.0 / 299.1528128) / 299.1528128;

struct Parameter {
  int slot;
  double value;  // radians, metres or as it is, as the driver passes it
};

struct Row {
  const char* name;
  gx_projection_fn forward;
  gx_projection_fn inverse;
  gx_constants_fn loader;
  double a, e2;
  std::initializer_list<Parameter> parameters;
  double lon_lo, lon_hi, lat_lo, lat_hi;  // degrees: the usable area timed
};

constexpr int kCm = GX_PARM_CENTRAL_MERIDIAN;
constexpr int kSp1 = GX_PARM_STANDARD_PARALLEL_1;
constexpr int kK0 = GX_PARM_SCALE_FACTOR;
constexpr int kPhi0 = GX_PARM_LATITUDE_OF_ORIGIN;
constexpr int kType = GX_PARM_X_SCALE;
constexpr int kOption = GX_PARM_HEIGHT;
constexpr int kAz = GX_PARM_AZIMUTH;
constexpr int kLonC = GX_PARM_LONGITUDE_OF_CENTER;
constexpr int kLatC = GX_PARM_LATITUDE_OF_CENTER;
constexpr int kLat1 = GX_PARM_STANDARD_PARALLEL_1;
constexpr int kLat2 = GX_PARM_STANDARD_PARALLEL_2;
constexpr int kLon1 = GX_PARM_LONGITUDE_OF_1ST_POINT;
constexpr int kLon2 = GX_PARM_LONGITUDE_OF_2ND_POINT;
constexpr int kHeight = GX_PARM_HEIGHT;
constexpr int kSp2 = GX_PARM_STANDARD_PARALLEL_2;
constexpr int kXScale = GX_PARM_X_SCALE;
constexpr int kRotation = GX_PARM_XY_PLANE_ROTATION;

// A world projection's forward and inverse.
#define W(name) gx_##name##_forward, gx_##name##_inverse

const Row kRows[] = {
    {"Plate_Carree sphere", gx_plate_carree_forward, gx_plate_carree_inverse, nullptr, kSphereR,
     0.0, {}, -179, 179, -89, 89},
    {"Equidistant_Cylindrical sphere", gx_equidistant_cylindrical_forward,
     gx_equidistant_cylindrical_inverse, nullptr, kSphereR, 0.0, {{kSp1, 30 * kDeg}}, -179, 179,
     -89, 89},
    {"Miller_Cylindrical sphere", gx_miller_cylindrical_forward, gx_miller_cylindrical_inverse,
     nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Mercator WGS84", gx_mercator_forward, gx_mercator_inverse, gx_mercator_constants, kWgs84A,
     kWgs84E2, {}, -179, 179, -85, 85},
    {"Mercator sphere", gx_mercator_forward, gx_mercator_inverse, gx_mercator_constants, kSphereR,
     0.0, {}, -179, 179, -85, 85},
    {"Cylindrical_Equal_Area WGS84", gx_cylindrical_equal_area_forward,
     gx_cylindrical_equal_area_inverse, gx_cylindrical_equal_area_constants, kWgs84A, kWgs84E2,
     {{kSp1, 30 * kDeg}}, -179, 179, -89, 89},
    {"Cylindrical_Equal_Area sphere", gx_cylindrical_equal_area_forward,
     gx_cylindrical_equal_area_inverse, gx_cylindrical_equal_area_constants, kSphereR, 0.0,
     {{kSp1, 30 * kDeg}}, -179, 179, -89, 89},
    {"Behrmann WGS84", gx_behrmann_forward, gx_behrmann_inverse, gx_behrmann_constants, kWgs84A,
     kWgs84E2, {}, -179, 179, -89, 89},
    {"Gall_Stereographic sphere", gx_gall_stereographic_forward, gx_gall_stereographic_inverse,
     gx_gall_stereographic_constants, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Mercator_Auxiliary_Sphere WGS84 type 3", gx_mercator_auxiliary_sphere_forward,
     gx_mercator_auxiliary_sphere_inverse, gx_mercator_auxiliary_sphere_constants, kWgs84A,
     kWgs84E2, {{kType, 3}}, -179, 179, -85, 85},
    {"Mercator_Auxiliary_Sphere WGS84 type 0", gx_mercator_auxiliary_sphere_forward,
     gx_mercator_auxiliary_sphere_inverse, gx_mercator_auxiliary_sphere_constants, kWgs84A,
     kWgs84E2, {{kType, 0}}, -179, 179, -85, 85},
    {"Equidistant_Cylindrical_Auxiliary_Sphere WGS84 type 3",
     gx_equidistant_cylindrical_auxiliary_sphere_forward,
     gx_equidistant_cylindrical_auxiliary_sphere_inverse,
     gx_equidistant_cylindrical_auxiliary_sphere_constants, kWgs84A, kWgs84E2, {{kType, 3}}, -179,
     179, -89, 89},
    {"Miller_Cylindrical_Auxiliary_Sphere WGS84 type 3",
     gx_miller_cylindrical_auxiliary_sphere_forward, gx_miller_cylindrical_auxiliary_sphere_inverse,
     gx_miller_cylindrical_auxiliary_sphere_constants, kWgs84A, kWgs84E2, {{kType, 3}}, -179, 179,
     -89, 89},
    {"Transverse_Mercator WGS84", gx_transverse_mercator_forward, gx_transverse_mercator_inverse,
     gx_transverse_mercator_constants, kWgs84A, kWgs84E2, {{kCm, 15 * kDeg}, {kK0, 0.9996}}, 12,
     18, -80, 84},
    {"Transverse_Mercator sphere", gx_transverse_mercator_forward, gx_transverse_mercator_inverse,
     gx_transverse_mercator_constants, kSphereR, 0.0, {{kCm, 15 * kDeg}, {kK0, 0.9996}}, 12, 18,
     -80, 84},
    {"Cassini WGS84", gx_cassini_forward, gx_cassini_inverse, gx_cassini_constants, kWgs84A,
     kWgs84E2, {{kCm, -100 * kDeg}, {kPhi0, 40 * kDeg}}, -103, -97, 20, 60},
    {"Cassini sphere", gx_cassini_forward, gx_cassini_inverse, gx_cassini_constants, kSphereR, 0.0,
     {{kCm, -100 * kDeg}, {kPhi0, 40 * kDeg}}, -103, -97, 20, 60},
    {"Transverse_Mercator_Complex WGS84", gx_transverse_mercator_complex_forward,
     gx_transverse_mercator_complex_inverse, gx_transverse_mercator_complex_constants, kWgs84A,
     kWgs84E2, {{kCm, 15 * kDeg}, {kK0, 0.9996}}, 12, 18, -80, 84},
    {"Sinusoidal sphere", W(sinusoidal), gx_sinusoidal_constants, kSphereR, 0.0, {}, -179, 179,
     -89, 89},
    {"Sinusoidal WGS84", W(sinusoidal), gx_sinusoidal_constants, kWgs84A, kWgs84E2, {}, -179, 179,
     -89, 89},
    {"Mollweide sphere", W(mollweide), gx_mollweide_constants, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Eckert_I sphere", W(eckert_i), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_II sphere", W(eckert_ii), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_III sphere", W(eckert_iii), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_IV sphere", W(eckert_iv), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_V sphere", W(eckert_v), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Eckert_VI sphere", W(eckert_vi), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Winkel_I sphere", W(winkel_i), nullptr, kSphereR, 0.0, {{kSp1, 30 * kDeg}}, -179, 179, -89,
     89},
    {"Winkel_II sphere", W(winkel_ii), nullptr, kSphereR, 0.0, {{kSp1, 30 * kDeg}}, -179, 179,
     -89, 89},
    {"Winkel_Tripel sphere", W(winkel_tripel), gx_winkel_tripel_constants, kSphereR, 0.0,
     {{kSp1, 50.467 * kDeg}}, -179, 179, -89, 89},
    {"Quartic_Authalic sphere", W(quartic_authalic), nullptr, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Flat_Polar_Quartic sphere", W(flat_polar_quartic), gx_flat_polar_quartic_constants,
     kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Craster_Parabolic sphere", W(craster_parabolic), gx_craster_parabolic_constants, kSphereR,
     0.0, {}, -179, 179, -89, 89},
    {"Loximuthal sphere", W(loximuthal), nullptr, kSphereR, 0.0, {{kPhi0, 40 * kDeg}}, -179, 179,
     -89, 89},
    {"Times sphere", W(times), gx_times_constants, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Van_der_Grinten_I sphere", W(van_der_grinten_i), nullptr, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Aitoff sphere", W(aitoff), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Hammer_Aitoff sphere", W(hammer_aitoff), nullptr, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Robinson sphere", W(robinson), gx_robinson_constants, kSphereR, 0.0, {}, -179, 179, -89, 89},
    {"Robinson_TELMAR sphere", W(robinson_telmar), nullptr, kSphereR, 0.0, {}, -179, 179, -89,
     89},
    {"Goode_Homolosine sphere", W(goode_homolosine), gx_goode_homolosine_constants, kSphereR, 0.0,
     {}, -179, 179, -89, 89},
    {"Goode_Homolosine sphere Option 1", W(goode_homolosine), gx_goode_homolosine_constants,
     kSphereR, 0.0, {{kOption, 1}}, -179, 179, -89, 89},
    {"Mollweide_Auxiliary_Sphere WGS84 type 3", W(mollweide_auxiliary_sphere),
     gx_mollweide_auxiliary_sphere_constants, kWgs84A, kWgs84E2, {{kType, 3}}, -179, 179, -89, 89},
    {"New_Zealand_Map_Grid", gx_new_zealand_map_grid_forward, gx_new_zealand_map_grid_inverse,
     nullptr, 6378388.0, (2.0 - 1.0 / 297.0) / 297.0, {{kCm, 173 * kDeg}, {kPhi0, -41 * kDeg}},
     166, 179, -47.5, -34},
    {"Local WGS84", gx_local_forward, gx_local_inverse, gx_local_constants, kWgs84A, kWgs84E2,
     {{kLonC, 10 * kDeg}, {kLatC, 50 * kDeg}, {kAz, 30 * kDeg}, {kK0, 0.9996}}, 0, 20, 40, 60},
    {"Local sphere", gx_local_forward, gx_local_inverse, gx_local_constants, kSphereR, 0.0,
     {{kLonC, 10 * kDeg}, {kLatC, 50 * kDeg}}, 0, 20, 40, 60},
    {"Stereographic sphere oblique",
     W(stereographic),
     gx_stereographic_constants,
     kSphereR,
     0.0,
     {{kCm, 5 * kDeg}, {kPhi0, 52 * kDeg}},
     -5,
     15,
     40,
     65},
    {"Stereographic WGS84 oblique",
     W(stereographic),
     gx_stereographic_constants,
     kWgs84A,
     kWgs84E2,
     {{kCm, 5 * kDeg}, {kPhi0, 52 * kDeg}, {kK0, 0.9999}},
     -5,
     15,
     40,
     65},
    {"Stereographic WGS84 north",
     W(stereographic),
     gx_stereographic_constants,
     kWgs84A,
     kWgs84E2,
     {{kPhi0, 90 * kDeg}, {kK0, 0.994}},
     -180,
     180,
     60,
     90},
    {"Stereographic_North_Pole WGS84",
     W(stereographic_north_pole),
     gx_stereographic_north_pole_constants,
     kWgs84A,
     kWgs84E2,
     {{kCm, -45 * kDeg}, {kSp1, 70 * kDeg}},
     -180,
     180,
     60,
     90},
    {"Stereographic_South_Pole sphere",
     W(stereographic_south_pole),
     gx_stereographic_south_pole_constants,
     kSphereR,
     0.0,
     {{kSp1, -70 * kDeg}},
     -180,
     180,
     -90,
     -60},
    {"Double_Stereographic Bessel",
     W(double_stereographic),
     gx_double_stereographic_constants,
     kBesselA,
     kBesselE2,
     {{kCm, 5.38763888888889 * kDeg}, {kPhi0, 52.15616055555555 * kDeg}, {kK0, 0.9999079}},
     3,
     8,
     50,
     54},
    {"Lambert_Azimuthal_Equal_Area sphere",
     W(lambert_azimuthal_equal_area),
     gx_lambert_azimuthal_equal_area_constants,
     kSphereR,
     0.0,
     {{kCm, 10 * kDeg}, {kPhi0, 52 * kDeg}},
     -20,
     40,
     30,
     70},
    {"Lambert_Azimuthal_Equal_Area WGS84",
     W(lambert_azimuthal_equal_area),
     gx_lambert_azimuthal_equal_area_constants,
     kWgs84A,
     kWgs84E2,
     {{kCm, 10 * kDeg}, {kPhi0, 52 * kDeg}},
     -20,
     40,
     30,
     70},
    {"Lambert_Azimuthal_Equal_Area WGS84 north",
     W(lambert_azimuthal_equal_area),
     gx_lambert_azimuthal_equal_area_constants,
     kWgs84A,
     kWgs84E2,
     {{kPhi0, 90 * kDeg}},
     -180,
     180,
     40,
     90},
    {"Azimuthal_Equidistant sphere",
     W(azimuthal_equidistant),
     gx_azimuthal_equidistant_constants,
     kSphereR,
     0.0,
     {{kCm, -100 * kDeg}, {kPhi0, 40 * kDeg}},
     -160,
     -40,
     0,
     80},
    {"Azimuthal_Equidistant WGS84 oblique",
     W(azimuthal_equidistant),
     gx_azimuthal_equidistant_constants,
     kWgs84A,
     kWgs84E2,
     {{kCm, -100 * kDeg}, {kPhi0, 40 * kDeg}},
     -160,
     -40,
     0,
     80},
    {"Azimuthal_Equidistant WGS84 north",
     W(azimuthal_equidistant),
     gx_azimuthal_equidistant_constants,
     kWgs84A,
     kWgs84E2,
     {{kPhi0, 90 * kDeg}},
     -180,
     180,
     0,
     90},
    {"Two_Point_Equidistant sphere",
     W(two_point_equidistant),
     nullptr,
     kSphereR,
     0.0,
     {{kLat1, 40 * kDeg}, {kLon1, -100 * kDeg}, {kLat2, 10 * kDeg}, {kLon2, -60 * kDeg}},
     -120,
     -40,
     -10,
     60},
    {"Gnomonic sphere",
     W(gnomonic),
     gx_gnomonic_constants,
     kSphereR,
     0.0,
     {{kLonC, -100 * kDeg}, {kLatC, 40 * kDeg}},
     -140,
     -60,
     10,
     70},
    {"Orthographic sphere",
     W(orthographic),
     gx_gnomonic_constants,
     kSphereR,
     0.0,
     {{kLonC, -100 * kDeg}, {kLatC, 40 * kDeg}},
     -150,
     -50,
     0,
     80},
    {"Vertical_Near_Side_Perspective sphere",
     W(vertical_near_side_perspective),
     gx_vertical_near_side_perspective_constants,
     kSphereR,
     0.0,
     {{kLonC, -100 * kDeg}, {kLatC, 40 * kDeg}, {kHeight, 35786000}},
     -140,
     -60,
     10,
     70},
    {"Vertical_Near_Side_Perspective WGS84",
     W(vertical_near_side_perspective),
     gx_vertical_near_side_perspective_constants,
     kWgs84A,
     kWgs84E2,
     {{kLonC, -100 * kDeg}, {kLatC, 40 * kDeg}, {kHeight, 35786000}},
     -140,
     -60,
     10,
     70},
    {"Stereographic_Auxiliary_Sphere WGS84 type 3",
     W(stereographic_auxiliary_sphere),
     gx_stereographic_auxiliary_sphere_constants,
     kWgs84A,
     kWgs84E2,
     {{kCm, 5 * kDeg}, {kPhi0, 52 * kDeg}, {kType, 3}},
     -5,
     15,
     40,
     65},
    {"Lambert_Conformal_Conic WGS84", gx_lambert_conformal_conic_forward,
     gx_lambert_conformal_conic_inverse, gx_lambert_conformal_conic_constants, kWgs84A, kWgs84E2,
     {{kCm, -96 * kDeg}, {kSp1, 33 * kDeg}, {kSp2, 45 * kDeg}, {kPhi0, 23 * kDeg}}, -126, -66, 20,
     60},
    {"Lambert_Conformal_Conic sphere", gx_lambert_conformal_conic_forward,
     gx_lambert_conformal_conic_inverse, gx_lambert_conformal_conic_constants, kSphereR, 0.0,
     {{kCm, -96 * kDeg}, {kSp1, 33 * kDeg}, {kSp2, 45 * kDeg}, {kPhi0, 23 * kDeg}}, -126, -66, 20,
     60},
    {"Albers WGS84", gx_albers_forward, gx_albers_inverse, gx_albers_constants, kWgs84A, kWgs84E2,
     {{kCm, -96 * kDeg}, {kSp1, 29.5 * kDeg}, {kSp2, 45.5 * kDeg}, {kPhi0, 23 * kDeg}}, -126, -66,
     20, 60},
    {"Albers sphere", gx_albers_forward, gx_albers_inverse, gx_albers_constants, kSphereR, 0.0,
     {{kCm, -96 * kDeg}, {kSp1, 29.5 * kDeg}, {kSp2, 45.5 * kDeg}, {kPhi0, 23 * kDeg}}, -126, -66,
     20, 60},
    {"Equidistant_Conic WGS84", gx_equidistant_conic_forward, gx_equidistant_conic_inverse,
     gx_equidistant_conic_constants, kWgs84A, kWgs84E2,
     {{kCm, -96 * kDeg}, {kSp1, 29.5 * kDeg}, {kSp2, 45.5 * kDeg}, {kPhi0, 23 * kDeg}}, -126, -66,
     20, 60},
    {"Equidistant_Conic sphere", gx_equidistant_conic_forward, gx_equidistant_conic_inverse,
     gx_equidistant_conic_constants, kSphereR, 0.0,
     {{kCm, -96 * kDeg}, {kSp1, 29.5 * kDeg}, {kSp2, 45.5 * kDeg}, {kPhi0, 23 * kDeg}}, -126, -66,
     20, 60},
    {"Polyconic WGS84", gx_polyconic_forward, gx_polyconic_inverse, gx_polyconic_constants, kWgs84A,
     kWgs84E2, {{kCm, -54 * kDeg}}, -84, -24, -35, 10},
    {"Polyconic sphere", gx_polyconic_forward, gx_polyconic_inverse, gx_polyconic_constants,
     kSphereR, 0.0, {{kCm, -54 * kDeg}}, -84, -24, -35, 10},
    {"Bonne WGS84", gx_bonne_forward, gx_bonne_inverse, gx_bonne_constants, kWgs84A, kWgs84E2,
     {{kCm, 10 * kDeg}, {kSp1, 45 * kDeg}}, -170, 170, -80, 85},
    {"Bonne sphere", gx_bonne_forward, gx_bonne_inverse, gx_bonne_constants, kSphereR, 0.0,
     {{kCm, 10 * kDeg}, {kSp1, 45 * kDeg}}, -170, 170, -80, 85},
    {"Krovak Bessel", gx_krovak_forward, gx_krovak_inverse, gx_krovak_constants, kBesselA,
     kBesselE2,
     {{kLonC, 24.833333333333333 * kDeg}, {kLatC, 49.5 * kDeg}, {kSp1, 78.5 * kDeg}, {kK0, 0.9999},
      {kAz, -30.28813975277778 * kDeg}, {kXScale, -1.0}, {kRotation, 90 * kDeg}},
     12, 19, 48, 51.1},
    {"Hotine_Oblique_Mercator_Azimuth_Center WGS84",
     gx_hotine_oblique_mercator_azimuth_center_forward,
     gx_hotine_oblique_mercator_azimuth_center_inverse,
     gx_hotine_oblique_mercator_azimuth_center_constants, kWgs84A, kWgs84E2,
     {{kLatC, 57 * kDeg}, {kLonC, -133.66666666666667 * kDeg}, {kAz, -36.86989764584402 * kDeg},
      {kK0, 0.9999}}, -142, -129, 53, 61},
    {"Rectified_Skew_Orthomorphic_Natural_Origin WGS84",
     gx_rectified_skew_orthomorphic_natural_origin_forward,
     gx_rectified_skew_orthomorphic_natural_origin_inverse,
     gx_rectified_skew_orthomorphic_natural_origin_constants, kWgs84A, kWgs84E2,
     {{kLatC, 4 * kDeg}, {kLonC, 115 * kDeg}, {kAz, 53.31582047222222 * kDeg},
      {kRotation, 53.13010236111111 * kDeg}, {kK0, 0.99984}}, 109, 120, 0, 8},
    {"Hotine_Oblique_Mercator_Two_Point_Natural_Origin WGS84",
     gx_hotine_oblique_mercator_two_point_natural_origin_forward,
     gx_hotine_oblique_mercator_two_point_natural_origin_inverse,
     gx_hotine_oblique_mercator_two_point_natural_origin_constants, kWgs84A, kWgs84E2,
     {{kLatC, 45 * kDeg}, {kSp1, 40 * kDeg}, {kLon1, -100 * kDeg}, {kSp2, 50 * kDeg},
      {kLon2, -80 * kDeg}}, -110, -70, 30, 60},
    {"Hotine_Oblique_Mercator_Azimuth_Center sphere",
     gx_hotine_oblique_mercator_azimuth_center_forward,
     gx_hotine_oblique_mercator_azimuth_center_inverse,
     gx_hotine_oblique_mercator_azimuth_center_constants, kSphereR, 0.0,
     {{kLatC, 57 * kDeg}, {kLonC, -133.66666666666667 * kDeg}, {kAz, -36.86989764584402 * kDeg},
      {kK0, 0.9999}}, -142, -129, 53, 61},
};
constexpr int kRowCount = sizeof kRows / sizeof kRows[0];

// The vector as the driver builds it for every call.
void build_parms(const Row& row, double* parms) {
  for (int i = 0; i < GX_PARM_COUNT; ++i) parms[i] = 0.0;
  parms[GX_PARM_SCALE_FACTOR] = parms[GX_PARM_X_SCALE] = parms[GX_PARM_Y_SCALE] = 1.0;
  bool second_parallel = false;
  for (const Parameter& p : row.parameters) {
    parms[p.slot] = p.value;
    second_parallel |= p.slot == GX_PARM_STANDARD_PARALLEL_2;
  }
  if (!second_parallel) parms[GX_PARM_STANDARD_PARALLEL_2] = parms[GX_PARM_STANDARD_PARALLEL_1];
}

// Points spread evenly over the area, in a scrambled order.
std::vector<double> spread_points(const Row& row) {
  std::vector<double> out(2 * kPoints);
  uint64_t state = 0x9E3779B97F4A7C15ull;
  auto next = [&state] {
    state = state * 6364136223846793005ull + 1442695040888963407ull;
    return static_cast<double>(state >> 11) / 9007199254740992.0;
  };
  for (int i = 0; i < kPoints; ++i) {
    out[2 * i] = (row.lon_lo + (row.lon_hi - row.lon_lo) * next()) * kDeg;
    out[2 * i + 1] = (row.lat_lo + (row.lat_hi - row.lat_lo) * next()) * kDeg;
  }
  return out;
}

// Arguments: the row, then 0 for forward or 1 for inverse.
void BM_Projection(benchmark::State& state) {
  const Row& row = kRows[state.range(0)];
  const bool inverse = state.range(1) == 1;
  state.SetLabel(std::string(row.name) + (inverse ? " inverse" : " forward"));
  const double sphere[2] = {row.a, row.e2};
  double parms[GX_PARM_COUNT];
  build_parms(row, parms);
  gx_constants* block = gx_constants_new();
  if (row.loader != nullptr) row.loader(block, sphere, parms);
  const int32_t* ints = gx_constants_ints(block);
  const double* doubles = gx_constants_doubles(block);
  std::vector<double> input = spread_points(row);
  if (inverse) row.forward(sphere, parms, kPoints, input.data(), ints, doubles);
  gx_projection_fn fn = inverse ? row.inverse : row.forward;
  std::vector<double> work(input.size());
  for (auto _ : state) {
    state.PauseTiming();
    std::memcpy(work.data(), input.data(), input.size() * sizeof(double));
    build_parms(row, parms);
    state.ResumeTiming();
    benchmark::DoNotOptimize(fn(sphere, parms, kPoints, work.data(), ints, doubles));
    benchmark::ClobberMemory();
  }
  // Seconds per point, shown with its SI prefix (n for nanoseconds).
  state.counters["per_point"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kPoints,
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  gx_constants_del(block);
}

BENCHMARK(BM_Projection)
    ->ArgsProduct({benchmark::CreateDenseRange(0, kRowCount - 1, 1), {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
