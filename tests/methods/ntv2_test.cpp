// NTv2 grid shift files: reading every form, choosing sub-grids, shifting
// both ways, and refusing malformed files.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "frame/constants.h"
#include "grid_files.h"
#include "method_call.h"
#include "methods/datahome.h"

namespace {

using namespace gx_test;

const double kNoParms[16] = {0};
const sphere kAny = {6378137.0, 0.0066943799901413165};

const bilinear_field kRootLat = {1.0f, 0.5f, 0.25f, 0.125f};
const bilinear_field kRootLon = {-2.0f, 0.25f, 0.75f, -0.0625f};
const bilinear_field kChildLat = {5.0f, -0.5f, 1.0f, 0.25f};
const bilinear_field kChildLon = {3.0f, 0.125f, -0.25f, 0.5f};

// 10N to 12.5N, 19E to 21E, every half degree: 6 rows of 5 nodes.  In
// seconds, longitudes positive west.  The edges are chosen so that degrees
// through radians and back land on them exactly.
ntv2_subgrid root_grid(const std::string& name = "ROOT") {
  return {name, "NONE", 36000, 45000, -75600, -68400, 1800, 1800, kRootLat.nodes(),
          kRootLon.nodes()};
}

// 10.5N to 11N, 19.5E to 20E, every quarter degree: 3 by 3.
ntv2_subgrid child_grid(const std::string& parent = "ROOT") {
  return {"CHILD", parent, 37800, 39600, -72000, -70200, 900, 900, kChildLat.nodes(),
          kChildLon.nodes()};
}

ntv2_file one_grid_file() {
  ntv2_file f;
  f.grids.push_back(root_grid());
  return f;
}

// The grid's shifts at a point, in arc-seconds, by the definition of the
// fields: columns count half degrees west from 21E, rows north from 10N.
void expected_root(double lon, double lat, double* dlon, double* dlat) {
  const double column = (21.0 - lon) / 0.5, row = (lat - 10.0) / 0.5;
  *dlon = kRootLon.at(column, row);
  *dlat = kRootLat.at(column, row);
}

void expected_child(double lon, double lat, double* dlon, double* dlat) {
  const double column = (20.0 - lon) / 0.25, row = (lat - 10.5) / 0.25;
  *dlon = kChildLon.at(column, row);
  *dlat = kChildLat.at(column, row);
}

// A loaded block for a file written as <home>/ntv2/<name>.gsb.
struct loaded_grid {
  gx_constants* block = gx_constants_new();
  int32_t floats = 0;
  loaded_grid(const char* dataset) { floats = gx_method_ntv2_load(block, dataset); }
  ~loaded_grid() { gx_constants_del(block); }
  int32_t forward(std::vector<point3>& points) const {
    return run_degrees(gx_method_ntv2_forward, kAny, kAny, kNoParms, points, false, nullptr,
                       block->ints, block->values, block->doubles);
  }
  int32_t inverse(std::vector<point3>& points) const {
    return run_degrees(gx_method_ntv2_inverse, kAny, kAny, kNoParms, points, false, nullptr,
                       block->ints, block->values, block->doubles);
  }
};

void expect_shifted(const point3& start, const point3& got, double dlon, double dlat,
                    double tolerance = 1e-12) {
  EXPECT_NEAR(got.lon, start.lon - dlon / 3600.0, tolerance);
  EXPECT_NEAR(got.lat, start.lat + dlat / 3600.0, tolerance);
}

class Ntv2 : public ::testing::Test {
 protected:
  temp_datahome home;
};

TEST_F(Ntv2, LoadsAndInterpolatesBilinearly) {
  home.write("ntv2/single.gsb", ntv2_bytes(one_grid_file()));
  loaded_grid grid("Dataset_single");
  ASSERT_EQ(grid.floats, 2 * 30);
  const std::vector<point3> start = {{20.3, 10.7, 0}, {19.05, 12.45, 0}, {21.0, 10.0, 0}};
  std::vector<point3> points = start;
  EXPECT_EQ(grid.forward(points), 3);
  for (size_t i = 0; i < start.size(); ++i) {
    double dlon, dlat;
    expected_root(start[i].lon, start[i].lat, &dlon, &dlat);
    expect_shifted(start[i], points[i], dlon, dlat);
  }
  // By hand for the first point: column 1.4, row 1.4.
  EXPECT_NEAR(points[0].lat, 10.7 + 2.295 / 3600, 1e-12);
  EXPECT_NEAR(points[0].lon, 20.3 + 0.7225 / 3600, 1e-12);
}

TEST_F(Ntv2, PerCallFormMatchesLoadedForm) {
  home.write("ntv2/single.gsb", ntv2_bytes(one_grid_file()));
  loaded_grid grid("single");
  std::vector<point3> loaded = {{20.3, 10.7, 0}, {19.6, 11.2, 0}, {30.0, 10.0, 0}};
  std::vector<point3> per_call = loaded;
  EXPECT_EQ(grid.forward(loaded), 2);
  EXPECT_EQ(run_degrees(gx_method_ntv2_forward, kAny, kAny, kNoParms, per_call, false,
                        "Dataset_single"),
            2);
  for (size_t i = 0; i < loaded.size(); ++i) {
    EXPECT_EQ(loaded[i].lon, per_call[i].lon);
    EXPECT_EQ(loaded[i].lat, per_call[i].lat);
  }
  std::vector<point3> back = per_call;
  EXPECT_EQ(run_degrees(gx_method_ntv2_inverse, kAny, kAny, kNoParms, back, false, "single"), 2);
  EXPECT_NEAR(back[0].lon, 20.3, 1e-12);
}

TEST_F(Ntv2, EveryRecordFormAndByteOrderGivesTheSameShifts) {
  const std::vector<point3> start = {{20.3, 10.7, 0}, {19.6, 11.2, 0}, {20.9, 11.99, 0}};
  std::vector<std::vector<point3>> results;
  for (bool padded : {true, false}) {
    for (bool swapped : {false, true}) {
      ntv2_file f = one_grid_file();
      f.grids.push_back(child_grid());
      f.padded = padded;
      f.swapped = swapped;
      home.write("ntv2/form.gsb", ntv2_bytes(f));
      loaded_grid grid("form");
      SCOPED_TRACE(std::string(padded ? "padded" : "compact") + (swapped ? " swapped" : ""));
      EXPECT_EQ(grid.floats, 2 * 30 + 2 * 9);
      std::vector<point3> points = start;
      EXPECT_EQ(grid.forward(points), 3);
      results.push_back(points);
    }
  }
  for (size_t k = 1; k < results.size(); ++k) {
    for (size_t i = 0; i < start.size(); ++i) {
      EXPECT_EQ(results[k][i].lon, results[0][i].lon);
      EXPECT_EQ(results[k][i].lat, results[0][i].lat);
    }
  }
}

// The same grid stated in each of the four units.
TEST_F(Ntv2, EveryAngularUnitGivesTheSameShifts) {
  struct unit_case {
    const char* name;
    double per_second;  // file units in one arc-second
  };
  const unit_case units[] = {{"SECONDS", 1.0},
                             {"MINUTES", 1.0 / 60},
                             {"DEGREES", 1.0 / 3600},
                             {"RADIANS", 3.141592653589793 / 180 / 3600}};
  const point3 start = {20.3, 10.7, 0};
  double dlon, dlat;
  expected_root(start.lon, start.lat, &dlon, &dlat);
  for (const unit_case& u : units) {
    SCOPED_TRACE(u.name);
    ntv2_subgrid g = root_grid();
    const double k = u.per_second;
    g.south *= k, g.north *= k, g.east *= k, g.west *= k, g.lat_inc *= k, g.lon_inc *= k;
    g.lat_shift = [k](int r, int c) { return static_cast<float>(kRootLat.at(c, r) * k); };
    g.lon_shift = [k](int r, int c) { return static_cast<float>(kRootLon.at(c, r) * k); };
    ntv2_file f;
    f.unit = u.name;
    f.grids.push_back(g);
    home.write("ntv2/unit.gsb", ntv2_bytes(f));
    loaded_grid grid("unit");
    std::vector<point3> points = {start};
    ASSERT_EQ(grid.forward(points), 1);
    expect_shifted(start, points[0], dlon, dlat, 1e-10);
  }
}

TEST_F(Ntv2, InverseUndoesForward) {
  ntv2_file f = one_grid_file();
  f.grids.push_back(child_grid());
  home.write("ntv2/tree.gsb", ntv2_bytes(f));
  loaded_grid grid("tree");
  const std::vector<point3> start = {{20.3, 10.7, 0}, {19.7, 10.6, 0}, {19.2, 11.8, 0}};
  std::vector<point3> points = start;
  EXPECT_EQ(grid.forward(points), 3);
  EXPECT_EQ(grid.inverse(points), 3);
  for (size_t i = 0; i < start.size(); ++i) {
    EXPECT_NEAR(points[i].lon, start[i].lon, 1e-13);
    EXPECT_NEAR(points[i].lat, start[i].lat, 1e-13);
  }
}

TEST_F(Ntv2, ChildGridIsChosenWhereItHoldsThePointInside) {
  ntv2_file f = one_grid_file();
  f.grids.push_back(child_grid());
  home.write("ntv2/tree.gsb", ntv2_bytes(f));
  loaded_grid grid("tree");
  struct where {
    point3 p;
    bool in_child;
  };
  const where cases[] = {
      {{19.7, 10.6, 0}, true},    // inside the child
      {{19.7, 10.5, 0}, true},    // its south edge belongs to it
      {{20.0, 10.6, 0}, true},    // and its east edge
      {{19.7, 11.0, 0}, false},   // its north edge is the parent's interior
      {{19.5, 10.6, 0}, false},   // so is its west edge
      {{20.3, 10.7, 0}, false},   // outside the child
  };
  for (const where& w : cases) {
    SCOPED_TRACE(testing::Message() << w.p.lon << " " << w.p.lat);
    std::vector<point3> points = {w.p};
    ASSERT_EQ(grid.forward(points), 1);
    double dlon, dlat;
    if (w.in_child) {
      expected_child(w.p.lon, w.p.lat, &dlon, &dlat);
    } else {
      expected_root(w.p.lon, w.p.lat, &dlon, &dlat);
    }
    expect_shifted(w.p, points[0], dlon, dlat);
  }
}

TEST_F(Ntv2, SharedEdgeOfTwoRootsGoesToTheWesternGrid) {
  ntv2_file f = one_grid_file();  // 19E to 21E
  ntv2_subgrid east = root_grid("EAST");  // 21E to 23E, another field
  east.east -= 7200, east.west -= 7200;
  east.lat_shift = kChildLat.nodes();
  east.lon_shift = kChildLon.nodes();
  f.grids.push_back(east);
  home.write("ntv2/two.gsb", ntv2_bytes(f));
  loaded_grid grid("two");
  std::vector<point3> points = {{21.0, 10.7, 0}, {21.5, 10.7, 0}};
  ASSERT_EQ(grid.forward(points), 2);
  double dlon, dlat;
  expected_root(21.0, 10.7, &dlon, &dlat);  // the east edge of the western grid
  expect_shifted({21.0, 10.7, 0}, points[0], dlon, dlat);
  const double column = (23.0 - 21.5) / 0.5, row = 0.7 / 0.5;
  expect_shifted({21.5, 10.7, 0}, points[1], kChildLon.at(column, row), kChildLat.at(column, row));
}

TEST_F(Ntv2, OuterNorthAndWestEdgesUseTheLastNodes) {
  home.write("ntv2/single.gsb", ntv2_bytes(one_grid_file()));
  loaded_grid grid("single");
  std::vector<point3> points = {{19.0, 12.5, 0}, {20.3, 12.5, 0}, {19.0, 10.7, 0}};
  ASSERT_EQ(grid.forward(points), 3);
  // North-west corner: that one node, column 4, row 5.
  expect_shifted({19.0, 12.5, 0}, points[0], kRootLon.at(4, 5), kRootLat.at(4, 5));
  // North edge: along the last row.  West edge: along the last column.
  expect_shifted({20.3, 12.5, 0}, points[1], kRootLon.at(1.4, 5), kRootLat.at(1.4, 5));
  expect_shifted({19.0, 10.7, 0}, points[2], kRootLon.at(4, 1.4), kRootLat.at(4, 1.4));
}

TEST_F(Ntv2, PointsOutsideEveryGridStayAndAreNotCounted) {
  ntv2_file f = one_grid_file();
  // Names a parent that doesn't exist: not a root and nobody's child.
  ntv2_subgrid orphan = child_grid("NOBODY");
  orphan.south += 36000, orphan.north += 36000;  // 20.5N to 21N, outside the root
  f.grids.push_back(orphan);
  home.write("ntv2/orphan.gsb", ntv2_bytes(f));
  loaded_grid grid("orphan");
  const std::vector<point3> start = {{19.7, 20.6, 0}, {18.9, 11.0, 0}, {20.3, 12.51, 0},
                                     {NAN, 11.0, 0}};
  std::vector<point3> points = start;
  EXPECT_EQ(grid.forward(points), 0);
  EXPECT_EQ(grid.inverse(points), 0);
  for (size_t i = 0; i < start.size(); ++i) {
    EXPECT_NEAR(points[i].lat, start[i].lat, 1e-13);
  }
}

TEST_F(Ntv2, FileIsFoundUnderItsOtherSpellings) {
  const gx_test::bytes data = ntv2_bytes(one_grid_file());
  home.write("ntv2/upper.GSB", data);
  home.write("ntv2/lower.gsb", data);
  home.write("ntv2/canada/sub.gsb", data);
  for (const char* dataset : {"Dataset_upper", "dataset_LOWER", "DATASET_canada\\sub",
                              "canada/sub.gsb", "LOWER.gsb"}) {
    SCOPED_TRACE(dataset);
    loaded_grid grid(dataset);
    EXPECT_EQ(grid.floats, 60);
  }
  loaded_grid missing("Dataset_missing");
  EXPECT_EQ(missing.floats, 0);
  std::vector<point3> points = {{20.3, 10.7, 0}};
  EXPECT_EQ(run_degrees(gx_method_ntv2_forward, kAny, kAny, kNoParms, points, false, "missing"), 0);
  EXPECT_EQ(run_degrees(gx_method_ntv2_forward, kAny, kAny, kNoParms, points, false, ""), 0);
  EXPECT_EQ(run_degrees(gx_method_ntv2_forward, kAny, kAny, kNoParms, points, false, nullptr), 0);
  EXPECT_EQ(points[0].lon, 20.3);
}

// ---- malformed files -------------------------------------------------------

void expect_refused(const temp_datahome& home, const gx_test::bytes& data) {
  home.write("ntv2/bad.gsb", data);
  loaded_grid grid("bad");
  EXPECT_EQ(grid.floats, 0);
  EXPECT_EQ(gx_constants_ints(grid.block), nullptr);
  EXPECT_EQ(gx_constants_values(grid.block), nullptr);
  EXPECT_EQ(gx_constants_doubles(grid.block), nullptr);
  std::vector<point3> points = {{20.3, 10.7, 0}};
  EXPECT_EQ(run_degrees(gx_method_ntv2_forward, kAny, kAny, kNoParms, points, false, "bad"), 0);
  EXPECT_EQ(points[0].lon, 20.3);
}

TEST_F(Ntv2, EveryTruncationIsRefused) {
  for (bool padded : {true, false}) {
    ntv2_file f = one_grid_file();
    f.grids.push_back(child_grid());
    f.padded = padded;
    gx_test::bytes data = ntv2_bytes(f);
    data.resize(data.size() - 16);  // the END record is not needed
    for (size_t length = 0; length < data.size(); ++length) {
      SCOPED_TRACE(length);
      expect_refused(home, gx_test::bytes(data.begin(), data.begin() + length));
    }
  }
}

TEST_F(Ntv2, CountsBeyondTheFileAreRefused) {
  ntv2_file f = one_grid_file();
  f.grids[0].count = 0x7ffffff0;
  expect_refused(home, ntv2_bytes(f));
  ntv2_file g = one_grid_file();
  g.grid_count = 1000000;
  expect_refused(home, ntv2_bytes(g));
}

TEST_F(Ntv2, HeadersThatDescribeNoGridAreRefused) {
  ntv2_file zero_lat = one_grid_file();
  zero_lat.grids[0].lat_inc = 0;
  zero_lat.grids[0].count = 30;
  expect_refused(home, ntv2_bytes(zero_lat));

  ntv2_file zero_lon = one_grid_file();
  zero_lon.grids[0].lon_inc = 0;
  zero_lon.grids[0].count = 30;
  expect_refused(home, ntv2_bytes(zero_lon));

  ntv2_file too_few = one_grid_file();  // more nodes implied than stored
  too_few.grids[0].count = 29;
  expect_refused(home, ntv2_bytes(too_few));

  ntv2_file records = one_grid_file();
  records.records = 12;
  expect_refused(home, ntv2_bytes(records));

  ntv2_file unit = one_grid_file();
  unit.unit = "FURLONGS";
  expect_refused(home, ntv2_bytes(unit));

  ntv2_file no_grids = one_grid_file();
  no_grids.grid_count = 0;
  expect_refused(home, ntv2_bytes(no_grids));

  ntv2_file nan_edge = one_grid_file();
  nan_edge.grids[0].north = NAN;
  nan_edge.grids[0].count = 30;
  expect_refused(home, ntv2_bytes(nan_edge));
}

TEST_F(Ntv2, ParentCycleIsRefused) {
  ntv2_file f = one_grid_file();
  ntv2_subgrid a = child_grid("B");
  a.name = "A";
  ntv2_subgrid b = child_grid("A");
  b.name = "B";
  f.grids.push_back(a);
  f.grids.push_back(b);
  expect_refused(home, ntv2_bytes(f));
  // A grid that names itself has no parent: "the first other sub-grid".
  ntv2_file self = one_grid_file();
  ntv2_subgrid s = child_grid("SELF");
  s.name = "SELF";
  self.grids.push_back(s);
  home.write("ntv2/self.gsb", ntv2_bytes(self));
  loaded_grid grid("self");
  EXPECT_EQ(grid.floats, 78);
}

}  // namespace
