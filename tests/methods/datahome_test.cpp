// The data home and the paths built below it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "grid_files.h"
#include "methods/datahome.h"

namespace {

// Each case starts with the home as it is at load, and leaves it so.
class DataHome : public ::testing::Test {
 protected:
  void SetUp() override {
    unsetenv("GXDATAHOME");
    gx_datahome_forget();
  }
  void TearDown() override {
    unsetenv("GXDATAHOME");
    gx_datahome_forget();
  }
  static std::string home() {
    const char* h = gx_datahome_get();
    return h != nullptr ? h : "<none>";
  }
};

TEST_F(DataHome, KeepsAtMost255Characters) {
  const std::string kept(255, 'd');
  gx_datahome_setdir(kept.c_str());
  EXPECT_EQ(home(), kept);
  const std::string too_long(256, 'd');
  gx_datahome_setdir(too_long.c_str());
  EXPECT_EQ(gx_datahome_get(), nullptr);
  gx_datahome_setdir("");
  EXPECT_EQ(gx_datahome_get(), nullptr);
}

TEST_F(DataHome, EnvironmentIsReadOnceAndOnlyBeforeAnySet) {
  setenv("GXDATAHOME", "/from/environment", 1);
  EXPECT_EQ(home(), "/from/environment");
  setenv("GXDATAHOME", "/changed", 1);
  EXPECT_EQ(home(), "/from/environment");
  gx_datahome_setdir(nullptr);  // clears, and the environment stays unread
  EXPECT_EQ(gx_datahome_get(), nullptr);
}

TEST_F(DataHome, SetBeforeFirstReadWinsOverEnvironment) {
  setenv("GXDATAHOME", "/from/environment", 1);
  gx_datahome_setdir("/set/by/caller");
  EXPECT_EQ(home(), "/set/by/caller");
}

TEST_F(DataHome, MissingEnvironmentLeavesNoHome) {
  EXPECT_EQ(gx_datahome_get(), nullptr);
  setenv("GXDATAHOME", "/too/late", 1);
  EXPECT_EQ(gx_datahome_get(), nullptr);  // looked up at most once
}

const char* home_source() { return "/from/function"; }

TEST_F(DataHome, SetFromFunctionOrWideText) {
  gx_datahome_setfunc(home_source);
  EXPECT_EQ(home(), "/from/function");
  gx_datahome_setfunc(nullptr);
  EXPECT_EQ(gx_datahome_get(), nullptr);
  const gx_wchar wide[] = {'/', 'w', 'i', 'd', 'e', 0};
  gx_datahome_setdir_w(wide);
  EXPECT_EQ(home(), "/wide");
  gx_wchar long_wide[300];
  for (gx_wchar& c : long_wide) c = 'x';
  long_wide[299] = 0;
  gx_datahome_setdir_w(long_wide);
  EXPECT_EQ(gx_datahome_get(), nullptr);
  gx_datahome_setdir_w(nullptr);
  EXPECT_EQ(gx_datahome_get(), nullptr);
}

TEST_F(DataHome, GridPairPaths) {
  char los[GX_PATH_SIZE], las[GX_PATH_SIZE];
  // No home: no path at all, even for an absolute name.
  EXPECT_EQ(gx_grid_pair_paths("/abs/conus", "nadcon", los, las), 0);
  EXPECT_STREQ(los, "");
  EXPECT_STREQ(las, "");

  gx_datahome_setdir("/grids");
  ASSERT_EQ(gx_grid_pair_paths("Dataset_conus", "nadcon", los, las), 1);
  EXPECT_STREQ(los, "/grids/nadcon/conus.los");
  EXPECT_STREQ(las, "/grids/nadcon/conus.las");
  // The prefix in any case and no prefix at all name the same files.
  for (const char* name : {"DATASET_conus", "dataset_conus", "conus"}) {
    char other[GX_PATH_SIZE], unused[GX_PATH_SIZE];
    ASSERT_EQ(gx_grid_pair_paths(name, "nadcon", other, unused), 1);
    EXPECT_STREQ(other, los);
  }
  gx_datahome_setdir("/grids/");  // no second separator
  ASSERT_EQ(gx_grid_pair_paths("flhpgn", "harn", los, las), 1);
  EXPECT_STREQ(los, "/grids/harn/flhpgn.los");

  EXPECT_EQ(gx_grid_pair_paths("", "nadcon", los, las), 0);
  EXPECT_EQ(gx_grid_pair_paths("Dataset_", "nadcon", los, las), 0);
  EXPECT_EQ(gx_grid_pair_paths(nullptr, "nadcon", los, las), 0);
  const std::string huge(600, 'n');
  EXPECT_EQ(gx_grid_pair_paths(huge.c_str(), "nadcon", los, las), 0);
  EXPECT_STREQ(los, "");
}

TEST_F(DataHome, Ntv2Paths) {
  char path[GX_PATH_SIZE];
  EXPECT_EQ(gx_ntv2_path("ntv2_0", 0, path), 0);
  gx_datahome_setdir("/grids");
  struct name_case {
    const char* dataset;
    int lower;
    const char* path;
  };
  const name_case cases[] = {
      {"Dataset_ntv2_0", 0, "/grids/ntv2/ntv2_0.gsb"},
      {"ntv2_0.gsb", 0, "/grids/ntv2/ntv2_0.gsb"},
      {"Dataset_canada\\ON76CONV", 0, "/grids/ntv2/canada/ON76CONV.gsb"},
      {"canada/ON76CONV", 1, "/grids/ntv2/canada/on76conv.gsb"},
      {"NTV2_0.GSB", 0, "/grids/ntv2/NTV2_0.GSB.gsb"},  // the test is case-sensitive
      {"NTV2_0.GSB", 1, "/grids/ntv2/ntv2_0.gsb"},
  };
  for (const name_case& c : cases) {
    ASSERT_EQ(gx_ntv2_path(c.dataset, c.lower, path), 1) << c.dataset;
    EXPECT_STREQ(path, c.path);
  }
}

TEST_F(DataHome, VerticalFiles) {
  char path[GX_PATH_SIZE];
  EXPECT_EQ(gx_vertical_open(path, "geoid", "g2012a", "bin"), nullptr);
  gx_test::temp_datahome temp;
  temp.write("vertical/geoid/g2012a.bin", {1, 2, 3});
  temp.write("vertical/egm96.grd", {1, 2, 3});
  FILE* file = gx_vertical_open(path, "geoid", "DATASET_g2012a", ".bin");
  ASSERT_NE(file, nullptr);
  fclose(file);
  EXPECT_EQ(std::string(path), temp.path() + "/vertical/geoid/g2012a.bin");
  file = gx_vertical_open(nullptr, "", "egm96.grd", "grd");  // extension already there
  ASSERT_NE(file, nullptr);
  fclose(file);
  EXPECT_EQ(gx_vertical_open(path, nullptr, "missing", "bin"), nullptr);
  EXPECT_EQ(std::string(path), temp.path() + "/vertical/missing.bin");
}

}  // namespace
