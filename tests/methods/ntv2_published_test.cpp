// Published national NTv2 grids, as Debian's proj-data package installs
// them, read through the data home and applied by GEOGTRAN definitions in
// both directions.  Expected values come from PROJ 9.1.1 on the same files:
//   cct -d 12 +proj=hgridshift +grids=FILE         (forward)
//   cct -d 12 -I +proj=hgridshift +grids=FILE      (inverse)
// with the start points as "longitude latitude 0 0".
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "gx_convert.h"
#include "gx_objects.h"
#include "methods/grid_files.h"

namespace {

// Where Debian's proj-data puts its grids.
const char kInstalledGrids[] = "/usr/share/proj";

struct shift_case {
  double lon, lat;                  // degrees, the first system
  double forward_lon, forward_lat;  // the point shifted forward
  double inverse_lon, inverse_lat;  // the point taken as a target and shifted back
};

struct published_grid {
  const char* file;     // as installed
  const char* dataset;  // as a definition names it
  std::vector<shift_case> cases;
};

const published_grid kGrids[] = {
    // DHDN to ETRS89, Germany (one grid, 47N to 55.3N, 5.5E to 15.67E)
    {"BETA2007.gsb",
     "Dataset_BETA2007",
     {{13.4, 52.5, 13.398256805573, 52.498594413040, 13.401743509650, 52.501405739858},
      {11.58, 48.14, 11.578618710782, 48.139085456776, 11.581381505937, 48.140914640467},
      {6.96, 50.94, 6.959238258227, 50.938743246909, 6.960761859299, 50.941256886038},
      {10.0, 53.55, 9.998780150788, 53.548451527820, 10.001220050404, 53.551548655426}}},
    // NTF to RGF93, France; named in capitals, found by the lowered name
    {"ntf_r93.gsb",
     "Dataset_NTF_R93",
     {{2.35, 48.85, 2.349295593686, 48.849933562569, 2.350704373033, 48.850066438018},
      {-4.49, 48.39, -4.490969838812, 48.389917246093, -4.489030195151, 48.390082741066},
      {5.37, 43.3, 5.369466939358, 43.300023680612, 5.370533048688, 43.299976315906},
      {7.75, 48.58, 7.749478132005, 48.579940216584, 7.750521852506, 48.580059780582},
      {8.74, 41.92, 8.739591358885, 41.920085669720, 8.740408626439, 41.919914326566}}},
    // NZGD49 to NZGD2000, New Zealand; the grid's east edge is 180
    {"nzgd2kgrid0005.gsb",
     "Dataset_nzgd2kgrid0005.gsb",
     {{174.78, -41.29, 174.780190613690, -41.288275515779, 174.779809438617, -41.291724412823},
      {174.76, -36.85, 174.760191646721, -36.848196690654, 174.759808349121, -36.851803272787},
      {172.64, -43.53, 172.640130643526, -43.528327298685, 172.639869370160, -43.531672646660},
      {170.5, -45.87, 170.500098018417, -45.868380939926, 170.499901958415, -45.871619029114}}},
};

// Agreement measured: 4.0e-11 degree (4.5 um) at worst, over all the points
// and both directions.
const double kDegrees = 1e-10;

std::string Geogtran(const std::string& dataset) {
  const std::string geogcs =
      "DATUM[\"D\",SPHEROID[\"GRS_1980\",6378137.0,298.257222101]],PRIMEM[\"Greenwich\",0.0],"
      "UNIT[\"Degree\",0.0174532925199433]]";
  return "GEOGTRAN[\"T\",GEOGCS[\"A\"," + geogcs + ",GEOGCS[\"B\"," + geogcs +
         ",METHOD[\"NTv2\"],PARAMETER[\"" + dataset + "\",0.0]]";
}

// A data home whose ntv2 directory links to the installed file.
void link_installed(const gx_test::temp_datahome& home, const char* file) {
  const std::filesystem::path installed = std::filesystem::path(kInstalledGrids) / file;
  ASSERT_TRUE(std::filesystem::exists(installed))
      << installed << " is not installed: the published NTv2 grids come with Debian's "
      << "proj-data package (apt-get install proj-data; tools/run-tests.sh installs it)";
  std::filesystem::create_symlink(installed, home.path() + "/ntv2/" + file);
}

TEST(PublishedNtv2Grids, ShiftLikeProjBothWays) {
  for (const published_grid& grid : kGrids) {
    SCOPED_TRACE(grid.file);
    gx_test::temp_datahome home;
    link_installed(home, grid.file);
    if (HasFatalFailure()) return;
    gx_geogtran* tran = gx_geogtran_from_string(Geogtran(grid.dataset).c_str());
    ASSERT_NE(tran, nullptr);
    const int32_t n = static_cast<int32_t>(grid.cases.size());
    std::vector<double> forward, inverse;
    for (const shift_case& c : grid.cases) {
      forward.insert(forward.end(), {c.lon, c.lat});
      inverse.insert(inverse.end(), {c.lon, c.lat});
    }
    EXPECT_EQ(gx_geog1_to_geog2(tran, n, forward.data(), nullptr), n);
    EXPECT_EQ(gx_geog2_to_geog1(tran, n, inverse.data(), nullptr), n);
    for (int32_t i = 0; i < n; ++i) {
      const shift_case& c = grid.cases[i];
      EXPECT_NEAR(forward[2 * i], c.forward_lon, kDegrees) << c.lon << " " << c.lat;
      EXPECT_NEAR(forward[2 * i + 1], c.forward_lat, kDegrees) << c.lon << " " << c.lat;
      EXPECT_NEAR(inverse[2 * i], c.inverse_lon, kDegrees) << c.lon << " " << c.lat;
      EXPECT_NEAR(inverse[2 * i + 1], c.inverse_lat, kDegrees) << c.lon << " " << c.lat;
    }
    gx_geogtran_del(tran);
  }
}

// A point off the grid is left as it is and not counted; the inverse of the
// forward result comes back to the start.
TEST(PublishedNtv2Grids, PointsOffTheGridAndRoundTrips) {
  gx_test::temp_datahome home;
  link_installed(home, "ntf_r93.gsb");
  if (HasFatalFailure()) return;
  gx_geogtran* tran = gx_geogtran_from_string(Geogtran("Dataset_ntf_r93").c_str());
  ASSERT_NE(tran, nullptr);
  // Madrid lies south of the grid's 41N, Berlin east of its 10E.
  double points[] = {-3.7, 40.4, 2.35, 48.85, 13.4, 52.5};
  EXPECT_EQ(gx_geog1_to_geog2(tran, 3, points, nullptr), 1);
  EXPECT_EQ(points[0], -3.7);
  EXPECT_EQ(points[1], 40.4);
  EXPECT_EQ(points[4], 13.4);
  EXPECT_EQ(gx_geog2_to_geog1(tran, 3, points, nullptr), 1);
  EXPECT_NEAR(points[2], 2.35, 1e-12);
  EXPECT_NEAR(points[3], 48.85, 1e-12);
  gx_geogtran_del(tran);
}

}  // namespace
