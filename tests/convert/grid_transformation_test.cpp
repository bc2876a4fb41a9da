// Grid transformations end to end: GEOGTRAN text with a Dataset_ parameter,
// the grid read once through the data home, and the rules for grid methods.
#include <gtest/gtest.h>

#include <string>

#include "frame/hook_support.h"
#include "gx_convert.h"
#include "gx_objects.h"
#include "methods/grid_files.h"

namespace {

using namespace gx_test;

std::string Geogcs(const char* name) {
  return std::string("GEOGCS[\"") + name + "\",DATUM[\"D\",SPHEROID[\"GRS_1980\",6378137.0," +
         "298.257222101]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
}

std::string Ntv2(const std::string& parameters) {
  return "GEOGTRAN[\"T\"," + Geogcs("A") + "," + Geogcs("B") + ",METHOD[\"NTv2\"]" + parameters +
         "]";
}

// One grid, 10N to 12N and 19E to 21E every half degree, shifting every node
// by 1.5" north and 3" east (NTv2 longitudes are positive west).
bytes ConstantGrid() {
  ntv2_file file;
  file.grids.push_back({"ROOT", "NONE", 36000, 43200, -75600, -68400, 1800, 1800,
                        bilinear_field(1.5f, 0, 0, 0), bilinear_field(-3.0f, 0, 0, 0)});
  return ntv2_bytes(file);
}

TEST(GridTransformation, ShiftsThroughTheDataHomeAndBack) {
  temp_datahome home;
  home.write("ntv2/shift.gsb", ConstantGrid());
  gx_geogtran* tran = gx_geogtran_from_string(Ntv2(",PARAMETER[\"Dataset_shift\",0.0]").c_str());
  ASSERT_NE(tran, nullptr);
  double ll[2] = {20.0, 11.0};
  ASSERT_EQ(gx_geog1_to_geog2(tran, 1, ll, nullptr), 1);
  EXPECT_EQ(gx_geogtran_isconstloaded(tran), 1);
  EXPECT_NEAR(ll[0], 20.0 + 3.0 / 3600, 1e-12);
  EXPECT_NEAR(ll[1], 11.0 + 1.5 / 3600, 1e-12);
  ASSERT_EQ(gx_geog2_to_geog1(tran, 1, ll, nullptr), 1);
  EXPECT_NEAR(ll[0], 20.0, 1e-11);
  EXPECT_NEAR(ll[1], 11.0, 1e-11);
  // Off the grid: left as it is and not counted.
  double off[4] = {20.0, 11.0, 50.0, 50.0};
  EXPECT_EQ(gx_geog1_to_geog2(tran, 2, off, nullptr), 1);
  EXPECT_NEAR(off[2], 50.0, 1e-12);
  gx_geogtran_del(tran);
}

TEST(GridTransformation, MissingFileFailsOnceAndIsNotTriedAgain) {
  temp_datahome home;
  gx_geogtran* tran = gx_geogtran_from_string(Ntv2(",PARAMETER[\"Dataset_nowhere\",0.0]").c_str());
  ASSERT_NE(tran, nullptr);
  double ll[2] = {20.0, 11.0};
  EXPECT_EQ(gx_geog1_to_geog2(tran, 1, ll, nullptr), 0);
  EXPECT_EQ(ll[0], 20.0);
  EXPECT_EQ(gx_geogtran_isconstloaded(tran), 1);
  home.write("ntv2/nowhere.gsb", ConstantGrid());
  EXPECT_EQ(gx_geog1_to_geog2(tran, 1, ll, nullptr), 0);  // the flag holds
  gx_geogtran_unload_constants(tran);                        // a new try is allowed
  EXPECT_EQ(gx_geog1_to_geog2(tran, 1, ll, nullptr), 1);
  gx_geogtran_del(tran);
}

TEST(GridTransformation, ParameterRulesOfGridMethods) {
  MessageCollector hook;
  gx_errext record;
  EXPECT_EQ(gx_geogtran_from_string_errext(Ntv2("").c_str(), &record), nullptr);
  EXPECT_EQ(record.code, 453u);
  EXPECT_EQ(record.severity, GX_SEV_ERROR);
  EXPECT_STREQ(record.message, "Missing parameter for method \"NTv2\" in WKT string");

  gx_geogtran* extra = gx_geogtran_from_string(
      Ntv2(",PARAMETER[\"Dataset_x\",0],PARAMETER[\"X_Axis_Translation\",1]").c_str());
  ASSERT_NE(extra, nullptr);
  EXPECT_EQ(hook.last().code, 454u);
  EXPECT_EQ(hook.last().severity, GX_SEV_WARNING);
  gx_geogtran_del(extra);

  size_t before = hook.size();
  // Slot 2 is not among a grid method's extras.
  gx_geogtran* z = gx_geogtran_from_string(
      Ntv2(",PARAMETER[\"Dataset_x\",0],PARAMETER[\"Z_Axis_Translation\",1]").c_str());
  ASSERT_NE(z, nullptr);
  EXPECT_EQ(hook.size(), before);
  gx_geogtran_del(z);
}

}  // namespace
