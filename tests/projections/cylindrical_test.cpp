// The cylindrical family and its auxiliary sphere twins.
//
// Reference values: PROJ 9.1 (`proj -f %.6f`, +proj=merc, cea, eqc, mill,
// gall with the same axes) unless a comment names Snyder's "Map Projections:
// A Working Manual" (USGS PP 1395), EPSG Guidance Note 7-2, or
// tests/projections/data/twin_reference.py (mpmath, 40 digits, from the
// definitions of the authalic sphere and latitude).  The conformal latitude
// is a series through e2^7 here and exact in PROJ: they agree to a few
// nanometres.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "geodesy/latitudes.h"
#include "projections/auxiliary_sphere.h"
#include "projections/cylindrical.h"
#include "projections/ellipsoids.h"
#include "projections/projection_cases.h"

namespace gx_test {
namespace {

const Projection kPlateCarree = {"Plate_Carree", gx_plate_carree_forward,
                                 gx_plate_carree_inverse, nullptr};
const Projection kEquidistantCylindrical = {"Equidistant_Cylindrical",
                                            gx_equidistant_cylindrical_forward,
                                            gx_equidistant_cylindrical_inverse, nullptr};
const Projection kMiller = {"Miller_Cylindrical", gx_miller_cylindrical_forward,
                            gx_miller_cylindrical_inverse, nullptr};
const Projection kMercator = {"Mercator", gx_mercator_forward, gx_mercator_inverse,
                              gx_mercator_constants};
const Projection kCea = {"Cylindrical_Equal_Area", gx_cylindrical_equal_area_forward,
                         gx_cylindrical_equal_area_inverse, gx_cylindrical_equal_area_constants};
const Projection kBehrmann = {"Behrmann", gx_behrmann_forward, gx_behrmann_inverse,
                              gx_behrmann_constants};
const Projection kGall = {"Gall_Stereographic", gx_gall_stereographic_forward,
                          gx_gall_stereographic_inverse, gx_gall_stereographic_constants};
const Projection kEquidistantTwin = {"Equidistant_Cylindrical_Auxiliary_Sphere",
                                     gx_equidistant_cylindrical_auxiliary_sphere_forward,
                                     gx_equidistant_cylindrical_auxiliary_sphere_inverse,
                                     gx_equidistant_cylindrical_auxiliary_sphere_constants};
const Projection kMillerTwin = {"Miller_Cylindrical_Auxiliary_Sphere",
                                gx_miller_cylindrical_auxiliary_sphere_forward,
                                gx_miller_cylindrical_auxiliary_sphere_inverse,
                                gx_miller_cylindrical_auxiliary_sphere_constants};
const Projection kMercatorTwin = {"Mercator_Auxiliary_Sphere",
                                  gx_mercator_auxiliary_sphere_forward,
                                  gx_mercator_auxiliary_sphere_inverse,
                                  gx_mercator_auxiliary_sphere_constants};

constexpr int kCm = GX_PARM_CENTRAL_MERIDIAN;
constexpr int kSp1 = GX_PARM_STANDARD_PARALLEL_1;
constexpr int kType = GX_PARM_X_SCALE;

const Region kWorld = {-179.0, 179.0, -85.0, 85.0};
const Region kWorldToThePoles = {-179.0, 179.0, -90.0, 90.0};

// The points that most cases share, and their images by PROJ.
const ProjectionCase kCases[] = {
    {"MercatorWgs84", kMercator, kWgs84A, kWgs84E2, {},
     {{10, 20, 1113194.907933, 2258423.649096},
      {-120, -60, -13358338.895193, -8362698.548501},
      {179, 84, 19926188.851996, 18764656.231381},
      {3, 0.5, 333958.472380, 55287.849046}},
     1e-5, 1e-10, kWorld, 1e-11},
    {"MercatorWgs84Secant", kMercator, kWgs84A, kWgs84E2, {{kCm, 15}, {kSp1, 30}},
     {{10, 20, -482431.401254, 1957490.962087},
      {-120, -60, -13025647.833871, -7248377.351122},
      {179, 84, 15823749.961147, 16264284.601472},
      {3, 0.5, -1157835.363011, 47920.798590}},
     1e-5, 1e-10, kWorld, 1e-11},
    {"MercatorSphere", kMercator, kSphereR, 0.0, {},
     {{10, 20, 1111949.266446, 2270487.453599},
      {-120, -60, -13343391.197347, -8390338.761308},
      {179, 84, 19903891.869376, 18786169.223141},
      {3, 0.5, 333584.779934, 55598.169001}},
     1e-5, 1e-10, kWorld, 1e-11},
    // EPSG Guidance Note 7-2, Mercator (variant B), Pulkovo 1942 / Caspian
    // Sea: E = 165704.29, N = 5171848.07 (PROJ's digits).
    {"MercatorEpsgCaspian", kMercator, kKrassowskyA, kKrassowskyE2, {{kCm, 51}, {kSp1, 42}},
     {{53, 53, 165704.293311, 5171848.072896}},
     1e-5, 1e-10, kWorld, 1e-11},
    // Snyder p. 267: Clarke 1866, x = 11 688 673.7, y = 4 139 145.6 (PROJ's
    // digits).
    {"MercatorSnyder", kMercator, kClarke1866A, kClarke1866E2, {{kCm, -180}},
     {{-75, 35, 11688673.715436, 4139145.662600}},
     1e-5, 1e-10, kWorld, 1e-11},
    {"CylindricalEqualAreaWgs84", kCea, kWgs84A, kWgs84E2, {{kCm, -75}, {kSp1, 30}},
     {{10, 20, 8201333.821326, 2501271.862539},
      {-120, -60, -4341882.611290, -6351419.997326},
      {179, 84, -10227545.706595, 7301649.868311},
      {-78, 35, -289458.840753, 4198673.820940}},
     1e-5, 1e-10, kWorldToThePoles, 1e-10},
    {"CylindricalEqualAreaSphere", kCea, kSphereR, 0.0, {{kSp1, 45}},
     {{10, 20, 786266.866639, 3081585.965661},
      {-120, -60, -9435202.399669, -7802849.575636},
      {179, 84, 14074176.912840, 8960597.131821},
      {3, 0.5, 235880.059992, 78625.688707}},
     1e-5, 1e-10, kWorld, 1e-11},
    // Behrmann is cea with lat_ts = 30 in PROJ.
    {"BehrmannSphere", kBehrmann, kSphereR, 0.0, {},
     {{10, 20, 962976.312461, 2516104.404797},
      {-120, -60, -11555715.749536, -6371000.000000},
      {179, 84, 17237275.993058, 7316296.921203},
      {3, 0.5, 288892.893738, 64197.606002}},
     1e-5, 1e-10, kWorldToThePoles, 1e-10},
    {"BehrmannWgs84", kBehrmann, kWgs84A, kWgs84E2, {{kCm, 10}},
     {{10, 20, 0.0, 2501271.862539},
      {-120, -60, -12543216.432617, -6351419.997326},
      {179, 84, 16306181.362402, 7301649.868311},
      {3, 0.5, -675403.961756, 63785.856391}},
     1e-5, 1e-10, kWorldToThePoles, 1e-10},
    // The sphere-only projections take a as the radius and ignore e2: the
    // WGS 84 pair gives PROJ's figures for the sphere R = a.
    {"PlateCarreeIgnoresE2", kPlateCarree, kWgs84A, kWgs84E2, {},
     {{10, 20, 1113194.907933, 2226389.815865},
      {-120, -60, -13358338.895193, -6679169.447596},
      {179, 84, 19926188.851996, 9350837.226635},
      {3, 0.5, 333958.472380, 55659.745397}},
     1e-5, 1e-10, kWorldToThePoles, 1e-11},
    {"EquidistantCylindrical", kEquidistantCylindrical, kWgs84A, kWgs84E2,
     {{kCm, -100}, {kSp1, 40}},
     {{10, 20, 9380324.506632, 2226389.815865},
      {-120, -60, -1705513.546660, -6679169.447596},
      {179, 84, -6907329.863975, 9350837.226635},
      {3, 0.5, 8783394.765301, 55659.745397}},
     1e-5, 1e-10, kWorldToThePoles, 1e-11},
    {"MillerCylindrical", kMiller, kSphereR, 0.0, {},
     {{10, 20, 1111949.266446, 2253379.149708},
      {-120, -60, -13343391.197347, -7625026.742341},
      {179, 84, 19903891.869376, 12752307.599983},
      {3, 0.5, 333584.779934, 55597.914953}},
     1e-5, 1e-10, kWorldToThePoles, 1e-11},
    {"GallStereographic", kGall, kSphereR, 0.0, {},
     {{10, 20, 786266.866639, 1917728.240081},
      {-120, -60, -9435202.399669, -6279248.423552},
      {179, 84, 14074176.912840, 9792773.949258},
      {3, 0.5, 235880.059992, 47455.704491}},
     1e-5, 1e-10, kWorldToThePoles, 1e-11},
    // Twins.  Type 0 on WGS 84 is the web Mercator: PROJ merc +R=6378137.
    {"MercatorTwinSemiMajor", kMercatorTwin, kWgs84A, kWgs84E2, {{kType, 0}},
     {{10, 20, 1113194.907933, 2273030.926988},
      {-120, -60, -13358338.895193, -8399737.889818},
      {179, 84, 19926188.851996, 18807214.096748},
      {3, 0.5, 333958.472380, 55660.451865}},
     1e-5, 1e-10, kWorld, 1e-11},
    // No Auxiliary_Sphere_Type leaves slot 12 at 1.0: the semi-minor axis,
    // PROJ merc +R=6356752.314245179.
    {"MercatorTwinDefaultSemiMinor", kMercatorTwin, kWgs84A, kWgs84E2, {},
     {{10, 20, 1109462.576173, 2265409.884654},
      {-120, -60, -13313550.914082, -8371575.159040},
      {179, 84, 19859380.113505, 18744157.068750},
      {3, 0.5, 332838.772852, 55473.832909}},
     1e-5, 1e-10, kWorld, 1e-11},
    // Type 2: the authalic radius 6371007.180918474 (mpmath), latitudes as
    // they are; PROJ merc with that R.
    {"MercatorTwinAuthalicRadius", kMercatorTwin, kWgs84A, kWgs84E2, {{kType, 2}},
     {{10, 20, 1111950.519752, 2270490.012724},
      {-120, -60, -13343406.237028, -8390348.218275},
      {179, 84, 19903914.303566, 18786190.397517},
      {3, 0.5, 333585.155926, 55598.231667}},
     1e-5, 1e-10, kWorld, 1e-11},
    // Type 3, the authalic sphere: twin_reference.py.  The authalic series
    // agree with the exact latitude to 1e-12 degrees.
    {"MercatorTwinAuthalicSphere", kMercatorTwin, kWgs84A, kWgs84E2, {{kType, 3}},
     {{10, 20, 1111950.5197522942, 2260748.2359072509},
      {-120, -60, -13343406.237027531, -8365656.6974734188},
      {179, 84, 19903914.303566067, 18757824.63057394},
      {3, 0.5, 333585.15592568827, 55349.718767019766}},
     1e-5, 1e-10, kWorld, 1e-11},
    {"MercatorTwinAuthalicSphereSecant", kMercatorTwin, kWgs84A, kWgs84E2,
     {{kType, 3}, {kCm, 15}, {kSp1, 30}},
     {{10, 20, -482026.35910798807, 1960051.6779414557},
      {-120, -60, -13014711.695915678, -7252961.2924301124},
      {179, 84, 15810464.578742009, 16262892.549348156},
      {3, 0.5, -1156863.2618591714, 47987.788918631095}},
     1e-5, 1e-10, kWorld, 1e-11},
    {"EquidistantTwinAuthalicSphere", kEquidistantTwin, kWgs84A, kWgs84E2,
     {{kType, 3}, {kCm, -100}, {kSp1, 40}},
     {{10, 20, 9387147.8715024047, 2214744.3727174819},
      {-120, -60, -1706754.1584549827, -6659336.6241767508},
      {179, 84, -6912354.3417426798, 9337412.7618258579},
      {3, 0.5, 8789783.9160431608, 55349.022508341344}},
     1e-5, 1e-10, kWorld, 1e-11},
    {"MillerTwinAuthalicSphere", kMillerTwin, kWgs84A, kWgs84E2, {{kType, 3}},
     {{10, 20, 1111950.5197522942, 2243857.5821097594},
      {-120, -60, -13343406.237027531, -7606569.8118443529},
      {179, 84, 19903914.303566067, 12744657.027436854},
      {3, 0.5, 333585.15592568827, 55349.468110868594}},
     1e-5, 1e-10, kWorld, 1e-11},
    // On a sphere a twin is its base, whatever the type.
    {"MercatorTwinOnSphere", kMercatorTwin, kSphereR, 0.0, {{kType, 3}},
     {{10, 20, 1111949.266446, 2270487.453599},
      {-120, -60, -13343391.197347, -8390338.761308}},
     1e-5, 1e-10, kWorld, 1e-11},
};

INSTANTIATE_TEST_SUITE_P(Cylindrical, ProjectionCaseTest, ::testing::ValuesIn(kCases), case_name);

// ---- single-purpose checks -----------------------------------------------------------

const double kWgs84[2] = {kWgs84A, kWgs84E2};
const double kSphere[2] = {kSphereR, 0.0};

struct Vector {
  double parms[GX_PARM_COUNT];
  explicit Vector(const std::vector<Parameter>& given) { build_parms(given, parms); }
};

TEST(Mercator, PoleIsFiniteThroughTheClamp) {
  for (const double* sphere : {kWgs84, kSphere}) {
    Vector v({});
    double xy[4] = {0.0, GX_HALFPI, 0.0, -GX_HALFPI};
    ASSERT_EQ(gx_mercator_forward(sphere, v.parms, 2, xy, nullptr, nullptr), 2);
    EXPECT_TRUE(std::isfinite(xy[1]));
    EXPECT_GT(xy[1], 1e8);
    EXPECT_LT(xy[3], -1e8);
    ASSERT_EQ(gx_mercator_inverse(sphere, v.parms, 2, xy, nullptr, nullptr), 2);
    EXPECT_LT(xy[1], GX_HALFPI);
    EXPECT_NEAR(xy[1], GX_HALFPI, 1e-13);
    EXPECT_NEAR(xy[3], -GX_HALFPI, 1e-13);
  }
}

TEST(Mercator, HalfTurnsOfLongitudeStayAsTheyAre) {
  Vector v({});
  double xy[4] = {GX_PI, 0.0, -GX_PI, 0.0};
  gx_mercator_forward(kSphere, v.parms, 2, xy, nullptr, nullptr);
  EXPECT_EQ(xy[0], GX_PI * kSphereR);
  EXPECT_EQ(xy[2], -GX_PI * kSphereR);
  gx_mercator_inverse(kSphere, v.parms, 2, xy, nullptr, nullptr);
  EXPECT_EQ(xy[0], GX_PI);
  EXPECT_EQ(xy[2], -GX_PI);
}

TEST(Mercator, LongitudesAreWrappedAroundTheCentralMeridian) {
  Vector v({{kCm, 170}});
  double xy[2] = {-170.0 * kDeg, 0.0};
  gx_mercator_forward(kSphere, v.parms, 1, xy, nullptr, nullptr);
  EXPECT_NEAR(xy[0], 20.0 * kDeg * kSphereR, 1e-6);
  gx_mercator_inverse(kSphere, v.parms, 1, xy, nullptr, nullptr);
  EXPECT_NEAR(xy[0], -170.0 * kDeg, 1e-14);
}

TEST(CylindricalEqualArea, ParallelOnAPoleRefusesTheRun) {
  for (const double* sphere : {kWgs84, kSphere}) {
    for (double pole : {90.0, -90.0}) {
      Vector v({{kSp1, pole}});
      for (gx_projection_fn fn : {gx_cylindrical_equal_area_forward, gx_cylindrical_equal_area_inverse}) {
        double xy[4] = {0.1, 0.2, 0.3, 0.4};
        EXPECT_EQ(fn(sphere, v.parms, 2, xy, nullptr, nullptr), 0);
        for (double d : xy) EXPECT_TRUE(std::isnan(d));
      }
      gx_constants* block = gx_constants_new();
      EXPECT_EQ(gx_cylindrical_equal_area_constants(block, sphere, v.parms), 0);
      EXPECT_EQ(gx_constants_doubles(block), nullptr);
      gx_constants_del(block);
    }
  }
}

TEST(CylindricalEqualArea, RefusedPointsCarryTheNaNMark) {
  Vector v({{kSp1, 90}});
  double xy[2] = {0.1, 0.2};
  gx_cylindrical_equal_area_forward(kSphere, v.parms, 1, xy, nullptr, nullptr);
  uint64_t bits;
  std::memcpy(&bits, &xy[0], sizeof bits);
  EXPECT_EQ(bits, 0x7FF8000000000001ull);
}

TEST(CylindricalEqualArea, SphereInverseBeyondThePoleClampsToIt) {
  Vector v({{kSp1, 0}});
  double xy[4] = {0.0, 2.0 * kSphereR, 0.0, -1.5 * kSphereR};
  ASSERT_EQ(gx_cylindrical_equal_area_inverse(kSphere, v.parms, 2, xy, nullptr, nullptr), 2);
  EXPECT_EQ(xy[1], GX_HALFPI);
  EXPECT_EQ(xy[3], -GX_HALFPI);
}

TEST(CylindricalEqualArea, EllipsoidInverseEquatorPoleAndBeyond) {
  Vector v({{kSp1, 0}});
  double pole[2] = {0.0, GX_HALFPI};
  gx_cylindrical_equal_area_forward(kWgs84, v.parms, 1, pole, nullptr, nullptr);
  // PROJ: cea +lat_ts=0 on WGS 84 puts the pole at y = 6363885.331926.
  EXPECT_NEAR(pole[1], 6363885.331926, 1e-5);
  // The pole's own y, a y of 0, and a y well beyond the pole.
  double xy[6] = {0.0, pole[1], 0.0, 0.0, 0.0, 1.5 * pole[1]};
  ASSERT_EQ(gx_cylindrical_equal_area_inverse(kWgs84, v.parms, 3, xy, nullptr, nullptr), 3);
  EXPECT_EQ(xy[1], GX_HALFPI);
  EXPECT_EQ(xy[3], 0.0);
  // Beyond the pole the Newton loop starts from asin(q / 2) and its result
  // stands, whatever it is; the run still counts the point.
  EXPECT_EQ(xy[4], 0.0);
}

TEST(Behrmann, HasNoPoleRefusal) {
  // Behrmann reads no parallel: a slot 3 of 90 degrees changes nothing.
  Vector plain({}), polar({{kSp1, 90}});
  double a[2] = {0.3, 0.4}, b[2] = {0.3, 0.4};
  EXPECT_EQ(gx_behrmann_forward(kWgs84, plain.parms, 1, a, nullptr, nullptr), 1);
  EXPECT_EQ(gx_behrmann_forward(kWgs84, polar.parms, 1, b, nullptr, nullptr), 1);
  EXPECT_EQ(a[0], b[0]);
  EXPECT_EQ(a[1], b[1]);
}

TEST(EquidistantCylindrical, ParallelOnAPoleIsNotGuarded) {
  Vector v({{kSp1, 90}});
  double xy[2] = {0.5, 0.25};
  EXPECT_EQ(gx_equidistant_cylindrical_forward(kSphere, v.parms, 1, xy, nullptr, nullptr), 1);
  EXPECT_NEAR(xy[0], 0.0, 1e-6);
  EXPECT_EQ(xy[1], 0.25 * kSphereR);
}

// ---- the auxiliary sphere wrapper ------------------------------------------------------

// Forward of one point by the Mercator twin with the given type.
double twin_y(double type, double lat_deg) {
  Vector v({{kType, type}});
  double xy[2] = {0.0, lat_deg * kDeg};
  gx_mercator_auxiliary_sphere_forward(kWgs84, v.parms, 1, xy, nullptr, nullptr);
  return xy[1];
}

TEST(AuxiliarySphere, UnknownTypesBehaveAsTheSemiMajorRadius) {
  double semi_major = twin_y(0, 45);
  EXPECT_EQ(twin_y(4, 45), semi_major);
  EXPECT_EQ(twin_y(-1, 45), semi_major);
  EXPECT_EQ(twin_y(1e300, 45), semi_major);
  EXPECT_EQ(twin_y(NAN, 45), semi_major);
  EXPECT_NE(twin_y(1, 45), semi_major);
}

TEST(AuxiliarySphere, TypeIsTruncatedAfterAddingOneThousandth) {
  EXPECT_EQ(twin_y(2.9995, 45), twin_y(3, 45));
  EXPECT_EQ(twin_y(2.998, 45), twin_y(2, 45));
  EXPECT_EQ(twin_y(3.9, 45), twin_y(3, 45));
  EXPECT_NE(twin_y(2, 45), twin_y(3, 45));
}

TEST(AuxiliarySphere, TypeThreeConvertsTheLatitudeSlotInPlace) {
  Vector v({{kType, 3}, {kSp1, 30}});
  double xy[2] = {0.0, 0.5};
  gx_mercator_auxiliary_sphere_forward(kWgs84, v.parms, 1, xy, nullptr, nullptr);
  EXPECT_EQ(v.parms[kSp1], gx_phi_to_beta(kWgs84E2, 30.0 * kDeg));
  // Even a call with no points converts it.
  Vector w({{kType, 3}, {kSp1, 30}});
  EXPECT_EQ(gx_mercator_auxiliary_sphere_inverse(kWgs84, w.parms, 0, xy, nullptr, nullptr), 0);
  EXPECT_EQ(w.parms[kSp1], v.parms[kSp1]);
  // Other types leave the vector alone.
  Vector u({{kType, 2}, {kSp1, 30}});
  gx_mercator_auxiliary_sphere_forward(kWgs84, u.parms, 1, xy, nullptr, nullptr);
  EXPECT_EQ(u.parms[kSp1], 30.0 * kDeg);
}

TEST(AuxiliarySphere, OnASphereTheTwinIsItsBase) {
  for (double type : {0.0, 1.0, 2.0, 3.0}) {
    Vector t({{kType, type}, {kSp1, 20}}), b({{kSp1, 20}});
    double twin[2] = {0.4, 0.7}, base[2] = {0.4, 0.7};
    gx_mercator_auxiliary_sphere_forward(kSphere, t.parms, 1, twin, nullptr, nullptr);
    gx_mercator_forward(kSphere, b.parms, 1, base, nullptr, nullptr);
    EXPECT_EQ(twin[0], base[0]);
    EXPECT_EQ(twin[1], base[1]);
    EXPECT_EQ(t.parms[kSp1], 20.0 * kDeg);
  }
}

TEST(AuxiliarySphere, LoaderCounts) {
  ExpectTwinLoaderCounts(
      {
          {gx_mercator_auxiliary_sphere_constants, kWgs84, 3, 20},
          {gx_mercator_auxiliary_sphere_constants, kWgs84, 0, 2},
          {gx_mercator_auxiliary_sphere_constants, kSphere, 3, 2},
          {gx_equidistant_cylindrical_auxiliary_sphere_constants, kWgs84, 3, 18},
          {gx_equidistant_cylindrical_auxiliary_sphere_constants, kWgs84, 2, 0},
          {gx_equidistant_cylindrical_auxiliary_sphere_constants, kSphere, 3, 0},
          {gx_miller_cylindrical_auxiliary_sphere_constants, kWgs84, 3, 18},
          {gx_miller_cylindrical_auxiliary_sphere_constants, kWgs84, 1, 0},
      },
      {{kSp1, 30}});
}

TEST(AuxiliarySphere, MercatorTwinStoresItsSphereConstants) {
  Vector v({{kType, 3}, {kSp1, 30}});
  gx_constants* block = gx_constants_new();
  ASSERT_EQ(gx_mercator_auxiliary_sphere_constants(block, kWgs84, v.parms), 20);
  const double* d = gx_constants_doubles(block);
  double beta1 = gx_phi_to_beta(kWgs84E2, 30.0 * kDeg);
  EXPECT_NEAR(d[0], std::cos(beta1), 1e-15);
  EXPECT_NEAR(d[1], std::cos(beta1) * gx_auth_r(kWgs84A, kWgs84E2), 1e-8);
  gx_constants_del(block);
}

// A base that refuses every run and leaves the points as they came.
int32_t refusing_base(const double*, double*, int32_t, double*, const int32_t*, const double*) {
  return 0;
}

TEST(AuxiliarySphere, RefusedRunGivesBackTheInputLatitudes) {
  const gx_twin refusing = {refusing_base, refusing_base, kSp1, 0, nullptr};
  Vector v({{kType, 3}});
  double xy[6] = {0.1, 0.7, 0.2, -1.2, 0.3, 0.0};
  const double in[6] = {0.1, 0.7, 0.2, -1.2, 0.3, 0.0};
  EXPECT_EQ(gx_twin_forward(&refusing, kWgs84, v.parms, 3, xy, nullptr, nullptr), 0);
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(xy[i], in[i], 1e-14);
  // The inverse converts nothing back when the base refuses.
  Vector w({{kType, 3}});
  EXPECT_EQ(gx_twin_inverse(&refusing, kWgs84, w.parms, 3, xy, nullptr, nullptr), 0);
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(xy[i], in[i], 1e-14);
}

}  // namespace
}  // namespace gx_test
