// Projected definitions: the projection family, the projcs family and its
// WKT, parameters in slots, constants, clones in other units.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/object.h"
#include "gx_convert.h"
#include "gx_objects.h"

namespace {

const char* kWgs84 =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

std::string Mercator(const std::string& name, const std::string& parameters,
                     const std::string& unit = "UNIT[\"Meter\",1.0]") {
  return "PROJCS[\"" + name + "\"," + kWgs84 + ",PROJECTION[\"Mercator\"]," + parameters + "," +
         unit + "]";
}

const std::string kWorldMercator =
    Mercator("WGS_1984_World_Mercator",
             "PARAMETER[\"False_Easting\",0.0],PARAMETER[\"False_Northing\",0.0],"
             "PARAMETER[\"Central_Meridian\",0.0],PARAMETER[\"Standard_Parallel_1\",0.0]");

TEST(ProjectionFamily, ListedNamesOldNamesAndUnknownNames) {
  gx_projection* mercator = gx_projection_from_string("PROJECTION[\"Mercator\"]");
  ASSERT_NE(mercator, nullptr);
  EXPECT_EQ(gx_object_code(mercator), 43004);
  EXPECT_EQ(gx_projection_status(mercator), GX_STATUS_STRING);
  gx_authority* authority = gx_projection_authority(mercator);
  char text[GX_WKT_SIZE];
  EXPECT_STREQ(gx_authority_to_string(authority, text), "AUTHORITY[\"ORVA\",43004]");
  gx_projection_del(mercator);

  gx_projection* gall = gx_projection_from_string("PROJECTION[\"Gall\"]");
  ASSERT_NE(gall, nullptr);
  EXPECT_STREQ(gx_projection_name(gall, text), "Gall_Stereographic");
  gx_projection_del(gall);

  gx_errext record;
  EXPECT_EQ(gx_projection_from_string_errext("PROJECTION[\"No_Such\"]", &record), nullptr);
  EXPECT_EQ(record.code, 309u);
  EXPECT_EQ(record.category, GX_CAT_ARGUMENT);
  EXPECT_STREQ(record.message, "Invalid projection name \"No_Such\"");
}

TEST(ProjectionFamily, MadeByHandHasTheListedFunctionsButNoLoader) {
  gx_projection* by_hand = gx_projection_new("Mercator", nullptr, nullptr, nullptr);
  ASSERT_NE(by_hand, nullptr);
  EXPECT_EQ(gx_object_code(by_hand), 43004);
  EXPECT_EQ(gx_projection_status(by_hand), GX_STATUS_NEW);
  gx_projection* listed = gx_projection_from_string("PROJECTION[\"Mercator\"]");
  EXPECT_EQ(gx_projection_forward(by_hand), gx_projection_forward(listed));
  EXPECT_EQ(gx_projection_inverse(by_hand), gx_projection_inverse(listed));
  // The horizon builder of a hand-made object is its own default.
  EXPECT_EQ(gx_projection_eq(by_hand, listed), 0);
  EXPECT_EQ(gx_projection_horizon_pcs(by_hand), nullptr);
  gx_projection_del(listed);

  gx_geogcs* geogcs = gx_geogcs_from_string(kWgs84);
  gx_parameter* slots[16] = {};
  gx_projcs* projcs = gx_projcs_new("x", geogcs, by_hand, slots, gx_unit_new("Meter", 1.0));
  double xy[2] = {10.0, 50.0};
  EXPECT_EQ(gx_geog_to_proj(projcs, 1, xy), 1);
  EXPECT_EQ(gx_projcs_isconstloaded(projcs), 0);  // no loader: always the set-up path
  EXPECT_NEAR(xy[0], 1113194.907933, 1e-6);
  gx_projcs_del(projcs);

  gx_errext record;
  EXPECT_EQ(gx_projection_new_errext("No_Such", nullptr, nullptr, nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 340u);
  EXPECT_STREQ(record.message, "Null forward or inverse function argument");
}

TEST(ProjectionFamily, InvalidObjectGivesIdentityAndWorldHorizon) {
  gx_projection_fn identity = gx_projection_forward(nullptr);
  double xy[2] = {1.5, 2.5};
  EXPECT_EQ(identity(nullptr, nullptr, 1, xy, nullptr, nullptr), 1);
  EXPECT_EQ(xy[0], 1.5);
  EXPECT_NE(gx_projection_horizon(nullptr), nullptr);
  EXPECT_EQ(gx_projection_horizon_pcs(nullptr), nullptr);
}

TEST(ProjcsText, RoundTripAndConversionAgainstProj) {
  gx_projcs* projcs = gx_projcs_from_string(kWorldMercator.c_str());
  ASSERT_NE(projcs, nullptr);
  char text[GX_WKT_SIZE];
  gx_projcs_to_string(projcs, text);
  gx_projcs* back = gx_projcs_from_string(text);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(gx_projcs_eq(projcs, back), 1);
  char again[GX_WKT_SIZE];
  EXPECT_STREQ(gx_projcs_to_string(back, again), text);
  // PROJ: echo 10 50 | proj +proj=merc +ellps=WGS84
  double xy[2] = {10.0, 50.0};
  ASSERT_EQ(gx_geog_to_proj(projcs, 1, xy), 1);
  EXPECT_NEAR(xy[0], 1113194.907933, 1e-6);
  EXPECT_NEAR(xy[1], 6413524.594164, 1e-6);
  EXPECT_EQ(gx_projcs_isconstloaded(projcs), 1);
  ASSERT_EQ(gx_proj_to_geog(projcs, 1, xy), 1);
  EXPECT_NEAR(xy[0], 10.0, 1e-12);
  EXPECT_NEAR(xy[1], 50.0, 1e-12);
  gx_projcs_del(back);
  gx_projcs_del(projcs);
}

TEST(ProjcsText, FalseOriginAndUnitInUsFeetAgainstProj) {
  std::string text = Mercator("ft",
                              "PARAMETER[\"False_Easting\",1000],PARAMETER[\"False_Northing\",2000],"
                              "PARAMETER[\"Standard_Parallel_1\",30]",
                              "UNIT[\"Foot_US\",0.3048006096012192]");
  gx_projcs* projcs = gx_projcs_from_string(text.c_str());
  ASSERT_NE(projcs, nullptr);
  // PROJ: proj +proj=merc +lat_ts=30 +ellps=WGS84 +x_0=1000 +y_0=2000 +units=us-ft
  // (PROJ takes x_0 in metres; here the false origin is in the system's feet.)
  double xy[2] = {10.0, 50.0};
  gx_geog_to_proj(projcs, 1, xy);
  EXPECT_NEAR(xy[0], 3168834.877898 - 1000 / 0.3048006096012192 + 1000, 1e-5);
  EXPECT_NEAR(xy[1], 18244480.807595 - 2000 / 0.3048006096012192 + 2000, 1e-5);
  gx_projcs_del(projcs);
}

struct BadProjcs {
  const char* what;
  std::string text;
  uint32_t code;
  const char* message;
};

class ProjcsTextErrors : public ::testing::TestWithParam<BadProjcs> {};

TEST_P(ProjcsTextErrors, NullAndExactMessage) {
  gx_errext record;
  EXPECT_EQ(gx_projcs_from_string_errext(GetParam().text.c_str(), &record), nullptr)
      << GetParam().what;
  EXPECT_EQ(record.code, GetParam().code) << GetParam().what;
  EXPECT_STREQ(record.message, GetParam().message) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Bad, ProjcsTextErrors,
    ::testing::Values(
        BadProjcs{"two parameters of one slot",
                  Mercator("x", "PARAMETER[\"Central_Meridian\",0],PARAMETER[\"Longitude_Of_Origin\",0]"),
                  411, "Duplicate parameter \"Longitude_Of_Origin\" in WKT string"},
        BadProjcs{"a grid parameter", Mercator("x", "PARAMETER[\"Dataset_X\",0]"), 424,
                  "Parameter \"Dataset_X\" in WKT string is not valid for a projcs"},
        BadProjcs{"an unknown parameter", Mercator("x", "PARAMETER[\"Foo\",0]"), 423,
                  "Invalid parameter name \"Foo\" in WKT string"},
        BadProjcs{"no projection",
                  std::string("PROJCS[\"x\",") + kWgs84 + ",UNIT[\"Meter\",1.0]]", 441,
                  "Missing projection in WKT string"},
        BadProjcs{"no unit", std::string("PROJCS[\"x\",") + kWgs84 + ",PROJECTION[\"Mercator\"]]",
                  438, "Missing linear unit in WKT string"},
        BadProjcs{"no geogcs", "PROJCS[\"x\",PROJECTION[\"Mercator\"],UNIT[\"Meter\",1.0]]", 433,
                  "Missing geographic CS in WKT string"},
        BadProjcs{"two projections",
                  Mercator("x", "PROJECTION[\"Mercator\"]"), 414,
                  "Duplicate projection in WKT string"},
        BadProjcs{"too short", "PROJCS", 459, "insufficient tokens"}));

TEST(ProjcsText, WithoutRecordEveryFailureReachesTheHook) {
  std::string text = Mercator("x", "PARAMETER[\"Foo\",1]", "UNIT[\"Meter\",0]");
  std::vector<uint32_t> codes;
  gx_msg_setrtn(&codes, GX_SEV_ERROR, 0xFF, [](void* user, const gx_errext* r) {
    static_cast<std::vector<uint32_t>*>(user)->push_back(r->code);
    return 0;
  });
  EXPECT_EQ(gx_projcs_from_string(text.c_str()), nullptr);
  gx_msg_setrtn(nullptr, 0, 0, nullptr);
  // The bad parameter, the bad unit, and then the unit is missing.
  EXPECT_EQ(codes, (std::vector<uint32_t>{423, 422, 438}));
}

TEST(ProjcsText, OldNameAndEqualityWithoutName) {
  gx_projcs* irish = gx_projcs_from_string(
      Mercator("Irish_National_Grid", "PARAMETER[\"Central_Meridian\",-8]").c_str());
  ASSERT_NE(irish, nullptr);
  char name[GX_NAME_SIZE];
  EXPECT_STREQ(gx_projcs_name(irish, name), "TM65_Irish_Grid");
  gx_projcs* other = gx_projcs_from_string(
      Mercator("Another", "PARAMETER[\"Central_Meridian\",-8]").c_str());
  EXPECT_EQ(gx_projcs_eq(irish, other), 0);
  EXPECT_EQ(gx_projcs_eqnn(irish, other), 1);
  gx_projcs* moved = gx_projcs_from_string(
      Mercator("Another", "PARAMETER[\"Central_Meridian\",-7]").c_str());
  EXPECT_EQ(gx_projcs_eqnn(moved, other), 0);
  gx_projcs* without = gx_projcs_from_string(Mercator("Another", "EXTRA[1]").c_str());
  EXPECT_EQ(gx_projcs_eqnn(without, other), 0);  // a parameter against an empty slot
  gx_projcs_del(irish);
  gx_projcs_del(other);
  gx_projcs_del(moved);
  gx_projcs_del(without);
}

TEST(ProjcsConstants, CloneDoesNotCarryTheBlock) {
  gx_projcs* projcs = gx_projcs_from_string(kWorldMercator.c_str());
  EXPECT_GT(gx_projcs_load_constants(projcs), 0);
  EXPECT_EQ(gx_projcs_isconstloaded(projcs), 1);
  gx_projcs* copy = gx_projcs_clone(projcs);
  EXPECT_EQ(gx_projcs_isconstloaded(copy), 0);
  EXPECT_EQ(gx_projcs_eq(projcs, copy), 1);
  gx_projcs_unload_constants(projcs);
  EXPECT_EQ(gx_projcs_isconstloaded(projcs), 0);
  gx_projcs_del(copy);
  gx_projcs_del(projcs);
  EXPECT_EQ(gx_projcs_load_constants(nullptr), 0);
}

TEST(ProjcsAlterUnits, FootSystemDividesTheFalseOriginOnly) {
  gx_projcs* projcs = gx_projcs_from_string(
      Mercator("m",
               "PARAMETER[\"False_Easting\",3048],PARAMETER[\"False_Northing\",304.8],"
               "PARAMETER[\"Central_Meridian\",10]")
          .c_str());
  gx_projcs_authority_set(projcs, gx_authority_new("EPSG", 1, nullptr));
  gx_projcs* same = gx_projcs_clone_alterunits(projcs, nullptr, nullptr);
  EXPECT_EQ(gx_projcs_eq(same, projcs), 1);
  EXPECT_NE(gx_projcs_authority(same), nullptr);
  gx_unit* foot = gx_unit_new("Foot", 0.3048);
  gx_projcs* feet = gx_projcs_clone_alterunits(projcs, foot, nullptr);
  ASSERT_NE(feet, nullptr);
  gx_parameter* slots[16];
  gx_projcs_parameters(feet, slots);
  EXPECT_NEAR(gx_parameter_value(slots[0]), 10000.0, 1e-9);
  EXPECT_NEAR(gx_parameter_value(slots[1]), 1000.0, 1e-9);
  EXPECT_EQ(gx_parameter_value(slots[2]), 10.0);
  EXPECT_EQ(gx_projcs_status(feet), GX_STATUS_NEW);
  EXPECT_EQ(gx_projcs_authority(feet), nullptr);
  // The same place in both systems.
  double a[2] = {12.0, 40.0}, b[2] = {12.0, 40.0};
  gx_geog_to_proj(projcs, 1, a);
  gx_geog_to_proj(feet, 1, b);
  EXPECT_NEAR(b[0] * 0.3048, a[0], 1e-6);
  EXPECT_NEAR(b[1] * 0.3048, a[1], 1e-6);
  // An angular unit of grads rescales the angles and the geographic unit.
  gx_unit* grad = gx_unit_new("Grad", 0.015707963267948967);
  gx_projcs* grads = gx_projcs_clone_alterunits(projcs, nullptr, grad);
  gx_projcs_parameters(grads, slots);
  EXPECT_NEAR(gx_parameter_value(slots[2]), 100.0 / 9.0, 1e-12);
  EXPECT_NEAR(gx_unit_factor(gx_geogcs_unit(gx_projcs_geogcs(grads))), 0.015707963267948967, 1e-18);
  gx_unit_del(grad);
  gx_unit_del(foot);
  gx_projcs_del(grads);
  gx_projcs_del(feet);
  gx_projcs_del(same);
  gx_projcs_del(projcs);
}

TEST(ProjcsNew, ChecksInOrder) {
  gx_parameter* slots[16] = {};
  gx_errext record;
  EXPECT_EQ(gx_projcs_new_errext("x", nullptr, nullptr, nullptr, nullptr, &record), nullptr);
  EXPECT_STREQ(record.message, "Null or invalid geographic CS object argument");
  gx_geogcs* geogcs = gx_geogcs_from_string(kWgs84);
  EXPECT_EQ(gx_projcs_new_errext("x", geogcs, nullptr, slots, nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 328u);
  gx_projection* projection = gx_projection_new("Mercator", nullptr, nullptr, nullptr);
  EXPECT_EQ(gx_projcs_new_errext("x", geogcs, projection, nullptr, nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 330u);
  EXPECT_EQ(gx_projcs_new_errext("x", geogcs, projection, slots, nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 323u);
  gx_geogcs_del(geogcs);
  gx_projection_del(projection);
}

TEST(ProjectionDefaults, GroupsOfThePrimaryParameters) {
  gx_projection* mercator = gx_projection_new("Mercator", nullptr, nullptr, nullptr);
  gx_parameter* slots[16];
  EXPECT_EQ(gx_parameter_projection_defaults(mercator, slots), 4);
  ASSERT_NE(slots[3], nullptr);
  EXPECT_EQ(gx_parameter_value(slots[3]), 60.0);
  EXPECT_NE(slots[0], nullptr);
  EXPECT_NE(slots[1], nullptr);
  EXPECT_NE(slots[2], nullptr);
  for (gx_parameter* p : slots) gx_parameter_del(p);
  gx_projection_del(mercator);
  EXPECT_EQ(gx_parameter_projection_defaults(nullptr, slots), 0);
}

TEST(AuxiliarySphereNames, AreNotResolved) {
  EXPECT_EQ(gx_auxiliary_sphere_code_to_name(0), nullptr);
  EXPECT_EQ(gx_auxiliary_sphere_name_to_code("Use_Semi_Major_Radius"), -1);
}

}  // namespace
