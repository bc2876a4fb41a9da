// The command-line converter as a user runs it: files of points through
// definitions, compared with an independent reference.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::string kData = GX_TEST_DATA_DIR;
const std::string kTool = GX_CONVERTER;

struct ToolRun {
  int status;
  std::vector<std::string> lines;
};

ToolRun RunTool(const std::string& arguments) {
  ToolRun run;
  std::string command = kTool + " " + arguments + " 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  char line[4096];
  while (pipe != nullptr && std::fgets(line, sizeof line, pipe) != nullptr) {
    std::string text(line);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    run.lines.push_back(text);
  }
  run.status = pipe != nullptr ? pclose(pipe) : -1;
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

TEST(Converter, BadLinesKeepTheirPlace) {
  std::string input = kData + "/../mixed_input.txt";
  {
    std::ofstream file(input);
    file << "15 50\nnot a point\n16 51\n";
  }
  ToolRun run = RunTool("--from @" + kData + "/wgs84.wkt --to @" + kData + "/utm33n.wkt " + input);
  std::remove(input.c_str());
  EXPECT_NE(run.status, 0);
  ASSERT_EQ(run.lines.size(), 3u);
  EXPECT_EQ(run.lines[1], "*");
  EXPECT_NE(run.lines[2], "*");
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
