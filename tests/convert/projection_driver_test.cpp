// The geographic-to-projected driver: units, defaults, latitude limit, false
// origin, failure restore and wrapping, seen through projections made by the
// test whose functions record what they were given.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "gx_convert.h"
#include "gx_objects.h"

namespace {

constexpr double kDegree = 0.017453292519943295;

// What the last call of a test projection saw.
struct Seen {
  double sphere[2];
  double parms[16];
  int32_t n;
  double first[2];
  int calls;
};
Seen seen;

// x = a * lon, y = a * lat: a plate carree on the sphere's radius.
int32_t record_forward(const double* sphere, double* parms, int32_t n, double* coords,
                       const int32_t*, const double*) {
  std::memcpy(seen.sphere, sphere, sizeof seen.sphere);
  std::memcpy(seen.parms, parms, sizeof seen.parms);
  seen.n = n;
  ++seen.calls;
  if (n < 1) return 0;
  seen.first[0] = coords[0];
  seen.first[1] = coords[1];
  for (int32_t i = 0; i < n; ++i) {
    coords[2 * i] *= sphere[0];
    coords[2 * i + 1] *= sphere[0];
  }
  return n;
}

int32_t record_inverse(const double* sphere, double* parms, int32_t n, double* coords,
                       const int32_t*, const double*) {
  std::memcpy(seen.parms, parms, sizeof seen.parms);
  ++seen.calls;
  if (n < 1) return 0;
  seen.first[0] = coords[0];
  seen.first[1] = coords[1];
  for (int32_t i = 0; i < n; ++i) {
    coords[2 * i] /= sphere[0];
    coords[2 * i + 1] /= sphere[0];
  }
  return n;
}

// Refuses every run after scribbling on the coordinates.
int32_t refuse(const double*, double*, int32_t n, double* coords, const int32_t*, const double*) {
  for (int32_t i = 0; i < 2 * n; ++i) coords[i] = 12345.0;
  return 0;
}

struct Parameter {
  const char* name;
  double value;
};

// A projected system on a sphere of radius 1000 m (or the given ellipsoid).
gx_projcs* MakeProjcs(gx_projection_fn forward, gx_projection_fn inverse,
                      std::initializer_list<Parameter> parameters, double linear = 1.0,
                      double angular = kDegree, double axis = 1000.0, double inverse_f = 0.0,
                      double prime_meridian = 0.0) {
  gx_spheroid* spheroid = gx_spheroid_new("S", axis, inverse_f == 0.0 ? 0.0 : 1.0 / inverse_f);
  gx_datum* datum = gx_datum_new("D", spheroid);
  gx_geogcs* geogcs = gx_geogcs_new("G", datum, gx_primem_new("P", prime_meridian),
                                    gx_unit_new("A", angular));
  gx_parameter* slots[16] = {};
  for (const Parameter& p : parameters) {
    gx_parameter* parameter = gx_parameter_new(p.name, p.value);
    slots[gx_parameter_index(parameter)] = parameter;
  }
  return gx_projcs_new("Test", geogcs, gx_projection_new("Test_Projection", forward, inverse, nullptr),
                       slots, gx_unit_new("L", linear));
}

TEST(ProjectionDriver, ParameterVectorInRadiansAndMetresWithDefaults) {
  gx_projcs* projcs = MakeProjcs(record_forward, record_inverse,
                                 {{"False_Easting", 10.0},
                                  {"False_Northing", 20.0},
                                  {"Central_Meridian", 90.0},
                                  {"Standard_Parallel_1", 30.0},
                                  {"Azimuth", 45.0},
                                  {"Height", 5.0}},
                                 /*linear=*/0.3048);
  double xy[2] = {1.0, 2.0};
  seen = {};
  ASSERT_EQ(gx_geog_to_proj(projcs, 1, xy), 1);
  EXPECT_DOUBLE_EQ(seen.parms[0], 10.0 * 0.3048);
  EXPECT_DOUBLE_EQ(seen.parms[1], 20.0 * 0.3048);
  EXPECT_DOUBLE_EQ(seen.parms[2], 90.0 * kDegree);
  EXPECT_DOUBLE_EQ(seen.parms[3], 30.0 * kDegree);
  EXPECT_EQ(seen.parms[4], seen.parms[3]);  // no Standard_Parallel_2: slot 3 again
  EXPECT_EQ(seen.parms[5], 1.0);            // no Scale_Factor
  EXPECT_DOUBLE_EQ(seen.parms[7], 45.0 * kDegree);
  EXPECT_EQ(seen.parms[12], 1.0);
  EXPECT_EQ(seen.parms[13], 1.0);
  EXPECT_DOUBLE_EQ(seen.parms[15], 5.0 * 0.3048);  // Height is a length
  EXPECT_EQ(seen.sphere[0], 1000.0);
  EXPECT_EQ(seen.sphere[1], 0.0);
  // x = (a * lon + false easting) in feet.
  EXPECT_DOUBLE_EQ(xy[0], (1000.0 * 1.0 * kDegree + 10.0 * 0.3048) / 0.3048);
  EXPECT_DOUBLE_EQ(xy[1], (1000.0 * 2.0 * kDegree + 20.0 * 0.3048) / 0.3048);
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, OptionIsNotScaledAndExplicitZeroScaleStays) {
  gx_projcs* projcs =
      MakeProjcs(record_forward, record_inverse, {{"Option", 2.0}, {"Scale_Factor", 0.0}}, 0.5);
  double xy[2] = {0.0, 0.0};
  ASSERT_EQ(gx_geog_to_proj(projcs, 1, xy), 1);
  EXPECT_EQ(seen.parms[15], 2.0);
  EXPECT_EQ(seen.parms[5], 0.0);
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, EccentricityFromFlattening) {
  gx_projcs* projcs = MakeProjcs(record_forward, record_inverse, {}, 1.0, kDegree, 6378137.0,
                                 298.257223563);
  double xy[2] = {0.0, 0.0};
  gx_geog_to_proj(projcs, 1, xy);
  double f = 1.0 / 298.257223563;
  EXPECT_EQ(seen.sphere[1], (2.0 - f) * f);
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, LatitudesBeyondThePoleAreLimited) {
  gx_projcs* projcs = MakeProjcs(record_forward, record_inverse, {});
  double xy[4] = {0.0, 91.0, 0.0, -95.0};
  gx_geog_to_proj(projcs, 2, xy);
  EXPECT_EQ(seen.first[1], 1.5707963267948966);
  EXPECT_DOUBLE_EQ(xy[3], -1000.0 * 1.5707963267948966);
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, RefusedRunGivesTheInputBackClippedAtThePole) {
  gx_projcs* projcs = MakeProjcs(refuse, refuse, {{"False_Easting", 100.0}});
  double xy[2] = {10.0, 91.0};
  EXPECT_EQ(gx_geog_to_proj(projcs, 1, xy), 0);
  EXPECT_DOUBLE_EQ(xy[0], 12345.0 / kDegree);  // what the function left, times 1 / g
  gx_projcs_del(projcs);

  // A projection that leaves the array alone and refuses: angles come back.
  gx_projection_fn leave = [](const double*, double*, int32_t, double*, const int32_t*,
                              const double*) -> int32_t { return 0; };
  gx_projcs* quiet = MakeProjcs(leave, leave, {});
  double ll[2] = {10.0, 91.0};
  EXPECT_EQ(gx_geog_to_proj(quiet, 1, ll), 0);
  EXPECT_NEAR(ll[0], 10.0, 1e-13);
  EXPECT_NEAR(ll[1], 90.0, 1e-13);
  double en[2] = {500.0, 600.0};
  EXPECT_EQ(gx_proj_to_geog(quiet, 1, en), 0);
  EXPECT_NEAR(en[0], 500.0, 1e-12);
  EXPECT_NEAR(en[1], 600.0, 1e-12);
  gx_projcs_del(quiet);
}

TEST(ProjectionDriver, InverseTakesOffFalseOriginAndWrapsAroundCenter) {
  gx_projcs* projcs =
      MakeProjcs(record_forward, record_inverse, {{"False_Easting", 500.0}, {"False_Northing", 0.0}});
  double a = 1000.0;
  // -179 degrees of longitude in projected metres (false easting added).
  double xy[2] = {a * -179.0 * kDegree + 500.0, a * 10.0 * kDegree};
  double copy[2] = {xy[0], xy[1]};
  ASSERT_EQ(gx_proj_to_geog(projcs, 1, xy), 1);
  EXPECT_DOUBLE_EQ(seen.first[0], a * -179.0 * kDegree);
  EXPECT_NEAR(xy[0], -179.0, 1e-12);
  EXPECT_NEAR(xy[1], 10.0, 1e-12);
  double centred[2] = {copy[0], copy[1]};
  ASSERT_EQ(gx_proj_to_geog_center(projcs, 1, centred, 180.0), 1);
  EXPECT_NEAR(centred[0], 181.0, 1e-12);
  double zero[2] = {copy[0], copy[1]};
  gx_proj_to_geog_center(projcs, 1, zero, 0.0);
  EXPECT_EQ(zero[0], xy[0]);  // the same bits as gx_proj_to_geog
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, DirectionsAndEmptyArrays) {
  gx_projcs* projcs = MakeProjcs(record_forward, record_inverse, {});
  double xy[2] = {1.0, 1.0};
  EXPECT_EQ(gx_proj_geog(projcs, 1, xy, 2), 0);
  EXPECT_EQ(xy[0], 1.0);
  seen = {};
  EXPECT_EQ(gx_geog_to_proj(projcs, 0, xy), 0);
  EXPECT_EQ(seen.calls, 1);
  EXPECT_EQ(xy[0], 1.0);
  EXPECT_EQ(gx_proj_geog(projcs, 1, xy, 1), 1);
  EXPECT_EQ(gx_proj_geog(projcs, 1, xy, 0), 1);
  EXPECT_NEAR(xy[0], 1.0, 1e-14);
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, PrimeMeridianHasNoEffect) {
  gx_projcs* greenwich = MakeProjcs(record_forward, record_inverse, {});
  gx_projcs* paris = MakeProjcs(record_forward, record_inverse, {}, 1.0, kDegree, 1000.0, 0.0,
                                2.33722917);
  double a[2] = {3.0, 4.0};
  double b[2] = {3.0, 4.0};
  gx_geog_to_proj(greenwich, 1, a);
  gx_geog_to_proj(paris, 1, b);
  EXPECT_EQ(a[0], b[0]);
  EXPECT_EQ(a[1], b[1]);
  gx_projcs_del(greenwich);
  gx_projcs_del(paris);
}

TEST(ProjectionDriver, InvalidSystemRunsIdentityWithLatitudeLimit) {
  double xy[4] = {200.0, 2.0, 3.0, -1.6};
  EXPECT_EQ(gx_geog_to_proj(nullptr, 2, xy), 2);
  EXPECT_EQ(xy[0], 200.0);
  EXPECT_EQ(xy[1], 1.5707963267948966);  // factor 1: the value itself is limited
  EXPECT_EQ(xy[3], -1.5707963267948966);
  EXPECT_EQ(gx_proj_to_geog(nullptr, 2, xy), 2);
}

}  // namespace

namespace {

const char* kPlateCarreeFeet =
    "PROJCS[\"Plate_Carree_Feet\",GEOGCS[\"GCS_Sphere\",DATUM[\"D_Sphere\",SPHEROID[\"Sphere\","
    "6371000.0,0.0]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],"
    "PROJECTION[\"Plate_Carree\"],PARAMETER[\"False_Easting\",1000.0],"
    "PARAMETER[\"False_Northing\",2000.0],PARAMETER[\"Central_Meridian\",0.0],"
    "UNIT[\"Foot\",0.3048]]";

TEST(ProjectionDriver, PlateCarreeInFeetWithFalseOrigin) {
  gx_projcs* projcs = gx_projcs_from_string(kPlateCarreeFeet);
  ASSERT_NE(projcs, nullptr);
  char text[GX_WKT_SIZE];
  EXPECT_STREQ(gx_projcs_to_string(projcs, text), kPlateCarreeFeet);
  double xy[4] = {10.0, 20.0, -30.0, -45.0};
  ASSERT_EQ(gx_geog_to_proj(projcs, 2, xy), 2);
  const double r = 6371000.0 * 0.017453292519943295;
  EXPECT_NEAR(xy[0], 10.0 * r / 0.3048 + 1000.0, 1e-6);
  EXPECT_NEAR(xy[1], 20.0 * r / 0.3048 + 2000.0, 1e-6);
  EXPECT_NEAR(xy[2], -30.0 * r / 0.3048 + 1000.0, 1e-6);
  ASSERT_EQ(gx_proj_to_geog(projcs, 2, xy), 2);
  EXPECT_NEAR(xy[0], 10.0, 1e-12);
  EXPECT_NEAR(xy[3], -45.0, 1e-12);
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, NegativeCountsNanAndInfinitiesDoNoHarm) {
  gx_projcs* projcs = gx_projcs_from_string(kPlateCarreeFeet);
  double xy[4] = {1.0, 2.0, 3.0, 4.0};
  EXPECT_EQ(gx_geog_to_proj(projcs, -5, xy), 0);
  EXPECT_EQ(xy[0], 1.0);
  EXPECT_EQ(gx_proj_to_geog(projcs, -1, xy), 0);
  double odd[4] = {std::nan(""), 2.0, HUGE_VAL, -HUGE_VAL};
  gx_geog_to_proj(projcs, 2, odd);
  EXPECT_TRUE(std::isnan(odd[0]));
  gx_proj_to_geog(projcs, 2, odd);
  gx_projcs_del(projcs);
}

TEST(ProjectionDriver, SeventeenParametersCannotAllHaveSlots) {
  std::string text =
      "PROJCS[\"x\",GEOGCS[\"G\",DATUM[\"D\",SPHEROID[\"S\",6378137.0,298.257223563]],"
      "PRIMEM[\"P\",0.0],UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Mercator\"]";
  const char* names[] = {"False_Easting", "False_Northing", "Central_Meridian",
                         "Standard_Parallel_1", "Standard_Parallel_2", "Scale_Factor",
                         "Latitude_Of_Origin", "Azimuth", "Longitude_Of_1st_Point",
                         "Longitude_Of_2nd_Point", "Longitude_Of_Center", "Latitude_Of_Center",
                         "X_Scale", "Y_Scale", "XY_Plane_Rotation", "Height", "Option"};
  for (const char* name : names) text += std::string(",PARAMETER[\"") + name + "\",1]";
  text += ",UNIT[\"Meter\",1.0]]";
  gx_errext record;
  EXPECT_EQ(gx_projcs_from_string_errext(text.c_str(), &record), nullptr);
  EXPECT_EQ(record.code, 411u);
  EXPECT_STREQ(record.message, "Duplicate parameter \"Option\" in WKT string");
  // Sixteen, one per slot, are a definition.
  std::string sixteen = text.substr(0, text.find(",PARAMETER[\"Option\""));
  sixteen += ",UNIT[\"Meter\",1.0]]";
  gx_projcs* projcs = gx_projcs_from_string(sixteen.c_str());
  ASSERT_NE(projcs, nullptr);
  gx_projcs_del(projcs);
}

}  // namespace
