// The exported GEOREF functions over a geographic CS: the CS's angular unit,
// the 16-bit siblings, and what an invalid CS or bad arrays give.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "gx_gridref.h"
#include "gx_objects.h"

namespace {

const char* const kDegrees =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
const char* const kGrads =
    "GEOGCS[\"GCS_NTF\",DATUM[\"D_NTF\",SPHEROID[\"Clarke_1880_IGN\",6378249.2,293.4660212936269]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Grad\",0.01570796326794897]]";

class GeorefApi : public ::testing::Test {
 protected:
  void SetUp() override {
    degrees = gx_geogcs_from_string(kDegrees);
    grads = gx_geogcs_from_string(kGrads);
    ASSERT_NE(degrees, nullptr);
    ASSERT_NE(grads, nullptr);
  }
  void TearDown() override {
    gx_geogcs_del(degrees);
    gx_geogcs_del(grads);
  }
  gx_geogcs* degrees = nullptr;
  gx_geogcs* grads = nullptr;
};

// Texts and corners from GeographicLib 2.1.2 (Georef::Forward, and
// Georef::Reverse with centerp = false).
TEST_F(GeorefApi, DegreesBothWays) {
  const double coords[4] = {10.40744, 57.64911, -123.456789, 12.345678};
  char a[GX_GEOREF_SIZE], b[GX_GEOREF_SIZE];
  char* strings[2] = {a, b};
  ASSERT_EQ(gx_geog_to_georef(degrees, 2, coords, 5, 0, strings), 2);
  EXPECT_STREQ(a, "NKLN2444638946");
  EXPECT_STREQ(b, "DGMN3259220740");

  const char* texts[2] = {a, b};
  double back[4];
  ASSERT_EQ(gx_georef_to_geog(degrees, 2, texts, back), 2);
  EXPECT_NEAR(back[0], 10.4074333333333, 1e-12);
  EXPECT_NEAR(back[1], 57.6491, 1e-12);
  EXPECT_NEAR(back[2], -123.4568, 1e-12);
  EXPECT_NEAR(back[3], 12.3456666666667, 1e-12);
}

TEST_F(GeorefApi, CoordinatesAreInTheUnitOfTheSystem) {
  // 100 grad east, 50 grad north: 90 and 45 degrees.
  const double coords[2] = {100.0, 50.0};
  char text[GX_GEOREF_SIZE];
  char* strings[1] = {text};
  ASSERT_EQ(gx_geog_to_georef(grads, 1, coords, 3, 0, strings), 1);
  EXPECT_STREQ(text, "UKAA000000");
  const char* texts[1] = {"UKAA003000"};  // 0.3' further east
  double back[2];
  ASSERT_EQ(gx_georef_to_geog(grads, 1, texts, back), 1);
  EXPECT_NEAR(back[0], (90.0 + 0.3 / 60.0) / 0.9, 1e-12);
  EXPECT_NEAR(back[1], 50.0, 1e-12);
}

TEST_F(GeorefApi, WideSiblings) {
  const double coords[2] = {-0.0015, 51.4778};
  gx_wchar text[GX_GEOREF_SIZE];
  gx_wchar* strings[1] = {text};
  ASSERT_EQ(gx_geog_to_georef_w(degrees, 1, coords, 3, 0, strings), 1);
  EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(text)), u"MKQG599286");
  const gx_wchar* texts[1] = {text};
  double back[2];
  ASSERT_EQ(gx_georef_to_geog_w(degrees, 1, texts, back), 1);
  EXPECT_NEAR(back[0], -0.00166666666666667, 1e-12);
  EXPECT_NEAR(back[1], 51.4766666666667, 1e-12);
}

TEST_F(GeorefApi, InvalidSystemConvertsNothing) {
  const double coords[2] = {10.0, 10.0};
  char text[GX_GEOREF_SIZE] = "old";
  char* strings[1] = {text};
  EXPECT_EQ(gx_geog_to_georef(nullptr, 1, coords, 3, 0, strings), 0);
  EXPECT_STREQ(text, "");
  gx_unit* unit = gx_unit_new("Degree", 0.0174532925199433);
  ASSERT_NE(unit, nullptr);
  const gx_geogcs* not_a_system = reinterpret_cast<const gx_geogcs*>(unit);
  EXPECT_EQ(gx_geog_to_georef(not_a_system, 1, coords, 3, 0, strings), 0);

  const char* texts[1] = {"NGLL0000"};
  double back[2] = {0.0, 0.0};
  EXPECT_EQ(gx_georef_to_geog(nullptr, 1, texts, back), 0);
  EXPECT_TRUE(std::isnan(back[0]) && std::isnan(back[1]));
  EXPECT_EQ(gx_georef_to_geog(not_a_system, 1, texts, back), 0);
  gx_wchar wide[GX_GEOREF_SIZE];
  gx_wchar* wide_strings[1] = {wide};
  EXPECT_EQ(gx_geog_to_georef_w(not_a_system, 1, coords, 3, 0, wide_strings), 0);
  EXPECT_EQ(wide[0], 0);
  gx_unit_del(unit);
}

TEST_F(GeorefApi, BadArraysAndTexts) {
  const double coords[2] = {10.0, 10.0};
  EXPECT_EQ(gx_geog_to_georef(degrees, 1, coords, 3, 0, nullptr), 0);
  EXPECT_EQ(gx_geog_to_georef(degrees, -3, coords, 3, 0, nullptr), 0);
  EXPECT_EQ(gx_georef_to_geog(degrees, 1, nullptr, nullptr), 0);
  std::string huge(10000, 'Z');
  const char* texts[4] = {huge.c_str(), "", nullptr, "   "};
  double back[8];
  EXPECT_EQ(gx_georef_to_geog(degrees, 4, texts, back), 0);
  for (double value : back) EXPECT_TRUE(std::isnan(value));
}

}  // namespace
