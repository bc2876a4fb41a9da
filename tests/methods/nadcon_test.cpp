// NADCON and HARN grid pairs: reading both byte orders, the loaded and the
// per-call forms, the Alaska and Samoa rules, and refusing malformed pairs.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "frame/constants.h"
#include "grid_files.h"
#include "method_call.h"

namespace {

using namespace gx_test;

const double kNoParms[16] = {0};
const sphere kAny = {6378206.4, 0.006768657997291};

const bilinear_field kLon = {0.5f, 0.25f, -0.125f, 0.0625f};
const bilinear_field kLat = {-1.0f, 0.125f, 0.5f, -0.25f};

// 40N to 40.5N, 100W to 94.25W, every quarter degree: 3 rows of 24.
nadcon_grid_file conus_grid() {
  nadcon_grid_file g;
  g.lon_shift = kLon.nodes();
  g.lat_shift = kLat.nodes();
  return g;
}

// Shifts in arc-seconds at a point of a grid, by the fields' definition.
void expected_at(const nadcon_grid_file& g, double lon, double lat, double* dlon, double* dlat) {
  const double column = (lon - g.xmin) / g.dx, row = (lat - g.ymin) / g.dy;
  *dlon = kLon.at(column, row);
  *dlat = kLat.at(column, row);
}

struct loaded_pair {
  gx_constants* block = gx_constants_new();
  int32_t floats;
  loaded_pair(int32_t (*loader)(gx_constants*, const char*), const char* dataset) {
    floats = loader(block, dataset);
  }
  ~loaded_pair() { gx_constants_del(block); }
  int32_t run(gx_method_fn fn, std::vector<point3>& points) const {
    return run_degrees(fn, kAny, kAny, kNoParms, points, false, nullptr, block->ints,
                       block->values, block->doubles);
  }
};

int32_t per_call(gx_method_fn fn, const char* dataset, std::vector<point3>& points) {
  return run_degrees(fn, kAny, kAny, kNoParms, points, false, dataset);
}

class Nadcon : public ::testing::Test {
 protected:
  temp_datahome home;
};

TEST_F(Nadcon, LoadsAndInterpolatesBilinearly) {
  const nadcon_grid_file g = conus_grid();
  home.write_nadcon("nadcon", "conus", g);
  loaded_pair pair(gx_method_nadcon_load, "Dataset_conus");
  ASSERT_EQ(pair.floats, 2 * 24 * 3);
  const std::vector<point3> start = {{-99.3, 40.1, 0}, {-94.3, 40.45, 0}, {-99.99, 40.01, 0}};
  std::vector<point3> points = start;
  EXPECT_EQ(pair.run(gx_method_nadcon_forward, points), 3);
  for (size_t i = 0; i < start.size(); ++i) {
    double dlon, dlat;
    expected_at(g, start[i].lon, start[i].lat, &dlon, &dlat);
    // Longitude shifts are positive west.
    EXPECT_NEAR(points[i].lon, start[i].lon - dlon / 3600, 1e-12);
    EXPECT_NEAR(points[i].lat, start[i].lat + dlat / 3600, 1e-12);
  }
  // By hand for the first point: column 2.8, row 0.4.
  EXPECT_NEAR(points[0].lon, -99.3 - 1.22 / 3600, 1e-12);
  EXPECT_NEAR(points[0].lat, 40.1 - 0.73 / 3600, 1e-12);
}

TEST_F(Nadcon, FileFormAndSwappedFilesGiveTheSameShifts) {
  nadcon_grid_file g = conus_grid();
  home.write_nadcon("nadcon", "native", g);
  g.swapped = true;
  home.write_nadcon("nadcon", "swapped", g);
  const std::vector<point3> start = {{-99.3, 40.1, 0}, {-95.0, 40.3, 0}, {-101.0, 40.1, 0}};
  loaded_pair native(gx_method_nadcon_load, "native");
  loaded_pair swapped(gx_method_nadcon_load, "swapped");
  ASSERT_EQ(swapped.floats, native.floats);
  std::vector<point3> a = start, b = start, c = start;
  EXPECT_EQ(native.run(gx_method_nadcon_forward, a), 2);
  EXPECT_EQ(swapped.run(gx_method_nadcon_forward, b), 2);
  EXPECT_EQ(per_call(gx_method_nadcon_forward, "swapped", c), 2);
  for (size_t i = 0; i < start.size(); ++i) {
    EXPECT_EQ(a[i].lon, b[i].lon);
    EXPECT_EQ(a[i].lat, b[i].lat);
    EXPECT_EQ(a[i].lon, c[i].lon);
    EXPECT_EQ(a[i].lat, c[i].lat);
  }
  EXPECT_EQ(a[2].lon, -101.0);  // outside: untouched
}

TEST_F(Nadcon, InverseUndoesForwardInBothForms) {
  home.write_nadcon("nadcon", "conus", conus_grid());
  loaded_pair pair(gx_method_nadcon_load, "conus");
  const std::vector<point3> start = {{-99.3, 40.1, 0}, {-95.0, 40.3, 0}};
  std::vector<point3> points = start;
  pair.run(gx_method_nadcon_forward, points);
  std::vector<point3> from_file = points;
  EXPECT_EQ(pair.run(gx_method_nadcon_inverse, points), 2);
  EXPECT_EQ(per_call(gx_method_nadcon_inverse, "conus", from_file), 2);
  for (size_t i = 0; i < start.size(); ++i) {
    EXPECT_NEAR(points[i].lon, start[i].lon, 1e-13);
    EXPECT_NEAR(points[i].lat, start[i].lat, 1e-13);
    EXPECT_EQ(points[i].lon, from_file[i].lon);
    EXPECT_EQ(points[i].lat, from_file[i].lat);
  }
}

TEST_F(Nadcon, PointsOnTheEdgesAreNotConverted) {
  home.write_nadcon("nadcon", "conus", conus_grid());
  loaded_pair pair(gx_method_nadcon_load, "conus");
  const std::vector<point3> start = {
      {-100.0, 40.1, 0}, {-94.25, 40.1, 0}, {-99.0, 40.0, 0}, {-99.0, 40.5, 0}, {NAN, 40.1, 0}};
  std::vector<point3> points = start;
  EXPECT_EQ(pair.run(gx_method_nadcon_forward, points), 0);
  EXPECT_EQ(pair.run(gx_method_nadcon_inverse, points), 0);
  for (size_t i = 0; i + 1 < start.size(); ++i) {
    EXPECT_EQ(points[i].lon, start[i].lon);
    EXPECT_EQ(points[i].lat, start[i].lat);
  }
  EXPECT_TRUE(std::isnan(points.back().lon));
}

TEST_F(Nadcon, EasternLongitudesReachAlaskanGrids) {
  nadcon_grid_file g = conus_grid();  // 195W to 183.5W
  g.xmin = -195.0f;
  g.dx = 0.5f;
  home.write_nadcon("nadcon", "alaska", g);
  loaded_pair pair(gx_method_nadcon_load, "alaska");
  std::vector<point3> points = {{170.0, 40.1, 0}};
  ASSERT_EQ(pair.run(gx_method_nadcon_forward, points), 1);
  double dlon, dlat;
  expected_at(g, -190.0, 40.1, &dlon, &dlat);
  EXPECT_NEAR(points[0].lon, 170.0 - dlon / 3600, 1e-11);  // wrapped back east
  EXPECT_NEAR(points[0].lat, 40.1 + dlat / 3600, 1e-12);
}

TEST_F(Nadcon, SamoaIsLookedUpAtPositiveLatitudes) {
  nadcon_grid_file g = conus_grid();  // 13.5N to 14.75N, 171W to 165.25W
  g.nr = 6;
  g.xmin = -171.0f;
  g.ymin = 13.5f;
  home.write_nadcon("nadcon", "samoa", g);
  loaded_pair pair(gx_method_nadcon_load, "samoa");
  std::vector<point3> points = {{-170.5, -14.2, 0}, {-170.5, 14.2, 0}};
  ASSERT_EQ(pair.run(gx_method_nadcon_forward, points), 2);
  double dlon, dlat;
  expected_at(g, -170.5, 14.2, &dlon, &dlat);
  EXPECT_NEAR(points[0].lat, -(14.2 + dlat / 3600), 1e-12);
  EXPECT_NEAR(points[1].lat, 14.2 + dlat / 3600, 1e-12);
  EXPECT_EQ(points[0].lon, points[1].lon);
  ASSERT_EQ(pair.run(gx_method_nadcon_inverse, points), 2);
  EXPECT_NEAR(points[0].lat, -14.2, 1e-13);
  EXPECT_NEAR(points[0].lon, -170.5, 1e-13);
}

TEST_F(Nadcon, HarnReadsItsOwnDirectory) {
  home.write_nadcon("harn", "flhpgn", conus_grid());
  loaded_pair harn(gx_method_harn_load, "Dataset_flhpgn");
  loaded_pair nadcon(gx_method_nadcon_load, "Dataset_flhpgn");
  EXPECT_EQ(harn.floats, 144);
  EXPECT_EQ(nadcon.floats, 0);
  std::vector<point3> points = {{-99.3, 40.1, 0}};
  EXPECT_EQ(per_call(gx_method_nadcon_forward, "flhpgn", points), 0);
  EXPECT_EQ(per_call(gx_method_harn_forward, "flhpgn", points), 1);
  EXPECT_EQ(per_call(gx_method_harn_inverse, "flhpgn", points), 1);
  EXPECT_NEAR(points[0].lon, -99.3, 1e-13);
}

TEST_F(Nadcon, DatasetPrefixInAnyCaseNamesTheSameGrid) {
  home.write_nadcon("nadcon", "conus", conus_grid());
  for (const char* dataset : {"conus", "Dataset_conus", "DATASET_conus", "dataSET_conus"}) {
    SCOPED_TRACE(dataset);
    loaded_pair pair(gx_method_nadcon_load, dataset);
    EXPECT_EQ(pair.floats, 144);
  }
}

TEST_F(Nadcon, WideGridsLoadButAreNotReadPerCall) {
  nadcon_grid_file g = conus_grid();
  g.nc = 1100;  // beyond the per-call reading buffer
  home.write_nadcon("nadcon", "wide", g);
  loaded_pair pair(gx_method_nadcon_load, "wide");
  EXPECT_EQ(pair.floats, 2 * 1100 * 3);
  std::vector<point3> points = {{-99.3, 40.1, 0}};
  EXPECT_EQ(per_call(gx_method_nadcon_forward, "wide", points), 0);
  EXPECT_EQ(pair.run(gx_method_nadcon_forward, points), 1);
}

// ---- malformed pairs -------------------------------------------------------

void expect_refused(const temp_datahome& home, const bytes& los, const bytes& las) {
  home.write("nadcon/bad.los", los);
  home.write("nadcon/bad.las", las);
  loaded_pair pair(gx_method_nadcon_load, "bad");
  EXPECT_EQ(pair.floats, 0);
  EXPECT_EQ(gx_constants_ints(pair.block), nullptr);
  EXPECT_EQ(gx_constants_values(pair.block), nullptr);
  EXPECT_EQ(gx_constants_doubles(pair.block), nullptr);
  std::vector<point3> points = {{-99.3, 40.1, 0}};
  EXPECT_EQ(per_call(gx_method_nadcon_forward, "bad", points), 0);
  EXPECT_EQ(per_call(gx_method_nadcon_inverse, "bad", points), 0);
  EXPECT_EQ(points[0].lon, -99.3);
}

void expect_refused(const temp_datahome& home, const nadcon_grid_file& g) {
  expect_refused(home, nadcon_los_bytes(g), nadcon_las_bytes(g));
}

TEST_F(Nadcon, HeadersThatDescribeNoGridAreRefused) {
  for (int32_t nc : {0, -5}) {
    bytes los = nadcon_los_bytes(conus_grid());
    memcpy(los.data() + 64, &nc, 4);
    expect_refused(home, los, nadcon_las_bytes(conus_grid()));
  }
  nadcon_grid_file no_rows = conus_grid();
  no_rows.nr = 0;
  expect_refused(home, no_rows);
  nadcon_grid_file zero_dx = conus_grid();
  zero_dx.dx = 0.0f;
  expect_refused(home, zero_dx);
  nadcon_grid_file nan_dy = conus_grid();
  nan_dy.dy = NAN;
  expect_refused(home, nan_dy);
}

TEST_F(Nadcon, CountsBeyondTheFilesAreRefused) {
  bytes los = nadcon_los_bytes(conus_grid());
  const int32_t rows = 999999;
  memcpy(los.data() + 68, &rows, 4);
  expect_refused(home, los, nadcon_las_bytes(conus_grid()));
}

TEST_F(Nadcon, EveryTruncationIsRefused) {
  const bytes los = nadcon_los_bytes(conus_grid());
  const bytes las = nadcon_las_bytes(conus_grid());
  for (size_t length = 0; length < los.size(); ++length) {
    SCOPED_TRACE(length);
    expect_refused(home, bytes(los.begin(), los.begin() + length), las);
    expect_refused(home, los, bytes(las.begin(), las.begin() + length));
  }
}

TEST_F(Nadcon, MissingLatitudeFileIsRefused) {
  home.write("nadcon/half.los", nadcon_los_bytes(conus_grid()));
  loaded_pair pair(gx_method_nadcon_load, "half");
  EXPECT_EQ(pair.floats, 0);
  EXPECT_EQ(gx_method_nadcon_load(nullptr, "half"), 0);
}

}  // namespace
