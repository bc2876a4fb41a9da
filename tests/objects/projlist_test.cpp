// The projection list walked row by row: every row converts and returns, and
// its starting parameters make a definition that reads and prints the same.
// This is the guard that no row of the list is a stub.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "gx_convert.h"
#include "gx_objects.h"
#include "objects/projlist.h"
#include "support/definitions.h"

namespace {

using gx_test::DefaultDefinition;
const char* const kWgs84 = gx_test::kWgs84Geogcs;
const char* const kSphere = gx_test::kSphereGeogcs;

// Where the starting parameters put the middle of the usable area.
void Centre(gx_projcs* projcs, double* lon, double* lat) {
  gx_parameter* slots[16];
  gx_projcs_parameters(projcs, slots);
  *lon = slots[10] != nullptr ? gx_parameter_value(slots[10]) : gx_parameter_value(slots[2]);
  *lat = slots[11] != nullptr ? gx_parameter_value(slots[11]) : gx_parameter_value(slots[6]);
  if (slots[8] != nullptr && slots[9] != nullptr) {  // two points: between them
    *lon = (gx_parameter_value(slots[8]) + gx_parameter_value(slots[9])) / 2;
    *lat = (gx_parameter_value(slots[3]) + gx_parameter_value(slots[4])) / 2;
  }
}

// The spacing of the test grid, in degrees: 5 but for projections whose
// series are meant for a small region (Cassini's ellipsoidal series loses
// about 2 m at 10 degrees from its meridian; the New Zealand Map Grid's
// polynomial is fitted to one country).
double GridStep(const gx_projection_row& row) {
  return row.code == 43028 || row.code == 43040 ? 1.0 : 5.0;
}

class ProjectionListRows : public ::testing::TestWithParam<int> {};

TEST_P(ProjectionListRows, DefaultsReadAndPrintTheSame) {
  const gx_projection_row& row = gx_projlist_rows()[GetParam()];
  for (const char* geogcs : {kWgs84, kSphere}) {
    std::string text = DefaultDefinition(row, geogcs);
    gx_projcs* projcs = gx_projcs_from_string(text.c_str());
    ASSERT_NE(projcs, nullptr) << text;
    char printed[GX_WKT_SIZE];
    gx_projcs_to_string(projcs, printed);
    gx_projcs* back = gx_projcs_from_string(printed);
    ASSERT_NE(back, nullptr);
    char again[GX_WKT_SIZE];
    EXPECT_STREQ(gx_projcs_to_string(back, again), printed);
    EXPECT_EQ(gx_projcs_eq(projcs, back), 1);
    gx_projcs_del(back);
    gx_projcs_del(projcs);
  }
}

TEST_P(ProjectionListRows, ForwardThenInverseReturnsNearTheCentre) {
  const gx_projection_row& row = gx_projlist_rows()[GetParam()];
  for (const char* geogcs : {kWgs84, kSphere}) {
    gx_projcs* projcs = gx_projcs_from_string(DefaultDefinition(row, geogcs).c_str());
    ASSERT_NE(projcs, nullptr);
    double lon0, lat0;
    Centre(projcs, &lon0, &lat0);
    int tried = 0, returned = 0;
    double step = GridStep(row);
    for (int i = -2; i <= 2; ++i) {
      for (int j = -2; j <= 2; ++j) {
        // Off the centre's own parallel and meridian by half a step: lines
        // along the equator are where the ellipsoid's geodesic has no answer.
        double lat = lat0 + step * (j + 0.5);
        if (std::fabs(lat) > 85.0) continue;
        double start[2] = {lon0 + step * (i + 0.5), lat};
        double xy[2] = {start[0], start[1]};
        ++tried;
        gx_geog_to_proj(projcs, 1, xy);
        if (std::isnan(xy[0]) || std::isnan(xy[1])) continue;
        gx_proj_to_geog(projcs, 1, xy);
        double dlon = std::remainder(xy[0] - start[0], 360.0);
        EXPECT_NEAR(dlon, 0.0, 1e-6) << row.name << " at " << start[0] << "," << start[1];
        EXPECT_NEAR(xy[1], start[1], 1e-6) << row.name << " at " << start[0] << "," << start[1];
        ++returned;
      }
    }
    // Near its centre, every projection of the list has an image.
    EXPECT_EQ(returned, tried) << row.name;
    gx_projcs_del(projcs);
  }
}

TEST_P(ProjectionListRows, WildPointsAndParametersEnd) {
  // NaN, infinities, huge values and poles as points, and as each parameter
  // in turn: every conversion returns (the iterations' caps end them), and
  // leaves every point in its place, converted or NaN.
  const double wild[] = {NAN, INFINITY, -INFINITY, 1e300, -1e300, 0.0, 90.0, -90.0, 180.0, 1e-310};
  std::vector<double> points;
  for (double u : wild)
    for (double v : wild) {
      points.push_back(u);
      points.push_back(v);
    }
  const int32_t n = static_cast<int32_t>(points.size() / 2);
  const gx_projection_row& row = gx_projlist_rows()[GetParam()];
  for (const char* geogcs : {kWgs84, kSphere}) {
    gx_projcs* projcs = gx_projcs_from_string(DefaultDefinition(row, geogcs).c_str());
    ASSERT_NE(projcs, nullptr);
    gx_parameter* slots[16];
    gx_projcs_parameters(projcs, slots);
    for (int slot = -1; slot < 16; ++slot) {
      if (slot >= 0 && slots[slot] == nullptr) continue;
      double kept = slot >= 0 ? gx_parameter_value(slots[slot]) : 0.0;
      for (double value : {double(NAN), 0.0, 1e300, -90.0, 90.0}) {
        if (slot >= 0) gx_parameter_value_set(slots[slot], value);
        gx_projcs_unload_constants(projcs);
        std::vector<double> work = points;
        EXPECT_LE(gx_geog_to_proj(projcs, n, work.data()), n) << row.name;
        work = points;
        EXPECT_LE(gx_proj_to_geog(projcs, n, work.data()), n) << row.name;
        if (slot < 0) break;
      }
      if (slot >= 0) gx_parameter_value_set(slots[slot], kept);
    }
    gx_projcs_del(projcs);
  }
}

std::string RowName(const ::testing::TestParamInfo<int>& info) {
  return gx_projlist_rows()[info.param].name;
}

INSTANTIATE_TEST_SUITE_P(EveryRow, ProjectionListRows,
                         ::testing::Range(0, gx_projlist_count()), RowName);

TEST(ProjectionList, NamesAndCodesStandOnce) {
  std::set<std::string> names;
  std::set<int> codes;
  for (int i = 0; i < gx_projlist_count(); ++i) {
    const gx_projection_row& row = gx_projlist_rows()[i];
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_TRUE(codes.insert(row.code).second) << row.code;
    EXPECT_STREQ(row.authname, "ORVA");
    EXPECT_STREQ(row.version, "9.3.0");
    EXPECT_NE(row.forward, nullptr);
    EXPECT_NE(row.inverse, nullptr);
    // A twin on the auxiliary sphere is its base + 100.
    if (row.code > 43100) EXPECT_NE(gx_projlist_row_from_code(row.code - 100), nullptr) << row.name;
  }
  EXPECT_EQ(gx_projlist_rows()[gx_projlist_count()].code, 0);
}

TEST(ProjectionList, OldNamesFindTheirRows) {
  EXPECT_EQ(gx_projlist_row_from_name("Gall"), gx_projlist_row_from_name("Gall_Stereographic"));
  EXPECT_EQ(gx_projlist_row_from_name("transverse mercator"),
            gx_projlist_row_from_code(43006));
  EXPECT_EQ(gx_projlist_row_from_name("No_Such"), nullptr);
  EXPECT_EQ(gx_projlist_row_from_name(nullptr), nullptr);
}

}  // namespace
