// The azimuthal family against reference values, round trips, the constants
// route against the set-up route, and empty runs, one table of cases run by
// one runner.  Reference values come from PROJ 9.1.1 (`proj`, see
// data/azimuthal_reference.py, which prints every row below), unless a row
// says otherwise.
//
// Agreement: on the sphere the formulas are PROJ's, so the two agree to
// rounding.  On the ellipsoid the conformal and authalic latitudes are
// seventh-order series in e2, whose truncation is far below a micrometre on
// an Earth-sized body; PROJ computes the same latitudes in closed form, so
// the tolerance there is 1e-6 m as well.
#include "projections/azimuthal.h"

#include <gtest/gtest.h>

#include "projections/projection_case.h"

using namespace gx_test;

namespace {

// A body flattened enough (f = 1/100) that the kernel takes its closed forms.
constexpr double kFlatF = 0.01;
constexpr double kFlatE2 = (2.0 - kFlatF) * kFlatF;

const projection_fns kStereographic = {"Stereographic", gx_stereographic_forward,
                                       gx_stereographic_inverse, gx_stereographic_constants};
const projection_fns kNorthPole = {"Stereographic_North_Pole", gx_stereographic_north_pole_forward,
                                   gx_stereographic_north_pole_inverse,
                                   gx_stereographic_north_pole_constants};
const projection_fns kSouthPole = {"Stereographic_South_Pole", gx_stereographic_south_pole_forward,
                                   gx_stereographic_south_pole_inverse,
                                   gx_stereographic_south_pole_constants};
const projection_fns kDoubleStereographic = {
    "Double_Stereographic", gx_double_stereographic_forward, gx_double_stereographic_inverse,
    gx_double_stereographic_constants};

constexpr double kMicrometre = 1e-6;
constexpr double kInverseDeg = 1e-9;
constexpr double kRoundTripDeg = 1e-11;

std::vector<projection_case> stereographic_cases() {
  return {
      {"stere sphere oblique",
       kStereographic,
       kSphereR,
       0.0,
       {{GX_PARM_CENTRAL_MERIDIAN, -100}, {GX_PARM_LATITUDE_OF_ORIGIN, 40}},
       {{-100, 40, 0.000000, 0.000000},
        {-90, 30, 970355.691267, -1065900.706213},
        {-120, 60, -1136918.324753, 2402695.880210},
        {-60, -10, 5500937.101808, -5369919.939798},
        {100, 0, -15555821.065103, 27472271.350179},
        {-100, -30, 0.000000, -8922044.451868}},
       kMicrometre,
       kInverseDeg,
       {-170, -30, -40, 85},
       kRoundTripDeg},
      {"stere sphere equatorial",
       kStereographic,
       kSphereR,
       0.0,
       {{GX_PARM_CENTRAL_MERIDIAN, 10}, {GX_PARM_SCALE_FACTOR, 0.9999}},
       {{10, 0, 0.000000, 0.000000},
        {40, 30, 3152512.058701, 3640207.371429},
        {-60, -50, -6308736.165576, -8000976.940487},
        {100, 10, 12547165.546843, 2212403.817324},
        {10, 89, 0.000000, 12520276.373767}},
       kMicrometre,
       kInverseDeg,
       {-70, 90, -80, 80},
       kRoundTripDeg},
      {"stere sphere north",
       kStereographic,
       kSphereR,
       0.0,
       {{GX_PARM_CENTRAL_MERIDIAN, -45},
        {GX_PARM_LATITUDE_OF_ORIGIN, 90},
        {GX_PARM_SCALE_FACTOR, 0.994}},
       {{0, 60, 2399724.800123, -2399724.800123},
        {-45, 80, 0.000000, -1108091.867343},
        {135, 10, 0.000000, 10627656.655458},
        {-170, -30, -17970043.645780, 12582760.022733},
        {20, 90, 0.000000, 0.000000}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -30, 89},
       kRoundTripDeg},
      {"stere sphere south",
       kStereographic,
       kSphereR,
       0.0,
       {{GX_PARM_LATITUDE_OF_ORIGIN, -90}},
       {{30, -60, 1707104.304979, 2956791.390043},
        {-150, -80, -557390.275324, -965428.276505},
        {90, 20, 18197461.901908, 0.000000},
        {0, -90, 0.000000, 0.000000}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -89, 30},
       kRoundTripDeg},
      {"stere wgs84 oblique",
       kStereographic,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, 5},
        {GX_PARM_LATITUDE_OF_ORIGIN, 52},
        {GX_PARM_SCALE_FACTOR, 0.9999}},
       {{5, 52, 0.000000, 0.000000},
        {10, 55, 320023.471763, 345167.228112},
        {-5, 40, -861457.445363, -1283774.161851},
        {30, 70, 958552.606754, 2211074.652456},
        {60, -10, 8462093.920577, -5775793.612316},
        {5, 90, 0.000000, 4406009.794639}},
       kMicrometre,
       kInverseDeg,
       {-60, 70, -20, 89},
       kRoundTripDeg},
      {"stere wgs84 equatorial",
       kStereographic,
       kWgs84A,
       kWgs84E2,
       {},
       {{20, 10, 2231760.877768, 1142872.379884},
        {-60, -45, -5785447.685725, -6635762.870823},
        {89, 0, 12535555.547354, 0.000000},
        {0, 80, 0.000000, 10691280.363039}},
       kMicrometre,
       kInverseDeg,
       {-80, 80, -80, 80},
       kRoundTripDeg},
      // Universal Polar Stereographic, north and south.
      {"stere wgs84 north",
       kStereographic,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_LATITUDE_OF_ORIGIN, 90}, {GX_PARM_SCALE_FACTOR, 0.994}},
       {{0, 85, 0.000000, -555457.391383},
        {45, 70, 1585609.011734, -1585609.011734},
        {-135, 89, -78507.605268, 78507.605268},
        {170, 60, 591424.979922, 3354137.736302},
        {30, -30, 10907647.259811, -18892599.245032}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -30, 89.9},
       kRoundTripDeg},
      {"stere wgs84 south",
       kStereographic,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_LATITUDE_OF_ORIGIN, -90}, {GX_PARM_SCALE_FACTOR, 0.994}},
       {{0, -85, 0.000000, 555457.391383},
        {-120, -70, -1941966.505153, -1121194.884508},
        {60, -50, 4003884.123624, 2311643.576579}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -89.9, 30},
       kRoundTripDeg},
      {"stere flattened oblique",
       kStereographic,
       kWgs84A,
       kFlatE2,
       {{GX_PARM_CENTRAL_MERIDIAN, 140}, {GX_PARM_LATITUDE_OF_ORIGIN, -35}},
       {{140, -35, 0.000000, 0.000000},
        {150, -20, 1063786.661579, 1611943.205228},
        {120, -60, -1173546.227944, -2978352.093985},
        {160, 10, 2570501.370265, 5067163.145276}},
       kMicrometre,
       kInverseDeg,
       {80, 200, -85, 30},
       kRoundTripDeg},
      {"stere flattened south",
       kStereographic,
       kWgs84A,
       kFlatE2,
       {{GX_PARM_LATITUDE_OF_ORIGIN, -90}},
       {{0, -85, 0.000000, 562533.256663},
        {-120, -70, -1965200.643520, -1134609.120548},
        {60, -50, 4042324.029210, 2333836.866416}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -89.9, 30},
       kRoundTripDeg},

      // Polar forms with a parallel of true scale.
      {"stere north ts wgs84",
       kNorthPole,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, -45}, {GX_PARM_STANDARD_PARALLEL_1, 70}},
       {{-45, 70, 0.000000, -2187927.649279},
        {0, 80, 767861.606115, -767861.606115},
        {100, 60, 1906086.425458, 2722173.529196},
        {-150, 89.9, -10463.618242, 2803.718058},
        {-45, 90, 0.000000, 0.000000}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -30, 89.9},
       kRoundTripDeg},
      {"stere north ts sphere",
       kNorthPole,
       kSphereR,
       0.0,
       {{GX_PARM_STANDARD_PARALLEL_1, 60}},
       {{0, 60, 0.000000, -3185500.000000},
        {90, 75, 1565143.851562, -0.000000},
        {-120, 30, -5944223.923755, 3431899.282504}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -30, 89.9},
       kRoundTripDeg},
      // Snyder, "Map Projections: A Working Manual", p. 315: International
      // ellipsoid, true scale at 71 S, 75 S 150 E gives (-1540033.6, -560526.4).
      {"stere south ts intl",
       kSouthPole,
       kIntlA,
       kIntlE2,
       {{GX_PARM_CENTRAL_MERIDIAN, -100}, {GX_PARM_STANDARD_PARALLEL_1, -71}},
       {{150, -75, -1540033.610529, -560526.394002},
        {-100, -71, 0.000000, 2082868.569913},
        {0, -60, 3282659.706553, -578821.474750}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -89.9, 30},
       kRoundTripDeg},
      {"stere south ts wgs84",
       kSouthPole,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_STANDARD_PARALLEL_1, -71}},
       {{0, -71, 0.000000, 2082760.108543},
        {120, -80, 943257.077852, -544589.727813},
        {-45, -60, -2356881.673541, 2356881.673541}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -89.9, 30},
       kRoundTripDeg},
      {"stere south ts sphere",
       kSouthPole,
       kSphereR,
       0.0,
       {{GX_PARM_STANDARD_PARALLEL_1, -90}},
       {{30, -60, 1707104.304979, 2956791.390043}, {-150, -80, -557390.275324, -965428.276505}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, -89.9, 30},
       kRoundTripDeg},

      // Double stereographic.  The first is the worked example of EPSG
      // Guidance Note 7-2 (Amersfoort / RD New, without its false origin of
      // 155000, 463000): 53 N 6 E gives (196105.283, 557057.739).
      {"sterea rd bessel",
       kDoubleStereographic,
       kBesselA,
       kBesselE2,
       {{GX_PARM_CENTRAL_MERIDIAN, 5.38763888888889},
        {GX_PARM_LATITUDE_OF_ORIGIN, 52.15616055555555},
        {GX_PARM_SCALE_FACTOR, 0.9999079}},
       {{6, 53, 41105.282992, 94057.739388},
        {5.38763888888889, 52.15616055555555, 0.000000, 0.000000},
        {3.3, 50.8, -147151.964445, -148761.007140},
        {7.2, 53.5, 120248.192152, 151038.033225}},
       kMicrometre,
       kInverseDeg,
       {-20, 30, 30, 80},
       kRoundTripDeg},
      {"sterea wgs84 south",
       kDoubleStereographic,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_CENTRAL_MERIDIAN, 25},
        {GX_PARM_LATITUDE_OF_ORIGIN, -33},
        {GX_PARM_SCALE_FACTOR, 0.9999}},
       {{25, -33, 0.000000, 0.000000},
        {30, -30, 482768.523293, 321659.818341},
        {15, -45, -796652.696522, -1381044.304822},
        {60, 10, 4551856.196063, 4684693.338874}},
       kMicrometre,
       kInverseDeg,
       {-20, 80, -80, 20},
       kRoundTripDeg},
      {"sterea wgs84 pole",
       kDoubleStereographic,
       kWgs84A,
       kWgs84E2,
       {{GX_PARM_LATITUDE_OF_ORIGIN, 90}, {GX_PARM_SCALE_FACTOR, 0.994}},
       {{0, 85, 0.000000, -555457.391383},
        {45, 70, 1585609.011734, -1585609.011734},
        {-135, 89, -78507.605268, 78507.605268}},
       kMicrometre,
       kInverseDeg,
       {-180, 180, 0, 89.9},
       kRoundTripDeg},
      {"sterea sphere",
       kDoubleStereographic,
       kSphereR,
       0.0,
       {{GX_PARM_CENTRAL_MERIDIAN, -100}, {GX_PARM_LATITUDE_OF_ORIGIN, 40}},
       {{-90, 30, 970355.691267, -1065900.706213}, {-120, 60, -1136918.324753, 2402695.880210}},
       kMicrometre,
       kInverseDeg,
       {-170, -30, -40, 85},
       kRoundTripDeg},
  };
}

std::vector<projection_case> all_cases() {
  std::vector<projection_case> cases = stereographic_cases();
  return cases;
}

class Azimuthal : public ::testing::TestWithParam<projection_case> {};

TEST_P(Azimuthal, ForwardMatchesReference) { check_forward(GetParam()); }
TEST_P(Azimuthal, InverseMatchesReference) { check_inverse(GetParam()); }
TEST_P(Azimuthal, RoundTrip) { check_round_trip(GetParam()); }
TEST_P(Azimuthal, ConstantsRouteGivesSetUpBits) { check_routes(GetParam()); }
TEST_P(Azimuthal, EmptyRunTouchesNothing) { check_empty_run(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Cases, Azimuthal, ::testing::ValuesIn(all_cases()),
                         [](const ::testing::TestParamInfo<projection_case>& info) {
                           return case_name(info.param);
                         });

}  // namespace
