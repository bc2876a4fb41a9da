// Geographic transformations: the method and geogtran families, the
// parameter rules per method, and the driver's units and prime meridians.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "frame/hook_support.h"
#include "frame/object.h"
#include "gx_convert.h"
#include "gx_objects.h"

namespace {

std::string Geogcs(const char* name, const char* spheroid, const char* primem = "0.0",
                   const char* unit = "UNIT[\"Degree\",0.0174532925199433]") {
  return std::string("GEOGCS[\"") + name + "\",DATUM[\"D_" + name + "\"," + spheroid +
         "],PRIMEM[\"P\"," + primem + "]," + unit + "]";
}

const std::string kWgs72 = Geogcs("WGS_1972", "SPHEROID[\"WGS_1972\",6378135.0,298.26]");
const std::string kWgs84 = Geogcs("WGS_1984", "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]");

std::string Geogtran(const std::string& from, const std::string& to, const char* method,
                     const std::string& parameters) {
  return "GEOGTRAN[\"T\"," + from + "," + to + ",METHOD[\"" + method + "\"]" + parameters + "]";
}

const std::string kPositionVector =
    ",PARAMETER[\"X_Axis_Translation\",0],PARAMETER[\"Y_Axis_Translation\",0],"
    "PARAMETER[\"Z_Axis_Translation\",4.5],PARAMETER[\"X_Axis_Rotation\",0],"
    "PARAMETER[\"Y_Axis_Rotation\",0],PARAMETER[\"Z_Axis_Rotation\",0.554],"
    "PARAMETER[\"Scale_Difference\",0.219]";

TEST(GeogtranText, PositionVectorBothWaysAgainstCs2cs) {
  gx_geogtran* tran =
      gx_geogtran_from_string(Geogtran(kWgs72, kWgs84, "Position_Vector", kPositionVector).c_str());
  ASSERT_NE(tran, nullptr);
  EXPECT_EQ(gx_object_code(gx_geogtran_method(tran)), 9606);
  // cs2cs +proj=longlat +a=6378135 +rf=298.26 +towgs84=0,0,4.5,0,0,0.554,0.219
  //   +to +proj=longlat +ellps=WGS84 +towgs84=0,0,0   (4 55 0)
  double ll[2] = {4.0, 55.0};
  ASSERT_EQ(gx_geog1_to_geog2(tran, 1, ll, nullptr), 1);
  EXPECT_NEAR(ll[0], 4.0001538889, 1e-9);
  EXPECT_NEAR(ll[1], 55.0000248847, 1e-9);
  ASSERT_EQ(gx_geog2_to_geog1(tran, 1, ll, nullptr), 1);
  EXPECT_NEAR(ll[0], 4.0, 1e-9);
  EXPECT_NEAR(ll[1], 55.0, 1e-9);

  char text[GX_WKT_SIZE];
  gx_geogtran_to_string(tran, text);
  gx_geogtran* back = gx_geogtran_from_string(text);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(gx_geogtran_eq(tran, back), 1);
  gx_geogtran* copy = gx_geogtran_clone(tran);
  EXPECT_EQ(gx_geogtran_eq(tran, copy), 1);
  gx_geogtran_del(copy);
  gx_geogtran_del(back);
  gx_geogtran_del(tran);
}

TEST(GeogtranText, GeocentricTranslationAgainstCs2cs) {
  gx_geogtran* tran = gx_geogtran_from_string(
      Geogtran(kWgs72, kWgs84, "Geocentric_Translation",
               ",PARAMETER[\"X_Axis_Translation\",84.87],PARAMETER[\"Y_Axis_Translation\",96.49],"
               "PARAMETER[\"Z_Axis_Translation\",116.95]")
          .c_str());
  ASSERT_NE(tran, nullptr);
  // cs2cs ... +towgs84=84.87,96.49,116.95 +to ... +towgs84=0,0,0   (4 55 0)
  double ll[2] = {4.0, 55.0};
  gx_geog_to_geog(tran, 1, ll, nullptr, 0);
  EXPECT_NEAR(ll[0], 4.0014115748, 1e-9);
  EXPECT_NEAR(ll[1], 54.9999317932, 1e-9);
  gx_geogtran_del(tran);
}

TEST(GeogtranText, MissingScaleIsAWarningUnderTheMethodName) {
  MessageCollector hook;
  gx_errext record;
  std::string parameters = kPositionVector.substr(0, kPositionVector.find(",PARAMETER[\"Scale"));
  gx_geogtran* tran = gx_geogtran_from_string_errext(
      Geogtran(kWgs72, kWgs84, "Position_Vector", parameters).c_str(), &record);
  ASSERT_NE(tran, nullptr);
  EXPECT_EQ(record.severity, 0u);  // cleared by the successful make
  ASSERT_EQ(hook.size(), 1u);
  EXPECT_EQ(hook.last().code, 453u);
  EXPECT_EQ(hook.last().severity, GX_SEV_WARNING);
  EXPECT_EQ(hook.last().category, GX_CAT_TRANSFORM);
  EXPECT_EQ(hook.last().message, "Missing parameter for method \"Position_Vector\" in WKT string");
  EXPECT_EQ(hook.last().function, "gx_geogtran_from_string");
  gx_geogtran_del(tran);
}

TEST(GeogtranText, ExtraParameterIsAWarning) {
  MessageCollector hook;
  gx_geogtran* tran = gx_geogtran_from_string(
      Geogtran(kWgs72, kWgs84, "Geocentric_Translation",
               ",PARAMETER[\"X_Axis_Translation\",1],PARAMETER[\"Y_Axis_Translation\",1],"
               "PARAMETER[\"Z_Axis_Translation\",1],PARAMETER[\"X_Axis_Rotation\",1]")
          .c_str());
  ASSERT_NE(tran, nullptr);
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{454}));
  gx_geogtran_del(tran);
}

struct BadGeogtran {
  const char* what;
  std::string text;
  uint32_t code;
  const char* message;
};

class GeogtranTextErrors : public ::testing::TestWithParam<BadGeogtran> {};

TEST_P(GeogtranTextErrors, NullAndExactMessage) {
  gx_errext record;
  EXPECT_EQ(gx_geogtran_from_string_errext(GetParam().text.c_str(), &record), nullptr)
      << GetParam().what;
  EXPECT_EQ(record.code, GetParam().code) << GetParam().what;
  EXPECT_STREQ(record.message, GetParam().message) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Bad, GeogtranTextErrors,
    ::testing::Values(
        BadGeogtran{"a projcs parameter",
                    Geogtran(kWgs72, kWgs84, "Geocentric_Translation",
                             ",PARAMETER[\"False_Easting\",1]"),
                    424, "Parameter \"False_Easting\" in WKT string is not valid for a geogtran"},
        BadGeogtran{"three systems",
                    "GEOGTRAN[\"T\"," + kWgs72 + "," + kWgs84 + "," + kWgs84 +
                        ",METHOD[\"Geocentric_Translation\"]]",
                    406, "Duplicate geographic CS in WKT string"},
        BadGeogtran{"an unknown method", Geogtran(kWgs72, kWgs84, "Not_A_Method", ""), 305,
                    "Invalid method name \"Not_A_Method\""},
        BadGeogtran{"no second system",
                    "GEOGTRAN[\"T\"," + kWgs72 + ",METHOD[\"Geocentric_Translation\"]]", 435,
                    "Missing geogcs2 in WKT string"},
        BadGeogtran{"no method", "GEOGTRAN[\"T\"," + kWgs72 + "," + kWgs84 + "]", 439,
                    "Missing method in WKT string"}));

TEST(GeogtranText, NullTextReportsUnderTheNewFunction) {
  gx_errext record;
  EXPECT_EQ(gx_geogtran_from_string_errext(nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 456u);
  EXPECT_STREQ(record.function, "gx_geogtran_new");
}

TEST(MethodFamily, ListedFunctionsAndCodes) {
  gx_method* molodensky = gx_method_new("Molodensky", nullptr, nullptr);
  ASSERT_NE(molodensky, nullptr);
  EXPECT_EQ(gx_object_code(molodensky), 9604);
  gx_errext record;
  EXPECT_EQ(gx_method_new_errext("X", gx_method_forward(molodensky), nullptr, &record), nullptr);
  EXPECT_EQ(record.code, 340u);
  gx_method_del(molodensky);
  double ll[2] = {1.0, 2.0};
  EXPECT_EQ(gx_method_forward(nullptr)(nullptr, nullptr, nullptr, nullptr, 1, ll, nullptr,
                                       nullptr, nullptr, nullptr),
            1);
  EXPECT_EQ(ll[0], 1.0);
}

TEST(MethodDefaults, GroupsByCode) {
  gx_method* pv = gx_method_new("Position_Vector", nullptr, nullptr);
  gx_parameter* slots[16];
  EXPECT_EQ(gx_parameter_method_defaults(pv, slots), 7);
  EXPECT_NE(slots[6], nullptr);
  EXPECT_EQ(slots[7], nullptr);
  for (gx_parameter* p : slots) gx_parameter_del(p);
  gx_method_del(pv);
  gx_method* rotation = gx_method_new("Longitude_Rotation", nullptr, nullptr);
  EXPECT_EQ(gx_parameter_method_defaults(rotation, slots), 0);
  gx_method_del(rotation);
}

TEST(GeographicDriver, LongitudeRotationBetweenPrimeMeridians) {
  std::string paris = Geogcs("NTF", "SPHEROID[\"Clarke_1880_IGN\",6378249.2,293.4660212936269]",
                             "2.337229166666667");
  std::string greenwich = Geogcs("NTF", "SPHEROID[\"Clarke_1880_IGN\",6378249.2,293.4660212936269]");
  gx_geogtran* tran =
      gx_geogtran_from_string(Geogtran(paris, greenwich, "Longitude_Rotation", "").c_str());
  ASSERT_NE(tran, nullptr);
  double ll[2] = {0.0, 48.0};
  ASSERT_EQ(gx_geog1_to_geog2(tran, 1, ll, nullptr), 1);
  EXPECT_NEAR(ll[0], 2.337229166666667, 1e-12);
  EXPECT_NEAR(ll[1], 48.0, 1e-12);
  gx_geog2_to_geog1(tran, 1, ll, nullptr);
  EXPECT_NEAR(ll[0], 0.0, 1e-12);
  gx_geogtran_del(tran);

  gx_geogtran* mixed =
      gx_geogtran_from_string(Geogtran(kWgs72, kWgs84, "Longitude_Rotation", "").c_str());
  double kept[2] = {5.0, 6.0};
  EXPECT_EQ(gx_geog1_to_geog2(mixed, 1, kept, nullptr), 0);
  EXPECT_EQ(kept[0], 5.0);
  EXPECT_EQ(kept[1], 6.0);
  gx_geogtran_del(mixed);
}

TEST(GeographicDriver, UnitsOfEachSideAndPrimeMeridianForFormulas) {
  // Source in grads on a Paris meridian, target in degrees on Greenwich, with
  // no shift at all: only units and meridians act.
  std::string paris_grads = Geogcs("A", "SPHEROID[\"S\",6378137.0,298.257223563]",
                                   "2.337229166666667", "UNIT[\"Grad\",0.01570796326794897]");
  std::string greenwich = Geogcs("A", "SPHEROID[\"S\",6378137.0,298.257223563]");
  gx_geogtran* tran = gx_geogtran_from_string(
      Geogtran(paris_grads, greenwich, "Geocentric_Translation",
               ",PARAMETER[\"X_Axis_Translation\",0],PARAMETER[\"Y_Axis_Translation\",0],"
               "PARAMETER[\"Z_Axis_Translation\",0]")
          .c_str());
  ASSERT_NE(tran, nullptr);
  double ll[2] = {100.0, 50.0};  // grads east of Paris
  gx_geog1_to_geog2(tran, 1, ll, nullptr);
  EXPECT_NEAR(ll[0], 90.0 + 2.337229166666667, 1e-9);
  EXPECT_NEAR(ll[1], 45.0, 1e-9);
  gx_geog2_to_geog1(tran, 1, ll, nullptr);
  EXPECT_NEAR(ll[0], 100.0, 1e-9);
  EXPECT_NEAR(ll[1], 50.0, 1e-9);
  gx_geogtran_del(tran);
}

}  // namespace
