// The command-line converter as a user runs it: files of points through
// definitions, compared with an independent reference.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "methods/grid_files.h"

namespace {

const std::string kData = GX_TEST_DATA_DIR;
const std::string kTool = GX_CONVERTER;

struct ToolRun {
  int status;
  std::vector<std::string> lines;
  std::string errors;  // what it said on standard error
};

// `environment` is put before the command, as "NAME=value ...".
ToolRun RunTool(const std::string& arguments, const std::string& environment = "") {
  ToolRun run;
  // ctest runs tests side by side: each run has a file of its own.
  static int runs = 0;
  std::string errors = kData + "/../gxconv_errors_" + std::to_string(getpid()) + "_" +
                       std::to_string(++runs) + ".txt";
  std::string command = environment + " " + kTool + " " + arguments + " 2>" + errors;
  FILE* pipe = popen(command.c_str(), "r");
  char line[4096];
  while (pipe != nullptr && std::fgets(line, sizeof line, pipe) != nullptr) {
    std::string text(line);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    run.lines.push_back(text);
  }
  run.status = pipe != nullptr ? pclose(pipe) : -1;
  std::ifstream said(errors);
  run.errors.assign(std::istreambuf_iterator<char>(said), std::istreambuf_iterator<char>());
  std::remove(errors.c_str());
  return run;
}

std::vector<std::pair<double, double>> ReadPairs(const std::string& path) {
  std::vector<std::pair<double, double>> pairs;
  std::ifstream file(path);
  double x, y;
  while (file >> x >> y) pairs.push_back({x, y});
  return pairs;
}

TEST(Converter, BuiltInExampleRoundTripsUtm) {
  ToolRun run = RunTool("");
  EXPECT_EQ(run.status, 0);
  ASSERT_GE(run.lines.size(), 10u);
  EXPECT_NE(run.lines[0].find("UTM"), std::string::npos);
  for (size_t i = 2; i < run.lines.size(); ++i) {
    double error = std::stod(run.lines[i].substr(run.lines[i].rfind("  ") + 2));
    EXPECT_LT(error, 1e-5) << run.lines[i];
  }
}

// A thousand points over UTM zone 33N; reference: PROJ 9.1,
// proj -f %.6f +proj=utm +zone=33 +ellps=WGS84.
TEST(Converter, ThousandPointsToUtm33AgreeWithProjToAMillimetre) {
  ToolRun run = RunTool("--from @" + kData + "/wgs84.wkt --to @" + kData + "/utm33n.wkt " + kData +
                    "/utm33_input.txt");
  EXPECT_EQ(run.status, 0);
  auto expected = ReadPairs(kData + "/utm33_proj.txt");
  ASSERT_EQ(run.lines.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    std::istringstream line(run.lines[i]);
    double x, y;
    line >> x >> y;
    EXPECT_NEAR(x, expected[i].first, 1e-3) << "line " << i + 1;
    EXPECT_NEAR(y, expected[i].second, 1e-3) << "line " << i + 1;
  }
}

// A converted line: two numbers and whatever followed them.
struct OutputPoint {
  double x = 0, y = 0;
  std::string rest;
};

OutputPoint ParseLine(const std::string& line) {
  OutputPoint p;
  std::istringstream in(line);
  in >> p.x >> p.y;
  std::getline(in, p.rest);
  return p;
}

// NAD 27 to NAD 83 over southern Ontario: a quarter-degree root grid, 41N to
// 47N and 74W to 84W, with a denser child around Toronto.  Shifts in
// arc-seconds, smooth and of the size the real ones have; NTv2 longitudes
// are positive west, so column 0 is the east edge.
gx_test::ntv2_file OntarioGrid() {
  gx_test::ntv2_file file;
  file.grids.push_back({"ONTARIO", "NONE", 147600, 169200, 266400, 302400, 900, 900,
                        gx_test::bilinear_field(0.12f, 0.004f, 0.006f, -1e-4f),
                        gx_test::bilinear_field(-0.9f, -0.03f, 0.01f, 2e-4f)});
  file.grids.push_back({"TORONTO", "ONTARIO", 156600, 158400, 284400, 286200, 150, 150,
                        gx_test::bilinear_field(0.25f, 0.003f, -0.002f, 5e-5f),
                        gx_test::bilinear_field(-1.55f, 0.004f, 0.003f, -1e-4f)});
  return file;
}

struct GeographicPoint {
  double lon, lat;
};

// The points of ontario_points.txt after the grid, from PROJ 9.1.1 on the
// same file as the test writes it:
//   cct -d 12 [-I] +proj=hgridshift +grids=ontario.gsb
// The first two points lie in the Toronto child grid; the last is off the
// grid, which PROJ refuses as well.
const GeographicPoint kOntarioForward[] = {
    {-79.399582831122, 43.700075417780}, {-79.249583311134, 43.950069344442},
    {-75.699748871105, 45.400066897778}, {-81.249543093328, 42.980072375556},
    {-82.999555111132, 46.500088000000},
};
const GeographicPoint kOntarioInverse[] = {
    {-79.400417160114, 43.699924572445}, {-79.250416681864, 43.949930644938},
    {-75.700251137128, 45.399933101992}, {-81.250456922369, 42.979927623065},
    {-83.000444903205, 46.499911999345},
};

// Compares a run of ontario_points.txt with PROJ: the off-grid line is "*"
// with its note, every other line keeps its note too.
void ExpectOntarioRun(const ToolRun& run, const GeographicPoint* expected) {
  EXPECT_NE(run.status, 0);  // one line could not be converted
  ASSERT_EQ(run.lines.size(), 6u);
  const char* notes[] = {" Toronto", "", " Ottawa", " London", ""};
  for (size_t i = 0; i < 5; ++i) {
    OutputPoint p = ParseLine(run.lines[i]);
    // Printed to 1e-10 degree; PROJ agrees to 4e-11.
    EXPECT_NEAR(p.x, expected[i].lon, 2e-10) << "line " << i + 1;
    EXPECT_NEAR(p.y, expected[i].lat, 2e-10) << "line " << i + 1;
    EXPECT_EQ(p.rest, notes[i]) << "line " << i + 1;
  }
  EXPECT_EQ(run.lines[5], "* off the grid");
}

TEST(Converter, Nad27ThroughAnNtv2GridFromTheDataHomeIntoNad83) {
  gx_test::temp_datahome home;
  home.write("ntv2/ontario.gsb", gx_test::ntv2_bytes(OntarioGrid()));
  const std::string environment = "GXDATAHOME=" + home.path();
  const std::string via = " --via @" + kData + "/nad27_to_nad83_ontario.wkt ";
  const std::string nad27 = "@" + kData + "/nad27.wkt", nad83 = "@" + kData + "/nad83.wkt";
  const std::string points = kData + "/ontario_points.txt";

  ExpectOntarioRun(RunTool("--from " + nad27 + " --to " + nad83 + via + points, environment),
                   kOntarioForward);
  // The same places taken as NAD 83 coordinates, back to NAD 27.
  ExpectOntarioRun(
      RunTool("--from " + nad83 + " --to " + nad27 + via + "--reverse " + points, environment),
      kOntarioInverse);

  // Without a data home the grid is not found: no line converts, each
  // keeps its place.
  ToolRun lost = RunTool("--from " + nad27 + " --to " + nad83 + via + points, "env -u GXDATAHOME");
  EXPECT_NE(lost.status, 0);
  ASSERT_EQ(lost.lines.size(), 6u);
  EXPECT_EQ(lost.lines[0], "* Toronto");
}

// ED 50 over the North Sea to WGS 84 by the published Position Vector
// transformation ED50 to WGS 84 (18), EPSG:1311, then to UTM zone 31N.
// Reference: PROJ 9.1.1,
//   cs2cs -f %.4f +proj=longlat +ellps=intl
//     +towgs84=-89.5,-93.8,-123.1,0,0,-0.156,1.2 +to +proj=utm +zone=31 +datum=WGS84
TEST(Converter, Ed50ThroughPositionVectorIntoUtm31AgreesWithCs2cs) {
  const std::pair<double, double> expected[] = {
      {399241.4640, 5873236.3807}, {437538.9788, 6206455.3821}, {514891.8119, 6373003.8375},
      {582308.4078, 6707978.9568}, {352149.3977, 6431377.1743}, {646277.3233, 6821516.7266},
      {479083.3699, 5705379.9227}, {499908.2253, 6011255.2336},
  };
  ToolRun run = RunTool("--from @" + kData + "/ed50.wkt --to @" + kData + "/utm31n.wkt --via @" +
                        kData + "/ed50_to_wgs84_ukcs.wkt " + kData + "/north_sea_points.txt");
  EXPECT_EQ(run.status, 0);
  ASSERT_EQ(run.lines.size(), 8u);
  for (size_t i = 0; i < 8; ++i) {
    OutputPoint p = ParseLine(run.lines[i]);
    EXPECT_NEAR(p.x, expected[i].first, 1e-3) << "line " << i + 1;
    EXPECT_NEAR(p.y, expected[i].second, 1e-3) << "line " << i + 1;
  }
  // Without --via the two datums are refused rather than silently mixed.
  ToolRun refused = RunTool("--from @" + kData + "/ed50.wkt --to @" + kData + "/utm31n.wkt " +
                            kData + "/north_sea_points.txt");
  EXPECT_NE(refused.status, 0);
  EXPECT_TRUE(refused.lines.empty());
}

TEST(Converter, BadLinesAreToldByNumberAndTheRunGoesOn) {
  // Each line in, what comes out for it, and what standard error says of it.
  struct Case {
    const char* in;
    const char* out;  // "" for a converted point
    const char* said;
  } cases[] = {
      {"15 50", "", nullptr},
      {"", "", nullptr},
      {"# a comment", "# a comment", nullptr},
      {"abc 50", "*", "line 4: the first column is not a number: \"abc\""},
      {"15", "*", "line 5: one number where two are needed"},
      {"15 50 100", "*", "line 6: a third number where two are expected"},
      {"nan 50", "*", "line 7: the first number is not finite"},
      {"15 inf", "*", "line 8: the second number is not finite"},
      {"16,51 Berlin", "", nullptr},
  };
  std::string input = kData + "/../mixed_input.txt";
  {
    std::ofstream file(input);
    for (const Case& c : cases) file << c.in << "\n";
  }
  ToolRun run = RunTool("--from @" + kData + "/wgs84.wkt --to @" + kData + "/utm33n.wkt " + input);
  std::remove(input.c_str());
  EXPECT_EQ(run.status >> 8, 3);
  ASSERT_EQ(run.lines.size(), std::size(cases));
  for (size_t i = 0; i < std::size(cases); ++i) {
    const Case& c = cases[i];
    if (c.out[0] != '\0' || c.in[0] == '\0') EXPECT_EQ(run.lines[i], c.out) << "line " << i + 1;
    else EXPECT_NE(run.lines[i].find('.'), std::string::npos) << "line " << i + 1;
    if (c.said != nullptr) EXPECT_NE(run.errors.find(c.said), std::string::npos) << c.said << " in " << run.errors;
  }
  EXPECT_NE(run.errors.find("5 of 9 lines failed"), std::string::npos) << run.errors;
  EXPECT_NE(run.lines[8].find("Berlin"), std::string::npos);
}

TEST(Converter, DefinitionsAndFilesThatDoNotOpenAreToldInWords) {
  ToolRun missing = RunTool("--from @" + kData + "/wgs84.wkt --to @" + kData + "/utm33n.wkt /no/such/file");
  EXPECT_NE(missing.status, 0);
  EXPECT_NE(missing.errors.find("cannot open /no/such/file: No such file"), std::string::npos);
  ToolRun unread = RunTool("--from @" + kData + "/wgs84.wkt --to 'PROJCS[\"x\",GEOGCS[\"g\",DATUM[\"d\","
                           "SPHEROID[\"s\",6378137,298.3]],PRIMEM[\"G\",0],UNIT[\"Degree\",0.0174532925199433]],"
                           "PROJECTION[\"Nope\"],UNIT[\"Meter\",1]]' /dev/null");
  EXPECT_NE(unread.status, 0);
  EXPECT_NE(unread.errors.find("Invalid projection name \"Nope\""), std::string::npos) << unread.errors;
}

TEST(Converter, ProjectedBackToGeographicAndToGridReferences) {
  std::string input = kData + "/../utm_input.txt";
  {
    std::ofstream file(input);
    file << "500000 5540000\n";
  }
  ToolRun back = RunTool("--from @" + kData + "/utm33n.wkt --to @" + kData + "/wgs84.wkt " + input);
  ASSERT_EQ(back.lines.size(), 1u);
  double lon = 0, lat = 0;
  std::istringstream(back.lines[0]) >> lon >> lat;
  EXPECT_NEAR(lon, 15.0, 1e-9);
  ToolRun mgrs = RunTool("--from @" + kData + "/utm33n.wkt --to MGRS:5 " + input);
  ASSERT_EQ(mgrs.lines.size(), 1u);
  // GeoConvert: echo "33n 500000 5540000" | GeoConvert -m -p 0 gives 33UWR0000040000.
  EXPECT_EQ(mgrs.lines[0], "33UWR0000040000");
  std::remove(input.c_str());
}

TEST(Converter, DefinitionThatDoesNotReadFails) {
  ToolRun run = RunTool("--from 'GEOGCS[\"x\"]' --to MGRS");
  EXPECT_NE(run.status, 0);
  ToolRun wkt = RunTool("--wkt 'UNIT[\"Meter\",1.0'");
  EXPECT_EQ(wkt.status, 0);
  ASSERT_FALSE(wkt.lines.empty());
  EXPECT_EQ(wkt.lines[0], "unit: UNIT[\"Meter\",1.0]");
}

TEST(Converter, ListsEveryProjection) {
  ToolRun run = RunTool("--list");
  EXPECT_EQ(run.status, 0);
  ASSERT_GT(run.lines.size(), 50u);
  EXPECT_NE(run.lines[1].find("Plate_Carree"), std::string::npos);
}

}  // namespace

namespace {

// A thousand places, with Oslo, Longyearbyen, the South Pole and McMurdo
// among them, become references and come back into their cells.
class ConverterReferences : public ::testing::TestWithParam<const char*> {};

TEST_P(ConverterReferences, ThousandPlacesComeBackIntoTheirCells) {
  std::string places = kData + "/../places_" + GetParam() + ".txt";
  std::string references = kData + "/../references_" + GetParam() + ".txt";
  std::vector<std::pair<double, double>> points = {
      {10.7522, 59.9139}, {15.6356, 78.2232}, {0.0, -90.0}, {166.6863, -77.8419}};
  unsigned state = 12345;
  auto next = [&state]() {
    state = state * 1103515245u + 12345u;
    return (state >> 8) / 16777216.0;
  };
  while (points.size() < 1000) points.push_back({-180.0 + 360.0 * next(), -80.0 + 164.0 * next()});
  {
    std::ofstream file(places);
    file.precision(12);
    for (auto& p : points) file << p.first << " " << p.second << "\n";
  }
  const std::string kind = GetParam();
  ToolRun to = RunTool("--from @" + kData + "/wgs84.wkt --to " + kind + ":5 " + places);
  EXPECT_EQ(to.status, 0);
  ASSERT_EQ(to.lines.size(), points.size());
  {
    std::ofstream file(references);
    for (auto& line : to.lines) file << line << "\n";
  }
  ToolRun back = RunTool("--from " + kind + " --to @" + kData + "/wgs84.wkt " + references);
  EXPECT_EQ(back.status, 0);
  ASSERT_EQ(back.lines.size(), points.size());
  for (size_t i = 0; i < points.size(); ++i) {
    double lon = 0, lat = 0;
    std::istringstream(back.lines[i]) >> lon >> lat;
    // Precision 5 is a 1 m MGRS square, or a 0.001 minute GEOREF cell; the
    // reading gives a corner, so the place lies within a few metres of it.
    double dy = (lat - points[i].second) * 111320.0;
    double dx = std::remainder(lon - points[i].first, 360.0) * 111320.0 *
                std::cos(points[i].second * 0.017453292519943295);
    EXPECT_LT(std::hypot(dx, dy), 3.0) << kind << " " << to.lines[i] << " for "
                                       << points[i].first << " " << points[i].second;
  }
  std::remove(places.c_str());
  std::remove(references.c_str());
}

INSTANTIATE_TEST_SUITE_P(Kinds, ConverterReferences, ::testing::Values("MGRS", "GEOREF"));

}  // namespace

namespace {

// National grids through the converter, against PROJ 9.1 on the same points
// (the commands are in tests/tools/data/README; Krovak's axes are this
// library's southing and westing where PROJ writes their negatives).
struct NationalGrid {
  const char* name;
  const char* geographic;  // the grid's own geographic system
};

class ConverterNationalGrids : public ::testing::TestWithParam<NationalGrid> {};

TEST_P(ConverterNationalGrids, AgreeWithProjAndRoundTrip) {
  const std::string name = GetParam().name;
  const std::string geographic = "@" + kData + "/" + GetParam().geographic + ".wkt";
  const std::string definition = "@" + kData + "/" + name + ".wkt";
  const std::string input = kData + "/" + name + "_input.txt";
  ToolRun to = RunTool("--from " + geographic + " --to " + definition + " " + input);
  EXPECT_EQ(to.status, 0);
  auto expected = ReadPairs(kData + "/" + name + "_proj.txt");
  auto places = ReadPairs(input);
  ASSERT_EQ(to.lines.size(), expected.size());
  std::string projected = kData + "/../" + name + "_projected.txt";
  {
    std::ofstream file(projected);
    for (auto& line : to.lines) file << line << "\n";
  }
  for (size_t i = 0; i < expected.size(); ++i) {
    double x = 0, y = 0;
    std::istringstream(to.lines[i]) >> x >> y;
    EXPECT_NEAR(x, expected[i].first, 1e-3) << name << " line " << i + 1;
    EXPECT_NEAR(y, expected[i].second, 1e-3) << name << " line " << i + 1;
  }
  ToolRun back = RunTool("--from " + definition + " --to " + geographic + " " + projected);
  ASSERT_EQ(back.lines.size(), places.size());
  for (size_t i = 0; i < places.size(); ++i) {
    double lon = 0, lat = 0;
    std::istringstream(back.lines[i]) >> lon >> lat;
    // Back to the place within a millimetre (the projected lines carry 0.1 mm).
    double east = (lon - places[i].first) * 111320.0 * std::cos(lat * 0.017453292519943295);
    EXPECT_NEAR(east, 0.0, 1e-3) << name << " line " << i + 1;
    EXPECT_NEAR((lat - places[i].second) * 111320.0, 0.0, 1e-3) << name << " line " << i + 1;
  }
  std::remove(projected.c_str());
}

INSTANTIATE_TEST_SUITE_P(Grids, ConverterNationalGrids,
                         ::testing::Values(NationalGrid{"texas_sc", "nad83"},
                                           NationalGrid{"antarctic_ps", "wgs84"},
                                           NationalGrid{"usa_albers", "nad83"},
                                           NationalGrid{"krovak", "sjtsk"},
                                           // EPSG:5514 and EPSG:2065 as exported by common GIS
                                           // software, at places across both countries.
                                           NationalGrid{"sjtsk_east_north", "sjtsk"},
                                           NationalGrid{"krovak_ferro", "sjtsk_ferro"}),
                         [](const ::testing::TestParamInfo<NationalGrid>& info) {
                           return std::string(info.param.name);
                         });

}  // namespace

namespace {

struct Listed {
  std::string name;
  std::string parameters;  // PARAMETER clauses from the listing
  double lon0 = 0, lat0 = 0;
};

// The listing's rows, each turned into a definition from its defaults.
std::vector<Listed> ListedProjections() {
  std::vector<Listed> listed;
  ToolRun run = RunTool("--list");
  for (size_t i = 1; i < run.lines.size(); ++i) {
    std::istringstream line(run.lines[i]);
    int code;
    Listed row;
    line >> code >> row.name;
    std::string rest;
    std::getline(line, rest);
    std::istringstream pairs(rest);
    std::string pair;
    double lon_center = 1e9, lat_center = 1e9;
    while (std::getline(pairs, pair, ',')) {
      size_t equals = pair.find('=');
      if (equals == std::string::npos) continue;
      std::string key = pair.substr(pair.find_first_not_of(' '), equals - pair.find_first_not_of(' '));
      double value = std::stod(pair.substr(equals + 1));
      row.parameters += ",PARAMETER[\"" + key + "\"," + std::to_string(value) + "]";
      if (key == "Central_Meridian" || key == "Longitude_Of_Origin") row.lon0 = value;
      if (key == "Latitude_Of_Origin" || key == "Central_Parallel") row.lat0 = value;
      if (key == "Longitude_Of_Center") lon_center = value;
      if (key == "Latitude_Of_Center") lat_center = value;
    }
    if (lon_center != 1e9) row.lon0 = lon_center;
    if (lat_center != 1e9) row.lat0 = lat_center;
    listed.push_back(row);
  }
  return listed;
}

// Every listed projection takes a world grid through the converter and back:
// one line out for every line in, "*" where a point has no image, and the
// points near the projection's centre back where they started.
TEST(ConverterWorldGrid, EveryListedProjectionConvertsAndReturns) {
  std::string grid = kData + "/../world_grid.txt";
  {
    std::ofstream file(grid);
    for (int lat = -80; lat <= 80; lat += 20)
      for (int lon = -175; lon <= 180; lon += 10) file << lon << " " << lat << "\n";
  }
  auto places = ReadPairs(grid);
  const char* geogcs =
      "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
      "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
  std::vector<Listed> listed = ListedProjections();
  ASSERT_GE(listed.size(), 69u);
  int checked = 0;
  for (const Listed& row : listed) {
    std::string definition = kData + "/../definition.wkt";
    {
      std::ofstream file(definition);
      file << "PROJCS[\"Test\"," << geogcs << ",PROJECTION[\"" << row.name << "\"]"
           << row.parameters << ",UNIT[\"Meter\",1.0]]";
    }
    ToolRun to = RunTool("--from @" + kData + "/wgs84.wkt --to @" + definition + " " + grid);
    ASSERT_EQ(to.lines.size(), places.size()) << row.name;
    std::string projected = kData + "/../projected.txt";
    {
      std::ofstream file(projected);
      for (auto& line : to.lines) file << line << "\n";
    }
    ToolRun back = RunTool("--from @" + definition + " --to @" + kData + "/wgs84.wkt " + projected);
    ASSERT_EQ(back.lines.size(), places.size()) << row.name;
    int near = 0;
    for (size_t i = 0; i < places.size(); ++i) {
      if (to.lines[i] == "*" || back.lines[i] == "*") continue;
      double dlon = std::remainder(places[i].first - row.lon0, 360.0);
      if (std::fabs(dlon) > 10 || std::fabs(places[i].second - row.lat0) > 25) continue;
      if (row.name == "Cassini" || row.name == "New_Zealand_Map_Grid" ||
          row.name == "Two_Point_Equidistant")
        continue;  // meant for a small region, or an inverse that mirrors (see the list test)
      double lon = 0, lat = 0;
      std::istringstream(back.lines[i]) >> lon >> lat;
      EXPECT_NEAR(std::remainder(lon - places[i].first, 360.0), 0.0, 1e-6)
          << row.name << " at " << places[i].first << " " << places[i].second;
      EXPECT_NEAR(lat, places[i].second, 1e-6) << row.name;
      ++near;
    }
    checked += near;
    std::remove(definition.c_str());
    std::remove(projected.c_str());
  }
  EXPECT_GT(checked, 400);  // the round trips did run
  std::remove(grid.c_str());
}

}  // namespace
